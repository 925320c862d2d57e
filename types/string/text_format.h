#ifndef TEXT_FORMAT_H
#define TEXT_FORMAT_H

#include <optional>
#include <string>

class KyString;

namespace ky {

/// A format for texts, taken apart: literal, at most one "%s" and literal. A caller's format never reaches the C
/// library.
struct TextFormat {
    std::string before;
    std::string after;
    bool hasConversion = false;
    bool leftAlign = false;
    unsigned width = 0;          ///< in characters; 0: none
    unsigned precision = 65535;  ///< characters of the text that are printed at most

    /// The text in this format, with the text's code set and language.
    KyString Print(const KyString& text) const;
};

/// Nothing for a format with another conversion or more than one. "%%" stands for "%". The flags of numbers are
/// accepted and mean nothing; "*" and length modifiers are not.
std::optional<TextFormat> ParseTextFormat(const char* format);

}  // namespace ky

#endif
