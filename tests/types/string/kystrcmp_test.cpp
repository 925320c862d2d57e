#include "kystrcmp.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "kychar.h"
#include "order_key.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"
#include "support/languages.h"

namespace {

constexpr unsigned short kExact = 0x100;
constexpr unsigned short kLiteral = 0x10;

int Sign(int value) { return (value > 0) - (value < 0); }

/// Two Latin-1 texts of the neutral language.
int Compare(const char* a, const char* b, unsigned short op = kExact, short maxLen = -1) {
    return KyStrCmp(1, 0, a, 1, 0, b, op, maxLen, 1, nullptr);
}

/// The same text in 16-bit Unicode, zero-terminated, in a byte order.
std::string Wide(const std::string& latin1, unsigned char format = 1) {
    std::string wide;
    for (const char c : latin1 + '\0') wide += format == 1 ? std::string{c, '\0'} : std::string{'\0', c};
    return wide;
}

std::string Units(unsigned short unit, unsigned char format) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    return format == 2 ? std::string{high, low} : std::string{low, high};
}

TEST(Compare, NullOrdersBelowEverything) {
    const struct {
        unsigned char codeSetA, languageA;
        unsigned char codeSetB, languageB;
        unsigned short op;
        int result;
    } cases[] = {
        {1, 254, 1, 254, kExact, 0},  {254, 0, 1, 254, kExact, 0}, {0, 254, 254, 0, 0, 0},
        {1, 0, 1, 254, kExact, 1},    {1, 0, 254, 0, 0, 1},        {1, 254, 1, 0, kExact, -1},
        {1, 254, 1, 0, kLiteral, -1}, {0, 254, 0, 0, kExact, -1},
    };
    for (const auto& [codeSetA, languageA, codeSetB, languageB, op, result] : cases) {
        const char text[2] = {};
        EXPECT_EQ(KyStrCmp(codeSetA, languageA, text, codeSetB, languageB, text, op, -1, 1, nullptr), result);
    }
    EXPECT_EQ(KyStrCmp(1, 254, "abc", 1, 0, "", kExact, -1, 1, nullptr), -1) << "whatever stands in the buffer";
}

TEST(Compare, ANullTextCanMatchAPattern) {
    EXPECT_EQ(KyStrCmp(0, 254, nullptr, 1, 0, "*", 0, -1, 1, nullptr), 0);
    EXPECT_LT(KyStrCmp(0, 254, nullptr, 1, 0, "a*", 0, -1, 1, nullptr), 0);
    EXPECT_LT(KyStrCmp(0, 254, nullptr, 1, 0, "?", 0, -1, 1, nullptr), 0);
}

TEST(Compare, TheErrorIsNotWritten) {
    int error = 77;
    for (const unsigned short op : std::initializer_list<unsigned short>{0, kLiteral, kExact}) {
        for (const unsigned char codeSet : std::initializer_list<unsigned char>{0, 1, 253}) {
            KyStrCmp(codeSet, 0, "a\0\0", codeSet, 0, "*\0\0", op, -1, 1, &error);
            KyStrCmp(codeSet, 254, nullptr, codeSet, 0, "\0", op, -1, 1, &error);
        }
    }
    EXPECT_EQ(error, 77);
}

TEST(Compare, ALengthOfZeroIsEqual) {
    EXPECT_EQ(Compare("a", "b", kExact, 0), 0);
    EXPECT_EQ(KyStrCmp(1, 254, "", 1, 0, "", kExact, 0, 1, nullptr), -1) << "null comes first";
}

TEST(Compare, AMissingBufferIsEmpty) {
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{0, 1, 253}) {
        EXPECT_EQ(KyStrCmp(codeSet, 0, nullptr, codeSet, 0, nullptr, kExact, -1, 1, nullptr), 0) << int{codeSet};
        EXPECT_EQ(KyStrCmp(codeSet, 0, nullptr, codeSet, 0, nullptr, 0, -1, 1, nullptr), 0) << int{codeSet};
        EXPECT_LT(KyStrCmp(codeSet, 0, nullptr, codeSet, 0, "a\0\0", kExact, -1, 1, nullptr), 0) << int{codeSet};
        EXPECT_GT(KyStrCmp(codeSet, 0, "a\0\0", codeSet, 0, nullptr, 0, -1, 1, nullptr), 0) << int{codeSet};
    }
}

TEST(Compare, RawBytes) {
    const auto raw = [](const char* a, const char* b, unsigned short op, short maxLen = -1) {
        return KyStrCmp(0, 0, a, 0, 0, b, op, maxLen, 1, nullptr);
    };
    EXPECT_EQ(raw("abc", "abd", kExact), 'c' - 'd');
    EXPECT_EQ(raw("abc", "abd", kExact, 2), 0);
    EXPECT_EQ(raw("a", "ab", kLiteral), -'b');
    EXPECT_EQ(raw("\xE4", "z", kExact), 0xE4 - 'z') << "bytes are unsigned";
    EXPECT_EQ(raw("a", "A", 0x30), 'a' - 'A') << "bytes have no case";
    EXPECT_EQ(raw("a", "a*", 0), 0);
    EXPECT_EQ(raw("a", "a*", kExact), -'*');
    EXPECT_EQ(raw("abbbc", "a*c", 0), 0);
    EXPECT_EQ(raw("ac", "a*c", 0), 0);
    EXPECT_EQ(raw("abd", "a*c", 0), -1);
    EXPECT_EQ(raw("abc", "a?c", 0), 0);
    EXPECT_EQ(raw("ac", "a?c", 0), -1) << "the text ends while the pattern demands a character";
    EXPECT_EQ(raw("acx", "a?d", 0), 'x' - 'd');
    EXPECT_EQ(raw("abc", "ab", 0), 'c');
    EXPECT_EQ(raw("ab", "abc", 0), -1);
    EXPECT_EQ(raw("a\\b", "a\\b", 0), 0) << "a backslash is a byte like any other";
    EXPECT_EQ(raw("abcdef", "abX", 0, 2), 0) << "two bytes of each";
}

TEST(Compare, KystrcmpTakesNullsAndLengths) {
    const struct {
        const char* a;
        const char* b;
        int n;
        int result;
    } cases[] = {
        {"a", nullptr, 0, 1},  {"", nullptr, 0, 0},   {nullptr, nullptr, 0, 0}, {nullptr, "", 0, 0},
        {nullptr, "a", 0, -1}, {"abc", "abd", 0, -1}, {"abc", "abd", 2, 0},     {"abc", "abd", 3, -1},
        {"ab", "ab", 9, 0},    {"", "\xFF", 0, -255}, {"\xFF", "", 0, 255},     {"abc", "ab", 0, 'c'},
        {"abc", "ab", 2, 0},
    };
    for (const auto& [a, b, n, result] : cases) EXPECT_EQ(kystrcmp(a, b, n), result) << result;
    GuardedBuffer memory(2);
    std::memcpy(memory.data(), "ab", 2);
    EXPECT_EQ(kystrcmp(reinterpret_cast<char*>(memory.data()), "abc", 2), 0) << "nothing behind the length is read";
}

TEST(Compare, ExactRanksLetterThenCaseThenAccent) {
    // Ascending.
    const char* const words[] = {"",    " ",  "-",  "1",    "10", "2", "A",  "Aa",   "\xC4", "a",
                                 "a b", "aB", "ab", "\xE4", "B",  "b", "ba", "\xD8", "o",    "Z"};
    for (std::size_t i = 0; i < std::size(words); ++i) {
        for (std::size_t j = 0; j < std::size(words); ++j) {
            EXPECT_EQ(Sign(Compare(words[i], words[j])), Sign(static_cast<int>(i) - static_cast<int>(j)))
                << words[i] << " / " << words[j];
        }
    }
}

TEST(Compare, ExactReturnsTheDifferenceOfTheKeys) {
    const auto key = [](unsigned char c) {
        return static_cast<int>(ky::OrderKey(KyChar(static_cast<char>(c), 1, 0).GetOrder(), KyClassLatin));
    };
    EXPECT_EQ(Compare("xa", "xB"), key('a') - key('B'));
    EXPECT_EQ(Compare("a", ""), key('a'));
    EXPECT_EQ(Compare("", "a"), -key('a'));
    EXPECT_GT(Compare("a", "A"), 0);
    EXPECT_LT(Compare("a", "A"), Compare("b", "a")) << "case weighs less than the letter";
    EXPECT_LT(Compare("\xE4", "a"), Compare("a", "A")) << "accent weighs less than case";
    EXPECT_EQ(Compare("a", "A"), KyCaseLower << 5);
}

TEST(Compare, TheKeyOfAnOrder) {
    EXPECT_EQ(ky::OrderKey(0, 20), 0u);
    EXPECT_EQ(ky::OrderKey(0x7FFF, 0), 0x407Fu << 8 | 3 << 5 | 31);
    EXPECT_EQ(ky::OrderKey(0x400C, 3), 0x03400C00u);
    EXPECT_EQ(ky::OrderKey(0x7FFF, 20), 0x147FFF00u) << "a code of no class is not rearranged";
    EXPECT_EQ(ky::OrderKey(0x9E00, 0), 0x009E0000u);
    EXPECT_EQ(ky::OrderKey(80, 1), 0x01005000u);
}

TEST(Compare, CodeSetsMeetInTheirOrders) {
    EXPECT_EQ(KyStrCmp(1, 0, "a\xE4z", 253, 0, Wide("a\xE4z").c_str(), kExact, -1, 1, nullptr), 0);
    EXPECT_EQ(KyStrCmp(2, 0, "a\xE4z", 1, 0, "a\xE4z", kExact, -1, 1, nullptr), 0);
    EXPECT_EQ(KyStrCmp(0, 0, "a\xE4z", 1, 0, "a\xE4z", kExact, -1, 1, nullptr), 0) << "0: the native set";
    EXPECT_EQ(KyStrCmp(3, 0, "az", 2, 0, "az", kExact, -1, 1, nullptr), 0);
    EXPECT_NE(KyStrCmp(3, 0, "\xE4", 1, 0, "\xE4", kExact, -1, 1, nullptr), 0);
    EXPECT_EQ(KyStrCmp(254, 0x01, "\x0C\x40\0\0", 1, 0, "A", kExact, -1, 1, nullptr), 0) << "a text of orders";
    EXPECT_EQ(KyStrCmp(1, 0, "A", 254, 1, "\x0C\x40\0\0", kExact, -1, 1, nullptr), 0);
}

TEST(Compare, WithATextOfOrdersAllIsReadInDefaultClasses) {
    const auto units = [](std::initializer_list<unsigned> codes, unsigned char format) {
        std::string text;
        for (const unsigned code : codes) text += Units(static_cast<unsigned short>(code), format);
        return text + std::string(2, '\0');
    };
    for (const unsigned char format : std::initializer_list<unsigned char>{1, 2}) {
        const std::string alpha = units({0x3B1}, format);
        const unsigned order = KyChar(static_cast<unsigned short>(0x3B1), 253, 0).GetOrder();
        const std::string stored = units({order}, format);
        const std::string higher = units({order + 4}, format);
        const auto compare = [&](unsigned char codeSetA, const std::string& a, unsigned char codeSetB,
                                 const std::string& b, unsigned short op) {
            return KyStrCmp(codeSetA, 1, a.data(), codeSetB, 1, b.data(), op, -1, format, nullptr);
        };
        for (const unsigned short op : std::initializer_list<unsigned short>{kExact, kLiteral, 0}) {
            EXPECT_EQ(compare(253, alpha, 254, stored, op), 0) << "a Greek letter without its class";
            EXPECT_EQ(compare(254, stored, 253, alpha, op), 0);
            EXPECT_EQ(compare(254, stored, 254, stored, op), 0);
            EXPECT_LT(compare(253, alpha, 254, higher, op), 0);
            EXPECT_GT(compare(254, higher, 253, alpha, op), 0);
            EXPECT_LT(compare(254, stored, 254, higher, op), 0);
        }
        EXPECT_NE(compare(253, alpha, 253, units({order}, format), kExact), 0);
        EXPECT_EQ(compare(254, units({0x4000 | 10 << 2, 0x5000 | 3 << 2}, format), 254,
                          units({0x5000 | 10 << 2, 0x4000 | 3 << 2}, format), 0x30),
                  0)
            << "orders have case";
        EXPECT_EQ(KyStrCmp(254, 0x81, stored.data(), 254, 1, stored.data(), kExact, -1, format, nullptr), 0)
            << "the mark in the label is no part of the text";
    }
}

TEST(Compare, CanReadBothInTheNeutralLanguage) {
    constexpr unsigned char spanish = 4;
    const auto compare = [](const char* a, const char* b, unsigned short op) {
        return Sign(KyStrCmp(1, spanish, a, 1, spanish, b, op, -1, 1, nullptr));
    };
    EXPECT_EQ(compare("ll", "lz", 0x10), 1) << "a letter behind l";
    EXPECT_EQ(compare("ll", "lz", 0x210), -1);
    EXPECT_EQ(compare("ll", "lz", 0x300), 1) << "not where the comparison is exact";
    EXPECT_EQ(compare("ll", "??", 0), -1);
    EXPECT_EQ(compare("ll", "??", 0x200), 0) << "patterns, too";
    const char* wideA = "l\0l\0\0";
    const char* wideB = "l\0z\0\0";
    EXPECT_GT(KyStrCmp(253, spanish, wideA, 253, spanish, wideB, 0x10, -1, 1, nullptr), 0);
    EXPECT_LT(KyStrCmp(253, spanish, wideA, 253, spanish, wideB, 0x210, -1, 1, nullptr), 0);
    EXPECT_GT(KyStrCmp(1, spanish, "ll", 253, 0, wideB, 0x10, -1, 1, nullptr), 0) << "each in its own";
    EXPECT_LT(KyStrCmp(1, spanish, "ll", 253, 0, wideB, 0x210, -1, 1, nullptr), 0);
}

TEST(Compare, Kept_LettersOfTwoLanguagesMayShareAPlace) {
    const unsigned char spanish = LanguageOf("es")->Code();
    const unsigned char polish = LanguageOf("pl")->Code();
    const char16_t* n = u"\u00F1";  // both a letter behind n
    const char16_t* other = u"\u0144";
    const auto compare = [&](unsigned char languageA, unsigned char languageB, unsigned short op) {
        return KyStrCmp(253, languageA, reinterpret_cast<const char*>(n), 253, languageB,
                        reinterpret_cast<const char*>(other), op, -1, 1, nullptr);
    };
    EXPECT_EQ(compare(spanish, polish, kExact), 0);
    EXPECT_NE(compare(spanish, spanish, kExact), 0);
    EXPECT_NE(compare(polish, polish, kExact), 0);
    EXPECT_NE(compare(spanish, polish, kLiteral | 0x200), 0) << "in the neutral language each has its own";
}

TEST(Compare, AnEscapeAtTheEndOfAPatternStandsForItself) {
    EXPECT_EQ(Compare("a\\", "a\\", 0), 0);
    EXPECT_EQ(Compare("a\\", "*\\", 0), 0);
    EXPECT_NE(Compare("ab", "a\\", 0), 0);
}

TEST(Compare, BothByteOrders) {
    for (const unsigned char format : std::initializer_list<unsigned char>{1, 2}) {
        const std::string a = Wide("abc", format);
        const std::string b = Wide("abd", format);
        for (std::size_t offset = 0; offset < 2; ++offset) {
            GuardedBuffer memory(a.size() + offset);
            std::memcpy(memory.data() + offset, a.data(), a.size());
            const char* at = reinterpret_cast<char*>(memory.data()) + offset;
            EXPECT_LT(KyStrCmp(253, 0, at, 253, 0, b.data(), kExact, -1, format, nullptr), 0);
            EXPECT_EQ(KyStrCmp(253, 0, at, 253, 0, b.data(), kExact, 2, format, nullptr), 0);
            EXPECT_EQ(KyStrCmp(253, 0, at, 1, 0, "abc", kExact, -1, format, nullptr), 0);
            EXPECT_EQ(KyStrCmp(253, 0, at, 253, 0, Wide("?b*", format).data(), 0, -1, format, nullptr), 0);
        }
    }
}

TEST(Compare, LimitedToACountOfCharacters) {
    EXPECT_EQ(Compare("abX", "abY", kExact, 2), 0);
    EXPECT_LT(Compare("abX", "abY", kExact, 3), 0);
    EXPECT_LT(Compare("ab", "abc", kExact, 3), 0);
    EXPECT_EQ(Compare("ab", "ab", kExact, 3), 0);
    EXPECT_EQ(Compare("abX", "ABY", 0x30, 2), 0);
    EXPECT_EQ(Compare("abX", "a?Y", 0, 2), 0);
    EXPECT_EQ(Compare("abX", "abY", kExact, static_cast<short>(40000)), Compare("X", "Y")) << "a count of 40000";
}

TEST(Compare, IgnoresCaseAndAccents) {
    const struct {
        const char* a;
        const char* b;
        unsigned short op;
        int sign;
    } cases[] = {
        {"abc", "ABC", 0x30, 0},
        {"\xE4"
         "bc",
         "abc", 0x30, 1},
        {"\xE4"
         "bc",
         "abc", 0x50, 0},
        {"\xC4", "a", 0x50, -1},
        {"\xC4"
         "bc",
         "abC", 0x70, 0},
        {"abc", "abd", 0x70, -1},
        {"abc", "ab", 0x70, 1},
        {"a-b", "a b", 0x70, 1},
        {"abc", "ABC", 0x20, 0},
        {"abc", "ABC", 0x120, 1},
        {"abc", "ABC", 0x10, 1},
        {"\xE6", "ae", 0x50, 0},
        {"stra\xDF"
         "e",
         "STRASSE", 0x70, 0},
        {"\xE6", "ae", 0x10, 1},
        {"1", "\xB9", 0x70, 1},  // a superscript is a symbol
    };
    for (const auto& [a, b, op, sign] : cases) {
        EXPECT_EQ(Sign(Compare(a, b, op)), sign) << a << " / " << b << " / " << op;
        if ((op & (kExact | kLiteral)) != 0) {
            EXPECT_EQ(Sign(Compare(b, a, op)), -sign) << a << " / " << b << " / " << op;
        }
    }
}

TEST(Compare, FurtherOptionBitsDoNotChangeTheResult) {
    for (const unsigned short bit : std::initializer_list<unsigned short>{0x80, 0x200, 0x1, 0x2, 0x4}) {
        for (const unsigned short op : std::initializer_list<unsigned short>{0, kLiteral, kExact}) {
            const auto with = static_cast<unsigned short>(op | bit);
            for (const char* b : {"abd", "ab", "abcd", "abc", "ab*"}) {
                EXPECT_EQ(Compare("abc", b, with), Compare("abc", b, op)) << b << ' ' << with;
            }
        }
    }
}

TEST(Compare, ExactBitOutweighsTheOthers) {
    EXPECT_NE(Compare("abc", "ab*", 0x100), 0);
    EXPECT_NE(Compare("abc", "ABC", 0x100 | 0x20), 0);
    EXPECT_NE(Compare("abc", "ab*", 0x10), 0);
    EXPECT_EQ(Compare("ab*", "ab*", 0x10), 0);
    EXPECT_EQ(Compare("ab\\*", "ab\\*", 0x10), 0) << "no escape without wildcards";
}

/// Texts of few letters, so that they often share a beginning.
std::string RandomText(std::mt19937& random) {
    static constexpr char letters[] = "aAb\xE4\xC4\xDF\xE6se 1-\xB5\xAA";
    std::uniform_int_distribution<std::size_t> length(0, 5);
    std::uniform_int_distribution<std::size_t> letter(0, sizeof letters - 2);
    std::string text;
    for (std::size_t n = length(random); n != 0; --n) text += letters[letter(random)];
    return text;
}

TEST(Compare, IsAnOrder) {
    std::mt19937 random(20240507);
    for (const unsigned short op : std::initializer_list<unsigned short>{0x100, 0x10, 0x30, 0x50, 0x70}) {
        for (int round = 0; round < 20000 / kFewerCases; ++round) {
            const std::string a = RandomText(random);
            const std::string b = RandomText(random);
            const std::string c = RandomText(random);
            const int ab = Sign(Compare(a.c_str(), b.c_str(), op));
            const int bc = Sign(Compare(b.c_str(), c.c_str(), op));
            ASSERT_EQ(ab, -Sign(Compare(b.c_str(), a.c_str(), op))) << a << '/' << b;
            ASSERT_EQ(Compare(a.c_str(), a.c_str(), op), 0);
            if (ab <= 0 && bc <= 0) {
                const int expected = std::min(ab, bc);
                ASSERT_EQ(Sign(Compare(a.c_str(), c.c_str(), op)), expected) << a << '/' << b << '/' << c;
            }
        }
    }
}

/// The comparison spelled out: one key after the other from the beginning.
int SlowCompare(const std::string& a, const std::string& b, unsigned mask) {
    KyStringIterator itA(a.c_str(), 1, 0, 1);
    KyStringIterator itB(b.c_str(), 1, 0, 1);
    for (;;) {
        const unsigned short orderA = itA.GetNextOrder(1);
        const unsigned keyA = ky::OrderKey(orderA, itA.OrderClass()) & mask;
        const unsigned short orderB = itB.GetNextOrder(1);
        const unsigned keyB = ky::OrderKey(orderB, itB.OrderClass()) & mask;
        if (keyA != keyB) return static_cast<int>(keyA - keyB);
        if (orderA == 0) return 0;
    }
}

TEST(Compare, ShortCutsChangeNothing) {
    std::mt19937 random(7);
    const struct {
        unsigned short op;
        unsigned mask;
    } cases[] = {{0x100, ~0u}, {0x10, ~0u}, {0x30, ~0x60u}, {0x50, ~0x1Fu}, {0x70, ~0x7Fu}};
    for (const auto& [op, mask] : cases) {
        for (int round = 0; round < 20000 / kFewerCases; ++round) {
            const std::string a = RandomText(random) + RandomText(random);
            const std::string b = a.substr(0, random() % (a.size() + 1)) + RandomText(random);
            const int expected = SlowCompare(a, b, mask);
            ASSERT_EQ(Compare(a.c_str(), b.c_str(), op), expected) << a << '/' << b;
            ASSERT_EQ(KyStrCmp(253, 0, Wide(a).c_str(), 253, 0, Wide(b).c_str(), op, -1, 1, nullptr), expected);
            ASSERT_EQ(KyStrCmp(2, 0, a.c_str(), 2, 0, b.c_str(), op, -1, 1, nullptr), expected);
            ASSERT_EQ(KyStrCmp(1, 0, a.c_str(), 253, 0, Wide(b).c_str(), op, -1, 1, nullptr), expected);
        }
    }
}

}  // namespace
