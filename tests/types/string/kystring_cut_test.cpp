/// Comparison of absent texts and of records that the buffer's end cuts short.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "compared_records.h"
#include "generated_strings.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "oracle/slow_string_order.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using slow::Outcome;

// --- absent texts ---

TEST(StringAbsent, NullAndEmpty) {
    KyString null;
    null.SetNullValue();
    const KyString empty("");
    for (const unsigned short op : std::initializer_list<unsigned short>{0, 0x20, 0x10, 0x100, 0x200}) {
        const bool exact = (op & 0x110) != 0;
        for (const unsigned char flag : std::initializer_list<unsigned char>{8, 1, 2, 0x81}) {
            const auto compared = [&](const KyString& a, const KyString& b) {
                if (flag == 8) return Compared(KyStringTab, 8, 0, &a, 0, &b, op);
                return ComparedParts(RecordOf(a, flag & 15), 0, RecordOf(b, flag & 15), 0, op, flag);
            };
            EXPECT_EQ(compared(null, null), (Outcome{0, 0}));
            EXPECT_EQ(compared(empty, empty), (Outcome{0, 0}));
            EXPECT_EQ(compared(null, empty), (Outcome{exact ? -1 : 0, 0}));
            EXPECT_EQ(compared(empty, null), (Outcome{exact ? 1 : 0, 0}));
            EXPECT_EQ(compared(null, "a"), (Outcome{-1, 0}));
            EXPECT_EQ(compared("a", empty), (Outcome{1, 0}));
            EXPECT_EQ(compared(empty, "*"), (Outcome{-1, 0}));
            EXPECT_EQ(compared("*", empty), (Outcome{1, 0}));
        }
    }
}

TEST(StringAbsent, SlackDoesNotCount) {
    const KyString tight("ab");
    const KyString slack = KyString("ab\0xyz", 6);
    for (const unsigned short op : {kWild, kExact}) {
        EXPECT_EQ(Compared(KyStringTab, 8, 0, &tight, 0, &slack, op), (Outcome{0, 0}));
        const auto record = RecordOf(slack, 1);
        EXPECT_EQ(ComparedParts(RecordOf(tight, 1), 0, record, 0, op, 1), (Outcome{0, 0}));
        EXPECT_EQ(ComparedParts(RecordOf(tight, 1), 0, record, 8, op, 1), (Outcome{0, 0})) << "cut behind its end";
        EXPECT_EQ(ComparedParts(RecordOf(tight, 1), 0, record, 6, op, 1).err, 2101) << "cut before";
    }
}

// --- cut records ---

TEST(StringCut, TheLongerIsBehind) {
    const auto shorter = RecordOf(Labelled("abcd", 1, 0), 1);
    const auto longer = RecordOf(Labelled("abcde", 1, 0), 1);
    const auto other = RecordOf(Labelled("abx", 1, 0), 1);
    for (const unsigned short op : {kWild, kExact}) {
        EXPECT_EQ(ComparedParts(shorter, 6, longer, 6, op, 1), (Outcome{-1, 2101}));
        EXPECT_EQ(ComparedParts(longer, 6, shorter, 6, op, 1), (Outcome{1, 2101}));
        EXPECT_EQ(ComparedParts(shorter, 6, shorter, 7, op, 1), (Outcome{0, 2101}));
        EXPECT_EQ(ComparedParts(longer, 6, shorter, 6, op | 0x80, 1), (Outcome{0, 2101}));
        EXPECT_EQ(ComparedParts(shorter, 7, other, 0, op, 1), (Outcome{-1, 0})) << "decided before";
        EXPECT_EQ(ComparedParts(longer, 4, shorter, 0, op, 1), (Outcome{1, 2101})) << "nothing but the head";
        EXPECT_EQ(ComparedParts(longer, 3, shorter, 0, op, 1), (Outcome{0, 2101})) << "not even the head";
    }
}

TEST(StringCut, APatternThatLeavesNothingOpen) {
    const auto text = RecordOf(Labelled("abcdef", 1, 0), 1);
    const auto pattern = [](const char* p) { return RecordOf(Labelled(p, 1, 0), 1); };
    EXPECT_EQ(ComparedParts(text, 7, pattern("abc*"), 0, kWild, 1), (Outcome{0, 0}));
    EXPECT_EQ(ComparedParts(text, 7, pattern("abc*"), 0, 0x80, 1), (Outcome{0, 2101}));
    EXPECT_EQ(ComparedParts(text, 6, pattern("abc*"), 0, kWild, 1), (Outcome{0, 2101})) << "too short";
    EXPECT_EQ(ComparedParts(text, 7, pattern("abc?"), 0, kWild, 1), (Outcome{0, 2101}));
    EXPECT_EQ(ComparedParts(text, 7, pattern("abc*f"), 0, kWild, 1), (Outcome{0, 2101}));
    EXPECT_EQ(ComparedParts(text, 7, pattern("abd*"), 0, kWild, 1), (Outcome{-1, 0}));
    EXPECT_EQ(ComparedParts(text, 0, pattern("abc*"), 0, kWild, 1), (Outcome{0, 2101})) << "not cut";
    EXPECT_EQ(ComparedParts(text, 7, pattern("abc*x"), 8, kWild, 1), (Outcome{0, 2101})) << "the pattern is cut";
}

TEST(StringCut, LettersThatMayBeHalved) {
    // In Czech ch is behind h; what is cut behind c may be either.
    const auto cut = RecordOf(Labelled("achat", 1, 10), 1);
    const auto other = RecordOf(Labelled("ad", 1, 10), 1);
    EXPECT_EQ(ComparedParts(cut, 6, other, 0, kExact, 1), (Outcome{1, 2101})) << "by length alone";
    EXPECT_EQ(ComparedParts(cut, 8, other, 0, kExact, 1), (Outcome{1, 0}));
    EXPECT_EQ(ComparedParts(cut, 6, other, 0, 0x210, 1), (Outcome{-1, 0})) << "neutral: c is before d";
    // In Hungarian dzs is one letter, behind dz, which is behind d.
    const auto three = RecordOf(Labelled("adzsa", 1, 12), 1);
    const auto letter = RecordOf(Labelled("adzs", 1, 12), 1);
    for (const unsigned length : {6U, 7U}) {
        EXPECT_EQ(ComparedParts(three, length, letter, 0, kExact, 1), (Outcome{1, 2101})) << length;
    }
}

// --- bad input ---

TEST(StringCompareSlot, RecordsOfEveryShortLength) {
    const auto text = RecordOf(Labelled("b", 1, 0), 1);
    for (unsigned length = 0; length <= 5; ++length) {
        std::vector<unsigned char> record = {static_cast<unsigned char>(length), 0};
        for (unsigned i = 0; i < length; ++i) record.push_back(i + 1 == length ? 0xFF : i == 0 ? 1 : 0);
        if (length == 5) record[4] = 'a';
        for (const unsigned char flag : std::initializer_list<unsigned char>{1, 0x81}) {
            if (length == 0 && flag == 1) continue;  // the old layout
            EXPECT_EQ(ComparedParts(record, 0, text, 0, kExact, flag), (Outcome{-1, 0})) << length;
            EXPECT_EQ(ComparedParts(text, 0, record, 0, kExact, flag), (Outcome{1, 0})) << length;
            int err = 77;
            GuardedBuffer guarded(record);
            KyStringTab.Hash(flag, 0, guarded.data(), 1, err);
            EXPECT_EQ(err, 0);
        }
    }
}

TEST(StringCompareSlot, LengthsThatLie) {
    // The content's end is not where the length field says: nothing behind a given length is read.
    for (const char* bytes : {"FF FF 01 00 61", "09 00 01 00 61 62", "05 00 01 00 61 62 FF", "FF FF FD 00 61 00 62"}) {
        const auto record = Bytes(bytes);
        const auto size = static_cast<unsigned>(record.size());
        for (const unsigned short op : {kWild, kExact}) {
            for (const unsigned char flag : std::initializer_list<unsigned char>{1, 0x81}) {
                const Outcome same = ComparedParts(record, size, record, size, op, flag);
                EXPECT_EQ(same.sign, 0) << bytes;
            }
        }
    }
}

// --- against the slow twin ---

std::vector<unsigned> LongestJoinedOfAll() {
    std::vector<unsigned> longest(256, 1);
    for (const unsigned char language : AllLanguages()) longest[language] = slow::LongestJoined(language);
    return longest;
}

TEST(StringCompareSlot, AgreesWithItsSlowTwinWhereverRecordsAreCut) {
    const std::vector<unsigned char> codeSets = AllCodeSets();
    const std::vector<unsigned char> languages = AllLanguages();
    const std::vector<unsigned> longestJoined = LongestJoinedOfAll();
    constexpr unsigned short ops[] = {0, 0x10, 0x100, 0x20, 0x40, 0x60, 0x80, 0x180, 0x200, 0x210, 0x30, 0x2E0};
    StringGenerator generate(11);
    for (int round = 0; round < 3000; ++round) {
        const auto pick = [&](const std::vector<unsigned char>& from) {
            return from[generate.Below(static_cast<unsigned>(from.size()))];
        };
        const unsigned char codeSetA = pick(codeSets);
        const unsigned char codeSetB = generate.Below(2) == 0 ? codeSetA : pick(codeSets);
        const auto languageFor = [&](unsigned char codeSet) {
            const unsigned char language = pick(languages);
            if (codeSet != KyCodeSetOrders) return language;
            return static_cast<unsigned char>(generate.Below(2) == 0 ? 1 : 0x81);
        };
        const unsigned char languageA = languageFor(codeSetA);
        const unsigned char languageB =
            codeSetB == codeSetA && generate.Below(2) == 0 ? languageA : languageFor(codeSetB);
        KyString a = generate.Next(codeSetA, languageA, 7);
        KyString b = generate.Next(codeSetB, languageB, 7);
        if (generate.Below(3) == 0) b = a;
        const unsigned char form = generate.Below(2) == 0 ? 1 : 2;
        const auto recordA = RecordOf(a, form);
        const auto recordB = RecordOf(b, form);
        const unsigned short op = ops[generate.Below(sizeof ops / sizeof *ops)];
        const auto expected = [&](std::size_t lengthA, std::size_t lengthB) {
            return slow::Compare(slow::Decode(recordA.data(), lengthA, form),
                                 slow::Decode(recordB.data(), lengthB, form), op, longestJoined);
        };
        SCOPED_TRACE(Hex(recordA.data(), recordA.size()) + " | " + Hex(recordB.data(), recordB.size()) + " op " +
                     std::to_string(op) + " form " + std::to_string(form));
        const Outcome whole = expected(recordA.size(), recordB.size());
        ASSERT_EQ(ComparedParts(recordA, 0, recordB, 0, op, form), whole);
        ASSERT_EQ(Compared(KyStringTab, 8, 0, &a, 0, &b, op), whole);
        for (unsigned length = 1; length <= recordA.size(); ++length) {
            ASSERT_EQ(ComparedParts(recordA, length, recordB, 0, op, form), expected(length, recordB.size())) << length;
        }
        for (unsigned length = 1; length <= recordB.size(); ++length) {
            ASSERT_EQ(ComparedParts(recordA, 0, recordB, length, op, form | 0x80), expected(recordA.size(), length))
                << length;
            const unsigned lengthA = 1 + generate.Below(static_cast<unsigned>(recordA.size()));
            ASSERT_EQ(ComparedParts(recordA, lengthA, recordB, length, op, form | 0x80), expected(lengthA, length))
                << lengthA << " " << length;
        }
    }
}

/// Contents on both sides of the size from which on copies are not on the stack.
TEST(StringCompareSlot, LongContentsAgreeWithTheirSlowTwinWhereverRecordsAreCut) {
    const std::vector<unsigned> longestJoined = LongestJoinedOfAll();
    StringGenerator generate(29);
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{1, 253, KyCodeSetOrders}) {
        const std::size_t width = codeSet < KyCodeSetFirst16Bit ? 1 : 2;
        for (const std::size_t content : {252U, 254U, 256U, 300U}) {
            const unsigned char language = codeSet == KyCodeSetOrders ? 1 : 10;
            const unsigned short letter = codeSet == KyCodeSetOrders ? 0x600C : 'a';
            std::vector<unsigned short> codes(content / width, letter);
            for (int i = 0; i < 8; ++i) codes[codes.size() - 1 - generate.Below(60)] = generate.Code(codeSet);
            const KyString a = StringGenerator::FromCodes(codeSet, language, codes);
            codes[codes.size() - 1 - generate.Below(40)] = generate.Code(codeSet);
            const KyString b = StringGenerator::FromCodes(codeSet, language, codes);
            const unsigned char form = generate.Below(2) == 0 ? 1 : 2;
            const auto recordA = RecordOf(a, form);
            const auto recordB = RecordOf(b, form);
            for (const unsigned short op : {kWild, kExact, static_cast<unsigned short>(0x80)}) {
                for (auto length = static_cast<unsigned>(recordA.size()); length > recordA.size() - 70; --length) {
                    const auto partA = slow::Decode(recordA.data(), length, form);
                    SCOPED_TRACE(std::to_string(codeSet) + " " + std::to_string(content) + " op " + std::to_string(op) +
                                 " length " + std::to_string(length));
                    ASSERT_EQ(
                        ComparedParts(recordA, length, recordB, 0, op, form),
                        slow::Compare(partA, slow::Decode(recordB.data(), recordB.size(), form), op, longestJoined));
                    ASSERT_EQ(ComparedParts(recordA, length, recordB, length, op, form),
                              slow::Compare(partA, slow::Decode(recordB.data(), length, form), op, longestJoined));
                }
            }
        }
    }
}

}  // namespace
