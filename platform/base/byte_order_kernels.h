#ifndef BYTE_ORDER_KERNELS_H
#define BYTE_ORDER_KERNELS_H

#include <cstddef>

namespace ky {

/// Reverses the bytes of each of `count` elements from `src` into `dst`. Neither needs alignment; they may be
/// equal but not overlap otherwise. The number in a function's name is the element's width in bytes.
using Reverse = void(unsigned char* dst, const unsigned char* src, std::size_t count);

/// Bound, when the library is loaded, to the best of the functions below that the machine can run.
Reverse ReverseBytes2, ReverseBytes4, ReverseBytes8;

/// 16 bytes at a time, on every x86-64.
Reverse ReverseBytes2Sse2, ReverseBytes4Sse2, ReverseBytes8Sse2;
/// 32 bytes at a time; needs AVX2.
Reverse ReverseBytes2Avx2, ReverseBytes4Avx2, ReverseBytes8Avx2;
/// 64 bytes at a time; needs AVX-512BW.
Reverse ReverseBytes2Avx512, ReverseBytes4Avx512, ReverseBytes8Avx512;

}  // namespace ky

#endif
