#ifndef DATE_BOUNDS_H
#define DATE_BOUNDS_H

/// EvalAndBound of types whose values are measured by a number: days, seconds.
///
/// The operator word comes back with its relation bits only. A constant with a wildcard in any element, unless the word
/// is exact, matches keys on both sides of its bytes: nothing is recorded and all keys are kept. Of an array the
/// first element is measured, all are recorded. A missing limit inside a range measures 0.
///
/// `Facts` has
///   kRelations                      the bits of the operator word that stay
///   kStored                         bytes of one stored element
///   HasWildcard(element, reversed)  whether a field of the stored element is a wildcard
///   Measure(element, reversed)      its number, as a double

#include <cstddef>

#include "date_fields.h"
#include "key_share.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "raw_bytes.h"

namespace ky {

/// The share of the keys from `lower` to `upper`, either of them perhaps null, that "key op value" keeps.
template <class Facts>
float MeasuredShare(unsigned short op, const void* value, const void* lower, const void* upper, bool reversed) {
    const auto number = [reversed](const void* limit) {
        return limit != nullptr ? Facts::Measure(Advance(limit, 0), reversed) : 0.0;
    };
    const double from = number(lower);
    const double to = number(upper);
    const double constant = number(value);
    return ShareOf(CalcRange(op, constant, constant, from, to, kKeyUnit), to - from + kKeyUnit);
}

template <class Facts>
bool AnyWildcard(const void* elements, unsigned count, bool reversed) {
    for (std::size_t i = 0; i < count; ++i) {
        if (Facts::HasWildcard(Advance(elements, i * Facts::kStored), reversed)) return true;
    }
    return false;
}

/// The slot.
template <class Facts, auto share = &MeasuredShare<Facts>>
float MeasuredEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                           KyIdxBounds* out) {
    const bool exact = (op & KyCmpExact) != 0;
    const bool reversed = IsReversedForm(flag);
    op &= Facts::kRelations;
    if (!exact && AnyWildcard<Facts>(value, count, reversed)) return bounds != nullptr ? 1.0F : 0.0F;
    const float kept = bounds != nullptr ? share(op, value, bounds->lower, bounds->upper, reversed) : 0.0F;
    RecordLimits(out, value, op, [count] { return static_cast<unsigned>(Facts::kStored * count); });
    return kept;
}

}  // namespace ky

#endif
