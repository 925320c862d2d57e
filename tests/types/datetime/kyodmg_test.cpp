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

// KEPT: a date is made of its day number anew when no day is added, too.
TEST(OdmgDate, Kept_EarlyDatesMoveByNoDays) {
    EXPECT_EQ(HexOf(d_Date(-3, 5, 5) + Seconds(0)), HexOf(d_Date(-3, 5, 6)));
    EXPECT_EQ(HexOf(d_Date(-3, 5, 5) - Seconds(86399)), HexOf(d_Date(-3, 5, 6)));
    EXPECT_EQ(HexOf(d_Date(2023, 2, 30) + Seconds(0)), HexOf(d_Date(2023, 3, 2)));
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

}  // namespace
