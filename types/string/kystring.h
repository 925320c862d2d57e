#ifndef KYSTRING_H
#define KYSTRING_H

/// `KyString`, the one string class of the system, and with it all that works on strings: characters and
/// iterators (`kychar.h`), collation (`kystrcmp.h`), 16-bit text (`kywstring.h`), multibyte text (`kymultibyte.h`), the
/// disk form of 8-bit text (`kydiskform.h`), patterns (`kywildcard.h`), names of order values (`kyorder_names.h`).

#include <cstddef>
#include <type_traits>

#include "kychar.h"
#include "kydiskform.h"
#include "kyexport.h"
#include "kymultibyte.h"
#include "kyorder_names.h"
#include "kystrcmp.h"
#include "kywildcard.h"
#include "kywstring.h"

class KyString;

// The library's own, not exported.
namespace ky {
class BlockWriter;
class LentText;

/// `out` becomes a text of the default 8-bit code set and the default language, as by the assignment of a text, whose
/// length is known: text[length] is its first zero.
KyString& AssignText(KyString& out, const char* text, std::size_t length);

/// The same with the text still to come: `length` characters, none of them zero, are to be written where the result
/// points. A block of just the size that is needed is kept. Null, and no change, where such a text is no simple block,
/// which `AssignText` sees to.
char* RenewText(KyString& out, std::size_t length);

/// `out` becomes a text with this label, as a record of `form` holds it: `bytes` bytes, whole characters. None: no
/// buffer.
void LoadText(KyString& out, unsigned char codeSet, unsigned char language, const char* text, std::size_t bytes,
              unsigned char form);
}  // namespace ky

/// A heap-held, zero-terminated text that knows its code set and language and can be null, which is not
/// the same as empty.
///
/// Code sets below 225 hold 8-bit characters, 225 and above 16-bit characters in machine byte order. All
/// positions and counts are characters, all sizes bytes. A text takes at most 65532 bytes with its
/// terminator; what is longer is cut silently (the "stringOverflow" switch of the "debug" section of the
/// configuration raises an assertion first). Lengths are counted afresh on each call; every edit allocates
/// one block of the exact new size. One object belongs to one thread at a time.
class KY_EXPORT KyString {
public:
    /// Positions and counts: nothing found; up to the end.
    static constexpr unsigned short NotFound = 0xFFFF;
    /// Largest allocation of one text in bytes, terminator included.
    static constexpr unsigned MaxBytes = 65532;

    // --- construction; the code set is the default one (8-bit or 16-bit by the argument), the language the default ---
    KyString();
    KyString(unsigned char codeSet, unsigned char language);  ///< empty, with this label
    KyString(const char* text, unsigned short n);             ///< first n bytes; 0xFFFF: to the terminator
    KyString(const unsigned short* text, unsigned short n);   ///< first n units; 0xFFFF: to the terminator
    // NOLINTBEGIN(google-explicit-constructor): texts, characters and numbers are meant to be given for strings
    KyString(const char* text);            ///< null: empty
    KyString(const unsigned short* text);  ///< null: empty
    KyString(char c);                      ///< one character, 0: empty
    KyString(unsigned char c);
    KyString(unsigned short c);  ///< one 16-bit character, 0: empty
    KyString(short number);      ///< decimal text, and so the following
    KyString(int number);
    KyString(unsigned int number);  ///< KEPT: as a signed number, 4294967295 is "-1"
    KyString(long long number);
    KyString(unsigned long long number);
    KyString(double number);  ///< as "%.17g" prints doubles
    // NOLINTEND(google-explicit-constructor)
    KyString(const KyString& other);
    /// Takes `other`'s buffer; `other` keeps its code set and language.
    KyString(KyString&& other) noexcept
        : buffer(other.buffer), bufferSize(other.bufferSize), codeSet(other.codeSet), language(other.language) {
        other.buffer = nullptr;
        other.bufferSize = 0;
    }
    ~KyString() { delete[] buffer; }

    // Every constructor argument is assigned by way of its constructor.
    KyString& operator=(const KyString& other);
    KyString& operator=(KyString&& other) noexcept;
    /// May point into the string itself. Code set and language become the defaults.
    KyString& operator=(const char* text);
    /// A character or number. Not left to the conversions, where a 0 would be a null text.
    template <class Value, class = std::enable_if_t<std::is_arithmetic_v<Value>>>
    KyString& operator=(Value value) {
        return *this = KyString(value);
    }

    // --- content and state ---
    /// Never null; a static empty text where there is no buffer. Valid until the next change.
    char* StrGet() const { return buffer != nullptr ? buffer : emptyText; }
    static KyString& EmptyString();  ///< one shared empty string that is never destroyed; not to be changed
    unsigned short Len() const;      ///< characters up to the terminator
    unsigned short NullLen() const;  ///< bytes of a terminator: 1 or 2
    int IsEmpty() const;             ///< 1 or 0; a null string without text is empty, too
    int operator!() const;           ///< the same
    int IsNullValue() const;         ///< 1 or 0: language 254, or language 0 with code set 254
    int SetNullValue();              ///< frees the content; returns 0

    unsigned char CodeSetGet() const { return codeSet; }
    unsigned char LanguageGet() const { return language; }
    void LanguageSet(unsigned char newLanguage) { language = newLanguage; }
    /// Bytes allocated, terminator included; 0 exactly when there is no buffer.
    unsigned short BufferSizeGet() const { return bufferSize; }

    /// Relabels the content. -2002, and no change, across the 8-bit/16-bit border; else 0.
    int SetCodeSetCode(unsigned char newCodeSet);
    /// Converts the content. -2002 for code set 0; else 0.
    int MapToCodeSet(unsigned char newCodeSet);
    /// Converts across the 8-bit/16-bit border only; between code sets of one width it relabels.
    void SetCodeSet(unsigned char newCodeSet);
    /// Takes over up to n characters of `src` (-1: all) mapped to `newCodeSet`, and its language. Characters
    /// copied, or -2002 for a copy onto itself.
    int CopyMapped(const KyString& src, unsigned char newCodeSet, short n);

    // --- building blocks ---
    /// A zero-filled block of `size` bytes (read as unsigned) whose size is noted in the string; not installed.
    void* Alloc(short size);
    /// Sets the whole content. The string has no buffer when this is called: a count of 0 and a null `src` only
    /// forget it. n -1: to the terminator, else the source's characters, which need no terminator unless they have
    /// to be mapped. Low four bits of `flag` 2: 16-bit source units are byte-swapped; 255: machine byte order.
    void MakeString(const char* src, unsigned char srcCodeSet, short n, unsigned char flag);
    /// The one editing primitive. Modes: 1 overwrite at `pos`, 2 insert at `pos`, 3 cut at `pos` and append;
    /// any other: no content. The source is src[srcStart, srcStart + srcCount), `repeat` times; it may be the
    /// string's own buffer. Old characters that are not there count as zeros.
    void BuildString(const char* src, unsigned char srcCodeSet, unsigned short pos, unsigned short srcStart,
                     unsigned short srcCount, unsigned short repeat, unsigned short mode, unsigned char flag);
    void Destroy();                 ///< frees; code set and language become 0
    void Destruct(KyString& from);  ///< moves `from`'s content here
    void d_deactivate();            ///< the same as `Destroy`

    /// The character at `i`, read with the string's code set and language; at `Len()` the terminator, beyond
    /// it (and for negative numbers) the empty character.
    KyChar operator[](int i);

    // --- editing; all return the string itself ---
    // What is put in is mapped into the string's own code set. A `char` or `const char*` is in the default 8-bit code
    // set, an `unsigned short` or a text of such in the default 16-bit one.
    KyString& Fill(unsigned short n, unsigned short c);  ///< n times `c` instead of the content; c 0: empty
    KyString& Fill(unsigned short n, char c);
    KyString& Expand(unsigned short n, unsigned short c);  ///< appends `c` up to a length of n; c 0: nothing
    KyString& Expand(unsigned short n, char c);
    KyString& Cut(unsigned short pos, short n);               ///< removes n characters from `pos` on; -1: up to the end
    KyString& Insert(const KyString& s, unsigned short pos);  ///< before `pos`; nothing where that is beyond `Len()`
    KyString& Replace(const KyString& s, unsigned short pos);  ///< overwrites, never lengthens
    KyString& operator+=(const KyString& s);
    KyString& operator<<(const KyString& s);
    KyString& operator<<(char c);
    KyString& operator<<(const char* text);
    KyString& operator<<(const unsigned short* text);
    KyString& operator<<(short number);
    KyString& operator<<(unsigned short c);  ///< KEPT: a character in 16-bit strings, a decimal number in 8-bit ones
    KyString& operator<<(int number);
    KyString& operator<<(unsigned int number);
    KyString& operator<<(long long number);
    KyString& operator<<(unsigned long long number);
    KyString& operator<<(float number);
    KyString& operator<<(double number);
    KyString& LeftTrim();  ///< without the white space in front
    KyString& RightTrim();
    KyString& Trim();
    KyString& ToLower();
    KyString& ToUpper();
    KyString& Transform(KyCharOperation& op);  ///< each character becomes what `op` makes of it
    /// Replaces each `from` found, with the default operator and never as a pattern, from `start` on.
    KyString& ReplaceAll(const KyString& from, const KyString& to, unsigned short start);
    KyString& ReplaceAll(unsigned short from, unsigned short to, unsigned short start);
    KyString& ReplaceAll(char from, char to, unsigned short start);

    // --- extraction ---
    /// n -1 or too long: up to the end. From beyond the end: empty, labelled with the defaults as they were at load.
    KyString Copy(unsigned short pos, short n) const;
    KyString Left(unsigned short n) const;
    KyString Right(unsigned short n) const;

    // --- searching: first position at or after `start`, or 0xFFFF ---
    // op 0xFFFF: the default compare operator, and wildcards mean themselves. Any other that allows wildcards (neither
    // 0x10 nor 0x100) makes `pattern` one, which may match a longer piece.
    unsigned short Find(const KyString& pattern, unsigned short start, unsigned short op) const;
    unsigned short Find(unsigned short c, unsigned short start, unsigned short op) const;
    unsigned short Find(char c, unsigned short start, unsigned short op) const;
    unsigned short SubStringPos(const KyString& pattern, unsigned short op) const;  ///< from 0 on

    // --- comparison, by the collation order ---
    /// op 0xFFFF: the default compare operator. maxLen -1: whole texts.
    int Compare(const KyString& other, short maxLen, unsigned short op) const;
    bool operator==(const KyString& other) const;
    int operator!=(const KyString& other) const;  ///< the comparison's result itself
    bool operator<(const KyString& other) const;
    bool operator<=(const KyString& other) const;
    bool operator>(const KyString& other) const;
    bool operator>=(const KyString& other) const;
    /// 1 or 0, exact. Strings of different languages, of which one may be null, are compared as neutral ones.
    int EqualsIgnoreLanguage(const KyString& other) const;

    // --- numbers ---
    /// 0; or -1 with `out` 0 when the text does not begin with a digit or "-". Base 10 (16-bit texts: by prefix).
    int Atol(int& out) const;
    int Atoll(long long& out) const;
    /// The same with the base taken from the text: "0x" and "0" prefixes.
    int Strtol(int& out) const;
    int Strtoll(long long& out) const;
    operator int() const;        // NOLINT(google-explicit-constructor)
    operator short() const;      // NOLINT(google-explicit-constructor)
    operator long long() const;  // NOLINT(google-explicit-constructor)
    operator double() const;     // NOLINT(google-explicit-constructor)

    // --- process-wide defaults, owned by the language context ---
    static unsigned char GetDefaultCodeSet();
    static void SetDefaultCodeSet(unsigned char codeSet);
    static unsigned char GetDefault8CodeSet();
    static unsigned char GetDefault16CodeSet();
    static unsigned char GetDefaultLanguage();
    static void SetDefaultLanguage(unsigned char language);
    static unsigned short GetDefaultCmpOp();
    static void SetDefaultCmpOp(unsigned short op);

    // --- wildcard characters, held as order values ---
    static unsigned short GetAsterisk();
    static unsigned short GetQuestion();
    static unsigned short GetEscape();
    static int SetAsterisk(const KyChar& c);  ///< returns 0
    static int SetQuestion(const KyChar& c);
    static int SetEscape(const KyChar& c);

    static unsigned short _nAsterisk;  ///< 0: not set yet
    static unsigned short _nQuestion;
    static unsigned short _nEscape;

private:
    char* buffer;
    unsigned short bufferSize;
    unsigned char codeSet;
    unsigned char language;

    alignas(2) static char emptyText[2];  ///< one terminator of either width

    friend KyString operator+(const KyString& a, const KyString& b);
    friend KyString& ky::AssignText(KyString& out, const char* text, std::size_t length);
    friend char* ky::RenewText(KyString& out, std::size_t length);
    friend class ky::LentText;
    friend int KyMBS2KyString(const char* in, KyString& out, int inLen);
    friend void ky::LoadText(KyString& out, unsigned char codeSet, unsigned char language, const char* text,
                             std::size_t bytes, unsigned char form);

    // Counts that are never negative and may exceed 32767, unlike those of the operations above.
    KyString(unsigned char codeSet, unsigned char language, const char* text, std::size_t bytes);
    std::size_t ContentBytes() const;  ///< up to the terminator
    KyString& SetTail(std::size_t headBytes, const char* text, unsigned char textCodeSet, std::size_t count,
                      std::size_t repeat = 1);
    KyString& Append(const char* text, unsigned char textCodeSet, std::size_t count);
    KyString& CutRange(unsigned pos, unsigned n);
    KyString CopyRange(unsigned pos, unsigned n) const;
    unsigned LeadingSpaces(unsigned length) const;
    unsigned LengthWithoutTrailingSpaces(unsigned length) const;
    void TakeOver(ky::BlockWriter& block);
    bool BeginsLikeNumber() const;
};

static_assert(sizeof(KyString) == 16, "the size word of the string rows");

KY_EXPORT KyString operator+(const KyString& a, const KyString& b);

/// New strings for conversion records: an array of `count` (null when there is no memory), and the way to free it with
/// the same count. Allocates as the string row's Create does, so the row's Delete frees it too.
KY_EXPORT KyString* KyStringCreate(unsigned count);
KY_EXPORT int KyStringDelete(void* values, unsigned count);

/// Hash of a string in memory: h = 9h + c over its characters, from 0. Those of Unicode are 16-bit units, all others
/// bytes with their sign, up to the first zero. Not the hash of stored strings, and of other values.
KY_EXPORT unsigned HashKyString(const KyString& s);
/// The same over the low seven bits of each.
KY_EXPORT unsigned HashKyString7(const KyString& s);

/// Next trimmed item of a separated list from `pos` on: 0, or -2005 with `item` unchanged at the end.
KY_EXPORT int KySplitList(const KyString& list, KyString& item, const KyString& separator, unsigned short& pos);

#endif
