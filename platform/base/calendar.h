#ifndef CALENDAR_H
#define CALENDAR_H

namespace ky {

struct CivilDate {
    int year;   ///< astronomical: 0 is the year before 1
    int month;  ///< 1 to 12
    int day;    ///< 1 to 31
};

/// The date of a day number in the Gregorian calendar, extended in both directions. Day 0 is 1970-01-01.
///   days   within 2000000 years of day 0
constexpr CivilDate CivilFromDays(int days) {
    constexpr int daysPerCycle = 146097;         // 400 years
    constexpr int dayZeroFromYearZero = 719468;  // 0000-03-01 to 1970-01-01
    const int sinceYearZero = days + dayZeroFromYearZero;
    const int cycle = (sinceYearZero >= 0 ? sinceYearZero : sinceYearZero - (daysPerCycle - 1)) / daysPerCycle;
    const int dayOfCycle = sinceYearZero - cycle * daysPerCycle;  // 0 to 146096

    // Years are counted from March, so that the leap day is the last of its year.
    const int leapDays = dayOfCycle / 1460 - dayOfCycle / 36524 + dayOfCycle / 146096;
    const int yearOfCycle = (dayOfCycle - leapDays) / 365;                                         // 0 to 399
    const int dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);  // 0 to 365
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;                                          // 0 to 11
    const int day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    return {400 * cycle + yearOfCycle + (month <= 2 ? 1 : 0), month, day};
}

}  // namespace ky

#endif
