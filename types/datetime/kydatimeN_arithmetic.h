#ifndef KYDATIMEN_ARITHMETIC_H
#define KYDATIMEN_ARITHMETIC_H

/// The inline parts of `kydatimeN.h`, which includes it.

#include "kydatimeN.h"

namespace ky {

/// Adds to a field that holds `unit` values and returns how often that is passed: the quotient is rounded down, and the
/// field ends between 0 and `unit` less 1.
template <class Field>
constexpr long long AddAndCarry(Field& field, long long amount, int unit) {
    long long carry = amount / unit;
    long long rest = amount % unit + field;
    carry += rest / unit;
    rest %= unit;
    if (rest < 0) {
        rest += unit;
        --carry;
    }
    field = static_cast<Field>(rest);
    return carry;
}

/// Truncated toward zero; what does not fit becomes the nearest number that does, NaN 0.
constexpr long long TruncatedToInt64(double x) {
    constexpr double limit = 9223372036854775808.0;  // 2^63
    if (x != x) return 0;
    if (x >= limit) return 0x7FFFFFFFFFFFFFFF;
    if (x < -limit) return -0x7FFFFFFFFFFFFFFF - 1;
    return static_cast<long long>(x);
}

}  // namespace ky

constexpr void KyDateTime_::AddNanoSeconds(long long count, int span) {
    if (count == 0) return;
    AddSecondsAndCarry(ky::AddAndCarry(nanoseconds, count, 1'000'000'000), span);
}

constexpr void KyDateTime_::AddSecondsAndCarry(long long seconds, int span) {
    if (seconds == 0) return;
    AddMinutesAndCarry(ky::AddAndCarry(second, seconds, 60), span);
}

constexpr void KyDateTime_::AddMinutesAndCarry(long long minutes, int span) {
    if (minutes == 0) return;
    AddHoursAndCarry(ky::AddAndCarry(minute, minutes, 60), span);
}

constexpr void KyDateTime_::AddHoursAndCarry(long long hours, int span) {
    if (hours == 0) return;
    constexpr long long greatest = 0x7FFFFFFF;
    long long days = ky::AddAndCarry(hour, hours, 24);
    if (days > greatest) days = greatest;
    if (days < -greatest - 1) days = -greatest - 1;
    AddDays(static_cast<int>(days), span);
}

constexpr void KyDateTime_::AddDays(int days, int span) {
    if (days == 0) return;
    if (span != 0 || !Date().IsDate()) {
        AddSpanDays(days);
        return;
    }
    const KyDate later = Date().DaysLater(days);
    year = later.year;
    month = later.month;
    day = later.day;
}

constexpr void KyDateTime_::AddSpanDays(long long days) {
    days += day;
    long long months = days / 30;
    days %= 30;
    if (days < 0 && !(months == 0 && month == 0 && year == 0)) {
        days += 30;
        --months;
    }
    day = static_cast<signed char>(days);
    if (months == 0) return;

    months += month;
    long long years = months / 12;
    months %= 12;
    if (months < 0 && !(years == 0 && year == 0)) {
        months += 12;
        --years;
    }
    month = static_cast<signed char>(months);
    if (years == 0) return;

    years += year;
    year = static_cast<short>(years < -32768 ? -32768 : years > 32767 ? 32767 : years);
}

constexpr void KyDateTime_::AddHours(int hours, int span) { AddHoursAndCarry(hours, span); }
constexpr void KyDateTime_::AddMinutes(int minutes, int span) { AddMinutesAndCarry(minutes, span); }
constexpr void KyDateTime_::AddSeconds(int seconds, int span) { AddSecondsAndCarry(seconds, span); }
constexpr void KyDateTime_::AddSeconds(long long seconds, int span) { AddSecondsAndCarry(seconds, span); }
constexpr void KyDateTime_::AddNanoSeconds(int count, int span) { AddNanoSeconds(static_cast<long long>(count), span); }

constexpr void KyDateTime_::AddSeconds(double seconds, int span) {
    constexpr double limit = 9223372036854775808.0;  // 2^63
    const double asNanoseconds = seconds * 1e9;
    if (asNanoseconds >= -limit && asNanoseconds < limit) {
        AddNanoSeconds(static_cast<long long>(asNanoseconds), span);
        return;
    }
    const long long whole = ky::TruncatedToInt64(seconds);
    AddSecondsAndCarry(whole, span);
    // What lies outside has no fraction, and NaN adds nothing.
    if (seconds >= -limit && seconds < limit) {
        AddNanoSeconds(static_cast<long long>((seconds - static_cast<double>(whole)) * 1e9), span);
    }
}

constexpr int KyDateTime_::GetTotalDays(int span) const {
    if (span != 0) return year * 360 + month * 30 + day;
    return Date().dayabs() - KyDate::ZeroValue().dayabs();
}

constexpr long long KyDateTime_::GetTotalSeconds(int span) const {
    return GetTotalDays(span) * 86400LL + static_cast<int>(Time());
}

constexpr long long KyDateTime_::GetTotalNanoSeconds(int span) const {
    const auto seconds = static_cast<unsigned long long>(GetTotalSeconds(span));
    return static_cast<long long>(seconds * 1'000'000'000 + static_cast<unsigned long long>(nanoseconds));
}

constexpr double KyDateTime_::GetTotalSeconds_f(int span) const {
    return static_cast<double>(GetTotalSeconds(span)) + nanoseconds / 1e9;
}

constexpr void KyDateTime_::SetZero(int span) {
    *this = span != 0 ? KyDateTime_(0, 0, 0, 0, 0, 0, 0) : KyDateTime_(KyDate::ZeroValue());
}

constexpr void KyDateTime_::SetTotalDays(int days, int span) {
    SetZero(span);
    AddDays(days, span);
}

constexpr void KyDateTime_::SetTotalSeconds(long long seconds, int span) {
    SetZero(span);
    AddSeconds(seconds, span);
}

constexpr void KyDateTime_::SetTotalSeconds(double seconds, int span) {
    SetZero(span);
    AddSeconds(seconds, span);
}

constexpr void KyDateTime_::SetTotalNanoSeconds(long long count, int span) {
    SetZero(span);
    AddNanoSeconds(count, span);
}

constexpr KyDateTime_::KyDateTime_(double seconds, int span) : KyDateTime_() { SetTotalSeconds(seconds, span); }

constexpr int KyDateTime_::Compare(const KyDateTime_& other, unsigned short flags) const {
    const int byDateTime = DateTime().Compare(other.DateTime(), flags);
    if (byDateTime != 0) return byDateTime;
    if ((flags & 0x10) == 0 && (nanoseconds == -1 || other.nanoseconds == -1)) return 0;
    return static_cast<int>(nanoseconds > other.nanoseconds) - static_cast<int>(nanoseconds < other.nanoseconds);
}

namespace ky {

/// The sign of the exact comparison.
constexpr int ExactOrder(const KyDateTime_& a, const KyDateTime_& b) {
    const KyDateTime first = a.DateTime();
    const KyDateTime second = b.DateTime();
    const int byDateTime = static_cast<int>(first > second) - static_cast<int>(first < second);
    const int byNanoseconds =
        static_cast<int>(a.nanoseconds > b.nanoseconds) - static_cast<int>(a.nanoseconds < b.nanoseconds);
    return byDateTime != 0 ? byDateTime : byNanoseconds;
}

}  // namespace ky

constexpr bool operator==(const KyDateTimeN& a, const KyDateTimeN& b) { return ky::ExactOrder(a, b) == 0; }
constexpr bool operator!=(const KyDateTimeN& a, const KyDateTimeN& b) { return ky::ExactOrder(a, b) != 0; }
constexpr bool operator<(const KyDateTimeN& a, const KyDateTimeN& b) { return ky::ExactOrder(a, b) < 0; }
constexpr bool operator<=(const KyDateTimeN& a, const KyDateTimeN& b) { return ky::ExactOrder(a, b) <= 0; }
constexpr bool operator>(const KyDateTimeN& a, const KyDateTimeN& b) { return ky::ExactOrder(a, b) > 0; }
constexpr bool operator>=(const KyDateTimeN& a, const KyDateTimeN& b) { return ky::ExactOrder(a, b) >= 0; }

constexpr bool operator==(const KyTimeSpan& a, const KyTimeSpan& b) { return ky::ExactOrder(a, b) == 0; }
constexpr bool operator!=(const KyTimeSpan& a, const KyTimeSpan& b) { return ky::ExactOrder(a, b) != 0; }
constexpr bool operator<(const KyTimeSpan& a, const KyTimeSpan& b) { return ky::ExactOrder(a, b) < 0; }
constexpr bool operator<=(const KyTimeSpan& a, const KyTimeSpan& b) { return ky::ExactOrder(a, b) <= 0; }
constexpr bool operator>(const KyTimeSpan& a, const KyTimeSpan& b) { return ky::ExactOrder(a, b) > 0; }
constexpr bool operator>=(const KyTimeSpan& a, const KyTimeSpan& b) { return ky::ExactOrder(a, b) >= 0; }

constexpr int KyDateTimeN::IsDefaultValue() const { return *this == DefaultValue(); }
constexpr int KyDateTimeN::IsZeroValue() const { return *this == ZeroValue(); }
constexpr int KyDateTimeN::SetDefaultValue() {
    *this = DefaultValue();
    return 0;
}

constexpr KyTimeSpan::KyTimeSpan(int years, int months, int days, int hours, int minutes, int seconds,
                                 int someNanoseconds)
    : KyDateTime_(static_cast<short>(years), static_cast<signed char>(months), static_cast<signed char>(days),
                  static_cast<signed char>(hours), static_cast<signed char>(minutes), static_cast<signed char>(seconds),
                  someNanoseconds) {}

constexpr KyTimeSpan::KyTimeSpan(int days, int hours, int minutes, int seconds, int someNanoseconds)
    : KyTimeSpan(0, 0, 0, hours, minutes, seconds, someNanoseconds) {
    AddDays(days);
}

constexpr KyTimeSpan KyTimeSpan::Difference(const KyTimeSpan& a, const KyTimeSpan& b) {
    const KyTimeSpan first = a.IsNullValue() != 0 ? ZeroValue() : a;
    const KyTimeSpan second = b.IsNullValue() != 0 ? ZeroValue() : b;
    const bool firstIsLarger = first > second;
    const KyTimeSpan& larger = firstIsLarger ? first : second;
    const KyTimeSpan& smaller = firstIsLarger ? second : first;

    int days = larger.Date() - smaller.Date();
    KyTime from = smaller.Time();
    KyTime to = larger.Time();
    long long nanosecondsApart = static_cast<long long>(larger.nanoseconds) - smaller.nanoseconds;
    if (nanosecondsApart < 0) {
        nanosecondsApart += 1'000'000'000;
        ++from;
    }
    if (to < from && days >= 1) {
        to.hour = static_cast<signed char>(to.hour + 24);
        --days;
    }
    const KyTime time = to - from;
    const int months = days / 30;
    return {
        months / 12, months % 12, days % 30, time.hour, time.minute, time.second, static_cast<int>(nanosecondsApart)};
}

constexpr int KyTimeSpan::IsDefaultValue() const { return *this == DefaultValue(); }
constexpr int KyTimeSpan::IsZeroValue() const { return *this == ZeroValue(); }
constexpr int KyTimeSpan::SetDefaultValue() {
    *this = DefaultValue();
    return 0;
}

#endif
