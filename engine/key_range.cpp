#include "key_range.h"

#include <cstring>
#include <utility>

#include "kybase.h"

namespace engine {

KeyRange::KeyRange(KeyRange&& other) noexcept : bounds(std::exchange(other.bounds, KyIdxBounds())) {}

KeyRange& KeyRange::operator=(KeyRange&& other) noexcept {
    if (this != &other) {
        Free();
        bounds = std::exchange(other.bounds, KyIdxBounds());
    }
    return *this;
}

KeyRange::~KeyRange() { Free(); }

void KeyRange::Free() {
    mmKyfree(bounds.lower);
    mmKyfree(bounds.upper);
}

void KeyRange::Add(void*& limit, unsigned char& length, Bytes key) {
    if (limit != nullptr) return;
    void* const block = mmKymalloc(key.size());
    if (block == nullptr) return;  // a missing limit only makes the range wider
    std::memcpy(block, key.data(), key.size());
    limit = block;
    length = static_cast<unsigned char>(key.size());
}

}  // namespace engine
