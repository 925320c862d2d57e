#include <gtest/gtest.h>

#include "kytypes.h"

namespace {

TEST(IncrementPointer, StopsWhereTheNextElementWouldStartAtTheEnd) {
    unsigned char buffer[16] = {};
    void* position = buffer + 8;
    EXPECT_EQ(IncrementPointer(position, buffer + 16, 8), KyErrBufferEnd);
    EXPECT_EQ(position, buffer + 8);
    EXPECT_EQ(IncrementPointer(position, buffer + 16, 7), 0);
    EXPECT_EQ(position, buffer + 15);
}

}  // namespace
