#ifndef ENGINE_SNAPSHOT_H
#define ENGINE_SNAPSHOT_H

/// Reading a store as it was at one moment.

#include <lmdb.h>

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

/// The first and the last key of an index.
struct KeyLimits {
    Bytes first;
    Bytes last;
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
    std::optional<KeyLimits> Limits(std::size_t classAt, std::size_t attribute) const;

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
    mutable std::vector<KnownLimits> known;  ///< by the index's handle; no moment has the number 0
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
    Bytes key;  ///< of the first object with an equal key
    ObjectNumber number;
};

/// The entries of an index in its order; entries with equal keys in the order of their objects' numbers.
class IndexCursor {
public:
    IndexCursor(const Snapshot& snapshot, std::size_t classAt, std::size_t attribute);

    /// To the first entry, or to the first whose key does not order before `key`. Null when there is none.
    std::optional<IndexEntry> First();
    std::optional<IndexEntry> FirstFrom(Bytes key);
    std::optional<IndexEntry> Last();
    /// Null behind the last.
    std::optional<IndexEntry> Next();

private:
    CursorHandle cursor;

    std::optional<IndexEntry> Move(MDB_cursor_op how, Bytes key = {});
};

}  // namespace engine

#endif
