#ifndef OBJECT_SLOTS_H
#define OBJECT_SLOTS_H

/// The slots by which arrays of objects are made, assigned and given up.

#include <memory>
#include <new>

namespace ky {

template <class Object>
struct ObjectSlots {
    /// Null when there is no memory.
    static void* Create(unsigned count) { return new (std::nothrow) Object[count]; }
    static void* DefaultValue(unsigned count, int) { return Create(count); }
    static int Delete(void* values, unsigned) {
        delete[] static_cast<Object*>(values);
        return 0;
    }
    static void Constructor(void* values, unsigned count, unsigned) {
        std::uninitialized_default_construct_n(static_cast<Object*>(values), count);
    }
    static void Destructor(void* values, unsigned count, unsigned) {
        std::destroy_n(static_cast<Object*>(values), count);
    }
    static void Assignment(void* dst, void* src, unsigned count, int mode) {
        auto* to = static_cast<Object*>(dst);
        const auto* from = static_cast<const Object*>(src);
        for (unsigned i = 0; i < count; ++i) to[i] = from[mode == 0 ? i : 0];
    }
    /// Where a copy throws, those in front of it are destroyed.
    static void Copy(void* dst, void* src, unsigned count, int mode) {
        auto* to = static_cast<Object*>(dst);
        const auto* from = static_cast<const Object*>(src);
        if (mode == 0) {
            std::uninitialized_copy_n(from, count, to);
        } else if (count != 0) {
            std::uninitialized_fill_n(to, count, *from);
        }
    }
};

}  // namespace ky

#endif
