#include "odmg_kernels.h"

#include <bit>

#include "kernel_choice.h"
#include "odmg_fields.h"
#include "raw_bytes.h"

namespace ky {
namespace {

static_assert(std::endian::native == std::endian::little, "the year is the low half of a date's word");

/// Read as one number, because loads of single bytes are not vectorised well.
template <bool reversed>
[[gnu::always_inline]] inline std::uint32_t XorDayNumbersIn(const void* dates, std::size_t count) {
    std::uint32_t words = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto fields = LoadAs<std::uint32_t>(Advance(dates, i * kOdmgDateBytes));
        const std::uint32_t year = reversed ? (fields >> 8 & 0xFF) | (fields & 0xFF) << 8 : fields & 0xFFFF;
        words ^= HashWordOf(d_Date(static_cast<short>(year), static_cast<unsigned short>(fields >> 16 & 0xFF),
                                   static_cast<unsigned short>(fields >> 24)));
    }
    return words;
}

[[gnu::always_inline]] inline std::uint32_t XorDayNumbersText(const void* dates, std::size_t count, bool reversed) {
    return reversed ? XorDayNumbersIn<true>(dates, count) : XorDayNumbersIn<false>(dates, count);
}

std::uint32_t XorDayNumbersAny(const void* dates, std::size_t count, bool reversed) {
    return XorDayNumbersText(dates, count, reversed);
}
[[gnu::target("avx2")]] std::uint32_t XorDayNumbersAvx2(const void* dates, std::size_t count, bool reversed) {
    return XorDayNumbersText(dates, count, reversed);
}
[[gnu::target("avx2,avx512f,avx512bw,avx512dq,avx512vl")]] std::uint32_t XorDayNumbersAvx512(const void* dates,
                                                                                             std::size_t count,
                                                                                             bool reversed) {
    return XorDayNumbersText(dates, count, reversed);
}

}  // namespace

constinit XorDayNumbersKernel* const kOdmgKernels[kOdmgKernelVariants] = {XorDayNumbersAny, XorDayNumbersAvx2,
                                                                          XorDayNumbersAvx512};

KY_RESOLVER int RunnableOdmgKernels() { return RunnableVariants(); }

extern "C" {
KY_RESOLVER XorDayNumbersKernel* KyResolveXorDayNumbers() {
    return WidestOf(RunnableOdmgKernels(), &XorDayNumbersAny, &XorDayNumbersAvx2, &XorDayNumbersAvx512);
}
}

__attribute__((ifunc("KyResolveXorDayNumbers"))) XorDayNumbersKernel XorDayNumbers;

}  // namespace ky
