#ifndef DISK_BYTES_H
#define DISK_BYTES_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "kydiskform_table.h"

namespace ky {

inline unsigned char ConvertByte(const unsigned char (&table)[128], unsigned char c) {
    return c < 0x80 ? c : table[c - 0x80];
}

/// Exactly n bytes, to or from disk form; `dst` may be `src`. Most are ASCII and stay as they are.
inline void ConvertBytes(const unsigned char (&table)[128], void* dst, const void* src, std::size_t n) {
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    auto* to = static_cast<unsigned char*>(dst);
    const auto* from = static_cast<const unsigned char*>(src);
    std::size_t i = 0;
    for (std::uint64_t eight; i + sizeof eight <= n; i += sizeof eight) {
        std::memcpy(&eight, from + i, sizeof eight);
        if ((eight & highBits) == 0) {
            std::memcpy(to + i, &eight, sizeof eight);
        } else {
            for (std::size_t k = i; k < i + sizeof eight; ++k) to[k] = ConvertByte(table, from[k]);
        }
    }
    for (; i < n; ++i) to[i] = ConvertByte(table, from[i]);
}

}  // namespace ky

#endif
