#ifndef BLOB_KERNELS_H
#define BLOB_KERNELS_H

/// The loops over the bytes of blobs. Each exists in three variants of the same text, compiled for any x86-64, for AVX2
/// and for AVX-512; the loader picks one for the machine at hand. What is done with one blob ends with a call of them.

#include <cstddef>

namespace ky {

/// Copies `size` bytes and returns `result`. Where the areas overlap `dst` must stand in front of `src`.
using CopyRunKernel = unsigned(void* dst, const void* src, std::size_t size, unsigned result);

/// -1, 0 or 1: the first bytes that differ decide, as unsigned numbers, or else the lengths.
using OrderRunsKernel = int(const void* a, std::size_t lengthA, const void* b, std::size_t lengthB);

CopyRunKernel CopyRun;
OrderRunsKernel OrderRuns;

/// One variant of both.
struct BlobKernels {
    const char* name;
    CopyRunKernel* copyRun;
    OrderRunsKernel* orderRuns;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kBlobKernelVariants = 3;
extern const BlobKernels kBlobKernels[kBlobKernelVariants];
int RunnableBlobKernels();

}  // namespace ky

#endif
