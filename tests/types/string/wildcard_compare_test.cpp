#include "wildcard_compare.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <random>
#include <string>

#include "kystrcmp.h"
#include "kystring.h"
#include "oracle/slow_wildcards.h"

namespace {

using ky::MatchPrefix;
using ky::PrefixMatch;

int Compare(const std::string& text, const std::string& pattern, unsigned short op = 0, short maxLen = -1) {
    return KyStrCmp(1, 0, text.c_str(), 1, 0, pattern.c_str(), op, maxLen, 1, nullptr);
}

int CompareBytes(const std::string& text, const std::string& pattern) {
    return KyStrCmp(0, 0, text.c_str(), 0, 0, pattern.c_str(), 0, -1, 1, nullptr);
}

bool Matches(const std::string& text, const std::string& pattern, unsigned short op = 0) {
    return Compare(text, pattern, op) == 0;
}

PrefixMatch Prefix(const std::string& text, const std::string& pattern, unsigned short op = 0) {
    return MatchPrefix(1, 0, text.c_str(), 1, 0, pattern.c_str(), op);
}

/// Sets wildcard characters and puts the former ones back.
class WildcardSettings {
public:
    ~WildcardSettings() {
        KyString::_nAsterisk = asterisk;
        KyString::_nQuestion = question;
        KyString::_nEscape = escape;
    }

private:
    unsigned short asterisk = KyString::GetAsterisk();
    unsigned short question = KyString::GetQuestion();
    unsigned short escape = KyString::GetEscape();
};

TEST(Wildcards, Match) {
    const struct {
        const char* text;
        const char* pattern;
        bool matches;
    } cases[] = {
        {"", "", true},
        {"", "*", true},
        {"", "?", false},
        {"a", "", false},
        {"abc", "abc", true},
        {"abc", "a*c", true},
        {"ac", "a*c", true},
        {"abbbc", "a*c", true},
        {"abd", "a*c", false},
        {"abc", "a?c", true},
        {"ac", "a?c", false},
        {"abc", "*", true},
        {"abc", "***", true},
        {"abc", "*c", true},
        {"abc", "*b", false},
        {"abc", "*b*", true},
        {"abc", "???", true},
        {"abc", "??", false},
        {"abc", "????", false},
        {"abc", "?*", true},
        {"abc", "*?", true},
        {"abc", "*???", true},
        {"abc", "*????", false},
        {"abc", "*?*?*?*", true},
        {"abc", "*?*?*?*?*", false},
        {"aab", "*ab", true},
        {"ababc", "*abc", true},
        {"ababab", "*ab*ab*ab", true},
        {"abab", "*ab*ab*ab", false},
        {"abcabd", "*ab?", true},
        {"xayb", "*a?b", true},
        {"xaybz", "*a?b", false},
        {"abc", "abc*", true},
        {"ab", "abc*", false},
        {"abcabc", "a*bc", true},
        {"abcd", "a*b*c", false},
        {"A", "a", false},
        {"mississippi", "m*iss*ip*", true},
        {"mississippi", "*sip*sis*", false},
        {"aaaa", "*aaa*aa", false},
        {"aaaaa", "*aaa*aa", true},
    };
    for (const auto& [text, pattern, matches] : cases) {
        EXPECT_EQ(Matches(text, pattern), matches) << text << " / " << pattern;
        EXPECT_EQ(CompareBytes(text, pattern) == 0, matches) << text << " / " << pattern;
    }
}

TEST(Wildcards, EscapeMakesTheNextCharacterLiteral) {
    const struct {
        const char* text;
        const char* pattern;
        bool matches;
    } cases[] = {
        {"a*c", "a\\*c", true}, {"abc", "a\\*c", false}, {"a?", "a\\?", true},   {"ab", "a\\?", false},
        {"a\\", "a\\\\", true}, {"a\\b", "a\\b", false}, {"ab", "a\\b", true},   {"a", "a\\", false},
        {"a\\", "a\\", false},  {"ab", "*\\", false},    {"x*y", "*\\**", true}, {"xy", "*\\**", false},
        {"", "\\", false},      {"n", "\\n", true},      {"\n", "\\n", false},
    };
    for (const auto& [text, pattern, matches] : cases) {
        EXPECT_EQ(Matches(text, pattern), matches) << text << " / " << pattern;
    }
}

TEST(Wildcards, CaseAndAccentsAreMasked) {
    EXPECT_TRUE(Matches("ABCDE", "a*e", 0x20));
    EXPECT_FALSE(Matches("ABCDE", "a*e"));
    EXPECT_TRUE(Matches("\xC4xx\xE9", "a*E", 0x60));
    EXPECT_TRUE(Matches("\xC4xx\xE9", "A*e", 0x40));
    EXPECT_FALSE(Matches("\xC4xx\xE9", "a*e", 0x20));
}

TEST(Wildcards, AnExpansionIsSeveralElements) {
    EXPECT_TRUE(Matches("\xE6", "??"));
    EXPECT_FALSE(Matches("\xE6", "?"));
    EXPECT_TRUE(
        Matches("stra\xDF"
                "e",
                "*ss*", 0x40));
    EXPECT_TRUE(Matches("strasse", "*\xDF*", 0x40));
}

TEST(Wildcards, TheResultSaysHowTheyDiffer) {
    EXPECT_LT(Compare("ab", "abc*"), 0) << "the text ends first";
    EXPECT_LT(Compare("ab", "a?c"), 0);
    EXPECT_LT(Compare("abd", "a*c"), 0) << "what follows the run is nowhere";
    EXPECT_LT(Compare("abb*", "abc*"), 0);
    EXPECT_GT(Compare("abd", "abc*"), 0);
    EXPECT_GT(Compare("abc", "ab"), 0) << "the pattern ends first";
    EXPECT_EQ(Compare("abd", "abc*"), KyStrCmp(1, 0, "d", 1, 0, "c", 0x10, -1, 1, nullptr));
}

TEST(Wildcards, ACountLimitsTextAndPattern) {
    EXPECT_EQ(Compare("abX", "ab*c", 0, 2), 0);
    EXPECT_EQ(Compare("abX", "ab*c", 0, 3), 0);
    EXPECT_NE(Compare("abX", "ab*c", 0, 4), 0);
    EXPECT_NE(Compare("abX", "a*b", 0, 3), 0);
    EXPECT_EQ(Compare("abX", "*X", 0, 3), 0);
}

TEST(Wildcards, OtherCharactersCanStandForThem) {
    const WildcardSettings settings;
    KyString::SetAsterisk(KyChar('%', 1, 0));
    KyString::SetQuestion(KyChar('_', 1, 0));
    KyString::SetEscape(KyChar('!', 1, 0));
    EXPECT_TRUE(Matches("abc", "a%"));
    EXPECT_TRUE(Matches("abc", "a_c"));
    EXPECT_TRUE(Matches("a%", "a!%"));
    EXPECT_FALSE(Matches("abc", "a*"));
    EXPECT_TRUE(Matches("a*?\\", "a*?\\"));
    EXPECT_EQ(CompareBytes("abc", "a*"), 0) << "bytes keep theirs";
    EXPECT_NE(CompareBytes("abc", "a%"), 0);
}

TEST(Wildcards, ACharacterWithoutARecordCanStandForOne) {
    const WildcardSettings settings;
    KyString::SetAsterisk(KyChar(static_cast<unsigned short>(0x4E00), 253, 0));
    const unsigned short pattern[] = {'a', 0x4E00, 0};
    EXPECT_EQ(KyStrCmp(1, 0, "abc", 253, 0, reinterpret_cast<const char*>(pattern), 0, -1, 1, nullptr), 0);
}

TEST(PrefixPattern, MatchesABeginning) {
    EXPECT_EQ(Prefix("abc", "ab"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "abc"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "?b"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "a*c"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abcd", "a*c"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "*"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "b"), PrefixMatch::no);
    EXPECT_EQ(Prefix("ab", "abc"), PrefixMatch::no);
    EXPECT_EQ(Prefix("ab", "ab\\"), PrefixMatch::no);
    EXPECT_EQ(Prefix("abd", "b*c"), PrefixMatch::no) << "a later place has to be tried";
    EXPECT_EQ(Prefix("bd", "b*c"), PrefixMatch::never);
    EXPECT_EQ(Prefix("ABC", "ab", 0x20), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "a"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "b*c"), PrefixMatch::no);
}

TEST(PrefixPattern, OfBytes) {
    EXPECT_EQ(MatchPrefix(0, 0, "abc", 0, 0, "a*", 0), PrefixMatch::yes);
    EXPECT_EQ(MatchPrefix(0, 0, "abc", 0, 0, "?b", 0), PrefixMatch::yes);
    EXPECT_EQ(MatchPrefix(0, 0, "abc", 0, 0, "b", 0), PrefixMatch::no);
    EXPECT_EQ(MatchPrefix(0, 0, "abc", 0, 0, "a*x", 0), PrefixMatch::never);
}

TEST(PrefixPattern, DoesNotDependOnTheAsterisk) {
    const WildcardSettings settings;
    KyString::SetAsterisk(KyChar('%', 1, 0));
    EXPECT_EQ(Prefix("abc", "ab"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "a*"), PrefixMatch::no);
    EXPECT_EQ(Prefix("abc", "a%c"), PrefixMatch::yes);
}

std::string Random(std::mt19937& random, const char* letters, std::size_t longest) {
    std::string text;
    for (std::size_t n = random() % (longest + 1); n != 0; --n) text += letters[random() % std::strlen(letters)];
    return text;
}

TEST(Wildcards, AgreeWithTheSlowMatcher) {
    std::mt19937 random(4711);
    for (int round = 0; round < 100000; ++round) {
        const std::string text = Random(random, "aab", 9);
        const std::string pattern = Random(random, "aaab*?\\", 7);
        ASSERT_EQ(Matches(text, pattern), SlowMatch(text, pattern, '\\')) << text << " / " << pattern;
        ASSERT_EQ(CompareBytes(text, pattern) == 0, SlowMatch(text, pattern, 0)) << text << " / " << pattern;
        const bool opens = Prefix(text, pattern) == PrefixMatch::yes;
        bool expected = false;
        for (std::size_t n = 0; n <= text.size(); ++n) expected |= SlowMatch(text.substr(0, n), pattern, '\\');
        ASSERT_EQ(opens, expected) << text << " / " << pattern;
        if (Prefix(text, pattern) == PrefixMatch::never) {
            for (std::size_t at = 0; at <= text.size(); ++at) {
                ASSERT_NE(Prefix(text.substr(at), pattern), PrefixMatch::yes) << text << " / " << pattern << ' ' << at;
            }
        }
    }
}

TEST(Wildcards, LongTextsTakeLinearTime) {
    const std::string text(60000, 'a');
    const struct {
        std::string pattern;
        bool matches;
    } cases[] = {
        {std::string("*").append(30000, 'a').append("b"), false},
        {std::string("*").append(30000, 'a').append("b*"), false},
        {std::string("*").append(30000, 'a').append("*").append(30000, 'a'), true},
        {std::string("*").append(30000, '?').append("*").append(30001, '?'), false},
        {std::string("*").append(60000, '?'), true},
        {"*a*a*a*a*a*a*a*a*a*a*a*a*b", false},
        {"*a*a*a*a*a*a*a*a*a*a*a*a*b*", false},
        {std::string(60000, '*'), true},
    };
    const auto start = std::chrono::steady_clock::now();
    for (const auto& [pattern, matches] : cases) {
        EXPECT_EQ(Matches(text, pattern), matches) << pattern.substr(0, 10);
        EXPECT_EQ(CompareBytes(text, pattern) == 0, matches) << pattern.substr(0, 10);
    }
    const KyString searched(text.c_str());
    EXPECT_EQ(searched.Find(KyString("a*b"), 0, 0), KyString::NotFound);
    // A quadratic way takes minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
