#include <gtest/gtest.h>

#include "kybase.h"
#include "number_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

class NumberArrays : public testing::TestWithParam<NumberType> {
protected:
    const NumberType& type = GetParam();
    KyTypeTab& row = *type.row;

    /// `count` values of the roster, one after the other.
    ByteVector Values(unsigned count) {
        ByteVector bytes;
        for (unsigned i = 0; i < count; ++i) {
            const ByteVector& value = type.samples[(i + 3) % type.samples.size()].memory;
            bytes.insert(bytes.end(), value.begin(), value.end());
        }
        return bytes;
    }
};

TEST_P(NumberArrays, CreateGivesAnArrayThatDeleteTakesBack) {
    for (const unsigned count : {0u, 1u, 2u, 3u, 1000u}) {
        void* values = row.Create(count);
        ASSERT_NE(values, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(values) % type.width, 0u);
        std::memset(values, 0xFF, count * type.width);
        EXPECT_EQ(row.Delete(values, count), 0);
    }
    EXPECT_EQ(row.Delete(nullptr, 7), 0);
}

TEST_P(NumberArrays, DefaultValueIsZeros) {
    for (const unsigned count : {0u, 1u, 5u}) {
        for (const int which : {0, 1, -1}) {
            void* values = row.DefaultValue(count, which);
            ASSERT_NE(values, nullptr);
            EXPECT_EQ(Hex(values, count * type.width), Hex(ByteVector(count * type.width).data(), count * type.width));
            EXPECT_EQ(row.Delete(values, count), 0);
        }
    }
}

TEST_P(NumberArrays, ConstructorZeroesExactlyCountElements) {
    for (const unsigned count : {0u, 1u, 3u}) {
        ByteVector values(4 * type.width, 0xEE);
        row.Constructor(values.data(), count, 99);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_EQ(values[i], i < count * type.width ? 0x00 : 0xEE) << count << " " << i;
        }
        row.Destructor(values.data(), count, 99);
    }
    row.Constructor(nullptr, 0, 0);
}

TEST_P(NumberArrays, AssignmentAndCopyTakeElementsOrFillWithTheFirst) {
    for (KyAssignmentFunc* assign : {row.Assignment, row.Copy}) {
        for (const unsigned count : {0u, 1u, 4u}) {
            const ByteVector values = Values(4);
            for (const int mode : {0, 1, 2, -1}) {
                ByteVector source = values;
                ByteVector target(5 * type.width, 0xEE);
                assign(target.data(), source.data(), count, mode);
                for (unsigned i = 0; i < 5; ++i) {
                    const unsigned char* expected = values.data() + (mode == 0 ? i * type.width : 0);
                    const std::string rest = Hex(ByteVector(type.width, 0xEE).data(), type.width);
                    EXPECT_EQ(Hex(target.data() + i * type.width, type.width),
                              i < count ? Hex(expected, type.width) : rest)
                        << count << " " << i << " mode " << mode;
                }
                EXPECT_EQ(source, values);
            }
        }
        assign(nullptr, nullptr, 0, 0);
        assign(nullptr, nullptr, 0, 1);
    }
}

TEST_P(NumberArrays, AnArrayIsFilledWithItsOwnFirstElement) {
    ByteVector values = Values(4);
    const std::string first = Hex(values.data(), type.width);
    row.Assignment(values.data(), values.data(), 4, 1);
    for (unsigned i = 0; i < 4; ++i) EXPECT_EQ(Hex(values.data() + i * type.width, type.width), first);
}

TEST_P(NumberArrays, SizesAreWidthTimesCount) {
    for (const unsigned count : {0u, 1u, 3u, 70000u}) {
        EXPECT_EQ(row.NullSizeGet(count), count * type.width);
        for (const unsigned char flag : kFlags) {
            EXPECT_EQ(row.SizeGet(nullptr, flag, 1, count), count * type.width);
            EXPECT_EQ(row.SizeGet(nullptr, 8, flag, count), count * type.width);
            EXPECT_EQ(row.SizeGetFromMemFile(nullptr, flag, count), count * type.width);
        }
    }
}

TEST_P(NumberArrays, TheMemoryFileIsNotRead) {
    GuardedBuffer nothing(std::size_t{0});
    MemFile file(nothing.data(), 0);
    EXPECT_EQ(row.SizeGetFromMemFile(&file, 2, 3), 3 * type.width);
    EXPECT_EQ(file.Seek(0, MemFile::current), nothing.data());
}

TEST_P(NumberArrays, TranslateBetweenMemoryForms) {
    ByteVector source = Values(3);
    for (const unsigned char dstFlag : ByteVector{0x08, 0x09, 0x88, 0x0F}) {
        for (const unsigned char srcFlag : ByteVector{0x08, 0x0A, 0x98}) {
            ByteVector target(4 * type.width, 0xEE);
            EXPECT_EQ(row.Translate(target.data(), dstFlag, 1, source.data(), srcFlag, 1, 3), 3 * type.width);
            EXPECT_EQ(Hex(target.data(), source.size()), Hex(source.data(), source.size()));
            EXPECT_EQ(target[3 * type.width], 0xEE);
        }
    }
}

TEST_P(NumberArrays, TranslateBetweenMemoryAndPersistentFormsConverts) {
    const ByteVector values = Values(3);
    for (const unsigned char flag : ByteVector{0x01, 0x02, 0x00, 0x03, 0x81, 0x92}) {
        ByteVector stored = InForm(values, type.width, flag);
        ByteVector memory = values;
        ByteVector target(4 * type.width, 0xEE);
        EXPECT_EQ(row.Translate(target.data(), flag, 0, memory.data(), 8, 0, 3), 3 * type.width);
        EXPECT_EQ(Hex(target.data(), stored.size()), Hex(stored.data(), stored.size())) << int(flag);
        EXPECT_EQ(row.Translate(target.data(), 8, 0, stored.data(), flag, 0, 3), 3 * type.width);
        EXPECT_EQ(Hex(target.data(), values.size()), Hex(values.data(), values.size())) << int(flag);
        EXPECT_EQ(target[3 * type.width], 0xEE);
    }
}

struct Lengths {
    unsigned dst;
    unsigned src;
    unsigned copied;
    unsigned written;  ///< with the zeros
};

// KEPT: bytes go over as they are, even between the two byte orders.
TEST_P(NumberArrays, Kept_TranslateBetweenPersistentFormsCopiesBytes) {
    const unsigned all = 3 * type.width;
    const Lengths table[] = {
        {all, all, all, all}, {8 + all, 4, 4, 8 + all},   {4, 8, 4, 4}, {0, 0, all, all}, {0, 1, 1, all},
        {1, 0, 1, 1},         {all + 5, 0, all, all + 5},
    };
    for (const Lengths& lengths : table) {
        if (lengths.copied > all) continue;
        for (const unsigned char dstFlag : ByteVector{1, 2, 0, 0x81}) {
            ByteVector source = Values(4);
            source.resize(all + 16, 0x77);
            ByteVector target(all + 32, 0xEE);
            EXPECT_EQ(row.Translate(target.data(), dstFlag, lengths.dst, source.data(), 1, lengths.src, 3),
                      lengths.copied);
            for (std::size_t i = 0; i < target.size(); ++i) {
                const unsigned char expected = i < lengths.copied ? source[i] : i < lengths.written ? 0x00 : 0xEE;
                ASSERT_EQ(target[i], expected) << "byte " << i << " of " << lengths.dst << " from " << lengths.src;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, NumberArrays, testing::ValuesIn(NumberTypes()),
                         [](const auto& instance) { return instance.param.name(); });

}  // namespace
