#ifndef BLOB_BYTES_H
#define BLOB_BYTES_H

/// The buffer of a blob, and the order of runs of bytes.

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <functional>

#include "array_rules.h"
#include "kyblob.h"
#include "raw_bytes.h"

namespace ky {

/// Lengths are signed 32-bit numbers.
inline constexpr std::size_t kMostBlobBytes = INT_MAX;

/// Gives the buffer up: there are no bytes.
void FreeBytes(KyBlobData& block);

/// Moves the bytes into a new buffer with room for `capacity`, or, where there is no memory for so much, for `needed`
/// alone. Where there is none for that either: false, the memory handler was called, there are no bytes.
bool MoveToLarger(KyBlobData& block, std::size_t needed, std::size_t capacity);

/// Replaces the bytes by a copy of others, perhaps part of them, in a new buffer of just their size, which is not 0.
void CopyToNew(KyBlobData& block, const void* bytes, std::size_t size);

/// Replaces the bytes by a copy of `size` others, not more than `kMostBlobBytes`.
inline void FillBytes(KyBlobData& block, const void* bytes, std::size_t size) {
    constexpr std::size_t mostSpare = 128;
    const auto length = static_cast<std::size_t>(block.length);
    if (size == 0) {
        FreeBytes(block);
    } else if (size <= length && length <= size + mostSpare) {
        CopyBytes(block.data, bytes, size);
        block.length = static_cast<int>(size);
    } else {
        CopyToNew(block, bytes, size);
    }
}

/// What a handle holds: null for the null value.
inline KyBlobData* BlockOf(const KyBlob& blob) { return LoadAs<KyBlobData*>(&blob); }

/// `p` points into the buffer.
inline bool LiesInside(const KyBlobData& block, const void* p) {
    const auto capacity = static_cast<std::size_t>(block.capacity);
    return capacity != 0 && std::less_equal<>()(static_cast<const void*>(block.data), p) &&
           std::less<>()(p, static_cast<const void*>(Advance(block.data, capacity)));
}

/// -1, 0 or 1: the first bytes that differ decide, as unsigned numbers, or else the lengths.
inline int OrderBytes(const void* a, std::size_t lengthA, const void* b, std::size_t lengthB) {
    const std::size_t common = std::min(lengthA, lengthB);
    const int order = common != 0 ? std::memcmp(a, b, common) : 0;
    return order != 0 ? Order(order, 0) : Order(lengthA, lengthB);
}

/// The order of what two handles hold.
inline int OrderBlocks(const KyBlobData* a, const KyBlobData* b) {
    if (a == nullptr || b == nullptr) return Order(a != nullptr, b != nullptr);
    return OrderBytes(a->data, static_cast<std::size_t>(a->length), b->data, static_cast<std::size_t>(b->length));
}

}  // namespace ky

#endif
