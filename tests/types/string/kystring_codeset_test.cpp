#include <gtest/gtest.h>

#include "kystring.h"
#include "kytypes.h"
#include "string_texts.h"

namespace {

constexpr unsigned char kLatin1 = KyCodeSetLatin1;
constexpr unsigned char kWindows = KyCodeSetWindows1252;
constexpr unsigned char kUnicode = KyCodeSetUnicode;

TEST(SetCodeSetCode, RelabelsWithinOneWidth) {
    KyString s("a\x80");
    EXPECT_EQ(s.SetCodeSetCode(kWindows), 0);
    EXPECT_EQ(s.CodeSetGet(), kWindows);
    EXPECT_EQ(Text(s), "a\x80");
    EXPECT_EQ(s.SetCodeSetCode(kUnicode), KyErrRefused);
    EXPECT_EQ(s.CodeSetGet(), kWindows);
    EXPECT_EQ(s.SetCodeSetCode(0), 0);
    EXPECT_EQ(s.SetCodeSetCode(224), 0);
    EXPECT_EQ(s.SetCodeSetCode(225), -2002);
    KyString wide = Wide(u"a");
    EXPECT_EQ(wide.SetCodeSetCode(kLatin1), -2002);
    EXPECT_EQ(wide.SetCodeSetCode(254), 0);
}

TEST(MapToCodeSet, ConvertsAndRelabels) {
    KyString s("abc");
    EXPECT_EQ(s.MapToCodeSet(0), -2002);
    EXPECT_EQ(Text(s), "abc");
    const char* buffer = s.StrGet();
    EXPECT_EQ(s.MapToCodeSet(s.CodeSetGet()), 0);
    EXPECT_EQ(s.StrGet(), buffer);
    EXPECT_EQ(s.MapToCodeSet(kUnicode), 0);
    EXPECT_EQ(Text16(s), u"abc");
    EXPECT_EQ(s.BufferSizeGet(), 8);
    EXPECT_EQ(s.CodeSetGet(), kUnicode);
    EXPECT_EQ(s.MapToCodeSet(kLatin1), 0);
    EXPECT_EQ(Text(s), "abc");
    EXPECT_EQ(s.BufferSizeGet(), 4);
    KyString none(kLatin1, 0);
    EXPECT_EQ(none.MapToCodeSet(kUnicode), 0);
    EXPECT_EQ(none.CodeSetGet(), kUnicode);
    EXPECT_EQ(none.BufferSizeGet(), 0);
}

TEST(MapToCodeSet, CutsWhatNoLongerFits) {
    const OverflowSwitch config(1);
    KyString s(std::string(32765, 'x').c_str());
    s.MapToCodeSet(kUnicode);
    EXPECT_EQ(s.Len(), 32765);
    EXPECT_TRUE(OverflowSwitch::Raised().empty());
    s = std::string(32766, 'x').c_str();
    s.SetCodeSet(kUnicode);
    EXPECT_EQ(s.Len(), 32765);
    EXPECT_EQ(s.BufferSizeGet(), 65532);
    EXPECT_EQ(OverflowSwitch::Raised().size(), 1U);
}

TEST(MapToCodeSet, ConvertsWithinOneWidth) {
    KyString s("a\x80");
    s.SetCodeSetCode(kWindows);
    s.MapToCodeSet(kLatin1);
    EXPECT_EQ(Text(s), "a?") << "unlike SetCodeSet";
    KyString euro = Wide(u"\u20AC");
    euro.MapToCodeSet(kWindows);
    EXPECT_EQ(Text(euro), "\x80");
}

TEST(MapToCodeSet, FromTheNativeCodeSet) {
    KyString s(static_cast<unsigned char>(0), 0);
    s += "ab";
    EXPECT_EQ(s.MapToCodeSet(kUnicode), 0);
    EXPECT_EQ(Text16(s), u"ab");
}

TEST(SetCodeSet, Kept_ConvertsOnlyAcrossWidths) {
    KyString s("a\x80");
    s.SetCodeSet(kWindows);
    EXPECT_EQ(Text(s), "a\x80") << "only the label changes";
    EXPECT_EQ(s.CodeSetGet(), kWindows);
    s = "abc";
    s.SetCodeSet(kUnicode);
    EXPECT_EQ(Text16(s), u"abc");
    EXPECT_EQ(s.BufferSizeGet(), 8);
    s.SetCodeSet(254);
    EXPECT_EQ(s.CodeSetGet(), 254);
    EXPECT_EQ(s.BufferSizeGet(), 8);
}

TEST(SetCodeSet, Kept_NativeIsConvertedToButLabelled0) {
    KyString s = Wide(u"ab\u00E4");
    s.SetCodeSet(0);
    EXPECT_EQ(Text(s), "ab\xE4");
    EXPECT_EQ(s.BufferSizeGet(), 4);
    EXPECT_EQ(s.CodeSetGet(), 0);
    KyString none(kUnicode, 0);
    none.SetCodeSet(0);
    EXPECT_EQ(none.CodeSetGet(), 0);
    EXPECT_EQ(none.BufferSizeGet(), 0);
}

TEST(CopyMapped, TakesCharactersAndLanguage) {
    KyString src("abcdef");
    src.LanguageSet(4);
    KyString s;
    EXPECT_EQ(s.CopyMapped(src, kUnicode, 3), 3);
    EXPECT_EQ(Text16(s), u"abc");
    EXPECT_EQ(s.CodeSetGet(), kUnicode);
    EXPECT_EQ(s.LanguageGet(), 4);
    EXPECT_EQ(s.BufferSizeGet(), 8);
    EXPECT_EQ(s.CopyMapped(src, kLatin1, -1), 6);
    EXPECT_EQ(Text(s), "abcdef");
    EXPECT_EQ(s.CopyMapped(src, kLatin1, 0), 0);
    EXPECT_EQ(Text(s), "");
}

TEST(CopyMapped, NativeIsConvertedToButLabelled0) {
    KyString s;
    EXPECT_EQ(s.CopyMapped(Wide(u"a\u20AC"), 0, -1), 2);
    EXPECT_EQ(Text(s), "a?");
    EXPECT_EQ(s.CodeSetGet(), 0);
    EXPECT_EQ(s.CopyMapped("abc", kLatin1, 5), 3) << "no more than there is";
    EXPECT_EQ(s.BufferSizeGet(), 6) << "but room for what was asked";
    EXPECT_EQ(Content(s), std::string("abc\0\0", 5));
}

TEST(CopyMapped, OntoItselfIsRefused) {
    KyString s("abc");
    EXPECT_EQ(s.CopyMapped(s, kUnicode, -1), -2002);
    EXPECT_EQ(Text(s), "abc");
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
}

TEST(CopyMapped, UsesALargeEnoughBufferAgainAndClearsIt) {
    KyString s("a long old text");
    const char* buffer = s.StrGet();
    EXPECT_EQ(s.CopyMapped("abc", kLatin1, -1), 3);
    EXPECT_EQ(s.StrGet(), buffer);
    EXPECT_EQ(s.BufferSizeGet(), 16);
    EXPECT_EQ(Content(s), "abc" + std::string(12, '\0'));
    EXPECT_EQ(s.CopyMapped("abcdefghijklmnopqrst", kLatin1, -1), 20);
    EXPECT_EQ(s.BufferSizeGet(), 21);
    KyString odd("abcd");
    EXPECT_EQ(odd.CopyMapped("x", kUnicode, -1), 1);
    EXPECT_EQ(odd.BufferSizeGet(), 5) << "the allocation stays";
    odd += "y";
    EXPECT_EQ(Text16(odd), u"xy");
    odd.CopyMapped("x", kUnicode, -1);
    odd.Insert("y", 0);
    EXPECT_EQ(Text16(odd), u"yx");
}

TEST(CopyMapped, CountsAbove32767AndTheWholeText) {
    const std::string text(50000, 'q');
    const OverflowSwitch config(1);
    KyString s;
    EXPECT_EQ(s.CopyMapped(text.c_str(), kLatin1, static_cast<short>(40000)), 40000);
    EXPECT_EQ(s.CopyMapped(text.c_str(), kLatin1, -1), 50000);
    EXPECT_TRUE(OverflowSwitch::Raised().empty());
    EXPECT_EQ(s.CopyMapped(text.c_str(), kUnicode, -1), 32765);
    EXPECT_EQ(OverflowSwitch::Raised().size(), 1U);
}

/// Such a text has 16-bit characters, those of the default 16-bit code set.
TEST(CodeSetNumber255, IsA16BitTextEverywhere) {
    KyString s(KyCodeSetDefault, 0);
    s << " aB ";
    EXPECT_EQ(Text16(s), u" aB ");
    EXPECT_EQ(Text16(s.Trim()), u"aB");
    EXPECT_EQ(Text16(s.ToUpper()), u"AB");
    EXPECT_EQ(s[1].CodeGet(), 'B');
    EXPECT_EQ(s[1].CodeSetGet(), KyString::GetDefault16CodeSet());
    for (const unsigned short op : std::initializer_list<unsigned short>{0, 0x10, 0x100}) {
        EXPECT_EQ(s.Compare("AB", -1, op), 0) << op;
        EXPECT_EQ(KyString("AB").Compare(s, -1, op), 0) << op;
        EXPECT_EQ(s.Find("B", 0, op), 1) << op;
    }
    EXPECT_NE(s.Compare("A", -1, 0x100), 0);
    KyString number(KyCodeSetDefault, 0);
    number << static_cast<unsigned short>(0x0665) << "5";
    int value = 1;
    EXPECT_EQ(number.Atol(value), 0) << "an Arabic five is a digit";
    number.Cut(0, 1);
    EXPECT_EQ(number.Atol(value), 0);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(number.MapToCodeSet(kLatin1), 0);
    EXPECT_EQ(Text(number), "5");
}

TEST(CopyMapped, OfANullStringIsNull) {
    KyString null;
    null.SetNullValue();
    KyString s("text");
    EXPECT_EQ(s.CopyMapped(null, kLatin1, -1), 0);
    EXPECT_TRUE(s.IsNullValue());
    EXPECT_TRUE(s.IsEmpty());
}

}  // namespace
