#include "array_rules.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

struct WalkCase {
    unsigned length;
    unsigned elementSize;
    unsigned count;
    std::size_t visited;
};

TEST(ElementsInside, ThoseThatStartInsideAndAlwaysTheFirst) {
    static constexpr WalkCase table[] = {
        {0, 4, 0, 0},
        {0, 4, 3, 3},
        {12, 4, 0, 0},
        {12, 4, 3, 3},
        {12, 4, 4, 3},
        {13, 4, 4, 4},
        {9, 4, 3, 3},
        {8, 4, 3, 2},
        {1, 4, 3, 1},
        {1, 4, 1, 1},
        {4, 4, 1, 1},
        {100, 4, 3, 3},
        {7, 12, 2, 1},
        {12, 12, 2, 1},
        {13, 12, 2, 2},
        {5, 1, 9, 5},
        {0xFFFFFFFFu, 8, 0xFFFFFFFFu, 0x20000000u},
        {0, 8, 0xFFFFFFFFu, 0xFFFFFFFFu},
    };
    for (const WalkCase& walk : table) {
        EXPECT_EQ(ky::ElementsInside(walk.length, walk.elementSize, walk.count), walk.visited)
            << walk.length << " " << walk.elementSize << " " << walk.count;
    }
}

TEST(BufferEndError, ComesWithTheLastElementThatFitsWhenMoreWereAskedFor) {
    EXPECT_EQ(ky::BufferEndError(0, 3, 5), 0);
    EXPECT_EQ(ky::BufferEndError(1, 3, 5), 0);
    EXPECT_EQ(ky::BufferEndError(2, 3, 5), KyErrBufferEnd);
    EXPECT_EQ(ky::BufferEndError(3, 3, 5), KyErrBufferEnd);
    EXPECT_EQ(ky::BufferEndError(2, 3, 3), 0);
    EXPECT_EQ(ky::BufferEndError(3, 3, 3), 0);
}

TEST(CopyPersistent, FillsALongerDestinationWithZeros) {
    unsigned char src[4] = {1, 2, 3, 4};
    unsigned char dst[9];
    std::memset(dst, 0xEE, sizeof dst);
    EXPECT_EQ(ky::CopyPersistent(dst, 8, src, 4), 4u);
    const unsigned char expected[9] = {1, 2, 3, 4, 0, 0, 0, 0, 0xEE};
    EXPECT_EQ(std::memcmp(dst, expected, sizeof dst), 0);
    EXPECT_EQ(ky::CopyPersistent(nullptr, 0, nullptr, 0), 0u);
}

TEST(CopyPersistent, ABufferCanBeTranslatedInPlace) {
    unsigned char buffer[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(ky::CopyPersistent(buffer, 6, buffer, 4), 4u);
    const unsigned char expected[6] = {1, 2, 3, 4, 0, 0};
    EXPECT_EQ(std::memcmp(buffer, expected, sizeof buffer), 0);
}

TEST(Order, NeverSubtracts) {
    EXPECT_EQ(ky::Order(INT64_MIN, INT64_MAX), -1);
    EXPECT_EQ(ky::Order(INT64_MAX, INT64_MIN), 1);
    EXPECT_EQ(ky::Order(0u, 0xFFFFFFFFu), -1);
    EXPECT_EQ(ky::Order(3, 3), 0);
}

}  // namespace
