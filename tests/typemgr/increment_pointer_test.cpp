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

TEST(IncrementPointer, NeverStepsToTheEndOrBeyond) {
    unsigned char buffer[16] = {};
    struct Case {
        int position;
        int end;
        unsigned step;
        int error;
        int after;
    };
    const Case cases[] = {
        {0, 16, 0, 0, 0},
        {0, 16, 15, 0, 15},
        {0, 16, 16, KyErrBufferEnd, 0},
        {0, 16, 17, KyErrBufferEnd, 0},
        {0, 16, 0xFFFFFFFF, KyErrBufferEnd, 0},
        {15, 16, 1, KyErrBufferEnd, 15},
        {16, 16, 0, KyErrBufferEnd, 16},
        {12, 8, 0, KyErrBufferEnd, 12},
        {12, 8, 4, KyErrBufferEnd, 12},
    };
    for (const Case& c : cases) {
        void* position = buffer + c.position;
        EXPECT_EQ(IncrementPointer(position, buffer + c.end, c.step), c.error) << c.position << ' ' << c.step;
        EXPECT_EQ(position, buffer + c.after) << c.position << ' ' << c.step;
    }
}

}  // namespace
