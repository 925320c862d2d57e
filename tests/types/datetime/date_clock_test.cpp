#include <gtest/gtest.h>

#include "date_values.h"
#include "kydatimeN.h"

namespace {

constexpr long long k20240507 = 1715040000;  // 2024-05-07T00:00:00Z
constexpr int kUnknown = bksUnknownTimeZone;

const KyDate kSeventh(2024, 5, 7);
const KyDate kEighth(2024, 5, 8);

TEST(DateClock, LocalTime) {
    const ReplayedClock clock(k20240507 + 86399 - 3600, 123456789, 90);  // 22:59:59 UTC
    const KyTime time(0, 29, 59);
    EXPECT_EQ(KyDate(), kEighth);
    EXPECT_EQ(KyDate::Today(), kEighth);
    EXPECT_EQ(KyTime(), time);
    EXPECT_EQ(KyTime::Now(), time);
    EXPECT_EQ(KyDateTime(), KyDateTime(kEighth, time));
    EXPECT_EQ(KyDateTime::Now(), KyDateTime(kEighth, time));
    EXPECT_EQ(KyDateTimeN::Now(), KyDateTimeN(2024, 5, 8, 0, 29, 59, 123456789));
}

TEST(DateClock, Utc) {
    const ReplayedClock clock(k20240507 + 86399 - 3600, 123456789, 90);
    const KyTime time(22, 59, 59);
    EXPECT_EQ(KyTime::NowUTC(), time);
    EXPECT_EQ(KyDateTime::NowUTC(), KyDateTime(kSeventh, time));
    EXPECT_EQ(KyDateTimeN::NowUTC(), KyDateTimeN(2024, 5, 7, 22, 59, 59, 123456789));
}

TEST(DateClock, WhatIsNotGivenIsReadFromTheLocalClock) {
    const ReplayedClock clock(k20240507 + 3600, 0, 60);
    EXPECT_EQ(KyDateTime(KyDate(2000, 1, 1)), KyDateTime(KyDate(2000, 1, 1), KyTime(2, 0, 0)));
    EXPECT_EQ(KyDateTime(KyTime(1, 2, 3)), KyDateTime(kSeventh, KyTime(1, 2, 3)));
}

TEST(DateClock, DateTimesOfTheClockReadTheTimeFirst) {
    for (const bool byNow : {true, false}) {
        const ReplayedClock clock(k20240507 + 86399, 0, 0, 1);
        EXPECT_EQ(byNow ? KyDateTime::Now() : KyDateTime(), KyDateTime(kEighth, KyTime(23, 59, 59)));
    }
}

TEST(DateClock, UtcAndNanosecondsAreReadAtOnce) {
    {
        const ReplayedClock clock(k20240507 + 86399, 0, 0, 1);
        EXPECT_EQ(KyDateTime::NowUTC(), KyDateTime(kSeventh, KyTime(23, 59, 59)));
    }
    {
        const ReplayedClock clock(k20240507 + 86399, 5, 0, 1);
        EXPECT_EQ(KyDateTimeN::Now(), KyDateTimeN(2024, 5, 7, 23, 59, 59, 5));
    }
    const ReplayedClock clock(k20240507 + 86399, 5, 0, 1);
    EXPECT_EQ(KyDateTimeN::NowUTC(), KyDateTimeN(2024, 5, 7, 23, 59, 59, 5));
}

TEST(DateClock, ShiftsByTheOffset) {
    const ReplayedClock clock(k20240507, 0, 330);

    KyTime time(3, 15, 30);
    EXPECT_EQ(time.ToUTCTime(), 0);
    EXPECT_EQ(time, KyTime(21, 45, 30));
    EXPECT_EQ(time.ToLocalTime(), 0);
    EXPECT_EQ(time, KyTime(3, 15, 30));

    KyDateTime dateTime(KyDate(2024, 3, 1), KyTime(3, 15, 30));
    EXPECT_EQ(dateTime.ToUTCTime(), 0);
    EXPECT_EQ(dateTime, KyDateTime(KyDate(2024, 2, 29), KyTime(21, 45, 30)));
    EXPECT_EQ(dateTime.ToLocalTime(), 0);
    EXPECT_EQ(dateTime, KyDateTime(KyDate(2024, 3, 1), KyTime(3, 15, 30)));

    KyDateTimeN precise(2024, 3, 1, 3, 15, 30, 999999999);
    EXPECT_EQ(precise.ToUTCTime(), 0);
    EXPECT_EQ(precise, KyDateTimeN(2024, 2, 29, 21, 45, 30, 999999999));
    EXPECT_EQ(precise.ToLocalTime(), 0);
    EXPECT_EQ(precise, KyDateTimeN(2024, 3, 1, 3, 15, 30, 999999999));
}

TEST(DateClock, ShiftsToTheWest) {
    const ReplayedClock clock(k20240507, 0, -60);
    KyTime time(0, 30, 0);
    EXPECT_EQ(time.ToLocalTime(), 0);
    EXPECT_EQ(time, KyTime(23, 30, 0));
    KyDateTime dateTime(kEighth, KyTime(0, 30, 0));
    EXPECT_EQ(dateTime.ToLocalTime(), 0);
    EXPECT_EQ(dateTime, KyDateTime(kSeventh, KyTime(23, 30, 0)));
    KyDateTimeN precise(2024, 5, 7, 23, 30, 0, 1);
    EXPECT_EQ(precise.ToUTCTime(), 0);
    EXPECT_EQ(precise, KyDateTimeN(2024, 5, 8, 0, 30, 0, 1));
}

TEST(DateClock, NothingIsShiftedByAnUnknownOffset) {
    const ReplayedClock clock(k20240507, 0, kUnknown);

    KyTime time(3, 15, 30);
    EXPECT_EQ(time.ToUTCTime(), -2171);
    EXPECT_EQ(time.ToLocalTime(), -2171);
    EXPECT_EQ(time, KyTime(3, 15, 30));

    KyDateTime dateTime(kSeventh, KyTime(3, 15, 30));
    EXPECT_EQ(dateTime.ToUTCTime(), -2171);
    EXPECT_EQ(dateTime.ToLocalTime(), -2171);
    EXPECT_EQ(dateTime, KyDateTime(kSeventh, KyTime(3, 15, 30)));

    KyDateTimeN precise(2024, 5, 7, 3, 15, 30, 4);
    EXPECT_EQ(precise.ToUTCTime(), -2171);
    EXPECT_EQ(precise.ToLocalTime(), -2171);
    EXPECT_EQ(precise, KyDateTimeN(2024, 5, 7, 3, 15, 30, 4));
}

// Ready before any other code of the library's user runs.
constinit const KyDate kDates[] = {KyDate::ClearValue(), KyDate::NullValue(), KyDate::DefaultValue(),
                                   KyDate::ZeroValue()};
constinit const KyTime kTimes[] = {KyTime::ClearValue(), KyTime::NullValue(), KyTime::DefaultValue(),
                                   KyTime::ZeroValue()};
constinit const KyDateTime kDateTimes[] = {KyDateTime::ClearValue(), KyDateTime::NullValue(),
                                           KyDateTime::DefaultValue(), KyDateTime::ZeroValue(), KyDateTime::Null()};
constinit const KyDateTimeN kPrecise[] = {KyDateTimeN::ClearValue(), KyDateTimeN::NullValue(),
                                          KyDateTimeN::DefaultValue(), KyDateTimeN::ZeroValue()};
constinit const KyTimeSpan kSpans[] = {KyTimeSpan::ClearValue(), KyTimeSpan::NullValue(), KyTimeSpan::DefaultValue(),
                                       KyTimeSpan::ZeroValue()};

TEST(DateClock, SpecialValuesReadNoClock) {
    EXPECT_EQ(kDates[1], KyDate::NullValue());
    EXPECT_EQ(kTimes[1], KyTime::NullValue());
    EXPECT_EQ(kDateTimes[1], KyDateTime::NullValue());
    EXPECT_EQ(kPrecise[1], KyDateTimeN());
    EXPECT_EQ(kSpans[1], KyTimeSpan());
}

}  // namespace
