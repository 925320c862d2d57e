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
/// is 0, by which readers tell it from the current one. Neither code set nor language are kept. See `old_layout.h`.
///
/// Code set 254 holds order values; its language byte is the code set in which they are to be shown, 1 to 127, and bit
/// 7 of it a mark: the orders do not tell everything, and equality has to be verified on the object.
///
/// Every function takes flags with bit 0x80: the records are known to be in the current layout.

#include "kytypes.h"

KyCreateFunc StringCreate;
KyDeleteFunc StringDelete;

KyStoreFunc StringStore;
KyStoreFunc StringOldStore;
/// Reads either layout. Trusts the lengths. Of an array in the old layout the whole size is returned.
KyLoadFunc StringLoad;
KyNullSizeGetFunc StringNullSizeGet;
/// From memory form or from a persistent form of either layout. Into memory form: the values' own size. Bits of the
/// target flag ask for the size of 8-bit content in the current layout, up to its terminator, as if it were mapped into
/// the default 16-bit code set (0x20) or turned into order values (0x40, which has precedence).
KySizeGetFunc StringSizeGet;
KySizeGetFunc StringOldSizeGet;  ///< without options
/// Leave the file's position where it was. A record counts when its length field is there, if nothing else; options
/// only where all of it is.
KySizeGetFromMemFileFunc StringSizeGetFromMemFile;
KySizeGetFromMemFileFunc StringOldSizeGetFromMemFile;

/// Results are -1, 0 or 1, and mostly those of `KyStrCmp`.
///
///   absent    A text without characters orders before every other, whatever the operator allows. Two of them are
///             equal, but a null one is before one that is not where texts are compared exactly (0x10 or 0x100).
///   pattern   When the operator allows wildcards and the second text holds one, texts are compared up to there alone:
///             all that begin alike are equal to it, and err becomes 2101, for that the caller has to see whether one
///             matches (`KyStrCmp` over the whole texts). An escape and what it escapes are one character.
///   cut       A text that goes on behind the end of its buffer is compared with what is there, without its last
///             character where that may count as one with what follows. When that is equal err becomes 2101 and the
///             text whose length field tells more is behind; with 0x80 in the operator they are equal. Behind a pattern
///             err stays 0 (0x80 clear) where nothing is open: the first text is cut, long enough, and the pattern's
///             only wildcard is an asterisk at its end.
///   marked    err becomes 2114 when the first text is, 2115 when only the second. Such a second text is a pattern
///             where wildcards are allowed, with its end for the wildcard.
///
/// An error ends the walk, so one in the first element leaves the others uncompared. The old row takes every persistent
/// array for one in the old layout, unless bit 0x80 of the flag is set.
KyCompareFunc StringCompare;
KyCompareFunc StringOldCompare;
/// Strings that are equal under 0x100 hash alike in every form and code set, texts of code set 0 aside, which are
/// hashed by their bytes. Of a record that is cut short the part that is there is hashed; where that is 254 bytes or
/// more the result is 0 and err -2999.
KyHashFunc StringHash;
KyHashFunc StringOldHash;

/// Between memory, both byte orders and, each row into its own, both layouts. Of a source that is cut short what is
/// there is translated. A persistent destination of `dstLen` bytes (0: as many as it takes) gets as much as fits, with
/// length fields that tell of the whole, and zeros behind; returned are the bytes without those. See
/// `kystring_translate.h` for destinations of 253 bytes.
KyTranslateFunc KyStringTranslate;
KyTranslateFunc KyStringOldTranslate;

KyConvertToFunc KyStringConvertToKyString;
KyConvertFromFunc KyStringConvertFromKyString;
KyConstructorFunc KyStringConstructor;
KyDestructorFunc KyStringDestructor;
KyAssignmentFunc KyStringAssignment;
KyCopyFunc KyStringCopy;
KyIsNullFunc KyStringIsNull;
KySetNullFunc KyStringSetNull;
/// Appends to an output that has text, mapped into its code set; one that is empty becomes what is printed. The format
/// has at most one conversion, "%s" with "-", width and precision in characters; any other prints nothing. A null value
/// prints as the null print string, an empty one as itself. For texts of order values see `order_print.h`.
KyPrintFunc KyStringPrintToKyString;
/// The whole text, whatever the format; a text that begins with the null print string makes the value null.
KyScanFunc KyStringScanFromKyString;
KyDefaultValueFunc KyStringDefaultValue;
/// Stored strings (form 0x81) keep their value, and have no successor.
KyGetValueFunc KyGetValueKyString;

/// Hash of one text over its first `length` characters (-1: to the terminator). Frozen: indexes on disk depend on
/// it. 0xFEFE7575 for a null text; `format` 2: 16-bit units have their bytes swapped.
unsigned HashString(unsigned char codeSet, unsigned char language, const char* text, int length, unsigned char format);

#endif
