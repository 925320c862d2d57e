// Registers whose bytes can be permuted, with AVX-512. Included inside an unnamed namespace, behind <immintrin.h>.
//
//   KY_KERNEL_TARGET          the function attribute that selects the instruction set
//   Vector                    its widest register whose bytes can be permuted
//   LoadVector, StoreVector   unaligned access
//   LoadOperand               the same for a vector that is used once
//   Permute(vector, index)    the bytes that the index names
//   PermuteOrZero             the same with zeros where the index has its highest bit set

#define KY_KERNEL_TARGET __attribute__((target("avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi")))

using Vector = __m512i;

/// Once for all: two permutations that read memory would both pay for the lines of the cache that it crosses.
KY_KERNEL_TARGET inline Vector LoadVector(const unsigned char* from) {
    Vector vector = _mm512_loadu_si512(from);
    asm("" : "+v"(vector));
    return vector;
}
/// For one operation alone, which may read it as an operand in memory.
KY_KERNEL_TARGET inline Vector LoadOperand(const unsigned char* from) { return _mm512_loadu_si512(from); }
KY_KERNEL_TARGET inline void StoreVector(unsigned char* to, Vector vector) { _mm512_storeu_si512(to, vector); }

// The forms with a mask have no indeterminate operand, which the headers of the plain ones are warned about.
constexpr __mmask64 kEveryByte = ~__mmask64{0};

KY_KERNEL_TARGET inline Vector Permute(Vector vector, Vector index) {
    return _mm512_maskz_permutexvar_epi8(kEveryByte, index, vector);
}
KY_KERNEL_TARGET inline Vector PermuteOrZero(Vector vector, Vector index) {
    return _mm512_maskz_permutexvar_epi8(~_mm512_movepi8_mask(index), index, vector);
}

/// Of at least one byte.
constexpr __mmask64 FirstBytes(std::size_t bytes) { return kEveryByte >> (sizeof(Vector) - bytes); }

/// No byte is touched that does not belong to the elements.
template <class Step>
KY_KERNEL_TARGET inline void MoveByMask(const Step& step, unsigned char* to, std::size_t toSize,
                                        const unsigned char* from, std::size_t fromSize, std::size_t elements,
                                        std::size_t count) {
    while (count != 0) {
        const std::size_t some = std::min(count, elements);
        const Vector vector = _mm512_maskz_loadu_epi8(FirstBytes(some * fromSize), from);
        _mm512_mask_storeu_epi8(to, FirstBytes(some * toSize), step.Of(vector));
        from += some * fromSize;
        to += some * toSize;
        count -= some;
    }
}

#include "byte_moves.inl"
