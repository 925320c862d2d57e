#include "run.h"

#include <algorithm>

#include "error.h"
#include "index_order.h"
#include "types.h"
#include "value.h"

namespace engine {

namespace {

/// The candidates of an access path, one after another.
class Candidates {
public:
    /// `someEntries` gets the number of entries read of each scanned index.
    Candidates(const Snapshot& aSnapshot, const Query& aQuery, const std::vector<StoredConstant>& someConstants,
               std::vector<std::size_t>& someEntries)
        : snapshot(aSnapshot), query(aQuery), constants(someConstants), entries(someEntries) {}

    /// `visit(object)` says whether to go on.
    template <class Visit>
    void ForEach(const AccessPath& path, Visit visit) const {
        switch (path.kind) {
            case AccessPath::Kind::allObjects: {
                ObjectCursor cursor(snapshot, query.classAt);
                for (auto object = cursor.Next(); object && visit(*object); object = cursor.Next()) {
                }
                return;
            }
            case AccessPath::Kind::oneIndex:
                Scan(path.scan, [&](ObjectNumber number) { return visit(Find(number)); });
                return;
            default: {
                std::vector<ObjectNumber> numbers;
                Collect(path, numbers);
                std::ranges::sort(numbers);
                numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
                for (const ObjectNumber number : numbers)
                    if (!visit(Find(number))) return;
            }
        }
    }

private:
    const Snapshot& snapshot;
    const Query& query;
    const std::vector<StoredConstant>& constants;
    std::vector<std::size_t>& entries;

    Object Find(ObjectNumber number) const {
        const Bytes record = snapshot.Find(query.classAt, number);
        if (record.empty())
            throw StoreError("an index names the object " + std::to_string(number) + ", which is not there");
        return {.number = number, .record = record};
    }

    void Collect(const AccessPath& path, std::vector<ObjectNumber>& numbers) const {
        if (path.kind == AccessPath::Kind::oneIndex) {
            Scan(path.scan, [&numbers](ObjectNumber number) {
                numbers.push_back(number);
                return true;
            });
        }
        for (const AccessPath& part : path.parts) Collect(part, numbers);
    }

    template <class Visit>
    void Scan(const IndexScan& scan, Visit visit) const {
        IndexCursor cursor(snapshot, query.classAt, scan.attribute);
        Bytes known;  // a key that is known to be inside
        std::size_t& count = entries.emplace_back(0);
        for (auto entry = scan.range.HasLower() ? cursor.FirstFrom(scan.range.Lower()) : cursor.First(); entry;
             entry = cursor.Next()) {
            if (entry->key.data() != known.data() && IsBehind(scan, entry->key)) return;
            known = entry->key;
            ++count;
            if (!visit(entry->number)) return;
        }
    }

    bool IsBehind(const IndexScan& scan, Bytes key) const {
        const Attribute& attribute = snapshot.Of().GetSchema().Classes()[query.classAt].attributes[scan.attribute];
        if (scan.range.HasUpper() && OrdersBehind(attribute, key, scan.range.Upper(), IndexOperator(*attribute.index)))
            return true;
        return scan.pattern != nullptr && OrdersBehindPattern(attribute, key, *scan.pattern);
    }

    /// Keys that were cut say by the error that they are alike as far as they go: what they are of may lie on either
    /// side.
    bool OrdersBehind(const Attribute& attribute, Bytes key, Bytes limit, unsigned short op) const {
        int err = 0;
        const int order = Order(attribute, key, limit, op, err);
        return order > 0 && (err != KyErrBufferEnd || !IsString(attribute.type));
    }

    /// A pattern is compared as far as its text before the first wildcard and the key both go, which the error tells
    /// whatever comes out. What begins like it is one run of a string's keys. Of dictionary strings it need not be:
    /// among those alike but for accents, the accents decide, and these may come late.
    bool OrdersBehindPattern(const Attribute& attribute, Bytes key, const Comparison& pattern) const {
        int err = 0;
        const int order = Order(attribute, key, constants[pattern.constant], pattern.op, err);
        return order > 0 && (attribute.type == KySTRING_T || err != KyErrBufferEnd);
    }

    int Order(const Attribute& attribute, Bytes key, Bytes limit, unsigned short op, int& err) const {
        return Types().Cmp(attribute.type, static_cast<unsigned>(key.size()), const_cast<unsigned char*>(key.data()),
                           static_cast<unsigned>(limit.size()), const_cast<unsigned char*>(limit.data()), op, 1,
                           snapshot.Of().Form(), err);
    }
};

/// Which of two objects comes first in a query's order; the number decides among equal ones.
class ObjectOrder {
public:
    ObjectOrder(const RecordLayout& aLayout, const std::vector<SortKey>& someKeys) : layout(aLayout), keys(someKeys) {}

    bool operator()(const Object& a, const Object& b) const {
        for (const SortKey& key : keys) {
            const Attribute& attribute = layout.Of().attributes[key.attribute];
            const Bytes valueA = SortValue(attribute, layout.At(a.record, key.attribute), scratchA);
            const Bytes valueB = SortValue(attribute, layout.At(b.record, key.attribute), scratchB);
            int err = 0;
            const int order =
                Types().Cmp(attribute.type, static_cast<unsigned>(valueA.size()),
                            const_cast<unsigned char*>(valueA.data()), static_cast<unsigned>(valueB.size()),
                            const_cast<unsigned char*>(valueB.data()), KyCmpExact, attribute.count, layout.Form(), err);
            if (order != 0) return key.descending ? order > 0 : order < 0;
        }
        return a.number < b.number;
    }

private:
    const RecordLayout& layout;
    const std::vector<SortKey>& keys;
    mutable std::vector<unsigned char> scratchA;
    mutable std::vector<unsigned char> scratchB;

    /// Long dictionary strings have an order among their index keys only.
    Bytes SortValue(const Attribute& attribute, Bytes stored, std::vector<unsigned char>& scratch) const {
        const bool isDictionary = IsString(attribute.type) && attribute.type != KySTRING_T && attribute.count == 1;
        return isDictionary ? IndexKey(attribute, layout.Form(), stored, scratch) : stored;
    }
};

}  // namespace

PreparedQuery::PreparedQuery(const Store& aStore, Query aQuery, const ScanValue& scan)
    : store(&aStore),
      query(std::move(aQuery)),
      constants(query.constants.size()),
      constantAttributes(constants.size()) {
    NoteAttributes(query.where);
    const Class& of = store->GetSchema().Classes()[query.classAt];
    for (std::size_t i = 0; i < constants.size(); ++i) {
        const Attribute& attribute = of.attributes[constantAttributes[i]];
        const Value value(attribute.type);
        if (query.constants[i]) {
            const std::string fault = scan(attribute, *query.constants[i], value.Get());
            if (!fault.empty()) throw TextError(fault, query.constantPositions[i]);
        }
        try {
            Bind(i, value.Get());
        } catch (const StoreError& error) {
            throw TextError(error.what(), query.constantPositions[i]);
        }
    }
}

void PreparedQuery::NoteAttributes(const Condition& condition) {
    if (condition.kind == Condition::Kind::comparison)
        constantAttributes[condition.comparison.constant] = condition.comparison.attribute;
    for (const Condition& part : condition.parts) NoteAttributes(part);
}

void PreparedQuery::Bind(std::size_t constant, void* value) {
    const char type = store->GetSchema().Classes()[query.classAt].attributes[constantAttributes[constant]].type;
    StoredConstant& stored = constants[constant];
    stored.resize(Types().DiskLenGet(type, value, store->Form(), 1, KyFormMemory));
    stored.resize(Types().Store(type, stored.data(), value, store->Form(), 1));
    int err = 0;
    const auto size = static_cast<unsigned>(stored.size());
    Types().Cmp(type, size, stored.data(), size, stored.data(), KyCmpExact, 1, store->Form(), err);
    if (err == KyErrNotSupported)
        throw StoreError("a text of more than 253 key bytes cannot be compared with dictionary strings");
}

RunResult PreparedQuery::Run(const Snapshot& snapshot, const AccessPath& path,
                             const std::function<bool(const Object&)>& take) const {
    RunResult result;
    const RecordLayout& layout = store->Layout(query.classAt);
    const ConditionTest test(layout, query.where, constants);
    const std::size_t limit = query.limit.value_or(SIZE_MAX);
    std::vector<Object> objects;
    const bool sorts = !query.order.empty();
    if (limit == 0) {
        result.entries.resize(Scans(path).size());
        result.endedEarly = true;
        return result;
    }
    Candidates(snapshot, query, constants, result.entries).ForEach(path, [&](const Object& object) {
        ++result.visited;
        if (!test.Holds(object.record)) return true;
        ++result.found;
        if (!sorts) {
            result.endedEarly = !take(object) || result.found >= limit;
            return !result.endedEarly;
        }
        objects.push_back(object);
        return true;
    });
    const auto sortedEnd = objects.begin() + static_cast<std::ptrdiff_t>(std::min(limit, objects.size()));
    std::partial_sort(objects.begin(), sortedEnd, objects.end(), ObjectOrder(layout, query.order));
    for (auto object = objects.begin(); object != sortedEnd && take(*object); ++object) {
    }
    return result;
}

}  // namespace engine
