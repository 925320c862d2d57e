// The text of the ODMG types.

#include <algorithm>
#include <limits>

#include "date_convert.h"
#include "date_text.h"
#include "kystring.h"
#include "odmg_fields.h"
#include "odmg_interval.h"
#include "odmg_slots.h"

namespace {

using ky::DateTimeParts;

constexpr int kNanosecondsPerHundredth = 10000000;

void SetParts(DateTimeParts& parts, const d_Date& date) {
    parts.year = date.year();
    // NOLINTBEGIN(bugprone-signed-char-misuse,cert-str34-c): 255 stands for any value, as -1 does in the parts
    parts.month = static_cast<signed char>(date.month());
    parts.day = static_cast<signed char>(date.day());
    // NOLINTEND(bugprone-signed-char-misuse,cert-str34-c)
}

void SetParts(DateTimeParts& parts, const d_Time& time) {
    parts.hour = time.hour();
    parts.minute = time.minute();
    parts.second = ky::WholeSecond(time);
    parts.nanoseconds = ky::HundredthsOf(time) * kNanosecondsPerHundredth;
}

d_Date DateOf(const DateTimeParts& parts) {
    return {static_cast<short>(parts.year), static_cast<unsigned short>(parts.month),
            static_cast<unsigned short>(parts.day)};
}

/// In the zone of `before`.
d_Time TimeOf(const DateTimeParts& parts, const d_Time& before) {
    const auto byte = [](int field) { return static_cast<signed char>(field); };
    const signed char fields[] = {
        byte(before.tz_hour()),
        byte(before.tz_minute()),
        static_cast<signed char>(static_cast<unsigned>(before.tz_hour()) + static_cast<unsigned>(parts.hour)),
        static_cast<signed char>(static_cast<unsigned>(before.tz_minute()) + static_cast<unsigned>(parts.minute)),
        byte(parts.second),
        byte(parts.nanoseconds / kNanosecondsPerHundredth),
    };
    return ky::ReadOdmgTime(fields);
}

/// Monday is 0 to the printer.
int OdmgWeekday(const DateTimeParts& parts) { return (DateOf(parts).day_of_week() + 6) % 7; }

constexpr ky::DatePrintRules kOdmgDatePrint = {OdmgWeekday, true};

/// A row's format as it is at the time, or, when that was taken away, its own.
const char* FormatOf(const KyTypeTab& row, const char* own) {
    return row.printFormat != nullptr ? row.printFormat : own;
}

struct DateText {
    using Value = d_Date;
    static constexpr auto* Print = &d_DatePrintToKyString;
    static constexpr auto* Scan = &d_DateScanFromKyString;
    static const char* Format() { return FormatOf(Kyd_DateTab, ky::kOdmgDateFormat); }
    static d_Date WithoutText() { return {0, 0, 0}; }

    static void Write(KyString& out, const d_Date& date, const char* format) {
        DateTimeParts parts;
        SetParts(parts, date);
        ky::PrintDateTime(out, parts, format, kOdmgDatePrint);
    }
    static d_Date Read(const DateTimeParts& parts, const d_Date&) { return DateOf(parts); }
};

struct TimeText {
    using Value = d_Time;
    static constexpr auto* Print = &d_TimePrintToKyString;
    static constexpr auto* Scan = &d_TimeScanFromKyString;
    static const char* Format() { return FormatOf(Kyd_TimeTab, ky::kOdmgTimeFormat); }
    static d_Time WithoutText() { return d_Time(0); }

    static void Write(KyString& out, const d_Time& time, const char* format) {
        DateTimeParts parts;
        SetParts(parts, time);
        ky::PrintDateTime(out, parts, format, ky::kKyDatePrint);
    }
    static constexpr auto* Read = &TimeOf;
};

struct TimestampText {
    using Value = d_Timestamp;
    static constexpr auto* Print = &d_TimestampPrintToKyString;
    static constexpr auto* Scan = &d_TimestampScanFromKyString;
    static const char* Format() { return FormatOf(Kyd_TimestampTab, ky::kOdmgTimestampFormat); }
    static d_Timestamp WithoutText() { return {d_Date(0, 0, 0), d_Time(0)}; }

    static void Write(KyString& out, const d_Timestamp& stamp, const char* format) {
        DateTimeParts parts;
        SetParts(parts, stamp.date());
        SetParts(parts, stamp.time());
        ky::PrintDateTime(out, parts, format, kOdmgDatePrint);
    }
    static d_Timestamp Read(const DateTimeParts& parts, const d_Timestamp& before) {
        return {DateOf(parts), TimeOf(parts, before.time())};
    }
};

struct IntervalText {
    using Value = d_Interval;
    static constexpr auto* Print = &d_IntervalPrintToKyString;
    static constexpr auto* Scan = &d_IntervalScanFromKyString;
    static const char* Format() { return FormatOf(Kyd_IntervalTab, ky::kOdmgIntervalFormat); }
    static d_Interval WithoutText() { return {}; }

    static void Write(KyString& out, const d_Interval& interval, const char* format) {
        const ky::DatePrintRules rules = {.weekday = ky::kKyDatePrint.weekday, .wildcards = false, .clockHours = false};
        ky::PrintDateTime(out, PartsOf(interval), format, rules);
    }
    /// A negative part makes the whole negative.
    // KEPT: total days are read as years, months and days, of which only the days count.
    static d_Interval Read(const DateTimeParts& parts, const d_Interval&) {
        const auto seconds = static_cast<float>(parts.second + parts.nanoseconds / 1e9);
        return d_Interval(parts.day, parts.hour, parts.minute, seconds);
    }

private:
    /// The minus stands on the first part that is not 0; seconds and their fraction are one.
    static DateTimeParts PartsOf(const d_Interval& interval) {
        const bool negative = interval.seconds() < 0;
        const long long count = ky::IntervalHundredths(negative ? -interval.seconds() : interval.seconds());
        const auto days = std::min<long long>(count / ky::kHundredthsPerDay, std::numeric_limits<int>::max());
        const auto part = [](long long number) { return static_cast<int>(number); };
        DateTimeParts parts;
        parts.day = part(days);
        parts.hour = part(count / 360000 % 24);
        parts.minute = part(count / 6000 % 60);
        parts.second = part(count / 100 % 60);
        parts.nanoseconds = part(count % 100 * kNanosecondsPerHundredth);
        if (!negative) return parts;
        for (int* first : {&parts.day, &parts.hour, &parts.minute}) {
            if (*first == 0) continue;
            *first = -*first;
            return parts;
        }
        parts.second = -parts.second;
        parts.nanoseconds = -parts.nanoseconds;
        return parts;
    }
};

template <class Facts>
KyString& Print(KyString& out, const void* value, const char* format) {
    Facts::Write(out, ky::ReadValue<typename Facts::Value>(value), format != nullptr ? format : Facts::Format());
    return out;
}

template <class Facts>
void* Scan(void* value, KyString& text, const char* format) {
    if (value == nullptr) return nullptr;
    DateTimeParts parts;  // stay 0 for the null print string
    const ky::DateScan scan = ky::ScanDateTime(parts, text, format != nullptr ? format : Facts::Format());
    ky::StoreAs(value, Facts::Read(parts, ky::ReadValue<typename Facts::Value>(value)));
    return scan == ky::DateScan::cut ? nullptr : value;
}

}  // namespace

KyString& d_DatePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<DateText>(out, value, format);
}
KyString& d_TimePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<TimeText>(out, value, format);
}
KyString& d_TimestampPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<TimestampText>(out, value, format);
}
KyString& d_IntervalPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<IntervalText>(out, value, format);
}

void* d_DateScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<DateText>(value, text, format);
}
void* d_TimeScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<TimeText>(value, text, format);
}
void* d_TimestampScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<TimestampText>(value, text, format);
}
void* d_IntervalScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<IntervalText>(value, text, format);
}

KyTypeConvertData* d_DateConvertToKyString(void* value, unsigned count) {
    return ky::DateConvertToKyString<DateText>(value, count);
}
KyTypeConvertData* d_TimeConvertToKyString(void* value, unsigned count) {
    return ky::DateConvertToKyString<TimeText>(value, count);
}
KyTypeConvertData* d_TimestampConvertToKyString(void* value, unsigned count) {
    return ky::DateConvertToKyString<TimestampText>(value, count);
}
KyTypeConvertData* d_IntervalConvertToKyString(void* value, unsigned count) {
    return ky::DateConvertToKyString<IntervalText>(value, count);
}

void* d_DateConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::DateConvertFromKyString<DateText>(data, count);
}
void* d_TimeConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::DateConvertFromKyString<TimeText>(data, count);
}
void* d_TimestampConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::DateConvertFromKyString<TimestampText>(data, count);
}
void* d_IntervalConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::DateConvertFromKyString<IntervalText>(data, count);
}

void* d_DateDefaultValue(unsigned count, int) { return ky::DateFromEmptyTexts<DateText>(count); }
void* d_TimeDefaultValue(unsigned count, int) { return ky::DateFromEmptyTexts<TimeText>(count); }
void* d_TimestampDefaultValue(unsigned count, int) { return ky::DateFromEmptyTexts<TimestampText>(count); }
void* d_IntervalDefaultValue(unsigned count, int) { return ky::DateFromEmptyTexts<IntervalText>(count); }
