#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "date_texts.h"
#include "kydatime.h"
#include "support/comma_locale.h"
#include "text_constants.h"

namespace {

using Parts = ky::DateTimeParts;
constexpr auto kWhole = ky::DateScan::whole;
constexpr auto kCut = ky::DateScan::cut;
constexpr int kLeast = -2147483647 - 1;
constexpr int kMost = 2147483647;

struct Golden {
    const char* text;
    const char* format;
    Parts parts;
    ky::DateScan result = kWhole;
};

void Check(std::initializer_list<Golden> goldens) {
    for (const auto& [text, format, parts, result] : goldens) {
        const Scan scan(text, format);
        EXPECT_EQ(scan.parts, parts) << text << " by " << format;
        EXPECT_EQ(scan.result, result) << text << " by " << format;
    }
}

TEST(DateScan, Directives) {
    Check({
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
    Check({
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
    Check({
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
    Check({
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

TEST(DateScan, Names) {
    Check({
        {"Jan", "%b", {.month = 1}},
        {"Januar", "%b", {.month = 1}},
        {"Feb 3", "%B%d", {.month = 2, .day = 3}},
        {"February 3", "%B %d", {.month = 2}},
        {"MarchApril", "%b%m", {.month = 3}},
        {"JunJul", "%m%B%B", {.month = 7}},
        {"Jun", "%b", {.month = 6}},
        {"July", "%b", {.month = 7}},
        {"August9", "%B%d", {.month = 8, .day = 9}},
        {"Sept 9", "%b%d", {.month = 9, .day = 9}},
        {"Octopus", "%b", {.month = 10}},
        {"November", "%b", {.month = 11}},
        {"Dec", "%b", {.month = 12}},
        {"may", "%b", {}},
        {"MAY5", "%b%d", {.day = 5}},
        {"Ma", "%b", {}},
        {"Ma5", "%b%d", {}, kCut},
        {"5", "%b", {.month = 5}},
        {"005", "%b", {.month = 5}},
        {"0057", "%b%d", {.month = 5, .day = 7}},
        {"12345", "%b%d", {.month = 123, .day = 45}},
        {"7-89", "%b%d", {.month = 7, .day = 9}},
        {"-78", "%b", {.month = -78}},
        {"-789", "%b%d", {.month = -78, .day = 9}},
        {"+1", "%b", {.month = 1}},
        {"--1", "%b", {}},
        {"xyz9", "%b%d", {.day = 9}},
        {"4 xyz", "%m %b", {.month = 4}},
        {"Monday 5", "%a%d", {.day = 5}},
        {"Mon5", "%A%d", {.day = 5}},
        {"Mond5", "%a%d", {.day = 5}},
        {"Montag5", "%a%d", {}},
        {"Sunday", "%a%d", {}, kCut},
        {"Mo5", "%a%d", {}},
        {"5", "%a%d", {.day = 5}},
    });
}

TEST(DateScan, Numbers) {
    Check({
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
    Check({
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

TEST(DateScan, Halves) {
    Check({
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

TEST(DateScan, Literals) {
    Check({
        {"a5", "b%d", {.day = 5}},
        {"5", "b%d", {.day = 5}},
        {"15", "1%d", {.day = 5}},
        {"25", "1%d", {.day = 25}},
        {"*5", "x%d", {.day = 5}},
        {"a b c5", "xyz%d", {.day = 5}},
        {"a5", "   x   %d", {.day = 5}},
        {"5)6", "%d)%m", {.month = 6, .day = 5}},
        {"\xFF\x80"
         "5",
         "xy%d",
         {.day = 5}},
        {"\xA0"
         "5",
         "%d",
         {}},
        {"5", "%?d", {.day = 5}},
        {"5.6", "%?(d.)%m", {.month = 6, .day = 5}},
        {"5.)6", "%?(d.))%m", {.month = 6, .day = 5}},
        {"5.6", "%?(d.%?(m))%H", {.month = 6, .day = 5}, kCut},
        {"2024-1-2 5", "%?(D)%?H", {2024, 1, 2, 5}},
        {"0", "%?Y", {}},
        {"5", "%(%d", {}, kCut},
        {"(5", "%(%d", {.day = 5}},
    });
}

TEST(DateScan, BadFormats) {
    Check({
        {"5", "%", {}},
        {"", "%", {}},
        {"", "%?", {}},
        {"", "%?(", {}},
        {"5", "%d%", {.day = 5}},
        {"5", "%d%?", {.day = 5}},
        {"5", "%d%?(", {.day = 5}},
        {"2024-05-07", "%Y-%m-%d%", {2024, 5, 7}},
        {"2024-05-07", "%Y-%m-%d%%", {2024, 5, 7}, kCut},
        {"05", "% %d", {.day = 5}},
    });
}

TEST(DateScan, NullIsRecognisedByItsBeginning) {
    for (const char* text : {"{NULL}", "{NULL}2024"}) {
        const Scan scan(text, "%Y");
        EXPECT_EQ(scan.result, ky::DateScan::null) << text;
        EXPECT_EQ(scan.parts.year, 77);
    }
    for (const char* text : {"{NULL", "{null}", " {NULL}", "{}"}) {
        EXPECT_NE(Scan(text, "%Y").result, ky::DateScan::null) << text;
    }
}

TEST(DateScan, AnotherNullPrintString) {
    const KyString kept = ky::NullPrintString();
    ky::NullPrintString() = "2024";
    EXPECT_EQ(Scan("2024-05-07", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("2023-05-07", "%D").result, kWhole);
    EXPECT_EQ(Scan("", "%D").result, kCut);
    ky::NullPrintString() = "*";
    EXPECT_EQ(Scan("*-05-07", "%D").result, ky::DateScan::null);
    ky::NullPrintString() = "";
    EXPECT_EQ(Scan("", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("2024-05-07", "%D").result, kWhole);
    EXPECT_EQ(Scan(" ", "%D").result, kCut);
    ky::NullPrintString() = "\xE4";
    EXPECT_EQ(Scan("\xE4", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("\xE5", "%D").result, kCut);
    const unsigned short wide[] = {'n', 'o', 0};
    ky::NullPrintString() = KyString(wide);
    EXPECT_EQ(Scan("no", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("n", "%D").result, kCut);
    ky::NullPrintString() = kept;
    EXPECT_EQ(Scan("{NULL}", "%D").result, ky::DateScan::null);
}

TEST(DateScan, SixteenBitTextIsCopied) {
    const unsigned short wide[] = {'2', '0', '2', '4', '-', '5', '-', '7', 0};
    KyString text(wide);
    const KyString before(text);
    Parts parts{.second = 9};
    EXPECT_EQ(ky::ScanDateTime(parts, text, "%D"), kWhole);
    EXPECT_EQ(parts, (Parts{2024, 5, 7}));
    EXPECT_EQ(text.CodeSetGet(), before.CodeSetGet());
    EXPECT_TRUE(text == before);
    const unsigned short null[] = {'{', 'N', 'U', 'L', 'L', '}', 0};
    KyString nullText(null);
    EXPECT_EQ(ky::ScanDateTime(parts, nullText, "%D"), ky::DateScan::null);
}

TEST(DateScan, NullStringsAreEmptyTexts) {
    KyString text;
    text.SetNullValue();
    Parts parts{.second = 9};
    EXPECT_EQ(ky::ScanDateTime(parts, text, "%D"), kCut);
    EXPECT_EQ(parts, Parts{});
}

TEST(DateScan, FormatsOfAnyLength) {
    std::string format;
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        format += "%?(d )";
        text += std::to_string(i % 28) + " ";
    }
    const Scan scan(text.c_str(), format.c_str());
    EXPECT_EQ(scan.result, kWhole);
    EXPECT_EQ(scan.parts, Parts{.day = 2999 % 28});
    EXPECT_EQ(Scan("5", (std::string(5000, 'x') + "%d").c_str()).parts, Parts{.day = 5});
}

TEST(DateScan, IsTheSameUnderOtherLocales) {
    const CommaLocale comma;
    EXPECT_EQ(Scan("5.25", "%f").parts, (Parts{.second = 5, .nanoseconds = 250000000}));
    EXPECT_EQ(Scan("5,25", "%f").parts, (Parts{.second = 5}));
    EXPECT_EQ(Scan("5.250000000000000000000001", "%f").parts, (Parts{.second = 5, .nanoseconds = 250000000}));
    EXPECT_EQ(Scan("1.234.567", "%d").parts, (Parts{.day = 1}));
}

TEST(DateScan, Kept_NanosecondsOfFractionsAreCut) {
    EXPECT_EQ(Scan("0.000000015", "%f").parts.nanoseconds, 14);
    EXPECT_EQ(Scan("15", "%N").parts.nanoseconds, 15);
    EXPECT_EQ(Scan("00 000000015", "%S %N").parts.nanoseconds, 15);
}

TEST(DateScan, Kept_LettersBehindAShortNameStopTheYear) {
    EXPECT_EQ(Scan("January 2024", "%B %Y").parts, (Parts{.month = 1}));
    EXPECT_EQ(Scan("January 2024", "%B %Y").result, kWhole);
    EXPECT_EQ(Scan("Januar 2024", "%B %Y").parts, (Parts{.year = 2024, .month = 1}));
}

TEST(DateScan, Kept_BothMarksOfTheDay) { EXPECT_EQ(Scan("0 pm am", "%H %p %p").parts, Parts{}); }

/// Another text in a table of names while it lives.
struct OtherName {
    const char*& place;
    const char* kept;
    OtherName(const char*& where, const char* name) : place(where), kept(where) { where = name; }
    ~OtherName() { place = kept; }
};

TEST(DateScan, NamesAreReadAtEveryCall) {
    const OtherName month(ky_months[4], "Mai");
    const OtherName day(ky_weekdays[1], "Dienstag");
    EXPECT_EQ(Scan("Dienstag 07.Mai 2024", "%a %e.%b %Y").parts, (Parts{2024, 5, 7}));
    EXPECT_EQ(Scan("Die 07.Mai 2024", "%a %e.%b %Y").parts, (Parts{2024, 5, 7}));
    EXPECT_EQ(Scan("07.May 2024", "%e.%b %Y").parts, (Parts{.year = 2024, .day = 7}));
}

TEST(DateScan, NamesOfOtherLengths) {
    const OtherName shortMonth(ky_months[4], "V");
    const OtherName empty(ky_months[5], "");
    EXPECT_EQ(Scan("Tue 07.V 2024", "%a %e.%b %Y").parts, (Parts{2024, 5, 7}));
    EXPECT_EQ(Scan("07.Jul 2024", "%e.%b %Y").parts, (Parts{2024, 7, 7}));
    EXPECT_EQ(Scan("07.006 2024", "%e.%b %Y").parts, (Parts{2024, 6, 7}));
    const OtherName spaced(ky_months[0], " Jan");
    const OtherName star(ky_months[1], "*");
    EXPECT_EQ(Scan("Tue 07. Jan 2024", "%a %e.%b %Y").parts, (Parts{.year = 2024, .day = 7}));
    EXPECT_EQ(Scan("Tue 07.* 2024", "%a %e.%b %Y").parts, (Parts{2024, -1, 7}));
}

}  // namespace
