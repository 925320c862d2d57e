#ifndef KYSTRING_SLOTS_H
#define KYSTRING_SLOTS_H

/// The slots of the string rows. A memory-form value is one `KyString`.
///
/// Persistent form, current layout: one record a string.
///
///   0      2      L: bytes that follow; high byte first in form 2, low byte first in every other
///   2      1      code set
///   3      1      language, 254 for a null string
///   4      L - 4  the string's whole allocation but for its terminator; 16-bit units in the byte order of the form
///   L      1      0
///   L + 1  1      0xFF
///
/// Old layout: one 16-bit total for the whole array, then the strings as zero-terminated 8-bit texts. Its last byte
/// is 0, by which readers tell it from the current one. Neither code set nor language are kept.

#include "kytypes.h"

KyCreateFunc StringCreate;
KyDeleteFunc StringDelete;

KyStoreFunc StringStore;
KyStoreFunc StringOldStore;  ///< the total wraps modulo 65536
/// Reads either layout. Trusts the lengths. Of an array in the old layout the whole size is returned.
KyLoadFunc StringLoad;
KyNullSizeGetFunc StringNullSizeGet;
/// From memory form or from a persistent form of either layout. Into memory form: the values' own size.
KySizeGetFunc StringSizeGet;
KySizeGetFunc StringOldSizeGet;
/// Leave the file's position where it was. A record counts when its length field is there, if nothing else.
KySizeGetFromMemFileFunc StringSizeGetFromMemFile;
KySizeGetFromMemFileFunc StringOldSizeGetFromMemFile;

// Flag bit 0x80: records are known to be in the current layout. A record that the buffer's end cuts short counts with
// the part that is there: err is 2101 in Compare, and -2999 in Hash when that part is 254 bytes and more.
KyCompareFunc StringCompare;
KyCompareFunc StringOldCompare;
KyHashFunc StringHash;
KyHashFunc StringOldHash;

KyConvertToFunc KyStringConvertToKyString;
KyConvertFromFunc KyStringConvertFromKyString;
KyConstructorFunc KyStringConstructor;
KyDestructorFunc KyStringDestructor;
KyAssignmentFunc KyStringAssignment;
KyCopyFunc KyStringCopy;
KyIsNullFunc KyStringIsNull;
KySetNullFunc KyStringSetNull;
/// Replaces `out`. The format has at most one conversion, "%s" with "-", width and precision in characters; any
/// other prints nothing. A null value prints as the null print string, an empty one as itself.
KyPrintFunc KyStringPrintToKyString;
/// The whole text, whatever the format; a text that begins with the null print string makes the value null.
KyScanFunc KyStringScanFromKyString;
KyDefaultValueFunc KyStringDefaultValue;

/// Hash of one text over its first `length` characters (-1: to the terminator). Frozen: indexes on disk depend on
/// it. 0xFEFE7575 for a null text; `format` 2: 16-bit units have their bytes swapped.
unsigned HashString(unsigned char codeSet, unsigned char language, const char* text, int length, unsigned char format);

#endif
