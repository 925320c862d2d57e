#include "kyodmg.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kydatime.h"
#include "odmg_samples.h"

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

TEST(OdmgTime, HasTheZoneInItsBytes) {
    EXPECT_EQ(HexOf(d_Time(10, 20, 30.5F, 5, 30)), "05 1E 0F 32 1E 32");
    EXPECT_EQ(HexOf(d_Time(10, 0, 0, -5, 0)), "FB 00 05 00 00 00");
    EXPECT_EQ(HexOf(d_Time(2, 0, 0, -5, -30)), "FB E2 FD E2 00 00");
    const d_Time time(2, 3, 4.25F, -5, -30);
    EXPECT_EQ(time.hour(), 2);
    EXPECT_EQ(time.minute(), 3);
    EXPECT_EQ(time.second(), 4.25F);
    EXPECT_EQ(time.tz_hour(), -5);
    EXPECT_EQ(time.tz_minute(), -30);
}

TEST(OdmgTime, SecondsAreCutToHundredths) {
    const struct {
        float second;
        const char* bytes;
    } cases[] = {
        {0.5F, "00 32"}, {0.29F, "00 1C"}, {59.99F, "3B 63"},    {-1.5F, "FF CE"},
        {255, "FF 00"},  {256, "00 00"},   {1e9F, "00 00"},      {2147483520.0F, "80 00"},
        {3e9F, "FF 00"}, {-3e9F, "00 00"}, {kInfinity, "FF 00"}, {-kInfinity, "00 00"},
        {kNaN, "00 00"}, {-0.0F, "00 00"}, {0.99999F, "00 63"},  {2147483648.0F, "FF 00"},
    };
    for (const auto& c : cases) {
        const DefaultZone zone(0);
        EXPECT_EQ(HexOf(d_Time(1, 2, c.second)), std::string("00 00 01 02 ") + c.bytes) << c.second;
    }
}

TEST(OdmgTime, TakesTheDefaultZone) {
    EXPECT_EQ(d_Time(0).tz_hour(), 0) << "at first";
    const DefaultZone zone(-5);
    const StandingClock clock(kMay7, 120);
    EXPECT_EQ(HexOf(d_Time(10, 20, 30.5F)), "FB 00 05 14 1E 32");
    EXPECT_EQ(HexOf(d_Time()), "FB 00 0A 2D 3B 00");
    EXPECT_EQ(HexOf(d_Time::current()), "FB 00 0A 2D 3B 00");
    EXPECT_EQ(HexOf(d_Time(3661)), "FB 00 FC 01 01 00");
    EXPECT_EQ(HexOf(d_Time(KyTime(1, 2, 3))), "FB 00 FC 02 03 00");
    EXPECT_EQ(HexOf(d_Time(KyDateTime(KyDate(1, 1, 1), KyTime(1, 2, 3)))), "FB 00 FC 02 03 00");
    d_Time time = TimeAt(9, 9, 9, 9, 3, 3);
    time = KyTime(1, 2, 3);
    EXPECT_EQ(HexOf(time), "FB 00 FC 02 03 00");
    time = KyDateTime(KyDate(1, 1, 1), KyTime(4, 5, 6));
    EXPECT_EQ(HexOf(time), "FB 00 FF 05 06 00");
    time = d_Timestamp(d_Date(1, 1, 1), TimeAt(9, 9, 9, 9, 3, 3));
    EXPECT_EQ(HexOf(time), "03 03 0C 0C 09 09") << "a stamp has a zone of its own";
    EXPECT_EQ(HexOf(d_Time(d_Timestamp(d_Date(1, 1, 1), time))), "03 03 0C 0C 09 09");
    EXPECT_EQ(KyTime(time), KyTime(9, 9, 9));
    EXPECT_EQ(KyTime(d_Time(KyTime::NullValue())), KyTime::NullValue());
}

TEST(OdmgTime, TheLocalZoneIsTheClocksInWholeHours) {
    const DefaultZone zone(3);
    const auto localZone = [](int minutes) {
        const StandingClock clock(kMay7, minutes);
        d_Time::set_default_Time_Zone_to_local();
        return d_Time(0).tz_hour();
    };
    EXPECT_EQ(localZone(0), 3) << "nothing changes";
    EXPECT_EQ(localZone(60), 1);
    EXPECT_EQ(localZone(840), 14);
    EXPECT_EQ(localZone(330), 5);
    EXPECT_EQ(localZone(-60), -1);
    EXPECT_EQ(localZone(-720), -12);
    EXPECT_EQ(localZone(-210), -3);
    EXPECT_EQ(localZone(bksUnknownTimeZone), -3) << "nothing changes";
    EXPECT_EQ(localZone(30), 0);
    d_Time::set_default_Time_Zone(d_Time::GMT_12);
    EXPECT_EQ(d_Time(0).tz_hour(), -12);
    d_Time::set_default_Time_Zone(d_Time::GMT14);
    EXPECT_EQ(d_Time(0).tz_hour(), 14);
    EXPECT_EQ(d_Time::GMT_1, -1);
}

TEST(OdmgTime, IsMadeOfSecondsSinceMidnight) {
    const DefaultZone zone(0);
    const struct {
        int seconds;
        const char* bytes;
    } cases[] = {
        {0, "00 00 00 00 00 00"},
        {86399, "00 00 17 3B 3B 00"},
        {90000, "00 00 19 00 00 00"},
        {-1, "00 00 17 3B 3B 00"},
        {-86400, "00 00 00 00 00 00"},
        {-86401, "00 00 17 3B 3B 00"},
        {2147483647, "00 00 2B 0E 07 00"},  // hour 596523, 0x91A2B
        {-2147483647 - 1, "00 00 14 2D 34 00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HexOf(d_Time(c.seconds)), c.bytes) << c.seconds;
    }
}

TEST(OdmgTime, OrderIsThatOfLocalTimes) {
    const struct {
        d_Time a, b;
        int order;
    } cases[] = {
        {TimeAt(10, 0, 0), TimeAt(12, 0, 0), -2},
        {TimeAt(10, 5, 0), TimeAt(10, 0, 0), 5},
        {TimeAt(10, 0, 7), TimeAt(10, 0, 0), 7},
        {TimeAt(10, 0, 0, 0, 5, 30), TimeAt(10, 0, 0, 0, -5, 0), 0},
        {TimeAt(10, 0, 0, 0, 5, 30), TimeAt(11, 0, 0, 0, -5, 0), -1},
        {TimeOfBytes({0x80, 0, 0x7F, 0, 0, 0}), TimeOfBytes({0x7F, 0, 0x80, 0, 0, 0}), 510},
        {TimeAt(0, 0, 0, -100), TimeAt(0, 0, 0, 0), -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.a != c.b, c.order) << HexOf(c.a) << ' ' << HexOf(c.b);
        EXPECT_EQ(c.b != c.a, -c.order);
        EXPECT_EQ(c.a == c.b, c.order == 0);
        EXPECT_EQ(c.a < c.b, c.order < 0);
        EXPECT_EQ(c.a <= c.b, c.order <= 0);
        EXPECT_EQ(c.a > c.b, c.order > 0);
        EXPECT_EQ(c.a >= c.b, c.order >= 0);
    }
}

TEST(OdmgTime, Kept_TimesLessThanASecondApartAreEqual) {
    EXPECT_EQ(TimeAt(10, 0, 0, 40), TimeAt(10, 0, 0, 90));
    EXPECT_EQ(TimeAt(10, 0, 0, 90), TimeAt(10, 0, 1, 40));
    EXPECT_LT(TimeAt(10, 0, 0, 40), TimeAt(10, 0, 1, 40)) << "equality does not carry over";
    // But a second apart across a minute, times differ.
    EXPECT_LT(TimeAt(10, 0, 59, 99), TimeAt(10, 1, 0, 0));
}

TEST(OdmgTime, Kept_SinglePrecisionCanLoseTheLastBitOfASecond) {
    int equal = 0;
    for (int second = 0; second < 59; ++second) {
        for (int hundredths = 0; hundredths < 100; ++hundredths) {
            const float x = static_cast<float>(second) + static_cast<float>(hundredths) / 100;
            const float y = static_cast<float>(second + 1) + static_cast<float>(hundredths) / 100;
            const bool same = TimeAt(0, 0, second, hundredths) == TimeAt(0, 0, second + 1, hundredths);
            EXPECT_EQ(same, y - x < 1) << second << ' ' << hundredths;
            equal += static_cast<int>(same);
        }
    }
    EXPECT_GT(equal, 0);
}

TEST(OdmgTime, MovesAroundTheClock) {
    const struct {
        d_Time time;
        float seconds;
        d_Time later, earlier;
    } cases[] = {
        {TimeAt(10, 0, 0), 3661.25F, TimeAt(11, 1, 1, 25), TimeAt(8, 58, 58, 75)},
        {TimeAt(23, 59, 59, 99), 0.01F, TimeAt(0, 0, 0), TimeAt(23, 59, 59, 98)},
        {TimeAt(0, 0, 0, 0), 0.01F, TimeAt(0, 0, 0, 1), TimeAt(23, 59, 59, 99)},
        {TimeAt(0, 0, 0, 0, 5, 30), 0.01F, TimeAt(0, 0, 0, 1, 5, 30), TimeAt(23, 59, 59, 99, 5, 30)},
        {TimeAt(10, 0, 0, 0, -5, -30), 86400 * 3, TimeAt(10, 0, 0, 0, -5, -30), TimeAt(10, 0, 0, 0, -5, -30)},
        {TimeAt(25, 61, 61, 101), 0, TimeAt(2, 2, 2, 1), TimeAt(2, 2, 2, 1)},
        {TimeAt(-1, 0, 0, 0), 0, TimeAt(23, 0, 0), TimeAt(23, 0, 0)},
        {TimeAt(1, 2, 3, 4), kNaN, TimeAt(1, 2, 3, 4), TimeAt(1, 2, 3, 4)},
        // 9223372036854774784 hundredths, modulo days.
        {TimeAt(0, 0, 0), kInfinity, TimeAt(0, 9, 7, 84), TimeAt(23, 50, 52, 16)},
    };
    for (const auto& c : cases) {
        const d_Interval interval = Seconds(c.seconds);
        EXPECT_EQ(HexOf(c.time + interval), HexOf(c.later)) << HexOf(c.time) << " + " << c.seconds;
        EXPECT_EQ(HexOf(interval + c.time), HexOf(c.later));
        EXPECT_EQ(HexOf(c.time - interval), HexOf(c.earlier)) << HexOf(c.time) << " - " << c.seconds;
        EXPECT_EQ(HexOf(c.time + -interval), HexOf(c.earlier));
    }
}

TEST(OdmgTime, HundredthsAreAddedOneByOne) {
    // 0.01 as a float is less than a hundredth; cut instead of rounded it would be none.
    d_Time time = TimeAt(23, 59, 0);
    for (int i = 1; i <= 12000; ++i) {
        time += Seconds(0.01F);
        const int count = (23 * 3600 + 59 * 60) * 100 + i;
        const int ofDay = count % 8640000;
        ASSERT_EQ(HexOf(time), HexOf(TimeAt(ofDay / 360000, ofDay / 6000 % 60, ofDay / 100 % 60, ofDay % 100)));
    }
}

TEST(OdmgTime, DifferencesAreIntervals) {
    EXPECT_EQ((TimeAt(12, 0, 0, 25) - TimeAt(10, 0, 0)).seconds(), 7200.25F);
    EXPECT_EQ((TimeAt(10, 0, 0) - TimeAt(12, 0, 0, 25)).seconds(), -7200.25F);
    EXPECT_EQ((TimeAt(10, 0, 0, 0, 5, 30) - TimeAt(10, 0, 0, 0, -5, 0)).seconds(), 0);
    EXPECT_EQ((TimeAt(0, 0, 0, 1) - TimeAt(0, 0, 0, 0)).seconds(), 0.01F);
}

}  // namespace
