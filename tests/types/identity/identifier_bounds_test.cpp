#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "../numeric/limit_blocks.h"
#include "kyobjid.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr unsigned long long kMost = 0xFFFFFFFFFFFF;
constexpr unsigned long long kNone = std::numeric_limits<unsigned long long>::max();  ///< no limit

KyRef RefOf(unsigned long long number) {
    const KyObjId object(77, static_cast<unsigned>(number), static_cast<unsigned short>(number >> 32));
    return {object, 5, KyClassId(6, 7)};
}

/// One value in a form, whose last byte is the last readable one.
class Limit {
public:
    Limit(KyTypeTab& row, unsigned long long number, unsigned char form)
        : buffer(form == KyFormMemory ? (row.sizeWord & 0xFFFF) : row.SizeGet(nullptr, KyFormMemory, form, 1)) {
        const KyRef ref = RefOf(number);
        if (form == KyFormMemory) {
            std::memcpy(buffer.data(), &ref, buffer.size());
        } else {
            row.Store(buffer.data(), &ref, form, 1);
        }
    }
    void* At() { return buffer.data(); }

private:
    GuardedBuffer buffer;
};

float Share(KyTypeTab& row, unsigned short op, unsigned long long value, unsigned long long lower,
            unsigned long long upper, unsigned char form = KyFormReversed) {
    Limit storedValue(row, value, form);
    Limit storedLower(row, lower & kMost, form);
    Limit storedUpper(row, upper & kMost, form);
    KyIdxBounds bounds;
    if (lower != kNone) bounds.lower = storedLower.At();
    if (upper != kNone) bounds.upper = storedUpper.At();
    const unsigned short before = op;
    const float share = row.EvalAndBound(&bounds, op, storedValue.At(), form, 1, nullptr);
    EXPECT_EQ(op, before);
    return share;
}

struct Case {
    unsigned short op;
    unsigned long long value;
    unsigned long long lower;
    unsigned long long upper;
    double share;
};

TEST(IdentifierBounds, SharesOfTheObjectNumbers) {
    constexpr double all = 281474976710656.0;  // 2^48
    const Case table[] = {
        {KyCmpEqual, 50, 1, 100, 0.01},
        {KyCmpEqual, 0, 1, 100, 0},
        {KyCmpGreater | KyCmpEqual, 91, 1, 100, 0.1},
        {KyCmpGreater, 90, 1, 100, 0.1},
        {KyCmpLess, 11, 1, 100, 0.1},
        {KyCmpLess, 1000, 1, 100, 1},
        {KyCmpGreater, 0, 1, 100, 1},
        {KyCmpGreater, 100, 1, 100, 0},  // no second look at what measures 0
        {KyCmpLess, 1, 1, 100, 0},
        {KyCmpLess | KyCmpGreater, 50, 1, 100, 0.99},
        {KyCmpLess | KyCmpGreater, 50, 50, 50, 0},
        {0, 50, 1, 100, 0},
        {KyCmpEqual, 0x300000005, 0x300000001, 0x300000010, 1.0 / 16},
        {KyCmpGreater, 0x7FFFFFFFFFFF, kNone, kNone, 0x800000000000 / all},
        {KyCmpLess, 1ULL << 40, kNone, kNone, (1ULL << 40) / all},
        {KyCmpLess, 50, kNone, 99, 0.5},
        {KyCmpGreater | KyCmpEqual, kMost - 9, kMost - 99, kNone, 0.1},
        {KyCmpEqual, 0, kNone, kNone, 1 / all},
        {KyCmpEqual, 50, 100, 1, 1},  // limits that crossed tell nothing
        {0, 50, 100, 99, 1},
        {KyCmpLess | KyCmpGreater | KyCmpEqual, 50, 1, 100, 1},
        {KyCmpLess | KyCmpGreater | KyCmpEqual | 0x8FF0, 50, 1, 100, 1},
    };
    for (KyTypeTab* row : {&KyObjIdTab, &KyRefTab}) {
        for (const unsigned char form :
             {KyFormNative, KyFormReversed, KyFormMemory, static_cast<unsigned char>(0x12)}) {
            for (const Case& each : table) {
                EXPECT_EQ(Share(*row, each.op, each.value, each.lower, each.upper, form),
                          static_cast<float>(each.share))
                    << row->typeName << ' ' << int{form} << ": " << each.op << ' ' << each.value << ' ' << each.lower
                    << ' ' << each.upper;
            }
        }
    }
}

TEST(IdentifierBounds, SharesStayBetweenNothingAndAll) {
    std::mt19937_64 random(12);
    for (int i = 0; i < 20000; ++i) {
        const unsigned long long numbers[] = {random() & kMost, random() & 0xFF, kMost - (random() & 0xFF), kNone};
        const auto op = static_cast<unsigned short>(random());
        const float share =
            Share(KyObjIdTab, op, numbers[random() % 3], numbers[random() % 4], numbers[random() % 4], KyFormNative);
        ASSERT_GE(share, 0.0F);
        ASSERT_LE(share, 1.0F);
    }
}

TEST(IdentifierBounds, LimitsAreRecordedInTheFormOfTheConstant) {
    for (KyTypeTab* row : {&KyObjIdTab, &KyRefTab}) {
        const unsigned size = row == &KyObjIdTab ? 10 : 14;
        for (const bool withRange : {false, true}) {
            for (unsigned short op = 0; op < 8; ++op) {
                KyRef refs[] = {RefOf(5), RefOf(6)};
                std::vector<unsigned char> constant(2 * size);
                if (row == &KyObjIdTab) {
                    KyObjId objects[] = {{77, 5, 0}, {77, 6, 0}};
                    row->Store(constant.data(), objects, KyFormReversed, 2);
                } else {
                    row->Store(constant.data(), refs, KyFormReversed, 2);
                }
                const std::string bytes = Hex(constant.data(), constant.size());
                KyIdxBounds range;
                OwnedBounds out;
                unsigned short word = op;
                const float share = row->EvalAndBound(withRange ? &range : nullptr, word, constant.data(),
                                                      KyFormReversed, 2, &out.record);
                if (!withRange) {
                    EXPECT_EQ(share, 0.0F);
                }
                EXPECT_EQ(LimitHex(out.record.lower, 2 * size), (op & KyCmpLess) == 0 ? bytes : "none");
                EXPECT_EQ(LimitHex(out.record.upper, 2 * size), (op & KyCmpGreater) == 0 ? bytes : "none");
                if (out.record.lower != nullptr) {
                    EXPECT_EQ(out.record.lowerLen, 2 * size);
                }
                if (out.record.upper != nullptr) {
                    EXPECT_EQ(out.record.upperLen, 2 * size);
                }
                for (const std::size_t each : limit_blocks::TakeSizes()) EXPECT_EQ(each, 2 * size);
            }
        }
    }
    EXPECT_EQ(limit_blocks::Live(), 0u);
}

TEST(IdentifierBounds, ALimitThatIsSetStays) {
    OwnedBounds out;
    unsigned short op = KyCmpEqual;
    Limit first(KyObjIdTab, 5, KyFormReversed);
    Limit second(KyObjIdTab, 9, KyFormReversed);
    KyObjIdTab.EvalAndBound(nullptr, op, first.At(), KyFormReversed, 1, &out.record);
    KyObjIdTab.EvalAndBound(nullptr, op, second.At(), KyFormReversed, 1, &out.record);
    EXPECT_EQ(LimitHex(out.record.lower, 10), "00 00 00 4D 00 00 00 05 00 00");
    EXPECT_EQ(LimitHex(out.record.upper, 10), "00 00 00 4D 00 00 00 05 00 00");
}

TEST(IdentifierBounds, WithoutMemoryALimitStaysMissing) {
    for (const std::size_t blocks : {0u, 1u}) {
        OwnedBounds out;
        unsigned short op = KyCmpEqual;
        Limit constant(KyRefTab, 5, KyFormReversed);
        limit_blocks::Refuse(blocks);
        KyRefTab.EvalAndBound(nullptr, op, constant.At(), KyFormReversed, 1, &out.record);
        limit_blocks::Refuse(limit_blocks::kNever);
        EXPECT_EQ(out.record.lower != nullptr, blocks == 1);
        EXPECT_EQ(out.record.upper, nullptr);
    }
}

TEST(IdentifierBounds, ClassIdsKeepEverythingAndRecordNothing) {
    KyClassId id(1, 2);
    KyIdxBounds range;
    range.lower = &id;
    range.upper = &id;
    for (KyIdxBounds* bounds : {static_cast<KyIdxBounds*>(nullptr), &range}) {
        KyIdxBounds out;
        unsigned short op = KyCmpEqual | KyCmpExact;
        EXPECT_EQ(KyClassIdTab.EvalAndBound(bounds, op, &id, KyFormNative, 1, &out), 1.0F);
        EXPECT_EQ(op, KyCmpEqual | KyCmpExact);
        EXPECT_EQ(out.lower, nullptr);
        EXPECT_EQ(out.upper, nullptr);
        EXPECT_EQ(KyClassIdTab.EvalAndBound(bounds, op, nullptr, KyFormNative, 1, nullptr), 1.0F);
    }
}

}  // namespace
