#include "counted_memory.h"

#include <cstdlib>
#include <new>

constinit std::size_t blocksTaken = 0;
constinit std::size_t bytesTaken = 0;
constinit std::ptrdiff_t blocksHeld = 0;
constinit int blocksLeft = -1;

namespace {

/// Null: no memory.
void* TakeOrNull(std::size_t size) noexcept {
    if (blocksLeft == 0) return nullptr;
    if (blocksLeft > 0) --blocksLeft;
    void* block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) return nullptr;
    ++blocksTaken;
    ++blocksHeld;
    bytesTaken += size;
    return block;
}

void* Take(std::size_t size) {
    void* block = TakeOrNull(size);
    if (block == nullptr) throw std::bad_alloc();
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
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return TakeOrNull(size); }
[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return TakeOrNull(size); }
[[gnu::noinline]] void operator delete(void* block) noexcept { Give(block); }
[[gnu::noinline]] void operator delete[](void* block) noexcept { Give(block); }
[[gnu::noinline]] void operator delete(void* block, const std::nothrow_t&) noexcept { Give(block); }
[[gnu::noinline]] void operator delete[](void* block, const std::nothrow_t&) noexcept { Give(block); }
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept { Give(block); }
[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept { Give(block); }
