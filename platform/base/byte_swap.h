#ifndef BYTE_SWAP_H
#define BYTE_SWAP_H

#include <cstdint>

namespace ky {

inline std::uint16_t ByteSwap(std::uint16_t value) { return __builtin_bswap16(value); }
inline std::uint32_t ByteSwap(std::uint32_t value) { return __builtin_bswap32(value); }
inline std::uint64_t ByteSwap(std::uint64_t value) { return __builtin_bswap64(value); }

}  // namespace ky

#endif
