#include "segment_search.h"

#include <emmintrin.h>

#include "kernel_choice.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET

template <class Unit>
constexpr std::size_t Lanes = sizeof(__m128i) / sizeof(Unit);

inline __m128i LoadVector(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
inline unsigned Equal(const unsigned char* from, unsigned char unit) {
    const __m128i equal = _mm_cmpeq_epi8(LoadVector(from), _mm_set1_epi8(static_cast<char>(unit)));
    return static_cast<unsigned>(_mm_movemask_epi8(equal));
}
inline unsigned Equal(const unsigned* from, unsigned unit) {
    const __m128i equal = _mm_cmpeq_epi32(LoadVector(from), _mm_set1_epi32(static_cast<int>(unit)));
    return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(equal)));
}

#include "segment_search_loop.inl"

}  // namespace

std::size_t FindSegmentInBytesAny(const unsigned char* text, std::size_t places,
                                  const Segment<unsigned char>& segment) {
    return Find(text, places, segment);
}

std::size_t FindSegmentInKeysAny(const unsigned* text, std::size_t places, const Segment<unsigned>& segment) {
    return Find(text, places, segment);
}

constinit const SegmentKernels kSegmentKernels[kSegmentKernelVariants] = {
    {"any", FindSegmentInBytesAny, FindSegmentInKeysAny},
    {"avx2", FindSegmentInBytesAvx2, FindSegmentInKeysAvx2},
    {"avx512", FindSegmentInBytesAvx512, FindSegmentInKeysAvx512},
};

KY_RESOLVER int RunnableSegmentKernels() { return RunnableVariants(); }

extern "C" {
KY_RESOLVER FindSegmentKernel<unsigned char>* KyResolveFindSegmentInBytes() {
    return WidestOf(RunnableSegmentKernels(), &FindSegmentInBytesAny, &FindSegmentInBytesAvx2,
                    &FindSegmentInBytesAvx512);
}
KY_RESOLVER FindSegmentKernel<unsigned>* KyResolveFindSegmentInKeys() {
    return WidestOf(RunnableSegmentKernels(), &FindSegmentInKeysAny, &FindSegmentInKeysAvx2, &FindSegmentInKeysAvx512);
}
}

__attribute__((ifunc("KyResolveFindSegmentInBytes"))) FindSegmentKernel<unsigned char> FindSegmentInBytes;
__attribute__((ifunc("KyResolveFindSegmentInKeys"))) FindSegmentKernel<unsigned> FindSegmentInKeys;

}  // namespace ky
