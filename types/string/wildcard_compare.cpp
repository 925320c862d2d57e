#include "wildcard_compare.h"

#include <optional>

#include "class_map.h"
#include "key_reader.h"
#include "kystring.h"
#include "kytypes.h"
#include "wildcard_bytes.h"
#include "wildcard_keys.h"

namespace ky {
namespace {

/// Keys of a text.
class KeyText {
public:
    explicit KeyText(KeyReader& textReader) : reader(textReader) {}

    unsigned Next() { return reader.Next(); }
    static constexpr bool IsUnclear(unsigned) { return false; }
    bool Rest(std::span<const unsigned>& units) {
        while (const unsigned key = reader.Next()) keys.Append(key);
        units = keys.Items();
        return true;
    }

private:
    KeyReader& reader;
    SmallBuffer<unsigned, 256> keys;
};

/// An 8-bit pattern as the groups of its characters.
class GroupPattern {
public:
    GroupPattern(const char* pattern, const KeyTable& patternTable, const ClassMap& classMap)
        : at(pattern), table(patternTable), map(classMap) {}

    Token Next(unsigned char& group) {
        if (*at == 0) return Token::end;
        const unsigned short order = table.OrderOf(*at);
        group = map.groups(*at++);
        if (group == ClassMap::kUnclear) return Token::unclear;
        if (order == wildcards.asterisk) return Token::anyRun;
        if (order == wildcards.question) return Token::anyOne;
        if (order == wildcards.escape && *at != 0) {
            group = map.groups(*at++);
            if (group == ClassMap::kUnclear) return Token::unclear;
        }
        return Token::literal;
    }

private:
    const char* at;
    const KeyTable& table;
    const ClassMap& map;
    Wildcards wildcards;
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
    if (ending != Ending::nowhere) return PrefixMatch::no;
    return tookContractions ? PrefixMatch::unclear : PrefixMatch::never;
}

namespace {

template <class Pattern, class Unit>
void ReadUpToRunOf(Pattern&& pattern, Unit unit, PatternKeys& keys) {
    for (;;) {
        const Token token = pattern.Next(unit);
        if (token != Token::literal && token != Token::anyOne) return;
        keys.Append(token == Token::literal ? unit : 0);
    }
}

}  // namespace

void ReadUpToRun(const TextView& pattern, unsigned mask, PatternKeys& keys) {
    KeyReader reader(pattern, CompareLimit(-1), mask, false);
    ReadUpToRunOf(KeyPattern(reader, CompareLimit(-1)), 0u, keys);
}

void ReadBytesUpToRun(const char* pattern, PatternKeys& keys) {
    ReadUpToRunOf(BytePattern<false>(pattern, kNoLimit), static_cast<unsigned char>(0), keys);
}

namespace {

/// Whole texts that are read alike, where that can be done byte by byte.
std::optional<int> CompareGroups(const TextView& text, const TextView& pattern, unsigned mask) {
    if (text.codeSet != pattern.codeSet || text.language != pattern.language) return {};
    if (text.text == nullptr || pattern.text == nullptr) return {};
    const KeyTable* table = KeyTableOf(text.codeSet, text.language);
    const ClassMap* map = table != nullptr ? ClassMapOf(*table, mask) : nullptr;
    if (map == nullptr) return {};
    MappedText groups(text.text, map->groups);
    GroupPattern groupPattern(pattern.text, *table, *map);
    const Outcome<unsigned char> outcome = Match<unsigned char>(groupPattern, groups);
    if (outcome.ending == Ending::unclear) return {};
    if (outcome.ending == Ending::nowhere) return -1;
    return static_cast<int>(map->keys[outcome.text] - map->keys[outcome.pattern]);
}

}  // namespace

int CompareWithWildcards(const TextView& text, const TextView& pattern, unsigned limit, unsigned mask) {
    if (limit == CompareLimit(-1)) {
        if (const std::optional<int> result = CompareGroups(text, pattern, mask)) return *result;
    }
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
