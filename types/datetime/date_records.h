#ifndef DATE_RECORDS_H
#define DATE_RECORDS_H

/// The bytes of the five date and time types. All are parts of one record:
///
///   byte         0-1   2      3    4     5       6       7        8-11
///   memory form  year  month  day  hour  minute  second  padding  nanoseconds
///
///   KyDate                   bytes 0 to 3
///   KyTime                   bytes 4 to 6
///   KyDateTime               bytes 0 to 7, stored without the padding
///   KyDateTimeN, KyTimeSpan  bytes 0 to 11, stored without the padding
///
/// Stored elements follow one another without gaps, at any address. In reversed form year and nanoseconds have their
/// highest byte first.

#include <cstddef>
#include <cstdint>

#include "date_fields.h"
#include "kydatime.h"
#include "kydatimeN.h"
#include "kytypes.h"

namespace ky {

enum class DateRecord : unsigned char { date, time, dateTime, dateTimeN };
inline constexpr std::size_t kDateRecords = 4;

enum class DateForm : unsigned char { native, reversed, memory };
inline constexpr std::size_t kDateForms = 3;

/// Of an operand to be read as it stands. Forms that nobody knows are the machine's.
constexpr DateForm DateFormOf(unsigned char flag) {
    if (IsMemoryForm(flag)) return DateForm::memory;
    return IsReversedForm(flag) ? DateForm::reversed : DateForm::native;
}
/// Of what is stored, or loaded: memory form is the other side there.
constexpr DateForm StoredFormOf(unsigned char flag) {
    return IsReversedForm(flag) ? DateForm::reversed : DateForm::native;
}

constexpr bool HasDate(DateRecord record) { return record != DateRecord::time; }
constexpr bool HasTime(DateRecord record) { return record != DateRecord::date; }
constexpr bool HasNanoseconds(DateRecord record) { return record == DateRecord::dateTimeN; }

/// Where the parts of an element stand in a form.
struct DateLayout {
    std::size_t size;         ///< bytes of an element
    std::size_t time;         ///< offset of the hour
    std::size_t nanoseconds;  ///< offset of them

    constexpr DateLayout(DateRecord record, DateForm form) : size(0), time(HasDate(record) ? 4 : 0), nanoseconds(0) {
        const std::size_t padding = form == DateForm::memory && HasDate(record) && HasTime(record) ? 1 : 0;
        nanoseconds = HasTime(record) ? time + 3 + padding : time;
        size = nanoseconds + (HasNanoseconds(record) ? 4 : 0);
    }
};

template <class Value>
constexpr DateRecord RecordOf() {
    constexpr DateRecord record = sizeof(Value) == sizeof(KyDate)       ? DateRecord::date
                                  : sizeof(Value) == sizeof(KyTime)     ? DateRecord::time
                                  : sizeof(Value) == sizeof(KyDateTime) ? DateRecord::dateTime
                                                                        : DateRecord::dateTimeN;
    static_assert(sizeof(Value) == DateLayout(record, DateForm::memory).size);
    return record;
}

/// The fields of any of the types. A part that the type does not have is 0.
struct DateFields {
    short year = 0;
    signed char month = 0;
    signed char day = 0;
    signed char hour = 0;
    signed char minute = 0;
    signed char second = 0;
    int nanoseconds = 0;
};

template <DateRecord record>
DateFields ReadFields(const unsigned char* from, DateForm form) {
    const DateLayout layout(record, form);
    const bool reversed = form == DateForm::reversed;
    const auto byte = [from](std::size_t at) { return static_cast<signed char>(from[at]); };
    DateFields fields;
    if constexpr (HasDate(record)) {
        fields.year = ReadYear(from, reversed);
        fields.month = byte(2);
        fields.day = byte(3);
    }
    if constexpr (HasTime(record)) {
        fields.hour = byte(layout.time);
        fields.minute = byte(layout.time + 1);
        fields.second = byte(layout.time + 2);
    }
    if constexpr (HasNanoseconds(record)) fields.nanoseconds = ReadNanoseconds(from + layout.nanoseconds, reversed);
    return fields;
}

/// Clears the padding, if the form has it.
template <DateRecord record>
void WriteFields(unsigned char* to, const DateFields& fields, DateForm form) {
    const DateLayout layout(record, form);
    const bool reversed = form == DateForm::reversed;
    const auto write = [to](std::size_t at, signed char field) { to[at] = static_cast<unsigned char>(field); };
    if constexpr (HasDate(record)) {
        WriteField(to, fields.year, reversed);
        write(2, fields.month);
        write(3, fields.day);
    }
    if constexpr (HasTime(record)) {
        write(layout.time, fields.hour);
        write(layout.time + 1, fields.minute);
        write(layout.time + 2, fields.second);
        if constexpr (HasDate(record)) {
            if (form == DateForm::memory) to[layout.time + 3] = 0;
        }
    }
    if constexpr (HasNanoseconds(record)) WriteField(to + layout.nanoseconds, fields.nanoseconds, reversed);
}

/// What an element adds to the hash of its array.
template <DateRecord record>
std::uint32_t HashWordOf(const DateFields& fields) {
    std::uint32_t word = static_cast<std::uint32_t>(fields.nanoseconds);
    if constexpr (HasDate(record)) word ^= DateHashWord(fields.year, fields.month, fields.day);
    if constexpr (HasTime(record)) word ^= TimeHashWord(fields.hour, fields.minute, fields.second);
    return word;
}

}  // namespace ky

#endif
