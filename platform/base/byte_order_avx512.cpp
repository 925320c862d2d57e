#include <immintrin.h>

#include <cstdint>

#include "byte_order_kernels.h"
#include "reverse_shuffle.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx512bw")))

using Vector = __m512i;

KY_KERNEL_TARGET inline Vector LoadVector(const unsigned char* from) { return _mm512_loadu_si512(from); }
KY_KERNEL_TARGET inline void StoreVector(unsigned char* to, Vector vector) { _mm512_storeu_si512(to, vector); }

/// The masked form of a broadcast with nothing masked out: the same instruction, without the indeterminate operand
/// that the plain form's header is warned about.
constexpr __mmask16 everyLane = 0xFFFF;

template <unsigned Width>
KY_KERNEL_TARGET inline Vector ReverseVector(Vector vector) {
    if constexpr (Width == 1) return vector;
    return _mm512_shuffle_epi8(vector, _mm512_maskz_broadcast_i32x4(everyLane, ReverseShuffle<Width>()));
}

template <unsigned Width>
inline unsigned MoveShort(unsigned char* dst, const unsigned char* src, std::size_t count) {
    if constexpr (Width == 1) return CopyBytesAvx2(dst, src, count);
    if constexpr (Width == 2) return ReverseBytes2Avx2(dst, src, count);
    if constexpr (Width == 4) return ReverseBytes4Avx2(dst, src, count);
    if constexpr (Width == 8) return ReverseBytes8Avx2(dst, src, count);
}

#include "move_loop.inl"

}  // namespace

KY_KERNEL_TARGET unsigned CopyBytesAvx512(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<1>(dst, src, count);
}

KY_KERNEL_TARGET unsigned ReverseBytes2Avx512(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<2>(dst, src, count);
}

KY_KERNEL_TARGET unsigned ReverseBytes4Avx512(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<4>(dst, src, count);
}

KY_KERNEL_TARGET unsigned ReverseBytes8Avx512(unsigned char* dst, const unsigned char* src, std::size_t count) {
    return MoveArray<8>(dst, src, count);
}

}  // namespace ky
