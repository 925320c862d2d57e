#ifndef DATE_ROSTER_H
#define DATE_ROSTER_H

#include <ostream>
#include <string>
#include <vector>

#include "kytypes.h"
#include "oracle/slow_dates.h"

using ByteVector = std::vector<unsigned char>;

/// A date or time type and what its values have.
struct DateType {
    char id;
    KyTypeTab* row;
    SlowDateShape shape;

    std::string Name() const { return row->typeName; }
    std::size_t Memory() const { return SlowDateSize(shape, KyFormMemory); }
    std::size_t Stored() const { return SlowDateSize(shape, KyFormNative); }
};

inline void PrintTo(const DateType& type, std::ostream* out) { *out << type.Name(); }

/// All five, by id.
const std::vector<DateType>& DateTypes();

/// The flags of the three forms, and odd ones that name one of them.
inline constexpr unsigned char kDateFlags[] = {KyFormMemory, KyFormNative, KyFormReversed, 0, 0x82, 0x18, 4, 9, 10};

/// Telling fields, from which the types take their own: the least and the largest, null, zero, leap days, wildcards.
const std::vector<SlowDate>& DateSamples();

/// Values in a form, one behind the other; padding, if any, is `padding`.
ByteVector DatesInForm(const DateType& type, const std::vector<SlowDate>& values, unsigned char flag,
                       unsigned char padding = 0);
inline ByteVector DateInForm(const DateType& type, const SlowDate& value, unsigned char flag,
                             unsigned char padding = 0) {
    return DatesInForm(type, {value}, flag, padding);
}

/// The fields with those that the type lacks set to 0.
SlowDate OwnFields(const DateType& type, const SlowDate& value);

#endif
