#include <immintrin.h>

#include <algorithm>

#include "null_first_other.h"
#include "null_hash_words.h"
#include "null_kernels.h"
#include "null_plans.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi")))

using Vector = __m512i;
using Plan = NullPlan<sizeof(Vector)>;

/// Once for all: two permutations that read memory would both pay for the lines of the cache that it crosses.
KY_KERNEL_TARGET inline Vector LoadVector(const unsigned char* from) {
    Vector vector = _mm512_loadu_si512(from);
    asm("" : "+v"(vector));
    return vector;
}
KY_KERNEL_TARGET inline void StoreVector(unsigned char* to, Vector vector) { _mm512_storeu_si512(to, vector); }

// The forms with a mask have no indeterminate operand, which the headers of the plain ones are warned about.
constexpr __mmask64 kEveryByte = ~__mmask64{0};

KY_KERNEL_TARGET inline Vector Permute(Vector vector, Vector index) {
    return _mm512_maskz_permutexvar_epi8(kEveryByte, index, vector);
}
KY_KERNEL_TARGET inline Vector PermuteOrZero(Vector vector, Vector index) {
    return _mm512_maskz_permutexvar_epi8(~_mm512_movepi8_mask(index), index, vector);
}
KY_KERNEL_TARGET inline Vector Least(Vector a, Vector b) { return _mm512_maskz_min_epu8(kEveryByte, a, b); }
KY_KERNEL_TARGET inline Vector SelectWhereOne(Vector selector, Vector a, Vector b) {
    return _mm512_mask_mov_epi8(b, _mm512_cmpeq_epi8_mask(selector, _mm512_set1_epi8(1)), a);
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

template <class Step>
KY_KERNEL_TARGET inline void PackRest(NullLayout, NullOrder, const Plan& plan, const Step& step, unsigned char* to,
                                      const unsigned char* from, std::size_t count) {
    MoveByMask(step, to, plan.stored, from, plan.memory, plan.elements, count);
}
template <class Step>
KY_KERNEL_TARGET inline void UnpackRest(NullLayout, NullOrder, const Plan& plan, const Step& step, unsigned char* to,
                                        const unsigned char* from, std::size_t count) {
    MoveByMask(step, to, plan.memory, from, plan.stored, plan.elements, count);
}

#include "null_kernel_loops.inl"

}  // namespace

KY_KERNEL_TARGET void PackNullablesAvx512(NullLayout layout, NullOrder order, void* dst, const void* src,
                                          std::size_t count) {
    Pack(layout, order, dst, src, count);
}

KY_KERNEL_TARGET void UnpackNullablesAvx512(NullLayout layout, NullOrder order, void* dst, const void* src,
                                            std::size_t count) {
    Unpack(layout, order, dst, src, count);
}

KY_KERNEL_TARGET std::size_t FirstOtherNullableAvx512(NullLayout layout, const void* a, const void* b,
                                                      std::size_t count) {
    return detail::FirstOtherNullableText(layout, a, b, count);
}

KY_KERNEL_TARGET std::uint32_t HashNullablesAvx512(NullLayout layout, bool bothHalves, const void* data,
                                                   std::size_t count) {
    return detail::HashNullablesText(layout, bothHalves, data, count);
}

}  // namespace ky
