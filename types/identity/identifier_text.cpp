#include "identifier_text.h"

#include <array>
#include <cstring>
#include <memory>

#include "ascii.h"
#include "eight_bit_text.h"
#include "kystring.h"
#include "number_format_scan.h"
#include "number_text.h"

namespace ky {
namespace {

/// A null pointer is no field: it prints as 0, and what is read for it is dropped.
using Field = std::uint32_t IdentifierFields::*;

constexpr std::array<Field, 26> MakeFields() {
    std::array<Field, 26> fields{};
    fields['B' - 'A'] = &IdentifierFields::B;
    fields['L' - 'A'] = &IdentifierFields::L;
    fields['H' - 'A'] = &IdentifierFields::H;
    fields['D' - 'A'] = &IdentifierFields::D;
    fields['C' - 'A'] = &IdentifierFields::C;
    fields['V' - 'A'] = &IdentifierFields::V;
    return fields;
}

/// By their letters, from A to Z.
constexpr std::array<Field, 26> kFields = MakeFields();

/// The fields that "%h?" and "%l?" stand for, one after the other.
class TwoLetterForms {
public:
    Field Next(char letter) {
        if (letter == 'h') {
            if (hasHigh) return nullptr;
            hasHigh = true;
            return &IdentifierFields::H;
        }
        if (!hasHigh || longs == 2) return nullptr;
        return longs++ == 0 ? &IdentifierFields::L : &IdentifierFields::B;
    }

private:
    bool hasHigh = false;
    int longs = 0;  ///< of those behind the first "%h?"
};

/// Blanks and opening parentheses, which scanning does not look at.
const char* BehindBlanks(const char* at) {
    while (IsSpace(*at) || *at == '(') ++at;
    return at;
}

/// Takes a format apart: fields and plain characters, one after the other.
class FormatWalk {
public:
    FormatWalk(const char* format, const IdentifierGrammar& formatGrammar) : at(format), grammar(formatGrammar) {}

    void SkipBlanks() { at = BehindBlanks(at); }

    /// Steps to the next item; false at the end, which is also in front of a last "%".
    bool Next() {
        character = *at;
        if (character == '\0') return false;
        ++at;
        isField = false;
        if (character != '%') return true;
        character = *at;
        if (character == '\0') return false;
        ++at;
        if (grammar.twoLetterForms && (character == 'h' || character == 'l')) {
            if (*at != '\0') ++at;
            isField = true;
            field = forms.Next(character);
        } else if (character >= 'A' && character <= 'Z' && (grammar.letters >> (character - 'A') & 1) != 0) {
            isField = true;
            field = kFields[static_cast<std::size_t>(character - 'A')];
        }
        return true;
    }

    bool IsField() const { return isField; }
    Field CurrentField() const { return field; }
    char Character() const { return character; }  ///< where it is no field

private:
    const char* at;
    const IdentifierGrammar& grammar;
    TwoLetterForms forms;
    bool isField = false;
    Field field = nullptr;
    char character = '\0';
};

/// Each conversion takes two characters of a format at the least and makes up to ten digits of them.
constexpr std::size_t kGrowth = 5;

/// Writes the text and a terminator; returns the length. `out` has room for `kGrowth` characters for each one of the
/// format and for one number more.
std::size_t WriteText(char* out, const IdentifierFields& fields, FormatWalk walk) {
    char* end = out;
    while (walk.Next()) {
        if (walk.IsField()) {
            const Field field = walk.CurrentField();
            end += UnsignedText(field != nullptr ? fields.*field : 0, end);
        } else {
            *end++ = walk.Character();
        }
    }
    *end = '\0';
    return static_cast<std::size_t>(end - out);
}

}  // namespace

KyString& PrintFields(KyString& out, const IdentifierFields& fields, const IdentifierGrammar& grammar,
                      const char* format) {
    if (format == nullptr) format = grammar.ownFormat;
    const FormatWalk walk(format, grammar);
    constexpr std::size_t usual = 256;
    const std::size_t room = kGrowth * std::strlen(format) + kIntegerTextSize;
    if (room <= usual) {
        char text[usual];
        const std::size_t length = WriteText(text, fields, walk);
        return AssignText(out, text, length);
    }
    const auto text = std::make_unique<char[]>(room);
    const std::size_t length = WriteText(text.get(), fields, walk);
    return AssignText(out, text.get(), length);
}

IdentifierFields ScanFields(const KyString& text, const IdentifierGrammar& grammar, const char* format) {
    return ReadAsEightBit(text, [&grammar, format](const KyString& narrow) {
        IdentifierFields fields;
        const char* at = narrow.StrGet();
        FormatWalk walk(format != nullptr ? format : grammar.ownFormat, grammar);
        for (;;) {
            walk.SkipBlanks();
            at = BehindBlanks(at);
            if (!walk.Next()) return fields;
            if (walk.IsField()) {
                unsigned long long number = 0;
                ScanDecimal(at, false, number);
                if (walk.CurrentField() != nullptr) fields.*walk.CurrentField() = static_cast<std::uint32_t>(number);
            } else if (*at != '\0') {
                ++at;
            }
        }
    });
}

}  // namespace ky
