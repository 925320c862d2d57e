#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "dictionary_values.h"
#include "kywildcard.h"
#include "oracle/slow_dictionary.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

struct Answer {
    int result, err;
    friend bool operator==(const Answer&, const Answer&) = default;
};
void PrintTo(const Answer& answer, std::ostream* out) { *out << answer.result << " (" << answer.err << ")"; }

template <class Self>
Answer CompareStored(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b, unsigned char flag,
                     unsigned short op, unsigned count, bool tellLengths) {
    GuardedBuffer bufferA(a);
    GuardedBuffer bufferB(b);
    Answer answer{77, 77};
    answer.result =
        RowOf<Self>().Compare(flag, tellLengths ? static_cast<unsigned>(a.size()) : 0, bufferA.data(),
                              tellLengths ? static_cast<unsigned>(b.size()) : 0, bufferB.data(), op, count, answer.err);
    return answer;
}

/// The one answer of every form.
template <class Self>
Answer Compare(std::vector<Self> a, std::vector<Self> b, unsigned short op) {
    const auto count = static_cast<unsigned>(a.size());
    Answer answer{77, 77};
    answer.result = RowOf<Self>().Compare(KyFormMemory, 0, a.data(), 0, b.data(), op, count, answer.err);
    for (const unsigned char flag : Flags{0x01, 0x02, 0x81, 0x12}) {
        for (const bool tellLengths : {false, true}) {
            EXPECT_EQ(CompareStored<Self>(Stored(a, flag), Stored(b, flag), flag, op, count, tellLengths), answer)
                << a[0].StrGet() << ' ' << b[0].StrGet() << ' ' << int{flag} << ' ' << tellLengths;
        }
    }
    return answer;
}

template <class Self>
Answer Compare(const char* a, const char* b, unsigned short op) {
    return Compare(std::vector<Self>{a}, std::vector<Self>{b}, op);
}

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

TYPED_TEST(DictionaryStringTest, BuffersThatEndBeforeTheCount) {
    const auto row = RowOf<TypeParam>();
    std::vector<TypeParam> a = {"a", "b", "c"};
    std::vector<TypeParam> b = {"a", "b", "d"};
    int err = 0;
    EXPECT_EQ(row.Compare(8, 32, a.data(), 48, b.data(), KyCmpExact, 3, err), 0);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(row.Compare(8, 48, a.data(), 17, b.data(), KyCmpExact, 3, err), 0);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(row.Compare(8, 48, a.data(), 33, b.data(), KyCmpExact, 3, err), -1);
    EXPECT_EQ(err, 0);
    a.pop_back();
    b.pop_back();
    EXPECT_EQ((CompareStored<TypeParam>(Stored(a, 1), Stored(b, 1), 1, KyCmpExact, 3, true)),
              (Answer{0, KyErrBufferEnd}));
    EXPECT_EQ((CompareStored<TypeParam>(Stored(a, 1), Stored(b, 1), 1, KyCmpExact, 3, false)),
              (Answer{0, KyErrBufferEnd}))
        << "the header tells the end, too";
}

TYPED_TEST(DictionaryStringTest, NullArraysAreEmptyValues) {
    TypeParam value("a");
    int err = 5;
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, nullptr, 0, &value, 0, 1, err), -1);
    EXPECT_EQ(RowOf<TypeParam>().Compare(8, 0, &value, 0, nullptr, 0, 1, err), 1);
    EXPECT_EQ(RowOf<TypeParam>().Compare(1, 0, nullptr, 0, nullptr, 0, 1, err), 0);
    EXPECT_EQ(err, 0);
}

// --- records that are cut short ---

TYPED_TEST(DictionaryStringTest, WhatIsCutShortIsComparedAsFarAsItIsThere) {
    // Cut after so many bytes of the text; the other is whole.
    struct {
        const char* a;
        std::size_t present;
        const char* b;
        unsigned short op;
        Answer whenFirst;
    } const cases[] = {
        {"abcdef", 3, "abd", KyCmpExact, {-1, 0}},
        {"abcdef", 3, "abb", KyCmpExact, {1, 0}},
        {"abcdef", 3, "abc", KyCmpExact, {1, KyErrBufferEnd}},     // by length
        {"abcdef", 3, "abcdef", KyCmpExact, {0, KyErrBufferEnd}},  // of one length
        {"abcdef", 3, "abcxyzzz", KyCmpExact, {-1, KyErrBufferEnd}},
        {"abcdef", 3, "abcdef", KyCmpExact | KyCmpPrefixResult, {0, KyErrBufferEnd}},
        {"abcdef", 3, "ab", KyCmpExact | KyCmpPrefixResult, {1, 0}},
        {"abcdef", 3, "abc", KyCmpExact | KyCmpPrefixResult, {0, KyErrBufferEnd}},
        {"abcdef", 6, "abcdef", KyCmpExact, {0, KyErrBufferEnd}},  // but for the terminator
        {"abcdef", 3, "ab*", 0, {0, 0}},                           // certain
        {"abcdef", 3, "abc*", 0, {0, 0}},
        {"abcdef", 3, "abcd*", 0, {0, KyErrBufferEnd}},
        {"abcdef", 3, "ab*", KyCmpPrefixResult, {0, KyErrBufferEnd}},
        {"abcdef", 3, "ab*x", 0, {0, KyErrBufferEnd}},
        {"abcdef", 3, "ab?", 0, {0, KyErrBufferEnd}},
        {"abcdef", 3, "*", 0, {0, 0}},
        {"abcdef", 3, "ac*", 0, {-1, 0}},  // certain as well
        {"abcdef", 3, "acde*", 0, {-1, KyErrBufferEnd}},
        {"\xDE\xDE", 1, "ss*", 0, {0, 0}},
        {"\xDE\xDE", 1, "sss*", 0, {0, KyErrBufferEnd}},
        {"\xDE\xDE", 1, "ssx", KyCmpExact, {-1, KyErrBufferEnd}},
        {"\xDE\xDE", 1, "sx", KyCmpExact, {-1, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " " + c.b + " " + std::to_string(c.present));
        for (const unsigned char flag : Flags{0x01, 0x02, 0x81}) {
            auto a = Stored(std::vector<TypeParam>{c.a}, flag);
            const auto b = Stored(std::vector<TypeParam>{c.b}, flag);
            a.resize(3 + c.present);
            EXPECT_EQ((CompareStored<TypeParam>(a, b, flag, c.op, 1, true)), c.whenFirst);
            if ((c.op & KyCmpExact) == 0) continue;
            const Answer mirrored{-c.whenFirst.result, c.whenFirst.err};
            EXPECT_EQ((CompareStored<TypeParam>(b, a, flag, c.op, 1, true)), mirrored);
        }
    }
}

TYPED_TEST(DictionaryStringTest, PatternsThatAreCutShort) {
    auto pattern = Stored(std::vector<TypeParam>{"abc*xyz"}, 1);
    pattern.resize(3 + 5);
    const auto a = Stored(std::vector<TypeParam>{"abcdef"}, 1);
    EXPECT_EQ((CompareStored<TypeParam>(a, pattern, 1, 0, 1, true)), (Answer{0, KyErrBufferEnd}));
    pattern.resize(3 + 4);
    EXPECT_EQ((CompareStored<TypeParam>(a, pattern, 1, 0, 1, true)), (Answer{0, KyErrBufferEnd}));
    pattern.resize(3 + 3);
    EXPECT_EQ((CompareStored<TypeParam>(a, pattern, 1, 0, 1, true)), (Answer{-1, KyErrBufferEnd})) << "by length";
}

TYPED_TEST(DictionaryStringTest, BothCutShort) {
    const auto cut = [](const char* text, std::size_t present) {
        auto bytes = Stored(std::vector<TypeParam>{text}, 1);
        bytes.resize(3 + present);
        return bytes;
    };
    EXPECT_EQ((CompareStored<TypeParam>(cut("abcdef", 3), cut("abcxyz", 3), 1, KyCmpExact, 1, true)),
              (Answer{0, KyErrBufferEnd}));
    EXPECT_EQ((CompareStored<TypeParam>(cut("abcdef", 3), cut("abcxyzz", 5), 1, KyCmpExact, 1, true)),
              (Answer{-1, KyErrBufferEnd}));
    EXPECT_EQ((CompareStored<TypeParam>(cut("abcdef", 4), cut("abcxyz", 5), 1, KyCmpExact, 1, true)), (Answer{-1, 0}));
}

TYPED_TEST(DictionaryStringTest, CutAtEveryByte) {
    std::vector<TypeParam> first = {"abc", "", "de"};
    std::vector<TypeParam> second = {"abc", "", "df"};
    for (const unsigned char flag : Flags{0x01, 0x02}) {
        const auto a = Stored(first, flag);
        const auto b = Stored(second, flag);
        for (std::size_t size = 1; size <= a.size(); ++size) {
            auto part = a;
            part.resize(size);
            for (const unsigned short op : Operators{KyCmpExact, 0, KyCmpPrefixResult}) {
                const Answer forth = CompareStored<TypeParam>(part, b, flag, op, 3, true);
                const Answer back = CompareStored<TypeParam>(b, part, flag, op, 3, true);
                // Seven bytes are the first value; from the tenth on the difference is there.
                const bool decided = size >= 10;
                EXPECT_EQ(forth.err, decided ? 0 : KyErrBufferEnd) << size;
                EXPECT_EQ(back.err, forth.err) << size;
                EXPECT_EQ(back.result, -forth.result) << size;
                EXPECT_EQ(forth.result, decided ? -1 : forth.result) << size;
                EXPECT_EQ(forth.result, size <= 3 ? 0 : forth.result) << size;
            }
        }
    }
}

TYPED_TEST(DictionaryStringTest, LongRecordsCutShort) {
    auto a = Stored(std::vector<TypeParam>{std::string(60000, 'x').c_str()}, 1);
    const auto b = Stored(std::vector<TypeParam>{std::string(253, 'x').c_str()}, 1);
    a.resize(50000);
    EXPECT_EQ((CompareStored<TypeParam>(a, b, 1, KyCmpExact, 1, true)), (Answer{1, 0}));
    EXPECT_EQ((CompareStored<TypeParam>(b, a, 1, KyCmpExact, 1, true)), (Answer{-1, KyErrNotSupported}));
    a.resize(3 + 100);
    EXPECT_EQ((CompareStored<TypeParam>(a, b, 1, KyCmpExact, 1, true)), (Answer{1, KyErrBufferEnd}));
}

TYPED_TEST(DictionaryStringTest, TextsWithoutTerminatorEndWithTheirArray) {
    const auto a = Bytes("40 03 00 61 62 63");
    const auto b = Stored(std::vector<TypeParam>{"abc"}, 1);
    for (const bool tellLengths : {false, true}) {
        EXPECT_EQ((CompareStored<TypeParam>(a, b, 1, KyCmpExact, 1, tellLengths)), (Answer{0, 0}));
        EXPECT_EQ((CompareStored<TypeParam>(b, a, 1, 0, 1, tellLengths)), (Answer{0, 0}));
    }
    const auto nothing = Bytes("40 00 00");
    EXPECT_EQ((CompareStored<TypeParam>(nothing, b, 1, KyCmpExact, 1, false)), (Answer{0, KyErrBufferEnd}));
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
    for (int i = 0; i < 4000; ++i) {
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
