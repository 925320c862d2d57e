/// What a format is besides its directives: literals, "?", groups, and what is none of it.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "date_texts.h"
#include "kystring.h"

namespace {

using Parts = ky::DateTimeParts;
constexpr auto kWhole = ky::DateScan::whole;
constexpr auto kCut = ky::DateScan::cut;

constexpr Parts kMay = {2024, 5, 7, 15, 4, 9, 0};
constexpr Parts kNothing = {};

TEST(DatePrint, Optional) {
    CheckPrints({
        {{.hour = 0}, "%?J.%H", ".00"},
        {{.day = 1}, "%?J.%H", "1.00"},
        {{.day = 3}, "%?Y-%?m-%?d", "--03"},
        {{.month = 3}, "%?Y-%?m-%?d", "-03-00"},
        {kNothing, "%?Y%?y%?m%?b%?B%?d%?e%?a%?A%?H%?I%?M%?S%?N%?f%?J%?p%?P", ""},
        {{.nanoseconds = 1}, "%?S%?f", "00.000000001"},
        {{.second = 1}, "%?f", "01"},
        {{.year = 2000}, "%?y", "00"},
        {{.year = 1, .month = -12}, "%?J", ""},
        {{.hour = 0, .minute = 5}, "%?H:%?M:%?S", ":05:00"},
        {{.day = -1}, "%?d%?m", "*00"},
        {kNothing, "%?%%?q%?H", "%q00"},
        {kNothing, "%?D", "0000-00-00"},
        {kNothing, "%?T %?H", "00:00:00 00"},
        {kNothing, "%??", "?"},
        {kNothing, "%?)", ")"},
    });
}

TEST(DatePrint, Groups) {
    CheckPrints({
        {kNothing, "%?(J.)%H", "00"},
        {{.day = 2}, "%?(J.)%H", "2.00"},
        {{.day = 2}, "%H%?(J.)%H", "002.00"},
        {kNothing, "%H%?(J.)%H", "000.00"},
        {kNothing, "from %?(J days )%?(H:)%M", "from 00"},
        {{.hour = 1}, "from %?(J days )%?(H:)%M", "from 01:00"},
        {kNothing, "a%?(Hb%?(Mc)d)e)f", "ae)f"},
        {{.minute = 1}, "a%?(Hb%?(Mc)d)e)f", "ab01cde)f"},
        {kNothing, "a%?(Hb%?(Mc)d", "abd"},
        {kNothing, "%?(Ha", "a"},
        {kNothing, "%?(%a)b", "%ab"},
        {kNothing, "%?(qa)b", "qab"},
        {kNothing, "%?(Dx)y", "0000-00-00xy"},
        {kNothing, "%?((a)b", "(ab"},
        {kNothing, "%?(H%)a)b", ")ab"},
        {kNothing, ")%?(H))", "))"},
        {kNothing, "a(b)", "a(b)"},
        {kNothing, "%(H)", "(H)"},
    });
}

constexpr std::string_view kComponents = "YymbBdeaAHIMSNfJpP";

TEST(DatePrint, EveryDirectiveMayBeOptionalAndOpenAGroup) {
    constexpr Parts kFull = {2024, 5, 7, 15, 4, 9, 25};
    for (const char letter : kComponents) {
        const std::string directive(1, letter);
        const std::string text = Printed(kFull, ("%" + directive).c_str());
        EXPECT_EQ(Printed(kFull, ("a%?" + directive + "b").c_str()), "a" + text + "b");
        EXPECT_EQ(Printed(kFull, ("a%?(" + directive + "b)c").c_str()), "a" + text + "bc");
        EXPECT_EQ(Printed(kNothing, ("a%?" + directive + "b").c_str()), "ab") << letter;
        EXPECT_EQ(Printed(kNothing, ("a%?(" + directive + "b)c").c_str()), "ac") << letter;
        const std::string behindAnother = "0" + Printed(kNothing, ("%" + directive).c_str());
        EXPECT_EQ(Printed(kNothing, ("%N%?" + directive).c_str()), behindAnother);
        EXPECT_EQ(Printed(kNothing, ("%N%?(" + directive + "b)").c_str()), behindAnother + "b");
    }
}

TEST(DatePrint, GroupsOfAnyDepth) {
    for (const unsigned depth : {1U, 4U, 5U, 1000U}) {
        std::string format = "a";
        std::string kept = "a";
        for (unsigned i = 0; i < depth; ++i) {
            format += "%?(Hb";
            kept += "b";
        }
        const std::string inner = format + "c";
        EXPECT_EQ(Printed({}, inner.c_str()), kept + "c");
        EXPECT_EQ(Printed({}, (inner + std::string(depth, ')')).c_str()), "a");
        EXPECT_EQ(Printed({}, (inner + std::string(depth + 1, ')')).c_str()), "a)");
        EXPECT_EQ(Printed({}, (inner + ")d").c_str()), "a" + std::string(depth - 1, 'b') + "d");
        EXPECT_EQ(Printed({}, (inner + std::string(depth - 1, ')')).c_str()),
                  "ab" + std::string(depth == 1 ? "c" : ""));
        EXPECT_EQ(Printed({}, (inner + "%M" + std::string(depth + 1, ')')).c_str()), kept + "c00)");
    }
}

TEST(DatePrint, BadFormats) {
    CheckPrints({
        {kMay, "%", ""},
        {kMay, "%?", ""},
        {kMay, "%?(", ""},
        {kMay, "%d%", "07"},
        {kMay, "%d %?", "07 "},
        {kMay, "%d%?(", "07"},
        {kMay, "%%%", "%"},
        {kMay, "%Y-%m-%", "2024-05-"},
        {kMay, "%Y-%m-%dT", "2024-05-07T"},
        {kMay, "%Y-%m-%d%", "2024-05-07"},
        {kMay, "%Y-%m-%dT%H:%M:%", "2024-05-07T15:04:"},
        {kMay, "%Y-%m-%dT%H:%M:%S%", "2024-05-07T15:04:09"},
        {kMay, "%Y-%m-%d.%J", "2024-05-07.728797"},
        {kMay, "%DD", "2024-05-07D"},
        {kMay, "%a %e.%b", "Tue 07.May"},
        {kMay, "%n%s%5d%ld%*d", "ns5dld*d"},
    });
}

TEST(DatePrint, FormatsOfAnyLengthGrow) {
    std::string format;
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        format += "%X,%A;";
        text += "2024-05-07T15:04:09.000000001,Tuesday;";
    }
    Parts parts = kMay;
    parts.nanoseconds = 1;
    text.resize(KyString::MaxBytes - 1);
    EXPECT_EQ(Printed(parts, format.c_str()), text);

    const std::string literal(5000, 'x');
    EXPECT_EQ(Printed(parts, literal.c_str()), literal);
    EXPECT_EQ(Printed(parts, (literal + "%d" + literal).c_str()), literal + "07" + literal);
    for (std::size_t length = 480; length < 530; ++length) {
        const std::string start(length, 'x');
        EXPECT_EQ(Printed(parts, (start + "%J" + start).c_str()), start + "728797" + start);
        EXPECT_EQ(Printed(parts, (start + "%f%?(H)").c_str()), start + "09.00000000115");
    }
}

TEST(DateScan, Literals) {
    CheckScans({
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

TEST(DateScan, EveryDirectiveMayBeOptionalAndOpenAGroup) {
    constexpr Parts kFull = {2024, 5, 7, 15, 4, 9, 25};
    for (const char letter : kComponents) {
        const std::string directive(1, letter);
        const std::string text = Printed(kFull, ("%" + directive).c_str());
        const Parts plain = Scan(text.c_str(), ("%" + directive).c_str()).parts;
        EXPECT_EQ(Scan(text.c_str(), ("%?" + directive).c_str()).parts, plain) << letter;
        const Scan group((text + "x6").c_str(), ("%?(" + directive + "x)%q").c_str());
        EXPECT_EQ(group.parts, plain) << letter;
        EXPECT_EQ(group.result, kWhole) << letter;
    }
}

TEST(DateScan, BadFormats) {
    CheckScans({
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

}  // namespace
