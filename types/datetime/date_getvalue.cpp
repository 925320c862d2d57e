#include "date_getvalue.h"

#include <limits>

namespace ky {
namespace {

constexpr int kNanosecondsPerSecond = 1000000000;

constexpr bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

constexpr int DaysOfMonth(int year, int month) {
    constexpr signed char days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days[month - 1] + static_cast<int>(month == 2 && IsLeapYear(year));
}

/// By the calendar of all years, the year -1 excluded, which is a wildcard.
constexpr bool CanStep(const KyDate& date) {
    return date.year != kWildcardField && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= DaysOfMonth(date.year, date.month);
}

/// The field one more, or `first` at `last`; tells whether it has begun anew.
template <class Field>
bool Advances(Field& field, int first, int last) {
    const bool anew = field == last;
    field = static_cast<Field>(anew ? first : field + 1);
    return anew;
}

bool BeginsDay(KyTime& time) {
    return Advances(time.second, 0, 59) && Advances(time.minute, 0, 59) && Advances(time.hour, 0, 23);
}

/// The length in nanoseconds.
__extension__ using Nanoseconds = __int128;
Nanoseconds LengthOf(const KyTimeSpan& span) {
    return Nanoseconds{span.GetTotalSeconds()} * kNanosecondsPerSecond + span.nanoseconds;
}

}  // namespace

bool StepDate(KyDate& date) {
    if (!CanStep(date)) return false;
    KyDate next = date;
    if (Advances(next.day, 1, DaysOfMonth(next.year, next.month)) && Advances(next.month, 1, 12)) {
        if (next.year == std::numeric_limits<short>::max()) return false;
        ++next.year;
    }
    date = next;
    return true;
}

bool StepDate(KyTime& time) {
    KyTime next = time;
    if (!time.IsTime() || BeginsDay(next)) return false;
    time = next;
    return true;
}

bool StepDate(KyDateTime& value) {
    KyDate date = value.Date();
    KyTime time = value.Time();
    if (!CanStep(date) || !time.IsTime()) return false;
    if (BeginsDay(time) && !StepDate(date)) return false;
    value = KyDateTime(date, time);
    return true;
}

bool StepDate(KyDateTimeN& value) {
    KyDateTime whole = value.DateTime();
    int nanoseconds = value.nanoseconds;
    if (!CanStep(whole.Date()) || !whole.Time().IsTime()) return false;
    if (nanoseconds < 0 || nanoseconds >= kNanosecondsPerSecond) return false;
    if (Advances(nanoseconds, 0, kNanosecondsPerSecond - 1) && !StepDate(whole)) return false;
    value = KyDateTimeN(whole);
    value.nanoseconds = nanoseconds;
    return true;
}

bool StepDate(KyTimeSpan& span) {
    KyTimeSpan next = span;
    next.AddNanoSeconds(1);
    if (LengthOf(next) <= LengthOf(span)) return false;
    span = next;
    return true;
}

}  // namespace ky
