#ifndef ARRAY_RULES_H
#define ARRAY_RULES_H

/// Rules that the slots of many types follow when they walk, copy or translate arrays of fixed-size elements.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "kytypes.h"
#include "raw_bytes.h"

namespace ky {

/// -1, 0 or 1.
template <class T>
constexpr int Order(T a, T b) {
    return static_cast<int>(a > b) - static_cast<int>(a < b);
}

/// How many of `count` elements a walk visits in a buffer of `length` bytes: those that start inside it, so the
/// last of them may reach past the end, and the first in any case. Length 0: exactly `count` elements.
/// A result below `count` means that the walk ends with `KyErrBufferEnd` after its last element.
// KEPT: a length bounds where elements start, not what is read; engines pass lengths that end inside an element.
constexpr std::size_t ElementsInside(unsigned length, std::size_t elementSize, unsigned count) {
    if (length == 0 || count == 0) return count;
    return std::min<std::size_t>((length + elementSize - 1) / elementSize, count);
}

/// Error of a comparison or hash whose last visited element is `last`, of `visited` elements that the buffers
/// hold and `count` that were asked for. The end of the buffers is seen behind every element but the last of
/// `count`.
// KEPT: an element that decides a comparison can so bring the error with it; engines read a result beside an error.
constexpr int BufferEndError(std::size_t last, std::size_t visited, unsigned count) {
    return visited < count && last + 1 >= visited ? KyErrBufferEnd : 0;
}

/// Hashes of numbers and texts are multiplied by this. Frozen, persistent: indexes on disk depend on it.
inline constexpr std::uint32_t kHashFactor = 1103515245u;
/// What a null adds to the hash of its array. Frozen, persistent.
inline constexpr std::uint32_t kNullHash = 0xFEFE7575u;

/// Assignment and Copy of elements without ownership: mode 0 copies `count` elements, any other mode sets
/// each of them to the first element of `src`.
template <class Element>
void AssignArray(void* dst, void* src, unsigned count, int mode) {
    if (mode == 0) {
        CopyBytes(dst, src, count * sizeof(Element));
        return;
    }
    if (count == 0) return;
    const auto first = LoadAs<Element>(src);
    for (std::size_t i = 0; i < count; ++i) StoreAs(Advance(dst, i * sizeof(Element)), first);
}

/// Between two persistent forms: the bytes as they stand, whatever the forms. A destination that is longer is
/// filled up with zeros. Returns the bytes copied.
// KEPT: the byte order is not changed, not even from form 1 to form 2; stored translations depend on it.
inline unsigned CopyPersistent(void* dst, unsigned dstLen, const void* src, unsigned srcLen) {
    const unsigned copied = std::min(dstLen, srcLen);
    CopyBytes(dst, src, copied);
    ZeroBytes(Advance(dst, copied), dstLen - copied);
    return copied;
}

/// The Translate slot of a fixed-size type. `Facts` names its `Element` (memory form), `Store`, `Load` and
/// `SizeGet`, and its `Assignment` where that is not `AssignArray`. Lengths matter between persistent forms alone; 0
/// stands for the size of `count` elements.
template <class Facts>
unsigned TranslateArray(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                        unsigned srcLen, unsigned count) {
    const bool toMemory = (dstFlag & KyFormMemory) != 0;
    const bool fromMemory = (srcFlag & KyFormMemory) != 0;
    if (toMemory && fromMemory) {
        if constexpr (requires { Facts::Assignment; }) {
            Facts::Assignment(dst, src, count, 0);
        } else {
            AssignArray<typename Facts::Element>(dst, src, count, 0);
        }
        return static_cast<unsigned>(count * sizeof(typename Facts::Element));
    }
    if (toMemory) return Facts::Load(dst, src, srcFlag, count);
    const auto dstForm = static_cast<unsigned char>(dstFlag & KyFormMask);
    if (fromMemory) return Facts::Store(dst, src, dstForm, count);
    const auto srcForm = static_cast<unsigned char>(srcFlag & KyFormMask);
    return CopyPersistent(dst, dstLen != 0 ? dstLen : Facts::SizeGet(nullptr, KyFormMemory, dstForm, count), src,
                          srcLen != 0 ? srcLen : Facts::SizeGet(nullptr, KyFormMemory, srcForm, count));
}

}  // namespace ky

#endif
