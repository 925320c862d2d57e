#ifndef DATE_ORDER_H
#define DATE_ORDER_H

/// Compare and Hash of dates and times.
///
/// Both work on raw bytes as long as they can: equal bytes are equal elements, wildcards among them or not.

#include <cstddef>

#include "date_arrays.h"
#include "date_kernels.h"
#include "date_records.h"
#include "kytypes.h"

namespace ky {

/// Of stored elements: -1, 0 or 1 by the first field that differs.
// KEPT: wildcards count in the second operand only, the constant of a query; in memory form in both.
template <DateRecord record>
int CompareStoredDates(const DateFields& a, const DateFields& b, bool exact) {
    int result = 0;
    const auto decides = [&result, exact](int x, int y) {
        if (!exact && y == kWildcardField) return false;
        result = Order(x, y);
        return result != 0;
    };
    if constexpr (HasDate(record)) {
        if (decides(a.year, b.year) || decides(a.month, b.month) || decides(a.day, b.day)) return result;
    }
    if constexpr (HasTime(record)) {
        if (decides(a.hour, b.hour) || decides(a.minute, b.minute) || decides(a.second, b.second)) return result;
    }
    if constexpr (HasNanoseconds(record)) decides(a.nanoseconds, b.nanoseconds);
    return result;
}

template <class Value>
int CompareStoredArrays(unsigned char flag, unsigned len1, const void* a, unsigned len2, const void* b, bool exact,
                        unsigned count, int& err) {
    constexpr DateRecord record = RecordOf<Value>();
    const DateForm form = StoredFormOf(flag);
    return CompareDateArrays(DateLayout(record, form).size, len1, a, len2, b, count, err,
                             [form, exact](const void* x, const void* y) {
                                 return CompareStoredDates<record>(ReadFields<record>(Advance(x, 0), form),
                                                                   ReadFields<record>(Advance(y, 0), form), exact);
                             });
}

/// The slot. In memory form the result is that of the class's own comparison.
template <class Value>
int DateCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
                int& err) {
    if (!IsMemoryForm(flag)) {
        return CompareStoredArrays<Value>(flag, len1, a, len2, b, (op & KyCmpExact) != 0, count, err);
    }
    constexpr DateRecord record = RecordOf<Value>();
    const auto compare = [op](const void* x, const void* y) {
        return ReadValue<Value>(x).Compare(ReadValue<Value>(y), op);
    };
    if constexpr (HasDate(record) && HasTime(record)) {
        return CompareDateArrays(
            sizeof(Value), len1, a, len2, b, count, err, compare,
            [](const void* x, const void* y, std::size_t elements) { return FirstOtherDate(record, x, y, elements); });
    } else {
        return CompareDateArrays(sizeof(Value), len1, a, len2, b, count, err, compare);
    }
}

/// The slot. Frozen, persistent: indexes on disk depend on it.
// KEPT: multiplied once for the whole array, so that two equal elements hash to 0.
template <class Value>
unsigned DateHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    constexpr DateRecord record = RecordOf<Value>();
    const DateForm form = DateFormOf(flag);
    err = 0;
    if (count == 1) return kHashFactor * HashWordOf<record>(ReadFields<record>(Advance(data, 0), form));
    if (count == 0) return 0;
    const std::size_t visited = ElementsThatFit(len, DateLayout(record, form).size, count);
    err = BufferEndError(visited, visited, count);
    return kHashFactor * HashDates(record, form, data, visited);
}

}  // namespace ky

#endif
