#include "counted_memory.h"

#include <cstdlib>
#include <new>

constinit std::size_t blocksTaken = 0;
constinit std::size_t bytesTaken = 0;
constinit std::ptrdiff_t blocksHeld = 0;
constinit int blocksLeft = -1;

namespace {

void* Take(std::size_t size) {
    if (blocksLeft == 0) throw std::bad_alloc();
    if (blocksLeft > 0) --blocksLeft;
    void* block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) throw std::bad_alloc();
    ++blocksTaken;
    ++blocksHeld;
    bytesTaken += size;
    return block;
}

void Give(void* block) {
    if (block != nullptr) --blocksHeld;
    std::free(block);
}

}  // namespace

// Not inlined, so that the compiler does not see a block of one kind freed as another.
[[gnu::noinline]] void* operator new(std::size_t size) { return Take(size); }
[[gnu::noinline]] void* operator new[](std::size_t size) { return Take(size); }
[[gnu::noinline]] void operator delete(void* block) noexcept { Give(block); }
[[gnu::noinline]] void operator delete[](void* block) noexcept { Give(block); }
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept { Give(block); }
[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept { Give(block); }
