#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include "kyint64.h"
#include "oracle/slow_int64.h"

// Every operation beside its bit-by-bit twin.

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__OPTIMIZE__)
#define KY_SLOW_BUILD
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KY_SLOW_BUILD
#endif
#endif

/// Random pairs behind those of the extremes. Instrumented and unoptimised builds look for undefined behaviour, for
/// which each kind of operand a few thousand times is enough.
#ifdef KY_SLOW_BUILD
constexpr int kRandomPairs = 300'000;
#else
constexpr int kRandomPairs = 10'000'000;
#endif

constexpr std::uint64_t kExtremes[] = {
    0,
    1,
    2,
    3,
    7,
    10,
    0x7FFFFFFF,
    0x80000000,
    0x80000001,
    0xFFFFFFFE,
    0xFFFFFFFF,
    0x100000000,
    0x100000001,
    0x123456789ABCDEF0,
    0x3FFFFFFFFFFFFFFF,
    0x4000000000000000,
    0x7FFFFFFF00000000,
    0x7FFFFFFFFFFFFFFE,
    0x7FFFFFFFFFFFFFFF,
    0x8000000000000000,
    0x8000000000000001,
    0x80000000FFFFFFFF,
    0xAAAAAAAAAAAAAAAA,
    0xC000000000000000,
    0xFFFFFFFF00000000,
    0xFFFFFFFF7FFFFFFF,
    0xFFFFFFFF80000000,
    0xFFFFFFFFFFFFFFF9,
    0xFFFFFFFFFFFFFFFE,
    0xFFFFFFFFFFFFFFFF,
};

/// Reproducible numbers; from the widely known xorshift family.
class Random {
public:
    std::uint64_t Next() {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return state;
    }

    /// Of any length in bits and both signs, so that small numbers come as often as large ones.
    std::uint64_t NextOperand() {
        const std::uint64_t choice = Next();
        const std::uint64_t magnitude = Next() >> (choice & 63);
        return (choice & 64) != 0 ? magnitude : ~magnitude + 1;
    }

private:
    std::uint64_t state = 0x9E3779B97F4A7C15u;
};

std::uint64_t BitsOf(const KyInt64& value) { return value.GetU8b(); }

/// Calls `check(a, b)` for all pairs of extremes, extremes with random numbers and random numbers, until it fails.
template <class Check>
void ForPairs(Check check) {
    for (const std::uint64_t a : kExtremes) {
        for (const std::uint64_t b : kExtremes) ASSERT_TRUE(check(a, b)) << std::hex << a << ' ' << b;
    }
    Random random;
    for (int i = 0; i < kRandomPairs; ++i) {
        std::uint64_t a = random.NextOperand();
        std::uint64_t b = random.NextOperand();
        if (i % 16 == 0) a = kExtremes[static_cast<unsigned>(i / 16) % std::size(kExtremes)];
        if (i % 16 == 8) b = kExtremes[static_cast<unsigned>(i / 16) % std::size(kExtremes)];
        if (!check(a, b)) FAIL() << std::hex << a << ' ' << b;
    }
}

TEST(Int64Arithmetic, AddsAndSubtractsAsTheHalvesDo) {
    ForPairs([](std::uint64_t a, std::uint64_t b) {
        const SlowInt64 slowA = SlowInt64::Of(a);
        const SlowInt64 slowB = SlowInt64::Of(b);
        KyInt64 sum(a);
        sum += b;
        KyInt64 difference(a);
        difference -= b;
        return BitsOf(KyInt64(a) + KyInt64(b)) == SlowAdd(slowA, slowB).Bits() && sum == KyInt64(a) + b &&
               BitsOf(KyInt64(a) - KyInt64(b)) == SlowSubtract(slowA, slowB).Bits() && difference == KyInt64(a) - b &&
               BitsOf(-KyInt64(a)) == SlowNegate(slowA).Bits() && BitsOf(~KyInt64(a)) == SlowNot(slowA).Bits() &&
               BitsOf(KyInt64(a).Abs()) == SlowAbs(slowA).Bits();
    });
}

TEST(Int64Arithmetic, ComparesAsTheHalvesDo) {
    ForPairs([](std::uint64_t a, std::uint64_t b) {
        const SlowInt64 slowA = SlowInt64::Of(a);
        const SlowInt64 slowB = SlowInt64::Of(b);
        const KyInt64 x(a);
        const KyInt64 y(b);
        return (x == y) == SlowEqual(slowA, slowB) && (x != y) == !SlowEqual(slowA, slowB) &&
               (x < y) == SlowLess(slowA, slowB) && (x > y) == SlowGreater(slowA, slowB) &&
               (x <= y) == !SlowGreater(slowA, slowB) && (x >= y) == !SlowLess(slowA, slowB);
    });
}

TEST(Int64Arithmetic, ShiftsAsTheHalvesDo) {
    ForPairs([](std::uint64_t a, std::uint64_t b) {
        const SlowInt64 slow = SlowInt64::Of(a);
        const int n = static_cast<int>(b % 80) - 8;
        KyInt64 left(a);
        left <<= n;
        KyInt64 right(a);
        right >>= n;
        return BitsOf(left) == SlowShiftLeft(slow, n).Bits() && BitsOf(right) == SlowShiftRight(slow, n).Bits();
    });
}

TEST(Int64Arithmetic, MultipliesAsTheHalvesDo) {
    ForPairs([](std::uint64_t a, std::uint64_t b) {
        KyInt64 product(a);
        product *= b;
        return BitsOf(product) == SlowMultiply(SlowInt64::Of(a), SlowInt64::Of(b)).Bits() && product == KyInt64(a) * b;
    });
}

TEST(Int64Arithmetic, DividesAsTheHalvesDo) {
    ForPairs([](std::uint64_t a, std::uint64_t b) {
        if (b == 0) return true;  // raises an assertion: tested by itself
        const SlowQuotient slow = SlowDivide(SlowInt64::Of(a), SlowInt64::Of(b));
        return BitsOf(KyInt64(a) / b) == slow.quotient.Bits() && BitsOf(KyInt64(a) % b) == slow.remainder.Bits();
    });
}

TEST(Int64Arithmetic, TruncatesDoublesAsTheHalvesDo) {
    ForPairs([](std::uint64_t a, std::uint64_t b) {
        const double pattern = std::bit_cast<double>(a);  // mostly out of range or below 1, NaNs among them
        const double number = static_cast<double>(static_cast<std::int64_t>(a)) / static_cast<double>(b % 16 + 1);
        return BitsOf(KyInt64(pattern)) == SlowFromDouble(pattern).Bits() &&
               BitsOf(KyInt64(number)) == SlowFromDouble(number).Bits();
    });
}

}  // namespace
