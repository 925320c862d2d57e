#ifndef NUMBER_TEXT_DIGITS_H
#define NUMBER_TEXT_DIGITS_H

/// Decimal digits eight at a time, in the bytes of one 64-bit number: the first digit in the lowest byte.

#include <bit>
#include <cstdint>
#include <cstring>

namespace ky {

inline constexpr std::uint64_t kEightZeros = 0x3030303030303030;

/// The digits of a number below 10^8 as numbers from 0 to 9.
constexpr std::uint64_t EightDigits(std::uint32_t number) {
    constexpr std::uint64_t kPairMask = 0x0000007F0000007F;
    constexpr std::uint64_t kDigitMask = 0x000F000F000F000F;
    // Halves of four digits in 32-bit lanes, then pairs in 16-bit lanes, then digits in bytes. n * 10486 >> 20
    // is n / 100 below 10^4, n * 103 >> 10 is n / 10 below 100.
    const std::uint64_t fours = number / 10000 | std::uint64_t{number % 10000} << 32;
    const std::uint64_t hundreds = (fours * 10486 >> 20) & kPairMask;
    const std::uint64_t pairs = hundreds | (fours - hundreds * 100) << 16;
    const std::uint64_t tens = (pairs * 103 >> 10) & kDigitMask;
    return tens | (pairs - tens * 10) << 8;
}

/// How many of the low bytes are numbers from 0 to 9 before the first that is not.
constexpr unsigned LeadingDigits(std::uint64_t digits) {
    // A byte of 10 or more gets its top bit; carries reach only bytes behind the first such one.
    const std::uint64_t others = ((digits + 0x7676767676767676) | digits) & 0x8080808080808080;
    return static_cast<unsigned>(std::countr_zero(others)) / 8;
}

/// The number that eight digits stand for: the way back.
constexpr std::uint32_t EightDigitsValue(std::uint64_t digits) {
    const std::uint64_t pairs = (digits * (10 * 256 + 1) >> 8) & 0x00FF00FF00FF00FF;
    const std::uint64_t fours = (pairs * (100 * 65536 + 1) >> 16) & 0x0000FFFF0000FFFF;
    return static_cast<std::uint32_t>(fours * (10000 * (std::uint64_t{1} << 32) + 1) >> 32);
}

inline void StoreEight(std::uint64_t digits, char* out) { std::memcpy(out, &digits, sizeof digits); }

}  // namespace ky

#endif
