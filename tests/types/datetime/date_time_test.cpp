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

static_assert(std::is_trivially_copyable_v<KyDateTime> && std::is_standard_layout_v<KyDateTime>);

constexpr KyDateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {KyDate(static_cast<short>(year), static_cast<signed char>(month), static_cast<signed char>(day)),
            KyTime(static_cast<signed char>(hour), static_cast<signed char>(minute), static_cast<signed char>(second))};
}

constexpr KyDateTime SecondsLater(KyDateTime value, int seconds) {
    value.AddSeconds(seconds);
    return value;
}

constexpr KyDateTime SetToMinutes(KyDateTime value, int minutes) {
    value.AddMinutes(minutes);
    return value;
}

static_assert(SecondsLater(At(2024, 2, 28, 23, 59, 59), 1) == At(2024, 2, 29));

TEST(KyDateTime, HasADateAndATime) {
    const KyDate date(2024, 5, 17);
    const KyTime time(10, 20, 30);
    KyDateTime value(date, time);
    EXPECT_EQ(value.Date(), date);
    EXPECT_EQ(value.Time(), time);
    KyDateTime& assigned = value = KyTime(1, 2, 3);
    EXPECT_EQ(&assigned, &value);
    EXPECT_EQ(value, At(2024, 5, 17, 1, 2, 3));
}

TEST(KyDateTime, SecondsMoveTimeAndDay) {
    struct {
        KyDateTime value;
        int seconds;
        KyDateTime expected;
    } const cases[] = {
        {At(2024, 2, 28, 23, 59, 59), 1, At(2024, 2, 29)},
        {At(2024, 3, 1), -1, At(2024, 2, 29, 23, 59, 59)},
        {At(2024, 3, 1, 12), 86400, At(2024, 3, 2, 12)},
        {At(2024, 3, 1, 12), -86400, At(2024, 2, 29, 12)},
        {At(2024, 3, 1, 12), 86400 * 366 + 43200, At(2025, 3, 3)},
        {At(2024, 3, 1, 12), 0, At(2024, 3, 1, 12)},
        {At(1970, 1, 1), kGreatestInt, At(2038, 1, 19, 3, 14, 7)},
        {At(1970, 1, 1), kLeastInt, At(1901, 12, 13, 20, 45, 52)},
        // Without a day to add, no date is brought into the calendar.
        {At(2024, 2, 31, 10), 5, At(2024, 2, 31, 10, 0, 5)},
        {At(2024, 2, 31, 10), -5, At(2024, 2, 31, 9, 59, 55)},
        {At(2024, 2, 31, 23, 59, 59), 1, At(2024, 3, 3)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SecondsLater(c.value, c.seconds), c.expected)
            << testing::PrintToString(c.value) << " + " << c.seconds;
    }
}

// KEPT: the time's hour 24, and the day that is found by the order of the times.
TEST(KyDateTime, Kept_Hour24) {
    EXPECT_EQ(SecondsLater(At(2024, 1, 1), -82801), At(2023, 12, 31, 24, 59, 59));
    EXPECT_EQ(SecondsLater(At(2024, 1, 1, 24), 0), At(2024, 1, 2));
    EXPECT_EQ(SecondsLater(At(2024, 1, 1, 5), -3600 * 29), At(2023, 12, 31));
}

TEST(KyDateTime, SumsAreThoseOfTimeAndDay) {
    std::mt19937 random(11);
    for (int i = 0; i < 300000 / kFewerCases; ++i) {
        const bool anyTime = random() % 4 == 0;
        const KyDateTime value(KyDate(static_cast<int>(random() % 13'000'000)),
                               anyTime ? KyTime(static_cast<signed char>(random()), static_cast<signed char>(random()),
                                                static_cast<signed char>(random()))
                                       : KyTime(static_cast<int>(random() % 86400)));
        const int seconds = static_cast<int>(random()) >> (random() % 32);
        int days = seconds / 86400;
        const oracle::Hms sum = oracle::SlowTimeSum({value.hour, value.minute, value.second}, seconds % 86400);
        const KyTime time(sum.hour, sum.minute, sum.second);
        if (seconds % 86400 < 0 && time.Compare(value.Time(), 0x10) > 0) --days;
        if (seconds % 86400 >= 0 && time.Compare(value.Time(), 0x10) < 0) ++days;
        const KyDateTime expected(days == 0 ? value.Date() : value.Date() + days, time);
        ASSERT_EQ(SecondsLater(value, seconds), expected) << testing::PrintToString(value) << " + " << seconds;
    }
}

// KEPT: AddMinutes sets the time of day.
TEST(KyDateTime, Kept_MinutesAreSet) {
    struct {
        KyDateTime value;
        int minutes;
        KyDateTime expected;
    } const cases[] = {
        {At(2024, 3, 1, 17, 45, 12), -30, At(2024, 2, 29, 23, 30, 12)},
        {At(2024, 3, 1, 17, 45, 12), 90, At(2024, 3, 1, 1, 30, 12)},
        {At(2024, 3, 1, 17, 45, 12), 0, At(2024, 3, 1, 0, 0, 12)},
        {At(2024, 3, 1, 17, 45, 12), 1439, At(2024, 3, 1, 23, 59, 12)},
        {At(2024, 2, 29, 17, 45, 12), 1440, At(2024, 3, 1, 0, 0, 12)},
        {At(2024, 2, 29, 17, 45, 12), 2879, At(2024, 3, 1, 23, 59, 12)},
        {At(2024, 3, 1, 17, 45, 12), -60, At(2024, 2, 29, 23, 0, 12)},
        {At(2024, 3, 1, 17, 45, 12), -1, At(2024, 2, 29, 23, 59, 12)},
        {At(2024, 3, 1, 17, 45, 12), -1440, At(2024, 2, 29, 0, 0, 12)},
        // One day at the most; the rest stays in the hour.
        {At(2024, 3, 1, 17, 45, 12), 3000, At(2024, 3, 2, 26, 0, 12)},
        {At(2024, 3, 1, 17, 45, 12), -1500, At(2024, 2, 29, -1, 0, 12)},
        {At(2024, 3, 1, 17, 45, 12), -1501, At(2024, 2, 29, -2, 59, 12)},
        // 35791394 hours, of which 8 bits stay
        {At(2024, 3, 1, 17, 45, 12), kGreatestInt, At(2024, 3, 2, 10, 7, 12)},
        {At(2024, 3, 1, 17, 45, 12), kLeastInt, At(2024, 2, 29, -11, 52, 12)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SetToMinutes(c.value, c.minutes), c.expected)
            << testing::PrintToString(c.value) << " and " << c.minutes;
    }
}

TEST(KyDateTime, ComparesDateThenTime) {
    struct {
        KyDateTime a, b;
        int exact, withWildcards;
    } const cases[] = {
        {At(2024, 5, 17, 10), At(2024, 5, 17, 10), 0, 0},
        {At(2024, 5, 17, 10), At(2023, 5, 17, 23), 1, 1},
        {At(2024, 5, 17, 10), At(2024, 5, 17, 23), -13, -13},
        {At(2024, 5, 17, 10), At(-1, 5, -1, 10), 2025, 0},
        {At(2024, 5, 17, 10), At(-1, 5, -1, 12), 2025, -2},
        {At(2024, 5, 17, 10), At(2024, 5, -1, -1, 0, 0), 18, 0},
        {At(2024, 5, -1, 10, 1), At(2024, 5, 17, -1, -1, 3), -18, -3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.a) + " with " + testing::PrintToString(c.b));
        EXPECT_EQ(c.a.Compare(c.b), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0xFFFF), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0000), c.withWildcards);
    }
}

TEST(KyDateTime, RelationsAreExact) {
    std::mt19937 random(6);
    const auto field = [&] {
        const auto number = random() % 8;
        return number == 0 ? -128 : number == 1 ? 127 : number < 5 ? 0 : static_cast<int>(number) - 6;
    };
    for (int i = 0; i < 20000; ++i) {
        const KyDateTime a = At(field() * 258, field(), field(), field(), field(), field());
        KyDateTime b = random() % 2 == 0 ? At(field() * 258, field(), field(), field(), field(), field()) : a;
        if (random() % 2 == 0) b.second = static_cast<signed char>(field());
        const int order = a.Compare(b, 0x10);
        ASSERT_EQ(a == b, order == 0) << testing::PrintToString(a) << " with " << testing::PrintToString(b);
        ASSERT_EQ(a != b, order != 0);
        ASSERT_EQ(a < b, order < 0);
        ASSERT_EQ(a <= b, order <= 0);
        ASSERT_EQ(a > b, order > 0);
        ASSERT_EQ(a >= b, order >= 0);
    }
}

TEST(KyDateTime, IsValidWhenBothPartsAre) {
    EXPECT_TRUE(At(2024, 2, 29, 23, 59, 59).IsDateTime());
    EXPECT_TRUE(At(2024, 2, 29, 23, 59, 59).IsDaTime());
    EXPECT_FALSE(At(2023, 2, 29, 23, 59, 59).IsDateTime());
    EXPECT_FALSE(At(2024, 2, 29, 24).IsDateTime());
    EXPECT_FALSE(At(2024, 2, 29, 24).IsDaTime());
}

TEST(KyDateTime, SpecialValues) {
    EXPECT_EQ(KyDateTime::ClearValue(), At(0, 0, 0));
    EXPECT_EQ(KyDateTime::NullValue(), At(-32768, -128, -128, -128, -128, -128));
    EXPECT_EQ(KyDateTime::DefaultValue(), At(-4713, 11, 24));
    EXPECT_EQ(KyDateTime::ZeroValue(), At(0, 1, 1));

    KyDateTime value = At(2000, 1, 1);
    EXPECT_FALSE(value.IsNullValue() != 0 || value.IsDefaultValue() != 0 || value.IsZeroValue() != 0);
    EXPECT_EQ(value.SetNullValue(), 0);
    EXPECT_TRUE(value.IsNullValue() != 0 && value.IsDefaultValue() == 0 && value.IsZeroValue() == 0);
    EXPECT_EQ(value.SetDefaultValue(), 0);
    EXPECT_TRUE(value.IsNullValue() == 0 && value.IsDefaultValue() != 0 && value.IsZeroValue() == 0);
    EXPECT_EQ(value.SetZeroValue(), 0);
    EXPECT_TRUE(value.IsNullValue() == 0 && value.IsDefaultValue() == 0 && value.IsZeroValue() != 0);
}

// KEPT: what is called Null is the clear value.
TEST(KyDateTime, Kept_NullIsTheClearValue) {
    EXPECT_EQ(KyDateTime::Null(), KyDateTime::ClearValue());
    EXPECT_FALSE(KyDateTime::Null().IsNullValue() != 0);
}

}  // namespace
