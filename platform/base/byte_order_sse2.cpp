#include <emmintrin.h>

#include <cstdint>
#include <cstring>

#include "byte_order_kernels.h"
#include "byte_swap.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET

using Vector = __m128i;

inline Vector LoadVector(const unsigned char* from) { return _mm_loadu_si128(reinterpret_cast<const Vector*>(from)); }
inline void StoreVector(unsigned char* to, Vector vector) { _mm_storeu_si128(reinterpret_cast<Vector*>(to), vector); }

/// Without a byte shuffle: the bytes of each 16-bit unit are exchanged, then the units of each element.
template <unsigned Width>
inline Vector ReverseVector(Vector vector) {
    if constexpr (Width == 1) return vector;
    const Vector swapped = _mm_or_si128(_mm_slli_epi16(vector, 8), _mm_srli_epi16(vector, 8));
    if constexpr (Width == 2) return swapped;
    constexpr int order = Width == 4 ? _MM_SHUFFLE(2, 3, 0, 1) : _MM_SHUFFLE(0, 1, 2, 3);
    return _mm_shufflehi_epi16(_mm_shufflelo_epi16(swapped, order), order);
}

template <class Value>
inline void ReverseEach(unsigned char* dst, const unsigned char* src, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        Value value;
        std::memcpy(&value, src + i * sizeof value, sizeof value);
        value = ByteSwap(value);
        std::memcpy(dst + i * sizeof value, &value, sizeof value);
    }
}

template <unsigned Width>
inline unsigned MoveShort(unsigned char* dst, const unsigned char* src, std::size_t count) {
    if constexpr (Width == 1) {
        if (count != 0) std::memmove(dst, src, count);
    }
    if constexpr (Width == 2) ReverseEach<std::uint16_t>(dst, src, count);
    if constexpr (Width == 4) ReverseEach<std::uint32_t>(dst, src, count);
    if constexpr (Width == 8) ReverseEach<std::uint64_t>(dst, src, count);
    return static_cast<unsigned>(Width * count);
}

#include "move_loop.inl"

}  // namespace

unsigned CopyBytesSse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<1>(dst, src, count);
}

unsigned ReverseBytes2Sse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<2>(dst, src, count);
}

unsigned ReverseBytes4Sse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<4>(dst, src, count);
}

unsigned ReverseBytes8Sse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<8>(dst, src, count);
}

}  // namespace ky
