#ifndef ENGINE_PATTERN_H
#define ENGINE_PATTERN_H

/// What strings need besides their rows: the rows compare a pattern by the text before its first wildcard, which is the
/// part that an index is ordered by. The rest is the engine's to verify.

#include <vector>

#include "record.h"

namespace engine {

/// Whether a stored constant of any type is a string with wildcards, which `op` does not take for what they are.
bool IsPattern(char type, unsigned char form, Bytes constant, unsigned short op);

/// Whether a whole stored value matches a whole stored pattern. `op`: the compare-operator word.
bool MatchesPattern(char type, unsigned char form, Bytes value, Bytes pattern, unsigned short op);

/// The record of the text before the first wildcard or escape of a stored dictionary string (type 20 or 21).
std::vector<unsigned char> DictionaryPrefix(char type, unsigned char form, Bytes pattern);

/// The record of the first characters of a stored string, `most` of them, or of all when it has no more.
std::vector<unsigned char> FirstCharacters(char type, unsigned char form, Bytes stored, unsigned short most);

}  // namespace engine

#endif
