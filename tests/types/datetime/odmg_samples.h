#ifndef ODMG_SAMPLES_H
#define ODMG_SAMPLES_H

/// Values of the ODMG classes and their bytes, for tests.

#include <cstring>
#include <initializer_list>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "kybase.h"
#include "kyodmg.h"
#include "kytypes.h"
#include "support/hex.h"

/// The zone of times that are not given one, as it was afterwards.
class DefaultZone {
public:
    explicit DefaultZone(int zone) : before(d_Time(0, 0, 0).tz_hour()) {
        d_Time::set_default_Time_Zone(static_cast<d_Time::Time_Zone>(zone));
    }
    DefaultZone(const DefaultZone&) = delete;
    DefaultZone& operator=(const DefaultZone&) = delete;
    ~DefaultZone() { d_Time::set_default_Time_Zone(static_cast<d_Time::Time_Zone>(before)); }

private:
    int before;
};

/// A clock that stands still.
class StandingClock {
public:
    explicit StandingClock(long long utcSeconds, int offsetMinutes = 0) {
        reading = {utcSeconds, 0, offsetMinutes};
        before = bksSetClock([] { return reading; });
    }
    StandingClock(const StandingClock&) = delete;
    StandingClock& operator=(const StandingClock&) = delete;
    ~StandingClock() { bksSetClock(before); }

private:
    static inline bksClockReading reading{};
    bksClockSource before;
};

inline const KyTypeTab* const kOdmgRows[] = {&Kyd_DateTab, &Kyd_TimeTab, &Kyd_TimestampTab, &Kyd_IntervalTab};

/// Of an element, the same in every form.
inline unsigned SizeOf(const KyTypeTab& row) { return row.sizeWord & 0xFFFF; }

inline constexpr long long kMay7 = 1715089559;  ///< 2024-05-07 13:45:59 UTC

template <class Value>
std::string HexOf(const Value& value) {
    return Hex(&value, sizeof value);
}

/// A time from its six bytes.
inline d_Time TimeOfBytes(std::initializer_list<int> bytes) {
    d_Time time(0);
    auto* at = reinterpret_cast<unsigned char*>(&time);
    for (const int byte : bytes) *at++ = static_cast<unsigned char>(byte);
    return time;
}

/// A time to the hundredth.
inline d_Time TimeAt(int hour, int minute, int second, int hundredths = 0, int zoneHours = 0, int zoneMinutes = 0) {
    return TimeOfBytes({zoneHours, zoneMinutes, zoneHours + hour, zoneMinutes + minute, second, hundredths});
}

/// An interval from its float.
inline d_Interval Seconds(float seconds) { return d_Interval(0, 0, 0, seconds); }

template <class Value>
std::vector<unsigned char> Stored(const KyTypeTab& row, const std::vector<Value>& values, unsigned char form) {
    const auto count = static_cast<unsigned>(values.size());
    std::vector<unsigned char> bytes(row.SizeGet(nullptr, KyFormMemory, form, count));
    row.Store(bytes.data(), values.data(), form, count);
    return bytes;
}

template <class Value>
int CompareIn(const KyTypeTab& row, unsigned char form, const std::vector<Value>& a, const std::vector<Value>& b,
              unsigned short op) {
    auto x = Stored(row, a, form);
    auto y = Stored(row, b, form);
    int err = -1;
    const int result =
        row.Compare(form, 0, x.data(), 0, y.data(), op, static_cast<unsigned>(std::min(a.size(), b.size())), err);
    return err == 0 ? result : 12345;
}

inline int Sign(int number) { return (number > 0) - (number < 0); }

#endif
