#include "blob_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

// Every variant that this machine can run, with no readable byte behind the areas.

namespace {

using Bytes = std::vector<unsigned char>;

/// Around the widths of registers, of blocks, and of what is left to the C library.
constexpr std::size_t kSizes[] = {0,   1,   2,   15,  16,  17,   31,   32,   33,   63,   64,   65,   95,   127,  128,
                                  129, 191, 255, 256, 257, 320,  321,  511,  512,  513,  575,  576,  577,  767,  768,
                                  769, 895, 960, 961, 962, 1000, 1023, 1024, 1025, 1087, 2047, 4095, 4096, 4097, 9000};

class BlobKernels : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableBlobKernels()) GTEST_SKIP() << "not for this machine";
    }
    const ky::BlobKernels& kernels = ky::kBlobKernels[GetParam()];
    std::mt19937 random{41};

    Bytes RandomBytes(std::size_t size) {
        Bytes bytes(size);
        for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
        return bytes;
    }
};

TEST_P(BlobKernels, RunsAreCopied) {
    for (const std::size_t size : kSizes) {
        for (std::size_t offset = 0; offset < 70; offset += kFewerCases) {
            const Bytes bytes = RandomBytes(size);
            GuardedBuffer src{std::span(bytes)};
            GuardedBuffer dst(size + offset + 2);
            std::fill_n(dst.data(), dst.size(), static_cast<unsigned char>(0xA5));
            // The end may stand at any place, the one right in front of the inaccessible page included.
            unsigned char* const to = dst.data() + (offset % 2 == 0 ? 2 + offset : 1);
            ASSERT_EQ(kernels.copyRun(to, src.data(), size, 77), 77U);
            ASSERT_TRUE(std::equal(bytes.begin(), bytes.end(), to)) << size << ' ' << offset;
            const auto others = std::count(dst.data(), to, 0xA5) + std::count(to + size, dst.data() + dst.size(), 0xA5);
            ASSERT_EQ(static_cast<std::size_t>(others), offset + 2) << size << ' ' << offset;
        }
    }
}

TEST_P(BlobKernels, RunsAreCopiedToTheFront) {
    for (const std::size_t size : kSizes) {
        for (const std::size_t distance : {0U, 1U, 8U, 31U, 63U, 64U, 65U, 200U, 1000U}) {
            const Bytes bytes = RandomBytes(size + distance);
            GuardedBuffer area{std::span(bytes)};
            kernels.copyRun(area.data(), area.data() + distance, size, 0);
            ASSERT_TRUE(
                std::equal(area.data(), area.data() + size, bytes.begin() + static_cast<std::ptrdiff_t>(distance)))
                << size << ' ' << distance;
        }
    }
}

TEST_P(BlobKernels, TheFirstBytesThatDifferOrderRuns) {
    for (const std::size_t size : kSizes) {
        const Bytes bytes = RandomBytes(size);
        GuardedBuffer a{std::span(bytes)};
        GuardedBuffer b{std::span(bytes)};
        ASSERT_EQ(kernels.orderRuns(a.data(), size, b.data(), size), 0) << size;
        for (std::size_t at = 0; at < size; at += 1 + size / (200 / kFewerCases)) {
            // What stands behind the first difference does not count.
            const std::size_t behind = size - 1 - at / 2;
            b.data()[at] = static_cast<unsigned char>(bytes[at] ^ 0x80);
            if (behind > at) b.data()[behind] = static_cast<unsigned char>(bytes[behind] ^ 0x80);
            const int expected = bytes[at] < 0x80 ? -1 : 1;
            ASSERT_EQ(kernels.orderRuns(a.data(), size, b.data(), size), expected) << size << ' ' << at;
            ASSERT_EQ(kernels.orderRuns(b.data(), size, a.data(), size), -expected) << size << ' ' << at;
            b.data()[at] = bytes[at];
            if (behind > at) b.data()[behind] = bytes[behind];
        }
        if (size == 0) continue;
        b.data()[size - 1] = static_cast<unsigned char>(bytes[size - 1] ^ 1);
        ASSERT_EQ(kernels.orderRuns(a.data(), size, b.data(), size), (bytes[size - 1] & 1) == 0 ? -1 : 1) << size;
    }
}

TEST_P(BlobKernels, RunsThatBeginAlikeAreOrderedByLength) {
    for (const std::size_t size : kSizes) {
        for (const std::size_t more : {1U, 64U, 600U}) {
            const Bytes longer = RandomBytes(size + more);
            GuardedBuffer a{std::span(longer).first(size)};
            GuardedBuffer b{std::span(longer)};
            ASSERT_EQ(kernels.orderRuns(a.data(), size, b.data(), size + more), -1) << size;
            ASSERT_EQ(kernels.orderRuns(b.data(), size + more, a.data(), size), 1) << size;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, BlobKernels, testing::Range(0, ky::kBlobKernelVariants),
                         [](const auto& instance) { return std::string(ky::kBlobKernels[instance.param].name); });

TEST(BlobKernelsChoice, TheLoaderPicksAVariantThatWorks) {
    const Bytes bytes(1000, 7);
    Bytes copy(1000);
    EXPECT_EQ(ky::CopyRun(copy.data(), bytes.data(), bytes.size(), 5), 5U);
    EXPECT_EQ(copy, bytes);
    EXPECT_EQ(ky::OrderRuns(copy.data(), 1000, bytes.data(), 999), 1);
    EXPECT_EQ(ky::OrderRuns(nullptr, 0, nullptr, 0), 0);
    EXPECT_GE(ky::RunnableBlobKernels(), 1);
}

}  // namespace
