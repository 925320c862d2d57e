#ifndef ENGINE_STORE_H
#define ENGINE_STORE_H

/// A store of objects in one LMDB file: a database of each class's objects by their numbers, one of each index, and one
/// that says what the store is. Beside the file stands LMDB's lock file, its name with "-lock".

#include <lmdb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "error.h"
#include "record.h"
#include "schema.h"

namespace engine {

/// Counted from 1 in each class.
using ObjectNumber = std::uint64_t;

enum class Access {
    read,
    write,    ///< one process at a time
    reindex,  ///< the same, and indexes of other collation tables are no error
};

struct CloseEnv {
    void operator()(MDB_env* opened) const { mdb_env_close(opened); }
};
using EnvHandle = std::unique_ptr<MDB_env, CloseEnv>;

class Store {
public:
    /// A new store without objects; `form`, 1 or 2, is the persistent form of all values. Throws `StoreError`, also
    /// when the file exists; what fails leaves no file.
    static void Create(const std::string& path, const Schema& schema, unsigned char form);

    /// Throws `StoreError` for what is no store, is truncated or of another format, or is written by somebody else, and
    /// `OtherTablesError`. Reading is possible beside a writer, but for those who may not write the lock file: they and
    /// a writer keep each other away.
    Store(const std::string& path, Access access);
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store();

    const Schema& GetSchema() const { return schema; }
    unsigned char Form() const { return form; }
    const RecordLayout& Layout(std::size_t classAt) const { return classes[classAt].layout; }
    /// What the store says of itself: "format", "form", "schema", "library", "tables version", "tables checksum".
    std::string Property(const char* name) const;

    // For the store's own parts.
    struct OpenClass {
        RecordLayout layout;
        MDB_dbi objects;
        std::vector<MDB_dbi> indexes;  ///< an entry an attribute, 0 where it has no index
    };
    const OpenClass& Opened(std::size_t classAt) const { return classes[classAt]; }
    MDB_env* Env() const { return env.get(); }
    /// Doubles the room in the file; no transaction may be open.
    void Grow();
    /// Says of the store that its indexes are ordered by the present collation tables.
    void TakeOverTables(MDB_txn* transaction);

private:
    Schema schema;
    unsigned char form = KyFormNative;
    EnvHandle env;
    std::vector<OpenClass> classes;
    MDB_dbi properties = 0;
    int lockedFile = -1;

    void OpenFile(const std::string& path, Access access);
    void ReadProperties(const std::string& path, Access access);
    void OpenDatabases();
};

}  // namespace engine

#endif
