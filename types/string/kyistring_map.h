#ifndef KYISTRING_MAP_H
#define KYISTRING_MAP_H

/// The dictionary order of the case-insensitive string types: what a byte of 8-bit text is compared by. Frozen: keys
/// are what indexes hold.

#include "kyexport.h"

/// The key of a byte in disk form. `extra` becomes 0, 1 to 8 for an accent (the key is that of the letter without it),
/// or, from 9 on, a second key: the byte counts as two letters. Any thread.
///   lower-case letters just before their upper-case ones:     'a' -> 4E, 'A' -> 54, 9C -> 8A and 64
KY_EXPORT unsigned char _KyIMapByte(unsigned char c, unsigned char& extra);
///   lower and upper case alike:                               'a' -> 54, 'A' -> 54, 9C -> 90 and 69
KY_EXPORT unsigned char _KyCaseIMapByte(unsigned char c, unsigned char& extra);

#endif
