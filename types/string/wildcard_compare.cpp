#include "wildcard_compare.h"

#include <algorithm>
#include <cstddef>
#include <memory_resource>
#include <vector>

#include "code_sets.h"
#include "key_reader.h"
#include "kystring.h"
#include "kytypes.h"

namespace ky {
namespace {

using Keys = std::pmr::vector<unsigned>;

/// In a segment's keys: any one character. Real keys are below 2^31.
constexpr unsigned kAnyOne = ~0u;
constexpr std::size_t kNowhere = ~std::size_t{0};

/// Order values with a meaning; 0 for none.
struct Wildcards {
    unsigned short asterisk;
    unsigned short question;
    unsigned short escape;
};

Wildcards WildcardsOf(const KeyReader&) {
    return {KyString::GetAsterisk(), KyString::GetQuestion(), KyString::GetEscape()};
}

Wildcards WildcardsOf(const ByteReader&) { return {'*', '?', 0}; }

enum class Token { end, literal, anyOne, anyRun, broken };

/// The next element of the pattern; `key` is that of a literal. An escape with nothing behind it is broken: it
/// demands a character that no text has.
template <class Reader>
Token NextToken(Reader& pattern, const Wildcards& wildcards, unsigned& key) {
    key = pattern.Next();
    const unsigned short order = pattern.Order();
    if (order == 0) return Token::end;
    if (order == wildcards.asterisk) return Token::anyRun;
    if (order == wildcards.question) return Token::anyOne;
    if (order != wildcards.escape) return Token::literal;
    key = pattern.Next();
    return pattern.Order() != 0 ? Token::literal : Token::broken;
}

/// What stands between two runs of a pattern: a stretch of its keys.
struct Segment {
    const unsigned* keys;
    std::size_t length;

    bool FitsAt(const unsigned* text) const {
        for (std::size_t i = 0; i < length; ++i) {
            if (keys[i] != kAnyOne && keys[i] != text[i]) return false;
        }
        return true;
    }
};

/// First place of a segment without any-one elements: each text key is looked at once, whatever the pattern.
std::size_t FindLiteral(const Keys& text, std::size_t start, const Segment& segment) {
    // borders[i]: length of the longest proper prefix of keys[0..i] that is also its suffix.
    Keys borders(segment.length, 0, text.get_allocator());
    for (std::size_t i = 1; i < segment.length; ++i) {
        unsigned border = borders[i - 1];
        while (border != 0 && segment.keys[i] != segment.keys[border]) border = borders[border - 1];
        borders[i] = segment.keys[i] == segment.keys[border] ? border + 1 : 0;
    }
    std::size_t matched = 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        while (matched != 0 && segment.keys[matched] != text[i]) matched = borders[matched - 1];
        if (segment.keys[matched] == text[i]) ++matched;
        if (matched == segment.length) return i + 1 - matched;
    }
    return kNowhere;
}

std::size_t Find(const Keys& text, std::size_t start, const Segment& segment) {
    if (text.size() - start < segment.length) return kNowhere;
    const unsigned* end = segment.keys + segment.length;
    if (std::find(segment.keys, end, kAnyOne) == end) return FindLiteral(text, start, segment);
    for (std::size_t at = start; at + segment.length <= text.size(); ++at) {
        if (segment.FitsAt(&text[at])) return at;
    }
    return kNowhere;
}

/// The part of a pattern from its first run on.
class PatternTail {
public:
    explicit PatternTail(std::pmr::memory_resource* memory) : keys(memory), ends(memory) {}

    /// Reads the rest of the pattern behind a run; false: it can never match.
    template <class Reader>
    bool Read(Reader& pattern, const Wildcards& wildcards, bool openEnd) {
        for (;;) {
            unsigned key;
            switch (NextToken(pattern, wildcards, key)) {
                case Token::literal:
                    keys.push_back(key);
                    endsInRun = false;
                    break;
                case Token::anyOne:
                    keys.push_back(kAnyOne);
                    endsInRun = false;
                    break;
                case Token::anyRun:
                    EndSegment();
                    endsInRun = true;
                    break;
                case Token::broken:
                    return false;
                case Token::end:
                    EndSegment();
                    endsInRun = endsInRun || openEnd;
                    return true;
            }
        }
    }

    bool MatchesEverything() const { return keys.empty() && endsInRun; }

    bool Matches(const Keys& text) const {
        std::size_t at = 0;
        std::size_t segmentStart = 0;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            const Segment segment{&keys[segmentStart], ends[i] - segmentStart};
            segmentStart = ends[i];
            if (i + 1 == ends.size() && !endsInRun) {
                return text.size() - at >= segment.length && segment.FitsAt(&text[text.size() - segment.length]);
            }
            const std::size_t found = Find(text, at, segment);
            if (found == kNowhere) return false;
            at = found + segment.length;
        }
        return true;
    }

private:
    void EndSegment() {
        if (keys.size() != (ends.empty() ? 0 : ends.back())) ends.push_back(keys.size());
    }

    Keys keys;
    std::pmr::vector<std::size_t> ends;
    bool endsInRun = true;
};

struct Outcome {
    int result;      ///< 0: a match
    bool wholeText;  ///< not 0: nor does any later place of the text match
};

/// The pattern's rest from its first run on against the rest of the text.
template <class Reader>
Outcome CompareTail(Reader& text, Reader& pattern, const Wildcards& wildcards, bool openEnd) {
    std::byte space[4096];
    std::pmr::monotonic_buffer_resource memory(space, sizeof space);
    PatternTail tail(&memory);
    if (!tail.Read(pattern, wildcards, openEnd)) return {-1, true};
    if (tail.MatchesEverything()) return {0, true};
    Keys keys(&memory);
    keys.reserve(128);
    for (unsigned key = text.Next(); text.Order() != 0; key = text.Next()) keys.push_back(key);
    return {tail.Matches(keys) ? 0 : -1, !text.TookContractions()};
}

/// `openEnd`: the pattern may match a beginning of the text.
template <class Reader>
Outcome Compare(Reader& text, Reader& pattern, bool openEnd) {
    const Wildcards wildcards = WildcardsOf(pattern);
    for (;;) {
        unsigned wanted;
        const Token token = NextToken(pattern, wildcards, wanted);
        if (token == Token::anyRun) return CompareTail(text, pattern, wildcards, openEnd);
        if (token == Token::broken) return {-1, false};
        if (token == Token::end && openEnd) return {0, false};
        const unsigned key = text.Next();
        if (text.Order() == 0) return {token == Token::end ? 0 : -1, false};
        if (token == Token::end) return {static_cast<int>(key), false};
        if (token == Token::literal && key != wanted) return {static_cast<int>(key - wanted), false};
    }
}

template <class Reader>
PrefixMatch MatchOpenEnd(Reader&& text, Reader&& pattern) {
    const Outcome outcome = Compare(text, pattern, true);
    if (outcome.result == 0) return PrefixMatch::yes;
    return outcome.wholeText ? PrefixMatch::never : PrefixMatch::no;
}

}  // namespace

PrefixMatch MatchPrefix(unsigned char codeSet, unsigned char language, const char* text, unsigned char patternCodeSet,
                        unsigned char patternLanguage, const char* pattern, unsigned short op) {
    constexpr unsigned all = CompareLimit(-1);
    if (codeSet == KyCodeSetNative && patternCodeSet == KyCodeSetNative) {
        return MatchOpenEnd(ByteReader(text, all), ByteReader(pattern, all));
    }
    const unsigned mask = KeyMask(op);
    return MatchOpenEnd(KeyReader(text, codeSet, language, 1, all, mask),
                        KeyReader(pattern, patternCodeSet, patternLanguage, 1, all, mask));
}

int CompareWithWildcards(KeyReader& text, KeyReader& pattern) { return Compare(text, pattern, false).result; }
int CompareWithWildcards(ByteReader& text, ByteReader& pattern) { return Compare(text, pattern, false).result; }

}  // namespace ky
