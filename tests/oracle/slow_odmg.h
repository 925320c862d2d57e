#ifndef SLOW_ODMG_H
#define SLOW_ODMG_H

/// The day numbers of the ODMG calendar as they are defined, step by step in floating-point numbers, and the rules of
/// its slots written down plainly.

#include <cmath>
#include <cstdint>

namespace slow_odmg {

inline int AbsDate(int year, int month, int day) {
    if (month < 3) {
        month += 13;
        --year;
    } else {
        ++month;
    }
    const double j = std::trunc(365.25 * year) + std::trunc(30.6001 * month) + day + 1720994;
    if (j < 2299170) return static_cast<int>(j);
    const int a = year / 100;
    return static_cast<int>(j) + 2 - a + a / 4;
}

struct Date {
    long long year;
    long long month;
    long long day;
};

inline Date DateOf(long long n) {
    const long long z = n + 1;
    long long a = z;
    if (z > 2299160) {
        const auto alpha = static_cast<long long>(std::trunc((static_cast<double>(z) - 1867216.25) / 36524.25));
        a = n + 2 + alpha - alpha / 4;
    }
    const double b = static_cast<double>(a + 1524);
    const double c = std::trunc((b - 122.1) / 365.25);
    const double e = std::floor((b - std::floor(365.25 * c)) / 30.6001);
    Date date{};
    date.day = static_cast<long long>(b - std::floor(365.25 * c) - std::floor(30.6001 * e));
    date.month = static_cast<long long>(e > 13 ? e - 13 : e - 1);
    date.year = static_cast<long long>(c) - 4716 + (date.month <= 2 ? 1 : 0);
    return date;
}

/// Of times with these local fields.
inline int TimeOrder(int h1, int m1, int s1, int c1, int h2, int m2, int s2, int c2) {
    if (h1 != h2) return h1 < h2 ? -1 : 1;
    if (m1 != m2) return m1 < m2 ? -1 : 1;
    const float x = static_cast<float>(s1) + static_cast<float>(c1) / 100;
    const float y = static_cast<float>(s2) + static_cast<float>(c2) / 100;
    const float difference = std::trunc(x - y);
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

}  // namespace slow_odmg

#endif
