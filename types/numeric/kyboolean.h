#ifndef KYBOOLEAN_H
#define KYBOOLEAN_H

/// `KyBoolean`: a truth value that can be null.

#include "kyexport.h"
#include "kynull.h"

/// One byte: 0 false, 1 true, 0xFF null. A database may hold other bytes, which are kept as they stand: they count
/// as true in comparisons.
class KY_EXPORT KyBoolean {
public:
    constexpr KyBoolean() = default;  ///< false
    /// Any number but 0 is true. Implicit: an int is assigned and compared as its truth value.
    constexpr KyBoolean(int truth) : byte(truth != 0 ? 1 : 0) {}  // NOLINT(google-explicit-constructor)

    /// The byte as a signed number.
    constexpr signed char Get() const { return byte; }

    constexpr int IsNullValue() const { return byte == kNull; }
    /// Returns 0.
    constexpr int SetNullValue() {
        byte = kNull;
        return 0;
    }

    // Null is below false, false below true.
    friend constexpr bool operator==(const KyBoolean& a, const KyBoolean& b);
    friend constexpr bool operator>(const KyBoolean& a, const KyBoolean& b);
    friend constexpr bool operator<(const KyBoolean& a, const KyBoolean& b) { return !(a > b) && !(a == b); }

private:
    signed char byte = 0;

    static constexpr signed char kNull = -1;
};

static_assert(sizeof(KyBoolean) == 1, "the size word of the row");

/// Bytes other than 0 are equally true.
constexpr bool operator==(const KyBoolean& a, const KyBoolean& b) {
    const KyNullCompareResult nulls = KyNullValueCompare(a, b);
    if (nulls != KyNeitherNull) return nulls == KyBothNull;
    return (a.byte != 0) == (b.byte != 0);
}

// KEPT: the bytes decide, so that 2 is greater than 1 although both are true and equal. Whoever needs an order asks
// for equality first, as the row's Compare does.
constexpr bool operator>(const KyBoolean& a, const KyBoolean& b) {
    const KyNullCompareResult nulls = KyNullValueCompare(a, b);
    if (nulls != KyNeitherNull) return nulls == KySecondNull;
    return a.byte > b.byte;
}

#endif
