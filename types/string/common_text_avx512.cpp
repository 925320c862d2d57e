#include <immintrin.h>

#include <algorithm>

#include "common_text.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx512f,avx512bw")))

using StopBits = unsigned long long;
constexpr std::size_t kVectorBytes = 64;

template <unsigned width>
constexpr unsigned kBytesPerStop = width;

template <unsigned width>
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) inline StopBits StopsIn(const char* a, const char* b) {
    const __m512i charsA = _mm512_loadu_si512(a);
    const __m512i charsB = _mm512_loadu_si512(b);
    if constexpr (width == 1) return _mm512_cmpneq_epi8_mask(charsA, charsB) | _mm512_testn_epi8_mask(charsA, charsA);
    return _mm512_cmpneq_epi16_mask(charsA, charsB) | _mm512_testn_epi16_mask(charsA, charsA);
}

#include "common_text_loop.inl"

}  // namespace

KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) std::size_t CommonBytesFromAvx512(const char* a, const char* b,
                                                                                      std::size_t at,
                                                                                      std::size_t limit) {
    return CommonFrom<1>(a, b, at, limit);
}
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) std::size_t CommonUnitsFromAvx512(const char* a, const char* b,
                                                                                      std::size_t at,
                                                                                      std::size_t limit) {
    return CommonFrom<2>(a, b, at, limit);
}

}  // namespace ky
