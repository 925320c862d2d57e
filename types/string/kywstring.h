#ifndef KYWSTRING_H
#define KYWSTRING_H

/// Zero-terminated text of 16-bit units in machine byte order. Pointers need 2-byte alignment.

#include "kyexport.h"

/// Units before the zero unit.
KY_EXPORT unsigned KyWStrLen(const unsigned short* s);
/// Copies up to and including the zero unit; returns the position past it in `dst`.
KY_EXPORT unsigned short* KyWStrCpy(unsigned short* dst, const unsigned short* src);
/// KEPT: copies until a zero unit or n+1 units have been copied; no padding; returns the position past the last.
KY_EXPORT unsigned short* KyWStrNCpy(unsigned short* dst, const unsigned short* src, unsigned n);
/// Difference of the first differing units. `b` null: 1 unless `a` is null too; `a` null: -1.
KY_EXPORT int KyWStrCmp(const unsigned short* a, const unsigned short* b);
/// The same over at most n units; n is at least 1.
KY_EXPORT int KyWStrNCmp(const unsigned short* a, const unsigned short* b, unsigned n);
KY_EXPORT unsigned short* KyWStrInc(unsigned short* p);
/// Stores `c` into n units; returns p.
KY_EXPORT unsigned short* KyWMemSet(unsigned short* p, unsigned short c, unsigned n);

/// Number at the front of the text, base by prefix as `strtol` with base 0. White space is skipped, runs of
/// leading zeros count as one, at most 31 characters below 256 are read.
KY_EXPORT int KyWStrToI(const unsigned short* s);
KY_EXPORT int KyWStrToL(const unsigned short* s);
KY_EXPORT long long KyWStrToLL(const unsigned short* s);

/// Copies `byteCount` bytes; with flag 2 and a character size of 2 the bytes of each unit are swapped.
KY_EXPORT void KyMemCpy(char* dst, const char* src, short charSize, unsigned char flag, unsigned int byteCount);

#endif
