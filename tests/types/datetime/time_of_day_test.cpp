#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <type_traits>

#include "date_values.h"
#include "kydatime.h"
#include "oracle/slow_date_formulas.h"
#include "support/fewer_cases.h"

namespace {

constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kGreatestInt = std::numeric_limits<int>::max();

static_assert(std::is_trivially_copyable_v<KyTime> && std::is_standard_layout_v<KyTime> && sizeof(KyTime[2]) == 6);
static_assert(KyTime(23, 59, 59) + 1 == KyTime(0, 0, 0));

TEST(KyTime, FromSeconds) {
    struct {
        int seconds;
        KyTime time;
        int result;
    } const cases[] = {
        {0, KyTime(0, 0, 0), 0},
        {86399, KyTime(23, 59, 59), 0},
        {90000, KyTime(25, 0, 0), 0},
        {460799, KyTime(127, 59, 59), 0},
        {460800, KyTime(-128, 0, 0), 0},
        {-3600, KyTime(-1, 0, 0), 0},
        {-1, KyTime(0, 0, -1), -1},
        {-3661, KyTime(-1, -1, -1), -1},
        {kGreatestInt, KyTime(43, 14, 7), 0},  // 596523 hours
        {kLeastInt, KyTime(-43, -14, -8), -1},
    };
    for (const auto& c : cases) {
        KyTime time(1, 2, 3);
        EXPECT_EQ(time.SetSecondsAbs(c.seconds), c.result) << c.seconds;
        EXPECT_EQ(time, c.time) << c.seconds;
        EXPECT_EQ(KyTime(c.seconds), c.time) << c.seconds;
    }
    for (int seconds = 0; seconds < 86400; ++seconds) ASSERT_EQ(static_cast<int>(KyTime(seconds)), seconds);
    EXPECT_EQ(static_cast<int>(KyTime(-1, -1, -1)), -3661);
    EXPECT_EQ(static_cast<int>(KyTime(25, 0, 0)), 90000);
}

TEST(KyTime, IsTimeOfTheDay) {
    for (const KyTime time : {KyTime(0, 0, 0), KyTime(23, 59, 59)}) EXPECT_TRUE(time.IsTime());
    for (const KyTime time : {KyTime(24, 0, 0), KyTime(-1, 0, 0), KyTime(0, 60, 0), KyTime(0, -1, 0), KyTime(0, 0, 60),
                              KyTime(0, 0, -1), KyTime(90000), KyTime::NullValue()}) {
        EXPECT_FALSE(time.IsTime()) << testing::PrintToString(time);
    }
}

TEST(KyTime, SecondsAreAddedAndTaken) {
    struct {
        KyTime time;
        int seconds;
        KyTime expected;
    } const cases[] = {
        {KyTime(23, 59, 59), 1, KyTime(0, 0, 0)},     {KyTime(0, 0, 0), -1, KyTime(23, 59, 59)},
        {KyTime(12, 30, 0), 3600, KyTime(13, 30, 0)}, {KyTime(12, 30, 45), -46, KyTime(12, 29, 59)},
        {KyTime(0, 0, 0), 86400, KyTime(0, 0, 0)},    {KyTime(25, 0, 0), 0, KyTime(1, 0, 0)},
        {KyTime(0, 0, 61), 0, KyTime(0, 1, 1)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.time + c.seconds, c.expected) << testing::PrintToString(c.time) << " + " << c.seconds;
        EXPECT_EQ(c.time - -c.seconds, c.expected);
        KyTime time = c.time;
        EXPECT_EQ(&(time += c.seconds), &time);
        EXPECT_EQ(time, c.expected);
        time = c.time;
        EXPECT_EQ(&(time -= -c.seconds), &time);
        EXPECT_EQ(time, c.expected);
    }
    KyTime time(23, 59, 59);
    EXPECT_EQ(++time, KyTime(0, 0, 0));
    EXPECT_EQ(--time, KyTime(23, 59, 59));
    EXPECT_EQ(KyTime(12, 0, 0) - KyTime(1, 30, 15), KyTime(10, 29, 45));
    EXPECT_EQ(KyTime(1, 0, 0) - KyTime(2, 0, 0), KyTime(23, 0, 0));
}

// KEPT: a negative hour that is a multiple of 24 becomes 24, whether hours were taken or borrowed.
TEST(KyTime, Kept_Hour24) {
    EXPECT_EQ(KyTime(0, 0, 0) - 86400, KyTime(24, 0, 0));
    EXPECT_EQ(KyTime(0, 0, 0) - 2 * 86400, KyTime(24, 0, 0));
    EXPECT_EQ(KyTime(0, 0, 0) - 82801, KyTime(24, 59, 59));
    EXPECT_EQ(KyTime(0, 0, 0) - KyTime(23, 59, 59), KyTime(24, 0, 1));
    EXPECT_EQ(KyTime(5, 0, 0) - 29 * 3600, KyTime(24, 0, 0));
}

// KEPT: hours wrap modulo 256 before they are brought into the day.
TEST(KyTime, Kept_HoursWrapIn8Bits) {
    EXPECT_EQ(KyTime(0, 0, 0) + 1'000'000, KyTime(21, 46, 40));
    EXPECT_EQ(KyTime(23, 0, 0) + 127 * 3600, KyTime(14, 0, 0));
    // One carry step, no more.
    EXPECT_EQ(KyTime(0, 0, 127) + 59, KyTime(23, 59, -10));
}

TEST(KyTime, SumsAreThoseOf8BitFields) {
    const auto check = [](oracle::Hms start, int seconds) {
        const oracle::Hms sum = oracle::SlowTimeSum(start, seconds);
        const KyTime expected(sum.hour, sum.minute, sum.second);
        const KyTime time(start.hour, start.minute, start.second);
        ASSERT_EQ(time + seconds, expected) << testing::PrintToString(time) << " + " << seconds;
        const oracle::Hms difference = oracle::SlowTimeSum(start, -static_cast<long long>(seconds));
        ASSERT_EQ(time - seconds, KyTime(difference.hour, difference.minute, difference.second))
            << testing::PrintToString(time) << " - " << seconds;
    };
    for (int hour = -128; hour <= 127; ++hour) {
        for (int hours = -300; hours <= 300; hours += 1) {
            ASSERT_NO_FATAL_FAILURE(check({static_cast<std::int8_t>(hour), 0, 0}, hours * 3600));
        }
        ASSERT_NO_FATAL_FAILURE(check({0, static_cast<std::int8_t>(hour), 0}, 59 * 60));
        ASSERT_NO_FATAL_FAILURE(check({0, 0, static_cast<std::int8_t>(hour)}, 59));
    }
    std::mt19937 random(7);
    for (int i = 0; i < 400000 / kFewerCases; ++i) {
        const oracle::Hms start = {static_cast<std::int8_t>(random()), static_cast<std::int8_t>(random()),
                                   static_cast<std::int8_t>(random())};
        const auto seconds = static_cast<int>(random()) >> (random() % 32);
        ASSERT_NO_FATAL_FAILURE(check(start, seconds));
        ASSERT_NO_FATAL_FAILURE(check(start, kLeastInt));
        ASSERT_NO_FATAL_FAILURE(check(start, kGreatestInt));
    }
}

TEST(KyTime, ComparesWithWildcards) {
    struct {
        KyTime a, b;
        int exact, withWildcards;
    } const cases[] = {
        {KyTime(10, 20, 30), KyTime(10, 20, 30), 0, 0},    {KyTime(10, 20, 30), KyTime(9, 50, 50), 1, 1},
        {KyTime(10, 20, 30), KyTime(10, 25, 0), -5, -5},   {KyTime(10, 20, 30), KyTime(10, 20, 27), 3, 3},
        {KyTime(10, 20, 30), KyTime(-1, 20, -1), 11, 0},   {KyTime(-1, 20, 31), KyTime(10, 20, 30), -11, 1},
        {KyTime(10, -1, 30), KyTime(10, 20, 31), -21, -1}, {KyTime(10, 20, 30), KyTime(10, 20, -1), 31, 0},
        {KyTime(127, 0, 0), KyTime(-128, 0, 0), 255, 255},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.a) + " with " + testing::PrintToString(c.b));
        EXPECT_EQ(c.a.Compare(c.b, 0xFFFF), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0010), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0000), c.withWildcards);
        EXPECT_EQ(c.a.Compare(c.b, 0xFFEF), c.withWildcards);
    }
}

TEST(KyTime, RelationsAreExact) {
    std::mt19937 random(5);
    const auto field = [&] {
        const auto number = random() % 8;
        return static_cast<signed char>(number == 0 ? -128 : number == 1 ? 127 : static_cast<int>(number) - 4);
    };
    for (int i = 0; i < 20000; ++i) {
        const KyTime a(field(), field(), field());
        const KyTime b(field(), field(), field());
        const int order = a.Compare(b, 0x10);
        ASSERT_EQ(a == b, order == 0) << testing::PrintToString(a) << " with " << testing::PrintToString(b);
        ASSERT_EQ(a != b, order != 0);
        ASSERT_EQ(a < b, order < 0);
        ASSERT_EQ(a <= b, order <= 0);
        ASSERT_EQ(a > b, order > 0);
        ASSERT_EQ(a >= b, order >= 0);
    }
}

TEST(KyTime, SpecialValues) {
    EXPECT_EQ(KyTime::ClearValue(), KyTime(0, 0, 0));
    EXPECT_EQ(KyTime::NullValue(), KyTime(-128, -128, -128));
    EXPECT_EQ(KyTime::DefaultValue(), KyTime(0, 0, 0));
    EXPECT_EQ(KyTime::ZeroValue(), KyTime(0, 0, 0));

    KyTime time(1, 2, 3);
    EXPECT_FALSE(time.IsNullValue() != 0 || time.IsDefaultValue() != 0 || time.IsZeroValue() != 0);
    EXPECT_EQ(time.SetNullValue(), 0);
    EXPECT_TRUE(time.IsNullValue() != 0 && time.IsDefaultValue() == 0 && time.IsZeroValue() == 0);
    EXPECT_EQ(time.SetDefaultValue(), 0);
    EXPECT_TRUE(time.IsNullValue() == 0 && time.IsDefaultValue() != 0 && time.IsZeroValue() != 0);
    time = KyTime(1, 2, 3);
    EXPECT_EQ(time.SetZeroValue(), 0);
    EXPECT_TRUE(time.IsNullValue() == 0 && time.IsDefaultValue() != 0 && time.IsZeroValue() != 0);
}

}  // namespace
