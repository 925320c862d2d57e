#ifndef ENGINE_NARROWING_H
#define ENGINE_NARROWING_H

/// The scan of one index, as the comparisons of its attribute narrow it.

#include "condition.h"
#include "key_range.h"
#include "query.h"
#include "snapshot.h"

namespace engine {

struct IndexScan {
    std::size_t attribute = 0;
    KeyRange range;
    /// A comparison whose constant is no key, a pattern or one that is longer than keys: the scan ends at the first key
    /// behind all that it can hold for.
    const Comparison* last = nullptr;
    /// From the last key to the first; objects with equal keys by their numbers nevertheless. Together with `last` only
    /// where there is an upper limit.
    bool backward = false;
};

/// Whether the index of an attribute can serve a comparison with it.
bool Serves(const Attribute& attribute, const Comparison& comparison);

/// Narrows a scan by comparisons that all have to hold, and estimates what they leave of it. Refers to what it is made
/// from.
class Narrowing {
public:
    Narrowing(const Snapshot& snapshot, const RecordLayout& aLayout, std::size_t classAt, std::size_t anAttribute);

    /// One more comparison, which the index serves. Of those that limit the same side the narrowest counts.
    void Add(const Comparison& comparison, const StoredConstant& constant);

    bool Narrows() const { return scan.range.HasLower() || scan.range.HasUpper() || scan.last != nullptr; }
    /// Of the index's entries: by EvalAndBound of those whose keys have a place among others, and by their numbers of
    /// those that have none.
    double Share() const;

    IndexScan scan;

private:
    const RecordLayout& layout;
    const Attribute& attribute;
    const std::optional<KeyLimits>& limits;
    double share = 1;              ///< of the entries between the limits
    std::vector<bool> keepsApart;  ///< by the keys that stand apart

    unsigned char Form() const { return layout.Form(); }
    int Order(Bytes a, Bytes b) const;
    void AddPattern(const Comparison& comparison, const StoredConstant& constant, KeyRange& range);
    std::vector<unsigned char> BeginningOfBound(const StoredConstant& constant) const;
    void AddLowerUpToEscape(unsigned short op, Bytes begin, KeyRange& range) const;
    void AddLong(const Comparison& comparison, const StoredConstant& constant, KeyRange& range);
    void AddAbsent(unsigned short op, KeyRange& range);
    void AddLimits(const Comparison& comparison, const StoredConstant& constant, KeyRange& range);
    bool MayBeLonger(const StoredConstant& constant) const;
    bool MeansItself(unsigned short op, const StoredConstant& constant) const;
    bool IsAbsent(const StoredConstant& constant) const;
    void Estimate(unsigned short op, Bytes key, KyIdxBounds* narrowed);
    const ApartKey* FindApart(Bytes key) const;
    KyIdxBounds KnownBounds() const;
};

}  // namespace engine

#endif
