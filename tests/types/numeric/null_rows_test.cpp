#include <gtest/gtest.h>

#include "null_roster.h"
#include "null_slots.h"

namespace {

TEST(NullRows, NamesFormatsAndSizes) {
    ASSERT_EQ(NullTypes().size(), 13u);
    for (const NullType& type : NullTypes()) {
        EXPECT_EQ(KyNewtypetab[type.id], type.row) << type.name();
        EXPECT_STREQ(type.row->typeCodeName, type.typeCodeName);
        EXPECT_STREQ(type.row->printFormat, type.printFormat);
        EXPECT_STREQ(type.row->printFormat,
                     type.Plain().id == Ky8B_T && type.id == 38 ? "%S" : type.Plain().row->printFormat);
        EXPECT_EQ(type.row->sizeWord, KyFixedSize | type.shape.memory) << type.name();
        EXPECT_EQ(type.row->end, nullptr);
    }
}

TEST(NullRows, NoSlotIsEmpty) {
    for (const NullType& type : NullTypes()) {
        const auto* slots = reinterpret_cast<void* const*>(type.row);
        for (int slot = 0; slot < 27; ++slot) EXPECT_NE(slots[slot], nullptr) << type.name() << " slot " << slot;
    }
}

TEST(NullRows, EachHoldsTheFunctionsOfItsName) {
    EXPECT_STREQ(KyNull_longTab.typeName, "KyNull_long");
    EXPECT_EQ(KyNull_longTab.Store, KyNull_longStore);
    EXPECT_EQ(KyNull_longTab.Compare, KyNull_longCompare);
    EXPECT_EQ(KyNull_ulongTab.Compare, KyNull_ulongCompare);
    EXPECT_EQ(KyNull_doubleTab.Create, KyNull_doubleCreate);
    EXPECT_EQ(KyNull_KyInt64Tab.GetValue, KyNull_KyInt64GetValue);
    EXPECT_NE(KyNull_ulongCompare, KyNull_longCompare);
    EXPECT_NE(KyNull_8bCompare, KyNull_u8bCompare);
}

TEST(NullRows, StoredSizesAreThoseOfThePlainTypeAndAByte) {
    for (const NullType& type : NullTypes()) {
        const auto size = static_cast<unsigned>(type.shape.number) + 1;
        for (const unsigned count : {0u, 1u, 2u, 1000u}) {
            EXPECT_EQ(type.row->NullSizeGet(count), size * count) << type.name();
            for (const unsigned char flag : kFlags) {
                EXPECT_EQ(type.row->SizeGet(nullptr, KyFormMemory, flag, count), size * count) << type.name();
                EXPECT_EQ(type.row->SizeGet(nullptr, flag, KyFormMemory, count), size * count) << type.name();
                EXPECT_EQ(type.row->SizeGetFromMemFile(nullptr, flag, count), size * count) << type.name();
            }
        }
    }
}

}  // namespace
