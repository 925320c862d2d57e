#include "odmg_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "kybase.h"
#include "odmg_kernels.h"
#include "odmg_samples.h"
#include "support/guarded_buffer.h"

namespace {

TEST(OdmgRows, AreNamedAndMeasured) {
    const struct {
        const KyTypeTab& row;
        const char *name, *code, *format;
        unsigned size;
    } cases[] = {
        {Kyd_DateTab, "d_Date", "D_DATE_T", "%a %b %e", 4},
        {Kyd_TimeTab, "d_Time", "D_TIME_T", "%I:%M:%S %p", 6},
        {Kyd_TimestampTab, "d_Timestamp", "D_TIMESTAMP_T", "%a %b %e %I:%M:%S %p", 10},
        {Kyd_IntervalTab, "d_Interval", "D_INTERVAL_T", "%e days, %I hours, %M minutes, %S seconds", 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_STREQ(c.row.typeName, c.name);
        EXPECT_STREQ(c.row.typeCodeName, c.code);
        EXPECT_STREQ(c.row.printFormat, c.format);
        EXPECT_EQ(c.row.sizeWord, 0x10000 + c.size);
        EXPECT_EQ(c.row.SetNull, nullptr);
        std::vector<unsigned char> value(c.size, 0xFF);
        EXPECT_EQ(c.row.IsNull(value.data()), 0);
        for (const unsigned count : {0U, 1U, 7U}) {
            EXPECT_EQ(c.row.NullSizeGet(count), c.size * count);
            EXPECT_EQ(c.row.SizeGet(nullptr, KyFormMemory, KyFormReversed, count), c.size * count);
            EXPECT_EQ(c.row.SizeGet(nullptr, KyFormReversed, KyFormMemory, count), c.size * count);
            EXPECT_EQ(c.row.SizeGetFromMemFile(nullptr, KyFormNative, count), c.size * count);
        }
    }
}

TEST(OdmgRows, CreateAndConstructTheClocksValues) {
    const StandingClock clock(kMay7, 60);
    const DefaultZone zone(2);
    const std::string expected[] = {"E8 07 05 07", "02 00 10 2D 3B 00", "E8 07 05 07 02 00 10 2D 3B 00", "00 00 00 00"};
    for (std::size_t i = 0; i < 4; ++i) {
        const KyTypeTab& row = *kOdmgRows[i];
        SCOPED_TRACE(row.typeName);
        for (const unsigned count : {0U, 1U, 2U, 5U}) {
            void* created = row.Create(count);
            std::vector<unsigned char> constructed(SizeOf(row) * std::size_t{count} + 1, 0xEE);
            row.Constructor(constructed.data(), count, 0);
            for (unsigned at = 0; at < count; ++at) {
                const std::size_t offset = std::size_t{SizeOf(row)} * at;
                EXPECT_EQ(Hex(static_cast<unsigned char*>(created) + offset, SizeOf(row)), expected[i]);
                EXPECT_EQ(Hex(constructed.data() + offset, SizeOf(row)), expected[i]);
            }
            EXPECT_EQ(constructed.back(), 0xEE);
            row.Destructor(constructed.data(), count, 0);
            EXPECT_EQ(row.Delete(created, count), 0);
        }
        row.Constructor(nullptr, 3, 0);
        EXPECT_EQ(row.Delete(nullptr, 1), 0);
    }
}

TEST(OdmgRows, DefaultValuesAreThoseOfAnEmptyText) {
    const StandingClock clock(kMay7);
    const DefaultZone zone(-5);
    const std::string expected[] = {"00 00 00 00", "FB 00 FB 00 00 00", "00 00 00 00 FB 00 FB 00 00 00", "00 00 00 00"};
    for (std::size_t i = 0; i < 4; ++i) {
        const KyTypeTab& row = *kOdmgRows[i];
        for (const int which : {0, 1}) {
            void* values = row.DefaultValue(3, which);
            for (unsigned at = 0; at < 3; ++at) {
                EXPECT_EQ(Hex(static_cast<unsigned char*>(values) + std::size_t{SizeOf(row)} * at, SizeOf(row)),
                          expected[i])
                    << row.typeName;
            }
            row.Delete(values, 3);
        }
    }
}

TEST(OdmgRows, AssignmentFillsAndCopyDoesNot) {
    for (const KyTypeTab* row : kOdmgRows) {
        const std::size_t size = SizeOf(*row);
        std::vector<unsigned char> source(3 * size);
        for (std::size_t i = 0; i < source.size(); ++i) source[i] = static_cast<unsigned char>(0xC0 + i);
        std::vector<unsigned char> filled;
        for (int i = 0; i < 3; ++i)
            filled.insert(filled.end(), source.begin(), source.begin() + static_cast<int>(size));
        std::vector<unsigned char> target(source.size());
        row->Assignment(target.data(), source.data(), 3, 0);
        EXPECT_EQ(target, source) << row->typeName;
        row->Assignment(target.data(), source.data(), 3, 1);
        EXPECT_EQ(target, filled) << row->typeName;
        row->Copy(target.data(), source.data(), 3, 1);
        EXPECT_EQ(target, source) << row->typeName;
    }
}

/// Where in a stored element the bytes of a number stand, in reversed form.
std::vector<unsigned char> SlowReversed(const KyTypeTab& row, std::vector<unsigned char> bytes) {
    const std::size_t size = SizeOf(row);
    const std::size_t number = &row == &Kyd_IntervalTab ? 4 : &row == &Kyd_TimeTab ? 1 : 2;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        std::reverse(bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at + number));
    }
    return bytes;
}

TEST(OdmgRows, StoreAndLoadAtAnyOffset) {
    std::mt19937 random(1);
    for (const KyTypeTab* row : kOdmgRows) {
        SCOPED_TRACE(row->typeName);
        for (unsigned count = 0; count < 70; ++count) {
            std::vector<unsigned char> memory(std::size_t{SizeOf(*row)} * count);
            for (auto& byte : memory) byte = static_cast<unsigned char>(random());
            for (const unsigned char form : {KyFormNative, KyFormReversed, static_cast<unsigned char>(0x82)}) {
                const auto expected = form == KyFormNative ? memory : SlowReversed(*row, memory);
                const std::size_t offset = count % 8;
                std::vector<unsigned char> area(offset + memory.size() + 8, static_cast<unsigned char>(0x55));
                ASSERT_EQ(row->Store(area.data() + offset, memory.data(), form, count), memory.size());
                ASSERT_EQ(Hex(area.data() + offset, memory.size()), Hex(expected.data(), expected.size()));
                ASSERT_EQ(std::count(area.begin(), area.begin() + static_cast<long>(offset), 0x55),
                          static_cast<long>(offset));
                ASSERT_EQ(std::count(area.end() - 8, area.end(), 0x55), 8);
                GuardedBuffer stored{std::span<const unsigned char>(expected)};
                GuardedBuffer back(memory.size());
                ASSERT_EQ(row->Load(back.data(), stored.data(), form, count), memory.size());
                ASSERT_EQ(Hex(back.data(), memory.size()), Hex(memory.data(), memory.size()));
            }
        }
    }
}

TEST(OdmgRows, EveryVariantSwapsTheYearsOfTimestamps) {
    std::mt19937 random(10);
    for (int variant = 0; variant < ky::RunnableOdmgKernels(); ++variant) {
        for (std::size_t count = 0; count < 100; ++count) {
            std::vector<unsigned char> bytes(10 * count);
            for (auto& byte : bytes) byte = static_cast<unsigned char>(random());
            const auto expected = SlowReversed(Kyd_TimestampTab, bytes);
            GuardedBuffer from{std::span<const unsigned char>(bytes)};
            GuardedBuffer to(bytes.size());
            ky::kOdmgKernels[variant].swapYears(to.data(), from.data(), count);
            ASSERT_EQ(Hex(to.data(), bytes.size()), Hex(expected.data(), bytes.size())) << variant << ' ' << count;
            ky::kOdmgKernels[variant].swapYears(from.data(), from.data(), count);
            ASSERT_EQ(Hex(from.data(), bytes.size()), Hex(expected.data(), bytes.size())) << "in place";
        }
    }
}

TEST(OdmgRows, TranslateBetweenAllForms) {
    for (const KyTypeTab* row : kOdmgRows) {
        SCOPED_TRACE(row->typeName);
        const unsigned size = SizeOf(*row);
        std::vector<unsigned char> memory(2 * std::size_t{size});
        for (std::size_t i = 0; i < memory.size(); ++i) memory[i] = static_cast<unsigned char>(i + 1);
        auto reversed = SlowReversed(*row, memory);
        std::vector<unsigned char> to(memory.size());
        EXPECT_EQ(row->Translate(to.data(), 8, 0, memory.data(), 8, 0, 2), 2 * size);
        EXPECT_EQ(to, memory);
        EXPECT_EQ(row->Translate(to.data(), 0x82, 0, memory.data(), 8, 0, 2), 2 * size);
        EXPECT_EQ(to, reversed);
        EXPECT_EQ(row->Translate(to.data(), 8, 0, reversed.data(), 2, 0, 2), 2 * size);
        EXPECT_EQ(to, memory);
        EXPECT_EQ(row->Translate(to.data(), 1, 0, reversed.data(), 2, 0, 2), 2 * size)
            << "bytes are copied as they are";
        EXPECT_EQ(to, reversed);
        EXPECT_EQ(row->Translate(to.data(), 1, 2 * size, reversed.data(), 2, size, 2), size);
        std::fill(reversed.begin() + size, reversed.end(), static_cast<unsigned char>(0));
        EXPECT_EQ(to, reversed);
    }
}

}  // namespace
