#include "date_getvalue.h"

#include <gtest/gtest.h>

#include "date_roster.h"
#include "kytypmgr.h"
#include "oracle/slow_calendar.h"
#include "support/fewer_cases.h"
#include "support/hex.h"

// Stepping to the successor.

namespace {

constexpr int kSame = 2091;
constexpr int kMost = 2147483647;

struct Step {
    KyTypeTab* row;
    SlowDate from;
    int result;  ///< 0, or 2091 and nothing changes
    SlowDate to;
};

const Step kSteps[] = {
    // Null steps to the first value.
    {&KyDateTab, {-32768, -128, -128}, 0, {-32768, 1, 1}},
    {&KyTimeTab, {0, 0, 0, -128, -128, -128}, 0, {}},
    {&KyDateTimeTab, {-32768, -128, -128, -128, -128, -128}, 0, {-32768, 1, 1}},
    {&KyDateTimeNTab, {-32768, -128, -128, -128, -128, -128, 0}, 0, {-32768, 1, 1}},
    {&KyTimeSpanTab, {-32768, -128, -128, -128, -128, -128, 0}, 0, {}},

    // Days.
    {&KyDateTab, {2024, 5, 7}, 0, {2024, 5, 8}},
    {&KyDateTab, {2024, 2, 28}, 0, {2024, 2, 29}},
    {&KyDateTab, {2024, 2, 29}, 0, {2024, 3, 1}},
    {&KyDateTab, {2023, 2, 28}, 0, {2023, 3, 1}},
    {&KyDateTab, {1900, 2, 28}, 0, {1900, 3, 1}},
    {&KyDateTab, {2000, 2, 28}, 0, {2000, 2, 29}},
    {&KyDateTab, {2024, 4, 30}, 0, {2024, 5, 1}},
    {&KyDateTab, {1999, 12, 31}, 0, {2000, 1, 1}},
    {&KyDateTab, {-2, 12, 31}, 0, {-1, 1, 1}},
    // Where day numbers do not follow the calendar.
    {&KyDateTab, {-4804, 2, 28}, 0, {-4804, 2, 29}},
    {&KyDateTab, {-4803, 2, 28}, 0, {-4803, 3, 1}},
    {&KyDateTab, {-4804, 2, 29}, 0, {-4804, 3, 1}},
    {&KyDateTab, {-32768, 2, 28}, 0, {-32768, 2, 29}},
    {&KyDateTab, {32767, 12, 30}, 0, {32767, 12, 31}},
    {&KyDateTab, {32767, 12, 31}, kSame, {}},
    {&KyDateTab, {2023, 2, 29}, kSame, {}},
    {&KyDateTab, {2024, 4, 31}, kSame, {}},
    {&KyDateTab, {2024, 0, 7}, kSame, {}},
    {&KyDateTab, {2024, 13, 7}, kSame, {}},
    {&KyDateTab, {2024, 5, 0}, kSame, {}},
    {&KyDateTab, {0, 0, 0}, kSame, {}},
    {&KyDateTab, {-1, 5, 7}, kSame, {}},
    {&KyDateTab, {2024, -1, 7}, kSame, {}},
    {&KyDateTab, {2024, 5, -1}, kSame, {}},
    {&KyDateTab, {-32768, -128, 1}, kSame, {}},

    // Seconds.
    {&KyTimeTab, {0, 0, 0, 13, 45, 58}, 0, {0, 0, 0, 13, 45, 59}},
    {&KyTimeTab, {0, 0, 0, 13, 45, 59}, 0, {0, 0, 0, 13, 46, 0}},
    {&KyTimeTab, {0, 0, 0, 13, 59, 59}, 0, {0, 0, 0, 14, 0, 0}},
    {&KyTimeTab, {0, 0, 0, 23, 59, 58}, 0, {0, 0, 0, 23, 59, 59}},
    {&KyTimeTab, {0, 0, 0, 23, 59, 59}, kSame, {}},
    {&KyTimeTab, {0, 0, 0, 24, 0, 0}, kSame, {}},
    {&KyTimeTab, {0, 0, 0, 1, 60, 0}, kSame, {}},
    {&KyTimeTab, {0, 0, 0, 1, 0, 60}, kSame, {}},
    {&KyTimeTab, {0, 0, 0, -1, 0, 0}, kSame, {}},
    {&KyTimeTab, {0, 0, 0, 1, -1, 0}, kSame, {}},
    {&KyTimeTab, {0, 0, 0, 1, 0, -1}, kSame, {}},

    {&KyDateTimeTab, {2024, 5, 7, 13, 45, 59}, 0, {2024, 5, 7, 13, 46, 0}},
    {&KyDateTimeTab, {2024, 2, 28, 23, 59, 59}, 0, {2024, 2, 29, 0, 0, 0}},
    {&KyDateTimeTab, {1999, 12, 31, 23, 59, 59}, 0, {2000, 1, 1, 0, 0, 0}},
    {&KyDateTimeTab, {32767, 12, 31, 23, 59, 58}, 0, {32767, 12, 31, 23, 59, 59}},
    {&KyDateTimeTab, {32767, 12, 31, 23, 59, 59}, kSame, {}},
    {&KyDateTimeTab, {2023, 2, 29, 1, 2, 3}, kSame, {}},
    {&KyDateTimeTab, {2024, 2, 29, 24, 0, 0}, kSame, {}},
    {&KyDateTimeTab, {-1, 2, 3, 1, 2, 3}, kSame, {}},
    {&KyDateTimeTab, {0, 0, 0, 0, 0, 0}, kSame, {}},

    // Nanoseconds.
    {&KyDateTimeNTab, {2024, 5, 7, 13, 45, 59, 0}, 0, {2024, 5, 7, 13, 45, 59, 1}},
    {&KyDateTimeNTab, {2024, 5, 7, 13, 45, 59, 999999999}, 0, {2024, 5, 7, 13, 46, 0, 0}},
    {&KyDateTimeNTab, {1999, 12, 31, 23, 59, 59, 999999999}, 0, {2000, 1, 1, 0, 0, 0, 0}},
    {&KyDateTimeNTab, {32767, 12, 31, 23, 59, 59, 999999998}, 0, {32767, 12, 31, 23, 59, 59, 999999999}},
    {&KyDateTimeNTab, {32767, 12, 31, 23, 59, 59, 999999999}, kSame, {}},
    {&KyDateTimeNTab, {2024, 5, 7, 13, 45, 59, 1000000000}, kSame, {}},
    {&KyDateTimeNTab, {2024, 5, 7, 13, 45, 59, -1}, kSame, {}},
    {&KyDateTimeNTab, {2024, 5, 7, 13, 45, 60, 5}, kSame, {}},
    {&KyDateTimeNTab, {2023, 2, 29, 13, 45, 59, 5}, kSame, {}},
    {&KyDateTimeNTab, {-32768, -128, -128, -128, -128, -128, 1}, kSame, {}},

    // Spans take fields of any kind.
    {&KyTimeSpanTab, {0, 0, 0, 0, 0, 0, 0}, 0, {0, 0, 0, 0, 0, 0, 1}},
    {&KyTimeSpanTab, {0, 0, 0, 0, 0, 0, -1}, 0, {0, 0, 0, 0, 0, 0, 0}},
    {&KyTimeSpanTab, {0, 0, 29, 23, 59, 59, 999999999}, 0, {0, 1, 0, 0, 0, 0, 0}},
    {&KyTimeSpanTab, {0, 11, 29, 23, 59, 59, 999999999}, 0, {1, 0, 0, 0, 0, 0, 0}},
    {&KyTimeSpanTab, {0, 0, 0, 0, 0, 0, kMost}, 0, {0, 0, 0, 0, 0, 2, 147483648}},
    {&KyTimeSpanTab, {0, 0, -5, 0, 0, 0, 0}, 0, {0, 0, -5, 0, 0, 0, 1}},
    {&KyTimeSpanTab, {0, 13, 31, 0, 0, 0, 5}, 0, {0, 13, 31, 0, 0, 0, 6}},
    {&KyTimeSpanTab, {32767, 11, 29, 23, 59, 59, 999999998}, 0, {32767, 11, 29, 23, 59, 59, 999999999}},
    {&KyTimeSpanTab, {32767, 11, 29, 23, 59, 59, 999999999}, kSame, {}},
};

const DateType& TypeOf(const KyTypeTab* row) {
    for (const DateType& type : DateTypes()) {
        if (type.row == row) return type;
    }
    return DateTypes().front();
}

TEST(DateGetValue, StepsByTheLeastUnitFieldByField) {
    for (const Step& step : kSteps) {
        SCOPED_TRACE(std::string(step.row->typeName) + testing::PrintToString(step.from));
        const DateType& type = TypeOf(step.row);
        for (const unsigned char what : {KyValueStep, KyValueStepNext}) {
            for (const unsigned count : {0u, 1u, 7u}) {
                ByteVector value = DateInForm(type, step.from, KyFormMemory);
                EXPECT_EQ(step.row->GetValue(value.data(), count, KyFormMemory, what), step.result);
                EXPECT_EQ(SlowDateRead(type.shape, KyFormMemory, value.data()), step.result == 0 ? step.to : step.from);
            }
        }
    }
}

TEST(DateGetValue, OtherFormsAndSelectorsAreNotSupported) {
    for (const DateType& type : DateTypes()) {
        const ByteVector before = DateInForm(type, {2024, 5, 7, 1, 2, 3, 4}, KyFormMemory);
        ByteVector value = before;
        for (unsigned what = 0; what < 256; ++what) {
            if (what == KyValueStep || what == KyValueStepNext) continue;
            EXPECT_EQ(type.row->GetValue(value.data(), 1, KyFormMemory, static_cast<unsigned char>(what)),
                      KyErrNotSupported);
        }
        for (unsigned form = 0; form < 256; ++form) {
            if (form == KyFormMemory) continue;
            EXPECT_EQ(type.row->GetValue(value.data(), 1, static_cast<unsigned char>(form), KyValueStep),
                      KyErrNotSupported);
        }
        EXPECT_EQ(value, before);
    }
}

KyDate DateOf(const SlowCalendar& slow) {
    return {static_cast<short>(slow.Year()), static_cast<signed char>(slow.Month()),
            static_cast<signed char>(slow.Day())};
}

TEST(DateGetValue, EveryDayOfTheCalendarIsReached) {
    SlowCalendar slow(-8100, 1, 1);
    KyDate date(-8100, 1, 1);
    for (int days = 0; days < 25 * 146097 / kFewerCases; ++days) {
        slow.Next();
        // The year -1 is a wildcard, at which stepping ends.
        if (date.year == -1) {
            ASSERT_EQ(KyDateTab.GetValue(&date, 1, KyFormMemory, KyValueStep), KyErrNoSuccessor);
            date = DateOf(slow);
            continue;
        }
        ASSERT_EQ(KyDateTab.GetValue(&date, 1, KyFormMemory, KyValueStep), 0) << days;
        ASSERT_EQ(date, DateOf(slow)) << days;
    }
}

TEST(DateGetValue, EverySecondOfADayIsReached) {
    KyTime time(0, 0, 0);
    for (int seconds = 1; seconds < 86400; ++seconds) {
        ASSERT_EQ(KyTimeTab.GetValue(&time, 1, KyFormMemory, KyValueStep), 0);
        ASSERT_EQ(static_cast<int>(time), seconds);
    }
    EXPECT_EQ(KyTimeTab.GetValue(&time, 1, KyFormMemory, KyValueStep), KyErrNoSuccessor);
}

TEST(DateGetValue, StoredValuesAreSteppedThroughTheManager) {
    KyTypeMgr types(5);
    ByteVector date = Bytes("E8 07 02 1C");
    EXPECT_EQ(types.GetValue(KyDATE_T, date.data(), 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(date.data(), 4), "E8 07 02 1D");
    ByteVector time = Bytes("17 3B 3B");
    EXPECT_EQ(types.GetValue(KyTIME_T, time.data(), 1, KyFormNative, KyValueStep), KyErrNoSuccessor);
    EXPECT_EQ(Hex(time.data(), 3), "17 3B 3B");
}

}  // namespace
