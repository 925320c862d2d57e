#include "scan_helpers_word.h"

#include <algorithm>
#include <bitset>
#include <cstdint>

#include "ascii.h"
#include "number_format_scan.h"

namespace ky {

namespace {

constexpr std::size_t kNoWidth = SIZE_MAX;

using CharacterSet = std::bitset<256>;

unsigned char Code(char c) { return static_cast<unsigned char>(c); }

/// A conversion for text, and where the literal text before it ends.
struct WordConversion {
    std::string_view literal;
    char letter = 0;  ///< 's', 'c' or '['
    std::size_t width = kNoWidth;
    CharacterSet set;  ///< the characters that it reads
};

/// Reads the set behind "[": a "]" that stands first belongs to it, "^" turns it round, "a-z" is a range.
bool TakeSet(const char*& at, CharacterSet& set) {
    const bool inverted = *at == '^';
    if (inverted) ++at;
    const char* const first = at;
    for (; *at != 0 && (*at != ']' || at == first); ++at) {
        set.set(Code(*at));
        if (at[1] == '-' && at[2] != 0 && at[2] != ']') {
            for (unsigned c = Code(at[0]); c <= Code(at[2]); ++c) set.set(c);
            at += 2;
        }
    }
    if (*at++ != ']') return false;
    if (inverted) set.flip();
    set.reset(0);
    return true;
}

bool TakeWordConversion(const char*& at, WordConversion& conversion) {
    if (IsDigit(*at)) {
        constexpr std::size_t kFar = 1'000'000'000;
        conversion.width = 0;
        for (; IsDigit(*at); ++at) {
            conversion.width = std::min(kFar, conversion.width * 10 + static_cast<std::size_t>(*at - '0'));
        }
        if (conversion.width == 0) conversion.width = kNoWidth;
    }
    conversion.letter = *at;
    switch (*at++) {
        case 's':
            conversion.set.set();
            for (const char space : {'\0', ' ', '\t', '\n', '\v', '\f', '\r'}) conversion.set.reset(Code(space));
            return true;
        case 'c':
            conversion.set.set();
            conversion.set.reset(0);
            if (conversion.width == kNoWidth) conversion.width = 1;
            return true;
        case '[':
            return TakeSet(at, conversion.set);
        default:
            return false;
    }
}

/// Whether a format has one conversion, for text; it is taken apart then.
bool ParseWordFormat(const char* format, WordConversion& conversion) {
    const char* at = FindConversion(format);
    conversion.literal = Between(format, at);
    return *at != 0 && TakeWordConversion(++at, conversion) && *FindConversion(at) == 0;
}

}  // namespace

std::string ScanWord(const char* text, const char* format, int size) {
    WordConversion conversion;
    if (size < 2 || !ParseWordFormat(format == nullptr ? "%s" : format, conversion)) return {};
    if (!MatchLiteral(text, conversion.literal)) return {};
    if (conversion.letter == 's') {
        while (IsSpace(*text)) ++text;
    }
    const std::size_t most = std::min(conversion.width, static_cast<std::size_t>(size) - 1);
    std::size_t length = 0;
    while (length < most && conversion.set[Code(text[length])]) ++length;
    return {text, length};
}

}  // namespace ky
