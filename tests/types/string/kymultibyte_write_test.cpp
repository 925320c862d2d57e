#include "kymultibyte.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "kyi18n.h"
#include "kystring.h"
#include "multibyte_texts.h"
#include "oracle/slow_utf8.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

// --- KyMBSLength ---

TEST(MbsLength, OfTheFirstCharacters) {
    const KyString wide = Wide(u"a\u00E9\u20ACb");
    const struct {
        unsigned short maxChars;
        int bytes;
    } cases[] = {{0, 0}, {1, 1}, {2, 3}, {3, 6}, {4, 7}, {5, 7}, {0xFFFF, 7}};
    for (const auto& [maxChars, bytes] : cases) EXPECT_EQ(KyMBSLength(wide, maxChars), bytes) << maxChars;

    const KyString latin = WithCodeSet(
        "a\xE9"
        "bc",
        KyCodeSetLatin1);
    EXPECT_EQ(KyMBSLength(latin, 2), 3) << "a byte of 0x80 or more: the characters are counted";
    EXPECT_EQ(KyMBSLength(latin, 0xFFFF), 5);
    EXPECT_EQ(KyMBSLength(WithCodeSet("\x80", KyCodeSetWindows1252), 9), 3) << "the euro";
    EXPECT_EQ(KyMBSLength(WithCodeSet("\xE9", KyCodeSetNative), 9), 2);
}

TEST(MbsLength, Kept_AsciiOfTheFirstCodeSetsIsCountedWhole) {
    for (unsigned char codeSet = 0; codeSet <= 5; ++codeSet) {
        EXPECT_EQ(KyMBSLength(WithCodeSet("abcdef", codeSet), 3), 6) << int{codeSet};
        EXPECT_EQ(KyMBSLength(WithCodeSet("abcdef", codeSet), 0), 0) << int{codeSet};
    }
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{6, 26, 27, 224}) {
        EXPECT_EQ(KyMBSLength(WithCodeSet("abcdef", codeSet), 3), 3) << int{codeSet};
    }
    EXPECT_EQ(KyMBSLength(Wide(u"abcdef"), 3), 3);
}

TEST(MbsLength, OfNothing) {
    EXPECT_EQ(KyMBSLength(KyString(), 9), 0);
    EXPECT_EQ(KyMBSLength(KyString(KyCodeSetUnicode, 0), 9), 0);
    EXPECT_EQ(KyMBSLength(KyString(26, 0), 9), 0);
    KyString null;
    null.SetNullValue();
    EXPECT_EQ(KyMBSLength(null, 9), 0);
}

TEST(MbsLength, OfTheLongestText) {
    EXPECT_EQ(KyMBSLength(Wide(std::u16string(32765, u'\u20AC')), 0xFFFF), 3 * 32765);
    EXPECT_EQ(KyMBSLength(WithCodeSet(std::string(65531, 'a'), 1), 1), 65531);
}

// --- KyString2KyMBS ---

TEST(StringToMbs, AsciiNeedsOneByteMoreThanItsLength) {
    const std::string text = "abcdefghij";
    for (unsigned char codeSet = 0; codeSet <= 26; ++codeSet) {
        const KyString s = WithCodeSet(text, codeSet);
        for (const int size : {0, 1, 4, 9, 10}) {
            const Encoded got = Encode(s, size);
            EXPECT_EQ(got.result, -10) << int{codeSet} << ' ' << size;
            EXPECT_EQ(got.bytes, text.substr(0, static_cast<std::size_t>(size))) << int{codeSet} << ' ' << size;
        }
        EXPECT_EQ(Encode(s, 11).result, 10) << int{codeSet};
        EXPECT_EQ(Encode(s, 11).bytes, text + std::string(1, '\0'));
        EXPECT_EQ(Encode(s, 14).bytes, text + std::string(4, '\0')) << "the rest is cleared";
    }
    EXPECT_EQ(KyString2KyMBS(Narrow(text), nullptr, 20), -10);
    char untouched = 'u';
    EXPECT_EQ(KyString2KyMBS(Narrow(text), &untouched, -1), -10);
    EXPECT_EQ(untouched, 'u');
}

TEST(StringToMbs, Kept_MappedTextFitsExactlyWithoutTerminator) {
    const std::string bytes = "a\xC3\xA9\xE2\x82\xAC";
    const KyString s = Wide(u"a\u00E9\u20AC");
    const struct {
        int size;
        int result;
        std::string written;
    } cases[] = {
        {0, 0, ""},
        {1, -1, "a"},
        {2, -1, "a"},
        {3, -3, "a\xC3\xA9"},
        {5, -3, "a\xC3\xA9"},
        {6, 6, bytes},
        {7, 6, bytes + std::string(1, '\0')},
        {9, 6, bytes + std::string(1, '\0')},
    };
    for (const auto& [size, result, written] : cases) {
        const Encoded got = Encode(s, size);
        EXPECT_EQ(got.result, result) << size;
        EXPECT_EQ(HexOf(got.bytes),
                  HexOf(written + std::string(static_cast<std::size_t>(size) - written.size(), '\xEE')))
            << "nothing behind the text is cleared, " << size;
    }
}

TEST(StringToMbs, OtherCodeSetsAreMapped) {
    EXPECT_EQ(Encode(WithCodeSet("abcdefghij", 26), 4).result, -10);
    EXPECT_EQ(Encode(WithCodeSet("abcdefghij", 27), 4).result, -4) << "not among the ASCII ones";
    EXPECT_EQ(Encode(WithCodeSet("abcd", 27), 4).result, 4);
    EXPECT_EQ(Encode(Wide(u"abcdefghij"), 4).result, -4);
    const Encoded latin = Encode(WithCodeSet("abc\xE9", KyCodeSetLatin1), 5);
    EXPECT_EQ(latin.result, 5);
    EXPECT_EQ(latin.bytes, "abc\xC3\xA9");
    EXPECT_EQ(Encode(WithCodeSet("abcdefgh\xE9", KyCodeSetLatin1), 4).result, -4) << "a high byte behind the buffer";
    EXPECT_EQ(Encode(WithCodeSet("\x80", KyCodeSetWindows1252), 3).bytes, "\xE2\x82\xAC");
    EXPECT_EQ(Encode(WithCodeSet("\xE9", KyCodeSetNative), 2).bytes, "\xC3\xA9");
    EXPECT_EQ(Encode(Wide(u"\u007E\u007F\u0080"), 4).bytes, "\x7E\x7F\xC2\x80");
}

TEST(StringToMbs, EmptyText) {
    const KyString empty8(KyCodeSetLatin1, 0);
    const KyString empty16(KyCodeSetUnicode, 0);
    EXPECT_EQ(Encode(empty8, 0).result, 0);
    EXPECT_EQ(Encode(empty16, 0).result, 0);
    EXPECT_EQ(Encode(empty8, 3).bytes, std::string(3, '\0'));
    EXPECT_EQ(Encode(empty16, 3).bytes, std::string("\0\xEE\xEE", 3));
    EXPECT_EQ(Encode(empty16, 3).result, 0);
    EXPECT_EQ(Encode(KyString(27, 0), 3).bytes, std::string("\0\xEE\xEE", 3));
}

// --- KyString2MultiByteString ---

TEST(StringToNewText, OfEveryLength) {
    for (const unsigned length : {1u, 2u, 1000u, 2046u, 2047u, 2048u, 2049u, 32765u}) {
        for (const char16_t c : {u'a', u'\u00E9', u'\u20AC'}) {
            const std::u16string units(length, c);
            const std::string bytes = SlowUtf8(units);
            const Made made = Make(Wide(units));
            ASSERT_EQ(made.result, static_cast<int>(std::min<std::size_t>(bytes.size(), 65531))) << length;
            EXPECT_EQ(made.size, made.result + 1);
            EXPECT_EQ(std::string(made.text.get()), bytes.substr(0, 65531)) << length;
        }
        const std::string ascii(length, 'x');
        const Made made = Make(WithCodeSet(ascii, KyCodeSetAscii), 100);
        EXPECT_EQ(made.result, static_cast<int>(length)) << "a size without a buffer is none";
        EXPECT_EQ(made.size, static_cast<int>(length) + 1);
        EXPECT_EQ(std::string(made.text.get()), ascii);
    }
    EXPECT_EQ(Make(WithCodeSet("a\xE9", KyCodeSetLatin1)).result, 3);
}

TEST(StringToNewText, Kept_HoldsNoMoreThanAString) {
    const KyString s = Wide(std::u16string(32765, u'\u20AC'));
    const OverflowSwitch on(1);
    const Made made = Make(s);
    EXPECT_EQ(made.result, 65531);
    EXPECT_EQ(made.size, 65532);
    EXPECT_EQ(OverflowSwitch::Raised(), std::vector<std::string>{"String overflow|src/kystring|1110"});
    EXPECT_EQ(Encode(s, 3 * 32765).result, 3 * 32765) << "a buffer of the caller's takes all of it";
}

TEST(StringToNewText, OfEmptyText) {
    for (const KyString& s : {KyString(), KyString(KyCodeSetUnicode, 0), KyString(27, 0)}) {
        const Made made = Make(s);
        EXPECT_EQ(made.result, 0);
        EXPECT_EQ(made.size, 1);
        ASSERT_NE(made.text, nullptr);
        EXPECT_EQ(made.text[0], 0);
    }
}

TEST(StringToNewText, ABufferWithoutSizeIsNone) {
    for (const int size : {0, -1}) {
        char own[] = "own";
        char* out = own;
        int outSize = size;
        EXPECT_EQ(KyString2MultiByteString(Narrow("abc"), out, outSize), 3);
        const std::unique_ptr<char[]> made(out);
        EXPECT_NE(out, own);
        EXPECT_EQ(outSize, 4);
        EXPECT_STREQ(own, "own");
    }
}

TEST(StringToGivenText, ReportsTheSizeWithoutTerminator) {
    const struct {
        KyString s;
        int size;
        int result;
        int sizeAfter;
        std::string text;
    } cases[] = {
        {Narrow("abc"), 4, 3, 4, std::string("abc\0", 4)},
        {Narrow("abc"), 6, 3, 6, std::string("abc\0\0\0", 6)},
        {Narrow("abc"), 3, -1, 3, "abc"},
        {Narrow("abc"), 1, -1, 3, "a"},
        {Wide(u"a\u00E9"), 4, 3, 4, std::string("a\xC3\xA9\0", 4)},
        {Wide(u"a\u00E9"), 3, 3, 3, "a\xC3\xA9"},
        {Wide(u"a\u00E9"), 2, -1, 3, "a\xEE"},
        {Wide(u"\u20AC"), 1, -1, 3, "\xEE"},
        {KyString(KyCodeSetUnicode, 0), 2, 0, 2, std::string("\0\xEE", 2)},
        {KyString(KyCodeSetLatin1, 0), 2, 0, 2, std::string("\0\0", 2)},
    };
    for (const auto& [s, size, result, sizeAfter, text] : cases) {
        GuardedBuffer memory(static_cast<std::size_t>(size));
        std::fill_n(memory.data(), size, static_cast<unsigned char>(0xEE));
        char* const given = reinterpret_cast<char*>(memory.data());
        char* out = given;
        int outSize = size;
        EXPECT_EQ(KyString2MultiByteString(s, out, outSize), result) << HexOf(text);
        EXPECT_EQ(out, given);
        EXPECT_EQ(outSize, sizeAfter) << HexOf(text);
        EXPECT_EQ(Hex(given, static_cast<std::size_t>(size)), HexOf(text));
    }
}

}  // namespace
