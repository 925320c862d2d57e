#ifndef ALLOCATION_COUNT_H
#define ALLOCATION_COUNT_H

#include <cstddef>

namespace bench {

/// Blocks that this program and the libraries have taken from operator new so far.
std::size_t AllocationCount();

}  // namespace bench

#endif
