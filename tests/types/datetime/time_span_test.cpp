#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <type_traits>

#include "date_values.h"
#include "kydatimeN.h"
#include "oracle/slow_spans.h"
#include "support/fewer_cases.h"

namespace {

__extension__ typedef __int128 Int128;

constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kGreatestInt = std::numeric_limits<int>::max();
constexpr long long kGreatest64 = std::numeric_limits<long long>::max();

static_assert(std::is_trivially_copyable_v<KyTimeSpan> && std::is_standard_layout_v<KyTimeSpan>);

KyTimeSpan Days(int years, int months, int days) { return {years, months, days, 0, 0, 0, 0}; }

KyTimeSpan DaysLater(KyTimeSpan span, int days) {
    span.AddDays(days);
    return span;
}

Int128 Nanoseconds(const KyTimeSpan& span) {
    const Int128 days = span.year * 360 + span.month * 30 + span.day;
    return (days * 86400 + span.hour * 3600 + span.minute * 60 + span.second) * 1'000'000'000 + span.nanoseconds;
}

TEST(KyTimeSpan, StoresFieldsAsGiven) {
    const KyTimeSpan span(1, 20, 300, 4000, -5, 6, -7);
    EXPECT_TRUE(span.year == 1 && span.month == 20 && span.day == 44 && span.hour == -96);
    EXPECT_TRUE(span.minute == -5 && span.second == 6 && span.nanoseconds == -7);
    EXPECT_EQ(KyTimeSpan(70000, 0, 0, 0, 0, 0, 0).year, 4464);

    KyTimeSpan set;
    set.SetYears(40000);
    set.SetMonths(300);
    set.SetDays(-129);
    set.SetHours(25);
    set.SetMinutes(61);
    set.SetSeconds(256);
    set.SetNanoSeconds(kGreatestInt);
    EXPECT_TRUE(set.year == -25536 && set.month == 44 && set.day == 127 && set.hour == 25 && set.minute == 61);
    EXPECT_TRUE(set.second == 0 && set.nanoseconds == kGreatestInt);
}

TEST(KyTimeSpan, DaysBecomeMonthsAndYears) {
    EXPECT_EQ(KyTimeSpan(45, 0, 0, 0, 0), Days(0, 1, 15));
    EXPECT_EQ(KyTimeSpan(45, 0, 0, 0, 0).GetTotalDays(), 45);
    EXPECT_EQ(KyTimeSpan(400, 1, 2, 3, 4), KyTimeSpan(1, 1, 10, 1, 2, 3, 4));
    EXPECT_EQ(KyTimeSpan(30, 90, 2, 3, 4), KyTimeSpan(0, 1, 0, 90, 2, 3, 4));  // the time as given
    EXPECT_EQ(KyTimeSpan(-3, 0, 0, 0, 0), Days(0, 0, -3));
}

TEST(KyTimeSpan, DaysAreAdded) {
    struct {
        KyTimeSpan span;
        int days;
        KyTimeSpan expected;
    } const cases[] = {
        {Days(0, 0, 0), 29, Days(0, 0, 29)},
        {Days(0, 0, 0), 30, Days(0, 1, 0)},
        {Days(0, 11, 29), 1, Days(1, 0, 0)},
        {Days(1, 0, 0), -1, Days(0, 11, 29)},
        {Days(0, 0, 0), 0, Days(0, 0, 0)},
        {Days(0, 14, 45), 0, Days(0, 14, 45)},
        {Days(0, 14, 45), 1, Days(1, 3, 16)},
        // Days below zero stay when there is nothing to borrow from.
        {Days(0, 0, 0), -3, Days(0, 0, -3)},
        {Days(0, 0, 0), -29, Days(0, 0, -29)},
        {Days(0, 1, 0), -3, Days(0, 0, 27)},
        {Days(1, 0, 0), -3, Days(0, 11, 27)},
        {Days(0, 0, -3), 3, Days(0, 0, 0)},
        // Months below zero likewise.
        {Days(0, 0, 0), -30, Days(0, -1, 0)},
        {Days(0, 0, 0), -45, Days(0, -2, 15)},
        {Days(0, 0, 0), -359, Days(-1, 0, 1)},
        {Days(0, 0, 0), -360, Days(-1, 0, 0)},
        {Days(0, 0, 0), -400, Days(-2, 10, 20)},
        {Days(-1, 0, 0), -3, Days(-2, 11, 27)},
        // The year stays within its field.
        {Days(32767, 11, 29), 1, Days(32767, 0, 0)},
        {Days(-32768, 0, 0), -1, Days(-32768, 11, 29)},
        {Days(0, 0, 0), kGreatestInt, Days(32767, 4, 7)},
        {Days(0, 0, 0), kLeastInt, Days(-32768, 7, 22)},
        {Days(0, 0, 127), kGreatestInt, Days(32767, 8, 14)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DaysLater(c.span, c.days), c.expected) << testing::PrintToString(c.span) << " + " << c.days;
    }
}

// The fields are a day of the calendar, too, which has 31 days in its month.
TEST(KyTimeSpan, EveryAmountIsAddedByMonthsOf30Days) {
    const auto sum = [](auto add) {
        KyTimeSpan span(0, 1, 30, 23, 59, 59, 999999999);
        add(span);
        return span;
    };
    const KyTimeSpan day(0, 2, 1, 23, 59, 59, 999999999);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddDays(1); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddHours(24); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddMinutes(1440); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddSeconds(86400); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddSeconds(86400LL); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddSeconds(86400.0); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddNanoSeconds(86'400'000'000'000LL); }), day);
    EXPECT_EQ(sum([](KyTimeSpan& span) { span.AddNanoSeconds(1); }), Days(0, 2, 1));
}

TEST(KyTimeSpan, SumsOfLengthsAreExact) {
    std::mt19937_64 random(31);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int i = 0; i < 300000 / kFewerCases; ++i) {
        const KyTimeSpan span(below(28000), below(12), below(30), below(24), below(60), below(60),
                              below(1'000'000'000));
        const Int128 start = Nanoseconds(span);
        const auto count = static_cast<long long>(random()) >> (random() % 64);
        KyTimeSpan sum = span;
        sum.AddNanoSeconds(count);
        ASSERT_EQ(Nanoseconds(sum), start + count) << testing::PrintToString(span) << " + " << count;
        ASSERT_TRUE(sum.hour >= 0 && sum.hour < 24 && sum.minute >= 0 && sum.minute < 60 && sum.second >= 0 &&
                    sum.second < 60 && sum.nanoseconds >= 0 && sum.nanoseconds < 1'000'000'000);
        ASSERT_TRUE(sum.day > -30 && sum.day < 30 && sum.month > -12 && sum.month < 12);
        const long long seconds = count % 80'000'000'000;
        sum = span;
        sum.AddSeconds(seconds);
        ASSERT_EQ(Nanoseconds(sum), start + Int128{seconds} * 1'000'000'000);
        const int minutes = static_cast<int>(count);
        sum = span;
        sum.AddMinutes(minutes);
        ASSERT_EQ(Nanoseconds(sum), start + Int128{minutes} * 60'000'000'000);
        sum = span;
        sum.AddHours(minutes / 128);
        ASSERT_EQ(Nanoseconds(sum), start + Int128{minutes / 128} * 3'600'000'000'000);
        ASSERT_EQ(span.GetTotalSeconds(), static_cast<long long>(start / 1'000'000'000));
        ASSERT_EQ(span.GetTotalNanoSeconds(), static_cast<long long>(static_cast<unsigned long long>(start)));
    }
}

TEST(KyTimeSpan, Totals) {
    const KyTimeSpan span(1, 2, 3, 4, 5, 6, 500000000);
    EXPECT_EQ(span.GetTotalDays(), 423);
    EXPECT_EQ(span.GetTotalSeconds(), 423LL * 86400 + 14706);
    EXPECT_EQ(span.GetTotalNanoSeconds(), (423LL * 86400 + 14706) * 1'000'000'000 + 500000000);
    EXPECT_EQ(span.GetTotalSeconds_f(), 423.0 * 86400 + 14706.5);
    EXPECT_EQ(Days(-1, 0, 0).GetTotalDays(), -360);

    KyTimeSpan set(1, 2, 3, 4, 5, 6, 7);
    set.SetZero();
    EXPECT_EQ(set, Days(0, 0, 0));
    set.SetTotalDays(423);
    EXPECT_EQ(set, Days(1, 2, 3));
    set.SetTotalSeconds(423LL * 86400 + 14706);
    EXPECT_EQ(set, KyTimeSpan(1, 2, 3, 4, 5, 6, 0));
    set.SetTotalSeconds(-0.5);
    EXPECT_EQ(set, KyTimeSpan(0, 0, -1, 23, 59, 59, 500000000));
    set.SetTotalNanoSeconds(1'000'000'001);
    EXPECT_EQ(set, KyTimeSpan(0, 0, 0, 0, 0, 1, 1));
    EXPECT_EQ(KyTimeSpan(90061.25), KyTimeSpan(0, 0, 1, 1, 1, 1, 250000000));
    set.SetTotalSeconds(kGreatest64);
    EXPECT_EQ(set.year, 32767);
}

// KEPT: fields are dates of the calendar here, and a borrowed second does not borrow from the day.
TEST(KyTimeSpan, Kept_DifferenceByTheCalendar) {
    struct {
        KyTimeSpan a, b, expected;
    } const cases[] = {
        {Days(0, 1, 0), Days(0, 0, 0), Days(0, 1, 1)},
        {Days(0, 12, 0), Days(0, 0, 0), Days(1, 0, 6)},
        {KyTimeSpan(0, 0, 2, 0, 0, 0, 0), KyTimeSpan(0, 0, 1, 23, 59, 59, 500000000),
         KyTimeSpan(0, 0, 1, 0, 0, 0, 500000000)},
        // The day before the first of a month is the last of the one before: no day is left to borrow from.
        {KyTimeSpan(0, 1, 0, 1, 0, 0, 0), KyTimeSpan(0, 0, 31, 2, 0, 0, 0), KyTimeSpan(0, 23, 0, 0, 0)},
        // 23936532 days are 66490 years, of which 16 bits stay.
        {Days(32767, 12, 31), Days(-32768, 1, 1), Days(954, 4, 12)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(KyTimeSpan::Difference(c.a, c.b), c.expected) << testing::PrintToString(c.a);
        EXPECT_EQ(KyTimeSpan::Difference(c.b, c.a), c.expected) << testing::PrintToString(c.a);
    }
}

TEST(KyTimeSpan, Difference) {
    struct {
        KyTimeSpan a, b, expected;
    } const cases[] = {
        {KyTimeSpan(1, 1, 0, 0, 0), KyTimeSpan(2, 0, 0, 0, 0), KyTimeSpan(0, 23, 0, 0, 0)},
        {KyTimeSpan(0, 1, 0, 0, 0), KyTimeSpan(0, 0, 0, 0, 1), KyTimeSpan(0, 0, 59, 59, 999999999)},
        {KyTimeSpan(5, 1, 2, 3, 4), KyTimeSpan(5, 1, 2, 3, 4), KyTimeSpan(0, 0, 0, 0, 0)},
        {KyTimeSpan(), KyTimeSpan(2, 3, 4, 5, 6), KyTimeSpan(2, 3, 4, 5, 6)},
        {KyTimeSpan(2, 3, 4, 5, 6), KyTimeSpan(), KyTimeSpan(2, 3, 4, 5, 6)},
        {KyTimeSpan(), KyTimeSpan(), KyTimeSpan(0, 0, 0, 0, 0)},
        // Fields outside their ranges are taken as they are.
        {KyTimeSpan(0, 0, 0, 0, 0, 0, kGreatestInt), KyTimeSpan(0, 0, 0, 0, 0, 0, kLeastInt),
         KyTimeSpan(0, 0, 0, 0, 0, 0, -1)},
        {KyTimeSpan(0, 0, 0, 5, 0, 0, kLeastInt), KyTimeSpan(0, 0, 0, 0, 0, 0, kGreatestInt),
         KyTimeSpan(0, 0, 0, 4, 59, 59, 1000000001)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(KyTimeSpan::Difference(c.a, c.b), c.expected)
            << testing::PrintToString(c.a) << " and " << testing::PrintToString(c.b);
    }
}

TEST(KyTimeSpan, DifferencesWithinAMonthAreExact) {
    std::mt19937 random(41);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int i = 0; i < 200000 / kFewerCases; ++i) {
        const KyTimeSpan a(0, 0, below(30), below(24), below(60), below(60), below(1'000'000'000));
        const KyTimeSpan b(0, 0, below(4), below(24), below(60), below(60), below(1'000'000'000));
        const KyTimeSpan& smaller = a < b ? a : b;
        if (smaller.Time() == KyTime(23, 59, 59)) continue;
        const Int128 apart = Nanoseconds(a) - Nanoseconds(b);
        const KyTimeSpan difference = KyTimeSpan::Difference(a, b);
        ASSERT_EQ(Nanoseconds(difference), apart < 0 ? -apart : apart)
            << testing::PrintToString(a) << " and " << testing::PrintToString(b);
        ASSERT_EQ(KyTimeSpan::Difference(b, a), difference);
    }
}

// Fields of any kind, in range and out of it.
KyTimeSpan AnySpan(std::mt19937& random) {
    const auto field = [&random](int range) {
        const auto number = static_cast<int>(random());
        switch (random() % 4) {
            case 0:
                return 0;
            case 1:
                return number % 256;
            default:
                return number % range;
        }
    };
    return {random() % 8 == 0 ? static_cast<int>(random()) : field(4),
            field(12),
            field(30),
            field(24),
            field(60),
            field(60),
            random() % 8 == 0 ? static_cast<int>(random()) : field(1'000'000'000)};
}

TEST(KyTimeSpan, DaysAreAddedToFieldsOfAnyKind) {
    std::mt19937 random(51);
    for (int i = 0; i < 400000 / kFewerCases; ++i) {
        const KyTimeSpan span = AnySpan(random);
        const int days = static_cast<int>(random()) >> (random() % 32);
        const oracle::Ymd sum = oracle::SlowSpanDays({span.year, span.month, span.day}, days);
        KyTimeSpan expected = span;
        expected.SetYears(static_cast<int>(sum.year));
        expected.SetMonths(static_cast<int>(sum.month));
        expected.SetDays(static_cast<int>(sum.day));
        ASSERT_EQ(DaysLater(span, days), expected) << testing::PrintToString(span) << " + " << days;
    }
}

TEST(KyTimeSpan, DifferencesOfFieldsOfAnyKind) {
    const auto slow = [](const KyTimeSpan& span) -> oracle::SlowSpan {
        return {{span.year, span.month, span.day}, {span.hour, span.minute, span.second}, span.nanoseconds};
    };
    std::mt19937 random(52);
    for (int i = 0; i < 400000 / kFewerCases; ++i) {
        const KyTimeSpan a = AnySpan(random);
        KyTimeSpan b = AnySpan(random);
        if (random() % 2 == 0) b.SetYears(a.year);
        const oracle::SlowSpan apart = oracle::SlowDifference(slow(a), slow(b));
        const KyTimeSpan expected(static_cast<int>(apart.date.year), static_cast<int>(apart.date.month),
                                  static_cast<int>(apart.date.day), apart.time.hour, apart.time.minute,
                                  apart.time.second, static_cast<int>(apart.nanoseconds));
        ASSERT_EQ(KyTimeSpan::Difference(a, b), expected)
            << testing::PrintToString(a) << " and " << testing::PrintToString(b);
    }
}

TEST(KyTimeSpan, RelationsAreExact) {
    const KyTimeSpan spans[] = {KyTimeSpan(),  Days(-1, 0, 0), Days(0, -1, 0), Days(0, 0, -1),
                                Days(0, 0, 0), Days(0, 0, 31), Days(0, 1, 0),  Days(0, 1, 1)};
    for (const KyTimeSpan& a : spans) {
        for (const KyTimeSpan& b : spans) {
            EXPECT_EQ(a == b, &a == &b);
            EXPECT_EQ(a != b, &a != &b);
            EXPECT_EQ(a < b, &a < &b);
            EXPECT_EQ(a <= b, &a <= &b);
            EXPECT_EQ(a > b, &a > &b);
            EXPECT_EQ(a >= b, &a >= &b);
        }
    }
}

TEST(KyTimeSpan, SpecialValues) {
    EXPECT_EQ(KyTimeSpan::ClearValue(), Days(0, 0, 0));
    EXPECT_EQ(KyTimeSpan::NullValue(), KyTimeSpan(-32768, -128, -128, -128, -128, -128, 0));
    EXPECT_EQ(KyTimeSpan::ZeroValue(), Days(0, 0, 0));
    EXPECT_EQ(KyTimeSpan(), KyTimeSpan::NullValue());

    KyTimeSpan span = Days(1, 0, 0);
    EXPECT_FALSE(span.IsNullValue() != 0 || span.IsDefaultValue() != 0 || span.IsZeroValue() != 0);
    EXPECT_EQ(span.SetNullValue(), 0);
    EXPECT_TRUE(span.IsNullValue() != 0 && span.IsDefaultValue() == 0 && span.IsZeroValue() == 0);
    EXPECT_EQ(span.SetDefaultValue(), 0);
    EXPECT_TRUE(span.IsNullValue() == 0 && span.IsDefaultValue() != 0 && span.IsZeroValue() == 0);
    span.SetZero();
    EXPECT_TRUE(span.IsNullValue() == 0 && span.IsDefaultValue() == 0 && span.IsZeroValue() != 0);
}

// KEPT: the numbers of a day, for a length.
TEST(KyTimeSpan, Kept_DefaultIsThatOfADay) { EXPECT_EQ(KyTimeSpan::DefaultValue(), Days(-4713, 11, 24)); }

}  // namespace
