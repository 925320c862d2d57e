#include "plan.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "index_order.h"
#include "kybase.h"
#include "pattern.h"
#include "types.h"
#include "value.h"

namespace engine {

namespace {

constexpr unsigned short kRelationBits = KyCmpEqual | KyCmpLess | KyCmpGreater;
constexpr unsigned short kNotEqual = KyCmpLess | KyCmpGreater;

/// So many characters of a constant that is longer than a key bound a scan from below.
constexpr unsigned short kCharactersOfBound = 60;

Folding FoldingOf(unsigned short op) {
    return {.ignoreCase = (op & KyCmpIgnoreCase) != 0, .ignoreAccent = (op & KyCmpIgnoreAccent) != 0};
}

class Planner {
public:
    Planner(const Snapshot& aSnapshot, const Query& aQuery, const std::vector<StoredConstant>& someConstants)
        : snapshot(aSnapshot), query(aQuery), constants(someConstants), layout(aSnapshot.Of().Layout(aQuery.classAt)) {}

    AccessPath Plan(const Condition& condition) {
        switch (condition.kind) {
            case Condition::Kind::comparison: {
                const Condition* const only[] = {&condition};
                return BestOf(only);
            }
            case Condition::Kind::all: {
                std::vector<const Condition*> parts;
                for (const Condition& part : condition.parts) parts.push_back(&part);
                return BestOf(parts);
            }
            default:
                return Union(condition);
        }
    }

private:
    const Snapshot& snapshot;
    const Query& query;
    const std::vector<StoredConstant>& constants;
    const RecordLayout& layout;

    /// Conditions that all have to hold: the comparisons of each attribute narrow one range together.
    AccessPath BestOf(std::span<const Condition* const> conditions) {
        AccessPath best;
        for (std::size_t attribute = 0; attribute < layout.Of().attributes.size(); ++attribute) {
            AccessPath path = Narrow(attribute, conditions);
            if (path.kind != AccessPath::Kind::allObjects && path.share < best.share) best = std::move(path);
        }
        for (const Condition* condition : conditions) {
            if (condition->kind == Condition::Kind::comparison) continue;
            AccessPath path = Plan(*condition);
            if (path.kind != AccessPath::Kind::allObjects && path.share < best.share) best = std::move(path);
        }
        return best;
    }

    AccessPath Union(const Condition& condition) {
        AccessPath all{.kind = AccessPath::Kind::severalIndexes, .share = 0, .scan = {}, .parts = {}};
        for (const Condition& part : condition.parts) {
            AccessPath path = Plan(part);
            if (path.kind == AccessPath::Kind::allObjects) return {};
            all.share += path.share;
            all.parts.push_back(std::move(path));
        }
        all.share = std::min(all.share, 1.0);
        return all;
    }

    bool Serves(const Attribute& attribute, const Comparison& comparison) const {
        if (!attribute.index || attribute.count > 1 || (comparison.op & kRelationBits) == kNotEqual) return false;
        return attribute.type != KySTRING_T || *attribute.index == FoldingOf(comparison.op);
    }

    AccessPath Narrow(std::size_t attributeAt, std::span<const Condition* const> conditions) {
        const Attribute& attribute = layout.Of().attributes[attributeAt];
        AccessPath path;
        path.scan.attribute = attributeAt;
        for (const Condition* condition : conditions) {
            if (condition->kind != Condition::Kind::comparison) continue;
            const Comparison& comparison = condition->comparison;
            if (comparison.attribute == attributeAt && Serves(attribute, comparison)) Add(path, attribute, comparison);
        }
        if (path.scan.range.HasLower() || path.scan.range.HasUpper()) path.kind = AccessPath::Kind::oneIndex;
        return path;
    }

    /// Narrows the scan by one more comparison.
    void Add(AccessPath& path, const Attribute& attribute, const Comparison& comparison) {
        const StoredConstant& constant = constants[comparison.constant];
        const bool pattern = IsPattern(attribute.type, layout.Form(), constant, comparison.op);
        KeyRange& range = path.scan.range;
        if (IsString(attribute.type) && constant.size() > kLongestKey) {
            if (!pattern) AddLong(path, attribute, comparison);
            return;
        }
        const bool isEqual = (comparison.op & kRelationBits) == KyCmpEqual;
        if (pattern && isEqual) path.scan.pattern = &comparison;
        if (pattern && attribute.type != KySTRING_T) {
            // Dictionary strings would record the pattern as it stands.
            path.share *= Share(path.scan, attribute, comparison.op, constant, nullptr);
            if (isEqual && !range.HasLower()) range.SetLower(DictionaryPrefix(attribute.type, layout.Form(), constant));
        } else if (attribute.type == KySTRING_T && (comparison.op & KyCmpExact) == 0 && IsAbsent(constant)) {
            AddAbsent(path, attribute, comparison);
        } else {
            path.share *= Share(path.scan, attribute, comparison.op, constant, &range.Bounds());
        }
    }

    /// Null and the text without characters are the same unless texts are compared exactly, as the index does.
    bool IsAbsent(const StoredConstant& constant) const {
        const std::vector<unsigned char> empty = Absent(false);
        int err = 0;
        return Types().Cmp(KySTRING_T, 0, const_cast<unsigned char*>(constant.data()), 0,
                           const_cast<unsigned char*>(empty.data()), KyCmpEqual, 1, layout.Form(), err) == 0;
    }

    std::vector<unsigned char> Absent(bool isNull) const {
        const Value value(KySTRING_T);
        if (isNull) Types().SetNullPtrGet(KySTRING_T)(value.Get());
        return value.Store(layout.Form());
    }

    /// Such a constant is both.
    void AddAbsent(AccessPath& path, const Attribute& attribute, const Comparison& comparison) {
        KeyRange& range = path.scan.range;
        path.share *= Share(path.scan, attribute, comparison.op, constants[comparison.constant], nullptr);
        if ((comparison.op & KyCmpLess) == 0 && !range.HasLower()) range.SetLower(Absent(true));
        if ((comparison.op & KyCmpGreater) == 0 && !range.HasUpper()) range.SetUpper(Absent(false));
    }

    /// A constant that is longer than a key: its first characters bound it from below, and from above its key, behind
    /// which a scan ends only where that is certain.
    void AddLong(AccessPath& path, const Attribute& attribute, const Comparison& comparison) {
        const StoredConstant& constant = constants[comparison.constant];
        const std::vector<unsigned char> begin =
            FirstCharacters(attribute.type, layout.Form(), constant, kCharactersOfBound);
        KeyRange& range = path.scan.range;
        path.share *=
            Share(path.scan, attribute, static_cast<unsigned short>(comparison.op | KyCmpExact), begin, nullptr);
        if ((comparison.op & KyCmpLess) == 0 && !range.HasLower()) range.SetLower(begin);
        if ((comparison.op & KyCmpGreater) == 0 && !range.HasUpper()) {
            std::vector<unsigned char> scratch;
            range.SetUpper(IndexKey(attribute, layout.Form(), constant, scratch));
        }
    }

    /// The share of the scan so far that a comparison keeps; `narrowed`, when it is not null, gets its limits.
    double Share(const IndexScan& scan, const Attribute& attribute, unsigned short op, Bytes key,
                 KyIdxBounds* narrowed) const {
        KyIdxBounds known = KnownBounds(scan);
        const float share =
            Types().EvalAndBound(attribute.type, known.lower == nullptr ? nullptr : &known, op,
                                 const_cast<unsigned char*>(key.data()), layout.Form(), 1, narrowed, nullptr);
        return std::clamp(static_cast<double>(share), 0.0, 1.0);
    }

    /// The range so far, completed by the limits of the index itself.
    KyIdxBounds KnownBounds(const IndexScan& scan) const {
        KyIdxBounds known;
        const auto set = [](void*& limit, unsigned char& length, Bytes key) {
            limit = const_cast<unsigned char*>(key.data());
            length = static_cast<unsigned char>(key.size());
        };
        const auto limits = snapshot.Limits(query.classAt, scan.attribute);
        if (!limits) return known;
        set(known.lower, known.lowerLen, scan.range.HasLower() ? scan.range.Lower() : limits->first);
        set(known.upper, known.upperLen, scan.range.HasUpper() ? scan.range.Upper() : limits->last);
        return known;
    }
};

}  // namespace

KeyRange::KeyRange(KeyRange&& other) noexcept : bounds(std::exchange(other.bounds, KyIdxBounds())) {}

KeyRange& KeyRange::operator=(KeyRange&& other) noexcept {
    if (this != &other) {
        Free();
        bounds = std::exchange(other.bounds, KyIdxBounds());
    }
    return *this;
}

KeyRange::~KeyRange() { Free(); }

void KeyRange::Free() {
    mmKyfree(bounds.lower);
    mmKyfree(bounds.upper);
}

void KeyRange::Set(void*& limit, unsigned char& length, Bytes key) {
    void* const copy = mmKymalloc(key.size());
    std::memcpy(copy, key.data(), key.size());
    mmKyfree(limit);
    limit = copy;
    length = static_cast<unsigned char>(key.size());
}

std::vector<const AccessPath*> Scans(const AccessPath& path) {
    std::vector<const AccessPath*> scans;
    if (path.kind == AccessPath::Kind::oneIndex) scans.push_back(&path);
    for (const AccessPath& part : path.parts) {
        const std::vector<const AccessPath*> inner = Scans(part);
        scans.insert(scans.end(), inner.begin(), inner.end());
    }
    return scans;
}

AccessPath MakePlan(const Snapshot& snapshot, const Query& query, const std::vector<StoredConstant>& constants) {
    constexpr double worthAnIndex = 0.5;
    AccessPath path = Planner(snapshot, query, constants).Plan(query.where);
    if (path.share > worthAnIndex) return {};
    return path;
}

}  // namespace engine
