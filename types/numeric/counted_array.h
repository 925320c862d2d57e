#ifndef COUNTED_ARRAY_H
#define COUNTED_ARRAY_H

/// Create, Delete and DefaultValue of types that are classes of their own: a count below 2 is a single object, more
/// are an array behind its count, 8 bytes.

#include <cstddef>
#include <memory>
#include <new>

#include "raw_bytes.h"

namespace ky {

inline constexpr std::size_t kCountHeader = sizeof(std::size_t);

/// Objects as one is default-constructed: one, at the least. Null when there is no memory; what a constructor throws
/// goes on to the caller.
template <class Object>
void* CountedCreate(unsigned count) {
    static_assert(alignof(Object) <= kCountHeader);
    if (count < 2) return new (std::nothrow) Object();
    struct Release {
        void operator()(void* memory) const { ::operator delete(memory); }
    };
    std::unique_ptr<void, Release> block(::operator new(kCountHeader + count * sizeof(Object), std::nothrow));
    if (block == nullptr) return nullptr;
    StoreAs<std::size_t>(block.get(), count);
    unsigned char* values = Advance(block.get(), kCountHeader);
    std::uninitialized_fill_n(reinterpret_cast<Object*>(values), count, Object());
    static_cast<void>(block.release());
    return values;
}

/// With the same count. A null pointer is ignored. Returns 0.
template <class Object>
int CountedDelete(void* values, unsigned count) {
    if (values == nullptr) return 0;
    if (count < 2) {
        delete static_cast<Object*>(values);
    } else {
        std::destroy_n(static_cast<Object*>(values), count);
        ::operator delete(static_cast<unsigned char*>(values) - kCountHeader);
    }
    return 0;
}

template <class Object>
void* CountedDefaultValue(unsigned count, int) {
    return CountedCreate<Object>(count);
}

}  // namespace ky

#endif
