#ifndef NUMBER_GETVALUE_H
#define NUMBER_GETVALUE_H

/// GetValue of plain numbers: stepping one memory-form value to its successor.

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "kytypes.h"
#include "number_bits.h"
#include "raw_bytes.h"

namespace ky {

/// The bits of a type's least value: the lowest integer, and of floating-point numbers the NaN with the sign and
/// the highest bit of the mantissa, which orders before everything.
// KEPT: this NaN has no successor, so that a counter of floating-point numbers has to start elsewhere.
template <class Element>
constexpr BitsOf<Element> LeastValueBits() {
    if constexpr (std::is_same_v<Element, double>) {
        return 0xFFF8000000000000u;
    } else if constexpr (std::is_same_v<Element, float>) {
        return 0xFFC00000u;
    } else {
        return static_cast<BitsOf<Element>>(std::numeric_limits<Element>::min());
    }
}

/// The candidate for the next floating-point number: a successor only when it compares greater.
// KEPT: subnormal numbers are skipped: 0 lies between the least normal number and its negative; numbered objects hold
// what comes out of it.
template <class Element>
Element NextFloating(Element x) {
    using Limits = std::numeric_limits<Element>;
    if (std::isnan(x)) return Limits::lowest();
    if (x == Limits::max()) return x;
    if (x >= 0 && x < Limits::min()) return Limits::min();
    if (x < 0 && x >= -Limits::min()) return Element{0};

    int exponent = 0;
    std::frexp(x, &exponent);
    const Element next = x + std::ldexp(Limits::epsilon(), exponent - 1);
    if (x > 0) return next;
    // Below a negative power of two the numbers lie half as far apart as above it.
    int nextExponent = 0;
    std::frexp(next, &nextExponent);
    return nextExponent == exponent ? next : x + std::ldexp(Limits::epsilon(), exponent - 2);
}

/// Steps to the successor: 0, or `KyErrNoSuccessor` with `value` left as it is.
// KEPT: signed integers wrap to the lowest number, unsigned ones stop at the highest.
template <class Element>
int StepNumber(Element& value) {
    if constexpr (std::is_floating_point_v<Element>) {
        const Element next = NextFloating(value);
        if (!(next > value)) return KyErrNoSuccessor;
        value = next;
    } else {
        if (std::is_unsigned_v<Element> && value == std::numeric_limits<Element>::max()) return KyErrNoSuccessor;
        const auto bits = static_cast<BitsOf<Element>>(value);
        value = static_cast<Element>(static_cast<BitsOf<Element>>(bits + 1u));
    }
    return 0;
}

/// The GetValue slot. Always of one value, whatever the count: stored values are stepped with a count of 0.
template <class Element>
int NumberGetValue(void* value, unsigned, unsigned char form, unsigned char what) {
    if (form != KyFormMemory) return KyErrNotSupported;
    switch (what) {
        case KyValueKeep:
            return 0;
        case KyValueLeast:
            StoreAs(value, LeastValueBits<Element>());
            return 0;
        case KyValueStep:
        case KyValueStepNext: {
            auto number = LoadAs<Element>(value);
            const int error = StepNumber(number);
            if (error == 0) StoreAs(value, number);
            return error;
        }
        default:
            return KyErrNotSupported;
    }
}

}  // namespace ky

#endif
