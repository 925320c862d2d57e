#ifndef NULL_ROSTER_H
#define NULL_ROSTER_H

#include "number_roster.h"
#include "oracle/slow_nulls.h"

/// A nullable number type: the plain type of its numbers and how it lies in memory.
struct NullType {
    int id;
    KyTypeTab* row;
    int plainId;  ///< its order and its samples are those of this type
    SlowNullShape shape;
    KyTypeTab* hashedAs;
    const char* typeCodeName;
    const char* printFormat;

    std::string name() const { return row->typeName; }
    const NumberType& Plain() const;
};

inline void PrintTo(const NullType& type, std::ostream* out) { *out << type.name(); }

/// All thirteen, by id.
const std::vector<NullType>& NullTypes();

/// An element in memory form: the number's bytes, the flag, and padding of some content.
ByteVector NullElementOf(const NullType& type, const ByteVector& number, unsigned char flag, unsigned char padding = 0);

/// The telling elements, ascending: nulls (rank -1) of several flags, numbers and paddings, then the plain samples.
std::vector<NumberSample> NullSamples(const NullType& type);

/// Memory-form elements, one behind the other, as `flag` stores them; as they stand in memory form itself.
ByteVector NullsInForm(const NullType& type, const ByteVector& memory, unsigned char flag);

#endif
