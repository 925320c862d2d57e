#ifndef NUMBER_TEXT_POWERS_H
#define NUMBER_TEXT_POWERS_H

/// Powers of ten to 128 bits, and the 64 x 128-bit product with them: what the text of doubles is made and
/// read with. A product is an interval, and where its ends would be rounded differently the caller has
/// to ask a routine that is exact.

#include <array>
#include <cstdint>

namespace ky {

__extension__ using UInt128 = unsigned __int128;

/// 10^q = (high * 2^64 + low + d) * 2^(exponent - 127), 0 <= d < 1, with the top bit of `high` set.
struct PowerOfTen {
    std::uint64_t high;
    std::uint64_t low;
};

inline constexpr int kFirstPower = -345;
inline constexpr int kLastPower = 345;
/// From 10^0 to this one the powers are exact (d is 0).
inline constexpr int kLastExactPower = 55;

/// By q - `kFirstPower`.
extern const std::array<PowerOfTen, kLastPower - kFirstPower + 1> kPowersOfTen;

constexpr bool IsExactPower(int q) { return q >= 0 && q <= kLastExactPower; }

/// floor(q * log2(10)), for powers of the table.
constexpr int PowerExponent(int q) { return (q * 1741647) >> 19; }

/// The upper 128 of the 192 bits of number * 10^q. The bits below them are all 0 where `clear` is set. The true value
/// is less than 2 units of `low` above, and exactly these bits where it is clear and the power exact.
struct Product {
    std::uint64_t high;
    std::uint64_t low;
    bool clear;
};

inline Product MultiplyByPower(std::uint64_t number, int q) {
    const PowerOfTen& power = kPowersOfTen[static_cast<std::size_t>(q - kFirstPower)];
    const UInt128 low = UInt128{number} * power.low;
    const UInt128 bits = UInt128{number} * power.high + static_cast<std::uint64_t>(low >> 64);
    return {static_cast<std::uint64_t>(bits >> 64), static_cast<std::uint64_t>(bits),
            static_cast<std::uint64_t>(low) == 0};
}

/// `high` and what is below it, cut off `shift` bits (1 to 63) from the right and rounded, halves to even; false where
/// the bits do not decide. Up or down is as good as random, so it takes no branch.
inline bool Round(const Product& product, int shift, bool exactPower, std::uint64_t& rounded) {
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    const std::uint64_t fraction = product.high & (2 * half - 1);
    std::uint64_t up = product.high >> (shift - 1) & 1;
    if (fraction - (half - 1) <= 1) [[unlikely]] {
        if (fraction == half) {
            const bool tie = exactPower && product.low == 0 && product.clear;
            up = tie ? product.high >> shift & 1 : 1;
        } else if (product.low == ~std::uint64_t{0} && !exactPower) {
            return false;
        }
    }
    rounded = (product.high >> shift) + up;
    return true;
}

}  // namespace ky

#endif
