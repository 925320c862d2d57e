#include "refusable_malloc.h"

#include <cstdint>

constinit std::ptrdiff_t buffersHeld = 0;
constinit std::size_t buffersTaken = 0;
constinit std::size_t largestBuffer = SIZE_MAX;

// By these names the linker puts them in front of the C library's, for shared libraries, too.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __real_malloc(std::size_t size);
void __real_free(void* block);

[[gnu::visibility("default")]] void* __wrap_malloc(std::size_t size) {
    if (size > largestBuffer) return nullptr;
    void* block = __real_malloc(size);
    if (block != nullptr) {
        ++buffersHeld;
        ++buffersTaken;
    }
    return block;
}

[[gnu::visibility("default")]] void __wrap_free(void* block) {
    if (block != nullptr) --buffersHeld;
    __real_free(block);
}
}
// NOLINTEND(bugprone-reserved-identifier)
