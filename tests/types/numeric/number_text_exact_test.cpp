#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "number_text.h"
#include "number_text_digits.h"
#include "support/c_locale.h"

namespace {

using Random = std::mt19937_64;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The text of a double is printf's byte for byte, and read back, from any amount of readable bytes, the same double.
void CheckDouble(double value) {
    if (value == 0 || !std::isfinite(value)) return;
    const CLocale plain;
    char expected[64];
    const int length = std::snprintf(expected, sizeof expected, "%.17g", value);
    char text[ky::kDoubleTextSize];
    ASSERT_EQ(ky::DoubleText(value, text), static_cast<unsigned>(length)) << expected;
    ASSERT_STREQ(text, expected);
    const auto bits = std::bit_cast<std::uint64_t>(value);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(ky::ScanDoubleText(expected)), bits) << expected;
    for (const unsigned readable : {static_cast<unsigned>(length) + 1, 64U}) {
        ASSERT_EQ(std::bit_cast<std::uint64_t>(ky::ScanDoubleText({expected, readable})), bits) << expected;
    }
}

/// A number and its two neighbours, with either sign.
void CheckAround(double value) {
    for (const double near : {std::nextafter(value, 0.0), value, std::nextafter(value, kInfinity)}) {
        CheckDouble(near);
        CheckDouble(-near);
    }
}

TEST(DoubleTextExact, RandomBitPatterns) {
    Random random(1);
    for (int i = 0; i < 200000; ++i) CheckDouble(std::bit_cast<double>(random()));
}

TEST(DoubleTextExact, SubnormalNumbers) {
    Random random(2);
    for (int i = 0; i < 20000; ++i) CheckDouble(std::bit_cast<double>(random() >> (12 + random() % 52)));
    CheckAround(std::numeric_limits<double>::denorm_min());
    CheckAround(std::numeric_limits<double>::min());
}

TEST(DoubleTextExact, Integers) {
    Random random(3);
    for (int i = 0; i < 50000; ++i)
        CheckDouble(static_cast<double>(static_cast<std::int64_t>(random()) >> random() % 64));
    for (int i = 1; i < 20000; ++i) CheckDouble(i);
}

TEST(DoubleTextExact, DecimalFractions) {
    Random random(4);
    for (int i = 0; i < 50000; ++i) CheckDouble(static_cast<double>(random() % 100000000) / 10000);
}

TEST(DoubleTextExact, BinaryFractionsWithTheirTies) {
    Random random(5);
    // Sums of few powers of two have few decimal digits more than 17, the last a 5: true halves.
    for (int i = 0; i < 100000; ++i) {
        CheckDouble(
            std::ldexp(static_cast<double>(random() >> (11 + random() % 52)), -static_cast<int>(random() % 80)));
    }
    CheckDouble(1.00000762939453125);
    CheckDouble(1.00002288818359375);
}

TEST(DoubleTextExact, PowersOfTwoAndTheirNeighbours) {
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        CheckAround(std::ldexp(1.0, exponent));
        CheckDouble(std::ldexp(3.0, exponent));
        CheckDouble(std::ldexp(5.0, exponent));
    }
}

TEST(DoubleTextExact, PowersOfTenAndTheirNeighbours) {
    for (int exponent = -325; exponent <= 308; ++exponent) {
        const double power = std::strtod(std::string("1e").append(std::to_string(exponent)).c_str(), nullptr);
        CheckAround(power);
        for (int factor = 2; factor < 10; ++factor) CheckDouble(power * factor);
    }
    CheckAround(std::numeric_limits<double>::max());
}

std::string Digits(Random& random, std::size_t count) {
    std::string digits;
    while (digits.size() < count) digits += static_cast<char>('0' + random() % 10);
    return digits;
}

void CheckScan(const std::string& text) {
    const CLocale plain;
    const double expected = std::strtod(text.c_str(), nullptr);
    const auto size = static_cast<unsigned>(text.size()) + 1;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(ky::ScanDoubleText(text.c_str())), std::bit_cast<std::uint64_t>(expected))
        << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(ky::ScanDoubleText({text.c_str(), size})),
              std::bit_cast<std::uint64_t>(expected))
        << text;
}

TEST(ScanDoubleTextExact, DecimalTextsOfAnyLength) {
    Random random(6);
    for (int i = 0; i < 100000; ++i) {
        std::string text(random() % 2, '-');
        text += Digits(random, random() % 24);
        if (random() % 4 != 0) text.append(".").append(random() % 3 * 5, '0').append(Digits(random, random() % 24));
        text += '0';
        if (random() % 2 == 0) text.append("e").append(std::to_string(static_cast<int>(random() % 700) - 350));
        CheckScan(text);
    }
}

TEST(ScanDoubleTextExact, HalvesBetweenTwoDoublesAndWhatIsJustBeside) {
    Random random(7);
    for (int i = 0; i < 20000; ++i) {
        // An odd number of 54 bits lies halfway between two doubles.
        const std::uint64_t half = (random() >> 10 | std::uint64_t{1} << 53) | 1;
        const std::string digits = std::to_string(half);
        for (const char* tail :
             {"", ".0", ".00000000000000000000000000000000001", "0", "000000", "e5", "e-5", "e-25"}) {
            CheckScan(digits + tail);
        }
        CheckScan(std::to_string(half - 1) + ".99999999999999999999999999");
    }
}

TEST(ScanDoubleTextExact, TheEndsOfTheRange) {
    for (const char* text : {"4.9406564584124654e-324",
                             "2.4703282292062327e-324",
                             "2.4703282292062328e-324",
                             "2.47e-324",
                             "2.2250738585072011e-308",
                             "2.2250738585072014e-308",
                             "2.2250738585072012e-308",
                             "1.7976931348623157e308",
                             "1.7976931348623158e308",
                             "1.7976931348623159e308",
                             "1.797693134862315708145274237317e308",
                             "1e308",
                             "1e309",
                             "9007199254740993",
                             "9007199254740992.99999999999999999999",
                             "0.000000000000000000000000000000001e-300",
                             "100000000000000000000000000000000000000e-360",
                             "18446744073709551615",
                             "18446744073709551616",
                             "9999999999999999999",
                             "99999999999999999999"}) {
        CheckScan(text);
        CheckScan(std::string(400, '0') + text);
        CheckScan(std::string("-") + text);
    }
    CheckScan(std::string("0.").append(400, '0') + "1e400");
    CheckScan(std::string("1").append(400, '0') + "e-400");
    CheckScan(std::string("1").append(800, '0') + "1e-801");
    CheckScan(std::string(60000, '9'));
    CheckScan(std::string("0.").append(60000, '9'));
}

TEST(IntegerTextExact, EveryLength) {
    Random random(8);
    for (int i = 0; i < 200000; ++i) {
        const auto bits = random() >> (random() % 64);
        const auto value = static_cast<long long>(i % 2 == 0 ? bits : 0 - bits);
        char text[ky::kIntegerTextSize];
        ASSERT_EQ(ky::SignedText(value, text), std::to_string(value).size());
        ASSERT_EQ(text, std::to_string(value));
        ASSERT_EQ(ky::UnsignedText(bits, text), std::to_string(bits).size());
        ASSERT_EQ(text, std::to_string(bits));
    }
    unsigned long long power = 1;
    for (int digits = 1; digits <= 20; ++digits, power *= 10) {
        for (const unsigned long long value : {power - 1, power, power + 1, power * 5}) {
            char text[ky::kIntegerTextSize];
            ky::UnsignedText(value, text);
            EXPECT_EQ(text, std::to_string(value));
        }
    }
}

TEST(EightDigits, AreTheDigitsOfEveryNumberAndBack) {
    for (std::uint32_t number = 0; number < 100'000'000; number += number < 200'000 ? 1 : 997) {
        const std::uint64_t digits = ky::EightDigits(number);
        ASSERT_EQ(ky::EightDigitsValue(digits), number);
        std::uint32_t rest = number;
        for (int place = 7; place >= 0; --place, rest /= 10)
            ASSERT_EQ(digits >> (8 * place) & 0xFF, rest % 10) << number;
    }
}

TEST(EightDigits, TheFirstByteThatIsNoDigitIsFound) {
    for (unsigned place = 0; place < 8; ++place) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            const std::uint64_t others = 0x0908070605040302 & ~(std::uint64_t{0xFF} << (8 * place));
            const std::uint64_t digits = others | std::uint64_t{byte} << (8 * place);
            EXPECT_EQ(ky::LeadingDigits(digits), byte < 10 ? 8 : place) << byte;
            EXPECT_EQ(ky::LeadingDigits(digits | ~(~std::uint64_t{0} >> 8)), byte < 10 ? 7 : std::min(place, 7U))
                << byte;
        }
    }
}

}  // namespace
