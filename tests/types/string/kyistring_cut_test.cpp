#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dictionary_answers.h"
#include "dictionary_values.h"
#include "support/hex.h"

// Arrays whose buffers end early.

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

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
    auto cut = a;
    cut.resize(3 + 5);
    EXPECT_EQ((CompareStored<TypeParam>(cut, pattern, 1, 0, 1, true)), (Answer{0, KyErrBufferEnd}))
        << "more may follow the asterisk";
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

}  // namespace
