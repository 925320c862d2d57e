#include "kyorder_names.h"

#include <cstdio>
#include <string>

#include "code_sets.h"
#include "kystrcmp.h"
#include "kystring.h"
#include "kytypes.h"
#include "order_key.h"
#include "order_symbol_names.h"

namespace {

// The letter numbers of the Latin alphabet.
constexpr unsigned short kLetterA = 3;
constexpr unsigned short kLetterZ = 28;

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kLastPrintable = 0x7E;

/// How the bytes from 0x80 on are written in ASCII.
constexpr const char* kSubstitutions[128] = {
    // 80 to BF
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",  //
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",  //
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",  //
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",
    // C0 to FF
    "\\`A", "\\'A", "\\^A", "\\~A", "\\\"A", "\\AA", "\\AE", "\\,C",   //
    "\\`E", "\\'E", "\\^E", "\\\"E", "\\`I", "\\'I", "\\^I", "\\\"I",  //
    "\\-D", "\\~N", "\\`O", "\\'O", "\\^O", "\\~O", "\\\"O", "",       //
    "\\-O", "\\`U", "\\'U", "\\^U", "\\\"U", "\\'Y", "\\TH", "\\ss",   //
    "\\`a", "\\'a", "\\^a", "\\~a", "\\\"a", "\\aa", "\\ae", "\\,c",   //
    "\\`e", "\\'e", "\\^e", "\\\"e", "\\`i", "\\'i", "\\^i", "\\\"i",  //
    "\\-d", "\\~n", "\\`o", "\\'o", "\\^o", "\\~o", "\\\"o", "",       //
    "\\-o", "\\`u", "\\'u", "\\^u", "\\\"u", "\\'y", "\\th", "\\\"y"};

constexpr const char* kAccentNames[32] = {"",
                                          "accent acute",
                                          "accent grave",
                                          "accent breve",
                                          "accent circumflex",
                                          "accent caron",
                                          "ring above",
                                          "diaeresis",
                                          "accent o_double acute",
                                          "tilde",
                                          "dot above",
                                          "stroke",
                                          "cedilla",
                                          "ogonek",
                                          "accent macron",
                                          "comma below",
                                          "hook above",
                                          "horn",
                                          "dot below",
                                          "accent double grave",
                                          "inverted breve",
                                          "line below",
                                          "accent circumflex and accent acute",
                                          "accent circumflex and accent grave",
                                          "letters joined to it",
                                          "superscript form",
                                          "subscript form",
                                          "full width",
                                          "another form",
                                          "accent circumflex and hook above",
                                          "accent circumflex and tilde",
                                          "accent circumflex and dot below"};
static_assert(KyAccentAcute == 1 && KyAccentCaron == 5 && KyAccentDoubleAcute == 8 && KyAccentStroke == 11 &&
              KyAccentMacron == 14 && KyAccentHorn == 17 && KyAccentLineBelow == 21 && KyAccentLigature == 24 &&
              KyAccentOtherForm == 28 && KyAccentCircumflexDotBelow == 31);

/// The characters of a code set and their records.
class Characters {
public:
    explicit Characters(unsigned char codeSet)
        : set(ky::CodeSetOf(codeSet == KyCodeSetOrders ? KyCodeSetUnicode : codeSet)) {}

    const KyCharProps* RecordOf(unsigned short code) const {
        if (set.HasPropertyTable()) return set.GetProperty(code);
        return ky::CodeSetOf(KyCodeSetUnicode).GetProperty(set.ToUnicode(code));
    }
    bool HasOrder(unsigned short code, unsigned short order) const {
        const KyCharProps* record = RecordOf(code);
        return record != nullptr && record->order == order;
    }
    /// The character of several orders the first of which this is comes into question only when there is no other.
    unsigned char UpperByte(unsigned short order) const {
        unsigned char expanding = 0;
        for (unsigned short code = 0x80; code <= 0xFF; ++code) {
            if (!HasOrder(code, order)) continue;
            const KyCharRules* rules = RecordOf(code)->rules;
            if (rules == nullptr || rules->orderExpansion.count == 0) return static_cast<unsigned char>(code);
            if (expanding == 0) expanding = static_cast<unsigned char>(code);
        }
        return expanding;
    }
    unsigned char PrintableAscii(unsigned short order) const {
        for (unsigned char code = kFirstPrintable; code <= kLastPrintable; ++code) {
            if (HasOrder(code, order)) return code;
        }
        return 0;
    }

private:
    const KyCodeSet& set;
};

bool IsSpaceOrder(unsigned short order) { return order != 0 && order < ky::kFirstSymbol; }

/// The digit, or 10 and above: an order of which there is no digit.
unsigned short DigitOf(unsigned short order) {
    unsigned short digit = 0;
    unsigned short variant = 0;
    KyExtractDigitFromOrder(order, digit, variant);
    return digit;
}

/// The letter of an order without its accents, 0 where it is none of the alphabet.
char LetterOf(unsigned short order) {
    unsigned short letterCase, accent, letter, variant;
    KyExtractLetterComponentsFromOrdering(order, letterCase, accent, letter, variant);
    if (letter < kLetterA || letter > kLetterZ) return 0;
    return static_cast<char>((letterCase == KyCaseUpper ? 'A' : 'a') + (letter - kLetterA));
}

/// What prints for an order, 0 for nothing.
unsigned char PrintableOf(unsigned short order, const Characters& characters) {
    if (IsSpaceOrder(order)) return ' ';
    if (ky::IsLetterOrder(order)) return static_cast<unsigned char>(LetterOf(order));
    if (order >= ky::kFirstHan || order == 0) return 0;
    if (order < ky::kFirstDigit) return characters.PrintableAscii(order);
    const unsigned short digit = DigitOf(order);
    return static_cast<unsigned char>(digit < 10 ? '0' + digit : 0);
}

// --- names ---

std::string Formatted(const char* format, unsigned value) {
    char text[64];
    static_cast<void>(std::snprintf(text, sizeof text, format, value));
    return text;
}

std::string SymbolNameOf(unsigned short order, unsigned char codeSet) {
    const Characters unicode(KyCodeSetUnicode);
    for (const ky::SymbolName& symbol : ky::kSymbolNames) {
        if (unicode.HasOrder(symbol.code, order)) return std::string("symbol ") + symbol.name;
    }
    for (unsigned short code = 1; code < 0xA0; ++code) {
        const bool isControl = code < 0x20 || code >= 0x7F;
        if (isControl && unicode.HasOrder(code, order)) return Formatted("symbol control 0x%02x", code);
    }
    const unsigned char byte = Characters(codeSet).UpperByte(order);
    if (byte != 0) return Formatted("symbol 0x%02x", byte);
    unsigned short symbol = 0;
    KyExtractSymbolFromOrder(order, symbol);
    return Formatted("symbol %u", symbol);
}

std::string LetterNameOf(unsigned short order) {
    unsigned short letterCase, accent, letter, variant;
    KyExtractLetterComponentsFromOrdering(order, letterCase, accent, letter, variant);
    const char character = LetterOf(static_cast<unsigned short>(order & ~0x3000));
    std::string name = "letter ";
    name += character != 0 ? std::string(1, character) : Formatted("number %u", letter);
    name += letterCase == KyCaseUpper ? ", upper" : ", lower";
    if (letterCase == KyCaseTitle) name += " in title case";
    if (letterCase == KyCaseSmall) name += " in small form";
    if (variant == 0) return accent == KyAccentNone ? name : name + ", with " + kAccentNames[accent];
    // In the variants an accent is but a number.
    name += Formatted(", variant %u", variant);
    return accent == 0 ? name : name + Formatted(", form %u", accent);
}

std::string NameOf(unsigned short order, unsigned char codeSet) {
    if (order == 0 || order > ky::kLastCharacterCode) return {};
    if (IsSpaceOrder(order)) return "space";
    if (ky::IsLetterOrder(order)) return LetterNameOf(order);
    if (order >= ky::kFirstHan) return Formatted("HAN character 0x%04x\n", order);
    if (order < ky::kFirstDigit) return SymbolNameOf(order, codeSet);
    const unsigned short digit = DigitOf(order);
    if (digit >= 10) return {};
    const unsigned form = (order - ky::kFirstDigit) % 10u;
    return Formatted("digit %u", digit) + (form != 0 ? Formatted(", form %u", form) : "");
}

}  // namespace

int KyConvertOrderToChar(unsigned short order, unsigned char codeSet, unsigned char& ch, int exact,
                         const char** substitution) {
    const Characters characters(codeSet);
    if (substitution != nullptr) *substitution = "";
    ch = PrintableOf(order, characters);
    if (exact != 0 && order != 0 && characters.PrintableAscii(order) == 0) {
        if (const unsigned char found = characters.UpperByte(order); found != 0) {
            ch = found;
            if (substitution != nullptr) *substitution = kSubstitutions[found - 0x80];
        }
    }
    return ch != 0 ? 0 : KyErrRefused;
}

int KyConvertOrderToString(unsigned short order, unsigned char codeSet, KyString& text) {
    const std::string name = NameOf(order, codeSet);
    text = name.empty() ? "undefined ordering indicator" : name.c_str();
    return name.empty() ? KyErrRefused : 0;
}
