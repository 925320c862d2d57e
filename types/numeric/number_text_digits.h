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

/// Whether eight bytes of text are all decimal digits.
constexpr bool AreEightDigits(std::uint64_t text) {
    constexpr std::uint64_t kHighHalves = 0xF0F0F0F0F0F0F0F0;
    return (text & kHighHalves) == kEightZeros && ((text + 0x0606060606060606) & kHighHalves) == kEightZeros;
}

/// The number that eight digits of text stand for.
constexpr std::uint32_t EightDigitsValue(std::uint64_t text) {
    const std::uint64_t pairs = ((text & 0x0F0F0F0F0F0F0F0F) * (10 * 256 + 1) >> 8) & 0x00FF00FF00FF00FF;
    const std::uint64_t fours = (pairs * (100 * 65536 + 1) >> 16) & 0x0000FFFF0000FFFF;
    return static_cast<std::uint32_t>(fours * (10000 * (std::uint64_t{1} << 32) + 1) >> 32);
}

inline void StoreEight(std::uint64_t digits, char* out) { std::memcpy(out, &digits, sizeof digits); }

}  // namespace ky

#endif
