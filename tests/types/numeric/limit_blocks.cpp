#include "limit_blocks.h"

#include <cstdlib>
#include <new>
#include <set>
#include <stdexcept>
#include <utility>

#include "kybase.h"

namespace {

std::vector<std::size_t> sizes;
std::set<void*> live;
std::size_t blocksLeft = limit_blocks::kNever;
bool throwing = false;

}  // namespace

std::vector<std::size_t> limit_blocks::TakeSizes() { return std::exchange(sizes, {}); }

std::size_t limit_blocks::Live() { return live.size(); }

void limit_blocks::Refuse(std::size_t left, bool byThrowing) {
    blocksLeft = left;
    throwing = byThrowing;
}

void* mmKymalloc(std::size_t size) {
    if (blocksLeft == 0) {
        if (throwing) throw std::bad_alloc();
        return nullptr;
    }
    if (blocksLeft != limit_blocks::kNever) --blocksLeft;
    sizes.push_back(size);
    void* const block = std::malloc(size != 0 ? size : 1);
    live.insert(block);
    return block;
}

void mmKyfree(void* block) {
    if (block != nullptr && live.erase(block) == 0) throw std::logic_error("no block of a limit");
    std::free(block);
}

void OwnedBounds::Clear() {
    mmKyfree(record.lower);
    mmKyfree(record.upper);
    record = KyIdxBounds();
}
