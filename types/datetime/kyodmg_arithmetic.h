#ifndef KYODMG_ARITHMETIC_H
#define KYODMG_ARITHMETIC_H

/// The calendar and clock arithmetic of `kyodmg.h`, which includes it.

#include "kyodmg.h"

constexpr d_Interval d_Interval::OfSeconds(double seconds) {
    d_Interval interval;
    interval.length = static_cast<float>(seconds);
    return interval;
}

constexpr d_Interval::d_Interval(int day, int hour, int minute, float second) {
    const double parts[] = {day * 86400.0, hour * 3600.0, minute * 60.0, static_cast<double>(second)};
    double magnitude = 0;
    bool negative = false;
    for (const double part : parts) {
        magnitude += part < 0 ? -part : part;
        negative |= part < 0;
    }
    length = static_cast<float>(negative ? -magnitude : magnitude);
}

constexpr d_Interval operator+(const d_Interval& a, const d_Interval& b) {
    return d_Interval::OfSeconds(static_cast<double>(a.length) + static_cast<double>(b.length));
}
constexpr d_Interval operator-(const d_Interval& a, const d_Interval& b) {
    return d_Interval::OfSeconds(static_cast<double>(a.length) - static_cast<double>(b.length));
}
constexpr d_Interval operator*(const d_Interval& a, int factor) {
    return d_Interval::OfSeconds(static_cast<double>(a.length) * factor);
}
constexpr d_Interval operator/(const d_Interval& a, int divisor) {
    return d_Interval::OfSeconds(static_cast<double>(a.length) / divisor);
}

constexpr d_Date::d_Date(short aYear, unsigned short aMonth, unsigned short aDay)
    : yearNumber(aYear), monthNumber(static_cast<unsigned char>(aMonth)), dayNumber(static_cast<unsigned char>(aDay)) {}

constexpr d_Date::d_Date(short aYear, unsigned short dayOfYear) : d_Date(aYear, 1, 1) { MoveBy(dayOfYear - 1); }

// The factors 365.25, 30.6001 and 36524.25 and the offset 122.1 as fractions: every quotient that is made whole is
// either whole or further from a whole number than a double would round it.

// Without branches, so that loops over it are vectorised; the centuries count only in years that are not negative.
constexpr int d_Date::getAbsDate() const {
    const int early = monthNumber < 3 ? 1 : 0;
    const int m = monthNumber + 1 + 12 * early;
    const int y = yearNumber - early;
    const int julian =
        1461 * y / 4 + static_cast<int>(306001U * static_cast<unsigned>(m) / 10000) + dayNumber + 1720994;
    const auto century = static_cast<int>(static_cast<unsigned>(y) / 100);
    const int gregorian = julian + 2 - century + century / 4;
    return julian < 2299170 ? julian : gregorian;
}

// KEPT: before -4716-03-01 the year is truncated toward zero, but what is left of it is rounded down.
constexpr d_Date& d_Date::setAbsDate(int absDate) {
    constexpr auto floorOf = [](long long a, long long b) { return a / b - (a % b < 0 ? 1 : 0); };
    const long long z = absDate + 1LL;
    const long long alpha = (4 * z - 7468865) / 146097;
    const long long b = (z > 2299160 ? z + 1 + alpha - alpha / 4 : z) + 1524;
    const long long c = (20 * b - 2442) / 7305;
    const long long rest = b - floorOf(1461 * c, 4);
    const long long e = floorOf(10000 * rest, 306001);
    const long long month = e > 13 ? e - 13 : e - 1;
    dayNumber = static_cast<unsigned char>(rest - floorOf(306001 * e, 10000));
    monthNumber = static_cast<unsigned char>(month);
    yearNumber = static_cast<short>(c - (month <= 2 ? 4715 : 4716));
    return *this;
}

constexpr d_Date& d_Date::MoveBy(long long days) {
    constexpr long long largest = 0x7FFFFFFF;
    const long long moved = getAbsDate() + days;
    return setAbsDate(static_cast<int>(moved > largest ? largest : moved < -largest - 1 ? -largest - 1 : moved));
}

constexpr d_Date::Weekday d_Date::day_of_week() const {
    const int remainder = (getAbsDate() + 2) % 7;
    return static_cast<Weekday>(remainder < 0 ? remainder + 7 : remainder);
}

constexpr int d_Date::day_of_year() const { return getAbsDate() - d_Date(yearNumber, 1, 1).getAbsDate() + 1; }

constexpr int d_Date::days_in_month(short aYear, unsigned short aMonth) {
    if (aMonth == 0 || aMonth > 12) return 0;
    if (aMonth != 2) return aMonth == 4 || aMonth == 6 || aMonth == 9 || aMonth == 11 ? 30 : 31;
    if (aYear % 4 != 0) return 28;
    return aYear >= 1600 && aYear % 100 == 0 && aYear % 400 != 0 ? 28 : 29;
}

constexpr d_Date& d_Date::previous(Weekday weekday) {
    const int days = day_of_week() - weekday;
    return MoveBy(days < 1 ? -(days + 7) : -days);
}

constexpr d_Date& d_Date::next(Weekday weekday) {
    const int days = weekday - day_of_week();
    return MoveBy(days < 1 ? days + 7 : days);
}

constexpr d_Date d_Date::operator++(int) {
    const d_Date before = *this;
    MoveBy(1);
    return before;
}

constexpr d_Date d_Date::operator--(int) {
    const d_Date before = *this;
    MoveBy(-1);
    return before;
}

constexpr int d_Time::LocalHundredths() const {
    return ((hour() * 60 + minute()) * 60 + wholeSecond) * 100 + hundredths;
}

constexpr int operator!=(const d_Date& a, const d_Date& b) { return a.getAbsDate() - b.getAbsDate(); }

constexpr int operator!=(const d_Time& a, const d_Time& b) {
    if (a.hour() != b.hour()) return a.hour() - b.hour();
    if (a.minute() != b.minute()) return a.minute() - b.minute();
    return static_cast<int>(a.second() - b.second());
}

constexpr int operator!=(const d_Timestamp& a, const d_Timestamp& b) {
    const int byDate = a.date() != b.date();
    return byDate != 0 ? byDate : a.time() != b.time();
}

#endif
