#ifndef GENERATED_TABLES_H
#define GENERATED_TABLES_H

/// What the build makes of the files under data/.

#include "kyi18n.h"

namespace ky::tables {

/// Where there is nothing of a number.
inline constexpr unsigned char NoEntry = 255;

/// All 8-bit code sets, Unicode and order values, and the index of each number.
extern const KyCodeSet codeSets[];
extern const unsigned char codeSetIndex[256];

/// All languages, and the index of each number.
extern const KyLanguage languages[];
extern const unsigned char languageIndex[256];

}  // namespace ky::tables

#endif
