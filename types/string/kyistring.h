#ifndef KYISTRING_H
#define KYISTRING_H

/// Strings in dictionary order. `KyIString`: accents are ignored and a lower-case letter orders directly before its
/// upper-case one. `KyCaseIString`: the same with lower and upper case alike. And what their keys are made with.

#include <cstddef>
#include <type_traits>
#include <utility>

#include "kyexport.h"
#include "kyistring_map.h"
#include "kystring.h"

// The library's own, not exported.
namespace ky {
struct DictionaryAccess;
}

/// An 8-bit text without a label of its own: its characters are those of the default 8-bit code set, its language is
/// the default one. The two classes below are made of it; they have the operations of `KyString`, which are described
/// there, and differ from it only where order matters. There is no null: a text is empty or not.
///
/// Memory form: a pointer to the zero-terminated text, null for the empty one, and the mode, by which the text is
/// compared (see `kyistrcmp`). Every construction and every assignment sets the mode to 0; edits keep it.
template <class Self>
class KY_EXPORT KyDictionaryString {
public:
    static constexpr unsigned short NotFound = KyString::NotFound;
    static constexpr unsigned MaxBytes = KyString::MaxBytes;

    // --- construction and assignment ---
    KyDictionaryString() = default;
    KyDictionaryString(unsigned char codeSet, unsigned char language);  ///< empty; labels are not kept
    KyDictionaryString(const char* s, unsigned short n);
    KyDictionaryString(const unsigned short* s, unsigned short n);  ///< mapped into the default 8-bit code set
    // NOLINTBEGIN(google-explicit-constructor): texts, characters and numbers are meant to be given for strings
    KyDictionaryString(const char* s);
    KyDictionaryString(const unsigned short* s);
    KyDictionaryString(const KyString& s);  ///< mapped into the default 8-bit code set; null: empty
    KyDictionaryString(KyString&& s);       ///< takes the buffer where there is nothing to map
    KyDictionaryString(char c);
    KyDictionaryString(unsigned char c);
    KyDictionaryString(unsigned short c);
    KyDictionaryString(short number);
    KyDictionaryString(int number);
    KyDictionaryString(unsigned int number);  ///< KEPT: as a signed number
    KyDictionaryString(long long number);
    KyDictionaryString(unsigned long long number);
    KyDictionaryString(double number);
    // NOLINTEND(google-explicit-constructor)
    KyDictionaryString(const KyDictionaryString& other);
    KyDictionaryString(KyDictionaryString&& other) noexcept : text(std::exchange(other.text, nullptr)) {}
    ~KyDictionaryString() { delete[] text; }

    KyDictionaryString& operator=(const KyDictionaryString& other);
    KyDictionaryString& operator=(KyDictionaryString&& other) noexcept;
    // NOLINTBEGIN(misc-unconventional-assign-operator): it is the derived class that is assigned
    Self& operator=(const char* s);  ///< may point into the string itself
    Self& operator=(const KyString& s);
    template <class Value, class = std::enable_if_t<std::is_arithmetic_v<Value>>>
    Self& operator=(Value value) {
        return static_cast<Self&>(*this = KyDictionaryString(value));
    }
    // NOLINTEND(misc-unconventional-assign-operator)

    // --- content and state ---
    char* StrGet() const { return text != nullptr ? text : emptyText; }
    static Self& EmptyString();
    unsigned short Len() const;
    unsigned short NullLen() const { return 1; }
    int IsEmpty() const { return text == nullptr || *text == 0; }
    int operator!() const { return IsEmpty(); }
    int IsNullValue() const { return 0; }
    int SetNullValue();                 ///< makes it empty; returns 0
    unsigned char CodeSetGet() const;   ///< the default 8-bit code set
    unsigned char LanguageGet() const;  ///< the default language
    unsigned short BufferSizeGet() const;
    unsigned char ModeGet() const { return mode; }
    void ModeSet(unsigned char newMode) { mode = newMode; }

    // Labels are not kept: -2002 for another code set than the default 8-bit one, else 0.
    int SetCodeSetCode(unsigned char codeSet);
    int MapToCodeSet(unsigned char codeSet);
    void SetCodeSet(unsigned char) {}
    void LanguageSet(unsigned char) {}
    /// Up to n characters of `src`, -1: all. -2002 for another code set than the default 8-bit one or a copy onto
    /// itself, else the number of characters.
    int CopyMapped(const Self& src, unsigned char codeSet, short n);

    // --- building blocks ---
    /// A zero-filled block of `size` bytes (read as unsigned); not installed.
    void* Alloc(short size);
    void MakeString(const char* src, unsigned char srcCodeSet, short n, unsigned char flag);
    void BuildString(const char* src, unsigned char srcCodeSet, unsigned short pos, unsigned short srcStart,
                     unsigned short srcCount, unsigned short repeat, unsigned short buildMode, unsigned char flag);
    void Destroy();
    void Destruct(Self& from);  ///< moves `from`'s content here
    void d_deactivate();
    KyChar operator[](int i);

    // --- editing; all return the string itself ---
    Self& Fill(unsigned short n, unsigned short c);
    Self& Fill(unsigned short n, char c);
    Self& Expand(unsigned short n, unsigned short c);
    Self& Expand(unsigned short n, char c);
    Self& Cut(unsigned short pos, short n);
    Self& Insert(const Self& s, unsigned short pos);
    Self& Replace(const Self& s, unsigned short pos);
    Self& operator+=(const Self& s);
    Self& operator<<(const Self& s);
    Self& operator<<(const KyString& s);
    Self& operator<<(char c);
    Self& operator<<(const char* s);
    Self& operator<<(const unsigned short* s);
    Self& operator<<(short number);
    Self& operator<<(unsigned short number);
    Self& operator<<(int number);
    Self& operator<<(unsigned int number);
    Self& operator<<(long long number);
    Self& operator<<(unsigned long long number);
    Self& operator<<(float number);
    Self& operator<<(double number);
    Self& LeftTrim();
    Self& RightTrim();
    Self& Trim();
    Self& ToLower();
    Self& ToUpper();
    Self& Transform(KyCharOperation& op);
    Self& ReplaceAll(const Self& from, const Self& to, unsigned short start);
    Self& ReplaceAll(unsigned short from, unsigned short to, unsigned short start);
    Self& ReplaceAll(char from, char to, unsigned short start);
    Self& SpaceToZero();  ///< every blank becomes the digit zero
    Self& ZeroToSpace();  ///< every digit zero becomes a blank

    // --- extraction ---
    Self Copy(unsigned short pos, short n) const;
    Self Left(unsigned short n) const;
    Self Right(unsigned short n) const;
    friend Self operator+(const Self& a, const Self& b) { return Sum(a, b); }

    // --- searching ---
    // By the collation order, as in `KyString`.
    unsigned short Find(const Self& pattern, unsigned short start, unsigned short op) const;
    unsigned short Find(unsigned short c, unsigned short start, unsigned short op) const;
    unsigned short Find(char c, unsigned short start, unsigned short op) const;
    /// By the dictionary order: first position, with as many characters behind it as `pattern` has, from which on the
    /// keys are the pattern's. An operator that allows wildcards makes `pattern` one, followed by any run, for
    /// `istrwild` or `caseistrwild`.
    unsigned short SubStringPos(const Self& pattern, unsigned short op) const;

    // --- comparison, by the dictionary order and by each one's mode ---
    /// maxLen keys, -1: all. `op` is not looked at: the order has no variants, and a comparison knows no wildcards.
    int Compare(const Self& other, short maxLen, unsigned short op) const;
    friend bool operator==(const Self& a, const Self& b) { return a.Order(b) == 0; }
    friend int operator!=(const Self& a, const Self& b) { return a.Order(b); }  ///< the comparison's result itself
    friend bool operator<(const Self& a, const Self& b) { return a.Order(b) < 0; }
    friend bool operator<=(const Self& a, const Self& b) { return a.Order(b) <= 0; }
    friend bool operator>(const Self& a, const Self& b) { return a.Order(b) > 0; }
    friend bool operator>=(const Self& a, const Self& b) { return a.Order(b) >= 0; }
    int EqualsIgnoreLanguage(const Self& other) const { return static_cast<int>(Order(other) == 0); }

    // --- numbers ---
    int Atol(int& out) const;
    int Atoll(long long& out) const;
    int Strtol(int& out) const;
    int Strtoll(long long& out) const;
    operator int() const;        // NOLINT(google-explicit-constructor)
    operator short() const;      // NOLINT(google-explicit-constructor)
    operator long long() const;  // NOLINT(google-explicit-constructor)
    operator double() const;     // NOLINT(google-explicit-constructor)

    /// Where the members stand.
    static constexpr std::size_t TextOffset() { return offsetof(KyDictionaryString, text); }
    static constexpr std::size_t ModeOffset() { return offsetof(KyDictionaryString, mode); }

private:
    char* text = nullptr;
    unsigned char mode = 0;

    static char emptyText[1];

    friend struct ky::DictionaryAccess;

    const char* Operand() const { return IsEmpty() ? nullptr : text; }
    int Order(const Self& other) const;
    static Self Sum(const Self& a, const Self& b);
    template <class Change>
    KY_INTERNAL Self& Edit(const Change& change);
    Self& Exchange(char from, char to);
};

class KY_EXPORT KyIString : public KyDictionaryString<KyIString> {
public:
    using KyDictionaryString::KyDictionaryString;
    using KyDictionaryString::operator=;
};

class KY_EXPORT KyCaseIString : public KyDictionaryString<KyCaseIString> {
public:
    using KyDictionaryString::KyDictionaryString;
    using KyDictionaryString::operator=;
};

extern template class KyDictionaryString<KyIString>;
extern template class KyDictionaryString<KyCaseIString>;

static_assert(sizeof(KyIString) == 16 && sizeof(KyCaseIString) == 16, "the size word of the rows");
static_assert(KyIString::TextOffset() == 0 && KyIString::ModeOffset() == 8, "memory form");
static_assert(KyCaseIString::TextOffset() == 0 && KyCaseIString::ModeOffset() == 8, "memory form");

/// Negative, 0 or positive: order of two zero-terminated texts, the difference of their first keys that differ. A null
/// text is below every other, and equal to a null one. Where one is empty the result is the difference of the first
/// bytes. Any thread.
///   maxLen        keys compared at most, 0: 65535. A character that counts as two letters has two keys.
///   modeA, modeB  of each text: 0x80 it is a key already, its bytes are compared as they stand
///                               0x40 it is in disk form, else it is converted first
///                               0x20 (`kycaseistrcmp`) accents rank behind the letter without them; a character of two
///                                    letters is one key, just before that of the first
KY_EXPORT int kyistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB);
KY_EXPORT int kycaseistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA,
                            unsigned char modeB);

/// The key of a text in disk form, byte by byte; accents are dropped. Returns the bytes written.
///   max  0: all, and the terminator, which is counted; else at most that many bytes, and where there is room a
///        terminator, which is not counted
/// 0 for null arguments.
KY_EXPORT unsigned _KyIMapString(unsigned char* dst, const unsigned char* src, unsigned max);
KY_EXPORT unsigned _KyCaseIMapString(unsigned char* dst, const unsigned char* src, unsigned max);

/// A byte in disk form that a key stands for. `next` is the key byte behind it; `used` becomes 1 where both together
/// stand for one character, else 0. The lowest byte of several; a key that none has stands for itself.
/// KEPT: keys B0 to CF are shared by letters and signs; they give back the letters.
KY_EXPORT unsigned char _KyCaseIDeMapByte(unsigned char key, unsigned char next, int& used);
/// A text in disk form for a key; `max` and the result as in `_KyCaseIMapString`.
KY_EXPORT unsigned _KyCaseIDeMapString(unsigned char* dst, const unsigned char* src, unsigned max);

/// Bytes of the key of `count` values, a terminator for each included. `data`: with bit 0x08 of `format` objects, else
/// their persistent form; where that holds a key itself (marker 0x80 or above), the stored length.
KY_EXPORT unsigned _KyIMapLength(const void* data, unsigned char format, unsigned count);
KY_EXPORT unsigned _KyCaseIMapLength(const void* data, unsigned char format, unsigned count);

/// Bytes of `count` stored values without their header, as the header tells them; with bit 0x80 of `flag` of their key.
KY_EXPORT unsigned _KyISizeNoMem(const void* persistent, unsigned char format, unsigned char flag, unsigned count);
KY_EXPORT unsigned _KyCaseISizeNoMem(const void* persistent, unsigned char format, unsigned char flag, unsigned count);
/// Bytes of `count` objects when they are stored, without the header; with bit 0x80 of `flag` of their key.
KY_EXPORT unsigned _KyISizeMem(const void* objects, unsigned char format, unsigned char flag, unsigned count);
KY_EXPORT unsigned _KyCaseISizeMem(const void* objects, unsigned char format, unsigned char flag, unsigned count);

#endif
