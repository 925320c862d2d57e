#include <immintrin.h>

#include "byte_select.h"
#include "null_first_other.h"
#include "null_hash_words.h"
#include "null_kernels.h"
#include "null_plans.h"

namespace ky {
namespace {

#include "byte_vectors_avx2.inl"

using Plan = NullPlan<sizeof(Vector)>;

KY_KERNEL_TARGET inline Vector Least(Vector a, Vector b) {
    typedef unsigned char Bytes __attribute__((vector_size(sizeof(Vector))));
    const auto bytesA = reinterpret_cast<Bytes>(a);
    const auto bytesB = reinterpret_cast<Bytes>(b);
    return reinterpret_cast<Vector>(bytesA < bytesB ? bytesA : bytesB);
}
KY_KERNEL_TARGET inline Vector SelectWhereOne(Vector selector, Vector a, Vector b) {
    return SelectBytes(_mm_cmpeq_epi8(selector, _mm_set1_epi8(1)), a, b);
}

template <class Step>
inline void PackRest(NullLayout layout, NullOrder order, const Plan&, const Step&, unsigned char* to,
                     const unsigned char* from, std::size_t count) {
    PackNullablesAny(layout, order, to, from, count);
}
template <class Step>
inline void UnpackRest(NullLayout layout, NullOrder order, const Plan&, const Step&, unsigned char* to,
                       const unsigned char* from, std::size_t count) {
    UnpackNullablesAny(layout, order, to, from, count);
}

#include "null_kernel_loops.inl"

}  // namespace

KY_KERNEL_TARGET void PackNullablesAvx2(NullLayout layout, NullOrder order, void* dst, const void* src,
                                        std::size_t count) {
    Pack(layout, order, dst, src, count);
}

KY_KERNEL_TARGET void UnpackNullablesAvx2(NullLayout layout, NullOrder order, void* dst, const void* src,
                                          std::size_t count) {
    Unpack(layout, order, dst, src, count);
}

KY_KERNEL_TARGET std::size_t FirstOtherNullableAvx2(NullLayout layout, const void* a, const void* b,
                                                    std::size_t count) {
    return detail::FirstOtherNullableText(layout, a, b, count);
}

KY_KERNEL_TARGET std::uint32_t HashNullablesAvx2(NullLayout layout, bool bothHalves, const void* data,
                                                 std::size_t count) {
    return detail::HashNullablesText(layout, bothHalves, data, count);
}

}  // namespace ky
