#include "wildcard_compare.h"

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "key_reader.h"
#include "kystrcmp.h"
#include "kystring.h"
#include "oracle/slow_order_match.h"
#include "oracle/slow_wildcards.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

using ky::MatchPrefix;
using ky::PrefixMatch;

int Compare(const std::string& text, const std::string& pattern, unsigned short op = 0, short maxLen = -1) {
    return KyStrCmp(1, 0, text.c_str(), 1, 0, pattern.c_str(), op, maxLen, 1, nullptr);
}

int CompareBytes(const std::string& text, const std::string& pattern, short maxLen = -1) {
    return KyStrCmp(0, 0, text.c_str(), 0, 0, pattern.c_str(), 0, maxLen, 1, nullptr);
}

bool Matches(const std::string& text, const std::string& pattern, unsigned short op = 0) {
    return Compare(text, pattern, op) == 0;
}

PrefixMatch Prefix(const std::string& text, const std::string& pattern, unsigned short op = 0) {
    return MatchPrefix({text.c_str(), 1, 0, 1}, {pattern.c_str(), 1, 0, 1}, op);
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
        {"a*c", "a\\*c", true}, {"abc", "a\\*c", false}, {"a?", "a\\?", true}, {"ab", "a\\?", false},
        {"a\\", "a\\\\", true}, {"a\\b", "a\\b", false}, {"ab", "a\\b", true}, {"a", "a\\", false},
        {"a\\", "a\\", true},   {"ab", "*\\", false},    {"a\\", "*\\", true}, {"\\", "\\", true},
        {"x*y", "*\\**", true}, {"xy", "*\\**", false},  {"", "\\", false},    {"n", "\\n", true},
        {"\n", "\\n", false},
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
    const auto keyOf = [](const char* letter) {
        KyStringIterator it(letter, 1, 0, 1);
        const unsigned short order = it.GetNextOrder(1);
        return static_cast<int>(ky::OrderKey(order, it.OrderClass()));
    };
    EXPECT_EQ(Compare("ab", "abc*"), -keyOf("c")) << "the text ends first";
    EXPECT_EQ(Compare("ab", "a?c"), -keyOf("c"));
    EXPECT_EQ(Compare("ab", "ab?"), -keyOf("?"));
    EXPECT_EQ(Compare("abd", "a*c"), -1) << "what follows the run is nowhere";
    EXPECT_EQ(Compare("ab", "*ab?"), -1);
    EXPECT_EQ(Compare("abx", "*ab"), -1);
    EXPECT_EQ(Compare("abd", "abc*"), keyOf("d") - keyOf("c"));
    EXPECT_EQ(Compare("abb*", "abc*"), keyOf("b") - keyOf("c"));
    EXPECT_EQ(Compare("abc", "ab"), keyOf("c")) << "the pattern ends first";
    EXPECT_EQ(Compare("b", "a\\"), keyOf("b") - keyOf("a"));
    EXPECT_EQ(Compare("ab", "a\\"), keyOf("b") - keyOf("\\"));
    EXPECT_EQ(CompareBytes("ab", "abc*"), -1);
    EXPECT_EQ(CompareBytes("abd", "abc*"), 1);
    EXPECT_EQ(CompareBytes("abz", "ab"), 'z');
    EXPECT_EQ(CompareBytes("\xFF", "\x01"), 0xFE);
    EXPECT_EQ(CompareBytes("abd", "a*c"), -1);
}

TEST(Wildcards, ANullTextIsEmpty) {
    EXPECT_EQ(KyStrCmp(1, 0, nullptr, 1, 0, "*", 0, -1, 1, nullptr), 0);
    EXPECT_EQ(KyStrCmp(1, 0, nullptr, 1, 0, nullptr, 0, -1, 1, nullptr), 0);
    EXPECT_GT(KyStrCmp(1, 0, "a", 1, 0, nullptr, 0, -1, 1, nullptr), 0);
    EXPECT_LT(KyStrCmp(1, 0, nullptr, 1, 0, "?", 0, -1, 1, nullptr), 0);
    EXPECT_EQ(KyStrCmp(1, 254, "abc", 1, 0, "*", 0, -1, 1, nullptr), 0) << "null, and matches a pattern";
    EXPECT_EQ(KyStrCmp(0, 0, nullptr, 0, 0, "*", 0, -1, 1, nullptr), 0);
    EXPECT_EQ(KyStrCmp(0, 0, nullptr, 0, 0, "a", 0, -1, 1, nullptr), -1);
    EXPECT_EQ(KyStrCmp(0, 0, "a", 0, 0, nullptr, 0, -1, 1, nullptr), 'a');
}

TEST(Wildcards, ReadsNothingBehindTheTerminators) {
    for (const char* patternText : {"*", "*b", "*b*", "a*", "*?a", "*aaaa*", "*a\\", "a\\", "?"}) {
        const std::size_t patternSize = std::strlen(patternText) + 1;
        GuardedBuffer pattern(patternSize);
        std::memcpy(pattern.data(), patternText, patternSize);
        const char* const patternStart = reinterpret_cast<const char*>(pattern.data());
        for (std::size_t size = 1; size < 90; ++size) {
            GuardedBuffer text(size);
            std::memset(text.data(), 'a', size);
            text.data()[size - 1] = 0;
            const char* const start = reinterpret_cast<const char*>(text.data());
            const int expected = SlowCompareOrders(SlowOrdersOf(start, 1, 0, ~0u),
                                                   SlowOrdersOf(patternStart, 1, 0, ~0u), ~std::size_t{0});
            ASSERT_EQ(KyStrCmp(1, 0, start, 1, 0, patternStart, 0, -1, 1, nullptr), expected);
            ASSERT_EQ(KyStrCmp(0, 0, start, 0, 0, patternStart, 0, -1, 1, nullptr) == 0,
                      SlowMatch(start, patternStart, 0));
            // Without a terminator, up to a count.
            text.data()[size - 1] = 'a';
            KyStrCmp(0, 0, start, 0, 0, patternStart, 0, static_cast<short>(size), 1, nullptr);
            KyStrCmp(1, 0, start, 1, 0, patternStart, 0, static_cast<short>(size), 1, nullptr);
        }
    }
}

TEST(Wildcards, ACountLimitsTextAndPattern) {
    EXPECT_EQ(Compare("abX", "ab*c", 0, 2), 0);
    EXPECT_EQ(Compare("abX", "ab*c", 0, 3), -1) << "a run takes no order";
    EXPECT_EQ(Compare("abX", "ab*c", 0, 4), -1);
    EXPECT_EQ(Compare("abX", "a\\bc", 0, 2), 0) << "nor does an escape";
    EXPECT_LT(Compare("abX", "a\\bY", 0, 3), 0);
    EXPECT_EQ(CompareBytes("abX", "ab*c", 3), 0) << "but bytes are counted as they stand";
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
    EXPECT_EQ(Prefix("ab\\c", "ab\\"), PrefixMatch::yes) << "an escape at the end stands for itself";
    EXPECT_EQ(Prefix("xab\\c", "*ab\\"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("ab*", "ab\\"), PrefixMatch::no) << "and takes nothing from what follows";
    EXPECT_EQ(Prefix("abd", "b*c"), PrefixMatch::no) << "a later place has to be tried";
    EXPECT_EQ(Prefix("bd", "b*c"), PrefixMatch::never);
    EXPECT_EQ(Prefix("ABC", "ab", 0x20), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "a"), PrefixMatch::yes);
    EXPECT_EQ(Prefix("abc", "b*c"), PrefixMatch::no);
}

TEST(PrefixPattern, OfBytes) {
    EXPECT_EQ(MatchPrefix({"abc", 0, 0, 1}, {"a*", 0, 0, 1}, 0), PrefixMatch::yes);
    EXPECT_EQ(MatchPrefix({"abc", 0, 0, 1}, {"?b", 0, 0, 1}, 0), PrefixMatch::yes);
    EXPECT_EQ(MatchPrefix({"abc", 0, 0, 1}, {"b", 0, 0, 1}, 0), PrefixMatch::no);
    EXPECT_EQ(MatchPrefix({"abc", 0, 0, 1}, {"a*x", 0, 0, 1}, 0), PrefixMatch::never);
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

TEST(Wildcards, BytesAgreeWithTheSlowMatcher) {
    std::mt19937 random(4711);
    for (int round = 0; round < 200000 / kFewerCases; ++round) {
        const std::string text = Random(random, "aab\\", 9);
        const std::string pattern = Random(random, "aaab*?\\", 7);
        const int result = CompareBytes(text, pattern);
        ASSERT_EQ(result == 0, SlowMatch(text, pattern, 0)) << text << " / " << pattern;
        const auto limit = 1 + random() % 8;
        ASSERT_EQ(CompareBytes(text, pattern, static_cast<short>(limit)),
                  CompareBytes(text.substr(0, limit), pattern.substr(0, limit)));
    }
}

/// Results, not only matches, in a code set and a language.
void CheckOrders(std::mt19937& random, unsigned char codeSet, unsigned char language, const char* letters, int rounds) {
    const std::string patternLetters = std::string(letters).append("***??\\");
    for (int round = 0; round < rounds / kFewerCases; ++round) {
        const std::string text = Random(random, letters, 9);
        const std::string pattern = Random(random, patternLetters.c_str(), 7);
        const auto op = static_cast<unsigned short>(random() % 4 * 0x20);
        const auto limit = static_cast<short>(random() % 2 == 0 ? -1 : static_cast<int>(1 + random() % 9));
        const unsigned mask = ky::KeyMask(op);
        const std::vector<SlowOrder> textOrders = SlowOrdersOf(text.c_str(), codeSet, language, mask);
        const std::vector<SlowOrder> patternOrders = SlowOrdersOf(pattern.c_str(), codeSet, language, mask);
        const int expected = SlowCompareOrders(textOrders, patternOrders, ky::CompareLimit(limit));
        ASSERT_EQ(KyStrCmp(codeSet, language, text.c_str(), codeSet, language, pattern.c_str(), op, limit, 1, nullptr),
                  expected)
            << text << " / " << pattern << ' ' << limit << ' ' << op;
    }
}

TEST(Wildcards, AgreeWithTheSlowMatcher) {
    std::mt19937 random(4712);
    CheckOrders(random, 1, 0, "aab\\", 400000);
    CheckOrders(random, 1, 0, "aAb\xE4\xDFs", 300000);
    CheckOrders(random, 2, 0, "aAe\xE6\xC6s 1", 100000);
    for (unsigned char language = 1; language < 16; ++language) {
        CheckOrders(random, 1, language, "chlCaz", 20000);
        CheckOrders(random, 8, language, "dzsDZc", 20000);
    }
}

TEST(PrefixPattern, AgreesWithTheSlowMatcher) {
    std::mt19937 random(4713);
    for (int round = 0; round < 200000 / kFewerCases; ++round) {
        const std::string text = Random(random, "aab\\", 9);
        const std::string pattern = Random(random, "aaab*?\\", 7);
        const bool opens = Prefix(text, pattern) == PrefixMatch::yes;
        bool expected = false;
        const std::vector<SlowOrder> patternOrders = SlowOrdersOf(pattern.c_str(), 1, 0, ~0u);
        for (std::size_t n = 0; n <= text.size(); ++n) {
            const std::vector<SlowOrder> orders = SlowOrdersOf(text.substr(0, n).c_str(), 1, 0, ~0u);
            expected |= SlowCompareOrders(orders, patternOrders, ~std::size_t{0}) == 0;
        }
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
    const std::clock_t start = std::clock();
    for (const auto& [pattern, matches] : cases) {
        EXPECT_EQ(Matches(text, pattern), matches) << pattern.substr(0, 10);
        EXPECT_EQ(CompareBytes(text, pattern) == 0, matches) << pattern.substr(0, 10);
    }
    const KyString searched(text.c_str());
    EXPECT_EQ(searched.Find(KyString("a*b"), 0, 0), KyString::NotFound);
    // A quadratic way takes minutes of the processor's time.
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

}  // namespace
