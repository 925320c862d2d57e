#include "kyint64.h"

#include <cstdint>
#include <string>

#include "ascii.h"
#include "eight_bit_text.h"
#include "kybase.h"
#include "kystring.h"
#include "number_text.h"

namespace {

/// How one conversion letter writes and reads a number.
struct Conversion {
    unsigned base;  ///< 0: the letter is none
    const char* prefix;
    const char* digits;
};

constexpr Conversion ConversionOf(char letter) {
    switch (letter) {
        case 'S':
        case 'd':
        case 'i':
            return {10, "", "0123456789"};
        case 'o':
            return {8, "0", "01234567"};
        case 'x':
            return {16, "0x", "0123456789abcdef"};
        case 'X':
            return {16, "0X", "0123456789ABCDEF"};
        default:
            return {0, "", ""};
    }
}

/// Takes a format apart: conversions and plain characters, one after the other.
class FormatWalk {
public:
    explicit FormatWalk(const char* format) : at(format) {}

    /// Steps to the next item; false at the end.
    bool Next() {
        const bool behindPlainPercent = conversion.base == 0 && character == '%' && !secondOfPair;
        character = *at;
        if (character == '\0') return false;
        conversion = ConversionOf(character == '%' && !behindPlainPercent ? at[1] : '\0');
        secondOfPair = behindPlainPercent;
        at += conversion.base != 0 ? 2 : 1;
        return true;
    }

    const Conversion& CurrentConversion() const { return conversion; }  ///< base 0: a plain character
    char Character() const { return character; }

private:
    const char* at;
    Conversion conversion{};
    char character = '\0';
    /// The character behind a "%" that begins no conversion is plain, even when it is a "%" itself.
    bool secondOfPair = false;
};

void AppendNumber(std::string& out, const KyInt64& value, const Conversion& conversion) {
    if (conversion.base == 10) {
        char text[ky::kIntegerTextSize];
        out.append(text, ky::SignedText(value.Get8b(), text));
        return;
    }
    char digits[22];  // 64 bits in octal digits
    char* const limit = digits + sizeof digits;
    char* start = limit;
    unsigned long long rest = value.GetU8b();
    do {
        *--start = conversion.digits[rest % conversion.base];
        rest /= conversion.base;
    } while (rest != 0);
    out.append(conversion.prefix).append(start, limit);
}

std::string FormattedText(const KyInt64& value, const char* format) {
    std::string text;
    for (FormatWalk walk(format); walk.Next();) {
        if (walk.CurrentConversion().base != 0) {
            AppendNumber(text, value, walk.CurrentConversion());
        } else {
            text += walk.Character();
        }
    }
    return text;
}

/// Reads a number at `text` and moves `text` behind it.
KyInt64 ReadNumber(const char*& text, const Conversion& conversion) {
    const bool negative = *text == '-';
    if (negative) ++text;
    if (conversion.base == 16 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) text += 2;
    KyInt64 value;
    for (unsigned digit; (digit = ky::DigitValue(*text)) < conversion.base; ++text)
        value = value * conversion.base + digit;
    return negative ? -value : value;
}

/// One decimal conversion and nothing else, as in the row's own format.
bool IsDecimalFormat(const char* format) {
    return format[0] == '%' && (format[1] == 'S' || format[1] == 'd' || format[1] == 'i') && format[2] == '\0';
}

}  // namespace

void KyInt64::DivideByZero() { KYRN_assert("KyInt64 divide by zero", "src/kyint64", 748); }

KyString& KyInt64::PrintToKyString(KyString& out, const char* format) const {
    if (format == nullptr) return out = "";
    if (IsDecimalFormat(format)) {
        char text[ky::kIntegerTextSize];
        const unsigned length = ky::SignedText(Get8b(), text);
        return ky::AssignText(out, text, length);
    }
    return out = FormattedText(*this, format).c_str();
}

void KyInt64::ScanFromKyString(const KyString& text, const char* format) {
    if (format == nullptr) return;
    ky::ReadAsEightBit(text, [this, format](const KyString& narrow) {
        const char* at = narrow.StrGet();
        for (FormatWalk walk(format); walk.Next();) {
            if (walk.CurrentConversion().base != 0) {
                *this = ReadNumber(at, walk.CurrentConversion());
            } else if (*at == walk.Character()) {
                ++at;
            } else {
                return;
            }
        }
    });
}
