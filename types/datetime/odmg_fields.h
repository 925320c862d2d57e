#ifndef ODMG_FIELDS_H
#define ODMG_FIELDS_H

/// Stored and memory-form bytes as values of the ODMG classes, and what these add to a hash.
///
/// Stored form: the fields of the memory form, back to back, which has no padding; only the years have a byte order.

#include <array>
#include <bit>
#include <cstdint>

#include "date_fields.h"
#include "kyodmg.h"
#include "kytypes.h"
#include "raw_bytes.h"

namespace ky {

// Bytes of one element, in every form.
inline constexpr std::size_t kOdmgDateBytes = 4;
inline constexpr std::size_t kOdmgTimeBytes = 6;
inline constexpr std::size_t kOdmgTimestampBytes = 10;

inline d_Date ReadOdmgDate(const void* from, bool reversed) {
    const unsigned char* bytes = Advance(from, 0);
    return {ReadYear(from, reversed), bytes[2], bytes[3]};
}

inline d_Time ReadOdmgTime(const void* from) { return ReadValue<d_Time>(from); }

inline d_Timestamp ReadOdmgTimestamp(const void* from, bool reversed) {
    return {ReadOdmgDate(from, reversed), ReadOdmgTime(Advance(from, kOdmgDateBytes))};
}

constexpr signed char TimeByte(const d_Time& time, std::size_t index) {
    return std::bit_cast<std::array<signed char, kOdmgTimeBytes>>(time)[index];
}
constexpr int WholeSecond(const d_Time& time) { return TimeByte(time, 4); }
constexpr int HundredthsOf(const d_Time& time) { return TimeByte(time, 5); }

constexpr int LocalSecondOfDay(const d_Time& time) {
    return (time.hour() * 60 + time.minute()) * 60 + WholeSecond(time);
}

// Frozen, persistent: indexes on disk depend on them.
constexpr std::uint32_t HashWordOf(const d_Date& date) { return static_cast<std::uint32_t>(date.getAbsDate()); }
/// Without the seconds: times less than a second apart are equal and have to hash alike.
constexpr std::uint32_t HashWordOf(const d_Time& time) {
    return (static_cast<std::uint32_t>(static_cast<std::uint16_t>(time.hour())) << 16) +
           static_cast<std::uint16_t>(time.minute());
}
constexpr std::uint32_t HashWordOf(const d_Timestamp& stamp) {
    return HashWordOf(stamp.date()) ^ HashWordOf(stamp.time());
}

}  // namespace ky

#endif
