#ifndef ENGINE_LMDB_CALL_H
#define ENGINE_LMDB_CALL_H

/// LMDB's results as exceptions, its values as bytes.

#include <lmdb.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string>

#include "error.h"
#include "record.h"

namespace engine {

/// The file has no room for what is to be written; `Store::Grow` makes some.
class FullError : public StoreError {
public:
    using StoreError::StoreError;
};

/// Throws for any result but success.
inline void Check(int result, const char* what) {
    if (result == MDB_SUCCESS) return;
    const std::string message = std::string(what) + ": " + mdb_strerror(result);
    if (result == MDB_MAP_FULL) throw FullError(message);
    // LMDB tells a write that was cut short as EIO.
    if (result == ENOSPC || result == EDQUOT || result == EFBIG || result == EIO)
        throw NoRoomError("the file of the store cannot be written, the disk may be full: " + message);
    throw StoreError(message);
}

/// The same, with false for "not found".
inline bool Found(int result, const char* what) {
    if (result == MDB_NOTFOUND) return false;
    Check(result, what);
    return true;
}

inline MDB_val AsValue(Bytes bytes) { return {bytes.size(), const_cast<unsigned char*>(bytes.data())}; }
inline Bytes AsBytes(const MDB_val& value) { return {static_cast<const unsigned char*>(value.mv_data), value.mv_size}; }

inline std::uint64_t NumberIn(const MDB_val& value) {
    std::uint64_t number = 0;
    if (value.mv_size != sizeof number) throw StoreError("an object number is damaged");
    std::memcpy(&number, value.mv_data, sizeof number);
    return number;
}

/// Another process may have made the file larger than this one knows.
inline MDB_txn* BeginReading(MDB_env* env) {
    MDB_txn* transaction = nullptr;
    int result = mdb_txn_begin(env, nullptr, MDB_RDONLY, &transaction);
    if (result == MDB_MAP_RESIZED) {
        Check(mdb_env_set_mapsize(env, 0), "size of the store");
        result = mdb_txn_begin(env, nullptr, MDB_RDONLY, &transaction);
    }
    Check(result, "begin of a transaction");
    return transaction;
}

/// Ended without a commit unless `Commit` is called.
class WriteTransaction {
public:
    explicit WriteTransaction(MDB_env* env) {
        Check(mdb_txn_begin(env, nullptr, 0, &handle), "begin of a transaction");
    }
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;
    ~WriteTransaction() {
        if (handle != nullptr) mdb_txn_abort(handle);
    }

    operator MDB_txn*() const { return handle; }  // NOLINT(google-explicit-constructor)

    /// On the disk when it returns.
    void Commit() {
        MDB_txn* const ended = handle;
        handle = nullptr;
        Check(mdb_txn_commit(ended), "commit");
    }

private:
    MDB_txn* handle = nullptr;
};

}  // namespace engine

#endif
