#include "date_text_scan_pieces.h"

#include "ascii.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "date_text_scan_values.h"
#include "kydatime.h"

namespace ky {

namespace {

int DigitAt(const char* at) { return *at - '0'; }

/// Exactly two digits, which no other follows.
bool TakeTwo(const char*& at, int& value) {
    if (!IsDigit(at[0]) || !IsDigit(at[1]) || IsDigit(at[2])) return false;
    value = DigitAt(at) * 10 + DigitAt(at + 1);
    at += 2;
    return true;
}

bool TakeFour(const char*& at, int& value) {
    if (!IsDigit(at[0]) || !IsDigit(at[1])) return false;
    const int century = DigitAt(at) * 10 + DigitAt(at + 1);
    at += 2;
    if (!TakeTwo(at, value)) return false;
    value += century * 100;
    return true;
}

bool Take(const char*& at, char c) {
    if (*at != c) return false;
    ++at;
    return true;
}

bool TakeSpace(const char*& at) {
    while (IsSpace(*at)) ++at;
    return true;
}

/// False where the mark of a wildcard stands. `index` is -1 where no name does.
bool TakeAnyName(const char*& at, const char* const* names, int count, int& index) {
    TakeSpace(at);
    if (*at == '*') return false;
    index = TakeName(at, names, count);
    return true;
}

bool TakeWeekday(const char*& at) {
    int unused;
    return TakeAnyName(at, ky_weekdays, 7, unused);
}

/// By its name.
bool TakeMonth(const char*& at, int& month) {
    int index;
    if (!TakeAnyName(at, ky_months, 12, index) || index < 0) return false;
    month = index + 1;
    return true;
}

bool TakeDays(const char*& at, DateTimeParts& parts) {
    int days;
    if (!IsDigit(*at) || !TakeInteger(at, days)) return false;
    SetTotalDays(parts, days);
    return true;
}

bool TakeDate(const char*& at, DatePiece piece, DateTimeParts& parts) {
    switch (piece) {
        case DatePiece::numeric:
            return TakeFour(at, parts.year) && Take(at, '-') && TakeTwo(at, parts.month) && Take(at, '-') &&
                   TakeTwo(at, parts.day);
        case DatePiece::named:
            return TakeWeekday(at) && TakeSpace(at) && TakeTwo(at, parts.day) && Take(at, '.') &&
                   TakeMonth(at, parts.month) && TakeSpace(at) && TakeFour(at, parts.year);
        case DatePiece::yearless:
            return TakeWeekday(at) && TakeSpace(at) && TakeMonth(at, parts.month) && TakeSpace(at) &&
                   TakeTwo(at, parts.day);
        case DatePiece::days:
            return TakeDays(at, parts);
        case DatePiece::none:
            break;
    }
    return true;
}

bool TakeDayHalf(const char* at, int& hour) {
    switch (*at) {
        case 'p':
        case 'P':
            hour = HourOfHalf(hour, false, true);
            return true;
        case 'a':
        case 'A':
            hour = HourOfHalf(hour, true, false);
            return true;
        default:
            return false;
    }
}

bool TakeTime(const char* at, const char* limit, TimePiece piece, DateTimeParts& parts) {
    if (piece == TimePiece::none) return true;
    if (!TakeTwo(at, parts.hour) || !Take(at, ':') || !TakeTwo(at, parts.minute) || !Take(at, ':')) return false;
    if (piece == TimePiece::fraction) {
        if (!IsDigit(*at)) return false;
        TakeSeconds(at, limit, parts.second, parts.nanoseconds);
        return true;
    }
    if (!TakeTwo(at, parts.second)) return false;
    return piece == TimePiece::seconds || (TakeSpace(at) && TakeDayHalf(at, parts.hour));
}

bool TakeBetween(const char*& at, char between) {
    if (between == 0) return true;
    return IsSpace(between) ? TakeSpace(at) : Take(at, between);
}

}  // namespace

bool ScanPieces(const char* text, const char* limit, const FormatPieces& format, DateTimeParts& parts) {
    const char* at = text;
    return TakeDate(at, format.date, parts) && TakeBetween(at, format.between) &&
           TakeTime(at, limit, format.time, parts);
}

}  // namespace ky
