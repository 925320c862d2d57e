#include "number_format_scan.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include "number_format_locale.h"

namespace ky {

namespace {

void SkipSpace(const char*& text) {
    while (IsSpace(*text)) ++text;
}

/// Digits gathered into a 64-bit number that knows when it overflowed.
class Magnitude {
public:
    void Add(unsigned digit, unsigned base) {
        overflow = overflow || __builtin_mul_overflow(number, static_cast<unsigned long long>(base), &number) ||
                   __builtin_add_overflow(number, static_cast<unsigned long long>(digit), &number);
    }

    /// The number with its sign, at the nearest limit of its signedness where it is too large for 64 bits.
    unsigned long long Value(bool negative, bool isSigned) const {
        if (isSigned) {
            constexpr auto kMax = static_cast<unsigned long long>(std::numeric_limits<long long>::max());
            const unsigned long long limit = kMax + (negative ? 1 : 0);
            const unsigned long long clamped = overflow ? limit : std::min(number, limit);
            return negative ? 0 - clamped : clamped;
        }
        if (overflow) return std::numeric_limits<unsigned long long>::max();
        return negative ? 0 - number : number;
    }

private:
    unsigned long long number = 0;
    bool overflow = false;
};

/// The base that a letter names; 0: the text names it.
unsigned BaseOf(char letter) {
    switch (letter) {
        case 'i':
            return 0;
        case 'o':
            return 8;
        case 'x':
        case 'X':
            return 16;
        default:
            return 10;
    }
}

/// One character of the text, of which a conversion may read `left`; 0 at the end of either.
struct Limited {
    const char*& text;
    int left;

    char Peek() const { return left == 0 ? '\0' : *text; }
    void Step() {
        ++text;
        --left;
    }
};

constexpr int kNoLimit = std::numeric_limits<int>::max();

int LimitOf(const Conversion& conversion) { return conversion.width == 0 ? kNoLimit : conversion.width; }

template <class Floating>
bool ScanFloatingAs(const char*& text, const Conversion& conversion, const char* modifier, Floating& value) {
    char format[24];
    // No string is as long as this limit, and the C library takes no larger width than an int.
    const int width = std::min(LimitOf(conversion), 1'000'000);
    (void)std::snprintf(format, sizeof format, "%%%d%sg%%n", width, modifier);
    int length = 0;
    Floating read = 0;
    const PlainLocale plain;
    if (std::sscanf(text, format, &read, &length) != 1) return false;
    value = read;
    text += length;
    return true;
}

}  // namespace

bool MatchLiteral(const char*& text, std::string_view literal) {
    for (std::size_t i = 0; i < literal.size(); ++i) {
        if (IsSpace(literal[i])) {
            SkipSpace(text);
            continue;
        }
        if (literal[i] == '%') {
            SkipSpace(text);
            ++i;
        }
        if (*text != literal[i]) return false;
        ++text;
    }
    return true;
}

bool ScanLongDecimal(const char*& text, bool isSigned, unsigned long long& bits) {
    return ScanInteger(text, {.letter = isSigned ? 'd' : 'u'}, bits);
}

bool ScanInteger(const char*& text, const Conversion& conversion, unsigned long long& bits) {
    if (conversion.letter == 'c') {
        if (*text == 0) return false;
        bits = static_cast<unsigned char>(*text++);
        return true;
    }
    SkipSpace(text);
    Limited source{text, LimitOf(conversion)};
    const bool negative = source.Peek() == '-';
    if (negative || source.Peek() == '+') source.Step();

    unsigned base = BaseOf(conversion.letter);
    bool any = false;
    if (source.Peek() == '0') {
        any = true;
        source.Step();
        // A base mark with no digit behind it is still read, as the number 0.
        if ((source.Peek() == 'x' || source.Peek() == 'X') && (base == 0 || base == 16)) {
            base = 16;
            source.Step();
        } else if (base == 0) {
            base = 8;
        }
    }
    if (base == 0) base = 10;

    Magnitude magnitude;
    for (unsigned digit; (digit = DigitValue(source.Peek())) < base; source.Step()) {
        any = true;
        magnitude.Add(digit, base);
    }
    if (!any) return false;
    const bool isSigned = conversion.letter == 'd' || conversion.letter == 'i';
    bits = magnitude.Value(negative, isSigned);
    return true;
}

bool ScanFloating(const char*& text, const Conversion& conversion, float& value) {
    return ScanFloatingAs(text, conversion, "", value);
}

bool ScanFloating(const char*& text, const Conversion& conversion, double& value) {
    return ScanFloatingAs(text, conversion, "l", value);
}

}  // namespace ky
