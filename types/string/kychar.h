#ifndef KYCHAR_H
#define KYCHAR_H

/// One character that knows its code set and language, and a cursor over a text that yields characters or
/// collation order values.

#include "kyexport.h"
#include "kyi18n.h"

class KyString;
class KyStringIterator;

namespace ky {
class KeyReader;
}

/// A character: a value, or a reference to a position inside a text, in which case assignment writes there.
/// Code set or language 255: the default. A reference is valid as long as the text's buffer is.
class KY_EXPORT KyChar {
public:
    KyChar(const char* p, unsigned char codeSet, unsigned char language, unsigned char format);
    KyChar(KyString& s, int byteOffset);
    // NOLINTBEGIN(google-explicit-constructor): characters of text are meant to be given where a KyChar is wanted
    KyChar(char c, unsigned char codeSet = 255, unsigned char language = 255);
    KyChar(unsigned short c, unsigned char codeSet = 255, unsigned char language = 255);
    // NOLINTEND(google-explicit-constructor)
    KyChar(const KyChar& other);

    KyChar& operator=(const KyChar& other);
    KyChar& operator=(char c);
    KyChar& operator=(unsigned short c);

    unsigned short CodeGet() const;  ///< 8-bit codes are 0 to 255
    unsigned char CodeSetGet() const { return codeSet; }
    unsigned char LanguageGet() const { return language; }

    /// Collation order value: 0 end, 1 to 79 space, 80 to 16127 symbol, 16128 to 16383 digit, 16384 to 32767
    /// letter, 32768 and above Han.
    unsigned short GetOrder() const;
    bool IsSpace() const;
    bool IsSymbol() const;
    bool IsDigit() const;
    bool IsAlpha() const;
    bool IsHan() const;

    KyChar MapTo(unsigned char toCodeSet) const;
    KyChar ToLower(KyStringIterator* it) const;
    /// An upper case of several characters sets the iterator's overflow to the further ones.
    KyChar ToUpper(KyStringIterator* it) const;

    int Compare(const KyChar& other, unsigned short op) const;  ///< op 0xFFFF: the default operator
    bool operator==(const KyChar& other) const;
    bool operator!=(const KyChar& other) const;
    bool operator<(const KyChar& other) const;
    bool operator<=(const KyChar& other) const;
    bool operator>(const KyChar& other) const;
    bool operator>=(const KyChar& other) const;

private:
    const char* ref;  ///< null: the character is `value`
    unsigned short value;
    unsigned char codeSet;
    unsigned char language;
    unsigned char format;  ///< byte order of a 16-bit character behind `ref`: 1 native, 2 swapped
};

/// What `KyString::Transform` applies to each character.
class KY_EXPORT KyCharOperation {
public:
    virtual KyChar operator()(const KyChar& c, KyStringIterator* it) = 0;

protected:
    ~KyCharOperation() = default;
};

class KY_EXPORT KyCharToLower final : public KyCharOperation {
public:
    KyChar operator()(const KyChar& c, KyStringIterator* it) override;
};

class KY_EXPORT KyCharToUpper final : public KyCharOperation {
public:
    KyChar operator()(const KyChar& c, KyStringIterator* it) override;
};

/// A cursor over a zero-terminated text at any address. Reads the text in place; owns a buffer only when built over
/// one character. A copy reads on from the same place on its own; it owns nothing and is of use as long as the text is
/// there. A null text is an empty one.
class KY_EXPORT KyStringIterator {
public:
    KyStringIterator(const char* text, unsigned char codeSet, unsigned char language, unsigned char format);
    KyStringIterator(unsigned short* text, unsigned char codeSet, unsigned char language, unsigned char format);
    explicit KyStringIterator(KyString& s);
    explicit KyStringIterator(const KyChar& c);
    KyStringIterator(const KyStringIterator& other) = default;
    KyStringIterator& operator=(const KyStringIterator& other) = default;
    ~KyStringIterator() = default;

    /// The current character: from the overflow list while it lasts (each call takes one), else at the position.
    KyChar operator*();
    /// Stays while the overflow list lasts.
    KyStringIterator& operator++();
    /// Drops the overflow list. The caller knows where the text starts.
    KyStringIterator& operator--();
    void Step(int forward);  ///< non-zero: `++`, 0: `--`
    bool IsEOS() const;

    /// Characters of `list`, which the caller keeps, come next; the character at the position, which they continue,
    /// counts as read then. `listCodeSet` 255: the iterator's own.
    void SetOverflow(const KyWCharList* list, unsigned char listCodeSet);
    /// Assigns what `op` makes of each character up to the end to the characters from `dst` on. The caller sees to
    /// it that there is room.
    void Transform(KyStringIterator& dst, KyCharOperation& op);

    /// Order value of the next character (contractions taken together, expansions one by one), 0 at the end, where
    /// the position stays. `withClass` non-zero: the class is left in `OrderClass`, 20 meaning none; the end and the
    /// orders that are markers leave it as it was.
    unsigned short GetNextOrder(unsigned short withClass);
    unsigned char OrderClass() const { return orderClass; }
    /// Some order so far stood for several characters.
    bool TookContractions() const { return tookContractions; }

    const char* Position() const { return position; }
    unsigned char CodeSetGet() const { return codeSetCode; }

    void Destroy();  ///< frees an owned buffer

private:
    friend class ky::KeyReader;

    /// The start of a buffer that is freed with its iterator. Copying and assigning an iterator hands it to no one:
    /// going back to a remembered place keeps the text.
    class OwnedText {
    public:
        OwnedText() = default;
        OwnedText(const OwnedText&) noexcept {}
        // NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp): does nothing
        OwnedText& operator=(const OwnedText&) noexcept { return *this; }
        ~OwnedText() { Free(); }

        char* Allocate(unsigned bytes);  ///< all zero
        /// False when there was nothing to free.
        bool Free();

    private:
        char* start = nullptr;
    };

    bool InOverflow() const { return overflow != nullptr && overflowIndex < overflow->count; }
    void Advance() {
        if (InOverflow()) return;
        overflow = nullptr;
        position += codeSetCode < KyCodeSetFirst16Bit ? 1 : 2;
    }
    /// Goes on at another place, where no list is being read; the last order before it had this class.
    void Resume(const char* place, unsigned char lastClass) {
        position = place;
        orderClass = lastClass;
        overflow = nullptr;
    }
    unsigned char Ranked(unsigned char neutralClass) const;
    unsigned char ClassInList(unsigned short order) const;
    unsigned short NextStoredOrder(unsigned short withClass);
    unsigned short NextUnrecordedOrder(unsigned short code, unsigned short withClass);
    const KyCharProps* TakeContractions(const KyCharProps* record);

    const KyCodeSet* codeSet;
    unsigned char codeSetCode;
    unsigned char language;
    unsigned char orderClass;
    unsigned char overflowCodeSet;
    short overflowIndex;
    unsigned char format;
    const char* position;
    const KyWCharList* overflow;

    const KyCodeSet* propertySet;  ///< has the records: the code set itself or Unicode
    const KyLanguage* rules;       ///< null: as the neutral language
    OwnedText owned;
    unsigned char expandedClass;  ///< of the letters in a list of orders
    bool tookContractions;
};

#endif
