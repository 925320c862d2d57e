#ifndef SLOW_SPANS_H
#define SLOW_SPANS_H

/// The arithmetic of spans of time, step by step, over fields that are not yet cut to their widths.

#include "oracle/slow_date_formulas.h"

namespace oracle {

/// Years of 12 months of 30 days.
inline Ymd SlowSpanDays(Ymd span, long long days) {
    if (days == 0) return span;
    const long long allDays = span.day + days;
    long long months = Quotient(allDays, 30);
    long long day = allDays - 30 * months;
    if (day < 0) {
        if (months == 0 && span.month == 0 && span.year == 0) return {0, 0, day};
        day += 30;
        months -= 1;
    }
    span.day = day;
    if (months == 0) return span;

    const long long allMonths = span.month + months;
    long long years = Quotient(allMonths, 12);
    long long month = allMonths - 12 * years;
    if (month < 0) {
        if (years == 0 && span.year == 0) return {0, month, day};
        month += 12;
        years -= 1;
    }
    span.month = month;
    if (years == 0) return span;

    span.year += years;
    if (span.year < -32768) span.year = -32768;
    if (span.year > 32767) span.year = 32767;
    return span;
}

struct SlowSpan {
    Ymd date;
    Hms time;
    long long nanoseconds;
};

inline int SlowExactOrder(const SlowSpan& a, const SlowSpan& b) {
    const long long left[] = {a.date.year,   a.date.month,  a.date.day,   a.time.hour,
                              a.time.minute, a.time.second, a.nanoseconds};
    const long long right[] = {b.date.year,   b.date.month,  b.date.day,   b.time.hour,
                               b.time.minute, b.time.second, b.nanoseconds};
    for (int i = 0; i < 7; ++i) {
        if (left[i] != right[i]) return left[i] < right[i] ? -1 : 1;
    }
    return 0;
}

/// From one to the other by the calendar; neither is null.
inline SlowSpan SlowDifference(const SlowSpan& a, const SlowSpan& b) {
    SlowSpan larger = SlowExactOrder(a, b) < 0 ? b : a;
    SlowSpan smaller = SlowExactOrder(a, b) < 0 ? a : b;
    long long days = SlowDayNumber(larger.date.year, larger.date.month, larger.date.day) -
                     SlowDayNumber(smaller.date.year, smaller.date.month, smaller.date.day);
    if (larger.nanoseconds < smaller.nanoseconds) {
        larger.nanoseconds += 1'000'000'000;
        smaller.time = SlowTimeSum(smaller.time, 1);
    }
    const SlowSpan onlyTimes[] = {{{}, larger.time, 0}, {{}, smaller.time, 0}};
    if (SlowExactOrder(onlyTimes[0], onlyTimes[1]) < 0 && days >= 1) {
        larger.time.hour = static_cast<std::int8_t>(static_cast<std::uint8_t>((larger.time.hour + 24) & 0xFF));
        days -= 1;
    }
    const long long months = Quotient(days, 30);
    const long long years = Quotient(months, 12);
    const long long seconds = smaller.time.hour * 3600LL + smaller.time.minute * 60LL + smaller.time.second;
    return {{years, months - 12 * years, days - 30 * months},
            SlowTimeSum(larger.time, -seconds),
            larger.nanoseconds - smaller.nanoseconds};
}

}  // namespace oracle

#endif
