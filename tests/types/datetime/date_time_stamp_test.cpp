#include <gtest/gtest.h>

#include "kydatime.h"
#include "kydatimeN.h"
#include "kytypmgr.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"
#include "time_stamp.h"

// A time stamp is a `KyDateTimeN` to its fields; each type stores its part of it.

namespace {

static_assert(sizeof(ky::TimeStamp) == sizeof(KyDateTimeN));
static_assert(offsetof(ky::TimeStamp, month) == offsetof(KyDate, month));
static_assert(offsetof(ky::TimeStamp, hour) == offsetof(KyDateTime, hour));
static_assert(offsetof(ky::TimeStamp, second) == offsetof(KyDateTime, second));
static_assert(offsetof(ky::TimeStamp, subSeconds) == offsetof(KyDateTime_, nanoseconds));

TEST(DateTimeStamp, EachTypeStoresItsPart) {
    const struct {
        char id;
        const char* native;
        const char* reversed;
    } cases[] = {
        {KyDATE_T, "E8 07 05 07", "07 E8 05 07"},
        {KyTIME_T, "0D 2D 3B", "0D 2D 3B"},
        {KyDATIME_T, "E8 07 05 07 0D 2D 3B", "07 E8 05 07 0D 2D 3B"},
        {KyDATIME_N_T, "E8 07 05 07 0D 2D 3B 04 03 02 01", "07 E8 05 07 0D 2D 3B 01 02 03 04"},
        // 0x01020304 and 59 seconds, of which a float keeps the upper 24 bits.
        {D_DATE_T, "E8 07 05 07", "07 E8 05 07"},
        {D_TIME_T, "00 00 0D 2D 40 00", "00 00 0D 2D 40 00"},
        {D_TIMESTAMP_T, "E8 07 05 07 00 00 0D 2D 40 00", "07 E8 05 07 00 00 0D 2D 40 00"},
    };
    KyTypeMgr types(5);
    KyDateTimeN stamp(2024, 5, 7, 13, 45, 59, 0x01020304);
    for (const auto& c : cases) {
        for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
            const std::string expected = flag == KyFormNative ? c.native : c.reversed;
            GuardedBuffer stored(Bytes(expected).size());
            EXPECT_EQ(types.StoreTimeStamp(c.id, stored.data(), flag, &stamp), static_cast<int>(stored.size()));
            EXPECT_EQ(Hex(stored.data(), stored.size()), expected);
        }
    }
    EXPECT_EQ(types.StoreTimeStamp(KyTIMESPAN_T, nullptr, KyFormNative, &stamp), KyErrNotSupported);
}

TEST(DateTimeStamp, ANullStampStoresNullValues) {
    KyTypeMgr types(5);
    KyDateTimeN stamp;
    for (const char id : {KyDATE_T, KyTIME_T, KyDATIME_T, KyDATIME_N_T}) {
        unsigned char stored[11];
        ASSERT_GT(types.StoreTimeStamp(id, stored, KyFormReversed, &stamp), 0);
        void* value = types.Create(id, 1);
        types.Load(id, value, stored, KyFormReversed, 1);
        EXPECT_NE(types.IsNullValue(id, value), 0) << int{id};
        types.Delete(id, value, 1);
    }
}

}  // namespace
