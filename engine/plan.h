#ifndef ENGINE_PLAN_H
#define ENGINE_PLAN_H

/// How a query's objects are found: which ranges of which indexes are scanned.

#include <cstdint>
#include <vector>

#include "condition.h"
#include "narrowing.h"
#include "query.h"
#include "snapshot.h"

namespace engine {

/// Where candidates come from. All of them are tested with the whole condition.
struct AccessPath {
    enum class Kind { allObjects, oneIndex, severalIndexes };

    Kind kind = Kind::allObjects;
    double share = 1;               ///< of the class's objects, as EvalAndBound estimates it
    IndexScan scan;                 ///< of `oneIndex`
    bool inOrder = false;           ///< of `oneIndex`: the scan gives the query's order, so that nothing is sorted
    std::vector<AccessPath> parts;  ///< of `severalIndexes`: objects that are in any of them

    /// `inOrder`: so many objects are visited at most; if the limit is not reached then, those of `instead`, which is
    /// one path, are sorted.
    std::size_t mostVisits = SIZE_MAX;
    std::vector<AccessPath> instead;
};

/// The paths of one index each that a path is made of, in the order in which they are scanned. Refers to `path`.
std::vector<const AccessPath*> Scans(const AccessPath& path);

/// The path with the smallest share. Above a half it is all objects, which are read faster in their own order. Or,
/// if that is likely to take less time, a scan in the order that is asked for, which is given up in favour of the other
/// when it has taken as long as reading and sorting all objects. `constants` in the query's order.
AccessPath MakePlan(const Snapshot& snapshot, const Query& query, const std::vector<StoredConstant>& constants);

}  // namespace engine

#endif
