#ifndef WILDCARD_BYTES_H
#define WILDCARD_BYTES_H

/// Texts and patterns of bytes for the matcher: "*" any run, "?" any one.

#include <cstring>

#include "wildcard_match.h"

namespace ky {

inline constexpr std::size_t kNoLimit = ~std::size_t{0};

/// The first `limit` bytes, up to a zero; a null text is empty. Bytes are their own units.
class ByteText {
public:
    ByteText(const char* text, std::size_t limit) : at(text), left(text != nullptr ? limit : 0) {}

    unsigned char Next() {
        if (left == 0 || *at == 0) return 0;
        --left;
        return static_cast<unsigned char>(*at++);
    }
    std::span<const unsigned char> Rest() const {
        if (left == 0) return {};
        return {reinterpret_cast<const unsigned char*>(at), left > kNoLimit / 2 ? std::strlen(at) : strnlen(at, left)};
    }

private:
    const char* at;
    std::size_t left;
};

struct OwnUnit {
    unsigned char operator()(unsigned char c) const { return c; }
};

/// The first `limit` bytes, up to a zero; a null pattern is empty. `kEscapes`: a backslash makes the next byte a
/// literal (r, t and n: carriage return, tab, line feed); at the end it breaks the pattern. `Units` makes literals
/// units.
template <bool kEscapes, class Units = OwnUnit>
class BytePattern {
public:
    BytePattern(const char* pattern, std::size_t limit, Units unitOf = {})
        : at(pattern), left(pattern != nullptr ? limit : 0), units(unitOf) {}

    template <class Unit>
    Token Next(Unit& unit) {
        unsigned char c = NextByte();
        switch (c) {
            case 0:
                return Token::end;
            case '*':
                return Token::anyRun;
            case '?':
                unit = c;
                return Token::anyOne;
            case '\\':
                if constexpr (kEscapes) {
                    c = Escaped(NextByte());
                    if (c == 0) return Token::broken;
                }
                break;
            default:
                break;
        }
        unit = units(c);
        return Token::literal;
    }

private:
    unsigned char NextByte() {
        if (left == 0 || *at == 0) return 0;
        --left;
        return static_cast<unsigned char>(*at++);
    }
    static unsigned char Escaped(unsigned char c) { return c == 'r' ? '\r' : c == 't' ? '\t' : c == 'n' ? '\n' : c; }

    const char* at;
    std::size_t left;
    [[no_unique_address]] Units units;
};

}  // namespace ky

#endif
