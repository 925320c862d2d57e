#ifndef NULL_VALUES_H
#define NULL_VALUES_H

/// Nullable numbers in memory form: allocation, construction, null, stepping.

#include <array>
#include <bit>

#include "array_rules.h"
#include "counted_array.h"
#include "kynull.h"
#include "kytypes.h"
#include "null_order.h"
#include "number_getvalue.h"

/// All of them null; a single one, or an array behind its count.
template <class Type>
inline constexpr KyCreateFunc* KyNullTypeCreate = &ky::CountedCreate<Type>;
template <class Type>
inline constexpr KyDeleteFunc* KyNullTypeDelete = &ky::CountedDelete<Type>;
template <class Type>
inline constexpr KyDefaultValueFunc* KyNullTypeDefaultValue = &ky::CountedDefaultValue<Type>;

/// All of them null.
template <class Type>
void KyNullTypeConstructor(void* values, unsigned count, unsigned) {
    for (std::size_t i = 0; i < count; ++i) ky::StoreNullable(ky::Advance(values, i * sizeof(Type)), Type());
}

inline void KyNullTypeDestructor(void*, unsigned, unsigned) {}

/// Elements as bytes, the padding with them.
template <class Type>
inline constexpr KyAssignmentFunc* KyNullTypeAssignment = &ky::AssignArray<std::array<unsigned char, sizeof(Type)>>;
template <class Type>
inline constexpr KyCopyFunc* KyNullTypeCopy = KyNullTypeAssignment<Type>;

template <class Type>
int KyNullTypeIsNull(void* value) {
    return ky::LoadAs<Type>(value).IsNullValue();
}

template <class Type>
int KyNullTypeSetNull(void* value) {
    ky::StoreNullable(value, Type());
    return 0;
}

/// Null steps to the least value, any other as the plain number does, and is not null afterwards even where it has no
/// successor. Always one value, whatever the count; no other request is supported.
template <class Type, class Value>
int KyNullTypeGetValue(void* value, unsigned, unsigned char form, unsigned char what) {
    if (form != KyFormMemory || (what != KyValueStep && what != KyValueStepNext)) return KyErrNotSupported;
    using Plain = ky::PlainNumber<Value>;
    const auto element = ky::LoadAs<Type>(value);
    auto number = std::bit_cast<Plain>(element.Get());
    int error = 0;
    if (element.IsNullValue() != 0) {
        number = std::bit_cast<Plain>(ky::LeastValueBits<Plain>());
    } else {
        error = ky::StepNumber(number);
    }
    ky::StoreNullable(value, Type(Value(number)));
    return error;
}

#endif
