#include "number_text_digits.h"

#include <bit>

#include "number_text.h"

namespace ky {

namespace {

constexpr std::uint64_t kTenToThe8 = 100'000'000;
constexpr std::uint64_t kTenToThe16 = kTenToThe8 * kTenToThe8;

/// Digits of a number below 10^8. From its bits, so that whoever needs the length does not wait for the digits.
unsigned DigitCount(std::uint32_t number) {
    constexpr std::uint32_t kPowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    number |= 1;  // one digit for 0; no other count changes, as the other powers of ten are even
    const auto least = static_cast<unsigned>(std::bit_width(number)) * 1233 >> 12;  // 1233 / 4096: log10(2)
    return least + (number >= kPowers[least] ? 1 : 0);
}

/// Writes a number below 10^8 without leading zeros, in 8 bytes; returns its length.
unsigned FirstDigits(std::uint32_t number, char* out) {
    const unsigned length = DigitCount(number);
    StoreEight((EightDigits(number) | kEightZeros) >> (64 - 8 * length), out);
    return length;
}

void NextDigits(std::uint64_t number, char* out) {
    StoreEight(EightDigits(static_cast<std::uint32_t>(number)) | kEightZeros, out);
}

}  // namespace

unsigned UnsignedText(unsigned long long value, char* out) {
    unsigned length;
    if (value < kTenToThe8) {
        length = FirstDigits(static_cast<std::uint32_t>(value), out);
    } else if (value < kTenToThe16) {
        length = FirstDigits(static_cast<std::uint32_t>(value / kTenToThe8), out) + 8;
        NextDigits(value % kTenToThe8, out + length - 8);
    } else {
        length = FirstDigits(static_cast<std::uint32_t>(value / kTenToThe16), out) + 16;
        NextDigits(value / kTenToThe8 % kTenToThe8, out + length - 16);
        NextDigits(value % kTenToThe8, out + length - 8);
    }
    out[length] = 0;
    return length;
}

unsigned SignedText(long long value, char* out) {
    const unsigned sign = value < 0 ? 1 : 0;
    const auto bits = static_cast<unsigned long long>(value);
    *out = '-';
    return sign + UnsignedText(sign != 0 ? 0 - bits : bits, out + sign);
}

}  // namespace ky
