#ifndef ARRAY_ORDER_H
#define ARRAY_ORDER_H

#include <algorithm>
#include <cstddef>

#include "array_rules.h"
#include "raw_kernels.h"

namespace ky {

/// Compares the first `visited` of `count` elements, `stride` bytes each; fewer than `count` when a buffer ends early.
/// `compare` gives the order of the elements at two addresses; `skipEqual` gives how many of some elements, from two
/// addresses on, are equal beyond doubt, so that `compare` is asked only where they end, unless there is but one
/// element.
template <class CompareElements, class SkipEqual>
int CompareVisited(std::size_t stride, const void* a, const void* b, std::size_t visited, unsigned count, int& err,
                   CompareElements compare, SkipEqual skipEqual) {
    err = 0;
    if (count == 1) return compare(a, b);
    if (count == 0) return 0;

    int result = 0;
    std::size_t at = 0;
    for (; at < visited; ++at) {
        at += skipEqual(Advance(a, at * stride), Advance(b, at * stride), visited - at);
        if (at == visited) break;
        result = compare(Advance(a, at * stride), Advance(b, at * stride));
        if (result != 0) break;
    }
    err = BufferEndError(at, visited, count);
    return result;
}

/// For elements that are equal when their bytes are.
inline auto SkipEqualBytes(std::size_t stride) {
    return [stride](const void* x, const void* y, std::size_t elements) {
        return FirstDifference(x, y, elements * stride) / stride;
    };
}

/// Compare of arrays that are walked as `ElementsInside` says.
template <class CompareElements, class SkipEqual>
int CompareArrays(std::size_t stride, unsigned len1, const void* a, unsigned len2, const void* b, unsigned count,
                  int& err, CompareElements compare, SkipEqual skipEqual) {
    const std::size_t visited = std::min(ElementsInside(len1, stride, count), ElementsInside(len2, stride, count));
    return CompareVisited(stride, a, b, visited, count, err, compare, skipEqual);
}

/// The same where elements are equal when their bytes are.
template <class CompareElements>
int CompareArrays(std::size_t stride, unsigned len1, const void* a, unsigned len2, const void* b, unsigned count,
                  int& err, CompareElements compare) {
    return CompareArrays(stride, len1, a, len2, b, count, err, compare, SkipEqualBytes(stride));
}

}  // namespace ky

#endif
