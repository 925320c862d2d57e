#ifndef ENGINE_PLAN_H
#define ENGINE_PLAN_H

/// How a query's objects are found: which ranges of which indexes are scanned.

#include <optional>
#include <vector>

#include "condition.h"
#include "kytypevl.h"
#include "query.h"
#include "snapshot.h"

namespace engine {

/// A range of an index as EvalAndBound fills it in, with its limits' blocks.
class KeyRange {
public:
    KeyRange() = default;
    KeyRange(KeyRange&& other) noexcept;
    KeyRange& operator=(KeyRange&& other) noexcept;
    ~KeyRange();

    KyIdxBounds& Bounds() { return bounds; }
    bool HasLower() const { return bounds.lower != nullptr; }
    bool HasUpper() const { return bounds.upper != nullptr; }
    Bytes Lower() const { return {static_cast<const unsigned char*>(bounds.lower), bounds.lowerLen}; }
    Bytes Upper() const { return {static_cast<const unsigned char*>(bounds.upper), bounds.upperLen}; }
    // At most 255 bytes.
    void SetLower(Bytes key) { Set(bounds.lower, bounds.lowerLen, key); }
    void SetUpper(Bytes key) { Set(bounds.upper, bounds.upperLen, key); }

private:
    KyIdxBounds bounds;

    static void Set(void*& limit, unsigned char& length, Bytes key);
    void Free();
};

/// The scan of one index.
struct IndexScan {
    std::size_t attribute = 0;
    KeyRange range;
    /// An equality with a pattern: the scan ends at the first key behind those that begin like it.
    const Comparison* pattern = nullptr;
};

/// Where candidates come from. All of them are tested with the whole condition.
struct AccessPath {
    enum class Kind { allObjects, oneIndex, severalIndexes };

    Kind kind = Kind::allObjects;
    double share = 1;               ///< of the class's objects, as EvalAndBound estimates it
    IndexScan scan;                 ///< of `oneIndex`
    std::vector<AccessPath> parts;  ///< of `severalIndexes`: objects that are in any of them
};

/// The paths of one index each that a path is made of, in the order in which they are scanned. Refers to `path`.
std::vector<const AccessPath*> Scans(const AccessPath& path);

/// The path with the smallest share. Above a half it is all objects, which are read faster in their own order.
/// `constants` in the query's order.
AccessPath MakePlan(const Snapshot& snapshot, const Query& query, const std::vector<StoredConstant>& constants);

}  // namespace engine

#endif
