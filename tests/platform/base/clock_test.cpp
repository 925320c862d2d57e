#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "kybase.h"

namespace {

bksClockReading replayed;

bksClockReading Replay() { return replayed; }

std::string Text(const bdate& date) {
    return std::to_string(date.year) + '-' + std::to_string(date.month) + '-' + std::to_string(date.day);
}

std::string Text(const btime& time) {
    return std::to_string(time.hour) + ':' + std::to_string(time.minute) + ':' + std::to_string(time.second);
}

std::string Text(const bdate& date, const btime& time) { return Text(date) + ' ' + Text(time); }

class ReplayedClock : public testing::Test {
protected:
    void SetUp() override { previous = bksSetClock(&Replay); }
    void TearDown() override { EXPECT_EQ(bksSetClock(previous), &Replay); }

    static std::string LocalText() {
        bdate date;
        btime time;
        bksgetdate(&date);
        bksgettime(&time);
        return Text(date, time);
    }

    static std::string UtcText() {
        bdate date;
        btime time;
        bksgetsystemtime(&time, &date);
        return Text(date, time);
    }

private:
    bksClockSource previous = nullptr;
};

struct Reading {
    bksClockReading reading;
    const char* utc;
    const char* local;
    int zoneMinutes;
};

constexpr long long second20240507 = 1715040000;  // 2024-05-07T00:00:00Z
constexpr long long least = std::numeric_limits<long long>::min();
constexpr long long greatest = std::numeric_limits<long long>::max();
constexpr int unknown = bksUnknownTimeZone;

const Reading readings[] = {
    {{0, 0, 0}, "1970-1-1 0:0:0", "1970-1-1 0:0:0", 0},
    {{-1, 0, 0}, "1969-12-31 23:59:59", "1969-12-31 23:59:59", 0},
    {{-86400, 0, 0}, "1969-12-31 0:0:0", "1969-12-31 0:0:0", 0},
    {{-86401, 0, 0}, "1969-12-30 23:59:59", "1969-12-30 23:59:59", 0},
    {{second20240507, 0, 120}, "2024-5-7 0:0:0", "2024-5-7 2:0:0", 120},
    {{second20240507, 0, -1}, "2024-5-7 0:0:0", "2024-5-6 23:59:0", -1},
    {{second20240507 + 86399, 0, 330}, "2024-5-7 23:59:59", "2024-5-8 5:29:59", 330},
    {{second20240507, 0, 840}, "2024-5-7 0:0:0", "2024-5-7 14:0:0", 840},
    {{second20240507, 0, -720}, "2024-5-7 0:0:0", "2024-5-6 12:0:0", -720},
    {{1709164799, 0, 1}, "2024-2-28 23:59:59", "2024-2-29 0:0:59", 1},
    {{-2203891200, 0, 0}, "1900-3-1 0:0:0", "1900-3-1 0:0:0", 0},
    {{-2203891201, 0, 0}, "1900-2-28 23:59:59", "1900-2-28 23:59:59", 0},
    {{-62167219200, 0, 0}, "0-1-1 0:0:0", "0-1-1 0:0:0", 0},
    {{-62167219201, 0, 0}, "-1-12-31 23:59:59", "-1-12-31 23:59:59", 0},
    // No offset, no offset of a zone
    {{second20240507, 0, unknown}, "2024-5-7 0:0:0", "2024-5-7 0:0:0", unknown},
    {{second20240507, 0, 1499}, "2024-5-7 0:0:0", "2024-5-8 0:59:0", 1499},
    {{second20240507, 0, -1499}, "2024-5-7 0:0:0", "2024-5-5 23:1:0", -1499},
    {{second20240507, 0, 1500}, "2024-5-7 0:0:0", "2024-5-7 0:0:0", unknown},
    {{second20240507, 0, -1500}, "2024-5-7 0:0:0", "2024-5-7 0:0:0", unknown},
    {{second20240507, 0, std::numeric_limits<int>::min()}, "2024-5-7 0:0:0", "2024-5-7 0:0:0", unknown},
    // The ends of what a bdate holds, and beyond
    {{971890963199, 0, 0}, "32767-12-31 23:59:59", "32767-12-31 23:59:59", 0},
    {{971890963200, 0, 60}, "32767-12-31 23:59:59", "32767-12-31 23:59:59", 60},
    {{971890963199, 0, -60}, "32767-12-31 23:59:59", "32767-12-31 22:59:59", -60},
    {{greatest, 0, 60}, "32767-12-31 23:59:59", "32767-12-31 23:59:59", 60},
    {{-1096225401600, 0, 0}, "-32768-1-1 0:0:0", "-32768-1-1 0:0:0", 0},
    {{-1096225401601, 0, -60}, "-32768-1-1 0:0:0", "-32768-1-1 0:0:0", -60},
    {{least, 0, 60}, "-32768-1-1 0:0:0", "-32768-1-1 1:0:0", 60},
};

TEST_F(ReplayedClock, ReadsAsGiven) {
    for (const Reading& expected : readings) {
        replayed = expected.reading;
        SCOPED_TRACE(std::to_string(replayed.utcSeconds) + " east " + std::to_string(replayed.offsetMinutes));
        EXPECT_EQ(UtcText(), expected.utc);
        EXPECT_EQ(LocalText(), expected.local);
        EXPECT_EQ(bksgettimezone(), expected.zoneMinutes);
    }
}

TEST_F(ReplayedClock, NanosecondsComeWithTheSameInstant) {
    replayed = {second20240507 - 1, 999999999, 90};
    bdate date;
    btime time;
    int nanoseconds = -1;
    bksGetHiresTime(date, time, nanoseconds);
    EXPECT_EQ(Text(date, time), "2024-5-7 1:29:59");
    EXPECT_EQ(time.zoneSeconds, 5400);
    EXPECT_EQ(nanoseconds, 999999999);
    nanoseconds = -1;
    bksGetHiresTimeUTC(date, time, nanoseconds);
    EXPECT_EQ(Text(date, time), "2024-5-6 23:59:59");
    EXPECT_EQ(time.zoneSeconds, 0);
    EXPECT_EQ(nanoseconds, 999999999);
}

TEST_F(ReplayedClock, ZoneSecondsAreZeroInUtcAndWhenUnknown) {
    btime time;
    bdate date;
    replayed = {second20240507, 0, -150};
    bksgettime(&time);
    EXPECT_EQ(time.zoneSeconds, -9000);
    bksgetsystemtime(&time, &date);
    EXPECT_EQ(time.zoneSeconds, 0);
    replayed.offsetMinutes = bksUnknownTimeZone;
    bksgettime(&time);
    EXPECT_EQ(time.zoneSeconds, 0);
}

TEST_F(ReplayedClock, EveryByteOfAReadingIsWritten) {
    replayed = {second20240507, 0, 0};
    btime time;
    std::memset(&time, 0xEE, sizeof time);
    bksgettime(&time);
    EXPECT_EQ(time.reserved, 0);
    EXPECT_EQ(time.zoneSeconds, 0);
}

TEST(Clock, SettingGivesBackThePreviousOne) {
    EXPECT_EQ(bksSetClock(&Replay), nullptr);
    EXPECT_EQ(bksSetClock(nullptr), &Replay);
    EXPECT_EQ(bksSetClock(nullptr), nullptr);
}

/// The machine's clock in a time zone given, against the C library's own break-down.
class MachineClock : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (const char* zone = std::getenv("TZ")) previous = zone;
        wasSet = std::getenv("TZ") != nullptr;
        setenv("TZ", GetParam(), 1);
        tzset();
    }
    void TearDown() override {
        if (wasSet) {
            setenv("TZ", previous.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

private:
    std::string previous;
    bool wasSet = false;
};

std::string Text(const std::tm& parts) {
    const bdate date{static_cast<short>(parts.tm_year + 1900), static_cast<signed char>(parts.tm_mon + 1),
                     static_cast<signed char>(parts.tm_mday)};
    const btime time{static_cast<signed char>(parts.tm_hour), static_cast<signed char>(parts.tm_min),
                     static_cast<signed char>(parts.tm_sec), 0, 0};
    return Text(date, time);
}

/// Not `std::time`, which may lag behind the precise clock at the beginning of a second.
std::time_t Now() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

TEST_P(MachineClock, IsTheMachines) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::time_t before = Now();
        std::tm expectedLocal{};
        std::tm expectedUtc{};
        localtime_r(&before, &expectedLocal);
        gmtime_r(&before, &expectedUtc);

        bdate date;
        btime time;
        bksgetdate(&date);
        bksgettime(&time);
        bdate utcDate;
        btime utcTime;
        bksgetsystemtime(&utcTime, &utcDate);
        bdate hiresDate;
        btime hiresTime;
        int nanoseconds = -1;
        bksGetHiresTime(hiresDate, hiresTime, nanoseconds);
        if (Now() != before) continue;  // the second went by in between

        EXPECT_EQ(Text(date, time), Text(expectedLocal));
        EXPECT_EQ(time.zoneSeconds, expectedLocal.tm_gmtoff);
        EXPECT_EQ(Text(utcDate, utcTime), Text(expectedUtc));
        EXPECT_EQ(Text(hiresDate, hiresTime), Text(expectedLocal));
        EXPECT_GE(nanoseconds, 0);
        EXPECT_LE(nanoseconds, 999999999);
        EXPECT_EQ(bksgettimezone(), expectedLocal.tm_gmtoff / 60);
        return;
    }
    FAIL() << "no second was long enough";
}

INSTANTIATE_TEST_SUITE_P(Zones, MachineClock,
                         testing::Values("UTC0", "CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT,M3.2.0,M11.1.0", "IST-5:30",
                                         "NST3:30", "LINT-14", "FAR24:59:59", "ODD-0:19:32"));

TEST(Clock, IsReadWhileItIsReplaced) {
    static constexpr auto early = +[] { return bksClockReading{0, 1, 60}; };
    static constexpr auto late = +[] { return bksClockReading{second20240507, 2, -60}; };
    bksSetClock(early);
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 3; ++reader) {
        readers.emplace_back([] {
            for (int i = 0; i < 2000; ++i) {
                bdate date;
                btime time;
                int nanoseconds = 0;
                bksGetHiresTime(date, time, nanoseconds);
                const std::string text = Text(date, time);
                EXPECT_EQ(text, nanoseconds == 1 ? "1970-1-1 1:0:0" : "2024-5-6 23:0:0");
            }
        });
    }
    for (int i = 0; i < 2000; ++i) bksSetClock(i % 2 == 0 ? late : early);
    for (std::thread& reader : readers) reader.join();
    bksSetClock(nullptr);
}

}  // namespace
