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

std::size_t CommonBytesAny(const char* a, const char* b, std::size_t limit) {
    return Common(SameCharacters<1>(), a, b, limit);
}

std::size_t CommonUnitsAny(const char* a, const char* b, std::size_t limit) {
    return Common(SameCharacters<2>(), a, b, limit);
}

std::size_t CommonRanksAny(const unsigned char* ranks, const char* a, const char* b) {
    const auto* bytesA = reinterpret_cast<const unsigned char*>(a);
    const auto* bytesB = reinterpret_cast<const unsigned char*>(b);
    std::size_t at = 0;
    while (bytesA[at] != 0 && ranks[bytesA[at]] == ranks[bytesB[at]]) ++at;
    return at;
}

std::size_t CommonWideRanksAny(const unsigned char* ranks, const char* a, const char* b, bool swapped) {
    std::size_t at = 0;
    while (!WideRankStops(ranks, a + at, b + at, swapped)) at += 2;
    return at;
}

constinit const CommonTextKernels kCommonTextKernels[kCommonTextVariants] = {
    {"any", CommonBytesAny, CommonUnitsAny, CommonRanksAny, CommonWideRanksAny},
    {"avx2", CommonBytesAvx2, CommonUnitsAvx2, CommonRanksAny, CommonWideRanksAny},
    {"avx512", CommonBytesAvx512, CommonUnitsAvx512, CommonRanksAvx512, CommonWideRanksAvx512},
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
KY_RESOLVER CommonTextKernel* KyResolveCommonBytes() {
    return Choose(&CommonBytesAny, &CommonBytesAvx2, &CommonBytesAvx512);
}
KY_RESOLVER CommonTextKernel* KyResolveCommonUnits() {
    return Choose(&CommonUnitsAny, &CommonUnitsAvx2, &CommonUnitsAvx512);
}
KY_RESOLVER CommonRanksKernel* KyResolveCommonRanks() {
    return Choose(&CommonRanksAny, &CommonRanksAny, &CommonRanksAvx512);
}
KY_RESOLVER CommonWideRanksKernel* KyResolveCommonWideRanks() {
    return Choose(&CommonWideRanksAny, &CommonWideRanksAny, &CommonWideRanksAvx512);
}
}

__attribute__((ifunc("KyResolveCommonBytes"))) CommonTextKernel CommonBytes;
__attribute__((ifunc("KyResolveCommonUnits"))) CommonTextKernel CommonUnits;
__attribute__((ifunc("KyResolveCommonRanks"))) CommonRanksKernel CommonRanks;
__attribute__((ifunc("KyResolveCommonWideRanks"))) CommonWideRanksKernel CommonWideRanks;

}  // namespace ky
