#include <gtest/gtest.h>

#include <limits>

#include "bounds_roster.h"
#include "kynull.h"
#include "null_roster.h"

// The share that EvalAndBound returns, by numbers written down here.

namespace {

constexpr float kLeast = 1.1920928955078125e-07F;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr long long kMost = std::numeric_limits<long long>::max();
constexpr long long kFewest = std::numeric_limits<long long>::min();
constexpr unsigned long long kMostUnsigned = std::numeric_limits<unsigned long long>::max();

bool IsWide(const KyTypeTab* row) { return row == &Ky8BTab || row == &KyU8BTab || row == &KyInt64Tab; }
bool IsFloating(const KyTypeTab* row) { return row == &KyDoubleTab || row == &KyFloatTab; }

/// Memory-form bytes of a number as the row has them.
ByteVector NumberOf(const KyTypeTab* row, int number) {
    if (row == &KyDoubleTab || row == &KyNull_doubleTab) return BytesOfValue<double>(number);
    if (row == &KyFloatTab || row == &KyNull_floatTab) return BytesOfValue<float>(static_cast<float>(number));
    ByteVector bytes = BytesOfValue<long long>(number);
    for (const NumberType& type : NumberTypes()) {
        if (type.row == row) bytes.resize(type.width);
    }
    return bytes;
}

/// The share of "key op value" in a row's form `flag`. The operands are values of memory form; null: no limit.
template <class Value>
float ShareOf(KyTypeTab& row, unsigned short op, const Value& value, const Value* lower, const Value* upper,
              unsigned char flag = KyFormReversed) {
    const auto form = [&row, flag](const Value& from) {
        ByteVector bytes(row.SizeGet(nullptr, KyFormMemory, flag, 1));
        row.Store(bytes.data(), &from, flag, 1);
        return bytes;
    };
    const ByteVector storedValue = form(value);
    BoundsOperands operands(storedValue.size());
    operands.SetValue(storedValue);
    if (lower != nullptr) {
        const ByteVector bytes = form(*lower);
        operands.SetLower(&bytes);
    }
    if (upper != nullptr) {
        const ByteVector bytes = form(*upper);
        operands.SetUpper(&bytes);
    }
    return operands.Share(row, op, flag);
}

template <class Value>
float ShareOf(KyTypeTab& row, unsigned short op, Value value, Value lower, Value upper) {
    return ShareOf(row, op, value, &lower, &upper);
}

TEST(Share, OfWholeNumbersByEveryRow) {
    const struct {
        unsigned short op;
        int value, lower, upper;
        float share;
        float wideShare;  ///< of 64-bit integers
    } cases[] = {
        {1, 50, 1, 100, 0.01F, 0.01F},
        {1, 1, 1, 100, 0.01F, 0.01F},
        {1, 100, 1, 100, 0.01F, 0.01F},
        {1, 0, 1, 100, 0, 0},
        {1, 101, 1, 100, 0, 0},
        {2, 50, 1, 100, 0.49F, 0.49F},
        {2, 100, 1, 100, 0.99F, 0.99F},
        {2, 101, 1, 100, 1, 1},
        {2, 120, 1, 100, 1, 1},
        {2, 0, 1, 100, 0, 0},
        {3, 50, 1, 100, 0.5F, 0.5F},
        {3, 100, 1, 100, 1, 1},
        {3, 101, 1, 100, 1, 1},
        {3, 1, 1, 100, 0.01F, 0.01F},
        {3, 0, 1, 100, 0, 0},
        {4, 50, 1, 100, 0.5F, 0.5F},
        {4, 1, 1, 100, 0.99F, 0.99F},
        {4, 0, 1, 100, 1, 1},
        {4, 101, 1, 100, 0, 0},
        {5, 91, 1, 100, 0.1F, 0.1F},
        {5, 1, 1, 100, 1, 1},
        {5, 0, 1, 100, 1, 1},
        {5, 101, 1, 100, 0, 0},
        {6, 50, 1, 100, 0.99F, 0.99F},
        {6, 0, 1, 100, 1, 1},
        {6, 101, 1, 100, 1, 1},
        {7, 50, 1, 100, 1, 1},
        {7, 0, 1, 100, 1, 1},
        {7, 101, 1, 100, 1, 1},
        // One key.
        {1, 7, 7, 7, 1, 1},
        {1, 8, 7, 7, 0, 0},
        {7, 7, 7, 7, 1, 1},
        // Kept: what stops right at a limit is one key of a 64-bit type, and none of any other.
        {2, 1, 1, 100, 0, 0.01F},
        {4, 100, 1, 100, 0, 0.01F},
        {6, 7, 7, 7, 0, 1},
        {2, 7, 7, 7, 0, 1},
        {4, 7, 7, 7, 0, 1},
        // No relation at all: the same second look.
        {0, 50, 1, 100, 0, 0.01F},
        {0, 0, 1, 100, 0, 0},
        {0, 101, 1, 100, 0, 0},
        // Limits that crossed.
        {7, 50, 60, 59, 0, 0},
        {7, 50, 60, 40, 0, 0},
        {1, 50, 60, 40, 0, 0},
    };
    for (const auto& each : cases) {
        for (const BoundedType& type : BoundedTypes()) {
            if (type.recordsOnly || (IsFloating(type.row) && each.upper < each.lower)) continue;
            SCOPED_TRACE(testing::Message() << type.name() << " op " << each.op << ' ' << each.value << " in "
                                            << each.lower << " to " << each.upper);
            const bool nullable = type.row->SetNull != nullptr;
            const auto form = [&](int number, unsigned char flag) {
                ByteVector memory = NumberOf(type.row, number);
                if (nullable) memory.resize(type.row->sizeWord & 0xFFFF, 0);
                ByteVector bytes(type.stored);
                type.row->Store(bytes.data(), memory.data(), flag, 1);
                return bytes;
            };
            BoundsOperands operands(type.stored);
            for (const unsigned char flag : {KyFormNative, KyFormReversed, KyFormMemory}) {
                const ByteVector lower = form(each.lower, flag);
                const ByteVector upper = form(each.upper, flag);
                operands.SetValue(form(each.value, flag));
                operands.SetLower(&lower);
                operands.SetUpper(&upper);
                const float expected = IsWide(type.row) ? each.wideShare : each.share;
                for (const unsigned modifiers : {0U, 0x8U, 0x8000U, 0x7FF0U}) {
                    const auto op = static_cast<unsigned short>(each.op | modifiers);
                    EXPECT_EQ(operands.Share(*type.row, op, flag), expected) << int{flag} << ' ' << op;
                }
            }
        }
    }
}

TEST(Share, AMissingLimitOfAPlainNumberIsZero) {
    const int value = 24;
    const int lower = -75;
    const int upper = 99;
    const int* const missing = nullptr;
    EXPECT_EQ(ShareOf(KyIntTab, 1, value, missing, &upper), 0.01F);
    EXPECT_EQ(ShareOf(KyIntTab, 2, value, missing, &upper), 0.24F);
    EXPECT_EQ(ShareOf(KyIntTab, 4, value, missing, &upper), 0.75F);
    EXPECT_EQ(ShareOf(KyIntTab, 2, value, &lower, missing), 1.0F);
    EXPECT_EQ(ShareOf(KyIntTab, 1, value, &lower, missing), 0.0F);
    EXPECT_EQ(ShareOf(KyIntTab, 2, value, missing, missing), 1.0F);
    EXPECT_EQ(ShareOf(KyIntTab, 1, value, missing, missing), 0.0F);
    // A missing upper limit below the lower one: there is no width to have a share of.
    EXPECT_EQ(ShareOf(KyIntTab, 7, value, &upper, missing), 0.0F);
    const long long wide = 1;
    const long long* const missingWide = nullptr;
    EXPECT_EQ(ShareOf(Ky8BTab, 7, wide, &wide, missingWide), 0.0F);
    const long long below = -1;
    EXPECT_EQ(ShareOf(Ky8BTab, 7, below, missingWide, &below), 0.0F);
}

TEST(Share, OfTheWidestIntegers) {
    EXPECT_EQ(ShareOf(Ky8BTab, 2, 0LL, kFewest, kMost), 0.5F);
    EXPECT_EQ(ShareOf(Ky8BTab, 7, 0LL, kFewest, kMost), 1.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 1, 5LL, kFewest, kMost), 0x1p-64F);
    EXPECT_EQ(ShareOf(Ky8BTab, 3, kMost, kFewest, kMost), 1.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 5, kFewest, kFewest, kMost), 1.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 2, kFewest, kFewest, kMost), 0x1p-64F);
    EXPECT_EQ(ShareOf(Ky8BTab, 4, kMost, kFewest, kMost), 0x1p-64F);
    EXPECT_EQ(ShareOf(KyU8BTab, 4, 1ULL << 63, 0ULL, kMostUnsigned), 0.5F);
    EXPECT_EQ(ShareOf(KyU8BTab, 2, 1ULL << 62, 0ULL, kMostUnsigned), 0.25F);
    EXPECT_EQ(ShareOf(KyLongTab, 2, 0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()), 0.5F);
    EXPECT_EQ(ShareOf(KyDWordTab, 2, 0x80000000U, 0U, 0xFFFFFFFFU), 0.5F);
    EXPECT_EQ(ShareOf(KyInt64Tab, 2, KyInt64(0), KyInt64(kFewest), KyInt64(kMost)), 0.5F);
}

TEST(Share, NeighboursThatDoublesCannotTellApartAreComparedAsIntegers) {
    // All of these are 2^63 as doubles.
    EXPECT_EQ(ShareOf(Ky8BTab, 2, kMost - 1, kMost - 2, kMost), 1.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 4, kMost - 1, kMost - 2, kMost), 1.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 2, kMost - 3, kMost - 2, kMost), 0.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 4, kMost, kMost - 2, kMost - 1), 0.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 6, kMost - 1, kMost - 2, kMost), 1.0F);
    EXPECT_EQ(ShareOf(KyInt64Tab, 2, KyInt64(kMost - 3), KyInt64(kMost - 2), KyInt64(kMost)), 0.0F);
    EXPECT_EQ(ShareOf(KyInt64Tab, 2, KyInt64(kMost - 1), KyInt64(kMost - 2), KyInt64(kMost)), 1.0F);
    EXPECT_EQ(ShareOf(KyU8BTab, 2, kMostUnsigned - 3, kMostUnsigned - 2, kMostUnsigned), 0.0F);
    EXPECT_EQ(ShareOf(KyU8BTab, 2, kMostUnsigned - 1, kMostUnsigned - 2, kMostUnsigned), 1.0F);
    // Each type by its own sign: 5 lies below all these, which are negative when read as signed.
    EXPECT_EQ(ShareOf(KyU8BTab, 2, 5ULL, 1ULL << 63, (1ULL << 63) + 9), 0.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 2, 5LL, kFewest, kFewest + 9), 1.0F);
}

TEST(Share, RoundingOfLargeIntegersNeverMakesItMoreThanAll) {
    // 2^53 + 2 less one key, or with one more, rounds to a number two away.
    const long long uneven = (1LL << 53) + 2;
    EXPECT_EQ(ShareOf(Ky8BTab, 4, 0LL, uneven, uneven), 1.0F);
    EXPECT_EQ(ShareOf(Ky8BTab, 2, uneven + 9, uneven, uneven), 1.0F);
    EXPECT_EQ(ShareOf(KyNull_8bTab, 4, KyNull_8b(0LL), KyNull_8b(uneven), KyNull_8b(uneven)), 1.0F);
}

TEST(Share, OfAKyInt64ReadsEachHalfInItsByteOrder) {
    // 2^32 + 5 in a range from 2^32 to 2^32 + 9.
    const ByteVector value = {0, 0, 0, 5, 0, 0, 0, 1};
    const ByteVector lower = {0, 0, 0, 0, 0, 0, 0, 1};
    const ByteVector upper = {0, 0, 0, 9, 0, 0, 0, 1};
    BoundsOperands operands(8);
    operands.SetValue(value);
    operands.SetLower(&lower);
    operands.SetUpper(&upper);
    EXPECT_EQ(operands.Share(KyInt64Tab, KyCmpLess, KyFormReversed), 0.5F);
    EXPECT_EQ(operands.Share(KyInt64Tab, KyCmpLess, 0x82), 0.5F);
    // The very bytes as 64-bit numbers: 5 * 2^32 + 1 in a range from 1 to 9 * 2^32 + 1.
    EXPECT_EQ(operands.Share(Ky8BTab, KyCmpLess, KyFormReversed), 5.0F / 9);
}

TEST(Share, OfDoubles) {
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 4.5, 0.0, 9.0), 0.45F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 4, 4.5, 0.0, 9.0), 0.45F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, 4.5, 0.0, 9.0), 0.1F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 7, 4.5, 0.0, 9.0), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, -0.0, 0.0, 0.0), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, 0.0, -0.0, -0.0), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, -0.0, 0.0, 0.0), 0.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 0, 4.5, 0.0, 9.0), 0.0F);
    // Half a key above the limit the parts add up to more than the whole.
    EXPECT_EQ(ShareOf(KyDoubleTab, 3, 9.5, 0.0, 9.0), 1.0F);
    EXPECT_EQ(ShareOf(KyFloatTab, 3, 9.5F, 0.0F, 9.0F), 1.0F);
    EXPECT_EQ(ShareOf(KyNull_doubleTab, 3, KyNull_double(9.5), KyNull_double(0.0), KyNull_double(9.0)), 1.0F);
}

TEST(Share, OfDoublesIsNeverZeroUnlessTheRangeIsEmpty) {
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 1e-5, 0.0, 1e30), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, 5.0, -kLargest / 2, kLargest / 2), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 5e-324, 0.0, 9.0), kLeast);
    EXPECT_EQ(ShareOf(KyFloatTab, 2, 1e-45F, 0.0F, 9.0F), kLeast);
    EXPECT_EQ(ShareOf(KyFloatTab, 1, 5.0F, -3e38F, 3e38F), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 0.0, 0.0, 1e30), 0.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, -1.0, 0.0, 1e30), 0.0F);
    EXPECT_EQ(ShareOf(KyFloatTab, 1, -3.0F, 0.0F, 9.0F), 0.0F);
}

TEST(Share, NaNAmongFloatingPointNumbers) {
    for (unsigned short op = 1; op < 8; ++op) {
        EXPECT_EQ(ShareOf(KyDoubleTab, op, kNaN, 0.0, 9.0), 1.0F) << op;
        EXPECT_EQ(ShareOf(KyFloatTab, op, static_cast<float>(kNaN), 0.0F, 9.0F), 1.0F) << op;
        EXPECT_EQ(ShareOf(KyNull_doubleTab, op, KyNull_double(kNaN), KyNull_double(0.0), KyNull_double(9.0)), 1.0F);
    }
    EXPECT_EQ(ShareOf(KyDoubleTab, 0, kNaN, 0.0, 9.0), 0.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 5.0, 0.0, kNaN), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 5.0, kNaN, 9.0), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 7, kNaN, kNaN, kNaN), 1.0F);
}

TEST(Share, Kept_NaNLimitsAreTheWidestRangeOfDoublesAndNoRangeOfFloats) {
    const auto nan = static_cast<float>(kNaN);
    EXPECT_EQ(ShareOf(KyDoubleTab, 4, 5.0, 0.0, kNaN), 1.0F);
    EXPECT_EQ(ShareOf(KyFloatTab, 4, 5.0F, 0.0F, nan), kLeast);
    EXPECT_EQ(ShareOf(KyNull_doubleTab, 4, KyNull_double(5.0), KyNull_double(0.0), KyNull_double(kNaN)), 0.0F);
}

TEST(Share, InfinitiesAmongFloatingPointNumbers) {
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, 5.0, 0.0, kInfinity), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 4, 5.0, 0.0, kInfinity), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 4, 5.0, -kInfinity, kInfinity), kLeast);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, kInfinity, kInfinity, kInfinity), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 2, kInfinity, 0.0, 9.0), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 4, -kInfinity, 0.0, 9.0), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 4, kInfinity, 0.0, 9.0), 0.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 7, 0.0, -kLargest, kLargest), kLeast);  // the width itself is infinite
    const KyNull_double infinite(kInfinity);
    EXPECT_EQ(ShareOf(KyNull_doubleTab, 4, KyNull_double(5.0), KyNull_double(0.0), infinite), 0.0F);
    EXPECT_EQ(ShareOf(KyNull_doubleTab, 2, KyNull_double(5.0), KyNull_double(0.0), infinite), 0.0F);
}

TEST(Share, OfDoublesWhoseLimitsCrossed) {
    const double upper = -1.0;
    const double further = -2.0;
    const double* const missing = nullptr;
    EXPECT_EQ(ShareOf(KyDoubleTab, 7, -0.5, missing, &upper), 0.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 7, -5.0, missing, &further), 0.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, kNaN, missing, &upper), 1.0F);
    EXPECT_EQ(ShareOf(KyDoubleTab, 1, kNaN, missing, &further), kLeast);
}

TEST(Share, OfNullables) {
    const KyNull_int null;
    const KyNull_int value = 5;
    const KyNull_int lower = 1;
    const KyNull_int upper = 100;
    const KyNull_int zeroBased = 99;
    const KyNull_int* const missing = nullptr;
    const struct {
        const char* what;
        KyNull_int value;
        const KyNull_int* lower;
        const KyNull_int* upper;
        float shares[8];  ///< by operator
    } cases[] = {
        //                                          none =      <       <=      >       >=     <>      all
        {"no null", value, &lower, &upper, {0, 0.01F, 0.04F, 0.05F, 0.95F, 0.96F, 0.99F, 1}},
        {"null value", null, &lower, &upper, {0, 0, 0, 0, 0.005F, 0.005F, 0.005F, 0.005F}},
        {"null lower", value, &null, &zeroBased, {0, 0, 0.005F, 0.005F, 0.005F, 0.005F, 0.01F, 0.01F}},
        {"no lower", value, missing, &zeroBased, {0, 0, 0.005F, 0.005F, 0.005F, 0.005F, 0.01F, 0.01F}},
        {"null value and lower", null, &null, &zeroBased, {0, 0, 0, 0, 0.005F, 0.005F, 0.005F, 0.005F}},
        {"null upper", value, &lower, &null, {}},
        {"no upper", value, &lower, missing, {}},
        {"only a value", value, missing, missing, {}},
        {"all null", null, &null, &null, {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        for (unsigned short op = 0; op < 8; ++op) {
            for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
                EXPECT_EQ(ShareOf(KyNull_intTab, op, each.value, each.lower, each.upper, flag), each.shares[op]) << op;
            }
        }
    }
    // A null upper limit counts as 0 in the width: 4 keys fewer than none here.
    const KyNull_int negative = -5;
    EXPECT_EQ(ShareOf(KyNull_intTab, 7, negative, &negative, &null), 0.0F);
    EXPECT_EQ(ShareOf(KyNull_intTab, 7, null, &null, &negative), 0.0F);
}

TEST(Share, Kept_OfNullablesHasNoFloorAndNoSecondLook) {
    EXPECT_EQ(ShareOf(KyNull_doubleTab, 2, KyNull_double(1e-5), KyNull_double(0.0), KyNull_double(1e30)), 1e-35F);
    EXPECT_EQ(ShareOf(KyNull_doubleTab, 2, KyNull_double(1e-300), KyNull_double(0.0), KyNull_double(1e30)), 0.0F);
    EXPECT_EQ(ShareOf(KyNull_floatTab, 1, KyNull_float(5.0F), KyNull_float(0.0F), KyNull_float(1e30F)), 1e-30F);
    EXPECT_EQ(ShareOf(KyNull_8bTab, 4, KyNull_8b(100LL), KyNull_8b(1LL), KyNull_8b(100LL)), 0.0F);
    EXPECT_EQ(ShareOf(KyNull_u8bTab, 2, KyNull_u8b(1ULL), KyNull_u8b(1ULL), KyNull_u8b(100ULL)), 0.0F);
    EXPECT_EQ(
        ShareOf(KyNull_KyInt64Tab, 2, KyNull_KyInt64(kMost - 1), KyNull_KyInt64(kMost - 2), KyNull_KyInt64(kMost)),
        0.0F);
}

TEST(Share, ANullByteOtherThanOneIsNoNull) {
    const ByteVector value = {2, 0, 0, 0, 5};
    const ByteVector lower = {0, 0, 0, 0, 1};
    const ByteVector upper = {0xFF, 0, 0, 0, 100};
    BoundsOperands operands(5);
    operands.SetValue(value);
    operands.SetLower(&lower);
    operands.SetUpper(&upper);
    EXPECT_EQ(operands.Share(KyNull_intTab, KyCmpLess, KyFormReversed), 0.04F);
    // What stands behind the null byte of a null does not matter.
    const ByteVector null = {1, 0, 0, 0, 77};
    operands.SetLower(&null);
    EXPECT_EQ(operands.Share(KyNull_intTab, KyCmpLess, KyFormReversed), static_cast<float>(0.5 / 101));
}

TEST(Share, OfABooleanIsAThirdOfAnyRange) {
    for (const unsigned char truth : ByteVector{0x00, 0x01, 0xFF, 0x05}) {
        for (unsigned short op = 0; op < 8; ++op) {
            BoundsOperands operands(1);
            operands.SetValue({truth});
            EXPECT_EQ(operands.Share(KyBooleanTab, op, KyFormNative), 0.33333334F);
            const ByteVector limit = {1};
            operands.SetLower(&limit);
            operands.SetUpper(&limit);
            EXPECT_EQ(operands.Share(KyBooleanTab, op, KyFormReversed), 0.33333334F);
            EXPECT_EQ(KyBooleanTab.EvalAndBound(nullptr, op, operands.value.data(), KyFormNative, 1, nullptr), 0.0F);
        }
    }
}

}  // namespace
