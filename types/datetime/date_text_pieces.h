#ifndef DATE_TEXT_PIECES_H
#define DATE_TEXT_PIECES_H

/// The formats of the rows and the member functions, recognised by a glance: one piece for the day, one for the time.
/// They are printed and scanned by straight code while every value and text is as expected, else directive by
/// directive.

#include <cstddef>

namespace ky {

enum class DatePiece : unsigned char {
    none,
    numeric,   ///< "%Y-%m-%d"
    named,     ///< "%a %e.%b %Y"
    yearless,  ///< "%a %b %e"
    days,      ///< "%J"
};

enum class TimePiece : unsigned char {
    none,
    seconds,   ///< "%H:%M:%S"
    fraction,  ///< "%H:%M:%f"
    clock,     ///< "%I:%M:%S %p"
};

/// In one number, which is handed on in a register.
class FormatPieces {
public:
    constexpr FormatPieces() = default;
    constexpr FormatPieces(DatePiece date, TimePiece time, char between)
        : bits(static_cast<unsigned>(date) | static_cast<unsigned>(time) << 8 |
               static_cast<unsigned>(static_cast<unsigned char>(between)) << 16) {}

    friend constexpr bool operator==(FormatPieces a, FormatPieces b) { return a.bits == b.bits; }

    constexpr bool Recognised() const { return bits != 0; }
    constexpr DatePiece Date() const { return static_cast<DatePiece>(bits & 0xFF); }
    constexpr TimePiece Time() const { return static_cast<TimePiece>(bits >> 8 & 0xFF); }
    /// " ", "T" or "." where there are both, else 0.
    constexpr char Between() const { return static_cast<char>(bits >> 16); }

private:
    unsigned bits = 0;
};

// The commonest, which have code of their own.
inline constexpr FormatPieces kNumericDateFormat(DatePiece::numeric, TimePiece::none, 0);
inline constexpr FormatPieces kNamedDateFormat(DatePiece::named, TimePiece::none, 0);
inline constexpr FormatPieces kPlainTimeFormat(DatePiece::none, TimePiece::seconds, 0);

namespace detail {

/// Moves behind a text that `at` begins with.
template <std::size_t size>
inline bool TakeText(const char*& at, const char (&text)[size]) {
#pragma GCC unroll 16
    for (std::size_t i = 0; i + 1 < size; ++i) {
        if (at[i] != text[i]) return false;
    }
    at += size - 1;
    return true;
}

/// `at` begins with "%".
inline DatePiece TakeDatePiece(const char*& at) {
    if (at[1] == 'Y') return TakeText(at, "%Y-%m-%d") ? DatePiece::numeric : DatePiece::none;
    if (at[1] == 'a') {
        if (TakeText(at, "%a %e.%b %Y")) return DatePiece::named;
        return TakeText(at, "%a %b %e") ? DatePiece::yearless : DatePiece::none;
    }
    return TakeText(at, "%J") ? DatePiece::days : DatePiece::none;
}

inline TimePiece TakeTimePiece(const char*& at) {
    if (TakeText(at, "%I:%M:%S %p")) return TimePiece::clock;
    if (!TakeText(at, "%H:%M:%")) return TimePiece::none;
    if (*at != 'S' && *at != 'f') return TimePiece::none;
    return *at++ == 'S' ? TimePiece::seconds : TimePiece::fraction;
}

/// A format that is one directive for another format.
inline FormatPieces ExpansionPieces(char letter) {
    if (letter == 'X') return {DatePiece::numeric, TimePiece::fraction, 'T'};
    if (letter == 'V') return {DatePiece::days, TimePiece::fraction, '.'};
    if (letter == 'O') return {DatePiece::numeric, TimePiece::seconds, 'T'};
    if (letter == 'D') return {DatePiece::numeric, TimePiece::none, 0};
    if (letter == 'T') return {DatePiece::none, TimePiece::seconds, 0};
    return {};
}

}  // namespace detail

/// Nothing for a format that is not recognised.
inline FormatPieces PiecesOf(const char* format) {
    if (format[0] != '%' || format[1] == 0) return {};
    if (format[2] == 0 && format[1] != 'J') return detail::ExpansionPieces(format[1]);

    const char* at = format;
    const DatePiece date = detail::TakeDatePiece(at);
    char between = 0;
    if (date != DatePiece::none) {
        if (*at == 0) return {date, TimePiece::none, 0};
        if (*at != ' ' && *at != 'T' && *at != '.') return {};
        between = *at++;
    }
    const TimePiece time = detail::TakeTimePiece(at);
    if (time == TimePiece::none || *at != 0) return {};
    return {date, time, between};
}

}  // namespace ky

#endif
