#include "raw_kernels.h"

#include <bit>
#include <type_traits>

#include "kernel_choice.h"
#include "number_bits.h"
#include "raw_bytes.h"

// Names the one text that three functions are compiled from, each for its own instructions.
#define KY_KERNEL [[gnu::always_inline]] inline

namespace ky {
namespace {

static_assert(std::endian::native == std::endian::little, "the first byte of a word is its lowest one");

/// The size is fixed, so that the loop becomes a few vector instructions.
template <std::size_t size>
KY_KERNEL bool BlockDiffers(const unsigned char* a, const unsigned char* b) {
    std::uint64_t difference = 0;
    for (std::size_t at = 0; at < size; at += 8)
        difference |= LoadAs<std::uint64_t>(a + at) ^ LoadAs<std::uint64_t>(b + at);
    return difference != 0;
}

/// Index of the first difference, which is known to stand at `at` or behind it.
KY_KERNEL std::size_t KnownDifference(const unsigned char* a, const unsigned char* b, std::size_t at) {
    for (;; at += 8) {
        const std::uint64_t difference = LoadAs<std::uint64_t>(a + at) ^ LoadAs<std::uint64_t>(b + at);
        if (difference != 0) return at + static_cast<std::size_t>(std::countr_zero(difference)) / 8;
    }
}

/// Passes the equal blocks of `size` bytes from `at` on that lie before `end`; true at one that differs.
template <std::size_t size>
KY_KERNEL bool StopsAtBlock(const unsigned char* a, const unsigned char* b, std::size_t& at, std::size_t end) {
    for (; end - at >= size; at += size) {
        if (BlockDiffers<size>(a + at, b + at)) return true;
    }
    return false;
}

KY_KERNEL std::size_t FirstDifferenceText(const void* areaA, const void* areaB, std::size_t size) {
    const unsigned char* a = Advance(areaA, 0);
    const unsigned char* b = Advance(areaB, 0);
    std::size_t at = 0;
    if (size < 64) {
        if (StopsAtBlock<8>(a, b, at, size)) return KnownDifference(a, b, at);
        while (at < size && a[at] == b[at]) ++at;
        return at;
    }
    if (size >= 512) {
        if (BlockDiffers<64>(a, b)) return KnownDifference(a, b, 0);
        // One of the two is read along the lines of the cache from here on.
        at = 64 - (reinterpret_cast<std::uintptr_t>(a) & 63);
        // The last block reaches back into what is known to be equal.
        if (!StopsAtBlock<512>(a, b, at, size) && !BlockDiffers<512>(a + size - 512, b + size - 512)) return size;
    }
    // A block that differs is searched in smaller ones.
    StopsAtBlock<128>(a, b, at, size);
    if (StopsAtBlock<64>(a, b, at, size)) return KnownDifference(a, b, at);
    // The last block may begin in what is known to be equal.
    if (at == size || !BlockDiffers<64>(a + size - 64, b + size - 64)) return size;
    return KnownDifference(a, b, size - 64);
}

typedef std::uint64_t Vector16 __attribute__((vector_size(16)));
typedef std::uint64_t Vector32 __attribute__((vector_size(32)));
typedef std::uint64_t Vector64 __attribute__((vector_size(64)));

/// By reference: a vector that a function returned would have to fit the instructions of any machine.
template <class Vector>
KY_KERNEL void XorInto(Vector& sum, const void* from) {
    Vector vector;
    std::memcpy(&vector, from, sizeof vector);
    sum ^= vector;
}

constexpr std::uint64_t kOnes = ~std::uint64_t{0};
/// Read so that it ends `n` bytes behind its middle, it keeps the last `n` bytes of a vector.
alignas(64) constexpr std::uint64_t kKeepLast[16] = {0,     0,     0,     0,     0,     0,     0,     0,
                                                     kOnes, kOnes, kOnes, kOnes, kOnes, kOnes, kOnes, kOnes};

/// The bytes behind the last whole word, as a word filled up with zeros.
KY_KERNEL std::uint64_t LastPartialWord(const unsigned char* data, std::size_t size) {
    const std::size_t rest = size % 8;
    if (rest == 0) return 0;
    if (size >= 8) return LoadAs<std::uint64_t>(data + size - 8) >> (64 - 8 * rest);
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < rest; ++i) word |= std::uint64_t{data[i]} << (8 * i);
    return word;
}

/// XOR of a vector's words, halved until it is one. The halves of a vector are two of the next smaller ones.
KY_KERNEL std::uint64_t XorOfWords(const Vector16& vector) { return vector[0] ^ vector[1]; }
template <class Vector>
KY_KERNEL std::uint64_t XorOfWords(const Vector& vector) {
    using Half = std::conditional_t<sizeof(Vector) == sizeof(Vector64), Vector32, Vector16>;
    Half halves[2];
    std::memcpy(halves, &vector, sizeof halves);
    halves[0] ^= halves[1];
    return XorOfWords(halves[0]);
}

template <class Vector>
KY_KERNEL std::uint64_t XorWordsText(const void* area, std::size_t size) {
    constexpr std::size_t width = sizeof(Vector);
    const unsigned char* data = Advance(area, 0);
    const std::size_t words = size - size % 8;
    std::uint64_t result = LastPartialWord(data, size);
    std::size_t at = 0;
    if (words < width) {
        for (; at < words; at += 8) result ^= LoadAs<std::uint64_t>(data + at);
        return result;
    }
    // Four sums, so that no addition waits for the one before it.
    Vector sums[4] = {};
    for (; words - at >= 4 * width; at += 4 * width) {
        for (std::size_t i = 0; i < 4; ++i) XorInto(sums[i], data + at + i * width);
    }
    for (; words - at >= width; at += width) XorInto(sums[0], data + at);
    // The last vector reaches back over words that are in the sums: these are masked out.
    Vector last = {};
    Vector kept = {};
    XorInto(last, data + words - width);
    XorInto(kept, reinterpret_cast<const unsigned char*>(kKeepLast) + 64 - width + (words - at));
    sums[1] ^= last & kept;
    const Vector sum = (sums[0] ^ sums[1]) ^ (sums[2] ^ sums[3]);
    return result ^ XorOfWords(sum);
}

template <class Bits, bool reversed>
KY_KERNEL bool RanksDiffer(const unsigned char* a, const unsigned char* b) {
    const auto bitsA = LoadAs<Bits>(a);
    const auto bitsB = LoadAs<Bits>(b);
    return FloatingRank(reversed ? ByteSwap(bitsA) : bitsA) != FloatingRank(reversed ? ByteSwap(bitsB) : bitsB);
}

template <class Bits, bool reversed>
KY_KERNEL std::size_t FirstOtherRankIn(const unsigned char* a, const unsigned char* b, std::size_t count) {
    constexpr std::size_t kBlock = 16;
    std::size_t at = 0;
    for (; count - at >= kBlock; at += kBlock) {
        Bits differ = 0;
        for (std::size_t i = at; i < at + kBlock; ++i) {
            differ |= static_cast<Bits>(RanksDiffer<Bits, reversed>(a + i * sizeof(Bits), b + i * sizeof(Bits)));
        }
        if (differ != 0) break;
    }
    while (at < count && !RanksDiffer<Bits, reversed>(a + at * sizeof(Bits), b + at * sizeof(Bits))) ++at;
    return at;
}

template <class Bits>
KY_KERNEL std::size_t FirstOtherRankText(const void* a, const void* b, std::size_t count, bool reversed) {
    return reversed ? FirstOtherRankIn<Bits, true>(Advance(a, 0), Advance(b, 0), count)
                    : FirstOtherRankIn<Bits, false>(Advance(a, 0), Advance(b, 0), count);
}

// --- for any x86-64 ---

std::size_t FirstDifferenceAny(const void* a, const void* b, std::size_t size) {
    return FirstDifferenceText(a, b, size);
}
std::uint64_t XorWordsAny(const void* data, std::size_t size) { return XorWordsText<Vector16>(data, size); }
std::size_t FirstOtherRank32Any(const void* a, const void* b, std::size_t count, bool reversed) {
    return FirstOtherRankText<std::uint32_t>(a, b, count, reversed);
}
std::size_t FirstOtherRank64Any(const void* a, const void* b, std::size_t count, bool reversed) {
    return FirstOtherRankText<std::uint64_t>(a, b, count, reversed);
}

// --- with AVX2 ---

#define KY_AVX2 [[gnu::target("avx2")]]

KY_AVX2 std::size_t FirstDifferenceAvx2(const void* a, const void* b, std::size_t size) {
    return FirstDifferenceText(a, b, size);
}
KY_AVX2 std::uint64_t XorWordsAvx2(const void* data, std::size_t size) { return XorWordsText<Vector32>(data, size); }
KY_AVX2 std::size_t FirstOtherRank32Avx2(const void* a, const void* b, std::size_t count, bool reversed) {
    return FirstOtherRankText<std::uint32_t>(a, b, count, reversed);
}
KY_AVX2 std::size_t FirstOtherRank64Avx2(const void* a, const void* b, std::size_t count, bool reversed) {
    return FirstOtherRankText<std::uint64_t>(a, b, count, reversed);
}

// --- with AVX-512 ---

#define KY_AVX512 [[gnu::target("avx2,avx512f,avx512bw,avx512dq,avx512vl")]]

KY_AVX512 std::size_t FirstDifferenceAvx512(const void* a, const void* b, std::size_t size) {
    return FirstDifferenceText(a, b, size);
}
KY_AVX512 std::uint64_t XorWordsAvx512(const void* data, std::size_t size) {
    return XorWordsText<Vector64>(data, size);
}
KY_AVX512 std::size_t FirstOtherRank32Avx512(const void* a, const void* b, std::size_t count, bool reversed) {
    return FirstOtherRankText<std::uint32_t>(a, b, count, reversed);
}
KY_AVX512 std::size_t FirstOtherRank64Avx512(const void* a, const void* b, std::size_t count, bool reversed) {
    return FirstOtherRankText<std::uint64_t>(a, b, count, reversed);
}

}  // namespace

constinit const RawKernels kRawKernels[kRawKernelVariants] = {
    {"any", FirstDifferenceAny, XorWordsAny, FirstOtherRank32Any, FirstOtherRank64Any},
    {"avx2", FirstDifferenceAvx2, XorWordsAvx2, FirstOtherRank32Avx2, FirstOtherRank64Avx2},
    {"avx512", FirstDifferenceAvx512, XorWordsAvx512, FirstOtherRank32Avx512, FirstOtherRank64Avx512},
};

KY_RESOLVER int RunnableRawKernels() { return RunnableVariants(); }

namespace {
template <class Kernel>
KY_RESOLVER inline Kernel* Choose(Kernel* any, Kernel* avx2, Kernel* avx512) {
    return WidestOf(RunnableRawKernels(), any, avx2, avx512);
}
}  // namespace

extern "C" {
KY_RESOLVER FirstDifferenceKernel* KyResolveFirstDifference() {
    return Choose(&FirstDifferenceAny, &FirstDifferenceAvx2, &FirstDifferenceAvx512);
}
KY_RESOLVER XorWordsKernel* KyResolveXorWords() { return Choose(&XorWordsAny, &XorWordsAvx2, &XorWordsAvx512); }
KY_RESOLVER FirstOtherRankKernel* KyResolveFirstOtherRank32() {
    return Choose(&FirstOtherRank32Any, &FirstOtherRank32Avx2, &FirstOtherRank32Avx512);
}
KY_RESOLVER FirstOtherRankKernel* KyResolveFirstOtherRank64() {
    return Choose(&FirstOtherRank64Any, &FirstOtherRank64Avx2, &FirstOtherRank64Avx512);
}
}

__attribute__((ifunc("KyResolveFirstDifference"))) FirstDifferenceKernel FirstDifference;
__attribute__((ifunc("KyResolveXorWords"))) XorWordsKernel XorWords;
__attribute__((ifunc("KyResolveFirstOtherRank32"))) FirstOtherRankKernel FirstOtherRank32;
__attribute__((ifunc("KyResolveFirstOtherRank64"))) FirstOtherRankKernel FirstOtherRank64;

}  // namespace ky
