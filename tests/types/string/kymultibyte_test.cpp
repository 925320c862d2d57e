#include "kymultibyte.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "kyi18n.h"
#include "kystring.h"
#include "multibyte_texts.h"
#include "oracle/slow_utf8.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

TEST(MbsToString, ReplacesTheTextAndKeepsTheLanguage) {
    KyString out = Narrow("before");
    out.LanguageSet(7);
    GuardedText in("a\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(KyMBS2KyString(in.Get(), out, 6), 6);
    EXPECT_EQ(Text16(out), u"a\u00E9\u20AC");
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetUnicode);
    EXPECT_EQ(out.LanguageGet(), 7);
    EXPECT_EQ(out.BufferSizeGet(), 8);

    EXPECT_EQ(KyMBS2KyString("x", out, 0), 0);
    EXPECT_EQ(out.BufferSizeGet(), 0);
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetUnicode);
    EXPECT_EQ(out.LanguageGet(), 7);
    EXPECT_EQ(KyMBS2KyString("x", out, -1), 0);
    EXPECT_EQ(KyMBS2KyString(nullptr, out, 4), 0);

    KyString null;
    null.SetNullValue();
    EXPECT_EQ(KyMBS2KyString("x", null, 1), 1);
    EXPECT_TRUE(null.IsNullValue()) << "null is a language, and it stays";
}

TEST(MbsToString, IsTheSameUnderOtherDefaults) {
    const OtherDefaults restore;
    KyLanguageContext::SetDefault16CodeSet(240);
    KyString out;
    EXPECT_EQ(KyMBS2KyString("\xC3\xA9", out, 2), 2);
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetUnicode);
    EXPECT_EQ(Text16(out), u"\u00E9");
}

TEST(MbsToString, EndsAtAZeroCharacter) {
    KyString out;
    EXPECT_EQ(KyMBS2KyString("ab\0cd", out, 5), 2);
    EXPECT_EQ(Text16(out), u"ab");
    EXPECT_EQ(KyMBS2KyString("\0ab", out, 3), 0);
    EXPECT_TRUE(out.IsEmpty());
    GuardedText in(std::string("ab\0", 3));
    EXPECT_EQ(KyMBS2KyString(in.Get(), out, 30000), 2) << "nothing behind the zero is read";
}

TEST(MbsToString, Kept_ACharacterWithZeroLowBitsEndsTheText) {
    KyString out;
    EXPECT_EQ(KyMBS2KyString("ab\xF0\x90\x80\x80"
                             "cd",
                             out, 8),
              2);
    EXPECT_EQ(Text16(out), u"ab");
}

TEST(MbsToString, AcrossBlocks) {
    for (const unsigned count : {1u, 255u, 256u, 257u, 511u, 512u, 513u, 10922u}) {
        std::u16string units;
        for (unsigned i = 0; i < count; ++i) units += static_cast<char16_t>(0x800 + i * 5);
        const std::string bytes = SlowUtf8(units);
        GuardedText in(bytes);
        KyString out;
        EXPECT_EQ(KyMBS2KyString(in.Get(), out, static_cast<int>(bytes.size())), static_cast<int>(bytes.size()));
        EXPECT_EQ(Text16(out), units) << count;
    }
}

TEST(MbsToString, Kept_AStringHoldsLessThanIsAccepted) {
    const struct {
        int length;
        int result;
        unsigned characters;
        std::size_t overflows;
    } cases[] = {{32764, 32764, 32764, 0}, {32765, 32765, 32765, 0}, {32766, 32766, 32765, 1},
                 {32767, 32767, 32765, 1}, {32768, -2, 32765, 1},    {60000, -2, 32765, 1}};
    for (const auto& [length, result, characters, overflows] : cases) {
        GuardedText in(std::string(static_cast<std::size_t>(length), 'a'));
        const OverflowSwitch on(1);
        KyString out;
        EXPECT_EQ(KyMBS2KyString(in.Get(), out, length), result) << length;
        EXPECT_EQ(out.Len(), characters) << length;
        EXPECT_EQ(OverflowSwitch::Raised().size(), overflows) << length;
    }
}

TEST(MbsToString, TheLimitIsOneOfBytes) {
    std::string text(32766, 'a');
    for (std::size_t at = 0; at < text.size(); at += 2) text.replace(at, 2, "\xC3\xA9");
    KyString out;
    EXPECT_EQ(KyMBS2KyString((text + "b").data(), out, 32767), 32767);
    EXPECT_EQ(out.Len(), 16384);
    EXPECT_EQ(KyMBS2KyString((text + "b\0c").data(), out, 32769), 32767) << "the text ended before";
    EXPECT_EQ(KyMBS2KyString((text + "\xC3\xA9").data(), out, 32768), -2);
    EXPECT_EQ(out.Len(), 16384) << "what was decoded stays, the character that passed the limit too";
    EXPECT_EQ(KyMBS2KyString((text + "b\xC3").data(), out, 32768), -1);
    EXPECT_EQ(out.Len(), 16384);
}

TEST(MbsToString, FromAString) {
    KyString out;
    EXPECT_EQ(KyMultiByteString2KyString("\xC3\xA9", out, 2), 2);
    EXPECT_EQ(Text16(out), u"\u00E9");
    EXPECT_EQ(KyMultiByteString2KyString(Narrow("a\xC3\xA9"), out), 3);
    EXPECT_EQ(Text16(out), u"a\u00E9");
    EXPECT_EQ(KyMultiByteString2KyString(KyString(), out), 0);
    EXPECT_TRUE(out.IsEmpty());
    EXPECT_EQ(KyMultiByteString2KyString(Narrow("a\xC3"), out), -1);
    EXPECT_EQ(Text16(out), u"a");
}

TEST(MbsToString, FromItself) {
    KyString s = Narrow("a\xC3\xA9");
    s.LanguageSet(3);
    EXPECT_EQ(KyMultiByteString2KyString(s, s), 3);
    EXPECT_EQ(Text16(s), u"a\u00E9");
    EXPECT_EQ(s.LanguageGet(), 3);
    KyString t = Narrow("xa\xC3\xA9");
    EXPECT_EQ(KyMBS2KyString(t.StrGet() + 1, t, 3), 3);
    EXPECT_EQ(Text16(t), u"a\u00E9");
}

TEST(MbsToString, FromItselfAcrossBlocks) {
    std::string bytes;
    std::u16string units;
    for (int i = 0; i < 1000; ++i) {
        bytes += "a\xC3\xA9";
        units += u"a\u00E9";
    }
    KyString s = Narrow(bytes);
    EXPECT_EQ(KyMultiByteString2KyString(s, s), 3000);
    EXPECT_EQ(Text16(s), units);
}

TEST(MbsToString, Kept_Of16BitTextAsManyBytesAreReadAsItHasCharacters) {
    KyString out;
    const std::u16string units = {static_cast<char16_t>('a' | 'b' << 8), static_cast<char16_t>('c' | 'd' << 8)};
    EXPECT_EQ(KyMultiByteString2KyString(Wide(units), out), 2);
    EXPECT_EQ(Text16(out), u"ab");
}

TEST(Multibyte, RandomTextsComeBack) {
    std::mt19937 random(20260);
    for (int i = 0; i < 3000; ++i) {
        std::u16string units;
        const unsigned length = static_cast<unsigned>(random()) % 700;
        const unsigned bits = 7 + static_cast<unsigned>(random()) % 10;
        for (unsigned n = 0; n < length; ++n) {
            units += static_cast<char16_t>(1 + static_cast<unsigned>(random()) % ((1u << bits) - 1));
        }
        const std::string bytes = SlowUtf8(units);
        const int size = static_cast<int>(bytes.size());
        const KyString s = Wide(units);
        ASSERT_EQ(KyMBSLength(s, 0xFFFF), size);
        const Encoded encoded = Encode(s, size + 1);
        ASSERT_EQ(encoded.result, size);
        ASSERT_EQ(encoded.bytes, bytes + std::string(1, '\0'));
        const Made made = Make(s);
        ASSERT_EQ(made.result, size);
        ASSERT_EQ(std::string(made.text.get()), bytes);

        GuardedText in(bytes);
        KyString back;
        ASSERT_EQ(KyMBS2KyString(in.Get(), back, size), size);
        ASSERT_EQ(Text16(back), units);
        std::vector<unsigned short> out(length);
        ASSERT_EQ(KyMultiByteStr2WCharStr(out.data(), static_cast<int>(length), in.Get(), size),
                  static_cast<int>(length));
        ASSERT_TRUE(std::equal(out.begin(), out.end(), units.begin(), units.end()));
    }
}

TEST(Multibyte, RandomBytesAreReadToTheirFirstError) {
    std::mt19937 random(77);
    for (int i = 0; i < 20000; ++i) {
        std::string bytes;
        const unsigned length = static_cast<unsigned>(random()) % 24;
        while (bytes.size() < length) {
            const unsigned kind = static_cast<unsigned>(random()) % 8;
            bytes += kind == 0 ? std::string(1, static_cast<char>(random()))
                               : SlowUtf8(1 + static_cast<unsigned>(random()) % (kind < 4 ? 0x7F : 0xFFFF));
        }
        if (!bytes.empty() && random() % 4 == 0) bytes.pop_back();
        const int size = static_cast<int>(bytes.size());
        std::u16string units;
        int used = 0;
        int result = size;
        while (used < size) {
            unsigned short c = 0;
            const int taken = ky_mbtowc(&c, bytes.data() + used, static_cast<std::size_t>(size - used));
            if (taken < 0) result = -1;
            if (taken < 0 || c == 0) break;
            units += static_cast<char16_t>(c);
            used += taken;
        }
        if (result >= 0) result = used;
        GuardedText in(bytes);
        KyString out;
        ASSERT_EQ(KyMBS2KyString(in.Get(), out, size), result) << HexOf(bytes);
        ASSERT_EQ(Text16(out), units) << HexOf(bytes);
    }
}

TEST(Multibyte, PlaceholdersDoNothing) {
    char dst[] = "dst";
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{0, 1, 253, 255}) {
        EXPECT_EQ(KyMBStrCpy(codeSet, dst, "src"), nullptr);
        EXPECT_EQ(KyMBStrNCpy(codeSet, dst, "src", 2), nullptr);
        EXPECT_STREQ(dst, "dst");
        EXPECT_EQ(KyMBStrLen(codeSet, "text"), 0);
        EXPECT_EQ(KyMBStrCmp(codeSet, "a", "b"), 0);
        EXPECT_EQ(KyMBStrNCmp(codeSet, "a", "b", 1), 0);
        EXPECT_EQ(KyMBStrToI(codeSet, "1"), 0);
        EXPECT_EQ(KyMBStrToL(codeSet, "1"), 0);
        EXPECT_EQ(KyMBStrToLL(codeSet, "1"), 0);
        EXPECT_EQ(KyMBStrInc(codeSet, dst), nullptr);
        EXPECT_EQ(KyMBStrDec(codeSet, dst, dst + 1), nullptr);
        EXPECT_EQ(KyMBStrIdx(codeSet, dst, 's'), nullptr);
        EXPECT_EQ(KyMBStrNext(codeSet, dst), nullptr);
        EXPECT_EQ(KyMBStrPrev(codeSet, dst, dst + 1), nullptr);
    }
    EXPECT_EQ(KyMBStrCpy(0, nullptr, nullptr), nullptr);
}

}  // namespace
