#include <atomic>
#include <cstdlib>
#include <new>

#include "kybase.h"

namespace {

void ThrowBadAlloc(std::size_t) { throw std::bad_alloc(); }

constinit std::atomic<KyMemoryHandler> installedHandler{&ThrowBadAlloc};

}  // namespace

void KyCallMemoryHandler(std::size_t size) { installedHandler.load(std::memory_order_acquire)(size); }

KyMemoryHandler KySetMemoryHandler(KyMemoryHandler handler) {
    return installedHandler.exchange(handler != nullptr ? handler : &ThrowBadAlloc, std::memory_order_acq_rel);
}

void* mmKymalloc(std::size_t size) {
    void* block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) KyCallMemoryHandler(size);
    return block;
}

void mmKyfree(void* block) { std::free(block); }
