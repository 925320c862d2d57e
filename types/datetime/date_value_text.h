#ifndef DATE_VALUE_TEXT_H
#define DATE_VALUE_TEXT_H

/// Dates and times as parts and back, and what printing and scanning one of them is.

#include "date_text.h"
#include "kydatime.h"
#include "kydatimeN.h"

namespace ky {

// What a type does not have is 0.
constexpr DateTimeParts PartsOf(const KyDate& date) { return {date.year, date.month, date.day}; }
constexpr DateTimeParts PartsOf(const KyTime& time) {
    return {.hour = time.hour, .minute = time.minute, .second = time.second};
}
constexpr DateTimeParts PartsOf(const KyDateTime& value) {
    return {value.year, value.month, value.day, value.hour, value.minute, value.second};
}
constexpr DateTimeParts PartsOf(const KyDateTime_& value) {
    return {value.year, value.month, value.day, value.hour, value.minute, value.second, value.nanoseconds};
}

// The low bits of each part that the type has.
constexpr void SetParts(KyDate& date, const DateTimeParts& parts) {
    date.year = static_cast<short>(parts.year);
    date.month = static_cast<signed char>(parts.month);
    date.day = static_cast<signed char>(parts.day);
}
constexpr void SetParts(KyTime& time, const DateTimeParts& parts) {
    time.hour = static_cast<signed char>(parts.hour);
    time.minute = static_cast<signed char>(parts.minute);
    time.second = static_cast<signed char>(parts.second);
}
constexpr void SetParts(KyDateTime& value, const DateTimeParts& parts) {
    KyDate date = KyDate::ClearValue();
    KyTime time = KyTime::ClearValue();
    SetParts(date, parts);
    SetParts(time, parts);
    value = KyDateTime(date, time);
}
constexpr void SetParts(KyDateTime_& value, const DateTimeParts& parts) {
    KyDate date = KyDate::ClearValue();
    KyTime time = KyTime::ClearValue();
    SetParts(date, parts);
    SetParts(time, parts);
    value = KyDateTime_(date, time);
    value.nanoseconds = parts.nanoseconds;
}

/// Replaces `out`; a null value is the null print string.
template <class Value>
KyString& PrintValue(KyString& out, const Value& value, const char* format) {
    if (value.IsNullValue() != 0) {
        PrintNullDate(out);
    } else {
        PrintDateTime(out, PartsOf(value), format, kKyDatePrint);
    }
    return out;
}

/// False when the text ends early; what was read till then is stored.
template <class Value>
bool ScanValue(Value& value, KyString& text, const char* format) {
    DateTimeParts parts;
    const DateScan result = ScanDateTime(parts, text, format);
    if (result == DateScan::null) {
        value.SetNullValue();
    } else {
        SetParts(value, parts);
    }
    return result != DateScan::cut;
}

}  // namespace ky

#endif
