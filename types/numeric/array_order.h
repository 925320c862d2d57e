#ifndef ARRAY_ORDER_H
#define ARRAY_ORDER_H

#include <algorithm>
#include <cstddef>

#include "array_rules.h"
#include "raw_kernels.h"

namespace ky {

/// Compare of arrays whose elements, `stride` bytes each, are equal where their bytes are. `compare` gives -1, 0 or 1
/// for the elements at two addresses; it is asked only where they differ, unless there is but one.
template <class CompareElements>
int CompareArrays(std::size_t stride, unsigned len1, const void* a, unsigned len2, const void* b, unsigned count,
                  int& err, CompareElements compare) {
    err = 0;
    if (count == 1) return compare(a, b);
    if (count == 0) return 0;

    const std::size_t visited = std::min(ElementsInside(len1, stride, count), ElementsInside(len2, stride, count));
    int result = 0;
    std::size_t at = 0;
    for (; at < visited; ++at) {
        at += FirstDifference(Advance(a, at * stride), Advance(b, at * stride), (visited - at) * stride) / stride;
        if (at == visited) break;
        result = compare(Advance(a, at * stride), Advance(b, at * stride));
        if (result != 0) break;
    }
    err = BufferEndError(at, visited, count);
    return result;
}

}  // namespace ky

#endif
