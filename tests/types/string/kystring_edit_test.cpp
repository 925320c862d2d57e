#include <gtest/gtest.h>

#include <algorithm>

#include "kystring.h"
#include "string_texts.h"

namespace {

constexpr unsigned char kLatin1 = KyCodeSetLatin1;
constexpr unsigned char kUnicode = KyCodeSetUnicode;

std::string Repeated(std::size_t n, char c = 'x') { return std::string(n, c); }

// --- filling ---

TEST(KyStringFill, ReplacesTheContent) {
    KyString s("old");
    EXPECT_EQ(&s.Fill(3, 'z'), &s);
    EXPECT_EQ(Text(s), "zzz");
    EXPECT_EQ(s.BufferSizeGet(), 4);
    s.Fill(2, static_cast<unsigned short>('u'));
    EXPECT_EQ(Text(s), "uu") << "mapped to the string's code set";
    KyString wide(kUnicode, 0);
    wide.Fill(2, static_cast<unsigned short>(0x100));
    EXPECT_EQ(Text16(wide), u"ĀĀ");
    wide.Fill(3, 'n');
    EXPECT_EQ(Text16(wide), u"nnn");
    EXPECT_EQ(wide.BufferSizeGet(), 8);
}

TEST(KyStringFill, NothingEmpties) {
    KyString s("old");
    s.Fill(0, 'z');
    EXPECT_TRUE(s.IsEmpty());
    s = "old";
    s.Fill(5, '\0');
    EXPECT_TRUE(s.IsEmpty());
    s = "old";
    s.Fill(5, static_cast<unsigned short>(0));
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.BufferSizeGet(), 1);
}

TEST(KyStringExpand, LengthensOnly) {
    const struct {
        unsigned short n;
        char c;
        std::string expected;
    } cases[] = {{5, '.', "abc.."}, {4, '.', "abc."}, {3, '.', "abc"}, {0, '.', "abc"}, {9, '\0', "abc"}};
    for (const auto& c : cases) {
        KyString s("abc");
        s.Expand(c.n, c.c);
        EXPECT_EQ(Text(s), c.expected);
        KyString same("abc");
        same.Expand(c.n, static_cast<unsigned short>(c.c));
        EXPECT_EQ(Text(same), c.expected);
    }
    KyString fresh(kUnicode, 0);
    fresh.Expand(2, static_cast<unsigned short>(0x100));
    EXPECT_EQ(Text16(fresh), u"ĀĀ");
    KyString longText("a");
    longText.Expand(40000, 'b');
    EXPECT_EQ(Text(longText), std::string("a").append(39999, 'b'));
}

TEST(KyStringFill, CharactersAreReadInTheDefaultsAndMapped) {
    const OtherDefaults restored;
    constexpr unsigned short euro = 0x20AC;
    KyString windows(KyCodeSetWindows1252, 0);
    EXPECT_EQ(Text(windows.Fill(2, euro)), "\x80\x80");
    EXPECT_EQ(Text(windows.Expand(3, euro)), "\x80\x80\x80");
    KyString latin(kLatin1, 0);
    EXPECT_EQ(Text(latin.Fill(2, euro)), "??");
    KyLanguageContext::SetDefault8CodeSet(KyCodeSetWindows1252);
    KyString wide(kUnicode, 0);
    EXPECT_EQ(Text16(wide.Fill(2, '\x80')), u"\u20AC\u20AC");
    EXPECT_EQ(Text16(wide.Expand(3, '\x80')), u"\u20AC\u20AC\u20AC");
    EXPECT_EQ(Text16(wide << '\x80' << "\x80"), u"\u20AC\u20AC\u20AC\u20AC\u20AC");
    EXPECT_EQ(Text(latin.Fill(1, '\x80')), "?") << "though the widths agree";
    KyLanguageContext::SetDefault16CodeSet(KyCodeSetOrders);
    KyString orders(KyCodeSetOrders, 1);
    EXPECT_EQ(Text16(orders.Fill(1, static_cast<unsigned short>('A')).Expand(2, static_cast<unsigned short>('B'))),
              u"AB")
        << "order values already";
}

// --- cutting ---

TEST(KyStringCut, RemovesCharacters) {
    const struct {
        unsigned short pos;
        short n;
        std::string expected;
    } cases[] = {
        {2, -1, "ab"},    {0, 0, "abcdef"},  {2, 2, "abef"},    {0, 1, "bcdef"},       {0, 6, ""},
        {0, 100, ""},     {4, 100, "abcd"},  {0, -1, ""},       {6, -1, "abcdef"},     {6, 1, "abcdef"},
        {7, 1, "abcdef"}, {7, -1, "abcdef"}, {1, -2, "abcdef"}, {0, -32768, "abcdef"}, {65535, 32767, "abcdef"},
    };
    for (const auto& c : cases) {
        KyString s("abcdef");
        EXPECT_EQ(&s.Cut(c.pos, c.n), &s);
        EXPECT_EQ(Text(s), c.expected) << c.pos << "," << c.n;
        EXPECT_EQ(s.BufferSizeGet(), c.expected.size() + 1) << c.pos << "," << c.n;
        KyString wide = Wide(u"abcdef");
        wide.Cut(c.pos, c.n);
        EXPECT_EQ(Text16(wide), std::u16string(c.expected.begin(), c.expected.end())) << c.pos << "," << c.n;
    }
    KyString none;
    none.Cut(0, -1);
    EXPECT_EQ(none.BufferSizeGet(), 0);
}

TEST(KyStringCut, LongTexts) {
    const std::string text = std::string("a").append(65000, 'x').append("b");
    KyString s(text.c_str());
    s.Cut(1, -1);
    EXPECT_EQ(Text(s), "a");
    s = text.c_str();
    s.Cut(40000, 32767);
    EXPECT_EQ(s.Len(), 40000) << "up to the end";
}

// --- inserting and overwriting ---

TEST(KyStringInsert, AtEveryPosition) {
    const struct {
        unsigned short pos;
        std::string expected;
    } cases[] = {{0, "XYabc"}, {1, "aXYbc"}, {3, "abcXY"}, {4, "abc"}, {65535, "abc"}};
    for (const auto& c : cases) {
        KyString s("abc");
        EXPECT_EQ(&s.Insert("XY", c.pos), &s);
        EXPECT_EQ(Text(s), c.expected) << c.pos;
    }
}

TEST(KyStringInsert, EdgeCases) {
    KyString s("abc");
    s.Insert(KyString(), 1);
    s.Insert("", 3);
    EXPECT_EQ(Text(s), "abc");
    KyString none(kLatin1, 0);
    none.Insert("new", 0);
    EXPECT_EQ(Text(none), "new");
    EXPECT_EQ(none.BufferSizeGet(), 4);
    none.Insert(none, 1);
    EXPECT_EQ(Text(none), "nnewew");
    none.Insert(Wide(u"W"), 6);
    EXPECT_EQ(Text(none), "nnewewW");
    KyString longText(Repeated(40000).c_str());
    longText.Insert(Repeated(20000, 'y').c_str(), 35000);
    EXPECT_EQ(Text(longText), Repeated(35000) + Repeated(20000, 'y') + Repeated(5000));
}

TEST(KyStringReplace, NeverLengthens) {
    const struct {
        unsigned short pos;
        const char* text;
        std::string expected;
    } cases[] = {{3, "XYZ", "abcX"}, {0, "XYZ", "XYZd"}, {1, "X", "aXcd"}, {0, "VWXYZ", "VWXY"},
                 {4, "X", "abcd"},   {9, "X", "abcd"},   {0, "", "abcd"}};
    for (const auto& c : cases) {
        KyString s("abcd");
        EXPECT_EQ(&s.Replace(c.text, c.pos), &s);
        EXPECT_EQ(Text(s), c.expected) << c.pos << c.text;
        EXPECT_EQ(s.BufferSizeGet(), 5);
    }
    EXPECT_EQ(Text(KyString("abcd").Replace(Wide(u"X\u20ACZ"), 1)), "aX?Z");
    EXPECT_EQ(Text16(Wide(u"abcd").Replace("XYZ", 3)), u"abcX");
    KyString dropped("ab\0cd", 5);
    dropped.Replace("XYZ", 1);
    EXPECT_EQ(Content(dropped), std::string("aX\0cd", 5)) << "up to the terminator";
    KyString none;
    none.Replace("X", 0);
    EXPECT_EQ(none.BufferSizeGet(), 0);
    KyString self("abcd");
    self.Replace(self, 2);
    EXPECT_EQ(Text(self), "abab");
    KyString longText(Repeated(60000).c_str());
    longText.Replace(Repeated(50000, 'y').c_str(), 20000);
    EXPECT_EQ(Text(longText), Repeated(20000) + Repeated(40000, 'y'));
}

// --- appending ---

TEST(KyStringAppend, OfEveryKind) {
    KyString s(kLatin1, 0);
    const unsigned short wideText[] = {'w', 0};
    s << KyString("s") << 'c' << "text" << wideText << static_cast<short>(-1) << 2 << 3U << 4LL << 5ULL << 0.5F << 1.5;
    EXPECT_EQ(Text(s), "sctextw-123450.51.5");
    EXPECT_EQ(s.BufferSizeGet(), s.Len() + 1);
    s << '\0' << static_cast<const char*>(nullptr) << static_cast<const unsigned short*>(nullptr) << "";
    EXPECT_EQ(Text(s), "sctextw-123450.51.5");
    KyString wide(kUnicode, 0);
    wide << "n" << 12 << 0.5 << wideText << 'c';
    EXPECT_EQ(Text16(wide), u"n120.5wc");
}

TEST(KyStringAppend, Kept_UnsignedNumbersAreFormattedAsSigned) {
    KyString s;
    s << 4294967295U;
    EXPECT_EQ(Text(s), "-1");
    s << 18446744073709551615ULL;
    EXPECT_EQ(Text(s), "-118446744073709551615") << "the 64-bit ones are not";
}

TEST(KyStringAppend, Kept_UnsignedShortIsANumberIn8BitAndACharacterIn16BitStrings) {
    KyString narrow("a");
    narrow << static_cast<unsigned short>(65);
    EXPECT_EQ(Text(narrow), "a65");
    narrow << static_cast<unsigned short>(65535) << static_cast<unsigned short>(0);
    EXPECT_EQ(Text(narrow), "a65655350");
    KyString wide = Wide(u"a");
    wide << static_cast<unsigned short>(65) << static_cast<unsigned short>(0x100) << static_cast<unsigned short>(0);
    EXPECT_EQ(Text16(wide), u"aAĀ");
}

TEST(KyStringAppend, MapsToTheStringsCodeSet) {
    KyString s("a");
    s += Wide(u"b");
    EXPECT_EQ(Text(s), "ab");
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
    KyString wide = Wide(u"a");
    wide += "b";
    EXPECT_EQ(Text16(wide), u"ab");
}

TEST(KyStringAppend, EdgeCases) {
    KyString s("ab");
    s += s;
    EXPECT_EQ(Text(s), "abab");
    s += KyString();
    EXPECT_EQ(Text(s), "abab");
    s << s.StrGet() + 2;
    EXPECT_EQ(Text(s), "ababab");
    KyString none(kLatin1, 0);
    none += KyString();
    EXPECT_EQ(none.BufferSizeGet(), 1) << "one terminator";
    KyString longText(Repeated(33000).c_str());
    longText += longText;
    EXPECT_EQ(longText.Len(), 65531);
}

TEST(KyStringAppend, ToANullStringLeavesItNull) {
    KyString null;
    null.SetNullValue();
    null += "text";
    EXPECT_TRUE(null.IsNullValue());
    EXPECT_EQ(Text(null), "text");
    KyString second;
    second.SetNullValue();
    EXPECT_TRUE((second + KyString("text")).IsNullValue());
}

TEST(KyStringSum, HasTheLabelOfTheFirst) {
    KyString a("ab");
    a.LanguageSet(7);
    const KyString sum = a + Wide(u"cd");
    EXPECT_EQ(Text(sum), "abcd");
    EXPECT_EQ(sum.LanguageGet(), 7);
    EXPECT_EQ(sum.BufferSizeGet(), 5);
    EXPECT_EQ(Text(a + a), "abab");
    EXPECT_EQ(Text16(Wide(u"Ā") + KyString("b")), u"Āb");
    EXPECT_EQ((KyString() + KyString()).BufferSizeGet(), 1);
    EXPECT_EQ((KyString(Repeated(40000).c_str()) + KyString(Repeated(40000).c_str())).Len(), 65531);
}

// --- extraction ---

TEST(KyStringCopy, Ranges) {
    const struct {
        unsigned short pos;
        short n;
        std::string expected;
    } cases[] = {{0, 3, "abc"},  {1, 2, "bc"}, {4, 1, "e"}, {4, 9, "e"}, {2, -1, "cde"},
                 {2, -2, "cde"}, {2, 0, ""},   {5, 1, ""},  {10, 2, ""}, {65535, -1, ""}};
    KyString s("abcde");
    s.LanguageSet(6);
    for (const auto& c : cases) {
        EXPECT_EQ(Text(s.Copy(c.pos, c.n)), c.expected) << c.pos << "," << c.n;
        if (c.pos < 5) {
            EXPECT_EQ(s.Copy(c.pos, c.n).LanguageGet(), 6) << c.pos << "," << c.n;
        }
    }
    EXPECT_EQ(Text16(Wide(u"āĀb").Copy(1, 1)), u"Ā");
}

TEST(KyStringCopy, Kept_BeyondTheEndHasTheLabelOfLoading) {
    KyString s = Wide(u"abc");
    s.LanguageSet(6);
    const KyString beyond = s.Copy(3, 1);
    EXPECT_EQ(beyond.CodeSetGet(), KyString::EmptyString().CodeSetGet());
    EXPECT_EQ(beyond.LanguageGet(), KyString::EmptyString().LanguageGet());
    EXPECT_EQ(beyond.BufferSizeGet(), 0);
}

TEST(KyStringCopy, LeftAndRight) {
    const KyString s("abcde");
    EXPECT_EQ(Text(s.Left(2)), "ab");
    EXPECT_EQ(Text(s.Left(9)), "abcde");
    EXPECT_EQ(Text(s.Left(0)), "");
    EXPECT_EQ(Text(s.Right(2)), "de");
    EXPECT_EQ(Text(s.Right(9)), "abcde");
    EXPECT_EQ(Text(s.Right(0)), "");
    KyString labelled("abc");
    labelled.LanguageSet(6);
    EXPECT_EQ(labelled.Left(0).LanguageGet(), 6);
    EXPECT_EQ(labelled.Right(2).LanguageGet(), 6);
    EXPECT_EQ(labelled.Right(0).LanguageGet(), KyString::EmptyString().LanguageGet()) << "it begins at the end";
    EXPECT_EQ(Text(KyString().Left(3)), "");
    EXPECT_EQ(Text(KyString().Right(3)), "");
}

TEST(KyStringCopy, CountsFrom32768On) {
    const std::string text = Repeated(30000, 'a') + Repeated(30000, 'b');
    const KyString s(text.c_str());
    for (const unsigned n : {32767U, 32768U, 40000U, 59999U, 60000U, 65531U, 65535U}) {
        const auto count = static_cast<unsigned short>(n);
        EXPECT_EQ(Text(s.Left(count)), text.substr(0, n)) << n;
        EXPECT_EQ(Text(s.Right(count)), text.substr(60000 - std::min(n, 60000U))) << n;
        EXPECT_EQ(Text(s.Copy(1, static_cast<short>(count))), text.substr(1, n)) << n;
    }
}

}  // namespace
