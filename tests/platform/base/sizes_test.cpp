#include <gtest/gtest.h>

#include "kybase.h"

namespace {

constexpr unsigned char forms[] = {0, 1, 2, 8, 255};

struct Sizes {
    const char* name;
    unsigned width;
    unsigned (*ofNull)(unsigned);
    unsigned (*of)(const void*, unsigned char, unsigned char, unsigned);
};

const Sizes sizes[] = {
    {"Char", 1, &CharNullSizeGet, &CharSizeGet},    {"Short", 2, &ShortNullSizeGet, &ShortSizeGet},
    {"Long", 4, &LongNullSizeGet, &LongSizeGet},    {"O_8B", 8, &O_8BNullSizeGet, &O_8BSizeGet},
    {"Float", 4, &FloatNullSizeGet, &FloatSizeGet}, {"Double", 8, &DoubleNullSizeGet, &DoubleSizeGet},
    {"Int", 4, &IntNullSizeGet, &IntSizeGet},
};

TEST(Sizes, AreWidthTimesCountInEveryForm) {
    for (const Sizes& size : sizes) {
        SCOPED_TRACE(size.name);
        for (const unsigned count : {0U, 1U, 2U, 1000U, 0x1FFFFFFFU, 0x40000001U}) {
            EXPECT_EQ(size.ofNull(count), size.width * count);
            for (const unsigned char from : forms) {
                for (const unsigned char to : forms) {
                    EXPECT_EQ(size.of(nullptr, from, to, count), size.width * count);
                }
            }
        }
    }
}

}  // namespace
