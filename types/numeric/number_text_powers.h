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

/// The upper 128 of the 192 bits of number * 10^q. The bits below them are all 0 where `clear` is set; the true
/// value is less than 2 units above `bits`, and exactly `bits` where it is clear and the power exact.
struct Product {
    UInt128 bits;
    bool clear;
};

inline Product MultiplyByPower(std::uint64_t number, int q) {
    const PowerOfTen& power = kPowersOfTen[static_cast<std::size_t>(q - kFirstPower)];
    const UInt128 low = UInt128{number} * power.low;
    const UInt128 bits = UInt128{number} * power.high + static_cast<std::uint64_t>(low >> 64);
    return {bits, static_cast<std::uint64_t>(low) == 0};
}

enum class Rounding { Down, Up, Unknown };

/// How product * 2^-shift is rounded to an integer, halves to the even one.
inline Rounding RoundingOf(const Product& product, int shift, bool exactPower) {
    const UInt128 half = UInt128{1} << (shift - 1);
    const UInt128 fraction = product.bits & (2 * half - 1);
    if (fraction > half) return Rounding::Up;
    if (fraction == half) {
        const bool tie = exactPower && product.clear;
        const bool odd = (static_cast<std::uint64_t>(product.bits >> shift) & 1) != 0;
        return tie && !odd ? Rounding::Down : Rounding::Up;
    }
    return fraction == half - 1 && !exactPower ? Rounding::Unknown : Rounding::Down;
}

}  // namespace ky

#endif
