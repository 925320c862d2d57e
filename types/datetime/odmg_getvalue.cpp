// Stepping the ODMG types to the next value. The step is made on the fields: day numbers do not follow the calendar in
// its early part.

#include <cmath>
#include <limits>

#include "odmg_fields.h"
#include "odmg_slots.h"

namespace {

constexpr d_Interval kStep(0, 0, 0, 0.01F);

/// Within the fields' ranges, the year -1 excluded, which is a wildcard, and not among the days that the change of the
/// calendar left out.
bool IsDay(const d_Date& date) {
    if (date.year() == ky::kWildcardField) return false;
    if (date.day() < 1 || date.day() > date.days_in_month()) return false;
    return date.year() != 1582 || date.month() != 10 || date.day() < 5 || date.day() > 14;
}

bool IsTime(const d_Time& time) {
    const auto below = [](int limit, int field) { return field >= 0 && field < limit; };
    return below(24, time.hour()) && below(60, time.minute()) && below(60, ky::WholeSecond(time)) &&
           below(100, ky::HundredthsOf(time));
}

bool IsLastOfDay(const d_Time& time) {
    return time.hour() == 23 && time.minute() == 59 && ky::WholeSecond(time) == 59 && ky::HundredthsOf(time) == 99;
}

// Each gives 0, or `KyErrNoSuccessor` with the value left as it is.

int Step(d_Date& date) {
    if (!IsDay(date)) return KyErrNoSuccessor;
    const auto next = [](int number) { return static_cast<unsigned short>(number + 1); };
    if (date.year() == 1582 && date.month() == 10 && date.day() == 4) {
        date = d_Date(1582, 10, 15);
    } else if (date.day() < date.days_in_month()) {
        date = d_Date(date.year(), date.month(), next(date.day()));
    } else if (date.month() < 12) {
        date = d_Date(date.year(), next(date.month()), 1);
    } else if (date.year() < std::numeric_limits<short>::max()) {
        date = d_Date(static_cast<short>(date.year() + 1), 1, 1);
    } else {
        return KyErrNoSuccessor;
    }
    return 0;
}

int Step(d_Time& time) {
    if (!IsTime(time) || IsLastOfDay(time)) return KyErrNoSuccessor;
    time += kStep;
    return 0;
}

int Step(d_Timestamp& stamp) {
    d_Date date = stamp.date();
    if (!IsDay(date) || !IsTime(stamp.time())) return KyErrNoSuccessor;
    if (IsLastOfDay(stamp.time()) && Step(date) != 0) return KyErrNoSuccessor;
    stamp = d_Timestamp(date, stamp.time() + kStep);
    return 0;
}

int Step(d_Interval& interval) {
    using Limits = std::numeric_limits<float>;
    const d_Interval next = interval + kStep;
    if (interval.seconds() < 0 && next.seconds() > 0) {
        interval = d_Interval();
    } else if (next > interval) {
        interval = next;
    } else if (interval.seconds() < Limits::max()) {
        interval = d_Interval(0, 0, 0, std::nextafter(interval.seconds(), Limits::infinity()));
    } else {
        return KyErrNoSuccessor;  // the largest number, infinity and NaN
    }
    return 0;
}

template <class Value>
int StepValue(void* value, unsigned char form, unsigned char what) {
    if (form != KyFormMemory || (what != KyValueStep && what != KyValueStepNext)) return KyErrNotSupported;
    auto number = ky::ReadValue<Value>(value);
    const int error = Step(number);
    if (error == 0) ky::StoreAs(value, number);
    return error;
}

}  // namespace

int KyGetValued_Date(void* value, unsigned, unsigned char form, unsigned char what) {
    return StepValue<d_Date>(value, form, what);
}
int KyGetValued_Time(void* value, unsigned, unsigned char form, unsigned char what) {
    return StepValue<d_Time>(value, form, what);
}
int KyGetValued_Timestamp(void* value, unsigned, unsigned char form, unsigned char what) {
    return StepValue<d_Timestamp>(value, form, what);
}
int KyGetValued_Interval(void* value, unsigned, unsigned char form, unsigned char what) {
    return StepValue<d_Interval>(value, form, what);
}
