#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "kybase.h"
#include "oracle/slow_byte_order.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr unsigned char bothOrders[] = {1, 2};

struct Conversion {
    const char* name;
    unsigned width;
    unsigned (*convert)(void*, const void*, unsigned char, unsigned);
};

const Conversion conversions[] = {
    {"CharStore", 1, &CharStore},       {"ShortStore", 2, &ShortStore}, {"LongStore", 4, &LongStore},
    {"O_8BStore", 8, &O_8BStore},       {"FloatStore", 4, &FloatStore}, {"DoubleStore", 8, &DoubleStore},
    {"IntStore", 4, &IntStore},         {"IntLoad", 4, &IntLoad},       {"UnsignedStore", 4, &UnsignedStore},
    {"UnsignedLoad", 4, &UnsignedLoad},
};

struct SingleConversion {
    const char* name;
    unsigned width;
    unsigned (*convert)(void*, const void*, unsigned char);
};

const SingleConversion singleConversions[] = {
    {"ShortStoreOne", 2, &ShortStoreOne},
    {"LongStoreOne", 4, &LongStoreOne},
    {"O_8BStoreOne", 8, &O_8BStoreOne},
};

std::vector<unsigned char> Pattern(std::size_t size) {
    std::vector<unsigned char> bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<unsigned char>(i * 7 + 1);
    return bytes;
}

std::vector<unsigned char> Expected(const std::vector<unsigned char>& bytes, unsigned width, unsigned flag) {
    return (flag & 15) == 2 ? SlowReversed(bytes, width) : bytes;
}

TEST(ByteOrder, EveryFlag) {
    for (const Conversion& conversion : conversions) {
        for (unsigned flag = 0; flag < 256; ++flag) {
            for (const unsigned count : {1U, 2U, 50U, 1000U, 5000U}) {
                const auto bytes = Pattern(count * conversion.width);
                std::vector<unsigned char> stored(bytes.size());
                EXPECT_EQ(conversion.convert(stored.data(), bytes.data(), static_cast<unsigned char>(flag), count),
                          count * conversion.width);
                EXPECT_EQ(stored, Expected(bytes, conversion.width, flag)) << conversion.name << ' ' << flag;
                conversion.convert(stored.data(), stored.data(), static_cast<unsigned char>(flag), count);
                EXPECT_EQ(stored, bytes) << conversion.name << " back and in place " << flag;
            }
        }
    }
}

TEST(ByteOrder, EveryFlagOfOneValue) {
    for (const SingleConversion& conversion : singleConversions) {
        for (unsigned flag = 0; flag < 256; ++flag) {
            const auto bytes = Pattern(conversion.width);
            GuardedBuffer src{bytes};
            GuardedBuffer dst{conversion.width};
            EXPECT_EQ(conversion.convert(dst.data(), src.data(), static_cast<unsigned char>(flag)), conversion.width);
            EXPECT_EQ(Hex(dst.data(), dst.size()),
                      Hex(Expected(bytes, conversion.width, flag).data(), conversion.width))
                << conversion.name << ' ' << flag;
            conversion.convert(dst.data(), dst.data(), static_cast<unsigned char>(flag));
            EXPECT_EQ(Hex(dst.data(), dst.size()), Hex(bytes.data(), bytes.size())) << conversion.name;
        }
    }
}

TEST(ByteOrder, EveryOffsetAndNothingBeside) {
    for (const Conversion& conversion : conversions) {
        for (const unsigned count : {1U, 3U, 8U, 40U}) {
            const auto bytes = Pattern(count * conversion.width);
            for (const unsigned char flag : bothOrders) {
                const auto expected = Expected(bytes, conversion.width, flag);
                for (std::size_t from = 0; from < 8; ++from) {
                    for (std::size_t to = 0; to < 8; ++to) {
                        std::vector<unsigned char> src(from + bytes.size());
                        std::copy(bytes.begin(), bytes.end(), src.begin() + static_cast<std::ptrdiff_t>(from));
                        std::vector<unsigned char> dst(1 + to + bytes.size() + 1, 0xEE);
                        conversion.convert(dst.data() + 1 + to, src.data() + from, flag, count);
                        EXPECT_TRUE(std::equal(expected.begin(), expected.end(), dst.data() + 1 + to));
                        EXPECT_EQ(dst[to], 0xEE) << conversion.name;
                        EXPECT_EQ(dst.back(), 0xEE) << conversion.name;
                    }
                }
            }
        }
    }
}

TEST(ByteOrder, NothingOfNothing) {
    for (const Conversion& conversion : conversions) {
        for (const unsigned char flag : bothOrders) EXPECT_EQ(conversion.convert(nullptr, nullptr, flag, 0), 0U);
    }
}

TEST(ByteOrder, GoldenBytes) {
    const unsigned long long value = 0x0102030405060708;
    unsigned char stored[8] = {};
    O_8BStore(stored, &value, 2, 1);
    EXPECT_EQ(Hex(stored, 8), "01 02 03 04 05 06 07 08");
    O_8BStore(stored, &value, 1, 1);
    EXPECT_EQ(Hex(stored, 8), "08 07 06 05 04 03 02 01");
    const double one = 1.0;
    DoubleStore(stored, &one, 2, 1);
    EXPECT_EQ(Hex(stored, 8), "3F F0 00 00 00 00 00 00");
    const float half = 0.5F;
    FloatStore(stored, &half, 0x82, 1);
    EXPECT_EQ(Hex(stored, 4), "3F 00 00 00");
    const short three = 3;
    ShortStoreOne(stored, &three, 2);
    EXPECT_EQ(Hex(stored, 2), "00 03");
}

/// More bytes than 32 bits count: the conversion goes on beyond what is left of their number, here 4 or 8 bytes.
TEST(ByteOrderDeathTest, BytesAreCountedInFullWidth) {
    GuardedBuffer src{64};
    GuardedBuffer dst{64};
    for (const unsigned char flag : bothOrders) {
        EXPECT_DEATH(LongStore(dst.data(), src.data(), flag, 0x40000001), "");
        EXPECT_DEATH(O_8BStore(dst.data(), src.data(), flag, 0x20000001), "");
    }
}

}  // namespace
