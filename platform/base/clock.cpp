#include <time.h>

#include <algorithm>
#include <atomic>
#include <cstdint>

#include "calendar.h"
#include "kybase.h"

namespace {

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t secondsPerHour = 3600;
constexpr std::int64_t secondsPerDay = 86400;

/// The first and the last second whose year fits a bdate: -32768-01-01T00:00:00 and 32767-12-31T23:59:59. What lies
/// outside reads as the nearest of them.
constexpr std::int64_t firstSecond = -1096225401600;
constexpr std::int64_t lastSecond = 971890963199;

/// Offsets of 25 hours and more are no time zone's; with the value that says so, they are unknown.
constexpr int offsetLimitMinutes = 25 * 60;

constinit std::atomic<bksClockSource> installedSource{nullptr};

struct Instant {
    std::int64_t utcSeconds;
    int nanoseconds;
    bool offsetKnown;
    int offsetSeconds;  // 0 when not known
};

Instant MachineInstant() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    const bool known = localtime_r(&now.tv_sec, &local) != nullptr;
    return {now.tv_sec, static_cast<int>(now.tv_nsec), known, known ? static_cast<int>(local.tm_gmtoff) : 0};
}

Instant SourceInstant(bksClockSource source) {
    const bksClockReading reading = source();
    const bool known = -offsetLimitMinutes < reading.offsetMinutes && reading.offsetMinutes < offsetLimitMinutes;
    const int offset = known ? reading.offsetMinutes * static_cast<int>(secondsPerMinute) : 0;
    return {reading.utcSeconds, reading.nanoseconds, known, offset};
}

Instant Now() {
    const bksClockSource source = installedSource.load(std::memory_order_acquire);
    return source != nullptr ? SourceInstant(source) : MachineInstant();
}

/// The date and time of day that a clock `offsetSeconds` east of UTC shows.
void Show(const Instant& instant, int offsetSeconds, bdate& date, btime& time) {
    const std::int64_t utc = std::clamp<std::int64_t>(instant.utcSeconds, firstSecond, lastSecond);
    const std::int64_t shown = std::clamp(utc + offsetSeconds, firstSecond, lastSecond);
    const std::int64_t days = (shown >= 0 ? shown : shown - (secondsPerDay - 1)) / secondsPerDay;
    const std::int64_t second = shown - days * secondsPerDay;  // of the day

    const ky::CivilDate civil = ky::CivilFromDays(static_cast<int>(days));
    date.year = static_cast<short>(civil.year);
    date.month = static_cast<signed char>(civil.month);
    date.day = static_cast<signed char>(civil.day);
    time.hour = static_cast<signed char>(second / secondsPerHour);
    time.minute = static_cast<signed char>(second / secondsPerMinute % 60);
    time.second = static_cast<signed char>(second % 60);
    time.reserved = 0;
    time.zoneSeconds = offsetSeconds;
}

void ShowLocal(const Instant& instant, bdate& date, btime& time) { Show(instant, instant.offsetSeconds, date, time); }

void ShowUtc(const Instant& instant, bdate& date, btime& time) { Show(instant, 0, date, time); }

}  // namespace

void bksgetdate(bdate* date) {
    btime unused;
    ShowLocal(Now(), *date, unused);
}

void bksgettime(btime* time) {
    bdate unused;
    ShowLocal(Now(), unused, *time);
}

void bksgetsystemtime(btime* time, bdate* date) { ShowUtc(Now(), *date, *time); }

void bksGetHiresTime(bdate& date, btime& time, int& nanoseconds) {
    const Instant now = Now();
    ShowLocal(now, date, time);
    nanoseconds = now.nanoseconds;
}

void bksGetHiresTimeUTC(bdate& date, btime& time, int& nanoseconds) {
    const Instant now = Now();
    ShowUtc(now, date, time);
    nanoseconds = now.nanoseconds;
}

int bksgettimezone() {
    const Instant now = Now();
    return now.offsetKnown ? now.offsetSeconds / static_cast<int>(secondsPerMinute) : bksUnknownTimeZone;
}

bksClockSource bksSetClock(bksClockSource source) {
    return installedSource.exchange(source, std::memory_order_acq_rel);
}
