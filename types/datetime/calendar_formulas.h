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

/// What a month adds to a date: whole years, counted from March, and days.
struct MonthShift {
    signed char years;
    short days;
};

class MonthShifts {
public:
    constexpr MonthShifts() : shifts() {
        for (int month = -128; month <= 127; ++month) {
            const int years = (month - 14) / 12;
            shifts[month & 0xFF] = {static_cast<signed char>(years),
                                    static_cast<short>((367 * month - 4404 * years - 734) / 12)};
        }
    }
    constexpr MonthShift Of(signed char month) const { return shifts[static_cast<unsigned char>(month)]; }

private:
    MonthShift shifts[256];
};

inline constexpr MonthShifts kMonthShifts;

/// The number of a day: of any fields of 16 and 8 bits.
constexpr int DayNumber(int year, signed char month, int day) {
    const MonthShift shift = kMonthShifts.Of(month);
    const int sinceMarch = year + 4800 + shift.years;
    if (sinceMarch < 0) return DayNumberOfAnyFields(year, month, day);

    const auto y = static_cast<unsigned>(sinceMarch);  // to 37576
    const unsigned century = y / 100;
    return static_cast<int>(1461 * y / 4 - century + century / 4) + shift.days + day - 32075;
}

/// The day with a number within 2^33.
constexpr CalendarFields FieldsOfDayNumber(long long dayNumber) {
    constexpr auto range = static_cast<unsigned long long>(kGreatestPlainDay - kLeastPlainDay);
    if (static_cast<unsigned long long>(dayNumber - kLeastPlainDay) > range) return FieldsOfAnyDayNumber(dayNumber);

    // Days since -5200-03-01, where 400 years begin whose leap days are all at the ends of their years.
    const unsigned days = static_cast<unsigned>(dayNumber + 178141);  // 109572 to 13867466
    const unsigned century = (4 * days + 3) / 146097;                 // 3 to 379
    // As if every century had its leap day. Four years are 1461 days; the quarter of a day that is left of a year
    // makes the remainder of a day's first quarter 3, 2, 1 and 0 in turn.
    const unsigned julianQuarters = 4 * (days + century - century / 4) + 3;  // 438303 to 55471011

    // Years as a binary fraction of 42 places. The factor is rounded up: 1/125 of a quarter at most.
    constexpr int places = 42;
    constexpr unsigned long long one = 1ULL << places;
    constexpr unsigned long long yearOfQuarter = one / 1461 + 1;
    const unsigned long long years = julianQuarters * yearOfQuarter;  // below 2^58
    const auto year = static_cast<unsigned>(years >> places);         // 300 to 37967
    const unsigned long long partOfYear = years & (one - 1);

    // 4283 units are a day and 2^17 a month, which is 30.60 days: months that begin so, from March on, begin within the
    // first day of the calendar's. A quarter is 1071 units; those of the remainder are evened out.
    constexpr unsigned long long unitsOfYear = 1461ULL * 4283 / 4;
    const unsigned units =
        static_cast<unsigned>((partOfYear * unitsOfYear) >> places) + 1071 * (year % 4) + 392'200;  // 3 to 15 months
    const unsigned afterDecember = partOfYear > (one / 1461) * 1223 + one / 2922 ? 1 : 0;  // 306 days = 1224 quarters
    return {static_cast<int>(year + afterDecember) - 5200, static_cast<int>((units >> 17) - 12 * afterDecember),
            static_cast<int>((units & 0x1FFFF) / 4283) + 1};
}

}  // namespace ky

#endif
