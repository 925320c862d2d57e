#include <immintrin.h>

#include <algorithm>

#include "common_text.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx512f,avx512bw,avx512vbmi")))
#define KY_UNCHECKED_KERNEL __attribute__((target("avx512f,avx512bw,avx512vbmi"), KY_UNINSTRUMENTED))

using StopBits = unsigned long long;
constexpr std::size_t kVectorBytes = 64;

template <unsigned characterWidth>
struct SameCharacters {
    static constexpr std::size_t width = characterWidth;
    static constexpr std::size_t bytesPerStop = width;

    KY_UNCHECKED_KERNEL static StopBits StopsIn(const char* a, const char* b) {
        const __m512i charsA = _mm512_loadu_si512(a);
        const __m512i charsB = _mm512_loadu_si512(b);
        if constexpr (width == 1) {
            return _mm512_cmpneq_epi8_mask(charsA, charsB) | _mm512_testn_epi8_mask(charsA, charsA);
        }
        return _mm512_cmpneq_epi16_mask(charsA, charsB) | _mm512_testn_epi16_mask(charsA, charsA);
    }
    KY_UNCHECKED_KERNEL static bool StopsInBlock(const char* a, const char* b) {
        __m512i different = _mm512_setzero_si512();
        __m512i least = _mm512_set1_epi8(-1);
        for (std::size_t i = 0; i < 4 * kVectorBytes; i += kVectorBytes) {
            const __m512i charsA = _mm512_loadu_si512(a + i);
            different = _mm512_or_si512(different, _mm512_xor_si512(charsA, _mm512_loadu_si512(b + i)));
            least = width == 1 ? _mm512_min_epu8(least, charsA) : _mm512_min_epu16(least, charsA);
        }
        const __mmask64 ends =
            width == 1 ? _mm512_testn_epi8_mask(least, least) : _mm512_testn_epi16_mask(least, least);
        return (_mm512_test_epi8_mask(different, different) | ends) != 0;
    }
    KY_UNCHECKED_KERNEL static bool StopsAt(const char* a, const char* b) { return CharacterStops<width>(a, b); }
};

/// A table of 256 ranks in four registers.
class Ranks {
public:
    KY_UNCHECKED_KERNEL explicit Ranks(const unsigned char* of256) {
        for (unsigned i = 0; i < 4; ++i) quarters[i] = _mm512_loadu_si512(of256 + i * kVectorBytes);
    }
    KY_KERNEL_TARGET __m512i Of(__m512i chars) const {
        const __m512i low = _mm512_permutex2var_epi8(quarters[0], chars, quarters[1]);
        const __m512i high = _mm512_permutex2var_epi8(quarters[2], chars, quarters[3]);
        return _mm512_mask_blend_epi8(_mm512_movepi8_mask(chars), low, high);
    }

private:
    __m512i quarters[4];
};

struct SameRanks {
    static constexpr std::size_t width = 1;
    static constexpr std::size_t bytesPerStop = 1;

    const unsigned char* table;
    Ranks ranks;

    KY_KERNEL_TARGET explicit SameRanks(const unsigned char* of256) : table(of256), ranks(of256) {}

    KY_UNCHECKED_KERNEL StopBits StopsIn(const char* a, const char* b) const {
        const __m512i charsA = _mm512_loadu_si512(a);
        const __m512i charsB = _mm512_loadu_si512(b);
        return _mm512_cmpneq_epi8_mask(ranks.Of(charsA), ranks.Of(charsB)) | _mm512_testn_epi8_mask(charsA, charsA);
    }
    KY_UNCHECKED_KERNEL bool StopsInBlock(const char* a, const char* b) const {
        return (StopsIn(a, b) | StopsIn(a + 64, b + 64) | StopsIn(a + 128, b + 128) | StopsIn(a + 192, b + 192)) != 0;
    }
    KY_UNCHECKED_KERNEL bool StopsAt(const char* a, const char* b) const {
        return *a == 0 || table[static_cast<unsigned char>(*a)] != table[static_cast<unsigned char>(*b)];
    }
};

struct SameWideRanks {
    static constexpr std::size_t width = 2;
    static constexpr std::size_t bytesPerStop = 2;

    const unsigned char* table;
    bool swapped;
    Ranks ranks;

    KY_KERNEL_TARGET SameWideRanks(const unsigned char* of256, bool swappedBytes)
        : table(of256), swapped(swappedBytes), ranks(of256) {}

    KY_UNCHECKED_KERNEL StopBits StopsIn(const char* a, const char* b) const {
        const __m512i unitsA = Units(a);
        const __m512i unitsB = Units(b);
        const __m512i beyond = _mm512_set1_epi16(static_cast<short>(0xFF00));
        // The upper bytes of both are 0 where it matters, so their ranks are the same.
        return _mm512_test_epi16_mask(_mm512_or_si512(unitsA, unitsB), beyond) |
               _mm512_cmpneq_epi16_mask(ranks.Of(unitsA), ranks.Of(unitsB)) | _mm512_testn_epi16_mask(unitsA, unitsA);
    }
    KY_UNCHECKED_KERNEL bool StopsInBlock(const char* a, const char* b) const {
        return (StopsIn(a, b) | StopsIn(a + 64, b + 64) | StopsIn(a + 128, b + 128) | StopsIn(a + 192, b + 192)) != 0;
    }
    KY_UNCHECKED_KERNEL bool StopsAt(const char* a, const char* b) const { return WideRankStops(table, a, b, swapped); }

private:
    KY_UNCHECKED_KERNEL __m512i Units(const char* p) const {
        const __m512i units = _mm512_loadu_si512(p);
        return swapped ? _mm512_or_si512(_mm512_slli_epi16(units, 8), _mm512_srli_epi16(units, 8)) : units;
    }
};

#include "common_text_loop.inl"

}  // namespace

KY_KERNEL_TARGET std::size_t CommonBytesAvx512(const char* a, const char* b, std::size_t limit) {
    return Common(SameCharacters<1>(), a, b, limit);
}

KY_KERNEL_TARGET std::size_t CommonUnitsAvx512(const char* a, const char* b, std::size_t limit) {
    return Common(SameCharacters<2>(), a, b, limit);
}

KY_KERNEL_TARGET std::size_t CommonRanksAvx512(const unsigned char* ranks, const char* a, const char* b) {
    return Common(SameRanks(ranks), a, b, ~std::size_t{0});
}

KY_KERNEL_TARGET std::size_t CommonWideRanksAvx512(const unsigned char* ranks, const char* a, const char* b,
                                                   bool swapped) {
    return Common(SameWideRanks(ranks, swapped), a, b, ~std::size_t{1});
}

}  // namespace ky
