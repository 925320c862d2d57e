#ifndef SLOW_BOUNDS_H
#define SLOW_BOUNDS_H

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

/// The share of a range of keys, step by step as its rules are told, and once more in exact numbers.

/// Holds every 64-bit number of either sign, and their differences.
__extension__ using WideInteger = __int128;

inline double SlowCalcRange(unsigned op, double valueLow, double valueHigh, double lower, double upper, double unit) {
    const double largest = 1.7976931348623157e308;
    double kept = 0;
    op &= 0x800F;
    if ((op & 4) != 0) {
        double start = valueHigh;
        if (lower > valueHigh) start = lower - unit;
        const double above = upper - start;
        if (std::isnan(above)) {
            kept = largest;
        } else if (above > 0) {
            kept = above;
        }
    }
    if ((op & 2) != 0) {
        double end = valueLow;
        if (valueLow > upper) end = upper + unit;
        const double below = end - lower;
        if (std::isnan(below)) {
            kept += largest;
        } else if (below > 0) {
            kept += below;
        }
    }
    if ((op & 1) != 0) {
        const double first = lower > valueLow ? lower : valueLow;
        const double last = upper < valueHigh ? upper : valueHigh;
        double between = last - first;
        for (const double operand : {valueLow, valueHigh, lower, upper}) {
            if (std::isnan(operand)) between = operand;
        }
        if (std::isnan(between)) between = largest;
        between += unit;
        if (between > 0) kept += between;
    }
    return kept;
}

/// Of plain numbers; a limit that is missing is 0.
template <class T>
float SlowShare(unsigned op, T value, T lower, T upper) {
    const auto a = static_cast<double>(value);
    const auto c = static_cast<double>(lower);
    const auto d = static_cast<double>(upper);
    double range = SlowCalcRange(op, a, a, c, d, 1.0);
    if (std::is_integral_v<T> && sizeof(T) == 8 && range == 0.0) {
        const auto v = static_cast<WideInteger>(value);
        const bool outside = (op & 4) == 0 && static_cast<WideInteger>(lower) > v;
        if (!outside && ((op & 2) != 0 || v <= static_cast<WideInteger>(upper))) range = 1.0;
    }
    double width = d - c;
    if (std::is_same_v<T, double> && std::isnan(width)) width = 1.7976931348623157e308;
    width += 1.0;
    if (range == 0) return 0;
    if (std::is_integral_v<T> && width <= 0) return 0;
    double share = 0;
    if (width == 0) {
        share = std::numeric_limits<double>::infinity();
    } else {
        share = range / width;
    }
    if (std::is_floating_point_v<T>) {
        const bool enough = share >= 1.1920928955078125e-07;
        if (!enough) share = 1.1920928955078125e-07;
    }
    return share > 1 ? 1.0F : static_cast<float>(share);
}

/// Of nullable ones; nothing is null.
template <class T>
float SlowNullShare(unsigned op, std::optional<T> value, std::optional<T> lower, std::optional<T> upper) {
    double range = 0;
    if (value && lower && upper) {
        const auto a = static_cast<double>(*value);
        range = SlowCalcRange(op, a, a, static_cast<double>(*lower), static_cast<double>(*upper), 1.0);
    } else if (upper) {
        if ((op & 4) != 0) range += 0.5;  // the value or the lower limit is null
        if ((op & 2) != 0 && value) range += 0.5;
    }
    const double width = static_cast<double>(upper.value_or(T{})) - static_cast<double>(lower.value_or(T{})) + 1.0;
    if (!(width > 0)) return 0;
    const double share = range / width;
    if (std::isnan(share)) return 0;
    return share > 1 ? 1.0F : static_cast<float>(share);
}

/// How many of the whole numbers from `lower` to `upper` satisfy "number op value": no rounding, no special cases.
inline WideInteger CountKept(unsigned op, WideInteger value, WideInteger lower, WideInteger upper) {
    if (lower > upper) return 0;
    WideInteger kept = 0;
    const WideInteger below = (value - 1 < upper ? value - 1 : upper) - lower + 1;
    const WideInteger above = upper - (value + 1 > lower ? value + 1 : lower) + 1;
    if ((op & 2) != 0 && below > 0) kept += below;
    if ((op & 4) != 0 && above > 0) kept += above;
    if ((op & 1) != 0 && lower <= value && value <= upper) kept += 1;
    return kept;
}

#endif
