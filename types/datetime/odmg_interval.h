#ifndef ODMG_INTERVAL_H
#define ODMG_INTERVAL_H

#include <cmath>

namespace ky {

inline constexpr long long kHundredthsPerDay = 8640000;

constexpr long long FloorDiv(long long a, long long b) { return a / b - (a % b < 0 ? 1 : 0); }
constexpr long long FloorMod(long long a, long long b) { return a % b + (a % b < 0 ? b : 0); }

/// A length in seconds as hundredths, rounded to the nearest: cut short, 0.01 s would be none, because the float that
/// is next to it is less. Saturates symmetrically; NaN gives 0.
inline long long IntervalHundredths(float seconds) {
    constexpr double limit = 9223372036854774784.0;  // the largest double below 2^63
    const double count = static_cast<double>(seconds) * 100.0;
    if (std::isnan(count)) return 0;
    if (count >= limit) return static_cast<long long>(limit);
    if (count <= -limit) return -static_cast<long long>(limit);
    return std::llround(count);
}

}  // namespace ky

#endif
