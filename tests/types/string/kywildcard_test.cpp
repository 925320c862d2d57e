#include "kywildcard.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "kystring.h"
#include "oracle/slow_strwild.h"
#include "oracle/slow_wildcards.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

int Wild(std::string pattern, std::string text) { return strwild(pattern.data(), text.data()); }
int IWild(std::string pattern, std::string text, int patternMode, int textMode) {
    return istrwild(pattern.data(), text.data(), static_cast<unsigned char>(patternMode),
                    static_cast<unsigned char>(textMode));
}
int CaseWild(std::string pattern, std::string text, int patternMode, int textMode) {
    return caseistrwild(pattern.data(), text.data(), static_cast<unsigned char>(patternMode),
                        static_cast<unsigned char>(textMode));
}

std::string Random(std::mt19937& random, const std::string& letters, std::size_t longest) {
    std::string text;
    for (std::size_t n = random() % (longest + 1); n != 0; --n) text += letters[random() % letters.size()];
    return text;
}

constexpr unsigned char kModes[] = {0x00, 0x40, 0x80, 0xC0};

// --- strwc ---

TEST(Strwc, FirstWildcardOrEscape) {
    const struct {
        const char* pattern;
        int expected;
    } cases[] = {
        {"*abc", 0}, {"?", 0},    {"\\", 0},    {"abc*", 3}, {"ab?*", 2},
        {"a\\*", 1}, {"abc", -1}, {"\x2B", -1}, {"", -1},    {"\xAA\xBF\xDC", -1},
    };
    for (const auto& [text, expected] : cases) {
        std::string pattern = text;
        EXPECT_EQ(strwc(pattern.data()), expected) << text;
        for (const unsigned char mode : kModes) {
            EXPECT_EQ(istrwc(pattern.data(), mode), expected) << text;
            EXPECT_EQ(caseistrwc(pattern.data(), mode), expected) << text;
        }
    }
    EXPECT_EQ(strwc(nullptr), -1);
    EXPECT_EQ(istrwc(nullptr, 0), -1);
    EXPECT_EQ(caseistrwc(nullptr, 0), -1);
}

TEST(Strwc, ReadsUpToTheTerminatorOnly) {
    for (std::size_t size = 1; size < 80; ++size) {
        GuardedBuffer buffer(size);
        std::memset(buffer.data(), 'a', size - 1);
        auto* text = reinterpret_cast<char*>(buffer.data());
        EXPECT_EQ(strwc(text), -1);
        if (size == 1) continue;
        text[size - 2] = '?';
        EXPECT_EQ(strwc(text), static_cast<int>(size - 2));
    }
}

// --- strwild ---

TEST(Strwild, Matches) {
    const struct {
        const char *pattern, *text;
        int expected;
    } cases[] = {
        {"a*c", "abc", 1},
        {"a*c", "ac", 1},
        {"a*c", "abbbc", 1},
        {"a*c", "abd", 0},
        {"a?c", "ac", 0},
        {"a?c", "abc", 1},
        {"", "", 1},
        {"", "a", 0},
        {"a", "", 0},
        {"?", "", 0},
        {"*", "", 1},
        {"**", "", 1},
        {"*?", "", 0},
        {"?*", "a", 1},
        {"*", "anything", 1},
        {"a", "A", 0},
        {"*ab", "aab", 1},
        {"*abc", "ababc", 1},
        {"*ab*ab*ab", "ababab", 1},
        {"*ab*ab*ab", "abab", 0},
        {"*aaa*aa", "aaaa", 0},
        {"*aaa*aa", "aaaaa", 1},
        {"m*iss*ip*", "mississippi", 1},
        {"*sip*sis*", "mississippi", 0},
        {"*?a?*", "xay", 1},
        {"*?a?*", "xa", 0},
        {"a*b?", "aabbb", 1},
        {"\xE4*", "\xE4x", 1},
        {"?", "\xFF", 1},
        {"*\xFF", "\x80\xFF", 1},
    };
    for (const auto& c : cases) EXPECT_EQ(Wild(c.pattern, c.text), c.expected) << c.pattern << " / " << c.text;
}

TEST(Strwild, Escapes) {
    const struct {
        const char *pattern, *text;
        int expected;
    } cases[] = {
        {"a\\*c", "a*c", 1},     {"a\\*c", "abc", 0}, {"\\?", "?", 1},      {"\\?", "a", 0},      {"\\\\", "\\", 1},
        {"\\a", "a", 1},         {"\\n", "\n", 1},    {"\\n", "n", 0},      {"\\r", "\r", 1},     {"\\t", "\t", 1},
        {"\\N\\R\\T", "NRT", 1}, {"\\N", "\n", 0},    {"*\\n*", "x\ny", 1}, {"*\\**", "x*y", 1},  {"*\\**", "xy", 0},
        {"*\\?", "a?", 1},       {"*\\?", "ab", 0},   {"*?\\?", "a?", 1},   {"*\\?\\*", "?*", 1}, {"*\\?x", "ax", 0},
    };
    for (const auto& c : cases) EXPECT_EQ(Wild(c.pattern, c.text), c.expected) << c.pattern << " / " << c.text;
}

TEST(Strwild, Kept_ABackslashAtTheEndMatchesNothing) {
    EXPECT_EQ(Wild("\\", ""), 0);
    EXPECT_EQ(Wild("\\", "\\"), 0);
    EXPECT_EQ(Wild("a\\", "a"), 0);
    EXPECT_EQ(Wild("a\\", "a\\"), 0);
    EXPECT_EQ(Wild("*\\", "a\\"), 0);
    EXPECT_EQ(Wild("*a*\\", "a\\"), 0);
    EXPECT_EQ(Wild("\\\\", "\\"), 1);
}

TEST(Strwild, Kept_OnlySmallLettersAreSpecialBehindABackslash) {
    for (int c = 1; c < 256; ++c) {
        const char letter = static_cast<char>(c);
        const char expected = letter == 'n' ? '\n' : letter == 'r' ? '\r' : letter == 't' ? '\t' : letter;
        EXPECT_EQ(Wild(std::string("\\") + letter, std::string(1, expected)), 1) << c;
    }
}

TEST(Strwild, NullIsEmpty) {
    char empty[] = "";
    char run[] = "*";
    char letter[] = "a";
    EXPECT_EQ(strwild(nullptr, nullptr), 1);
    EXPECT_EQ(strwild(nullptr, empty), 1);
    EXPECT_EQ(strwild(nullptr, letter), 0);
    EXPECT_EQ(strwild(run, nullptr), 1);
    EXPECT_EQ(strwild(letter, nullptr), 0);
    EXPECT_EQ(istrwild(nullptr, nullptr, 0, 0), 1);
    EXPECT_EQ(istrwild(letter, nullptr, 0, 0), 0);
    EXPECT_EQ(caseistrwild(nullptr, nullptr, 0, 0), 1);
    EXPECT_EQ(caseistrwild(run, nullptr, 0, 0x40), 1);
    EXPECT_EQ(caseistrwild(nullptr, letter, 0, 0), 0);
    char ligature[] = "\xDF";
    EXPECT_EQ(caseistrwild(ligature, nullptr, 0x40, 0x40), 0);
}

TEST(Strwild, AgreesWithTheSlowMatchers) {
    std::mt19937 random(20);
    for (int round = 0; round < 1500000 / kFewerCases; ++round) {
        const std::string pattern = Random(random, "aaab*?\\n", 8);
        const std::string text = Random(random, "aab\\\n", 10);
        const int expected = SlowWild(pattern, text, PlainMode(), PlainMode());
        ASSERT_EQ(Wild(pattern, text), expected) << pattern << " / " << text;
        if (pattern.find('n') == std::string::npos) {
            ASSERT_EQ(SlowMatch(text, pattern, '\\') ? 1 : 0, expected) << pattern << " / " << text;
        }
    }
}

TEST(Strwild, AgreesOnLongTexts) {
    std::mt19937 random(21);
    for (int round = 0; round < 60000 / kFewerCases; ++round) {
        const std::string text = Random(random, round % 2 == 0 ? "ab" : "aaaaaaaaab", 300);
        std::string pattern;
        for (std::size_t at = 0; at < text.size(); ++at) {
            const auto step = random() % 40;
            if (step == 0) {
                pattern += '*';
                at += random() % 60;
            } else if (step == 1) {
                pattern += '?';
            } else if (step == 2) {
                pattern += '\\';
                pattern += text[at];
            } else {
                pattern += text[at];
            }
        }
        if (random() % 3 == 0) pattern += 'a';
        ASSERT_EQ(Wild(pattern, text), SlowWild(pattern, text, PlainMode(), PlainMode())) << pattern << " / " << text;
    }
}

TEST(Strwild, ReadsNothingBehindTheTerminators) {
    const char* patterns[] = {"",        "*",          "a",      "a*",    "*a",   "*a*", "*b",    "*b*",
                              "?*",      "*?",         "*a*a*b", "*aa?a", "a\\",  "*\\", "*a\\*", "*?????*",
                              "a*aaaa*", "*aaaaaaaa*", "b*",     "**",    "*ab*", "???", "*?a*?", "*a?b*\\n"};
    for (const char* patternText : patterns) {
        const std::string p = patternText;
        GuardedBuffer pattern(p.size() + 1);
        std::memcpy(pattern.data(), p.c_str(), p.size() + 1);
        for (std::size_t size = 1; size < 200; ++size) {
            GuardedBuffer text(size);
            std::memset(text.data(), 'a', size);
            text.data()[size - 1] = 0;
            auto* patternStart = reinterpret_cast<char*>(pattern.data());
            auto* textStart = reinterpret_cast<char*>(text.data());
            const int expected = SlowWild(p, textStart, PlainMode(), PlainMode());
            ASSERT_EQ(strwild(patternStart, textStart), expected) << p << ' ' << size;
            ASSERT_EQ(istrwild(patternStart, textStart, 0, 0), expected) << p << ' ' << size;
            ASSERT_EQ(caseistrwild(patternStart, textStart, 0, 0), expected) << p << ' ' << size;
        }
    }
}

TEST(Strwild, LongPatternsAndWorstCases) {
    const std::string text(60000, 'a');
    const struct {
        std::string pattern;
        int expected;
    } cases[] = {
        {std::string(60000, '*'), 1},
        {std::string(60000, '*') + "b", 0},
        {"*" + std::string(30000, 'a') + "b" + std::string(20000, 'a') + "*", 0},
        {"*" + std::string(30000, 'a') + "*" + std::string(30000, 'a'), 1},
        {"*" + std::string(30000, '?') + "*" + std::string(30001, '?'), 0},
        {"*a?" + std::string(10000, 'a') + "b?*", 0},
        {"*a*a*a*a*a*a*a*a*a*a*a*a*b", 0},
        {"*a*a*a*a*a*a*a*a*a*a*a*a*b*", 0},
        {std::string(60000, '?'), 1},
        {std::string(60001, '?'), 0},
        {std::string(60000, 'a'), 1},
    };
    std::string many;
    for (int i = 0; i < 5000; ++i) many += "*a?";
    EXPECT_EQ(Wild(many, text), 1);
    EXPECT_EQ(Wild(many + "b", text), 0);
    EXPECT_EQ(CaseWild(many, text, 0, 0), 1);
    for (const auto& [pattern, expected] : cases) {
        EXPECT_EQ(Wild(pattern, text), expected) << pattern.substr(0, 10);
        EXPECT_EQ(CaseWild(pattern, text, 0, 0), expected) << pattern.substr(0, 10);
    }
}

TEST(Strwild, ThousandsOfRunsOverKeys) {
    const std::string keys(60000, '\x54');
    std::string many;
    for (int i = 0; i < 5000; ++i) many += "*a";
    for (const std::string& pattern : {std::string(60000, '*'), many, many + "*"}) {
        EXPECT_EQ(CaseWild(pattern, keys, 0, 0xC0), 1) << pattern.substr(0, 10);
        EXPECT_EQ(CaseWild(pattern + "b", keys, 0, 0xC0), 0) << pattern.substr(0, 10);
        EXPECT_EQ(CaseWild(pattern + "\\", keys, 0, 0xC0), 0) << pattern.substr(0, 10);
    }
}

// --- in disk form ---

TEST(Istrwild, ConvertsWhatIsNotInDiskForm) {
    // A1 is C0 on disk.
    EXPECT_EQ(IWild("*\xA1", "x\xA1", 0, 0), 1);
    EXPECT_EQ(IWild("*\xA1", "x\xC0", 0, 0x40), 1);
    EXPECT_EQ(IWild("*\xC0", "x\xA1", 0x40, 0), 1);
    EXPECT_EQ(IWild("*\xA1", "x\xA1", 0, 0x40), 0);
    EXPECT_EQ(IWild("*\xA1", "x\xA1", 0x40, 0x40), 1);
    EXPECT_EQ(IWild("a?b*",
                    "a\xA1"
                    "bc",
                    0, 0x40),
              1);
}

TEST(Istrwild, Kept_BytesThatShareADiskByteMatch) {
    EXPECT_EQ(IWild("\xAC", "\x90", 0, 0), 1);
    EXPECT_EQ(IWild("\xEC", "\x91", 0, 0), 1);
    EXPECT_EQ(IWild("\xAC", "\x90", 0x40, 0x40), 0);
}

TEST(Istrwild, AgreesWithTheSlowMatcher) {
    std::mt19937 random(22);
    for (int round = 0; round < 300000 / kFewerCases; ++round) {
        const std::string pattern = Random(random, "a\xAC\x90\x98\xA1\xC0*?\\", 6);
        const std::string text = Random(random, "a\xAC\x90\x98\xA1\xC0", 7);
        for (int modes = 0; modes < 4; ++modes) {
            const auto patternMode = static_cast<unsigned char>((modes & 1) * 0x40);
            const auto textMode = static_cast<unsigned char>((modes & 2) * 0x20);
            ASSERT_EQ(IWild(pattern, text, patternMode, textMode),
                      SlowWild(pattern, text, {false, patternMode != 0, false}, {false, textMode != 0, false}));
        }
    }
}

// --- by keys ---

TEST(Caseistrwild, IgnoresCaseButNotAccents) {
    EXPECT_EQ(CaseWild("aBc", "AbC", 0, 0), 1);
    EXPECT_EQ(CaseWild("*HAUS", "Rathaus", 0, 0), 1);
    EXPECT_EQ(CaseWild("a*\\N", "abcn", 0, 0), 1) << "an escaped capital is a letter";
    EXPECT_EQ(CaseWild("a*\\n", "abcn", 0, 0), 0);
    EXPECT_EQ(CaseWild("a*\\n", "abc\n", 0, 0), 1);
    EXPECT_EQ(CaseWild("\xC1", "\xE1", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("\xC1", "a", 0x40, 0x40), 0);
    EXPECT_EQ(CaseWild("\\\xC1", "a", 0x40, 0x40), 0) << "escaped characters are compared by key and extra, too";
    EXPECT_EQ(CaseWild("\\\xC1", "\xE1", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("a\\", "a", 0, 0), 0);
    EXPECT_EQ(CaseWild("a?c", "ac", 0, 0), 0);
}

TEST(Caseistrwild, ConvertsWhatIsNotInDiskForm) {
    // A1 is C0 on disk, a capital A with an accent, D5 is E9, a small e with one.
    EXPECT_EQ(CaseWild("\xA1", "\xE0", 0, 0x40), 1);
    EXPECT_EQ(CaseWild("\xC0", "\xA1", 0x40, 0), 1);
    EXPECT_EQ(CaseWild("\xA1", "\xE0", 0, 0), 0);
}

TEST(Caseistrwild, Kept_AnExpansionEndsTheMatchWithSuccess) {
    EXPECT_EQ(CaseWild("\xDF", "S", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("\xDF", "Sxyz", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("\xDFxyz", "s", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("\xDFx", "\xDFy", 0x40, 0x40), 0) << "equal extras: an ordinary match";
    EXPECT_EQ(CaseWild("s", "\xDF", 0x40, 0x40), 0) << "of the pattern only";
    EXPECT_EQ(CaseWild("*\x9Cx", "abo", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("*\x9Cx", "ab\xF6", 0x40, 0x40), 1) << "another extra, the same key";
    EXPECT_EQ(CaseWild("*\x9Cx", "ab", 0x40, 0x40), 0);
    EXPECT_EQ(CaseWild("\xDF\\", "s", 0x40, 0x40), 1) << "before the broken end is seen";
    EXPECT_EQ(CaseWild("*\x9Cxxx", "\x9Cxbo", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("*\x9C???", "\x9Cxbo", 0x40, 0x40), 1);
    EXPECT_EQ(CaseWild("*\x9C????", "\x9Cxbo", 0x40, 0x40), 0) << "the text ends first: nothing else is tried";
}

TEST(Caseistrwild, KeysAreComparedAsTheyStand) {
    // 54 is the key of A, 5B of B.
    EXPECT_EQ(CaseWild("aB", "\x54\x5B", 0, 0xC0), 1);
    EXPECT_EQ(CaseWild("\x54*", "ab", 0xC0, 0), 1);
    EXPECT_EQ(CaseWild("\x54", "\x54", 0xC0, 0xC0), 1);
    EXPECT_EQ(CaseWild("\xC1", "\x54", 0x40, 0xC0), 0) << "a key has no extra";
    EXPECT_EQ(CaseWild("\xDF", "\x9D", 0x40, 0xC0), 1);
    EXPECT_EQ(CaseWild("\x54", "\xC1", 0xC0, 0x40), 0);
}

TEST(Caseistrwild, Kept_TheFirstAnyOneEndsAMatchWithAKey) {
    EXPECT_EQ(CaseWild("a?xyz", "\x54\x5B", 0, 0xC0), 1);
    EXPECT_EQ(CaseWild("a?", "\x54", 0, 0xC0), 1) << "at the end of the text, too";
    EXPECT_EQ(CaseWild("?", "", 0, 0xC0), 1);
    EXPECT_EQ(CaseWild("b?", "\x54\x5B", 0, 0xC0), 0);
    EXPECT_EQ(CaseWild("*b?x", "\x54\x5B", 0, 0xC0), 1);
    EXPECT_EQ(CaseWild("a*?\\", "\x54\x5B", 0, 0xC0), 1);
    EXPECT_EQ(CaseWild("a?b", "axb", 0, 0), 1) << "not with texts";
    EXPECT_EQ(CaseWild("a?b", "axc", 0, 0), 0);
}

TEST(Caseistrwild, Kept_AKeyIsConvertedUnlessItIsInDiskForm) {
    // The key A1 is garbled to C0.
    EXPECT_EQ(CaseWild("\xA1", "\xC0", 0x80, 0xC0), 1);
    EXPECT_EQ(CaseWild("\xA1", "\xA1", 0x80, 0xC0), 0);
    EXPECT_EQ(CaseWild("\xA1", "\xA1", 0xC0, 0xC0), 1);
}

TEST(Caseistrwild, AgreesWithTheSlowMatcher) {
    std::mt19937 random(23);
    const std::string letters = "aAsSoO\xDF\x9C\xC1\xF6\x54\x90\x69";
    for (int round = 0; round < 1000000 / kFewerCases; ++round) {
        const std::string some = Random(random, letters, 3) + "aoS";
        const std::string pattern = Random(random, some + "**?\\", 7);
        const std::string text = Random(random, some, 8);
        const unsigned char patternMode = kModes[random() % 4];
        const unsigned char textMode = kModes[random() % 4];
        ASSERT_EQ(CaseWild(pattern, text, patternMode, textMode),
                  SlowWild(pattern, text, CaseMode(patternMode), CaseMode(textMode)))
            << pattern << " / " << text << ' ' << int{patternMode} << ' ' << int{textMode};
    }
}

TEST(Caseistrwild, EveryPairOfCharacters) {
    for (int p = 1; p < 256; ++p) {
        for (int t = 1; t < 256; ++t) {
            const std::string pattern(1, static_cast<char>(p));
            const std::string text(1, static_cast<char>(t));
            for (const unsigned char mode : {kModes[0], kModes[1]}) {
                ASSERT_EQ(CaseWild(pattern, text, mode, mode), SlowWild(pattern, text, CaseMode(mode), CaseMode(mode)))
                    << p << ' ' << t;
            }
        }
    }
}

}  // namespace
