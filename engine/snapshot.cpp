#include "snapshot.h"

#include <numeric>
#include <utility>

#include "index_order.h"
#include "kystring.h"
#include "lmdb_call.h"
#include "types.h"
#include "value.h"

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

using Keys = std::vector<std::vector<unsigned char>>;

bool IsFloatingPoint(char type) {
    return type == KyDOUBLE_T || type == KyFLOAT_T || type == KyNULL_DOUBLE_T || type == KyNULL_FLOAT_T;
}

std::vector<unsigned char> Scanned(char type, unsigned char form, const char* content) {
    const Value value(type);
    KyString text(content);
    Types().ScanFromKyString(type, value.Get(), text, nullptr, 1);
    return value.Store(form);
}

/// What stands apart before all others, in the order of an index.
Keys KeysBefore(const Attribute& attribute, unsigned char form) {
    Keys keys;
    if (attribute.count > 1) return keys;
    const Value value(attribute.type);
    if (IsString(attribute.type)) keys.push_back(value.Store(form));
    if (IsFloatingPoint(attribute.type))
        for (const char* word : {"NaN", "-Infinity"}) keys.push_back(Scanned(attribute.type, form, word));
    if (KySetNullFunc* const setNull = Types().SetNullPtrGet(attribute.type)) {
        setNull(value.Get());
        keys.insert(keys.begin(), value.Store(form));
    }
    return keys;
}

/// And behind them.
Keys KeysBehind(const Attribute& attribute, unsigned char form) {
    if (attribute.count > 1 || !IsFloatingPoint(attribute.type)) return {};
    return {Scanned(attribute.type, form, "Infinity")};
}

CursorHandle OpenCursor(MDB_txn* transaction, MDB_dbi database) {
    MDB_cursor* open = nullptr;
    Check(mdb_cursor_open(transaction, database, &open), "cursor");
    return CursorHandle(open);
}

}  // namespace

std::size_t KeyLimits::EntriesApart() const {
    return std::accumulate(apart.begin(), apart.end(), std::size_t{0},
                           [](std::size_t sum, const ApartKey& key) { return sum + key.entries; });
}

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

const std::optional<KeyLimits>& Snapshot::Limits(std::size_t classAt, std::size_t attribute) const {
    const MDB_dbi index = store->Opened(classAt).indexes[attribute];
    if (known.size() <= index) known.resize(index + 1);
    KnownLimits& of = known[index];
    if (of.moment == Moment()) return of.limits;
    of = {.moment = Moment(), .limits = {}};
    IndexCursor cursor(*this, classAt, attribute);
    auto entry = cursor.First();
    if (!entry) return of.limits;
    KeyLimits& limits = of.limits.emplace();
    limits.entries = EntryCount(classAt, attribute);
    const Attribute& indexed = store->Layout(classAt).Of().attributes[attribute];
    const auto order = [&](Bytes a, Bytes b) { return CompareAsIndexed(indexed, store->Form(), a, b); };
    for (std::vector<unsigned char>& key : KeysBefore(indexed, store->Form())) {
        const int toFirst = entry ? order(key, entry->key) : -1;
        if (toFirst > 0) continue;
        limits.apart.push_back({.key = std::move(key), .entries = toFirst == 0 ? cursor.CountOfKey() : 0});
        if (toFirst == 0) entry = cursor.NextKey();
    }
    if (!entry) return of.limits;
    auto last = cursor.LastKey();
    for (std::vector<unsigned char>& key : KeysBehind(indexed, store->Form())) {
        const bool isLast = last && order(key, last->key) == 0;
        limits.apart.push_back({.key = std::move(key), .entries = isLast ? cursor.CountOfKey() : 0, .isBehind = true});
        if (isLast) last = cursor.PreviousKey();
    }
    if (!last || order(entry->key, last->key) > 0) return of.limits;
    limits.first = entry->key;
    limits.last = last->key;
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
std::optional<IndexEntry> IndexCursor::Next() { return Move(MDB_NEXT); }
std::optional<IndexEntry> IndexCursor::NextOfKey() { return Move(MDB_NEXT_DUP); }
std::optional<IndexEntry> IndexCursor::NextKey() { return Move(MDB_NEXT_NODUP); }

/// From the end of an index LMDB goes on to nothing, not even to the next entry of the last key.
std::optional<IndexEntry> IndexCursor::LastKey() {
    const auto last = Move(MDB_LAST);
    return last ? Move(MDB_SET_KEY, last->key) : std::nullopt;
}

/// LMDB comes to a key from behind by its last entry, and tells no key with the first.
std::optional<IndexEntry> IndexCursor::PreviousKey() {
    auto entry = Move(MDB_PREV_NODUP);
    const auto first = entry ? Move(MDB_FIRST_DUP) : std::nullopt;
    if (first) entry->number = first->number;
    return entry;
}

std::size_t IndexCursor::CountOfKey() const {
    std::size_t count = 0;
    Check(mdb_cursor_count(cursor.get(), &count), "index");
    return count;
}

}  // namespace engine
