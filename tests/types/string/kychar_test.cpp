#include "kychar.h"

#include <gtest/gtest.h>

#include <vector>

#include <clocale>
#include <cstring>

#include "kyi18n.h"
#include "kystring.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

KyChar Latin(unsigned char c) { return KyChar(static_cast<char>(c), 1, 0); }
KyChar Unicode(unsigned short c) { return KyChar(c, 253, 0); }

TEST(Character, ValuesKnowTheirCodeSet) {
    EXPECT_EQ(Latin(0xE4).CodeGet(), 0xE4);
    EXPECT_EQ(KyChar('a').CodeSetGet(), KyLanguageContext::GetDefault8CodeSet());
    EXPECT_EQ(KyChar('a').LanguageGet(), KyLanguageContext::GetDefaultLanguage());
    EXPECT_EQ(KyChar(static_cast<unsigned short>('a')).CodeSetGet(), KyLanguageContext::GetDefault16CodeSet());
    EXPECT_EQ(KyChar(static_cast<unsigned short>(0x1234), 1, 0).CodeGet(), 0x34) << "a byte in an 8-bit set";
    EXPECT_EQ(Unicode(0x1234).CodeGet(), 0x1234);
}

TEST(Character, RefersIntoATextAtAnyAddress) {
    for (std::size_t offset = 0; offset < 2; ++offset) {
        GuardedBuffer memory(2 + offset);
        char* at = reinterpret_cast<char*>(memory.data()) + offset;
        std::memcpy(at, "\x34\x12", 2);
        EXPECT_EQ(KyChar(at, 253, 0, 1).CodeGet(), 0x1234);
        EXPECT_EQ(KyChar(at, 253, 0, 255).CodeGet(), 0x1234);
        EXPECT_EQ(KyChar(at, 253, 0, 2).CodeGet(), 0x3412);
        EXPECT_EQ(KyChar(at + 1, 1, 0, 1).CodeGet(), 0x12);
    }
}

TEST(Character, AssignmentWritesWhereItRefers) {
    char text[3] = {'a', 'b', 0};
    KyChar b(text + 1, 1, 0, 1);
    b = Unicode(0xE4);
    EXPECT_EQ(Hex(text, 3), "61 E4 00");
    b = Unicode(0x4E00);
    EXPECT_EQ(Hex(text, 3), "61 3F 00");
    b = 'x';
    EXPECT_EQ(Hex(text, 3), "61 78 00");
    b = static_cast<unsigned short>(0xE5);
    EXPECT_EQ(Hex(text, 3), "61 E5 00");

    char wide[2] = {};
    KyChar swapped(wide, 253, 0, 2);
    swapped = KyChar(static_cast<char>(0x80), 2, 0);
    EXPECT_EQ(Hex(wide, 2), "20 AC");
    KyChar(wide, 253, 0, 1) = swapped;
    EXPECT_EQ(Hex(wide, 2), "AC 20") << "byte order follows the two formats";
}

TEST(Character, AssignmentToAValueTakesEverythingOver) {
    KyChar c = Latin('a');
    char wide[] = {0x34, 0x12};
    c = KyChar(wide, 253, 7, 1);
    wide[0] = 0;
    EXPECT_EQ(c.CodeGet(), 0x1234);
    EXPECT_EQ(c.CodeSetGet(), 253);
    EXPECT_EQ(c.LanguageGet(), 7);
}

TEST(Character, ACopyOfAReferenceIsAReference) {
    char text[] = "a";
    const KyChar original(text, 1, 0, 1);
    const KyChar copy(original);
    text[0] = 'b';
    EXPECT_EQ(copy.CodeGet(), 'b');
}

TEST(Character, ClassesFollowTheOrder) {
    const struct {
        KyChar c;
        const char* kind;
    } cases[] = {
        {Latin(' '), "space"},
        {Latin('\t'), "space"},
        {Latin('\n'), "space"},
        {Latin(0x85), "space"},
        {Latin(0xA0), "space"},
        {Latin('-'), "symbol"},
        {Latin(0x01), "symbol"},
        {Latin(0x7F), "symbol"},
        {Latin(0xD7), "symbol"},
        {Latin('0'), "digit"},
        {Latin('9'), "digit"},
        {Latin(0xB2), "symbol"},
        {KyChar(static_cast<char>(0xF2), 14, 0), "digit"},
        {Unicode(0x0665), "digit"},
        {Latin('a'), "alpha"},
        {Latin(0xDF), "alpha"},
        {Latin(0xC6), "alpha"},
        {Unicode('a'), "alpha"},
        {Unicode(0x9E00), "han"},
        {Unicode(0xFFFF), "han"},
        {Unicode(0xD800), "symbol"},
        {Unicode(0xDFFF), "symbol"},
        {Unicode(0xE000), "symbol"},
        {Unicode(0xFFFD), "symbol"},
        {Unicode(0xAC00), "alpha"},
        {Unicode(0x3042), "alpha"},
        {Unicode(0x3400), "han"},
        {Unicode(0xF900), "han"},
        {Unicode(0x0300), "symbol"},
        {KyChar('a', 2, 0), "alpha"},
        {KyChar(' ', 2, 0), "space"},
        {KyChar('a', 0, 0), "alpha"},
        {KyChar(static_cast<char>(0x80), 3, 0), "symbol"},
        {KyChar(static_cast<unsigned short>(0x400C), 254, 0), "alpha"},
    };
    for (const auto& [c, kind] : cases) {
        EXPECT_EQ(c.IsSpace(), std::strcmp(kind, "space") == 0) << c.CodeGet();
        EXPECT_EQ(c.IsSymbol(), std::strcmp(kind, "symbol") == 0) << c.CodeGet();
        EXPECT_EQ(c.IsDigit(), std::strcmp(kind, "digit") == 0) << c.CodeGet();
        EXPECT_EQ(c.IsAlpha(), std::strcmp(kind, "alpha") == 0) << c.CodeGet();
        EXPECT_EQ(c.IsHan(), std::strcmp(kind, "han") == 0) << c.CodeGet();
    }
}

TEST(Character, ClassBorders) {
    const struct {
        unsigned short order;
        const char* kind;
    } cases[] = {{1, "space"},     {79, "space"},    {80, "symbol"},   {16127, "symbol"}, {16128, "digit"},
                 {16383, "digit"}, {16384, "alpha"}, {32767, "alpha"}, {32768, "han"},    {65535, "han"}};
    for (const auto& [order, kind] : cases) {
        const KyChar c(order, KyCodeSetOrders, 0);
        EXPECT_EQ(c.IsSpace(), std::strcmp(kind, "space") == 0) << order;
        EXPECT_EQ(c.IsSymbol(), std::strcmp(kind, "symbol") == 0) << order;
        EXPECT_EQ(c.IsDigit(), std::strcmp(kind, "digit") == 0) << order;
        EXPECT_EQ(c.IsAlpha(), std::strcmp(kind, "alpha") == 0) << order;
        EXPECT_EQ(c.IsHan(), std::strcmp(kind, "han") == 0) << order;
    }
}

TEST(Character, Kept_ACodeWithoutARecordIsItsOwnOrder) {
    EXPECT_EQ(Unicode(0x0378).GetOrder(), 0x0378);
    EXPECT_TRUE(Unicode(0x0378).IsSymbol());
    EXPECT_EQ(Unicode(0xA48D).GetOrder(), 0xA48D);
    EXPECT_TRUE(Unicode(0xA48D).IsHan());
}

TEST(Character, Kept_TheEndOfATextCountsAsASpace) {
    EXPECT_TRUE(Latin('\0').IsSpace());
    EXPECT_TRUE(Unicode(0).IsSpace());
    EXPECT_STREQ(KyString(" ").Trim().StrGet(), "") << "trimming stops there";
}

TEST(Character, HasTheOrderOfItsUnicodeCharacter) {
    EXPECT_EQ(KyChar(static_cast<char>(0x80), 2, 0).GetOrder(), Unicode(0x20AC).GetOrder());
    EXPECT_EQ(KyChar(static_cast<char>(0xE1), 11, 0).GetOrder(), Unicode(0x03B1).GetOrder());
}

TEST(Character, MapsBetweenCodeSets) {
    EXPECT_EQ(Latin(0xE4).MapTo(253).CodeGet(), 0xE4);
    EXPECT_EQ(Latin(0xE4).MapTo(253).CodeSetGet(), 253);
    EXPECT_EQ(KyChar('a', 1, 7).MapTo(253).LanguageGet(), 7);
    EXPECT_EQ(Latin(0xE4).MapTo(0).CodeSetGet(), 1) << "0: a copy";
    EXPECT_EQ(KyChar(static_cast<char>(0xE4), 0, 0).MapTo(253).CodeGet(), 0xE4);
    EXPECT_EQ(KyChar(static_cast<char>(0x80), 2, 0).MapTo(1).CodeGet(), '?');
}

TEST(Character, LowerAndUpper) {
    const struct {
        unsigned char codeSet;
        unsigned short code;
        unsigned short lower;
        unsigned short upper;
    } cases[] = {
        {1, 'a', 'a', 'A'},       {1, 'Z', 'z', 'Z'},    {1, '5', '5', '5'},       {1, 0xC4, 0xE4, 0xC4},
        {1, 0xE4, 0xE4, 0xC4},    {1, 0xFF, 0xFF, 0xFF}, {253, 0xFF, 0xFF, 0x178}, {1, 0xB5, 0xB5, 0xB5},
        {253, 0xB5, 0xB5, 0x39C}, {1, 0xF7, 0xF7, 0xF7}, {1, 0xD7, 0xD7, 0xD7},    {1, 0xDF, 0xDF, 'S'},
        {0, 'a', 'a', 'A'},       {0, 'A', 'a', 'A'},    {0, 0xE4, 0xE4, 0xE4},    {2, 0xE4, 0xE4, 0xC4},
        {2, 0xFF, 0xFF, 0x9F},    {2, 0x80, 0x80, 0x80}, {3, 'q', 'q', 'Q'},       {253, 0x4E00, 0x4E00, 0x4E00},
        {1, 0xFE, 0xFE, 0xDE},    {1, 0xD0, 0xF0, 0xD0},
    };
    for (const auto& [codeSet, code, lower, upper] : cases) {
        const KyChar c(code, codeSet, 0);
        EXPECT_EQ(c.ToLower(nullptr).CodeGet(), lower) << int{codeSet} << ' ' << code;
        EXPECT_EQ(c.ToUpper(nullptr).CodeGet(), upper) << int{codeSet} << ' ' << code;
        EXPECT_EQ(c.ToUpper(nullptr).CodeSetGet(), codeSet);
    }
}

TEST(Character, CaseInEverySetIsUnicodesWhereTheSetHasIt) {
    unsigned mapped = 0;
    for (unsigned char codeSet = 1; codeSet <= 26; ++codeSet) {
        const KyCodeSet& set = *KyLanguageContext::QueryCodeSet(codeSet);
        for (unsigned short code = 1; code < 0x100; ++code) {
            const KyChar c(code, codeSet, 0);
            const unsigned short unicode = set.ToUnicode(code);
            const auto expected = [&](unsigned short unicodeForm) {
                const unsigned short form = unicode != 0 ? set.FromUnicode(unicodeForm) : 0;
                return form != 0 ? form : code;
            };
            EXPECT_EQ(c.ToLower(nullptr).CodeGet(), expected(Unicode(unicode).ToLower(nullptr).CodeGet()))
                << int{codeSet} << ' ' << code;
            const KyChar upper = c.ToUpper(nullptr);
            if (upper.CodeGet() != code) ++mapped;
            if (unicode == 0x0390 || unicode == 0x03B0 || unicode == 0x0149 || unicode == 0x01F0) {
                EXPECT_EQ(upper.CodeGet(), code) << "no set has all that it would become";
                continue;
            }
            EXPECT_EQ(upper.CodeGet(), expected(Unicode(unicode).ToUpper(nullptr).CodeGet()))
                << int{codeSet} << ' ' << code;
        }
    }
    EXPECT_GT(mapped, 26u * 26u);
}

TEST(Character, ComparesByCollation) {
    EXPECT_TRUE(Latin('a') == Unicode('a')) << "the same character in two code sets";
    EXPECT_TRUE(Latin('A') != Latin('a'));
    EXPECT_TRUE(Latin('A') < Latin('a'));
    EXPECT_TRUE(Latin('a') < Latin('B'));
    EXPECT_TRUE(Latin('a') < Latin(0xE4));
    EXPECT_TRUE(Latin(0xE4) < Latin('B'));
    EXPECT_TRUE(Latin(' ') < Latin('-'));
    EXPECT_TRUE(Latin('-') <= Latin('0'));
    EXPECT_TRUE(Latin('9') < Latin('a'));
    EXPECT_TRUE(Latin('b') > 'a');
    EXPECT_TRUE(Latin('b') >= static_cast<unsigned short>('b'));
    EXPECT_EQ(Latin('A').Compare(Latin('a'), 0x30), 0) << "case ignored";
    EXPECT_EQ(Latin('a').Compare(Latin(0xE4), 0x50), 0) << "accent ignored";
    EXPECT_EQ(Latin('x').Compare(Latin('?'), 0), 0) << "a pattern of one character";
    EXPECT_NE(Latin('x').Compare(Latin('?'), 0xFFFF), 0);
}

TEST(Character, TheZeroCharacterComparesEqualToItself) {
    EXPECT_EQ(KyChar('\0', 255, 255).Compare(Unicode(0), 0x100), 0);
    EXPECT_EQ(KyChar('\0').GetOrder(), 0);
}

TEST(CharacterOperation, AppliesTheCase) {
    KyCharToLower lower;
    KyCharToUpper upper;
    KyCharOperation& operation = lower;
    EXPECT_EQ(operation(Latin('Q'), nullptr).CodeGet(), 'q');
    EXPECT_EQ(upper(Latin('q'), nullptr).CodeGet(), 'Q');
}

TEST(Character, InsideAString) {
    KyString s("abc");
    KyChar b(s, 1);
    EXPECT_EQ(b.CodeGet(), 'b');
    EXPECT_EQ(b.CodeSetGet(), s.CodeSetGet());
    b = 'x';
    EXPECT_STREQ(s.StrGet(), "axc");
}

TEST(Char, AnUpperCaseThatTheCodeSetCannotWriteIsNone) {
    const unsigned char latin = KyCodeSetLatin1;
    constexpr unsigned char greek = 11;
    const struct {
        unsigned char codeSet;
        unsigned short code;
        unsigned short upper;
        std::vector<unsigned short> further;
    } cases[] = {
        {latin, 0xFF, 0xFF, {}},  // its capital is beyond Latin-1
        {latin, 0xB5, 0xB5, {}},
        {latin, 0xDF, 'S', {'S'}},
        {KyCodeSetWindows1252, 0xDF, 'S', {'S'}},
        {KyCodeSetUnicode, 0xDF, 'S', {'S'}},
        {KyCodeSetUnicode, 0x390, 0x399, {0x308, 0x301}},
        {greek, 0xC0, 0xC0, {}},  // the same character, but the set has no combining marks
        {greek, 0xE1, 0xC1, {}},
    };
    for (const auto& [codeSet, code, upper, further] : cases) {
        const KyChar c(code, codeSet, 0);
        KyStringIterator it(c);
        EXPECT_EQ(c.ToUpper(nullptr).CodeGet(), upper) << int{codeSet} << ' ' << code;
        EXPECT_EQ(c.ToUpper(&it).CodeGet(), upper) << int{codeSet} << ' ' << code;
        for (const unsigned short next : further) EXPECT_EQ((*it).CodeGet(), next) << int{codeSet} << ' ' << code;
        EXPECT_EQ((*it).CodeGet(), code) << "no further ones";
    }
}

}  // namespace
