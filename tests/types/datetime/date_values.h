#ifndef DATE_VALUES_H
#define DATE_VALUES_H

/// How failed tests show dates and times, and a clock that they set.

#include <ostream>

#include "kybase.h"
#include "kydatimeN.h"

inline void PrintTo(const KyDate& date, std::ostream* out) {
    *out << date.year << '-' << int{date.month} << '-' << int{date.day};
}

inline void PrintTo(const KyTime& time, std::ostream* out) {
    *out << int{time.hour} << ':' << int{time.minute} << ':' << int{time.second};
}

inline void PrintTo(const KyDateTime& value, std::ostream* out) {
    PrintTo(value.Date(), out);
    *out << ' ';
    PrintTo(value.Time(), out);
}

inline void PrintTo(const KyDateTime_& value, std::ostream* out) {
    PrintTo(value.DateTime(), out);
    *out << '.' << value.nanoseconds;
}

inline void PrintTo(const KyDateTimeN& value, std::ostream* out) {
    PrintTo(static_cast<const KyDateTime_&>(value), out);
}
inline void PrintTo(const KyTimeSpan& value, std::ostream* out) {
    PrintTo(static_cast<const KyDateTime_&>(value), out);
}

/// While it lives the clock stands still, or goes on by `step` seconds with every reading.
class ReplayedClock {
public:
    ReplayedClock(long long utcSeconds, int nanoseconds, int offsetMinutes, long long step = 0);
    ReplayedClock(const ReplayedClock&) = delete;
    ReplayedClock& operator=(const ReplayedClock&) = delete;
    ~ReplayedClock() { bksSetClock(previous); }

private:
    bksClockSource previous;
};

#endif
