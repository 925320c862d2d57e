#ifndef BYTE_ORDER_KERNELS_H
#define BYTE_ORDER_KERNELS_H

#include <cstddef>

namespace ky {

/// Moves `count` elements from `src` to `dst`; the functions named Reverse... reverse the bytes of each on the way.
/// The number in a function's name is the element's width in bytes. Neither side needs alignment; they may be equal but
/// not overlap otherwise. Returns the bytes moved, the low 32 bits of their number.
using ArrayKernel = unsigned(unsigned char* dst, const unsigned char* src, std::size_t count);

/// Bound, when the library is loaded, to the best of the functions below that the machine can run.
ArrayKernel CopyBytes, ReverseBytes2, ReverseBytes4, ReverseBytes8;

/// 16 bytes at a time, on every x86-64.
ArrayKernel CopyBytesSse2, ReverseBytes2Sse2, ReverseBytes4Sse2, ReverseBytes8Sse2;
/// 32 bytes at a time; needs AVX2.
ArrayKernel CopyBytesAvx2, ReverseBytes2Avx2, ReverseBytes4Avx2, ReverseBytes8Avx2;
/// 64 bytes at a time; needs AVX-512BW.
ArrayKernel CopyBytesAvx512, ReverseBytes2Avx512, ReverseBytes4Avx512, ReverseBytes8Avx512;

}  // namespace ky

#endif
