#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "kystring.h"
#include "kytypfmt.h"
#include "kytypmgr.h"
#include "number_text.h"

namespace {

TEST(SkipDigits, PassesASignOrDigitAndAllDigitsBehindIt) {
    struct Case {
        const char* text;
        int skipped;
    };
    const Case cases[] = {{"-12ab", 3}, {"ab", 0},  {"+a", 1},  {"-", 1}, {"", 0},
                          {"12", 2},    {"1-2", 1}, {"--1", 1}, {" 1", 0}};
    for (const Case& c : cases) {
        std::string text = c.text;
        char* at = text.data();
        SkipDigits(at);
        EXPECT_EQ(at - text.data(), c.skipped) << c.text;
    }
}

template <class Target>
Target Scanned(std::string text, const char* format, Target before) {
    Target target = before;
    EXPECT_EQ(MySscanf(text.data(), -1, format, 0, &target), 0);
    return target;
}

TEST(MySscanf, StoresOneNumberOfTheTargetsWidth) {
    EXPECT_EQ(Scanned<char>("0x41", "%c", 0), 'A');
    EXPECT_EQ(Scanned<char>("z", "%c", 0), 'z');
    EXPECT_EQ(Scanned<unsigned char>("0xff", "%c", 0), 255);
    EXPECT_EQ(Scanned<short>("-7", "%d", 0), -7);
    EXPECT_EQ(Scanned<unsigned short>("65535", "%hu", 0), 65535);
    EXPECT_EQ(Scanned<int>("-7", "%lld", 0), -7);
    EXPECT_EQ(Scanned<unsigned int>("4294967295", "%lu", 0), 4294967295U);
    EXPECT_EQ(Scanned<long long>("-9223372036854775808", "%d", 0), -9223372036854775807LL - 1);
    EXPECT_EQ(Scanned<unsigned long long>("18446744073709551615", "%u", 0), 18446744073709551615ULL);
    EXPECT_EQ(Scanned<float>("1.5", "%lf", 0), 1.5F);
    EXPECT_EQ(Scanned<double>("1.5", "%f", 0), 1.5);
    EXPECT_EQ(Scanned<double>("-infinity", "%.17g", 0), -std::numeric_limits<double>::infinity());
}

TEST(MySscanf, CharactersTakeTheLowByteOfACodeOrFollowTheFormat) {
    EXPECT_EQ(Scanned<char>("0x1241", "%c", 0), 'A');
    EXPECT_EQ(Scanned<char>("0x41", "%d", 0), 'A') << "a code comes before any format";
    EXPECT_EQ(Scanned<char>("0xg", "%c", 0), '0');
    EXPECT_EQ(Scanned<char>("65", "%d", 0), 'A');
    EXPECT_EQ(Scanned<char>("-1", "%d", 0), '\xFF');
    EXPECT_EQ(Scanned<unsigned char>("0x1FE", "%c", 0), 0xFE);
    EXPECT_EQ(Scanned<unsigned char>("200", "%u", 0), 200);
}

TEST(MySscanf, FloatingTextIsClampedAndNamed) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Scanned<double>("1e999", "%.17g", 0), infinity);
    EXPECT_EQ(Scanned<double>("-1e999", "%.17g", 0), -infinity);
    EXPECT_EQ(Scanned<double>("INFINITY", "%.17g", 0), infinity);
    EXPECT_EQ(Scanned<float>("1e99", "%.17g", 0), std::numeric_limits<float>::infinity());
    const double nan = Scanned<double>("NaN", "%.17g", 0);
    std::uint64_t bits = 0;
    std::memcpy(&bits, &nan, sizeof bits);
    EXPECT_EQ(bits, 0xFFF8000000000000U);
}

TEST(MySscanf, MantissaAndExponentAreRead) {
    const char* const before = pSpecialDoubleFmt;
    pSpecialDoubleFmt = "m=%lf e=%d";
    EXPECT_EQ(Scanned<double>("m=0.75 e=3", "m=%lf e=%d", 0), 6.0);
    EXPECT_EQ(Scanned<float>("m=0.75 e=3", "m=%lf e=%d", 0), 6.0F);
    pSpecialDoubleFmt = before;
}

TEST(MySscanf, KeepsTheTargetWithoutANumber) {
    EXPECT_EQ(Scanned<int>("x", "%d", 5), 5);
    EXPECT_EQ(Scanned<unsigned char>("", "%c", 5), 5);
    EXPECT_EQ(Scanned<double>("x", "%g", 5), 5);
    EXPECT_EQ(Scanned<double>("x", "%.17g", 5), 0);
    EXPECT_EQ(Scanned<int>("7", "%s", 5), 5);
}

TEST(MySscanf, ReadsAPieceOfTextIntoAString) {
    struct Case {
        const char* text;
        const char* format;
        int size;
        const char* result;
    };
    const Case cases[] = {
        {"  one two", "%s", 100, "one"},
        {"one", "%s", 3, "on"},
        {"one", "%2s", 100, "on"},
        {"one", nullptr, 100, "one"},
        {"one", "%s", 1, ""},
        {"one", "%s", 0, ""},
        {"one", "%s", -5, ""},
        {"", "%s", 100, ""},
        {" one", "%c", 100, " "},
        {" one", "%3c", 100, " on"},
        {"one", "%999999999999s", 100, "one"},
        {"key = value;", "key = %[^;]", 100, "value"},
        {"abc-1", "%[a-z]", 100, "abc"},
        {"]x", "%[]]", 100, "]"},
        {"x]y", "%[^]]", 100, "x"},
        {"a-b!", "%[ab-]", 100, "a-b"},
        {"100%x", "100%%%s", 100, "x"},
        {"value", "key = %s", 100, ""},
        {"one two", "%s%s", 100, ""},
        {"one", "%[a", 100, ""},
        {"one", "%d", 100, ""},
        {"one", "%n", 100, ""},
        {"one", "%*s", 100, ""},
        {"one", "one", 100, ""},
    };
    for (const Case& c : cases) {
        std::string text = c.text;
        KyString target("before");
        EXPECT_EQ(MySscanf(text.data(), 0, c.format, c.size, &target), 0);
        EXPECT_STREQ(target.StrGet(), c.result) << '"' << c.text << "\" " << (c.format != nullptr ? c.format : "null");
        EXPECT_FALSE(target.IsNullValue());
    }
}

}  // namespace
