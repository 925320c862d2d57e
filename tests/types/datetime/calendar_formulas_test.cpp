#include "calendar_formulas.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>

#include "date_values.h"
#include "kydatime.h"
#include "oracle/slow_calendar.h"
#include "oracle/slow_date_formulas.h"
#include "support/fewer_cases.h"

namespace {

bool Same(const oracle::Ymd& expected, const ky::CalendarFields& fields) {
    return expected.year == fields.year && expected.month == fields.month && expected.day == fields.day;
}

/// What the formula gives, cut to the fields.
KyDate Cut(const oracle::Ymd& date) {
    return {static_cast<short>(date.year), static_cast<signed char>(date.month), static_cast<signed char>(date.day)};
}

/// Either direction follows the calendar from a day of its own on; before it, the formula is the rule.
void CheckDay(const SlowCalendar& slow, int number) {
    const KyDate date(static_cast<short>(slow.Year()), static_cast<signed char>(slow.Month()),
                      static_cast<signed char>(slow.Day()));
    if (date >= KyDate(-4800, 3, 1)) {
        ASSERT_EQ(date.dayabs(), number) << testing::PrintToString(date);
    } else {
        ASSERT_EQ(date.dayabs(), oracle::SlowDayNumber(date.year, date.month, date.day))
            << testing::PrintToString(date);
    }
    const KyDate expected = date >= KyDate(-4900, 3, 1) ? date : Cut(oracle::SlowDate(number));
    ASSERT_TRUE(KyDate(number) == expected) << testing::PrintToString(date) << ' ' << number;
}

TEST(CalendarFormulas, EveryDayOnFrom2000) {
    SlowCalendar slow(2000, 1, 1);
    for (int number = 2451545; slow.Year() <= 32767; slow.Next(), ++number) {
        if (number % kFewerCases != 0) continue;
        ASSERT_NO_FATAL_FAILURE(CheckDay(slow, number));
    }
}

TEST(CalendarFormulas, EveryDayBackFrom2000) {
    SlowCalendar slow(2000, 1, 1);
    for (int number = 2451545; slow.Year() >= -10000; slow.Previous(), --number) {
        if (number % kFewerCases != 0) continue;
        ASSERT_NO_FATAL_FAILURE(CheckDay(slow, number));
    }
}

TEST(CalendarFormulas, EveryYearAndMonthOfTheFieldsHasTheNumberOfTheFormula) {
    for (int year = -32768; year <= 32767; year += kFewerCases) {
        for (int month = -128; month <= 128; ++month) {
            const long long expected = oracle::SlowDayNumber(year, month, 1);
            ASSERT_EQ(ky::DayNumberOfAnyFields(year, month, 1), expected) << year << '-' << month;
            if (month == 128) continue;
            ASSERT_EQ(ky::DayNumber(year, static_cast<signed char>(month), 1), expected) << year << '-' << month;
        }
    }
}

TEST(CalendarFormulas, EveryDayOfTheFieldIsAdded) {
    for (const int year : {-32768, -4801, -4800, -1, 0, 2024, 32767}) {
        for (const auto month : std::initializer_list<signed char>{-128, -1, 0, 1, 2, 3, 12, 13, 127}) {
            for (int day = -128; day <= 127; ++day) {
                ASSERT_EQ(ky::DayNumber(year, month, day), oracle::SlowDayNumber(year, month, day))
                    << year << '-' << int{month} << '-' << day;
            }
        }
    }
}

TEST(CalendarFormulas, EveryNumberOfTheCalendarGivesTheDayOfTheFormula) {
    for (int number = ky::kLeastPlainDay - 20000; number <= ky::kGreatestPlainDay + 20000; number += kFewerCases) {
        const oracle::Ymd expected = oracle::SlowDate(number);
        ASSERT_TRUE(Same(expected, ky::FieldsOfDayNumber(number))) << number;
    }
}

TEST(CalendarFormulas, NumbersFarOutsideGiveTheDayOfTheFormula) {
    constexpr long long greatest = 1LL << 33;
    const auto check = [](long long number) {
        const oracle::Ymd expected = oracle::SlowDate(number);
        ASSERT_TRUE(Same(expected, ky::FieldsOfDayNumber(number))) << number;
        ASSERT_TRUE(Same(expected, ky::FieldsOfAnyDayNumber(number))) << number;
    };
    for (long long number = -greatest; number <= greatest; number += 1601 * kFewerCases) {
        ASSERT_NO_FATAL_FAILURE(check(number));
    }
    ASSERT_NO_FATAL_FAILURE(check(greatest));
}

TEST(CalendarFormulas, AnyIntIsADay) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    for (const int number :
         {least, least + 1, -68571, -68570, -68569, -32045, 536802341, 536802342, 536802343, greatest - 1, greatest}) {
        EXPECT_TRUE(KyDate(number) == Cut(oracle::SlowDate(number))) << number;
    }
}

// KEPT: divisions truncate, so that before -4800-03-01 leap days stand a year early.
TEST(CalendarFormulas, Kept_EarlyLeapDaysAreShifted) {
    EXPECT_EQ(KyDate(-4800, 2, 29).dayabs(), KyDate(-4800, 3, 1).dayabs());
    EXPECT_FALSE(KyDate(-4800, 2, 29).IsDate());
    EXPECT_TRUE(KyDate(-4803, 2, 29).IsDate());
    EXPECT_FALSE(KyDate(-4804, 2, 29).IsDate());
    EXPECT_TRUE(KyDate(-4796, 2, 29).IsDate());
}

// KEPT: very early numbers give months and days below 1.
TEST(CalendarFormulas, Kept_VeryEarlyNumbersGiveNegativeFields) {
    EXPECT_EQ(KyDate(-68570), KyDate(-4900, 2, 30));
    EXPECT_EQ(KyDate(-1'000'000), KyDate(-7450, 1, -3));
    EXPECT_EQ(KyDate(-1'000'300), KyDate(-7450, -8, -28));
}

static_assert(KyDate(2451545) == KyDate(2000, 1, 1));
static_assert(KyDate(2000, 1, 1).dayabs() == 2451545);
static_assert(KyDate(0) == KyDate::DefaultValue());
static_assert(KyDate::NullValue() < KyDate(-32768, -128, -127));
static_assert(KyDate(32767, 127, 126) < KyDate(32767, 127, 127));
static_assert(KyDate(32767, 12, 31).dayabs() == ky::kGreatestPlainDay);

}  // namespace
