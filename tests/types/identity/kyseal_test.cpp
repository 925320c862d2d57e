#include "kyseal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "kyobjid.h"
#include "kystring.h"

namespace {

static_assert(std::is_trivially_copyable_v<KySeal>);

KySeal Seal(long long number) {
    KySeal seal;
    seal.ConvertFrom(number);
    return seal;
}

long long NumberOf(const KySeal& seal) {
    long long number = -1;
    seal.ConvertTo(number);
    return number;
}

/// high, middle, low
std::vector<unsigned short> WordsOf(const KySeal& seal) {
    std::vector<unsigned short> words(3);
    std::memcpy(words.data(), &seal, sizeof seal);
    return words;
}

constexpr long long kNumbers[] = {0,
                                  1,
                                  0xFFFF,
                                  0x10000,
                                  0x10001,
                                  0xFFFFFFFF,
                                  0x100000000,
                                  0x100000001,
                                  0x7FFFFFFFFFFF,
                                  0x800000000000,
                                  0xFFFF00000000,
                                  0xFFFFFFFF0000,
                                  0xFFFFFFFFFFFE,
                                  0xFFFFFFFFFFFF};

TEST(Seal, IsZeroAtFirst) { EXPECT_EQ(NumberOf(KySeal()), 0); }

TEST(Seal, TakesTheLow48BitsOfANumber) {
    EXPECT_EQ(WordsOf(Seal(0x0001000200030004)), (std::vector<unsigned short>{2, 3, 4}));
    EXPECT_EQ(NumberOf(Seal(0x0001000200030004)), 0x000200030004);
    EXPECT_EQ(NumberOf(Seal(-1)), 0xFFFFFFFFFFFF);
    EXPECT_EQ(NumberOf(Seal(INT64_MIN)), 0);
    EXPECT_EQ(NumberOf(Seal(0x1000000000000)), 0);
    for (const long long number : kNumbers) EXPECT_EQ(NumberOf(Seal(number)), number);
}

TEST(Seal, ConvertsAsA64BitInteger) {
    for (const long long number : kNumbers) {
        KySeal seal;
        seal.ConvertFrom(KyInt64(number | 0x5A5A000000000000));
        EXPECT_EQ(NumberOf(seal), number);
        KyInt64 back(-1);
        seal.ConvertTo(back);
        EXPECT_EQ(back.Get8b(), number);
    }
}

TEST(Seal, IsUsableInConstants) {
    constexpr KySeal seal = [] {
        KySeal made;
        made.ConvertFrom(0x123456789ABCLL);
        return made;
    }();
    static_assert((seal != KySeal()) == 0x1234);
    EXPECT_EQ(NumberOf(seal), 0x123456789ABC);
}

TEST(Seal, TellsTheDifferenceOfTheFirstWordsThatDiffer) {
    struct {
        long long a, b;
        int difference;
    } const cases[] = {
        {0x000100000000, 0x0000FFFFFFFF, 1},
        {0x000000010000, 0x00000000FFFF, 1},
        {0xFFFF00000000, 0, 65535},
        {0, 0xFFFF00000000, -65535},
        {0x000000000005, 0x000000000009, -4},
        {0x000080000000, 0x000000000000, 0x8000},
        {0x00000000FFFF, 0x000000000001, 0xFFFE},
        {0x123456789ABC, 0x123456789ABC, 0},
        {0x1234000000FF, 0x123400010000, -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Seal(c.a) != Seal(c.b), c.difference) << c.a << ' ' << c.b;
        EXPECT_EQ(Seal(c.b) != Seal(c.a), -c.difference) << c.a << ' ' << c.b;
        EXPECT_EQ(Seal(c.a) == Seal(c.b), c.difference == 0 ? 1 : 0) << c.a << ' ' << c.b;
    }
}

TEST(Seal, OrdersAsItsNumbers) {
    for (const long long a : kNumbers) {
        for (const long long b : kNumbers) {
            const int order = Seal(a) != Seal(b);
            EXPECT_EQ((order > 0) - (order < 0), (a > b) - (a < b)) << a << ' ' << b;
        }
    }
}

TEST(Seal, TakesTheNumberOfAnObject) {
    KyObjId object;
    object.B = 0xAABBCCDD;
    object.L = 0x03040506;
    object.H = 0x0102;
    KySeal seal;
    seal.ConvertFrom(object);
    EXPECT_EQ(NumberOf(seal), 0x010203040506);
}

TEST(Seal, PrintsDecimalNumbers) {
    for (const long long number : kNumbers) {
        KyString out("before");
        EXPECT_EQ(&Seal(number).PrintToKyString(out), &out);
        EXPECT_EQ(out.StrGet(), std::to_string(number));
    }
    EXPECT_STREQ(KySeal::sealFmt, "%S");
}

TEST(Seal, Scans) {
    struct {
        const char* text;
        long long number;
    } const cases[] = {
        {"", 0},
        {"0", 0},
        {"8590131204", 0x000200030004},
        {"281474976710655", 0xFFFFFFFFFFFF},
        {"281474976710656", 0},
        {"281474976710657", 1},
        {"-1", 0xFFFFFFFFFFFF},
        {"-2", 0xFFFFFFFFFFFE},
        {"12abc", 12},
        {"abc", 0},
        {" 5", 0},
        {"{NULL}", 0},
        {"18446744073709551617", 1},
    };
    for (const auto& c : cases) {
        KySeal seal = Seal(77);
        seal.ScanFromKyString(c.text);
        EXPECT_EQ(NumberOf(seal), c.number) << c.text;
    }
    KyString null;
    null.SetNullValue();
    KySeal seal = Seal(77);
    seal.ScanFromKyString(null);
    EXPECT_EQ(NumberOf(seal), 0);
    const unsigned short wide[] = {'4', '2', 0};
    seal.ScanFromKyString(KyString(wide));
    EXPECT_EQ(NumberOf(seal), 42);
}

TEST(Seal, AnyNumberComesBackFromItsText) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto number = static_cast<long long>(random() >> (16 + random() % 48));
        KyString text;
        Seal(number).PrintToKyString(text);
        KySeal back;
        back.ScanFromKyString(text);
        ASSERT_EQ(NumberOf(back), number);
    }
}

}  // namespace
