#ifndef KYDATIMEN_H
#define KYDATIMEN_H

/// `KyDateTimeN`, a day and a time to the nanosecond, and `KyTimeSpan`, a length of time in years of twelve months
/// of 30 days. Both are a `KyDateTime_`, whose operations are told which of the two they work on.

#include <cstddef>

#include "kydatime.h"

/// The fields of a `KyDateTime`, then nanoseconds. The byte between them is padding.
///
/// `span` is 0 for calendar arithmetic, 1 for years of 360 days. The default-constructed value is null. Nothing tests
/// for null but where it is said.
class KY_EXPORT KyDateTime_ {
public:
    short year;
    signed char month;
    signed char day;
    signed char hour;
    signed char minute;
    signed char second;
    int nanoseconds;  ///< 0 to 999999999

    constexpr KyDateTime_() : KyDateTime_(-32768, -128, -128, -128, -128, -128, 0) {}  ///< null
    /// The fields as given.
    constexpr KyDateTime_(short aYear, signed char aMonth, signed char aDay, signed char anHour, signed char aMinute,
                          signed char aSecond, int someNanoseconds)
        : year(aYear),
          month(aMonth),
          day(aDay),
          hour(anHour),
          minute(aMinute),
          second(aSecond),
          nanoseconds(someNanoseconds) {}
    // What is not given is 0. NOLINTBEGIN(google-explicit-constructor)
    constexpr KyDateTime_(const KyDate& date) : KyDateTime_(date, KyTime::ClearValue()) {}
    constexpr KyDateTime_(const KyTime& time) : KyDateTime_(KyDate::ClearValue(), time) {}
    constexpr KyDateTime_(const KyDate& date, const KyTime& time)
        : KyDateTime_(date.year, date.month, date.day, time.hour, time.minute, time.second, 0) {}
    constexpr KyDateTime_(const KyDateTime& dateTime) : KyDateTime_(dateTime.Date(), dateTime.Time()) {}
    // NOLINTEND(google-explicit-constructor)
    /// `SetTotalSeconds`.
    constexpr KyDateTime_(double seconds, int span);

    constexpr KyDate Date() const { return {year, month, day}; }
    constexpr KyTime Time() const { return {hour, minute, second}; }
    /// All but the nanoseconds.
    constexpr KyDateTime DateTime() const { return {Date(), Time()}; }

    /// Calendar days when `span` is 0 and the day is one of the calendar's; else by months of 30 days, the year
    /// held within 16 bits. A negative count of days without months and years, or of months without years, stays
    /// negative.
    constexpr void AddDays(int days, int span);
    // Carried from field to field. Nothing is done for 0.
    constexpr void AddHours(int hours, int span);
    constexpr void AddMinutes(int minutes, int span);
    constexpr void AddSeconds(int seconds, int span);
    constexpr void AddSeconds(long long seconds, int span);
    /// As nanoseconds, truncated. NaN adds nothing.
    constexpr void AddSeconds(double seconds, int span);
    constexpr void AddNanoSeconds(int nanoseconds, int span);
    constexpr void AddNanoSeconds(long long nanoseconds, int span);

    // Since 0000-01-01 00:00:00; of a span, its length. Nanoseconds wrap modulo 2^64 (years from -292 to 292 fit).
    constexpr int GetTotalDays(int span) const;
    constexpr long long GetTotalSeconds(int span) const;
    constexpr long long GetTotalNanoSeconds(int span) const;
    constexpr double GetTotalSeconds_f(int span) const;

    constexpr void SetZero(int span);  ///< 0000-01-01 00:00:00, or the span of length 0
    // Zero, and the amount added.
    constexpr void SetTotalDays(int days, int span);
    constexpr void SetTotalSeconds(long long seconds, int span);
    constexpr void SetTotalSeconds(double seconds, int span);
    constexpr void SetTotalNanoSeconds(long long nanoseconds, int span);

    /// By the fields of the `KyDateTime`, its wildcards included, then -1, 0 or 1 by the nanoseconds, where -1 is a
    /// wildcard too. 0x10 in `flags` makes -1 an ordinary number.
    constexpr int Compare(const KyDateTime_& other, unsigned short flags) const;

    constexpr int IsNullValue() const { return DateTime().IsNullValue() != 0 && nanoseconds == 0; }
    constexpr int SetNullValue() {
        *this = KyDateTime_();
        return 0;
    }

    /// As `KyDate`'s. A null format prints as a `KyDateTimeN`.
    KyString& PrintToKyString(KyString& out, const char* format) const;
    KyDateTime_* ScanFromKyString(KyString& in, const char* format);

private:
    // The steps of the carry chain in 64 bits, which hold every carry.
    constexpr void AddSecondsAndCarry(long long seconds, int span);
    constexpr void AddMinutesAndCarry(long long minutes, int span);
    constexpr void AddHoursAndCarry(long long hours, int span);
    constexpr void AddSpanDays(long long days);
};

static_assert(sizeof(KyDateTime_) == 12 && offsetof(KyDateTime_, second) == 6 &&
              offsetof(KyDateTime_, nanoseconds) == 8);

/// A day and a time of day to the nanosecond.
class KY_EXPORT KyDateTimeN : public KyDateTime_ {
public:
    using KyDateTime_::KyDateTime_;
    constexpr KyDateTimeN() = default;  ///< null
    constexpr explicit KyDateTimeN(const KyDateTime_& fields) : KyDateTime_(fields) {}
    constexpr explicit KyDateTimeN(double seconds) : KyDateTime_(seconds, 0) {}  ///< since 0000-01-01

    static KyDateTimeN Now();
    static KyDateTimeN NowUTC();

    constexpr void AddDays(int days) { KyDateTime_::AddDays(days, 0); }
    constexpr void AddHours(int hours) { KyDateTime_::AddHours(hours, 0); }
    constexpr void AddMinutes(int minutes) { KyDateTime_::AddMinutes(minutes, 0); }
    constexpr void AddSeconds(int seconds) { KyDateTime_::AddSeconds(seconds, 0); }
    constexpr void AddSeconds(long long seconds) { KyDateTime_::AddSeconds(seconds, 0); }
    constexpr void AddSeconds(double seconds) { KyDateTime_::AddSeconds(seconds, 0); }
    constexpr void AddNanoSeconds(int count) { KyDateTime_::AddNanoSeconds(count, 0); }
    constexpr void AddNanoSeconds(long long count) { KyDateTime_::AddNanoSeconds(count, 0); }

    constexpr int GetTotalDays() const { return KyDateTime_::GetTotalDays(0); }
    constexpr long long GetTotalSeconds() const { return KyDateTime_::GetTotalSeconds(0); }
    constexpr long long GetTotalNanoSeconds() const { return KyDateTime_::GetTotalNanoSeconds(0); }
    constexpr double GetTotalSeconds_f() const { return KyDateTime_::GetTotalSeconds_f(0); }

    constexpr void SetZero() { KyDateTime_::SetZero(0); }
    constexpr void SetTotalDays(int days) { KyDateTime_::SetTotalDays(days, 0); }
    constexpr void SetTotalSeconds(long long seconds) { KyDateTime_::SetTotalSeconds(seconds, 0); }
    constexpr void SetTotalSeconds(double seconds) { KyDateTime_::SetTotalSeconds(seconds, 0); }
    constexpr void SetTotalNanoSeconds(long long count) { KyDateTime_::SetTotalNanoSeconds(count, 0); }

    constexpr bool IsValidDateTime() const { return DateTime().IsDateTime(); }

    /// Shifts by the local offset from UTC. Returns 0, or -2171 with nothing changed when the offset is not known.
    int ToUTCTime();
    int ToLocalTime();

    /// A null format is "%Y-%m-%dT%H:%M:%f".
    KyString& PrintToKyString(KyString& out, const char* format) const;
    KyDateTimeN* ScanFromKyString(KyString& in, const char* format);

    static constexpr KyDateTimeN ClearValue() { return {0, 0, 0, 0, 0, 0, 0}; }
    static constexpr KyDateTimeN NullValue() { return {}; }
    static constexpr KyDateTimeN DefaultValue() { return {-4713, 11, 24, 0, 0, 0, 0}; }
    static constexpr KyDateTimeN ZeroValue() { return {0, 1, 1, 0, 0, 0, 0}; }
    constexpr int IsDefaultValue() const;
    constexpr int IsZeroValue() const;
    constexpr int SetDefaultValue();  ///< returns 0
};

/// A length of time: `year` years of 360 days, `month` months of 30 days, `day` days, and a time.
class KY_EXPORT KyTimeSpan : public KyDateTime_ {
public:
    constexpr KyTimeSpan() = default;  ///< null
    constexpr explicit KyTimeSpan(const KyDateTime_& fields) : KyDateTime_(fields) {}
    /// The fields as given, their low bits where they do not fit.
    constexpr KyTimeSpan(int years, int months, int days, int hours, int minutes, int seconds, int someNanoseconds);
    /// The time fields as given, the days brought into months and years.
    constexpr KyTimeSpan(int days, int hours, int minutes, int seconds, int someNanoseconds);
    constexpr explicit KyTimeSpan(double seconds) : KyDateTime_(seconds, 1) {}

    // The low bits where the argument does not fit.
    constexpr void SetYears(int years) { year = static_cast<short>(years); }
    constexpr void SetMonths(int months) { month = static_cast<signed char>(months); }
    constexpr void SetDays(int days) { day = static_cast<signed char>(days); }
    constexpr void SetHours(int hours) { hour = static_cast<signed char>(hours); }
    constexpr void SetMinutes(int minutes) { minute = static_cast<signed char>(minutes); }
    constexpr void SetSeconds(int seconds) { second = static_cast<signed char>(seconds); }
    constexpr void SetNanoSeconds(int count) { nanoseconds = count; }

    constexpr void AddDays(int days) { KyDateTime_::AddDays(days, 1); }
    constexpr void AddHours(int hours) { KyDateTime_::AddHours(hours, 1); }
    constexpr void AddMinutes(int minutes) { KyDateTime_::AddMinutes(minutes, 1); }
    constexpr void AddSeconds(int seconds) { KyDateTime_::AddSeconds(seconds, 1); }
    constexpr void AddSeconds(long long seconds) { KyDateTime_::AddSeconds(seconds, 1); }
    constexpr void AddSeconds(double seconds) { KyDateTime_::AddSeconds(seconds, 1); }
    constexpr void AddNanoSeconds(int count) { KyDateTime_::AddNanoSeconds(count, 1); }
    constexpr void AddNanoSeconds(long long count) { KyDateTime_::AddNanoSeconds(count, 1); }

    constexpr int GetTotalDays() const { return KyDateTime_::GetTotalDays(1); }
    constexpr long long GetTotalSeconds() const { return KyDateTime_::GetTotalSeconds(1); }
    constexpr long long GetTotalNanoSeconds() const { return KyDateTime_::GetTotalNanoSeconds(1); }
    constexpr double GetTotalSeconds_f() const { return KyDateTime_::GetTotalSeconds_f(1); }

    constexpr void SetZero() { KyDateTime_::SetZero(1); }
    constexpr void SetTotalDays(int days) { KyDateTime_::SetTotalDays(days, 1); }
    constexpr void SetTotalSeconds(long long seconds) { KyDateTime_::SetTotalSeconds(seconds, 1); }
    constexpr void SetTotalSeconds(double seconds) { KyDateTime_::SetTotalSeconds(seconds, 1); }
    constexpr void SetTotalNanoSeconds(long long count) { KyDateTime_::SetTotalNanoSeconds(count, 1); }

    /// From one span to the other, never negative; null counts as zero.
    // KEPT: the fields are read as dates of the calendar, so that a span of a month less none is 31 days, and seconds
    // that are borrowed from midnight do not borrow from the day.
    static constexpr KyTimeSpan Difference(const KyTimeSpan& a, const KyTimeSpan& b);

    /// A null format is "%J.%H:%M:%f".
    KyString& PrintToKyString(KyString& out, const char* format) const;
    KyTimeSpan* ScanFromKyString(KyString& in, const char* format);

    static constexpr KyTimeSpan ClearValue() { return {0, 0, 0, 0, 0, 0, 0}; }
    static constexpr KyTimeSpan NullValue() { return {}; }
    // KEPT: the numbers of the default day, though a span has no day; stored defaults hold them.
    static constexpr KyTimeSpan DefaultValue() { return {-4713, 11, 24, 0, 0, 0, 0}; }
    static constexpr KyTimeSpan ZeroValue() { return {0, 0, 0, 0, 0, 0, 0}; }
    constexpr int IsDefaultValue() const;
    constexpr int IsZeroValue() const;
    constexpr int SetDefaultValue();  ///< returns 0
};

// `==`, `!=`, `<`, `<=`, `>`, `>=` of two `KyDateTimeN` or two `KyTimeSpan` are exact comparisons.

static_assert(sizeof(KyDateTimeN) == 12 && sizeof(KyTimeSpan) == 12);

#include "kydatimeN_arithmetic.h"

#endif
