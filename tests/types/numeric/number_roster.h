#ifndef NUMBER_ROSTER_H
#define NUMBER_ROSTER_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "kytypes.h"

using ByteVector = std::vector<unsigned char>;

/// A value and its place in the order: equal ranks compare equal.
struct NumberSample {
    int rank;
    ByteVector memory;
};

/// A plain number type and its telling values in ascending order.
struct NumberType {
    int id;
    KyTypeTab* row;
    unsigned width;
    bool isSigned;
    bool floating;
    std::vector<NumberSample> samples;

    std::string name() const { return row->typeName; }
};

inline void PrintTo(const NumberType& type, std::ostream* out) { *out << type.name(); }

/// All fourteen, by id.
const std::vector<NumberType>& NumberTypes();

template <class T>
ByteVector BytesOfValue(T value) {
    ByteVector bytes(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

/// The bytes of memory-form values in the form that `flag` names.
inline ByteVector InForm(ByteVector memory, unsigned width, unsigned char flag) {
    if ((flag & 15) == 2) {
        for (auto at = memory.begin(); at != memory.end(); at += width) std::reverse(at, at + width);
    }
    return memory;
}

/// The three forms that are decoded, forms that are left to the base library, and forms with the type's own bits.
inline constexpr unsigned char kFlags[] = {1, 2, 8, 0, 3, 4, 5, 7, 9, 10, 15, 0x81, 0x82, 0x88, 0x12, 0xF2, 0xFF};

#endif
