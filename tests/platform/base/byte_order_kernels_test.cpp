#include "byte_order_kernels.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <numeric>
#include <ostream>
#include <random>
#include <vector>

#include "oracle/slow_byte_order.h"
#include "support/guarded_buffer.h"

namespace {

using ky::ArrayKernel;

struct Kernel {
    const char* name;
    std::size_t width;
    ArrayKernel* move;
    bool (*runs)();
};

std::ostream& operator<<(std::ostream& out, const Kernel& kernel) { return out << kernel.name; }

bool Always() { return true; }
bool HasAvx2() { return __builtin_cpu_supports("avx2") != 0; }
bool HasAvx512() { return __builtin_cpu_supports("avx512bw") != 0; }

const Kernel kernels[] = {
    {"Sse2_1", 1, &ky::CopyBytesSse2, &Always},
    {"Avx2_1", 1, &ky::CopyBytesAvx2, &HasAvx2},
    {"Avx512_1", 1, &ky::CopyBytesAvx512, &HasAvx512},
    {"Best_1", 1, &ky::CopyBytes, &Always},
    {"Sse2_2", 2, &ky::ReverseBytes2Sse2, &Always},
    {"Sse2_4", 4, &ky::ReverseBytes4Sse2, &Always},
    {"Sse2_8", 8, &ky::ReverseBytes8Sse2, &Always},
    {"Avx2_2", 2, &ky::ReverseBytes2Avx2, &HasAvx2},
    {"Avx2_4", 4, &ky::ReverseBytes4Avx2, &HasAvx2},
    {"Avx2_8", 8, &ky::ReverseBytes8Avx2, &HasAvx2},
    {"Avx512_2", 2, &ky::ReverseBytes2Avx512, &HasAvx512},
    {"Avx512_4", 4, &ky::ReverseBytes4Avx512, &HasAvx512},
    {"Avx512_8", 8, &ky::ReverseBytes8Avx512, &HasAvx512},
    {"Best_2", 2, &ky::ReverseBytes2, &Always},
    {"Best_4", 4, &ky::ReverseBytes4, &Always},
    {"Best_8", 8, &ky::ReverseBytes8, &Always},
};

class ByteOrderKernels : public testing::TestWithParam<Kernel> {
protected:
    void SetUp() override {
        if (!GetParam().runs()) GTEST_SKIP() << "this machine lacks the instructions";
    }

    /// Bytes that are all different within any 251 neighbours.
    static std::vector<unsigned char> Pattern(std::size_t size) {
        std::vector<unsigned char> bytes(size);
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<unsigned char>(i % 251 + 1);
        return bytes;
    }
};

/// Every count around the register sizes and the unrolled stride, source and destination both ending right before
/// an inaccessible page.
TEST_P(ByteOrderKernels, EveryShortCountUpToTheEndOfMemory) {
    const auto [name, width, move, runs] = GetParam();
    for (std::size_t count = 0; count * width <= 700; ++count) {
        const auto bytes = Pattern(count * width);
        GuardedBuffer src{bytes};
        GuardedBuffer dst{bytes.size() + 1};
        dst.data()[0] = 0xEE;
        ASSERT_EQ(move(dst.data() + 1, src.data(), count), bytes.size());
        const auto expected = SlowReversed(bytes, width);
        ASSERT_TRUE(std::equal(expected.begin(), expected.end(), dst.data() + 1)) << count;
        ASSERT_EQ(dst.data()[0], 0xEE) << count;
    }
}

TEST_P(ByteOrderKernels, EveryAlignment) {
    const auto [name, width, move, runs] = GetParam();
    std::vector<unsigned char> src(1024);
    std::vector<unsigned char> dst(1024);
    for (const std::size_t count : {1U, 3U, 9U, 33U, 77U}) {
        const auto bytes = Pattern(count * width);
        const auto expected = SlowReversed(bytes, width);
        for (std::size_t from = 0; from < 64; ++from) {
            std::memcpy(src.data() + from, bytes.data(), bytes.size());
            for (std::size_t to = 1; to <= 64; ++to) {
                std::fill(dst.begin(), dst.end(), static_cast<unsigned char>(0xEE));
                move(dst.data() + to, src.data() + from, count);
                ASSERT_TRUE(std::equal(expected.begin(), expected.end(), dst.data() + to)) << from << ' ' << to;
                ASSERT_EQ(dst[to - 1], 0xEE);
                ASSERT_EQ(dst[to + bytes.size()], 0xEE);
            }
        }
    }
}

TEST_P(ByteOrderKernels, InPlaceAtEveryAlignment) {
    const auto [name, width, move, runs] = GetParam();
    for (std::size_t count = 0; count * width <= 700; ++count) {
        const auto bytes = Pattern(count * width);
        const auto expected = SlowReversed(bytes, width);
        for (std::size_t offset = 0; offset < 64; offset += 1 + count % 5) {
            std::vector<unsigned char> buffer(offset + bytes.size() + 1, 0xEE);
            std::copy(bytes.begin(), bytes.end(), buffer.begin() + static_cast<std::ptrdiff_t>(offset));
            move(buffer.data() + offset, buffer.data() + offset, count);
            ASSERT_TRUE(std::equal(expected.begin(), expected.end(), buffer.data() + offset)) << count << ' ' << offset;
            ASSERT_EQ(buffer.back(), 0xEE);
        }
    }
}

TEST_P(ByteOrderKernels, LongArraysOfRandomBytesTwiceAreTheArray) {
    const auto [name, width, move, runs] = GetParam();
    std::mt19937_64 random(20240507);
    for (int round = 0; round < 20; ++round) {
        const std::size_t count = 1000 + random() % 9000;
        std::vector<unsigned char> bytes(count * width);
        for (auto& byte : bytes) byte = static_cast<unsigned char>(random());
        std::vector<unsigned char> reversed(bytes.size());
        move(reversed.data(), bytes.data(), count);
        ASSERT_EQ(reversed, SlowReversed(bytes, width));
        move(reversed.data(), reversed.data(), count);
        ASSERT_EQ(reversed, bytes);
    }
}

TEST_P(ByteOrderKernels, NothingOfNothing) { EXPECT_EQ(GetParam().move(nullptr, nullptr, 0), 0U); }

INSTANTIATE_TEST_SUITE_P(Each, ByteOrderKernels, testing::ValuesIn(kernels),
                         [](const auto& kernel) { return kernel.param.name; });

}  // namespace
