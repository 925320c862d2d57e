#ifndef PREFIX_SEARCH_H
#define PREFIX_SEARCH_H

#include <optional>

#include "key_reader.h"

namespace ky {

/// The first of the characters `start` to `last` of a text at which it matches a pattern that any run of characters
/// follows; last + 1 when there is none. What `MatchPrefix` says of each of them, for texts with contractions, which
/// read differently from a place inside one: takes at most (length of the text) x (length of the pattern) steps
/// whatever they hold. Nothing when the text holds markers, whose keys depend on what is read before them.
std::optional<unsigned> FindPrefix(TextView text, unsigned start, unsigned last, TextView pattern, unsigned short op);

}  // namespace ky

#endif
