#ifndef SLOW_BYTE_ORDER_H
#define SLOW_BYTE_ORDER_H

#include <algorithm>
#include <cstddef>
#include <vector>

/// The elements of `bytes`, each with its bytes reversed, the obvious way.
inline std::vector<unsigned char> SlowReversed(std::vector<unsigned char> bytes, std::size_t width) {
    for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
        const auto element = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        std::reverse(element, element + static_cast<std::ptrdiff_t>(width));
    }
    return bytes;
}

#endif
