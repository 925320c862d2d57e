/// Names of months and weekdays in texts, those of an application too.

#include <gtest/gtest.h>

#include <string>

#include "date_texts.h"
#include "kydatime.h"

namespace {

using Parts = ky::DateTimeParts;
constexpr auto kWhole = ky::DateScan::whole;
constexpr auto kCut = ky::DateScan::cut;

constexpr Parts kMay = {2024, 5, 7, 15, 4, 9, 0};

/// Another text in a table of names while it lives.
struct OtherName {
    const char*& place;
    const char* kept;
    OtherName(const char*& where, const char* name) : place(where), kept(where) { where = name; }
    ~OtherName() { place = kept; }
};

TEST(DateScan, Names) {
    CheckScans({
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

TEST(DateScan, Kept_LettersBehindAShortNameStopTheYear) {
    EXPECT_EQ(Scan("January 2024", "%B %Y").parts, (Parts{.month = 1}));
    EXPECT_EQ(Scan("January 2024", "%B %Y").result, kWhole);
    EXPECT_EQ(Scan("Januar 2024", "%B %Y").parts, (Parts{.year = 2024, .month = 1}));
}

TEST(DatePrint, NamesAreReadAtEveryCall) {
    EXPECT_EQ(Printed(kMay, "%a %e.%b %Y"), "Tue 07.May 2024");
    const OtherName day(ky_weekdays[1], "Dienstag");
    const OtherName month(ky_months[4], "Mai");
    EXPECT_EQ(Printed(kMay, "%a %e.%b %Y"), "Die 07.Mai 2024");
    EXPECT_EQ(Printed(kMay, "%A %B"), "Dienstag Mai");
    {
        const OtherName twoLetters(ky_weekdays[1], "Di");
        EXPECT_EQ(Printed(kMay, "%a %e.%b %Y"), "Di 07.Mai 2024");
        const OtherName threeLetters(ky_weekdays[1], "Die");
        EXPECT_EQ(Printed(kMay, "%a %e.%b %Y"), "Die 07.Mai 2024");
        const OtherName twoOfAMonth(ky_months[4], "Ma");
        EXPECT_EQ(Printed(kMay, "%a %b %e"), "Die Ma 07");
    }
    const OtherName shortDay(ky_weekdays[1], "D");
    const OtherName noMonth(ky_months[4], "");
    EXPECT_EQ(Printed(kMay, "%a %e.%b %Y"), "D 07. 2024");
    EXPECT_EQ(Printed(kMay, "%A|%a|%B|%b|"), "D|D|||");
    const std::string letters(1000, 'l');
    const OtherName longDay(ky_weekdays[1], letters.c_str());
    EXPECT_EQ(Printed(kMay, "%A"), letters);
}

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

TEST(DateScan, OfNamesThatBeginAlikeTheFirstIsMeant) {
    const OtherName month(ky_months[4], "Marz");
    const OtherName day(ky_weekdays[0], "Sun");
    EXPECT_EQ(Scan("Marz", "%b").parts, Parts{.month = 3});
    EXPECT_EQ(Scan("Marz 7", "%b%d").parts, Parts{.month = 3}) << "of which the z is left";
    EXPECT_EQ(Scan("Sunday7", "%a%d").parts, Parts{}) << "of which the letters behind Sun are left";
}

}  // namespace
