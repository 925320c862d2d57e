#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "kystring.h"
#include "string_texts.h"

namespace {

constexpr unsigned char kUnicode = KyCodeSetUnicode;

// --- construction ---

TEST(KyStringConstruction, WithoutArgumentsIsEmptyInTheDefaults) {
    const KyString s;
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefaultCodeSet());
    EXPECT_EQ(s.LanguageGet(), KyString::GetDefaultLanguage());
    EXPECT_EQ(s.BufferSizeGet(), 0);
    EXPECT_EQ(s.Len(), 0);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_FALSE(s.IsNullValue());
}

TEST(KyStringConstruction, TakesCodeSetAndLanguageAsGiven) {
    const KyString s(7, 9);
    EXPECT_EQ(s.CodeSetGet(), 7);
    EXPECT_EQ(s.LanguageGet(), 9);
    EXPECT_EQ(s.BufferSizeGet(), 0);
}

TEST(KyStringConstruction, FollowsChangedDefaults) {
    const OtherDefaults restored;
    KyString::SetDefaultCodeSet(kUnicode);
    KyString::SetDefaultLanguage(3);
    EXPECT_EQ(KyString().CodeSetGet(), kUnicode);
    EXPECT_EQ(KyString().LanguageGet(), 3);
    EXPECT_EQ(KyString("a").CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(KyString("a").LanguageGet(), 3);
}

TEST(KyStringConstruction, EveryArgumentTakesTheDefaultsOfItsWidth) {
    const OtherDefaults restored;
    KyString::SetDefaultCodeSet(3);
    KyLanguageContext::SetDefault8CodeSet(2);
    KyLanguageContext::SetDefault16CodeSet(230);
    KyString::SetDefaultLanguage(5);
    const unsigned short units[] = {'a', 0};
    const KyString narrow[] = {KyString("a"),
                               KyString("a", 1),
                               KyString('a'),
                               KyString(static_cast<unsigned char>('a')),
                               KyString(static_cast<short>(1)),
                               KyString(1),
                               KyString(1U),
                               KyString(1LL),
                               KyString(1ULL),
                               KyString(1.5),
                               KyString(static_cast<const char*>(nullptr)),
                               KyString('\0')};
    for (const KyString& s : narrow) {
        EXPECT_EQ(s.CodeSetGet(), 2) << Text(s);
        EXPECT_EQ(s.LanguageGet(), 5) << Text(s);
    }
    const KyString wide[] = {KyString(units), KyString(units, 1), KyString(units[0]), KyString(units[1])};
    for (const KyString& s : wide) {
        EXPECT_EQ(s.CodeSetGet(), 230);
        EXPECT_EQ(s.LanguageGet(), 5);
    }
    EXPECT_EQ(KyString().CodeSetGet(), 3);
}

struct NarrowCase {
    const char* text;
    unsigned short n;
    std::string expected;
    unsigned bufferSize;
};

TEST(KyStringConstruction, FromBytes) {
    const NarrowCase cases[] = {
        {"abc", 0xFFFF, "abc", 4}, {"abc", 2, "ab", 3}, {"abc", 0, "", 0}, {"", 0xFFFF, "", 1}, {nullptr, 5, "", 0},
    };
    for (const NarrowCase& c : cases) {
        const KyString s(c.text, c.n);
        EXPECT_EQ(Text(s), c.expected);
        EXPECT_EQ(s.BufferSizeGet(), c.bufferSize);
        EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
        EXPECT_EQ(s.LanguageGet(), KyString::GetDefaultLanguage());
    }
    EXPECT_EQ(Text(KyString("hello, world")), "hello, world");
    EXPECT_EQ(KyString(static_cast<const char*>(nullptr)).BufferSizeGet(), 0);
}

TEST(KyStringConstruction, KeepsZeroBytesWithinTheCount) {
    const KyString s("a\0b", 3);
    EXPECT_EQ(s.BufferSizeGet(), 4);
    EXPECT_EQ(Content(s), std::string("a\0b", 3));
    EXPECT_EQ(s.Len(), 1);
}

TEST(KyStringConstruction, ReadsNoMoreThanTheCount) {
    const char bytes[] = {'a', 'b'};
    EXPECT_EQ(Text(KyString(bytes, 2)), "ab");
    const unsigned short units[] = {0x41, 0x3B1};
    EXPECT_EQ(Text16(KyString(units, 2)), u"Aα");
}

TEST(KyStringConstruction, FromUnits) {
    const std::u16string text = u"aĀ€";
    const auto* units = reinterpret_cast<const unsigned short*>(text.c_str());
    EXPECT_EQ(Text16(KyString(units)), text);
    EXPECT_EQ(KyString(units).BufferSizeGet(), 8);
    EXPECT_EQ(KyString(units).CodeSetGet(), KyString::GetDefault16CodeSet());
    EXPECT_EQ(Text16(KyString(units, 2)), u"aĀ");
    EXPECT_EQ(KyString(units, 0).BufferSizeGet(), 0);
    EXPECT_EQ(Text16(KyString(units, 0xFFFF)), text);
    EXPECT_EQ(KyString(static_cast<const unsigned short*>(nullptr)).BufferSizeGet(), 0);
}

TEST(KyStringConstruction, FromOneCharacter) {
    EXPECT_EQ(Text(KyString('x')), "x");
    EXPECT_EQ(KyString('x').BufferSizeGet(), 2);
    EXPECT_TRUE(KyString('\0').IsEmpty());
    EXPECT_EQ(Text(KyString(static_cast<unsigned char>(0xE4))), "\xE4");
    EXPECT_TRUE(KyString(static_cast<unsigned char>(0)).IsEmpty());
    EXPECT_EQ(Text16(KyString(static_cast<unsigned short>(0x100))), u"Ā");
    EXPECT_EQ(KyString(static_cast<unsigned short>(0x100)).CodeSetGet(), KyString::GetDefault16CodeSet());
    EXPECT_TRUE(KyString(static_cast<unsigned short>(0)).IsEmpty());
}

TEST(KyStringConstruction, FromNumbers) {
    EXPECT_EQ(Text(KyString(static_cast<short>(-32768))), "-32768");
    EXPECT_EQ(Text(KyString(0)), "0");
    EXPECT_EQ(Text(KyString(INT_MIN)), "-2147483648");
    EXPECT_EQ(Text(KyString(42U)), "42");
    EXPECT_EQ(Text(KyString(LLONG_MIN)), "-9223372036854775808");
    EXPECT_EQ(Text(KyString(ULLONG_MAX)), "18446744073709551615");
    EXPECT_EQ(Text(KyString(0.5)), "0.5");
    EXPECT_EQ(Text(KyString(0.0)), "+0");
    EXPECT_EQ(Text(KyString(-0.0)), "-0");
    EXPECT_EQ(Text(KyString(0.1)), "0.10000000000000001");
    EXPECT_EQ(Text(KyString(std::numeric_limits<double>::quiet_NaN())), "NaN");
    EXPECT_EQ(Text(KyString(-std::numeric_limits<double>::infinity())), "-Infinity");
    EXPECT_EQ(KyString(1234).BufferSizeGet(), 5);
    EXPECT_EQ(KyString(1234).CodeSetGet(), KyString::GetDefault8CodeSet());
}

TEST(KyStringConstruction, Kept_UnsignedNumbersAreFormattedAsSigned) {
    EXPECT_EQ(Text(KyString(4294967295U)), "-1");
    EXPECT_EQ(Text(KyString(2147483648U)), "-2147483648");
}

TEST(KyStringConstruction, CopyTakesTheTextUpToItsTerminator) {
    KyString original("a\0b", 3);
    original.LanguageSet(5);
    const KyString copy(original);
    EXPECT_EQ(Content(copy), "a");
    EXPECT_EQ(copy.LanguageGet(), 5);
    EXPECT_EQ(copy.CodeSetGet(), original.CodeSetGet());
    EXPECT_NE(copy.StrGet(), original.StrGet());
}

TEST(KyStringConstruction, CopyKeepsCodeSetNativeAndNull) {
    KyString native(static_cast<unsigned char>(0), 4);
    native += "ab";
    const KyString copy(native);
    EXPECT_EQ(copy.CodeSetGet(), 0);
    EXPECT_EQ(Text(copy), "ab");

    KyString null("gone");
    null.SetNullValue();
    const KyString nullCopy(null);
    EXPECT_TRUE(nullCopy.IsNullValue());
    EXPECT_EQ(nullCopy.BufferSizeGet(), 0);
}

TEST(KyStringConstruction, CopyOfUnitsWithZeroLowByte) { EXPECT_EQ(Text16(KyString(Wide(u"Āb"))), u"Āb"); }

TEST(KyStringConstruction, MoveTakesTheBuffer) {
    KyString from("text");
    from.LanguageSet(6);
    const char* buffer = from.StrGet();
    const KyString to(std::move(from));
    EXPECT_EQ(to.StrGet(), buffer);
    EXPECT_EQ(to.LanguageGet(), 6);
    EXPECT_EQ(to.BufferSizeGet(), 5);
    EXPECT_EQ(from.BufferSizeGet(), 0);  // NOLINT(bugprone-use-after-move): what it leaves is promised
    EXPECT_EQ(from.LanguageGet(), 6);
}

// --- assignment ---

TEST(KyStringAssignment, CopiesContentAndLabel) {
    KyString s("old text");
    KyString other = Wide(u"Āx");
    other.LanguageSet(4);
    s = other;
    EXPECT_EQ(Text16(s), u"Āx");
    EXPECT_EQ(s.CodeSetGet(), kUnicode);
    EXPECT_EQ(s.LanguageGet(), 4);
    EXPECT_EQ(Text16(other), u"Āx");
}

TEST(KyStringAssignment, NullStaysNull) {
    KyString null;
    null.SetNullValue();
    KyString s("x");
    s = null;
    EXPECT_TRUE(s.IsNullValue());
    EXPECT_EQ(s.BufferSizeGet(), 0);
}

TEST(KyStringAssignment, ToItselfChangesNothing) {
    KyString s("a\0b", 3);
    const KyString& same = s;
    const char* buffer = s.StrGet();
    s = same;
    EXPECT_EQ(s.StrGet(), buffer);
    EXPECT_EQ(s.BufferSizeGet(), 4);
    KyString& self = s;
    s = std::move(self);
    EXPECT_EQ(s.StrGet(), buffer);
}

TEST(KyStringAssignment, OfTextTakesTheDefaults) {
    KyString s = Wide(u"wide");
    s.LanguageSet(9);
    s = "narrow";
    EXPECT_EQ(Text(s), "narrow");
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(s.LanguageGet(), KyString::GetDefaultLanguage());
    s = static_cast<const char*>(nullptr);
    EXPECT_EQ(s.BufferSizeGet(), 0);
}

TEST(KyStringAssignment, OfAPieceOfItself) {
    KyString s("abcdef");
    s = s.StrGet() + 2;
    EXPECT_EQ(Text(s), "cdef");
}

TEST(KyStringAssignment, OfEveryConstructorArgument) {
    KyString s;
    EXPECT_EQ(Text(s = 'c'), "c");
    EXPECT_EQ(Text(s = 12), "12");
    EXPECT_EQ(Text(s = -5LL), "-5");
    EXPECT_EQ(Text(s = 1.5), "1.5");
    EXPECT_EQ(Text(s = 0), "0") << "a number, not a null text";
    EXPECT_EQ(Text(s = 4294967295U), "-1");
    EXPECT_EQ(Text(s = 18446744073709551615ULL), "18446744073709551615");
    EXPECT_EQ(Text(s = static_cast<short>(-3)), "-3");
    EXPECT_EQ(Text(s = static_cast<unsigned char>('u')), "u");
    EXPECT_EQ(Text(s = '\0'), "");
    const unsigned short units[] = {'w', 0};
    EXPECT_EQ(Text16(s = units), u"w");
    EXPECT_EQ(Text16(s = static_cast<unsigned short>(0x100)), u"Ā");
}

}  // namespace
