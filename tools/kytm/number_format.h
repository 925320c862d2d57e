#ifndef KYTM_NUMBER_FORMAT_H
#define KYTM_NUMBER_FORMAT_H

/// A print format of numbers taken apart, and with it the question whether a text, from its first to its last
/// character, is what the format describes.

#include <optional>
#include <string>
#include <string_view>

namespace kytm {

/// A whole number as it stands in a text.
struct WholeNumber {
    unsigned long long magnitude = 0;
    bool negative = false;
    bool tooLarge = false;  ///< the magnitude is beyond 64 bits
};

/// Text, one conversion, text. "%%" in a format is a "%" in the text.
struct NumberFormat {
    std::string before;
    std::string after;
    char conversion = 0;        ///< one of d i u S x X o e E f F g G a A c; S is the 64-bit integer class's d
    bool wordsOnly17g = false;  ///< exactly "%.17g": the words are Infinity, -Infinity and NaN

    /// Nothing for a format with another conversion, with none, with two or with "*".
    static std::optional<NumberFormat> Parse(std::string_view format);

    bool IsCharacter() const { return conversion == 'c'; }
    bool IsWhole() const;
    bool IsReal() const;
    /// 8, 10 or 16; 0 when the text's own prefix decides.
    int Base() const;
    bool IsSigned() const { return conversion == 'd' || conversion == 'i' || conversion == 'S'; }

    /// The text between `before` and `after`, without blanks around it unless the conversion is a character. Nothing
    /// when what stands around it is not as the format says.
    std::optional<std::string_view> Inner(std::string_view text) const;
};

std::string_view WithoutBlanksBehind(std::string_view text);

/// The whole text as a number of this base (0: "0x" and "0" prefixes decide); base 16 allows "0x".
std::optional<WholeNumber> ReadWholeNumber(std::string_view text, int base);

/// True when the whole text is a decimal number with optional sign, point and exponent.
bool IsDecimalNumber(std::string_view text);

/// True when the text is a word for infinity or for what is no number, in any case. `strict`: exactly
/// "Infinity", "-Infinity" and "NaN"; otherwise "inf" and signs everywhere, too.
bool IsNumberWord(std::string_view text, bool strict);

}  // namespace kytm

#endif
