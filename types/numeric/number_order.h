#ifndef NUMBER_ORDER_H
#define NUMBER_ORDER_H

/// Compare and Hash of plain numbers.
///
/// Both work on raw bytes as long as they can: equal bytes are equal elements in every form, and XOR commutes with
/// a reversal of bytes and with the widening of a sign.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "array_rules.h"
#include "number_bits.h"
#include "raw_kernels.h"

namespace ky {

template <class Facts>
int CompareElement(const void* a, const void* b, unsigned char form) {
    using Element = typename Facts::Element;
    return Order(RankOf<Element>(DecodeElement<Facts>(a, form)), RankOf<Element>(DecodeElement<Facts>(b, form)));
}

/// Floating-point numbers behind one that differs in its bytes and yet is equal (zeros of two signs, two NaNs) are
/// compared by rank in stretches of this many elements, because such numbers seldom come alone.
inline constexpr std::size_t kRankStretch = 128;

/// Index of the first of `count` elements that orders a and b; `count` when none does.
template <class Facts>
std::size_t FirstDecidingElement(const void* a, const void* b, std::size_t count, unsigned char form) {
    using Element = typename Facts::Element;
    const std::size_t stride = Facts::Stride(form);
    std::size_t at = FirstDifference(a, b, count * stride) / stride;
    if constexpr (std::is_floating_point_v<Element>) {
        while (at < count && CompareElement<Facts>(Advance(a, at * stride), Advance(b, at * stride), form) == 0) {
            ++at;
            if (IsPlainForm(form)) {
                const std::size_t stretch = std::min(count - at, kRankStretch);
                const std::size_t same = FirstOtherRank<BitsOf<Element>>(
                    Advance(a, at * stride), Advance(b, at * stride), stretch, form == KyFormReversed);
                at += same;
                if (same < stretch) break;
            }
            at += FirstDifference(Advance(a, at * stride), Advance(b, at * stride), (count - at) * stride) / stride;
        }
    }
    return at;
}

template <class Facts>
int NumberCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                  int& err) {
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    err = 0;
    if (count == 1) return CompareElement<Facts>(a, b, form);
    if (count == 0) return 0;

    const std::size_t stride = Facts::Stride(form);
    const std::size_t visited = std::min(ElementsInside(len1, stride, count), ElementsInside(len2, stride, count));
    const std::size_t at = FirstDecidingElement<Facts>(a, b, visited, form);
    err = BufferEndError(at, visited, count);
    if (at == visited) return 0;
    return CompareElement<Facts>(Advance(a, at * stride), Advance(b, at * stride), form);
}

/// XOR of the bits of `count` elements, in memory order.
template <class Facts>
BitsOf<typename Facts::Element> XorElements(const void* data, std::size_t count, unsigned char form) {
    using Bits = BitsOf<typename Facts::Element>;
    if (sizeof(Bits) == 1 || IsPlainForm(form)) {
        std::uint64_t word = XorWords(data, count * sizeof(Bits));
        for (std::size_t width = sizeof word; width > sizeof(Bits); width /= 2) word ^= word >> (4 * width);
        return InMemoryOrder(static_cast<Bits>(word), form);
    }
    Bits bits = 0;
    for (std::size_t i = 0; i < count; ++i) {
        bits = static_cast<Bits>(bits ^ DecodeElement<Facts>(Advance(data, i * Facts::Stride(form)), form));
    }
    return bits;
}

template <class Facts>
unsigned NumberHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    using Element = typename Facts::Element;
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    err = 0;
    if (count == 1) return kHashFactor * HashWord<Element>(DecodeElement<Facts>(data, form));
    if (count == 0) return 0;

    const std::size_t visited = ElementsInside(len, Facts::Stride(form), count);
    err = BufferEndError(visited, visited, count);
    return kHashFactor * HashWord<Element>(XorElements<Facts>(data, visited, form));
}

}  // namespace ky

#endif
