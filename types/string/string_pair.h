#ifndef STRING_PAIR_H
#define STRING_PAIR_H

/// Two stored strings, neither absent, under one compare-operator word. Results are those of `KyStrCmp`.

#include <optional>

#include "compare_rules.h"
#include "key_reader.h"
#include "string_records.h"

namespace ky {

/// Order of two whole texts, read where they stand; nothing when that is not enough: one is cut short, the second may
/// be a pattern, or a text without a terminator holds characters that do not rank alone.
std::optional<int> CompareInPlace(const StoredText& a, const StoredText& b, unsigned short op, unsigned char form);

/// False: an 8-bit text in the table's language is no pattern. Of its bytes those behind a terminator count, too.
bool MayBePattern(const KeyTable& table, const char* text, std::size_t bytes);

/// Any two texts, for `ComparePair`. They are read with terminators behind them, copied where there are none.
class StringPair {
public:
    StringPair(const StoredText& a, const StoredText& b, unsigned short compareOp, unsigned char form);

    /// False when memory failed.
    bool HasTexts() const { return textA.Text() != nullptr && textB.Text() != nullptr; }

    bool firstIsCut;
    bool secondIsCut;
    std::size_t firstLength;
    std::size_t secondLength;

    std::optional<LiteralPart> Literals() const;
    int Compare(std::size_t keys) const;
    std::size_t KeysOfFirst(std::size_t most) const { return KeysOf(first, textA.Text(), most, false); }
    std::size_t KeysOfSecond(std::size_t most) const { return KeysOf(second, textB.Text(), most, AllowsWildcards(op)); }

private:
    const StoredText& first;
    const StoredText& second;
    unsigned short op;
    unsigned char form;
    bool areBytes;  ///< both of code set 0: each byte is its own key
    TerminatedText textA;
    TerminatedText textB;

    unsigned char LanguageOf(const StoredText& s) const;
    KeyReader ReaderOf(const StoredText& s, const char* text) const;
    std::size_t UncertainCharacters(const StoredText& s) const;
    std::size_t KeysOf(const StoredText& s, const char* text, std::size_t most, bool hasEscapes) const;
    std::optional<LiteralPart> LiteralBytes() const;
    std::optional<LiteralPart> LiteralOrders() const;
};

}  // namespace ky

#endif
