#ifndef SLOW_WILDCARDS_H
#define SLOW_WILDCARDS_H

#include <cstddef>
#include <string>

/// A text against a pattern of bytes, by trying every length of every run: '*' any run, '?' any one. `escape` makes
/// the next pattern byte literal and matches nothing at the pattern's end; 0: there is none.
inline bool SlowMatch(const std::string& text, const std::string& pattern, char escape, std::size_t t = 0,
                      std::size_t p = 0) {
    if (p == pattern.size()) return t == text.size();
    if (pattern[p] == '*') {
        for (std::size_t end = t; end <= text.size(); ++end) {
            if (SlowMatch(text, pattern, escape, end, p + 1)) return true;
        }
        return false;
    }
    const bool literal = escape != 0 && pattern[p] == escape;
    if (literal && ++p == pattern.size()) return false;
    if (t == text.size()) return false;
    const bool any = !literal && pattern[p] == '?';
    return (any || text[t] == pattern[p]) && SlowMatch(text, pattern, escape, t + 1, p + 1);
}

#endif
