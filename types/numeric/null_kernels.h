#ifndef NULL_KERNELS_H
#define NULL_KERNELS_H

/// The loops over long arrays of nullable numbers. Each exists for any x86-64, for AVX2 and for AVX-512 with its byte
/// permutations; the loader picks one for the machine at hand. See `null_layout.h` for the bytes.

#include <cstddef>
#include <cstdint>

#include "null_layout.h"

namespace ky {

/// Memory form to stored or packed form, and back. The areas must not overlap; exactly `count` elements of each are
/// read and written.
using NullMoveKernel = void(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count);

/// Index of the first of `count` elements in memory form whose numbers or flags differ in a byte; `count` when there
/// is none. Padding does not count.
using FirstOtherNullableKernel = std::size_t(NullLayout layout, const void* a, const void* b, std::size_t count);

/// The hash of `count` elements in memory form: those of the elements combined by exclusive or. `bothHalves`: the two
/// halves of 8-byte numbers are combined, otherwise the low one stands for both.
using HashNullablesKernel = std::uint32_t(NullLayout layout, bool bothHalves, const void* data, std::size_t count);

NullMoveKernel PackNullables;
NullMoveKernel UnpackNullables;
FirstOtherNullableKernel FirstOtherNullable;
HashNullablesKernel HashNullables;

NullMoveKernel PackNullablesAny, UnpackNullablesAny;
NullMoveKernel PackNullablesAvx2, UnpackNullablesAvx2;
NullMoveKernel PackNullablesAvx512, UnpackNullablesAvx512;
FirstOtherNullableKernel FirstOtherNullableAny, FirstOtherNullableAvx2, FirstOtherNullableAvx512;
HashNullablesKernel HashNullablesAny, HashNullablesAvx2, HashNullablesAvx512;

/// One variant of all of them.
struct NullKernels {
    const char* name;
    NullMoveKernel* pack;
    NullMoveKernel* unpack;
    FirstOtherNullableKernel* firstOther;
    HashNullablesKernel* hash;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kNullKernelVariants = 3;
extern const NullKernels kNullKernels[kNullKernelVariants];
int RunnableNullKernels();

}  // namespace ky

#endif
