#ifndef ODMG_KERNELS_H
#define ODMG_KERNELS_H

/// The loop over long arrays of stored `d_Date`s, for any x86-64, for AVX2 and for AVX-512; the loader picks one for
/// the machine at hand.

#include <cstddef>
#include <cstdint>

namespace ky {

/// The day numbers of `count` dates, combined by exclusive or. `reversed`: the years have their high byte first.
using XorDayNumbersKernel = std::uint32_t(const void* dates, std::size_t count, bool reversed);

XorDayNumbersKernel XorDayNumbers;

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kOdmgKernelVariants = 3;
extern XorDayNumbersKernel* const kOdmgKernels[kOdmgKernelVariants];
int RunnableOdmgKernels();

}  // namespace ky

#endif
