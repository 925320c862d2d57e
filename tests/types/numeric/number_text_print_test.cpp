#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

#include "guarded_buffer_of.h"
#include "kystring.h"
#include "kytypfmt.h"
#include "number_text.h"
#include "support/comma_locale.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

template <class Value>
std::string Printed(KyPrintFunc* print, Value value, const char* format) {
    KyString out("old content");
    EXPECT_EQ(&print(out, &value, format, 1), &out);
    EXPECT_EQ(out.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(out.LanguageGet(), KyString::GetDefaultLanguage());
    return out.StrGet();
}

std::string PrintedCharacters(const std::string& characters, const char* format) {
    KyString out("old content");
    std::string copy = characters;
    CharPrintToKyString(out, copy.data(), format, static_cast<unsigned>(copy.size()));
    return out.StrGet();
}

/// Every value in one place: the format takes the width of the value, whatever modifier it names.
struct IntegerCase {
    const char* format;
    long long value;
    const char* as16;
    const char* as32;
    const char* as64;
};

const IntegerCase kIntegers[] = {
    {"%d", 0, "0", "0", "0"},
    {"%d", -1, "-1", "-1", "-1"},
    {"%hd", -1, "-1", "-1", "-1"},
    {"%ld", -1, "-1", "-1", "-1"},
    {"%lld", -1, "-1", "-1", "-1"},
    {"%u", -1, "4294967295", "4294967295", "18446744073709551615"},
    {"%hu", -1, "65535", "4294967295", "18446744073709551615"},
    {"%lu", -1, "4294967295", "4294967295", "18446744073709551615"},
    {"%llu", -1, "4294967295", "4294967295", "18446744073709551615"},
    {"#%lu", -1, "#4294967295", "#4294967295", "#18446744073709551615"},
    {"#%d", 12, "#12", "#12", "#12"},
    {"%x", -1, "ffffffff", "ffffffff", "ffffffffffffffff"},
    {"%lx", -1, "ffffffff", "ffffffff", "ffffffffffffffff"},
    {"%hx", -1, "ffff", "ffffffff", "ffffffffffffffff"},
    {"%#llo", -1, "037777777777", "037777777777", "01777777777777777777777"},
    {"%hd", 0x18001, "-32767", "98305", "98305"},
    {"%d", 0x123456789, "26505", "591751049", "4886718345"},
    {"[%+6.3d]%%", 7, "[  +007]%", "[  +007]%", "[  +007]%"},
    {"%-4d|", 7, "7   |", "7   |", "7   |"},
    {"%c", 'A', "A", "A", "A"},
    {"%i", 7, "7", "7", "7"},
    {"no number", 7, "no number", "no number", "no number"},
    {"100%%", 7, "100%", "100%", "100%"},
    {"", 7, "", "", ""},
    {nullptr, -7, "-7", "-7", "-7"},
    {"%s", 7, "", "", ""},
    {"%n", 7, "", "", ""},
    {"%p", 7, "", "", ""},
    {"%d%d", 7, "", "", ""},
    {"%*d", 7, "", "", ""},
    {"%f", 7, "", "", ""},
    {"%d %", 7, "", "", ""},
};

TEST(IntegerPrint, TakesTheWidthOfTheElement) {
    for (const IntegerCase& c : kIntegers) {
        const char* name = c.format != nullptr ? c.format : "null";
        EXPECT_EQ(Printed(ShortPrintToKyString, static_cast<short>(c.value), c.format), c.as16) << name;
        EXPECT_EQ(Printed(IntPrintToKyString, static_cast<int>(c.value), c.format), c.as32) << name;
        EXPECT_EQ(Printed(LongPrintToKyString, static_cast<int>(c.value), c.format), c.as32) << name;
        EXPECT_EQ(Printed(O_8BPrintToKyString, c.value, c.format), c.as64) << name;
    }
}

// KEPT: both signednesses share one print function, so that only "h" shows an unsigned 16-bit number as one.
TEST(IntegerPrint, Kept_UnsignedNumbersOf16BitsAreWidenedWithASign) {
    const std::uint16_t most = 65535;
    EXPECT_EQ(Printed(KyWordTab.PrintToKyString, most, "%d"), "-1");
    EXPECT_EQ(Printed(KyWordTab.PrintToKyString, most, "%x"), "ffffffff");
    EXPECT_EQ(Printed(KyWordTab.PrintToKyString, most, "%u"), "4294967295");
    EXPECT_EQ(Printed(KyWordTab.PrintToKyString, most, KyWordTab.printFormat), "65535");
}

TEST(IntegerPrint, ReadsAnUnalignedElementAndNothingBehindIt) {
    const auto first = BufferOf<short>(-2);
    const auto second = BufferOf<long long>(-3);
    KyString out;
    EXPECT_STREQ(ShortPrintToKyString(out, first->data(), "%hd", 7).StrGet(), "-2");
    EXPECT_STREQ(O_8BPrintToKyString(out, second->data(), "%lld", 7).StrGet(), "-3");
    unsigned char shifted[9] = {};
    shifted[1] = 5;
    EXPECT_STREQ(O_8BPrintToKyString(out, shifted + 1, "%lld", 1).StrGet(), "5");
}

TEST(IntegerPrint, TheFirstElementIsPrintedWhateverTheCount) {
    int values[] = {1, 2};
    KyString out;
    EXPECT_STREQ(IntPrintToKyString(out, values, "%d", 0).StrGet(), "1");
    EXPECT_STREQ(IntPrintToKyString(out, values, "%d", 2).StrGet(), "1");
}

TEST(IntegerPrint, TextsAboveTheLimitAreCutAsAllTextsAre) {
    int value = 7;
    KyString out;
    IntPrintToKyString(out, &value, "%999999999d", 1);
    EXPECT_EQ(out.Len(), KyString::MaxBytes - 1);
    IntPrintToKyString(out, &value, "%65531d", 1);
    EXPECT_EQ(out.Len(), KyString::MaxBytes - 1);
    EXPECT_EQ(out.StrGet()[KyString::MaxBytes - 2], '7');
}

TEST(CharacterPrint, OnePieceForEachElement) {
    EXPECT_EQ(PrintedCharacters("a\x07", "%c"), "a0x07");
    EXPECT_EQ(PrintedCharacters(std::string("\0\x1F ~\x7F\x80\xFF", 7), "%c"), "0x000x1f ~0x7f0x800xff");
    EXPECT_EQ(PrintedCharacters("ab", "[%c]"), "[a][b]");
    EXPECT_EQ(PrintedCharacters("a\x07", "%3c%%"), "  a%0x07");
    EXPECT_EQ(PrintedCharacters("A", "%d"), "65");
    EXPECT_EQ(PrintedCharacters("AB", "%#lx "), "0x41 0x42 ");
    EXPECT_EQ(PrintedCharacters("ab", nullptr), "ab");
    EXPECT_EQ(PrintedCharacters("ab", "x"), "xx");
    EXPECT_EQ(PrintedCharacters("", "%c"), "");
    EXPECT_EQ(PrintedCharacters("a\x07", "%s"), "");
    EXPECT_EQ(PrintedCharacters("a", "%c%c"), "");
    EXPECT_EQ(PrintedCharacters("a", "%f"), "");
}

TEST(CharacterPrint, LongArraysEndAtTheLimit) {
    EXPECT_EQ(PrintedCharacters(std::string(70000, 'x'), "%c"), std::string(KyString::MaxBytes - 1, 'x'));
    EXPECT_EQ(PrintedCharacters(std::string(100, 'x'), "%10000c").size(), KyString::MaxBytes - 1);
}

struct DoubleCase {
    const char* format;
    double value;
    const char* text;
};

const DoubleCase kDoubles[] = {
    {"%.17g", 0.0, "+0"},
    {"%.17g", -0.0, "-0"},
    {"%.17g", kNan, "NaN"},
    {"%.17g", -kNan, "NaN"},
    {"%.17g", kInfinity, "Infinity"},
    {"%.17g", -kInfinity, "-Infinity"},
    {"%.17g", 0.1, "0.10000000000000001"},
    {"%.17g", -1e100, "-1e+100"},
    {nullptr, 0.0, "+0"},
    {"%.16g", 0.0, "0"},
    {"%g", kInfinity, "inf"},
    {"%F", -kInfinity, "-INF"},
    {"%+.2f DM", 1234.567, "+1234.57 DM"},
    {"%Le", 1.5, "1.500000e+00"},
    {"%a", 1.0, "0x1p+0"},
    {"no number", 1.0, "no number"},
    {"%%", 1.0, "%"},
    {"%d", 1.0, ""},
    {"%s", 1.0, ""},
    {"%g%g", 1.0, ""},
    {"%.17g%n", 1.0, ""},
    {"ldexp(", 1.0, "ldexp("},
    {"ldexp(%g)", 10.0, "ldexp(10)"},  // the mark itself stands for the mantissa's form, not what begins with it
};

TEST(DoublePrint, NamesSpecialValuesInItsOwnFormatAlone) {
    for (const DoubleCase& c : kDoubles) {
        EXPECT_EQ(Printed(DoublePrintToKyString, c.value, c.format), c.text) << (c.format ? c.format : "null");
    }
}

TEST(FloatPrint, PrintsTheWidenedValue) {
    EXPECT_EQ(Printed(FloatPrintToKyString, 0.1F, "%.17g"), "0.10000000149011612");
    EXPECT_EQ(Printed(FloatPrintToKyString, -0.0F, "%.17g"), "-0");
    EXPECT_EQ(Printed(FloatPrintToKyString, 0.1F, "%.3e"), "1.000e-01");
    EXPECT_EQ(Printed(FloatPrintToKyString, std::numeric_limits<float>::infinity(), "%.17g"), "Infinity");
}

/// Points `pSpecialDoubleFmt` at another text for the length of a test.
class SpecialFormat {
public:
    explicit SpecialFormat(const char* text) : previous(pSpecialDoubleFmt) { pSpecialDoubleFmt = text; }
    SpecialFormat(const SpecialFormat&) = delete;
    SpecialFormat& operator=(const SpecialFormat&) = delete;
    ~SpecialFormat() { pSpecialDoubleFmt = previous; }

private:
    const char* previous;
};

TEST(MantissaPrint, PassesMantissaAndExponentByTheirKind) {
    EXPECT_STREQ(pSpecialDoubleFmt, "ldexp(");
    const SpecialFormat special("ldexp(%.17g, %d)");
    const DoubleCase cases[] = {
        {"ldexp(%.17g, %d)", 10.0, "ldexp(0.625, 4)"},
        {"ldexp(%.3f,%+d)%%", -0.125, "ldexp(-0.500,-2)%"},
        {"ldexp(%.17g, %ld)", 0.0, "ldexp(0, 0)"},
        {"ldexp(%.17g, %d)", kInfinity, "ldexp(inf, 0)"},
        {"ldexp(%.17g, %d)", -kNan, "ldexp(-nan, 0)"},
        {"ldexp(%.17g, %d)", 5e-324, "ldexp(0.5, -1073)"},
        {"ldexp(%.17g)", 10.0, "ldexp(0.625)"},
        {"ldexp(%.17g, %g)", 10.0, ""},
        {"ldexp(%.17g, %d, %d)", 10.0, ""},
        {"ldexp(%.17g, %s)", 10.0, ""},
        {"ldexp(%g, %d)", 10.0, ""},  // the first 8 characters differ, and two conversions are no plain format
    };
    for (const DoubleCase& c : cases) {
        EXPECT_EQ(Printed(DoublePrintToKyString, c.value, c.format), c.text) << c.format;
        EXPECT_EQ(Printed(FloatPrintToKyString, static_cast<float>(c.value), c.format),
                  static_cast<float>(c.value) == c.value || std::isnan(c.value) ? c.text : "ldexp(0, 0)")
            << c.format;
    }
    const SpecialFormat exponentFirst("two^%d * %g");
    EXPECT_EQ(Printed(DoublePrintToKyString, 10.0, "two^%d * %g"), "two^4 * 0.625");
    const SpecialFormat none(nullptr);
    EXPECT_EQ(Printed(DoublePrintToKyString, 10.0, "ldexp(%g"), "ldexp(10");
}

TEST(MantissaPrint, AFormatThatBeginsWithAPercentSignIsNeverOne) {
    const SpecialFormat special("%g, %d");
    EXPECT_EQ(Printed(DoublePrintToKyString, 10.0, "%g, %d"), "");
}

TEST(DoublePrint, IsTheSameUnderALocaleWithADecimalComma) {
    const CommaLocale comma;
    char byTheLibrary[16];
    std::snprintf(byTheLibrary, sizeof byTheLibrary, "%.1f", 1234.5);
    ASSERT_STREQ(byTheLibrary, "1234,5");
    EXPECT_EQ(Printed(DoublePrintToKyString, 1234.5, "%.17g"), "1234.5");
    EXPECT_EQ(Printed(DoublePrintToKyString, 1234.5, "%'.2f"), "1234.50");
    EXPECT_EQ(Printed(IntPrintToKyString, 1234567, "%'d"), "1234567");
    EXPECT_EQ(PrintedCharacters("\xE4", "%c"), "0xe4");
    EXPECT_EQ(Printed(DoublePrintToKyString, 1234.5, "%.2f"), "1234.50");
    EXPECT_EQ(Printed(FloatPrintToKyString, 1.5F, "%a"), "0x1.8p+0");
}

}  // namespace
