#include "kyodmg.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kydatime.h"
#include "odmg_samples.h"

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

TEST(OdmgDate, KeepsWhatItIsGiven) {
    EXPECT_EQ(HexOf(d_Date(2024, 5, 7)), "E8 07 05 07");
    EXPECT_EQ(HexOf(d_Date(-1, 255, 255)), "FF FF FF FF");
    EXPECT_EQ(HexOf(d_Date(0, 0x102, 0x1FF)), "00 00 02 FF");
    const d_Date date(2024, 5, 7);
    EXPECT_EQ(date.year(), 2024);
    EXPECT_EQ(date.month(), 5);
    EXPECT_EQ(date.day(), 7);
}

TEST(OdmgDate, IsTodayByTheLocalClock) {
    const StandingClock clock(kMay7, 11 * 60);  // already the next day there
    EXPECT_EQ(HexOf(d_Date()), "E8 07 05 08");
    EXPECT_EQ(HexOf(d_Date::current()), "E8 07 05 08");
}

TEST(OdmgDate, FieldsAreCopiedFromOtherClassesAndBack) {
    const KyDate day(1500, 3, 1);  // another day in the other calendar
    const KyDateTime moment(KyDate(-44, 3, -1), KyTime(1, 2, 3));
    EXPECT_EQ(HexOf(d_Date(day)), "DC 05 03 01");
    EXPECT_EQ(HexOf(d_Date(moment)), "D4 FF 03 FF");
    d_Date date(1, 1, 1);
    date = day;
    EXPECT_EQ(HexOf(date), "DC 05 03 01");
    date = moment;
    EXPECT_EQ(HexOf(date), "D4 FF 03 FF");
    EXPECT_EQ(KyDate(date), KyDate(-44, 3, -1));
    date = d_Timestamp(d_Date(2024, 5, 7), TimeAt(1, 2, 3));
    EXPECT_EQ(HexOf(date), "E8 07 05 07");
    EXPECT_EQ(HexOf(d_Date(d_Timestamp(d_Date(2024, 5, 7), TimeAt(1, 2, 3)))), "E8 07 05 07");
    EXPECT_EQ(KyDate(d_Date(KyDate::NullValue())), KyDate::NullValue());
}

TEST(OdmgDate, OrderIsTheDifferenceOfDayNumbers) {
    const d_Date a(2024, 2, 28);
    const d_Date b(2024, 3, 1);
    EXPECT_EQ(a != b, -2);
    EXPECT_EQ(b != a, 2);
    EXPECT_TRUE(a < b && a <= b && b > a && b >= a && !(a == b));
    EXPECT_TRUE(a == a && a <= a && a >= a && !(a < a) && !(a > a));
    EXPECT_EQ(a != a, 0);
}

TEST(OdmgDate, MovesByWholeDays) {
    const struct {
        float seconds;
        const char* later;
        const char* earlier;
    } cases[] = {
        {0, "E8 07 02 1C", "E8 07 02 1C"},
        {86399, "E8 07 02 1C", "E8 07 02 1C"},
        {86400, "E8 07 02 1D", "E8 07 02 1B"},
        {-86399, "E8 07 02 1C", "E8 07 02 1C"},
        {2.5F * 86400, "E8 07 03 01", "E8 07 02 1A"},
        {-2.5F * 86400, "E8 07 02 1A", "E8 07 03 01"},
        {kNaN, "E8 07 02 1C", "E8 07 02 1C"},
    };
    for (const auto& c : cases) {
        const d_Date date(2024, 2, 28);
        const d_Interval interval = Seconds(c.seconds);
        EXPECT_EQ(HexOf(date + interval), c.later) << c.seconds;
        EXPECT_EQ(HexOf(interval + date), c.later) << c.seconds;
        EXPECT_EQ(HexOf(date - interval), c.earlier) << c.seconds;
        d_Date moved = date;
        EXPECT_EQ(&(moved += interval), &moved);
        EXPECT_EQ(HexOf(moved), c.later) << c.seconds;
        moved = date;
        EXPECT_EQ(&(moved -= interval), &moved);
        EXPECT_EQ(HexOf(moved), c.earlier) << c.seconds;
    }
}

TEST(OdmgDate, DaysBeyondAnIntAreTheLargestOne) {
    d_Date largest(1, 1, 1);
    largest.setAbsDate(std::numeric_limits<int>::max());
    d_Date least(1, 1, 1);
    least.setAbsDate(std::numeric_limits<int>::min());
    const d_Date date(2024, 2, 28);
    EXPECT_EQ(HexOf(date + Seconds(3e38F)), HexOf(largest));
    EXPECT_EQ(HexOf(date + Seconds(kInfinity)), HexOf(largest));
    EXPECT_EQ(HexOf(d_Date(-32768, 1, 1) - Seconds(kInfinity)), HexOf(least));
}

TEST(OdmgInterval, IsMadeOfParts) {
    const struct {
        int day, hour, minute;
        float second, seconds;
    } cases[] = {
        {0, 0, 0, 0, 0},
        {1, 2, 3, 4.5F, 93784.5F},
        {0, -1, 30, 0, -5400},
        {-1, 2, 3, 4.5F, -93784.5F},
        {1, 2, -3, 4.5F, -93784.5F},
        {1, 2, 3, -4.5F, -93784.5F},
        {-1, -2, -3, -4.5F, -93784.5F},
        {std::numeric_limits<int>::min(), 0, 0, 0, -185542587187200.0F},
        {std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), 0,
         193402377248820.0F},
        // Summed up in single precision this would be 86400072.
        {1000, 0, 1, 4.5F, 86400064},
        {0, 0, 0, kInfinity, kInfinity},
        {0, 0, 0, -kInfinity, -kInfinity},
    };
    for (const auto& c : cases) EXPECT_EQ(d_Interval(c.day, c.hour, c.minute, c.second).seconds(), c.seconds);
    const d_Interval braces = {0, -1, 30, 0};
    EXPECT_EQ(braces.seconds(), -5400);
    EXPECT_EQ(d_Interval().seconds(), 0);
    EXPECT_EQ(d_Interval(2).seconds(), 172800);
    EXPECT_EQ(d_Interval(0, 1).seconds(), 3600);
    EXPECT_EQ(d_Interval(0, 0, 1).seconds(), 60);
    EXPECT_TRUE(std::isnan(Seconds(kNaN).seconds()));
}

TEST(OdmgInterval, IsComputedWithInDouble) {
    const d_Interval a = Seconds(16777216);
    EXPECT_EQ((a + Seconds(3)).seconds(), 16777220);
    EXPECT_EQ((a - Seconds(1)).seconds(), 16777215);
    EXPECT_EQ((Seconds(1.5F) * 3).seconds(), 4.5F);
    EXPECT_EQ((3 * Seconds(1.5F)).seconds(), 4.5F);
    EXPECT_EQ((Seconds(0.1F) * 16777217).seconds(), static_cast<float>(static_cast<double>(0.1F) * 16777217));
    EXPECT_EQ((Seconds(1e30F) / 16777217).seconds(), static_cast<float>(static_cast<double>(1e30F) / 16777217));
    EXPECT_EQ((Seconds(4.5F) / -3).seconds(), -1.5F);
    EXPECT_EQ((Seconds(1) / 0).seconds(), kInfinity);
    EXPECT_TRUE(std::isnan((Seconds(0) / 0).seconds()));
    EXPECT_EQ((-Seconds(4.5F)).seconds(), -4.5F);
    EXPECT_TRUE(Seconds(1) < Seconds(2) && Seconds(1) <= Seconds(1) && Seconds(2) > Seconds(1));
    EXPECT_TRUE(Seconds(1) == Seconds(1) && Seconds(1) != Seconds(2) && Seconds(2) >= Seconds(1));
    d_Interval assigned;
    assigned = Seconds(7);
    EXPECT_EQ(assigned.seconds(), 7);
}

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
    EXPECT_EQ(localZone(330), 5);
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

TEST(OdmgTimestamp, HasADateAndATime) {
    const DefaultZone zone(2);
    EXPECT_EQ(HexOf(d_Timestamp(d_Date(2024, 5, 7), TimeAt(13, 45, 59, 25, 1))), "E8 07 05 07 01 00 0E 2D 3B 19");
    EXPECT_EQ(HexOf(d_Timestamp(2024, 5, 7, 13, 45, 59.25F)), "E8 07 05 07 02 00 0F 2D 3B 19");
    EXPECT_EQ(HexOf(d_Timestamp(d_Date(2024, 5, 7))), "E8 07 05 07 02 00 02 00 00 00") << "local midnight";
    const KyDateTime moment(KyDate(2024, 5, 7), KyTime(13, 45, 59));
    EXPECT_EQ(HexOf(d_Timestamp(moment)), "E8 07 05 07 02 00 0F 2D 3B 00");
    d_Timestamp stamp(d_Date(1, 1, 1), TimeAt(9, 9, 9, 9));
    stamp = d_Date(2024, 5, 7);
    EXPECT_EQ(HexOf(stamp), "E8 07 05 07 00 00 09 09 09 09") << "the time stays";
    EXPECT_EQ(KyDateTime(stamp), KyDateTime(KyDate(2024, 5, 7), KyTime(9, 9, 9)));
    stamp = moment;
    EXPECT_EQ(HexOf(stamp), "E8 07 05 07 02 00 0F 2D 3B 00");
    EXPECT_EQ(stamp.year(), 2024);
    EXPECT_EQ(stamp.month(), 5);
    EXPECT_EQ(stamp.day(), 7);
    EXPECT_EQ(stamp.hour(), 13);
    EXPECT_EQ(stamp.minute(), 45);
    EXPECT_EQ(stamp.second(), 59);
    EXPECT_EQ(stamp.tz_hour(), 2);
    EXPECT_EQ(stamp.tz_minute(), 0);
    EXPECT_EQ(HexOf(stamp.date()), "E8 07 05 07");
    EXPECT_EQ(HexOf(stamp.time()), "02 00 0F 2D 3B 00");
}

TEST(OdmgTimestamp, IsNowByTheLocalClock) {
    const DefaultZone zone(0);
    const StandingClock clock(kMay7, 11 * 60);
    EXPECT_EQ(HexOf(d_Timestamp()), "E8 07 05 08 00 00 00 2D 3B 00");
    EXPECT_EQ(HexOf(d_Timestamp::current()), "E8 07 05 08 00 00 00 2D 3B 00");
}

TEST(OdmgTimestamp, ReadsTheTimeBeforeTheDay) {
    // Midnight passes between the two: the day is the later one.
    static int readings = 0;
    readings = 0;
    const bksClockSource before = bksSetClock([] {
        ++readings;
        return bksClockReading{1715126400 - (readings == 1 ? 1 : 0), 0, 0};
    });
    const DefaultZone zone(0);
    EXPECT_EQ(HexOf(d_Timestamp()), "E8 07 05 08 00 00 17 3B 3B 00");
    bksSetClock(before);
}

TEST(OdmgTimestamp, OrderIsByDateThenByTime) {
    const d_Timestamp a(d_Date(2024, 5, 7), TimeAt(10, 0, 0));
    const d_Timestamp b(d_Date(2024, 5, 9), TimeAt(1, 0, 0));
    const d_Timestamp c(d_Date(2024, 5, 7), TimeAt(13, 0, 0));
    EXPECT_EQ(a != b, -2);
    EXPECT_EQ(c != a, 3);
    EXPECT_TRUE(b >= a && b > a && a <= b && a < b && !(a == b) && a >= a && a == a && a <= a);
    EXPECT_FALSE(a >= c);
}

TEST(OdmgTimestamp, MovesAcrossDays) {
    const d_Date day(2024, 2, 28);
    const struct {
        d_Timestamp stamp;
        float seconds;
        d_Timestamp later, earlier;
    } cases[] = {
        {{day, TimeAt(23, 0, 0)}, 7200, {d_Date(2024, 2, 29), TimeAt(1, 0, 0)}, {day, TimeAt(21, 0, 0)}},
        {{day, TimeAt(1, 0, 0, 0, 5, 30)},
         7200,
         {day, TimeAt(3, 0, 0, 0, 5, 30)},
         {d_Date(2024, 2, 27), TimeAt(23, 0, 0, 0, 5, 30)}},
        {{d_Date(1582, 10, 4), TimeAt(23, 59, 59, 99)},
         0.01F,
         {d_Date(1582, 10, 15), TimeAt(0, 0, 0)},
         {d_Date(1582, 10, 4), TimeAt(23, 59, 59, 98)}},
        {{day, TimeAt(12, 0, 0)},
         86400 * 2,
         {d_Date(2024, 3, 1), TimeAt(12, 0, 0)},
         {d_Date(2024, 2, 26), TimeAt(12, 0, 0)}},
        // Fields of a date that is none stay while the day does.
        {{d_Date(2023, 2, 30), TimeAt(12, 0, 0)},
         1,
         {d_Date(2023, 2, 30), TimeAt(12, 0, 1)},
         {d_Date(2023, 2, 30), TimeAt(11, 59, 59)}},
        // A time beyond its day moves the date with it.
        {{day, TimeAt(25, 0, 0)}, 0, {d_Date(2024, 2, 29), TimeAt(1, 0, 0)}, {d_Date(2024, 2, 29), TimeAt(1, 0, 0)}},
        {{day, TimeAt(-1, 0, 0)}, 0, {d_Date(2024, 2, 27), TimeAt(23, 0, 0)}, {d_Date(2024, 2, 27), TimeAt(23, 0, 0)}},
        {{day, TimeAt(1, 2, 3)}, kNaN, {day, TimeAt(1, 2, 3)}, {day, TimeAt(1, 2, 3)}},
    };
    for (const auto& c : cases) {
        const d_Interval interval = Seconds(c.seconds);
        EXPECT_EQ(HexOf(c.stamp + interval), HexOf(c.later)) << HexOf(c.stamp) << " + " << c.seconds;
        EXPECT_EQ(HexOf(interval + c.stamp), HexOf(c.later));
        EXPECT_EQ(HexOf(c.stamp - interval), HexOf(c.earlier)) << HexOf(c.stamp) << " - " << c.seconds;
        d_Timestamp moved = c.stamp;
        EXPECT_EQ(&(moved += interval), &moved);
        EXPECT_EQ(&(moved -= Seconds(0)), &moved);
        EXPECT_EQ(HexOf(moved), HexOf(c.later));
    }
    d_Date largest(1, 1, 1);
    largest.setAbsDate(std::numeric_limits<int>::max());
    EXPECT_EQ(HexOf((d_Timestamp(day, TimeAt(0, 0, 0)) + Seconds(kInfinity)).date()), HexOf(largest));
    largest.setAbsDate(std::numeric_limits<int>::min());
    EXPECT_EQ(HexOf((d_Timestamp(day, TimeAt(0, 0, 0)) - Seconds(kInfinity)).date()), HexOf(largest));
}

TEST(OdmgTimestamp, DifferencesAreIntervals) {
    const d_Timestamp a(d_Date(1582, 10, 4), TimeAt(23, 0, 0));
    const d_Timestamp b(d_Date(1582, 10, 15), TimeAt(1, 0, 0, 50));
    EXPECT_EQ((b - a).seconds(), 7200.5F);
    EXPECT_EQ((a - b).seconds(), -7200.5F);
    const d_Timestamp first(d_Date(-32768, 1, 1), TimeAt(0, 0, 0));
    const d_Timestamp last(d_Date(32767, 12, 31), TimeAt(23, 59, 59, 99));
    const double days = d_Date(32767, 12, 31) != d_Date(-32768, 1, 1);
    EXPECT_EQ((last - first).seconds(), static_cast<float>((days + 1) * 86400 - 0.01));
}

// --- periods ---

/// By every day of the first period.
int SlowOverlap(int s1, int e1, int s2, int e2) {
    int common = 0;
    for (int day = std::min(s1, e1); day <= std::max(s1, e1); ++day) {
        common |= static_cast<int>(day >= std::min(s2, e2) && day <= std::max(s2, e2));
    }
    return common;
}

TEST(OdmgPeriods, OverlapWhereADayIsInBoth) {
    const auto date = [](int day) { return d_Date(2024, 5, static_cast<unsigned short>(day)); };
    const auto time = [](int hour) { return TimeAt(hour, 0, 0); };
    const auto stamp = [](int day) { return d_Timestamp(d_Date(2024, 5, 1), TimeAt(day, 0, 0)); };
    for (int s1 = 1; s1 <= 5; ++s1) {
        for (int e1 = 1; e1 <= 5; ++e1) {
            for (int s2 = 1; s2 <= 5; ++s2) {
                for (int e2 = 1; e2 <= 5; ++e2) {
                    const int expected = SlowOverlap(s1, e1, s2, e2);
                    EXPECT_EQ(overlaps(date(s1), date(e1), date(s2), date(e2)), expected);
                    EXPECT_EQ(overlaps(time(s1), time(e1), time(s2), time(e2)), expected);
                    EXPECT_EQ(overlaps(stamp(s1), stamp(e1), stamp(s2), stamp(e2)), expected);
                    const d_Timestamp from(date(s1), time(23));
                    const d_Timestamp to(date(e1), time(0));
                    EXPECT_EQ(overlaps(from, to, date(s2), date(e2)), expected) << "a date is its whole day";
                    EXPECT_EQ(overlaps(date(s2), date(e2), from, to), expected);
                }
            }
        }
    }
}

TEST(OdmgPeriods, TimesComeRoundInAPeriodOfStamps) {
    // Hours counted from the first midnight; a time comes round at every hour that is it modulo 24.
    for (int from = 0; from < 60; from += 3) {
        for (int to = from; to < 100; to += 3) {
            for (int low = 0; low < 24; ++low) {
                for (int high = low; high < 24; high += 5) {
                    int expected = 0;
                    for (int hour = from; hour <= to; ++hour) {
                        expected |= static_cast<int>(hour % 24 >= low && hour % 24 <= high);
                    }
                    const auto stamp = [](int hour) {
                        return d_Timestamp(d_Date(2024, static_cast<unsigned short>(60 + hour / 24)),
                                           TimeAt(hour % 24, 0, 0));
                    };
                    // Two midnights apart every time is taken to come round, also where the day between is missed.
                    if (to / 24 - from / 24 >= 2) expected = 1;
                    const d_Time a = TimeAt(low, 0, 0);
                    const d_Time b = TimeAt(high, 0, 0);
                    ASSERT_EQ(overlaps(stamp(from), stamp(to), a, b), expected) << from << ' ' << to << ' ' << low;
                    ASSERT_EQ(overlaps(stamp(to), stamp(from), b, a), expected);
                    ASSERT_EQ(overlaps(a, b, stamp(to), stamp(from)), expected);
                    ASSERT_EQ(overlaps(b, a, stamp(from), stamp(to)), expected);
                }
            }
        }
    }
}

}  // namespace
