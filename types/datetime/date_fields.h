#ifndef DATE_FIELDS_H
#define DATE_FIELDS_H

/// The fields of dates and times in their stored forms, and what they add to a hash.
///
/// Single bytes are stored as they stand, signed. Years are 16-bit numbers, nanoseconds 32-bit ones, of any address.

#include <bit>
#include <cstdint>

#include "kytypes.h"
#include "number_bits.h"
#include "raw_bytes.h"

namespace ky {

/// A value in memory form as bytes. What is read or assigned so runs no constructor, which may ask the clock.
template <class Value>
struct ValueImage {
    alignas(Value) unsigned char bytes[sizeof(Value)];
};

template <class Value>
Value ReadValue(const void* from) {
    return std::bit_cast<Value>(LoadAs<ValueImage<Value>>(from));
}

/// The one form in which years and nanoseconds have their bytes reversed. Any other persistent form is the machine's.
constexpr bool IsReversedForm(unsigned char flag) { return (flag & KyFormMask) == KyFormReversed; }
constexpr bool IsMemoryForm(unsigned char flag) { return (flag & KyFormMask) == KyFormMemory; }

/// A field that stands for any value in comparisons that are not exact, in every byte of it.
inline constexpr int kWildcardField = -1;

template <class Number>
Number ReadField(const void* from, bool reversed) {
    const auto bits = LoadAs<BitsOf<Number>>(from);
    return static_cast<Number>(reversed ? ByteSwap(bits) : bits);
}
template <class Number>
void WriteField(void* to, Number number, bool reversed) {
    const auto bits = static_cast<BitsOf<Number>>(number);
    StoreAs(to, reversed ? ByteSwap(bits) : bits);
}

inline short ReadYear(const void* from, bool reversed) { return ReadField<short>(from, reversed); }
inline int ReadNanoseconds(const void* from, bool reversed) { return ReadField<int>(from, reversed); }

// Frozen, persistent: indexes on disk depend on them.
// KEPT: bytes are widened with their sign, so that negative ones borrow from the field above them.
constexpr std::uint32_t DateHashWord(short year, signed char month, signed char day) {
    return (static_cast<std::uint32_t>(static_cast<std::uint16_t>(year)) << 16) +
           (static_cast<std::uint32_t>(month) << 8) + static_cast<std::uint32_t>(day);
}
constexpr std::uint32_t TimeHashWord(signed char hour, signed char minute, signed char second) {
    return (static_cast<std::uint32_t>(hour) << 16) + (static_cast<std::uint32_t>(minute) << 8) +
           static_cast<std::uint32_t>(second);
}

}  // namespace ky

#endif
