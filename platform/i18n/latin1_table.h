#ifndef LATIN1_TABLE_H
#define LATIN1_TABLE_H

/// The records of the codes 0x01 to 0xFF of Latin-1, which are also the first 256 of Unicode, computed at
/// compile time.
///
/// This is all there is so far: the characters of the further 8-bit code sets and of Unicode from 0x100 on, and
/// the variants and contractions of languages, have no records yet. Their order values are their codes then.
///
/// Orders below 256 belong to this page's spaces and symbols: a code without a record, which is 256 or more in
/// a set with a full first page, never has the order of a default wildcard character.

#include "kyi18n.h"

namespace ky {

inline constexpr unsigned char kClassCommon = 0;  ///< spaces, symbols, digits, Latin letters
inline constexpr unsigned char kClassGreek = 1;

inline constexpr unsigned short kFirstSymbolOrder = 80;
inline constexpr unsigned short kFirstDigitOrder = 16128;

/// Accents of letter orders, in the order in which letters that differ only there are sorted.
enum Accent : unsigned {
    kPlain = 0,
    kAcute = 1,
    kGrave = 2,
    kCircumflex = 4,
    kRing = 6,
    kDiaeresis = 7,
    kTilde = 9,
    kStroke = 11,
    kCedilla = 12,
    kLigature = 24,  ///< first letter of a ligature, the others follow as an expansion
    kModifier = 25   ///< superscript or other form of the letter
};

constexpr unsigned short LetterOrder(bool lower, unsigned accent, unsigned letter, unsigned variant = 0) {
    return static_cast<unsigned short>(0x4000u | (lower ? 1u : 0u) << 12 | accent << 7 | letter << 2 | variant);
}

/// Letter number of a plain Latin letter of either case.
constexpr unsigned LetterNumber(char letter) { return static_cast<unsigned>((letter | 0x20) - 'a' + 3); }

constexpr unsigned short DigitOrder(unsigned digit, bool variant = false) {
    return static_cast<unsigned short>(kFirstDigitOrder + 10 * digit + (variant ? 1 : 0));
}

/// White space, in ascending order.
inline constexpr unsigned char kSpaces[] = {0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x85, 0x20, 0xA0};

/// Every other character that is neither letter nor digit, in ascending order, behind the controls.
inline constexpr unsigned char kSymbols[] = {
    '_', 0xAF, '-',  0xAD, ',',  ';', ':', '!', 0xA1, '?', 0xBF, '.',  0xB7, '\'', '"',  0xAB, 0xBB, '(',  ')',  '[',
    ']', '{',  '}',  0xA7, 0xB6, '@', '*', '/', '\\', '&', '#',  '%',  '`',  0xB4, '^',  0xA8, 0xB8, 0xB0, 0xA9, 0xAE,
    '+', 0xB1, 0xF7, 0xD7, '<',  '=', '>', '|', 0xA6, '~', 0xAC, 0xA4, 0xA2, '$',  0xA3, 0xA5, 0xBC, 0xBD, 0xBE};

constexpr bool IsSpaceCode(unsigned code) {
    for (unsigned space : kSpaces) {
        if (space == code) return true;
    }
    return false;
}

/// The letters 0xC0 to 0xDE; the lower-case ones stand 0x20 behind them.
struct AccentedLetter {
    unsigned char upperCode;
    char letter;
    Accent accent;
};

inline constexpr AccentedLetter kAccentedLetters[] = {
    {0xC0, 'A', kGrave},      {0xC1, 'A', kAcute},      {0xC2, 'A', kCircumflex}, {0xC3, 'A', kTilde},
    {0xC4, 'A', kDiaeresis},  {0xC5, 'A', kRing},       {0xC7, 'C', kCedilla},    {0xC8, 'E', kGrave},
    {0xC9, 'E', kAcute},      {0xCA, 'E', kCircumflex}, {0xCB, 'E', kDiaeresis},  {0xCC, 'I', kGrave},
    {0xCD, 'I', kAcute},      {0xCE, 'I', kCircumflex}, {0xCF, 'I', kDiaeresis},  {0xD1, 'N', kTilde},
    {0xD2, 'O', kGrave},      {0xD3, 'O', kAcute},      {0xD4, 'O', kCircumflex}, {0xD5, 'O', kTilde},
    {0xD6, 'O', kDiaeresis},  {0xD8, 'O', kStroke},     {0xD9, 'U', kGrave},      {0xDA, 'U', kAcute},
    {0xDB, 'U', kCircumflex}, {0xDC, 'U', kDiaeresis},  {0xDD, 'Y', kAcute}};

inline constexpr unsigned short kOrderOfUpperE[] = {LetterOrder(false, kPlain, LetterNumber('e'))};
inline constexpr unsigned short kOrderOfLowerE[] = {LetterOrder(true, kPlain, LetterNumber('e'))};
inline constexpr unsigned short kOrderOfLowerS[] = {LetterOrder(true, kPlain, LetterNumber('s'))};
inline constexpr unsigned short kCapitalS[] = {'S'};

inline constexpr KyCharRules kUpperAe{.orderExpansion = {1, kOrderOfUpperE}};
inline constexpr KyCharRules kLowerAe{.orderExpansion = {1, kOrderOfLowerE}};
inline constexpr KyCharRules kSharpS{.upperExpansion = {1, kCapitalS}, .orderExpansion = {1, kOrderOfLowerS}};

class Latin1PageBuilder {
public:
    constexpr KyPropertyPage Build() {
        AddSpaces();
        AddSymbols();
        AddDigits();
        for (char letter = 'A'; letter <= 'Z'; ++letter) {
            AddCasePair(static_cast<unsigned char>(letter), kPlain, LetterNumber(letter));
        }
        for (const AccentedLetter& entry : kAccentedLetters) {
            AddCasePair(entry.upperCode, entry.accent, LetterNumber(entry.letter));
        }
        AddSpecialLetters();
        return page;
    }

private:
    constexpr void AddSpaces() {
        unsigned short order = 1;
        for (unsigned char code : kSpaces) page.records[code].order = order++;
    }

    constexpr void AddSymbols() {
        unsigned short order = kFirstSymbolOrder;
        for (unsigned code = 0x01; code < 0xA0; ++code) {
            const bool control = code < 0x20 || code >= 0x7F;
            if (control && !IsSpaceCode(code)) page.records[code].order = order++;
        }
        for (unsigned char code : kSymbols) page.records[code].order = order++;
    }

    constexpr void AddDigits() {
        for (unsigned digit = 0; digit < 10; ++digit) page.records['0' + digit].order = DigitOrder(digit);
        page.records[0xB9].order = DigitOrder(1, true);
        page.records[0xB2].order = DigitOrder(2, true);
        page.records[0xB3].order = DigitOrder(3, true);
    }

    constexpr void AddCasePair(unsigned char upperCode, unsigned accent, unsigned letter, unsigned variant = 0) {
        const auto lowerCode = static_cast<unsigned char>(upperCode + 0x20);
        page.records[upperCode] = {.order = LetterOrder(false, accent, letter, variant), .lower = lowerCode};
        page.records[lowerCode] = {.order = LetterOrder(true, accent, letter, variant), .upper = upperCode};
    }

    constexpr void AddSpecialLetters() {
        // ae sorts as a and e, sharp s as two s.
        AddCasePair(0xC6, kLigature, LetterNumber('a'));
        page.records[0xC6].rules = &kUpperAe;
        page.records[0xE6].rules = &kLowerAe;
        page.records[0xDF] = {
            .order = LetterOrder(true, kLigature, LetterNumber('s')), .upper = 'S', .rules = &kSharpS};

        // Letters between d and e, and behind z.
        AddCasePair(0xD0, kPlain, LetterNumber('d'), 1);
        AddCasePair(0xDE, kPlain, LetterNumber('z'), 1);

        // The upper-case form stands outside the page.
        page.records[0xFF] = {.order = LetterOrder(true, kDiaeresis, LetterNumber('y')), .upper = 0x0178};

        // Ordinal indicators; the micro sign is a mu, the twelfth letter of its alphabet.
        page.records[0xAA].order = LetterOrder(true, kModifier, LetterNumber('a'));
        page.records[0xBA].order = LetterOrder(true, kModifier, LetterNumber('o'));
        page.records[0xB5] = {
            .order = LetterOrder(true, kModifier, 3 + 11), .upper = 0x039C, .orderClass = kClassGreek};
    }

    KyPropertyPage page{};
};

}  // namespace ky

#endif
