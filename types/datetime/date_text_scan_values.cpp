#include "date_text_scan_values.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "ascii.h"
#include "number_text.h"
#include "number_text_digits.h"

namespace ky {

namespace {

/// The number nearest to `value`, whatever it is but NaN, cut toward zero.
template <class Integer>
Integer Limited(double value) {
    using Limits = std::numeric_limits<Integer>;
    constexpr double kLow = static_cast<double>(Limits::min());  // a power of two: exact, and so is its negative
    if (value <= kLow) return Limits::min();
    return value >= -kLow ? Limits::max() : static_cast<Integer>(value);
}

/// Digits gathered from a text, which wrap when there are too many.
struct Digits {
    std::uint64_t number = 0;
    unsigned count = 0;

    /// All bytes before `limit` are readable.
    void Take(const char*& text, const char* limit) {
        const char* const start = text;
        if (limit - text >= 8) {
            constexpr std::uint64_t kPowers[] = {1,       10,        100,        1'000,      10'000,
                                                 100'000, 1'000'000, 10'000'000, 100'000'000};
            std::uint64_t bytes;
            std::memcpy(&bytes, text, sizeof bytes);
            bytes ^= kEightZeros;
            const unsigned length = LeadingDigits(bytes);
            // The digits behind zeros in the place of the other bytes.
            const std::uint64_t digits = length == 0 ? 0 : bytes << (64 - 8 * length);
            number = number * kPowers[length] + EightDigitsValue(digits);
            text += length;
        }
        for (; IsDigit(*text); ++text) number = number * 10 + static_cast<unsigned>(*text - '0');
        count += static_cast<unsigned>(text - start);
    }
};

/// A decimal number as a double; false where there is none.
bool ReadDecimal(const char* text, const char* limit, double& value) {
    // Numbers and powers of ten up to these are doubles themselves, whose quotient is rounded once.
    constexpr unsigned kExactDigits = 15;
    constexpr double kPowers[kExactDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const char* at = text;
    if (IsSign(*at)) ++at;
    Digits digits;
    digits.Take(at, limit);
    const unsigned whole = digits.count;
    if (*at == '.') digits.Take(++at, limit);
    if (digits.count == 0) return false;
    if (digits.count > kExactDigits || *at == 'e' || *at == 'E') {
        value = ScanDoubleText({text, static_cast<unsigned>(limit - text)});
        return true;
    }
    value = static_cast<double>(digits.number) / kPowers[digits.count - whole];
    if (*text == '-') value = -value;
    return true;
}

}  // namespace

int LimitedInteger(const char* digits, const char* end, bool negative) {
    using Limits = std::numeric_limits<int>;
    constexpr long long kFar = Limits::max() + 1LL;
    long long number = 0;
    for (; digits != end; ++digits) number = std::min(number * 10 + (*digits - '0'), kFar);
    return static_cast<int>(negative ? -number : std::min(number, kFar - 1));
}

void TakeMonthNumber(const char*& text, int& value) {
    char number[4] = {};
    for (unsigned i = 0; i < 3 && *text != 0; ++i) number[i] = *text++;
    const char* at = number;
    TakeInteger(at, value);
}

void TakeSeconds(const char*& text, const char* limit, int& second, int& nanoseconds) {
    constexpr double kBillion = 1e9;
    double value;
    if (ReadDecimal(text, limit, value)) {
        second = Limited<int>(value);
        nanoseconds = static_cast<int>(Limited<long long>(value * kBillion) % 1'000'000'000);
    }
    const char* at = text;
    while (IsDigit(*at) || *at == '.' || IsSign(*at)) ++at;
    text = at;
}

}  // namespace ky
