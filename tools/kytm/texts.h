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

/// In double quotes, with control characters, quotes and backslashes escaped; bytes from 0x80 on as they are.
/// A text of more than `limit` bytes is cut there and ends with "...".
std::string Quoted(std::string_view text, std::size_t limit = 60);

/// UTF-8 for JSON: the text itself when it is UTF-8, else each byte as the Latin-1 character that it stands for.
std::string Utf8(std::string_view text);

/// Blanks behind the text up to `width` bytes.
std::string Padded(std::string_view text, std::size_t width);

}  // namespace kytm

#endif
