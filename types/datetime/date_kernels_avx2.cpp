#include <immintrin.h>

#include <algorithm>

#include "date_first_other.h"
#include "date_kernels.h"
#include "date_plans.h"

namespace ky {
namespace {

#include "byte_vectors_avx2.inl"

using MovePlan = DateMovePlan<sizeof(Vector)>;
using HashPlan = DateHashPlan<sizeof(Vector)>;

template <class Step>
inline void MoveRest(DateMoveKernel* any, const MovePlan&, DateRecord record, DateForm form, const Step&,
                     unsigned char* to, const unsigned char* from, std::size_t count) {
    any(record, form, to, from, count);
}
template <class Step, class Words>
inline void HashRest(const HashPlan&, DateRecord record, DateForm form, const Step&, Words& sum,
                     const unsigned char* from, std::size_t count) {
    sum[0] ^= HashDatesAny(record, form, from, count);
}

#include "date_kernel_loops.inl"

}  // namespace

KY_KERNEL_TARGET void PackDatesAvx2(DateRecord record, DateForm form, void* dst, const void* src, std::size_t count) {
    Move<true>(PackDatesAny, kPlans.Packing(record, form), record, form, dst, src, count);
}

KY_KERNEL_TARGET void UnpackDatesAvx2(DateRecord record, DateForm form, void* dst, const void* src, std::size_t count) {
    Move<false>(UnpackDatesAny, kPlans.Unpacking(record, form), record, form, dst, src, count);
}

KY_KERNEL_TARGET std::uint32_t HashDatesAvx2(DateRecord record, DateForm form, const void* data, std::size_t count) {
    return Hash(record, form, data, count);
}

KY_KERNEL_TARGET std::size_t FirstOtherDateAvx2(DateRecord record, const void* a, const void* b, std::size_t count) {
    return detail::FirstOtherDateText(record, a, b, count);
}

}  // namespace ky
