#include <immintrin.h>

#include "identifier_moves.h"
#include "raw_bytes.h"

namespace ky {
namespace {

#include "byte_vectors_avx2.inl"

constexpr IdentifierMovePlans<sizeof(Vector)> kPlans;

struct MoveStep {
    Vector index;

    KY_KERNEL_TARGET Vector Of(Vector elements) const { return PermuteOrZero(elements, index); }
};

}  // namespace

KY_KERNEL_TARGET void MoveIdentifiersAvx2(IdentifierMove move, bool reversed, void* dst, const void* src,
                                          std::size_t count) {
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    // A whole register would also write what is behind the fields of an object id.
    if (move != IdentifierMove::loadObjIds) {
        const auto& plan = kPlans.Of(move, reversed);
        const MoveStep step{LoadVector(plan.index.data())};
        count = MoveBlocks(step, to, plan.sizes.to, from, plan.sizes.from, plan.sizes.stored, plan.elements, count);
    }
    MoveIdentifiersAny(move, reversed, to, from, count);
}

}  // namespace ky
