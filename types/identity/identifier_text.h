#ifndef IDENTIFIER_TEXT_H
#define IDENTIFIER_TEXT_H

/// The texts of identifiers; `kyobjid.h` tells their formats.

#include <cstdint>

class KyString;

namespace ky {

/// The fields that an identifier may have.
struct IdentifierFields {
    std::uint32_t B = 0;
    std::uint32_t L = 0;
    std::uint32_t H = 0;
    std::uint32_t D = 0;
    std::uint32_t C = 0;
    std::uint32_t V = 0;
};

/// What the formats of a type are made of.
struct IdentifierGrammar {
    std::uint32_t letters;  ///< of the type's fields: the bits that `LettersOf` gives
    bool twoLetterForms;    ///< whether "%h?" and "%l?" are known
    const char* ownFormat;  ///< in the place of a null one
};

/// One bit a capital letter.
constexpr std::uint32_t LettersOf(const char* letters) {
    std::uint32_t bits = 0;
    for (; *letters != 0; ++letters) bits |= 1U << (*letters - 'A');
    return bits;
}

/// `out` becomes the text of an identifier that is not null.
KyString& PrintFields(KyString& out, const IdentifierFields& fields, const IdentifierGrammar& grammar,
                      const char* format);

/// Reads a text that is not that of a null value. 16-bit fields are to be cut to their low bits.
IdentifierFields ScanFields(const KyString& text, const IdentifierGrammar& grammar, const char* format);

}  // namespace ky

#endif
