#ifndef DATE_VALUES_H
#define DATE_VALUES_H

/// The slots of dates and times that do not look into a value: arrays of them are made, assigned and given up alike.

#include "array_rules.h"
#include "counted_array.h"
#include "date_fields.h"
#include "kytypes.h"

namespace ky {

template <class Value>
struct DateValues {
    // A new array holds one default value throughout, so that its clock is read once.
    static constexpr KyCreateFunc* Create = &CountedCreate<Value>;
    static constexpr KyDeleteFunc* Delete = &CountedDelete<Value>;
    /// Does nothing to a null address.
    static void Constructor(void* values, unsigned count, unsigned) {
        if (values == nullptr) return;
        Value fresh;
        AssignArray<ValueImage<Value>>(values, &fresh, count, 1);
    }
    static void Destructor(void*, unsigned, unsigned) {}

    static constexpr KyAssignmentFunc* Assignment = &AssignArray<ValueImage<Value>>;
    /// Element by element, whatever the mode.
    static void Copy(void* dst, void* src, unsigned count, int) { AssignArray<ValueImage<Value>>(dst, src, count, 0); }

    static int IsNull(void* value) { return static_cast<const Value*>(value)->IsNullValue(); }
    static int SetNull(void* value) { return static_cast<Value*>(value)->SetNullValue(); }
};

}  // namespace ky

#endif
