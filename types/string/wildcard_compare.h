#ifndef WILDCARD_COMPARE_H
#define WILDCARD_COMPARE_H

/// Comparison with a pattern that may hold wildcards.

#include "key_reader.h"
#include "small_buffer.h"

namespace ky {

/// What a pattern does at one place of a longer text.
enum class PrefixMatch {
    no,
    yes,
    never,   ///< nor at any later place of the same text
    unclear  ///< not here; but a later place may stand inside characters that were read as one
};

/// Whether a text begins with the pattern, that is, matches the pattern followed by any run of characters. Does not
/// depend on which character stands for such a run, nor on one being set.
///
/// A search asks this for one position after the other and ends at the first `yes` or `never`: a pattern whose
/// literal beginning was found but whose rest stands nowhere behind it need not be tried again. At `unclear`
/// `FindPrefix` takes over. A search that goes on instead is still right, but a long text takes quadratic time.
///
/// The bits of `op` are those of `KyStrCmp`; neither 0x10 nor 0x100 is set. A text labelled null is read as it is.
PrefixMatch MatchPrefix(TextView text, TextView pattern, unsigned short op);

/// Keys, or the bytes themselves, that a text has to begin with to match a pattern; 0 for any one.
using PatternKeys = SmallBuffer<unsigned, 64>;
void ReadUpToRun(const TextView& pattern, unsigned mask, PatternKeys& keys);
void ReadBytesUpToRun(const char* pattern, PatternKeys& keys);

/// Order of a text and a pattern, by their keys under `mask`: 0 for a match, -1 when what follows a run is nowhere to
/// be found, else the difference of the first keys that do not match (0 at the end of either). Both count as ended
/// behind `limit` orders, to which wildcards for any run and escapes do not count. An escape at the pattern's end
/// stands for itself.
int CompareWithWildcards(const TextView& text, const TextView& pattern, unsigned limit, unsigned mask);

/// The same of plain bytes, null texts being empty: "*" and "?" are the wildcards, nothing escapes them. -1 also when
/// the text ends first. Both count as ended behind `limit` bytes.
int CompareBytesWithWildcards(const char* text, const char* pattern, unsigned limit);

}  // namespace ky

#endif
