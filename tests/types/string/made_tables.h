#ifndef MADE_TABLES_H
#define MADE_TABLES_H

/// Code sets and languages made for tests, in a program that has made_tables.cpp: its QueryCodeSet and QueryLanguage
/// stand in place of the library's.
///
/// "ch" sorts behind c, "chs" behind that, "cz" as its own letter whose further "z" joins on; "ll" behind l in the
/// variant language only; x expands to k and s; the pair "dz" is a letter that expands.

inline constexpr unsigned char kTabled = 1;      ///< 8-bit with a property table
inline constexpr unsigned char kTableless = 40;  ///< 8-bit; 0x80 + c stands for the letter c
inline constexpr unsigned char kNarrow = 41;     ///< 8-bit, no table, and no 'q'
inline constexpr unsigned char kOwnCodes = 42;   ///< 8-bit with a property table; 0x80 + c is Unicode's c
inline constexpr unsigned char kVariantLanguage = 7;
inline constexpr unsigned char kRankingLanguage = 8;

/// The order of a letter.
constexpr unsigned short Letter(char c, bool lower = true, unsigned variant = 0) {
    const auto letter = static_cast<unsigned>((c | 0x20) - 'a' + 3);
    return static_cast<unsigned short>((lower ? 0x5000u : 0x4000u) | letter << 2 | variant);
}

/// A letter and a symbol that expand into letters, symbols and digits.
inline constexpr char kMixedLetter = '\xE2';
inline constexpr char kMixedSymbol = '\xE3';
inline constexpr unsigned short kSymbol = 200;
inline constexpr unsigned short kDigit = 16128;

#endif
