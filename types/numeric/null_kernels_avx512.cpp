#include <immintrin.h>

#include <algorithm>

#include "null_first_other.h"
#include "null_kernels.h"
#include "null_plans.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi")))

using Vector = __m512i;

KY_KERNEL_TARGET inline Vector LoadVector(const unsigned char* from) { return _mm512_loadu_si512(from); }
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

KY_KERNEL_TARGET inline __mmask64 FirstBytes(std::size_t bytes) { return bytes == 0 ? 0 : kEveryByte >> (64 - bytes); }

void PackRest(NullLayout layout, NullOrder order, unsigned char* to, const unsigned char* from, std::size_t count);
void UnpackRest(NullLayout layout, NullOrder order, unsigned char* to, const unsigned char* from, std::size_t count);

#include "null_kernel_loops.inl"

// No byte is touched that does not belong to the elements.

KY_KERNEL_TARGET void PackRest(NullLayout layout, NullOrder order, unsigned char* to, const unsigned char* from,
                               std::size_t count) {
    const Plan& plan = kPlans.Of(layout, order);
    const Vector index = LoadVector(plan.packIndex.data());
    const Vector limit = LoadVector(plan.flagLimit.data());
    while (count != 0) {
        const std::size_t some = std::min(count, plan.elements);
        const Vector memory = _mm512_maskz_loadu_epi8(FirstBytes(some * plan.memory), from);
        _mm512_mask_storeu_epi8(to, FirstBytes(some * plan.stored), Permute(Least(memory, limit), index));
        from += some * plan.memory;
        to += some * plan.stored;
        count -= some;
    }
}

KY_KERNEL_TARGET void UnpackRest(NullLayout layout, NullOrder order, unsigned char* to, const unsigned char* from,
                                 std::size_t count) {
    const Plan& plan = kPlans.Of(layout, order);
    const Vector numberIndex = LoadVector(plan.numberIndex.data());
    const Vector nullIndex = LoadVector(plan.nullIndex.data());
    const Vector null = LoadVector(plan.null.data());
    while (count != 0) {
        const std::size_t some = std::min(count, plan.elements);
        const Vector stored = _mm512_maskz_loadu_epi8(FirstBytes(some * plan.stored), from);
        const Vector numbers = PermuteOrZero(stored, numberIndex);
        const Vector memory = SelectWhereOne(Permute(stored, nullIndex), null, numbers);
        _mm512_mask_storeu_epi8(to, FirstBytes(some * plan.memory), memory);
        from += some * plan.stored;
        to += some * plan.memory;
        count -= some;
    }
}

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

}  // namespace ky
