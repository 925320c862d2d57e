#ifndef KYSTRING_H
#define KYSTRING_H

/// `KyString`, the one string class of the system, and with it all that works on strings: characters and
/// iterators (`kychar.h`), collation (`kystrcmp.h`), 16-bit text (`kywstring.h`).

#include <cstddef>
#include <type_traits>

#include "kychar.h"
#include "kyexport.h"
#include "kystrcmp.h"
#include "kywstring.h"

class KyString;

namespace ky {
class BlockWriter;

/// `out` becomes a text of the default 8-bit code set and the default language, as by the assignment of a text, whose
/// length is known: text[length] is its first zero.
KyString& AssignText(KyString& out, const char* text, std::size_t length);
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
    KyString(unsigned char codeSet, unsigned char language);
    KyString(const char* text);                              // NOLINT(google-explicit-constructor): all are implicit
    KyString(const char* text, unsigned short n);            ///< first n bytes; 0xFFFF: to the terminator
    KyString(const unsigned short* text);                    // NOLINT(google-explicit-constructor)
    KyString(const unsigned short* text, unsigned short n);  ///< first n units; 0xFFFF: to the terminator
    KyString(char c);               // NOLINT(google-explicit-constructor): one character, 0: empty
    KyString(unsigned char c);      // NOLINT(google-explicit-constructor)
    KyString(unsigned short c);     // NOLINT(google-explicit-constructor): one 16-bit character
    KyString(short number);         // NOLINT(google-explicit-constructor): decimal text
    KyString(int number);           // NOLINT(google-explicit-constructor)
    KyString(unsigned int number);  // NOLINT(google-explicit-constructor): KEPT: as a signed number, 4294967295 is "-1"
    KyString(long long number);     // NOLINT(google-explicit-constructor)
    KyString(unsigned long long number);  // NOLINT(google-explicit-constructor)
    KyString(double number);              // NOLINT(google-explicit-constructor): as "%.17g" prints doubles
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
    static KyString& EmptyString();
    unsigned short Len() const;      ///< characters up to the terminator
    unsigned short NullLen() const;  ///< bytes of a terminator: 1 or 2
    int IsEmpty() const;
    int operator!() const;
    int IsNullValue() const;
    int SetNullValue();  ///< returns 0

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
    void d_deactivate();

    /// The character at `i`, read with the string's code set and language; at `Len()` the terminator, beyond
    /// it (and for negative numbers) the empty character.
    KyChar operator[](int i);

    // --- editing; all return the string itself ---
    KyString& Fill(unsigned short n, unsigned short c);
    KyString& Fill(unsigned short n, char c);
    KyString& Expand(unsigned short n, unsigned short c);
    KyString& Expand(unsigned short n, char c);
    KyString& Cut(unsigned short pos, short n);
    KyString& Insert(const KyString& s, unsigned short pos);
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
    KyString& LeftTrim();
    KyString& RightTrim();
    KyString& Trim();
    KyString& ToLower();
    KyString& ToUpper();
    KyString& Transform(KyCharOperation& op);
    KyString& ReplaceAll(const KyString& from, const KyString& to, unsigned short start);
    KyString& ReplaceAll(unsigned short from, unsigned short to, unsigned short start);
    KyString& ReplaceAll(char from, char to, unsigned short start);

    // --- extraction ---
    KyString Copy(unsigned short pos, short n) const;  ///< -1 or too long: up to the end
    KyString Left(unsigned short n) const;
    KyString Right(unsigned short n) const;

    // --- searching: first position at or after `start`, or 0xFFFF ---
    unsigned short Find(const KyString& pattern, unsigned short start, unsigned short op) const;
    unsigned short Find(unsigned short c, unsigned short start, unsigned short op) const;
    unsigned short Find(char c, unsigned short start, unsigned short op) const;
    unsigned short SubStringPos(const KyString& pattern, unsigned short op) const;

    // --- comparison, by the collation order ---
    /// op 0xFFFF: the default compare operator. maxLen -1: whole texts.
    int Compare(const KyString& other, short maxLen, unsigned short op) const;
    bool operator==(const KyString& other) const;
    int operator!=(const KyString& other) const;  ///< the comparison's result itself
    bool operator<(const KyString& other) const;
    bool operator<=(const KyString& other) const;
    bool operator>(const KyString& other) const;
    bool operator>=(const KyString& other) const;
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

/// Next trimmed item of a separated list from `pos` on: 0, or -2005 with `item` unchanged at the end.
KY_EXPORT int KySplitList(const KyString& list, KyString& item, const KyString& separator, unsigned short& pos);

#endif
