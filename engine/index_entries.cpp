#include "index_entries.h"

#include <algorithm>
#include <numeric>

#include "index_order.h"
#include "lmdb_call.h"
#include "snapshot.h"

namespace engine {

IndexEntries::IndexEntries(const Store& aStore, std::size_t aClassAt, std::size_t anAttribute)
    : store(aStore), classAt(aClassAt), attribute(anAttribute) {}

void IndexEntries::Add(Bytes record, ObjectNumber number) {
    const RecordLayout& layout = store.Layout(classAt);
    const Bytes key = IndexKey(layout.Of().attributes[attribute], store.Form(), layout.At(record, attribute), scratch);
    keys.insert(keys.end(), key.begin(), key.end());
    keyEnds.push_back(keys.size());
    numbers.push_back(number);
}

void IndexEntries::Write(MDB_txn* transaction) {
    std::vector<MDB_val> entries(Count());
    for (std::size_t i = 0; i < Count(); ++i) {
        const std::size_t begin = i == 0 ? 0 : keyEnds[i - 1];
        entries[i] = {keyEnds[i] - begin, keys.data() + begin};
    }
    std::vector<std::size_t> sorted(Count());
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    MDB_cmp_func* const order = IndexOrder(store.Layout(classAt).Of().attributes[attribute], store.Form());
    std::ranges::stable_sort(sorted, [&](std::size_t a, std::size_t b) { return order(&entries[a], &entries[b]) < 0; });

    MDB_cursor* open = nullptr;
    Check(mdb_cursor_open(transaction, store.Opened(classAt).indexes[attribute], &open), "index");
    const CursorHandle cursor(open);
    for (const std::size_t i : sorted) {
        MDB_val value{sizeof numbers[i], &numbers[i]};
        Check(mdb_cursor_put(cursor.get(), &entries[i], &value, 0), "index");
    }
    keys.clear();
    keyEnds.clear();
    numbers.clear();
}

}  // namespace engine
