#include <immintrin.h>

#include <cstdint>

#include "byte_order_kernels.h"
#include "reverse_shuffle.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx2")))

using Vector = __m256i;

KY_KERNEL_TARGET inline Vector LoadVector(const unsigned char* from) {
    return _mm256_loadu_si256(reinterpret_cast<const Vector*>(from));
}
KY_KERNEL_TARGET inline void StoreVector(unsigned char* to, Vector vector) {
    _mm256_storeu_si256(reinterpret_cast<Vector*>(to), vector);
}

template <unsigned Width>
KY_KERNEL_TARGET inline Vector ReverseVector(Vector vector) {
    if constexpr (Width == 1) return vector;
    return _mm256_shuffle_epi8(vector, _mm256_broadcastsi128_si256(ReverseShuffle<Width>()));
}

template <unsigned Width>
inline unsigned MoveShort(unsigned char* dst, const unsigned char* src, std::size_t count) {
    if constexpr (Width == 1) return CopyBytesSse2(dst, src, count);
    if constexpr (Width == 2) return ReverseBytes2Sse2(dst, src, count);
    if constexpr (Width == 4) return ReverseBytes4Sse2(dst, src, count);
    if constexpr (Width == 8) return ReverseBytes8Sse2(dst, src, count);
}

#include "move_loop.inl"

}  // namespace

KY_KERNEL_TARGET unsigned CopyBytesAvx2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<1>(dst, src, count);
}

KY_KERNEL_TARGET unsigned ReverseBytes2Avx2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<2>(dst, src, count);
}

KY_KERNEL_TARGET unsigned ReverseBytes4Avx2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<4>(dst, src, count);
}

KY_KERNEL_TARGET unsigned ReverseBytes8Avx2(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<8>(dst, src, count);
}

}  // namespace ky
