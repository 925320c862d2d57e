#ifndef KYWILDCARD_H
#define KYWILDCARD_H

/// Patterns: "*" stands for any run of characters, "?" for exactly one, and a backslash makes the character behind it a
/// literal. Texts and patterns are zero-terminated, not changed and not kept; null ones are empty. Any thread.
///
/// Modes of the functions for case-insensitive strings (i, casei), for each argument separately:
///   0x40  the argument is in disk form; without it, it is converted first
///   0x80  (casei only) it is a key already: its bytes are compared as they stand. Keys are given with both bits, 0xC0.
///         KEPT: one with 0x80 alone is sent through the conversion and garbled.

#include "kyexport.h"

/// Position in bytes of the first "*", "?" or backslash; -1 when there is none.
KY_EXPORT int strwc(char* pattern);
KY_EXPORT int istrwc(char* pattern, unsigned char mode);
KY_EXPORT int caseistrwc(char* pattern, unsigned char mode);

/// 1 when the whole text matches, else 0. Bytes match when they are equal. Behind a backslash r, t and n stand for
/// carriage return, tab and line feed, any other byte for itself; a backslash at the end matches nothing.
///   "a*c" and "abbbc": 1;   "a?c" and "ac": 0;   "a\n" and a, line feed: 1
KY_EXPORT int strwild(char* pattern, char* text);
/// The same, after conversion to disk form.
KY_EXPORT int istrwild(char* pattern, char* text, unsigned char patternMode, unsigned char textMode);
/// The same by the keys of `_KyCaseIMapByte`: characters match when key and extra are equal, those of a key when the
/// bytes are and the other has no extra.
/// KEPT: a pattern character that counts as two letters ends the match with success where the text has the first of
/// them, and in a text that is a key the first "?" does: both are meant for keys that were cut off.
KY_EXPORT int caseistrwild(char* pattern, char* text, unsigned char patternMode, unsigned char textMode);

/// Index in characters of the first wildcard among the first `maxChars` characters of a text, -1 when there is none:
/// the asterisk of `KyString`'s settings and, when `questionIsLiteral` is 0, its question mark. `bytePos` may be null,
/// else it receives the byte offset of that character, or -1. Characters behind position 32767 are out of reach.
///   codeSet    0: plain bytes, the wildcards are "*" and "?" and the other arguments are not looked at
///   language   by whose rules the text is read
///   format     byte order of 16-bit text: 1 machine order, 2 swapped, 255: 1
/// KEPT: it knows no escapes, `strwc` does: "\*" has a wildcard here and a backslash there. A byte offset above 32767,
/// which 16-bit text can have, wraps; the index tells it.
KY_EXPORT int KyStrWild(unsigned char codeSet, unsigned char language, char* text, unsigned short questionIsLiteral,
                        short maxChars, short* bytePos, unsigned char format);

#endif
