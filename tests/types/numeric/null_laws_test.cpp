#include <gtest/gtest.h>

#include "null_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// What holds for every nullable number type, over the values of its roster.

namespace {

class NullLaws : public testing::TestWithParam<NullType> {
protected:
    const NullType& type = GetParam();
    KyTypeTab& row = *type.row;
    const std::vector<NumberSample> samples = NullSamples(type);

    int Compare(ByteVector a, ByteVector b, unsigned char flag, unsigned count = 1) {
        int err = -1;
        const int result = row.Compare(flag, 0, a.data(), 0, b.data(), KyCmpDefault, count, err);
        EXPECT_EQ(err, 0);
        return result;
    }
    unsigned Hash(ByteVector data, unsigned char flag, unsigned count = 1) {
        int err = -1;
        const unsigned hash = row.Hash(flag, 0, data.data(), count, err);
        EXPECT_EQ(err, 0);
        return hash;
    }
    ByteVector Stored(const ByteVector& memory, unsigned char flag) { return NullsInForm(type, memory, flag); }
    std::size_t Stride(unsigned char flag) { return SlowNullStride(type.shape, flag); }

    ByteVector All() {
        ByteVector all;
        for (const NumberSample& sample : samples) all.insert(all.end(), sample.memory.begin(), sample.memory.end());
        return all;
    }
};

TEST_P(NullLaws, CompareFollowsRankInEveryFormAndIsMirrored) {
    for (const unsigned char flag : kFlags) {
        for (const NumberSample& a : samples) {
            for (const NumberSample& b : samples) {
                const int expected = (a.rank > b.rank) - (a.rank < b.rank);
                EXPECT_EQ(Compare(Stored(a.memory, flag), Stored(b.memory, flag), flag), expected)
                    << Hex(a.memory.data(), a.memory.size()) << " with " << Hex(b.memory.data(), b.memory.size())
                    << " in form " << int(flag);
            }
        }
    }
}

TEST_P(NullLaws, AnArrayIsOrderedByItsFirstDifference) {
    for (const unsigned char flag : kFlags) {
        for (unsigned count : {2u, 3u, 70u, 300u}) {
            for (unsigned at : {0u, 1u, count / 2, count - 1}) {
                ByteVector a;
                ByteVector b;
                for (unsigned i = 0; i < count; ++i) {
                    // Before the difference equal elements in other bytes, behind it everything the other way round.
                    const std::size_t null = i % 5;
                    const ByteVector& inA = i <= at ? samples[null].memory : samples.back().memory;
                    const ByteVector& inB = i < at || i > at ? samples[(null + 3) % 5].memory : samples.back().memory;
                    a.insert(a.end(), inA.begin(), inA.end());
                    b.insert(b.end(), inB.begin(), inB.end());
                }
                a = Stored(a, flag);
                b = Stored(b, flag);
                EXPECT_EQ(Compare(a, b, flag, count), -1) << count << " " << at << " " << int(flag);
                EXPECT_EQ(Compare(b, a, flag, count), 1) << count << " " << at << " " << int(flag);
                EXPECT_EQ(Compare(a, a, flag, count), 0);
            }
        }
    }
}

TEST_P(NullLaws, HashesAreThoseOfThePlainTypeInEveryForm) {
    for (const NumberSample& sample : samples) {
        ByteVector number(sample.memory.begin(), sample.memory.begin() + static_cast<int>(type.shape.number));
        int err = -1;
        const unsigned plain = type.hashedAs->Hash(KyFormMemory, 0, number.data(), 1, err);
        const unsigned expected = sample.rank == -1 ? 0xFEFE7575u : plain;
        for (const unsigned char flag : kFlags) {
            EXPECT_EQ(Hash(Stored(sample.memory, flag), flag), expected) << int(flag);
        }
    }
}

TEST_P(NullLaws, TheHashOfAnArrayCombinesThoseOfItsElements) {
    const ByteVector all = All();
    const auto count = static_cast<unsigned>(samples.size());
    unsigned expected = 0;
    for (const NumberSample& sample : samples) expected ^= Hash(sample.memory, KyFormMemory);
    for (const unsigned char flag : kFlags) EXPECT_EQ(Hash(Stored(all, flag), flag, count), expected) << int(flag);
    EXPECT_EQ(Hash(samples[0].memory, KyFormMemory), 0xFEFE7575u);
    EXPECT_EQ(Hash(all, KyFormMemory, 2), 0u) << "two nulls";
}

TEST_P(NullLaws, StoreAndLoadRoundTripAtEveryOffset) {
    const ByteVector all = All();
    const auto count = static_cast<unsigned>(samples.size());
    const std::size_t size = count * type.shape.Stored();
    for (const unsigned char flag : kFlags) {
        ByteVector expected(size);
        SlowNullStore(type.shape, expected.data(), all.data(), flag, count);
        for (std::size_t offset = 0; offset < 8; ++offset) {
            for (const unsigned char filling : ByteVector{0x00, 0xFF}) {
                ByteVector stored(size + 16, filling);
                EXPECT_EQ(row.Store(stored.data() + offset, all.data(), flag, count), size);
                EXPECT_EQ(Hex(stored.data() + offset, size), Hex(expected.data(), size)) << int(flag);
                EXPECT_EQ(stored[offset + size], filling);

                ByteVector loaded(all.size() + 16, filling);
                EXPECT_EQ(row.Load(loaded.data() + offset, stored.data() + offset, flag, count), size);
                EXPECT_EQ(loaded[offset + all.size()], filling);
                ByteVector again(loaded.begin() + static_cast<int>(offset),
                                 loaded.begin() + static_cast<int>(offset + all.size()));
                EXPECT_EQ(Compare(again, all, KyFormMemory, count), 0);
                for (std::size_t i = 0; i < count; ++i) {
                    const bool null = samples[i].rank == -1;
                    EXPECT_EQ(row.IsNull(&again[i * type.shape.memory]), null ? 1 : 0);
                }
            }
        }
    }
}

TEST_P(NullLaws, ALoadedNullIsZeroWhateverWasStored) {
    const ByteVector null = NullElementOf(type, ByteVector(type.shape.number, 0xA5), 1, 0x77);
    for (const unsigned char flag : kFlags) {
        ByteVector stored(type.shape.Stored());
        EXPECT_EQ(row.Store(stored.data(), null.data(), flag, 1), stored.size());
        EXPECT_EQ(std::count(stored.begin(), stored.end(), 0xA5), static_cast<int>(type.shape.number));
        ByteVector loaded(type.shape.memory, 0xEE);
        EXPECT_EQ(row.Load(loaded.data(), stored.data(), flag, 1), stored.size());
        EXPECT_EQ(Hex(loaded.data(), loaded.size()),
                  Hex(NullElementOf(type, ByteVector(type.shape.number), 1).data(), loaded.size()));
    }
}

TEST_P(NullLaws, Kept_OnlyAStoredNullByteOfOneIsNull) {
    const NumberSample& sample = samples.back();
    for (const unsigned char flag : kFlags) {
        if ((flag & KyFormMask) == KyFormMemory) continue;
        const std::size_t nullAt = (flag & 8) != 0 ? type.shape.number : 0;
        ByteVector stored = Stored(sample.memory, flag);
        const ByteVector plain = stored;
        for (unsigned byte = 0; byte < 256; ++byte) {
            stored[nullAt] = static_cast<unsigned char>(byte);
            ByteVector loaded(type.shape.memory);
            row.Load(loaded.data(), stored.data(), flag, 1);
            EXPECT_EQ(row.IsNull(loaded.data()), byte == 1 ? 1 : 0) << byte;
            EXPECT_EQ(Compare(stored, plain, flag), byte == 1 ? -1 : 0) << byte;
            EXPECT_EQ(Hash(stored, flag) == 0xFEFE7575u, byte == 1) << byte;
        }
    }
}

TEST_P(NullLaws, Kept_EveryMemoryFlagButZeroIsNull) {
    const ByteVector number(type.shape.number, 0x11);
    const ByteVector plain = NullElementOf(type, number, 0);
    for (unsigned flag = 0; flag < 256; ++flag) {
        ByteVector element = NullElementOf(type, number, static_cast<unsigned char>(flag));
        EXPECT_EQ(row.IsNull(element.data()), static_cast<int>(flag));
        EXPECT_EQ(Compare(element, plain, KyFormMemory), flag == 0 ? 0 : -1);
        EXPECT_EQ(Hash(element, KyFormMemory) == 0xFEFE7575u, flag != 0);
        ByteVector stored(type.shape.Stored());
        row.Store(stored.data(), element.data(), KyFormNative, 1);
        EXPECT_EQ(stored[0], flag == 0 ? 0 : 1);
    }
}

TEST_P(NullLaws, CompareAndHashTakeUnalignedOperands) {
    for (const NumberSample& sample : samples) {
        for (const unsigned char flag : {KyFormMemory, KyFormNative, KyFormReversed}) {
            for (std::size_t offset = 0; offset < 8; ++offset) {
                ByteVector stored = Stored(sample.memory, flag);
                ByteVector shifted(offset);
                shifted.insert(shifted.end(), stored.begin(), stored.end());
                int err = -1;
                EXPECT_EQ(row.Compare(flag, 0, shifted.data() + offset, 0, stored.data(), 0, 1, err), 0);
                EXPECT_EQ(row.Hash(flag, 0, shifted.data() + offset, 1, err), Hash(stored, flag));
            }
        }
    }
}

TEST_P(NullLaws, NothingHappensForACountOfZero) {
    for (const unsigned char flag : kFlags) {
        int err = -1;
        EXPECT_EQ(row.Compare(flag, 0, nullptr, 0, nullptr, 0, 0, err), 0);
        EXPECT_EQ(err, 0);
        err = -1;
        EXPECT_EQ(row.Hash(flag, 5, nullptr, 0, err), 0u);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(row.Store(nullptr, nullptr, flag, 0), 0u);
        EXPECT_EQ(row.Load(nullptr, nullptr, flag, 0), 0u);
    }
}

TEST_P(NullLaws, AnElementThatDecidesInTheLastPlaceOfTheBufferBringsTheError) {
    for (const unsigned char flag : {KyFormMemory, KyFormNative, KyFormReversed}) {
        const auto stride = static_cast<unsigned>(Stride(flag));
        const ByteVector low = Stored(samples.front().memory, flag);
        const ByteVector high = Stored(samples.back().memory, flag);
        ByteVector a = low;
        a.insert(a.end(), low.begin(), low.end());
        ByteVector b = low;
        b.insert(b.end(), high.begin(), high.end());
        int err = -1;
        EXPECT_EQ(row.Compare(flag, 2 * stride, a.data(), 0, b.data(), 0, 3, err), -1);
        EXPECT_EQ(err, KyErrBufferEnd);
        EXPECT_EQ(row.Compare(flag, 0, b.data(), 2 * stride, a.data(), 0, 3, err), 1);
        EXPECT_EQ(err, KyErrBufferEnd);
        EXPECT_EQ(row.Compare(flag, 2 * stride, a.data(), 0, b.data(), 0, 2, err), -1);
        EXPECT_EQ(err, 0) << "the last element of count never brings it";
        EXPECT_EQ(row.Compare(flag, stride, a.data(), 0, b.data(), 0, 3, err), 0);
        EXPECT_EQ(err, KyErrBufferEnd);
        EXPECT_EQ(row.Hash(flag, 2 * stride, a.data(), 3, err), 0u);
        EXPECT_EQ(err, KyErrBufferEnd);
        EXPECT_EQ(row.Hash(flag, stride + 1, a.data(), 2, err), 0u);
        EXPECT_EQ(err, 0);
    }
}

TEST_P(NullLaws, ALengthShorterThanAnElementStillReadsTheFirstOne) {
    for (const unsigned char flag : {KyFormMemory, KyFormNative, KyFormReversed}) {
        GuardedBuffer a{std::span<const unsigned char>(Stored(samples.front().memory, flag))};
        GuardedBuffer b{std::span<const unsigned char>(Stored(samples.back().memory, flag))};
        for (unsigned length = 1; length <= Stride(flag); ++length) {
            int err = -1;
            EXPECT_EQ(row.Compare(flag, length, a.data(), length, b.data(), 0, 9, err), -1);
            EXPECT_EQ(err, KyErrBufferEnd);
            EXPECT_EQ(row.Compare(flag, length, a.data(), length, b.data(), 0, 1, err), -1);
            EXPECT_EQ(err, 0);
            EXPECT_EQ(row.Hash(flag, length, a.data(), 9, err), 0xFEFE7575u);
            EXPECT_EQ(err, KyErrBufferEnd);
        }
    }
}

TEST_P(NullLaws, TheOperatorWordIsIgnored) {
    ByteVector low = samples.front().memory;
    ByteVector high = samples.back().memory;
    for (unsigned op = 0; op < 0x10000; op += 0x0111) {
        int err = -1;
        EXPECT_EQ(row.Compare(8, 0, low.data(), 0, high.data(), static_cast<unsigned short>(op), 1, err), -1);
    }
}

INSTANTIATE_TEST_SUITE_P(All, NullLaws, testing::ValuesIn(NullTypes()),
                         [](const auto& instance) { return instance.param.name(); });

}  // namespace
