#include <gtest/gtest.h>
#include <xmmintrin.h>

#include "number_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// What holds for every plain number type, over the values of its roster.

namespace {

class NumberLaws : public testing::TestWithParam<NumberType> {
protected:
    const NumberType& type = GetParam();
    KyTypeTab& row = *type.row;

    int Compare(ByteVector a, ByteVector b, unsigned char flag, unsigned count = 1) {
        int err = -1;
        const int result = row.Compare(flag, 0, a.data(), 0, b.data(), KyCmpDefault, count, err);
        EXPECT_EQ(err, 0);
        return result;
    }
    unsigned Hash(ByteVector data, unsigned char flag) {
        int err = -1;
        const unsigned hash = row.Hash(flag, 0, data.data(), 1, err);
        EXPECT_EQ(err, 0);
        return hash;
    }
    ByteVector Stored(const NumberSample& sample, unsigned char flag) {
        return InForm(sample.memory, type.width, flag);
    }
};

TEST_P(NumberLaws, CompareFollowsRankInEveryFormAndIsMirrored) {
    for (const unsigned char flag : kFlags) {
        for (const NumberSample& a : type.samples) {
            for (const NumberSample& b : type.samples) {
                const int expected = (a.rank > b.rank) - (a.rank < b.rank);
                EXPECT_EQ(Compare(Stored(a, flag), Stored(b, flag), flag), expected)
                    << Hex(a.memory.data(), type.width) << " with " << Hex(b.memory.data(), type.width) << " in form "
                    << int(flag);
            }
        }
    }
}

TEST_P(NumberLaws, AnArrayIsOrderedByItsFirstDifference) {
    const NumberSample& low = type.samples.front();
    const NumberSample& high = type.samples.back();
    for (const unsigned char flag : kFlags) {
        for (unsigned count : {2u, 3u, 70u, 300u}) {
            for (unsigned at : {0u, 1u, count / 2, count - 1}) {
                ByteVector a;
                ByteVector b;
                for (unsigned i = 0; i < count; ++i) {
                    // Behind the difference everything is the other way round.
                    const ByteVector& inA = (i <= at ? low : high).memory;
                    const ByteVector& inB = (i < at || i > at ? low : high).memory;
                    a.insert(a.end(), inA.begin(), inA.end());
                    b.insert(b.end(), inB.begin(), inB.end());
                }
                a = InForm(a, type.width, flag);
                b = InForm(b, type.width, flag);
                EXPECT_EQ(Compare(a, b, flag, count), -1) << count << " " << at;
                EXPECT_EQ(Compare(b, a, flag, count), 1) << count << " " << at;
                EXPECT_EQ(Compare(a, a, flag, count), 0);
            }
        }
    }
}

TEST_P(NumberLaws, AValueHashesEqualInEveryForm) {
    for (const NumberSample& sample : type.samples) {
        for (const unsigned char flag : kFlags) {
            EXPECT_EQ(Hash(Stored(sample, flag), flag), Hash(sample.memory, KyFormMemory)) << int(flag);
        }
    }
}

// KEPT: zeros of two signs and different NaNs are equal and hash differently; a join by hash has to know it.
TEST_P(NumberLaws, Kept_ValuesOfOneRankHashEqualUnlessTheyAreFloating) {
    for (const NumberSample& a : type.samples) {
        for (const NumberSample& b : type.samples) {
            if (a.rank != b.rank) continue;
            const bool sameBytes = a.memory == b.memory;
            EXPECT_EQ(Hash(a.memory, KyFormMemory) == Hash(b.memory, KyFormMemory), sameBytes);
            if (!type.floating) {
                EXPECT_TRUE(sameBytes);
            }
        }
    }
}

TEST_P(NumberLaws, StoreAndLoadRoundTripAtEveryOffset) {
    const unsigned count = static_cast<unsigned>(type.samples.size());
    ByteVector values;
    for (const NumberSample& sample : type.samples)
        values.insert(values.end(), sample.memory.begin(), sample.memory.end());
    const unsigned size = count * type.width;
    for (const unsigned char flag : kFlags) {
        for (std::size_t offset = 0; offset < 8; ++offset) {
            for (const unsigned char filling : ByteVector{0x00, 0xFF}) {
                ByteVector stored(size + 16, filling);
                EXPECT_EQ(row.Store(stored.data() + offset, values.data(), flag, count), size);
                EXPECT_EQ(Hex(stored.data() + offset, size), Hex(InForm(values, type.width, flag).data(), size));
                EXPECT_EQ(stored[offset + size], filling);

                ByteVector loaded(size + 16, filling);
                EXPECT_EQ(row.Load(loaded.data() + offset, stored.data() + offset, flag, count), size);
                EXPECT_EQ(Hex(loaded.data() + offset, size), Hex(values.data(), size));
                EXPECT_EQ(loaded[offset + size], filling);
            }
        }
    }
}

TEST_P(NumberLaws, CompareAndHashTakeUnalignedOperands) {
    for (const NumberSample& sample : type.samples) {
        for (std::size_t offset = 0; offset < 8; ++offset) {
            ByteVector shifted(offset);
            shifted.insert(shifted.end(), sample.memory.begin(), sample.memory.end());
            ByteVector aligned = sample.memory;
            int err = -1;
            EXPECT_EQ(row.Compare(KyFormNative, 0, shifted.data() + offset, 0, aligned.data(), 0, 1, err), 0);
            EXPECT_EQ(row.Hash(KyFormNative, 0, shifted.data() + offset, 1, err), Hash(aligned, KyFormNative));
        }
    }
}

TEST_P(NumberLaws, NothingIsComparedOrHashedForACountOfZero) {
    int err = -1;
    EXPECT_EQ(row.Compare(KyFormMemory, 0, nullptr, 0, nullptr, 0, 0, err), 0);
    EXPECT_EQ(err, 0);
    err = -1;
    EXPECT_EQ(row.Hash(KyFormMemory, 0, nullptr, 0, err), 0u);
    EXPECT_EQ(err, 0);
    err = -1;
    EXPECT_EQ(row.Hash(KyFormReversed, 5, nullptr, 0, err), 0u);
    EXPECT_EQ(err, 0);
}

// KEPT: the end of a buffer is seen behind every element but the last of count, also behind the one that decides.
TEST_P(NumberLaws, Kept_AnElementThatDecidesInTheLastPlaceOfTheBufferBringsTheError) {
    const NumberSample& low = type.samples.front();
    const NumberSample& high = type.samples.back();
    ByteVector a = low.memory;
    a.insert(a.end(), low.memory.begin(), low.memory.end());
    ByteVector b = low.memory;
    b.insert(b.end(), high.memory.begin(), high.memory.end());
    int err = -1;
    EXPECT_EQ(row.Compare(KyFormMemory, 2 * type.width, a.data(), 0, b.data(), 0, 3, err), -1);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(row.Compare(KyFormMemory, 0, b.data(), 2 * type.width, a.data(), 0, 3, err), 1);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(row.Compare(KyFormMemory, 2 * type.width, a.data(), 0, b.data(), 0, 2, err), -1);
    EXPECT_EQ(err, 0) << "the last element of count never brings it";
    EXPECT_EQ(row.Compare(KyFormMemory, type.width, a.data(), 0, b.data(), 0, 3, err), 0);
    EXPECT_EQ(err, KyErrBufferEnd);
}

// KEPT: a length says where elements start, not where reading ends.
TEST_P(NumberLaws, Kept_ALengthShorterThanAnElementStillReadsTheFirstOne) {
    GuardedBuffer a(std::span(type.samples.front().memory));
    GuardedBuffer b(std::span(type.samples.back().memory));
    for (unsigned length = 1; length <= type.width; ++length) {
        int err = -1;
        EXPECT_EQ(row.Compare(KyFormNative, length, a.data(), length, b.data(), 0, 9, err), -1);
        EXPECT_EQ(err, KyErrBufferEnd);
        EXPECT_EQ(row.Compare(KyFormNative, length, a.data(), length, b.data(), 0, 1, err), -1);
        EXPECT_EQ(err, 0);
        const unsigned alone = row.Hash(KyFormNative, 0, a.data(), 1, err);
        EXPECT_EQ(row.Hash(KyFormNative, length, a.data(), 9, err), alone);
        EXPECT_EQ(err, KyErrBufferEnd);
    }
}

TEST_P(NumberLaws, TheOperatorWordIsIgnored) {
    ByteVector low = type.samples.front().memory;
    ByteVector high = type.samples.back().memory;
    for (unsigned op = 0; op < 0x10000; op += 0x0111) {
        int err = -1;
        EXPECT_EQ(row.Compare(8, 0, low.data(), 0, high.data(), static_cast<unsigned short>(op), 1, err), -1);
    }
}

TEST_P(NumberLaws, TheOrderStandsWhenTheProcessorTakesSubnormalNumbersForZero) {
    const unsigned before = _mm_getcsr();
    _mm_setcsr(before | 0x8040);
    for (const NumberSample& a : type.samples) {
        for (const NumberSample& b : type.samples) {
            EXPECT_EQ(Compare(a.memory, b.memory, KyFormMemory), (a.rank > b.rank) - (a.rank < b.rank));
        }
    }
    _mm_setcsr(before);
}

template <class T>
unsigned HashOf(KyTypeTab& row, std::vector<T> values) {
    int err = -1;
    return row.Hash(KyFormMemory, 0, values.data(), static_cast<unsigned>(values.size()), err);
}

TEST(NumberHash, NumbersAreWidenedToTheirWordByTheirSign) {
    constexpr unsigned factor = 1103515245u;
    EXPECT_EQ(HashOf<std::int8_t>(KyCharTab, {-1}), 0xFFFFFFFFu * factor);
    EXPECT_EQ(HashOf<std::uint8_t>(KyByteTab, {255}), 0xFFu * factor);
    EXPECT_EQ(HashOf<std::int16_t>(KyShortTab, {-2}), 0xFFFFFFFEu * factor);
    EXPECT_EQ(HashOf<std::uint16_t>(KyWordTab, {65534}), 0xFFFEu * factor);
    EXPECT_EQ(HashOf<std::int32_t>(KyLongTab, {3, 5}), 6u * factor);
    EXPECT_EQ(HashOf<float>(KyFloatTab, {1.0F}), 0x3F800000u * factor);
    EXPECT_EQ(HashOf<double>(KyDoubleTab, {1.5}), 0x3FF80000u * factor);
    EXPECT_EQ(HashOf<double>(KyDoubleTab, {0.1}), (0x3FB99999u ^ 0x9999999Au) * factor);
}

// KEPT: the upper half of 8-byte integers does not count.
TEST(NumberHash, Kept_EightByteIntegersHashByTheirLowHalf) {
    EXPECT_EQ(HashOf<std::int64_t>(Ky8BTab, {1}), 1103515245u);
    EXPECT_EQ(HashOf<std::int64_t>(Ky8BTab, {0x100000001}), 1103515245u);
    EXPECT_EQ(HashOf<std::uint64_t>(KyU8BTab, {0xFFFFFFFF00000001u}), 1103515245u);
    std::int64_t stored = 0x0100000001000000;
    int err = -1;
    EXPECT_EQ(Ky8BTab.Hash(KyFormReversed, 0, &stored, 1, err), 1103515245u);
}

INSTANTIATE_TEST_SUITE_P(All, NumberLaws, testing::ValuesIn(NumberTypes()),
                         [](const auto& instance) { return instance.param.name(); });

}  // namespace
