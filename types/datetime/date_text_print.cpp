#include <cstring>

#include "date_text.h"
#include "date_text_digits.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "date_text_pieces.h"
#include "date_text_print_items.h"
#include "kydatime.h"
#include "kystring.h"
#include "number_text.h"
#include "text_constants.h"

namespace ky {

namespace {

constexpr bool IsBelow(int part, unsigned limit) { return static_cast<unsigned>(part) < limit; }

char* Put(char* at, char c) {
    *at = c;
    return at + 1;
}

char* PutShortName(char* at, const char* name) {
    static_assert(kShortName == 3);
    at[0] = name[0];
    if (name[0] == 0) return at;
    at[1] = name[1];
    if (name[1] == 0) return at + 1;
    at[2] = name[2];
    return name[2] == 0 ? at + 2 : at + 3;
}

char* PutNumericDate(char* at, const DateTimeParts& parts) {
    if (!IsBelow(parts.year, 10000) || !IsBelow(parts.month, 100) || !IsBelow(parts.day, 100)) return nullptr;
    at = Put(PutFour(at, parts.year), '-');
    at = Put(PutTwo(at, parts.month), '-');
    return PutTwo(at, parts.day);
}

bool HasNames(const DateTimeParts& parts) { return IsBelow(parts.month - 1, 12) && IsBelow(parts.day, 100); }

/// `KyDate`'s weekday; by the same congruence without its general case where that gives the calendar's.
int KyDateWeekday(const DateTimeParts& parts) {
    if (parts.year >= 1 && parts.year < 4600 && IsBelow(parts.month - 1, 12) && IsBelow(parts.day, 100)) {
        constexpr unsigned char kDaysBeforeMonth[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};  // from March on, modulo 7
        const auto year = static_cast<unsigned>(parts.year - (parts.month < 3 ? 1 : 0));
        const unsigned century = year / 100;
        const auto day = static_cast<unsigned>(parts.day) + kDaysBeforeMonth[parts.month - 1];
        return static_cast<int>((year + year / 4 - century + century / 4 + day + 6) % 7);
    }
    return KyDate(static_cast<short>(parts.year), static_cast<signed char>(parts.month),
                  static_cast<signed char>(parts.day))
        .GetDayOfTheDate();
}

char* PutWeekday(char* at, const DateTimeParts& parts, const DatePrintRules& rules) {
    // A call less for most types.
    const int weekday = rules.weekday == &KyDateWeekday ? KyDateWeekday(parts) : rules.weekday(parts);
    return Put(PutShortName(at, ky_weekdays[weekday]), ' ');
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

/// Room that the text of any pieces takes, with what is written behind it on the way.
constexpr unsigned kPiecesTextSize = 96;

/// Writes the parts in a recognised format; returns the end of the text, or null when a part is not one that the format
/// shows with its usual number of digits.
char* PutPieces(char* at, FormatPieces format, const DateTimeParts& parts, const DatePrintRules& rules) {
    at = PutDate(at, format.Date(), parts, rules);
    if (at == nullptr) return nullptr;
    if (format.Between() != 0) at = Put(at, format.Between());
    return PutTime(at, format.Time(), parts, rules);
}

}  // namespace

constinit const DatePrintRules kKyDatePrint = {&KyDateWeekday, true};

void PrintDateTime(KyString& out, const DateTimeParts& parts, const char* format, const DatePrintRules& rules) {
    const FormatPieces pieces = PiecesOf(format);
    if (pieces.Recognised()) {
        char text[kPiecesTextSize];
        char* const end = PutPieces(text, pieces, parts, rules);
        if (end != nullptr) {
            *end = 0;
            AssignText(out, text, static_cast<std::size_t>(end - text));
            return;
        }
    }
    PrintItems(out, parts, format, rules);
}

void PrintNullDate(KyString& out) { out = NullPrintString(); }

}  // namespace ky
