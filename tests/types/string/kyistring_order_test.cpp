#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "dictionary_answers.h"
#include "dictionary_values.h"
#include "kywildcard.h"
#include "support/fewer_cases.h"
#include "support/hex.h"

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

constexpr unsigned short kExactOps[] = {KyCmpExact, KyCmpStringExact, KyCmpExact | KyCmpStringExact,
                                        KyCmpExact | KyCmpPrefixResult, KyCmpDefault};

TYPED_TEST(DictionaryStringTest, ComparesByTheDictionaryOrder) {
    constexpr int lower = isCaseAlike<TypeParam> ? 0 : -1;
    for (const unsigned short op : Operators{KyCmpExact, KyCmpStringExact, KyCmpDefault, 0, KyCmpPrefixResult}) {
        EXPECT_EQ((Compare<TypeParam>("abc", "abc", op)), (Answer{0, 0}));
        EXPECT_EQ((Compare<TypeParam>("abc", "ABC", op)), (Answer{lower, 0}));
        EXPECT_EQ((Compare<TypeParam>("abc", "abd", op)), (Answer{-1, 0}));
        EXPECT_EQ((Compare<TypeParam>("abd", "abc", op)), (Answer{1, 0}));
        EXPECT_EQ((Compare<TypeParam>("ab", "abc", op)), (Answer{-1, 0}));
        EXPECT_EQ((Compare<TypeParam>("abc", "ab", op)), (Answer{1, 0}));
        EXPECT_EQ((Compare<TypeParam>("\xC8", "a", op)), (Answer{0, 0})) << "accents";
        EXPECT_EQ((Compare<TypeParam>("\xDE", "ss", op)), (Answer{0, 0})) << "two letters in one";
    }
}

TYPED_TEST(DictionaryStringTest, EmptyValuesAreFirstUnderEveryOperator) {
    for (const unsigned short word : Operators{0, 0x10, 0x100, 0x80, 0xFFFF}) {
        EXPECT_EQ((Compare<TypeParam>("", "", word)), (Answer{0, 0}));
        EXPECT_EQ((Compare<TypeParam>("", "a", word)), (Answer{-1, 0}));
        EXPECT_EQ((Compare<TypeParam>("a", "", word)), (Answer{1, 0}));
        EXPECT_EQ((Compare<TypeParam>("", "*", word)), (Answer{-1, 0}));
        EXPECT_EQ((Compare<TypeParam>("\xE9", "", word)), (Answer{1, 0}));
    }
}

TYPED_TEST(DictionaryStringTest, AComparandWithAWildcardIsComparedUpToIt) {
    struct {
        const char* a;
        const char* b;
        int result;
    } const cases[] = {
        {"abcz", "abc*", 0},
        {"abc", "abc*", 0},
        {"abd", "abc*", 1},
        {"ab", "abc*", -1},
        {"abb", "abc*", -1},
        {"abc", "a*d", 0},
        {"abc", "*", 0},
        {"abc", "*x", 0},
        {"abc", "?x", 0},
        {"abc", "ab?", 0},
        {"xbc", "ab?", 1},
        {"a*c", "a\\*c", 0},
        {"abc", "a\\*c", 0},
        {"bbc", "a\\*c", 1},
        {"abc", "\\a", 0},
        {"ss", "\xDE*", 0},
        {"\xDE", "ss*", 0},
        {"st", "\xDE*", 1},
        {"s", "\xDE*", -1},
        {"\xC8"
         "bc",
         "ab*", 0},
        {"\xDEx", "s*", 0},
        {"\xDE\xDEz", "ssss*", 0},
        {"sss", "\xDE\xDE*", -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " " + c.b);
        for (const unsigned short op : Operators{0, 0x80, 0x20, 0x60, 0x200}) {
            EXPECT_EQ((Compare<TypeParam>(c.a, c.b, op)), (Answer{c.result, KyErrBufferEnd})) << op;
        }
    }
    constexpr int lower = isCaseAlike<TypeParam> ? 0 : 1;
    EXPECT_EQ((Compare<TypeParam>("ABX", "ab*", 0)), (Answer{lower, KyErrBufferEnd}));
    for (const unsigned short op : kExactOps) {
        EXPECT_EQ((Compare<TypeParam>("abcz", "abc*", op)).err, 0);
        EXPECT_EQ((Compare<TypeParam>("abcz", "abc*", op)).result, 1);
        EXPECT_EQ((Compare<TypeParam>("a*c", "a*c", op)), (Answer{0, 0}));
    }
    EXPECT_EQ((Compare<TypeParam>("a*", "ab", 0)), (Answer{-1, 0})) << "the first value is no pattern";
}

TYPED_TEST(DictionaryStringTest, WhatMatchesComparesEqual) {
    std::mt19937 random(77);
    const auto text = [&](const char* of, std::size_t length) {
        std::string made;
        while (made.size() < length) made += of[random() % std::strlen(of)];
        return made;
    };
    int matches = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string a = text("abB\xDE\xC8", 1 + random() % 6);
        std::string pattern = text("abB\xDE\xC8*?*", 1 + random() % 5);
        const bool hasWildcard = pattern.find_first_of("*?") != std::string::npos;
        auto* match = isCaseAlike<TypeParam> ? caseistrwild : istrwild;
        std::string subject = a;
        if (match(pattern.data(), subject.data(), 0, 0) == 0) continue;
        // Where a pattern ends in the middle of two letters in one a match needs not be whole.
        if (pattern.find('\xDE') != std::string::npos) continue;
        ++matches;
        const TypeParam valueA(a.c_str());
        const TypeParam valueB(pattern.c_str());
        int err = 0;
        ASSERT_EQ(RowOf<TypeParam>().Compare(8, 0, const_cast<TypeParam*>(&valueA), 0, const_cast<TypeParam*>(&valueB),
                                             0, 1, err),
                  0)
            << a << ' ' << pattern;
        ASSERT_EQ(err, hasWildcard ? KyErrBufferEnd : 0);
    }
    EXPECT_GT(matches, 1000);
}

TYPED_TEST(DictionaryStringTest, ComparandsWithTooLongAKeyAreRefused) {
    const std::string most(253, 'x');
    const std::string tooLong(254, 'x');
    const std::string pairs = std::string(126, '\xDE') + "x";  // 253 keys
    for (const unsigned short word : Operators{0, 0x10, 0x100, 0x80, 0xFFFF}) {
        for (const char* a : {"", "x", "y", most.c_str(), tooLong.c_str()}) {
            EXPECT_EQ((Compare<TypeParam>(a, tooLong.c_str(), word)), (Answer{-1, KyErrNotSupported}));
            EXPECT_EQ((Compare<TypeParam>(a, (pairs + "x").c_str(), word)), (Answer{-1, KyErrNotSupported}));
            EXPECT_EQ((Compare<TypeParam>(a, most.c_str(), word)).err, 0);
            EXPECT_EQ((Compare<TypeParam>(a, pairs.c_str(), word)).err, 0);
        }
        EXPECT_EQ((Compare<TypeParam>(tooLong.c_str(), "x", word)), (Answer{1, 0})) << "the first value may be long";
        EXPECT_EQ((Compare<TypeParam>(std::string(65531, 'x').c_str(), most.c_str(), word)), (Answer{1, 0}));
        EXPECT_EQ((Compare<TypeParam>("y", std::string(65531, 'x').c_str(), word)), (Answer{-1, KyErrNotSupported}));
    }
    std::string key = std::string(254, '\xDE');
    TypeParam a("x");
    TypeParam b(key.c_str());
    b.ModeSet(0x80);
    int err = 0;
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, &a, 0, &b, KyCmpExact, 1, err), -1);
    EXPECT_EQ(err, KyErrNotSupported);
    b = key.c_str() + 1;
    b.ModeSet(0x80);
    RowOf<TypeParam>().Compare(8, 0, &a, 0, &b, KyCmpExact, 1, err);
    EXPECT_EQ(err, 0) << "253 bytes of a key are 253 keys";
    b.ModeSet(0);
    RowOf<TypeParam>().Compare(8, 0, &a, 0, &b, KyCmpExact, 1, err);
    EXPECT_EQ(err, KyErrNotSupported) << "as a text it is twice as many";
}

TYPED_TEST(DictionaryStringTest, ArraysAreComparedValueByValue) {
    using Values = std::vector<TypeParam>;
    const unsigned short op = KyCmpExact;
    EXPECT_EQ(Compare(Values{"a", "b", "c"}, Values{"a", "b", "c"}, op), (Answer{0, 0}));
    EXPECT_EQ(Compare(Values{"a", "b", "c"}, Values{"a", "b", "d"}, op), (Answer{-1, 0}));
    EXPECT_EQ(Compare(Values{"a", "c", "a"}, Values{"a", "b", "d"}, op), (Answer{1, 0}));
    EXPECT_EQ(Compare(Values{"", "", "x"}, Values{"", "", "y"}, op), (Answer{-1, 0}));
    EXPECT_EQ(Compare(Values{"ab", "c"}, Values{"a", "bc"}, op), (Answer{1, 0}));
    EXPECT_EQ(Compare(Values{"ab", "z"}, Values{"a*", "a"}, 0), (Answer{0, KyErrBufferEnd}))
        << "a pattern ends the walk";
    EXPECT_EQ(Compare(Values{"a", "b"}, Values{"a", std::string(300, 'x').c_str()}, op),
              (Answer{-1, KyErrNotSupported}));
    EXPECT_EQ(Compare(Values{"a", "b"}, Values{"b", std::string(300, 'x').c_str()}, op), (Answer{-1, 0}));
    int err = 5;
    EXPECT_EQ(RowOf<TypeParam>().Compare(1, 0, nullptr, 0, nullptr, op, 0, err), 0);
    EXPECT_EQ(err, 0);
}

TYPED_TEST(DictionaryStringTest, NullArraysAreEmptyValues) {
    TypeParam value("a");
    int err = 5;
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, nullptr, 0, &value, 0, 1, err), -1);
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, &value, 0, nullptr, 0, 1, err), 1);
    EXPECT_EQ(RowOf<TypeParam>().Compare(1, 0, nullptr, 0, nullptr, 0, 1, err), 0);
    EXPECT_EQ(err, 0);
}

// --- markers ---

TYPED_TEST(DictionaryStringTest, MarkersSayHowTextsAreRead) {
    const auto disk = Bytes("40 03 00 E0 DF 00");
    const auto program = Bytes("01 03 00 C8 DE 00");
    const auto key = Bytes(isCaseAlike<TypeParam> ? "80 04 00 54 9D 9D 00" : "80 04 00 4E 9C 9C 00");
    for (const auto* a : {&disk, &program, &key}) {
        for (const auto* b : {&disk, &program, &key}) {
            EXPECT_EQ((CompareStored<TypeParam>(*a, *b, 1, KyCmpExact, 1, true)), (Answer{0, 0}));
            EXPECT_EQ((CompareStored<TypeParam>(*a, *b, 1, 0, 1, true)), (Answer{0, 0}));
        }
    }
}

TYPED_TEST(DictionaryStringTest, WildcardsInKeys) {
    const auto a = Stored(std::vector<TypeParam>{"abc"}, 1);
    const char* prefix = isCaseAlike<TypeParam> ? "54 5B" : "4E 5A";
    const auto key = [&](const char* rest) { return Bytes(std::string("80 04 00 ") + prefix + " " + rest); };
    EXPECT_EQ((CompareStored<TypeParam>(a, key("2A 00"), 1, 0, 1, true)), (Answer{0, KyErrBufferEnd}));
    EXPECT_EQ((CompareStored<TypeParam>(a, key("3F 00"), 1, 0, 1, true)), (Answer{0, KyErrBufferEnd}));
    EXPECT_EQ((CompareStored<TypeParam>(a, key("43 00"), 1, 0, 1, true)), (Answer{0, KyErrBufferEnd})) << "backslash";
    // 5C is the key of c, not a backslash.
    EXPECT_EQ((CompareStored<TypeParam>(a, key("5C 00"), 1, 0, 1, true)).err, 0);
    EXPECT_EQ((CompareStored<TypeParam>(a, key("2A 00"), 1, KyCmpExact, 1, true)).err, 0);
}

TYPED_TEST(DictionaryStringTest, ModesOfObjectsCount) {
    TypeParam a("\xE0");
    TypeParam b("a");
    a.ModeSet(0x40);
    int err = 0;
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, &a, 0, &b, KyCmpExact, 1, err), 0);
    a.ModeSet(0x60);
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, &a, 0, &b, KyCmpExact, 1, err), isCaseAlike<TypeParam> ? 1 : 0);
}

TYPED_TEST(DictionaryStringTest, HashIsNone) {
    TypeParam a("abc");
    int err = 5;
    EXPECT_EQ(RowOf<TypeParam>().Hash(8, 0, &a, 1, err), 0u);
    EXPECT_EQ(err, 0);
    err = 5;
    EXPECT_EQ(RowOf<TypeParam>().Hash(1, 1, nullptr, 7, err), 0u);
    EXPECT_EQ(err, 0);
}

TYPED_TEST(DictionaryStringTest, FormsAgreeOverGeneratedValues) {
    std::mt19937 random(31);
    const auto value = [&] {
        static constexpr char letters[] = "aAbB\xDE\x88\xC8 *?";
        std::string text;
        for (auto n = random() % 7; n != 0; --n) {
            text += random() % 8 == 0 ? static_cast<char>(random() % 255 + 1) : letters[random() % 10];
        }
        return TypeParam(text.c_str());
    };
    for (int i = 0; i < 4000 / kFewerCases; ++i) {
        std::vector<TypeParam> a(1 + random() % 3);
        std::vector<TypeParam> b(a.size());
        for (std::size_t v = 0; v < a.size(); ++v) {
            a[v] = value();
            b[v] = random() % 2 == 0 ? a[v] : value();
        }
        const Answer exact = Compare(a, b, KyCmpExact);
        ASSERT_EQ(exact.err, 0);
        ASSERT_EQ(Compare(b, a, KyCmpExact).result, -exact.result);
        Compare(a, b, 0);
    }
}

}  // namespace
