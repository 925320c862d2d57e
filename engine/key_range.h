#ifndef ENGINE_KEY_RANGE_H
#define ENGINE_KEY_RANGE_H

/// A range of index keys.

#include <utility>

#include "kytypevl.h"
#include "record.h"

namespace engine {

/// Limits as EvalAndBound fills them in, with their blocks. Both are inside the range; one that is missing is open.
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
    /// Sets a limit that is not set yet. At most 255 bytes.
    void AddLower(Bytes key) { Add(bounds.lower, bounds.lowerLen, key); }
    void AddUpper(Bytes key) { Add(bounds.upper, bounds.upperLen, key); }
    /// Keeps what lies in both ranges, of keys in the order of `compare(a, b)`.
    template <class Compare>
    void Intersect(KeyRange other, const Compare& compare) {
        if (other.HasLower() && (!HasLower() || compare(other.Lower(), Lower()) > 0)) {
            std::swap(bounds.lower, other.bounds.lower);
            std::swap(bounds.lowerLen, other.bounds.lowerLen);
        }
        if (other.HasUpper() && (!HasUpper() || compare(other.Upper(), Upper()) < 0)) {
            std::swap(bounds.upper, other.bounds.upper);
            std::swap(bounds.upperLen, other.bounds.upperLen);
        }
    }

private:
    KyIdxBounds bounds;

    static void Add(void*& limit, unsigned char& length, Bytes key);
    void Free();
};

}  // namespace engine

#endif
