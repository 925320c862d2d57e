#include "number_format_print.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "number_format_locale.h"

namespace ky {

std::size_t TextBuffer::Reserve(std::size_t n) {
    const std::size_t fitting = std::min(n, kLimit - length);
    if (length + fitting > capacity) {
        const std::size_t larger = std::min(kLimit, std::max(2 * capacity, length + fitting));
        std::unique_ptr<char[]> block(new char[larger + 1]);
        std::memcpy(block.get(), data, length);
        heap = std::move(block);
        data = heap.get();
        capacity = larger;
    }
    return fitting;
}

void TextBuffer::Append(std::string_view text) {
    const std::size_t n = Reserve(text.size());
    std::copy_n(text.data(), n, data + length);
    length += n;
}

void TextBuffer::Fill(char c, std::size_t n) {
    n = Reserve(n);
    std::fill_n(data + length, n, c);
    length += n;
}

void TextBuffer::AppendLiteral(std::string_view literal) {
    for (std::size_t percent; (percent = literal.find('%')) != std::string_view::npos;) {
        Append(literal.substr(0, percent + 1));
        literal.remove_prefix(percent + 2);
    }
    Append(literal);
}

const char* TextBuffer::Text() {
    data[length] = 0;
    return data;
}

namespace {

/// A converted number before it is padded to its width. Zeros are counted, not written: a precision may name
/// any number of them.
struct Field {
    std::string_view prefix;  ///< sign and base mark: zero padding goes behind it
    std::size_t zeros = 0;    ///< before the digits
    std::string_view digits;
    std::size_t moreZeros = 0;  ///< between digits and suffix
    std::string_view suffix;    ///< the exponent
    bool mayZeroPad = true;
};

void Emit(TextBuffer& out, const Conversion& conversion, const Field& field) {
    const std::size_t size =
        field.prefix.size() + field.zeros + field.digits.size() + field.moreZeros + field.suffix.size();
    const auto width = static_cast<std::size_t>(conversion.width);
    const std::size_t padding = width > size ? width - size : 0;
    const bool zeroPad = conversion.zeroPad && field.mayZeroPad && !conversion.leftAlign;

    if (!zeroPad && !conversion.leftAlign) out.Fill(' ', padding);
    out.Append(field.prefix);
    out.Fill('0', field.zeros + (zeroPad ? padding : 0));
    out.Append(field.digits);
    out.Fill('0', field.moreZeros);
    out.Append(field.suffix);
    if (conversion.leftAlign) out.Fill(' ', padding);
}

std::string_view SignOf(bool negative, const Conversion& conversion) {
    if (negative) return "-";
    if (conversion.plus) return "+";
    return conversion.blank ? " " : "";
}

/// Writes the digits of a number in a base in front of `limit` and returns their start; none for 0.
char* WriteDigits(unsigned long long number, unsigned base, bool capitals, char* limit) {
    const char* digits = capitals ? "0123456789ABCDEF" : "0123456789abcdef";
    for (; number != 0; number /= base) *--limit = digits[number % base];
    return limit;
}

/// Largest precision that is handed on: longer than every exact expansion of a double.
constexpr int kLongestExpansion = 1100;

/// Zeros that a larger precision asks for behind those digits.
std::size_t ZerosBeyond(const Conversion& conversion) {
    const bool general = conversion.letter == 'g' || conversion.letter == 'G';
    if (conversion.precision <= kLongestExpansion || (general && !conversion.alternate)) return 0;
    return static_cast<std::size_t>(conversion.precision - kLongestExpansion);
}

/// "%+ #.*<letter>": sign, digits and exponent of a number; width and padding are not part of it.
unsigned WriteFloating(const Conversion& conversion, double value, char* out, std::size_t size) {
    char format[8] = "%";
    char* at = format + 1;
    if (conversion.plus) *at++ = '+';
    if (conversion.blank) *at++ = ' ';
    if (conversion.alternate) *at++ = '#';
    *at++ = '.';
    *at++ = '*';
    *at++ = conversion.letter;
    *at = 0;
    const PlainLocale plain;
    return static_cast<unsigned>(
        std::snprintf(out, size, format, std::min(conversion.precision, kLongestExpansion), value));
}

/// Characters in front of the digits: the sign, and "0x" before hexadecimal ones.
std::size_t PrefixLength(std::string_view text, bool hexadecimal) {
    std::size_t length = text[0] == '-' || text[0] == '+' || text[0] == ' ' ? 1 : 0;
    if (hexadecimal) length += 2;
    return length;
}

}  // namespace

void PrintInteger(TextBuffer& out, const Conversion& conversion, IntegerOperand operand) {
    const char letter = conversion.letter;
    Field field;
    if (letter == 'c') {
        const char c = static_cast<char>(operand.value);
        field.digits = {&c, 1};
        field.mayZeroPad = false;
        Emit(out, conversion, field);
        return;
    }

    const bool isSigned = letter == 'd' || letter == 'i';
    auto magnitude = static_cast<unsigned long long>(operand.value);
    if (isSigned) {
        if (operand.value < 0) magnitude = 0 - magnitude;
        field.prefix = SignOf(operand.value < 0, conversion);
    } else if (operand.bits < 64) {
        magnitude &= (1ULL << operand.bits) - 1;
    }

    const bool hexadecimal = letter == 'x' || letter == 'X';
    const unsigned base = hexadecimal ? 16 : letter == 'o' ? 8 : 10;
    char digits[24];
    char* const limit = digits + sizeof digits;
    char* const start = WriteDigits(magnitude, base, letter == 'X', limit);
    field.digits = {start, static_cast<std::size_t>(limit - start)};
    field.mayZeroPad = conversion.precision < 0;

    const auto wanted = static_cast<std::size_t>(conversion.precision < 0 ? 1 : conversion.precision);
    field.zeros = wanted > field.digits.size() ? wanted - field.digits.size() : 0;
    if (conversion.alternate && base == 8 && field.zeros == 0) field.zeros = 1;
    if (conversion.alternate && hexadecimal && magnitude != 0) field.prefix = letter == 'X' ? "0X" : "0x";
    Emit(out, conversion, field);
}

void PrintFloating(TextBuffer& out, const Conversion& conversion, double value) {
    char written[1536];  // sign, 309 digits, point, `kLongestExpansion` digits, exponent
    std::string_view text(written, WriteFloating(conversion, value, written, sizeof written));

    Field field;
    const bool finite = std::isfinite(value);
    const bool hexadecimal = conversion.letter == 'a' || conversion.letter == 'A';
    const std::size_t prefix = PrefixLength(text, hexadecimal && finite);
    field.prefix = text.substr(0, prefix);
    text.remove_prefix(prefix);
    field.mayZeroPad = finite;
    if (finite) {
        const std::size_t exponent = std::min(text.find_first_of(hexadecimal ? "pP" : "eE"), text.size());
        field.digits = text.substr(0, exponent);
        field.suffix = text.substr(exponent);
        field.moreZeros = ZerosBeyond(conversion);
    } else {
        field.digits = text;
    }
    Emit(out, conversion, field);
}

}  // namespace ky
