#include "identifier_kernels.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

// Every variant that this machine can run, for every layout, with no readable byte behind the areas.

namespace {

using ky::IdentifierLayout;

constexpr IdentifierLayout kLayouts[] = {IdentifierLayout::storedObjId, IdentifierLayout::objId,
                                         IdentifierLayout::storedRef, IdentifierLayout::ref};

bool IsIdentity(IdentifierLayout layout, std::size_t place) {
    const std::size_t at = place % ky::SizesOf(layout).element;
    return at >= 4 && at < (layout == IdentifierLayout::storedRef || layout == IdentifierLayout::ref ? 12u : 10u);
}

std::vector<unsigned char> RandomBytes(std::mt19937& random, std::size_t size) {
    std::vector<unsigned char> bytes(size);
    for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
    return bytes;
}

class IdentifierKernels : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableIdentifierKernels()) GTEST_SKIP() << "not for this machine";
    }
    const ky::IdentifierKernels& kernels = ky::kIdentifierKernels[GetParam()];
};

TEST_P(IdentifierKernels, OnlyBytesOfTheIdentityTellElementsApart) {
    std::mt19937 random(5);
    for (const IdentifierLayout layout : kLayouts) {
        const std::size_t element = ky::SizesOf(layout).element;
        for (std::size_t count = 0; count < 140; count += count < 36 || count > 60 ? 1 : 7) {
            const std::vector<unsigned char> bytes = RandomBytes(random, count * element);
            GuardedBuffer a{std::span(bytes)};
            GuardedBuffer b{std::span(bytes)};
            for (std::size_t i = 0; i < bytes.size(); ++i) {
                if (!IsIdentity(layout, i)) b.data()[i] = static_cast<unsigned char>(random());
            }
            ASSERT_EQ(kernels.firstOther(layout, a.data(), b.data(), count), count);
            for (std::size_t i = 0; i < bytes.size(); i += 1 + bytes.size() / (997 / kFewerCases)) {
                const auto bit = static_cast<unsigned char>(1 << random() % 8);
                b.data()[i] ^= bit;
                const std::size_t expected = IsIdentity(layout, i) ? i / element : count;
                ASSERT_EQ(kernels.firstOther(layout, a.data(), b.data(), count), expected) << count << ' ' << i;
                ASSERT_EQ(kernels.firstOther(layout, b.data(), a.data(), count), expected) << count << ' ' << i;
                b.data()[i] ^= bit;
            }
        }
    }
}

TEST_P(IdentifierKernels, TheFirstOfSeveralIsFound) {
    for (const IdentifierLayout layout : kLayouts) {
        const std::size_t element = ky::SizesOf(layout).element;
        constexpr std::size_t count = 101;
        GuardedBuffer a(count * element);
        GuardedBuffer b(count * element);
        std::fill_n(a.data(), count * element, static_cast<unsigned char>(0x5A));
        std::fill_n(b.data(), count * element, static_cast<unsigned char>(0x5A));
        for (std::size_t i = count; i-- > 0;) {
            b.data()[i * element + 4 + i % 6] = 0xA5;
            ASSERT_EQ(kernels.firstOther(layout, a.data(), b.data(), count), i);
        }
    }
}

TEST_P(IdentifierKernels, IdentitiesAreCombined) {
    std::mt19937 random(6);
    for (const IdentifierLayout layout : kLayouts) {
        const std::size_t element = ky::SizesOf(layout).element;
        for (std::size_t count = 0; count < 300; count += count < 140 ? 1 : 17) {
            const std::vector<unsigned char> bytes = RandomBytes(random, count * element);
            GuardedBuffer data{std::span(bytes)};
            std::uint64_t expected = 0;
            for (std::size_t i = 0; i < bytes.size(); ++i) {
                if (IsIdentity(layout, i)) expected ^= std::uint64_t{bytes[i]} << (8 * (i % element - 4));
            }
            ASSERT_EQ(kernels.xorAll(layout, data.data(), count), expected) << count;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, IdentifierKernels, testing::Range(0, ky::kIdentifierKernelVariants),
                         [](const auto& instance) { return std::string(ky::kIdentifierKernels[instance.param].name); });

TEST(IdentifierKernelsChoice, TheLoaderPicksAVariantThatWorks) {
    const unsigned char a[] = {9, 9, 9, 9, 1, 2, 3, 4, 5, 6, 1, 1, 1, 1, 1, 2, 3, 4, 5, 6};
    const unsigned char b[] = {8, 8, 8, 8, 1, 2, 3, 4, 5, 6, 1, 1, 1, 1, 1, 2, 3, 4, 5, 7};
    EXPECT_EQ(ky::FirstOtherIdentity(IdentifierLayout::storedObjId, a, b, 2), 1u);
    EXPECT_EQ(ky::XorIdentities(IdentifierLayout::storedObjId, b, 2), 0x010000000000u);
    EXPECT_GE(ky::RunnableIdentifierKernels(), 1);
}

}  // namespace
