#ifndef CLASS_MAP_H
#define CLASS_MAP_H

/// The characters of an 8-bit code set in groups that a comparison takes for the same, so that texts are compared as
/// bytes.

#include "key_table.h"
#include "translate_bytes.h"

namespace ky {

struct ClassMap {
    /// The group of characters that do not rank alone whatever their neighbours are.
    static constexpr unsigned char kUnclear = 255;

    ByteMap groups;      ///< by character; 0 for the terminator
    unsigned keys[256];  ///< by group: the masked key of its characters
};

/// Of a language's characters under a mask of `KeyMask`; null when memory fails. Made when first asked for, kept as
/// long as the process lives. Any thread.
const ClassMap* ClassMapOf(const KeyTable& table, unsigned mask);

}  // namespace ky

#endif
