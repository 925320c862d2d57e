#ifndef BYTE_SELECT_H
#define BYTE_SELECT_H

#include <emmintrin.h>

namespace ky {

/// The bytes of `a` where `mask` has all bits set, of `b` where it has none. By bits: the compiler makes of the
/// instruction for it a comparison of plain chars with 0, which never holds where those have no sign.
inline __m128i SelectBytes(__m128i mask, __m128i a, __m128i b) {
    return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
}

}  // namespace ky

#endif
