#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

#include "number_text.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string TextOf(double value) {
    char text[ky::kDoubleTextSize];
    const unsigned length = ky::DoubleText(value, text);
    EXPECT_EQ(std::string(text).size(), length);
    return text;
}

TEST(DoubleText, NamesWhatHasNoDigits) {
    EXPECT_EQ(TextOf(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(TextOf(-std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(TextOf(kInfinity), "Infinity");
    EXPECT_EQ(TextOf(-kInfinity), "-Infinity");
    EXPECT_EQ(TextOf(0.0), "+0");
    EXPECT_EQ(TextOf(-0.0), "-0");
}

TEST(DoubleText, WritesSeventeenDigitsAsPrintfDoes) {
    EXPECT_EQ(TextOf(0.1), "0.10000000000000001");
    EXPECT_EQ(TextOf(-2.5), "-2.5");
    EXPECT_EQ(TextOf(1e16), "10000000000000000");
    EXPECT_EQ(TextOf(1e17), "1e+17");
    EXPECT_EQ(TextOf(1e-5), "1.0000000000000001e-05");
    EXPECT_EQ(TextOf(5e-324), "4.9406564584124654e-324");
    EXPECT_EQ(TextOf(1.7976931348623157e308), "1.7976931348623157e+308");
}

struct ScanCase {
    const char* text;
    double value;
};

TEST(ScanDoubleText, ReadsADecimalNumberOrOneOfThreeWords) {
    const ScanCase cases[] = {
        {"1", 1},
        {"+1", 1},
        {"-1.5", -1.5},
        {" \t\n\v\f\r42", 42},
        {"1e5x", 1e5},
        {"1e", 1},
        {"1e+", 1},
        {"1.5e-", 1.5},
        {".5", 0.5},
        {"5.", 5},
        {"5.e1", 50},
        {"0x10", 0},
        {"1,5", 1},
        {"010", 10},
        {"1e999", kInfinity},
        {"-1e999", -kInfinity},
        {"0.0001e999", kInfinity},
        {"1e99999999999999999999", kInfinity},
        {"0e99999999999999999999", 0},
        {"1e-99999999999999999999", 0},
        {"5e-324", 5e-324},
        {"1e-400", 0},
        {"infinity", kInfinity},
        {"INFINITY", kInfinity},
        {"-InFiNiTy", -kInfinity},
        {" Infinity", kInfinity},
        {"+Infinity", 0},
        {"Infinity ", 0},
        {"Infinityx", 0},
        {"inf", 0},
        {"-inf", 0},
        {"", 0},
        {".", 0},
        {"-", 0},
        {"+", 0},
        {"e5", 0},
        {"-.e5", 0},
        {"- 1", 0},
        {"--1", 0},
    };
    for (const ScanCase& c : cases) EXPECT_EQ(ky::ScanDoubleText(c.text), c.value) << '"' << c.text << '"';
    for (const char* text : {"-0", "-0.0e5", "-1e-400"}) {
        EXPECT_EQ(ky::ScanDoubleText(text), 0) << text;
        EXPECT_TRUE(std::signbit(ky::ScanDoubleText(text))) << text;
    }
    for (const char* text : {"NaN", "nan", " NAN"}) {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(ky::ScanDoubleText(text)), 0xFFF8000000000000U) << text;
    }
    for (const char* text : {"-NaN", "+NaN", "nan(1)", "nan "}) EXPECT_EQ(ky::ScanDoubleText(text), 0) << text;
}

TEST(IntegerText, WritesDecimalDigits) {
    char text[ky::kIntegerTextSize];
    for (const long long value : {0LL, 7LL, -7LL, 10LL, 99LL, 100LL, 2147483647LL,
                                  std::numeric_limits<long long>::max(), std::numeric_limits<long long>::min()}) {
        EXPECT_EQ(ky::SignedText(value, text), std::to_string(value).size());
        EXPECT_EQ(std::string(text), std::to_string(value));
        const auto bits = static_cast<unsigned long long>(value);
        EXPECT_EQ(ky::UnsignedText(bits, text), std::to_string(bits).size());
        EXPECT_EQ(std::string(text), std::to_string(bits));
    }
}

}  // namespace
