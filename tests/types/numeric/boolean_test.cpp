#include "kyboolean.h"

#include <gtest/gtest.h>

#include <bit>

namespace {

KyBoolean Null() {
    KyBoolean value;
    value.SetNullValue();
    return value;
}

/// A value as a database may hold it.
KyBoolean OfByte(int byte) { return std::bit_cast<KyBoolean>(static_cast<signed char>(byte)); }

TEST(Boolean, KeepsTheTruthOfAnInt) {
    EXPECT_EQ(KyBoolean().Get(), 0);
    EXPECT_EQ(KyBoolean(0).Get(), 0);
    EXPECT_EQ(KyBoolean(1).Get(), 1);
    EXPECT_EQ(KyBoolean(256).Get(), 1);
    EXPECT_EQ(KyBoolean(-1).Get(), 1);
    KyBoolean value;
    value = 42;
    EXPECT_EQ(value.Get(), 1);
}

TEST(Boolean, HasANull) {
    KyBoolean value(1);
    EXPECT_EQ(value.IsNullValue(), 0);
    EXPECT_EQ(value.SetNullValue(), 0);
    EXPECT_NE(value.IsNullValue(), 0);
    EXPECT_EQ(value.Get(), -1);
    EXPECT_NE(OfByte(0xFF).IsNullValue(), 0);
    EXPECT_EQ(OfByte(0x80).IsNullValue(), 0);
}

TEST(Boolean, SaysWhichOfTwoIsNull) {
    EXPECT_EQ(KyNullValueCompare(Null(), Null()), 0);
    EXPECT_EQ(KyNullValueCompare(Null(), KyBoolean(0)), 1);
    EXPECT_EQ(KyNullValueCompare(KyBoolean(0), Null()), 2);
    EXPECT_EQ(KyNullValueCompare(KyBoolean(0), KyBoolean(1)), 3);
}

struct Pair {
    int a;
    int b;
    bool equal;
    bool less;
    bool greater;
};

TEST(Boolean, OrdersNullBelowFalseBelowTrue) {
    const Pair table[] = {
        {0xFF, 0xFF, true, false, false}, {0xFF, 0, false, true, false},    {0xFF, 1, false, true, false},
        {0, 0xFF, false, false, true},    {0, 0, true, false, false},       {0, 1, false, true, false},
        {1, 0, false, false, true},       {1, 1, true, false, false},       {0x80, 0, false, true, false},
        {0, 0x80, false, false, true},    {0xFF, 0x80, false, true, false}, {2, 0, false, false, true},
    };
    for (const Pair& each : table) {
        SCOPED_TRACE(testing::Message() << each.a << ' ' << each.b);
        EXPECT_EQ(OfByte(each.a) == OfByte(each.b), each.equal);
        EXPECT_EQ(OfByte(each.a) != OfByte(each.b), !each.equal);
        EXPECT_EQ(OfByte(each.a) < OfByte(each.b), each.less);
        EXPECT_EQ(OfByte(each.a) > OfByte(each.b), each.greater);
    }
}

TEST(Boolean, Kept_BytesOfOneTruthAreEqualAndYetGreater) {
    EXPECT_TRUE(OfByte(2) == OfByte(1));
    EXPECT_TRUE(OfByte(2) > OfByte(1));
    EXPECT_FALSE(OfByte(1) > OfByte(2));
    EXPECT_FALSE(OfByte(1) < OfByte(2));
    EXPECT_FALSE(OfByte(2) < OfByte(1));
}

TEST(Boolean, ComparesWithAnIntAsItsTruth) {
    EXPECT_TRUE(KyBoolean(1) == 5);
    EXPECT_TRUE(KyBoolean(0) == 0);
    EXPECT_TRUE(KyBoolean(0) < 7);
    EXPECT_TRUE(KyBoolean(1) > 0);
    EXPECT_TRUE(Null() < 0);
    EXPECT_FALSE(Null() == -1);
}

}  // namespace
