#include "kywstring.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>
#include <vector>

#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using Wide = std::vector<unsigned short>;

/// With a terminator.
Wide W(const char* text) {
    Wide wide;
    for (; *text != 0; ++text) wide.push_back(static_cast<unsigned char>(*text));
    wide.push_back(0);
    return wide;
}

unsigned short* Guarded(GuardedBuffer& memory) { return reinterpret_cast<unsigned short*>(memory.data()); }

TEST(WideText, LengthStopsAtTheZeroUnit) {
    GuardedBuffer memory(8);
    const unsigned short units[] = {0x100, 0x4E00, 0xFF, 0};
    std::memcpy(memory.data(), units, sizeof units);
    EXPECT_EQ(KyWStrLen(Guarded(memory)), 3u);
    EXPECT_EQ(KyWStrLen(W("").data()), 0u);
}

TEST(WideText, CopyReturnsTheEnd) {
    GuardedBuffer memory(8);
    unsigned short* dst = Guarded(memory);
    EXPECT_EQ(KyWStrCpy(dst, W("abc").data()), dst + 4);
    EXPECT_EQ(Hex(dst, 8), "61 00 62 00 63 00 00 00");
}

TEST(WideText, Kept_CountedCopyTakesOneUnitMore) {
    const struct {
        const char* src;
        unsigned n;
        unsigned copied;
    } cases[] = {{"abcdef", 2, 3}, {"abcdef", 0, 1}, {"ab", 2, 3}, {"ab", 9, 3}, {"", 5, 1}, {"abc", 0xFFFFFFFF, 4}};
    for (const auto& [src, n, copied] : cases) {
        Wide dst(8, 0xEEEE);
        EXPECT_EQ(KyWStrNCpy(dst.data(), W(src).data(), n), dst.data() + copied) << src << ' ' << n;
        EXPECT_EQ(std::memcmp(dst.data(), W(src).data(), copied * 2), 0);
        EXPECT_EQ(dst[copied], 0xEEEE) << "no padding";
    }
}

TEST(WideText, ComparesUnits) {
    EXPECT_EQ(KyWStrCmp(W("abc").data(), W("abc").data()), 0);
    EXPECT_EQ(KyWStrCmp(W("abd").data(), W("abc").data()), 1);
    EXPECT_EQ(KyWStrCmp(W("ab").data(), W("abc").data()), -'c');
    EXPECT_EQ(KyWStrCmp(W("").data(), nullptr), 1);
    EXPECT_EQ(KyWStrCmp(nullptr, nullptr), 0);
    EXPECT_EQ(KyWStrCmp(nullptr, W("").data()), -1);
    const Wide high{0xFFFF, 0};
    EXPECT_EQ(KyWStrCmp(high.data(), W("").data()), 0xFFFF);

    EXPECT_EQ(KyWStrNCmp(W("abc").data(), W("abd").data(), 2), 0);
    EXPECT_EQ(KyWStrNCmp(W("abc").data(), W("abd").data(), 3), -1);
    EXPECT_EQ(KyWStrNCmp(W("ab").data(), W("ab").data(), 100), 0);
    EXPECT_EQ(KyWStrNCmp(W("").data(), nullptr, 1), 1);
    EXPECT_EQ(KyWStrNCmp(nullptr, nullptr, 1), 0);
    EXPECT_EQ(KyWStrNCmp(nullptr, W("").data(), 1), -1);
}

TEST(WideText, CountedCompareReadsNoFurther) {
    GuardedBuffer memory(4);
    std::memcpy(memory.data(), W("ab").data(), 4);
    EXPECT_EQ(KyWStrNCmp(Guarded(memory), W("abc").data(), 2), 0);
}

TEST(WideText, StepsAndFills) {
    Wide units(4, 0);
    EXPECT_EQ(KyWStrInc(units.data()), units.data() + 1);
    EXPECT_EQ(KyWMemSet(units.data(), 0x1234, 3), units.data());
    EXPECT_EQ(units, (Wide{0x1234, 0x1234, 0x1234, 0}));
    KyWMemSet(units.data(), 0xFFFF, 0);
    EXPECT_EQ(units[0], 0x1234);
}

TEST(WideText, Numbers) {
    const struct {
        const char* text;
        long long value;
    } cases[] = {
        {" 00x1F", 31},
        {"007", 7},
        {"0", 0},
        {"000", 0},
        {"12", 12},
        {"-12", -12},
        {"+12", 12},
        {"-0x1f", -31},
        {"-00x1f", 0},
        {"-007", -7},
        {"010", 8},
        {"08", 0},
        {"\t\n\v\f\r 5 6", 5},
        {"", 0},
        {"   ", 0},
        {"x", 0},
        {"00000000000000000000000000000000000000000000000012", 10},
        {"- 1", 0},
        {"12abc", 12},
        {"9223372036854775807", 9223372036854775807LL},
        {"9223372036854775808", 9223372036854775807LL},
        {"1234567890123456789012345678901234567890", 9223372036854775807LL},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(KyWStrToLL(W(text).data()), value) << text;
        EXPECT_EQ(KyWStrToL(W(text).data()), static_cast<int>(value)) << text;
        EXPECT_EQ(KyWStrToI(W(text).data()), static_cast<int>(value)) << text;
    }
}

TEST(WideText, NumbersReadAtMost31Characters) {
    const auto read = [](const std::string& text) { return KyWStrToLL(W(text.c_str()).data()); };
    EXPECT_EQ(read("0x" + std::string(27, '0') + "12"), 0x12) << "31 characters";
    EXPECT_EQ(read("0x" + std::string(28, '0') + "12"), 1) << "the 32nd is not read";
    EXPECT_EQ(read("-0x" + std::string(27, '0') + "12"), -1) << "the sign counts";
    EXPECT_EQ(read(std::string(40, ' ') + std::string(40, '0') + "12"), 10)
        << "blanks and further leading zeros do not";
    EXPECT_EQ(KyWStrToL(W(("1" + std::string(40, ' ')).c_str()).data()), 1);
}

TEST(WideText, NumbersEndAtTheFirstWideCharacter) {
    EXPECT_EQ(KyWStrToI(Wide{'1', '2', 0x0660, '3', 0}.data()), 12);
    EXPECT_EQ(KyWStrToI(Wide{0x2003, 0x3000, '4', 0}.data()), 4) << "wide spaces are skipped";
    EXPECT_EQ(KyWStrToI(Wide{0xA0, '4', 0}.data()), 0) << "a no-break space is none";
}

TEST(WideText, CopyOfMemory) {
    const unsigned char source[] = {1, 2, 3, 4, 5};
    for (unsigned offset = 0; offset < 2; ++offset) {
        GuardedBuffer memory(4 + offset);
        char* dst = reinterpret_cast<char*>(memory.data()) + offset;
        const char* src = reinterpret_cast<const char*>(source) + offset;
        KyMemCpy(dst, src, 2, 2, 4);
        EXPECT_EQ(Hex(dst, 4), offset == 0 ? "02 01 04 03" : "03 02 05 04");
        KyMemCpy(dst, src, 2, 1, 4);
        EXPECT_EQ(std::memcmp(dst, src, 4), 0);
        KyMemCpy(dst, src, 1, 2, 4);
        EXPECT_EQ(std::memcmp(dst, src, 4), 0);
        KyMemCpy(dst, src, 2, 0x82, 4);
        EXPECT_EQ(std::memcmp(dst, src, 4), 0) << "the flag is 2 exactly";
    }
    char odd[3] = {9, 9, 9};
    KyMemCpy(odd, reinterpret_cast<const char*>(source), 2, 2, 3);
    EXPECT_EQ(Hex(odd, 3), "02 01 09") << "whole units only";
    KyMemCpy(nullptr, nullptr, 1, 1, 0);
}

}  // namespace
