// Registers whose bytes can be permuted, with AVX2. Included inside an unnamed namespace, behind <immintrin.h>.
//
//   KY_KERNEL_TARGET          the function attribute that selects the instruction set
//   Vector                    its widest register whose bytes can be permuted
//   LoadVector, StoreVector   unaligned access
//   LoadOperand               the same for a vector that is used once
//   Permute(vector, index)    the bytes that the index names
//   PermuteOrZero             the same with zeros where the index has its highest bit set

#define KY_KERNEL_TARGET __attribute__((target("avx2")))

/// Bytes are permuted within 16 of them only.
using Vector = __m128i;

KY_KERNEL_TARGET inline Vector LoadVector(const unsigned char* from) {
    return _mm_loadu_si128(reinterpret_cast<const Vector*>(from));
}
KY_KERNEL_TARGET inline Vector LoadOperand(const unsigned char* from) { return LoadVector(from); }
KY_KERNEL_TARGET inline void StoreVector(unsigned char* to, Vector vector) {
    _mm_storeu_si128(reinterpret_cast<Vector*>(to), vector);
}
KY_KERNEL_TARGET inline Vector Permute(Vector vector, Vector index) { return _mm_shuffle_epi8(vector, index); }
KY_KERNEL_TARGET inline Vector PermuteOrZero(Vector vector, Vector index) { return _mm_shuffle_epi8(vector, index); }

#include "byte_moves.inl"
