#ifndef WILDCARD_BYTES_H
#define WILDCARD_BYTES_H

/// Texts and patterns of bytes for the matcher: "*" any run, "?" any one.

#include <cstring>

#include "pattern_bytes.h"
#include "translate_bytes.h"
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
    static constexpr bool IsUnclear(unsigned char) { return false; }
    bool Rest(std::span<const unsigned char>& units) const {
        if (left == 0) return true;
        const std::size_t length = left > kNoLimit / 2 ? std::strlen(at) : strnlen(at, left);
        units = {reinterpret_cast<const unsigned char*>(at), length};
        return true;
    }

private:
    const char* at;
    std::size_t left;
};

/// A zero-terminated text whose bytes a map turns into units; null: empty.
class MappedText {
public:
    MappedText(const char* text, const ByteMap& unitOf) : at(text != nullptr ? text : ""), map(unitOf) {}

    unsigned char Next() {
        const unsigned char unit = map(*at);
        if (unit != 0) ++at;
        return unit;
    }
    bool IsUnclear(unsigned char unit) const { return unit == map.unclear && unit != 0; }
    bool Rest(std::span<const unsigned char>& units) {
        const std::size_t length = std::strlen(at);
        const bool unclear = TranslateBytes(rest.Reserve((length + 63) / 64 * 64), at, length, map);
        rest.Take(length);
        units = rest.Items();
        return !unclear;
    }

private:
    const char* at;
    const ByteMap& map;
    SmallBuffer<unsigned char, 512> rest;
};

/// The first `limit` bytes, up to a zero; a null pattern is empty. `kEscapes`: a backslash makes the next byte a
/// literal (r, t and n: carriage return, tab, line feed); at the end it breaks the pattern. A map of 256 turns literals
/// into units; null: they are their own.
template <bool kEscapes>
class BytePattern {
public:
    static constexpr unsigned char kAnyInPlace = '?';

    BytePattern(const char* pattern, std::size_t limit, const ByteMap* unitOf = nullptr)
        : at(pattern), left(pattern != nullptr ? limit : 0), map(unitOf) {}

    Token Next(unsigned char& unit) {
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
        unit = map != nullptr ? map->of[c] : c;
        return Token::literal;
    }

    Token SegmentInPlace(std::span<const unsigned char>& units) {
        if (map != nullptr || left < kNoLimit / 2) return Token::unclear;
        if (*at == 0) {
            units = {};
            return Token::end;
        }
        const char* const end = ends.NextFrom(at);
        if (*end == '\\') return Token::unclear;
        units = {reinterpret_cast<const unsigned char*>(at), static_cast<std::size_t>(end - at)};
        at = end;
        if (*end == 0) return Token::end;
        ++at;
        return *at == 0 ? Token::openEnd : Token::anyRun;
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
    const ByteMap* map;
    SegmentEnds ends;
};

}  // namespace ky

#endif
