#include "kyistring.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "dictionary_values.h"
#include "kyi18n.h"
#include "string_texts.h"

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

TYPED_TEST(DictionaryStringTest, IsAPointerAndAMode) {
    using Self = TypeParam;
    EXPECT_EQ(sizeof(Self), 16u);
    Self s("abc");
    s.ModeSet(0x40);
    const char* text;
    std::memcpy(&text, &s, sizeof text);
    EXPECT_EQ(text, s.StrGet());
    unsigned char mode;
    std::memcpy(&mode, reinterpret_cast<const unsigned char*>(&s) + 8, 1);
    EXPECT_EQ(mode, 0x40);
}

TYPED_TEST(DictionaryStringTest, Construction) {
    using Self = TypeParam;
    const unsigned short units[] = {'a', 0xE9, 'b', 0};
    EXPECT_EQ(Text(Self()), "");
    EXPECT_EQ(Text(Self(static_cast<unsigned char>(1), static_cast<unsigned char>(2))), "");
    EXPECT_EQ(Text(Self("abc")), "abc");
    EXPECT_EQ(Text(Self(static_cast<const char*>(nullptr))), "");
    EXPECT_EQ(Text(Self("abc", static_cast<unsigned short>(2))), "ab");
    EXPECT_EQ(Text(Self("abc", static_cast<unsigned short>(0))), "");
    EXPECT_EQ(Text(Self("abc", Self::NotFound)), "abc");
    EXPECT_EQ(Text(Self(static_cast<const unsigned short*>(units))),
              "a\xE9"
              "b");
    EXPECT_EQ(Text(Self(static_cast<const unsigned short*>(units), static_cast<unsigned short>(1))), "a");
    EXPECT_EQ(Text(Self('x')), "x");
    EXPECT_EQ(Text(Self('\0')), "");
    EXPECT_EQ(Text(Self(static_cast<unsigned char>(0xE9))), "\xE9");
    EXPECT_EQ(Text(Self(static_cast<unsigned short>(0xE9))), "\xE9");
    EXPECT_EQ(Text(Self(static_cast<short>(-7))), "-7");
    EXPECT_EQ(Text(Self(42)), "42");
    EXPECT_EQ(Text(Self(std::numeric_limits<long long>::min())), "-9223372036854775808");
    EXPECT_EQ(Text(Self(std::numeric_limits<unsigned long long>::max())), "18446744073709551615");
    EXPECT_EQ(Text(Self(2.5)), "2.5");
    EXPECT_EQ(Text(Self(KyString("abc"))), "abc");
    const KyString wide = Wide(u"a\u00E9");
    EXPECT_EQ(Text(Self(wide)), "a\xE9");
    KyString null;
    null.SetNullValue();
    EXPECT_EQ(Text(Self(null)), "");
    EXPECT_FALSE(HoldsBlock(Self("")));
    EXPECT_FALSE(HoldsBlock(Self(KyString(""))));
    EXPECT_FALSE(HoldsBlock(Self(KyString(Wide(u"")))));
}

TYPED_TEST(DictionaryStringTest, Kept_UnsignedNumbersAreSigned) { EXPECT_EQ(Text(TypeParam(4294967295u)), "-1"); }

TYPED_TEST(DictionaryStringTest, LongTextsAreCut) {
    using Self = TypeParam;
    const std::string most(65531, 'x');
    EXPECT_EQ(Text(Self(most.c_str())), most);
    EXPECT_EQ(Text(Self((most + "y").c_str())), most);
    EXPECT_EQ(Text(Self((most + most).c_str())), most);
    Self s(most.c_str());
    s += Self("y");
    EXPECT_EQ(Text(s), most);
}

TYPED_TEST(DictionaryStringTest, AssignmentSetsTheModeToZero) {
    using Self = TypeParam;
    const auto marked = [] {
        Self s("old");
        s.ModeSet(0x40);
        return s;
    };
    const auto check = [](const Self& s, const char* text) {
        EXPECT_EQ(s.ModeGet(), 0);
        EXPECT_EQ(Text(s), text);
    };
    Self other("new");
    other.ModeSet(0x80);
    Self s = marked();
    s.ModeSet(0x40);
    s = other;
    check(s, "new");
    s.ModeSet(0x40);
    s = "text";
    check(s, "text");
    s.ModeSet(0x40);
    s = KyString("string");
    check(s, "string");
    s.ModeSet(0x40);
    s = 7;
    check(s, "7");
    s.ModeSet(0x40);
    s = Self(other);
    check(s, "new");
    s.ModeSet(0x40);
    s = *&s;
    check(s, "new");
    s.ModeSet(0x40);
    s.Destroy();
    check(s, "");
    Self copy(other);
    check(copy, "new");
    Self moved(std::move(other));
    check(moved, "new");
    EXPECT_EQ(moved.ModeGet(), 0);
    copy.ModeSet(0x20);
    copy += Self("x");
    EXPECT_EQ(copy.ModeGet(), 0x20) << "an edit is none";
    copy = copy.StrGet() + 1;
    check(copy, "ewx");
    Self from("taken");
    copy.Destruct(from);
    check(copy, "taken");
    EXPECT_EQ(Text(from), "");
    copy.Destruct(copy);
    check(copy, "taken");
}

TYPED_TEST(DictionaryStringTest, State) {
    using Self = TypeParam;
    Self s("abc");
    EXPECT_EQ(s.Len(), 3);
    EXPECT_EQ(s.NullLen(), 1);
    EXPECT_EQ(s.BufferSizeGet(), 4);
    EXPECT_EQ(s.IsEmpty(), 0);
    EXPECT_EQ(!s, 0);
    EXPECT_EQ(s.IsNullValue(), 0);
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(s.LanguageGet(), KyString::GetDefaultLanguage());
    EXPECT_EQ(s.SetNullValue(), 0);
    EXPECT_EQ(s.IsEmpty(), 1);
    EXPECT_EQ(s.IsNullValue(), 0);
    EXPECT_EQ(s.BufferSizeGet(), 0);
    EXPECT_EQ(s.Len(), 0);
    EXPECT_STREQ(s.StrGet(), "");
    EXPECT_STREQ(Self::EmptyString().StrGet(), "");
    EXPECT_EQ(&Self::EmptyString(), &Self::EmptyString());
}

TYPED_TEST(DictionaryStringTest, LabelsAreNotKept) {
    using Self = TypeParam;
    Self s("abc");
    const unsigned char own = s.CodeSetGet();
    EXPECT_EQ(s.SetCodeSetCode(own), 0);
    EXPECT_EQ(s.MapToCodeSet(own), 0);
    for (const unsigned char other : Flags{0, 4, 253}) {
        EXPECT_EQ(s.SetCodeSetCode(other), KyErrRefused);
        EXPECT_EQ(s.MapToCodeSet(other), KyErrRefused);
        EXPECT_EQ(s.CopyMapped(Self("x"), other, -1), KyErrRefused);
        s.SetCodeSet(other);
    }
    s.LanguageSet(254);
    EXPECT_EQ(Text(s), "abc");
    EXPECT_EQ(s.IsNullValue(), 0);
    EXPECT_EQ(s.CodeSetGet(), own);
    EXPECT_EQ(s.CopyMapped(s, own, -1), KyErrRefused);
    EXPECT_EQ(s.CopyMapped(Self("xyz"), own, -1), 3);
    EXPECT_EQ(Text(s), "xyz");
    EXPECT_EQ(s.CopyMapped(Self("defg"), own, 2), 2);
    EXPECT_EQ(Text(s), "de");
}

/// Each edit, of a string and of a dictionary string.
TYPED_TEST(DictionaryStringTest, EditsAreThoseOfKyString) {
    using Self = TypeParam;
    const auto check = [](const auto& edit) {
        for (const char* text : {"", "x", "  ab cd  ", "aXbXc\xE9", "0 1 0"}) {
            KyString expected(text);
            Self s(text);
            edit(expected);
            edit(s);
            EXPECT_STREQ(s.StrGet(), expected.StrGet()) << text;
            EXPECT_EQ(HoldsBlock(s), s.Len() != 0) << text;
        }
    };
    check([](auto& s) { s.Fill(3, 'q'); });
    check([](auto& s) { s.Fill(3, static_cast<unsigned short>(0xE9)); });
    check([](auto& s) { s.Fill(0, 'q'); });
    check([](auto& s) { s.Expand(12, '.'); });
    check([](auto& s) { s.Expand(12, static_cast<unsigned short>('.')); });
    check([](auto& s) { s.Cut(1, 2); });
    check([](auto& s) { s.Cut(0, -1); });
    check([](auto& s) { s.Insert("new", 1); });
    check([](auto& s) { s.Insert("new", s.Len()); });
    check([](auto& s) { s.Insert(s, 0); });
    check([](auto& s) { s.Replace("12", 1); });
    check([](auto& s) { s.Replace(s, 1); });
    check([](auto& s) { s += s; });
    check([](auto& s) { s << s << 'c' << "text" << static_cast<short>(-1) << static_cast<unsigned short>(65) << 7; });
    check([](auto& s) { s << 8u << 9ll << 10ull << 1.5f << 2.5; });
    check([](auto& s) { s << static_cast<const unsigned short*>(nullptr); });
    check([](auto& s) { s << KyString("string"); });
    check([](auto& s) { s.LeftTrim(); });
    check([](auto& s) { s.RightTrim(); });
    check([](auto& s) { s.Trim(); });
    check([](auto& s) { s.ToUpper(); });
    check([](auto& s) { s.ToLower(); });
    check([](auto& s) {
        KyCharToUpper upper;
        s.Transform(upper);
    });
    check([](auto& s) { s.ReplaceAll("X", "yy", 0); });
    check([](auto& s) { s.ReplaceAll("a", s, 0); });
    check([](auto& s) { s.ReplaceAll('X', 'y', 2); });
    check([](auto& s) { s.ReplaceAll(static_cast<unsigned short>('X'), static_cast<unsigned short>('y'), 0); });
    check([](auto& s) { s.BuildString("xyz", s.CodeSetGet(), 1, 1, 2, 2, 2, 1); });
    check([](auto& s) { s.BuildString("xyz", s.CodeSetGet(), 1, 0, 1, 1, 9, 1); });
    check([](auto& s) {
        s.Destroy();
        s.MakeString("made", KyString::GetDefault8CodeSet(), 2, 1);
    });
    check([](auto& s) { s.d_deactivate(); });
    check([](auto& s) { s = s.Copy(1, 3); });
    check([](auto& s) { s = s.Copy(1, -1); });
    check([](auto& s) { s = s.Copy(100, 3); });
    check([](auto& s) { s = s.Left(2) + s.Right(2); });
}

TYPED_TEST(DictionaryStringTest, BlanksAndZeros) {
    using Self = TypeParam;
    Self s(" 0 a00 ");
    EXPECT_EQ(&s.SpaceToZero(), &s);
    EXPECT_EQ(Text(s), "000a000");
    EXPECT_EQ(Text(s.ZeroToSpace()), "   a   ");
    Self empty;
    EXPECT_EQ(Text(empty.SpaceToZero().ZeroToSpace()), "");
}

TYPED_TEST(DictionaryStringTest, AllocIsNotInstalled) {
    TypeParam s("abc");
    char* block = static_cast<char*>(s.Alloc(5));
    for (int i = 0; i < 5; ++i) EXPECT_EQ(block[i], 0);
    delete[] block;
    EXPECT_EQ(Text(s), "abc");
}

TYPED_TEST(DictionaryStringTest, Characters) {
    TypeParam s("ab\xE9");
    EXPECT_EQ(s[0].CodeGet(), 'a');
    EXPECT_EQ(s[2].CodeGet(), 0xE9);
    EXPECT_TRUE(s[2].IsAlpha());
    EXPECT_EQ(s[3].CodeGet(), 0);
    EXPECT_EQ(s[4].CodeGet(), 0);
    EXPECT_EQ(s[-1].CodeGet(), 0);
    KyChar second = s[1];
    second = 'x';
    EXPECT_EQ(Text(s), "ax\xE9") << "a character refers to its place";
    TypeParam empty;
    EXPECT_EQ(empty[0].CodeGet(), 0);
}

TYPED_TEST(DictionaryStringTest, Numbers) {
    using Self = TypeParam;
    int out = 7;
    long long wide = 7;
    EXPECT_EQ(Self("12x").Atol(out), 0);
    EXPECT_EQ(out, 12);
    EXPECT_EQ(Self(" 12").Atol(out), -1);
    EXPECT_EQ(out, 0);
    EXPECT_EQ(Self("-9000000000").Atoll(wide), 0);
    EXPECT_EQ(wide, -9000000000);
    EXPECT_EQ(Self("0x10").Strtol(out), 0);
    EXPECT_EQ(out, 16);
    EXPECT_EQ(Self("010").Strtoll(wide), 0);
    EXPECT_EQ(wide, 8);
    EXPECT_EQ(Self().Atol(out), -1);
    EXPECT_EQ(static_cast<int>(Self("0x10")), 16);
    EXPECT_EQ(static_cast<short>(Self("5")), 5);
    EXPECT_EQ(static_cast<long long>(Self("9000000000")), 9000000000);
    EXPECT_EQ(static_cast<double>(Self("2.5")), 2.5);
    EXPECT_EQ(static_cast<int>(Self()), 0);
    EXPECT_EQ(static_cast<double>(Self()), 0.0);
}

TYPED_TEST(DictionaryStringTest, FindGoesByCollation) {
    using Self = TypeParam;
    const Self s("abcABC");
    EXPECT_EQ(s.Find(Self("B"), 0, KyCmpDefault), 4);
    EXPECT_EQ(s.Find('c', 0, KyCmpDefault), 2);
    EXPECT_EQ(s.Find(static_cast<unsigned short>('C'), 0, KyCmpDefault), 5);
    EXPECT_EQ(s.Find(Self("b"), 2, KyCmpExact | KyCmpIgnoreCase), 4);
    EXPECT_EQ(s.Find(Self("x"), 0, KyCmpDefault), Self::NotFound);
}

TYPED_TEST(DictionaryStringTest, Operators) {
    using Self = TypeParam;
    constexpr bool alike = isCaseAlike<Self>;
    const Self small("abc");
    const Self large("ABC");
    EXPECT_EQ(small == large, alike);
    EXPECT_EQ(small != large, alike ? 0 : 0x4E - 0x54);
    EXPECT_EQ(small < large, !alike);
    EXPECT_EQ(small >= large, alike);
    EXPECT_TRUE(small <= large);
    EXPECT_EQ(large > small, !alike);
    EXPECT_EQ(small.EqualsIgnoreLanguage(large), alike ? 1 : 0);
    EXPECT_TRUE(small == "abc");
    EXPECT_TRUE(small < "abd");
    EXPECT_EQ(large < "abd", alike);
    EXPECT_TRUE(Self() == Self(""));
    EXPECT_TRUE(Self() < small);
    EXPECT_TRUE(small > Self());
    EXPECT_EQ(small.Compare(Self("abd"), 2, KyCmpDefault), 0);
    EXPECT_LT(small.Compare(Self("abd"), -1, 0), 0);
    EXPECT_EQ(small.Compare(Self("x"), 0, 0), 0);
    EXPECT_GT(small.Compare(Self("a*"), -1, 0), 0) << "no wildcards";
}

TYPED_TEST(DictionaryStringTest, OperatorsKnowTheModeOfEachSide) {
    using Self = TypeParam;
    Self disk("\xE0");
    disk.ModeSet(0x40);
    Self program("\xC8");
    EXPECT_TRUE(disk == program);
    EXPECT_TRUE(disk == Self("a"));
    disk.ModeSet(0x60);
    EXPECT_EQ(disk == Self("a"), !isCaseAlike<Self>);
    Self key("\x54");
    key.ModeSet(0x80);
    EXPECT_TRUE(key == Self("A"));
}

TYPED_TEST(DictionaryStringTest, SubStringPosGoesByTheDictionaryOrder) {
    using Self = TypeParam;
    constexpr bool alike = isCaseAlike<Self>;
    const Self s(
        "xAb\xC8\xDE"
        "e");  // with a grave a and a sharp s
    const auto place = [&](const char* pattern, unsigned short op = KyCmpDefault) {
        return s.SubStringPos(Self(pattern), op);
    };
    EXPECT_EQ(place("Ab"), 1);
    EXPECT_EQ(place("ab"), alike ? 1 : Self::NotFound);
    EXPECT_EQ(place("a"), alike ? 1 : 3);
    EXPECT_EQ(place("ba"), 2);
    EXPECT_EQ(place("ss"), 4);
    EXPECT_EQ(place("asse"), Self::NotFound) << "fewer characters are left than the pattern has";
    EXPECT_EQ(place("sse"), Self::NotFound);
    EXPECT_EQ(place("\xDE"), 4);
    EXPECT_EQ(place(""), Self::NotFound);
    EXPECT_EQ(place("x*"), Self::NotFound) << "no wildcard with the default operator";
    EXPECT_EQ(place("x*", KyCmpExact), Self::NotFound);
    EXPECT_EQ(place("x*", KyCmpStringExact), Self::NotFound);
    EXPECT_EQ(place("b?", 0), 2);
    EXPECT_EQ(place("*", 0), 0);
    EXPECT_EQ(place("b*e", 0), 2);
    EXPECT_EQ(place("?b", 0), 1);
    EXPECT_EQ(place("\\x", 0), 0);
    EXPECT_EQ(place("q*", 0), Self::NotFound);
    EXPECT_EQ(place("B", 0), alike ? 2 : Self::NotFound);
    EXPECT_EQ(Self().SubStringPos(Self("a"), 0), Self::NotFound);
    Self disk("\xE0");
    disk.ModeSet(0x40);
    EXPECT_EQ(s.SubStringPos(disk, KyCmpDefault), alike ? 1 : 3);
}

TYPED_TEST(DictionaryStringTest, AnotherDefaultCodeSet) {
    using Self = TypeParam;
    const unsigned char before = KyString::GetDefault8CodeSet();
    KyLanguageContext::SetDefault8CodeSet(KyCodeSetWindows1252);
    Self s(Wide(u"\u20AC"));
    EXPECT_EQ(s.CodeSetGet(), KyCodeSetWindows1252);
    KyLanguageContext::SetDefault8CodeSet(before);
    EXPECT_EQ(Text(s), "\x80");
}

}  // namespace
