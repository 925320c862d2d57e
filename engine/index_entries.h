#ifndef ENGINE_INDEX_ENTRIES_H
#define ENGINE_INDEX_ENTRIES_H

/// Entries of one index on their way into it.

#include <lmdb.h>

#include <vector>

#include "store.h"

namespace engine {

class IndexEntries {
public:
    IndexEntries(const Store& aStore, std::size_t aClassAt, std::size_t anAttribute);

    /// Takes the key of the attribute from an object's record.
    void Add(Bytes record, ObjectNumber number);
    std::size_t Count() const { return numbers.size(); }

    /// Writes all in the order of the index, so that neighbours go to pages that are at hand, and is then empty.
    void Write(MDB_txn* transaction);

private:
    const Store& store;
    std::size_t classAt;
    std::size_t attribute;
    std::vector<unsigned char> keys;  ///< one behind the other
    std::vector<std::size_t> keyEnds;
    std::vector<ObjectNumber> numbers;
    std::vector<unsigned char> scratch;
};

}  // namespace engine

#endif
