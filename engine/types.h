#ifndef ENGINE_TYPES_H
#define ENGINE_TYPES_H

/// The type manager by which the store reaches all values.

#include "kytypmgr.h"

namespace engine {

inline KyTypeMgr& Types() {
    static constexpr unsigned newArray = 5;
    static KyTypeMgr manager(newArray);
    return manager;
}

}  // namespace engine

#endif
