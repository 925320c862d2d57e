#include "date_kernels.h"

#include <gtest/gtest.h>

#include <random>

#include "date_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// Every variant that this machine can run, for every record, form and number of elements, with no accessible byte
// behind the areas.

namespace {

struct Record {
    const char* name;
    ky::DateRecord record;
    SlowDateShape shape;
};

constexpr Record kRecords[] = {
    {"date", ky::DateRecord::date, {true, false, false}},
    {"time", ky::DateRecord::time, {false, true, false}},
    {"dateTime", ky::DateRecord::dateTime, {true, true, false}},
    {"dateTimeN", ky::DateRecord::dateTimeN, {true, true, true}},
};

unsigned char FlagOf(ky::DateForm form) {
    if (form == ky::DateForm::memory) return KyFormMemory;
    return form == ky::DateForm::reversed ? KyFormReversed : KyFormNative;
}

class DateKernels : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableDateKernels()) GTEST_SKIP() << "not for this machine";
    }
    const ky::DateKernels& kernels = ky::kDateKernels[GetParam()];
    std::mt19937 random{6};

    void Fill(unsigned char* bytes, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<unsigned char>(random());
    }

    template <class Check>
    void ForAllShapes(Check check) {
        for (const Record& record : kRecords) {
            for (const ky::DateForm form : {ky::DateForm::native, ky::DateForm::reversed, ky::DateForm::memory}) {
                for (unsigned count = 0; count <= 300; count += count < 150 ? 1 : 13) {
                    SCOPED_TRACE(std::string(record.name) + " form " + std::to_string(FlagOf(form)) + " count " +
                                 std::to_string(count));
                    check(record, form, count);
                    if (HasFailure()) return;
                }
            }
        }
    }

    /// Elements of one form as the other form has them, padding cleared.
    static ByteVector Moved(SlowDateShape shape, unsigned char to, unsigned char from, const unsigned char* bytes,
                            unsigned count) {
        ByteVector moved(count * SlowDateSize(shape, to));
        for (unsigned i = 0; i < count; ++i) {
            SlowDateWrite(shape, to, moved.data() + i * SlowDateSize(shape, to),
                          SlowDateRead(shape, from, bytes + i * SlowDateSize(shape, from)));
        }
        return moved;
    }

    /// The byte before and the end behind tell that nothing else is written.
    void CheckMove(ky::DateMoveKernel* move, const Record& record, ky::DateForm form, unsigned char to,
                   unsigned char from, unsigned count) {
        GuardedBuffer src(count * SlowDateSize(record.shape, from));
        GuardedBuffer dst(count * SlowDateSize(record.shape, to) + 1);
        Fill(src.data(), src.size());
        Fill(dst.data(), dst.size());
        ByteVector expected = Moved(record.shape, to, from, src.data(), count);
        expected.insert(expected.begin(), dst.data()[0]);
        move(record.record, form, dst.data() + 1, src.data(), count);
        EXPECT_EQ(Hex(dst.data(), dst.size()), Hex(expected.data(), expected.size()));
    }
};

TEST_P(DateKernels, PackWritesTheFieldsAndNothingElse) {
    ForAllShapes([this](const Record& record, ky::DateForm form, unsigned count) {
        CheckMove(kernels.pack, record, form, FlagOf(form), KyFormMemory, count);
    });
}

TEST_P(DateKernels, UnpackWritesTheFieldsAndClearsThePadding) {
    ForAllShapes([this](const Record& record, ky::DateForm form, unsigned count) {
        CheckMove(kernels.unpack, record, form, KyFormMemory, FlagOf(form), count);
    });
}

TEST_P(DateKernels, HashCombinesTheWordsOfAllElements) {
    ForAllShapes([this](const Record& record, ky::DateForm form, unsigned count) {
        GuardedBuffer data(count * SlowDateSize(record.shape, FlagOf(form)));
        Fill(data.data(), data.size());
        int err = -1;
        EXPECT_EQ(1103515245u * kernels.hash(record.record, form, data.data(), count),
                  SlowDateHash(record.shape, FlagOf(form), 0, data.data(), count, err));
    });
}

TEST_P(DateKernels, HashDoesNotDependOnWhereAFieldIsNegative) {
    for (const Record& record : kRecords) {
        for (const ky::DateForm form : {ky::DateForm::native, ky::DateForm::reversed, ky::DateForm::memory}) {
            const std::size_t size = SlowDateSize(record.shape, FlagOf(form));
            for (const unsigned count : {15u, 48u, 64u, 128u, 191u, 192u, 193u, 448u, 1000u, 3000u}) {
                SCOPED_TRACE(std::string(record.name) + " form " + std::to_string(FlagOf(form)) + " count " +
                             std::to_string(count));
                GuardedBuffer data(count * size);
                Fill(data.data(), data.size());
                const auto check = [&] {
                    int err = -1;
                    ASSERT_EQ(1103515245u * kernels.hash(record.record, form, data.data(), count),
                              SlowDateHash(record.shape, FlagOf(form), 0, data.data(), count, err));
                };
                // Bytes of the highest bit clear, but for years, nanoseconds and padding.
                const std::size_t first = record.shape.date ? 2 : 0;
                const std::size_t fields = (record.shape.date ? 2 : 0) + (record.shape.time ? 3 : 0);
                for (std::size_t at = 0; at < data.size(); ++at) {
                    const std::size_t inElement = at % size;
                    if (inElement >= first && inElement < first + fields) data.data()[at] &= 0x7F;
                }
                ASSERT_NO_FATAL_FAILURE(check());
                for (std::size_t field = 0; field < fields; ++field) {
                    for (int times = 0; times < 8; ++times) {
                        unsigned char& negative = data.data()[random() % count * size + first + field];
                        negative |= 0x80;
                        ASSERT_NO_FATAL_FAILURE(check()) << "field " << field;
                        negative &= 0x7F;
                    }
                }
            }
        }
    }
}

TEST_P(DateKernels, FirstOtherIsFoundWhereverItStandsAndPaddingIsPassed) {
    for (const Record& record : kRecords) {
        if (!record.shape.date || !record.shape.time) continue;
        const std::size_t size = SlowDateSize(record.shape, KyFormMemory);
        for (unsigned count = 0; count <= 400; count += count < 100 ? 1 : 37) {
            GuardedBuffer a(count * size);
            GuardedBuffer b(count * size);
            Fill(a.data(), a.size());
            std::copy_n(a.data(), a.size(), b.data());
            for (std::size_t at = 7; at < b.size(); at += size) b.data()[at] = static_cast<unsigned char>(random());
            ASSERT_EQ(kernels.firstOther(record.record, a.data(), b.data(), count), count);
            for (unsigned at = 0; at < count; at += 1 + count / 29) {
                std::size_t inElement = random() % size;
                if (inElement == 7) inElement = 6;
                unsigned char& changed = a.data()[at * size + inElement];
                unsigned char& last = a.data()[(count - 1) * size];
                changed ^= 0x10;
                last ^= 1;
                ASSERT_EQ(kernels.firstOther(record.record, a.data(), b.data(), count), at) << count;
                ASSERT_EQ(kernels.firstOther(record.record, b.data(), a.data(), count), at) << count;
                last ^= 1;
                changed ^= 0x10;
            }
        }
    }
}

TEST_P(DateKernels, TakeAreasAtAnyAddress) {
    for (const Record& record : kRecords) {
        constexpr unsigned count = 100;
        const std::size_t memorySize = count * SlowDateSize(record.shape, KyFormMemory);
        const std::size_t storedSize = count * SlowDateSize(record.shape, KyFormReversed);
        for (std::size_t offset = 0; offset < 64; ++offset) {
            ByteVector memory(memorySize + 64);
            Fill(memory.data(), memory.size());
            const std::size_t other = 63 - offset;
            ByteVector stored(storedSize + 64);
            kernels.pack(record.record, ky::DateForm::reversed, stored.data() + other, memory.data() + offset, count);
            const ByteVector expected =
                Moved(record.shape, KyFormReversed, KyFormMemory, memory.data() + offset, count);
            ASSERT_EQ(Hex(stored.data() + other, storedSize), Hex(expected.data(), storedSize));
            ByteVector loaded(memorySize + 64);
            kernels.unpack(record.record, ky::DateForm::reversed, loaded.data() + offset, stored.data() + other, count);
            const ByteVector back = Moved(record.shape, KyFormMemory, KyFormReversed, expected.data(), count);
            ASSERT_EQ(Hex(loaded.data() + offset, memorySize), Hex(back.data(), memorySize));
            ASSERT_EQ(kernels.hash(record.record, ky::DateForm::reversed, stored.data() + other, count),
                      kernels.hash(record.record, ky::DateForm::memory, memory.data() + offset, count));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, DateKernels, testing::Range(0, ky::kDateKernelVariants),
                         [](const auto& instance) { return std::string(ky::kDateKernels[instance.param].name); });

TEST(DateKernelsChoice, TheLoaderPicksAVariantThatWorks) {
    const unsigned char memory[] = {0xE8, 0x07, 5, 7, 13, 45, 59, 0xEE, 1, 0, 0, 0,
                                    0xE8, 0x07, 5, 8, 13, 45, 59, 0xEE, 2, 0, 0, 0};
    unsigned char stored[22];
    ky::PackDates(ky::DateRecord::dateTimeN, ky::DateForm::reversed, stored, memory, 2);
    EXPECT_EQ(Hex(stored, 22), "07 E8 05 07 0D 2D 3B 00 00 00 01 07 E8 05 08 0D 2D 3B 00 00 00 02");
    unsigned char loaded[24];
    ky::UnpackDates(ky::DateRecord::dateTimeN, ky::DateForm::reversed, loaded, stored, 2);
    EXPECT_EQ(ky::FirstOtherDate(ky::DateRecord::dateTimeN, memory, loaded, 2), 2u);
    EXPECT_EQ(ky::HashDates(ky::DateRecord::dateTimeN, ky::DateForm::memory, loaded, 2), (7u ^ 8u) ^ (1u ^ 2u));
    EXPECT_GE(ky::RunnableDateKernels(), 1);
}

}  // namespace
