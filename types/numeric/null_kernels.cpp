#include "null_kernels.h"

#include "kernel_choice.h"
#include "null_first_other.h"
#include "null_hash_words.h"

namespace ky {
namespace {

/// Calls `move` with the layout and the order as constants.
template <class Move>
void WithConstants(NullLayout layout, NullOrder order, Move move) {
    const auto withOrder = [&]<NullLayout constantLayout>() {
        switch (order) {
            case NullOrder::nullFirst:
                return move.template operator()<constantLayout, NullOrder::nullFirst>();
            case NullOrder::nullFirstReversed:
                return move.template operator()<constantLayout, NullOrder::nullFirstReversed>();
            case NullOrder::numberFirst:
                return move.template operator()<constantLayout, NullOrder::numberFirst>();
        }
    };
    switch (layout) {
        case NullLayout::bytes2:
            return withOrder.template operator()<NullLayout::bytes2>();
        case NullLayout::bytes4:
            return withOrder.template operator()<NullLayout::bytes4>();
        case NullLayout::bytes8:
            return withOrder.template operator()<NullLayout::bytes8>();
        case NullLayout::bytes12:
            return withOrder.template operator()<NullLayout::bytes12>();
        case NullLayout::bytes16:
            return withOrder.template operator()<NullLayout::bytes16>();
    }
}

}  // namespace

void PackNullablesAny(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count) {
    WithConstants(layout, order, [=]<NullLayout constantLayout, NullOrder constantOrder>() {
        using Element = NullElement<constantLayout>;
        for (std::size_t i = 0; i < count; ++i) {
            Element::Pack(Advance(dst, i * Element::kSizes.Stored()), Advance(src, i * Element::kSizes.memory),
                          constantOrder);
        }
    });
}

void UnpackNullablesAny(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count) {
    WithConstants(layout, order, [=]<NullLayout constantLayout, NullOrder constantOrder>() {
        using Element = NullElement<constantLayout>;
        for (std::size_t i = 0; i < count; ++i) {
            Element::Unpack(Advance(dst, i * Element::kSizes.memory), Advance(src, i * Element::kSizes.Stored()),
                            constantOrder);
        }
    });
}

std::size_t FirstOtherNullableAny(NullLayout layout, const void* a, const void* b, std::size_t count) {
    return detail::FirstOtherNullableText(layout, a, b, count);
}

std::uint32_t HashNullablesAny(NullLayout layout, bool bothHalves, const void* data, std::size_t count) {
    return detail::HashNullablesText(layout, bothHalves, data, count);
}

constinit const NullKernels kNullKernels[kNullKernelVariants] = {
    {"any", PackNullablesAny, UnpackNullablesAny, FirstOtherNullableAny, HashNullablesAny},
    {"avx2", PackNullablesAvx2, UnpackNullablesAvx2, FirstOtherNullableAvx2, HashNullablesAvx2},
    {"avx512", PackNullablesAvx512, UnpackNullablesAvx512, FirstOtherNullableAvx512, HashNullablesAvx512},
};

KY_RESOLVER int RunnableNullKernels() {
    const int runnable = RunnableVariants();
    return runnable == 3 && !__builtin_cpu_supports("avx512vbmi") ? 2 : runnable;
}

namespace {
template <class Kernel>
KY_RESOLVER inline Kernel* Choose(Kernel* any, Kernel* avx2, Kernel* avx512) {
    return WidestOf(RunnableNullKernels(), any, avx2, avx512);
}
}  // namespace

extern "C" {
KY_RESOLVER NullMoveKernel* KyResolvePackNullables() {
    return Choose(&PackNullablesAny, &PackNullablesAvx2, &PackNullablesAvx512);
}
KY_RESOLVER NullMoveKernel* KyResolveUnpackNullables() {
    return Choose(&UnpackNullablesAny, &UnpackNullablesAvx2, &UnpackNullablesAvx512);
}
KY_RESOLVER FirstOtherNullableKernel* KyResolveFirstOtherNullable() {
    return Choose(&FirstOtherNullableAny, &FirstOtherNullableAvx2, &FirstOtherNullableAvx512);
}
KY_RESOLVER HashNullablesKernel* KyResolveHashNullables() {
    return Choose(&HashNullablesAny, &HashNullablesAvx2, &HashNullablesAvx512);
}
}

__attribute__((ifunc("KyResolvePackNullables"))) NullMoveKernel PackNullables;
__attribute__((ifunc("KyResolveUnpackNullables"))) NullMoveKernel UnpackNullables;
__attribute__((ifunc("KyResolveFirstOtherNullable"))) FirstOtherNullableKernel FirstOtherNullable;
__attribute__((ifunc("KyResolveHashNullables"))) HashNullablesKernel HashNullables;

}  // namespace ky
