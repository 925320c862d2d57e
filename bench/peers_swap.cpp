#include <immintrin.h>

#include <algorithm>

#include "peers.h"

namespace bench {
namespace {

/// Byte i of the result comes from byte i ^ (Width - 1).
template <unsigned Width>
inline __m128i Indexes() {
    constexpr char m = Width - 1;
    return _mm_setr_epi8(0 ^ m, 1 ^ m, 2 ^ m, 3 ^ m, 4 ^ m, 5 ^ m, 6 ^ m, 7 ^ m, 8 ^ m, 9 ^ m, 10 ^ m, 11 ^ m, 12 ^ m,
                         13 ^ m, 14 ^ m, 15 ^ m);
}

template <unsigned Width>
void SwapRest(unsigned char* dst, const unsigned char* src, std::size_t from, std::size_t size) {
    for (std::size_t at = from; at < size; at += Width) std::reverse_copy(src + at, src + at + Width, dst + at);
}

template <unsigned Width>
__attribute__((target("ssse3"))) void SwapSsse3(unsigned char* dst, const unsigned char* src, std::size_t size) {
    const __m128i indexes = Indexes<Width>();
    std::size_t at = 0;
    for (; at + 16 <= size; at += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + at));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + at), _mm_shuffle_epi8(block, indexes));
    }
    SwapRest<Width>(dst, src, at, size);
}

template <unsigned Width>
__attribute__((target("avx2"))) void SwapAvx2(unsigned char* dst, const unsigned char* src, std::size_t size) {
    const __m256i indexes = _mm256_broadcastsi128_si256(Indexes<Width>());
    std::size_t at = 0;
    for (; at + 64 <= size; at += 64) {
        const __m256i low = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + at));
        const __m256i high = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + at + 32));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + at), _mm256_shuffle_epi8(low, indexes));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + at + 32), _mm256_shuffle_epi8(high, indexes));
    }
    SwapRest<Width>(dst, src, at, size);
}

template <unsigned Width>
__attribute__((target("avx512bw"))) void SwapAvx512(unsigned char* dst, const unsigned char* src, std::size_t size) {
    const __m512i indexes = _mm512_maskz_broadcast_i32x4(0xFFFF, Indexes<Width>());
    std::size_t at = 0;
    for (; at + 128 <= size; at += 128) {
        const __m512i low = _mm512_loadu_si512(src + at);
        const __m512i high = _mm512_loadu_si512(src + at + 64);
        _mm512_storeu_si512(dst + at, _mm512_shuffle_epi8(low, indexes));
        _mm512_storeu_si512(dst + at + 64, _mm512_shuffle_epi8(high, indexes));
    }
    SwapRest<Width>(dst, src, at, size);
}

template <unsigned Width>
SwapFunction Best() {
    if (__builtin_cpu_supports("avx512bw")) return &SwapAvx512<Width>;
    if (__builtin_cpu_supports("avx2")) return &SwapAvx2<Width>;
    if (__builtin_cpu_supports("ssse3")) return &SwapSsse3<Width>;
    return +[](unsigned char* dst, const unsigned char* src, std::size_t size) { SwapRest<Width>(dst, src, 0, size); };
}

}  // namespace

SwapFunction BestSwap(unsigned width) {
    switch (width) {
        case 2:
            return Best<2>();
        case 4:
            return Best<4>();
        default:
            return Best<8>();
    }
}

}  // namespace bench
