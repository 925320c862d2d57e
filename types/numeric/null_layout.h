#ifndef NULL_LAYOUT_H
#define NULL_LAYOUT_H

/// The bytes of one nullable number, in memory and stored.
///
///   memory form     the number, the flag byte (not 0: null), padding
///   stored          a null byte (0 or 1), the number in the byte order of the form
///   packed          the number in memory order, the null byte
///
/// Stored and packed elements have no padding. Which numbers they are does not matter here, only how wide they are.

#include <bit>
#include <cstddef>
#include <cstdint>

#include "kytypes.h"
#include "number_bits.h"
#include "raw_bytes.h"

namespace ky {

/// The five ways in which nullable numbers lie in memory, named by the size of an element.
enum class NullLayout : unsigned char { bytes2, bytes4, bytes8, bytes12, bytes16 };
inline constexpr std::size_t kNullLayouts = 5;

struct NullSizes {
    std::size_t memory;        ///< bytes of an element in memory form, padding included
    std::size_t number;        ///< bytes of the number
    std::size_t reversedUnit;  ///< bytes that form 2 reverses: the number's, or its halves' where it is of two

    constexpr std::size_t Stored() const { return number + 1; }
};

constexpr NullSizes SizesOf(NullLayout layout) {
    constexpr NullSizes sizes[kNullLayouts] = {{2, 1, 1}, {4, 2, 2}, {8, 4, 4}, {12, 8, 4}, {16, 8, 8}};
    return sizes[static_cast<std::size_t>(layout)];
}

/// The layout of elements of so many bytes in memory.
constexpr NullLayout NullLayoutOf(std::size_t memorySize) {
    auto layout = NullLayout::bytes2;
    while (SizesOf(layout).memory != memorySize) {
        layout = static_cast<NullLayout>(static_cast<unsigned char>(layout) + 1);
    }
    return layout;
}

/// How an element stands outside of memory form, in the forms 1, 2 and 8. Others are left to the base library.
enum class NullOrder : unsigned char { nullFirst, nullFirstReversed, numberFirst };
inline constexpr std::size_t kNullOrders = 3;

constexpr NullOrder NullOrderOf(unsigned char plainForm) {
    if (plainForm == KyFormMemory) return NullOrder::numberFirst;
    return plainForm == KyFormReversed ? NullOrder::nullFirstReversed : NullOrder::nullFirst;
}

/// One element at a time. No address needs alignment.
template <NullLayout layout>
struct NullElement {
    static constexpr NullSizes kSizes = SizesOf(layout);
    using Bits = typename detail::UnsignedOfSize<kSizes.number>::Type;

    struct Decoded {
        Bits bits;  ///< of the number in memory order
        bool null;

        int IsNullValue() const { return null; }
    };

    static Decoded Read(const unsigned char* memory) { return {LoadAs<Bits>(memory), memory[kSizes.number] != 0}; }

    // KEPT: only a null byte of exactly 1 is null, whereas in memory form every flag but 0 is; stored data depend on
    // it.
    static Decoded Decode(const unsigned char* from, NullOrder order) {
        const bool numberFirst = order == NullOrder::numberFirst;
        const auto bits = LoadAs<Bits>(from + (numberFirst ? 0 : 1));
        const bool null = from[numberFirst ? kSizes.number : 0] == 1;
        return {null ? Bits{0} : Ordered(bits, order), null};
    }

    static void Pack(unsigned char* to, const unsigned char* from, NullOrder order) {
        const Decoded element = Read(from);
        const bool numberFirst = order == NullOrder::numberFirst;
        StoreAs(to + (numberFirst ? 0 : 1), Ordered(element.bits, order));
        to[numberFirst ? kSizes.number : 0] = static_cast<unsigned char>(element.null);
    }

    static void Unpack(unsigned char* to, const unsigned char* from, NullOrder order) {
        const Decoded decoded = Decode(from, order);
        Write(to, decoded.bits, decoded.null);
    }

    /// Into memory form, clearing the padding.
    static void Write(unsigned char* to, Bits bits, bool null) {
        StoreAs(to, bits);
        StoreAs(to + kSizes.number, Behind{null});
    }

private:
    /// What follows the number in memory, in one write: the flag and the padding.
    using Behind = typename detail::UnsignedOfSize<kSizes.memory - kSizes.number>::Type;
    static_assert(std::endian::native == std::endian::little, "the flag is the lowest byte of what follows the number");

    static Bits Ordered(Bits bits, NullOrder order) {
        if (order != NullOrder::nullFirstReversed) return bits;
        const Bits reversed = ByteSwap(bits);
        if constexpr (kSizes.reversedUnit == kSizes.number) {
            return reversed;
        } else {
            return std::rotl(reversed, 8 * static_cast<int>(kSizes.reversedUnit));
        }
    }
};

}  // namespace ky

#endif
