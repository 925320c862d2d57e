#include "identifier_moves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/guarded_buffer.h"
#include "support/hex.h"

// Every variant that this machine can run, for every move, with no readable byte behind the areas.

namespace {

using ky::IdentifierMove;

constexpr IdentifierMove kMoves[] = {IdentifierMove::storeObjIds, IdentifierMove::loadObjIds, IdentifierMove::storeRefs,
                                     IdentifierMove::loadRefs};

class IdentifierMoves : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableIdentifierMoves()) GTEST_SKIP() << "not for this machine";
    }
    const ky::IdentifierMoveKernels& kernels = ky::kIdentifierMoveKernels[GetParam()];
};

/// Where in an element the bytes of a field stand when they are reversed.
std::size_t Mirrored(std::size_t byte) {
    constexpr std::size_t mirrored[] = {3, 2, 1, 0, 7, 6, 5, 4, 9, 8, 11, 10, 13, 12};
    return mirrored[byte];
}

TEST_P(IdentifierMoves, FieldsAreMovedAndNothingElse) {
    std::mt19937 random(6);
    for (const IdentifierMove move : kMoves) {
        const auto [from, to, stored] = ky::SizesOf(move);
        for (const bool reversed : {false, true}) {
            for (std::size_t count = 0; count < 90; ++count) {
                // The padding of the last element is not there.
                GuardedBuffer src(count == 0 ? 0 : (count - 1) * from + (from == 12 ? stored : from));
                for (std::size_t i = 0; i < src.size(); ++i) src.data()[i] = static_cast<unsigned char>(random());
                GuardedBuffer dst(count == 0 ? 0 : (count - 1) * to + (to == 12 ? stored : to));
                std::fill_n(dst.data(), dst.size(), static_cast<unsigned char>(0xEE));
                std::vector<unsigned char> expected(dst.size(), 0xEE);
                for (std::size_t i = 0; i < expected.size(); ++i) {
                    const std::size_t byte = i % to;
                    if (byte < stored) {
                        expected[i] = src.data()[i / to * from + (reversed ? Mirrored(byte) : byte)];
                    } else if (move == IdentifierMove::loadRefs) {
                        expected[i] = 0;
                    }
                }
                kernels.move(move, reversed, dst.data(), src.data(), count);
                ASSERT_EQ(Hex(dst.data(), dst.size()), Hex(expected.data(), expected.size()))
                    << static_cast<int>(move) << reversed << ' ' << count;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, IdentifierMoves, testing::Range(0, ky::kIdentifierMoveVariants),
                         [](const auto& instance) {
                             return std::string(ky::kIdentifierMoveKernels[instance.param].name);
                         });

TEST(IdentifierMovesChoice, TheLoaderPicksAVariantThatWorks) {
    const unsigned char stored[] = {0, 0, 0, 1, 0, 0, 0, 2, 0, 3, 0, 0, 0, 4, 0, 0, 0, 5, 0, 6};
    unsigned char memory[24] = {};
    ky::MoveIdentifiers(IdentifierMove::loadObjIds, true, memory, stored, 2);
    EXPECT_EQ(Hex(memory, 24), "01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00 05 00 00 00 06 00 00 00");
    EXPECT_GE(ky::RunnableIdentifierMoves(), 1);
}

}  // namespace
