#ifndef KYDISKFORM_H
#define KYDISKFORM_H

/// 8-bit text as the case-insensitive string types keep it on disk: each byte from 0x80 on is exchanged by a table,
/// ASCII stays. Frozen, persistent. Any thread; no byte of text is refused.

#include "kyexport.h"

/// 0x41 -> 0x41;   0xA1 -> 0xC0
KY_EXPORT unsigned char _KyConvertToDiskFormat(unsigned char c);
/// The way back. KEPT: 0xAC and 0xEC do not come back as what they were but as 0x90 and 0x91.
KY_EXPORT unsigned char _KyConvertFromDiskFormat(unsigned char c);

/// Converts text to its disk form and returns the bytes written. `dst` may be `src`.
///   n not 0: exactly n bytes, zero bytes included, and no terminator
///   n 0: up to the zero byte, which is written and counted too
KY_EXPORT unsigned _KyEncodeString(unsigned char* dst, const unsigned char* src, unsigned short n);
/// Converts from disk form up to the zero byte, which is written too; returns the bytes written, the zero byte
/// included. `dst` may be `src`.
KY_EXPORT unsigned _KyDecodeString(unsigned char* dst, const unsigned char* src);

#endif
