#include "date_text_print_pieces.h"

#include "date_text_digits.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "kydatime.h"
#include "number_text.h"

namespace ky {

namespace {

constexpr bool IsBelow(int part, unsigned limit) { return static_cast<unsigned>(part) < limit; }

char* Put(char* at, char c) {
    *at = c;
    return at + 1;
}

char* PutShortName(char* at, const char* name) {
    const char* const end = ShortNameEnd(name);
    while (name != end) *at++ = *name++;
    return at;
}

char* PutNumericDate(char* at, const DateTimeParts& parts) {
    if (!IsBelow(parts.year, 10000) || !IsBelow(parts.month, 100) || !IsBelow(parts.day, 100)) return nullptr;
    at = Put(PutFour(at, parts.year), '-');
    at = Put(PutTwo(at, parts.month), '-');
    return PutTwo(at, parts.day);
}

bool HasNames(const DateTimeParts& parts) { return IsBelow(parts.month - 1, 12) && IsBelow(parts.day, 100); }

char* PutWeekday(char* at, const DateTimeParts& parts, const DatePrintRules& rules) {
    return Put(PutShortName(at, ky_weekdays[rules.weekday(parts)]), ' ');
}

char* PutNamedDate(char* at, const DateTimeParts& parts, const DatePrintRules& rules) {
    if (!HasNames(parts) || !IsBelow(parts.year, 10000)) return nullptr;
    at = Put(PutTwo(PutWeekday(at, parts, rules), parts.day), '.');
    at = Put(PutShortName(at, ky_months[parts.month - 1]), ' ');
    return PutFour(at, parts.year);
}

char* PutYearlessDate(char* at, const DateTimeParts& parts, const DatePrintRules& rules) {
    if (!HasNames(parts)) return nullptr;
    at = Put(PutShortName(PutWeekday(at, parts, rules), ky_months[parts.month - 1]), ' ');
    return PutTwo(at, parts.day);
}

char* PutDays(char* at, const DateTimeParts& parts) {
    if (parts.year < 0 || parts.month < 0 || parts.day < 0) return nullptr;
    return at + UnsignedText(static_cast<unsigned long long>(TotalDays(parts)), at);
}

char* PutDate(char* at, DatePiece piece, const DateTimeParts& parts, const DatePrintRules& rules) {
    switch (piece) {
        case DatePiece::numeric:
            return PutNumericDate(at, parts);
        case DatePiece::named:
            return PutNamedDate(at, parts, rules);
        case DatePiece::yearless:
            return PutYearlessDate(at, parts, rules);
        case DatePiece::days:
            return PutDays(at, parts);
        case DatePiece::none:
            break;
    }
    return at;
}

char* PutTime(char* at, TimePiece piece, const DateTimeParts& parts, const DatePrintRules& rules) {
    if (piece == TimePiece::none) return at;
    if (!IsBelow(parts.hour, 100) || !IsBelow(parts.minute, 100) || !IsBelow(parts.second, 100)) return nullptr;
    const bool isClock = piece == TimePiece::clock;
    at = Put(PutTwo(at, isClock ? ClockHour(parts.hour, true, rules) : parts.hour), ':');
    at = Put(PutTwo(at, parts.minute), ':');
    at = PutTwo(at, parts.second);
    if (isClock) return Put(Put(Put(at, ' '), parts.hour < kNoon ? 'a' : 'p'), 'm');
    if (piece == TimePiece::seconds || parts.nanoseconds == 0) return at;
    if (!IsBelow(parts.nanoseconds, 1'000'000'000)) return nullptr;
    return PutFraction(Put(at, '.'), static_cast<unsigned>(parts.nanoseconds), FractionDigits(parts.nanoseconds));
}

}  // namespace

char* PrintPieces(char* out, const FormatPieces& format, const DateTimeParts& parts, const DatePrintRules& rules) {
    char* at = PutDate(out, format.date, parts, rules);
    if (at == nullptr) return nullptr;
    if (format.between != 0) at = Put(at, format.between);
    return PutTime(at, format.time, parts, rules);
}

}  // namespace ky
