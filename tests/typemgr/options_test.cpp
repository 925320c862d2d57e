#include "options.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "kytypinf.h"

namespace {

TEST(Options, AreSixteenZeroBytesAtFirst) {
    const auto* block = static_cast<const unsigned char*>(___KyTypeMgrOptions());
    ASSERT_NE(block, nullptr);
    EXPECT_TRUE(std::all_of(block, block + 16, [](unsigned char byte) { return byte == 0; }));
    EXPECT_EQ(___KyTypeMgrOptions(), block);
}

TEST(Options, OnlyTheLowestBitOfTheFirstByteIsRead) {
    auto* block = static_cast<unsigned char*>(___KyTypeMgrOptions());
    EXPECT_FALSE(ky::NumbersAreBase10());
    std::fill(block, block + 16, static_cast<unsigned char>(0xFF));
    block[0] = 0xFE;
    EXPECT_FALSE(ky::NumbersAreBase10());
    block[0] = 0x01;
    EXPECT_TRUE(ky::NumbersAreBase10());
    std::fill(block, block + 16, static_cast<unsigned char>(0));
}

}  // namespace
