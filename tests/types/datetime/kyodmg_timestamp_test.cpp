#include "kyodmg.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kydatime.h"
#include "odmg_samples.h"

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

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

// Ends that are equal by less than a second stay in the order they are given in.
TEST(OdmgPeriods, Kept_EndsLessThanASecondApartAreNotExchanged) {
    const d_Time early = TimeAt(10, 0, 0, 40);
    const d_Time late = TimeAt(10, 0, 0, 90);
    const d_Time later = TimeAt(10, 0, 1, 50);
    EXPECT_EQ(overlaps(early, late, later, later), 1);
    EXPECT_EQ(overlaps(early, early, later, later), 0);
    const d_Date day(2024, 5, 7);
    EXPECT_EQ(overlaps(d_Timestamp(day, early), d_Timestamp(day, late), later, later), 1);
    EXPECT_EQ(overlaps(d_Timestamp(day, early), d_Timestamp(day, early), later, later), 0);
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
