#include "batch.h"

#include "index_entries.h"
#include "lmdb_call.h"
#include "snapshot.h"

namespace engine {

namespace {

/// Numbers go up without gaps, so that the next one is told by the last.
ObjectNumber NextNumber(MDB_txn* transaction, MDB_dbi objects) {
    MDB_cursor* open = nullptr;
    Check(mdb_cursor_open(transaction, objects, &open), "objects");
    const CursorHandle cursor(open);
    MDB_val key{};
    MDB_val value{};
    if (!Found(mdb_cursor_get(cursor.get(), &key, &value, MDB_LAST), "objects")) return 1;
    return NumberIn(key) + 1;
}

}  // namespace

Batch::Batch(Store& aStore, std::size_t aClassAt) : store(aStore), classAt(aClassAt) {}

void Batch::Add(std::span<void* const> values) {
    store.Layout(classAt).Write(record, values);
    records.insert(records.end(), record.begin(), record.end());
    recordEnds.push_back(records.size());
}

Bytes Batch::Record(std::size_t i) const {
    const std::size_t begin = i == 0 ? 0 : recordEnds[i - 1];
    return Bytes(records).subspan(begin, recordEnds[i] - begin);
}

ObjectNumber Batch::Commit() {
    for (;;) {
        try {
            WriteTransaction transaction(store.Env());
            const ObjectNumber first = Write(transaction);
            transaction.Commit();
            records.clear();
            recordEnds.clear();
            return first;
        } catch (const FullError&) {
            store.Grow();
        }
    }
}

ObjectNumber Batch::Write(MDB_txn* transaction) {
    const MDB_dbi objects = store.Opened(classAt).objects;
    const ObjectNumber first = NextNumber(transaction, objects);
    for (std::size_t i = 0; i < Count(); ++i) {
        ObjectNumber number = first + i;
        MDB_val key{sizeof number, &number};
        MDB_val value = AsValue(Record(i));
        Check(mdb_put(transaction, objects, &key, &value, MDB_APPEND), "objects");
    }
    const Class& objectClass = store.GetSchema().Classes()[classAt];
    for (std::size_t attribute = 0; attribute < objectClass.attributes.size(); ++attribute) {
        if (!objectClass.attributes[attribute].index) continue;
        IndexEntries entries(store, classAt, attribute);
        for (std::size_t i = 0; i < Count(); ++i) entries.Add(Record(i), first + i);
        entries.Write(transaction);
    }
    return first;
}

}  // namespace engine
