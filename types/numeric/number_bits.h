#ifndef NUMBER_BITS_H
#define NUMBER_BITS_H

/// Numbers as patterns of bits: how an element of any form is decoded, ordered and hashed.

#include <cstdint>
#include <type_traits>

#include "kytypes.h"
#include "raw_bytes.h"

namespace ky {

namespace detail {
template <std::size_t size>
struct UnsignedOfSize;
template <>
struct UnsignedOfSize<1> {
    using Type = std::uint8_t;
};
template <>
struct UnsignedOfSize<2> {
    using Type = std::uint16_t;
};
template <>
struct UnsignedOfSize<4> {
    using Type = std::uint32_t;
};
template <>
struct UnsignedOfSize<8> {
    using Type = std::uint64_t;
};
}  // namespace detail

/// The unsigned integer as wide as T.
template <class T>
using BitsOf = typename detail::UnsignedOfSize<sizeof(T)>::Type;

/// The forms that are decoded here; any other is left to the base library.
constexpr bool IsPlainForm(unsigned char form) {
    return form == KyFormMemory || form == KyFormNative || form == KyFormReversed;
}

/// Bits in form 1, 2 or 8, as memory form has them.
template <class Bits>
constexpr Bits InMemoryOrder(Bits bits, unsigned char form) {
    return form == KyFormReversed ? ByteSwap(bits) : bits;
}

/// One element of any form. 8-bit numbers are the same in every form.
template <class Facts>
BitsOf<typename Facts::Element> DecodeElement(const void* from, unsigned char form) {
    using Bits = BitsOf<typename Facts::Element>;
    if (sizeof(Bits) == 1 || IsPlainForm(form)) return InMemoryOrder(LoadAs<Bits>(from), form);
    Bits bits;
    Facts::StoreOne(&bits, from, form);
    return bits;
}

/// Orders the bits of floating-point numbers: NaNs (all alike), minus infinity, the finite numbers by value
/// with one zero, infinity. In integers, so that no mode of the floating-point unit changes an index's order.
template <class Bits>
constexpr std::make_signed_t<Bits> FloatingRank(Bits bits) {
    using Rank = std::make_signed_t<Bits>;
    constexpr Bits kSign = Bits{1} << (8 * sizeof(Bits) - 1);
    constexpr Bits kInfinity = sizeof(Bits) == 4 ? Bits{0x7F800000u} : static_cast<Bits>(0x7FF0000000000000u);
    const auto magnitude = static_cast<Rank>(bits & ~kSign);
    const auto number = (bits & kSign) != 0 ? -magnitude : magnitude;
    return magnitude > static_cast<Rank>(kInfinity) ? static_cast<Rank>(kSign) : number;
}

/// What elements are ordered by.
template <class Element>
constexpr auto RankOf(BitsOf<Element> bits) {
    if constexpr (std::is_floating_point_v<Element>) {
        return FloatingRank(bits);
    } else {
        return static_cast<Element>(bits);
    }
}

/// What an element adds to a hash: small numbers widened by their signedness, both halves of a double.
// KEPT: of the 8-byte integers only the low 32 bits, of floating-point numbers all bits, so that equal ones (the two
// zeros, different NaNs) hash differently; indexes on disk depend on both.
template <class Element>
constexpr std::uint32_t HashWord(BitsOf<Element> bits) {
    if constexpr (std::is_same_v<Element, double>) {
        return static_cast<std::uint32_t>(bits ^ (bits >> 32));
    } else if constexpr (std::is_same_v<Element, float>) {
        return bits;
    } else {
        return static_cast<std::uint32_t>(static_cast<Element>(bits));
    }
}

}  // namespace ky

#endif
