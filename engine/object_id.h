#ifndef ENGINE_OBJECT_ID_H
#define ENGINE_OBJECT_ID_H

/// Identifiers of objects: the block is the place of the object's class in the schema, counted from 1; H and L are the
/// high and the low bits of its number in the class.

#include <optional>

#include "kyobjid.h"
#include "store.h"

namespace engine {

inline KyObjId ObjectId(std::size_t classAt, ObjectNumber number) {
    return {static_cast<unsigned>(classAt + 1), static_cast<unsigned>(number),
            static_cast<unsigned short>(number >> 32U)};
}

/// None for the block 0, in which no object lies.
inline std::optional<std::size_t> ClassOf(const KyObjId& id) {
    if (id.B == 0) return std::nullopt;
    return id.B - 1;
}

inline ObjectNumber NumberOf(const KyObjId& id) { return ObjectNumber{id.H} << 32U | id.L; }

}  // namespace engine

#endif
