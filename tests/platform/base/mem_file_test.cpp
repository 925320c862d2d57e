#include <gtest/gtest.h>

#include <limits>

#include "kybase.h"

namespace {

constexpr long least = std::numeric_limits<long>::min();
constexpr long greatest = std::numeric_limits<long>::max();

TEST(MemFile, MovesFromEachOrigin) {
    unsigned char buffer[10];
    MemFile file(buffer, sizeof buffer);
    EXPECT_EQ(file.Seek(0, MemFile::current), buffer);
    EXPECT_EQ(file.Seek(4, MemFile::begin), buffer + 4);
    EXPECT_EQ(file.Seek(0, MemFile::current), buffer + 4);
    EXPECT_EQ(file.Seek(3, MemFile::current), buffer + 7);
    EXPECT_EQ(file.Seek(-2, MemFile::current), buffer + 5);
    EXPECT_EQ(file.Seek(-10, MemFile::end), buffer);
    EXPECT_EQ(file.Seek(0, MemFile::end), buffer + 10);
    EXPECT_EQ(file.Seek(-10, MemFile::current), buffer);
}

TEST(MemFile, StaysWhereItIsWhenTheTargetLiesOutside) {
    unsigned char buffer[10];
    MemFile file(buffer, sizeof buffer);
    ASSERT_EQ(file.Seek(6, MemFile::begin), buffer + 6);
    const struct {
        long offset;
        int origin;
    } outside[] = {
        {-1, MemFile::begin},
        {11, MemFile::begin},
        {least, MemFile::begin},
        {greatest, MemFile::begin},
        {-7, MemFile::current},
        {5, MemFile::current},
        {least, MemFile::current},
        {greatest, MemFile::current},
        {-11, MemFile::end},
        {1, MemFile::end},
        {least, MemFile::end},
        {greatest, MemFile::end},
        {0, -1},
        {0, 3},
    };
    for (const auto& [offset, origin] : outside) {
        EXPECT_EQ(file.Seek(offset, origin), nullptr) << offset << ' ' << origin;
        EXPECT_EQ(file.Seek(0, MemFile::current), buffer + 6) << offset << ' ' << origin;
    }
}

TEST(MemFile, OverNothing) {
    unsigned char buffer[1];
    MemFile empty(buffer, 0);
    EXPECT_EQ(empty.Seek(0, MemFile::begin), buffer);
    EXPECT_EQ(empty.Seek(0, MemFile::end), buffer);
    EXPECT_EQ(empty.Seek(1, MemFile::begin), nullptr);
    MemFile none(nullptr, 5);
    EXPECT_EQ(none.Seek(1, MemFile::begin), nullptr);
    EXPECT_EQ(none.Seek(-1, MemFile::end), nullptr);
}

}  // namespace
