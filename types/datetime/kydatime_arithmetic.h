#ifndef KYDATIME_ARITHMETIC_H
#define KYDATIME_ARITHMETIC_H

/// The calendar and clock arithmetic of `kydatime.h`, which includes it.

#include "kydatime.h"

constexpr int KyDate::divide(int a, int b) const { return static_cast<int>(static_cast<long long>(a) / b); }

constexpr int KyDate::modulo(int a, int b) const {
    const long long dividend = a < 0 ? -static_cast<long long>(a) : a;
    const long long divisor = b < 0 ? -static_cast<long long>(b) : b;
    const long long remainder = dividend % divisor;
    return static_cast<int>((a < 0) != (b < 0) ? -remainder : remainder);
}

constexpr int KyDate::dayabs() const {
    const int a = (month - 14) / 12;
    return day - 32075 + 1461 * (year + 4800 + a) / 4 + (367 * month - 4404 * a - 734) / 12 -
           (3 * ((year + 4900 + a) / 100)) / 4;
}

constexpr KyDate& KyDate::dateabs(int dayNumber) {
    long long l = dayNumber + 68569LL;
    const long long n = 4 * l / 146097;
    l -= (146097 * n + 3) / 4;
    const long long i = 4000 * (l + 1) / 1461001;
    l += 31 - 1461 * i / 4;
    const long long m = 80 * l / 2447;
    const long long k = m / 11;
    day = static_cast<signed char>(l - 2447 * m / 80);
    month = static_cast<signed char>(m + 2 - 12 * k);
    year = static_cast<short>(100 * (n - 49) + i + k);
    return *this;
}

constexpr KyDate KyDate::operator+(int days) const { return {dayabs() + days}; }
constexpr KyDate KyDate::operator-(int days) const { return {dayabs() - days}; }
constexpr int KyDate::operator-(const KyDate& other) const { return dayabs() - other.dayabs(); }

constexpr int KyDate::daynxtmonth() const {
    return KyDate(year, static_cast<signed char>(month + 1), 1).dayabs() - dayabs();
}

constexpr bool KyDate::IsDate() const {
    return day >= 1 && day <= 31 && month >= 1 && month <= 12 && daynxtmonth() > 0;
}

constexpr int KyDate::GetDayOfTheDate() const {
    const int a = (month - 14) / 12;
    const int y = year + a;
    const int m = month + 10 - 12 * ((month + 10) / 13);
    const int s = (13 * m - 1) / 5 + day + 77 + (5 * (y - 100 * (y / 100))) / 4;
    const int w = modulo(s + y / 400 - 2 * (y / 100), 7);
    return w >= 1 && w <= 6 ? w - 1 : 6;
}

constexpr int KyDate::Compare(const KyDate& other, unsigned short flags) const {
    const bool exact = (flags & 0x10) != 0;
    if (year != other.year && (exact || (year != -1 && other.year != -1))) return year - other.year;
    if (month != other.month && (exact || (month != -1 && other.month != -1))) return month - other.month;
    if (!exact && (day == -1 || other.day == -1)) return 0;
    return day - other.day;
}

constexpr bool operator==(const KyDate& a, const KyDate& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

constexpr int KyTime::SetSecondsAbs(int seconds) {
    const int rest = seconds % 3600;
    hour = static_cast<signed char>(seconds / 3600);
    minute = static_cast<signed char>(rest / 60);
    second = static_cast<signed char>(rest % 60);
    return rest < 0 ? -1 : 0;
}

constexpr KyTime KyTime::operator+(int seconds) const {
    auto h = static_cast<signed char>(hour + seconds / 60 / 60);
    auto m = static_cast<signed char>(minute + seconds / 60 % 60);
    auto s = static_cast<signed char>(second + seconds % 60);
    if (s >= 60) {
        s = static_cast<signed char>(s - 60);
        m = static_cast<signed char>(m + 1);
    } else if (s < 0) {
        s = static_cast<signed char>(s + 60);
        m = static_cast<signed char>(m - 1);
    }
    if (m >= 60) {
        m = static_cast<signed char>(m - 60);
        h = static_cast<signed char>(h + 1);
    } else if (m < 0) {
        m = static_cast<signed char>(m + 60);
        h = static_cast<signed char>(h - 1);
    }
    if (h >= 24) h = static_cast<signed char>(h - h / 24 * 24);
    if (h < 0) h = static_cast<signed char>(h - h / 24 * 24 + 24);
    return {h, m, s};
}

constexpr KyTime KyTime::operator-(int seconds) const { return *this + -seconds; }

constexpr bool KyTime::IsTime() const {
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

constexpr int KyTime::Compare(const KyTime& other, unsigned short flags) const {
    const bool exact = (flags & 0x10) != 0;
    if (hour != other.hour && (exact || (hour != -1 && other.hour != -1))) return hour - other.hour;
    if (minute != other.minute && (exact || (minute != -1 && other.minute != -1))) return minute - other.minute;
    if (!exact && (second == -1 || other.second == -1)) return 0;
    return second - other.second;
}

constexpr bool operator==(const KyTime& a, const KyTime& b) {
    return a.hour == b.hour && a.minute == b.minute && a.second == b.second;
}

constexpr int KyDateTime::Compare(const KyDateTime& other, unsigned short flags) const {
    const int byDate = Date().Compare(other.Date(), flags);
    return byDate != 0 ? byDate : Time().Compare(other.Time(), flags);
}

#endif
