#include <immintrin.h>

#include <algorithm>

#include "identifier_moves.h"
#include "raw_bytes.h"

namespace ky {
namespace {

#include "byte_vectors_avx512.inl"

using Plan = IdentifierMovePlan<sizeof(Vector)>;
constexpr IdentifierMovePlans<sizeof(Vector)> kPlans;

struct MoveStep {
    Vector index;

    KY_KERNEL_TARGET Vector Of(Vector elements) const { return PermuteOrZero(elements, index); }
};

/// The bytes of a register of elements in memory form where a field stands.
constexpr __mmask64 FieldBytes(IdentifierMove move) {
    const Plan plan(move, false);
    __mmask64 fields = 0;
    for (std::size_t at = 0; at < sizeof(Vector); ++at) {
        if (plan.index[at] != 0x80) fields |= __mmask64{1} << at;
    }
    return fields;
}

constexpr __mmask64 kObjIdFields = FieldBytes(IdentifierMove::loadObjIds);

}  // namespace

KY_KERNEL_TARGET void MoveIdentifiersAvx512(IdentifierMove move, bool reversed, void* dst, const void* src,
                                            std::size_t count) {
    const Plan& plan = kPlans.Of(move, reversed);
    const auto [fromSize, toSize, stored] = plan.sizes;
    const MoveStep step{LoadVector(plan.index.data())};
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    __mmask64 written = kEveryByte;
    if (move == IdentifierMove::loadObjIds) {
        written = kObjIdFields;
        for (; count * fromSize >= sizeof(Vector); count -= plan.elements) {
            _mm512_mask_storeu_epi8(to, written, step.Of(LoadVector(from)));
            from += plan.elements * fromSize;
            to += plan.elements * toSize;
        }
    } else {
        count = MoveBlocks(step, to, toSize, from, fromSize, stored, plan.elements, count);
    }
    while (count != 0) {
        const std::size_t some = std::min(count, plan.elements);
        // Behind the last object id in memory nothing may be there to be read.
        const Vector elements = _mm512_maskz_loadu_epi8(FirstBytes((some - 1) * fromSize + stored), from);
        _mm512_mask_storeu_epi8(to, written & FirstBytes(some * toSize), step.Of(elements));
        from += some * fromSize;
        to += some * toSize;
        count -= some;
    }
}

}  // namespace ky
