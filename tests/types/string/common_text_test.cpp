#include "common_text.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "compare_texts.h"
#include "support/fewer_cases.h"

namespace {

using texts::Below;

/// The variants of the kernels that this machine can run.
class CommonText : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableCommonTextKernels()) GTEST_SKIP() << "not on this machine";
    }
    const ky::CommonTextKernels& Kernels() const { return ky::kCommonTextKernels[GetParam()]; }

    texts::Random random{11};
    texts::Area areaA;
    texts::Area areaB;

    /// Lengths around those of the vectors and blocks.
    std::size_t Length() {
        static constexpr std::size_t around[] = {0, 16, 32, 64, 128, 256, 320, 512, 1024, 4096, 9000};
        const std::size_t length = around[Below(random, std::size(around))] + Below(random, 12);
        return length < 5 ? length : length - 5;
    }
    /// Bytes between a text and the end of readable memory.
    std::size_t Gap() { return Below(random, 3) == 0 ? 0 : Below(random, 4200); }
};

constexpr std::size_t kWhole = ~std::size_t{1};

TEST_P(CommonText, BytesStopAtTheFirstDifferenceOrTheEnd) {
    for (int round = 0; round < 20000 / kFewerCases; ++round) {
        std::string bytes(Length() + 1, 'y');
        for (char& c : bytes) c = static_cast<char>(1 + Below(random, 255));
        bytes.back() = 0;
        std::string other = bytes;
        std::size_t expected = bytes.size() - 1;
        if (Below(random, 2) == 0) {
            expected = Below(random, bytes.size());
            other[expected] = static_cast<char>(other[expected] ^ (1 << Below(random, 8)));
            if (Below(random, 2) == 0) other = other.substr(0, expected + 1) + std::string(Below(random, 100), 'z');
        }
        const char* a = areaA.Put(bytes, Gap());
        const char* b = areaB.Put(other + '\0', Gap());
        ASSERT_EQ(Kernels().bytes(a, b, kWhole), expected);
        ASSERT_EQ(Kernels().bytes(b, a, kWhole), expected);
        const std::size_t limit = Below(random, bytes.size() + 20);
        ASSERT_EQ(Kernels().bytes(a, b, limit), std::min(limit, expected));
    }
}

TEST_P(CommonText, NothingIsReadOnAPageBehindTheLimit) {
    const std::string bytes(300, 'a');
    for (std::size_t limit = 1; limit <= bytes.size(); ++limit) {
        const char* a = areaA.Put(bytes.substr(0, limit), 0);
        const char* b = areaB.Put(bytes.substr(0, limit), 0);
        ASSERT_EQ(Kernels().bytes(a, b, limit), limit);
        ASSERT_EQ(Kernels().units(a, b, limit / 2 * 2), limit / 2 * 2);
    }
}

TEST_P(CommonText, UnitsStopAtTheFirstDifferenceOrTheEnd) {
    for (int round = 0; round < 20000 / kFewerCases; ++round) {
        texts::Codes codes(Length() / 2);
        // Bytes of 0 are everywhere, units of 0 are not.
        for (unsigned short& code : codes) {
            code = static_cast<unsigned short>(1 + Below(random, 255));
            if (Below(random, 2) == 0) code = static_cast<unsigned short>(code << 8);
        }
        codes.push_back(0);
        texts::Codes other = codes;
        std::size_t expected = codes.size() - 1;
        if (Below(random, 2) == 0) {
            expected = Below(random, codes.size());
            other[expected] = static_cast<unsigned short>(other[expected] ^ (1 << Below(random, 16)));
        }
        const char* a = areaA.Put(texts::Encoded(codes, KyCodeSetUnicode, 1), Gap());
        const char* b = areaB.Put(texts::Encoded(other, KyCodeSetUnicode, 1), Gap());
        ASSERT_EQ(Kernels().units(a, b, kWhole), 2 * expected);
        const std::size_t limit = 2 * Below(random, codes.size() + 20);
        ASSERT_EQ(Kernels().units(a, b, limit), std::min(limit, 2 * expected));
    }
}

/// Ranks in which some characters are the same; only the terminator has its own.
std::array<unsigned char, 256> RandomRanks(texts::Random& random) {
    std::array<unsigned char, 256> ranks{};
    for (unsigned code = 1; code < 256; ++code) ranks[code] = static_cast<unsigned char>(1 + Below(random, 255));
    return ranks;
}

TEST_P(CommonText, RanksStopAtTheFirstOtherRankOrTheEnd) {
    for (int round = 0; round < 20000 / kFewerCases; ++round) {
        const auto ranks = RandomRanks(random);
        texts::Codes codes(Length());
        for (unsigned short& code : codes) code = static_cast<unsigned short>(1 + Below(random, 255));
        texts::Codes other = codes;
        for (unsigned short& code : other) {
            const auto candidate = static_cast<unsigned short>(1 + Below(random, 255));
            if (ranks[candidate] == ranks[code]) code = candidate;
        }
        std::size_t expected = codes.size();
        if (!codes.empty() && Below(random, 2) == 0) {
            const std::size_t at = Below(random, codes.size());
            other[at] = static_cast<unsigned short>(1 + Below(random, 255));
            if (ranks[other[at]] != ranks[codes[at]]) expected = at;
        }
        const char* a = areaA.Put(texts::Encoded(codes, KyCodeSetLatin1, 1), Gap());
        const char* b = areaB.Put(texts::Encoded(other, KyCodeSetLatin1, 1), Gap());
        ASSERT_EQ(Kernels().ranks(ranks.data(), a, b), expected);
        for (const unsigned char format : std::initializer_list<unsigned char>{1, 2}) {
            texts::Codes wide = codes;
            std::size_t wideExpected = expected;
            if (!wide.empty() && Below(random, 4) == 0) {
                const std::size_t at = Below(random, wide.size());
                wide[at] = static_cast<unsigned short>(wide[at] | 0x100 << Below(random, 8));
                wideExpected = std::min(wideExpected, at);
            }
            const char* wideA = areaA.Put(texts::Encoded(wide, KyCodeSetUnicode, format), Gap());
            const char* wideB = areaB.Put(texts::Encoded(other, KyCodeSetUnicode, format), Gap());
            ASSERT_EQ(Kernels().wideRanks(ranks.data(), wideA, wideB, format == 2), 2 * wideExpected);
            ASSERT_EQ(Kernels().wideRanks(ranks.data(), wideB, wideA, format == 2), 2 * wideExpected);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, CommonText, testing::Range(0, ky::kCommonTextVariants),
                         [](const auto& variant) { return ky::kCommonTextKernels[variant.param].name; });

}  // namespace
