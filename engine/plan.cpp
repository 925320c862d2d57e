#include "plan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "index_order.h"
#include "types.h"

namespace engine {

namespace {

constexpr unsigned short kRelationBits = KyCmpEqual | KyCmpLess | KyCmpGreater;
constexpr unsigned short kNotEqual = KyCmpLess | KyCmpGreater;

// Times of a plan, in that of reading the next object in the order of the numbers and testing it.
constexpr double kFind = 4;       ///< an object that an index names
constexpr double kCompare = 0.5;  ///< two objects, when they are sorted

/// Above this share all objects are read. More than the times say, so that indexes of booleans serve, which are
/// estimated to keep a third whatever they hold.
constexpr double kWorthAnIndex = 0.5;

/// The share of objects that a comparison is taken to keep which no index serves.
double UsualShare(const Comparison& comparison) {
    constexpr double ofEqual = 0.1;
    constexpr double ofRange = 1.0 / 3;
    switch (comparison.op & kRelationBits) {
        case KyCmpEqual:
            return ofEqual;
        case kNotEqual:
            return 1 - ofEqual;
        default:
            return ofRange;
    }
}

using Conditions = std::vector<const Condition*>;

void AddParts(const Condition& condition, Conditions& parts) {
    if (condition.kind != Condition::Kind::all) {
        parts.push_back(&condition);
        return;
    }
    for (const Condition& part : condition.parts) AddParts(part, parts);
}

/// What has to hold altogether: the parts of `all`, of those among them that are `all` again theirs; or the condition
/// itself.
Conditions PartsOf(const Condition& condition) {
    Conditions parts;
    AddParts(condition, parts);
    return parts;
}

class Planner {
public:
    Planner(const Snapshot& aSnapshot, const Query& aQuery, const std::vector<StoredConstant>& someConstants)
        : snapshot(aSnapshot), query(aQuery), constants(someConstants), layout(aSnapshot.Of().Layout(aQuery.classAt)) {}

    AccessPath Plan() {
        AccessPath path = PlanOf(query.where);
        if (path.share > kWorthAnIndex) path = AccessPath();
        if (!CanWalk()) return path;
        AccessPath walk = Walk();
        if (walk.kind != AccessPath::Kind::oneIndex || TimeOfWalk(walk) >= TimeOf(path)) return path;
        if (query.limit) Cap(walk, std::move(path));
        return walk;
    }

private:
    const Snapshot& snapshot;
    const Query& query;
    const std::vector<StoredConstant>& constants;
    const RecordLayout& layout;

    AccessPath PlanOf(const Condition& condition) {
        return condition.kind == Condition::Kind::any ? Union(condition) : BestOf(PartsOf(condition));
    }

    /// Conditions that all have to hold: the comparisons of each attribute narrow one range together.
    AccessPath BestOf(const Conditions& conditions) {
        AccessPath best;
        const auto take = [&best](AccessPath path) {
            if (path.kind != AccessPath::Kind::allObjects && path.share < best.share) best = std::move(path);
        };
        for (std::size_t attribute = 0; attribute < layout.Of().attributes.size(); ++attribute)
            take(Narrow(attribute, conditions));
        for (const Condition* condition : conditions)
            if (condition->kind != Condition::Kind::comparison) take(PlanOf(*condition));
        return best;
    }

    AccessPath Union(const Condition& condition) {
        AccessPath all;
        all.kind = AccessPath::Kind::severalIndexes;
        all.share = 0;
        for (const Condition& part : condition.parts) {
            AccessPath path = PlanOf(part);
            if (path.kind == AccessPath::Kind::allObjects) return {};
            all.share += path.share;
            all.parts.push_back(std::move(path));
        }
        all.share = std::min(all.share, 1.0);
        return all;
    }

    bool IsServed(std::size_t attribute, const Condition& condition) const {
        return condition.kind == Condition::Kind::comparison && condition.comparison.attribute == attribute &&
               Serves(layout.Of().attributes[attribute], condition.comparison);
    }

    /// All objects when nothing narrows the index.
    AccessPath Narrow(std::size_t attribute, const Conditions& conditions) const {
        AccessPath path;
        const auto served = [=, this](const Condition* condition) { return IsServed(attribute, *condition); };
        if (std::ranges::none_of(conditions, served)) return path;
        Narrowing narrowing(snapshot, layout, query.classAt, attribute);
        for (const Condition* condition : conditions)
            if (served(condition)) narrowing.Add(condition->comparison, constants[condition->comparison.constant]);
        path.share = narrowing.Share();
        if (narrowing.Narrows()) path.kind = AccessPath::Kind::oneIndex;
        path.scan = std::move(narrowing.scan);
        return path;
    }

    // --- in the query's order ---

    /// The order of an index is that of its attribute when it folds nothing. Texts that are longer than keys are sorted
    /// among those of one key.
    bool CanWalk() const {
        if (query.order.empty()) return false;
        return layout.Of().attributes[query.order.front().attribute].index == Folding();
    }

    /// The scan of what the condition leaves of the index. None backwards where it ends behind a pattern: that end is
    /// found from the beginning only, and from another limit the way to it may be long.
    AccessPath Walk() const {
        const SortKey& by = query.order.front();
        AccessPath walk = Narrow(by.attribute, PartsOf(query.where));
        walk.kind = AccessPath::Kind::oneIndex;
        walk.scan.attribute = by.attribute;
        walk.scan.backward = by.descending;
        walk.inOrder = true;
        if (by.descending && walk.scan.last != nullptr) return {};
        return walk;
    }

    /// The share of all objects for which a condition is likely to hold.
    double Kept(const Condition& condition) const {
        if (condition.kind == Condition::Kind::any) {
            double kept = 0;
            for (const Condition& part : condition.parts) kept += Kept(part);
            return std::min(kept, 1.0);
        }
        const Conditions parts = PartsOf(condition);
        double kept = 1;
        for (std::size_t attribute = 0; attribute < layout.Of().attributes.size(); ++attribute)
            kept *= Narrow(attribute, parts).share;
        for (const Condition* part : parts) {
            if (part->kind != Condition::Kind::comparison) {
                kept *= Kept(*part);
            } else if (!IsServed(part->comparison.attribute, *part)) {
                kept *= UsualShare(part->comparison);
            }
        }
        return kept;
    }

    double Objects() const { return static_cast<double>(snapshot.ObjectCount(query.classAt)); }
    double Limit() const { return query.limit ? static_cast<double>(*query.limit) : INFINITY; }

    double TimeOf(const AccessPath& path) const {
        const double read = path.kind == AccessPath::Kind::allObjects ? Objects() : kFind * path.share * Objects();
        const double sorted = Kept(query.where) * Objects();
        return read + kCompare * (sorted + std::min(sorted, Limit()) * std::log2(1 + sorted));
    }

    /// The limit ends it when it is reached, and where several attributes order the objects, with the last of equal
    /// keys.
    double TimeOfWalk(const AccessPath& walk) const {
        const double all = walk.share * Objects();
        const double kept = Kept(query.where) * Objects();
        double read = kept > 0 ? all * std::min(Limit() / kept, 1.0) : all;
        if (query.order.size() > 1) read = std::min(read + EntriesOfFirstKey(walk.scan), all);
        return kFind * read;
    }

    /// What the condition keeps may be much less than it is taken to keep, and the limit far away.
    void Cap(AccessPath& walk, AccessPath otherwise) const {
        walk.mostVisits =
            static_cast<std::size_t>(std::ceil(std::max(TimeOf(AccessPath()), TimeOf(otherwise)) / kFind));
        // A scan of the same index would find a good part of it to be read.
        const bool isSameIndex =
            otherwise.kind == AccessPath::Kind::oneIndex && otherwise.scan.attribute == walk.scan.attribute;
        walk.instead.push_back(isSameIndex ? AccessPath() : std::move(otherwise));
    }

    double EntriesOfFirstKey(const IndexScan& scan) const {
        IndexCursor cursor(snapshot, query.classAt, scan.attribute);
        const auto first = scan.backward           ? LastKey(cursor, scan)
                           : scan.range.HasLower() ? cursor.FirstFrom(scan.range.Lower())
                                                   : cursor.First();
        return first ? static_cast<double>(cursor.CountOfKey()) : 0;
    }

    /// The last key that is not behind the scan's upper limit.
    std::optional<IndexEntry> LastKey(IndexCursor& cursor, const IndexScan& scan) const {
        if (!scan.range.HasUpper()) return cursor.LastKey();
        const Bytes upper = scan.range.Upper();
        const auto from = cursor.FirstFrom(upper);
        if (!from) return cursor.LastKey();
        const Attribute& attribute = layout.Of().attributes[scan.attribute];
        const bool isUpper = CompareAsIndexed(attribute, layout.Form(), from->key, upper) == 0;
        return isUpper ? from : cursor.PreviousKey();
    }
};

}  // namespace

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
    return Planner(snapshot, query, constants).Plan();
}

}  // namespace engine
