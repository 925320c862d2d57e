#include "number_format.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "number_format_print.h"
#include "number_format_scan.h"
#include "support/c_locale.h"
#include "support/fewer_cases.h"

namespace {

using ky::Conversion;
using ky::NumberClass;
using ky::NumberFormat;
using ky::TextBuffer;

TEST(NumberFormat, TakesAFormatApart) {
    NumberFormat parts;
    ASSERT_TRUE(ky::ParseNumberFormat("a%%b%-+ #0'12.34lldc%%", NumberClass::Integer, parts));
    ASSERT_EQ(parts.count, 1U);
    EXPECT_EQ(parts.literals[0], "a%%b");
    EXPECT_EQ(parts.literals[1], "c%%");
    const Conversion& conversion = parts.conversions[0];
    EXPECT_TRUE(conversion.leftAlign && conversion.plus && conversion.blank && conversion.alternate);
    EXPECT_TRUE(conversion.zeroPad);
    EXPECT_FALSE(conversion.half);
    EXPECT_EQ(conversion.width, 12);
    EXPECT_EQ(conversion.precision, 34);
    EXPECT_EQ(conversion.letter, 'd');
}

TEST(NumberFormat, RemembersAHalfWidthAlone) {
    NumberFormat parts;
    for (const char* modifier : {"", "hh", "l", "ll", "L", "q", "j", "z", "t"}) {
        ASSERT_TRUE(
            ky::ParseNumberFormat(std::string("%").append(modifier).append("u").c_str(), NumberClass::Integer, parts));
        EXPECT_FALSE(parts.conversions[0].half) << modifier;
    }
    ASSERT_TRUE(ky::ParseNumberFormat("%hu", NumberClass::Integer, parts));
    EXPECT_TRUE(parts.conversions[0].half);
}

TEST(NumberFormat, AcceptsAtMostOneConversionOfTheClass) {
    NumberFormat parts;
    for (const char* format : {"", "text", "%%", "%d", "%i", "%o", "%u", "%x", "%X", "%c", "%.d", "%2147483647d"}) {
        EXPECT_TRUE(ky::ParseNumberFormat(format, NumberClass::Integer, parts)) << format;
    }
    for (const char* format : {"%a", "%e", "%f", "%g", "%A", "%E", "%F", "%G", "%Lf", "%lf", "%.17g", "[%8.3f]"}) {
        EXPECT_TRUE(ky::ParseNumberFormat(format, NumberClass::Floating, parts)) << format;
        EXPECT_FALSE(ky::ParseNumberFormat(format, NumberClass::Integer, parts)) << format;
    }
    for (const char* format : {"%",
                               "%d%d",
                               "%s",
                               "%n",
                               "%p",
                               "%m",
                               "%*d",
                               "%.*d",
                               "%1$d",
                               "%C",
                               "%S",
                               "%[0-9]",
                               "%l",
                               "%lld%",
                               "% ",
                               "%5",
                               "%5%",
                               "%.",
                               "%hhhd",
                               "%llld",
                               "%Id",
                               "%.-5d",
                               "%2147483648d",
                               "%.2147483648d",
                               "%99999999999999999999d",
                               "%d%n",
                               "%f"}) {
        EXPECT_FALSE(ky::ParseNumberFormat(format, NumberClass::Integer, parts)) << format;
    }
}

std::string Printed(const char* format, long long value, unsigned bits) {
    NumberFormat parts;
    EXPECT_TRUE(ky::ParseNumberFormat(format, NumberClass::Integer, parts)) << format;
    TextBuffer out;
    out.AppendLiteral(parts.literals[0]);
    ky::PrintInteger(out, parts.conversions[0], {value, bits});
    out.AppendLiteral(parts.literals[1]);
    return out.Text();
}

std::string Printed(const char* format, double value) {
    NumberFormat parts;
    EXPECT_TRUE(ky::ParseNumberFormat(format, NumberClass::Floating, parts)) << format;
    TextBuffer out;
    out.AppendLiteral(parts.literals[0]);
    ky::PrintFloating(out, parts.conversions[0], value);
    out.AppendLiteral(parts.literals[1]);
    return out.Text();
}

/// What the C library makes of the same format in the "C" locale.
template <class... Arguments>
std::string ByTheLibrary(const char* format, Arguments... arguments) {
    const CLocale plain;
    std::vector<char> text(4096);
    const int length = std::snprintf(text.data(), text.size(), format, arguments...);
    EXPECT_LT(length, static_cast<int>(text.size()));
    return text.data();
}

using Random = std::mt19937_64;

std::string OneOf(Random& random, const std::vector<std::string>& choices) {
    return choices[random() % choices.size()];
}

std::string AnyConversion(Random& random, const char* modifier, const std::string& letters) {
    std::string format = "<%%%";
    for (const char flag : {'-', '+', ' ', '#', '0', '\''}) {
        if (random() % 4 == 0) format += flag;
    }
    format += OneOf(random, {"", "", "1", "7", "25", "300"});
    format += OneOf(random, {"", "", ".", ".0", ".1", ".3", ".17", ".40", ".1200"});
    return format + modifier + letters[random() % letters.size()] + ">%%";
}

long long AnyInteger(Random& random) {
    const auto bits = random() >> (random() % 64);
    return static_cast<long long>(random() % 2 == 0 ? bits : 0 - bits);
}

double AnyDouble(Random& random) {
    switch (random() % 4) {
        case 0:
            return static_cast<double>(static_cast<std::int64_t>(random() % 2000000) - 1000000) / 1000;
        case 1: {
            const double special[] = {0.0,
                                      -0.0,
                                      std::numeric_limits<double>::infinity(),
                                      -std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::quiet_NaN(),
                                      5e-324,
                                      1.0,
                                      0.5,
                                      2.5,
                                      9.5,
                                      999999.5};
            return special[random() % std::size(special)];
        }
        default:
            return std::bit_cast<double>(random());
    }
}

TEST(NumberFormatPrint, IntegersAreThoseOfPrintf) {
    Random random(20240507);
    for (int i = 0; i < 200000 / kFewerCases; ++i) {
        const long long value = AnyInteger(random);
        const std::string format = AnyConversion(random, "", "diuoxXc");
        const bool character = format[format.size() - 4] == 'c';
        const long long shown = character ? value | 1 : value;
        EXPECT_EQ(Printed(format.c_str(), static_cast<int>(shown), 32),
                  ByTheLibrary(format.c_str(), static_cast<int>(shown)))
            << format << ' ' << shown;
        if (character) continue;
        const std::string wide = AnyConversion(random, "ll", "diuoxX");
        EXPECT_EQ(Printed(wide.c_str(), value, 64), ByTheLibrary(wide.c_str(), value)) << wide << ' ' << value;
    }
}

TEST(NumberFormatPrint, FloatingPointNumbersAreThoseOfPrintf) {
    Random random(20240508);
    for (int i = 0; i < 100000 / kFewerCases; ++i) {
        const double value = AnyDouble(random);
        const std::string format = AnyConversion(random, "", "aefgAEFG");
        EXPECT_EQ(Printed(format.c_str(), value), ByTheLibrary(format.c_str(), value)) << format << ' ' << value;
    }
}

TEST(NumberFormatPrint, HugeWidthsEndJustAboveTheLongestString) {
    const std::size_t limit = TextBuffer::kLimit;
    EXPECT_EQ(Printed("%999999999d", 7, 32), std::string(limit, ' '));
    EXPECT_EQ(Printed("%-999999999d", 7, 32), std::string("7").append(limit - 1, ' '));
    EXPECT_EQ(Printed("%.999999999d", 7, 32), std::string(limit, '0'));
    EXPECT_EQ(Printed("%+.2147483647d", 7, 32), std::string("+").append(limit - 1, '0'));
    EXPECT_EQ(Printed("%2147483647.2147483640d", 7, 32), std::string(7, ' ').append(limit - 7, '0'));
    EXPECT_EQ(Printed("%.999999999f", 2.5), std::string("2.5").append(limit - 3, '0'));
    for (const char* format :
         {"%.2000e", "%.2000f", "%#.2000G", "%.2000g", "%.2000a", "%3000.2000e", "%-03000.2000e"}) {
        for (const double value : {2.5, 2.5e99, 2.5e-99, -5e-324}) {
            EXPECT_EQ(Printed(format, value), ByTheLibrary(format, value)) << format << ' ' << value;
        }
    }
    EXPECT_EQ(Printed("%999999999f", std::numeric_limits<double>::infinity()), std::string(limit, ' '));
}

/// The number that a conversion reads, and how much of the text; the text's length plus 1 for nothing.
struct Scanned {
    unsigned long long bits = 0xABCDEF;
    std::size_t consumed = 0;
    bool read = false;

    bool operator==(const Scanned&) const = default;
};

Scanned Scan(const std::string& format, const std::string& text) {
    NumberFormat parts;
    EXPECT_TRUE(ky::ParseNumberFormat(format.c_str(), NumberClass::Integer, parts)) << format;
    Scanned scanned;
    const char* at = text.c_str();
    scanned.read = ky::MatchLiteral(at, parts.literals[0]) && ky::ScanInteger(at, parts.conversions[0], scanned.bits);
    if (scanned.read) scanned.consumed = static_cast<std::size_t>(at - text.c_str());
    return scanned;
}

Scanned ScanByTheLibrary(const std::string& format, const std::string& text) {
    const CLocale plain;
    Scanned scanned;
    int consumed = 0;
    scanned.read = std::sscanf(text.c_str(), (format + "%n").c_str(), &scanned.bits, &consumed) == 1;
    scanned.consumed = static_cast<std::size_t>(consumed);
    return scanned;
}

std::string AnyText(Random& random) {
    std::string text;
    for (auto n = random() % 6; n != 0; --n) {
        text += OneOf(random, {"0",
                               "0x",
                               "0X",
                               "x",
                               "7",
                               "9",
                               "12345",
                               "18446744073709551615",
                               "18446744073709551616",
                               "9223372036854775807",
                               "9223372036854775808",
                               "999999999999999999",
                               "-",
                               "+",
                               " ",
                               "\t",
                               "\n",
                               "a",
                               "fF",
                               "g",
                               "%",
                               "#",
                               ".",
                               ",",
                               "00000000000000000000001"});
    }
    return text;
}

TEST(NumberFormatScan, IntegersAreThoseOfScanf) {
    Random random(20240509);
    for (int i = 0; i < 300000 / kFewerCases; ++i) {
        const std::string text = AnyText(random);
        std::string format = OneOf(random, {"", "", "", "#", " ", "%%", "0x", "# %%"}) + "%";
        format += OneOf(random, {"", "", "", "1", "2", "3", "5", "2000000000"});
        const std::string letters = "diuoxX";
        format += std::string("ll") + letters[random() % letters.size()];
        EXPECT_EQ(Scan(format, text), ScanByTheLibrary(format, text)) << '"' << format << "\" \"" << text << '"';
    }
}

TEST(NumberFormatScan, TheOwnFormatsReadWhatTheGeneralOnesRead) {
    Random random(20240510);
    for (int i = 0; i < 300000 / kFewerCases; ++i) {
        const std::string text = AnyText(random);
        for (const bool isSigned : {false, true}) {
            Scanned fast;
            const char* at = text.c_str();
            fast.read = ky::ScanDecimal(at, isSigned, fast.bits);
            if (fast.read) fast.consumed = static_cast<std::size_t>(at - text.c_str());
            EXPECT_EQ(fast, ScanByTheLibrary(isSigned ? "%lld" : "%llu", text)) << '"' << text << '"';
        }
    }
}

}  // namespace
