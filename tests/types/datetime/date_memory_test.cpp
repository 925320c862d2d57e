/// Blocks that values of the date and time types take, and what happens when there is no memory.

#include <gtest/gtest.h>

#include "kystring.h"
#include "kytypes.h"
#include "types/string/counted_memory.h"

namespace {

const KyTypeTab* const kRows[] = {&KyDateTab,   &KyTimeTab,   &KyDateTimeTab,    &KyDateTimeNTab, &KyTimeSpanTab,
                                  &Kyd_DateTab, &Kyd_TimeTab, &Kyd_TimestampTab, &Kyd_IntervalTab};

TEST(DateMemory, WithoutItThereAreNoValues) {
    for (const KyTypeTab* row : kRows) {
        for (const unsigned count : {0U, 1U, 2U, 9U}) {
            blocksLeft = 0;
            void* const created = row->Create(count);
            void* const zeros = row->DefaultValue(count, 0);
            void* const nulls = row->DefaultValue(count, 1);
            void* const converted = row->ConvertFromKyString(nullptr, count);
            blocksLeft = -1;
            EXPECT_EQ(created, nullptr) << row->typeName;
            EXPECT_EQ(zeros, nullptr) << row->typeName;
            EXPECT_EQ(nulls, nullptr) << row->typeName;
            EXPECT_EQ(converted, nullptr) << row->typeName;
        }
    }
}

TEST(DateMemory, ValuesTakeOneBlockAndGiveItBack) {
    for (const KyTypeTab* row : kRows) {
        for (const unsigned count : {0U, 1U, 2U, 9U}) {
            const std::ptrdiff_t before = blocksHeld;
            for (const int which : {-1, 0, 1}) {
                void* values = which < 0 ? row->Create(count) : row->DefaultValue(count, which);
                EXPECT_EQ(blocksHeld, before + 1) << row->typeName << ' ' << count;
                EXPECT_EQ(row->Delete(values, count), 0);
                EXPECT_EQ(blocksHeld, before) << row->typeName << ' ' << count;
            }
        }
    }
}

}  // namespace
