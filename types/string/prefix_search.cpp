#include "prefix_search.h"

#include <vector>

#include "wildcard_keys.h"

namespace ky {
namespace {

/// What stands in a pattern before, between and behind its runs, as keys; 0 is any one.
class Segments {
public:
    Segments(const TextView& pattern, unsigned mask, bool inDefaultClasses) {
        KeyReader reader(pattern, CompareLimit(-1), mask, inDefaultClasses);
        KeyPattern tokens(reader, CompareLimit(-1));
        std::vector<unsigned> segment;
        for (;;) {
            unsigned key = 0;
            const Token token = tokens.Next(key);
            if (token == Token::literal || token == Token::anyOne) {
                segment.push_back(token == Token::literal ? key : 0);
                continue;
            }
            // Runs that follow each other are one, and one more follows the pattern.
            if (segments.empty() || !segment.empty()) segments.push_back(segment);
            segment.clear();
            if (token == Token::end) return;
        }
    }
    const std::vector<unsigned>& Beginning() const { return segments[0]; }
    const std::vector<unsigned>& BehindRun(std::size_t run) const { return segments[run]; }
    std::size_t Runs() const { return segments.size() - 1; }

private:
    std::vector<std::vector<unsigned>> segments;
};

/// The keys of a text from each of its characters on. Ways that meet go on as one.
class Readings {
public:
    Readings(const TextView& text, unsigned start, unsigned mask, bool inDefaultClasses) : first(start) {
        const unsigned width = CharWidth(TextCodeSet(text.codeSet));
        unsigned length = start;
        while (ReadCode(text.text + std::size_t{length} * width, width, text.format) != 0) ++length;
        keys.push_back({0, 0});
        begins.resize(length - start + 1);
        std::vector<unsigned> ofCharacter;
        for (unsigned at = length; at-- != start;) {
            TextView rest = text;
            rest.text += std::size_t{at} * width;
            KeyReader reader(rest, CompareLimit(-1), mask, inDefaultClasses);
            ofCharacter.clear();
            do {
                ofCharacter.push_back(reader.Next());
                dependOnWayThere |= ClassInKey(ofCharacter.back()) == 0;
            } while (reader.InCharacter());
            std::size_t next = begins[static_cast<std::size_t>(reader.Place() - text.text) / width - start];
            for (std::size_t i = ofCharacter.size(); i-- != 0;) {
                keys.push_back({ofCharacter[i], next});
                next = keys.size() - 1;
            }
            begins[at - start] = next;
        }
    }

    /// A key and the one that is read behind it, which has a lower number. Number 0, the end, has no key.
    struct Key {
        unsigned key;
        std::size_t next;
    };
    /// Markers have the class of what precedes them, so these are not their keys.
    bool DependOnWayThere() const { return dependOnWayThere; }
    std::size_t Count() const { return keys.size(); }
    std::size_t BehindOf(std::size_t number) const { return keys[number].next; }
    std::size_t BeginOf(unsigned character) const { return begins[character - first]; }

    /// Whether a segment stands here; moves behind it.
    bool Fits(const std::vector<unsigned>& segment, std::size_t& number) const {
        std::size_t at = number;
        for (const unsigned wanted : segment) {
            if (at == 0 || (wanted != 0 && wanted != keys[at].key)) return false;
            at = keys[at].next;
        }
        number = at;
        return true;
    }

private:
    unsigned first;
    bool dependOnWayThere = false;
    std::vector<Key> keys;
    std::vector<std::size_t> begins;
};

/// For each key how many of the last segments follow one another from there on, with anything between them.
std::vector<std::size_t> RunsThatFollow(const Readings& readings, const Segments& segments) {
    std::vector<std::size_t> follow(readings.Count());
    for (std::size_t number = 1; number < follow.size(); ++number) {
        follow[number] = follow[readings.BehindOf(number)];
        if (follow[number] == segments.Runs()) continue;
        // Fewer follow where one less did.
        std::size_t behind = number;
        const bool fits = readings.Fits(segments.BehindRun(segments.Runs() - follow[number]), behind);
        if (fits && follow[behind] == follow[number]) ++follow[number];
    }
    return follow;
}

}  // namespace

std::optional<unsigned> FindPrefix(TextView text, unsigned start, unsigned last, TextView pattern, unsigned short op) {
    if (ReadsNeutral(op)) text.language = pattern.language = KyLanguageNeutral;
    const bool inDefaultClasses = ReadsDefaultClasses(text.codeSet, pattern.codeSet);
    const Segments segments(pattern, KeyMask(op), inDefaultClasses);
    const Readings readings(text, start, KeyMask(op), inDefaultClasses);
    if (readings.DependOnWayThere()) return {};
    const std::vector<std::size_t> follow = RunsThatFollow(readings, segments);
    for (unsigned at = start; at <= last; ++at) {
        std::size_t number = readings.BeginOf(at);
        if (readings.Fits(segments.Beginning(), number) && follow[number] == segments.Runs()) return at;
    }
    return last + 1;
}

}  // namespace ky
