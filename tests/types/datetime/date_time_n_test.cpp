#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "date_values.h"
#include "kydatimeN.h"
#include "oracle/slow_date_formulas.h"
#include "support/fewer_cases.h"

namespace {

__extension__ typedef __int128 Int128;

constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kGreatestInt = std::numeric_limits<int>::max();
constexpr long long kLeast64 = std::numeric_limits<long long>::min();
constexpr long long kGreatest64 = std::numeric_limits<long long>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

static_assert(std::is_trivially_copyable_v<KyDateTimeN> && std::is_standard_layout_v<KyDateTimeN>);

/// Since 0000-01-01, exact.
Int128 Nanoseconds(const KyDateTimeN& value) {
    const Int128 days = oracle::SlowDayNumber(value.year, value.month, value.day) - 1721060;
    return (days * 86400 + value.hour * 3600 + value.minute * 60 + value.second) * 1'000'000'000 + value.nanoseconds;
}

KyDateTimeN FromNanoseconds(Int128 count) {
    constexpr Int128 perDay = Int128{86400} * 1'000'000'000;
    Int128 days = count / perDay;
    Int128 rest = count % perDay;
    if (rest < 0) {
        rest += perDay;
        --days;
    }
    const oracle::Ymd date = oracle::SlowDate(static_cast<long long>(days) + 1721060);
    const auto seconds = static_cast<int>(rest / 1'000'000'000);
    return {static_cast<short>(date.year),
            static_cast<signed char>(date.month),
            static_cast<signed char>(date.day),
            static_cast<signed char>(seconds / 3600),
            static_cast<signed char>(seconds / 60 % 60),
            static_cast<signed char>(seconds % 60),
            static_cast<int>(rest % 1'000'000'000)};
}

template <class Amount>
KyDateTimeN NanosecondsLater(KyDateTimeN value, Amount count) {
    value.AddNanoSeconds(count);
    return value;
}

template <class Amount>
KyDateTimeN SecondsLater(KyDateTimeN value, Amount seconds) {
    value.AddSeconds(seconds);
    return value;
}

KyDateTimeN MinutesLater(KyDateTimeN value, int minutes) {
    value.AddMinutes(minutes);
    return value;
}

KyDateTimeN HoursLater(KyDateTimeN value, int hours) {
    value.AddHours(hours);
    return value;
}

KyDateTimeN DaysLater(KyDateTimeN value, int days) {
    value.AddDays(days);
    return value;
}

TEST(KyDateTimeN, IsMadeOfParts) {
    const KyDate date(2024, 5, 17);
    const KyTime time(10, 20, 30);
    EXPECT_EQ(KyDateTimeN(date), KyDateTimeN(2024, 5, 17, 0, 0, 0, 0));
    EXPECT_EQ(KyDateTimeN(time), KyDateTimeN(0, 0, 0, 10, 20, 30, 0));
    EXPECT_EQ(KyDateTimeN(date, time), KyDateTimeN(2024, 5, 17, 10, 20, 30, 0));
    EXPECT_EQ(KyDateTimeN(KyDateTime(date, time)), KyDateTimeN(2024, 5, 17, 10, 20, 30, 0));
    KyDateTimeN value(1, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ(value.Date(), KyDate(1, 2, 3));
    EXPECT_EQ(value.Time(), KyTime(4, 5, 6));
    EXPECT_EQ(value.DateTime(), KyDateTime(KyDate(1, 2, 3), KyTime(4, 5, 6)));
    value = KyDateTime(date, time);
    EXPECT_EQ(value, KyDateTimeN(2024, 5, 17, 10, 20, 30, 0));
    // Fields are stored as they are given.
    const KyDateTimeN odd(2024, 13, -1, 25, 61, 99, -5);
    EXPECT_TRUE(odd.month == 13 && odd.day == -1 && odd.hour == 25 && odd.second == 99 && odd.nanoseconds == -5);
}

TEST(KyDateTimeN, CarriesFromFieldToField) {
    const KyDateTimeN lastOfFebruary28(2024, 2, 28, 23, 59, 59, 999999999);
    const KyDateTimeN march(2024, 3, 1, 0, 0, 0, 0);
    EXPECT_EQ(NanosecondsLater(lastOfFebruary28, 1), KyDateTimeN(2024, 2, 29, 0, 0, 0, 0));
    EXPECT_EQ(NanosecondsLater(march, -1), KyDateTimeN(2024, 2, 29, 23, 59, 59, 999999999));
    EXPECT_EQ(SecondsLater(march, -1), KyDateTimeN(2024, 2, 29, 23, 59, 59, 0));
    EXPECT_EQ(SecondsLater(march, 86400LL * 366), KyDateTimeN(2025, 3, 2, 0, 0, 0, 0));
    EXPECT_EQ(MinutesLater(march, -1), KyDateTimeN(2024, 2, 29, 23, 59, 0, 0));
    EXPECT_EQ(MinutesLater(march, 3000), KyDateTimeN(2024, 3, 3, 2, 0, 0, 0));
    EXPECT_EQ(HoursLater(march, -25), KyDateTimeN(2024, 2, 28, 23, 0, 0, 0));
    EXPECT_EQ(DaysLater(march, -1), KyDateTimeN(2024, 2, 29, 0, 0, 0, 0));
    EXPECT_EQ(DaysLater(march, 31), KyDateTimeN(2024, 4, 1, 0, 0, 0, 0));
}

TEST(KyDateTimeN, AddingNothingChangesNothing) {
    const KyDateTimeN odd(2024, 13, 40, 25, 61, 99, -5);
    EXPECT_EQ(NanosecondsLater(odd, 0), odd);
    EXPECT_EQ(NanosecondsLater(odd, 0LL), odd);
    EXPECT_EQ(SecondsLater(odd, 0), odd);
    EXPECT_EQ(SecondsLater(odd, 0LL), odd);
    EXPECT_EQ(SecondsLater(odd, 0.0), odd);
    EXPECT_EQ(SecondsLater(odd, kNotANumber), odd);
    EXPECT_EQ(MinutesLater(odd, 0), odd);
    EXPECT_EQ(HoursLater(odd, 0), odd);
    EXPECT_EQ(DaysLater(odd, 0), odd);
    // Only what is passed on the way is brought into its range.
    EXPECT_EQ(SecondsLater(KyDateTimeN(2024, 1, 1, 30, 70, 0, -5), 1), KyDateTimeN(2024, 1, 1, 30, 70, 1, -5));
    EXPECT_EQ(SecondsLater(KyDateTimeN(2024, 1, 1, 30, 70, 0, -5), 60), KyDateTimeN(2024, 1, 2, 7, 11, 0, -5));
}

TEST(KyDateTimeN, SumsAreExact) {
    std::mt19937_64 random(21);
    for (int i = 0; i < 300000 / kFewerCases; ++i) {
        const Int128 start = Int128{static_cast<long long>(random() % 1'000'000'000'000)} * 1'000'000'000 +
                             static_cast<long long>(random() % 1'000'000'000);
        const KyDateTimeN value = FromNanoseconds(start);
        ASSERT_EQ(Nanoseconds(value), start);
        const auto count = static_cast<long long>(random()) >> (random() % 64);
        const auto shortCount = static_cast<int>(count);
        ASSERT_EQ(NanosecondsLater(value, count), FromNanoseconds(start + count)) << count;
        ASSERT_EQ(NanosecondsLater(value, shortCount), FromNanoseconds(start + shortCount)) << shortCount;
        const long long seconds = count % 500'000'000'000;
        ASSERT_EQ(SecondsLater(value, seconds), FromNanoseconds(start + Int128{seconds} * 1'000'000'000)) << seconds;
        ASSERT_EQ(SecondsLater(value, shortCount), FromNanoseconds(start + Int128{shortCount} * 1'000'000'000));
        ASSERT_EQ(MinutesLater(value, shortCount), FromNanoseconds(start + Int128{shortCount} * 60'000'000'000));
        const int hours = shortCount / 16;
        ASSERT_EQ(HoursLater(value, hours), FromNanoseconds(start + Int128{hours} * 3'600'000'000'000));
        const int days = shortCount / 1000;
        ASSERT_EQ(DaysLater(value, days), FromNanoseconds(start + Int128{days} * 86'400'000'000'000));
    }
}

TEST(KyDateTimeN, AnyAmountIsAllowed) {
    const KyDateTimeN value(2024, 1, 1, 12, 30, 45, 999999999);
    const Int128 start = Nanoseconds(value);
    for (const long long count : {kLeast64, kLeast64 + 1, kGreatest64}) {
        EXPECT_EQ(NanosecondsLater(value, count), FromNanoseconds(start + count)) << count;
    }
    // Numbers of days beyond int become the nearest int; the time is exact.
    const KyDateTimeN latest = SecondsLater(value, kGreatest64);
    EXPECT_EQ(latest.Date(), value.Date() + kGreatestInt);
    const KyDateTimeN exactTime = FromNanoseconds(Nanoseconds(KyDateTimeN(value.Time())) % 86'400'000'000'000 +
                                                  Int128{kGreatest64 % 86400} * 1'000'000'000);
    EXPECT_EQ(latest.Time(), exactTime.Time());
    EXPECT_EQ(SecondsLater(value, kLeast64).Date(), value.Date() + kLeastInt);
    EXPECT_EQ(DaysLater(value, kLeastInt).Date(), value.Date() + kLeastInt);
    EXPECT_EQ(DaysLater(value, kGreatestInt).Date(), value.Date() + kGreatestInt);
    EXPECT_EQ(HoursLater(value, kLeastInt).Date(), value.Date() - 89478485);
    EXPECT_EQ(NanosecondsLater(KyDateTimeN(2024, 1, 1, 0, 0, 0, kLeastInt), kLeastInt),
              KyDateTimeN(2023, 12, 31, 23, 59, 55, 705032704));
}

// KEPT: nothing tests for null; without a valid date years have 360 days.
TEST(KyDateTimeN, Kept_NullAndImpossibleDatesAreCountedIn30Days) {
    EXPECT_EQ(DaysLater(KyDateTimeN(), 1), KyDateTimeN(-32768, 11, 23, -128, -128, -128, 0));
    EXPECT_EQ(DaysLater(KyDateTimeN(2023, 2, 29, 0, 0, 0, 0), 1), KyDateTimeN(2023, 3, 0, 0, 0, 0, 0));
    EXPECT_EQ(DaysLater(KyDateTimeN(2023, 2, 31, 0, 0, 0, 0), -2), KyDateTimeN(2023, 2, 29, 0, 0, 0, 0));
    EXPECT_EQ(DaysLater(KyDateTimeN(KyTime(1, 2, 3)), -3), KyDateTimeN(0, 0, -3, 1, 2, 3, 0));
}

TEST(KyDateTimeN, SecondsOfADoubleAreTruncatedToNanoseconds) {
    const KyDateTimeN value(2024, 1, 1, 0, 0, 0, 0);
    EXPECT_EQ(SecondsLater(value, 1.5), KyDateTimeN(2024, 1, 1, 0, 0, 1, 500000000));
    EXPECT_EQ(SecondsLater(value, -0.25), KyDateTimeN(2023, 12, 31, 23, 59, 59, 750000000));
    EXPECT_EQ(SecondsLater(value, 1e-9), KyDateTimeN(2024, 1, 1, 0, 0, 0, 1));
    EXPECT_EQ(SecondsLater(value, 9e-10), value);
    EXPECT_EQ(SecondsLater(value, -9e-10), value);
    EXPECT_EQ(SecondsLater(value, 0.000000015), KyDateTimeN(2024, 1, 1, 0, 0, 0, 14));
    EXPECT_EQ(SecondsLater(value, 1.1), KyDateTimeN(2024, 1, 1, 0, 0, 1, 100000000));
    EXPECT_EQ(SecondsLater(value, 4.35), KyDateTimeN(2024, 1, 1, 0, 0, 4, 350000000));
    EXPECT_EQ(SecondsLater(value, 8.03), KyDateTimeN(2024, 1, 1, 0, 0, 8, 29999999));
}

TEST(KyDateTimeN, SecondsOfALargeDoubleAreAddedInTwoSteps) {
    const KyDateTimeN zero = KyDateTimeN::ZeroValue();
    constexpr double limit = 9223372036.854775808;
    for (const double seconds : {limit, -limit, limit + 1, 1e10, 1e10 + 0.5, -1e10 - 0.5, 63'000'000'000.75, 1e12}) {
        const auto whole = static_cast<long long>(seconds);
        const auto rest = static_cast<long long>((seconds - static_cast<double>(whole)) * 1e9);
        KyDateTimeN expected = FromNanoseconds(Nanoseconds(zero) + Int128{whole} * 1'000'000'000 + rest);
        if (seconds == -limit) expected = FromNanoseconds(kLeast64);  // it is the last that fits
        EXPECT_EQ(SecondsLater(zero, seconds), expected) << seconds;
    }
    const double below = std::nextafter(limit, 0);
    EXPECT_EQ(SecondsLater(zero, below), FromNanoseconds(static_cast<long long>(below * 1e9)));
    EXPECT_EQ(SecondsLater(zero, kInfinity), SecondsLater(zero, kGreatest64));
    EXPECT_EQ(SecondsLater(zero, -kInfinity), SecondsLater(zero, kLeast64));
    EXPECT_EQ(SecondsLater(zero, 1e300), SecondsLater(zero, kGreatest64));
    EXPECT_EQ(SecondsLater(zero, -1e19), SecondsLater(zero, kLeast64));
    EXPECT_EQ(SecondsLater(zero, 9223372036854774784.0), SecondsLater(zero, 9223372036854774784LL));
}

TEST(KyDateTimeN, TotalsCountFromTheYear0) {
    const KyDateTimeN zero = KyDateTimeN::ZeroValue();
    EXPECT_EQ(zero.GetTotalDays(), 0);
    EXPECT_EQ(zero.GetTotalSeconds(), 0);
    const KyDateTimeN value(2000, 1, 1, 1, 2, 3, 250000000);
    EXPECT_EQ(value.GetTotalDays(), 730485);
    EXPECT_EQ(value.GetTotalSeconds(), 730485LL * 86400 + 3723);
    EXPECT_EQ(value.GetTotalSeconds_f(), 63113907723.25);
    EXPECT_EQ(KyDateTimeN(10, 1, 1, 0, 0, 0, 7).GetTotalNanoSeconds(), 3653LL * 86'400'000'000'000 + 7);
    EXPECT_EQ(KyDateTimeN(-1, 12, 31, 23, 59, 59, 999999999).GetTotalNanoSeconds(), -1);
    EXPECT_EQ(KyDateTimeN(-1, 12, 31, 0, 0, 0, 0).GetTotalDays(), -1);
    EXPECT_EQ(KyDateTimeN(-1, 12, 31, 23, 59, 59, 0).GetTotalSeconds(), -1);
    // Modulo 2^64 where they do not fit.
    EXPECT_EQ(value.GetTotalNanoSeconds(), static_cast<long long>(static_cast<unsigned long long>(Nanoseconds(value))));
    EXPECT_EQ(KyDateTimeN(32767, 12, 31, 23, 59, 59, 1).GetTotalSeconds(), 1034058182399);
}

TEST(KyDateTimeN, TotalsAreSet) {
    KyDateTimeN value(2024, 5, 17, 1, 2, 3, 4);
    value.SetZero();
    EXPECT_EQ(value, KyDateTimeN(0, 1, 1, 0, 0, 0, 0));
    value = KyDateTimeN(2024, 5, 17, 1, 2, 3, 4);
    value.SetTotalDays(1);
    EXPECT_EQ(value, KyDateTimeN(0, 1, 2, 0, 0, 0, 0));
    value.SetTotalDays(-1);
    EXPECT_EQ(value, KyDateTimeN(-1, 12, 31, 0, 0, 0, 0));
    value.SetTotalSeconds(86400LL * 366 + 1);
    EXPECT_EQ(value, KyDateTimeN(1, 1, 1, 0, 0, 1, 0));
    value.SetTotalSeconds(1.5);
    EXPECT_EQ(value, KyDateTimeN(0, 1, 1, 0, 0, 1, 500000000));
    value.SetTotalSeconds(0.0);
    EXPECT_EQ(value, KyDateTimeN::ZeroValue());
    value.SetTotalNanoSeconds(-1);
    EXPECT_EQ(value, KyDateTimeN(-1, 12, 31, 23, 59, 59, 999999999));
    EXPECT_EQ(KyDateTimeN(86400.0 + 0.25), KyDateTimeN(0, 1, 2, 0, 0, 0, 250000000));
    EXPECT_EQ(KyDateTime_(86400.0 + 0.25, 1).Compare(KyTimeSpan(1, 0, 0, 0, 250000000), 0xFFFF), 0);
}

TEST(KyDateTimeN, TotalsOfAllYearsComeBack) {
    for (int year = -4799; year <= 32767; ++year) {
        const KyDateTimeN value(static_cast<short>(year), 2, 28, 23, 59, 58, 0);
        KyDateTimeN again;
        again.SetTotalSeconds(value.GetTotalSeconds());
        ASSERT_EQ(again, value);
        again.SetTotalDays(value.GetTotalDays());
        ASSERT_EQ(again, KyDateTimeN(value.Date()));
    }
}

TEST(KyDateTimeN, ComparesFieldsThenNanoseconds) {
    const auto at = [](int second, int nanoseconds) {
        return KyDateTimeN(2024, 5, 17, 10, 20, static_cast<signed char>(second), nanoseconds);
    };
    struct {
        KyDateTimeN a, b;
        int exact, withWildcards;
    } const cases[] = {
        {at(30, 5), at(30, 5), 0, 0},
        {at(30, 5), at(30, -1), 1, 0},
        {at(30, -1), at(30, 5), -1, 0},
        {at(30, 999999999), at(30, 0), 1, 1},
        {at(30, kLeastInt), at(30, kGreatestInt), -1, -1},
        {at(30, 5), at(27, 999999999), 3, 3},
        {at(30, 5), at(-1, 6), 31, -1},
        {at(30, 5), at(-1, -1), 31, 0},
        {at(30, 5), at(31, -1), -1, -1},
        {at(30, 5), KyDateTimeN(-1, -1, -1, -1, -1, -1, -1), 2025, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.a) + " with " + testing::PrintToString(c.b));
        EXPECT_EQ(c.a.Compare(c.b, 0xFFFF), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0010), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0000), c.withWildcards);
        EXPECT_EQ(c.a.Compare(c.b, 0xFFEF), c.withWildcards);
        EXPECT_EQ(c.a == c.b, c.exact == 0);
        EXPECT_EQ(c.a != c.b, c.exact != 0);
        EXPECT_EQ(c.a < c.b, c.exact < 0);
        EXPECT_EQ(c.a <= c.b, c.exact <= 0);
        EXPECT_EQ(c.a > c.b, c.exact > 0);
        EXPECT_EQ(c.a >= c.b, c.exact >= 0);
    }
}

TEST(KyDateTimeN, SpecialValues) {
    EXPECT_EQ(KyDateTimeN::ClearValue(), KyDateTimeN(0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(KyDateTimeN::NullValue(), KyDateTimeN(-32768, -128, -128, -128, -128, -128, 0));
    EXPECT_EQ(KyDateTimeN::DefaultValue(), KyDateTimeN(-4713, 11, 24, 0, 0, 0, 0));
    EXPECT_EQ(KyDateTimeN::ZeroValue(), KyDateTimeN(0, 1, 1, 0, 0, 0, 0));
    EXPECT_TRUE(KyDateTimeN().IsNullValue() != 0);
    EXPECT_TRUE(KyDateTime_().IsNullValue() != 0);

    KyDateTimeN value(2000, 1, 1, 0, 0, 0, 0);
    EXPECT_FALSE(value.IsNullValue() != 0 || value.IsDefaultValue() != 0 || value.IsZeroValue() != 0);
    EXPECT_EQ(value.SetNullValue(), 0);
    EXPECT_TRUE(value.IsNullValue() != 0 && value.IsDefaultValue() == 0 && value.IsZeroValue() == 0);
    value.nanoseconds = 1;
    EXPECT_FALSE(value.IsNullValue() != 0);
    EXPECT_EQ(value.SetDefaultValue(), 0);
    EXPECT_TRUE(value.IsNullValue() == 0 && value.IsDefaultValue() != 0 && value.IsZeroValue() == 0);
    value.SetZero();
    EXPECT_TRUE(value.IsNullValue() == 0 && value.IsDefaultValue() == 0 && value.IsZeroValue() != 0);
}

TEST(KyDateTimeN, IsValidWhenDateAndTimeAre) {
    EXPECT_TRUE(KyDateTimeN(2024, 2, 29, 23, 59, 59, -7).IsValidDateTime());
    EXPECT_FALSE(KyDateTimeN(2023, 2, 29, 23, 59, 59, 0).IsValidDateTime());
    EXPECT_FALSE(KyDateTimeN(2024, 2, 29, 24, 0, 0, 0).IsValidDateTime());
    EXPECT_FALSE(KyDateTimeN().IsValidDateTime());
}

}  // namespace
