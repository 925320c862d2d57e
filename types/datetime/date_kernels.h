#ifndef DATE_KERNELS_H
#define DATE_KERNELS_H

/// The loops over long arrays of dates and times. Each exists for any x86-64, for AVX2 and for AVX-512 with its byte
/// permutations; the loader picks one for the machine at hand. See `date_records.h` for the bytes.

#include <cstddef>
#include <cstdint>

#include "date_records.h"

namespace ky {

/// Memory form to the form `form` (pack), and back (unpack). The areas must not overlap; exactly `count` elements of
/// each are read and written. Padding is cleared.
using DateMoveKernel = void(DateRecord record, DateForm form, void* dst, const void* src, std::size_t count);

/// The words that `count` elements add to a hash, combined by exclusive or.
using HashDatesKernel = std::uint32_t(DateRecord record, DateForm form, const void* data, std::size_t count);

/// Index of the first of `count` elements in memory form, of a record with date and time, whose fields differ; `count`
/// when there is none. Padding does not count.
using FirstOtherDateKernel = std::size_t(DateRecord record, const void* a, const void* b, std::size_t count);

DateMoveKernel PackDates;
DateMoveKernel UnpackDates;
HashDatesKernel HashDates;
FirstOtherDateKernel FirstOtherDate;

DateMoveKernel PackDatesAny, UnpackDatesAny;
DateMoveKernel PackDatesAvx2, UnpackDatesAvx2;
DateMoveKernel PackDatesAvx512, UnpackDatesAvx512;
HashDatesKernel HashDatesAny, HashDatesAvx2, HashDatesAvx512;
FirstOtherDateKernel FirstOtherDateAny, FirstOtherDateAvx2, FirstOtherDateAvx512;

/// One variant of all of them.
struct DateKernels {
    const char* name;
    DateMoveKernel* pack;
    DateMoveKernel* unpack;
    HashDatesKernel* hash;
    FirstOtherDateKernel* firstOther;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kDateKernelVariants = 3;
extern const DateKernels kDateKernels[kDateKernelVariants];
int RunnableDateKernels();

}  // namespace ky

#endif
