#ifndef TIME_STAMP_H
#define TIME_STAMP_H

#include <cstddef>

namespace ky {

/// The date-time record that time-stamp values are made of.
struct TimeStamp {
    short year;
    signed char month;
    signed char day;
    signed char hour;
    signed char minute;
    signed char second;
    int subSeconds;
};

static_assert(sizeof(TimeStamp) == 12 && offsetof(TimeStamp, hour) == 4 && offsetof(TimeStamp, subSeconds) == 8);

/// A time stamp as the memory form of a date or time type.
class TimeStampValue {
public:
    /// `stamp` is a `TimeStamp`, read only when `typeId` is a time-stamp type; the value may point into it.
    TimeStampValue(char typeId, void* stamp);
    TimeStampValue(const TimeStampValue&) = delete;
    TimeStampValue& operator=(const TimeStampValue&) = delete;

    /// Null for a type that no time stamp fits.
    void* Get() const { return value; }

private:
    alignas(short) unsigned char image[10];
    void* value = nullptr;
};

}  // namespace ky

#endif
