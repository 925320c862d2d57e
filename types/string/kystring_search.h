#ifndef KYSTRING_SEARCH_H
#define KYSTRING_SEARCH_H

#include "kystring.h"

namespace ky {

/// A pattern prepared for being looked for at many places. Keeps pointers into the pattern string.
class Searcher {
public:
    /// op as in `KyString::Find`: an explicit operator that allows wildcards makes the pattern match a run of any
    /// length, else it is compared with as many characters as it has itself.
    Searcher(const KyString& pattern, unsigned short op);

    /// Length of the pattern as it was given, wildcards included.
    unsigned Length() const { return length; }
    /// First position from `start` on at which the pattern is found in the first `limit` characters of `text`.
    unsigned short Find(const KyString& text, unsigned start, unsigned limit) const;

private:
    const KyString* pattern;
    KyString prefixPattern;  ///< the pattern and a wildcard for the rest of the text
    unsigned length;
    unsigned short op;
    bool wild;

    bool MatchesAt(const KyString& text, const char* position) const;
};

}  // namespace ky

#endif
