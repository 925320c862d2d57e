#include <immintrin.h>

#include "segment_search.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx2")))

template <class Unit>
constexpr std::size_t Lanes = 32 / sizeof(Unit);

KY_KERNEL_TARGET inline unsigned Equal(const unsigned char* from, unsigned char unit) {
    const __m256i vector = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    const __m256i equal = _mm256_cmpeq_epi8(vector, _mm256_set1_epi8(static_cast<char>(unit)));
    return static_cast<unsigned>(_mm256_movemask_epi8(equal));
}
KY_KERNEL_TARGET inline unsigned Equal(const unsigned* from, unsigned unit) {
    const __m256i vector = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    const __m256i equal = _mm256_cmpeq_epi32(vector, _mm256_set1_epi32(static_cast<int>(unit)));
    return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(equal)));
}

#include "segment_search_loop.inl"

}  // namespace

KY_KERNEL_TARGET std::size_t FindSegmentInBytesAvx2(const unsigned char* text, std::size_t places,
                                                    const Segment<unsigned char>& segment) {
    return Find(text, places, segment);
}

KY_KERNEL_TARGET std::size_t FindSegmentInKeysAvx2(const unsigned* text, std::size_t places,
                                                   const Segment<unsigned>& segment) {
    return Find(text, places, segment);
}

}  // namespace ky
