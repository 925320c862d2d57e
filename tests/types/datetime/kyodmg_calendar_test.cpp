#include <gtest/gtest.h>

#include <random>

#include "kyodmg.h"
#include "oracle/slow_odmg.h"
#include "oracle/slow_switched_calendar.h"
#include "support/fewer_cases.h"

namespace {

/// What day numbers are too high by: years before 0, counted from March, lose a quarter that is cut toward 0.
int Excess(int year, int month) {
    const int marchYear = month < 3 ? year - 1 : year;
    return marchYear < 0 && marchYear % 4 != 0 ? 1 : 0;
}

d_Date DateOf(const SlowSwitchedCalendar& calendar) {
    return {static_cast<short>(calendar.Year()), static_cast<unsigned short>(calendar.Month()),
            static_cast<unsigned short>(calendar.Day())};
}

bool SameFields(const d_Date& a, const d_Date& b) {
    return a.year() == b.year() && a.month() == b.month() && a.day() == b.day();
}

TEST(OdmgCalendar, AgreesWithAWalkDayByDay) {
    SlowSwitchedCalendar calendar(-10000, 1, 1);
    // Less one: the Julian day 0 is -4712-01-01, 5288 years later, of which 1322 are leap years.
    int number = -(5288 * 365 + 1322) - 1;
    int weekday = ((number + 2) % 7 + 7) % 7;  // of the Julian day after it: 0 was a Monday
    int dayOfYear = 1;
    int firstExcess = Excess(-10000, 1);
    bool hasInverse = false;
    for (; !(calendar.Year() == 32767 && calendar.Month() == 12 && calendar.Day() == 31); ++number) {
        const d_Date date = DateOf(calendar);
        const int excess = Excess(calendar.Year(), calendar.Month());
        ASSERT_EQ(date.getAbsDate(), number + excess) << date.year() << ' ' << date.month() << ' ' << date.day();
        hasInverse |= SameFields(date, d_Date(-4716, 3, 1));
        d_Date found(0, 0, 0);
        found.setAbsDate(number);
        if (hasInverse) {
            ASSERT_TRUE(SameFields(found, date)) << number;
        }
        ASSERT_EQ(date.day_of_week(), (weekday + excess) % 7) << number;
        ASSERT_EQ(date.day_of_year(), dayOfYear + excess - firstExcess) << number;
        ASSERT_EQ(date.days_in_month(), calendar.DaysInMonth()) << number;
        const int year = calendar.Year();
        calendar.Next();
        weekday = (weekday + 1) % 7;
        ++dayOfYear;
        if (calendar.Year() != year) {
            dayOfYear = 1;
            firstExcess = Excess(calendar.Year(), 1);
        }
    }
    EXPECT_EQ(number, 13689324);
}

TEST(OdmgCalendar, DayNumbersAreThoseOfTheFloatingPointRule) {
    for (int year = -32768; year <= 32767; year += kFewerCases) {
        for (int month = 0; month < 256; ++month) {
            ASSERT_EQ(d_Date(static_cast<short>(year), static_cast<unsigned short>(month), 7).getAbsDate(),
                      slow_odmg::AbsDate(year, month, 7))
                << year << ' ' << month;
        }
    }
}

void ExpectDateOfRule(int number) {
    const slow_odmg::Date expected = slow_odmg::DateOf(number);
    d_Date date(1, 1, 1);
    date.setAbsDate(number);
    ASSERT_EQ(date.year(), static_cast<short>(expected.year)) << number;
    ASSERT_EQ(date.month(), static_cast<unsigned char>(expected.month)) << number;
    ASSERT_EQ(date.day(), static_cast<unsigned char>(expected.day)) << number;
}

TEST(OdmgCalendar, DatesAreThoseOfTheFloatingPointRule) {
    for (int number = -12000000; number <= 14000000; number += kFewerCases) ExpectDateOfRule(number);
    std::mt19937 random(7);
    for (int i = 0; i < 1000000; i += kFewerCases) ExpectDateOfRule(static_cast<int>(random()));
    for (const int number : {-2147483647 - 1, -2147483647, 2147483646, 2147483647}) ExpectDateOfRule(number);
}

TEST(OdmgCalendar, IsConstant) {
    static_assert(d_Date(2000, 1, 1).getAbsDate() == 2451544);
    static_assert(d_Date(2000, 1, 1).day_of_week() == d_Date::Saturday);
    static_assert(d_Date(1582, 10, 15).getAbsDate() == 2299160);
    static_assert(d_Date(1582, 10, 4).getAbsDate() == 2299159);
    static_assert(d_Date::days_in_month(1500, 2) == 29);
    static_assert(d_Date(2024, 60) == d_Date(2024, 2, 29));
    static_assert(d_Interval(0, -1, 30, 0).seconds() == -5400);
}

TEST(OdmgCalendar, DaysOfMonths) {
    const struct {
        short year;
        unsigned short month;
        int days;
    } cases[] = {{1500, 2, 29},  {1900, 2, 28},  {2000, 2, 29},      {2023, 13, 0}, {2023, 0, 0},  {2023, 2, 28},
                 {1600, 2, 29},  {1700, 2, 28},  {1599, 2, 28},      {-4, 2, 29},   {-100, 2, 29}, {2023, 255, 0},
                 {2023, 12, 31}, {2023, 11, 30}, {2023, 256 + 1, 0}, {32000, 2, 29}};
    for (const auto& c : cases) EXPECT_EQ(d_Date::days_in_month(c.year, c.month), c.days) << c.year << ' ' << c.month;
}

TEST(OdmgCalendar, TheChangeOfTheCalendarLeavesOutTenDays) {
    d_Date date(1582, 10, 4);
    EXPECT_EQ(date.day_of_week(), d_Date::Thursday);
    EXPECT_TRUE(SameFields(date++, d_Date(1582, 10, 4)));
    EXPECT_TRUE(SameFields(date, d_Date(1582, 10, 15)));
    EXPECT_EQ(date.day_of_week(), d_Date::Friday);
    EXPECT_TRUE(SameFields(date--, d_Date(1582, 10, 15)));
    EXPECT_TRUE(SameFields(date, d_Date(1582, 10, 4)));
    EXPECT_TRUE(SameFields(++date, d_Date(1582, 10, 15)));
    EXPECT_TRUE(SameFields(--date, d_Date(1582, 10, 4)));
}

TEST(OdmgCalendar, Kept_DaysLeftOutShareTheNumbersOfOthers) {
    for (unsigned short day = 5; day <= 14; ++day) {
        EXPECT_EQ(d_Date(1582, 10, day).getAbsDate(),
                  d_Date(1582, 10, static_cast<unsigned short>(day + 10)).getAbsDate());
    }
    EXPECT_EQ(d_Date(1582, 10, 5), d_Date(1582, 10, 15));
}

TEST(OdmgCalendar, Kept_EarlyDayNumbersAreOneTooHigh) {
    EXPECT_EQ(d_Date(0, 2, 29).getAbsDate(), 1721117);
    EXPECT_EQ(d_Date(0, 3, 1).getAbsDate(), 1721117);
    EXPECT_EQ(d_Date(0, 2, 29), d_Date(0, 3, 1));
    d_Date date(0, 2, 28);
    date++;  // 28 has the true number of 29
    EXPECT_TRUE(SameFields(date, d_Date(0, 3, 1)));
    date = d_Date(-3, 5, 5);
    date.setAbsDate(date.getAbsDate());
    EXPECT_TRUE(SameFields(date, d_Date(-3, 5, 6)));
    EXPECT_TRUE(SameFields(d_Date(-5, 1), d_Date(-5, 1, 2)));
}

TEST(OdmgCalendar, Kept_BeforeTheFirstYearOnlyYearsAreTruncated) {
    const struct {
        int number, year, month, day;
    } cases[] = {
        {-1402, -4716, 3, 1},   // where true dates begin
        {-1403, -4715, 2, 31},  // no inverse from here on back
        {-1526, -4715, 254, 30}, {-1768, -4715, 247, 2}, {-2525, -4718, 2, 5},
    };
    for (const auto& c : cases) {
        d_Date date(1, 1, 1);
        date.setAbsDate(c.number);
        EXPECT_EQ(date.year(), c.year) << c.number;
        EXPECT_EQ(date.month(), c.month) << c.number;
        EXPECT_EQ(date.day(), c.day) << c.number;
    }
}

TEST(OdmgCalendar, WeekdaysAreFoundInBothDirections) {
    const d_Date monday(2024, 5, 6);
    ASSERT_EQ(monday.day_of_week(), d_Date::Monday);
    for (int weekday = d_Date::Sunday; weekday <= d_Date::Saturday; ++weekday) {
        const auto wanted = static_cast<d_Date::Weekday>(weekday);
        const int later = weekday == d_Date::Monday ? 7 : (weekday + 7 - d_Date::Monday) % 7;
        d_Date date = monday;
        EXPECT_EQ(&date.next(wanted), &date);
        EXPECT_EQ(date != monday, later) << weekday;
        EXPECT_EQ(date.day_of_week(), wanted);
        date = monday;
        EXPECT_EQ(&date.previous(wanted), &date);
        EXPECT_EQ(monday != date, weekday == d_Date::Monday ? 7 : 7 - later) << weekday;
        EXPECT_EQ(date.day_of_week(), wanted);
    }
    d_Date sunday(2024, 5, 5);
    EXPECT_EQ(sunday.next(d_Date::Sunday), d_Date(2024, 5, 12));
}

TEST(OdmgCalendar, WeekdaysOfNegativeDayNumbers) {
    d_Date date(1, 1, 1);
    for (int number = -20; number < 20; ++number) {
        date.setAbsDate(number);
        // Those before -4716-03-01 are no inverse; these are behind it, and -4712 is a leap year.
        const int expected = ((date.getAbsDate() + 2) % 7 + 7) % 7;
        EXPECT_EQ(date.day_of_week(), expected) << number;
    }
    EXPECT_EQ(d_Date(-4713, 12, 28).getAbsDate(), -4);
    EXPECT_EQ(d_Date(-4713, 12, 28).day_of_week(), d_Date::Friday);
}

TEST(OdmgCalendar, DaysOfTheYear) {
    EXPECT_EQ(d_Date(2024, 12, 31).day_of_year(), 366);
    EXPECT_EQ(d_Date(2023, 12, 31).day_of_year(), 365);
    EXPECT_EQ(d_Date(1582, 12, 31).day_of_year(), 355);
    EXPECT_TRUE(SameFields(d_Date(2024, 366), d_Date(2024, 12, 31)));
    EXPECT_TRUE(SameFields(d_Date(2023, 366), d_Date(2024, 1, 1)));
    EXPECT_TRUE(SameFields(d_Date(2023, 0), d_Date(2022, 12, 31)));
    EXPECT_TRUE(SameFields(d_Date(2023, 1000), d_Date(2025, 9, 26)));
    EXPECT_TRUE(SameFields(d_Date(1582, 278), d_Date(1582, 10, 15)));
}

}  // namespace
