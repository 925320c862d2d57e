#include <gtest/gtest.h>

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

TEST(Rows, NamesAreUnique) {
    std::set<std::string> names;
    std::set<std::string> codeNames;
    for (const ExpectedType& type : expectedTypes) {
        EXPECT_TRUE(names.insert(type.row->typeName).second) << type.name;
        EXPECT_TRUE(codeNames.insert(type.row->typeCodeName).second) << type.codeName;
    }
}

}  // namespace
