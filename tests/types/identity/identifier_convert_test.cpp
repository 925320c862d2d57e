#include <gtest/gtest.h>

#include "kyobjid.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"
#include "support/hex.h"

namespace {

TEST(IdentifierRecords, ConvertToTextsAndBack) {
    KyTypeMgr manager(5);
    KyRef refs[] = {KyRef(KyObjId(7, 5, 1), 2, KyClassId(8, 9)), KyRef(KyObjId(7, 0, 0), 2, KyClassId(8, 9)), KyRef()};
    KyTypeConvertData* record = manager.ConvertTo(KyREF_T, refs, 3);
    ASSERT_NE(record, nullptr);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(2:1-5#7, 8)");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 1);
    *record->GetString(2) = "{NULL}";
    auto* back = static_cast<KyRef*>(manager.ConvertFrom(KyREF_T, record, 4));  // one more than there are
    EXPECT_EQ(Hex(back, 16), "07 00 00 00 05 00 00 00 01 00 02 00 08 00 00 00");
    for (int i = 1; i < 4; ++i) EXPECT_EQ(Hex(back + i, 16), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    manager.Delete(KyREF_T, back, 4);
    delete record;

    KyClassId ids[] = {{8, 9}, {0xFFFF, 0xFFFF}, {0, 0}, {1, 1}};
    record = manager.ConvertTo(KyCLID_T, ids, 4);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(8v9)");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 1);
    EXPECT_STREQ(record->GetString(2)->StrGet(), "(0v0)");
    *record->GetString(3) = "";
    auto* idsBack = static_cast<KyClassId*>(manager.ConvertFrom(KyCLID_T, record, 5));
    EXPECT_EQ(Hex(idsBack, 20), "08 00 09 00 FF FF FF FF 00 00 00 00 00 00 00 00 FF FF FF FF");
    manager.Delete(KyCLID_T, idsBack, 5);
    delete record;

    KyObjId objects[] = {{3, 12, 0}, {3, 0, 0}};
    record = manager.ConvertTo(KyOBJID_T, objects, 2);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(0-12#3)");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 1);
    auto* objectsBack = static_cast<KyObjId*>(manager.ConvertFrom(KyOBJID_T, record, 2));
    EXPECT_EQ(Hex(objectsBack, 10), "03 00 00 00 0C 00 00 00 00 00");
    EXPECT_EQ(Hex(objectsBack + 1, 10), "00 00 00 00 00 00 00 00 00 00");
    manager.Delete(KyOBJID_T, objectsBack, 2);
    delete record;
}

TEST(IdentifierRecords, WithoutTextsAllAreNull) {
    KyTypeMgr manager(5);
    auto* ids = static_cast<KyClassId*>(manager.ConvertFrom(KyCLID_T, nullptr, 2));
    EXPECT_EQ(Hex(ids, 8), "FF FF FF FF FF FF FF FF");
    manager.Delete(KyCLID_T, ids, 2);
    KyTypeConvertData* record = manager.ConvertTo(KyCLID_T, ids, 0);
    ASSERT_NE(record, nullptr);
    void* none = manager.ConvertFrom(KyCLID_T, record, 0);
    EXPECT_NE(none, nullptr);
    manager.Delete(KyCLID_T, none, 0);
    delete record;
}

TEST(IdentifierRecords, AnExchangedFormatDoesNotMatter) {
    KyTypeMgr manager(5);
    const char* const before = manager.ExchangeFormat(KyCLID_T, "%V");
    KyClassId id(8, 9);
    KyString out;
    EXPECT_STREQ(manager.PrintToKyString(KyCLID_T, out, &id, nullptr, 1).StrGet(), "9");
    EXPECT_STREQ(KyClassIdTab.PrintToKyString(out, &id, nullptr, 1).StrGet(), "(8v9)");
    KyTypeConvertData* record = manager.ConvertTo(KyCLID_T, &id, 1);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(8v9)");
    auto* back = static_cast<KyClassId*>(manager.ConvertFrom(KyCLID_T, record, 1));
    EXPECT_EQ(Hex(back, 4), "08 00 09 00");
    manager.Delete(KyCLID_T, back, 1);
    delete record;
    manager.ExchangeFormat(KyCLID_T, before);
}

}  // namespace
