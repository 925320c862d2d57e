#include "class_map.h"

#include <algorithm>
#include <atomic>
#include <new>

namespace ky {
namespace {

/// By code set, language, and what the mask ignores. Null: not made yet.
constinit std::atomic<const ClassMap*> maps[kTableCodeSets][kTableLanguages][4] = {};

unsigned Ignored(unsigned mask) { return ((mask & kCaseBits) == 0 ? 1u : 0) + ((mask & kAccentBits) == 0 ? 2u : 0); }

void Fill(ClassMap& map, const KeyTable& table, unsigned mask) {
    map.groups.unclear = ClassMap::kUnclear;
    map.keys[0] = 0;
    unsigned groups = 1;
    for (unsigned c = 0; c < 256; ++c) {
        const unsigned key = table.keys[c];
        const unsigned* const end = map.keys + groups;
        const unsigned* const found = std::find(static_cast<const unsigned*>(map.keys), end, key & mask);
        if (KeyPage::IsMarked(key) || (found == end && groups == ClassMap::kUnclear)) {
            map.groups.of[c] = ClassMap::kUnclear;
            continue;
        }
        if (found == end) map.keys[groups++] = key & mask;
        map.groups.of[c] = static_cast<unsigned char>(found - map.keys);
    }
    std::fill(map.keys + groups, map.keys + 256, 0u);
}

const ClassMap* Make(const KeyTable& table, unsigned mask, std::atomic<const ClassMap*>& place) {
    auto* made = new (std::nothrow) ClassMap;
    if (made == nullptr) return nullptr;
    Fill(*made, table, mask);
    const ClassMap* present = nullptr;
    if (place.compare_exchange_strong(present, made, std::memory_order_acq_rel)) return made;
    delete made;
    return present;
}

}  // namespace

const ClassMap* ClassMapOf(const KeyTable& table, unsigned mask) {
    std::atomic<const ClassMap*>& place = maps[table.codeSet][table.language][Ignored(mask)];
    const ClassMap* map = place.load(std::memory_order_acquire);
    return map != nullptr ? map : Make(table, mask, place);
}

}  // namespace ky
