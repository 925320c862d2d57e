#ifndef DATE_ARRAYS_H
#define DATE_ARRAYS_H

/// How far arrays of dates and times are walked, and their comparison.

#include <algorithm>
#include <cstddef>

#include "array_order.h"
#include "kytypes.h"

namespace ky {

/// How many of `count` elements a walk visits in a buffer of `length` bytes: those that lie in it with all their bytes,
/// and the first in any case. Length 0: exactly `count` elements.
// KEPT: numbers are also visited where they only start inside the length, dates and times are not; what engines
// allocate behind a length differs by it.
constexpr std::size_t ElementsThatFit(unsigned length, std::size_t elementSize, unsigned count) {
    if (length == 0 || count == 0) return count;
    return std::min<std::size_t>(std::max<std::size_t>(length / elementSize, 1), count);
}

/// See `CompareVisited`.
template <class CompareElements, class SkipEqual>
int CompareDateArrays(std::size_t stride, unsigned len1, const void* a, unsigned len2, const void* b, unsigned count,
                      int& err, CompareElements compare, SkipEqual skipEqual) {
    const std::size_t visited = std::min(ElementsThatFit(len1, stride, count), ElementsThatFit(len2, stride, count));
    return CompareVisited(stride, a, b, visited, count, err, compare, skipEqual);
}

/// The same where elements are equal when their bytes are.
template <class CompareElements>
int CompareDateArrays(std::size_t stride, unsigned len1, const void* a, unsigned len2, const void* b, unsigned count,
                      int& err, CompareElements compare) {
    return CompareDateArrays(stride, len1, a, len2, b, count, err, compare, SkipEqualBytes(stride));
}

}  // namespace ky

#endif
