/// The road of one call through exported names alone.

#include <gtest/gtest.h>

#include <string>

#include "kystring.h"
#include "kytypes.h"
#include "kytypinf.h"
#include "kytypmgr.h"

namespace {

// Asked while this program's own statics are made.
const std::string nullTextAtStart = KyTypeMgr::GetNullPrintString().StrGet();
const KyTypeMgr* const defaultManagerAtStart = DefaultTypeMgr(nullptr);
const std::string printedAtStart = [] {
    KyTypeMgr manager(5);
    double value = 2.5;
    KyString out;
    manager.PrintToKyString(KyDOUBLE_T, out, &value, nullptr, 1);
    return std::string(out.StrGet());
}();

TEST(Interface, WorksBeforeMain) {
    EXPECT_EQ(nullTextAtStart, "{NULL}");
    EXPECT_EQ(printedAtStart, "2.5");
    EXPECT_EQ(defaultManagerAtStart, nullptr);
}

TEST(Interface, AnArrayIsStoredComparedHashedAndPrintedById) {
    KyTypeMgr manager(5);
    char id = 0;
    ASSERT_EQ(manager.Name2KyTypeId("o_u2b", id), 0);
    auto* values = static_cast<unsigned short*>(manager.Create(id, 3));
    ASSERT_NE(values, nullptr);
    values[0] = 1;
    values[1] = 513;
    values[2] = 32767;
    unsigned char stored[6];
    EXPECT_EQ(manager.DiskLenGet(id, values, 2, 3, 8), 6U);
    EXPECT_EQ(manager.Store(id, stored, values, 2, 3), 6U);
    EXPECT_EQ(stored[2], 2);
    EXPECT_EQ(stored[3], 1);
    auto* loaded = static_cast<unsigned short*>(manager.Create(id, 3));
    EXPECT_EQ(manager.Load(id, loaded, stored, 2, 3), 6U);
    EXPECT_EQ(manager.Cmp(id, values, loaded, KyCmpExact, 3, 8), 0);
    int err = 0;
    EXPECT_EQ(manager.Hash(id, 6, stored, 3, 2, err), manager.Hash(id, 0, values, 3, 8, err));
    EXPECT_EQ(err, 0);
    KyString out;
    manager.PrintToKyString(id, out, loaded, nullptr, 3);
    EXPECT_STREQ(out.StrGet(), "1,513,32767");
    manager.Delete(id, values, 3);
    manager.Delete(id, loaded, 3);
}

TEST(Interface, OptionsBlockIsFoundByItsPlainName) {
    const auto* block = static_cast<const unsigned char*>(___KyTypeMgrOptions());
    ASSERT_NE(block, nullptr);
    for (int at = 0; at < 16; ++at) EXPECT_EQ(block[at], 0);
}

TEST(Interface, NumberTextsFollowTheOptionsBlock) {
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
    *record.GetString(0) = "010";
    auto* block = static_cast<unsigned char*>(___KyTypeMgrOptions());
    for (const int option : {0, 1, 0xFE}) {
        block[0] = static_cast<unsigned char>(option);
        auto* value = static_cast<int*>(manager.ConvertFrom(KyINT_T, &record, 1));
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(*value, (option & 1) != 0 ? 10 : 8);
        manager.Delete(KyINT_T, value, 1);
    }
    block[0] = 0;
}

}  // namespace
