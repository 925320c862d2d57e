#include "date_text_pieces.h"

#include <cstddef>

namespace ky {

namespace {

/// Moves behind a text that `at` begins with.
template <std::size_t size>
bool Take(const char*& at, const char (&text)[size]) {
    for (std::size_t i = 0; i + 1 < size; ++i) {
        if (at[i] != text[i]) return false;
    }
    at += size - 1;
    return true;
}

DatePiece TakeDate(const char*& at) {
    switch (at[1]) {
        case 'Y':
            return Take(at, "%Y-%m-%d") ? DatePiece::numeric : DatePiece::none;
        case 'a':
            if (Take(at, "%a %e.%b %Y")) return DatePiece::named;
            return Take(at, "%a %b %e") ? DatePiece::yearless : DatePiece::none;
        case 'J':
            at += 2;
            return DatePiece::days;
        default:
            return DatePiece::none;
    }
}

TimePiece TakeTime(const char*& at) {
    if (Take(at, "%I:%M:%S %p")) return TimePiece::clock;
    if (!Take(at, "%H:%M:%")) return TimePiece::none;
    switch (*at++) {
        case 'S':
            return TimePiece::seconds;
        case 'f':
            return TimePiece::fraction;
        default:
            --at;
            return TimePiece::none;
    }
}

/// A format that is one directive for another format.
FormatPieces Expansion(char letter) {
    switch (letter) {
        case 'D':
            return {.date = DatePiece::numeric};
        case 'T':
            return {.time = TimePiece::seconds};
        case 'O':
            return {DatePiece::numeric, TimePiece::seconds, 'T'};
        case 'X':
            return {DatePiece::numeric, TimePiece::fraction, 'T'};
        case 'V':
            return {DatePiece::days, TimePiece::fraction, '.'};
        default:
            return {};
    }
}

}  // namespace

FormatPieces PiecesOf(const char* format) {
    if (format[0] != '%' || format[1] == 0) return {};
    if (format[2] == 0 && format[1] != 'J') return Expansion(format[1]);

    FormatPieces pieces;
    const char* at = format;
    pieces.date = TakeDate(at);
    if (pieces.date != DatePiece::none) {
        if (*at == 0) return pieces;
        if (*at != ' ' && *at != 'T' && *at != '.') return {};
        pieces.between = *at++;
    }
    pieces.time = TakeTime(at);
    if (pieces.time == TimePiece::none || *at != 0) return {};
    return pieces;
}

}  // namespace ky
