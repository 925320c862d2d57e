#ifndef KYSTRING_SEARCH_H
#define KYSTRING_SEARCH_H

#include <optional>
#include <span>

#include "character_keys.h"
#include "kystring.h"
#include "small_buffer.h"
#include "wildcard_compare.h"

namespace ky {

/// A pattern prepared for being looked for at many places of a text. Keeps pointers to both.
class Searcher {
public:
    /// op as in `KyString::Find`: an explicit operator that allows wildcards makes the pattern match a run of any
    /// length, else it is compared with as many characters as it has itself.
    Searcher(const KyString& text, const KyString& pattern, unsigned short op);

    /// Length of the pattern, wildcards included.
    unsigned Length() const { return length; }
    /// First position from `start` on at which the pattern is found in the first `limit` characters of the text. Takes
    /// steps for many positions at once where the characters rank alone.
    unsigned short Find(unsigned start, unsigned limit) const;

private:
    const KyString& text;
    const KyString& pattern;
    unsigned length;
    unsigned short op;
    bool wild;
    std::optional<CharacterKeys> textKeys;  ///< without it every position is compared
    PatternKeys beginning;                  ///< what a text has to begin with to match

    void PrepareKeys();
    PrefixMatch MatchAt(unsigned position) const;
    unsigned short FindOneByOne(unsigned start, unsigned lastPosition) const;
    unsigned short FindByKeys(unsigned start, unsigned lastPosition, unsigned limit) const;

    struct Piece {
        bool ended;
        unsigned short position;
    };
    Piece FindHere(unsigned position, unsigned lastPosition) const;
    Piece FindInPiece(unsigned start, unsigned places, std::span<const unsigned> keys, unsigned lastPosition) const;
    bool MayBeginWith(unsigned key) const;
};

}  // namespace ky

#endif
