#ifndef KYTYPFMT_H
#define KYTYPFMT_H

/// Text formats that are not a row's own and that an application may exchange.

#include "kyexport.h"

/// The mark of the mantissa-and-exponent form of floating-point text: a format that does not begin with
/// "%" and whose first 8 characters are this text's selects it. "ldexp(" at first; an application may
/// point it at a longer text with two conversions. The text is the application's and is not copied.
extern KY_EXPORT const char* pSpecialDoubleFmt;

#endif
