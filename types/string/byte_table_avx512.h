#ifndef BYTE_TABLE_AVX512_H
#define BYTE_TABLE_AVX512_H

/// Looks bytes up in a table of units that is kept in registers. For the kernels with AVX-512.

#include <immintrin.h>

#include <cstddef>

#include "kyi18n.h"

namespace ky {

#define KY_TABLE_TARGET __attribute__((target("avx2,avx512f,avx512bw,avx512dq,avx512vl")))

/// Every byte as its own unit.
constexpr struct SameUnits {
    unsigned short units[256]{};
    constexpr SameUnits() {
        for (unsigned short i = 0; i < 256; ++i) units[i] = i;
    }
} kSame;

/// The 128 units of the bytes from 0x80 on. A null table: every byte is its unit. The unit 0 reads as
/// `KyCodeSet::Substitute`.
struct UpperTable {
    __m512i quarter[4];

    KY_TABLE_TARGET explicit UpperTable(const unsigned short* table) {
        if (table == nullptr) table = kSame.units;
        for (std::size_t i = 0; i < 4; ++i) quarter[i] = _mm512_loadu_si512(table + 0x80 + 32 * i);
    }
    /// The units of 32 bytes in units of their own.
    KY_TABLE_TARGET __m512i Of(__m512i codes) const {
        constexpr __mmask32 kEvery = ~__mmask32{0};
        // An index is looked up by its lower six bits.
        const __m512i lower = _mm512_maskz_permutex2var_epi16(kEvery, quarter[0], codes, quarter[1]);
        const __m512i upper = _mm512_maskz_permutex2var_epi16(kEvery, quarter[2], codes, quarter[3]);
        const __mmask32 isUpper = _mm512_test_epi16_mask(codes, _mm512_set1_epi16(0x40));
        const __m512i units = _mm512_mask_mov_epi16(lower, isUpper, upper);
        const __m512i substitute = _mm512_set1_epi16(static_cast<short>(KyCodeSet::Substitute));
        const __m512i present = _mm512_mask_mov_epi16(units, _mm512_testn_epi16_mask(units, units), substitute);
        return _mm512_mask_mov_epi16(codes, _mm512_test_epi16_mask(codes, _mm512_set1_epi16(0x80)), present);
    }
};

}  // namespace ky

#endif
