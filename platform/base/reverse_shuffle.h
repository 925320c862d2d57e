#ifndef REVERSE_SHUFFLE_H
#define REVERSE_SHUFFLE_H

#include <emmintrin.h>

namespace ky {

/// The operand of a byte shuffle that reverses each element of 16 bytes: byte i comes from i ^ (Width - 1).
template <unsigned Width>
inline __m128i ReverseShuffle() {
    constexpr int m = Width - 1;
    return _mm_setr_epi8(0 ^ m, 1 ^ m, 2 ^ m, 3 ^ m, 4 ^ m, 5 ^ m, 6 ^ m, 7 ^ m, 8 ^ m, 9 ^ m, 10 ^ m, 11 ^ m, 12 ^ m,
                         13 ^ m, 14 ^ m, 15 ^ m);
}

}  // namespace ky

#endif
