#include <gtest/gtest.h>

#include "kystring.h"
#include "string_texts.h"

namespace {

constexpr unsigned char kUnicode = KyCodeSetUnicode;

std::string Repeated(std::size_t n, char c = 'x') { return std::string(n, c); }

// --- trimming ---

TEST(KyStringTrim, Ends) {
    const struct {
        std::string text, left, right, both;
    } cases[] = {
        {"", "", "", ""},
        {"a", "a", "a", "a"},
        {"  a b  ", "a b  ", "  a b", "a b"},
        {"   ", "", "", ""},
        {"\t\r\n a", "a", "\t\r\n a", "a"},
        {"a\v\f ", "a\v\f ", "a", "a"},
        {" a", "a", " a", "a"},
        {"a ", "a ", "a", "a"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Text(KyString(c.text.c_str()).LeftTrim()), c.left) << c.text;
        EXPECT_EQ(Text(KyString(c.text.c_str()).RightTrim()), c.right) << c.text;
        EXPECT_EQ(Text(KyString(c.text.c_str()).Trim()), c.both) << c.text;
        const std::u16string wide(c.text.begin(), c.text.end());
        EXPECT_EQ(Text16(Wide(wide).Trim()), std::u16string(c.both.begin(), c.both.end())) << c.text;
    }
    KyString none;
    none.Trim();
    none.LeftTrim();
    none.RightTrim();
    EXPECT_EQ(none.BufferSizeGet(), 0);
}

TEST(KyStringTrim, LongRuns) {
    const std::string blanks = Repeated(40000, ' ');
    EXPECT_EQ(Text(KyString((blanks + "a").c_str()).LeftTrim()), "a");
    EXPECT_EQ(Text(KyString(("a" + blanks).c_str()).RightTrim()), "a");
    EXPECT_EQ(Text(KyString((Repeated(20000, ' ') + "a" + blanks).c_str()).Trim()), "a");
}

TEST(KyStringTrim, WithoutSpacesKeepsTheBuffer) {
    KyString s("a\0b", 3);
    const char* buffer = s.StrGet();
    s.Trim();
    EXPECT_EQ(s.StrGet(), buffer);
    EXPECT_EQ(s.BufferSizeGet(), 4);
}

// --- case and transformations ---

TEST(KyStringCase, OfAscii) {
    EXPECT_EQ(Text(KyString("Hello, World 1").ToUpper()), "HELLO, WORLD 1");
    EXPECT_EQ(Text(KyString("Hello, World 1").ToLower()), "hello, world 1");
    EXPECT_EQ(Text16(Wide(u"Hello").ToUpper()), u"HELLO");
    EXPECT_EQ(KyString("Hello").ToUpper().BufferSizeGet(), 6) << "the terminator counts";
    EXPECT_EQ(Wide(u"Hello").ToUpper().BufferSizeGet(), 12);
    KyString none;
    none.ToUpper();
    EXPECT_EQ(none.BufferSizeGet(), 0);
    EXPECT_EQ(KyString("").ToLower().BufferSizeGet(), 1);
    KyString dropped("a\0b", 3);
    dropped.ToUpper();
    EXPECT_EQ(Content(dropped), "A");
}

TEST(KyStringCase, MayLengthen) {
    KyString s(
        "stra\xDF"
        "e");
    s.LanguageSet(3);
    s.ToUpper();
    EXPECT_EQ(Text(s), "STRASSE");
    EXPECT_EQ(s.BufferSizeGet(), 8);
    EXPECT_EQ(s.LanguageGet(), 3);
    EXPECT_EQ(Text(s.ToLower()), "strasse");
    EXPECT_EQ(Text16(Wide(u"\u00DF\u00FF").ToUpper()), u"SS\u0178");
    KyString native(static_cast<unsigned char>(0), 0);
    native << "a" << '\xE4';
    EXPECT_EQ(Text(native.ToUpper()), "A\xE4") << "code set 0 has ASCII's letters";
    const OverflowSwitch config(1);
    EXPECT_EQ(Text(KyString(Repeated(40000, '\xDF').c_str()).ToUpper()), Repeated(65531, 'S'));
    EXPECT_EQ(OverflowSwitch::Raised().size(), 1U);
}

TEST(KyStringCase, OfTextsWhoseDoubleExceeds16Bits) {
    for (const std::size_t length : {32766U, 32767U, 32768U, 40000U, 65531U}) {
        const OverflowSwitch config(1);
        EXPECT_EQ(Text(KyString(Repeated(length).c_str()).ToUpper()), Repeated(length, 'X'));
        EXPECT_TRUE(OverflowSwitch::Raised().empty());
    }
    EXPECT_EQ(Text16(Wide(std::u16string(32765, u'a')).ToUpper()), std::u16string(32765, u'A'));
}

/// Every character three times.
class Thrice final : public KyCharOperation {
public:
    KyChar operator()(const KyChar& c, KyStringIterator* it) override {
        if (further == 0) {
            further = 2;
            codes[0] = codes[1] = c.CodeGet();
            list = KyWCharList{2, codes};
            it->SetOverflow(&list, 255);
        } else {
            --further;
        }
        return c;
    }

private:
    int further = 0;
    unsigned short codes[2] = {};
    KyWCharList list{};
};

TEST(KyStringTransform, MayLengthenBeyondTwice) {
    KyString s("abc");
    Thrice op;
    EXPECT_EQ(&s.Transform(op), &s);
    EXPECT_EQ(Text(s), "aaabbbccc");
    EXPECT_EQ(s.BufferSizeGet(), 10);
    KyString longer(Repeated(2000).c_str());
    EXPECT_EQ(Text(longer.Transform(op)), Repeated(6000));
    KyString wide = Wide(u"Āb");
    EXPECT_EQ(Text16(wide.Transform(op)), u"ĀĀĀbbb");
}

TEST(KyStringTransform, IsCutAtTheLimit) {
    const OverflowSwitch config(1);
    KyString s(Repeated(30000).c_str());
    Thrice op;
    s.Transform(op);
    EXPECT_EQ(Text(s), Repeated(65531));
    EXPECT_EQ(s.BufferSizeGet(), 65532);
    EXPECT_EQ(OverflowSwitch::Raised().size(), 1U);
}

/// Yields characters of another code set and language.
class ToWide final : public KyCharOperation {
public:
    KyChar operator()(const KyChar& c, KyStringIterator*) override {
        return KyChar(static_cast<unsigned short>(c.CodeGet() + 1), kUnicode, 9);
    }
};

TEST(KyStringTransform, ResultsAreMappedToTheString) {
    KyString s("abc");
    s.LanguageSet(3);
    ToWide op;
    s.Transform(op);
    EXPECT_EQ(Text(s), "bcd");
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(s.LanguageGet(), 3);
}

// --- replacing all ---

TEST(KyStringReplaceAll, Texts) {
    const struct {
        const char *text, *from, *to;
        unsigned short start;
        std::string expected;
    } cases[] = {
        {"abcabc", "b", "XX", 0, "aXXcaXXc"}, {"abcabc", "b", "", 0, "acac"},   {"abcabc", "b", "XX", 2, "abcaXXc"},
        {"aaaa", "aa", "a", 0, "aa"},         {"aaa", "aa", "b", 0, "ba"},      {"aa", "a", "aa", 0, "aaaa"},
        {"abc", "x", "y", 0, "abc"},          {"abc", "", "y", 0, "abc"},       {"abc", "abc", "", 0, ""},
        {"abc", "c", "de", 3, "abc"},         {"abc", "c", "de", 65535, "abc"}, {"", "a", "b", 0, ""},
        {"a*c*", "*", "?", 0, "a?c?"},        {"abc", "abcd", "x", 0, "abc"},
    };
    for (const auto& c : cases) {
        KyString s(c.text);
        EXPECT_EQ(&s.ReplaceAll(c.from, KyString(c.to), c.start), &s);
        EXPECT_EQ(Text(s), c.expected) << c.text << " " << c.from << " " << c.to << " " << c.start;
    }
}

TEST(KyStringReplaceAll, Characters) {
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll('-', '+', 0)), "a+b+c");
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll('-', '\0', 0)), "abc");
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll('\0', '+', 0)), "a-b-c");
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll(static_cast<unsigned short>('-'), static_cast<unsigned short>('+'), 2)),
              "a-b+c");
    EXPECT_EQ(Text16(Wide(u"a-b").ReplaceAll('-', '+', 0)), u"a+b");
}

TEST(KyStringReplaceAll, MapsAndFollowsTheDefaultOperator) {
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll("-", Wide(u"<\u20AC>"), 0)), "a<?>b<?>c");
    EXPECT_EQ(Text16(Wide(u"\u0100-\u0100").ReplaceAll(Wide(u"\u0100"), "x", 0)), u"x-x");
    const OtherDefaults restored;
    KyString::SetDefaultCmpOp(0x20);
    EXPECT_EQ(Text(KyString("aAbB*").ReplaceAll("A", "x", 0)), "xxbB*") << "case is ignored";
    EXPECT_EQ(Text(KyString("aAbB*").ReplaceAll("*", "x", 0)), "aAbBx") << "no wildcards";
}

TEST(KyStringReplaceAll, OfTheStringItself) {
    KyString s("ab");
    s.ReplaceAll("b", s, 0);
    EXPECT_EQ(Text(s), "aab");
    s.ReplaceAll(s, "c", 0);
    EXPECT_EQ(Text(s), "c");
    s.ReplaceAll(s, s, 0);
    EXPECT_EQ(Text(s), "c");
}

TEST(KyStringReplaceAll, WithoutAMatchKeepsTheBuffer) {
    KyString s("a\0b", 3);
    s.ReplaceAll("x", "y", 0);
    EXPECT_EQ(s.BufferSizeGet(), 4);
}

TEST(KyStringReplaceAll, ManyAndLong) {
    EXPECT_EQ(Text(KyString(Repeated(3000).c_str()).ReplaceAll("x", "yz", 0)).substr(5990), "yzyzyzyzyz");
    const std::string big = Repeated(40000, 'b');
    EXPECT_EQ(Text(KyString(("a" + big + "c").c_str()).ReplaceAll(big.c_str(), "-", 0)), "a-c");
}

TEST(KyStringReplaceAll, IsCutLikeEveryEdit) {
    const OverflowSwitch config(1);
    KyString s((Repeated(65000, 'a') + "--" + Repeated(500, 'a') + "-").c_str());
    s.ReplaceAll("-", Repeated(100, 'b').c_str(), 0);
    EXPECT_EQ(Text(s), Repeated(65000, 'a') + Repeated(200, 'b') + Repeated(331, 'a'));
    EXPECT_FALSE(OverflowSwitch::Raised().empty());
    KyString straddling((Repeated(65529, 'a') + "--").c_str());
    straddling.ReplaceAll("-", "bbb", 0);
    EXPECT_EQ(Text(straddling), Repeated(65529, 'a') + "bb");
}

}  // namespace
