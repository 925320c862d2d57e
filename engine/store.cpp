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

constexpr char kFormat[] = "1";
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
    std::snprintf(text, sizeof text, "%016llx", KyLanguageContext::QueryTableChecksum());
    return text;
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

bool ReadsOnly(Access access) { return access == Access::read; }

MDB_env* OpenEnv(const std::string& path, unsigned flags) {
    MDB_env* env = nullptr;
    Check(mdb_env_create(&env), "store");
    mdb_env_set_maxdbs(env, kMostDatabases);
    mdb_env_set_mapsize(env, kFirstMapSize);
    int error = mdb_env_open(env, path.c_str(), flags | MDB_NOSUBDIR, kFileMode);
    if ((error == EACCES || error == EROFS) && (flags & MDB_RDONLY) != 0) {
        // The lock file cannot be made, and so nobody else can write here.
        mdb_env_close(env);
        Check(mdb_env_create(&env), "store");
        mdb_env_set_maxdbs(env, kMostDatabases);
        error = mdb_env_open(env, path.c_str(), flags | MDB_NOSUBDIR | MDB_NOLOCK, kFileMode);
    }
    if (error != MDB_SUCCESS) {
        mdb_env_close(env);
        FailToOpen(path, error);
    }
    return env;
}

}  // namespace

void Store::Create(const std::string& path, const Schema& schema, unsigned char form) {
    struct stat existing {};
    if (::stat(path.c_str(), &existing) == 0) throw StoreError("\"" + path + "\" exists already");
    if (DatabaseCount(schema) > kMostDatabases)
        throw StoreError("a store has at most " + std::to_string(kMostDatabases - 1) + " classes and indexes");
    const std::unique_ptr<MDB_env, CloseEnv> env(OpenEnv(path, 0));
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
    if (!ReadsOnly(access) && ::flock(lockedFile, LOCK_EX | LOCK_NB) != 0)
        throw StoreError("\"" + path + "\" is in use: somebody else is writing to it");

    env.reset(OpenEnv(path, ReadsOnly(access) ? MDB_RDONLY : 0));
    MDB_envinfo info{};
    MDB_stat pages{};
    struct stat file {};
    mdb_env_info(env.get(), &info);
    mdb_env_stat(env.get(), &pages);
    // A page that the file no longer has would end the program when it is read.
    if (::fstat(lockedFile, &file) != 0 ||
        static_cast<std::size_t>(file.st_size) < (info.me_last_pgno + 1) * pages.ms_psize)
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
    MDB_txn* transaction = nullptr;
    unsigned flags = 0;
    mdb_env_get_flags(env.get(), &flags);
    Check(mdb_txn_begin(env.get(), nullptr, flags & MDB_RDONLY, &transaction), "begin of a transaction");
    const std::unique_ptr<MDB_txn, int (*)(MDB_txn*)> commitAtEnd(transaction, mdb_txn_commit);
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
