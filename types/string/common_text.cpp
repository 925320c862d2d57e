#include "common_text.h"

#include <algorithm>

namespace ky {
namespace {

#define KY_KERNEL_TARGET
#define KY_UNCHECKED_KERNEL __attribute__((KY_UNINSTRUMENTED))

using StopBits = unsigned;
constexpr std::size_t kVectorBytes = 16;

template <unsigned characterWidth>
struct SameCharacters {
    static constexpr std::size_t width = characterWidth;
    static constexpr std::size_t bytesPerStop = 1;

    KY_UNCHECKED_KERNEL static StopBits StopsIn(const char* a, const char* b) { return StopsIn16<width>(a, b); }
    KY_UNCHECKED_KERNEL static bool StopsInBlock(const char* a, const char* b) {
        return (StopsIn(a, b) | StopsIn(a + 16, b + 16) | StopsIn(a + 32, b + 32) | StopsIn(a + 48, b + 48)) != 0;
    }
    KY_UNCHECKED_KERNEL static bool StopsAt(const char* a, const char* b) { return CharacterStops<width>(a, b); }
};

#include "common_text_loop.inl"

}  // namespace

std::size_t CommonBytesFromAny(const char* a, const char* b, std::size_t at, std::size_t limit) {
    return CommonFrom(SameCharacters<1>(), a, b, at, limit);
}

std::size_t CommonUnitsFromAny(const char* a, const char* b, std::size_t at, std::size_t limit) {
    return CommonFrom(SameCharacters<2>(), a, b, at, limit);
}

std::size_t CommonRanksFromAny(const unsigned char* ranks, const char* a, const char* b, std::size_t at) {
    const auto* bytesA = reinterpret_cast<const unsigned char*>(a);
    const auto* bytesB = reinterpret_cast<const unsigned char*>(b);
    while (bytesA[at] != 0 && ranks[bytesA[at]] == ranks[bytesB[at]]) ++at;
    return at;
}

std::size_t CommonWideRanksFromAny(const unsigned char* ranks, const char* a, const char* b, std::size_t at,
                                   bool swapped) {
    while (!WideRankStops(ranks, a + at, b + at, swapped)) at += 2;
    return at;
}

constinit const CommonTextKernels kCommonTextKernels[kCommonTextVariants] = {
    {"any", CommonBytesFromAny, CommonUnitsFromAny, CommonRanksFromAny, CommonWideRanksFromAny},
    {"avx2", CommonBytesFromAvx2, CommonUnitsFromAvx2, CommonRanksFromAny, CommonWideRanksFromAny},
    {"avx512", CommonBytesFromAvx512, CommonUnitsFromAvx512, CommonRanksFromAvx512, CommonWideRanksFromAvx512},
};

KY_RESOLVER int RunnableCommonTextKernels() {
    const int runnable = RunnableVariants();
    return runnable == 3 && !__builtin_cpu_supports("avx512vbmi") ? 2 : runnable;
}

namespace {
template <class Kernel>
KY_RESOLVER inline Kernel* Choose(Kernel* any, Kernel* avx2, Kernel* avx512) {
    return WidestOf(RunnableCommonTextKernels(), any, avx2, avx512);
}
}  // namespace

extern "C" {
KY_RESOLVER CommonTextKernel* KyResolveCommonBytesFrom() {
    return Choose(&CommonBytesFromAny, &CommonBytesFromAvx2, &CommonBytesFromAvx512);
}
KY_RESOLVER CommonTextKernel* KyResolveCommonUnitsFrom() {
    return Choose(&CommonUnitsFromAny, &CommonUnitsFromAvx2, &CommonUnitsFromAvx512);
}
KY_RESOLVER CommonRanksKernel* KyResolveCommonRanksFrom() {
    return Choose(&CommonRanksFromAny, &CommonRanksFromAny, &CommonRanksFromAvx512);
}
KY_RESOLVER CommonWideRanksKernel* KyResolveCommonWideRanksFrom() {
    return Choose(&CommonWideRanksFromAny, &CommonWideRanksFromAny, &CommonWideRanksFromAvx512);
}
}

__attribute__((ifunc("KyResolveCommonBytesFrom"))) CommonTextKernel CommonBytesFrom;
__attribute__((ifunc("KyResolveCommonUnitsFrom"))) CommonTextKernel CommonUnitsFrom;
__attribute__((ifunc("KyResolveCommonRanksFrom"))) CommonRanksKernel CommonRanksFrom;
__attribute__((ifunc("KyResolveCommonWideRanksFrom"))) CommonWideRanksKernel CommonWideRanksFrom;

}  // namespace ky
