#include "kyorder_names.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>

#include "kychar.h"
#include "kystring.h"

namespace {

unsigned short OrderOf(unsigned short unicode) { return KyChar(unicode, KyCodeSetUnicode, 0).GetOrder(); }

struct Printed {
    int result;
    unsigned char ch;
    std::string substitution;

    bool operator==(const Printed&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Printed& p) {
    return out << p.result << " 0x" << std::hex << int{p.ch} << std::dec << " \"" << p.substitution << '"';
}

Printed Print(unsigned short order, int exact, unsigned char codeSet = KyCodeSetLatin1) {
    unsigned char ch = 0xEE;
    const char* substitution = nullptr;
    const int result = KyConvertOrderToChar(order, codeSet, ch, exact, &substitution);
    unsigned char alone = 0xEE;
    EXPECT_EQ(KyConvertOrderToChar(order, codeSet, alone, exact, nullptr), result);
    EXPECT_EQ(alone, ch);
    return {result, ch, substitution};
}

std::string Name(unsigned short order, unsigned char codeSet = KyCodeSetLatin1) {
    KyString text("what was there");
    const int result = KyConvertOrderToString(order, codeSet, text);
    EXPECT_EQ(result, std::string(text.StrGet()) == "undefined ordering indicator" ? -2002 : 0) << order;
    return text.StrGet();
}

TEST(OrderToChar, EveryPrintableAsciiCharacterIsItsOwn) {
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{0, 1, 2, 3, 99, 253, 254, 255}) {
        for (const int exact : {0, 1}) {
            for (unsigned short c = 0x20; c < 0x7F; ++c) {
                EXPECT_EQ(Print(OrderOf(c), exact, codeSet), (Printed{0, static_cast<unsigned char>(c), ""}))
                    << c << " in " << int{codeSet};
            }
        }
    }
}

TEST(OrderToChar, SpacesAreBlanks) {
    for (unsigned short order = 1; order < 80; ++order) {
        EXPECT_EQ(Print(order, 0), (Printed{0, ' ', ""})) << order;
    }
}

TEST(OrderToChar, DigitsOfEveryForm) {
    for (unsigned value = 0; value < 10; ++value) {
        for (unsigned form = 0; form < 10; ++form) {
            EXPECT_EQ(Print(static_cast<unsigned short>(16128 + 10 * value + form), 0),
                      (Printed{0, static_cast<unsigned char>('0' + value), ""}));
        }
    }
    EXPECT_EQ(Print(16128 + 100, 0), (Printed{-2002, 0, ""})) << "no digit has this order";
    EXPECT_EQ(Print(0x3FFF, 0), (Printed{-2002, 0, ""}));
}

TEST(OrderToChar, LettersByTheirNumber) {
    for (unsigned letter = 0; letter < 32; ++letter) {
        for (unsigned rest = 0; rest < 0x4000; rest += rest % 7 + 1) {
            const unsigned order = 0x4000 | (rest & 0x3F83) | letter << 2;
            const bool isUpper = (order >> 12 & 3) == 0;
            const unsigned char c =
                letter < 3 || letter > 28 ? 0 : static_cast<unsigned char>((isUpper ? 'A' : 'a') + letter - 3);
            EXPECT_EQ(Print(static_cast<unsigned short>(order), 0), (Printed{c == 0 ? -2002 : 0, c, ""})) << order;
        }
    }
    EXPECT_EQ(Print(OrderOf(0xC9), 0), (Printed{0, 'E', ""}));
    EXPECT_EQ(Print(OrderOf(0xE9), 0), (Printed{0, 'e', ""}));
    EXPECT_EQ(Print(OrderOf(0x7C), 0), (Printed{0, '|', ""}));
}

TEST(OrderToChar, WhatHasNoCharacter) {
    for (const int exact : {0, 1}) {
        EXPECT_EQ(Print(0, exact), (Printed{-2002, 0, ""}));
        EXPECT_EQ(Print(0x8000, exact), (Printed{-2002, 0, ""}));
        EXPECT_EQ(Print(0xFFFF, exact), (Printed{-2002, 0, ""}));
    }
    EXPECT_EQ(Print(OrderOf(0xA7), 0), (Printed{-2002, 0, ""})) << "a symbol outside ASCII";
    EXPECT_EQ(Print(OrderOf(1), 0), (Printed{-2002, 0, ""})) << "a control is not printable";
}

TEST(OrderToChar, ExactCharactersHaveSubstitutions) {
    const struct {
        unsigned char byte;
        const char* substitution;
    } cases[] = {{0xC0, "\\`A"},  {0xC1, "\\'A"},  {0xC2, "\\^A"}, {0xC3, "\\~A"},  {0xC4, "\\\"A"}, {0xC5, "\\AA"},
                 {0xC6, "\\AE"},  {0xC7, "\\,C"},  {0xC8, "\\`E"}, {0xC9, "\\'E"},  {0xCA, "\\^E"},  {0xCB, "\\\"E"},
                 {0xCC, "\\`I"},  {0xCD, "\\'I"},  {0xCE, "\\^I"}, {0xCF, "\\\"I"}, {0xD0, "\\-D"},  {0xD1, "\\~N"},
                 {0xD2, "\\`O"},  {0xD3, "\\'O"},  {0xD4, "\\^O"}, {0xD5, "\\~O"},  {0xD6, "\\\"O"}, {0xD7, ""},
                 {0xD8, "\\-O"},  {0xD9, "\\`U"},  {0xDA, "\\'U"}, {0xDB, "\\^U"},  {0xDC, "\\\"U"}, {0xDD, "\\'Y"},
                 {0xDE, "\\TH"},  {0xDF, "\\ss"},  {0xE0, "\\`a"}, {0xE1, "\\'a"},  {0xE2, "\\^a"},  {0xE3, "\\~a"},
                 {0xE4, "\\\"a"}, {0xE5, "\\aa"},  {0xE6, "\\ae"}, {0xE7, "\\,c"},  {0xE8, "\\`e"},  {0xE9, "\\'e"},
                 {0xEA, "\\^e"},  {0xEB, "\\\"e"}, {0xEC, "\\`i"}, {0xED, "\\'i"},  {0xEE, "\\^i"},  {0xEF, "\\\"i"},
                 {0xF0, "\\-d"},  {0xF1, "\\~n"},  {0xF2, "\\`o"}, {0xF3, "\\'o"},  {0xF4, "\\^o"},  {0xF5, "\\~o"},
                 {0xF6, "\\\"o"}, {0xF7, ""},      {0xF8, "\\-o"}, {0xF9, "\\`u"},  {0xFA, "\\'u"},  {0xFB, "\\^u"},
                 {0xFC, "\\\"u"}, {0xFD, "\\'y"},  {0xFE, "\\th"}, {0xFF, "\\\"y"}, {0xA7, ""},      {0xBF, ""}};
    for (const auto& [byte, substitution] : cases) {
        EXPECT_EQ(Print(OrderOf(byte), 1), (Printed{0, byte, substitution}));
        EXPECT_EQ(Print(OrderOf(byte), 1, KyCodeSetWindows1252), (Printed{0, byte, substitution}));
    }
    EXPECT_EQ(Print(OrderOf(0xC0), 1, KyCodeSetAscii), (Printed{0, 'A', ""})) << "not there: as without";
    EXPECT_EQ(Print(OrderOf(0x20AC), 1, KyCodeSetWindows1252), (Printed{0, 0x80, ""}));
    EXPECT_EQ(Print(OrderOf(0x20AC), 1), (Printed{-2002, 0, ""}));
}

TEST(OrderToChar, EveryCharacterOfEveryCodeSetIsFound) {
    for (unsigned number = 1; number < 27; ++number) {
        const auto codeSet = static_cast<unsigned char>(number);
        const KyCodeSet* set = KyLanguageContext::QueryCodeSet(codeSet);
        if (set == nullptr) continue;
        for (unsigned short code = 0x80; code < 0x100; ++code) {
            const unsigned short order = KyChar(code, codeSet, 0).GetOrder();
            if (set->ToUnicode(code) == 0 || order == 0 || order >= 0x8000) continue;
            const Printed exact = Print(order, 1, codeSet);
            EXPECT_EQ(exact.result, 0) << number << ' ' << code;
            EXPECT_EQ(KyChar(static_cast<unsigned short>(exact.ch), codeSet, 0).GetOrder(), order)
                << number << ' ' << code;
        }
    }
}

TEST(OrderToChar, Kept_TheSubstitutionIsThatOfTheByteInLatin1) {
    // In ISO-8859-5 the byte is a Cyrillic letter.
    EXPECT_EQ(Print(KyChar(static_cast<unsigned short>(0xC0), 9, 0).GetOrder(), 1, 9).substitution, "\\`A");
}

TEST(OrderToString, Names) {
    const struct {
        unsigned short unicode;
        const char* name;
    } cases[] = {{0x20, "space"},
                 {0x09, "space"},
                 {0xA0, "space"},
                 {'.', "symbol full stop"},
                 {'|', "symbol vertical line"},
                 {'*', "symbol asterisk"},
                 {0xA4, "symbol currency sign"},
                 {0xA7, "symbol section sign"},
                 {0xBF, "symbol inverted question mark"},
                 {0xD7, "symbol multiplication sign"},
                 {0x20AC, "symbol euro sign"},
                 {0x01, "symbol control 0x01"},
                 {'0', "digit 0"},
                 {'7', "digit 7"},
                 {'A', "letter A, upper"},
                 {'a', "letter A, lower"},
                 {'z', "letter Z, lower"},
                 {0xC1, "letter A, upper, with accent acute"},
                 {0xE0, "letter A, lower, with accent grave"},
                 {0xE2, "letter A, lower, with accent circumflex"},
                 {0xE3, "letter A, lower, with tilde"},
                 {0xE4, "letter A, lower, with diaeresis"},
                 {0xE5, "letter A, lower, with ring above"},
                 {0xE7, "letter C, lower, with cedilla"},
                 {0xF8, "letter O, lower, with stroke"}};
    for (const auto& [unicode, name] : cases) EXPECT_EQ(Name(OrderOf(unicode)), name) << unicode;
}

TEST(OrderToString, EveryAccentHasItsName) {
    const struct {
        KyAccent accent;
        const char* name;
    } cases[] = {{KyAccentAcute, "accent acute"},
                 {KyAccentGrave, "accent grave"},
                 {KyAccentTilde, "tilde"},
                 {KyAccentCircumflex, "accent circumflex"},
                 {KyAccentRing, "ring above"},
                 {KyAccentStroke, "stroke"},
                 {KyAccentMacron, "accent macron"},
                 {KyAccentBreve, "accent breve"},
                 {KyAccentOgonek, "ogonek"},
                 {KyAccentDotAbove, "dot above"},
                 {KyAccentCaron, "accent caron"},
                 {KyAccentDoubleAcute, "accent o_double acute"},
                 {KyAccentCedilla, "cedilla"},
                 {KyAccentDiaeresis, "diaeresis"},
                 {KyAccentCommaBelow, "comma below"},
                 {KyAccentHorn, "horn"}};
    for (const auto& [accent, name] : cases) {
        EXPECT_EQ(Name(static_cast<unsigned short>(0x400C | accent << 7)),
                  std::string("letter A, upper, with ") + name);
    }
    std::set<std::string> names;
    for (unsigned accent = 0; accent < 32; ++accent) {
        names.insert(Name(static_cast<unsigned short>(0x400C | accent << 7)));
    }
    EXPECT_EQ(names.size(), 32u);
}

TEST(OrderToString, PartsOfLetters) {
    EXPECT_EQ(Name(0x4000 | 1 << 12 | 14 << 2), "letter L, lower in title case");
    EXPECT_EQ(Name(0x4000 | 3 << 12 | 3 << 2 | 2), "letter A, lower in small form, variant 2");
    EXPECT_EQ(Name(0x4000 | 2 << 2), "letter number 2, upper");
    EXPECT_EQ(Name(0x7FFF), "letter number 31, lower in small form, variant 3, form 31");
    EXPECT_EQ(Name(0x7FFC), "letter number 31, lower in small form, with accent circumflex and dot below");
    EXPECT_EQ(Name(OrderOf(0x1D8F)), "letter A, lower, variant 2, form 1") << "a retroflex hook is no acute";
}

TEST(OrderToString, TheRest) {
    EXPECT_EQ(Name(0), "undefined ordering indicator");
    EXPECT_EQ(Name(65520), "undefined ordering indicator");
    EXPECT_EQ(Name(0xFFFF), "undefined ordering indicator");
    EXPECT_EQ(Name(16128 + 100), "undefined ordering indicator");
    EXPECT_EQ(Name(65519), "HAN character 0xffef\n");
    EXPECT_EQ(Name(0x8000), "HAN character 0x8000\n");
    EXPECT_EQ(Name(16128 + 73), "digit 7, form 3");
    EXPECT_EQ(Name(KyChar(static_cast<unsigned short>(0x80), KyCodeSetAscii, 0).GetOrder(), KyCodeSetAscii),
              "symbol 0x80")
        << "a byte that is no character";
    EXPECT_EQ(Name(15000), "symbol 14920") << "a symbol of no 8-bit code set";
}

TEST(OrderToString, EverySymbolOfAn8BitCodeSetHasANameOfItsOwn) {
    std::set<std::string> names;
    std::set<unsigned short> orders;
    for (unsigned number = 1; number < 27; ++number) {
        const auto codeSet = static_cast<unsigned char>(number);
        const KyCodeSet* set = KyLanguageContext::QueryCodeSet(codeSet);
        ASSERT_NE(set, nullptr) << number;
        for (unsigned short code = 0x20; code < 0x100; ++code) {
            const unsigned short unicode = set->ToUnicode(code);
            const KyChar c(code, codeSet, 0);
            if (unicode < 0x20 || (unicode >= 0x7F && unicode < 0xA0) || !c.IsSymbol()) continue;
            const std::string name = Name(c.GetOrder(), codeSet);
            EXPECT_EQ(name.find("symbol "), 0u);
            EXPECT_EQ(name.find("symbol 0x"), std::string::npos) << name << " in " << number;
            names.insert(name);
            orders.insert(c.GetOrder());
        }
    }
    EXPECT_GT(orders.size(), 200u);
    EXPECT_EQ(names.size(), orders.size());
}

TEST(OrderToString, ANullStringBecomesOneThatIsNot) {
    KyString text;
    text.SetNullValue();
    EXPECT_EQ(KyConvertOrderToString(OrderOf('A'), KyCodeSetLatin1, text), 0);
    EXPECT_FALSE(text.IsNullValue());
    EXPECT_STREQ(text.StrGet(), "letter A, upper");
}

}  // namespace
