#ifndef KYORDER_NAMES_H
#define KYORDER_NAMES_H

/// What an order value stands for, to be shown to people. An order value carries no class: a letter order is read as
/// one of the Latin class. Any thread.

#include "kyexport.h"

class KyString;

/// A printable 8-bit character for an order value: a blank for spaces, the digit, the letter without its accents in the
/// order's case, the ASCII character that is the symbol. Returns 0; -2002 where there is none, such as for Han
/// characters, the end of a text and most symbols, and `ch` is then 0.
///
/// `exact`: where no ASCII character has exactly this order, the characters 0x80 to 0xFF of the code set are searched
/// for one, those that stand for one order before those that stand for several. `ch` is then the character found, and
/// `*substitution` how to write it in ASCII: "\`A". In all other cases that is "". It may be null; the text is
/// constant. KEPT: the substitution is that of the byte in Latin-1, whatever the code set.
KY_EXPORT int KyConvertOrderToChar(unsigned short order, unsigned char codeSet, unsigned char& ch, int exact,
                                   const char** substitution);

/// A name for an order value in place of the content of `text`: "symbol full stop", "digit 7",
/// "letter A, upper, with accent acute". Returns 0; -2002 for "undefined ordering indicator", which is 0, everything
/// above 65519 and what lies between the digits and the letters. The name of a Han character ends in a line feed.
/// Symbols of no 8-bit code set are numbered, and so are the letters that share a variant.
KY_EXPORT int KyConvertOrderToString(unsigned short order, unsigned char codeSet, KyString& text);

#endif
