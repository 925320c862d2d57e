#include "identifier_moves.h"

#include "identifier_facts.h"
#include "kernel_choice.h"
#include "raw_bytes.h"

namespace ky {
namespace {

template <class Facts, bool store, bool reversed>
void MoveElements(void* dst, const void* src, std::size_t count) {
    constexpr std::size_t memory = sizeof(typename Facts::Element);
    for (std::size_t i = 0; i < count; ++i) {
        if constexpr (store) {
            Facts::template StoreElement<reversed>(Advance(dst, i * Facts::kStoredBytes), Advance(src, i * memory));
        } else {
            Facts::template LoadElement<reversed>(Advance(dst, i * memory), Advance(src, i * Facts::kStoredBytes));
        }
    }
}

template <class Facts, bool store>
void MoveElements(bool reversed, void* dst, const void* src, std::size_t count) {
    reversed ? MoveElements<Facts, store, true>(dst, src, count) : MoveElements<Facts, store, false>(dst, src, count);
}

}  // namespace

void MoveIdentifiersAny(IdentifierMove move, bool reversed, void* dst, const void* src, std::size_t count) {
    switch (move) {
        case IdentifierMove::storeObjIds:
            return MoveElements<ObjIdFacts, true>(reversed, dst, src, count);
        case IdentifierMove::loadObjIds:
            return MoveElements<ObjIdFacts, false>(reversed, dst, src, count);
        case IdentifierMove::storeRefs:
            return MoveElements<RefFacts, true>(reversed, dst, src, count);
        case IdentifierMove::loadRefs:
            return MoveElements<RefFacts, false>(reversed, dst, src, count);
    }
}

constinit const IdentifierMoveKernels kIdentifierMoveKernels[kIdentifierMoveVariants] = {
    {"any", MoveIdentifiersAny},
    {"avx2", MoveIdentifiersAvx2},
    {"avx512", MoveIdentifiersAvx512},
};

KY_RESOLVER int RunnableIdentifierMoves() {
    const int runnable = RunnableVariants();
    return runnable == 3 && !__builtin_cpu_supports("avx512vbmi") ? 2 : runnable;
}

extern "C" {
KY_RESOLVER MoveIdentifiersKernel* KyResolveMoveIdentifiers() {
    return WidestOf(RunnableIdentifierMoves(), &MoveIdentifiersAny, &MoveIdentifiersAvx2, &MoveIdentifiersAvx512);
}
}

__attribute__((ifunc("KyResolveMoveIdentifiers"))) MoveIdentifiersKernel MoveIdentifiers;

}  // namespace ky
