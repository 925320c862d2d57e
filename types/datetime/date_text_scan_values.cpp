#include "date_text_scan_values.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "ascii.h"
#include "number_text.h"

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

    void Take(const char*& text) {
        const char* const start = text;
        for (; IsDigit(*text); ++text) number = number * 10 + static_cast<unsigned>(*text - '0');
        count += static_cast<unsigned>(text - start);
    }
};

bool IsSign(char c) { return c == '-' || c == '+'; }

/// A decimal number as a double; false where there is none.
bool ReadDecimal(const char* text, const char* limit, double& value) {
    // Numbers and powers of ten up to these are doubles themselves, whose quotient is rounded once.
    constexpr unsigned kExactDigits = 15;
    constexpr double kPowers[kExactDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const char* at = text;
    if (IsSign(*at)) ++at;
    Digits digits;
    digits.Take(at);
    const unsigned whole = digits.count;
    if (*at == '.') digits.Take(++at);
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

bool TakeInteger(const char*& text, int& value) {
    constexpr long long kFar = std::numeric_limits<long long>::max() / 10 - 1;
    const bool negative = *text == '-';
    if (IsSign(*text)) ++text;
    if (!IsDigit(*text)) return false;
    long long number = 0;
    for (; IsDigit(*text); ++text) {
        if (number < kFar) number = number * 10 + (*text - '0');
    }
    using Limits = std::numeric_limits<int>;
    value = static_cast<int>(std::clamp<long long>(negative ? -number : number, Limits::min(), Limits::max()));
    return true;
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
    while (IsDigit(*text) || *text == '.' || IsSign(*text)) ++text;
}

}  // namespace ky
