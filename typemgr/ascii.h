#ifndef ASCII_H
#define ASCII_H

/// Kinds of ASCII characters, the same under every locale. No other character is of any of them.

namespace ky {

/// White space of the "C" locale.
constexpr bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The value of a digit in bases up to 16; 255, which no base reaches, for any other character.
constexpr unsigned DigitValue(char c) {
    if (IsDigit(c)) return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
    return 255;
}

}  // namespace ky

#endif
