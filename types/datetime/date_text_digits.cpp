#include "date_text_digits.h"

#include <charconv>

#include "number_text.h"

namespace ky {

char* PutNumber(char* at, long long number, unsigned digits) {
    auto magnitude = static_cast<unsigned long long>(number);
    if (number < 0) {
        *at++ = '-';
        magnitude = 0 - magnitude;
    }
    if (magnitude < 100 && digits == 2) return PutTwo(at, static_cast<int>(magnitude));
    char text[kIntegerTextSize];
    const unsigned length = UnsignedText(magnitude, text);
    for (unsigned i = length; i < digits; ++i) *at++ = '0';
    std::memcpy(at, text, length);
    return at + length;
}

char* PutSeconds(char* at, int second, int nanoseconds) {
    constexpr int kExactBelow = 1 << 22;
    constexpr long long kBillion = 1'000'000'000;
    const unsigned digits = FractionDigits(nanoseconds);
    if (second <= -kExactBelow || second >= kExactBelow) {
        const double value = second + nanoseconds / 1e9;
        return std::to_chars(at, at + kDateNumberSize, value, std::chars_format::fixed, static_cast<int>(digits)).ptr;
    }

    // A double of this size is less than half a nanosecond away from the sum, which has no more digits than are shown:
    // rounded to them it is the sum.
    const long long total = second * kBillion + nanoseconds;
    const bool negative = total < 0;
    const auto magnitude = static_cast<unsigned long long>(negative ? -total : total);
    if (negative) *at++ = '-';
    at = PutNumber(at, static_cast<long long>(magnitude / kBillion), negative ? 1 : 2);
    if (digits == 0) return at;
    *at++ = '.';
    return PutFraction(at, static_cast<unsigned>(magnitude % kBillion), digits);
}

}  // namespace ky
