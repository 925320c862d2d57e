#include <immintrin.h>

#include <cstdint>

#include "segment_search.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx512f,avx512bw,avx512dq,avx512vl")))

template <class Unit>
constexpr std::size_t Lanes = 64 / sizeof(Unit);

/// Those of the places whose unit is `unit`. Units at other places are not read.
KY_KERNEL_TARGET inline std::uint64_t WhereEqual(std::uint64_t places, const unsigned char* from, unsigned char unit) {
    return _mm512_mask_cmpeq_epi8_mask(places, _mm512_maskz_loadu_epi8(places, from),
                                       _mm512_set1_epi8(static_cast<char>(unit)));
}
KY_KERNEL_TARGET inline std::uint64_t WhereEqual(std::uint64_t places, const unsigned* from, unsigned unit) {
    const auto mask = static_cast<__mmask16>(places);
    return _mm512_mask_cmpeq_epi32_mask(mask, _mm512_maskz_loadu_epi32(mask, from),
                                        _mm512_set1_epi32(static_cast<int>(unit)));
}

template <class Unit>
KY_KERNEL_TARGET inline std::size_t Find(const Unit* text, std::size_t places, const Segment<Unit>& segment) {
    constexpr std::size_t lanes = Lanes<Unit>;
    if (places == 0 || segment.first == segment.length) return 0;
    const Unit first = segment.units[segment.first];
    const Unit last = segment.units[segment.last];
    for (std::size_t at = 0; at < places; at += lanes) {
        const std::size_t unused = places - at < lanes ? 64 - (places - at) : 64 - lanes;
        std::uint64_t fitting = WhereEqual(~std::uint64_t{0} >> unused, text + at + segment.first, first);
        if (fitting == 0) continue;
        fitting = WhereEqual(fitting, text + at + segment.last, last);
        for (std::size_t i = segment.first + 1; fitting != 0 && i < segment.last; ++i) {
            if (segment.units[i] != kAnyOne) fitting = WhereEqual(fitting, text + at + i, segment.units[i]);
        }
        if (fitting != 0) return at + static_cast<std::size_t>(__builtin_ctzll(fitting));
    }
    return places;
}

}  // namespace

KY_KERNEL_TARGET std::size_t FindSegmentInBytesAvx512(const unsigned char* text, std::size_t places,
                                                      const Segment<unsigned char>& segment) {
    return Find(text, places, segment);
}

KY_KERNEL_TARGET std::size_t FindSegmentInKeysAvx512(const unsigned* text, std::size_t places,
                                                     const Segment<unsigned>& segment) {
    return Find(text, places, segment);
}

}  // namespace ky
