#ifndef NUMBER_BOUNDS_H
#define NUMBER_BOUNDS_H

/// EvalAndBound of the plain numbers.

#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>

#include "key_share.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "number_bits.h"

namespace ky {

/// One value of a plain number type, in any form.
template <class Facts>
typename Facts::Element DecodeNumber(const void* from, unsigned char form) {
    return std::bit_cast<typename Facts::Element>(DecodeElement<Facts>(from, form));
}

/// Doubles cannot tell neighbours among large 64-bit integers apart: whether a range that measures 0 has a key.
// KEPT: it has one also when a comparison stops right at a limit (above the upper one, below the lower one, unequal to
// the only key); 64-bit estimates have always been this much higher there than those of narrower integers.
template <class Integer>
bool KeepsOneKey(unsigned short op, Integer value, Integer lower, Integer upper) {
    if ((op & KyCmpGreater) == 0 && !(lower <= value)) return false;
    return (op & KyCmpLess) != 0 || value <= upper;
}

/// The share of the keys from `lower` to `upper` that "key op value" keeps.
template <class Number>
float KeptShare(unsigned short op, Number value, Number lower, Number upper) {
    const double constant = OnKeyAxis(value);
    const double from = OnKeyAxis(lower);
    const double to = OnKeyAxis(upper);
    double kept = CalcRange(op, constant, constant, from, to, kKeyUnit);
    double span = to - from;
    if constexpr (std::is_floating_point_v<Number>) {
        // KEPT: floats have their NaN limits in the width, doubles the largest number instead; estimates differ by it.
        if (std::is_same_v<Number, double> && std::isnan(span)) span = std::numeric_limits<double>::max();
        return FlooredShareOf(kept, span + kKeyUnit);
    } else {
        if (sizeof(Number) == 8 && kept == 0 && KeepsOneKey(op, value, lower, upper)) kept = kKeyUnit;
        return ShareOf(kept, span + kKeyUnit);
    }
}

/// The slot. A missing limit counts as 0.
template <class Facts, auto load = &DecodeNumber<Facts>>
float NumberEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                         KyIdxBounds* out) {
    using Number = typename Facts::Element;
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    float share = 0;
    if (bounds != nullptr) {
        const Number lower = bounds->lower != nullptr ? load(bounds->lower, form) : Number{};
        const Number upper = bounds->upper != nullptr ? load(bounds->upper, form) : Number{};
        share = KeptShare(op, load(value, form), lower, upper);
    }
    RecordLimits(out, value, op, [=] { return Facts::SizeGet(nullptr, form, form, count); });
    return share;
}

}  // namespace ky

#endif
