#include <immintrin.h>

#include <algorithm>

#include "null_first_other.h"
#include "null_hash_words.h"
#include "null_kernels.h"
#include "null_plans.h"

namespace ky {
namespace {

#include "byte_vectors_avx512.inl"

using Plan = NullPlan<sizeof(Vector)>;

KY_KERNEL_TARGET inline Vector Least(Vector a, Vector b) { return _mm512_maskz_min_epu8(kEveryByte, a, b); }
KY_KERNEL_TARGET inline Vector SelectWhereOne(Vector selector, Vector a, Vector b) {
    return _mm512_mask_mov_epi8(b, _mm512_cmpeq_epi8_mask(selector, _mm512_set1_epi8(1)), a);
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
