#ifndef KYDATIME_ARITHMETIC_H
#define KYDATIME_ARITHMETIC_H

/// The inline parts of `kydatime.h`, which includes it.

#include "calendar_formulas.h"
#include "kydatime.h"

constexpr int KyDate::divide(int a, int b) const { return static_cast<int>(static_cast<long long>(a) / b); }

constexpr int KyDate::modulo(int a, int b) const {
    const long long dividend = a < 0 ? -static_cast<long long>(a) : a;
    const long long divisor = b < 0 ? -static_cast<long long>(b) : b;
    const long long remainder = dividend % divisor;
    return static_cast<int>((a < 0) != (b < 0) ? -remainder : remainder);
}

constexpr int KyDate::dayabs() const { return ky::DayNumber(year, month, day); }

constexpr KyDate KyDate::FromDayNumber(long long dayNumber) {
    const ky::CalendarFields fields = ky::FieldsOfDayNumber(dayNumber);
    return {static_cast<short>(fields.year), static_cast<signed char>(fields.month),
            static_cast<signed char>(fields.day)};
}

constexpr KyDate::KyDate(int dayNumber) : KyDate(FromDayNumber(dayNumber)) {}
constexpr KyDate& KyDate::dateabs(int dayNumber) { return *this = FromDayNumber(dayNumber); }

// In 64 bits, which the number of days cannot leave.
constexpr KyDate KyDate::DaysLater(long long days) const { return FromDayNumber(dayabs() + days); }
constexpr KyDate KyDate::operator+(int days) const { return DaysLater(days); }
constexpr KyDate KyDate::operator-(int days) const { return DaysLater(-static_cast<long long>(days)); }
constexpr int KyDate::operator-(const KyDate& other) const { return dayabs() - other.dayabs(); }

constexpr int KyDate::daynxtmonth() const {
    const int next = month == 127 ? ky::DayNumberOfAnyFields(year, 128, 1)
                                  : ky::DayNumber(year, static_cast<signed char>(month + 1), 1);
    return next - dayabs();
}

constexpr bool KyDate::IsDate() const {
    if (day < 1 || day > 31 || month < 1 || month > 12) return false;
    return day <= 28 || daynxtmonth() > 0;
}

constexpr int KyDate::GetDayOfTheDate() const {
    const int a = (month - 14) / 12;
    const int y = year + a;
    const int m = month + 10 - 12 * ((month + 10) / 13);
    const int s = (13 * m - 1) / 5 + day + 77 + (5 * (y - 100 * (y / 100))) / 4;
    const int w = (s + y / 400 - 2 * (y / 100)) % 7;
    return w >= 1 && w <= 6 ? w - 1 : 6;
}

constexpr int KyDate::Compare(const KyDate& other, unsigned short flags) const {
    const bool exact = (flags & 0x10) != 0;
    if (year != other.year && (exact || (year != -1 && other.year != -1))) return year - other.year;
    if (month != other.month && (exact || (month != -1 && other.month != -1))) return month - other.month;
    if (!exact && (day == -1 || other.day == -1)) return 0;
    return day - other.day;
}

constexpr int KyTime::SetSecondsAbs(int seconds) {
    const int rest = seconds % 3600;
    hour = static_cast<signed char>(seconds / 3600);
    minute = static_cast<signed char>(rest / 60);
    second = static_cast<signed char>(rest % 60);
    return rest < 0 ? -1 : 0;
}

constexpr KyTime KyTime::SecondsLater(long long seconds) const {
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

constexpr KyTime KyTime::operator+(int seconds) const { return SecondsLater(seconds); }
constexpr KyTime KyTime::operator-(int seconds) const { return SecondsLater(-static_cast<long long>(seconds)); }

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

constexpr int KyDateTime::Compare(const KyDateTime& other, unsigned short flags) const {
    const int byDate = Date().Compare(other.Date(), flags);
    return byDate != 0 ? byDate : Time().Compare(other.Time(), flags);
}

constexpr void KyDateTime::SetDate(const KyDate& date) { *this = KyDateTime(date, Time()); }

constexpr void KyDateTime::AddSeconds(int seconds) {
    int days = seconds / 86400;
    const int rest = seconds % 86400;
    const KyTime before = Time();
    if (rest < 0) {
        *this = before - -rest;
        if (Time() > before) --days;
    } else {
        *this = before + rest;
        if (Time() < before) ++days;
    }
    if (days != 0) SetDate(Date() + days);
}

constexpr void KyDateTime::AddMinutes(int minutes) {
    int newHour = minutes / 60;
    int newMinute = minutes % 60;
    if (minutes > 1439) {
        SetDate(Date() + 1);
        newHour -= 24;
    } else if (minutes < 0) {
        SetDate(Date() - 1);
        newHour += newMinute != 0 ? 23 : 24;
        if (newMinute != 0) newMinute += 60;
    }
    hour = static_cast<signed char>(newHour);
    minute = static_cast<signed char>(newMinute);
}

#endif
