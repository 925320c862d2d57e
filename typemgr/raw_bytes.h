#ifndef RAW_BYTES_H
#define RAW_BYTES_H

/// The one door to values in untyped memory, which has no alignment.

#include <bit>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace ky {

template <class T>
requires std::is_trivially_copyable_v<T>
inline T LoadAs(const void* from) {
    T value;
    std::memcpy(&value, from, sizeof(T));  // NOLINT(bugprone-sizeof-expression): a pointer is a value, too
    return value;
}

template <class T>
requires std::is_trivially_copyable_v<T>
inline void StoreAs(void* to, T value) { std::memcpy(to, &value, sizeof(T)); }

/// The number with its bytes in reversed order.
template <class T>
requires std::is_unsigned_v<T>
constexpr T ByteSwap(T value) {
    if constexpr (sizeof(T) == 1) {
        return value;
    } else if constexpr (sizeof(T) == 2) {
        return __builtin_bswap16(value);
    } else if constexpr (sizeof(T) == 4) {
        return __builtin_bswap32(value);
    } else {
        return __builtin_bswap64(value);
    }
}

/// Pointers `bytes` further on.
inline const unsigned char* Advance(const void* from, std::size_t bytes) {
    return static_cast<const unsigned char*>(from) + bytes;
}
inline unsigned char* Advance(void* from, std::size_t bytes) { return static_cast<unsigned char*>(from) + bytes; }

/// Overlapping areas are allowed, and so are null pointers when there is nothing to do.
inline void CopyBytes(void* to, const void* from, std::size_t bytes) {
    if (bytes != 0) std::memmove(to, from, bytes);
}
inline void ZeroBytes(void* to, std::size_t bytes) {
    if (bytes != 0) std::memset(to, 0, bytes);
}

}  // namespace ky

#endif
