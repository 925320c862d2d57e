#include "kystring.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdint>
#include <type_traits>

#include "string_texts.h"

namespace {

constexpr unsigned char kLatin1 = KyCodeSetLatin1;
constexpr unsigned char kUnicode = KyCodeSetUnicode;

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
