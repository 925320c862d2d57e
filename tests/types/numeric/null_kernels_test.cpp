#include "null_kernels.h"

#include <gtest/gtest.h>

#include <random>

#include "null_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// Every variant that this machine can run, for every layout, order and number of elements, at several alignments,
// with no accessible byte behind the areas.

namespace {

constexpr ky::NullLayout kLayouts[] = {ky::NullLayout::bytes2, ky::NullLayout::bytes4, ky::NullLayout::bytes8,
                                       ky::NullLayout::bytes12, ky::NullLayout::bytes16};
constexpr unsigned char kPlainForms[] = {KyFormNative, KyFormReversed, KyFormMemory};

class NullKernels : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableNullKernels()) GTEST_SKIP() << "not for this machine";
    }
    const ky::NullKernels& kernels = ky::kNullKernels[GetParam()];
    std::mt19937 random{5};

    static SlowNullShape ShapeOf(ky::NullLayout layout) {
        const ky::NullSizes sizes = ky::SizesOf(layout);
        return {sizes.memory, sizes.number, sizes.reversedUnit};
    }

    /// One byte in three is small, so that there are flags of all kinds.
    void Fill(unsigned char* bytes, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i) {
            bytes[i] = static_cast<unsigned char>(random() % 3 == 0 ? random() % 3 : random());
        }
    }

    template <class Check>
    void ForAllShapes(Check check) {
        for (const ky::NullLayout layout : kLayouts) {
            for (const unsigned char form : kPlainForms) {
                for (unsigned count = 0; count <= 300; count += count < 150 ? 1 : 13) {
                    SCOPED_TRACE("layout " + std::to_string(ky::SizesOf(layout).memory) + " form " +
                                 std::to_string(form) + " count " + std::to_string(count));
                    check(layout, form, count);
                    if (HasFailure()) return;
                }
            }
        }
    }
};

TEST_P(NullKernels, PackWritesWhatTheSlowTwinWrites) {
    ForAllShapes([this](ky::NullLayout layout, unsigned char form, unsigned count) {
        const SlowNullShape shape = ShapeOf(layout);
        GuardedBuffer src(count * shape.memory);
        GuardedBuffer dst(count * shape.Stored() + 1);
        Fill(src.data(), src.size());
        Fill(dst.data(), dst.size());
        ByteVector expected(dst.data(), dst.data() + dst.size());
        // The byte before and the end behind tell that nothing else is written.
        SlowNullStore(shape, expected.data() + 1, src.data(), form, count);
        kernels.pack(layout, ky::NullOrderOf(form), dst.data() + 1, src.data(), count);
        EXPECT_EQ(Hex(dst.data(), dst.size()), Hex(expected.data(), expected.size()));
    });
}

TEST_P(NullKernels, UnpackWritesWhatTheSlowTwinWritesAndClearsThePadding) {
    ForAllShapes([this](ky::NullLayout layout, unsigned char form, unsigned count) {
        const SlowNullShape shape = ShapeOf(layout);
        GuardedBuffer src(count * shape.Stored());
        GuardedBuffer dst(count * shape.memory + 1);
        Fill(src.data(), src.size());
        Fill(dst.data(), dst.size());
        ByteVector expected(dst.size());
        expected[0] = dst.data()[0];
        SlowNullLoad(shape, expected.data() + 1, src.data(), form, count);
        kernels.unpack(layout, ky::NullOrderOf(form), dst.data() + 1, src.data(), count);
        EXPECT_EQ(Hex(dst.data(), dst.size()), Hex(expected.data(), expected.size()));
    });
}

TEST_P(NullKernels, FirstOtherIsFoundWhereverItStandsAndPaddingIsPassed) {
    for (const ky::NullLayout layout : kLayouts) {
        const SlowNullShape shape = ShapeOf(layout);
        for (unsigned count = 0; count <= 400; count += count < 100 ? 1 : 37) {
            GuardedBuffer a(count * shape.memory);
            GuardedBuffer b(count * shape.memory);
            Fill(a.data(), a.size());
            std::copy_n(a.data(), a.size(), b.data());
            for (std::size_t at = 0; at < b.size(); ++at) {
                if (at % shape.memory >= shape.Stored()) b.data()[at] = static_cast<unsigned char>(random());
            }
            ASSERT_EQ(kernels.firstOther(layout, a.data(), b.data(), count), count) << shape.memory;
            for (unsigned at = 0; at < count; at += 1 + count / 29) {
                const std::size_t changed = at * shape.memory + random() % shape.Stored();
                a.data()[changed] ^= 0x10;
                unsigned char& last = a.data()[(count - 1) * shape.memory];
                last ^= 1;
                ASSERT_EQ(kernels.firstOther(layout, a.data(), b.data(), count), at) << shape.memory << " " << count;
                ASSERT_EQ(kernels.firstOther(layout, b.data(), a.data(), count), at) << shape.memory << " " << count;
                last ^= 1;
                a.data()[changed] ^= 0x10;
            }
        }
    }
}

template <class Signed>
void CheckHash(ky::HashNullablesKernel* kernel, ky::NullLayout layout, const ByteVector& memory) {
    const SlowNullShape shape{ky::SizesOf(layout).memory, ky::SizesOf(layout).number, ky::SizesOf(layout).reversedUnit};
    const auto count = static_cast<unsigned>(memory.size() / shape.memory);
    GuardedBuffer data{std::span(memory)};
    int err = -1;
    ASSERT_EQ(kernel(layout, std::is_same_v<Signed, double>, data.data(), count),
              SlowNullHash<Signed>(shape, KyFormMemory, 0, memory.data(), count, err))
        << shape.memory << " " << count;
}

TEST_P(NullKernels, HashIsThatOfTheSlowTwin) {
    for (unsigned count = 0; count <= 300; count += count < 150 ? 1 : 13) {
        for (const ky::NullLayout layout : kLayouts) {
            ByteVector memory(count * ky::SizesOf(layout).memory);
            Fill(memory.data(), memory.size());
            if (layout == ky::NullLayout::bytes2) CheckHash<std::int8_t>(kernels.hash, layout, memory);
            if (layout == ky::NullLayout::bytes4) CheckHash<std::int16_t>(kernels.hash, layout, memory);
            if (layout == ky::NullLayout::bytes8) CheckHash<std::int32_t>(kernels.hash, layout, memory);
            if (layout == ky::NullLayout::bytes8) CheckHash<float>(kernels.hash, layout, memory);
            if (layout == ky::NullLayout::bytes12) CheckHash<std::int64_t>(kernels.hash, layout, memory);
            if (layout == ky::NullLayout::bytes16) CheckHash<std::int64_t>(kernels.hash, layout, memory);
            if (layout == ky::NullLayout::bytes16) CheckHash<double>(kernels.hash, layout, memory);
        }
    }
}

TEST_P(NullKernels, TakeAreasAtAnyAddress) {
    for (const ky::NullLayout layout : kLayouts) {
        const SlowNullShape shape = ShapeOf(layout);
        constexpr unsigned count = 100;
        for (std::size_t offset = 0; offset < 64; ++offset) {
            ByteVector memory(count * shape.memory + 64);
            Fill(memory.data(), memory.size());
            ByteVector stored(count * shape.Stored() + 64);
            ByteVector expected(count * shape.Stored());
            const std::size_t other = 63 - offset;
            SlowNullStore(shape, expected.data(), memory.data() + offset, KyFormReversed, count);
            kernels.pack(layout, ky::NullOrder::nullFirstReversed, stored.data() + other, memory.data() + offset,
                         count);
            ASSERT_EQ(Hex(stored.data() + other, expected.size()), Hex(expected.data(), expected.size()));

            ByteVector loaded(count * shape.memory + 64);
            ByteVector expectedMemory(count * shape.memory);
            SlowNullLoad(shape, expectedMemory.data(), expected.data(), KyFormReversed, count);
            kernels.unpack(layout, ky::NullOrder::nullFirstReversed, loaded.data() + offset, stored.data() + other,
                           count);
            ASSERT_EQ(Hex(loaded.data() + offset, expectedMemory.size()),
                      Hex(expectedMemory.data(), expectedMemory.size()));
            ASSERT_EQ(kernels.firstOther(layout, loaded.data() + offset, expectedMemory.data(), count), count);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, NullKernels, testing::Range(0, ky::kNullKernelVariants),
                         [](const auto& instance) { return std::string(ky::kNullKernels[instance.param].name); });

TEST(NullKernelsChoice, TheLoaderPicksAVariantThatWorks) {
    const unsigned char memory[] = {1, 2, 3, 4, 0, 9, 9, 9, 0, 0, 0, 0, 7, 9, 9, 9};
    unsigned char stored[10];
    ky::PackNullables(ky::NullLayout::bytes8, ky::NullOrder::nullFirst, stored, memory, 2);
    EXPECT_EQ(Hex(stored, 10), "00 01 02 03 04 01 00 00 00 00");
    unsigned char loaded[16];
    ky::UnpackNullables(ky::NullLayout::bytes8, ky::NullOrder::nullFirst, loaded, stored, 2);
    EXPECT_EQ(Hex(loaded, 16), "01 02 03 04 00 00 00 00 00 00 00 00 01 00 00 00");
    EXPECT_EQ(ky::FirstOtherNullable(ky::NullLayout::bytes8, memory, loaded, 2), 1u) << "flag 7 is not flag 1";
    EXPECT_EQ(ky::HashNullables(ky::NullLayout::bytes8, false, loaded, 2), 0x04030201u * 1103515245u ^ 0xFEFE7575u);
    EXPECT_GE(ky::RunnableNullKernels(), 1);
}

}  // namespace
