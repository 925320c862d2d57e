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

/// Those of the places from `text` on at which the segment fits. No comparison waits for the one before it.
template <class Unit>
KY_KERNEL_TARGET inline std::uint64_t WhereFits(std::uint64_t places, const Unit* text, const Segment<Unit>& segment) {
    const Unit* const units = segment.units;
    const std::size_t first = segment.first;
    const std::size_t last = segment.last;
    std::uint64_t fitting = WhereEqual(places, text + first, units[first]);
    fitting &= WhereEqual(places, text + last, units[last]);
    for (std::size_t i = first + 1; fitting != 0 && i < last; ++i) {
        if (units[i] != segment.any) fitting &= WhereEqual(places, text + i, units[i]);
    }
    return fitting;
}

template <class Unit>
KY_KERNEL_TARGET inline std::size_t Find(const Unit* text, std::size_t places, const Segment<Unit>& segment) {
    constexpr std::size_t lanes = Lanes<Unit>;
    constexpr std::uint64_t all = ~std::uint64_t{0} >> (64 - lanes);
    if (segment.first == segment.length) return 0;
    std::size_t at = 0;
    for (; places - at > lanes; at += lanes) {
        const std::uint64_t fitting = WhereFits(all, text + at, segment);
        if (fitting != 0) return at + static_cast<std::size_t>(__builtin_ctzll(fitting));
    }
    if (places == 0) return 0;
    const std::uint64_t fitting = WhereFits(all >> (lanes - (places - at)), text + at, segment);
    return fitting != 0 ? at + static_cast<std::size_t>(__builtin_ctzll(fitting)) : places;
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
