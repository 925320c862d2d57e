#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kytypmgr.h"
#include "odmg_samples.h"
#include "oracle/slow_switched_calendar.h"
#include "support/fewer_cases.h"

namespace {

template <class Value>
int Step(const KyTypeTab& row, Value& value, unsigned char what = KyValueStep, unsigned count = 1) {
    return row.GetValue(&value, count, KyFormMemory, what);
}

TEST(OdmgGetValue, RefusesOtherFormsAndSelectors) {
    std::vector<unsigned char> value(10, 1);
    const auto before = value;
    for (const KyTypeTab* row : {&Kyd_DateTab, &Kyd_TimeTab, &Kyd_TimestampTab, &Kyd_IntervalTab}) {
        for (int what = 0; what < 256; ++what) {
            const auto selector = static_cast<unsigned char>(what);
            for (const int form : {0, 1, 2, 0x18, 0x88, 9}) {
                EXPECT_EQ(row->GetValue(value.data(), 1, static_cast<unsigned char>(form), selector),
                          KyErrNotSupported);
            }
            if (what == 77 || what == 78) continue;
            EXPECT_EQ(row->GetValue(value.data(), 1, KyFormMemory, selector), KyErrNotSupported);
        }
        EXPECT_EQ(value, before);
    }
}

template <class Value>
struct Case {
    Value before;
    int result;
    Value after;
};

template <class Value>
void Check(const KyTypeTab& row, std::initializer_list<Case<Value>> cases) {
    for (const auto& c : cases) {
        for (const unsigned char what : {KyValueStep, KyValueStepNext}) {
            for (const unsigned count : {0U, 1U, 3U}) {
                Value value = c.before;
                EXPECT_EQ(Step(row, value, what, count), c.result) << HexOf(c.before);
                EXPECT_EQ(HexOf(value), HexOf(c.after)) << HexOf(c.before);
            }
        }
    }
}

template <class Value>
void CheckRefused(const KyTypeTab& row, std::initializer_list<Value> values) {
    for (const Value& value : values) Check<Value>(row, {{value, KyErrNoSuccessor, value}});
}

TEST(OdmgGetValue, DatesStepThroughTheirCalendar) {
    Check<d_Date>(Kyd_DateTab, {
                                   {{2024, 2, 28}, 0, {2024, 2, 29}},
                                   {{2024, 2, 29}, 0, {2024, 3, 1}},
                                   {{2023, 2, 28}, 0, {2023, 3, 1}},
                                   {{1500, 2, 28}, 0, {1500, 2, 29}},
                                   {{1582, 10, 4}, 0, {1582, 10, 15}},
                                   {{2023, 12, 31}, 0, {2024, 1, 1}},
                                   {{0, 2, 29}, 0, {0, 3, 1}},
                                   {{-5, 12, 31}, 0, {-4, 1, 1}},
                                   {{-32768, 1, 1}, 0, {-32768, 1, 2}},
                                   {{32767, 12, 30}, 0, {32767, 12, 31}},
                               });
    CheckRefused<d_Date>(Kyd_DateTab, {{32767, 12, 31},
                                       {1582, 10, 5},
                                       {1582, 10, 14},
                                       {2024, 2, 30},
                                       {2023, 2, 29},
                                       {2024, 0, 1},
                                       {2024, 13, 1},
                                       {2024, 1, 0},
                                       {2024, 1, 32},
                                       {2024, 255, 1},
                                       {2024, 1, 255},
                                       {-1, 1, 1},
                                       {0, 0, 0}});
}

TEST(OdmgGetValue, DatesStepLikeTheWalk) {
    SlowSwitchedCalendar calendar(-4700, 1, 1);
    const auto fields = [&] {
        return d_Date(static_cast<short>(calendar.Year()), static_cast<unsigned short>(calendar.Month()),
                      static_cast<unsigned short>(calendar.Day()));
    };
    for (int i = 0; i < 13000000 / kFewerCases; ++i) {
        if (calendar.Year() == -1) {  // a wildcard
            calendar.Next();
            continue;
        }
        d_Date date = fields();
        ASSERT_EQ(Step(Kyd_DateTab, date), 0);
        calendar.Next();
        const d_Date next = fields();
        ASSERT_EQ(std::memcmp(&date, &next, sizeof date), 0) << HexOf(date) << " for " << HexOf(next);
    }
}

TEST(OdmgGetValue, TimesStepByHundredths) {
    Check<d_Time>(Kyd_TimeTab, {
                                   {TimeAt(1, 2, 3, 4), 0, TimeAt(1, 2, 3, 5)},
                                   {TimeAt(1, 2, 3, 99), 0, TimeAt(1, 2, 4, 0)},
                                   {TimeAt(1, 59, 59, 99, 5, 30), 0, TimeAt(2, 0, 0, 0, 5, 30)},
                                   {TimeAt(23, 59, 59, 98, -5), 0, TimeAt(23, 59, 59, 99, -5)},
                               });
    CheckRefused<d_Time>(Kyd_TimeTab, {TimeAt(23, 59, 59, 99), TimeAt(23, 59, 59, 99, 5, 30), TimeAt(24, 0, 0),
                                       TimeAt(-1, 0, 0), TimeAt(0, 60, 0), TimeAt(0, -1, 0), TimeAt(0, 0, 60),
                                       TimeAt(0, 0, -1), TimeAt(0, 0, 0, 100), TimeAt(0, 0, 0, -1)});
    d_Time time = TimeAt(22, 0, 0, 0, -12, -59);
    for (int i = 1; i < 2 * 360000; ++i) {
        ASSERT_EQ(Step(Kyd_TimeTab, time), 0);
        const int count = 22 * 360000 + i;
        ASSERT_EQ(HexOf(time),
                  HexOf(TimeAt(count / 360000, count / 6000 % 60, count / 100 % 60, count % 100, -12, -59)));
    }
    EXPECT_EQ(Step(Kyd_TimeTab, time), KyErrNoSuccessor);
}

TEST(OdmgGetValue, TimestampsStepIntoTheDate) {
    const d_Time last = TimeAt(23, 59, 59, 99, 5, 30);
    const d_Time midnight = TimeAt(0, 0, 0, 0, 5, 30);
    Check<d_Timestamp>(Kyd_TimestampTab,
                       {
                           {{d_Date(2024, 2, 28), TimeAt(1, 2, 3, 4)}, 0, {d_Date(2024, 2, 28), TimeAt(1, 2, 3, 5)}},
                           {{d_Date(2024, 2, 28), last}, 0, {d_Date(2024, 2, 29), midnight}},
                           {{d_Date(1582, 10, 4), last}, 0, {d_Date(1582, 10, 15), midnight}},
                           {{d_Date(-5, 12, 31), last}, 0, {d_Date(-4, 1, 1), midnight}},
                       });
    CheckRefused<d_Timestamp>(Kyd_TimestampTab, {{d_Date(32767, 12, 31), last},
                                                 {d_Date(2023, 2, 30), midnight},
                                                 {d_Date(1582, 10, 7), midnight},
                                                 {d_Date(2024, 1, 255), midnight},
                                                 {d_Date(2024, 1, 1), TimeAt(24, 0, 0)}});
    d_Timestamp end(d_Date(32767, 12, 31), TimeAt(23, 59, 59, 98));
    EXPECT_EQ(Step(Kyd_TimestampTab, end), 0);
}

TEST(OdmgGetValue, IntervalsStepByAHundredthOrTheNextFloat) {
    constexpr float largest = std::numeric_limits<float>::max();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const auto next = [](float x) { return Seconds(std::nextafter(x, std::numeric_limits<float>::infinity())); };
    Check<d_Interval>(Kyd_IntervalTab, {
                                           {Seconds(0), 0, Seconds(0.01F)},
                                           {Seconds(-0.0F), 0, Seconds(0.01F)},
                                           {Seconds(1), 0, Seconds(1 + 0.01F)},
                                           {Seconds(-1), 0, Seconds(-1 + 0.01F)},
                                           {Seconds(-0.005F), 0, Seconds(0)},
                                           {Seconds(-0.01F), 0, Seconds(0)},
                                           {Seconds(-0.0101F), 0, Seconds(-0.0101F + 0.01F)},
                                           {Seconds(1e6F), 0, next(1e6F)},
                                           {Seconds(1e30F), 0, next(1e30F)},
                                           {Seconds(-1e30F), 0, next(-1e30F)},
                                           {Seconds(-largest), 0, next(-largest)},
                                           {Seconds(-infinity), 0, Seconds(-largest)},
                                       });
    CheckRefused<d_Interval>(Kyd_IntervalTab,
                             {Seconds(largest), Seconds(infinity), Seconds(std::numeric_limits<float>::quiet_NaN())});
}

TEST(OdmgGetValue, StoredValuesAreSteppedByTheManager) {
    KyTypeMgr types(5);
    auto date = Bytes("2E 06 0A 04");
    EXPECT_EQ(types.GetValue(D_DATE_T, date.data(), 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(date.data(), 4), "2E 06 0A 0F");
    auto stamp = Bytes("FF 7F 0C 1F 00 00 17 3B 3B 63");
    EXPECT_EQ(types.GetValue(D_TIMESTAMP_T, stamp.data(), 1, KyFormNative, KyValueStep), KyErrNoSuccessor);
    EXPECT_EQ(Hex(stamp.data(), 10), "FF 7F 0C 1F 00 00 17 3B 3B 63");
}

}  // namespace
