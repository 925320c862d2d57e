#ifndef KYTYPFMT_H
#define KYTYPFMT_H

/// Text formats of the identifiers, which `kyobjid.h` explains, and those that are not a row's own and that an
/// application may exchange.

#include "kyexport.h"

inline constexpr char KyObjIdFmt[] = "(%H-%L#%B)";                ///< `KyObjId`
inline constexpr char KyClassIdFmt[] = "(%Cv%V)";                 ///< `KyClassId`
inline constexpr char KyRefFmt[] = "(%D:%H-%L#%B, %C)";           ///< `KyRef`, as it is stored: without the version
inline constexpr char KyRefVersionFmt[] = "(%D:%H-%L#%B,%Cv%V)";  ///< `KyRef` with all of its fields
inline constexpr char KyLocalRefFmt[] = "(%H-%L#%B,%C)";          ///< `KyLocalRef`

/// The mark of the mantissa-and-exponent form of floating-point text: a format that does not begin with
/// "%" and whose first 8 characters are this text's selects it. "ldexp(" at first; an application may
/// point it at a longer text with two conversions. The text is the application's and is not copied.
extern KY_EXPORT const char* pSpecialDoubleFmt;

/// Copies the format `src` to `dst`, which has room for it, with the two characters at `pos` replaced by one "s": it
/// turns the two letters of a conversion such as "%lu" into "%s". Where fewer than two characters stand at `pos`, those
/// are replaced; behind the end of `src` nothing is. The two must not overlap.
KY_EXPORT void patch_format(char* dst, const char* src, unsigned pos);

#endif
