#include "key_table.h"

#include <atomic>
#include <new>

#include "plain_reader.h"

namespace ky {
namespace {

/// Code sets and languages below these numbers have tables: all that there are.
constexpr unsigned kCodeSets = 27;
constexpr unsigned kLanguages = 32;

/// Null: not made yet.
constinit std::atomic<const KeyTable*> tables[kCodeSets][kLanguages] = {};

const KeyTable* MakeTable(unsigned char codeSet, unsigned char language, std::atomic<const KeyTable*>& place) {
    auto* made = new (std::nothrow) KeyTable;
    if (made == nullptr) return nullptr;
    const PlainReader reader(codeSet, language, 1);
    for (unsigned code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool plain = reader.KeyAt(&c, made->keys[code]);
        if (!plain) made->keys[code] = KeyTable::kNeedsIterator;
        made->orders[code] = plain && code != 0 ? reader.OrderAt(&c) : 0;
    }
    const KeyTable* present = nullptr;
    if (place.compare_exchange_strong(present, made, std::memory_order_acq_rel)) return made;
    delete made;
    return present;
}

}  // namespace

const KeyTable* KeyTableOf(unsigned char codeSet, unsigned char language) {
    if (codeSet >= kCodeSets || language >= kLanguages) return nullptr;
    std::atomic<const KeyTable*>& place = tables[codeSet][language];
    const KeyTable* table = place.load(std::memory_order_acquire);
    return table != nullptr ? table : MakeTable(codeSet, language, place);
}

}  // namespace ky
