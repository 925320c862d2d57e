#ifndef KYMULTIBYTE_H
#define KYMULTIBYTE_H

/// The multibyte form of text, which is what applications exchange: UTF-8 of 16-bit characters, one to three bytes
/// each. All functions use their arguments alone and are safe in any thread; text never depends on the locale.

#include <cstddef>

#include "kyexport.h"

class KyString;

// ---------------------------------------------------------------------------------------------
// Characters
// ---------------------------------------------------------------------------------------------

/// Decodes the character at `s`, which has at most n bytes; nothing behind them is read. Returns the bytes used;
/// 0 when `s` is null, whatever n; -1, and `out` unchanged, when n is 0, or the bytes are no character: a byte that
/// begins none, one that does not continue the character, a character that does not end within n, one written in more
/// bytes than it takes. A zero byte is a character: 1. `out` may be null.
/// KEPT: forms of four to six bytes are decoded too, and the low 16 bits of their values stored.
///   E2 82 AC -> 3, 0x20AC;   F0 9F 98 80 -> 4, 0xF600;   C0 80 -> -1
KY_EXPORT int ky_mbtowc(unsigned short* out, const char* s, std::size_t n);
/// Writes the 1 to 3 bytes of a character and returns their number; 0 when `out` is null. No terminator.
KY_EXPORT int ky_wctomb(char* out, unsigned short wc);
/// Bytes that `ky_wctomb` writes for the character.
KY_EXPORT int ky_len4wc(unsigned short wc);

/// `ky_mbtowc`.
KY_EXPORT int KyMultiByte2WChar(unsigned short* out, const char* s, std::size_t n);
/// `ky_wctomb` of the low 16 bits.
KY_EXPORT int KyWChar2MultiByte(char* out, wchar_t wc);

// ---------------------------------------------------------------------------------------------
// Texts
// ---------------------------------------------------------------------------------------------

/// Decodes inLen bytes, zero bytes like any other. The first outMax characters go to `out`, without a terminator; the
/// others are counted only, so that 0 for outMax counts (`out` may then be null). Returns the number of characters in
/// the text, 0 when inLen is not positive or `in` is null, or -1 at the first bytes that are no character; what was
/// decoded before stays in `out`.
KY_EXPORT int KyMultiByteStr2WCharStr(unsigned short* out, int outMax, const char* in, int inLen);

/// Bytes of the multibyte form of the first maxChars characters, no terminator; 0 for 0.
/// KEPT: for ASCII text in code sets 0 to 5 the length of the whole text, unless maxChars is 0.
KY_EXPORT int KyMBSLength(const KyString& s, unsigned short maxChars);

/// The multibyte form of `s` into `out`, which has outSize bytes.
///
/// ASCII text in the code sets 0 to 26 needs its length + 1 bytes: returns the length, and everything in `out` behind
/// the text is zero; when it does not fit, the length negative, which is one less than the bytes needed.
///
/// Any other text is mapped into Unicode. Returns the bytes of the text; a zero follows only where there is room, so an
/// exact fit has none. When it does not fit, the bytes of the leading characters that do, negative.
///
/// KEPT: a result of 0 is an empty text, or not even the first character fitted; -1 likewise says only that one byte
/// was written and the next character did not fit, or that a one-character ASCII text did not fit.
KY_EXPORT int KyString2KyMBS(const KyString& s, char* out, int outSize);

/// `out` becomes the Unicode text (code set 253) of at most inLen bytes at `in`, up to the first zero character; its
/// language stays, also that of a null string. Returns the bytes used, without those of the zero character; 0 with
/// `out` empty when inLen is not positive or `in` is null. -1: bytes that are no character; -2: more than 32767 bytes
/// before the end. `out` then holds what was decoded before. `in` may be out's own text.
/// KEPT: 32766 and 32767 ASCII bytes are accepted although a string holds 32765 characters: the last ones are cut as
/// in every string. A character whose low 16 bits are zero (U+10000) ends the text like a terminator.
KY_EXPORT int KyMBS2KyString(const char* in, KyString& out, int inLen);

/// `KyMBS2KyString`.
KY_EXPORT int KyMultiByteString2KyString(const char* in, KyString& out, int inLen);
/// The same for the content of an 8-bit string; `in` may be `out`.
KY_EXPORT int KyMultiByteString2KyString(const KyString& in, KyString& out);

/// The multibyte form of `s` with its terminator. Returns the bytes of the text, without the terminator.
///
/// `out` null or outSize not positive: `out` becomes a new block, to be freed with `delete[]`, and outSize its size.
/// KEPT: such a text has at most 65531 bytes, as in a string; the rest is cut.
///
/// Else the text goes to `out`, which has outSize bytes. -1 when it does not fit: outSize is then the bytes of the
/// text, and the caller provides one more. KEPT: text that is not ASCII and fits exactly is returned without
/// terminator.
KY_EXPORT int KyString2MultiByteString(const KyString& s, char*& out, int& outSize);

// ---------------------------------------------------------------------------------------------
// Multibyte strings of other code sets: none is supported, all of these do nothing and return 0 or null.
// ---------------------------------------------------------------------------------------------

KY_EXPORT char* KyMBStrCpy(unsigned char codeSet, char* dst, const char* src);
KY_EXPORT int KyMBStrLen(unsigned char codeSet, const char* s);
KY_EXPORT int KyMBStrCmp(unsigned char codeSet, const char* a, const char* b);
KY_EXPORT char* KyMBStrNCpy(unsigned char codeSet, char* dst, const char* src, std::size_t n);
KY_EXPORT int KyMBStrNCmp(unsigned char codeSet, const char* a, const char* b, std::size_t n);
KY_EXPORT int KyMBStrToI(unsigned char codeSet, const char* s);
KY_EXPORT long KyMBStrToL(unsigned char codeSet, const char* s);
KY_EXPORT long long KyMBStrToLL(unsigned char codeSet, const char* s);
KY_EXPORT char* KyMBStrInc(unsigned char codeSet, const char* p);
KY_EXPORT char* KyMBStrDec(unsigned char codeSet, const char* start, const char* p);
KY_EXPORT char* KyMBStrIdx(unsigned char codeSet, const char* s, int c);
KY_EXPORT char* KyMBStrNext(unsigned char codeSet, const char* p);
KY_EXPORT char* KyMBStrPrev(unsigned char codeSet, const char* start, const char* p);

#endif
