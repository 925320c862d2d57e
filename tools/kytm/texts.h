#ifndef KYTM_TEXTS_H
#define KYTM_TEXTS_H

/// How bytes and texts of any content are shown.

#include <span>
#include <string>
#include <string_view>

namespace kytm {

/// "01 AF 00": two upper-case digits a byte, parted by blanks.
std::string HexBytes(std::span<const unsigned char> bytes);

/// Eight upper-case hexadecimal digits.
std::string HexWord(unsigned word);

/// The letter in lower case when it is one of ASCII, else the byte itself.
char AsciiLower(char c);

/// The same name, the case of ASCII letters and what parts its words ("-", "_", ".", ":", blanks) aside.
bool SameName(std::string_view a, std::string_view b);

/// Bytes of the well-formed UTF-8 sequence at the start of a text that is not empty; 0 when there is none.
std::size_t Utf8Length(std::string_view text);

/// The whole text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// The code of one well-formed UTF-8 sequence.
char32_t Utf8Code(std::string_view sequence);

/// In double quotes, with quotes, backslashes, control characters and bytes that are no UTF-8 escaped. A text of
/// more than `limit` bytes is cut there, but within no character, and ends with "...".
std::string Quoted(std::string_view text, std::size_t limit = 60);

/// UTF-8 for JSON: the text itself when it is UTF-8, else each byte as the Latin-1 character that it stands for.
std::string Utf8(std::string_view text);

/// The text on one line: control characters, and bytes that are no UTF-8, are escaped ("\\x0A"); a tab is a blank.
std::string OneLine(std::string_view text);

/// Columns of a terminal that a text of one line takes, when each of its characters takes one.
std::size_t DisplayWidth(std::string_view text);

/// Blanks behind the text up to `width` columns.
std::string Padded(std::string_view text, std::size_t width);

}  // namespace kytm

#endif
