#ifndef CALENDAR_FORMULAS_H
#define CALENDAR_FORMULAS_H

/// Days of the Gregorian calendar and their numbers, on plain integers: the formulas of Fliegel and Van Flandern for
/// whatever fields there are, and short forms of them where the calendar is followed.
///
/// Day 0 is -4713-11-24. Years are astronomical: 0 is the year before 1.

namespace ky {

/// Fields of a day that are not yet cut to their widths.
struct CalendarFields {
    int year;
    int month;
    int day;
};

/// For any fields of 16 and 8 bits, and month 128. Every division is truncated toward zero.
[[gnu::noinline, gnu::cold]] constexpr int DayNumberOfAnyFields(int year, int month, int day) {
    const int a = (month - 14) / 12;
    return day - 32075 + 1461 * (year + 4800 + a) / 4 + (367 * month - 4404 * a - 734) / 12 -
           (3 * ((year + 4900 + a) / 100)) / 4;
}

/// For any number within 2^33; the year keeps its low 32 bits. Every division is truncated toward zero.
[[gnu::noinline, gnu::cold]] constexpr CalendarFields FieldsOfAnyDayNumber(long long dayNumber) {
    long long l = dayNumber + 68569;
    const long long n = 4 * l / 146097;
    l -= (146097 * n + 3) / 4;
    const long long i = 4000 * (l + 1) / 1461001;
    l += 31 - 1461 * i / 4;
    const long long m = 80 * l / 2447;
    const long long k = m / 11;
    return {static_cast<int>(100 * (n - 49) + i + k), static_cast<int>(m + 2 - 12 * k),
            static_cast<int>(l - 2447 * m / 80)};
}

inline constexpr int kLeastPlainDay = -68569;         ///< -4900-03-01: no division is of a negative number
inline constexpr int kGreatestPlainDay = 13'689'325;  ///< 32767-12-31

/// What a month adds to the year and to the day of a date, and what begins with each of the two sums: years are counted
/// from March of -4800 on.
struct MonthShift {
    int years;
    int days;
};

class MonthShifts {
public:
    constexpr MonthShifts() : shifts() {
        for (int month = -128; month <= 127; ++month) {
            const int years = (month - 14) / 12;
            shifts[month & 0xFF] = {years + 4800, (367 * month - 4404 * years - 734) / 12 - 32075};
        }
    }
    constexpr const MonthShift& Of(signed char month) const { return shifts[static_cast<unsigned char>(month)]; }

private:
    MonthShift shifts[256];
};

inline constexpr MonthShifts kMonthShifts;

/// The number of a day: of any fields of 16 and 8 bits.
constexpr int DayNumber(int year, signed char month, int day) {
    const MonthShift& shift = kMonthShifts.Of(month);
    const int sinceMarch = year + shift.years;
    if (sinceMarch < 0) return DayNumberOfAnyFields(year, month, day);

    const auto y = static_cast<unsigned>(sinceMarch);  // to 37576
    const unsigned century = y / 100;
    return day + (shift.days + static_cast<int>(1461 * y / 4)) - static_cast<int>(century - century / 4);
}

struct MonthAndDay {
    signed char month;
    signed char day;
};

inline constexpr unsigned kDaysBeforeJanuary = 306;  ///< of a year that begins in March

/// The days of a year that begins in March and ends with a leap day.
class DaysFromMarch {
public:
    constexpr DaysFromMarch() : days() {
        signed char month = 3;
        signed char day = 1;
        for (MonthAndDay& entry : days) {
            entry = {month, day};
            const bool shortMonth = month == 4 || month == 6 || month == 9 || month == 11;
            if (++day <= (shortMonth ? 30 : 31)) continue;
            month = static_cast<signed char>(month % 12 + 1);
            day = 1;
        }
    }
    constexpr const MonthAndDay& Of(unsigned day) const { return days[day]; }

private:
    MonthAndDay days[366];
};

inline constexpr DaysFromMarch kDaysFromMarch;

/// The day with a number within 2^33.
constexpr CalendarFields FieldsOfDayNumber(long long dayNumber) {
    constexpr auto range = static_cast<unsigned long long>(kGreatestPlainDay - kLeastPlainDay);
    if (static_cast<unsigned long long>(dayNumber - kLeastPlainDay) > range) return FieldsOfAnyDayNumber(dayNumber);

    // Days since -5200-03-01, where 400 years begin whose leap days are all at the ends of their years.
    const unsigned days = static_cast<unsigned>(dayNumber + 178141);  // 109572 to 13867466
    const unsigned century = (4 * days + 3) / 146097;                 // 3 to 379
    const unsigned julianDays = days + century - century / 4;         // as if every century had its leap day

    // 1461 days are four years. The factor is rounded up: by 1/125 of a quarter of a day at most; one is to spare.
    constexpr unsigned long long yearOfQuarter = (1ULL << 42) / 1461 + 1;
    const auto year = static_cast<unsigned>((4 * julianDays + 3) * yearOfQuarter >> 42);  // 300 to 37967
    const unsigned dayOfYear = julianDays - 1461 * year / 4;
    const MonthAndDay& found = kDaysFromMarch.Of(dayOfYear);
    return {static_cast<int>(year + (dayOfYear >= kDaysBeforeJanuary ? 1 : 0)) - 5200, found.month, found.day};
}

}  // namespace ky

#endif
