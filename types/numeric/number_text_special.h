#ifndef NUMBER_TEXT_SPECIAL_H
#define NUMBER_TEXT_SPECIAL_H

/// The mantissa-and-exponent form of floating-point text: value = mantissa * 2^exponent, the mantissa's
/// magnitude in [0.5, 1). A format of this form has at most one conversion for each of the two, in either
/// order: the exponent goes to the integer conversion, the mantissa to the floating-point one.

#include "number_format_print.h"

namespace ky {

/// Whether a format selects this form: see `pSpecialDoubleFmt`. `format` may be null.
bool IsMantissaFormat(const char* format);

/// Nothing for a format that does not fit. Infinities and NaN have the exponent 0.
void PrintMantissa(TextBuffer& out, const char* format, double value);

/// False, and `value` kept, unless both numbers were read.
bool ScanMantissa(const char* text, const char* format, double& value);

}  // namespace ky

#endif
