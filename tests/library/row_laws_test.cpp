/// What holds for the row of every type, whatever it is. An exception stands here with its reason.

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "kystring.h"
#include "kytypes.h"

namespace {

std::vector<KyTypeTab*> AllRows() {
    std::vector<KyTypeTab*> rows(std::begin(KyNewtypetab), std::end(KyNewtypetab) - 1);
    rows.push_back(&KyOldStringTab);
    return rows;
}

/// Rows that answer with nothing: they make no values that a law could be tried on.
bool MakesNoValues(const KyTypeTab* row) { return row->DefaultValue == KyIllegalTab.DefaultValue; }

unsigned SizeOf(const KyTypeTab* row) { return row->sizeWord & 0xFFFF; }

TEST(RowLaws, EverySlotIsFilledButSetNullAndTheEnd) {
    for (const KyTypeTab* row : AllRows()) {
        SCOPED_TRACE(row->typeName);
        void* slots[28];
        std::memcpy(slots, row, sizeof slots);
        constexpr int setNull = 20;
        constexpr int sizeWord = 24;
        constexpr int end = 27;
        for (int slot = 0; slot < end; ++slot) {
            if (slot == setNull || slot == sizeWord) continue;
            EXPECT_NE(slots[slot], nullptr) << slot;
        }
        EXPECT_EQ(slots[end], nullptr);
    }
}

TEST(RowLaws, SetNullIsEmptyExactlyWhereNoNullIsDefined) {
    // "int" has no null value; its IsNull is the one that all types without null share.
    for (const KyTypeTab* row : AllRows()) {
        EXPECT_EQ(row->SetNull == nullptr, row->IsNull == KyIntTab.IsNull) << row->typeName;
    }
}

TEST(RowLaws, SizeWordsAreASizeAndOneFlag) {
    for (const KyTypeTab* row : AllRows()) {
        SCOPED_TRACE(row->typeName);
        EXPECT_EQ(row->sizeWord & ~(KyFixedSize | 0xFFFFU), 0U);
        // The illegal row has no values.
        EXPECT_EQ(SizeOf(row) == 0, row == &KyIllegalTab);
    }
}

TEST(RowLaws, RowsAreDistinctAndNamedApart) {
    std::set<const KyTypeTab*> rows;
    std::set<std::string> names;
    for (const KyTypeTab* row : AllRows()) {
        EXPECT_TRUE(rows.insert(row).second) << row->typeName;
        // The old string row is id 11 of the other array and has the name of the new one.
        const bool named = row != &KyOldStringTab;
        EXPECT_EQ(names.insert(row->typeName).second, named) << row->typeName;
    }
}

TEST(RowLaws, CreateOfEveryCountIsFreedByDelete) {
    for (const KyTypeTab* row : AllRows()) {
        if (MakesNoValues(row)) continue;
        SCOPED_TRACE(row->typeName);
        for (unsigned count : {0U, 1U, 2U, 7U}) {
            void* values = row->Create(count);
            EXPECT_NE(values, nullptr);
            row->Delete(values, count);
            values = row->DefaultValue(count, 0);
            EXPECT_NE(values, nullptr);
            row->Delete(values, count);
        }
    }
}

TEST(RowLaws, StringsAreMadeAndFreedByBothRows) {
    // Conversion records of every type free their strings through these rows.
    for (const KyTypeTab* row : {&KyStringTab, &KyOldStringTab}) {
        for (unsigned count : {0U, 1U, 5U}) {
            auto* strings = static_cast<KyString*>(row->Create(count));
            ASSERT_NE(strings, nullptr);
            for (unsigned i = 0; i < count; ++i) strings[i] = "some text";
            row->Delete(strings, count);
            row->Delete(KyStringCreate(count), count);
        }
    }
    KyString text("x");
    EXPECT_EQ(KyStringTab.IsNull(&text), 0);
    EXPECT_EQ(KyStringTab.SetNull(&text), 0);
    EXPECT_NE(KyStringTab.IsNull(&text), 0);
    EXPECT_EQ(KyOldStringTab.IsNull(&text), 0) << "the older layout knows no null";
}

TEST(RowLaws, CountZeroComparesEqualAndHashesWithoutError) {
    alignas(16) unsigned char none[16] = {};
    for (const KyTypeTab* row : AllRows()) {
        SCOPED_TRACE(row->typeName);
        for (unsigned char form : {KyFormNative, KyFormReversed, KyFormMemory}) {
            int err = 1234;
            EXPECT_EQ(row->Compare(form, 0, none, 0, none, KyCmpExact, 0, err), 0);
            EXPECT_EQ(err, 0);
            err = 1234;
            EXPECT_EQ(row->Hash(form, 0, none, 0, err), 0U);
            EXPECT_EQ(err, 0);
        }
    }
}

TEST(RowLaws, DefaultValuesSurviveEveryForm) {
    for (const KyTypeTab* row : AllRows()) {
        if (MakesNoValues(row)) continue;
        SCOPED_TRACE(row->typeName);
        void* value = row->DefaultValue(1, 0);
        ASSERT_NE(value, nullptr);
        int err = 1234;
        EXPECT_EQ(row->Compare(KyFormMemory, 0, value, 0, value, KyCmpExact, 1, err), 0);
        EXPECT_EQ(err, 0);
        for (unsigned char form : {KyFormNative, KyFormReversed}) {
            std::vector<unsigned char> stored(row->SizeGet(value, KyFormMemory, form, 1) + 1, 0xEE);
            const auto size = static_cast<unsigned>(stored.size() - 1);
            EXPECT_EQ(row->Store(stored.data(), value, form, 1), size);
            EXPECT_EQ(stored[size], 0xEE);
            EXPECT_EQ(row->Compare(form, size, stored.data(), size, stored.data(), KyCmpExact, 1, err), 0);
            EXPECT_EQ(err, 0);

            void* loaded = row->Create(1);
            EXPECT_EQ(row->Load(loaded, stored.data(), form, 1), size);
            EXPECT_EQ(row->Compare(KyFormMemory, 0, value, 0, loaded, KyCmpExact, 1, err), 0);
            EXPECT_EQ(row->Hash(KyFormMemory, 0, value, 1, err), row->Hash(KyFormMemory, 0, loaded, 1, err));
            row->Delete(loaded, 1);
        }
        row->Delete(value, 1);
    }
}

TEST(RowLaws, SetNullMakesNullWhereThereIsOne) {
    for (const KyTypeTab* row : AllRows()) {
        if (MakesNoValues(row)) continue;
        SCOPED_TRACE(row->typeName);
        void* value = row->DefaultValue(1, 0);
        if (row->SetNull != nullptr) {
            EXPECT_EQ(row->SetNull(value), 0);
            EXPECT_NE(row->IsNull(value), 0);
        } else {
            EXPECT_EQ(row->IsNull(value), 0);
        }
        row->Delete(value, 1);
    }
}

TEST(RowLaws, ScanIntoANullPointerIsANullPointer) {
    KyString text("1");
    for (const KyTypeTab* row : AllRows()) {
        EXPECT_EQ(row->ScanFromKyString(nullptr, text, row->printFormat, 1), nullptr) << row->typeName;
    }
}

TEST(RowLaws, GetValueRefusesUnknownSelectors) {
    for (const KyTypeTab* row : AllRows()) {
        if (MakesNoValues(row)) continue;
        SCOPED_TRACE(row->typeName);
        void* value = row->DefaultValue(1, 0);
        for (unsigned what : {0U, 1U, 3U, 76U, 80U, 255U}) {
            EXPECT_EQ(row->GetValue(value, 1, KyFormMemory, static_cast<unsigned char>(what)), KyErrNotSupported)
                << what;
        }
        row->Delete(value, 1);
    }
}

TEST(RowLaws, OnlyTheIllegalRowMakesNoValues) {
    for (const KyTypeTab* row : AllRows()) EXPECT_EQ(MakesNoValues(row), row == &KyIllegalTab) << row->typeName;
}

TEST(RowLaws, NoRowBorrowsFromTheIllegalRow) {
    for (const KyTypeTab* row : AllRows()) {
        if (MakesNoValues(row)) continue;
        SCOPED_TRACE(row->typeName);

        void* slots[28];
        void* nothing[28];
        std::memcpy(slots, row, sizeof slots);
        std::memcpy(nothing, &KyIllegalTab, sizeof nothing);
        constexpr int firstFunction = 2;
        constexpr int translate = 18;  // of those behind, only print, scan and the default are types' own
        for (int slot = firstFunction; slot <= translate; ++slot) EXPECT_NE(slots[slot], nothing[slot]) << slot;
        EXPECT_NE(row->PrintToKyString, KyIllegalTab.PrintToKyString);
        EXPECT_NE(row->ScanFromKyString, KyIllegalTab.ScanFromKyString);
    }
}

}  // namespace
