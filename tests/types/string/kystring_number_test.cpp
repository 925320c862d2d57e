#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "kystring.h"
#include "kytypinf.h"
#include "string_texts.h"

namespace {

/// Bit 0 of the options block for as long as this lives.
class Base10Option {
public:
    Base10Option() : first(static_cast<unsigned char*>(___KyTypeMgrOptions())), before(*first) { *first |= 1; }
    Base10Option(const Base10Option&) = delete;
    Base10Option& operator=(const Base10Option&) = delete;
    ~Base10Option() { *first = before; }

private:
    unsigned char* first;
    unsigned char before;
};

KyString WideOf(const std::string& text) { return Wide(std::u16string(text.begin(), text.end())); }

struct Read {
    int code;
    long long value;
    friend bool operator==(const Read&, const Read&) = default;
};

Read Atol(const KyString& s) {
    int out = 77;
    const int code = s.Atol(out);
    return {code, out};
}
Read Atoll(const KyString& s) {
    long long out = 77;
    const int code = s.Atoll(out);
    return {code, out};
}
Read Strtol(const KyString& s) {
    int out = 77;
    const int code = s.Strtol(out);
    return {code, out};
}
Read Strtoll(const KyString& s) {
    long long out = 77;
    const int code = s.Strtoll(out);
    return {code, out};
}

TEST(KyStringAtol, ReadsBase10) {
    const struct {
        const char* text;
        Read expected;
    } cases[] = {
        {"123", {0, 123}}, {"-5x", {0, -5}}, {"010", {0, 10}}, {"0x10", {0, 0}}, {"-", {0, 0}},
        {"--1", {0, 0}},   {" 1", {-1, 0}},  {"+1", {-1, 0}},  {"", {-1, 0}},    {"x", {-1, 0}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Atol(c.text), c.expected) << c.text;
        EXPECT_EQ(Atoll(c.text), c.expected) << c.text;
    }
    EXPECT_EQ(Atol("- 5"), (Read{0, 0})) << "no blank behind the sign";
    EXPECT_EQ(Atol(KyString()), (Read{-1, 0}));
}

TEST(KyStringAtol, ValuesOutOfRange) {
    EXPECT_EQ(Atol("4294967297"), (Read{0, 1})) << "the low 32 bits";
    EXPECT_EQ(Atol("2147483648"), (Read{0, INT_MIN}));
    EXPECT_EQ(Atol("99999999999999999999"), (Read{0, -1})) << "the low bits of the largest 64-bit number";
    EXPECT_EQ(Atoll("99999999999999999999"), (Read{0, LLONG_MAX}));
    EXPECT_EQ(Atoll("-99999999999999999999"), (Read{0, LLONG_MIN}));
    EXPECT_EQ(Atoll("-9223372036854775808"), (Read{0, LLONG_MIN}));
    EXPECT_EQ(Atoll("9223372036854775807"), (Read{0, LLONG_MAX}));
}

TEST(KyStringStrtol, TakesTheBaseFromTheText) {
    const struct {
        const char* text;
        long long expected;
    } cases[] = {{"010", 8}, {"0x10", 16}, {"0XfF", 255}, {"10", 10}, {"-0x10", -16},
                 {"08", 0},  {"0x", 0},    {"0xg", 0},    {"0", 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(Strtol(c.text), (Read{0, c.expected})) << c.text;
        EXPECT_EQ(Strtoll(c.text), (Read{0, c.expected})) << c.text;
    }
    EXPECT_EQ(Strtol(" 1"), (Read{-1, 0}));
    EXPECT_EQ(Strtoll("0x7fffffffffffffff1"), (Read{0, LLONG_MAX}));
}

TEST(KyStringAtol, Kept_16BitTextsTakeTheBaseFromTheText) {
    EXPECT_EQ(Atol(WideOf("010")), (Read{0, 8}));
    EXPECT_EQ(Atoll(WideOf("0x10")), (Read{0, 16}));
    EXPECT_EQ(Strtol(WideOf("010")), (Read{0, 8}));
    EXPECT_EQ(Strtoll(WideOf("-12")), (Read{0, -12}));
    EXPECT_EQ(Atol(WideOf(" 1")), (Read{-1, 0}));
}

TEST(KyStringAtol, Kept_EveryDigitPassesTheFirstTest) {
    KyString thai(14, 0);
    thai.MakeString("\xF2", 14, -1, 1);
    EXPECT_EQ(Atol(thai), (Read{0, 0})) << "a Thai two is a digit, but no number";
    EXPECT_EQ(Atol(WideOf("\xB2")), (Read{-1, 0})) << "a superscript two is none";
}

TEST(KyStringConversion, OfIntegers) {
    const struct {
        const char* text;
        long long expected;
    } cases[] = {{"12", 12}, {" \t\n\v\f\r-12", -12}, {"+7", 7}, {"010", 8}, {"0x10", 16}, {"", 0},
                 {"x", 0},   {"12abc", 12},           {"+-1", 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(static_cast<long long>(KyString(c.text)), c.expected) << c.text;
        EXPECT_EQ(static_cast<int>(KyString(c.text)), c.expected) << c.text;
        EXPECT_EQ(static_cast<short>(KyString(c.text)), c.expected) << c.text;
    }
    EXPECT_EQ(static_cast<int>(KyString()), 0);
    EXPECT_EQ(static_cast<short>(KyString()), 0);
    EXPECT_EQ(static_cast<long long>(KyString()), 0);
    EXPECT_EQ(static_cast<short>(KyString("65537")), 1);
    EXPECT_EQ(static_cast<int>(KyString("4294967295")), -1);
    EXPECT_EQ(static_cast<long long>(KyString("9223372036854775808")), LLONG_MAX);
}

TEST(KyStringConversion, OptionChoosesBase10For8BitTexts) {
    const Base10Option option;
    EXPECT_EQ(static_cast<int>(KyString("010")), 10);
    EXPECT_EQ(static_cast<short>(KyString("0x10")), 0);
    EXPECT_EQ(static_cast<long long>(KyString("010")), 10);
    EXPECT_EQ(static_cast<int>(WideOf("010")), 8) << "16-bit texts keep their prefixes";
    EXPECT_EQ(Strtol("010"), (Read{0, 8})) << "and so does the explicit base";
}

TEST(KyStringConversion, Of16BitTexts) {
    EXPECT_EQ(static_cast<int>(WideOf("-12")), -12);
    EXPECT_EQ(static_cast<short>(WideOf("0x10")), 16);
    EXPECT_EQ(static_cast<long long>(WideOf("9223372036854775807")), LLONG_MAX);
    EXPECT_EQ(static_cast<double>(WideOf("1.5e3")), 1500.0);
}

TEST(KyStringConversion, OfDoubles) {
    EXPECT_EQ(static_cast<double>(KyString("1.5")), 1.5);
    EXPECT_EQ(static_cast<double>(KyString("010")), 10.0);
    EXPECT_EQ(static_cast<double>(KyString()), 0.0);
    EXPECT_EQ(static_cast<double>(KyString("x")), 0.0);
    EXPECT_EQ(static_cast<double>(KyString("-infinity")), -HUGE_VAL);
    EXPECT_TRUE(std::isnan(static_cast<double>(KyString("NaN"))));
    EXPECT_EQ(static_cast<double>(KyString(0.1)), 0.1);
}

}  // namespace
