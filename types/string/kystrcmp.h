#ifndef KYSTRCMP_H
#define KYSTRCMP_H

/// The one string comparer of the system.

#include "kyexport.h"

class KyStringIterator;

/// Order of two texts given in their code sets and languages: below, equal to or above zero. A missing buffer
/// counts as empty; language 254 (or language 0 with code set 254) is null. `b` is the pattern where `op`
/// allows wildcards (neither 0x10 nor 0x100). maxLen -1: whole texts, else at most that many order values of each.
/// `format`: byte order of 16-bit texts. `error` is not written and may be null.
KY_EXPORT int KyStrCmp(unsigned char codeSetA, unsigned char languageA, const char* a, unsigned char codeSetB,
                       unsigned char languageB, const char* b, unsigned short op, short maxLen, unsigned char format,
                       int* error);

/// Byte comparison; n 0: whole texts. `b` null: 1 when `a` holds anything, else 0; `a` null: 0 when `b` is
/// empty, else -1. The difference of the first differing bytes.
KY_EXPORT int kystrcmp(const char* a, const char* b, int n);

/// Next order of a text, 0 at its end; letter orders lose the bits of `mask`. Code set 0: the next byte.
KY_EXPORT unsigned short GetNextOrderValue(KyStringIterator& it, unsigned short mask);

/// Splits an order value; 0, or -2002 when it is not of the class.
KY_EXPORT int KyExtractSymbolFromOrder(unsigned short order, unsigned short& symbol);
KY_EXPORT int KyExtractDigitFromOrder(unsigned short order, unsigned short& digit, unsigned short& variant);
KY_EXPORT int KyExtractLetterComponentsFromOrdering(unsigned short order, unsigned short& casePart,
                                                    unsigned short& accent, unsigned short& letter,
                                                    unsigned short& variant);

#endif
