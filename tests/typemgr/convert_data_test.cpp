#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

#include "kystring.h"
#include "kytypmgr.h"
#include "row_patch.h"

namespace {

static_assert(!std::is_copy_constructible_v<KyTypeConvertData> && !std::is_copy_assignable_v<KyTypeConvertData>);

void* deleted = nullptr;
unsigned deletedCount = 0;
int deletions = 0;

int RecordDelete(void* values, unsigned count) {
    deleted = values;
    deletedCount = count;
    ++deletions;
    return 0;
}

TEST(ConvertData, DefaultRecordIsEmpty) {
    const KyTypeConvertData record;
    EXPECT_EQ(record.manager, nullptr);
    EXPECT_EQ(record.data, nullptr);
    EXPECT_EQ(record.count, 0U);
    EXPECT_EQ(record.typeId, 100);
}

TEST(ConvertData, MakeSetsAllFields) {
    int values[3] = {};
    KyTypeMgr manager(5);
    const std::unique_ptr<KyTypeConvertData> record(KyTypeConvertData::Make(120, 3, values, &manager));
    EXPECT_EQ(record->manager, &manager);
    EXPECT_EQ(record->data, values);
    EXPECT_EQ(record->count, 3U);
    EXPECT_EQ(record->typeId, 120);
}

TEST(ConvertData, GetStringAnswersOnlyForTextInRange) {
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 2, KyStringCreate(2), &manager);
    auto* strings = static_cast<KyString*>(record.data);
    EXPECT_EQ(record.GetString(0), strings);
    EXPECT_EQ(record.GetString(1), strings + 1);
    EXPECT_EQ(record.GetString(2), nullptr);
    EXPECT_EQ(record.GetString(-1), nullptr);
    EXPECT_EQ(record.GetString(-2147483647 - 1), nullptr);
    EXPECT_EQ(record.GetString(2147483647), nullptr);
    const KyString text;
    KyTypeConvertData endless(KySTRING_T, 0xFFFFFFFF, const_cast<KyString*>(&text), nullptr);
    EXPECT_EQ(endless.GetString(-2), nullptr);
    EXPECT_EQ(endless.GetString(0), &text);
}

TEST(ConvertData, GetStringOfOtherRecordsIsNull) {
    double value = 1.0;
    KyTypeConvertData numbers(KyDOUBLE_T, 1, &value, nullptr);
    EXPECT_EQ(numbers.GetString(0), nullptr);
    KyTypeConvertData withoutData(KySTRING_T, 1, nullptr, nullptr);
    EXPECT_EQ(withoutData.GetString(0), nullptr);
    KyTypeConvertData empty;
    EXPECT_EQ(empty.GetString(0), nullptr);
}

TEST(ConvertData, DestructionDeletesTheDataOnlyWithAManager) {
    const RowPatch row(KyEnumTab);
    row->Delete = RecordDelete;
    KyTypeMgr manager(5);
    int values[3] = {};
    deletions = 0;
    { KyTypeConvertData record(KyENUM_T, 3, values, nullptr); }
    { KyTypeConvertData record(KyENUM_T, 3, nullptr, &manager); }
    EXPECT_EQ(deletions, 0);
    { KyTypeConvertData record(KyENUM_T, 3, values, &manager); }
    EXPECT_EQ(deletions, 1);
    EXPECT_EQ(deleted, values);
    EXPECT_EQ(deletedCount, 3U);
}

/// What stands where a record was: whoever still points there finds it empty, not freed data.
TEST(ConvertData, DestructionLeavesAnEmptyRecord) {
    const RowPatch row(KyEnumTab);
    row->Delete = RecordDelete;
    KyTypeMgr managerOfData(5);
    int values[3] = {};
    for (KyTypeMgr* manager : {static_cast<KyTypeMgr*>(nullptr), &managerOfData}) {
        alignas(KyTypeConvertData) unsigned char storage[sizeof(KyTypeConvertData)];
        std::destroy_at(new (storage) KyTypeConvertData(KyENUM_T, 3, values, manager));
        void* data = nullptr;
        unsigned count = 9;
        std::memcpy(&data, storage + offsetof(KyTypeConvertData, data), sizeof data);
        std::memcpy(&count, storage + offsetof(KyTypeConvertData, count), sizeof count);
        EXPECT_EQ(data, manager == nullptr ? values : nullptr);
        EXPECT_EQ(count, 0U);
        EXPECT_EQ(storage[offsetof(KyTypeConvertData, typeId)], 100);
    }
}

TEST(ConvertData, SlotRecordsFreeTheirStringsOnceTheManagerIsSet) {
    KyTypeMgr manager(5);
    short values[2] = {12, -7};
    const std::unique_ptr<KyTypeConvertData> fromSlot(KyShortTab.ConvertToKyString(values, 2));
    ASSERT_NE(fromSlot, nullptr);
    EXPECT_EQ(fromSlot->manager, nullptr);
    EXPECT_EQ(fromSlot->typeId, KySTRING_T);
    EXPECT_EQ(fromSlot->count, 2U);
    KyStringDelete(fromSlot->data, 2);

    const std::unique_ptr<KyTypeConvertData> fromManager(manager.ConvertTo(Ky2B_T, values, 2));
    ASSERT_NE(fromManager, nullptr);
    EXPECT_EQ(fromManager->manager, &manager);
    ASSERT_NE(fromManager->GetString(1), nullptr);
    EXPECT_STREQ(fromManager->GetString(0)->StrGet(), "12");
    EXPECT_STREQ(fromManager->GetString(1)->StrGet(), "-7");
}

}  // namespace
