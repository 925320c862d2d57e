#include <emmintrin.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

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
    const Vector swapped = _mm_or_si128(_mm_slli_epi16(vector, 8), _mm_srli_epi16(vector, 8));
    if constexpr (Width == 2) return swapped;
    constexpr int order = Width == 4 ? _MM_SHUFFLE(2, 3, 0, 1) : _MM_SHUFFLE(0, 1, 2, 3);
    return _mm_shufflehi_epi16(_mm_shufflelo_epi16(swapped, order), order);
}

template <unsigned Width>
inline void ReverseShort(unsigned char* dst, const unsigned char* src, std::size_t count) {
    using Value =
        std::conditional_t<Width == 2, std::uint16_t, std::conditional_t<Width == 4, std::uint32_t, std::uint64_t>>;
    for (std::size_t i = 0; i < count; ++i) {
        Value value;
        std::memcpy(&value, src + i * Width, Width);
        value = ByteSwap(value);
        std::memcpy(dst + i * Width, &value, Width);
    }
}

#include "reverse_loop.inl"

}  // namespace

void ReverseBytes2Sse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    ReverseArray<2>(dst, src, count);
}

void ReverseBytes4Sse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    ReverseArray<4>(dst, src, count);
}

void ReverseBytes8Sse2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    ReverseArray<8>(dst, src, count);
}

}  // namespace ky
