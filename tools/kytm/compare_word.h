#ifndef KYTM_COMPARE_WORD_H
#define KYTM_COMPARE_WORD_H

/// The compare-operator word as people write it.

#include <string_view>

namespace kytm {

/// No wildcards, letters then case then accents.
inline constexpr unsigned short kDefaultCompareWord = 0x0110;

/// The names that `ParseCompareWord` knows, for help texts.
inline constexpr std::string_view kCompareWordNames =
    "exact (0x10), ignore-case (0x20), ignore-accent (0x40), prefix (0x80), string-exact (0x100)";

/// A number (decimal, or hexadecimal after "0x"), or names joined by "," or "+", in any mix. Throws `Failure`
/// for anything else.
unsigned short ParseCompareWord(std::string_view text);

}  // namespace kytm

#endif
