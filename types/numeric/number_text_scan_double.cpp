#include <bit>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

#include "number_text.h"

namespace ky {

namespace {

constexpr std::uint64_t kNanBits = 0xFFF8000000000000;

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether `text` is `word` (given in lower case) in any mix of cases.
bool IsWord(const char* text, const char* word) {
    for (; *word != 0; ++text, ++word) {
        const char lower = *text >= 'A' && *text <= 'Z' ? static_cast<char>(*text - 'A' + 'a') : *text;
        if (lower != *word) return false;
    }
    return *text == 0;
}

double WordValue(const char* text) {
    if (IsWord(text, "infinity")) return std::numeric_limits<double>::infinity();
    if (IsWord(text, "-infinity")) return -std::numeric_limits<double>::infinity();
    if (IsWord(text, "nan")) return std::bit_cast<double>(kNanBits);
    return 0;
}

/// A decimal number taken apart: its text is [start, end).
struct Decimal {
    const char* end = nullptr;
    bool large = false;  ///< the number is 1 or more
};

/// False when no digit stands at `text`.
bool TakeDecimal(const char* text, Decimal& number) {
    constexpr long long kFar = 1'000'000'000;
    const char* at = text;
    long long magnitude = 0;  // decimal exponent of the first digit other than 0, plus 1
    bool digits = false;
    bool nonZero = false;
    for (; IsDigit(*at); ++at) {
        digits = true;
        nonZero = nonZero || *at != '0';
        if (nonZero) ++magnitude;
    }
    if (*at == '.' && (digits || IsDigit(at[1]))) {
        for (++at; IsDigit(*at); ++at) {
            digits = true;
            if (!nonZero && *at == '0') --magnitude;
            nonZero = nonZero || *at != '0';
        }
    }
    if (!digits) return false;
    if (*at == 'e' || *at == 'E') {
        const char* exponent = at + 1;
        const bool negative = *exponent == '-';
        if (*exponent == '-' || *exponent == '+') ++exponent;
        if (IsDigit(*exponent)) {
            long long amount = 0;
            for (; IsDigit(*exponent); ++exponent) {
                if (amount < kFar) amount = amount * 10 + (*exponent - '0');
            }
            magnitude += negative ? -amount : amount;
            at = exponent;
        }
    }
    number.end = at;
    number.large = magnitude > 0;
    return true;
}

}  // namespace

double ScanDoubleText(const char* text) {
    while (IsSpace(*text)) ++text;
    const bool negative = *text == '-';
    const char* start = text + (*text == '-' || *text == '+' ? 1 : 0);
    Decimal number;
    if (!TakeDecimal(start, number)) return WordValue(text);
    double value = 0;
    if (std::from_chars(start, number.end, value).ec == std::errc::result_out_of_range) {
        value = number.large ? std::numeric_limits<double>::infinity() : 0;
    }
    return negative ? -value : value;
}

}  // namespace ky
