#ifndef SLOW_INT64_H
#define SLOW_INT64_H

#include <cmath>
#include <cstdint>

/// The arithmetic of `KyInt64` on its two halves, bit by bit: slow, and plain enough to be believed.
struct SlowInt64 {
    std::uint32_t low = 0;
    std::int32_t high = 0;

    static SlowInt64 Of(std::uint64_t bits) {
        return {static_cast<std::uint32_t>(bits), static_cast<std::int32_t>(static_cast<std::uint32_t>(bits >> 32))};
    }
    static SlowInt64 Least() { return {0, INT32_MIN}; }

    std::uint64_t Bits() const { return (std::uint64_t{High()} << 32) | low; }
    std::uint32_t High() const { return static_cast<std::uint32_t>(high); }
    bool IsZero() const { return low == 0 && high == 0; }
    bool IsNegative() const { return high < 0; }
    bool Bit(int i) const { return ((i < 32 ? low >> i : High() >> (i - 32)) & 1) != 0; }
    SlowInt64 WithBit(int i) const {
        return i < 32 ? SlowInt64{low | (1u << i), high}
                      : SlowInt64{low, static_cast<std::int32_t>(High() | (1u << (i - 32)))};
    }
};

inline bool SlowEqual(SlowInt64 a, SlowInt64 b) { return a.high == b.high && a.low == b.low; }
inline bool SlowGreater(SlowInt64 a, SlowInt64 b) { return a.high != b.high ? a.high > b.high : a.low > b.low; }
inline bool SlowLess(SlowInt64 a, SlowInt64 b) { return !SlowGreater(a, b) && !SlowEqual(a, b); }

inline SlowInt64 SlowAdd(SlowInt64 a, SlowInt64 b) {
    const std::uint32_t low = a.low + b.low;
    std::uint32_t high = a.High() + b.High();
    if (low < b.low) ++high;
    return {low, static_cast<std::int32_t>(high)};
}

inline SlowInt64 SlowNot(SlowInt64 a) { return {~a.low, ~a.high}; }
inline SlowInt64 SlowNegate(SlowInt64 a) { return SlowAdd(SlowNot(a), {1, 0}); }
inline SlowInt64 SlowSubtract(SlowInt64 a, SlowInt64 b) { return SlowAdd(a, SlowNegate(b)); }
inline SlowInt64 SlowAbs(SlowInt64 a) { return SlowGreater(a, {}) ? a : SlowNegate(a); }

inline SlowInt64 SlowShiftLeft(SlowInt64 a, int n) {
    for (; n > 0; --n) {
        a.high = static_cast<std::int32_t>((a.High() << 1) | (a.low >> 31));
        a.low <<= 1;
    }
    return a;
}

inline SlowInt64 SlowShiftRight(SlowInt64 a, int n) {
    for (; n > 0; --n) {
        a.low = (a.low >> 1) | (a.High() << 31);
        a.high = static_cast<std::int32_t>((a.High() >> 1) | (a.High() & 0x80000000u));
    }
    return a;
}

inline SlowInt64 SlowMultiply(SlowInt64 a, SlowInt64 b) {
    if (SlowEqual(a, SlowInt64::Least())) return b.Bit(0) ? a : SlowInt64{};
    if (SlowEqual(b, SlowInt64::Least())) return a.Bit(0) ? b : SlowInt64{};
    const SlowInt64 factor = SlowAbs(b);
    SlowInt64 product;
    for (int i = 62; i >= 0; --i) {
        product = SlowAdd(product, product);
        if (factor.Bit(i)) product = SlowAdd(product, a);
    }
    return b.IsNegative() ? SlowNegate(product) : product;
}

struct SlowQuotient {
    SlowInt64 quotient;
    SlowInt64 remainder;
};

/// Long division. The most negative dividend is divided as the magnitude one smaller, the missing one added to the
/// remainder afterwards. A zero divisor gives zeros.
inline SlowQuotient SlowDivide(SlowInt64 dividend, SlowInt64 divisor) {
    if (divisor.IsZero()) return {};
    if (SlowEqual(divisor, SlowInt64::Least())) return {{}, dividend};
    const bool least = SlowEqual(dividend, SlowInt64::Least());
    const SlowInt64 numerator = least ? SlowInt64{0xFFFFFFFFu, INT32_MAX} : SlowAbs(dividend);
    const SlowInt64 denominator = SlowAbs(divisor);
    SlowQuotient result;
    for (int i = 62; i >= 0; --i) {
        // Below the denominator, so that twice of it still fits 64 bits; as an unsigned number it may exceed 63.
        SlowInt64 doubled = SlowAdd(result.remainder, result.remainder);
        if (numerator.Bit(i)) doubled = SlowAdd(doubled, {1, 0});
        if (doubled.IsNegative() || !SlowLess(doubled, denominator)) {
            doubled = SlowSubtract(doubled, denominator);
            result.quotient = result.quotient.WithBit(i);
        }
        result.remainder = doubled;
    }
    if (least) {
        result.remainder = SlowAdd(result.remainder, {1, 0});
        if (SlowEqual(result.remainder, denominator)) {
            result.remainder = {};
            result.quotient = SlowAdd(result.quotient, {1, 0});
        }
    }
    if (dividend.IsNegative() != divisor.IsNegative()) result.quotient = SlowNegate(result.quotient);
    if (dividend.IsNegative()) result.remainder = SlowNegate(result.remainder);
    return result;
}

/// The magnitude is taken apart by powers of two, each subtraction exact.
inline SlowInt64 SlowFromDouble(double value) {
    if (std::isnan(value)) return {};
    double rest = std::fabs(value);
    SlowInt64 magnitude;
    if (rest > 9223372036854774784.0) {
        magnitude = {0xFFFFFFFFu, INT32_MAX};
    } else {
        double weight = 0x1p62;
        for (int i = 62; i >= 0; --i, weight /= 2) {
            if (rest >= weight) {
                rest -= weight;
                magnitude = magnitude.WithBit(i);
            }
        }
    }
    return value < 0 ? SlowNegate(magnitude) : magnitude;
}

#endif
