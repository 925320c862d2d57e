#ifndef KYODMG_H
#define KYODMG_H

/// `d_Date`, `d_Time`, `d_Timestamp` and `d_Interval`: the date and time classes of the ODMG standard.
///
/// Their calendar is not that of `KyDate`: the days before 1582-10-15 are Julian ones, and times carry a time zone.
/// Conversions between the two families copy fields and recompute nothing. Values are stored as they are given, valid
/// or not. Nothing throws or allocates. Objects are trivially copyable; reading them is safe in any thread.

#include <cstddef>

#include "kyexport.h"

class KyDate;
class KyDateTime;
class KyTime;
class d_Timestamp;

/// A length of time, in seconds. All arithmetic is made in double and narrowed once.
class KY_EXPORT d_Interval {
public:
    constexpr d_Interval() = default;  ///< 0
    /// The magnitudes of the parts, added up; negative when any of them is.
    ///   d_Interval(0, -1, 30, 0)     -5400 s
    constexpr d_Interval(int day, int hour, int minute = 0, float second = 0);
    constexpr explicit d_Interval(int day) : d_Interval(day, 0) {}

    constexpr float seconds() const { return length; }

    constexpr d_Interval operator-() const { return OfSeconds(-static_cast<double>(length)); }
    friend constexpr d_Interval operator+(const d_Interval& a, const d_Interval& b);
    friend constexpr d_Interval operator-(const d_Interval& a, const d_Interval& b);
    friend constexpr d_Interval operator*(const d_Interval& a, int factor);
    friend constexpr d_Interval operator*(int factor, const d_Interval& a) { return a * factor; }
    /// By 0: an infinity or NaN.
    friend constexpr d_Interval operator/(const d_Interval& a, int divisor);

    friend constexpr bool operator==(const d_Interval& a, const d_Interval& b) { return a.length == b.length; }
    friend constexpr bool operator!=(const d_Interval& a, const d_Interval& b) { return a.length != b.length; }
    friend constexpr bool operator<(const d_Interval& a, const d_Interval& b) { return a.length < b.length; }
    friend constexpr bool operator<=(const d_Interval& a, const d_Interval& b) { return a.length <= b.length; }
    friend constexpr bool operator>(const d_Interval& a, const d_Interval& b) { return a.length > b.length; }
    friend constexpr bool operator>=(const d_Interval& a, const d_Interval& b) { return a.length >= b.length; }

private:
    float length = 0;

    static constexpr d_Interval OfSeconds(double seconds);
};

/// A day of the Julian calendar up to 1582-10-04, of the Gregorian one from 1582-10-15 on.
///
///   d_Date(2000, 1, 1).getAbsDate()      2451544, one less than the Julian day number
///   d_Date(1582, 10, 4)++                1582-10-15
class KY_EXPORT d_Date {
public:
    enum Weekday { Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };

    d_Date();  ///< today, by the local clock
    /// Month and day keep their low eight bits.
    constexpr d_Date(short aYear, unsigned short aMonth, unsigned short aDay);
    /// January 1st, moved by `dayOfYear` - 1 days.
    constexpr d_Date(short aYear, unsigned short dayOfYear);
    // The year, month and day of the value. NOLINTBEGIN(google-explicit-constructor)
    d_Date(const d_Timestamp& stamp);
    d_Date(const KyDate& date);
    d_Date(const KyDateTime& stamp);
    // NOLINTEND(google-explicit-constructor)

    d_Date& operator=(const d_Timestamp& stamp);
    d_Date& operator=(const KyDate& date);
    d_Date& operator=(const KyDateTime& stamp);
    explicit operator KyDate() const;

    static d_Date current() { return {}; }

    constexpr short year() const { return yearNumber; }
    constexpr unsigned short month() const { return monthNumber; }
    constexpr unsigned short day() const { return dayNumber; }

    /// Number of the day: one less than its Julian day number, after Meeus, Astronomical Algorithms, chapter 7.
    /// The days that the change of the calendar left out, 1582-10-05 to 14, go on as Julian ones and share the
    /// numbers of 10-15 to 24.
    // KEPT: products are truncated toward zero, so that most dates before 0000-03-01 have a number one too high, and
    // 0000-02-29 has that of the day after it. What is computed from day numbers inherits the jump.
    constexpr int getAbsDate() const;
    /// Sets the day with this number; a field too small for the result keeps its low bits. The inverse of true day
    /// numbers from -4716-03-01 on; returns this date.
    constexpr d_Date& setAbsDate(int absDate);

    constexpr Weekday day_of_week() const;
    constexpr int day_of_year() const;
    constexpr int days_in_month() const { return days_in_month(yearNumber, monthNumber); }
    /// 0 for a month outside 1 to 12. Every fourth year before 1600 is a leap year.
    static constexpr int days_in_month(short aYear, unsigned short aMonth);

    /// Moves to the last such day before this one, seven days back from such a day itself. Returns this date.
    constexpr d_Date& previous(Weekday weekday);
    /// The same forward.
    constexpr d_Date& next(Weekday weekday);

    constexpr d_Date& operator++() { return MoveBy(1); }
    constexpr d_Date& operator--() { return MoveBy(-1); }
    constexpr d_Date operator++(int);
    constexpr d_Date operator--(int);

    /// Moves by the interval's whole days, truncated toward zero.
    d_Date& operator+=(const d_Interval& interval);
    d_Date& operator-=(const d_Interval& interval);

private:
    short yearNumber;
    unsigned char monthNumber;
    unsigned char dayNumber;

    constexpr d_Date& MoveBy(long long days);

    friend class d_Timestamp;
};

/// A time of day to the hundredth of a second, in a time zone.
///
/// What is told of a time is local: its own zone's. Two times are compared by their local values, whatever the zones.
class KY_EXPORT d_Time {
public:
    /// Whole hours east of Greenwich. Any `int` may stand for a zone.
    // clang-format off
    enum Time_Zone : int {
        GMT = 0,
        GMT1 = 1, GMT2, GMT3, GMT4, GMT5, GMT6, GMT7, GMT8, GMT9, GMT10, GMT11, GMT12, GMT13, GMT14,
        GMT_12 = -12, GMT_11, GMT_10, GMT_9, GMT_8, GMT_7, GMT_6, GMT_5, GMT_4, GMT_3, GMT_2, GMT_1,
    };
    // clang-format on

    /// The zone of every time that is not given one: GMT at first. For the whole process, from any thread.
    static void set_default_Time_Zone(Time_Zone zone);
    /// The local clock's zone, cut to whole hours. Nothing changes when it is GMT or not known.
    static void set_default_Time_Zone_to_local();

    d_Time();  ///< now, by the local clock, to the second
    /// Fields keep their low eight bits, hour and minute after the zone's are added. Seconds beyond an `int` count as
    /// the nearest one.
    // KEPT: the seconds are cut to hundredths: 0.29 s are 28, because the float that is next to it is less.
    d_Time(unsigned short hour, unsigned short minute, float second);
    d_Time(unsigned short hour, unsigned short minute, float second, short tz_hour, short tz_minute);
    /// Seconds since midnight. Negative ones count back from the next midnight; the hour is not reduced.
    explicit d_Time(int seconds);
    // The local time of the value, in the default zone but for a time stamp's. NOLINTBEGIN(google-explicit-constructor)
    d_Time(const d_Timestamp& stamp);
    d_Time(const KyTime& time);
    d_Time(const KyDateTime& stamp);
    // NOLINTEND(google-explicit-constructor)

    d_Time& operator=(const d_Timestamp& stamp);
    d_Time& operator=(const KyTime& time);
    d_Time& operator=(const KyDateTime& stamp);
    /// Hundredths are dropped.
    explicit operator KyTime() const;

    static d_Time current() { return {}; }

    constexpr short hour() const { return static_cast<short>(zonedHour - zoneHours); }
    constexpr short minute() const { return static_cast<short>(zonedMinute - zoneMinutes); }
    constexpr float second() const { return static_cast<float>(wholeSecond) + static_cast<float>(hundredths) / 100.0F; }
    constexpr short tz_hour() const { return zoneHours; }
    constexpr short tz_minute() const { return zoneMinutes; }

    /// Moves by the interval, rounded to hundredths of a second, around the clock: days are dropped, the zone stays.
    d_Time& operator+=(const d_Interval& interval);
    d_Time& operator-=(const d_Interval& interval);

private:
    signed char zoneHours;
    signed char zoneMinutes;
    signed char zonedHour;    // the local hour plus the zone's
    signed char zonedMinute;  // the local minute plus the zone's
    signed char wholeSecond;
    signed char hundredths;

    constexpr int LocalHundredths() const;
    void SetLocalHundredths(long long count);

    friend class d_Timestamp;
    friend KY_EXPORT d_Interval operator-(const d_Time& a, const d_Time& b);
    friend KY_EXPORT d_Interval operator-(const d_Timestamp& a, const d_Timestamp& b);
};

/// A day and a time of day.
class KY_EXPORT d_Timestamp {
public:
    d_Timestamp();  ///< now: the time is read first, then the day
    constexpr d_Timestamp(const d_Date& aDate, const d_Time& aTime) : datePart(aDate), timePart(aTime) {}
    /// In the default zone.
    d_Timestamp(short year, unsigned short month, unsigned short day, unsigned short hour, unsigned short minute,
                float second);
    // Midnight, and the local time of the value, in the default zone. NOLINTBEGIN(google-explicit-constructor)
    d_Timestamp(const d_Date& aDate);
    d_Timestamp(const KyDateTime& stamp);
    // NOLINTEND(google-explicit-constructor)

    /// The time stays.
    d_Timestamp& operator=(const d_Date& aDate);
    d_Timestamp& operator=(const KyDateTime& stamp);
    /// Hundredths are dropped.
    explicit operator KyDateTime() const;

    static d_Timestamp current() { return {}; }

    constexpr const d_Date& date() const { return datePart; }
    constexpr const d_Time& time() const { return timePart; }
    constexpr short year() const { return datePart.year(); }
    constexpr unsigned short month() const { return datePart.month(); }
    constexpr unsigned short day() const { return datePart.day(); }
    constexpr short hour() const { return timePart.hour(); }
    constexpr short minute() const { return timePart.minute(); }
    constexpr float second() const { return timePart.second(); }
    constexpr short tz_hour() const { return timePart.tz_hour(); }
    constexpr short tz_minute() const { return timePart.tz_minute(); }

    /// Moves by the interval, rounded to hundredths of a second. Fields of the date change only when the day does.
    d_Timestamp& operator+=(const d_Interval& interval);
    d_Timestamp& operator-=(const d_Interval& interval);

private:
    d_Date datePart;
    d_Time timePart;
};

static_assert(sizeof(d_Interval) == 4 && sizeof(d_Date) == 4 && sizeof(d_Time) == 6 && sizeof(d_Timestamp) == 10);
static_assert(alignof(d_Time) == 1 && alignof(d_Timestamp) == 2);

// Order. `!=` tells more than that two values differ: below 0 when the first is earlier, above 0 when it is later. The
// other relations are those of its sign with 0.

/// The difference of the day numbers.
constexpr int operator!=(const d_Date& a, const d_Date& b);
/// By local hour, then by local minute, then by seconds.
// KEPT: the seconds' difference is computed in single precision and truncated, so that times less than a second apart
// are equal, and equality does not carry over: x.40 = x.90 = (x+1).40.
constexpr int operator!=(const d_Time& a, const d_Time& b);
/// By date, then by time.
constexpr int operator!=(const d_Timestamp& a, const d_Timestamp& b);

constexpr bool operator==(const d_Date& a, const d_Date& b) { return (a != b) == 0; }
constexpr bool operator<(const d_Date& a, const d_Date& b) { return (a != b) < 0; }
constexpr bool operator<=(const d_Date& a, const d_Date& b) { return (a != b) <= 0; }
constexpr bool operator>(const d_Date& a, const d_Date& b) { return (a != b) > 0; }
constexpr bool operator>=(const d_Date& a, const d_Date& b) { return (a != b) >= 0; }

constexpr bool operator==(const d_Time& a, const d_Time& b) { return (a != b) == 0; }
constexpr bool operator<(const d_Time& a, const d_Time& b) { return (a != b) < 0; }
constexpr bool operator<=(const d_Time& a, const d_Time& b) { return (a != b) <= 0; }
constexpr bool operator>(const d_Time& a, const d_Time& b) { return (a != b) > 0; }
constexpr bool operator>=(const d_Time& a, const d_Time& b) { return (a != b) >= 0; }

constexpr bool operator==(const d_Timestamp& a, const d_Timestamp& b) { return (a != b) == 0; }
constexpr bool operator<(const d_Timestamp& a, const d_Timestamp& b) { return (a != b) < 0; }
constexpr bool operator<=(const d_Timestamp& a, const d_Timestamp& b) { return (a != b) <= 0; }
constexpr bool operator>(const d_Timestamp& a, const d_Timestamp& b) { return (a != b) > 0; }
constexpr bool operator>=(const d_Timestamp& a, const d_Timestamp& b) { return (a != b) >= 0; }

// Arithmetic with intervals, by the members of the same sign.

inline d_Date operator+(d_Date date, const d_Interval& interval) { return date += interval; }
inline d_Date operator+(const d_Interval& interval, d_Date date) { return date += interval; }
inline d_Date operator-(d_Date date, const d_Interval& interval) { return date -= interval; }

inline d_Time operator+(d_Time time, const d_Interval& interval) { return time += interval; }
inline d_Time operator+(const d_Interval& interval, d_Time time) { return time += interval; }
inline d_Time operator-(d_Time time, const d_Interval& interval) { return time -= interval; }

inline d_Timestamp operator+(d_Timestamp stamp, const d_Interval& interval) { return stamp += interval; }
inline d_Timestamp operator+(const d_Interval& interval, d_Timestamp stamp) { return stamp += interval; }
inline d_Timestamp operator-(d_Timestamp stamp, const d_Interval& interval) { return stamp -= interval; }

/// From b to a, to the hundredth, by local values.
KY_EXPORT d_Interval operator-(const d_Time& a, const d_Time& b);
KY_EXPORT d_Interval operator-(const d_Timestamp& a, const d_Timestamp& b);

// Whether two periods have a moment in common, 0 or 1. Each is given by its ends, which belong to it, in either order.

KY_EXPORT int overlaps(const d_Date& s1, const d_Date& e1, const d_Date& s2, const d_Date& e2);
KY_EXPORT int overlaps(const d_Time& s1, const d_Time& e1, const d_Time& s2, const d_Time& e2);
KY_EXPORT int overlaps(const d_Timestamp& s1, const d_Timestamp& e1, const d_Timestamp& s2, const d_Timestamp& e2);
// Of time stamps and dates: by the stamps' dates, because a date is its whole day.
KY_EXPORT int overlaps(const d_Timestamp& s1, const d_Timestamp& e1, const d_Date& s2, const d_Date& e2);
KY_EXPORT int overlaps(const d_Date& s1, const d_Date& e1, const d_Timestamp& s2, const d_Timestamp& e2);
// Of time stamps and times: whether the times come round on some day of the stamps' period.
KY_EXPORT int overlaps(const d_Timestamp& s1, const d_Timestamp& e1, const d_Time& s2, const d_Time& e2);
KY_EXPORT int overlaps(const d_Time& s1, const d_Time& e1, const d_Timestamp& s2, const d_Timestamp& e2);

#include "kyodmg_arithmetic.h"

#endif
