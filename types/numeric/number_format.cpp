#include "number_format.h"

#include <cstring>
#include <limits>

namespace ky {

namespace {

/// Reads a decimal number; false above the largest int.
bool TakeNumber(const char*& at, int& number) {
    long long value = 0;
    for (; IsDigit(*at); ++at) {
        value = value * 10 + (*at - '0');
        if (value > std::numeric_limits<int>::max()) return false;
    }
    number = static_cast<int>(value);
    return true;
}

void TakeFlags(const char*& at, Conversion& conversion) {
    for (;; ++at) {
        switch (*at) {
            case '-':
                conversion.leftAlign = true;
                break;
            case '+':
                conversion.plus = true;
                break;
            case ' ':
                conversion.blank = true;
                break;
            case '#':
                conversion.alternate = true;
                break;
            case '0':
                conversion.zeroPad = true;
                break;
            case '\'':
                break;
            default:
                return;
        }
    }
}

void TakeModifier(const char*& at, Conversion& conversion) {
    if (*at == 'h' || *at == 'l') {
        const char first = *at++;
        const bool twice = *at == first;
        if (twice) ++at;
        conversion.half = first == 'h' && !twice;
    } else if (*at != 0 && std::strchr("qLjzt", *at) != nullptr) {
        ++at;
    }
}

bool TakeLetter(const char*& at, Conversion& conversion) {
    if (*at == 0) return false;
    if (std::strchr("cdiuoxX", *at) != nullptr) {
        conversion.numberClass = NumberClass::Integer;
    } else if (std::strchr("aefgAEFG", *at) != nullptr) {
        conversion.numberClass = NumberClass::Floating;
    } else {
        return false;
    }
    conversion.letter = *at++;
    return true;
}

/// Reads what follows a "%".
bool TakeConversion(const char*& at, Conversion& conversion) {
    TakeFlags(at, conversion);
    if (!TakeNumber(at, conversion.width)) return false;
    if (*at == '.') {
        ++at;
        if (!TakeNumber(at, conversion.precision)) return false;
    }
    TakeModifier(at, conversion);
    return TakeLetter(at, conversion);
}

}  // namespace

const char* FindConversion(const char* format) {
    for (; *format != 0; ++format) {
        if (*format != '%') continue;
        if (format[1] != '%') break;
        ++format;
    }
    return format;
}

unsigned NumberFormat::CountOf(NumberClass numberClass) const {
    unsigned found = 0;
    for (unsigned i = 0; i < count; ++i) found += conversions[i].numberClass == numberClass ? 1 : 0;
    return found;
}

bool ParseNumberFormat(const char* format, NumberFormat& parts) {
    const char* literal = format;
    const char* at;
    parts.count = 0;
    while (*(at = FindConversion(literal)) != 0) {
        if (parts.count == NumberFormat::kMaxConversions) return false;
        parts.literals[parts.count] = Between(literal, at);
        Conversion& conversion = parts.conversions[parts.count++];
        conversion = {};
        if (!TakeConversion(++at, conversion)) return false;
        literal = at;
    }
    parts.literals[parts.count] = Between(literal, at);
    return true;
}

bool ParseNumberFormat(const char* format, NumberClass numberClass, NumberFormat& parts) {
    return ParseNumberFormat(format, parts) && parts.count <= 1 && parts.CountOf(numberClass) == parts.count;
}

}  // namespace ky
