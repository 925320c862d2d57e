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
bool ScanDecimal(const char*& text, bool isSigned, unsigned long long& bits);

bool ScanFloating(const char*& text, const Conversion& conversion, float& value);
bool ScanFloating(const char*& text, const Conversion& conversion, double& value);

}  // namespace ky

#endif
