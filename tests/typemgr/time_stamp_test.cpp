#include "time_stamp.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "kyodmg.h"
#include "kytypes.h"
#include "support/hex.h"

namespace {

std::string ImageOf(int id, ky::TimeStamp stamp, std::size_t size) {
    const ky::TimeStampValue value(static_cast<char>(id), &stamp);
    return Hex(value.Get(), size);
}

const ky::TimeStamp moment{2024, 5, 7, 13, 45, 59, 0};

TEST(TimeStamp, OwnTypesAreReadWhereTheyStand) {
    ky::TimeStamp stamp = moment;
    EXPECT_EQ(ky::TimeStampValue(KyDATE_T, &stamp).Get(), &stamp);
    EXPECT_EQ(ky::TimeStampValue(KyDATIME_T, &stamp).Get(), &stamp);
    EXPECT_EQ(ky::TimeStampValue(KyDATIME_N_T, &stamp).Get(), &stamp);
    EXPECT_EQ(ky::TimeStampValue(KyTIME_T, &stamp).Get(), &stamp.hour);
}

TEST(TimeStamp, OtherTypesHaveNoValue) {
    ky::TimeStamp stamp = moment;
    for (int id = -128; id < 128; ++id) {
        bool fits = false;
        for (int stampId : {12, 13, 19, 22, 23, 24, 40}) fits |= id == stampId;
        EXPECT_EQ(ky::TimeStampValue(static_cast<char>(id), &stamp).Get() != nullptr, fits) << id;
    }
}

TEST(TimeStamp, OdmgTypesAreBuilt) {
    EXPECT_EQ(ImageOf(D_DATE_T, moment, 4), "E8 07 05 07");
    EXPECT_EQ(ImageOf(D_TIME_T, moment, 6), "00 00 0D 2D 3B 00");
    EXPECT_EQ(ImageOf(D_TIMESTAMP_T, moment, 10), "E8 07 05 07 00 00 0D 2D 3B 00");
}

TEST(TimeStamp, OdmgFieldsTakeTheBytesOfNullStamps) {
    const ky::TimeStamp null{-32768, -128, -128, -128, -128, -128, 0};
    EXPECT_EQ(ImageOf(D_TIMESTAMP_T, null, 10), "00 80 80 80 00 00 80 80 80 00");
}

TEST(TimeStamp, OdmgTimesAreInTheDefaultZone) {
    d_Time::set_default_Time_Zone(d_Time::GMT_5);
    EXPECT_EQ(ImageOf(D_TIME_T, moment, 6), "FB 00 08 2D 3B 00");
    EXPECT_EQ(ImageOf(D_TIMESTAMP_T, moment, 10), "E8 07 05 07 FB 00 08 2D 3B 00");
    EXPECT_EQ(ImageOf(D_DATE_T, moment, 4), "E8 07 05 07");
    d_Time::set_default_Time_Zone(d_Time::GMT);
}

TEST(TimeStamp, Kept_SubSecondsCountAsWholeSeconds) {
    ky::TimeStamp stamp = moment;
    stamp.second = 1;
    stamp.subSeconds = 2;
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D 03 00");
    stamp.subSeconds = 500000000;  // 0x1DCD6500; the second is lost in the rounding
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D 00 00");
    stamp.subSeconds = 300;
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D 2D 00");
    stamp.subSeconds = INT_MAX;
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D FF 00");  // 2^31, which is taken for INT_MAX
    stamp.subSeconds = INT_MIN;
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D 00 00");
    stamp.subSeconds = 16777217;  // loses its last bit before the second is added, not afterwards
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D 00 00");
    stamp.subSeconds = -4;
    EXPECT_EQ(ImageOf(D_TIME_T, stamp, 6), "00 00 0D 2D FD 00");
}

}  // namespace
