#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "guarded_buffer_of.h"
#include "kystring.h"
#include "kytypfmt.h"
#include "number_text.h"
#include "support/comma_locale.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The element after a scan that found it with the value `before`.
template <class Value>
Value Scanned(KyScanFunc* scan, const char* text, const char* format, Value before = 99) {
    const auto buffer = BufferOf(before);
    KyString source(text);
    EXPECT_EQ(scan(buffer->data(), source, format, 1), buffer->data());
    Value value;
    std::memcpy(&value, buffer->data(), sizeof value);
    return value;
}

struct IntegerCase {
    const char* text;
    const char* format;
    long long as16;
    long long as32;
    long long as64;
};

constexpr long long kMax64 = std::numeric_limits<long long>::max();
constexpr long long kMin64 = std::numeric_limits<long long>::min();

const IntegerCase kIntegers[] = {
    {"42", "%d", 42, 42, 42},
    {"42", nullptr, 42, 42, 42},
    {" \t\n-42x", "%hd", -42, -42, -42},
    {"+42", "%ld", 42, 42, 42},
    {"4294967295", "%lu", -1, -1, 4294967295},
    {"4294967296", "%ld", 0, 0, 4294967296},
    {"65536", "%hu", 0, 65536, 65536},
    {"18446744073709551615", "%llu", -1, -1, -1},
    {"18446744073709551616", "%llu", -1, -1, -1},
    {"-1", "%u", -1, -1, -1},
    {"9223372036854775808", "%lld", -1, -1, kMax64},
    {"-9223372036854775809", "%lld", 0, 0, kMin64},
    {"#12", "#%lu", 12, 12, 12},
    {"# 12", "#%lu", 12, 12, 12},
    {" #12", "#%lu", 99, 99, 99},
    {"12", "#%lu", 99, 99, 99},
    {"0x1F", "%x", 31, 31, 31},
    {"0x1F", "%i", 31, 31, 31},
    {"010", "%i", 8, 8, 8},
    {"010", "%d", 10, 10, 10},
    {"12345", "%3d", 123, 123, 123},
    {"5 %7", "5 %% %d", 7, 7, 7},
    {"A", "%c", 65, 65, 65},
    {"007", "%-+8.3d|", 7, 7, 7},
    {"", "%d", 99, 99, 99},
    {"x", "%d", 99, 99, 99},
    {"-", "%d", 99, 99, 99},
    {"- 1", "%d", 99, 99, 99},
    {"12", "12", 99, 99, 99},
    {"12", "%s", 99, 99, 99},
    {"12", "%n", 99, 99, 99},
    {"12", "%*d", 99, 99, 99},
    {"1 2", "%d%d", 99, 99, 99},
    {"12", "%f", 99, 99, 99},
};

TEST(IntegerScan, TakesTheWidthOfTheElement) {
    for (const IntegerCase& c : kIntegers) {
        EXPECT_EQ(Scanned<short>(ShortScanFromKyString, c.text, c.format), c.as16) << c.text;
        EXPECT_EQ(Scanned<int>(IntScanFromKyString, c.text, c.format), c.as32) << c.text;
        EXPECT_EQ(Scanned<int>(LongScanFromKyString, c.text, c.format), c.as32) << c.text;
        EXPECT_EQ(Scanned<long long>(O_8BScanFromKyString, c.text, c.format), c.as64) << c.text;
    }
}

struct CharacterCase {
    const char* text;
    const char* format;
    int value;
};

TEST(CharacterScan, TriesTheHexadecimalCodeFirst) {
    const CharacterCase cases[] = {
        {"0x41", "%c", 65},   {"0x4141", "%c", 65}, {"0xff", "%c", -1},  {"0x 7", "%c", 7},   {"0x-1", "%c", -1},
        {"0x0x41", "%c", 65}, {"0xg", "%c", '0'},   {"0x", "%c", '0'},   {"0X41", "%c", '0'}, {" 0x41", "%c", ' '},
        {"A", "%c", 'A'},     {"A", nullptr, 'A'},  {" A", "%c", ' '},   {" A", " %c", 'A'},  {"", "%c", 99},
        {"66", "%d", 66},     {"0x42", "%d", 66},   {"300", "%d", 44},   {"A", "%s", 99},     {"[A]", "[%c]", 'A'},
        {"ABC", "%3c", 'A'},  {"0x80", "%c", -128}, {"\xE4", "%c", -28}, {"x", "%d", 99},
    };
    for (const CharacterCase& c : cases) {
        EXPECT_EQ(Scanned<signed char>(CharScanFromKyString, c.text, c.format), c.value) << '"' << c.text << '"';
    }
}

struct DoubleCase {
    const char* text;
    const char* format;
    double value;
};

const DoubleCase kDoubles[] = {
    {"1.5", "%.17g", 1.5},
    {"1.5", nullptr, 1.5},
    {"", "%.17g", 0},
    {"x", "%.17g", 0},
    {"inf", "%.17g", 0},
    {"+Infinity", "%.17g", 0},
    {"0x10", "%.17g", 0},
    {"iNFINITY", "%.17g", kInfinity},
    {"-Infinity", "%.17g", -kInfinity},
    {"1e999", "%.17g", kInfinity},
    {"-1e999", "%.17g", -kInfinity},
    {"0x10", "%g", 16},
    {"inf", "%g", kInfinity},
    {"1.25", "%4lf", 1.25},
    {"1.25", "%3Lf", 1.2},
    {"1.25", "%8.3f", 1.25},
    {"DM 1.25", "DM%e", 1.25},
    {"x", "%g", 99},
    {"", "%f", 99},
    {"1.5", "%d", 99},
    {"1.5", "%s", 99},
    {"1.5", "1.5", 99},
    {"1 2", "%g%g", 99},
    {"ldexp(", "ldexp(", 99},
};

TEST(FloatingScan, ReadsItsOwnFormatAndOthers) {
    for (const DoubleCase& c : kDoubles) {
        EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, c.text, c.format), c.value) << c.text;
        EXPECT_EQ(Scanned<float>(FloatScanFromKyString, c.text, c.format), static_cast<float>(c.value)) << c.text;
    }
}

TEST(FloatingScan, TheNanHasOneBitPattern) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(Scanned<double>(DoubleScanFromKyString, "NaN", "%.17g")),
              0xFFF8000000000000U);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(Scanned<float>(FloatScanFromKyString, "nAn", "%.17g")), 0xFFC00000U);
}

TEST(FloatingScan, AFloatIsReadAsADoubleAndNarrowedInTheOwnFormat) {
    EXPECT_EQ(Scanned<float>(FloatScanFromKyString, "1e39", "%.17g"), std::numeric_limits<float>::infinity());
    // Halfway between two floats but for its last digit: narrowed twice it goes to the even one, read at once up.
    const char* text = "1.00000005960464477540";
    EXPECT_EQ(Scanned<float>(FloatScanFromKyString, text, "%.17g"), 1.0F);
    EXPECT_EQ(Scanned<float>(FloatScanFromKyString, text, "%g"), 1.00000012F);
}

TEST(MantissaScan, ReadsBothNumbersOrNothing) {
    const char* previous = pSpecialDoubleFmt;
    pSpecialDoubleFmt = "ldexp(%.17g, %d)";
    const DoubleCase cases[] = {
        {"ldexp(0.625, 4)", "ldexp(%.17g, %d)", 10},
        {"ldexp( -0.5,-2)", "ldexp(%.17g,%ld)", -0.125},
        {"ldexp(inf, 0)", "ldexp(%.17g, %d)", kInfinity},
        {"ldexp(0.5, 99999)", "ldexp(%.17g, %d)", kInfinity},
        {"ldexp(0.625", "ldexp(%.17g, %d)", 99},
        {"ldexp(0.625, x", "ldexp(%.17g, %d)", 99},
        {"0.625, 4", "ldexp(%.17g, %d)", 99},
        {"ldexp(0.625, 4)", "ldexp(%.17g, %s)", 99},
        {"ldexp(0.625, 4)", "ldexp(%.17g", 99},
    };
    for (const DoubleCase& c : cases) {
        EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, c.text, c.format), c.value) << c.text;
        EXPECT_EQ(Scanned<float>(FloatScanFromKyString, c.text, c.format), static_cast<float>(c.value)) << c.text;
    }
    pSpecialDoubleFmt = "two^%d * %g";
    EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, "two^4 * 0.625", "two^%d * %g"), 10);
    pSpecialDoubleFmt = previous;
}

TEST(Scan, ANullValuePointerGivesNull) {
    KyString text("1");
    for (KyScanFunc* scan : {CharScanFromKyString, ShortScanFromKyString, LongScanFromKyString, IntScanFromKyString,
                             O_8BScanFromKyString, FloatScanFromKyString, DoubleScanFromKyString}) {
        EXPECT_EQ(scan(nullptr, text, "%d", 1), nullptr);
    }
}

TEST(Scan, A16BitTextIsReadAsAn8BitOne) {
    const unsigned short units[] = {'-', '4', '2', 0};
    KyString text(units);
    int value = 99;
    EXPECT_EQ(IntScanFromKyString(&value, text, "%d", 1), &value);
    EXPECT_EQ(value, -42);
    double wide = 99;
    DoubleScanFromKyString(&wide, text, "%.17g", 1);
    EXPECT_EQ(wide, -42);
    EXPECT_EQ(text.Len(), 3);
}

TEST(Scan, ATextWithoutABufferHoldsNothing) {
    KyString text;
    int value = 99;
    IntScanFromKyString(&value, text, "%d", 1);
    EXPECT_EQ(value, 99);
    text.SetNullValue();
    double wide = 99;
    DoubleScanFromKyString(&wide, text, "%.17g", 1);
    EXPECT_EQ(wide, 0);
}

TEST(Scan, IsTheSameUnderALocaleWithADecimalComma) {
    const CommaLocale comma;
    ASSERT_EQ(std::strtod("1,5", nullptr), 1.5);
    EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, "1.5", "%.17g"), 1.5);
    EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, "1,5", "%.17g"), 1);
    EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, "1.5", "%g"), 1.5);
    EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, "1,5", "%g"), 1);
    EXPECT_EQ(Scanned<float>(FloatScanFromKyString, "1.5", "%e"), 1.5F);
    EXPECT_EQ(Scanned<double>(DoubleScanFromKyString, "123456789012345678901234567890.5", "%.17g"),
              123456789012345678901234567890.5);
    EXPECT_EQ(Scanned<int>(IntScanFromKyString, "1.000", "%'d"), 1);
}

}  // namespace
