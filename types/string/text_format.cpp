#include "text_format.h"

#include <algorithm>
#include <cstring>

#include "ascii.h"
#include "kystring.h"

namespace {

constexpr unsigned kLargest = 65535;

unsigned ReadNumber(const char*& p) {
    unsigned number = 0;
    for (; ky::IsDigit(*p); ++p) number = std::min(number * 10 + static_cast<unsigned>(*p - '0'), kLargest);
    return number;
}

/// Reads "-" and the other flags, width, precision and "s" behind a percent sign.
bool ReadConversion(const char*& p, ky::TextFormat& parts) {
    for (; *p != 0 && std::strchr("-+ #0'", *p) != nullptr; ++p) parts.leftAlign = parts.leftAlign || *p == '-';
    parts.width = ReadNumber(p);
    if (*p == '.') {
        ++p;
        parts.precision = ReadNumber(p);
    }
    return *p++ == 's';
}

}  // namespace

std::optional<ky::TextFormat> ky::ParseTextFormat(const char* format) {
    TextFormat parts;
    for (const char* p = format; *p != 0;) {
        std::string& literal = parts.hasConversion ? parts.after : parts.before;
        if (*p != '%') {
            literal += *p++;
        } else if (p[1] == '%') {
            literal += '%';
            p += 2;
        } else {
            ++p;
            if (parts.hasConversion || !ReadConversion(p, parts)) return std::nullopt;
            parts.hasConversion = true;
        }
    }
    return parts;
}

KyString ky::TextFormat::Print(const KyString& text) const {
    const unsigned shown = std::min<unsigned>(text.Len(), precision);
    const unsigned padding = hasConversion && width > shown ? width - shown : 0;
    KyString blanks(text.CodeSetGet(), text.LanguageGet());
    if (padding != 0) blanks.Fill(static_cast<unsigned short>(padding), ' ');

    KyString out(text.CodeSetGet(), text.LanguageGet());
    out << before.c_str();
    if (!leftAlign) out += blanks;
    if (hasConversion) out += text.Left(static_cast<unsigned short>(shown));
    if (leftAlign) out += blanks;
    out << after.c_str();
    return out;
}
