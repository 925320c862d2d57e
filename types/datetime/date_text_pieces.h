#ifndef DATE_TEXT_PIECES_H
#define DATE_TEXT_PIECES_H

/// The formats of the rows and the member functions, recognised by a glance: one piece for the day, one for the time.
/// They are printed and scanned by straight code while every value and text is as expected, else directive by
/// directive.

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

struct FormatPieces {
    DatePiece date = DatePiece::none;
    TimePiece time = TimePiece::none;
    char between = 0;  ///< " ", "T" or "." where there are both

    bool Recognised() const { return date != DatePiece::none || time != TimePiece::none; }
};

FormatPieces PiecesOf(const char* format);

}  // namespace ky

#endif
