#ifndef NUMBER_FORMAT_H
#define NUMBER_FORMAT_H

/// The formats of numbers, taken apart. A caller's format never reaches the C library: it is read here into
/// literal text and conversions, which `number_format_print.h` and `number_format_scan.h` carry out.
///
///   conversion  "%" flags width "." precision modifier letter
///   flags       any of "-", "+", " ", "#", "0", "'" (the last one means nothing: digits are never grouped)
///   width       decimal, at most 2147483647; so is the precision
///   modifier    hh h l ll q L j z t: read and replaced by the width of the value; only a single "h" is
///               remembered, for 16-bit values
///   letter      integers and characters: c d i u o x X; floating-point numbers: a e f g and their capitals
///   "%%"        the character "%"
///
/// Printing and scanning share the grammar, so that one format of a row serves both ways: a scan takes the
/// width as the largest number of characters to read and has no use for flags and precision. Anything else
/// ("*", "%s", "%n", "%p", "%1$d", a lone "%") makes the whole format unfit.

#include <cstddef>
#include <string_view>

#include "ascii.h"

namespace ky {

/// What a conversion letter shows.
enum class NumberClass : unsigned char { Integer, Floating };

struct Conversion {
    bool leftAlign = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zeroPad = false;
    bool half = false;   ///< the modifier is "h"
    int width = 0;       ///< 0: none
    int precision = -1;  ///< -1: none
    char letter = 0;
    NumberClass numberClass = NumberClass::Integer;
};

/// A format: literals[0] conversions[0] literals[1] ... literals[count]. The literals point into the format
/// and still hold "%%" for "%".
struct NumberFormat {
    static constexpr unsigned kMaxConversions = 2;

    unsigned count = 0;
    Conversion conversions[kMaxConversions];
    std::string_view literals[kMaxConversions + 1];

    unsigned CountOf(NumberClass numberClass) const;
};

/// The first "%" in a format that begins a conversion, or the format's end. "%%" is literal text.
const char* FindConversion(const char* format);

/// The piece of a format from `start` to before `limit`.
inline std::string_view Between(const char* start, const char* limit) {
    return {start, static_cast<std::size_t>(limit - start)};
}

/// Takes `format` apart; false when it does not fit the grammar or has more than two conversions.
bool ParseNumberFormat(const char* format, NumberFormat& parts);

/// The same for the format of one value: at most one conversion, and that of this class.
bool ParseNumberFormat(const char* format, NumberClass numberClass, NumberFormat& parts);

}  // namespace ky

#endif
