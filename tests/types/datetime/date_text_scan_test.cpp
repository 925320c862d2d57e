/// What each directive reads.

#include <gtest/gtest.h>

#include "date_texts.h"

namespace {

using Parts = ky::DateTimeParts;
constexpr auto kCut = ky::DateScan::cut;
constexpr int kLeast = -2147483647 - 1;
constexpr int kMost = 2147483647;

TEST(DateScan, Directives) {
    CheckScans({
        {"2024", "%Y", {.year = 2024}},
        {"5", "%m", {.month = 5}},
        {"07", "%d", {.day = 7}},
        {"07", "%e", {.day = 7}},
        {"15", "%H", {.hour = 15}},
        {"15", "%I", {.hour = 15}},
        {"4", "%M", {.minute = 4}},
        {"9", "%S", {.second = 9}},
        {"123456789", "%N", {.nanoseconds = 123456789}},
        {"391", "%J", {1, 1, 1}},
        {"-391", "%J", {-1, -1, -1}},
        {"-45", "%J", {0, -1, -15}},
        {"2024-05-07", "%D", {2024, 5, 7}},
        {"15:04:09", "%T", {.hour = 15, .minute = 4, .second = 9}},
        {"2024-05-07T15:04:09", "%O", {2024, 5, 7, 15, 4, 9}},
        {"2024-05-07T15:04:09.000000001", "%X", {2024, 5, 7, 15, 4, 9, 1}},
        {"391.02:03:04.500", "%V", {1, 1, 1, 2, 3, 4, 500000000}},
        {"%7", "%%%d", {.day = 7}},
        {"x7", "%%%d", {.day = 7}},
        {"*7", "%%%d", {.day = 7}},
        {"x7", "%q%d", {.day = 7}},
        {"*7", "%q%d", {.day = 7}},
        {"2024-05-07 15:04", "%D%H:%M", {2024, 5, 7, 15, 4}},
        {"1:02:03 2024-05-07", "%T%D", {2024, 5, 7, 1, 2, 3}},
    });
}

TEST(DateScan, RowsAndMembers) {
    CheckScans({
        {"Tue 07.May 2024", "%a %e.%b %Y", {2024, 5, 7}},
        {"Tue May 07", "%a %b %e", {.month = 5, .day = 7}},
        {"03:04:09 pm", "%I:%M:%S %p", {.hour = 15, .minute = 4, .second = 9}},
        {"Tue 07.May 2024 12:04:09 am", "%a %e.%b %Y %I:%M:%S %p", {2024, 5, 7, 0, 4, 9}},
        {"Tue May 07 03:04:09 PM", "%a %b %e %I:%M:%S %p", {0, 5, 7, 15, 4, 9}},
        {"2024-05-07", "%Y-%m-%d", {2024, 5, 7}},
        {"15:04:09", "%H:%M:%S", {.hour = 15, .minute = 4, .second = 9}},
        {"2024-05-07T15:04:09", "%Y-%m-%dT%H:%M:%S", {2024, 5, 7, 15, 4, 9}},
        {"1.02:03:04.5", "%J.%H:%M:%f", {0, 0, 1, 2, 3, 4, 500000000}},
        {"12 days, 3 hours, 4 minutes, 5 seconds",
         "%e days, %I hours, %M minutes, %S seconds",
         {.day = 12, .hour = 3, .minute = 4, .second = 5}},
        // Not as they are printed.
        {"  2024 - 5- 7", "%Y-%m-%d", {2024, 5, 7}},
        {"+2024/5/7 and so on", "%Y-%m-%d", {2024, 5, 7}},
        {"2024-05-0712", "%Y-%m-%d", {2024, 5, 712}},
        {"20240507", "%Y-%m-%d", {.year = 20240507}, kCut},
        {"15:04:09.5", "%H:%M:%S", {.hour = 15, .minute = 4, .second = 9}},
        {"2024-05-07T15:04:09.5", "%Y-%m-%dT%H:%M:%S", {2024, 5, 7, 15, 4, 9}},
        {"03:04:09.5 pm", "%I:%M:%S %p", {.hour = 3, .minute = 4, .second = 9}},
        {"-044--5--7", "%Y-%m-%d", {-44, -5, -7}},
        {"12345-1-1", "%Y-%m-%d", {12345, 1, 1}},
        {"7.May 2024", "%a %e.%b %Y", {2024, 5, 7}},
        {"tue 07.May 2024", "%a %e.%b %Y", {.year = 7}},
        {" Tuesday \t07. May\n24", "%a %e.%b %Y", {24, 5, 7}},
        {"Tue07.May2024", "%a %e.%b %Y", {2024, 5, 7}},
        {"Tue 07.005 2024", "%a %e.%b %Y", {2024, 5, 7}},
        {"* *.* *", "%a %e.%b %Y", {-1, -1, -1}},
        {"03:04:09pm", "%I:%M:%S %p", {.hour = 15, .minute = 4, .second = 9}},
        {"03:04:09 x", "%I:%M:%S %p", {.hour = 3, .minute = 4, .second = 9}},
        {"*:*:* *", "%I:%M:%S %p", {.hour = -1, .minute = -1, .second = -1}},
        {"*:00:00 pm", "%I:%M:%S %p", {.hour = 11}},
    });
}

TEST(DateScan, Cut) {
    CheckScans({
        {"", "", {}},
        {"", "abc 1", {}},
        {"", "%Y", {}, kCut},
        {" ", "%Y", {}, kCut},
        {"", "%%", {}, kCut},
        {"", "%q", {}, kCut},
        {"", "%D", {}, kCut},
        {"", "%a %e.%b %Y", {}, kCut},
        {"2024-05", "%Y-%m-%d", {.year = 2024, .month = 5}, kCut},
        {"2024-05-", "%Y-%m-%d", {.year = 2024, .month = 5}, kCut},
        {"2024-05- \t", "%D", {.year = 2024, .month = 5}, kCut},
        {"2024-05", "%D %H", {.year = 2024, .month = 5}, kCut},
        {"07", "%d.", {.day = 7}},
        {"07", "%d. (and) more", {.day = 7}},
        {"12:30 p", "%I:%M %p%S", {.hour = 12, .minute = 30}, kCut},
        {"01 PM", "%I %p%S", {.hour = 13}, kCut},
        {"00", "%?(J.)%H", {}, kCut},
    });
}

TEST(DateScan, Wildcards) {
    CheckScans({
        {"*-05-07", "%Y-%m-%d", {-1, 5, 7}},
        {"*-*-*", "%D", {-1, -1, -1}},
        {"* * * * * * *", "%Y%m%d%H%M%S%N", {-1, -1, -1, -1, -1, -1, -1}},
        {"*", "%y", {.year = -1}},
        {"*", "%b", {.month = -1}},
        {"*", "%B", {.month = -1}},
        {"*", "%e", {.day = -1}},
        {"*", "%I", {.hour = -1}},
        {"*", "%J", {-1, -1, -1}},
        {"*", "%f", {.second = -1, .nanoseconds = -1}},
        {"*5", "%a%S", {.second = 5}},
        {"*5", "%A%S", {.second = 5}},
        {"*5", "%p%S", {.second = 5}},
        {"*5", "%P%S", {.second = 5}},
        {"**", "%S%M", {.minute = -1, .second = -1}},
        {"2024*", "%Y-%m", {.year = 2024}, kCut},
        {"7 PM", "%H %p", {.hour = 19}},
        {"* PM", "%H %p", {.hour = 11}},
        {"-9 PM", "%H %p", {.hour = 3}},
        {"* AM", "%H %p", {.hour = -1}},
    });
}

TEST(DateScan, Numbers) {
    CheckScans({
        {"24", "%y", {.year = 2024}},
        {"99", "%y", {.year = 1999}},
        {"0", "%y", {.year = 2000}},
        {"30", "%y", {.year = 2030}},
        {"31", "%y", {.year = 1931}},
        {"-5", "%y", {.year = 1995}},
        {"100", "%y", {.year = 2000}},
        {"24-05-07", "%y-%m-%d", {2024, 5, 7}},
        {"x", "%y", {}},
        {"+12", "%d", {.day = 12}},
        {"-12", "%d", {.day = -12}},
        {"+-12", "%d%m", {.month = -12, .day = 0}},
        {"-", "%d", {}},
        {"- 5", "%d%m", {.month = 5}},
        {"x5", "%d", {}},
        {"4 x", "%d %d", {.day = 4}},
        {"0x10", "%d", {}},
        {"00000000000000000000012", "%d", {.day = 12}},
        {"2147483647", "%S", {.second = kMost}},
        {"2147483648", "%S", {.second = kMost}},
        {"-2147483648", "%S", {.second = kLeast}},
        {"-2147483649", "%S", {.second = kLeast}},
        {"99999999999999999999999999999999", "%S", {.second = kMost}},
        {"-99999999999999999999999999999999", "%N", {.nanoseconds = kLeast}},
        {"2147483647", "%y", {.year = kMost}},
        {"99999999999", "%J", {kMost / 360, kMost % 360 / 30, kMost % 30}},
        {"1e3", "%d", {.day = 1}},
        {"1,5", "%d,%m", {.month = 5, .day = 1}},
        {"x 1", "%J", {}},
        {"5 x", "%d%J", {.day = 5}},
    });
}

TEST(DateScan, Fractions) {
    CheckScans({
        {"5", "%f", {.second = 5}},
        {"05.250", "%f", {.second = 5, .nanoseconds = 250000000}},
        {"05.000250", "%f", {.second = 5, .nanoseconds = 250000}},
        {"05.000000001", "%f", {.second = 5, .nanoseconds = 1}},
        {"5.", "%f", {.second = 5}},
        {".5", "%f", {.nanoseconds = 500000000}},
        {"+.5", "%f", {.nanoseconds = 500000000}},
        {"-5.25", "%f", {.second = -5, .nanoseconds = -250000000}},
        {"-0.25", "%f", {.nanoseconds = -250000000}},
        {"1e3", "%f%q%d", {.day = 3, .second = 1000}},
        {"1.5e1", "%f", {.second = 15}},
        {"1.5e", "%f", {.second = 1, .nanoseconds = 500000000}},
        {"1.5.7-8+9x", "%f%q", {.second = 1, .nanoseconds = 500000000}},
        {"1.5.7 8", "%f%d", {.day = 8, .second = 1, .nanoseconds = 500000000}},
        {"-", "%f", {}},
        {".", "%f", {}},
        {"-.x8", "%f%q%d", {.day = 8}},
        {"inf", "%f", {}},
        {"nan", "%f", {}},
        {"Infinity", "%f", {}},
        {"0x10", "%f", {}},
        {"3 x", "%S%f", {.second = 3}},
        {"1,5", "%f,%M", {.minute = 5, .second = 1}},
        {"2147483647.5", "%f", {.second = kMost, .nanoseconds = 500000000}},
        {"9999999999", "%f", {.second = kMost, .nanoseconds = 854775807}},
        {"-1e30", "%f", {.second = kLeast, .nanoseconds = -854775808}},
        {"1e999", "%f", {.second = kMost, .nanoseconds = 854775807}},
        {"1e-999", "%f", {}},
    });
}

TEST(DateScan, Kept_NanosecondsOfFractionsAreCut) {
    EXPECT_EQ(Scan("0.000000015", "%f").parts.nanoseconds, 14);
    EXPECT_EQ(Scan("15", "%N").parts.nanoseconds, 15);
    EXPECT_EQ(Scan("00 000000015", "%S %N").parts.nanoseconds, 15);
}

TEST(DateScan, Halves) {
    CheckScans({
        {"12:15 am", "%I:%M %p", {.minute = 15}},
        {"01:15 PM", "%I:%M %p", {.hour = 13, .minute = 15}},
        {"12:00 pm", "%I:%M %p", {.hour = 12}},
        {"11 am", "%I %p", {.hour = 11}},
        {"13 am", "%I %p", {.hour = 13}},
        {"13 pm", "%I %p", {.hour = 13}},
        {"pm 1", "%p %H", {.hour = 13}},
        {"Px1", "%p%H", {.hour = 13}},
        {"P1", "%p%H", {.hour = 12}, kCut},
        {"p", "%p", {.hour = 12}},
        {"x.1", "%p%H", {.hour = 1}},
        {"apap", "%p%p", {}},
        {"ampm", "%p%p", {}},
        {"12ampm", "%I%p%p", {}},
        {"1pmam", "%I%p%p", {.hour = 13}},
    });
}

TEST(DateScan, Kept_BothMarksOfTheDay) { EXPECT_EQ(Scan("0 pm am", "%H %p %p").parts, Parts{}); }

}  // namespace
