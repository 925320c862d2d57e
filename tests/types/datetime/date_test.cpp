#include "kydatime.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

#include "date_values.h"
#include "kystring.h"
#include "oracle/slow_calendar.h"
#include "oracle/slow_date_formulas.h"
#include "support/fewer_cases.h"

namespace {

constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kGreatestInt = std::numeric_limits<int>::max();

static_assert(std::is_trivially_copyable_v<KyDate> && std::is_standard_layout_v<KyDate>);
static_assert(KyDate(2024, 2, 28) + 2 == KyDate(2024, 3, 1));
static_assert(KyDate(2024, 2, 29).IsDate());
static_assert(KyDate(2000, 1, 1).GetDayOfTheDate() == 5);

TEST(KyDate, DayNumbersAreJulian) {
    struct {
        KyDate date;
        int number;
    } const cases[] = {
        {KyDate(2000, 1, 1), 2451545},
        {KyDate(-4713, 11, 24), 0},
        {KyDate(2024, 2, 29), 2460370},
        {KyDate(2024, 3, 1), 2460371},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.date.dayabs(), c.number);
        EXPECT_EQ(static_cast<int>(c.date), c.number);
        EXPECT_EQ(KyDate(c.number), c.date) << c.number;
    }
    KyDate date(1, 2, 3);
    EXPECT_EQ(&date.dateabs(2451545), &date);
    EXPECT_EQ(date, KyDate(2000, 1, 1));
}

TEST(KyDate, DaysAreAddedAndTaken) {
    struct {
        KyDate date;
        int days;
        KyDate expected;
    } const cases[] = {
        {KyDate(2024, 1, 31), 1, KyDate(2024, 2, 1)},
        {KyDate(2024, 3, 1), -1, KyDate(2024, 2, 29)},
        {KyDate(2023, 3, 1), -1, KyDate(2023, 2, 28)},
        {KyDate(1900, 2, 28), 1, KyDate(1900, 3, 1)},
        {KyDate(2000, 2, 28), 1, KyDate(2000, 2, 29)},
        {KyDate(2024, 12, 31), 366, KyDate(2026, 1, 1)},
        {KyDate(0, 1, 1), -1, KyDate(-1, 12, 31)},
        {KyDate(32767, 12, 31), 1, KyDate(-32768, 1, 1)},  // the year keeps 16 bits
        {KyDate(2024, 2, 31), 0, KyDate(2024, 3, 2)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.date + c.days, c.expected) << testing::PrintToString(c.date);
        EXPECT_EQ(c.date - -c.days, c.expected) << testing::PrintToString(c.date);
        KyDate date = c.date;
        EXPECT_EQ(&(date += c.days), &date);
        EXPECT_EQ(date, c.expected);
        date = c.date;
        EXPECT_EQ(&(date -= -c.days), &date);
        EXPECT_EQ(date, c.expected);
    }
    KyDate date(2024, 2, 29);
    EXPECT_EQ(++date, KyDate(2024, 3, 1));
    EXPECT_EQ(--date, KyDate(2024, 2, 29));
    EXPECT_EQ(KyDate(2024, 3, 1) - KyDate(2024, 2, 1), 29);
    EXPECT_EQ(KyDate(2024, 2, 1) - KyDate(2024, 3, 1), -29);
}

TEST(KyDate, NoNumberOfDaysOverflows) {
    const auto expected = [](long long number) {
        const oracle::Ymd date = oracle::SlowDate(number);
        return KyDate(static_cast<short>(date.year), static_cast<signed char>(date.month),
                      static_cast<signed char>(date.day));
    };
    for (const KyDate date : {KyDate(2000, 1, 1), KyDate(32767, 12, 31), KyDate(-32768, 1, 1)}) {
        const long long number = date.dayabs();
        EXPECT_EQ(date + kGreatestInt, expected(number + kGreatestInt));
        EXPECT_EQ(date + kLeastInt, expected(number + kLeastInt));
        EXPECT_EQ(date - kGreatestInt, expected(number - kGreatestInt));
        EXPECT_EQ(date - kLeastInt, expected(number - static_cast<long long>(kLeastInt)));
    }
}

TEST(KyDate, DaysToTheNextMonth) {
    EXPECT_EQ(KyDate(2023, 12, 31).daynxtmonth(), 1);
    EXPECT_EQ(KyDate(2023, 12, 1).daynxtmonth(), 31);
    EXPECT_EQ(KyDate(2024, 2, 1).daynxtmonth(), 29);
    EXPECT_EQ(KyDate(2023, 2, 29).daynxtmonth(), 0);
    EXPECT_TRUE(KyDate(2023, 12, 31).IsLastDayOfTheMonth());
    EXPECT_TRUE(KyDate(2024, 2, 29).IsLastDayOfTheMonth());
    EXPECT_FALSE(KyDate(2024, 2, 28).IsLastDayOfTheMonth());
    // Month 128 is not month -128.
    for (int month = -128; month <= 127; ++month) {
        EXPECT_EQ(KyDate(2024, static_cast<signed char>(month), 1).daynxtmonth(),
                  oracle::SlowDayNumber(2024, month + 1, 1) - oracle::SlowDayNumber(2024, month, 1))
            << month;
    }
}

TEST(KyDate, ValidDatesAreThoseOfTheCalendar) {
    SlowCalendar slow(-4799, 1, 1);
    for (int year = -4799; year <= 32767; ++year) {
        for (int month = 0; month <= 13; ++month) {
            for (int day = 0; day <= 32; ++day) {
                const bool valid = slow.Year() == year && slow.Month() == month && slow.Day() == day;
                ASSERT_EQ(
                    KyDate(static_cast<short>(year), static_cast<signed char>(month), static_cast<signed char>(day))
                        .IsDate(),
                    valid)
                    << year << '-' << month << '-' << day;
                if (valid) slow.Next();
            }
        }
    }
}

// KEPT: by the formula, whose leap days stand a year early before -4800-03-01.
TEST(KyDate, Kept_EarlyDatesAreValidByTheFormula) {
    for (int year = -32768; year < -4799; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 28; day <= 31; ++day) {
                const bool valid = oracle::SlowDayNumber(year, month + 1, 1) > oracle::SlowDayNumber(year, month, day);
                ASSERT_EQ(
                    KyDate(static_cast<short>(year), static_cast<signed char>(month), static_cast<signed char>(day))
                        .IsDate(),
                    valid)
                    << year << '-' << month << '-' << day;
            }
        }
    }
}

TEST(KyDate, InvalidDates) {
    for (const KyDate date : {KyDate(1900, 2, 29), KyDate(2001, 2, 29), KyDate(2000, 4, 31), KyDate(2000, 13, 1),
                              KyDate(2000, 0, 1), KyDate(2000, 1, 0), KyDate(2000, 1, 32), KyDate(2000, -1, 1),
                              KyDate(2000, 1, -1), KyDate(2000, 1, -128), KyDate::NullValue(), KyDate::ClearValue()}) {
        EXPECT_FALSE(date.IsDate()) << testing::PrintToString(date);
    }
    EXPECT_TRUE(KyDate(2000, 2, 29).IsDate());
    // The wildcard of years is a year.
    EXPECT_TRUE(KyDate(-1, 5, 17).IsDate());
}

TEST(KyDate, WeekdaysOfTheCalendar) {
    SlowCalendar slow(0, 3, 1);
    int weekday = 2;  // Wednesday
    for (; slow.Year() < 4600 || slow.Month() < 3; slow.Next(), weekday = (weekday + 1) % 7) {
        const KyDate date(static_cast<short>(slow.Year()), static_cast<signed char>(slow.Month()),
                          static_cast<signed char>(slow.Day()));
        ASSERT_EQ(date.GetDayOfTheDate(), weekday) << testing::PrintToString(date);
    }
}

// KEPT: remainders below 0 give 6, from 4600-03-01 on and in early years; stored texts hold such days.
TEST(KyDate, Kept_WeekdaysOutsideTheCongruence) {
    for (int year = -32768; year <= 32767; year += kFewerCases) {
        for (int month = -1; month <= 14; ++month) {
            for (const int day : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 31}) {
                const KyDate date(static_cast<short>(year), static_cast<signed char>(month),
                                  static_cast<signed char>(day));
                ASSERT_EQ(date.GetDayOfTheDate(), oracle::SlowWeekday(year, month, day))
                    << testing::PrintToString(date);
            }
        }
    }
    for (const KyDate date : {KyDate(4600, 3, 1), KyDate(4700, 3, 1), KyDate(5300, 3, 1), KyDate(9975, 3, 1)}) {
        EXPECT_EQ(date.GetDayOfTheDate(), 6) << testing::PrintToString(date);
    }
}

TEST(KyDate, NameOfTheWeekday) {
    const char* const names[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
    for (int day = 0; day < 7; ++day) {
        const KyDate date(2024, 1, static_cast<signed char>(day + 1));
        EXPECT_EQ(date.GetDayOfTheDate(), day);
        EXPECT_STREQ(date.PrintDayOfTheDate().StrGet(), names[day]);
    }
    const KyDate saturday(2000, 1, 1);
    EXPECT_STREQ(saturday.PrintDayOfTheDate().StrGet(), "Saturday");
}

TEST(KyDate, NamesOfWeekdaysMayBeExchanged) {
    const char* const before = ky_weekdays[5];
    ky_weekdays[5] = "Sonnabend";
    const KyDate saturday(2000, 1, 1);
    EXPECT_STREQ(saturday.PrintDayOfTheDate().StrGet(), "Sonnabend");
    ky_weekdays[5] = before;
}

// KEPT: of an object that may change the number comes.
TEST(KyDate, Kept_ChangeableDatesPrintTheWeekdaysNumber) {
    KyDate saturday(2000, 1, 1);
    EXPECT_STREQ(saturday.PrintDayOfTheDate().StrGet(), "5");
    EXPECT_EQ(saturday.DayOfTheDate(), 5);
}

TEST(KyDate, QuotientAndRemainder) {
    struct {
        int a, b, quotient, remainder;
    } const cases[] = {
        {7, 2, 3, 1},
        {-7, 2, -3, -1},
        {7, -2, -3, -1},
        {-7, -2, 3, 1},
        {0, -5, 0, 0},
        {kLeastInt, -1, kLeastInt, 0},
        {kLeastInt, 10, -214748364, -8},
        {kLeastInt, -10, 214748364, 8},
        {5, kLeastInt, 0, -5},
        {-5, kLeastInt, 0, 5},
        {kLeastInt, kLeastInt, 1, 0},
    };
    const KyDate date(2000, 1, 1);
    for (const auto& c : cases) {
        EXPECT_EQ(date.divide(c.a, c.b), c.quotient) << c.a << " / " << c.b;
        EXPECT_EQ(date.modulo(c.a, c.b), c.remainder) << c.a << " mod " << c.b;
    }
}

TEST(KyDate, ComparesWithWildcards) {
    struct {
        KyDate a, b;
        int exact, withWildcards;
    } const cases[] = {
        {KyDate(2024, 5, 17), KyDate(2024, 5, 17), 0, 0},    {KyDate(2024, 5, 17), KyDate(2023, 6, 18), 1, 1},
        {KyDate(2024, 5, 17), KyDate(2024, 9, 1), -4, -4},   {KyDate(2024, 5, 17), KyDate(2024, 5, 11), 6, 6},
        {KyDate(2024, 5, 17), KyDate(-1, 5, -1), 2025, 0},   {KyDate(-1, 5, -1), KyDate(2024, 5, 17), -2025, 0},
        {KyDate(2024, 5, 17), KyDate(-1, 6, 17), 2025, -1},  {KyDate(2024, 5, 17), KyDate(2024, -1, 18), 6, -1},
        {KyDate(2024, -1, 17), KyDate(2024, 5, 18), -6, -1}, {KyDate(2024, 5, -1), KyDate(2024, 5, 17), -18, 0},
        {KyDate(2024, 5, -1), KyDate(2024, 6, 17), -1, -1},  {KyDate(32767, 1, 1), KyDate(-32768, 1, 1), 65535, 65535},
        {KyDate(0, 127, 1), KyDate(0, -128, 1), 255, 255},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.a) + " with " + testing::PrintToString(c.b));
        EXPECT_EQ(c.a.Compare(c.b, 0xFFFF), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0010), c.exact);
        EXPECT_EQ(c.a.Compare(c.b, 0x0000), c.withWildcards);
        EXPECT_EQ(c.a.Compare(c.b, 0xFFEF), c.withWildcards);
    }
}

TEST(KyDate, RelationsAreExact) {
    std::mt19937 random(4);
    const auto field = [&] { return static_cast<signed char>(static_cast<int>(random() % 4) - 2); };
    const auto date = [&] {
        const short year = random() % 8 == 0 ? std::numeric_limits<short>::min() : field();
        return KyDate(year, random() % 8 == 0 ? static_cast<signed char>(127) : field(),
                      random() % 8 == 0 ? static_cast<signed char>(-128) : field());
    };
    for (int i = 0; i < 20000; ++i) {
        const KyDate a = date();
        const KyDate b = date();
        const int order = a.Compare(b, 0x10);
        ASSERT_EQ(a == b, order == 0) << testing::PrintToString(a) << " with " << testing::PrintToString(b);
        ASSERT_EQ(a != b, order != 0);
        ASSERT_EQ(a < b, order < 0);
        ASSERT_EQ(a <= b, order <= 0);
        ASSERT_EQ(a > b, order > 0);
        ASSERT_EQ(a >= b, order >= 0);
    }
}

TEST(KyDate, SpecialValues) {
    EXPECT_EQ(KyDate::ClearValue(), KyDate(0, 0, 0));
    EXPECT_EQ(KyDate::NullValue(), KyDate(-32768, -128, -128));
    EXPECT_EQ(KyDate::DefaultValue(), KyDate(-4713, 11, 24));
    EXPECT_EQ(KyDate::ZeroValue(), KyDate(0, 1, 1));

    KyDate date(2000, 1, 1);
    EXPECT_FALSE(date.IsNullValue() != 0 || date.IsDefaultValue() != 0 || date.IsZeroValue() != 0);
    EXPECT_EQ(date.SetNullValue(), 0);
    EXPECT_TRUE(date.IsNullValue() != 0 && date.IsDefaultValue() == 0 && date.IsZeroValue() == 0);
    EXPECT_EQ(date.SetDefaultValue(), 0);
    EXPECT_TRUE(date.IsNullValue() == 0 && date.IsDefaultValue() != 0 && date.IsZeroValue() == 0);
    EXPECT_EQ(date.SetZeroValue(), 0);
    EXPECT_TRUE(date.IsNullValue() == 0 && date.IsDefaultValue() == 0 && date.IsZeroValue() != 0);
    EXPECT_FALSE(KyDate(-32768, -128, -127).IsNullValue() != 0);
}

TEST(KyDate, IsItsFieldsInMemory) {
    const KyDate date(0x0102, 3, -4);
    unsigned char bytes[4];
    std::memcpy(bytes, &date, sizeof bytes);
    EXPECT_EQ(bytes[0], 2);
    EXPECT_EQ(bytes[1], 1);
    EXPECT_EQ(bytes[2], 3);
    EXPECT_EQ(bytes[3], 0xFC);
}

}  // namespace
