#include "kyint64.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "kybase.h"
#include "support/hex.h"

namespace {

constexpr long long kLeast = std::numeric_limits<long long>::min();
constexpr long long kLargest = std::numeric_limits<long long>::max();

TEST(Int64, LiesInMemoryLowHalfFirst) {
    const KyInt64 value(0x0102030405060708);
    EXPECT_EQ(Hex(&value, sizeof value), "08 07 06 05 04 03 02 01");
    EXPECT_EQ(KyInt64(0x05060708u, 0x01020304), value);
    EXPECT_EQ(alignof(KyInt64), 4u);
}

TEST(Int64, IsBuiltFromAndAssignedEveryNumber) {
    KyInt64 value;
    EXPECT_EQ(value.Get8b(), 0);
    EXPECT_EQ((value = -3).Get8b(), -3);
    EXPECT_EQ((value = 4294967295u).Get8b(), 4294967295);
    EXPECT_EQ((value = -3L).Get8b(), -3);
    EXPECT_EQ((value = ~0UL).GetU8b(), ~0ULL);
    EXPECT_EQ((value = kLeast).Get8b(), kLeast);
    EXPECT_EQ((value = ~0ULL).Get8b(), -1);
    EXPECT_EQ((value = -2.5).Get8b(), -2);
    EXPECT_EQ((value = 2.5f).Get8b(), 2);
    EXPECT_EQ((value = short{-7}).Get8b(), -7);
    EXPECT_EQ((value = KyInt64(0, 1)).Get8b(), 0x100000000);
    EXPECT_EQ(KyInt64(std::int64_t{-5}).Get8b(), -5);
    EXPECT_EQ(KyInt64(std::uint64_t{5}).Get8b(), 5);
}

struct FromDouble {
    double from;
    long long value;
};

TEST(Int64, TruncatesDoublesExactly) {
    const FromDouble table[] = {
        {0.0, 0},
        {-0.0, 0},
        {0.999999999999, 0},
        {-0.999999999999, 0},
        {1.0, 1},
        {1.9, 1},
        {-1.9, -1},
        {123456789.0, 123456789},
        {9007199254740992.0, 9007199254740992},
        {9007199254740991.0, 9007199254740991},
        {-9007199254740993.0, -9007199254740992},
        {9223372036854774784.0, 9223372036854774784},
        {-9223372036854774784.0, -9223372036854774784},
        {9223372036854775808.0, kLargest},
        {-9223372036854775808.0, -kLargest},
        {1e19, kLargest},
        {-1e19, -kLargest},
        {std::numeric_limits<double>::infinity(), kLargest},
        {-std::numeric_limits<double>::infinity(), -kLargest},
        {std::numeric_limits<double>::quiet_NaN(), 0},
        {-std::numeric_limits<double>::quiet_NaN(), 0},
        {5e-324, 0},
    };
    for (const FromDouble& each : table) EXPECT_EQ(KyInt64(each.from).Get8b(), each.value) << each.from;
}

TEST(Int64, CarriesBetweenTheHalves) {
    KyInt64 value(0xFFFFFFFFu, 0);
    EXPECT_EQ(value + 1, KyInt64(0, 1));
    EXPECT_EQ(++value, KyInt64(0, 1));
    EXPECT_EQ(--value, KyInt64(0xFFFFFFFFu, 0));
    EXPECT_EQ(1 + KyInt64(2), 3);
    EXPECT_EQ(KyInt64(kLargest) + 1, kLeast);
    EXPECT_EQ(KyInt64(kLeast) - 1, kLargest);
    EXPECT_EQ(-KyInt64(kLeast), kLeast);
    EXPECT_EQ(KyInt64(kLeast).Abs(), kLeast);
    EXPECT_EQ(KyInt64(-5).Abs(), 5);
}

TEST(Int64, MultipliesTheMostNegativeValueByParity) {
    EXPECT_EQ(KyInt64(kLeast) * 3, kLeast);
    EXPECT_EQ(KyInt64(kLeast) * 2, 0);
    EXPECT_EQ(3 * KyInt64(kLeast), kLeast);
    EXPECT_EQ(KyInt64(kLeast) * -1, kLeast);
}

TEST(Int64, CombinesBits) {
    EXPECT_EQ(KyInt64(0x0FF0) & 0x00FF, 0x00F0);
    EXPECT_EQ(KyInt64(0x0FF0) | 0x00FF, 0x0FFF);
    EXPECT_EQ(~KyInt64(0), -1);
}

TEST(Int64, ShiftsByAnyNumber) {
    EXPECT_EQ(KyInt64(1) << 63, kLeast);
    EXPECT_EQ(KyInt64(-1) << 64, 0);
    EXPECT_EQ(KyInt64(-1) << 1000, 0);
    EXPECT_EQ(KyInt64(-1) << std::numeric_limits<int>::max(), 0);
    EXPECT_EQ(KyInt64(5) << 0, 5);
    EXPECT_EQ(KyInt64(5) << -1, 5);
    EXPECT_EQ(KyInt64(kLeast) >> 63, -1);
    EXPECT_EQ(KyInt64(kLeast) >> 64, -1);
    EXPECT_EQ(KyInt64(kLargest) >> 64, 0);
    EXPECT_EQ(KyInt64(-5) >> std::numeric_limits<int>::min(), -5);
    EXPECT_EQ(KyInt64(-8) >> 1, -4);
}

struct Division {
    long long dividend;
    long long divisor;
    long long quotient;
    long long remainder;
};

void ExpectDivision(const Division& each) {
    SCOPED_TRACE(testing::Message() << each.dividend << " / " << each.divisor);
    const KyInt64 dividend(each.dividend);
    const KyInt64 divisor(each.divisor);
    EXPECT_EQ(dividend / divisor, each.quotient);
    EXPECT_EQ(dividend % divisor, each.remainder);
    EXPECT_EQ(dividend.Division(divisor, 0), each.quotient);
    EXPECT_EQ(dividend.Division(divisor, 1), each.remainder);
    EXPECT_EQ(dividend.Division(divisor, -2), each.remainder);
    KyInt64 value(dividend);
    EXPECT_EQ(value /= divisor, each.quotient);
    value = dividend;
    EXPECT_EQ(value %= divisor, each.remainder);
}

TEST(Int64, DividesTowardZero) {
    const Division table[] = {
        {7, 2, 3, 1},
        {7, -2, -3, 1},
        {-7, 2, -3, -1},
        {-7, -2, 3, -1},
        {0, -5, 0, 0},
        {5, kLargest, 0, 5},
        {kLargest, -1, -kLargest, 0},
        {kLeast, 1, kLeast, 0},
        {kLeast, -1, kLeast, 0},
        {kLeast, 2, kLeast / 2, 0},
        {kLeast, 3, -3074457345618258602, -2},
        {kLeast, kLargest, -1, -1},
    };
    for (const Division& each : table) ExpectDivision(each);
}

TEST(Int64, Kept_AMostNegativeDivisorLeavesTheDividend) {
    const Division table[] = {
        {5, kLeast, 0, 5},
        {-5, kLeast, 0, -5},
        {kLeast, kLeast, 0, kLeast},
    };
    for (const Division& each : table) ExpectDivision(each);
}

std::vector<std::string> assertions;

TEST(Int64, DivisionByZeroRaisesOneAssertionAndGivesZero) {
    const KyAssertHandler previous = KYRN_setAssertHandler([](const char* message, const char* source, int line) {
        assertions.push_back(std::string(message) + '|' + source + '|' + std::to_string(line));
    });
    const std::vector<std::string> once = {"KyInt64 divide by zero|src/kyint64|748"};
    for (const long long dividend : {0LL, 5LL, -5LL, kLeast}) {
        assertions.clear();
        EXPECT_EQ(KyInt64(dividend) / 0, 0);
        EXPECT_EQ(assertions, once);
        assertions.clear();
        EXPECT_EQ(KyInt64(dividend) % 0, 0);
        EXPECT_EQ(assertions, once);
        assertions.clear();
        KyInt64 value(dividend);
        EXPECT_EQ(value /= KyInt64(), 0);
        EXPECT_EQ(assertions, once);
    }
    KYRN_setAssertHandler(previous);
}

TEST(Int64, WorksInConstantExpressions) {
    static_assert(KyInt64(0xFFFFFFFFu, 0) + 1 == KyInt64(0, 1));
    static_assert((KyInt64(7) / 2).Get8b() == 3 && KyInt64(-1.5) == -1 && (KyInt64(1) << 40) > 5);
}

}  // namespace
