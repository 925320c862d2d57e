#ifndef DATE_FIRST_OTHER_H
#define DATE_FIRST_OTHER_H

/// The comparison of dates and times in memory form, padding left out: one text, compiled by the including files for
/// their instructions.

#include <cstddef>
#include <cstdint>

#include "date_records.h"
#include "null_first_other.h"

namespace ky::detail {

/// Words whose bytes are all ones where a field stands, and zeros in the padding of records with date and time.
constexpr MaskWords MaskWordsOf(DateRecord record) {
    constexpr std::size_t padding = 7;
    MaskWords words{};
    for (std::size_t at = 0; at < kMaskBlock; ++at) {
        const bool counts = at % DateLayout(record, DateForm::memory).size != padding;
        if (counts) words[at / 8] |= std::uint64_t{0xFF} << (at % 8 * 8);
    }
    return words;
}

inline constexpr MaskWords kDateTimeMask = MaskWordsOf(DateRecord::dateTime);
inline constexpr MaskWords kDateTimeNMask = MaskWordsOf(DateRecord::dateTimeN);

[[gnu::always_inline]] inline std::size_t FirstOtherDateText(DateRecord record, const void* a, const void* b,
                                                             std::size_t count) {
    const MaskWords& mask = record == DateRecord::dateTime ? kDateTimeMask : kDateTimeNMask;
    return FirstOtherElementText(mask, DateLayout(record, DateForm::memory).size, a, b, count);
}

}  // namespace ky::detail

#endif
