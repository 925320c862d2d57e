#ifndef NUMBER_FORMAT_SCAN_H
#define NUMBER_FORMAT_SCAN_H

/// Carries out the pieces of a scan format with the meaning of the C library's formatted scan in its "C"
/// locale. Each function advances `text`, zero-terminated, past what it read; where it returns false, nothing
/// more is to be read and `text` is anywhere before the mismatch.

#include <string_view>

#include "number_format.h"

namespace ky {

/// White space matches any amount of white space, "%%" white space and a "%", every other character itself.
bool MatchLiteral(const char*& text, std::string_view literal);

/// An integer, or one character for "%c". `bits` is the 64-bit number that was read, limited to 64 bits by
/// the conversion's signedness; the target takes its low bits.
bool ScanInteger(const char*& text, const Conversion& conversion, unsigned long long& bits);

/// What a "%d" (`isSigned`) or "%u" conversion without a width reads.
bool ScanLongDecimal(const char*& text, bool isSigned, unsigned long long& bits);

/// The same, at once where the number is short enough for 64 bits whatever its digits are.
inline bool ScanDecimal(const char*& text, bool isSigned, unsigned long long& bits) {
    constexpr int kSafeDigits = 18;
    const char* at = text;
    while (IsSpace(*at)) ++at;
    const bool negative = *at == '-';
    if (negative || *at == '+') ++at;
    if (!IsDigit(*at)) return false;
    const char* const start = at;
    unsigned long long number = 0;
    for (; IsDigit(*at); ++at) number = number * 10 + static_cast<unsigned>(*at - '0');
    if (at - start > kSafeDigits) return ScanLongDecimal(text, isSigned, bits);
    text = at;
    bits = negative ? 0 - number : number;
    return true;
}

bool ScanFloating(const char*& text, const Conversion& conversion, float& value);
bool ScanFloating(const char*& text, const Conversion& conversion, double& value);

}  // namespace ky

#endif
