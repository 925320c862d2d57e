#ifndef KYI18N_H
#define KYI18N_H

/// Internationalisation: the language context with the process-wide defaults, code sets with their
/// character records, languages.

#include <cstddef>

#include "kyexport.h"

// Code set numbers. Below 225: 8-bit characters; 225 and above: 16-bit characters.
inline constexpr unsigned char KyCodeSetNative = 0;
inline constexpr unsigned char KyCodeSetLatin1 = 1;
inline constexpr unsigned char KyCodeSetWindows1252 = 2;
inline constexpr unsigned char KyCodeSetAscii = 3;
inline constexpr unsigned char KyCodeSetFirst16Bit = 225;
inline constexpr unsigned char KyCodeSetUnicode = 253;
inline constexpr unsigned char KyCodeSetOrders = 254;  ///< a text of order values
inline constexpr unsigned char KyCodeSetDefault = 255;

// Language numbers.
inline constexpr unsigned char KyLanguageNeutral = 0;
inline constexpr unsigned char KyLanguageNull = 254;  ///< marks a null string
inline constexpr unsigned char KyLanguageDefault = 255;

/// Version of the tables: changes whenever an order value, a class, a case mapping or a code set mapping does. A
/// database stores it with its indexes and compares it when it is opened.
inline constexpr unsigned KyTableVersion = 1;

/// Checksum of everything that the tables say. The build compares it with the data from which the tables are made.
inline constexpr unsigned long long KyTableChecksum = 0xE90A2F1F8E8748D1;

// Order classes. A class ranks before the order value, so it carries what that cannot: the script. All classes are
// below 128; those that are not named belong to further scripts, in the order of the default Unicode collation.
inline constexpr unsigned char KyClassCommon = 16;      ///< spaces, symbols and digits
inline constexpr unsigned char KyClassLastDigits = 19;  ///< 17 to 19: decimal digits of further scripts
inline constexpr unsigned char KyClassNone = 20;        ///< codes without a record
inline constexpr unsigned char KyClassLatin = 32;
inline constexpr unsigned char KyClassGreek = 33;
inline constexpr unsigned char KyClassCyrillic = 34;
inline constexpr unsigned char KyClassGeorgian = 35;
inline constexpr unsigned char KyClassArmenian = 36;
inline constexpr unsigned char KyClassHebrew = 37;
inline constexpr unsigned char KyClassArabic = 38;
inline constexpr unsigned char KyClassDevanagari = 39;
inline constexpr unsigned char KyClassThai = 40;
inline constexpr unsigned char KyClassHangul = 41;
inline constexpr unsigned char KyClassKana = 42;
inline constexpr unsigned char KyClassFurtherCyrillic = 43;  ///< beyond the basic block
inline constexpr unsigned char KyClassFurtherArabic = 44;    ///< beyond the basic block
inline constexpr unsigned char KyClassHan = 120;

/// Case field of a letter order.
enum KyLetterCase : unsigned char { KyCaseUpper, KyCaseTitle, KyCaseLower, KyCaseSmall };

/// Accent field of a Latin letter order of variant 0, in the order in which letters that differ only there are sorted.
/// Part of the frozen tables. Rarer marks give a letter another variant; there, and in other classes, the field only
/// numbers the letters that share an identity, as do what a language adds to variant 0.
enum KyAccent : unsigned char {
    KyAccentNone,
    KyAccentAcute,
    KyAccentGrave,
    KyAccentBreve,
    KyAccentCircumflex,
    KyAccentCaron,
    KyAccentRing,
    KyAccentDiaeresis,
    KyAccentDoubleAcute,
    KyAccentTilde,
    KyAccentDotAbove,
    KyAccentStroke,  ///< through the letter, slanted or level
    KyAccentCedilla,
    KyAccentOgonek,
    KyAccentMacron,
    KyAccentCommaBelow,
    KyAccentHookAbove,
    KyAccentHorn,
    KyAccentDotBelow,
    KyAccentDoubleGrave,
    KyAccentInvertedBreve,
    KyAccentLineBelow,
    KyAccentCircumflexAcute,
    KyAccentCircumflexGrave,
    KyAccentLigature,  ///< first letter of a ligature; the others follow as an expansion
    KyAccentModifier,  ///< superscript
    KyAccentSubscript,
    KyAccentFullWidth,
    KyAccentOtherForm,  ///< another form of the same letter
    KyAccentCircumflexHook,
    KyAccentCircumflexTilde,
    KyAccentCircumflexDotBelow
};

// ---------------------------------------------------------------------------------------------
// Character records. All of them, and the code sets and languages below, are constant data: they exist from
// the first instruction after loading, are shared by all threads and are never freed.
// ---------------------------------------------------------------------------------------------

/// Characters or order values in a row.
struct KyWCharList {
    unsigned short count = 0;
    const unsigned short* items = nullptr;  ///< `count` of them; no terminator
};

struct KyCharProps;

/// What a character is in the languages that ask for this variant.
struct KyLanguageVariant {
    unsigned char variant;  ///< as `KyLanguage::Variant` numbers them, never 0
    const KyCharProps* record;
};

/// Characters that count as one in collation. Belongs to the record of the first of them.
struct KyContraction {
    /// Largest number of characters that are taken together, the first included.
    static constexpr unsigned Longest = 4;

    KyWCharList rest;  ///< Unicode codes of the characters after the first; at least one
    const KyCharProps* record;
};

/// A constant array and its length.
template <class Entry>
class KyTable {
public:
    constexpr KyTable() = default;
    template <std::size_t length>
    constexpr KyTable(const Entry (&entries)[length])  // NOLINT(google-explicit-constructor): an array is a table
        : first(entries), limit(entries + length) {}
    constexpr KyTable(const Entry* start, std::size_t length) : first(start), limit(start + length) {}

    constexpr const Entry* begin() const { return first; }
    constexpr const Entry* end() const { return limit; }

private:
    const Entry* first = nullptr;
    const Entry* limit = nullptr;
};

/// What few characters have.
struct KyCharRules {
    /// What follows `KyCharProps::upper` in the upper-case form: codes of the code set that has the record, without
    /// an expansion of their own.
    KyWCharList upperExpansion{};
    /// Order values that follow `KyCharProps::order`. Letters among them are of the record's class (the Latin one where
    /// the record is no letter's), others of the class of their kind.
    KyWCharList orderExpansion{};
    KyTable<KyLanguageVariant> variants{};
    KyTable<KyContraction> contractions{};  ///< the first that fits is taken
};

/// One character's properties.
///
/// The order value ranks it: 1 to 79 space, 80 to 16127 symbol, 16128 + 10 * value + form digit (ASCII: form 0),
/// 0x4000 | case << 12 | accent << 7 | letter << 2 | variant a letter (in the Latin class letter 3 is A, 28 is Z),
/// 0x8000 and above Han. The class ranks before the order.
struct KyCharProps {
    unsigned short order = 0;  ///< 0: there is no such character
    unsigned short upper = 0;  ///< Unicode code of the upper-case form; 0: the character itself
    unsigned short lower = 0;  ///< Unicode code of the lower-case form; 0: the character itself
    unsigned char orderClass = 0;
    const KyCharRules* rules = nullptr;  ///< null: none
};

/// The records of 256 codes in a row.
struct KyPropertyPage {
    KyCharProps records[256];
};

/// A language as far as collation and case know it.
class KY_EXPORT KyLanguage {
public:
    /// `variantNumber` 0: the language asks for no variants. `classRanks`: the rank of each of the 128 order classes in
    /// this language; null: the class itself.
    constexpr explicit KyLanguage(unsigned char number, unsigned char variantNumber = 0,
                                  const unsigned char* classRanks = nullptr, const char* languageTag = "",
                                  const char* languageName = "")
        : code(number), variant(variantNumber), classes(classRanks), tag(languageTag), name(languageName) {}

    constexpr unsigned char Code() const { return code; }
    constexpr const char* Tag() const { return tag; }    ///< short name, such as "de"; in lower case
    constexpr const char* Name() const { return name; }  ///< English name
    constexpr unsigned char Variant() const { return variant; }

    /// The record that stands for `record` in this language: a variant of it or itself.
    const KyCharProps& Select(const KyCharProps& record) const;
    constexpr unsigned char ClassOf(const KyCharProps& record) const {
        return classes != nullptr ? classes[record.orderClass & 127] : record.orderClass;
    }

private:
    unsigned char code;
    unsigned char variant;
    const unsigned char* classes;
    const char* tag;
    const char* name;
};

/// From Unicode into an 8-bit code set.
struct KyUnicodeMap {
    const unsigned char* pageOf;        ///< the page of each of the 256 high bytes
    const unsigned char (*pages)[256];  ///< the code for each low byte; 0: the code set has no such character
};

/// A code set: the characters behind its codes and their properties.
class KY_EXPORT KyCodeSet {
public:
    /// What stands for a character that the target of a mapping does not have: this Unicode character or, where the
    /// target does not have that either, a question mark.
    static constexpr unsigned short Substitute = 0xFFFD;

    /// How codes relate to Unicode.
    enum Mapping : unsigned char {
        byTable,   ///< 8-bit, by `unicodeCodes` (256 codes, 0: no character) and `unicodeMap`
        identity,  ///< every code of the set is the Unicode code
        orders     ///< the codes are order values
    };

    /// `pages`: one page for an 8-bit set, 256 for a 16-bit one (null pages hold nothing); null: no property
    /// table.
    constexpr KyCodeSet(unsigned char number, Mapping toAndFrom, const KyPropertyPage* const* pages,
                        const unsigned short* unicodeCodes = nullptr, const KyUnicodeMap* unicodeMap = nullptr,
                        const char* setName = "")
        : code(number),
          mapping(toAndFrom),
          limit(number < KyCodeSetFirst16Bit ? 0x100 : 0x10000),
          properties(pages),
          toUnicode(unicodeCodes),
          fromUnicode(unicodeMap),
          name(setName) {}

    constexpr unsigned char Code() const { return code; }
    constexpr const char* Name() const { return name; }  ///< its registered name, such as "ISO-8859-1"
    constexpr bool HasPropertyTable() const { return properties != nullptr; }
    /// Codes below 0x80 are ASCII.
    constexpr bool IsAsciiBelow80() const { return mapping != orders; }

    /// The record of a code; null when there is none (or no property table).
    const KyCharProps* GetProperty(unsigned short charCode) const {
        if (properties == nullptr || charCode >= limit) return nullptr;
        const KyPropertyPage* page = properties[charCode >> 8];
        if (page == nullptr) return nullptr;
        const KyCharProps& record = page->records[charCode & 0xFF];
        return record.order != 0 ? &record : nullptr;
    }

    /// The Unicode code of a character of this set; 0 when Unicode does not have it.
    unsigned short ToUnicode(unsigned short charCode) const;
    /// The code of a Unicode character in this set; 0 when the set does not have it.
    unsigned short FromUnicode(unsigned short unicode) const;
    /// What `ToUnicode` and `FromUnicode` look up in an 8-bit set; null where each code is the Unicode code.
    constexpr const unsigned short* UnicodeCodes() const { return toUnicode; }
    constexpr const KyUnicodeMap* UnicodeMap() const { return fromUnicode; }
    /// The code in this set of a character of `source`, or the substitute. 0 stays 0. Between order values and
    /// characters units are taken over as they are, and those that an 8-bit set has no room for are replaced.
    unsigned short MapFrom(const KyCodeSet& source, unsigned short charCode) const;

    /// The record with which a character's case is mapped: its own or, when the set has no property table, that
    /// of its Unicode character, in the variant of the language. Null when there is none.
    static const KyCharProps* GetUnicodeProps(const KyCodeSet* codeSet, unsigned short charCode,
                                              unsigned char language);

private:
    unsigned char code;
    Mapping mapping;
    unsigned limit;
    const KyPropertyPage* const* properties;
    const unsigned short* toUnicode;
    const KyUnicodeMap* fromUnicode;
    const char* name;
};

// ---------------------------------------------------------------------------------------------
// Defaults and the way to code sets and languages
// ---------------------------------------------------------------------------------------------

/// Process-wide defaults and the way to code sets and languages. Usable from the first instruction after
/// loading. The setters are for start-up; reading is safe in any thread.
class KY_EXPORT KyLanguageContext {
public:
    static unsigned char GetDefaultCodeSet();
    static void SetDefaultCodeSet(unsigned char codeSet);
    static unsigned char GetDefault8CodeSet();
    static void SetDefault8CodeSet(unsigned char codeSet);
    static unsigned char GetDefault16CodeSet();
    static void SetDefault16CodeSet(unsigned char codeSet);
    static unsigned char GetDefaultLanguage();
    static void SetDefaultLanguage(unsigned char language);
    /// Starts as 0x0100: exact, no wildcards.
    static unsigned short GetDefaultCmpOp();
    static void SetDefaultCmpOp(unsigned short op);

    /// The code set that number 0 stands for.
    static unsigned char GetNativeCodeSet();

    /// 0 is the native code set, 255 the default one. Null for a number without a code set.
    static const KyCodeSet* QueryCodeSet(unsigned char codeSet);
    /// 255 is the default language. Null for a number without a language, which 254 is too.
    static const KyLanguage* QueryLanguage(unsigned char language);

    // `KyTableVersion` and `KyTableChecksum` of the library that is loaded, which may be another one than a program
    // was compiled for: what a database compares when it is opened.
    static unsigned QueryTableVersion();
    static unsigned long long QueryTableChecksum();
};

extern "C" {
/// Attaches (non-zero) and detaches (0) the library. Nothing has to be prepared: both may be called at any time.
KY_EXPORT void ___KyI18NContext(int attach);
}

#endif
