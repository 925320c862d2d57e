#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kystring.h"
#include "kytypmgr.h"
#include "row_patch.h"
#include "support/hex.h"

namespace {

// ---------------------------------------------------------------------------------------------
// GetValue
// ---------------------------------------------------------------------------------------------

std::string Step(char id, const std::string& stored, unsigned form, unsigned what, int expected = 0) {
    KyTypeMgr manager(5);
    std::vector<unsigned char> bytes = Bytes(stored);
    EXPECT_EQ(manager.GetValue(id, bytes.data(), 1, static_cast<unsigned char>(form), static_cast<unsigned char>(what)),
              expected);
    return Hex(bytes.data(), bytes.size());
}

TEST(GetValue, TakesThreeSelectorsOnly) {
    KyTypeMgr manager(5);
    for (unsigned what = 0; what < 256; ++what) {
        int value = 5;
        const bool known = what == 77 || what == 78 || what == 79;
        EXPECT_EQ(manager.GetValue(KyINT_T, &value, 1, 8, static_cast<unsigned char>(what)), known ? 0 : -2999) << what;
        EXPECT_EQ(value, what == 77 || what == 78 ? 6 : 5) << what;
    }
    int value = 5;
    EXPECT_EQ(KyIntTab.GetValue(&value, 1, 8, 2), 0) << "the slot itself knows the least value";
}

TEST(GetValue, StepsInMemory) {
    EXPECT_EQ(Step(Ky4B_T, "FF FF FF 7F", 8, 77), "00 00 00 80");
    EXPECT_EQ(Step(KyU4B_T, "FF FF FF FF", 8, 77, 2091), "FF FF FF FF");
    EXPECT_EQ(Step(KyENUM_T, "05 00 00 00", 8, 77, -2999), "05 00 00 00");
}

TEST(GetValue, StepsWhereTheValueIsStored) {
    for (unsigned form : {0U, 1U, 3U, 0x41U, 0x70U}) {
        EXPECT_EQ(Step(Ky4B_T, "05 00 00 00", form, 77), "06 00 00 00") << form;
        EXPECT_EQ(Step(Ky4B_T, "05 00 00 00", form, 78), "06 00 00 00") << form;
        EXPECT_EQ(Step(Ky4B_T, "05 00 00 00", form, 79), "05 00 00 00") << form;
    }
    EXPECT_EQ(Step(Ky1B_T, "7F", 1, 77), "80");
    EXPECT_EQ(Step(KyU1B_T, "FF", 1, 77, 2091), "FF");
    EXPECT_EQ(Step(Ky8B_T, "FF FF FF FF 00 00 00 00", 1, 77), "00 00 00 00 01 00 00 00");
    EXPECT_EQ(Step(KyENUM_T, "05 00 00 00", 1, 77, -2999), "05 00 00 00");
}

TEST(GetValue, Kept_ReversedFormIsSteppedInTheMachinesOrder) {
    EXPECT_EQ(Step(Ky4B_T, "00 00 00 05", 2, 77), "01 00 00 05");
    EXPECT_EQ(Step(Ky2B_T, "00 FF", 2, 77), "01 FF");
    EXPECT_EQ(Step(KyU4B_T, "FF FF FF FF", 2, 77, 2091), "FF FF FF FF");
}

TEST(GetValue, SteppedValuesNeedNoAlignment) {
    KyTypeMgr manager(5);
    unsigned char buffer[24];
    for (std::size_t offset = 0; offset < 8; ++offset) {
        std::memset(buffer, 0xEE, sizeof buffer);
        const long long before = 41;
        std::memcpy(buffer + offset, &before, sizeof before);
        EXPECT_EQ(manager.GetValue(Ky8B_T, buffer + offset, 1, 1, 77), 0);
        long long after = 0;
        std::memcpy(&after, buffer + offset, sizeof after);
        EXPECT_EQ(after, 42);
        EXPECT_EQ(buffer[offset + 8], 0xEE);
    }
}

std::string calls;

void InstallStepSpies(const RowPatch& row) {
    row->Create = [](unsigned count) -> void* {
        calls += "Create " + std::to_string(count) + ";";
        return new int(0);
    };
    row->Delete = [](void* value, unsigned count) {
        calls += "Delete " + std::to_string(count) + ";";
        delete static_cast<int*>(value);
        return 0;
    };
    row->Load = [](void*, const void*, unsigned char flag, unsigned count) {
        calls += "Load " + std::to_string(flag) + " " + std::to_string(count) + ";";
        return 4U;
    };
    row->GetValue = [](void*, unsigned count, unsigned char form, unsigned char what) {
        calls += "GetValue " + std::to_string(count) + " " + std::to_string(form) + " " + std::to_string(what) + ";";
        return 0;
    };
    row->Store = [](void*, const void*, unsigned char flag, unsigned count) {
        calls += "Store " + std::to_string(flag) + " " + std::to_string(count) + ";";
        return 4U;
    };
}

int CallsOf(unsigned form, char id = KyENUM_T) {
    KyTypeMgr manager(5);
    unsigned char value[16] = {};
    calls.clear();
    return manager.GetValue(id, value, 3, static_cast<unsigned char>(form), 78);
}

TEST(GetValue, StoredValuesGoThroughCreateLoadStepStoreDelete) {
    const RowPatch row(KyEnumTab);
    InstallStepSpies(row);
    EXPECT_EQ(CallsOf(8), 0);
    EXPECT_EQ(calls, "GetValue 3 8 78;");
    EXPECT_EQ(CallsOf(1), 0);
    EXPECT_EQ(calls, "Create 1;Load 1 1;GetValue 0 8 78;Store 1 1;Delete 1;");
}

TEST(GetValue, Kept_OnlyTwoBitsOfTheFormReachLoadAndStore) {
    const RowPatch row(KyEnumTab);
    InstallStepSpies(row);
    for (unsigned form = 0; form < 256; ++form) {
        if (form == 8) continue;
        EXPECT_EQ(CallsOf(form), 0);
        const std::string kept = std::to_string(form & 0x81);
        EXPECT_EQ(calls, "Create 1;Load " + kept + " 1;GetValue 0 8 78;Store " + kept + " 1;Delete 1;") << form;
    }
}

TEST(GetValue, FailuresDeleteTheValueAndStoreNothing) {
    const RowPatch row(KyEnumTab);
    InstallStepSpies(row);
    row->Store = [](void*, const void*, unsigned char, unsigned) {
        calls += "Store;";
        return 0U;
    };
    EXPECT_EQ(CallsOf(1), -2999);
    EXPECT_EQ(calls, "Create 1;Load 1 1;GetValue 0 8 78;Store;Delete 1;");
    row->GetValue = [](void*, unsigned, unsigned char, unsigned char) { return 2091; };
    EXPECT_EQ(CallsOf(1), 2091);
    EXPECT_EQ(calls, "Create 1;Load 1 1;Delete 1;");
    row->Load = [](void*, const void*, unsigned char, unsigned) { return 0U; };
    EXPECT_EQ(CallsOf(1), -2999);
    EXPECT_EQ(calls, "Create 1;Delete 1;");
    row->Create = [](unsigned) -> void* { return nullptr; };
    EXPECT_EQ(CallsOf(1), -2999);
    EXPECT_EQ(calls, "");
}

TEST(GetValue, StringsGoStraightToTheirSlotInEveryForm) {
    const RowPatch row(KyStringTab);
    InstallStepSpies(row);
    for (unsigned form : {1U, 2U, 8U, 129U, 255U}) {
        EXPECT_EQ(CallsOf(form, KySTRING_T), 0);
        EXPECT_EQ(calls, "GetValue 3 " + std::to_string(form) + " 78;");
    }
    KyTypeMgr old(0);
    KyString value("a");
    EXPECT_EQ(old.GetValue(KySTRING_T, &value, 1, 129, 77), -2999);
    EXPECT_EQ(old.GetValue(KySTRING_T, &value, 1, 8, 77), -2999);
}

// ---------------------------------------------------------------------------------------------
// SetNullValue
// ---------------------------------------------------------------------------------------------

TEST(SetNullValue, NumbersBecomeZero) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (char id : {char{0}, char{1}, char{2}, char{3}, char{4}, char{5}, char{6}, char{7}, char{8}, char{9},
                        char{10}, char{14}}) {
            unsigned char value[8];
            std::memset(value, 0xAA, sizeof value);
            EXPECT_EQ(manager.SetNullValue(id, value), 0);
            const unsigned size = manager.MemLenGet(id, 1);
            for (unsigned at = 0; at < 8; ++at) EXPECT_EQ(value[at], at < size ? 0 : 0xAA) << int{id};
        }
    }
    KyTypeMgr manager(5);
    for (char id : {char{Ky8B_T}, char{KyU8B_T}}) {
        long long value = -1;
        EXPECT_EQ(manager.SetNullValue(id, &value), 0);
        EXPECT_EQ(value, 0);
    }
}

TEST(SetNullValue, TheSlotsOwnResultIsGivenUnlessItIsNotSupported) {
    const RowPatch row(KyEnumTab);
    KyTypeMgr manager(5);
    int value = 5;
    row->SetNull = [](void* at) {
        *static_cast<int*>(at) = 99;
        return 17;
    };
    EXPECT_EQ(manager.SetNullValue(KyENUM_T, &value), 17);
    EXPECT_EQ(value, 99);
    row->SetNull = [](void*) { return -2999; };
    EXPECT_EQ(manager.SetNullValue(KyENUM_T, &value), 0);
    EXPECT_EQ(value, 0);
}

TEST(SetNullValue, AssignsTheValueOfAnEmptyText) {
    static std::string seen;
    static int made = 0;
    const RowPatch row(KyEnumTab);
    seen.clear();
    row->ConvertFromKyString = [](KyTypeConvertData* record, unsigned count) -> void* {
        seen += "From id " + std::to_string(record->typeId) + " count " + std::to_string(record->count) + " of " +
                std::to_string(count) + " text '" + record->GetString(0)->StrGet() + "'" +
                (record->manager != nullptr ? " managed;" : ";");
        return &made;
    };
    row->Assignment = [](void*, void* src, unsigned count, int mode) {
        seen += std::string("Assign ") + (src == &made ? "made " : "other ") + std::to_string(count) + " " +
                std::to_string(mode) + ";";
    };
    row->Delete = [](void* values, unsigned count) {
        seen += std::string("Delete ") + (values == &made ? "made " : "other ") + std::to_string(count) + ";";
        return 0;
    };
    KyTypeMgr manager(5);
    int value = 5;
    EXPECT_EQ(manager.SetNullValue(KyENUM_T, &value), 0);
    EXPECT_EQ(seen, "From id 11 count 1 of 1 text '' managed;Assign made 1 1;Delete made 1;");
}

TEST(SetNullValue, WithoutANewValueLeavesTheOldOne) {
    const RowPatch row(KyEnumTab);
    KyTypeMgr manager(5);
    int value = 5;
    row->ConvertFromKyString = [](KyTypeConvertData*, unsigned) -> void* { return nullptr; };
    EXPECT_EQ(manager.SetNullValue(KyENUM_T, &value), 0);
    EXPECT_EQ(value, 5);
    row->ConvertFromKyString = nullptr;
    EXPECT_EQ(manager.SetNullValue(KyENUM_T, &value), 0);
    EXPECT_EQ(value, 5);
}

TEST(SetNullValue, WithoutAssignmentScansAZero) {
    const RowPatch row(KyEnumTab);
    row->Assignment = nullptr;
    KyTypeMgr manager(5);
    int value = 5;
    EXPECT_EQ(manager.SetNullValue(KyENUM_T, &value), 0);
    EXPECT_EQ(value, 0);
}

// ---------------------------------------------------------------------------------------------
// StoreTimeStamp
// ---------------------------------------------------------------------------------------------

struct Stamp {
    short year = 2024;
    signed char month = 5;
    signed char day = 7;
    signed char hour = 13;
    signed char minute = 45;
    signed char second = 59;
    int subSeconds = 0;
};

std::string storedImage;
std::size_t storedSize = 0;

unsigned RecordStore(void*, const void* src, unsigned char flag, unsigned count) {
    storedImage = Hex(src, storedSize) + " flag " + std::to_string(flag) + " count " + std::to_string(count);
    return 321;
}

TEST(StoreTimeStamp, StoresTheTypesMemoryForm) {
    struct Case {
        char id;
        std::size_t size;
        const char* image;
    };
    const Case cases[] = {
        {KyDATE_T, 4, "E8 07 05 07"},
        {KyTIME_T, 3, "0D 2D 3B"},
        {KyDATIME_T, 7, "E8 07 05 07 0D 2D 3B"},
        {D_DATE_T, 4, "E8 07 05 07"},
        {D_TIME_T, 6, "00 00 0D 2D 3B 00"},
        {D_TIMESTAMP_T, 10, "E8 07 05 07 00 00 0D 2D 3B 00"},
        {KyDATIME_N_T, 7, "E8 07 05 07 0D 2D 3B"},
    };
    for (const Case& c : cases) {
        const RowPatch row(*KyNewtypetab[static_cast<int>(c.id)]);
        SCOPED_TRACE(row->typeName);
        row->Store = RecordStore;
        KyTypeMgr manager(5);
        Stamp stamp;
        unsigned char dst[16] = {};
        storedSize = c.size;
        EXPECT_EQ(manager.StoreTimeStamp(c.id, dst, 2, &stamp), 321);
        EXPECT_EQ(storedImage, std::string(c.image) + " flag 2 count 1");
    }
}

TEST(StoreTimeStamp, OtherTypesAndNullStampsAreNotSupported) {
    Stamp stamp;
    unsigned char dst[16] = {};
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int id = -128; id < 128; ++id) {
            EXPECT_EQ(manager.StoreTimeStamp(static_cast<char>(id), dst, 1, nullptr), -2999) << id;
            if (manager.SupportsCapability(static_cast<char>(id), 3) != 0) continue;
            EXPECT_EQ(manager.StoreTimeStamp(static_cast<char>(id), dst, 1, &stamp), -2999) << id;
        }
    }
}

TEST(StoreTimeStamp, ATypeTheOldArrayLacksIsNotSupported) {
    KyTypeMgr manager(0);
    Stamp stamp;
    unsigned char dst[16] = {};
    EXPECT_EQ(manager.SupportsCapability(KyDATIME_N_T, 3), 1);
    EXPECT_EQ(manager.StoreTimeStamp(KyDATIME_N_T, dst, 1, &stamp), -2999);
}

}  // namespace
