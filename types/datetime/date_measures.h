#ifndef DATE_MEASURES_H
#define DATE_MEASURES_H

/// EvalAndBound of the five date and time types: what their values measure.

#include "date_bounds.h"
#include "date_records.h"
#include "date_store.h"
#include "number_bounds.h"

namespace ky {

/// Nanoseconds of a whole record need more than 64 bits.
__extension__ using DateMeasure = __int128;

/// Days by the calendar.
constexpr long long MeasureOf(const KyDate& date) { return date.dayabs(); }
/// Seconds.
constexpr long long MeasureOf(const KyTime& time) { return static_cast<int>(time); }
/// Seconds, by months of 31 days.
constexpr long long MeasureOf(const KyDateTime& value) {
    const long long days = (value.year * 12LL + value.month) * 31 + value.day;
    return ((days * 24 + value.hour) * 60 + value.minute) * 60 + value.second;
}
/// Nanoseconds, by months of 31 days.
constexpr DateMeasure MeasureOf(const KyDateTime_& value) {
    return DateMeasure{MeasureOf(value.DateTime())} * 1000000000 + value.nanoseconds;
}

constexpr bool HasWildcard(const DateFields& fields) {
    return fields.year == kWildcardField || fields.month == kWildcardField || fields.day == kWildcardField ||
           fields.hour == kWildcardField || fields.minute == kWildcardField || fields.second == kWildcardField ||
           fields.nanoseconds == kWildcardField;
}

/// One stored value.
template <class Value>
Value LoadDate(const void* from, bool reversed) {
    ValueImage<Value> image;
    DateLoad<Value>(&image, from, reversed ? KyFormReversed : KyFormNative, 1);
    return std::bit_cast<Value>(image);
}

template <class Value>
struct DateBoundsFacts {
    // KEPT: dates keep a bit that the others drop; engines see it in the word that comes back.
    static constexpr unsigned short kRelations = RecordOf<Value>() == DateRecord::date ? 0x800F : 0x8007;
    static constexpr std::size_t kStored = kStoredDate<Value>;

    static bool HasWildcard(const unsigned char* element, bool reversed) {
        return ky::HasWildcard(ReadFields<RecordOf<Value>()>(element, StoredFormOf(FlagOf(reversed))));
    }
    static double Measure(const unsigned char* element, bool reversed) {
        return static_cast<double>(MeasureOf(LoadDate<Value>(element, reversed)));
    }

private:
    static constexpr unsigned char FlagOf(bool reversed) { return reversed ? KyFormReversed : KyFormNative; }
};

/// The share by differences from the lower limit, which are exact: doubles could not tell single nanoseconds of a date
/// apart. A range that measures 0 although a key in it can be meant counts as one key, as with 64-bit integers.
template <class Value>
float NanosecondShare(unsigned short op, const void* value, const void* lower, const void* upper, bool reversed) {
    const auto measure = [reversed](const void* limit) {
        return limit != nullptr ? MeasureOf(LoadDate<Value>(limit, reversed)) : DateMeasure{0};
    };
    const DateMeasure from = measure(lower);
    const DateMeasure to = measure(upper);
    const DateMeasure constant = measure(value);
    const auto span = static_cast<double>(to - from);
    const auto place = static_cast<double>(constant - from);
    double kept = CalcRange(op, place, place, 0, span, kKeyUnit);
    if (kept == 0 && KeepsOneKey(op, constant, from, to)) kept = kKeyUnit;
    return ShareOf(kept, span + kKeyUnit);
}

/// The slot.
template <class Value>
constexpr KyEvalAndBoundFunc* DateEvalAndBound() {
    if constexpr (HasNanoseconds(RecordOf<Value>())) {
        return &MeasuredEvalAndBound<DateBoundsFacts<Value>, &NanosecondShare<Value>>;
    } else {
        return &MeasuredEvalAndBound<DateBoundsFacts<Value>>;
    }
}

}  // namespace ky

#endif
