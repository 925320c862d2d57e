#ifndef NUMBER_TEXT_DIGITS_H
#define NUMBER_TEXT_DIGITS_H

/// Decimal digits eight at a time, in the bytes of one 64-bit number: the first digit in the lowest byte.

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

inline void StoreEight(std::uint64_t digits, char* out) { std::memcpy(out, &digits, sizeof digits); }

}  // namespace ky

#endif
