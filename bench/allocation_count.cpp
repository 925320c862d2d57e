#include "allocation_count.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t taken = 0;

void* Take(std::size_t size) {
    ++taken;
    void* block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

}  // namespace

std::size_t bench::AllocationCount() { return taken; }

void* operator new(std::size_t size) { return Take(size); }
void* operator new[](std::size_t size) { return Take(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
