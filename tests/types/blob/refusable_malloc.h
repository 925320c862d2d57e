#ifndef REFUSABLE_MALLOC_H
#define REFUSABLE_MALLOC_H

#include <cstddef>

/// The calls of `malloc` and `free` of the library in this program are counted and may be refused.

/// Blocks that are in use.
extern std::ptrdiff_t buffersHeld;
extern std::size_t buffersTaken;
/// Larger requests are refused.
extern std::size_t largestBuffer;

#endif
