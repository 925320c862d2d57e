#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <set>
#include <string>

#include "shared_slots.h"
#include "type_table.h"

namespace {

TEST(Rows, StandInTheOrderOfTheIds) {
    ASSERT_EQ(std::size(expectedTypes), 47U);
    for (int id = 0; id < 47; ++id) {
        EXPECT_EQ(expectedTypes[id].id, id);
        EXPECT_EQ(KyNewtypetab[id], expectedTypes[id].row) << id;
    }
    EXPECT_EQ(KyNewtypetab[47], nullptr);
    EXPECT_EQ(std::size(KyNewtypetab), 48U);
}

TEST(Rows, OldArrayDiffersInTheStringRowAlone) {
    ASSERT_EQ(std::size(KyOldtypetab), 28U);
    for (int id = 0; id < 28; ++id) {
        EXPECT_EQ(KyOldtypetab[id], id == 11 ? &KyOldStringTab : KyNewtypetab[id]) << id;
    }
}

TEST(Rows, AreNamedAndMeasuredLikeTheirTypes) {
    for (const ExpectedType& type : expectedTypes) {
        SCOPED_TRACE(type.name);
        EXPECT_STREQ(type.row->typeName, type.name);
        EXPECT_STREQ(type.row->typeCodeName, type.codeName);
        EXPECT_STREQ(type.row->printFormat, type.format);
        EXPECT_EQ(type.row->sizeWord, (type.fixed ? 0x10000U : 0U) + type.size);
        EXPECT_EQ(type.row->end, nullptr);
    }
}

TEST(Rows, OldStringRowIsNamedAndMeasuredLikeTheNewOne) {
    EXPECT_STREQ(KyOldStringTab.typeName, "KyString");
    EXPECT_STREQ(KyOldStringTab.typeCodeName, "KySTRING_T");
    EXPECT_STREQ(KyOldStringTab.printFormat, "%s");
    EXPECT_EQ(KyOldStringTab.sizeWord, 16U);
    EXPECT_EQ(KyOldStringTab.IsNull, &NoIsNullDefined);
    EXPECT_EQ(KyOldStringTab.SetNull, nullptr);
    EXPECT_EQ(KyOldStringTab.GetValue, &KyGetValueFuncDummy);
    EXPECT_EQ(KyOldStringTab.end, nullptr);
}

TEST(Rows, HaveSetNullExactlyWhereTheTypeHasANull) {
    for (const ExpectedType& type : expectedTypes) {
        SCOPED_TRACE(type.name);
        EXPECT_EQ(type.row->SetNull != nullptr, type.hasNull);
        EXPECT_EQ(type.row->IsNull != &NoIsNullDefined, type.hasNull);
    }
}

TEST(Rows, TypesWithoutSteppingHoldTheDummy) {
    for (const KyTypeTab* row :
         {&KyEnumTab, &KyClassIdTab, &KyBlobTab, &KyIStringTab, &KyCaseIStringTab, &KySealTab, &KyIllegalTab}) {
        EXPECT_EQ(row->GetValue, &KyGetValueFuncDummy) << row->typeName;
    }
}

/// Engines built elsewhere take a slot by its place.
TEST(Rows, SlotsStandAtTheirPlaces) {
    const std::size_t offsets[] = {
        offsetof(KyTypeTab, typeName),
        offsetof(KyTypeTab, typeCodeName),
        offsetof(KyTypeTab, Create),
        offsetof(KyTypeTab, Delete),
        offsetof(KyTypeTab, Store),
        offsetof(KyTypeTab, Load),
        offsetof(KyTypeTab, NullSizeGet),
        offsetof(KyTypeTab, SizeGet),
        offsetof(KyTypeTab, SizeGetFromMemFile),
        offsetof(KyTypeTab, Compare),
        offsetof(KyTypeTab, EvalAndBound),
        offsetof(KyTypeTab, Hash),
        offsetof(KyTypeTab, ConvertToKyString),
        offsetof(KyTypeTab, ConvertFromKyString),
        offsetof(KyTypeTab, Constructor),
        offsetof(KyTypeTab, Destructor),
        offsetof(KyTypeTab, Assignment),
        offsetof(KyTypeTab, Copy),
        offsetof(KyTypeTab, Translate),
        offsetof(KyTypeTab, IsNull),
        offsetof(KyTypeTab, SetNull),
        offsetof(KyTypeTab, printFormat),
        offsetof(KyTypeTab, PrintToKyString),
        offsetof(KyTypeTab, ScanFromKyString),
        offsetof(KyTypeTab, sizeWord),
        offsetof(KyTypeTab, DefaultValue),
        offsetof(KyTypeTab, GetValue),
        offsetof(KyTypeTab, end),
    };
    ASSERT_EQ(std::size(offsets), 28U);
    for (std::size_t slot = 0; slot < 28; ++slot) EXPECT_EQ(offsets[slot], slot * sizeof(void*)) << slot;
}

TEST(Rows, CarryTheNamesOfTheirIdConstants) {
#define KY_CHECK_ROW(number, constant, row)    \
    EXPECT_EQ(int{constant}, number);          \
    EXPECT_STREQ(row.typeCodeName, #constant); \
    EXPECT_EQ(&row, KyNewtypetab[number]);
    KY_TYPE_ROSTER(KY_CHECK_ROW)
#undef KY_CHECK_ROW
}

TEST(Rows, NamesAreUnique) {
    std::set<std::string> names;
    std::set<std::string> codeNames;
    for (const ExpectedType& type : expectedTypes) {
        EXPECT_TRUE(names.insert(type.row->typeName).second) << type.name;
        EXPECT_TRUE(codeNames.insert(type.row->typeCodeName).second) << type.codeName;
    }
}

}  // namespace
