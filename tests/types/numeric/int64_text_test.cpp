#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "kyint64.h"
#include "kystring.h"

namespace {

constexpr long long kLeast = std::numeric_limits<long long>::min();
constexpr long long kLargest = std::numeric_limits<long long>::max();

struct Printed {
    const char* format;
    long long value;
    std::string text;
};

TEST(Int64Text, Prints) {
    const std::string zeros(21, '0');
    const Printed table[] = {
        {"%S", 0, "0"},
        {"%S", -1, "-1"},
        {"%S", kLargest, "9223372036854775807"},
        {"%S", kLeast, "-9223372036854775808"},
        {"%d", kLeast, "-9223372036854775808"},
        {"%i", -42, "-42"},
        {"%o", 8, "010"},
        {"%o", 0, "00"},
        {"%o", kLeast, "01" + zeros},
        {"%o", -1, "01777777777777777777777"},
        {"%x", 0xABCDEF, "0xabcdef"},
        {"%X", 0xABCDEF, "0XABCDEF"},
        {"%x", 0, "0x0"},
        {"%X", 0, "0X0"},
        {"%x", -1, "0xffffffffffffffff"},
        {"%x", kLeast, "0x8000000000000000"},
        {"<%S|%x>", 255, "<255|0xff>"},
        {"plain", 5, "plain"},
        {"", 5, ""},
        {"%q", 5, "%q"},
        {"%%", 5, "%%"},
        {"%%d", 5, "%%d"},
        {"%%%d", 5, "%%5"},
        {"%5d", 5, "%5d"},
        {"%lld", 5, "%lld"},
        {"%n%s", 5, "%n%s"},
        {"%", 5, "%"},
        {"%d%", 5, "5%"},
        {"%d%d", -5, "-5-5"},
    };
    for (const Printed& each : table) {
        KyString out("before");
        KyString& result = KyInt64(each.value).PrintToKyString(out, each.format);
        EXPECT_EQ(&result, &out);
        EXPECT_EQ(out.StrGet(), each.text) << each.format << ' ' << each.value;
    }
}

TEST(Int64Text, ANullFormatPrintsNothingAndScansNothing) {
    KyString out("before");
    KyInt64 value(5);
    value.PrintToKyString(out, nullptr);
    EXPECT_STREQ(out.StrGet(), "");
    EXPECT_FALSE(out.IsNullValue());
    value.ScanFromKyString(KyString("7"), nullptr);
    EXPECT_EQ(value.Get8b(), 5);
}

TEST(Int64Text, PrintsIntoANullString) {
    KyString out;
    out.SetNullValue();
    KyInt64(5).PrintToKyString(out, "%S");
    EXPECT_STREQ(out.StrGet(), "5");
    EXPECT_FALSE(out.IsNullValue());
}

TEST(Int64Text, CutsATextThatNoStringHolds) {
    const std::string plain(70000, 'a');
    KyString out;
    KyInt64(5).PrintToKyString(out, (plain + "%d").c_str());
    EXPECT_EQ(out.StrGet(), plain.substr(0, KyString::MaxBytes - 1));
    KyInt64 value(7);
    value.ScanFromKyString(out, (plain + "%d").c_str());
    EXPECT_EQ(value.Get8b(), 7);
}

struct Scanned {
    const char* format;
    const char* text;
    long long value;
};

/// What a value keeps that no conversion reaches.
constexpr long long kUntouched = 77;

TEST(Int64Text, Scans) {
    const Scanned table[] = {
        {"%S", "0", 0},
        {"%S", "-1", -1},
        {"%d", "9223372036854775807", kLargest},
        {"%i", "-9223372036854775808", kLeast},
        {"%S", "9223372036854775808", kLeast},
        {"%S", "18446744073709551615", -1},
        {"%S", "18446744073709551617", 1},
        {"%S", "12ab", 12},
        {"%S", "007", 7},
        {"%S", "0x10", 0},
        {"%S", "", 0},
        {"%S", "-", 0},
        {"%S", "--5", 0},
        {"%S", " 5", 0},
        {"%S", "+5", 0},
        {"%S", "abc", 0},
        {"%o", "017", 15},
        {"%o", "789", 7},
        {"%o", "-10", -8},
        {"%o", "01777777777777777777777", -1},
        {"%x", "0xff", 255},
        {"%x", "0XFf", 255},
        {"%X", "ff", 255},
        {"%x", "-0x10", -16},
        {"%x", "0x", 0},
        {"%x", "x5", 0},
        {"%x", "0x8000000000000000", kLeast},
        {"%x", "fg", 15},
        {"a%db", "a12b", 12},
        {"a%d", "b12", kUntouched},
        {"%d,%d", "1,2", 2},
        {"%d,%d", "1;2", 1},
        {"%d,%d", "1,", 0},
        {"%x-%d", "0x-3", 3},
        {"plain", "5", kUntouched},
        {"", "5", kUntouched},
        {"%q%d", "%q5", 5},
        {"%q%d", "5", kUntouched},
        {"%%%d", "%%5", 5},
        {"%%d", "%%d", kUntouched},
        {"%d%", "5%", 5},
        {"%", "5", kUntouched},
        {"%5d", "5", kUntouched},
    };
    for (const Scanned& each : table) {
        KyInt64 value(kUntouched);
        value.ScanFromKyString(KyString(each.text), each.format);
        EXPECT_EQ(value.Get8b(), each.value) << each.format << " of \"" << each.text << '"';
    }
}

TEST(Int64Text, ScansSixteenBitText) {
    const unsigned short text[] = {'-', '1', '2', 0x0131, '3', 0};
    KyInt64 value;
    value.ScanFromKyString(KyString(text), "%S");
    EXPECT_EQ(value.Get8b(), -12);
}

TEST(Int64Text, ScansANullStringAsZero) {
    KyString text("5");
    text.SetNullValue();
    KyInt64 value(kUntouched);
    value.ScanFromKyString(text, "%S");
    EXPECT_EQ(value.Get8b(), 0);
}

TEST(Int64Text, ComesBackFromEveryConversion) {
    for (const char* format : {"%S", "%o", "%x", "%X", "<%d>"}) {
        for (int shift = 0; shift < 64; ++shift) {
            const KyInt64 value = KyInt64(0x8123456789ABCDEF) >> shift;
            KyString text;
            value.PrintToKyString(text, format);
            KyInt64 back(kUntouched);
            back.ScanFromKyString(text, format);
            EXPECT_EQ(back.Get8b(), value.Get8b()) << format;
        }
    }
}

}  // namespace
