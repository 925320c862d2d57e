#include <gtest/gtest.h>

#include "kybase.h"
#include "number_roster.h"
#include "number_slots.h"

namespace {

struct RowFacts {
    KyTypeTab* row;
    const char* typeName;
    const char* typeCodeName;
    const char* printFormat;
    unsigned size;
};

const RowFacts kRows[] = {
    {&KyCharTab, "o_char", "Ky1B_T", "%c", 1},
    {&KyShortTab, "o_2b", "Ky2B_T", "%hd", 2},
    {&KyLongTab, "o_4b", "Ky4B_T", "%ld", 4},
    {&KyDoubleTab, "o_double", "KyDOUBLE_T", "%.17g", 8},
    {&KyFloatTab, "o_float", "KyFLOAT_T", "%.17g", 4},
    {&KyWordTab, "o_u2b", "KyU2B_T", "%hu", 2},
    {&KyDWordTab, "o_u4b", "KyU4B_T", "%lu", 4},
    {&KyIntTab, "int", "KyINT_T", "%d", 4},
    {&KyUnsignedTab, "unsigned", "KyUNSIGNED_T", "%u", 4},
    {&KyEnumTab, "enum", "KyENUM_T", "%d", 4},
    {&KyByteTab, "o_u1b", "KyU1B_T", "%c", 1},
    {&KyBlockIdTab, "BlockId", "KyBLOCKID_T", "#%lu", 4},
    {&Ky8BTab, "o_8b", "Ky8B_T", "%lld", 8},
    {&KyU8BTab, "o_u8b", "KyU8B_T", "%llu", 8},
};

TEST(NumberRows, NamesFormatsAndSizes) {
    for (const RowFacts& facts : kRows) {
        EXPECT_STREQ(facts.row->typeName, facts.typeName);
        EXPECT_STREQ(facts.row->typeCodeName, facts.typeCodeName);
        EXPECT_STREQ(facts.row->printFormat, facts.printFormat);
        EXPECT_EQ(facts.row->sizeWord, KyFixedSize | facts.size) << facts.typeName;
        EXPECT_EQ(facts.row->end, nullptr);
    }
}

TEST(NumberRows, NoSlotIsEmptyButSetNull) {
    for (const RowFacts& facts : kRows) {
        const auto* slots = reinterpret_cast<void* const*>(facts.row);
        for (int slot = 0; slot < 27; ++slot) {
            EXPECT_EQ(slots[slot] == nullptr, slot == 20) << facts.typeName << " slot " << slot;
        }
        EXPECT_EQ(facts.row->IsNull(nullptr), 0);
    }
}

TEST(NumberRows, StoreAndLoadAreOneFunctionButForIntAndUnsigned) {
    for (const RowFacts& facts : kRows) {
        const bool two = facts.row == &KyIntTab || facts.row == &KyUnsignedTab || facts.row == &KyEnumTab;
        EXPECT_EQ(facts.row->Store == facts.row->Load, !two) << facts.typeName;
    }
    EXPECT_EQ(KyEnumTab.Store, &IntStore);
    EXPECT_EQ(KyEnumTab.Load, &IntLoad);
    EXPECT_EQ(KyUnsignedTab.Load, &UnsignedLoad);
}

TEST(NumberRows, TypesOfOneMemoryFormShareFunctions) {
    EXPECT_EQ(KyWordTab.DefaultValue, KyShortTab.DefaultValue);
    EXPECT_EQ(KyDWordTab.DefaultValue, KyLongTab.DefaultValue);
    EXPECT_EQ(KyBlockIdTab.DefaultValue, KyLongTab.DefaultValue);
    EXPECT_EQ(KyUnsignedTab.DefaultValue, KyIntTab.DefaultValue);
    EXPECT_EQ(KyEnumTab.DefaultValue, KyIntTab.DefaultValue);
    EXPECT_EQ(KyByteTab.DefaultValue, KyCharTab.DefaultValue);
    EXPECT_EQ(KyU8BTab.DefaultValue, Ky8BTab.DefaultValue);

    EXPECT_EQ(KyIntTab.GetValue, KyLongTab.GetValue);
    EXPECT_EQ(KyUnsignedTab.GetValue, KyDWordTab.GetValue);
    EXPECT_EQ(KyBlockIdTab.GetValue, KyDWordTab.GetValue);
    EXPECT_EQ(KyEnumTab.GetValue, &KyGetValueFuncDummy);

    EXPECT_EQ(KyByteTab.PrintToKyString, KyCharTab.PrintToKyString);
    EXPECT_EQ(KyWordTab.PrintToKyString, KyShortTab.PrintToKyString);
    EXPECT_EQ(KyBlockIdTab.PrintToKyString, KyLongTab.PrintToKyString);
    EXPECT_EQ(KyEnumTab.Translate, EnumTranslate);
}

TEST(NumberRows, ABlockNumberIsAnUnsigned32BitNumberUnderAnotherName) {
    const auto* block = reinterpret_cast<void* const*>(&KyBlockIdTab);
    const auto* dword = reinterpret_cast<void* const*>(&KyDWordTab);
    for (int slot = 2; slot < 28; ++slot) {
        if (slot != 21) {
            EXPECT_EQ(block[slot], dword[slot]) << slot;
        }
    }
}

TEST(NumberRows, StandInTheArraysUnderTheirIds) {
    for (const NumberType& type : NumberTypes()) {
        EXPECT_EQ(KyNewtypetab[type.id], type.row) << type.name();
        if (type.id < KyOldTypeIdLimit) {
            EXPECT_EQ(KyOldtypetab[type.id], type.row) << type.name();
        }
    }
}

}  // namespace
