#ifndef KYSTRING_SEARCH_H
#define KYSTRING_SEARCH_H

#include "kystring.h"
#include "wildcard_compare.h"

namespace ky {

/// A pattern prepared for being looked for at many places. Keeps a pointer to the pattern.
class Searcher {
public:
    /// op as in `KyString::Find`: an explicit operator that allows wildcards makes the pattern match a run of any
    /// length, else it is compared with as many characters as it has itself.
    Searcher(const KyString& pattern, unsigned short op);

    /// Length of the pattern, wildcards included.
    unsigned Length() const { return length; }
    /// First position from `start` on at which the pattern is found in the first `limit` characters of `text`.
    unsigned short Find(const KyString& text, unsigned start, unsigned limit) const;

private:
    const KyString& pattern;
    unsigned length;
    unsigned short op;
    bool wild;

    PrefixMatch MatchAt(const KyString& text, const char* position) const;
};

}  // namespace ky

#endif
