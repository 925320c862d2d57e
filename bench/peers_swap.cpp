#include <immintrin.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

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

inline std::uint16_t Swapped(std::uint16_t value) { return __builtin_bswap16(value); }
inline std::uint32_t Swapped(std::uint32_t value) { return __builtin_bswap32(value); }
inline std::uint64_t Swapped(std::uint64_t value) { return __builtin_bswap64(value); }

template <unsigned Width>
void SwapEach(unsigned char* dst, const unsigned char* src, std::size_t size) {
    using Value =
        std::conditional_t<Width == 2, std::uint16_t, std::conditional_t<Width == 4, std::uint32_t, std::uint64_t>>;
    for (std::size_t at = 0; at < size; at += Width) {
        Value value;
        std::memcpy(&value, src + at, Width);
        value = Swapped(value);
        std::memcpy(dst + at, &value, Width);
    }
}

template <unsigned Width>
__attribute__((target("ssse3"))) void SwapSsse3(unsigned char* dst, const unsigned char* src, std::size_t size) {
    const __m128i indexes = Indexes<Width>();
    std::size_t at = 0;
    for (; at + 16 <= size; at += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + at));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + at), _mm_shuffle_epi8(block, indexes));
    }
    SwapEach<Width>(dst + at, src + at, size - at);
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
    SwapSsse3<Width>(dst + at, src + at, size - at);
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
    SwapSsse3<Width>(dst + at, src + at, size - at);
}

template <unsigned Width>
SwapFunction Best() {
    if (__builtin_cpu_supports("avx512bw")) return &SwapAvx512<Width>;
    if (__builtin_cpu_supports("avx2")) return &SwapAvx2<Width>;
    if (__builtin_cpu_supports("ssse3")) return &SwapSsse3<Width>;
    return &SwapEach<Width>;
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
