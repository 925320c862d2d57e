#ifndef KEY_SHARE_H
#define KEY_SHARE_H

/// The share of a range of keys, from what `CalcRange` keeps of it and its whole width.

#include <cmath>
#include <limits>

#include "kytypevl.h"

namespace ky {

/// The width of one key of every number type, floating-point numbers included.
inline constexpr double kKeyUnit = 1.0;

/// 0 for a width that is not positive (limits that crossed) and for a quotient that is no number. Rounding of large
/// numbers, and values between two keys, can make a part look larger than the whole: 1.
inline float ShareOf(double kept, double width) {
    if (!(width > 0)) return 0;
    const double share = kept / width;
    if (share >= 1) return 1;
    return share > 0 ? static_cast<float>(share) : 0.0F;
}

/// The same for the plain floating-point types: what is not empty, a quotient that is no number included, counts for
/// so much at least that it is never taken for nothing.
inline float FlooredShareOf(double kept, double width) {
    constexpr double least = std::numeric_limits<float>::epsilon();
    if (kept == 0) return 0;
    const double share = width != 0 ? kept / width : std::numeric_limits<double>::infinity();
    if (!(share >= least)) return static_cast<float>(least);
    return share > 1 ? 1.0F : static_cast<float>(share);
}

/// `SetBoundaries` with a length that is measured only where there is a record.
template <class Measure>
void RecordLimits(KyIdxBounds* out, void* value, unsigned short op, Measure bytes) {
    if (out != nullptr) SetBoundaries(out, value, op, bytes());
}

}  // namespace ky

#endif
