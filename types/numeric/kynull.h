#ifndef KYNULL_H
#define KYNULL_H

/// Comparison of values that can be null.

/// What is known of the order of two values before they are looked at. Null orders before every value.
enum KyNullCompareResult {
    KyBothNull = 0,     ///< equal
    KyFirstNull = 1,    ///< the first is null, the second is not
    KySecondNull = 2,   ///< the second is null, the first is not
    KyNeitherNull = 3,  ///< the values decide
};

/// For any type with `IsNullValue()`, non-zero for null.
template <class T>
constexpr KyNullCompareResult KyNullValueCompare(const T& a, const T& b) {
    if (a.IsNullValue()) return b.IsNullValue() ? KyBothNull : KyFirstNull;
    return b.IsNullValue() ? KySecondNull : KyNeitherNull;
}

#endif
