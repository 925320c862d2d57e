#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "kyi18n.h"

namespace {

const KyCodeSet& Set(unsigned char code) { return *KyLanguageContext::QueryCodeSet(code); }

unsigned short OrderOf(unsigned short code) { return Set(KyCodeSetLatin1).GetProperty(code)->order; }

TEST(CodeSet, NumbersNameObjects) {
    for (unsigned char code :
         {KyCodeSetLatin1, KyCodeSetWindows1252, KyCodeSetAscii, KyCodeSetUnicode, KyCodeSetOrders}) {
        ASSERT_NE(KyLanguageContext::QueryCodeSet(code), nullptr) << int{code};
        EXPECT_EQ(Set(code).Code(), code);
    }
    EXPECT_EQ(Set(KyCodeSetNative).Code(), KyLanguageContext::GetNativeCodeSet());
    EXPECT_EQ(Set(KyCodeSetDefault).Code(), KyLanguageContext::GetDefaultCodeSet());
    for (unsigned code : {27u, 100u, 224u, 225u, 252u}) {
        EXPECT_EQ(KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(code)), nullptr) << code;
    }
}

TEST(CodeSet, LanguagesAreNeutralSoFar) {
    ASSERT_NE(KyLanguageContext::QueryLanguage(KyLanguageNeutral), nullptr);
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageNeutral)->Variant(), 0);
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageDefault), KyLanguageContext::QueryLanguage(KyLanguageNeutral));
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageNull), nullptr);
}

TEST(CodeSet, EveryByteOfLatin1HasARecordAndNoneSharesItsOrderWithinAClass) {
    std::map<std::pair<int, int>, unsigned> seen;
    for (unsigned short code = 1; code < 256; ++code) {
        const KyCharProps* record = Set(KyCodeSetLatin1).GetProperty(code);
        ASSERT_NE(record, nullptr) << code;
        EXPECT_EQ(Set(KyCodeSetUnicode).GetProperty(code), record);
        EXPECT_LT(record->orderClass, 128);
        const auto [at, isNew] = seen.try_emplace({record->orderClass, record->order}, code);
        EXPECT_TRUE(isNew) << code << " and " << at->second;
    }
    EXPECT_EQ(Set(KyCodeSetLatin1).GetProperty(0), nullptr);
    EXPECT_EQ(Set(KyCodeSetLatin1).GetProperty(0x100), nullptr);
    EXPECT_EQ(Set(KyCodeSetUnicode).GetProperty(0x4E00), nullptr);
}

TEST(CodeSet, WhiteSpaceIsUnicodesWhiteSpace) {
    const std::vector<unsigned short> spaces{0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x20, 0x85, 0xA0};
    for (unsigned short code = 1; code < 256; ++code) {
        const bool space = std::find(spaces.begin(), spaces.end(), code) != spaces.end();
        EXPECT_EQ(OrderOf(code) < 80, space) << code;
    }
}

TEST(CodeSet, OrdersFallIntoTheirRanges) {
    for (unsigned short digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(OrderOf(static_cast<unsigned short>('0' + digit)), 16128 + 10 * digit);
    }
    EXPECT_EQ(OrderOf(0xB2), 16128 + 20 + 1);  // superscript two
    for (unsigned short code = 'A'; code <= 'Z'; ++code) {
        EXPECT_EQ(OrderOf(code), 0x4000 | (code - 'A' + 3) << 2);
        EXPECT_EQ(OrderOf(static_cast<unsigned short>(code + 32)), 0x5000 | (code - 'A' + 3) << 2);
    }
    for (const unsigned short code :
         std::initializer_list<unsigned short>{'!', '*', '?', '\\', '~', 0x01, 0x7F, 0x80, 0xA4, 0xD7, 0xF7}) {
        EXPECT_GE(OrderOf(code), 80) << code;
        EXPECT_LT(OrderOf(code), 256) << code;
    }
}

TEST(CodeSet, AccentedLettersKeepTheirLetter) {
    const struct {
        unsigned short code;
        char letter;
        bool lower;
    } cases[] = {{0xC4, 'A', false}, {0xE4, 'A', true}, {0xC7, 'C', false}, {0xF1, 'N', true},
                 {0xD8, 'O', false}, {0xFC, 'U', true}, {0xFF, 'Y', true},  {0xDF, 'S', true}};
    for (const auto& [code, letter, lower] : cases) {
        EXPECT_EQ(OrderOf(code) >> 2 & 0x1F, letter - 'A' + 3) << code;
        EXPECT_EQ(OrderOf(code) >> 12 & 3, lower ? 1 : 0) << code;
        EXPECT_NE(OrderOf(code) >> 7 & 0x1F, 0) << code;
    }
}

TEST(CodeSet, CaseMappingsAreEachOthersInverse) {
    unsigned pairs = 0;
    for (unsigned short code = 1; code < 256; ++code) {
        const KyCharProps* record = Set(KyCodeSetLatin1).GetProperty(code);
        if (record->lower == 0) continue;
        ++pairs;
        EXPECT_EQ(record->lower, code + 0x20);
        EXPECT_EQ(Set(KyCodeSetLatin1).GetProperty(record->lower)->upper, code);
    }
    EXPECT_EQ(pairs, 26u + 30u);
    const KyCharProps* sharpS = Set(KyCodeSetLatin1).GetProperty(0xDF);
    EXPECT_EQ(sharpS->upper, 'S');
    ASSERT_EQ(sharpS->rules->upperExpansion.count, 1);
    EXPECT_EQ(sharpS->rules->upperExpansion.items[0], 'S');
    EXPECT_EQ(Set(KyCodeSetUnicode).GetProperty(0xFF)->upper, 0x0178);
}

TEST(CodeSet, AsciiBytesWithoutACharacterAreSymbolsOfTheirOwn) {
    for (unsigned short code = 0x80; code < 0x100; ++code) {
        EXPECT_EQ(Set(KyCodeSetAscii).GetProperty(code)->order, 16000 + code - 0x80);
    }
    EXPECT_EQ(Set(KyCodeSetAscii).GetProperty('a')->order, OrderOf('a'));
}

TEST(CodeSet, MapsThroughUnicode) {
    const struct {
        unsigned char from;
        unsigned char to;
        unsigned short code;
        unsigned short mapped;
    } cases[] = {
        {KyCodeSetLatin1, KyCodeSetUnicode, 0xE4, 0xE4},
        {KyCodeSetUnicode, KyCodeSetLatin1, 0xE4, 0xE4},
        {KyCodeSetWindows1252, KyCodeSetUnicode, 0x80, 0x20AC},
        {KyCodeSetUnicode, KyCodeSetWindows1252, 0x20AC, 0x80},
        {KyCodeSetWindows1252, KyCodeSetLatin1, 0xFC, 0xFC},
        {KyCodeSetWindows1252, KyCodeSetLatin1, 0x80, '?'},  // Latin-1 has no euro sign
        {KyCodeSetUnicode, KyCodeSetAscii, 0xE4, '?'},
        {KyCodeSetUnicode, KyCodeSetWindows1252, 0x4E00, '?'},
        {KyCodeSetAscii, KyCodeSetUnicode, 0x80, 0xFFFD},  // no character at all
        {KyCodeSetAscii, KyCodeSetLatin1, 0x80, '?'},
        {KyCodeSetAscii, KyCodeSetAscii, 0x80, 0x80},
        {KyCodeSetUnicode, KyCodeSetAscii, 0, 0},
        {KyCodeSetLatin1, KyCodeSetOrders, 'A', 0x400C},
        {KyCodeSetWindows1252, KyCodeSetOrders, 'A', 0x400C},
        {KyCodeSetOrders, KyCodeSetLatin1, 0x400C, '?'},
    };
    for (const auto& [from, to, code, mapped] : cases) {
        EXPECT_EQ(Set(to).MapFrom(Set(from), code), mapped) << int{from} << " to " << int{to} << ": " << code;
    }
}

TEST(CodeSet, Windows1252GoesToUnicodeAndBack) {
    for (unsigned short code = 1; code < 256; ++code) {
        const unsigned short unicode = Set(KyCodeSetWindows1252).ToUnicode(code);
        EXPECT_EQ(Set(KyCodeSetWindows1252).FromUnicode(unicode), code);
        if (code < 0x80 || code >= 0xA0) {
            EXPECT_EQ(unicode, code);
        }
    }
    EXPECT_EQ(Set(KyCodeSetWindows1252).ToUnicode(0x9C), 0x0153);
}

TEST(CodeSet, UnicodePropertiesOfASetWithoutATable) {
    const KyCodeSet& windows = Set(KyCodeSetWindows1252);
    EXPECT_FALSE(windows.HasPropertyTable());
    EXPECT_EQ(windows.GetProperty('a'), nullptr);
    EXPECT_EQ(KyCodeSet::GetUnicodeProps(&windows, 'a', KyLanguageNeutral), Set(KyCodeSetUnicode).GetProperty('a'));
    EXPECT_EQ(KyCodeSet::GetUnicodeProps(&windows, 0x80, KyLanguageNeutral), nullptr);
    EXPECT_EQ(KyCodeSet::GetUnicodeProps(nullptr, 'a', KyLanguageNeutral), nullptr);
}

TEST(Language, SelectsTheVariantItAsksFor) {
    const KyCharProps variantRecord{.order = 0x4020};
    const KyLanguageVariant variants[] = {{3, &variantRecord}};
    const KyCharRules rules{.variants = variants};
    const KyCharProps record{.order = 0x400C, .rules = &rules};
    EXPECT_EQ(&KyLanguage(9, 3).Select(record), &variantRecord);
    EXPECT_EQ(&KyLanguage(9, 2).Select(record), &record);
    EXPECT_EQ(&KyLanguage(9, 0).Select(record), &record);
    EXPECT_EQ(&KyLanguage(9, 3).Select(variantRecord), &variantRecord);
}

TEST(Language, RanksClasses) {
    unsigned char ranks[128] = {};
    ranks[1] = 5;
    const KyCharProps record{.order = 0x4020, .orderClass = 1};
    EXPECT_EQ(KyLanguage(9, 0, ranks).ClassOf(record), 5);
    EXPECT_EQ(KyLanguage(9).ClassOf(record), 1);
}

}  // namespace
