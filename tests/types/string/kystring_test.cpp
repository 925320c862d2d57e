#include "kystring.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "string_texts.h"

namespace {

constexpr unsigned char kLatin1 = KyCodeSetLatin1;
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

// --- state ---

TEST(KyStringState, StrGetIsNeverNull) {
    KyString s;
    ASSERT_NE(s.StrGet(), nullptr);
    EXPECT_EQ(s.StrGet()[0], 0);
    EXPECT_EQ(s.StrGet()[1], 0);
    s.SetNullValue();
    ASSERT_NE(s.StrGet(), nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(s.StrGet()) % 2, 0U) << "16-bit functions read it too";
}

TEST(KyStringState, LengthIsCountedToTheTerminator) {
    EXPECT_EQ(KyString("abc").Len(), 3);
    EXPECT_EQ(Wide(u"āĀa").Len(), 3);
    EXPECT_EQ(KyString("a\0b", 3).Len(), 1);
    EXPECT_EQ(Wide(std::u16string(u"a\0b", 3)).Len(), 1);
}

TEST(KyStringState, TerminatorWidth) {
    const struct {
        unsigned char codeSet;
        unsigned width;
    } cases[] = {{0, 1}, {1, 1}, {224, 1}, {225, 2}, {253, 2}, {254, 2}, {255, 2}};
    for (const auto& c : cases) EXPECT_EQ(KyString(c.codeSet, 0).NullLen(), c.width) << int{c.codeSet};
}

TEST(KyStringState, EmptyMeansNoFirstCharacter) {
    EXPECT_TRUE(KyString().IsEmpty());
    EXPECT_TRUE(KyString("").IsEmpty());
    EXPECT_TRUE(!KyString(""));
    EXPECT_FALSE(KyString("a").IsEmpty());
    EXPECT_FALSE(!KyString("a"));
    EXPECT_FALSE(Wide(u"Ā").IsEmpty()) << "only the low byte is zero";
    EXPECT_TRUE(Wide(std::u16string(1, u'\0')).IsEmpty());
}

TEST(KyStringState, NullIsNotEmptyButLooksSo) {
    KyString s("text");
    EXPECT_EQ(s.SetNullValue(), 0);
    EXPECT_TRUE(s.IsNullValue());
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.BufferSizeGet(), 0);
    EXPECT_EQ(s.CodeSetGet(), 0);
    EXPECT_EQ(s.LanguageGet(), 254);
    EXPECT_FALSE(KyString("").IsNullValue());
}

TEST(KyStringState, Kept_OrderTextInNeutralLanguageIsNull) {
    EXPECT_TRUE(KyString(254, 0).IsNullValue());
    EXPECT_FALSE(KyString(254, 1).IsNullValue());
    EXPECT_TRUE(KyString(1, 254).IsNullValue());
    EXPECT_FALSE(KyString(1, 0).IsNullValue());
}

TEST(KyStringState, DestroyLeavesNothing) {
    KyString s("text");
    s.LanguageSet(254);
    s.Destroy();
    EXPECT_EQ(s.BufferSizeGet(), 0);
    EXPECT_EQ(s.CodeSetGet(), 0);
    EXPECT_EQ(s.LanguageGet(), 0);
    EXPECT_FALSE(s.IsNullValue());
    s = "again";
    s.d_deactivate();
    EXPECT_EQ(s.BufferSizeGet(), 0);
    s.Destroy();
    EXPECT_EQ(s.Len(), 0);
}

TEST(KyStringState, DestructMovesTheContent) {
    KyString from("moved");
    from.LanguageSet(8);
    KyString to("lost");
    to.Destruct(from);
    EXPECT_EQ(Text(to), "moved");
    EXPECT_EQ(to.LanguageGet(), 8);
    EXPECT_EQ(from.BufferSizeGet(), 0);
    EXPECT_EQ(from.LanguageGet(), 8) << "keeps its label";
    to.Destruct(to);
    EXPECT_EQ(Text(to), "moved");
}

TEST(KyStringState, EmptyStringIsOneObjectWithTheDefaultsOfLoading) {
    const KyString& empty = KyString::EmptyString();
    EXPECT_EQ(&empty, &KyString::EmptyString());
    EXPECT_TRUE(empty.IsEmpty());
    const OtherDefaults restored;
    const unsigned char atLoad = KyString::GetDefaultCodeSet();
    KyString::SetDefaultCodeSet(kUnicode);
    EXPECT_EQ(KyString::EmptyString().CodeSetGet(), atLoad);
}

/// Used by another static object's destructor, after every static string of the library could be gone.
struct UsesEmptyStringAtExit {
    ~UsesEmptyStringAtExit() {
        if (!KyString::EmptyString().IsEmpty()) std::abort();
    }
};
const UsesEmptyStringAtExit usesEmptyStringAtExit;

/// Used before main, whatever the order of initialisation.
const bool emptyBeforeMain = KyString::EmptyString().IsEmpty() && KyString("abc").Copy(5, 1).IsEmpty();
TEST(KyStringState, EmptyStringServesBeforeMain) { EXPECT_TRUE(emptyBeforeMain); }

TEST(KyStringState, AllocNotesTheSizeAndClears) {
    KyString s;
    auto* block = static_cast<char*>(s.Alloc(16));
    EXPECT_EQ(s.BufferSizeGet(), 16);
    EXPECT_EQ(std::string(block, 16), std::string(16, '\0'));
    delete[] block;
    block = static_cast<char*>(s.Alloc(static_cast<short>(65532)));
    EXPECT_EQ(s.BufferSizeGet(), 65532);
    delete[] block;
}

TEST(KyStringState, LayoutIsPinned) {
    static_assert(sizeof(KyString) == 16 && std::is_standard_layout_v<KyString>);
    KyString s("abc");
    s.LanguageSet(0x5A);
    std::array<unsigned char, 16> bytes{};
    std::memcpy(bytes.data(), static_cast<const void*>(&s), sizeof s);
    char* buffer;
    std::memcpy(&buffer, bytes.data(), sizeof buffer);
    EXPECT_EQ(buffer, s.StrGet());
    EXPECT_EQ(bytes[8], 4);
    EXPECT_EQ(bytes[9], 0);
    EXPECT_EQ(bytes[10], s.CodeSetGet());
    EXPECT_EQ(bytes[11], 0x5A);
}

// --- single characters ---

TEST(KyStringIndex, ReadsCharactersAndTheTerminator) {
    KyString s("ab");
    s.LanguageSet(3);
    EXPECT_EQ(s[0].CodeGet(), 'a');
    EXPECT_EQ(s[1].CodeGet(), 'b');
    EXPECT_EQ(s[1].LanguageGet(), 3);
    EXPECT_EQ(s[2].CodeGet(), 0);
    EXPECT_EQ(s[2].LanguageGet(), 3) << "the terminator still belongs to the string";
    KyString wide = Wide(u"aĀ");
    EXPECT_EQ(wide[1].CodeGet(), 0x100);
    EXPECT_EQ(wide[1].CodeSetGet(), kUnicode);
    EXPECT_EQ(wide[2].CodeGet(), 0);
}

TEST(KyStringIndex, OutsideIsTheEmptyCharacter) {
    KyString s = Wide(u"ab");
    s.LanguageSet(3);
    for (const int i : {3, 100, INT_MAX, -1, INT_MIN}) {
        EXPECT_EQ(s[i].CodeGet(), 0) << i;
        EXPECT_EQ(s[i].CodeSetGet(), KyString::GetDefault8CodeSet()) << i;
        EXPECT_EQ(s[i].LanguageGet(), KyString::GetDefaultLanguage()) << i;
    }
}

TEST(KyStringIndex, WritesThrough) {
    KyString s("abc");
    s[1] = 'X';
    EXPECT_EQ(Text(s), "aXc");
}

TEST(KyStringIndex, WithoutBufferNothingSharedIsWritten) {
    KyString s;
    s[0] = 'X';
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(KyString().StrGet()[0], 0);
}

// --- arrays for conversion records ---

TEST(KyStringArrays, CreateAndDelete) {
    for (const unsigned count : {0U, 1U, 3U}) {
        KyString* strings = KyStringCreate(count);
        ASSERT_NE(strings, nullptr);
        for (unsigned i = 0; i < count; ++i) {
            EXPECT_TRUE(strings[i].IsEmpty());
            EXPECT_FALSE(strings[i].IsNullValue());
            strings[i] = "content";
        }
        EXPECT_EQ(KyStringDelete(strings, count), 0);
    }
    EXPECT_EQ(KyStringDelete(nullptr, 0), 0);
}

// --- process-wide defaults ---

TEST(KyStringDefaults, ForwardToTheLanguageContext) {
    const OtherDefaults restored;
    EXPECT_EQ(KyString::GetDefault8CodeSet(), KyLanguageContext::GetDefault8CodeSet());
    EXPECT_EQ(KyString::GetDefault16CodeSet(), KyLanguageContext::GetDefault16CodeSet());
    KyString::SetDefaultCodeSet(kLatin1 + 1);
    EXPECT_EQ(KyLanguageContext::GetDefaultCodeSet(), kLatin1 + 1);
    KyString::SetDefaultLanguage(2);
    EXPECT_EQ(KyLanguageContext::GetDefaultLanguage(), 2);
    KyString::SetDefaultCmpOp(0x10);
    EXPECT_EQ(KyLanguageContext::GetDefaultCmpOp(), 0x10);
    EXPECT_EQ(KyString::GetDefaultCmpOp(), 0x10);
}

}  // namespace
