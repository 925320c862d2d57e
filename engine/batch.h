#ifndef ENGINE_BATCH_H
#define ENGINE_BATCH_H

/// Adding objects to a store.

#include <cstddef>
#include <span>
#include <vector>

#include "store.h"

namespace engine {

/// Objects of one class that come into the store together: all of them, or after a failure or a kill none.
class Batch {
public:
    /// The store is open for writing.
    Batch(Store& aStore, std::size_t classAt);

    /// Takes an object, its attributes in memory form, one address an attribute. The values stay the caller's.
    void Add(std::span<void* const> values);
    std::size_t Count() const { return recordEnds.size(); }

    /// Writes the objects and their index entries in one transaction, which is on the disk when this returns, and is
    /// then empty. The objects get the next numbers of their class; the first of them is returned. The file grows as
    /// needed. Throws `StoreError`, with the batch as it was.
    ObjectNumber Commit();

private:
    Store& store;
    std::size_t classAt;
    std::vector<unsigned char> records;  ///< one behind the other
    std::vector<std::size_t> recordEnds;
    std::vector<unsigned char> record;  ///< the one being written

    ObjectNumber Write(MDB_txn* transaction);
    Bytes Record(std::size_t i) const;
};

}  // namespace engine

#endif
