#include <algorithm>

#include "common_text.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET

using StopBits = unsigned;
constexpr std::size_t kVectorBytes = 16;

template <unsigned width>
constexpr unsigned kBytesPerStop = 1;

template <unsigned width>
__attribute__((KY_UNINSTRUMENTED)) inline StopBits StopsIn(const char* a, const char* b) {
    return StopsIn16<width>(a, b);
}

#include "common_text_loop.inl"

}  // namespace

KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) std::size_t CommonBytesFromAny(const char* a, const char* b,
                                                                                   std::size_t at, std::size_t limit) {
    return CommonFrom<1>(a, b, at, limit);
}
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) std::size_t CommonUnitsFromAny(const char* a, const char* b,
                                                                                   std::size_t at, std::size_t limit) {
    return CommonFrom<2>(a, b, at, limit);
}

constinit const CommonTextKernels kCommonTextKernels[kCommonTextVariants] = {
    {"any", CommonBytesFromAny, CommonUnitsFromAny},
    {"avx2", CommonBytesFromAvx2, CommonUnitsFromAvx2},
    {"avx512", CommonBytesFromAvx512, CommonUnitsFromAvx512},
};

extern "C" {
KY_RESOLVER CommonTextKernel* KyResolveCommonBytesFrom() {
    return WidestOf(RunnableVariants(), &CommonBytesFromAny, &CommonBytesFromAvx2, &CommonBytesFromAvx512);
}
KY_RESOLVER CommonTextKernel* KyResolveCommonUnitsFrom() {
    return WidestOf(RunnableVariants(), &CommonUnitsFromAny, &CommonUnitsFromAvx2, &CommonUnitsFromAvx512);
}
}

__attribute__((ifunc("KyResolveCommonBytesFrom"))) CommonTextKernel CommonBytesFrom;
__attribute__((ifunc("KyResolveCommonUnitsFrom"))) CommonTextKernel CommonUnitsFrom;

}  // namespace ky
