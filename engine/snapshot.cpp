#include "snapshot.h"

#include "lmdb_call.h"

namespace engine {

namespace {

Bytes WholeRecord(const RecordLayout& layout, const MDB_val& value, ObjectNumber number) {
    const Bytes record = AsBytes(value);
    if (!layout.IsWhole(record))
        throw StoreError("the record of " + layout.Of().name + " " + std::to_string(number) + " is damaged");
    return record;
}

std::size_t Entries(MDB_txn* transaction, MDB_dbi database) {
    MDB_stat told{};
    Check(mdb_stat(transaction, database, &told), "size of a database");
    return told.ms_entries;
}

CursorHandle OpenCursor(MDB_txn* transaction, MDB_dbi database) {
    MDB_cursor* open = nullptr;
    Check(mdb_cursor_open(transaction, database, &open), "cursor");
    return CursorHandle(open);
}

}  // namespace

Snapshot::Snapshot(const Store& aStore) : store(&aStore), transaction(BeginReading(aStore.Env())) {}

Snapshot::~Snapshot() { mdb_txn_abort(transaction); }

void Snapshot::Renew() {
    mdb_txn_reset(transaction);
    if (mdb_txn_renew(transaction) == MDB_SUCCESS) return;
    mdb_txn_abort(transaction);
    transaction = nullptr;
    known.clear();  // the file may come to lie elsewhere in memory
    transaction = BeginReading(store->Env());
}

std::size_t Snapshot::ObjectCount(std::size_t classAt) const {
    return Entries(transaction, store->Opened(classAt).objects);
}

std::size_t Snapshot::EntryCount(std::size_t classAt, std::size_t attribute) const {
    return Entries(transaction, store->Opened(classAt).indexes[attribute]);
}

std::optional<KeyLimits> Snapshot::Limits(std::size_t classAt, std::size_t attribute) const {
    const MDB_dbi index = store->Opened(classAt).indexes[attribute];
    if (known.size() <= index) known.resize(index + 1);
    KnownLimits& of = known[index];
    if (of.moment != Moment()) {
        IndexCursor cursor(*this, classAt, attribute);
        const auto first = cursor.First();
        of.limits = first ? std::optional(KeyLimits{.first = first->key, .last = cursor.Last()->key}) : std::nullopt;
        of.moment = Moment();
    }
    return of.limits;
}

Bytes Snapshot::Find(std::size_t classAt, ObjectNumber number) const {
    MDB_val key{sizeof number, &number};
    MDB_val value{};
    if (!Found(mdb_get(transaction, store->Opened(classAt).objects, &key, &value), "objects")) return {};
    return WholeRecord(store->Layout(classAt), value, number);
}

Bytes Snapshot::Find(const KyObjId& id) const {
    const auto classAt = ClassOf(id);
    if (!classAt || *classAt >= store->GetSchema().Classes().size()) return {};
    return Find(*classAt, NumberOf(id));
}

ObjectCursor::ObjectCursor(const Snapshot& snapshot, std::size_t classAt)
    : cursor(OpenCursor(snapshot.Handle(), snapshot.Of().Opened(classAt).objects)),
      layout(&snapshot.Of().Layout(classAt)) {}

std::optional<Object> ObjectCursor::Next() {
    MDB_val key{};
    MDB_val value{};
    if (!Found(mdb_cursor_get(cursor.get(), &key, &value, MDB_NEXT), "objects")) return std::nullopt;
    const ObjectNumber number = NumberIn(key);
    return Object{.number = number, .record = WholeRecord(*layout, value, number)};
}

IndexCursor::IndexCursor(const Snapshot& snapshot, std::size_t classAt, std::size_t attribute)
    : cursor(OpenCursor(snapshot.Handle(), snapshot.Of().Opened(classAt).indexes[attribute])) {}

std::optional<IndexEntry> IndexCursor::Move(MDB_cursor_op how, Bytes from) {
    MDB_val key = AsValue(from);
    MDB_val value{};
    if (!Found(mdb_cursor_get(cursor.get(), &key, &value, how), "index")) return std::nullopt;
    return IndexEntry{.key = AsBytes(key), .number = NumberIn(value)};
}

std::optional<IndexEntry> IndexCursor::First() { return Move(MDB_FIRST); }
std::optional<IndexEntry> IndexCursor::FirstFrom(Bytes key) { return Move(MDB_SET_RANGE, key); }
std::optional<IndexEntry> IndexCursor::Last() { return Move(MDB_LAST); }
std::optional<IndexEntry> IndexCursor::Next() { return Move(MDB_NEXT); }

}  // namespace engine
