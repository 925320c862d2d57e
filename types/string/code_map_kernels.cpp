#include "code_map_kernels.h"

#include <immintrin.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "code_sets.h"
#include "kernel_choice.h"

namespace ky {
namespace {

constexpr std::size_t kBlock = 16;

__m128i Load(const char* from) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)); }
void Store(char* to, __m128i bytes) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes); }

/// Every byte as its own unit.
constexpr struct SameUnits {
    unsigned short units[256]{};
    constexpr SameUnits() {
        for (unsigned short i = 0; i < 256; ++i) units[i] = i;
    }
} kSame;
void LookUp(const unsigned short* table, const char* bytes, std::size_t n, char* units) {
    for (std::size_t i = 0; i < n; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const unsigned short unit = table == nullptr ? byte : table[byte];
        WriteUnit(units + 2 * i, unit == 0 && byte != 0 ? KyCodeSet::Substitute : unit, 1);
    }
}

char ByteOf(const KyUnicodeMap* map, unsigned unit, char substitute) {
    if (map == nullptr) return unit < 0x100 ? static_cast<char>(unit) : substitute;
    const unsigned char byte = map->pages[map->pageOf[unit >> 8]][unit & 0xFF];
    return byte != 0 ? static_cast<char>(byte) : substitute;
}

#define KY_KERNEL_TARGET __attribute__((target("avx2,avx512f,avx512bw,avx512dq,avx512vl")))

/// The 128 units of the bytes from 0x80 on, in registers.
struct UpperTable {
    __m512i quarter[4];

    KY_KERNEL_TARGET explicit UpperTable(const unsigned short* table) {
        for (int i = 0; i < 4; ++i) quarter[i] = _mm512_loadu_si512(table + 0x80 + 32 * i);
    }
    /// The units of 32 bytes in units of their own.
    KY_KERNEL_TARGET __m512i Of(__m512i codes) const {
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

}  // namespace

void BytesToUnitsAny(const unsigned short* table, const char* bytes, std::size_t count, char* units) {
    const __m128i zero = _mm_setzero_si128();
    for (; count >= kBlock; count -= kBlock, bytes += kBlock, units += 2 * kBlock) {
        const __m128i block = Load(bytes);
        if (table != nullptr && _mm_movemask_epi8(block) != 0) {
            LookUp(table, bytes, kBlock, units);
            continue;
        }
        Store(units, _mm_unpacklo_epi8(block, zero));
        Store(units + kBlock, _mm_unpackhi_epi8(block, zero));
    }
    LookUp(table, bytes, count, units);
}

KY_KERNEL_TARGET void BytesToUnitsAvx512(const unsigned short* table, const char* bytes, std::size_t count,
                                         char* units) {
    constexpr __mmask32 kEvery = ~__mmask32{0};
    const auto rest = static_cast<__mmask32>((std::uint64_t{1} << count % 32) - 1);
    const UpperTable upper(table != nullptr ? table : kSame.units);
    for (const char* const end = bytes + count / 32 * 32; bytes != end; bytes += 32, units += 64) {
        __m256i block;
        std::memcpy(&block, bytes, sizeof block);
        _mm512_storeu_si512(units, upper.Of(_mm512_maskz_cvtepu8_epi16(kEvery, block)));
    }
    if (rest == 0) return;
    const __m512i last = _mm512_maskz_cvtepu8_epi16(kEvery, _mm256_maskz_loadu_epi8(rest, bytes));
    _mm512_mask_storeu_epi16(units, rest, upper.Of(last));
}

KY_RESOLVER bool RunsBytesToUnitsAvx512() { return RunnableVariants() == 3; }

extern "C" KY_RESOLVER BytesToUnitsKernel* KyResolveBytesToUnits() {
    return RunsBytesToUnitsAvx512() ? &BytesToUnitsAvx512 : &BytesToUnitsAny;
}
__attribute__((ifunc("KyResolveBytesToUnits"))) BytesToUnitsKernel BytesToUnits;

void UnitsToBytes(const KyUnicodeMap* map, const char* units, std::size_t count, char* bytes, char substitute) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i narrowBits = _mm_cvtsi32_si128(map == nullptr ? 8 : 7);
    while (count != 0) {
        const std::size_t n = std::min(count, kBlock);
        bool isNarrow = false;
        if (n == kBlock) {
            const __m128i low = Load(units);
            const __m128i high = Load(units + kBlock);
            const __m128i upper = _mm_srl_epi16(_mm_or_si128(low, high), narrowBits);
            isNarrow = _mm_movemask_epi8(_mm_cmpeq_epi16(upper, zero)) == 0xFFFF;
            if (isNarrow) Store(bytes, _mm_packus_epi16(low, high));
        }
        if (!isNarrow) {
            for (std::size_t i = 0; i < n; ++i) bytes[i] = ByteOf(map, ReadUnit(units + 2 * i, 1), substitute);
        }
        units += 2 * n;
        bytes += n;
        count -= n;
    }
}

}  // namespace ky
