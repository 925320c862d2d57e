#ifndef PEERS_H
#define PEERS_H

#include <cstddef>

/// What a user would write instead, with intrinsics and the machine's best instructions.
namespace bench {

/// `size` bytes, a multiple of `width` (2, 4 or 8), each element with its bytes reversed.
using SwapFunction = void (*)(unsigned char* dst, const unsigned char* src, std::size_t size);
SwapFunction BestSwap(unsigned width);

/// The exclusive or of the 32-bit words of `size` bytes, a multiple of 4.
using XorFunction = unsigned (*)(const unsigned char* data, std::size_t size);
XorFunction BestXor();

}  // namespace bench

#endif
