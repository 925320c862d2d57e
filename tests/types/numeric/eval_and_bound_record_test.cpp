#include <gtest/gtest.h>

#include <new>

#include "bounds_roster.h"
#include "kybase.h"
#include "kytypmgr.h"
#include "limit_blocks.h"
#include "null_roster.h"
#include "support/hex.h"

// What the rows' EvalAndBound records, whatever it estimates.

namespace {

constexpr unsigned short kModifiers[] = {0, 0x8, 0x10, 0x80, 0x100, 0x8000, 0x7FF0, 0xFFF8};

/// Bytes that are a value of every type in every form; no null byte among them.
ByteVector SomeBytes(std::size_t size) {
    ByteVector bytes(size);
    for (std::size_t at = 0; at < size; ++at) bytes[at] = static_cast<unsigned char>(at * 3 + 2);
    return bytes;
}

class Records : public testing::TestWithParam<BoundedType> {
protected:
    KyTypeTab& row = *GetParam().row;
    const unsigned stored = GetParam().stored;
};

TEST_P(Records, ACopyOfTheConstantOnEverySideThatTheOperatorCloses) {
    const ByteVector bytes = SomeBytes(stored);
    BoundsOperands operands(stored);
    operands.SetValue(bytes);
    operands.SetLower(&bytes);
    operands.SetUpper(&bytes);
    const std::string text = Hex(bytes.data(), stored);
    for (KyIdxBounds* bounds : {static_cast<KyIdxBounds*>(nullptr), &operands.bounds}) {
        for (const unsigned char flag : kFlags) {
            for (unsigned relation = 0; relation < 8; ++relation) {
                for (const unsigned modifier : kModifiers) {
                    const auto op = static_cast<unsigned short>(relation | modifier);
                    SCOPED_TRACE(testing::Message() << "flag " << int{flag} << " op " << op);
                    const bool hasLower = (relation & 2) == 0;
                    const bool hasUpper = (relation & 4) == 0;
                    OwnedBounds out;
                    limit_blocks::TakeSizes();
                    unsigned short word = op;
                    const float share = row.EvalAndBound(bounds, word, operands.value.data(), flag, 1, &out.record);
                    EXPECT_EQ(word, op);
                    EXPECT_LE(share, bounds != nullptr ? 1.0F : 0.0F);
                    EXPECT_EQ(limit_blocks::TakeSizes(), std::vector<std::size_t>(hasLower + hasUpper, stored));
                    EXPECT_EQ(out.record.lowerLen, hasLower ? stored : 0);
                    EXPECT_EQ(out.record.upperLen, hasUpper ? stored : 0);
                    EXPECT_EQ(LimitHex(out.record.lower, stored), hasLower ? text : "none");
                    EXPECT_EQ(LimitHex(out.record.upper, stored), hasUpper ? text : "none");
                }
            }
        }
    }
    EXPECT_EQ(limit_blocks::Live(), 0U);
}

TEST_P(Records, AllElementsWhileTheFirstIsEstimated) {
    for (const unsigned count : {0U, 1U, 2U, 3U, 64U, 300U}) {
        SCOPED_TRACE(count);
        // With a count of 0 there may be no value behind the pointer, unless a range is given.
        const ByteVector bytes = SomeBytes(std::size_t{stored} * count);
        GuardedBuffer value(bytes);
        OwnedBounds out;
        unsigned short op = 1;
        EXPECT_EQ(row.EvalAndBound(nullptr, op, value.data(), KyFormReversed, count, &out.record), 0.0F);
        EXPECT_EQ(out.record.lowerLen, bytes.size() % 256);
        EXPECT_EQ(out.record.upperLen, bytes.size() % 256);
        EXPECT_EQ(limit_blocks::TakeSizes(), std::vector<std::size_t>(2, bytes.size()));
        EXPECT_EQ(LimitHex(out.record.lower, bytes.size()), Hex(bytes.data(), bytes.size()));
        EXPECT_EQ(LimitHex(out.record.upper, bytes.size()), Hex(bytes.data(), bytes.size()));
        if (count == 0) continue;

        KyIdxBounds range{value.data(), value.data(), 0, 0};
        GuardedBuffer first(std::span<const unsigned char>(bytes).first(stored));
        for (unsigned short relation = 0; relation < 8; ++relation) {
            const float share = row.EvalAndBound(&range, relation, value.data(), KyFormNative, count, nullptr);
            EXPECT_EQ(share, row.EvalAndBound(&range, relation, first.data(), KyFormNative, 1, nullptr));
        }
    }
}

TEST_P(Records, WhatIsSetStays) {
    const ByteVector bytes = SomeBytes(stored);
    BoundsOperands operands(stored);
    operands.SetValue(bytes);
    unsigned char mine[] = {1};
    for (unsigned short op = 0; op < 8; ++op) {
        limit_blocks::TakeSizes();
        KyIdxBounds full{mine, mine, 1, 1};
        row.EvalAndBound(nullptr, op, operands.value.data(), KyFormNative, 1, &full);
        EXPECT_EQ(full.lower, mine);
        EXPECT_EQ(full.upper, mine);
        EXPECT_EQ(full.lowerLen, 1);
        EXPECT_EQ(full.upperLen, 1);
        EXPECT_TRUE(limit_blocks::TakeSizes().empty());

        // One side is open: only this one is filled.
        KyIdxBounds half{mine, nullptr, 1, 0};
        row.EvalAndBound(nullptr, op, operands.value.data(), KyFormNative, 1, &half);
        EXPECT_EQ(half.lower, mine);
        EXPECT_EQ(half.upper != nullptr, (op & 4) == 0);
        EXPECT_EQ(limit_blocks::TakeSizes().size(), (op & 4) == 0 ? 1U : 0U);
        mmKyfree(half.upper);
    }
    EXPECT_EQ(limit_blocks::Live(), 0U);
}

TEST_P(Records, NothingIsAllocatedWithoutARecord) {
    const ByteVector bytes = SomeBytes(stored);
    BoundsOperands operands(stored);
    operands.SetValue(bytes);
    operands.SetLower(&bytes);
    limit_blocks::TakeSizes();
    for (unsigned short op = 0; op < 8; ++op) {
        row.EvalAndBound(nullptr, op, operands.value.data(), KyFormNative, 1, nullptr);
        row.EvalAndBound(&operands.bounds, op, operands.value.data(), KyFormNative, 1, nullptr);
    }
    EXPECT_TRUE(limit_blocks::TakeSizes().empty());
}

TEST_P(Records, TheRangeThatIsReadMayBeTheOneThatIsNarrowed) {
    const ByteVector bytes = SomeBytes(stored);
    BoundsOperands operands(stored);
    operands.SetValue(bytes);
    operands.SetUpper(&bytes);
    unsigned short op = 5;
    const float apart = row.EvalAndBound(&operands.bounds, op, operands.value.data(), KyFormNative, 1, nullptr);
    const float together =
        row.EvalAndBound(&operands.bounds, op, operands.value.data(), KyFormNative, 1, &operands.bounds);
    EXPECT_EQ(together, apart);
    EXPECT_EQ(LimitHex(operands.bounds.lower, stored), Hex(bytes.data(), stored));
    mmKyfree(operands.bounds.lower);
}

TEST_P(Records, WithoutMemoryTheEstimateIsMadeAllTheSame) {
    const ByteVector bytes = SomeBytes(stored);
    BoundsOperands operands(stored);
    operands.SetValue(bytes);
    operands.SetLower(&bytes);
    operands.SetUpper(&bytes);
    unsigned short op = 1;
    const float share = row.EvalAndBound(&operands.bounds, op, operands.value.data(), KyFormNative, 1, nullptr);
    OwnedBounds out;
    limit_blocks::Refuse(0);
    EXPECT_EQ(row.EvalAndBound(&operands.bounds, op, operands.value.data(), KyFormNative, 1, &out.record), share);
    EXPECT_EQ(out.record.lower, nullptr);
    EXPECT_EQ(out.record.upper, nullptr);
    limit_blocks::Refuse(1, true);
    EXPECT_THROW(row.EvalAndBound(&operands.bounds, op, operands.value.data(), KyFormNative, 1, &out.record),
                 std::bad_alloc);
    EXPECT_NE(out.record.lower, nullptr);
    EXPECT_EQ(out.record.upper, nullptr);
    limit_blocks::Refuse(limit_blocks::kNever);
}

INSTANTIATE_TEST_SUITE_P(Bounds, Records, testing::ValuesIn(BoundedTypes()),
                         [](const auto& type) { return type.param.name(); });

TEST(RecordedBytes, AreThoseOfTheStoredConstant) {
    const struct {
        KyTypeTab* row;
        unsigned char flag;
        unsigned count;
        const char* value;  ///< and as many bytes more of 0xEE
        unsigned short op;
        const char* lower;
        const char* upper;
    } cases[] = {
        {&KyCharTab, 1, 1, "FF", 1, "FF", "FF"},
        {&KyByteTab, 2, 3, "01 02 03", 4, "01 02 03", ""},
        {&KyShortTab, 2, 1, "FF 00", 2, "", "FF 00"},
        {&KyWordTab, 1, 2, "00 FF 01 00", 3, "", "00 FF 01 00"},
        {&KyIntTab, 2, 1, "00 00 01 02", 5, "00 00 01 02", ""},
        {&KyUnsignedTab, 1, 1, "02 01 00 00", 6, "", ""},
        {&KyEnumTab, 1, 1, "02 00 00 00", 0, "02 00 00 00", "02 00 00 00"},
        {&KyBlockIdTab, 2, 1, "00 00 00 10", 0x8000, "00 00 00 10", "00 00 00 10"},
        {&KyLongTab, 2, 2, "00 00 00 01 00 00 00 02", 1, "00 00 00 01 00 00 00 02", "00 00 00 01 00 00 00 02"},
        {&Ky8BTab, 2, 1, "80 00 00 00 00 00 00 01", 4, "80 00 00 00 00 00 00 01", ""},
        {&KyInt64Tab, 2, 1, "00 00 00 01 80 00 00 00", 4, "00 00 00 01 80 00 00 00", ""},
        {&KyFloatTab, 2, 1, "3F 80 00 00", 2, "", "3F 80 00 00"},
        {&KyDoubleTab, 1, 1, "00 00 00 00 00 00 F8 7F", 1, "00 00 00 00 00 00 F8 7F", "00 00 00 00 00 00 F8 7F"},
        {&KyBooleanTab, 1, 3, "00 01 FF", 1, "00 01 FF", "00 01 FF"},
        // The null byte, then the number: one byte an element more than the number has, and no more.
        {&KyNull_charTab, 1, 1, "00 41", 1, "00 41", "00 41"},
        {&KyNull_intTab, 2, 1, "00 00 00 00 05", 1, "00 00 00 00 05", "00 00 00 00 05"},
        {&KyNull_intTab, 1, 2, "01 00 00 00 00 00 07 00 00 00", 4, "01 00 00 00 00 00 07 00 00 00", ""},
        {&KyNull_KyInt64Tab, 2, 1, "00 00 00 00 01 80 00 00 00", 2, "", "00 00 00 00 01 80 00 00 00"},
        {&KyNull_doubleTab, 1, 1, "01 00 00 00 00 00 00 00 00", 4, "01 00 00 00 00 00 00 00 00", ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::Message() << each.row->typeName << ' ' << each.value);
        ByteVector bytes = Bytes(each.value);
        const std::size_t size = bytes.size();
        bytes.resize(2 * size, 0xEE);
        OwnedBounds out;
        unsigned short op = each.op;
        KyTypeMgr manager(5);
        char id = 0;
        ASSERT_EQ(manager.Name2KyTypeId(each.row->typeName, id), 0);
        EXPECT_EQ(manager.EvalAndBound(id, nullptr, op, bytes.data(), each.flag, each.count, &out.record, nullptr), 0);
        EXPECT_EQ(Hex(out.record.lower, out.record.lowerLen), each.lower);
        EXPECT_EQ(Hex(out.record.upper, out.record.upperLen), each.upper);
    }
    EXPECT_EQ(limit_blocks::Live(), 0U);
}

TEST(RecordedBytes, OfRowsThatBoundNothing) {
    unsigned char value[16] = {};
    KyIdxBounds range{value, value, 1, 1};
    KyTypeMgr manager(5);
    for (const char id : {char{46}, char{100}, char{120}, char{127}}) {
        OwnedBounds out;
        for (unsigned short op = 0; op < 8; ++op) {
            EXPECT_EQ(manager.EvalAndBound(id, &range, op, value, KyFormNative, 1, &out.record, nullptr), 0.0F);
            EXPECT_EQ(out.record.lower, nullptr);
            EXPECT_EQ(out.record.upper, nullptr);
        }
    }
}

TEST(RecordedBytes, FirstComparisonThatFixesASideWins) {
    KyTypeMgr manager(5);
    OwnedBounds out;
    int lower = 1;
    int upper = 100;
    KyIdxBounds range{&lower, &upper, 4, 4};
    unsigned short atLeast = KyCmpGreater | KyCmpEqual;
    unsigned short equal = KyCmpEqual;
    int value = 91;
    EXPECT_EQ(manager.EvalAndBound(KyINT_T, &range, atLeast, &value, KyFormNative, 1, &out.record, nullptr), 0.1F);
    value = 95;
    EXPECT_EQ(manager.EvalAndBound(KyINT_T, &range, equal, &value, KyFormNative, 1, &out.record, nullptr), 0.01F);
    EXPECT_EQ(Hex(out.record.lower, out.record.lowerLen), "5B 00 00 00");
    EXPECT_EQ(Hex(out.record.upper, out.record.upperLen), "5F 00 00 00");
}

}  // namespace
