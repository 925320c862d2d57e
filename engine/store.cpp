#include "store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "index_order.h"
#include "kyi18n.h"
#include "kytypinf.h"
#include "lmdb_call.h"

namespace engine {

namespace {

constexpr char kFormat[] = "2";
constexpr char kPropertiesName[] = "properties";
constexpr std::size_t kFirstMapSize = std::size_t{64} << 20U;
constexpr mode_t kFileMode = 0644;

// The properties that a store has.
constexpr char kFormatKey[] = "format";
constexpr char kFormKey[] = "form";
constexpr char kSchemaKey[] = "schema";
constexpr char kLibraryKey[] = "library";
constexpr char kTablesVersionKey[] = "tables version";
constexpr char kTablesChecksumKey[] = "tables checksum";

std::string LibraryVersion() {
    const char* version = nullptr;
    GetKyTypeMgrInfo(nullptr, nullptr, &version, nullptr, nullptr);
    return version;
}

std::string TablesVersion() { return std::to_string(KyLanguageContext::QueryTableVersion()); }

std::string TablesChecksum() {
    constexpr std::size_t digits = 16;
    char text[digits + 1];
    const int length = std::snprintf(text, sizeof text, "%016llx", KyLanguageContext::QueryTableChecksum());
    return {text, static_cast<std::size_t>(length)};
}

void PutProperty(MDB_txn* transaction, MDB_dbi properties, const std::string& name, const std::string& value) {
    MDB_val key{name.size(), const_cast<char*>(name.data())};
    MDB_val data{value.size(), const_cast<char*>(value.data())};
    Check(mdb_put(transaction, properties, &key, &data, 0), "properties");
}

std::string ObjectsName(const Class& objects) { return "objects " + objects.name; }

std::string IndexName(const Class& objects, const Attribute& attribute) {
    return "index " + objects.name + " " + attribute.name;
}

/// LMDB prepares each transaction for so many.
constexpr unsigned kMostDatabases = 512;

std::size_t DatabaseCount(const Schema& schema) {
    std::size_t count = 1 + schema.Classes().size();
    for (const Class& each : schema.Classes())
        count += static_cast<std::size_t>(
            std::ranges::count_if(each.attributes, [](const Attribute& of) { return of.index.has_value(); }));
    return count;
}

[[noreturn]] void FailToOpen(const std::string& path, int error) {
    if (error == MDB_INVALID || error == MDB_VERSION_MISMATCH)
        throw StoreError("\"" + path + "\" is no store of this program");
    throw StoreError("\"" + path + "\" cannot be opened: " + mdb_strerror(error));
}

/// Bytes of an open file.
std::size_t SizeOf(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

bool ReadsOnly(Access access) { return access == Access::read; }

[[noreturn]] void FailAsInUse(const std::string& path) {
    throw StoreError("\"" + path + "\" is in use: somebody else is writing to it");
}

EnvHandle MakeEnv() {
    MDB_env* made = nullptr;
    Check(mdb_env_create(&made), "store");
    EnvHandle env(made);
    Check(mdb_env_set_maxdbs(made, kMostDatabases), "store");
    Check(mdb_env_set_mapsize(made, kFirstMapSize), "store");
    return env;
}

EnvHandle OpenForWriting(const std::string& path) {
    EnvHandle env = MakeEnv();
    const int error = mdb_env_open(env.get(), path.c_str(), MDB_NOSUBDIR, kFileMode);
    if (error != MDB_SUCCESS) FailToOpen(path, error);
    return env;
}

/// `file`: the same file, open.
EnvHandle OpenForReading(const std::string& path, int file) {
    EnvHandle env = MakeEnv();
    int error = mdb_env_open(env.get(), path.c_str(), MDB_NOSUBDIR | MDB_RDONLY, kFileMode);
    if (error == EACCES || error == EROFS) {
        // Who may not write the lock file cannot tell writers what it reads, and so keeps them away.
        if (::flock(file, LOCK_SH | LOCK_NB) != 0) FailAsInUse(path);
        env = MakeEnv();
        error = mdb_env_open(env.get(), path.c_str(), MDB_NOSUBDIR | MDB_RDONLY | MDB_NOLOCK, kFileMode);
    }
    if (error != MDB_SUCCESS) FailToOpen(path, error);
    return env;
}

/// The file of a store that is being made, and its lock file: removed unless it is kept.
class NewFile {
public:
    explicit NewFile(const std::string& aPath) : path(aPath) {
        const int made = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode);
        if (made < 0 && errno == EEXIST) throw StoreError("\"" + path + "\" exists already");
        if (made < 0) throw StoreError("\"" + path + "\" cannot be made: " + std::strerror(errno));
        ::close(made);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (isKept) return;
        ::unlink(path.c_str());
        ::unlink((path + "-lock").c_str());
    }

    void Keep() { isKept = true; }

private:
    std::string path;
    bool isKept = false;
};

}  // namespace

void Store::Create(const std::string& path, const Schema& schema, unsigned char form) {
    if (DatabaseCount(schema) > kMostDatabases)
        throw StoreError("a store has at most " + std::to_string(kMostDatabases - 1) + " classes and indexes");
    NewFile file(path);
    const EnvHandle env = OpenForWriting(path);
    WriteTransaction transaction(env.get());
    MDB_dbi properties = 0;
    Check(mdb_dbi_open(transaction, kPropertiesName, MDB_CREATE, &properties), "properties");
    PutProperty(transaction, properties, kFormatKey, kFormat);
    PutProperty(transaction, properties, kFormKey, std::to_string(form));
    PutProperty(transaction, properties, kSchemaKey, schema.Text());
    PutProperty(transaction, properties, kLibraryKey, LibraryVersion());
    PutProperty(transaction, properties, kTablesVersionKey, TablesVersion());
    PutProperty(transaction, properties, kTablesChecksumKey, TablesChecksum());
    for (const Class& each : schema.Classes()) {
        MDB_dbi made = 0;
        Check(mdb_dbi_open(transaction, ObjectsName(each).c_str(), MDB_CREATE | MDB_INTEGERKEY, &made), "objects");
        for (const Attribute& attribute : each.attributes) {
            if (!attribute.index) continue;
            constexpr unsigned flags = MDB_CREATE | MDB_DUPSORT | MDB_DUPFIXED | MDB_INTEGERDUP;
            Check(mdb_dbi_open(transaction, IndexName(each, attribute).c_str(), flags, &made), "index");
        }
    }
    transaction.Commit();
    file.Keep();
}

Store::Store(const std::string& path, Access access) {
    try {
        OpenFile(path, access);
        ReadProperties(path, access);
        OpenDatabases();
    } catch (...) {
        if (lockedFile >= 0) ::close(lockedFile);
        throw;
    }
}

Store::~Store() {
    env.reset();
    if (lockedFile >= 0) ::close(lockedFile);
}

void Store::OpenFile(const std::string& path, Access access) {
    // LMDB would make the file of a store that is not there, and would wait for the other writer.
    lockedFile = ::open(path.c_str(), (ReadsOnly(access) ? O_RDONLY : O_RDWR) | O_CLOEXEC);
    if (lockedFile < 0) throw StoreError("\"" + path + "\" cannot be opened: " + std::strerror(errno));
    if (!ReadsOnly(access) && ::flock(lockedFile, LOCK_EX | LOCK_NB) != 0) FailAsInUse(path);
    // LMDB would make a database of an empty file.
    if (SizeOf(lockedFile) == 0) throw StoreError("\"" + path + "\" is no store of this program");

    env = ReadsOnly(access) ? OpenForReading(path, lockedFile) : OpenForWriting(path);
    // The places of readers that were killed.
    mdb_reader_check(env.get(), nullptr);
    MDB_envinfo info{};
    MDB_stat pages{};
    mdb_env_info(env.get(), &info);
    mdb_env_stat(env.get(), &pages);
    // A page that the file no longer has would end the program when it is read.
    if (SizeOf(lockedFile) < (info.me_last_pgno + 1) * pages.ms_psize)
        throw StoreError("\"" + path + "\" is truncated");
}

void Store::ReadProperties(const std::string& path, Access access) {
    MDB_txn* const transaction = BeginReading(env.get());
    const int opened = mdb_dbi_open(transaction, kPropertiesName, 0, &properties);
    mdb_txn_commit(transaction);  // keeps the handle
    if (opened != MDB_SUCCESS) throw StoreError("\"" + path + "\" is no store of this program");

    const std::string format = Property(kFormatKey);
    if (format != kFormat)
        throw StoreError("\"" + path + "\" has format " + format + "; this program knows format " + kFormat);
    if (access != Access::reindex &&
        (Property(kTablesVersionKey) != TablesVersion() || Property(kTablesChecksumKey) != TablesChecksum()))
        throw OtherTablesError("the indexes of \"" + path + "\" are ordered by collation tables " +
                               Property(kTablesVersionKey) + " (" + Property(kTablesChecksumKey) +
                               "), this program has tables " + TablesVersion() + " (" + TablesChecksum() +
                               "): rebuild them with \"kytm store reindex\"");
    form = Property(kFormKey) == "2" ? KyFormReversed : KyFormNative;
    try {
        schema = Schema::Parse(Property(kSchemaKey));
    } catch (const TextError& error) {
        throw StoreError("the schema in \"" + path + "\" is damaged: " + error.what());
    }
}

void Store::OpenDatabases() {
    MDB_txn* const transaction = BeginReading(env.get());
    const std::unique_ptr<MDB_txn, int (*)(MDB_txn*)> keepHandles(transaction, mdb_txn_commit);
    classes.reserve(schema.Classes().size());
    for (const Class& each : schema.Classes()) {
        OpenClass& opened =
            classes.emplace_back(OpenClass{.layout = RecordLayout(each, form), .objects = 0, .indexes = {}});
        Check(mdb_dbi_open(transaction, ObjectsName(each).c_str(), 0, &opened.objects), "objects");
        for (const Attribute& attribute : each.attributes) {
            MDB_dbi& index = opened.indexes.emplace_back(0);
            if (!attribute.index) continue;
            Check(mdb_dbi_open(transaction, IndexName(each, attribute).c_str(), 0, &index), "index");
            Check(mdb_set_compare(transaction, index, IndexOrder(attribute, form)), "order of an index");
        }
    }
}

std::string Store::Property(const char* name) const {
    const std::unique_ptr<MDB_txn, void (*)(MDB_txn*)> transaction(BeginReading(env.get()), mdb_txn_abort);
    MDB_val key{std::strlen(name), const_cast<char*>(name)};
    MDB_val value{};
    if (!Found(mdb_get(transaction.get(), properties, &key, &value), name)) return {};
    return {static_cast<const char*>(value.mv_data), value.mv_size};
}

void Store::TakeOverTables(MDB_txn* transaction) {
    PutProperty(transaction, properties, kLibraryKey, LibraryVersion());
    PutProperty(transaction, properties, kTablesVersionKey, TablesVersion());
    PutProperty(transaction, properties, kTablesChecksumKey, TablesChecksum());
}

void Store::Grow() {
    MDB_envinfo info{};
    mdb_env_info(env.get(), &info);
    Check(mdb_env_set_mapsize(env.get(), info.me_mapsize * 2), "growth of the store");
}

}  // namespace engine
