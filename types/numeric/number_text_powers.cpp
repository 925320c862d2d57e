#include "number_text_powers.h"

namespace ky {

namespace {

using Table = std::array<PowerOfTen, kLastPower - kFirstPower + 1>;

/// A normalised number of 256 bits, most significant limb last: enough to keep 128 of them right over all steps,
/// each of which drops less than one unit of the last place.
struct Wide {
    std::array<std::uint64_t, 4> limbs{0, 0, 0, std::uint64_t{1} << 63};
    int exponent = 0;  ///< of the top bit

    constexpr PowerOfTen Top() const { return {limbs[3], limbs[2]}; }

    constexpr void MultiplyByTen() {
        std::uint64_t carry = 0;
        for (std::uint64_t& limb : limbs) {
            const UInt128 product = UInt128{limb} * 5 + carry;
            limb = static_cast<std::uint64_t>(product);
            carry = static_cast<std::uint64_t>(product >> 64);
        }
        const int shift = carry >= 4 ? 3 : 2;
        for (std::size_t i = 4; i-- != 0;) {
            const std::uint64_t limb = limbs[i];
            limbs[i] = limb >> shift | carry << (64 - shift);
            carry = limb;
        }
        exponent += shift + 1;
    }

    constexpr void DivideByTen() {
        // (limbs << shift) / 5 has its top bit set, and the bits that are shifted out are less than 5.
        const int shift = limbs[3] >> 61 == 4 ? 3 : 2;
        std::uint64_t rest = limbs[3] >> (64 - shift);
        for (std::size_t i = 4; i-- != 0;) {
            const std::uint64_t next = i == 0 ? 0 : limbs[i - 1];
            const std::uint64_t limb = limbs[i] << shift | next >> (64 - shift);
            const UInt128 part = UInt128{rest} << 64 | limb;
            limbs[i] = static_cast<std::uint64_t>(part / 5);
            rest = static_cast<std::uint64_t>(part % 5);
        }
        exponent -= shift + 1;
    }
};

constexpr std::size_t IndexOf(int q) { return static_cast<std::size_t>(q - kFirstPower); }

constexpr bool ExponentsFit() {
    Wide up;
    Wide down;
    for (int q = 0; q <= kLastPower; ++q, up.MultiplyByTen(), down.DivideByTen()) {
        if (up.exponent != PowerExponent(q) || down.exponent != PowerExponent(-q)) return false;
    }
    return true;
}

static_assert(kFirstPower == -kLastPower && ExponentsFit());

constexpr Table MakeTable() {
    Table table{};
    Wide up;
    Wide down;
    for (int q = 0; q <= kLastPower; ++q, up.MultiplyByTen(), down.DivideByTen()) {
        table[IndexOf(-q)] = down.Top();
        table[IndexOf(q)] = up.Top();
    }
    return table;
}

}  // namespace

constinit const Table kPowersOfTen = MakeTable();

}  // namespace ky
