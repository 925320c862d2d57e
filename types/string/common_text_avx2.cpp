#include <immintrin.h>

#include <algorithm>

#include "common_text.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx2")))
#define KY_UNCHECKED_KERNEL __attribute__((target("avx2"), KY_UNINSTRUMENTED))

using StopBits = unsigned;
constexpr std::size_t kVectorBytes = 32;

template <unsigned characterWidth>
struct SameCharacters {
    static constexpr std::size_t width = characterWidth;
    static constexpr std::size_t bytesPerStop = 1;

    KY_UNCHECKED_KERNEL static __m256i Load(const char* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }
    KY_KERNEL_TARGET static __m256i Equal(__m256i a, __m256i b) {
        return width == 1 ? _mm256_cmpeq_epi8(a, b) : _mm256_cmpeq_epi16(a, b);
    }
    KY_UNCHECKED_KERNEL static StopBits StopsIn(const char* a, const char* b) {
        const __m256i charsA = Load(a);
        const __m256i ends = Equal(charsA, _mm256_setzero_si256());
        return ~static_cast<unsigned>(_mm256_movemask_epi8(_mm256_andnot_si256(ends, Equal(charsA, Load(b)))));
    }
    KY_UNCHECKED_KERNEL static bool StopsInBlock(const char* a, const char* b) {
        __m256i different = _mm256_setzero_si256();
        __m256i least = _mm256_set1_epi8(-1);
        for (std::size_t i = 0; i < 4 * kVectorBytes; i += kVectorBytes) {
            const __m256i charsA = Load(a + i);
            different = _mm256_or_si256(different, _mm256_xor_si256(charsA, Load(b + i)));
            least = width == 1 ? _mm256_min_epu8(least, charsA) : _mm256_min_epu16(least, charsA);
        }
        const __m256i stops = _mm256_or_si256(different, Equal(least, _mm256_setzero_si256()));
        return _mm256_testz_si256(stops, stops) == 0;
    }
    KY_UNCHECKED_KERNEL static bool StopsAt(const char* a, const char* b) { return CharacterStops<width>(a, b); }
};

#include "common_text_loop.inl"

}  // namespace

KY_KERNEL_TARGET std::size_t CommonBytesAvx2(const char* a, const char* b, std::size_t limit) {
    return Common(SameCharacters<1>(), a, b, limit);
}

KY_KERNEL_TARGET std::size_t CommonUnitsAvx2(const char* a, const char* b, std::size_t limit) {
    return Common(SameCharacters<2>(), a, b, limit);
}

}  // namespace ky
