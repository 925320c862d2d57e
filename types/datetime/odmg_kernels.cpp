#include "odmg_kernels.h"

#include <immintrin.h>

#include <array>
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

// Time stamps are copied in blocks of five registers, which are a whole number of records whatever the register's size.
// Because the size of a record is even, no year lies in two registers.
constexpr std::size_t kRecord = kOdmgTimestampBytes;
template <class Register>
using BlockBytes = std::array<unsigned char, 5 * sizeof(Register)>;

constexpr bool IsOfYear(std::size_t byte) { return byte % kRecord < sizeof(short); }

/// All ones where the years stand, zeros elsewhere.
template <class Register>
constexpr BlockBytes<Register> MaskOfYears() {
    BlockBytes<Register> mask{};
    static_assert(mask.size() % kRecord == 0);
    for (std::size_t at = 0; at < mask.size(); ++at) mask[at] = IsOfYear(at) ? 0xFF : 0;
    return mask;
}

/// Where each byte comes from, counted in its 16 bytes, in which registers are permuted.
template <class Register>
constexpr BlockBytes<Register> PlacesOfBytes() {
    BlockBytes<Register> places{};
    static_assert(places.size() % kRecord == 0);
    for (std::size_t at = 0; at < places.size(); ++at) {
        places[at] = static_cast<unsigned char>((IsOfYear(at) ? at ^ 1 : at) % 16);
    }
    return places;
}

/// Inlined, so that no code of another instruction set runs before the wide registers are cleared.
[[gnu::always_inline]] inline void SwapYearsOneByOne(unsigned char* to, const unsigned char* from, std::size_t count) {
    for (; count != 0; --count) {
        StoreAs(to, ReadOdmgTimestamp(from, true));
        to += kRecord;
        from += kRecord;
    }
}

void SwapYearsAny(void* dst, const void* src, std::size_t count) {
    typedef std::uint16_t Register __attribute__((vector_size(16)));
    static constexpr auto mask = MaskOfYears<Register>();
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    for (; count >= mask.size() / kRecord; count -= mask.size() / kRecord) {
        for (std::size_t at = 0; at < mask.size(); at += sizeof(Register)) {
            const auto fields = LoadAs<Register>(from + at);
            const auto years = LoadAs<Register>(&mask[at]);
            const Register swapped = fields << 8 | fields >> 8;
            StoreAs<Register>(to + at, (fields & ~years) | (swapped & years));
        }
        to += mask.size();
        from += mask.size();
    }
    SwapYearsOneByOne(to, from, count);
}

/// The fastest one with AVX-512, too: of wider registers each would cross a line of the cache, where these cross every
/// other one.
[[gnu::target("avx2")]] void SwapYearsAvx2(void* dst, const void* src, std::size_t count) {
    using Register = __m256i;
    static constexpr auto places = PlacesOfBytes<Register>();
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    for (; count >= places.size() / kRecord; count -= places.size() / kRecord) {
        for (std::size_t at = 0; at < places.size(); at += sizeof(Register)) {
            const Register fields = _mm256_loadu_si256(reinterpret_cast<const Register*>(from + at));
            const Register index = _mm256_loadu_si256(reinterpret_cast<const Register*>(&places[at]));
            _mm256_storeu_si256(reinterpret_cast<Register*>(to + at), _mm256_shuffle_epi8(fields, index));
        }
        to += places.size();
        from += places.size();
    }
    SwapYearsOneByOne(to, from, count);
}

}  // namespace

constinit const OdmgKernels kOdmgKernels[kOdmgKernelVariants] = {
    {XorDayNumbersAny, SwapYearsAny},
    {XorDayNumbersAvx2, SwapYearsAvx2},
    {XorDayNumbersAvx512, SwapYearsAvx2},
};

KY_RESOLVER int RunnableOdmgKernels() { return RunnableVariants(); }

extern "C" {
KY_RESOLVER XorDayNumbersKernel* KyResolveXorDayNumbers() {
    return WidestOf(RunnableOdmgKernels(), &XorDayNumbersAny, &XorDayNumbersAvx2, &XorDayNumbersAvx512);
}
KY_RESOLVER SwapYearsKernel* KyResolveSwapYears() {
    return WidestOf(RunnableOdmgKernels(), &SwapYearsAny, &SwapYearsAvx2, &SwapYearsAvx2);
}
}

__attribute__((ifunc("KyResolveXorDayNumbers"))) XorDayNumbersKernel XorDayNumbers;
__attribute__((ifunc("KyResolveSwapYears"))) SwapYearsKernel SwapYears;

}  // namespace ky
