#ifndef ODMG_KERNELS_H
#define ODMG_KERNELS_H

/// The loops over long arrays of stored `d_Date`s and `d_Timestamp`s, for any x86-64, for AVX2 and for AVX-512; the
/// loader picks one for the machine at hand.

#include <cstddef>
#include <cstdint>

namespace ky {

/// The day numbers of `count` dates, combined by exclusive or. `reversed`: the years have their high byte first.
using XorDayNumbersKernel = std::uint32_t(const void* dates, std::size_t count, bool reversed);

/// Copies `count` time stamps with the bytes of their years exchanged. `dst` may be `src`, but not overlap it
/// otherwise.
using SwapYearsKernel = void(void* dst, const void* src, std::size_t count);

XorDayNumbersKernel XorDayNumbers;
SwapYearsKernel SwapYears;

/// One variant of both.
struct OdmgKernels {
    XorDayNumbersKernel* xorDayNumbers;
    SwapYearsKernel* swapYears;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kOdmgKernelVariants = 3;
extern const OdmgKernels kOdmgKernels[kOdmgKernelVariants];
int RunnableOdmgKernels();

}  // namespace ky

#endif
