#include "translate_bytes.h"

#include <immintrin.h>

#include "kernel_choice.h"

namespace ky {

bool TranslateBytesAny(unsigned char* dst, const char* src, std::size_t size, const ByteMap& map) {
    const unsigned char unclear = map.unclear;
    bool found = false;
    std::size_t i = 0;
    // Several at a time, since nothing tells the compiler that `dst` is not the map.
    for (; size - i >= 4; i += 4) {
        unsigned char four[4];
        for (unsigned j = 0; j < 4; ++j) four[j] = map(src[i + j]);
        for (unsigned j = 0; j < 4; ++j) found |= four[j] == unclear;
        for (unsigned j = 0; j < 4; ++j) dst[i + j] = four[j];
    }
    for (; i < size; ++i) {
        dst[i] = map(src[i]);
        found |= dst[i] == unclear;
    }
    return found;
}

/// The whole map in four registers.
__attribute__((target("avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi"))) bool TranslateBytesAvx512(unsigned char* dst,
                                                                                                   const char* src,
                                                                                                   std::size_t size,
                                                                                                   const ByteMap& map) {
    const __m512i quarters[4] = {_mm512_loadu_si512(map.of), _mm512_loadu_si512(map.of + 64),
                                 _mm512_loadu_si512(map.of + 128), _mm512_loadu_si512(map.of + 192)};
    const __m512i unclear = _mm512_set1_epi8(static_cast<char>(map.unclear));
    __mmask64 found = 0;
    for (std::size_t at = 0; at < size; at += 64) {
        const __mmask64 present = size - at < 64 ? ~0ull >> (64 - (size - at)) : ~0ull;
        const __m512i bytes = _mm512_maskz_loadu_epi8(present, src + at);
        const __m512i low = _mm512_permutex2var_epi8(quarters[0], bytes, quarters[1]);
        const __m512i high = _mm512_permutex2var_epi8(quarters[2], bytes, quarters[3]);
        const __m512i mapped = _mm512_mask_blend_epi8(_mm512_movepi8_mask(bytes), low, high);
        found |= _mm512_mask_cmpeq_epi8_mask(present, mapped, unclear);
        // Never a masked store: what is read next would wait for it.
        _mm512_storeu_si512(dst + at, mapped);
    }
    return found != 0;
}

constinit const TranslateBytesVariant kTranslateBytes[kTranslateBytesVariants] = {
    {"any", TranslateBytesAny},
    {"avx512", TranslateBytesAvx512},
};

KY_RESOLVER int RunnableTranslateBytes() {
    return RunnableVariants() == 3 && __builtin_cpu_supports("avx512vbmi") ? 2 : 1;
}

extern "C" {
KY_RESOLVER TranslateBytesKernel* KyResolveTranslateBytes() {
    return RunnableTranslateBytes() == 2 ? &TranslateBytesAvx512 : &TranslateBytesAny;
}
}

__attribute__((ifunc("KyResolveTranslateBytes"))) TranslateBytesKernel TranslateBytes;

}  // namespace ky
