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
    limit = mmKymalloc(key.size());
    std::memcpy(limit, key.data(), key.size());
    length = static_cast<unsigned char>(key.size());
}

}  // namespace engine
