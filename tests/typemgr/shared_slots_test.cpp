#include "shared_slots.h"

#include <gtest/gtest.h>

namespace {

TEST(SharedSlots, NoIsNullDefinedSaysNotNull) {
    int value = 0;
    EXPECT_EQ(NoIsNullDefined(&value), 0);
    EXPECT_EQ(NoIsNullDefined(nullptr), 0);
}

TEST(SharedSlots, GetValueDummySupportsNothing) {
    int value = 7;
    for (unsigned what = 0; what < 256; ++what) {
        for (unsigned form : {1U, 2U, 8U, 129U}) {
            EXPECT_EQ(
                KyGetValueFuncDummy(&value, 1, static_cast<unsigned char>(form), static_cast<unsigned char>(what)),
                -2999);
        }
    }
    EXPECT_EQ(value, 7);
}

}  // namespace
