#ifndef BLOB_BYTES_H
#define BLOB_BYTES_H

/// The buffer of a blob, and the order of blobs.

#include <climits>
#include <cstddef>
#include <functional>

#include "array_rules.h"
#include "blob_kernels.h"
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

/// Whether the buffer stays when the bytes are replaced by `size` others.
inline bool KeepsBuffer(const KyBlobData& block, std::size_t size) {
    constexpr std::size_t mostSpare = 128;
    const auto length = static_cast<std::size_t>(block.length);
    return block.data != nullptr && size != 0 && size <= length && length <= size + mostSpare;
}

/// Replaces the bytes by a copy of `size` others, not more than `kMostBlobBytes`.
inline void FillBytes(KyBlobData& block, const void* bytes, std::size_t size) {
    if (size == 0) {
        FreeBytes(block);
    } else if (KeepsBuffer(block, size)) {
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

/// The order of what two handles hold.
inline int OrderBlocks(const KyBlobData* a, const KyBlobData* b) {
    if (a == nullptr || b == nullptr) return Order(a != nullptr, b != nullptr);
    return OrderRuns(a->data, static_cast<std::size_t>(a->length), b->data, static_cast<std::size_t>(b->length));
}

}  // namespace ky

#endif
