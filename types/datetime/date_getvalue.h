#ifndef DATE_GETVALUE_H
#define DATE_GETVALUE_H

/// GetValue of dates and times: stepping one value to its successor.
///
/// The step is made field by field. A value with a field out of range, a wildcard among them, has no successor; nor has
/// the last one of the type. A null value steps to the first one of the type, a null span to the span of length 0.

#include "date_fields.h"
#include "kydatime.h"
#include "kydatimeN.h"
#include "kytypes.h"

namespace ky {

// Each steps by the least unit of the type: a day, a second, a nanosecond. False, and nothing changed, when there is no
// successor.
bool StepDate(KyDate& date);
bool StepDate(KyTime& time);
bool StepDate(KyDateTime& value);
bool StepDate(KyDateTimeN& value);
/// Adds a nanosecond to fields of any kind. False when the highest year keeps the length from growing.
bool StepDate(KyTimeSpan& span);

/// What a null value steps to.
template <class Value>
Value FirstDate() {
    constexpr short firstYear = -32768;
    Value value = Value::ZeroValue();
    if constexpr (!std::is_same_v<Value, KyTime> && !std::is_same_v<Value, KyTimeSpan>) value.year = firstYear;
    return value;
}

/// The slot. Always of one value, whatever the count: stored values are stepped with a count of 0.
template <class Value>
int DateGetValue(void* value, unsigned, unsigned char form, unsigned char what) {
    if (form != KyFormMemory || (what != KyValueStep && what != KyValueStepNext)) return KyErrNotSupported;
    auto element = ReadValue<Value>(value);
    if (element.IsNullValue() != 0) {
        element = FirstDate<Value>();
    } else if (!StepDate(element)) {
        return KyErrNoSuccessor;
    }
    StoreAs(value, element);
    return 0;
}

}  // namespace ky

#endif
