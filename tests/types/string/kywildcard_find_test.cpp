#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>

#include "kystring.h"
#include "kywildcard.h"
#include "support/guarded_buffer.h"

namespace {

struct Found {
    int index;
    int bytePos;
    bool operator==(const Found&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Found& found) {
    return out << '{' << found.index << ", " << found.bytePos << '}';
}

constexpr Found kNone{-1, -1};

Found FindWild(int codeSet, std::string text, int questionIsLiteral, int maxChars, int format = 255, int language = 0) {
    short bytePos = 99;
    const int index = KyStrWild(static_cast<unsigned char>(codeSet), static_cast<unsigned char>(language), text.data(),
                                static_cast<unsigned short>(questionIsLiteral), static_cast<short>(maxChars), &bytePos,
                                static_cast<unsigned char>(format));
    return {index, bytePos};
}

std::string Wide(const std::string& text, bool swapped) {
    std::string wide;
    for (const char c : text + '\0') {
        if (swapped) wide += '\0';
        wide += c;
        if (!swapped) wide += '\0';
    }
    return wide;
}

TEST(KyStrWild, FirstWildcardInEightBitText) {
    for (const int codeSet : {0, 1, 2, 3}) {
        EXPECT_EQ(FindWild(codeSet, "ab*c", 0, 4), (Found{2, 2})) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "a?b*", 0, 4), (Found{1, 1})) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "a?b*", 1, 4), (Found{3, 3})) << "the question mark is a character";
        EXPECT_EQ(FindWild(codeSet, "*", 0, 1), (Found{0, 0})) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "?", 0, 1), (Found{0, 0})) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "?", 1, 1), kNone) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "ab*c", 0, 2), kNone) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "ab*c", 0, 3), (Found{2, 2})) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "*", 0, 0), kNone) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "", 0, 10), kNone) << codeSet;
        EXPECT_EQ(FindWild(codeSet, "abc", 0, 100), kNone) << codeSet;
        EXPECT_EQ(FindWild(codeSet, std::string("ab\0*", 4), 0, 4), kNone) << "behind the terminator";
    }
}

TEST(KyStrWild, SixteenBitTextOfBothByteOrders) {
    EXPECT_EQ(FindWild(253, Wide("ab*c", false), 0, 4, 1), (Found{2, 4}));
    EXPECT_EQ(FindWild(253, Wide("ab*c", false), 0, 4, 255), (Found{2, 4}));
    EXPECT_EQ(FindWild(253, Wide("ab*c", true), 0, 4, 2), (Found{2, 4}));
    EXPECT_EQ(FindWild(253, Wide("?b*c", true), 1, 4, 2), (Found{2, 4}));
    EXPECT_EQ(FindWild(253, Wide("?b*c", true), 0, 4, 2), (Found{0, 0}));
    EXPECT_EQ(FindWild(253, Wide("ab*c", true), 0, 4, 1), kNone) << "another text in the wrong order";
    EXPECT_EQ(FindWild(253, Wide("abc", false), 0, 4, 1), kNone);
}

TEST(KyStrWild, AtAnOddAddress) {
    const std::string text = std::string("x").append(Wide("ab*", false));
    short bytePos = 0;
    EXPECT_EQ(KyStrWild(253, 0, const_cast<char*>(text.data()) + 1, 0, 3, &bytePos, 1), 2);
    EXPECT_EQ(bytePos, 4);
}

TEST(KyStrWild, Kept_CountsAboveTheRangeOfAShortFindNothing) {
    EXPECT_EQ(FindWild(0, "*", 0, 40000), kNone);
    EXPECT_EQ(FindWild(1, "*", 0, 40000), kNone);
    EXPECT_EQ(FindWild(1, "*", 0, -1), kNone);
}

TEST(KyStrWild, Kept_KnowsNoEscapes) {
    std::string pattern = "a\\*b";
    EXPECT_EQ(FindWild(1, pattern, 0, 4), (Found{2, 2}));
    EXPECT_EQ(FindWild(0, pattern, 0, 4), (Found{2, 2}));
    EXPECT_EQ(strwc(pattern.data()), 1);
}

TEST(KyStrWild, AnExpansionIsOneCharacter) {
    EXPECT_EQ(FindWild(1, "\xE6\xDF*", 0, 3), (Found{2, 2}));
    EXPECT_EQ(FindWild(1, "\xE6\xDF*", 0, 2), kNone);
}

TEST(KyStrWild, AContractionIsAsManyCharactersAsItTakes) {
    const unsigned char spanish = 4;
    EXPECT_EQ(FindWild(1, "ch*", 0, 3, 255, spanish), (Found{2, 2}));
    EXPECT_EQ(FindWild(1, "ch*", 0, 2, 255, spanish), kNone);
    EXPECT_EQ(FindWild(253, Wide("chch?", false), 0, 5, 1, spanish), (Found{4, 8}));
    EXPECT_EQ(FindWild(1, "c*", 0, 2, 255, spanish), (Found{1, 1})) << "one that does not come about";
    EXPECT_EQ(FindWild(1, "c", 0, 9, 255, spanish), kNone) << "one that the text ends in";
}

TEST(KyStrWild, UnknownCodeSetsAndLanguages) {
    for (const int language : {0, 99, 253, 254, 255}) {
        for (const int codeSet : {27, 99, 224}) {
            EXPECT_EQ(FindWild(codeSet, "a\xE4*", 0, 9, 255, language), (Found{2, 2})) << codeSet << ' ' << language;
        }
        for (const int codeSet : {225, 240, 255}) {
            EXPECT_EQ(FindWild(codeSet, Wide("ab*", false), 0, 9, 255, language), (Found{2, 4}))
                << codeSet << ' ' << language;
        }
    }
}

TEST(KyStrWild, UpToTheLargestCount) {
    const std::string text(32766, 'a');
    for (const int codeSet : {0, 1}) {
        EXPECT_EQ(FindWild(codeSet, text + "*", 0, 32767), (Found{32766, 32766}));
        EXPECT_EQ(FindWild(codeSet, text + "a*", 0, 32767), kNone);
    }
}

TEST(KyStrWild, Kept_ABytePositionAboveTheRangeOfAShortWraps) {
    EXPECT_EQ(FindWild(253, Wide(std::string(16383, 'a') + "*", false), 0, 32767), (Found{16383, 32766}));
    EXPECT_EQ(FindWild(253, Wide(std::string(16384, 'a') + "*", false), 0, 32767), (Found{16384, -32768}));
    EXPECT_EQ(FindWild(253, Wide(std::string(32766, 'a') + "*", false), 0, 32767), (Found{32766, -4}));
}

TEST(KyStrWild, NullText) {
    short bytePos = 7;
    EXPECT_EQ(KyStrWild(0, 0, nullptr, 0, 10, &bytePos, 255), -1);
    EXPECT_EQ(bytePos, -1);
    EXPECT_EQ(KyStrWild(1, 0, nullptr, 0, 10, nullptr, 255), -1);
    char text[] = "a*";
    EXPECT_EQ(KyStrWild(1, 0, text, 0, 10, nullptr, 255), 1) << "the byte position may be left out";
}

TEST(KyStrWild, UsesTheSettingsExceptInPlainBytes) {
    const unsigned short asterisk = KyString::GetAsterisk();
    const unsigned short question = KyString::GetQuestion();
    KyString::SetAsterisk(KyChar('%', 1, 0));
    KyString::SetQuestion(KyChar('s', 1, 0));
    EXPECT_EQ(FindWild(1, "*a%", 0, 3), (Found{2, 2}));
    EXPECT_EQ(FindWild(0, "%a*", 0, 3), (Found{2, 2}));
    EXPECT_EQ(FindWild(1, "as", 0, 3), (Found{1, 1}));
    EXPECT_EQ(FindWild(1, "as", 1, 3), kNone);
    KyString::_nAsterisk = asterisk;
    KyString::_nQuestion = question;
}

TEST(KyStrWild, ReadsNothingBehindTheTerminator) {
    for (const auto codeSet : std::initializer_list<unsigned char>{0, 1, 253}) {
        const std::size_t width = codeSet == 253 ? 2 : 1;
        for (std::size_t length = 0; length < 40; ++length) {
            GuardedBuffer buffer((length + 1) * width);
            std::memset(buffer.data(), 0x61, length * width);
            std::memset(buffer.data() + length * width, 0, width);
            EXPECT_EQ(KyStrWild(codeSet, 0, reinterpret_cast<char*>(buffer.data()), 0, 32767, nullptr, 1), -1);
        }
    }
}

}  // namespace
