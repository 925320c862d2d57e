#include "kyodmg.h"

#include <atomic>
#include <cmath>
#include <limits>

#include "kybase.h"
#include "kydatime.h"
#include "odmg_interval.h"

namespace {

constinit std::atomic<d_Time::Time_Zone> defaultZone = d_Time::GMT;

short DefaultZone() { return static_cast<short>(defaultZone.load(std::memory_order_relaxed)); }

/// Truncated toward zero, or the nearest `int`; NaN gives 0.
int Truncated(double number) {
    if (std::isnan(number)) return 0;
    if (number >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
    if (number <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
    return static_cast<int>(number);
}

long long WholeDays(const d_Interval& interval) { return Truncated(static_cast<double>(interval.seconds()) / 86400); }

signed char LowByte(int number) { return static_cast<signed char>(number); }

/// A field of the value classes as an argument of a constructor, which keeps its low byte.
unsigned short Argument(signed char field) { return static_cast<unsigned short>(field); }

bdate Today() {
    bdate today{};
    bksgetdate(&today);
    return today;
}

btime Now() {
    btime now{};
    bksgettime(&now);
    return now;
}

}  // namespace

// --- d_Date ---

d_Date::d_Date() : d_Date(0, 0, 0) {
    const bdate today = Today();
    *this = d_Date(today.year, Argument(today.month), Argument(today.day));
}
d_Date::d_Date(const d_Timestamp& stamp) : d_Date(stamp.date()) {}
d_Date::d_Date(const KyDate& date) : d_Date(date.year, Argument(date.month), Argument(date.day)) {}
d_Date::d_Date(const KyDateTime& stamp) : d_Date(stamp.Date()) {}

d_Date& d_Date::operator=(const d_Timestamp& stamp) { return *this = d_Date(stamp); }
d_Date& d_Date::operator=(const KyDate& date) { return *this = d_Date(date); }
d_Date& d_Date::operator=(const KyDateTime& stamp) { return *this = d_Date(stamp); }

d_Date::operator KyDate() const { return {yearNumber, LowByte(monthNumber), LowByte(dayNumber)}; }

d_Date& d_Date::operator+=(const d_Interval& interval) { return MoveBy(WholeDays(interval)); }
d_Date& d_Date::operator-=(const d_Interval& interval) { return MoveBy(-WholeDays(interval)); }

// --- d_Time ---

void d_Time::set_default_Time_Zone(Time_Zone zone) { defaultZone.store(zone, std::memory_order_relaxed); }

void d_Time::set_default_Time_Zone_to_local() {
    const int offset = Now().zoneSeconds;
    if (offset != 0) set_default_Time_Zone(static_cast<Time_Zone>(offset / 3600));
}

d_Time::d_Time(unsigned short hour, unsigned short minute, float second, short tz_hour, short tz_minute)
    : zoneHours(LowByte(tz_hour)),
      zoneMinutes(LowByte(tz_minute)),
      zonedHour(LowByte(tz_hour + hour)),
      zonedMinute(LowByte(tz_minute + minute)),
      wholeSecond(LowByte(Truncated(static_cast<double>(second)))),
      // Of an infinite number of seconds the rest is NaN.
      hundredths(LowByte(Truncated(static_cast<double>(second - std::trunc(second)) * 100))) {}

d_Time::d_Time(unsigned short hour, unsigned short minute, float second)
    : d_Time(hour, minute, second, DefaultZone(), 0) {}
d_Time::d_Time() : d_Time(0) {
    const btime now = Now();
    *this = d_Time(Argument(now.hour), Argument(now.minute), now.second);
}
d_Time::d_Time(int seconds) : d_Time(0, 0, 0) {
    if (seconds < 0) seconds = static_cast<int>(ky::FloorMod(seconds, 86400));
    zonedHour = LowByte(zoneHours + seconds / 3600);
    zonedMinute = LowByte(seconds % 3600 / 60);
    wholeSecond = LowByte(seconds % 60);
}
d_Time::d_Time(const d_Timestamp& stamp) : d_Time(stamp.time()) {}
d_Time::d_Time(const KyTime& time) : d_Time(Argument(time.hour), Argument(time.minute), time.second) {}
d_Time::d_Time(const KyDateTime& stamp) : d_Time(stamp.Time()) {}

d_Time& d_Time::operator=(const d_Timestamp& stamp) { return *this = d_Time(stamp); }
d_Time& d_Time::operator=(const KyTime& time) { return *this = d_Time(time); }
d_Time& d_Time::operator=(const KyDateTime& stamp) { return *this = d_Time(stamp); }

d_Time::operator KyTime() const { return {LowByte(hour()), LowByte(minute()), wholeSecond}; }

/// Hundredths since midnight, at least 0.
void d_Time::SetLocalHundredths(long long count) {
    zonedHour = LowByte(zoneHours + static_cast<int>(count / 360000));
    zonedMinute = LowByte(zoneMinutes + static_cast<int>(count / 6000 % 60));
    wholeSecond = LowByte(static_cast<int>(count / 100 % 60));
    hundredths = LowByte(static_cast<int>(count % 100));
}

d_Time& d_Time::operator+=(const d_Interval& interval) {
    const long long change = ky::FloorMod(ky::IntervalHundredths(interval.seconds()), ky::kHundredthsPerDay);
    SetLocalHundredths(ky::FloorMod(LocalHundredths() + change, ky::kHundredthsPerDay));
    return *this;
}
d_Time& d_Time::operator-=(const d_Interval& interval) { return *this += -interval; }

// --- d_Timestamp ---

d_Timestamp::d_Timestamp() : d_Timestamp(d_Date(0, 0, 0), d_Time()) { datePart = d_Date(); }
d_Timestamp::d_Timestamp(short year, unsigned short month, unsigned short day, unsigned short hour,
                         unsigned short minute, float second)
    : d_Timestamp(d_Date(year, month, day), d_Time(hour, minute, second)) {}
d_Timestamp::d_Timestamp(const d_Date& aDate) : d_Timestamp(aDate, d_Time(0)) {}
d_Timestamp::d_Timestamp(const KyDateTime& stamp) : d_Timestamp(d_Date(stamp), d_Time(stamp)) {}

d_Timestamp& d_Timestamp::operator=(const d_Date& aDate) {
    datePart = aDate;
    return *this;
}
d_Timestamp& d_Timestamp::operator=(const KyDateTime& stamp) { return *this = d_Timestamp(stamp); }

d_Timestamp::operator KyDateTime() const { return {KyDate(datePart), KyTime(timePart)}; }

d_Timestamp& d_Timestamp::operator+=(const d_Interval& interval) {
    const long long change = ky::IntervalHundredths(interval.seconds());
    const long long time = timePart.LocalHundredths() + ky::FloorMod(change, ky::kHundredthsPerDay);
    const long long days = ky::FloorDiv(change, ky::kHundredthsPerDay) + ky::FloorDiv(time, ky::kHundredthsPerDay);
    if (days != 0) datePart.MoveBy(days);
    timePart.SetLocalHundredths(ky::FloorMod(time, ky::kHundredthsPerDay));
    return *this;
}
d_Timestamp& d_Timestamp::operator-=(const d_Interval& interval) { return *this += -interval; }

// --- differences ---

d_Interval operator-(const d_Time& a, const d_Time& b) {
    return d_Interval(0, 0, 0, static_cast<float>((a.LocalHundredths() - b.LocalHundredths()) / 100.0));
}

d_Interval operator-(const d_Timestamp& a, const d_Timestamp& b) {
    const long long days = a.date() != b.date();
    const long long time = a.time().LocalHundredths() - b.time().LocalHundredths();
    return d_Interval(0, 0, 0, static_cast<float>(static_cast<double>(days * ky::kHundredthsPerDay + time) / 100.0));
}
