#ifndef WILDCARD_MATCH_H
#define WILDCARD_MATCH_H

/// The one matcher of texts against patterns, whatever their characters are compared by.
///
/// A text and a pattern are read as units, numbers that are equal where characters match and 0 at the end:
///   Text::Next()         the next unit, 0 at the end
///   Text::Rest(units)    all that are left, in a row that lives as long as the text; false: there is an unclear one
///   Text::IsUnclear(unit)  this matcher cannot tell what the unit matches
///   Pattern::Next(unit)  the next token; `unit` is that of a literal, or of the wildcard for any one
///   Pattern::SegmentInPlace(units)  if there is one: reads up to the next run or an end, which it returns, or nothing
///                        (unclear), where the units do not stand in the pattern in a row, kAnyInPlace being any one
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
    unclear,  ///< such a pattern has to be read in another way
};

enum class Ending {
    match,
    differ,    ///< before any run: two units, or more text than pattern
    textEnds,  ///< before any run: the pattern demands more
    nowhere,   ///< what stands behind a run does not follow
    unclear,   ///< the comparison has to be made in another way
};

template <class Unit>
struct Outcome {
    Ending ending;
    Unit text;     ///< the units at which the comparison ended, 0 at an end
    Unit pattern;  ///< (`match`, `nowhere` and `unclear`: both 0)
};

/// Reads a pattern segment by segment.
template <class Unit, class Pattern>
class SegmentReader {
public:
    explicit SegmentReader(Pattern& segmentedPattern) : pattern(segmentedPattern) {}

    /// Up to the next run or an end, whichever is returned.
    Token Next() {
        if constexpr (requires { pattern.SegmentInPlace(units); }) {
            const Token token = pattern.SegmentInPlace(units);
            any = Pattern::kAnyInPlace;
            if (token != Token::unclear) return token;
        }
        any = kAny;
        copy.Clear();
        for (;;) {
            Unit unit;
            const Token token = pattern.Next(unit);
            if (token == Token::literal || token == Token::anyOne) {
                copy.Append(token == Token::literal ? unit : any);
                continue;
            }
            units = copy.Items();
            return token;
        }
    }
    bool IsEmpty() const { return units.empty(); }
    Segment<Unit> Read() const { return {units, any}; }

private:
    static constexpr Unit kAny = 0;

    Pattern& pattern;
    std::span<const Unit> units;
    Unit any = kAny;
    SmallBuffer<Unit, 64> copy;
};

/// The rest of a text against what stands behind a pattern's first run.
template <class Unit, class Pattern, class Text>
[[gnu::noinline]] Ending MatchBehindRun(Pattern& pattern, Text& text) {
    SegmentReader<Unit, Pattern> reader(pattern);
    std::span<const Unit> rest;
    for (bool haveRest = false;;) {
        const Token token = reader.Next();
        if (token == Token::broken) return Ending::nowhere;
        if (token == Token::unclear) return Ending::unclear;
        const bool ends = token == Token::end || token == Token::openEnd;
        if (reader.IsEmpty()) {
            if (ends) return Ending::match;
            continue;
        }
        if (!haveRest && !text.Rest(rest)) return Ending::unclear;
        haveRest = true;
        const Segment<Unit> segment = reader.Read();
        if (segment.length > rest.size()) return Ending::nowhere;
        const std::size_t lastPlace = rest.size() - segment.length;
        if (token == Token::end) return segment.FitsAt(rest.data() + lastPlace) ? Ending::match : Ending::nowhere;
        const std::size_t place = FindSegment(rest.data(), lastPlace + 1, segment);
        if (place > lastPlace) return Ending::nowhere;
        if (ends) return Ending::match;
        rest = rest.subspan(place + segment.length);
    }
}

template <class Unit, class Pattern, class Text>
[[gnu::always_inline]] inline Outcome<Unit> Match(Pattern& pattern, Text& text) {
    for (;;) {
        Unit wanted{};
        const Token token = pattern.Next(wanted);
        if (token == Token::anyRun) return {MatchBehindRun<Unit>(pattern, text), 0, 0};
        if (token == Token::broken) return {Ending::nowhere, 0, 0};
        if (token == Token::unclear) return {Ending::unclear, 0, 0};
        if (token == Token::openEnd) return {Ending::match, 0, 0};
        const Unit unit = text.Next();
        if (text.IsUnclear(unit)) return {Ending::unclear, 0, 0};
        if (token == Token::end) return {unit == 0 ? Ending::match : Ending::differ, unit, 0};
        if (unit == 0) return {Ending::textEnds, 0, wanted};
        if (token == Token::literal && unit != wanted) return {Ending::differ, unit, wanted};
    }
}

}  // namespace ky

#endif
