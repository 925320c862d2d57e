#include "blob_kernels.h"

#include <algorithm>
#include <cstdint>

#include "array_rules.h"
#include "kernel_choice.h"
#include "raw_bytes.h"
#include "raw_kernels.h"

// Names the one text that three functions are compiled from, each for its own instructions.
#define KY_KERNEL [[gnu::always_inline]] inline

namespace ky {
namespace {

typedef std::uint64_t Vector16 __attribute__((vector_size(16)));
typedef std::uint64_t Vector32 __attribute__((vector_size(32)));
typedef std::uint64_t Vector64 __attribute__((vector_size(64)));

/// What is longer is copied by the C library, whose start takes longer and which knows the caches.
constexpr std::size_t kMostBytes = 4096;

/// By reference: a vector that a function returned would have to fit the instructions of any machine.
template <class Vector>
KY_KERNEL void Load(Vector& vector, const unsigned char* from) {
    std::memcpy(&vector, from, sizeof vector);
}
template <class Vector>
KY_KERNEL void Store(unsigned char* to, const Vector& vector) {
    std::memcpy(to, &vector, sizeof vector);
}

template <class Vector>
KY_KERNEL unsigned CopyRunText(void* dst, const void* src, std::size_t size, unsigned result) {
    constexpr std::size_t width = sizeof(Vector);
    if (size < 2 * width || size > kMostBytes) {
        CopyBytes(dst, src, size);
        return result;
    }
    unsigned char* const to = Advance(dst, 0);
    const unsigned char* const from = Advance(src, 0);
    // The ends are written last: until then they may still be read.
    Vector first;
    Vector last;
    Load(first, from);
    Load(last, from + size - width);
    // Writing goes along the lines of the cache.
    std::size_t at = width - (reinterpret_cast<std::uintptr_t>(to) & (width - 1));
    for (; at + 4 * width <= size; at += 4 * width) {
        Vector a;
        Vector b;
        Vector c;
        Vector d;
        Load(a, from + at);
        Load(b, from + at + width);
        Load(c, from + at + 2 * width);
        Load(d, from + at + 3 * width);
        Store(to + at, a);
        Store(to + at + width, b);
        Store(to + at + 2 * width, c);
        Store(to + at + 3 * width, d);
    }
    for (; at + width < size; at += width) {
        Vector vector;
        Load(vector, from + at);
        Store(to + at, vector);
    }
    Store(to, first);
    Store(to + size - width, last);
    return result;
}

/// The size is fixed, so that the loop becomes a few vector instructions.
template <std::size_t size>
KY_KERNEL bool BlockDiffers(const unsigned char* a, const unsigned char* b) {
    std::uint64_t difference = 0;
    for (std::size_t i = 0; i < size; i += 8) difference |= LoadAs<std::uint64_t>(a + i) ^ LoadAs<std::uint64_t>(b + i);
    return difference != 0;
}

/// The order of runs that are equal up to `at`. Not inlined, so that it costs nothing where runs are equal.
[[gnu::noinline]] int OrderFrom(const unsigned char* a, std::size_t lengthA, const unsigned char* b,
                                std::size_t lengthB, std::size_t at) {
    const std::size_t common = std::min(lengthA, lengthB);
    at += FirstDifference(a + at, b + at, common - at);
    return at != common ? Order(a[at], b[at]) : Order(lengthA, lengthB);
}

KY_KERNEL int OrderRunsText(const void* areaA, std::size_t lengthA, const void* areaB, std::size_t lengthB) {
    constexpr std::size_t block = 512;
    const unsigned char* const a = Advance(areaA, 0);
    const unsigned char* const b = Advance(areaB, 0);
    const std::size_t common = std::min(lengthA, lengthB);
    // What is longer is looked at along the lines of the cache.
    if (common < block || common > kMostBytes) return OrderFrom(a, lengthA, b, lengthB, 0);
    std::size_t at = 0;
    for (; at + block <= common; at += block) {
        if (BlockDiffers<block>(a + at, b + at)) return OrderFrom(a, lengthA, b, lengthB, at);
    }
    // The last block reaches back into what is known to be equal.
    if (at != common && BlockDiffers<block>(a + common - block, b + common - block)) {
        return OrderFrom(a, lengthA, b, lengthB, common - block);
    }
    return Order(lengthA, lengthB);
}

// --- for any x86-64 ---

unsigned CopyRunAny(void* dst, const void* src, std::size_t size, unsigned result) {
    return CopyRunText<Vector16>(dst, src, size, result);
}
int OrderRunsAny(const void* a, std::size_t lengthA, const void* b, std::size_t lengthB) {
    return OrderRunsText(a, lengthA, b, lengthB);
}

// --- with AVX2 ---

#define KY_AVX2 [[gnu::target("avx2")]]

KY_AVX2 unsigned CopyRunAvx2(void* dst, const void* src, std::size_t size, unsigned result) {
    return CopyRunText<Vector32>(dst, src, size, result);
}
KY_AVX2 int OrderRunsAvx2(const void* a, std::size_t lengthA, const void* b, std::size_t lengthB) {
    return OrderRunsText(a, lengthA, b, lengthB);
}

// --- with AVX-512 ---

#define KY_AVX512 [[gnu::target("avx2,avx512f,avx512bw,avx512dq,avx512vl")]]

KY_AVX512 unsigned CopyRunAvx512(void* dst, const void* src, std::size_t size, unsigned result) {
    return CopyRunText<Vector64>(dst, src, size, result);
}
KY_AVX512 int OrderRunsAvx512(const void* a, std::size_t lengthA, const void* b, std::size_t lengthB) {
    return OrderRunsText(a, lengthA, b, lengthB);
}

}  // namespace

constinit const BlobKernels kBlobKernels[kBlobKernelVariants] = {
    {"any", CopyRunAny, OrderRunsAny},
    {"avx2", CopyRunAvx2, OrderRunsAvx2},
    {"avx512", CopyRunAvx512, OrderRunsAvx512},
};

KY_RESOLVER int RunnableBlobKernels() { return RunnableVariants(); }

extern "C" {
KY_RESOLVER CopyRunKernel* KyResolveCopyRun() {
    return WidestOf(RunnableBlobKernels(), &CopyRunAny, &CopyRunAvx2, &CopyRunAvx512);
}
KY_RESOLVER OrderRunsKernel* KyResolveOrderRuns() {
    return WidestOf(RunnableBlobKernels(), &OrderRunsAny, &OrderRunsAvx2, &OrderRunsAvx512);
}
}

__attribute__((ifunc("KyResolveCopyRun"))) CopyRunKernel CopyRun;
__attribute__((ifunc("KyResolveOrderRuns"))) OrderRunsKernel OrderRuns;

}  // namespace ky
