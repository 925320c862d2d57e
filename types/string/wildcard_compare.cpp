#include "wildcard_compare.h"

#include "key_reader.h"
#include "kystring.h"
#include "kytypes.h"
#include "wildcard_bytes.h"

namespace ky {
namespace {

/// Keys of a text.
class KeyText {
public:
    explicit KeyText(KeyReader& textReader) : reader(textReader) {}

    unsigned Next() { return reader.Next(); }
    std::span<const unsigned> Rest() {
        while (const unsigned key = reader.Next()) keys.Append(key);
        return keys.Items();
    }

private:
    KeyReader& reader;
    SmallBuffer<unsigned, 256> keys;
};

/// Keys of a pattern, of which at most `limit` have to match.
class KeyPattern {
public:
    KeyPattern(KeyReader& patternReader, unsigned limit) : reader(patternReader), left(limit) {}

    Token Next(unsigned& key) {
        if (left == 0) return Token::end;
        key = reader.Next();
        const unsigned short order = reader.Order();
        if (order == 0) return Token::end;
        if (order == asterisk) return Token::anyRun;
        --left;
        if (order == question) return Token::anyOne;
        if (order == escape) {
            const unsigned own = key;
            key = reader.Next();
            if (reader.Order() == 0) key = own;
        }
        return Token::literal;
    }

private:
    KeyReader& reader;
    unsigned left;
    unsigned short asterisk = KyString::GetAsterisk();
    unsigned short question = KyString::GetQuestion();
    unsigned short escape = KyString::GetEscape();
};

/// Matches a beginning.
template <class Pattern>
class OpenEnded {
public:
    explicit OpenEnded(Pattern& whole) : pattern(whole) {}
    template <class Unit>
    Token Next(Unit& unit) {
        const Token token = pattern.Next(unit);
        return token == Token::end ? Token::openEnd : token;
    }

private:
    Pattern& pattern;
};

}  // namespace

PrefixMatch MatchPrefix(TextView text, TextView pattern, unsigned short op) {
    Ending ending;
    bool tookContractions = false;
    if (text.codeSet == KyCodeSetNative && pattern.codeSet == KyCodeSetNative) {
        ByteText bytes(text.text, kNoLimit);
        BytePattern<false> bytePattern(pattern.text, kNoLimit);
        OpenEnded openEnded(bytePattern);
        ending = Match<unsigned char>(openEnded, bytes).ending;
    } else {
        constexpr unsigned all = CompareLimit(-1);
        if (ReadsNeutral(op)) text.language = pattern.language = KyLanguageNeutral;
        const bool inDefaultClasses = ReadsDefaultClasses(text.codeSet, pattern.codeSet);
        KeyReader reader(text, all, KeyMask(op), inDefaultClasses);
        KeyReader patternReader(pattern, all, KeyMask(op), inDefaultClasses);
        KeyText keys(reader);
        KeyPattern keyPattern(patternReader, all);
        OpenEnded openEnded(keyPattern);
        ending = Match<unsigned>(openEnded, keys).ending;
        tookContractions = reader.TookContractions();
    }
    if (ending == Ending::match) return PrefixMatch::yes;
    return ending == Ending::nowhere && !tookContractions ? PrefixMatch::never : PrefixMatch::no;
}

int CompareWithWildcards(const TextView& text, const TextView& pattern, unsigned limit, unsigned mask) {
    const bool inDefaultClasses = ReadsDefaultClasses(text.codeSet, pattern.codeSet);
    KeyReader reader(text, limit, mask, inDefaultClasses);
    KeyReader patternReader(pattern, CompareLimit(-1), mask, inDefaultClasses);
    KeyText keys(reader);
    KeyPattern keyPattern(patternReader, limit);
    const Outcome<unsigned> outcome = Match<unsigned>(keyPattern, keys);
    if (outcome.ending == Ending::nowhere) return -1;
    return static_cast<int>(outcome.text - outcome.pattern);
}

int CompareBytesWithWildcards(const char* text, const char* pattern, unsigned limit) {
    ByteText bytes(text, limit);
    BytePattern<false> bytePattern(pattern, limit);
    const Outcome<unsigned char> outcome = Match<unsigned char>(bytePattern, bytes);
    if (outcome.ending == Ending::nowhere || outcome.ending == Ending::textEnds) return -1;
    return outcome.text - outcome.pattern;
}

}  // namespace ky
