#ifndef SCAN_HELPERS_WORD_H
#define SCAN_HELPERS_WORD_H

#include <string>

namespace ky {

/// The piece of `text` that a format for texts reads: literal text around at most one conversion "%s" (the next
/// word), "%c" (characters as they come, one without a width) or "%[...]" (characters of a set), each with
/// a width or without. At most size-1 characters; the empty text where nothing was read or the format is
/// none of these. A null format is "%s".
std::string ScanWord(const char* text, const char* format, int size);

}  // namespace ky

#endif
