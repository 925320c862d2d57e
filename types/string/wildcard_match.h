#ifndef WILDCARD_MATCH_H
#define WILDCARD_MATCH_H

/// The one matcher of texts against patterns, whatever their characters are compared by.
///
/// A text and a pattern are read as units, numbers that are equal where characters match and 0 at the end:
///   Text::Next()         the next unit, 0 at the end
///   Text::Rest()         all that are left, in a row that lives as long as the text
///   Pattern::Next(unit)  the next token; `unit` is that of a literal, or of the wildcard for any one
/// A pattern of n units and a text of m take at most n * m steps.

#include <cstddef>
#include <span>

#include "segment_search.h"
#include "small_buffer.h"

namespace ky {

enum class Token {
    literal,
    anyOne,
    anyRun,
    end,
    openEnd,  ///< the end, and the text may go on
    broken,   ///< such a pattern matches nothing
};

enum class Ending {
    match,
    differ,    ///< before any run: two units, or more text than pattern
    textEnds,  ///< before any run: the pattern demands more
    nowhere,   ///< what stands behind a run does not follow
};

template <class Unit>
struct Outcome {
    Ending ending;
    Unit text;     ///< the units at which the comparison ended, 0 at an end
    Unit pattern;  ///< (`match` and `nowhere`: both 0)
};

/// Reads up to the next run or an end, whichever is returned.
template <class Pattern, class Unit, std::size_t kInline>
Token ReadSegment(Pattern& pattern, SmallBuffer<Unit, kInline>& units) {
    for (;;) {
        Unit unit;
        const Token token = pattern.Next(unit);
        if (token != Token::literal && token != Token::anyOne) return token;
        units.Append(token == Token::literal ? unit : static_cast<Unit>(kAnyOne));
    }
}

/// Whether the rest of a text matches what stands behind a pattern's first run.
template <class Unit, class Pattern, class Text>
bool MatchBehindRun(Pattern& pattern, Text& text) {
    SmallBuffer<Unit, 64> units;
    std::span<const Unit> rest;
    for (bool read = false;;) {
        units.Clear();
        const Token token = ReadSegment(pattern, units);
        if (token == Token::broken) return false;
        const bool ends = token == Token::end || token == Token::openEnd;
        if (units.Size() == 0) {
            if (ends) return true;
            continue;
        }
        if (!read) {
            rest = text.Rest();
            read = true;
        }
        if (units.Size() > rest.size()) return false;
        const Segment<Unit> segment(units.Data(), units.Size());
        const std::size_t lastPlace = rest.size() - segment.length;
        if (token == Token::end) return segment.FitsAt(rest.data() + lastPlace);
        const std::size_t place = FindSegment(rest.data(), lastPlace + 1, segment);
        if (place > lastPlace) return false;
        if (ends) return true;
        rest = rest.subspan(place + segment.length);
    }
}

template <class Unit, class Pattern, class Text>
Outcome<Unit> Match(Pattern& pattern, Text& text) {
    for (;;) {
        Unit wanted{};
        const Token token = pattern.Next(wanted);
        if (token == Token::anyRun) {
            return {MatchBehindRun<Unit>(pattern, text) ? Ending::match : Ending::nowhere, 0, 0};
        }
        if (token == Token::broken) return {Ending::nowhere, 0, 0};
        if (token == Token::openEnd) return {Ending::match, 0, 0};
        const Unit unit = text.Next();
        if (token == Token::end) return {unit == 0 ? Ending::match : Ending::differ, unit, 0};
        if (unit == 0) return {Ending::textEnds, 0, wanted};
        if (token == Token::literal && unit != wanted) return {Ending::differ, unit, wanted};
    }
}

}  // namespace ky

#endif
