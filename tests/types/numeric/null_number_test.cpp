#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

#include "kynull.h"

// The classes as C++ programs use them.

namespace {

template <class Type>
class NullNumber : public testing::Test {};

using Types =
    testing::Types<KyNull_char, KyNull_uchar, KyNull_short, KyNull_ushort, KyNull_int, KyNull_unsigned, KyNull_long,
                   KyNull_ulong, KyNull_float, KyNull_double, KyNull_KyInt64, KyNull_8b, KyNull_u8b>;
TYPED_TEST_SUITE(NullNumber, Types);

TYPED_TEST(NullNumber, StartsAsNull) {
    const TypeParam value;
    EXPECT_EQ(value.IsNullValue(), 1);
    EXPECT_EQ(value.Get(), 0);
}

TYPED_TEST(NullNumber, TakesNumbersAndNull) {
    TypeParam value(5);
    EXPECT_EQ(value.IsNullValue(), 0);
    EXPECT_EQ(value.Get(), 5);
    value = 7;
    EXPECT_EQ(value.Get(), 7);
    EXPECT_EQ(value.SetNullValue(), 0);
    EXPECT_EQ(value.IsNullValue(), 1);
    EXPECT_EQ(value.Get(), 0);
    const TypeParam other = 9;
    value = other;
    EXPECT_EQ(value.Get(), 9);
    value = TypeParam();
    EXPECT_EQ(value.IsNullValue(), 1);
    value = typename TypeParam::NumberType(3);
    EXPECT_EQ(value, 3);
}

TYPED_TEST(NullNumber, NullIsEqualToItselfAndBelowEveryNumber) {
    const TypeParam null;
    const TypeParam otherNull;
    using Number = typename TypeParam::NumberType;
    using Plain = std::conditional_t<std::is_same_v<Number, KyInt64>, long long, Number>;
    const TypeParam least(std::numeric_limits<Plain>::lowest());
    const TypeParam one(1);
    const TypeParam two(2);
    const TypeParam ascending[] = {null, least, one, two};
    EXPECT_TRUE(null == otherNull);
    EXPECT_FALSE(null != otherNull);
    EXPECT_FALSE(null < otherNull);
    EXPECT_TRUE(null <= otherNull && null >= otherNull);
    for (const TypeParam& a : ascending) {
        for (const TypeParam& b : ascending) {
            EXPECT_EQ(a == b, &a == &b || (a.IsNullValue() == b.IsNullValue() && a.Get() == b.Get()));
            EXPECT_EQ(a != b, !(a == b));
            EXPECT_EQ(a > b, b < a);
            EXPECT_EQ(a <= b, a < b || a == b);
            EXPECT_EQ(a >= b, b <= a);
        }
    }
    EXPECT_TRUE(null < least);
    EXPECT_TRUE(null < one);
    EXPECT_TRUE(one < two);
    EXPECT_TRUE(two > null);
    EXPECT_TRUE(one == 1);
    EXPECT_TRUE(one < 2);
    EXPECT_TRUE(0 < one);
    EXPECT_FALSE(null == 0) << "a null holds 0 and is not 0";
}

TYPED_TEST(NullNumber, Sorts) {
    std::vector<TypeParam> values = {TypeParam(3), TypeParam(), TypeParam(1), TypeParam(2), TypeParam()};
    std::sort(values.begin(), values.end());
    EXPECT_EQ(values, (std::vector<TypeParam>{TypeParam(), TypeParam(), TypeParam(1), TypeParam(2), TypeParam(3)}));
}

TYPED_TEST(NullNumber, IsMovedAsBytes) {
    EXPECT_TRUE(std::is_trivially_copyable_v<TypeParam>);
    EXPECT_TRUE(std::is_standard_layout_v<TypeParam>);
    unsigned char bytes[sizeof(TypeParam)];
    const TypeParam value(1);
    std::memcpy(bytes, &value, sizeof value);
    typename TypeParam::NumberType number;
    std::memcpy(&number, bytes, sizeof number);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(bytes[TypeParam::FlagOffset()], 0);
}

TEST(NullNumberTypes, ComparisonHasFourResults) {
    const KyNull_int null;
    const KyNull_int one(1);
    EXPECT_EQ(KyNullValueCompare(null, null), KyBothNull);
    EXPECT_EQ(KyNullValueCompare(null, one), KyFirstNull);
    EXPECT_EQ(KyNullValueCompare(one, null), KySecondNull);
    EXPECT_EQ(KyNullValueCompare(one, one), KyNeitherNull);
    EXPECT_EQ(KyBothNull, 0);
    EXPECT_EQ(KyFirstNull, 1);
    EXPECT_EQ(KySecondNull, 2);
    EXPECT_EQ(KyNeitherNull, 3);
}

TEST(NullNumberTypes, KeepNumbersOfTheirWidth) {
    EXPECT_EQ(KyNull_long(-2147483647 - 1).Get(), -2147483647 - 1);
    EXPECT_EQ(KyNull_ulong(4294967295u).Get(), 4294967295u);
    EXPECT_EQ(KyNull_u8b(18446744073709551615ull).Get(), 18446744073709551615ull);
    EXPECT_EQ(KyNull_KyInt64(1LL << 40).Get(), KyInt64(1LL << 40));
    EXPECT_EQ(KyNull_KyInt64(1e15).Get(), KyInt64(1000000000000000));
    EXPECT_EQ(KyNull_double(0.1).Get(), 0.1);
}

TEST(NullNumberTypes, NaNsCompareAsTheyDoWithoutNull) {
    const KyNull_double nan(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(nan == nan);
    EXPECT_FALSE(nan < 1.0 || nan > 1.0 || nan <= nan);
    EXPECT_TRUE(KyNull_double() < nan);
}

TEST(NullNumberTypes, AreUsableInConstantExpressions) {
    constexpr KyNull_KyInt64 value(5);
    static_assert(value == 5 && value > KyNull_KyInt64() && KyNull_short().IsNullValue() == 1);
    EXPECT_EQ(value.Get(), 5);
}

}  // namespace
