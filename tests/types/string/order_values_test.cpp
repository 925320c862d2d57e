#include <gtest/gtest.h>

#include "kychar.h"
#include "kystrcmp.h"

namespace {

TEST(OrderValues, Symbol) {
    unsigned short symbol = 7;
    EXPECT_EQ(KyExtractSymbolFromOrder(79, symbol), -2002);
    EXPECT_EQ(KyExtractSymbolFromOrder(16128, symbol), -2002);
    EXPECT_EQ(KyExtractSymbolFromOrder(0, symbol), -2002);
    EXPECT_EQ(symbol, 7) << "left alone";
    EXPECT_EQ(KyExtractSymbolFromOrder(80, symbol), 0);
    EXPECT_EQ(symbol, 0);
    EXPECT_EQ(KyExtractSymbolFromOrder(16127, symbol), 0);
    EXPECT_EQ(symbol, 16047);
}

TEST(OrderValues, Digit) {
    unsigned short digit = 99;
    unsigned short variant = 99;
    EXPECT_EQ(KyExtractDigitFromOrder(16127, digit, variant), -2002);
    EXPECT_EQ(KyExtractDigitFromOrder(16384, digit, variant), -2002);
    EXPECT_EQ(KyExtractDigitFromOrder(16128 + 70, digit, variant), 0);
    EXPECT_EQ(digit, 7);
    EXPECT_EQ(variant, 0);
    EXPECT_EQ(KyExtractDigitFromOrder(16128 + 21, digit, variant), 0);
    EXPECT_EQ(digit, 2);
    EXPECT_EQ(variant, 1);
}

TEST(OrderValues, Letter) {
    unsigned short letterCase;
    unsigned short accent;
    unsigned short letter;
    unsigned short variant;
    for (unsigned order = 0x4000; order < 0x8000; ++order) {
        ASSERT_EQ(KyExtractLetterComponentsFromOrdering(static_cast<unsigned short>(order), letterCase, accent, letter,
                                                        variant),
                  0);
        ASSERT_EQ(0x4000u | unsigned{letterCase} << 12 | unsigned{accent} << 7 | unsigned{letter} << 2 | variant,
                  order);
        ASSERT_LT(letterCase, 4);
        ASSERT_LT(accent, 32);
        ASSERT_LT(letter, 32);
        ASSERT_LT(variant, 4);
    }
    EXPECT_EQ(KyExtractLetterComponentsFromOrdering(0x8000, letterCase, accent, letter, variant), -2002);
    EXPECT_EQ(KyExtractLetterComponentsFromOrdering(0xFFFF, letterCase, accent, letter, variant), -2002);
}

TEST(OrderValues, Kept_ASymbolIsSplitLikeALetter) {
    unsigned short letterCase;
    unsigned short accent;
    unsigned short letter;
    unsigned short variant;
    EXPECT_EQ(KyExtractLetterComponentsFromOrdering(0x0051, letterCase, accent, letter, variant), 0);
    EXPECT_EQ(letter, 20);
    EXPECT_EQ(variant, 1);
}

TEST(NextOrderValue, MasksLettersOnly) {
    KyStringIterator it("a-\xE4", 1, 0, 1);
    EXPECT_EQ(GetNextOrderValue(it, 0x3F80), 0x400C);
    EXPECT_EQ(GetNextOrderValue(it, 0xFFFF), KyChar('-', 1, 0).GetOrder());
    EXPECT_EQ(GetNextOrderValue(it, 0x0F80), 0x600C);
    EXPECT_EQ(GetNextOrderValue(it, 0), 0);
    EXPECT_EQ(GetNextOrderValue(it, 0), 0);
}

TEST(NextOrderValue, CodeSetZeroYieldsBytes) {
    KyStringIterator it("a\xE4", 0, 0, 1);
    EXPECT_EQ(GetNextOrderValue(it, 0xFFFF), 'a');
    EXPECT_EQ(GetNextOrderValue(it, 0xFFFF), 0xE4);
    EXPECT_EQ(GetNextOrderValue(it, 0), 0);
    EXPECT_EQ(GetNextOrderValue(it, 0), 0);
}

}  // namespace
