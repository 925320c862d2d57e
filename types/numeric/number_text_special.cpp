#include "number_text_special.h"

#include <cmath>
#include <cstring>

#include "kytypfmt.h"
#include "number_format_scan.h"

namespace ky {

namespace {

constexpr std::size_t kMarkLength = 8;

bool ParseMantissaFormat(const char* format, NumberFormat& parts) {
    return ParseNumberFormat(format, parts) && parts.CountOf(NumberClass::Integer) <= 1 &&
           parts.CountOf(NumberClass::Floating) <= 1;
}

}  // namespace

bool IsMantissaFormat(const char* format) {
    return format != nullptr && *format != '%' && pSpecialDoubleFmt != nullptr &&
           std::strncmp(format, pSpecialDoubleFmt, kMarkLength) == 0;
}

void PrintMantissa(TextBuffer& out, const char* format, double value) {
    NumberFormat parts;
    if (!ParseMantissaFormat(format, parts)) return;
    int exponent = 0;
    const double mantissa = std::isfinite(value) ? std::frexp(value, &exponent) : value;
    out.AppendLiteral(parts.literals[0]);
    for (unsigned i = 0; i < parts.count; ++i) {
        const Conversion& conversion = parts.conversions[i];
        if (conversion.numberClass == NumberClass::Integer) {
            PrintInteger(out, conversion, OperandOf(exponent, conversion));
        } else {
            PrintFloating(out, conversion, mantissa);
        }
        out.AppendLiteral(parts.literals[i + 1]);
    }
}

bool ScanMantissa(const char* text, const char* format, double& value) {
    NumberFormat parts;
    if (!ParseMantissaFormat(format, parts) || parts.count != 2) return false;
    double mantissa = 0;
    unsigned long long exponent = 0;
    for (unsigned i = 0; i < parts.count; ++i) {
        const Conversion& conversion = parts.conversions[i];
        if (!MatchLiteral(text, parts.literals[i])) return false;
        const bool read = conversion.numberClass == NumberClass::Integer ? ScanInteger(text, conversion, exponent)
                                                                         : ScanFloating(text, conversion, mantissa);
        if (!read) return false;
    }
    value = std::ldexp(mantissa, static_cast<int>(exponent));
    return true;
}

}  // namespace ky
