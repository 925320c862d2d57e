#ifndef SLOW_DATE_FORMULAS_H
#define SLOW_DATE_FORMULAS_H

/// The formulas of dates and times, step by step, with every division made on absolute values.

#include <cstdint>

namespace oracle {

struct Ymd {
    long long year;
    long long month;
    long long day;
};

inline long long Quotient(long long a, long long b) {
    const bool negative = (a < 0) != (b < 0);
    const long long quotient = (a < 0 ? -a : a) / (b < 0 ? -b : b);
    return negative ? -quotient : quotient;
}

inline long long Remainder(long long a, long long b) {
    const bool negative = (a < 0) != (b < 0);
    const long long remainder = (a < 0 ? -a : a) % (b < 0 ? -b : b);
    return negative ? -remainder : remainder;
}

inline long long SlowDayNumber(long long year, long long month, long long day) {
    const long long a = Quotient(month - 14, 12);
    long long number = day - 32075;
    number += Quotient(1461 * (year + 4800 + a), 4);
    number += Quotient(367 * month - 4404 * a - 734, 12);
    number -= Quotient(3 * Quotient(year + 4900 + a, 100), 4);
    return number;
}

/// Fields before they are cut to their widths.
inline Ymd SlowDate(long long number) {
    long long l = number + 68569;
    const long long n = Quotient(4 * l, 146097);
    l = l - Quotient(146097 * n + 3, 4);
    const long long i = Quotient(4000 * (l + 1), 1461001);
    l = l - Quotient(1461 * i, 4) + 31;
    const long long m = Quotient(80 * l, 2447);
    const long long day = l - Quotient(2447 * m, 80);
    const long long k = Quotient(m, 11);
    return {100 * (n - 49) + i + k, m + 2 - 12 * k, day};
}

/// 0 Monday to 6 Sunday.
inline int SlowWeekday(long long year, long long month, long long day) {
    const long long a = Quotient(month - 14, 12);
    const long long y = year + a;
    const long long m = month + 10 - 12 * Quotient(month + 10, 13);
    const long long century = Quotient(y, 100);
    const long long s = Quotient(13 * m - 1, 5) + day + 77 + Quotient(5 * (y - 100 * century), 4);
    const int fromSunday[] = {6, 0, 1, 2, 3, 4, 5};
    const long long w = Remainder(s + Quotient(y, 400) - 2 * century, 7);
    return w >= 0 && w <= 6 ? fromSunday[w] : 6;
}

struct Hms {
    std::int8_t hour;
    std::int8_t minute;
    std::int8_t second;
};

/// Time of day plus seconds in fields of 8 bits.
inline Hms SlowTimeSum(Hms time, long long seconds) {
    const auto cut = [](long long value) { return static_cast<std::int8_t>(static_cast<std::uint8_t>(value & 0xFF)); };
    std::int8_t hour = cut(time.hour + Quotient(Quotient(seconds, 60), 60));
    std::int8_t minute = cut(time.minute + (Quotient(seconds, 60) - 60 * Quotient(Quotient(seconds, 60), 60)));
    std::int8_t second = cut(time.second + (seconds - 60 * Quotient(seconds, 60)));
    if (second >= 60) {
        second = cut(second - 60);
        minute = cut(minute + 1);
    } else if (second < 0) {
        second = cut(second + 60);
        minute = cut(minute - 1);
    }
    if (minute >= 60) {
        minute = cut(minute - 60);
        hour = cut(hour + 1);
    } else if (minute < 0) {
        minute = cut(minute + 60);
        hour = cut(hour - 1);
    }
    if (hour >= 24) {
        hour = cut(hour - Quotient(hour, 24) * 24);
    } else if (hour < 0) {
        hour = cut(hour - Quotient(hour, 24) * 24 + 24);
    }
    return {hour, minute, second};
}

}  // namespace oracle

#endif
