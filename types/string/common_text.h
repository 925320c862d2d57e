#ifndef COMMON_TEXT_H
#define COMMON_TEXT_H

/// How far two texts are the same. Vectors of bytes are read that may reach behind a terminator, never onto a page on
/// which nothing of the text stands; a sanitizer cannot know that this is harmless and is kept out of these functions.

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>

#include "kernel_choice.h"

namespace ky {

/// Two texts of one width, up to `limit` bytes each: the byte offset of the first character that differs or, where none
/// does, of the terminator or `limit`.
using CommonTextKernel = std::size_t(const char* a, const char* b, std::size_t limit);

CommonTextKernel CommonBytes;  ///< 8-bit characters
CommonTextKernel CommonUnits;  ///< 16-bit characters at any address; `limit` is even

/// The same for whole 8-bit texts of which only the ranks of the characters matter: `ranks` has 256 of them. No
/// other character has that of the terminator.
using CommonRanksKernel = std::size_t(const unsigned char* ranks, const char* a, const char* b);

CommonRanksKernel CommonRanks;

/// The same for whole 16-bit texts (`swapped`: with swapped bytes), as far as the codes in both are below 256; one that
/// is not is a stop.
using CommonWideRanksKernel = std::size_t(const unsigned char* ranks, const char* a, const char* b, bool swapped);

CommonWideRanksKernel CommonWideRanks;

/// The variants, from the one for any machine to the one for the widest instructions.
struct CommonTextKernels {
    const char* name;
    CommonTextKernel* bytes;
    CommonTextKernel* units;
    CommonRanksKernel* ranks;
    CommonWideRanksKernel* wideRanks;
};
inline constexpr int kCommonTextVariants = 3;
extern const CommonTextKernels kCommonTextKernels[kCommonTextVariants];

/// How many of them this machine can run.
int RunnableCommonTextKernels();

CommonTextKernel CommonBytesAny, CommonBytesAvx2, CommonBytesAvx512;
CommonTextKernel CommonUnitsAny, CommonUnitsAvx2, CommonUnitsAvx512;
CommonRanksKernel CommonRanksAny, CommonRanksAvx512;
CommonWideRanksKernel CommonWideRanksAny, CommonWideRanksAvx512;

/// Pages are at least as large.
inline constexpr std::size_t kPageSize = 4096;

/// Bytes from an address to the end of its page.
inline std::size_t RoomInPage(const char* p) {
    return kPageSize - (reinterpret_cast<std::uintptr_t>(p) & (kPageSize - 1));
}

/// `count` bytes (a power of two) at one of the addresses reach onto another page.
inline bool EitherCrossesPage(const char* a, const char* b, std::size_t count) {
    const auto first = reinterpret_cast<std::uintptr_t>(a);
    const auto second = reinterpret_cast<std::uintptr_t>(b);
    return (((first ^ (first + count - 1)) | (second ^ (second + count - 1))) & kPageSize) != 0;
}

/// A bit for each of 16 bytes that is part of a character that differs or ends both texts.
template <unsigned width>
__attribute__((KY_UNINSTRUMENTED)) inline unsigned StopsIn16(const char* a, const char* b) {
    const __m128i charsA = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a));
    const __m128i charsB = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b));
    const __m128i zero = _mm_setzero_si128();
    const __m128i equal = width == 1 ? _mm_cmpeq_epi8(charsA, charsB) : _mm_cmpeq_epi16(charsA, charsB);
    const __m128i ends = width == 1 ? _mm_cmpeq_epi8(charsA, zero) : _mm_cmpeq_epi16(charsA, zero);
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_andnot_si128(ends, equal))) ^ 0xFFFF;
}

/// A character that differs or ends both texts.
template <unsigned width>
bool CharacterStops(const char* a, const char* b) {
    bool differs = false;
    bool ends = true;
    for (unsigned i = 0; i < width; ++i) {
        differs = differs || a[i] != b[i];
        ends = ends && a[i] == 0;
    }
    return differs || ends;
}

/// A 16-bit character that is beyond the ranks, has not the same one, or ends both texts.
inline bool WideRankStops(const unsigned char* ranks, const char* a, const char* b, bool swapped) {
    const auto* bytesA = reinterpret_cast<const unsigned char*>(a);
    const auto* bytesB = reinterpret_cast<const unsigned char*>(b);
    const unsigned low = swapped ? 1 : 0;
    return (bytesA[1 - low] | bytesB[1 - low]) != 0 || bytesA[low] == 0 || ranks[bytesA[low]] != ranks[bytesB[low]];
}

/// The beginning within which most words differ or end.
template <unsigned width>
inline constexpr std::size_t kHeadBytes = std::size_t{16} * width;

/// The same for the heads of two texts, which do not cross a page. The size of the head where they go on behind it.
template <unsigned width>
std::size_t CommonHead(const char* a, const char* b) {
    if constexpr (width == 1) {
        return static_cast<std::size_t>(std::countr_zero(StopsIn16<1>(a, b) | 0x10000));
    } else {
        return static_cast<std::size_t>(std::countr_zero(StopsIn16<2>(a, b) | StopsIn16<2>(a + 16, b + 16) << 16));
    }
}

template <unsigned width>
std::size_t CommonText(const char* a, const char* b) {
    constexpr std::size_t all = ~std::size_t{1};
    return width == 1 ? CommonBytes(a, b, all) : CommonUnits(a, b, all);
}

}  // namespace ky

#endif
