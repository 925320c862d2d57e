#ifndef KYDATIME_H
#define KYDATIME_H

/// `KyDate`, `KyTime` and `KyDateTime`: a day of the Gregorian calendar, a time of day to the second, and both.
///
/// Fields are public and carried as they are given, valid or not. A field of -1 is a wildcard in comparisons that are
/// not exact; a null value has every field at its lowest. Nothing throws or allocates but what makes a `KyString`.
/// Objects are trivially copyable; reading them is safe in any thread.

#include <cstddef>

#include "kyexport.h"

class KyString;

/// The English names that dates are printed and read with, Monday and January first. Each entry may be exchanged for
/// another text while no other thread prints or reads dates; it is the setter's and has to outlive its use.
// KEPT: "Januar" and "Februar"; texts that are stored were printed so.
extern KY_EXPORT const char* ky_weekdays[7];
extern KY_EXPORT const char* ky_months[12];

/// A day of the Gregorian calendar, extended in both directions; year 0 is the year before 1.
///
///   int(KyDate(2000, 1, 1))     2451545, the Julian day number
///   KyDate(2024, 2, 28) + 2     2024-03-01
class KY_EXPORT KyDate {
public:
    short year;
    signed char month;  ///< 1 to 12
    signed char day;    ///< 1 to 31

    KyDate();  ///< today, by the local clock
    constexpr KyDate(short aYear, signed char aMonth, signed char aDay) : year(aYear), month(aMonth), day(aDay) {}
    /// The day with this number.
    constexpr KyDate(int dayNumber);  // NOLINT(google-explicit-constructor)

    static KyDate Today();

    /// Julian day number, by Fliegel and Van Flandern: -4713-11-24 is 0. Month 13 is January of the next year.
    /// Follows the calendar from -4800-03-01 on.
    constexpr int dayabs() const;
    constexpr operator int() const { return dayabs(); }  // NOLINT(google-explicit-constructor)
    /// Sets the day with this number; a field too small for the result keeps its low bits. Follows the calendar
    /// from -4900-03-01 on.
    constexpr KyDate& dateabs(int dayNumber);

    // Days later or earlier; nothing is checked.
    constexpr KyDate operator+(int days) const;
    constexpr KyDate operator-(int days) const;
    constexpr KyDate& operator+=(int days) { return *this = *this + days; }
    constexpr KyDate& operator-=(int days) { return *this = *this - days; }
    constexpr KyDate& operator++() { return *this += 1; }
    constexpr KyDate& operator--() { return *this -= 1; }
    /// The days from `other` to this.
    constexpr int operator-(const KyDate& other) const;

    /// Days to the first of the next month: 1 on a month's last day.
    constexpr int daynxtmonth() const;
    constexpr bool IsLastDayOfTheMonth() const { return daynxtmonth() == 1; }
    constexpr bool IsDate() const;

    /// 0 Monday to 6 Sunday, by Zeller's congruence.
    // KEPT: right from 0000-03-01 to 4600-02-28 only; outside, remainders below 0 give 6.
    constexpr int GetDayOfTheDate() const;
    constexpr int DayOfTheDate() { return GetDayOfTheDate(); }
    /// The English name.
    KyString PrintDayOfTheDate() const;
    // KEPT: of an object that may change the number comes, "0" to "6".
    KyString PrintDayOfTheDate();

    /// Year, then month, then day: the first difference, this less other. Unless `flags` has 0x10, a field that is
    /// -1 on either side counts as equal.
    constexpr int Compare(const KyDate& other, unsigned short flags) const;

    // Exact comparisons.
    friend constexpr bool operator==(const KyDate& a, const KyDate& b) { return a.Rank() == b.Rank(); }
    friend constexpr bool operator!=(const KyDate& a, const KyDate& b) { return a.Rank() != b.Rank(); }
    friend constexpr bool operator<(const KyDate& a, const KyDate& b) { return a.Rank() < b.Rank(); }
    friend constexpr bool operator<=(const KyDate& a, const KyDate& b) { return a.Rank() <= b.Rank(); }
    friend constexpr bool operator>(const KyDate& a, const KyDate& b) { return a.Rank() > b.Rank(); }
    friend constexpr bool operator>=(const KyDate& a, const KyDate& b) { return a.Rank() >= b.Rank(); }

    /// By the directives of dates; a null format is "%Y-%m-%d". Returns `out`.
    KyString& PrintToKyString(KyString& out, const char* format) const;
    /// Returns this, or null when the text ends before the format does; what was read till then is stored.
    KyDate* ScanFromKyString(KyString& in, const char* format);

    /// The quotient, truncated toward zero. `b` must not be 0.
    constexpr int divide(int a, int b) const;
    /// The remainder of the absolute values, with the sign of the quotient.
    constexpr int modulo(int a, int b) const;

    static constexpr KyDate ClearValue() { return {0, 0, 0}; }
    static constexpr KyDate NullValue() { return {-32768, -128, -128}; }
    static constexpr KyDate DefaultValue() { return {-4713, 11, 24}; }  ///< day 0
    static constexpr KyDate ZeroValue() { return {0, 1, 1}; }
    constexpr int IsNullValue() const { return *this == NullValue(); }
    constexpr int IsDefaultValue() const { return *this == DefaultValue(); }
    constexpr int IsZeroValue() const { return *this == ZeroValue(); }
    // Each returns 0.
    constexpr int SetNullValue() {
        *this = NullValue();
        return 0;
    }
    constexpr int SetDefaultValue() {
        *this = DefaultValue();
        return 0;
    }
    constexpr int SetZeroValue() {
        *this = ZeroValue();
        return 0;
    }

private:
    friend class KyDateTime;
    friend class KyDateTime_;

    /// A number that orders days as exact comparisons do.
    constexpr int Rank() const { return year * 65536 + (month + 128) * 256 + (day + 128); }
    static constexpr KyDate FromDayNumber(long long dayNumber);  ///< within 2^33
    constexpr KyDate DaysLater(long long days) const;            ///< within 2^32
};

static_assert(sizeof(KyDate) == 4 && offsetof(KyDate, month) == 2 && offsetof(KyDate, day) == 3);

/// A time of day.
class KY_EXPORT KyTime {
public:
    signed char hour;    ///< 0 to 23
    signed char minute;  ///< 0 to 59
    signed char second;  ///< 0 to 59

    KyTime();  ///< now, by the local clock
    constexpr KyTime(signed char anHour, signed char aMinute, signed char aSecond)
        : hour(anHour), minute(aMinute), second(aSecond) {}
    /// `SetSecondsAbs`.
    constexpr KyTime(int seconds) : KyTime(0, 0, 0) { SetSecondsAbs(seconds); }  // NOLINT(google-explicit-constructor)

    static KyTime Now();
    static KyTime NowUTC();

    /// Seconds since midnight. The hour is not reduced: 90000 s are hour 25. Returns -1 for a negative remainder of
    /// hours, which is stored all the same, else 0.
    constexpr int SetSecondsAbs(int seconds);
    /// Seconds since midnight. NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator int() const { return hour * 3600 + minute * 60 + second; }

    /// Seconds later or earlier, days dropped.
    // KEPT: each field is summed in 8 bits, then one carry step is made, and a negative hour that is a multiple of 24
    // becomes 24: midnight less a day is 24:00:00. `KyDateTime::AddSeconds` sees the day by it.
    constexpr KyTime operator+(int seconds) const;
    constexpr KyTime operator-(int seconds) const;
    constexpr KyTime& operator+=(int seconds) { return *this = *this + seconds; }
    constexpr KyTime& operator-=(int seconds) { return *this = *this - seconds; }
    constexpr KyTime& operator++() { return *this += 1; }
    constexpr KyTime& operator--() { return *this -= 1; }
    /// Earlier by as many seconds as `other` is since midnight.
    constexpr KyTime operator-(const KyTime& other) const { return *this - static_cast<int>(other); }

    constexpr bool IsTime() const;

    /// Shifts the time by the local offset from UTC. Returns 0, or -2171 with the time unchanged when the offset is
    /// not known.
    int ToUTCTime();
    int ToLocalTime();

    /// As `KyDate::Compare`, over hour, minute and second.
    constexpr int Compare(const KyTime& other, unsigned short flags) const;

    // Exact comparisons.
    friend constexpr bool operator==(const KyTime& a, const KyTime& b) { return a.Rank() == b.Rank(); }
    friend constexpr bool operator!=(const KyTime& a, const KyTime& b) { return a.Rank() != b.Rank(); }
    friend constexpr bool operator<(const KyTime& a, const KyTime& b) { return a.Rank() < b.Rank(); }
    friend constexpr bool operator<=(const KyTime& a, const KyTime& b) { return a.Rank() <= b.Rank(); }
    friend constexpr bool operator>(const KyTime& a, const KyTime& b) { return a.Rank() > b.Rank(); }
    friend constexpr bool operator>=(const KyTime& a, const KyTime& b) { return a.Rank() >= b.Rank(); }

    /// As `KyDate`'s; a null format is "%H:%M:%S".
    KyString& PrintToKyString(KyString& out, const char* format) const;
    KyTime* ScanFromKyString(KyString& in, const char* format);

    static constexpr KyTime ClearValue() { return {0, 0, 0}; }
    static constexpr KyTime NullValue() { return {-128, -128, -128}; }
    static constexpr KyTime DefaultValue() { return {0, 0, 0}; }
    static constexpr KyTime ZeroValue() { return {0, 0, 0}; }
    constexpr int IsNullValue() const { return *this == NullValue(); }
    constexpr int IsDefaultValue() const { return *this == DefaultValue(); }
    constexpr int IsZeroValue() const { return *this == ZeroValue(); }
    // Each returns 0.
    constexpr int SetNullValue() {
        *this = NullValue();
        return 0;
    }
    constexpr int SetDefaultValue() {
        *this = DefaultValue();
        return 0;
    }
    constexpr int SetZeroValue() {
        *this = ZeroValue();
        return 0;
    }

private:
    friend class KyDateTime;

    /// A number that orders times as exact comparisons do; 0 or more.
    constexpr int Rank() const { return (hour + 128) * 65536 + (minute + 128) * 256 + second + 128; }
    constexpr KyTime SecondsLater(long long seconds) const;
};

static_assert(sizeof(KyTime) == 3 && offsetof(KyTime, minute) == 1 && offsetof(KyTime, second) == 2);

/// A day and a time of day: the fields of a `KyDate`, then those of a `KyTime`. The byte behind them is padding.
class KY_EXPORT KyDateTime {
public:
    short year;
    signed char month;
    signed char day;
    signed char hour;
    signed char minute;
    signed char second;

    // What is not given is read from the local clock.
    KyDateTime();
    KyDateTime(const KyDate& date);  // NOLINT(google-explicit-constructor)
    KyDateTime(const KyTime& time);  // NOLINT(google-explicit-constructor)
    constexpr KyDateTime(const KyDate& date, const KyTime& time)
        : year(date.year),
          month(date.month),
          day(date.day),
          hour(time.hour),
          minute(time.minute),
          second(time.second) {}

    /// Replaces the time and keeps the day.
    constexpr KyDateTime& operator=(const KyTime& time) { return *this = KyDateTime(Date(), time); }

    constexpr KyDate Date() const { return {year, month, day}; }
    constexpr KyTime Time() const { return {hour, minute, second}; }

    static KyDateTime Now();     ///< the time is read first, then the day
    static KyDateTime NowUTC();  ///< both of one instant

    // KEPT: by the arithmetic of `KyTime`, whose result is compared with the time before; a time of 24:00:00 or more
    // can so move the day without seconds being added.
    constexpr void AddSeconds(int seconds);
    // KEPT: sets hour and minute from a count of minutes since midnight, with a carry of one day at the most, whatever
    // the time was; the shifts between UTC and local time are built on it.
    constexpr void AddMinutes(int minutes);

    /// Shifts by the local offset from UTC. Returns 0, or -2171 with nothing changed when the offset is not known.
    int ToUTCTime();
    int ToLocalTime();

    /// By date, then by time, both with `flags`.
    constexpr int Compare(const KyDateTime& other, unsigned short flags) const;
    constexpr int Compare(const KyDateTime& other) const { return Compare(other, 0xFFFF); }

    // Exact comparisons.
    friend constexpr bool operator==(const KyDateTime& a, const KyDateTime& b) { return a.Rank() == b.Rank(); }
    friend constexpr bool operator!=(const KyDateTime& a, const KyDateTime& b) { return a.Rank() != b.Rank(); }
    friend constexpr bool operator<(const KyDateTime& a, const KyDateTime& b) { return a.Rank() < b.Rank(); }
    friend constexpr bool operator<=(const KyDateTime& a, const KyDateTime& b) { return a.Rank() <= b.Rank(); }
    friend constexpr bool operator>(const KyDateTime& a, const KyDateTime& b) { return a.Rank() > b.Rank(); }
    friend constexpr bool operator>=(const KyDateTime& a, const KyDateTime& b) { return a.Rank() >= b.Rank(); }

    constexpr bool IsDateTime() const { return Date().IsDate() && Time().IsTime(); }
    constexpr bool IsDaTime() const { return IsDateTime(); }

    /// As `KyDate`'s; a null format is "%Y-%m-%dT%H:%M:%S".
    KyString& PrintToKyString(KyString& out, const char* format) const;
    KyDateTime* ScanFromKyString(KyString& in, const char* format);

    static constexpr KyDateTime ClearValue() { return {KyDate::ClearValue(), KyTime::ClearValue()}; }
    static constexpr KyDateTime NullValue() { return {KyDate::NullValue(), KyTime::NullValue()}; }
    static constexpr KyDateTime DefaultValue() { return {KyDate::DefaultValue(), KyTime::DefaultValue()}; }
    static constexpr KyDateTime ZeroValue() { return {KyDate::ZeroValue(), KyTime::ZeroValue()}; }
    // KEPT: the clear value, which is not null.
    static constexpr KyDateTime Null() { return ClearValue(); }
    constexpr int IsNullValue() const { return *this == NullValue(); }
    constexpr int IsDefaultValue() const { return *this == DefaultValue(); }
    constexpr int IsZeroValue() const { return *this == ZeroValue(); }
    // Each returns 0.
    constexpr int SetNullValue() {
        *this = NullValue();
        return 0;
    }
    constexpr int SetDefaultValue() {
        *this = DefaultValue();
        return 0;
    }
    constexpr int SetZeroValue() {
        *this = ZeroValue();
        return 0;
    }

private:
    constexpr long long Rank() const { return Date().Rank() * (1LL << 24) + Time().Rank(); }
    constexpr void SetDate(const KyDate& date);
};

static_assert(sizeof(KyDateTime) == 8 && offsetof(KyDateTime, hour) == 4 && offsetof(KyDateTime, second) == 6);

#include "kydatime_arithmetic.h"

#endif
