#ifndef STRING_COMPARE_H
#define STRING_COMPARE_H

/// Comparison of two texts key by key, without wildcards.

#include "code_sets.h"
#include "key_reader.h"

namespace ky {

/// A zero-terminated text (null: empty) and how to read it. `format` 2: 16-bit units have their bytes swapped.
struct TextView {
    const char* text;
    unsigned char codeSet;
    unsigned char language;
    unsigned char format;
};

/// The difference of the first keys that differ under `mask` among the first `limit`, or 0.
int CompareKeys(const TextView& a, const TextView& b, unsigned limit, unsigned mask);

}  // namespace ky

#endif
