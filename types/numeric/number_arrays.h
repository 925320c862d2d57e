#ifndef NUMBER_ARRAYS_H
#define NUMBER_ARRAYS_H

/// Arrays of plain numbers in memory form: allocation, construction, sizes.

#include <new>

#include "kytypes.h"
#include "number_facts.h"
#include "raw_bytes.h"

namespace ky {

/// Array of `count` elements, contents undefined; null when there is no memory. A count of 0 gives a valid pointer.
/// Everything that hands numbers to a caller allocates here, because one Delete frees them all.
template <class Facts>
void* NumberCreate(unsigned count) {
    return ::operator new[](count * sizeof(typename Facts::Element), std::nothrow);
}

template <class Facts>
void* NumberCreateZeros(unsigned count) {
    void* values = NumberCreate<Facts>(count);
    if (values != nullptr) ZeroBytes(values, count * sizeof(typename Facts::Element));
    return values;
}

/// Of any type, because rows free with one type's function what another type's function made.
inline int NumberDelete(void* values, unsigned) {
    ::operator delete[](values);
    return 0;
}

/// The value of an empty text, which is 0 in every number type.
template <class Facts>
void* NumberDefaultValue(unsigned count, int) {
    return NumberCreateZeros<Facts>(count);
}

template <class Facts>
void NumberConstructor(void* values, unsigned count, unsigned) {
    ZeroBytes(values, count * sizeof(typename Facts::Element));
}

inline void NumberDestructor(void*, unsigned, unsigned) {}

/// The file is not read: the sizes are the same for every value. With the element's own width.
template <class Facts>
unsigned WidthFromMemFile(MemFile*, unsigned char, unsigned count) {
    return static_cast<unsigned>(count * sizeof(typename Facts::Element));
}

/// With the width that the base library gives for the form.
template <class Facts>
unsigned FormSizeFromMemFile(MemFile*, unsigned char flag, unsigned count) {
    return Facts::SizeGet(nullptr, KyFormMemory, flag & KyFormMask, count);
}

/// The same, the type's bits of the flag included.
template <class Facts>
unsigned FlagSizeFromMemFile(MemFile*, unsigned char flag, unsigned count) {
    return Facts::SizeGet(nullptr, KyFormMemory, flag, count);
}

}  // namespace ky

#endif
