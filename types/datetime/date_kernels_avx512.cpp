#include <immintrin.h>

#include <algorithm>

#include "date_first_other.h"
#include "date_kernels.h"
#include "date_plans.h"

namespace ky {
namespace {

#include "byte_vectors_avx512.inl"

using MovePlan = DateMovePlan<sizeof(Vector)>;
using HashPlan = DateHashPlan<sizeof(Vector)>;

template <class Step>
KY_KERNEL_TARGET inline void MoveRest(DateMoveKernel*, const MovePlan& plan, DateRecord, DateForm, const Step& step,
                                      unsigned char* to, const unsigned char* from, std::size_t count) {
    MoveByMask(step, to, plan.to, from, plan.from, plan.elements, count);
}
template <class Step, class Words>
KY_KERNEL_TARGET inline void HashRest(const HashPlan& plan, DateRecord, DateForm, const Step& step, Words& sum,
                                      const unsigned char* from, std::size_t count) {
    while (count != 0) {
        const std::size_t some = std::min(count, plan.elements);
        sum ^= step.Of(_mm512_maskz_loadu_epi8(FirstBytes(some * plan.from), from));
        from += some * plan.from;
        count -= some;
    }
}

#include "date_kernel_loops.inl"

}  // namespace

KY_KERNEL_TARGET void PackDatesAvx512(DateRecord record, DateForm form, void* dst, const void* src, std::size_t count) {
    Move<true>(PackDatesAny, kPlans.Packing(record, form), record, form, dst, src, count);
}

KY_KERNEL_TARGET void UnpackDatesAvx512(DateRecord record, DateForm form, void* dst, const void* src,
                                        std::size_t count) {
    Move<false>(UnpackDatesAny, kPlans.Unpacking(record, form), record, form, dst, src, count);
}

KY_KERNEL_TARGET std::uint32_t HashDatesAvx512(DateRecord record, DateForm form, const void* data, std::size_t count) {
    return Hash(record, form, data, count);
}

KY_KERNEL_TARGET std::size_t FirstOtherDateAvx512(DateRecord record, const void* a, const void* b, std::size_t count) {
    return detail::FirstOtherDateText(record, a, b, count);
}

}  // namespace ky
