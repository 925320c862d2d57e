#ifndef DATE_TEXT_DIRECTIVES_H
#define DATE_TEXT_DIRECTIVES_H

/// The directives of formats, as the printer and the scanner see them.

#include <array>

#include "date_text.h"

namespace ky {

enum class DirectiveKind : unsigned char {
    character,  ///< "%%", and letters without a meaning
    number,     ///< a part in decimal digits
    shortYear,
    clockHour,
    dayHalf,
    monthName,
    weekdayName,
    seconds,  ///< with the nanoseconds as a fraction
    totalDays,
    expansion,
};

struct Directive {
    DirectiveKind kind = DirectiveKind::character;
    unsigned char digits = 0;            ///< that a number has at least
    int DateTimeParts::*part = nullptr;  ///< where the value is one part; the day for a weekday
    const char* expansion = nullptr;
};

inline constexpr auto kDirectives = [] {
    using enum DirectiveKind;
    using Parts = DateTimeParts;
    std::array<Directive, 128> table{};
    table['Y'] = {number, 4, &Parts::year};
    table['y'] = {shortYear, 2, &Parts::year};
    table['m'] = {number, 2, &Parts::month};
    table['b'] = table['B'] = {monthName, 3, &Parts::month};
    table['d'] = table['e'] = {number, 2, &Parts::day};
    table['a'] = table['A'] = {weekdayName, 0, &Parts::day};
    table['H'] = {number, 2, &Parts::hour};
    table['I'] = {clockHour, 2, &Parts::hour};
    table['p'] = table['P'] = {dayHalf, 0, &Parts::hour};
    table['M'] = {number, 2, &Parts::minute};
    table['S'] = {number, 2, &Parts::second};
    table['N'] = {number, 1, &Parts::nanoseconds};
    table['f'] = {seconds};
    table['J'] = {totalDays};
    table['D'] = {expansion, 0, nullptr, kDateFormat};
    table['T'] = {expansion, 0, nullptr, kTimeFormat};
    table['O'] = {expansion, 0, nullptr, kDateTimeFormat};
    table['X'] = {expansion, 0, nullptr, kDateTimeNFormat};
    table['V'] = {expansion, 0, nullptr, kTimeSpanFormat};
    return table;
}();

/// A directive where it stands in a format.
struct FormatItem {
    char letter;
    bool isOptional;  ///< "%?"
    bool opensGroup;  ///< "%?("

    const Directive& Meaning() const {
        const auto code = static_cast<unsigned char>(letter);
        return kDirectives[code < kDirectives.size() ? code : 0];
    }
};

/// Reads what follows a "%" and moves behind it; false when the format ends first, which makes no directive.
inline bool TakeItem(const char*& format, FormatItem& item) {
    item.isOptional = *format == '?';
    if (item.isOptional) ++format;
    item.opensGroup = item.isOptional && *format == '(';
    if (item.opensGroup) ++format;
    item.letter = *format;
    if (item.letter == 0) return false;
    ++format;
    return true;
}

/// A part that stands for any value, as "*" does in texts.
inline constexpr int kDateWildcard = -1;

inline constexpr int kNoon = 12;

/// What "%I" shows of an hour. `halves`: the format tells before noon from after noon, so that midnight is 12, too.
constexpr int ClockHour(int hour, bool halves, const DatePrintRules& rules) {
    if (!rules.clockHours) return hour;
    // No branches: which half it is cannot be foreseen.
    const int afterNoon = hour > kNoon ? kNoon : 0;
    const int atMidnight = hour == 0 && halves ? kNoon : 0;
    return hour - afterNoon + atMidnight;
}

/// The hour of a text that marks it by these halves of the day.
// KEPT: with both marks the second counts after the first, and a wildcard hour after noon is 11.
constexpr int HourOfHalf(int hour, bool am, bool pm) {
    // No branches on marks that cannot be foreseen.
    const int whole = hour + (int{hour < kNoon} & int{pm}) * kNoon;
    return whole - (int{whole == kNoon} & int{am}) * kNoon;
}

inline constexpr int kDaysInSpanYear = 360;
inline constexpr int kDaysInSpanMonth = 30;

constexpr long long TotalDays(const DateTimeParts& parts) {
    return static_cast<long long>(parts.year) * kDaysInSpanYear +
           static_cast<long long>(parts.month) * kDaysInSpanMonth + parts.day;
}
constexpr void SetTotalDays(DateTimeParts& parts, int days) {
    parts.year = days / kDaysInSpanYear;
    parts.month = days % kDaysInSpanYear / kDaysInSpanMonth;
    parts.day = days % kDaysInSpanMonth;
}

}  // namespace ky

#endif
