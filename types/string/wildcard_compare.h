#ifndef WILDCARD_COMPARE_H
#define WILDCARD_COMPARE_H

/// Comparison with a pattern that may hold wildcards.

namespace ky {

/// What a pattern does at one place of a longer text.
enum class PrefixMatch {
    no,
    yes,
    never  ///< nor at any later place of the same text
};

/// Whether the text at `text` begins with the pattern, that is, matches the pattern followed by any run of
/// characters. Does not depend on which character stands for such a run, nor on one being set.
///
/// A search asks this for one position after the other and ends at the first `yes` or `never`: a pattern whose
/// literal beginning was found but whose rest stands nowhere behind it need not be tried again. Without stopping at
/// `never` the search is still right, but a long text takes quadratic time.
///
/// Code sets, languages and the bits of `op` are those of `KyStrCmp`; neither 0x10 nor 0x100 is set. Texts are
/// zero-terminated, 16-bit ones in machine byte order; neither pointer is null. A text labelled null is read as it is.
PrefixMatch MatchPrefix(unsigned char codeSet, unsigned char language, const char* text, unsigned char patternCodeSet,
                        unsigned char patternLanguage, const char* pattern, unsigned short op);

class ByteReader;
class KeyReader;

/// Order of a text and a pattern: 0 for a match, negative when the text ends while the pattern demands more or
/// when what follows a run is nowhere to be found, else the difference of the first keys that differ. With byte
/// readers "*" and "?" are the wildcards and nothing escapes them.
int CompareWithWildcards(KeyReader& text, KeyReader& pattern);
int CompareWithWildcards(ByteReader& text, ByteReader& pattern);

}  // namespace ky

#endif
