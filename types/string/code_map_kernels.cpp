#include "code_map_kernels.h"

#include <immintrin.h>

#include <bit>
#include <cstdint>
#include <cstring>

#include "byte_table_avx512.h"
#include "code_sets.h"
#include "kernel_choice.h"

namespace ky {
namespace {

constexpr std::size_t kBlock = 16;

__m128i Load(const char* from) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)); }
void Store(char* to, __m128i bytes) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes); }

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
    const UpperTable upper(table);
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
    for (; count >= kBlock; count -= kBlock, units += 2 * kBlock, bytes += kBlock) {
        const __m128i low = Load(units);
        const __m128i high = Load(units + kBlock);
        Store(bytes, _mm_packus_epi16(low, high));
        const __m128i isNarrow = _mm_packs_epi16(_mm_cmpeq_epi16(_mm_srl_epi16(low, narrowBits), zero),
                                                 _mm_cmpeq_epi16(_mm_srl_epi16(high, narrowBits), zero));
        for (unsigned others = 0xFFFF ^ static_cast<unsigned>(_mm_movemask_epi8(isNarrow)); others != 0;
             others &= others - 1) {
            const auto i = static_cast<std::size_t>(std::countr_zero(others));
            bytes[i] = ByteOf(map, ReadUnit(units + 2 * i, 1), substitute);
        }
    }
    for (std::size_t i = 0; i < count; ++i) bytes[i] = ByteOf(map, ReadUnit(units + 2 * i, 1), substitute);
}

std::size_t UnitsBeforeZero(const char* units, std::size_t count) {
    const __m128i zero = _mm_setzero_si128();
    std::size_t at = 0;
    for (; count - at >= kBlock; at += kBlock) {
        const __m128i low = _mm_cmpeq_epi16(Load(units + 2 * at), zero);
        const __m128i high = _mm_cmpeq_epi16(Load(units + 2 * at + kBlock), zero);
        const int ends = _mm_movemask_epi8(_mm_packs_epi16(low, high));
        if (ends != 0) return at + static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(ends)));
    }
    while (at < count && ReadUnit(units + 2 * at, 1) != 0) ++at;
    return at;
}

}  // namespace ky
