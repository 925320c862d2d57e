#ifndef RAW_KERNELS_H
#define RAW_KERNELS_H

/// The loops over long arrays of numbers. Each exists in three variants of the same text, compiled for any
/// x86-64, for AVX2 and for AVX-512; the loader picks one for the machine at hand.

#include <cstddef>
#include <cstdint>

namespace ky {

/// Index of the first byte in which two areas of `size` bytes differ; `size` when they are equal.
using FirstDifferenceKernel = std::size_t(const void* a, const void* b, std::size_t size);

/// XOR of the 8-byte words of an area of `size` bytes, in machine order; the last one is filled up with zeros.
using XorWordsKernel = std::uint64_t(const void* data, std::size_t size);

/// Index of the first of `count` floating-point numbers whose ranks differ (see `FloatingRank`); `count` when none
/// does. `reversed`: the bytes of each number stand in reversed order.
using FirstOtherRankKernel = std::size_t(const void* a, const void* b, std::size_t count, bool reversed);

FirstDifferenceKernel FirstDifference;
XorWordsKernel XorWords;
FirstOtherRankKernel FirstOtherRank32;
FirstOtherRankKernel FirstOtherRank64;

template <class Bits>
std::size_t FirstOtherRank(const void* a, const void* b, std::size_t count, bool reversed) {
    static_assert(sizeof(Bits) == 4 || sizeof(Bits) == 8);
    return sizeof(Bits) == 4 ? FirstOtherRank32(a, b, count, reversed) : FirstOtherRank64(a, b, count, reversed);
}

/// One variant of all of them.
struct RawKernels {
    const char* name;
    FirstDifferenceKernel* firstDifference;
    XorWordsKernel* xorWords;
    FirstOtherRankKernel* firstOtherRank32;
    FirstOtherRankKernel* firstOtherRank64;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kRawKernelVariants = 3;
extern const RawKernels kRawKernels[kRawKernelVariants];
int RunnableRawKernels();

}  // namespace ky

#endif
