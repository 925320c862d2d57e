#ifndef COMPARED_RECORDS_H
#define COMPARED_RECORDS_H

/// The comparison of the string row on values, and on records in whole and in part.

#include <span>
#include <vector>

#include "kystring.h"
#include "kystring_rows.h"
#include "kystring_slots.h"
#include "kytypes.h"
#include "oracle/slow_string_order.h"
#include "support/guarded_buffer.h"

inline constexpr unsigned short kWild = 0;
inline constexpr unsigned short kExact = 0x100;

inline slow::Outcome Compared(const KyTypeTab& row, unsigned char flag, unsigned len1, const void* a, unsigned len2,
                              const void* b, unsigned short op, unsigned count = 1) {
    slow::Outcome out{0, 77};
    out.sign = row.Compare(flag, len1, const_cast<void*>(a), len2, const_cast<void*>(b), op, count, out.err);
    return out;
}

inline std::vector<unsigned char> RecordOf(const KyString& s, unsigned char form) {
    return Stored(KyStringTab, &s, 1, form);
}

/// What the first `length` bytes of the records compare like, against an inaccessible page; 0: all of them, their
/// lengths not given.
inline slow::Outcome ComparedParts(const std::vector<unsigned char>& a, unsigned lengthA,
                                   const std::vector<unsigned char>& b, unsigned lengthB, unsigned short op,
                                   unsigned char flag, unsigned count = 1) {
    const auto part = [](const std::vector<unsigned char>& record, unsigned length) {
        return std::span(record.data(), length != 0 ? length : record.size());
    };
    GuardedBuffer partA(part(a, lengthA));
    GuardedBuffer partB(part(b, lengthB));
    return Compared(KyStringTab, flag, lengthA, partA.data(), lengthB, partB.data(), op, count);
}

#endif
