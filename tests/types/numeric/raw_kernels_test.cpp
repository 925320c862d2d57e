#include "raw_kernels.h"

#include <gtest/gtest.h>

#include <random>

#include "number_bits.h"
#include "number_roster.h"
#include "support/guarded_buffer.h"

// Every variant that this machine can run, at every alignment and size, with no readable byte behind the areas.

namespace {

class RawKernels : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableRawKernels()) GTEST_SKIP() << "not for this machine";
    }
    const ky::RawKernels& kernels = ky::kRawKernels[GetParam()];
};

TEST_P(RawKernels, FirstDifferenceIsFoundWhereverItStands) {
    for (std::size_t size = 0; size <= 1300; size += size < 160 ? 1 : 37) {
        for (std::size_t shift = 0; shift < 70; shift += shift < 10 ? 1 : 9) {
            GuardedBuffer a(size);
            GuardedBuffer b(size + shift);
            std::fill_n(a.data(), size, static_cast<unsigned char>(0xA5));
            std::fill_n(b.data(), size + shift, static_cast<unsigned char>(0xA5));
            ASSERT_EQ(kernels.firstDifference(a.data(), b.data() + shift, size), size);
            for (std::size_t at = 0; at < size; at += 1 + size / 29) {
                a.data()[at] = 0x25;
                a.data()[size - 1] ^= 1;
                ASSERT_EQ(kernels.firstDifference(a.data(), b.data() + shift, size), at) << size << " " << shift;
                ASSERT_EQ(kernels.firstDifference(b.data() + shift, a.data(), size), at) << size << " " << shift;
                a.data()[size - 1] ^= 1;
                a.data()[at] = 0xA5;
            }
        }
    }
}

TEST_P(RawKernels, XorWordsFillsTheLastWordWithZeros) {
    std::mt19937 random(7);
    for (std::size_t size = 0; size <= 1300; ++size) {
        GuardedBuffer data(size);
        std::uint64_t expected = 0;
        for (std::size_t i = 0; i < size; ++i) {
            data.data()[i] = static_cast<unsigned char>(random());
            expected ^= std::uint64_t{data.data()[i]} << (8 * (i % 8));
        }
        ASSERT_EQ(kernels.xorWords(data.data(), size), expected) << size;
    }
}

/// Areas of values of equal rank in different bytes, with one other value placed everywhere.
template <class Bits>
void RanksOf(ky::FirstOtherRankKernel* kernel, const std::vector<NumberSample>& samples, bool reversed) {
    constexpr unsigned width = sizeof(Bits);
    const unsigned char form = reversed ? KyFormReversed : KyFormNative;
    std::mt19937 random(11);
    for (unsigned count = 0; count < 75; ++count) {
        ByteVector a;
        ByteVector b;
        while (a.size() < count * width) {
            const NumberSample& inA = samples[random() % samples.size()];
            const NumberSample& inB = samples[random() % samples.size()];
            if (inA.rank != inB.rank) continue;
            a.insert(a.end(), inA.memory.begin(), inA.memory.end());
            b.insert(b.end(), inB.memory.begin(), inB.memory.end());
        }
        a = InForm(a, width, form);
        b = InForm(b, width, form);
        GuardedBuffer guardedB{std::span(b)};
        {
            GuardedBuffer guardedA{std::span(a)};
            ASSERT_EQ(kernel(guardedA.data(), guardedB.data(), count, reversed), count);
        }
        for (unsigned at = 0; at < count; ++at) {
            ByteVector changed = a;
            const NumberSample* other = &samples[random() % samples.size()];
            auto rankAt = [&](const ByteVector& bytes) {
                return ky::FloatingRank(ky::InMemoryOrder(ky::LoadAs<Bits>(bytes.data() + at * width), form));
            };
            const ByteVector stored = InForm(other->memory, width, form);
            std::copy(stored.begin(), stored.end(), changed.begin() + at * width);
            if (rankAt(changed) == rankAt(b)) continue;
            GuardedBuffer guardedA{std::span(changed)};
            ASSERT_EQ(kernel(guardedA.data(), guardedB.data(), count, reversed), at) << count;
        }
    }
}

TEST_P(RawKernels, FirstOtherRankPassesEqualNumbersInOtherBytes) {
    for (const NumberType& type : NumberTypes()) {
        if (!type.floating) continue;
        for (const bool reversed : {false, true}) {
            if (type.width == 4) RanksOf<std::uint32_t>(kernels.firstOtherRank32, type.samples, reversed);
            if (type.width == 8) RanksOf<std::uint64_t>(kernels.firstOtherRank64, type.samples, reversed);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, RawKernels, testing::Range(0, ky::kRawKernelVariants),
                         [](const auto& instance) { return std::string(ky::kRawKernels[instance.param].name); });

TEST(RawKernelsChoice, TheLoaderPicksAVariantThatWorks) {
    const unsigned char a[] = "equal up to here.";
    const unsigned char b[] = "equal up to there";
    EXPECT_EQ(ky::FirstDifference(a, b, sizeof a), 12u);
    EXPECT_EQ(ky::XorWords("\1\2\3\4\5\6\7\10\1", 9), 0x0807060504030200u);
    EXPECT_GE(ky::RunnableRawKernels(), 1);
}

TEST(FloatingRank, OrdersTheRosterAsItsRanksDo) {
    for (const NumberType& type : NumberTypes()) {
        if (!type.floating) continue;
        for (const NumberSample& a : type.samples) {
            for (const NumberSample& b : type.samples) {
                const bool below = type.width == 8 ? ky::FloatingRank(ky::LoadAs<std::uint64_t>(a.memory.data())) <
                                                         ky::FloatingRank(ky::LoadAs<std::uint64_t>(b.memory.data()))
                                                   : ky::FloatingRank(ky::LoadAs<std::uint32_t>(a.memory.data())) <
                                                         ky::FloatingRank(ky::LoadAs<std::uint32_t>(b.memory.data()));
                EXPECT_EQ(below, a.rank < b.rank);
            }
        }
    }
}

}  // namespace
