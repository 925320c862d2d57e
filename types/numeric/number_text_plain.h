#ifndef NUMBER_TEXT_PLAIN_H
#define NUMBER_TEXT_PLAIN_H

/// The rows' own formats, recognised by a glance, so that the common case is never taken apart. A null format
/// counts as the family's own.

namespace ky {

/// What `PlainFormat::marked` puts before the number.
inline constexpr char kPlainMark = '#';

/// "%d" or "%u" with any of the modifiers "h", "l" and "ll", or one of them behind a "#".
struct PlainFormat {
    bool recognised = false;
    bool marked = false;
    bool isSigned = true;
    bool half = false;  ///< the modifier is "h"
};

inline PlainFormat PlainFormatOf(const char* format) {
    if (format == nullptr) return {.recognised = true};
    PlainFormat plain;
    plain.marked = *format == kPlainMark;
    if (plain.marked) ++format;
    if (*format++ != '%') return {};
    plain.half = *format == 'h';
    if (plain.half) {
        ++format;
    } else if (*format == 'l') {
        ++format;
        if (*format == 'l') ++format;
    }
    plain.isSigned = *format == 'd';
    if (!plain.isSigned && *format != 'u') return {};
    plain.recognised = format[1] == 0;
    return plain;
}

/// "%c".
inline bool IsOwnCharFormat(const char* format) {
    return format == nullptr || (format[0] == '%' && format[1] == 'c' && format[2] == 0);
}

/// "%.17g".
inline bool IsOwnDoubleFormat(const char* format) {
    return format == nullptr || (format[0] == '%' && format[1] == '.' && format[2] == '1' && format[3] == '7' &&
                                 format[4] == 'g' && format[5] == 0);
}

}  // namespace ky

#endif
