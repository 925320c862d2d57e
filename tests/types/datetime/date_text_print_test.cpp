/// What each directive prints.

#include <gtest/gtest.h>

#include "date_texts.h"
#include "kydatime.h"

namespace {

using Parts = ky::DateTimeParts;

constexpr Parts kMay = {2024, 5, 7, 15, 4, 9, 0};
constexpr Parts kNothing = {};

TEST(DatePrint, Directives) {
    CheckPrints({
        {kMay, "", ""},
        {kMay, "%%", "%"},
        {kMay, "%a", "Tue"},
        {kMay, "%A", "Tuesday"},
        {kMay, "%b", "May"},
        {kMay, "%B", "May"},
        {kMay, "%d", "07"},
        {kMay, "%D", "2024-05-07"},
        {kMay, "%e", "07"},
        {kMay, "%f", "09"},
        {kMay, "%H", "15"},
        {kMay, "%I", "03"},
        {kMay, "%J", "728797"},
        {kMay, "%m", "05"},
        {kMay, "%M", "04"},
        {kMay, "%N", "0"},
        {kMay, "%O", "2024-05-07T15:04:09"},
        {kMay, "%p", "pm"},
        {kMay, "%P", "PM"},
        {kMay, "%S", "09"},
        {kMay, "%T", "15:04:09"},
        {kMay, "%V", "728797.15:04:09"},
        {kMay, "%X", "2024-05-07T15:04:09"},
        {kMay, "%y", "24"},
        {kMay, "%Y", "2024"},
        {kMay, "%c%q%1%-% %(%)%*", "cq1- ()*"},
        {kMay, "%\x7F%\x80%\xC3%\xFF", "\x7F\x80\xC3\xFF"},
        {kMay, "Day %d of %B.", "Day 07 of May."},
        {kMay, "(%d)", "(07)"},
        {kMay, "%D%T%D", "2024-05-0715:04:092024-05-07"},
        {kMay, "%D %I %p", "2024-05-07 03 pm"},
        {kMay, "%Y-%m-%d %H:%M:%S", "2024-05-07 15:04:09"},
    });
}

TEST(DatePrint, RowsAndMembers) {
    CheckPrints({
        {kMay, "%a %e.%b %Y", "Tue 07.May 2024"},
        {kMay, "%a %b %e", "Tue May 07"},
        {kMay, "%I:%M:%S %p", "03:04:09 pm"},
        {kMay, "%a %e.%b %Y %I:%M:%S %p", "Tue 07.May 2024 03:04:09 pm"},
        {kMay, "%a %b %e %I:%M:%S %p", "Tue May 07 03:04:09 pm"},
        {kMay, "%Y-%m-%d", "2024-05-07"},
        {kMay, "%H:%M:%S", "15:04:09"},
        {kMay, "%Y-%m-%dT%H:%M:%S", "2024-05-07T15:04:09"},
        {{2024, 5, 7, 15, 4, 9, 25}, "%Y-%m-%dT%H:%M:%f", "2024-05-07T15:04:09.000000025"},
        {{0, 0, 1, 2, 3, 4, 500000000}, "%J.%H:%M:%f", "1.02:03:04.500"},
        {kMay, "%e days, %I hours, %M minutes, %S seconds", "07 days, 03 hours, 04 minutes, 09 seconds"},
    });
}

TEST(DatePrint, Years) {
    CheckPrints({
        {{.year = 0}, "%Y", "0000"},
        {{.year = 7}, "%Y", "0007"},
        {{.year = 9999}, "%Y %y", "9999 99"},
        {{.year = 10000}, "%Y %y", "10000 00"},
        {{.year = 32767}, "%Y-%m-%d", "32767-00-00"},
        {{.year = -44}, "%Y %y", "-0044 -44"},
        {{.year = -4713}, "%Y-%m-%d", "-4713-00-00"},
        {{.year = -32768}, "%Y %y", "-32768 -68"},
        {{.year = -100}, "%y", "00"},
        {{.year = 2000}, "%y", "00"},
        {{.year = 1905}, "%y", "05"},
    });
}

TEST(DatePrint, Months) {
    CheckPrints({
        {{.month = 1}, "%b %B", "Jan Januar"},
        {{.month = 2}, "%b %B", "Feb Februar"},
        {{.month = 3}, "%b %B", "Mar March"},
        {{.month = 4}, "%b %B", "Apr April"},
        {{.month = 6}, "%b %B", "Jun June"},
        {{.month = 7}, "%b %B", "Jul July"},
        {{.month = 8}, "%b %B", "Aug August"},
        {{.month = 9}, "%b %B", "Sep September"},
        {{.month = 10}, "%b %B", "Oct October"},
        {{.month = 11}, "%b %B", "Nov November"},
        {{.month = 12}, "%b %B", "Dec December"},
        {{.month = 0}, "%b %B", "000 000"},
        {{.month = 13}, "%b %B", "013 013"},
        {{.month = 127}, "%b %m", "127 127"},
        {{.month = -2}, "%b %B %m", "-002 -002 -02"},
        {{.month = -128}, "%b %m", "-128 -128"},
        {{2024, 13, 7}, "%a %e.%b %Y", "Tue 07.013 2024"},
        {{2024, 0, 7}, "%a %b %e", "Thu 000 07"},
    });
}

TEST(DatePrint, Weekdays) {
    CheckPrints({
        {{2024, 5, 6}, "%a %A", "Mon Monday"},
        {{2024, 5, 7}, "%a %A", "Tue Tuesday"},
        {{2024, 5, 8}, "%a %A", "Wed Wednesday"},
        {{2024, 5, 9}, "%a %A", "Thu Thursday"},
        {{2024, 5, 10}, "%a %A", "Fri Friday"},
        {{2024, 5, 11}, "%a %A", "Sat Saturday"},
        {{2024, 5, 12}, "%a %A", "Sun Sunday"},
        {{2024, 5, -1}, "%a %A", "* *"},
        {{-1, -1, 7}, "%?a", "Sun"},
    });
}

TEST(DatePrint, Hours) {
    CheckPrints({
        {{.hour = 0, .minute = 15}, "%I:%M %p", "12:15 am"},
        {{.hour = 12}, "%I:%M %p", "12:00 pm"},
        {{.hour = 1}, "%I %P", "01 AM"},
        {{.hour = 11}, "%I %P", "11 AM"},
        {{.hour = 13}, "%I %P", "01 PM"},
        {{.hour = 23}, "%I %P", "11 PM"},
        {{.hour = 24}, "%I %P", "12 PM"},
        {{.hour = 100}, "%I:%M:%S %p", "88:00:00 pm"},
        {{.hour = -2}, "%I %p", "-02 am"},
        {{.hour = 0}, "%I", "00"},
        {{.hour = 12}, "%I", "12"},
        {{.hour = 13}, "%I", "01"},
        {{.hour = 13}, "%H %p", "13 pm"},
        {{.hour = 0}, "%H %p", "00 am"},
        // Which directives tell the halves of the day apart.
        {{.hour = 0}, "%I %?p", "12 am"},
        {{.hour = 0}, "%I %?(p)", "12 am"},
        {{.hour = 0}, "%I%%p", "00%p"},
        {{.hour = 0}, "%I p", "00 p"},
        {{.hour = 0}, "%?p%I", "12"},
        {{.hour = 0}, "%?%p%I", "%p00"},
        {{.hour = 0}, "%I%?", "00"},
    });
}

TEST(DatePrint, Seconds) {
    CheckPrints({
        {{.second = 5, .nanoseconds = 0}, "%f", "05"},
        {{.second = 5, .nanoseconds = 250000000}, "%f", "05.250"},
        {{.second = 5, .nanoseconds = 250000}, "%f", "05.000250"},
        {{.second = 5, .nanoseconds = 1}, "%f", "05.000000001"},
        {{.second = 0, .nanoseconds = 999999999}, "%f", "00.999999999"},
        {{.second = -5, .nanoseconds = 0}, "%f", "-5"},
        {{.second = -5, .nanoseconds = -250000000}, "%f", "-5.250"},
        {{.second = -2, .nanoseconds = 1500000000}, "%f", "-0.500"},
        {{.second = -128, .nanoseconds = 1}, "%f", "-127.999999999"},
        {{.second = 127, .nanoseconds = 1000000000}, "%f", "128.000"},
        {{.second = -2, .nanoseconds = 2000000000}, "%f", "00.000"},
        {{.second = 59, .nanoseconds = 2147483647}, "%f", "61.147483647"},
        {{.second = 5, .nanoseconds = 123}, "%N", "123"},
        {{.second = 5, .nanoseconds = -123}, "%N", "-123"},
    });
}

TEST(DatePrint, TotalDays) {
    CheckPrints({
        {kNothing, "%J", "0"},
        {{1, 1, 1}, "%J", "391"},
        {{0, 0, -3}, "%J", "-3"},
        {{0, -1, 0}, "%J", "-30"},
        {{-1, -1, -1}, "%J", "*"},
        {{-1, -1, 5}, "%J", "-385"},
        {{32767, 127, 127}, "%J", "11800057"},
        {{0, 0, -1}, "%J.%H:%M:%f", "-1.00:00:00"},
    });
}

TEST(DatePrint, Wildcards) {
    CheckPrints({
        {{-1, 5, 7}, "%Y-%m-%d", "*-05-07"},
        {{-1, -1, -1, -1, -1, -1, -1},
         "%Y %y %m %b %B %d %e %a %A %H %I %M %S %N %f %J",
         "* * * * * * * * * * * * * * * *"},
        {{-1, -1, -1, -1, -1, -1, -1}, "%X", "*-*-*T*:*:*"},
        {{.second = -1}, "%f", "*"},
        {{.second = 3, .nanoseconds = -1}, "%f %S", "* 03"},
        {{.hour = -1}, "%p", "*"},
        {{.hour = -1}, "%I %p", "* *"},
        {{.hour = 3, .minute = -1}, "%M %p", "* *"},
        {{.hour = 3, .minute = -1}, "%M %H %p", "* 03 am"},
        {{.hour = 3, .minute = -1}, "%M %% %p %q", "* %* * q*"},
        {{.hour = 3, .minute = -1}, "%H%%%M%%%%%c%H%%", "03%*%*%*c*03%"},
        {{.hour = -1, .minute = 2}, "%M%p%%", "02*%"},
        {{.hour = 3, .minute = -1}, "%D%T%p", "0000-00-0003:*:00am"},
    });
}

TEST(DatePrint, PartsWithMoreDigitsThanUsual) {
    CheckPrints({
        {{9999, 99, 99, 99, 99, 99, 999999999}, "%X", "9999-99-99T99:99:99.999999999"},
        {{10000, 5, 7}, "%Y-%m-%d", "10000-05-07"},
        {{2024, 100, 7}, "%Y-%m-%d", "2024-100-07"},
        {{2024, 5, 100}, "%Y-%m-%d", "2024-05-100"},
        {{10000, 5, 7}, "%a %e.%b %Y", "Sun 07.May 10000"},
        {{2024, 5, 100}, "%a %b %e", "Thu May 100"},
        {{.hour = 100}, "%H:%M:%S", "100:00:00"},
        {{.minute = 100}, "%H:%M:%S", "00:100:00"},
        {{.second = 100}, "%H:%M:%S", "00:00:100"},
        {{.second = 100, .nanoseconds = 1000}, "%H:%M:%f", "00:00:100.000001"},
        {{.nanoseconds = 1000000000}, "%H:%M:%f", "00:00:01.000"},
        {{.nanoseconds = -1000}, "%H:%M:%f", "00:00:-0.000001"},
    });
}

TEST(DatePrint, WeekdaysAreThoseOfDates) {
    for (int year = -500; year <= 11000; ++year) {
        for (int month = -1; month <= 14; ++month) {
            for (const int day : {-128, -2, -1, 0, 1, 15, 28, 31, 99, 100, 127}) {
                const KyDate date(static_cast<short>(year), static_cast<signed char>(month),
                                  static_cast<signed char>(day));
                ASSERT_EQ(ky::kKyDatePrint.weekday({year, month, day}), date.GetDayOfTheDate())
                    << year << '-' << month << '-' << day;
            }
        }
    }
}

TEST(DatePrint, RulesOfOtherTypes) {
    const ky::DatePrintRules rules = {[](const Parts& parts) { return parts.day % 7; }, false};
    EXPECT_EQ(Printed({-1, -1, -1, -1, -1, -1, -1}, "%Y %m %d %H %M %S %N %p%%", rules),
              "-0001 -01 -01 -01 -01 -01 -1 am%");
    EXPECT_EQ(Printed({2024, 5, 7}, "%a %e.%b %Y", rules), "Mon 07.May 2024");
    EXPECT_EQ(Printed({2024, 5, 8}, "%A", rules), "Tuesday");
    EXPECT_EQ(Printed({.day = 123456, .hour = 13}, "%e %J %I", rules), "123456 123456 01");
    EXPECT_EQ(Printed({.day = -123456}, "%e %J", rules), "-123456 -123456");
    EXPECT_EQ(Printed({.second = -1}, "%f", rules), "-1");
    EXPECT_EQ(Printed({-1, -1, -1, -1, -1, -1, -1}, "%V", rules), "-391.-01:-01:-1.000000001");

    const ky::DatePrintRules wholeHours = {rules.weekday, false, false};
    EXPECT_EQ(Printed({.day = 3, .hour = 23}, "%e days, %I hours", wholeHours), "03 days, 23 hours");
    EXPECT_EQ(Printed({.hour = 0, .minute = 1, .second = 2}, "%I:%M:%S %p", wholeHours), "00:01:02 am");
    EXPECT_EQ(Printed({.hour = 15}, "%I%p", wholeHours), "15pm");
}

TEST(DatePrint, PartsOfAnySize) {
    constexpr int kLeast = -2147483647 - 1;
    constexpr int kMost = 2147483647;
    EXPECT_EQ(Printed({kLeast, kLeast, kLeast, kLeast, kLeast, kLeast, kLeast}, "%Y %m %b %d %H %I %M %S %N %J"),
              "-2147483648 -2147483648 -2147483648 -2147483648 -2147483648 -2147483648 -2147483648 -2147483648 "
              "-2147483648 -839666106368");
    EXPECT_EQ(Printed({kMost, kMost, kMost, kMost, kMost, kMost, kMost}, "%Y %y %B %I %p %J"),
              "2147483647 47 2147483647 2147483635 pm 839666105977");
    EXPECT_EQ(Printed({.second = kLeast}, "%f"), "-2147483648");
    EXPECT_EQ(Printed({.second = kMost, .nanoseconds = 500000000}, "%f"), "2147483647.500");
}

}  // namespace
