#ifndef ENGINE_SNAPSHOT_H
#define ENGINE_SNAPSHOT_H

/// Reading a store as it was at one moment.

#include <lmdb.h>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "object_id.h"
#include "store.h"

namespace engine {

struct CloseCursor {
    void operator()(MDB_cursor* open) const { mdb_cursor_close(open); }
};
using CursorHandle = std::unique_ptr<MDB_cursor, CloseCursor>;

/// A key that is at no distance from others and stands before or behind all of them: null, the text without characters,
/// NaN, an infinity.
struct ApartKey {
    std::vector<unsigned char> key;
    std::size_t entries;  ///< there may be none
    bool isBehind = false;
};

/// What an index reaches over.
struct KeyLimits {
    std::size_t entries = 0;  ///< of the whole index
    std::vector<ApartKey> apart;
    /// The first and the last key of those that do not stand apart; both empty when there are none.
    Bytes first;
    Bytes last;

    std::size_t EntriesApart() const;
};

/// What others write meanwhile is not seen. Bytes that are read from it belong to the store and stay until it is
/// renewed or ends. One a thread and store.
class Snapshot {
public:
    explicit Snapshot(const Store& aStore);
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    ~Snapshot();

    /// Moves on to the store's present state; cursors and bytes of the old one are void.
    void Renew();
    /// Another number after each commit.
    std::size_t Moment() const { return mdb_txn_id(transaction); }

    const Store& Of() const { return *store; }
    MDB_txn* Handle() const { return transaction; }

    std::size_t ObjectCount(std::size_t classAt) const;
    std::size_t EntryCount(std::size_t classAt, std::size_t attribute) const;
    /// Null when the index is empty. Looked up once a moment.
    const std::optional<KeyLimits>& Limits(std::size_t classAt, std::size_t attribute) const;

    /// The record of an object; empty when there is none. Throws `StoreError` for a record that is broken.
    Bytes Find(std::size_t classAt, ObjectNumber number) const;
    /// The same by the object's identifier; empty also when it names no class.
    Bytes Find(const KyObjId& id) const;

private:
    struct KnownLimits {
        std::size_t moment = 0;
        std::optional<KeyLimits> limits;
    };

    const Store* store;
    MDB_txn* transaction;
    mutable std::deque<KnownLimits> known;  ///< by the index's handle; no moment has the number 0
};

struct Object {
    ObjectNumber number;
    Bytes record;
};

/// All objects of a class in the order of their numbers.
class ObjectCursor {
public:
    ObjectCursor(const Snapshot& snapshot, std::size_t classAt);
    /// Null behind the last. Throws `StoreError` for a record that is broken.
    std::optional<Object> Next();

private:
    CursorHandle cursor;
    const RecordLayout* layout;
};

struct IndexEntry {
    Bytes key;  ///< of one of the objects with an equal key
    ObjectNumber number;
};

/// The entries of an index in its order; entries with equal keys in the order of their objects' numbers. Each step
/// gives the entry that it leads to, null when there is none.
class IndexCursor {
public:
    IndexCursor(const Snapshot& snapshot, std::size_t classAt, std::size_t attribute);

    std::optional<IndexEntry> First();
    /// The first whose key does not order before `key`.
    std::optional<IndexEntry> FirstFrom(Bytes key);
    std::optional<IndexEntry> Next();
    std::optional<IndexEntry> NextOfKey();

    /// The first entry of the last key, of the next one, of the one before.
    std::optional<IndexEntry> LastKey();
    std::optional<IndexEntry> NextKey();
    std::optional<IndexEntry> PreviousKey();

    /// Entries of the present key.
    std::size_t CountOfKey() const;

private:
    CursorHandle cursor;

    std::optional<IndexEntry> Move(MDB_cursor_op how, Bytes key = {});
};

}  // namespace engine

#endif
