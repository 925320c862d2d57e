#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kystring.h"
#include "kytypmgr.h"

namespace {

struct Unmapped {
    unsigned factory;
    char id;
};

/// Every id that has no row of its own, under both arrays.
std::vector<Unmapped> UnmappedIds() {
    std::vector<Unmapped> all;
    for (unsigned factory : {0U, 3U, 4U, 5U, 11U, 200U}) {
        const bool old = factory < 4 || factory == 11;
        for (int id = -128; id < 128; ++id) {
            const bool ownRow = id >= 0 && id < (old ? 28 : 46);
            if (!ownRow) all.push_back({factory, static_cast<char>(id)});
        }
    }
    return all;
}

template <class Check>
void ForEachUnmappedId(Check check) {
    for (const Unmapped& unmapped : UnmappedIds()) {
        SCOPED_TRACE("factory " + std::to_string(unmapped.factory) + " id " +
                     std::to_string(static_cast<signed char>(unmapped.id)));
        KyTypeMgr manager(unmapped.factory);
        check(manager, unmapped.id);
    }
}

TEST(IllegalRow, MakesNothing) {
    ForEachUnmappedId([](KyTypeMgr& manager, char id) {
        for (unsigned count : {0U, 1U, 3U}) {
            EXPECT_EQ(manager.Create(id, count), nullptr);
            EXPECT_EQ(manager.DefaultValue(id, count, 0), nullptr);
            manager.Delete(id, nullptr, count);
        }
        EXPECT_EQ(manager.ConvertTo(id, nullptr, 1), nullptr);
        KyTypeConvertData record;
        EXPECT_EQ(manager.ConvertFrom(id, &record, 1), nullptr);
        EXPECT_EQ(record.manager, &manager);
        EXPECT_EQ(manager.ConvertFrom(id, nullptr, 1), nullptr);
    });
}

TEST(IllegalRow, TouchesNoBuffer) {
    ForEachUnmappedId([](KyTypeMgr& manager, char id) {
        unsigned char dst[8];
        std::memset(dst, 0xA5, sizeof dst);
        unsigned char src[8] = {1, 2, 3, 4, 5, 6, 7, 8};
        for (unsigned form : {1U, 2U, 8U, 129U}) {
            const auto flag = static_cast<unsigned char>(form);
            EXPECT_EQ(manager.Store(id, dst, src, flag, 1), 0U);
            EXPECT_EQ(manager.Load(id, dst, src, flag, 1), 0U);
            EXPECT_EQ(manager.Translate(id, dst, flag, 8, src, 8, 8, 1), 0U);
            EXPECT_EQ(manager.DiskLenGet(id, src, flag, 3, 8), 0U);
            EXPECT_EQ(manager.DiskLenGetFromMemFile(id, nullptr, flag, 3), 0U);
        }
        manager.ConstructorPtrGet(id)(dst, 8, 0);
        manager.DestructorPtrGet(id)(dst, 8, 0);
        manager.AssignmentPtrGet(id)(dst, src, 8, 0);
        manager.CopyPtrGet(id)(dst, src, 8, 1);
        EXPECT_EQ(manager.SetNullValue(id, dst), 0);
        for (unsigned char byte : dst) EXPECT_EQ(byte, 0xA5);
    });
}

TEST(IllegalRow, HasNoPersistentSize) {
    for (unsigned count : {0U, 1U, 3U}) EXPECT_EQ(KyIllegalTab.NullSizeGet(count), 0U);
    EXPECT_EQ(KyNewtypetab[KyRES_T], &KyIllegalTab);
}

TEST(IllegalRow, FindsEverythingEqualAndClearsErr) {
    ForEachUnmappedId([](KyTypeMgr& manager, char id) {
        unsigned char a[4] = {1, 2, 3, 4};
        unsigned char b[4] = {5, 6, 7, 8};
        int err = 1234;
        EXPECT_EQ(manager.Cmp(id, 4, a, 4, b, 0, 4, 8, err), 0);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(manager.Cmp(id, a, b, 0, 4, 8), 0);
        err = 1234;
        EXPECT_EQ(manager.Hash(id, 4, a, 4, 8, err), 0U);
        EXPECT_EQ(err, 0);
        unsigned short op = 7;
        EXPECT_EQ(manager.EvalAndBound(id, nullptr, op, a, 8, 1, nullptr, nullptr), 0.0F);
        EXPECT_EQ(op, 7);
        EXPECT_EQ(manager.IsNullValue(id, a), 0);
        EXPECT_EQ(manager.SetNullPtrGet(id), nullptr);
    });
}

TEST(IllegalRow, PrintsNothingButTheCommasOfArrays) {
    ForEachUnmappedId([](KyTypeMgr& manager, char id) {
        unsigned char values[4] = {};
        KyString out("x");
        EXPECT_EQ(&manager.PrintToKyString(id, out, values, nullptr, 1), &out);
        manager.PrintToKyString(id, out, values, "%d", 0);
        EXPECT_STREQ(out.StrGet(), "x");
        manager.PrintToKyString(id, out, values, nullptr, 3);
        EXPECT_STREQ(out.StrGet(), "x,,");
        KyString text("1");
        EXPECT_EQ(manager.ScanFromKyString(id, values, text, nullptr, 1), nullptr);
        EXPECT_EQ(manager.ConvertToKyStringOld(values, id, 2), nullptr);
        EXPECT_EQ(manager.ConvertFromKyStringOld(&text, id, 1), nullptr);
    });
}

TEST(IllegalRow, StepsAndStampsNothing) {
    ForEachUnmappedId([](KyTypeMgr& manager, char id) {
        unsigned char value[16] = {};
        unsigned char stamp[12] = {};
        for (unsigned form : {1U, 2U, 8U, 129U}) {
            for (unsigned what : {2U, 77U, 78U, 79U}) {
                EXPECT_EQ(
                    manager.GetValue(id, value, 1, static_cast<unsigned char>(form), static_cast<unsigned char>(what)),
                    -2999);
            }
        }
        EXPECT_EQ(manager.StoreTimeStamp(id, value, 1, stamp), -2999);
        EXPECT_EQ(manager.StoreTimeStamp(id, value, 1, nullptr), -2999);
        EXPECT_EQ(manager.SupportsNullValue(id), 0);
    });
}

}  // namespace
