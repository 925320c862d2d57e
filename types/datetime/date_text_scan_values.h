#ifndef DATE_TEXT_SCAN_VALUES_H
#define DATE_TEXT_SCAN_VALUES_H

/// The values that dates are read from. Each function moves `text`, zero-terminated, behind what belongs to the value.

#include <limits>

#include "ascii.h"

namespace ky {

constexpr bool IsSign(char c) { return c == '-' || c == '+'; }

/// The number of any digits, limited to its type.
int LimitedInteger(const char* digits, const char* end, bool negative);

/// Digits, of which there is one at least; returns where they end. `value` is limited to its type.
inline const char* TakeDigits(const char* text, int& value, bool negative = false) {
    const char* at = text;
    unsigned number = 0;
    do {
        number = number * 10 + static_cast<unsigned>(*at - '0');
    } while (IsDigit(*++at));
    if (at - text <= std::numeric_limits<int>::digits10) {
        value = negative ? -static_cast<int>(number) : static_cast<int>(number);
    } else {
        value = LimitedInteger(text, at, negative);
    }
    return at;
}

/// A sign and digits; a sign alone is skipped. `value` is limited to its type, and kept where there is no digit.
inline bool TakeInteger(const char*& text, int& value) {
    const bool negative = *text == '-';
    if (IsSign(*text)) ++text;
    if (!IsDigit(*text)) return false;
    text = TakeDigits(text, value, negative);
    return true;
}

/// A number of at most three characters, after which three are skipped whatever they are.
void TakeMonthNumber(const char*& text, int& value);

/// A decimal number with a fraction, read as the nearest double: whole seconds, and the nanoseconds cut. Where no
/// number can be read both are kept. Digits, signs and full stops are skipped. All bytes before `limit` are readable.
void TakeSeconds(const char*& text, const char* limit, int& second, int& nanoseconds);

}  // namespace ky

#endif
