#ifndef DATE_TEXT_SCAN_VALUES_H
#define DATE_TEXT_SCAN_VALUES_H

/// The values that dates are read from. Each function moves `text`, zero-terminated, behind what belongs to the value.

namespace ky {

/// A sign and digits; a sign alone is skipped. `value` is limited to its type, and kept where there is no digit.
bool TakeInteger(const char*& text, int& value);

/// A number of at most three characters, after which three are skipped whatever they are.
void TakeMonthNumber(const char*& text, int& value);

/// A decimal number with a fraction, read as the nearest double: whole seconds, and the nanoseconds cut. Where no
/// number can be read both are kept. Digits, signs and full stops are skipped. All bytes before `limit` are readable.
void TakeSeconds(const char*& text, const char* limit, int& second, int& nanoseconds);

}  // namespace ky

#endif
