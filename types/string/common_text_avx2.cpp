#include <immintrin.h>

#include <algorithm>

#include "common_text.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx2")))

using StopBits = unsigned;
constexpr std::size_t kVectorBytes = 32;

template <unsigned width>
constexpr unsigned kBytesPerStop = 1;

template <unsigned width>
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) inline StopBits StopsIn(const char* a, const char* b) {
    const __m256i charsA = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a));
    const __m256i charsB = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
    const __m256i zero = _mm256_setzero_si256();
    const __m256i equal = width == 1 ? _mm256_cmpeq_epi8(charsA, charsB) : _mm256_cmpeq_epi16(charsA, charsB);
    const __m256i ends = width == 1 ? _mm256_cmpeq_epi8(charsA, zero) : _mm256_cmpeq_epi16(charsA, zero);
    return ~static_cast<unsigned>(_mm256_movemask_epi8(_mm256_andnot_si256(ends, equal)));
}

#include "common_text_loop.inl"

}  // namespace

KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) std::size_t CommonBytesFromAvx2(const char* a, const char* b,
                                                                                    std::size_t at, std::size_t limit) {
    return CommonFrom<1>(a, b, at, limit);
}
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) std::size_t CommonUnitsFromAvx2(const char* a, const char* b,
                                                                                    std::size_t at, std::size_t limit) {
    return CommonFrom<2>(a, b, at, limit);
}

}  // namespace ky
