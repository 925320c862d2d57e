#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <type_traits>

#include "kynull.h"
#include "kytypevl.h"
#include "limit_blocks.h"
#include "oracle/slow_bounds.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// CalcRange and SetBoundaries by themselves.

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

static_assert(std::is_aggregate_v<KyIdxBounds> && std::is_trivially_copyable_v<KyIdxBounds>);

TEST(CalcRange, AddsUpWhatTheRelationsKeep) {
    const struct {
        unsigned short op;
        double valueLow, valueHigh, lower, upper, unit, kept;
    } cases[] = {
        {1, 50, 50, 1, 100, 1, 1},
        {2, 50, 50, 1, 100, 1, 49},
        {4, 50, 50, 1, 100, 1, 50},
        {3, 50, 50, 1, 100, 1, 50},
        {5, 50, 50, 1, 100, 1, 51},
        {6, 50, 50, 1, 100, 1, 99},
        {7, 50, 50, 1, 100, 1, 100},
        {0, 50, 50, 1, 100, 1, 0},
        // Outside: the whole range or nothing.
        {1, 0, 0, 1, 100, 1, 0},
        {2, 0, 0, 1, 100, 1, 0},
        {4, 0, 0, 1, 100, 1, 100},
        {4, -7, -7, 1, 100, 1, 100},
        {1, 101, 101, 1, 100, 1, 0},
        {2, 101, 101, 1, 100, 1, 100},
        {2, 1e9, 1e9, 1, 100, 1, 100},
        {4, 101, 101, 1, 100, 1, 0},
        // At the limits.
        {2, 1, 1, 1, 100, 1, 0},
        {4, 100, 100, 1, 100, 1, 0},
        {6, 1, 1, 1, 1, 1, 0},
        // A constant that covers a range of keys.
        {1, 20, 29, 1, 100, 1, 10},
        {2, 20, 29, 1, 100, 1, 19},
        {4, 20, 29, 1, 100, 1, 71},
        {1, -5, 3, 1, 100, 1, 3},
        {1, 98, 150, 1, 100, 1, 3},
        {1, -5, 150, 1, 100, 1, 100},
        // Wider keys.
        {1, 256, 256, 128, 1280, 128, 128},
        {4, 0, 0, 128, 1280, 128, 1280},
        {2, 4096, 4096, 128, 1280, 128, 1280},
        // Limits that crossed.
        {7, 5, 5, 10, 0, 1, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::Message() << each.op << ": " << each.valueLow << " to " << each.valueHigh << " in "
                                        << each.lower << " to " << each.upper);
        for (const unsigned modifiers : {0U, 0x8U, 0x10U, 0x8000U, 0x7FF0U, 0xFFF8U}) {
            const auto op = static_cast<unsigned short>(each.op | modifiers);
            EXPECT_EQ(CalcRange(op, each.valueLow, each.valueHigh, each.lower, each.upper, each.unit), each.kept);
        }
    }
}

TEST(CalcRange, NaNCountsAsTheLargestDoubleWhereverItStands) {
    EXPECT_EQ(CalcRange(1, kNaN, kNaN, 0, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(1, 5, 5, kNaN, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(1, 5, 5, 0, kNaN, 1), kLargest);
    EXPECT_EQ(CalcRange(1, kNaN, 5, 0, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(1, 5, kNaN, 0, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(2, kNaN, kNaN, 0, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(2, 5, 5, kNaN, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(2, 5, 5, 0, kNaN, 1), 5);
    EXPECT_EQ(CalcRange(4, kNaN, kNaN, 0, 9, 1), kLargest);
    EXPECT_EQ(CalcRange(4, 5, 5, kNaN, 9, 1), 4);
    EXPECT_EQ(CalcRange(4, 5, 5, 0, kNaN, 1), kLargest);
    EXPECT_EQ(CalcRange(6, kNaN, kNaN, 0, 9, 1), kInfinity);
    EXPECT_EQ(CalcRange(0, kNaN, kNaN, kNaN, kNaN, 1), 0);
}

TEST(CalcRange, InfinitiesThatMeetCountAsTheLargestDouble) {
    EXPECT_EQ(CalcRange(1, kInfinity, kInfinity, 0, kInfinity, 1), kLargest);
    EXPECT_EQ(CalcRange(4, kInfinity, kInfinity, 0, kInfinity, 1), kLargest);
    EXPECT_EQ(CalcRange(2, -kInfinity, -kInfinity, -kInfinity, 0, 1), kLargest);
    EXPECT_EQ(CalcRange(2, 5, 5, -kInfinity, 0, 1), kInfinity);
    EXPECT_EQ(CalcRange(4, 5, 5, 0, kInfinity, 1), kInfinity);
    EXPECT_EQ(CalcRange(1, 5, 5, -kInfinity, kInfinity, 1), 1);
    EXPECT_EQ(CalcRange(2, -kInfinity, -kInfinity, 0, 9, 1), 0);
}

TEST(CalcRange, AgreesWithItsSlowTwin) {
    const double operands[] = {
        kNaN, -kInfinity, -kLargest, -9007199254740993.0, -2,       -1.5,     -1, -0.0, 0.0, 5e-324, 0.25, 1,
        2,    2.5,        3,         9007199254740994.0,  kLargest, kInfinity};
    for (unsigned op = 0; op < 8; ++op) {
        for (const double low : operands) {
            for (const double high : operands) {
                for (const double lower : operands) {
                    for (const double upper : operands) {
                        for (const double unit : {1.0, 128.0, 1048576.0}) {
                            const double kept =
                                CalcRange(static_cast<unsigned short>(op), low, high, lower, upper, unit);
                            ASSERT_EQ(kept, SlowCalcRange(op, low, high, lower, upper, unit))
                                << op << ": " << low << " to " << high << " in " << lower << " to " << upper;
                            ASSERT_GE(kept, 0);
                        }
                    }
                }
            }
        }
    }
}

TEST(CalcRangeOfNullables, WithoutNullsIsThatOfTheNumbers) {
    for (unsigned short op = 0; op < 8; ++op) {
        for (const int value : {-3, 0, 1, 50, 100, 101}) {
            const double kept = CalcRange(op, value, value, 1, 100, 1);
            EXPECT_EQ((CalcRange<KyNull_int, int>(op, value, 1, 100, 1.0, nullptr)), kept);
            EXPECT_EQ(CalcRange(op, KyNull_KyInt64(value), KyNull_KyInt64(1), KyNull_KyInt64(100), 1.0,
                                static_cast<KyInt64*>(nullptr)),
                      kept);
            EXPECT_EQ(CalcRange(op, KyNull_double(value), KyNull_double(1), KyNull_double(100), 1.0,
                                static_cast<double*>(nullptr)),
                      kept);
        }
    }
}

TEST(CalcRangeOfNullables, HalfAKeyStandsForWhatNullLeavesUnknown) {
    const KyNull_int null;
    const KyNull_int five = 5;
    const struct {
        const char* nulls;
        KyNull_int value, lower, upper;
        double kept[8];  ///< by operator
    } cases[] = {
        //                                                  =  <    <=   >    >=   <>   all
        {"value", null, five, five, {0, 0, 0, 0, 0.5, 0.5, 0.5, 0.5}},
        {"lower", five, null, five, {0, 0, 0.5, 0.5, 0.5, 0.5, 1, 1}},
        {"value, lower", null, null, five, {0, 0, 0, 0, 0.5, 0.5, 0.5, 0.5}},
        {"upper", five, five, null, {0, 0, 0, 0, 0, 0, 0, 0}},
        {"value, upper", null, five, null, {0, 0, 0, 0, 0, 0, 0, 0}},
        {"lower, upper", five, null, null, {0, 0, 0, 0, 0, 0, 0, 0}},
        {"all", null, null, null, {0, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.nulls);
        for (unsigned short op = 0; op < 8; ++op) {
            // Half a key, whatever a key's width.
            for (const double unit : {1.0, 128.0}) {
                EXPECT_EQ((CalcRange<KyNull_int, int>(op, each.value, each.lower, each.upper, unit, nullptr)),
                          each.kept[op])
                    << op;
            }
        }
    }
}

TEST(SetBoundaries, CopiesTheValueWhereTheOperatorLeavesASideClosed) {
    const std::vector<unsigned char> bytes = Bytes("01 02 03");
    GuardedBuffer value(bytes);
    for (unsigned low = 0; low < 16; ++low) {
        for (const unsigned high : {0U, 0x10U, 0x8000U, 0x7FF0U, 0xFFF0U}) {
            SCOPED_TRACE(low | high);
            OwnedBounds out;
            limit_blocks::TakeSizes();
            SetBoundaries(&out.record, value.data(), static_cast<unsigned short>(low | high), 3);
            const bool hasLower = (low & 2) == 0;
            const bool hasUpper = (low & 4) == 0;
            EXPECT_EQ(out.record.lowerLen, hasLower ? 3 : 0);
            EXPECT_EQ(out.record.upperLen, hasUpper ? 3 : 0);
            EXPECT_EQ(LimitHex(out.record.lower, 3), hasLower ? "01 02 03" : "none");
            EXPECT_EQ(LimitHex(out.record.upper, 3), hasUpper ? "01 02 03" : "none");
            EXPECT_EQ(limit_blocks::TakeSizes(), std::vector<std::size_t>(hasLower + hasUpper, 3));
        }
    }
    EXPECT_EQ(limit_blocks::Live(), 0U);
}

TEST(SetBoundaries, ALimitThatIsSetStays) {
    unsigned char first[] = {1, 2};
    unsigned char second[] = {3, 4, 5};
    unsigned char mine[] = {9};
    OwnedBounds out;
    SetBoundaries(&out.record, first, 4, 2);  // greater: the lower limit
    void* const lower = out.record.lower;
    EXPECT_EQ(out.record.upper, nullptr);
    SetBoundaries(&out.record, second, 1, 3);  // equal: both
    EXPECT_EQ(out.record.lower, lower);
    EXPECT_EQ(Hex(out.record.lower, out.record.lowerLen), "01 02");
    EXPECT_EQ(Hex(out.record.upper, out.record.upperLen), "03 04 05");

    KyIdxBounds full{mine, mine, 1, 1};
    limit_blocks::TakeSizes();
    for (unsigned short op = 0; op < 8; ++op) SetBoundaries(&full, second, op, 3);
    EXPECT_TRUE(limit_blocks::TakeSizes().empty());
    EXPECT_EQ(full.lower, mine);
    EXPECT_EQ(full.upper, mine);
    EXPECT_EQ(full.lowerLen, 1);
    EXPECT_EQ(full.upperLen, 1);
}

TEST(SetBoundaries, TheLengthKeepsItsLowEightBitsTheBlockAllBytes) {
    for (const unsigned length : {0U, 1U, 254U, 255U, 256U, 257U, 1000U}) {
        std::vector<unsigned char> bytes(length);
        for (unsigned at = 0; at < length; ++at) bytes[at] = static_cast<unsigned char>(at * 7 + 1);
        GuardedBuffer value(bytes);
        OwnedBounds out;
        limit_blocks::TakeSizes();
        SetBoundaries(&out.record, value.data(), 1, length);
        EXPECT_EQ(limit_blocks::TakeSizes(), std::vector<std::size_t>(2, length));
        EXPECT_EQ(out.record.lowerLen, length % 256);
        EXPECT_EQ(out.record.upperLen, length % 256);
        EXPECT_EQ(LimitHex(out.record.lower, length), Hex(bytes.data(), length));
        EXPECT_EQ(LimitHex(out.record.upper, length), Hex(bytes.data(), length));
    }
}

TEST(SetBoundaries, WithoutARecordDoesNothing) {
    unsigned char value[] = {1};
    limit_blocks::TakeSizes();
    SetBoundaries(nullptr, value, 1, 1);
    SetBoundaries(nullptr, nullptr, 1, 1);
    EXPECT_TRUE(limit_blocks::TakeSizes().empty());
}

TEST(SetBoundaries, WithoutMemoryALimitStaysMissing) {
    unsigned char value[] = {7};
    OwnedBounds out;
    limit_blocks::Refuse(1);
    SetBoundaries(&out.record, value, 1, 1);
    EXPECT_EQ(Hex(out.record.lower, out.record.lowerLen), "07");
    EXPECT_EQ(out.record.upper, nullptr);
    EXPECT_EQ(out.record.upperLen, 0);

    out.Clear();
    limit_blocks::Refuse(1, true);
    EXPECT_THROW(SetBoundaries(&out.record, value, 1, 1), std::bad_alloc);
    EXPECT_EQ(Hex(out.record.lower, out.record.lowerLen), "07");
    EXPECT_EQ(out.record.upper, nullptr);

    limit_blocks::Refuse(limit_blocks::kNever);
    out.Clear();
    EXPECT_EQ(limit_blocks::Live(), 0U);
}

}  // namespace
