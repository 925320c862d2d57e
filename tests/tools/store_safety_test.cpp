/// What happens to a store when a load is killed, the disk is full, or the file is not as it should be.

#include <gtest/gtest.h>
#include <lmdb.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "kytypes.h"
#include "made_store.h"
#include "maintenance.h"
#include "snapshot.h"
#include "store.h"
#include "types.h"

namespace {

constexpr char kThing[] = "class Thing { number o_4b index\n text KyString index }";
constexpr std::size_t kBatch = 200;

/// Rows with the numbers 0, 1, 2 ...
std::string ManyRows(int rows) {
    std::string csv = "number,text\n";
    for (int i = 0; i < rows; ++i) {
        const std::string number = std::to_string(i);
        csv.append(number).append(",text of row ").append(number).append("\n");
    }
    return csv;
}

/// A load that runs beside the test.
class RunningLoad {
public:
    explicit RunningLoad(const MadeStore& store) {
        std::vector<std::string> words = {
            KYTM_PROGRAM,          "store", "load", store.Path(), "Thing", store.File("rows"), "--batch",
            std::to_string(kBatch)};
        std::vector<char*> pointers;
        for (std::string& word : words) pointers.push_back(word.data());
        pointers.push_back(nullptr);
        if (posix_spawn(&child, KYTM_PROGRAM, nullptr, nullptr, pointers.data(), environ) != 0) {
            ADD_FAILURE() << "the load does not start";
        }
    }

    /// False when it had ended before.
    bool Kill() const {
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

private:
    pid_t child = 0;
};

std::size_t Committed(const std::string& path) {
    const engine::Store store(path, engine::Access::read);
    return engine::Snapshot(store).ObjectCount(0);
}

/// The store opens, is faultless, and holds whole batches: the first rows of the file, in their order.
void ExpectWholeBatches(const std::string& path, std::size_t least) {
    const engine::Store store(path, engine::Access::read);
    EXPECT_EQ(engine::CheckStore(store, [](const std::string& fault) { ADD_FAILURE() << fault; }).faults, 0U);
    const engine::Snapshot snapshot(store);
    const std::size_t count = snapshot.ObjectCount(0);
    EXPECT_GE(count, least);
    EXPECT_EQ(count % kBatch, 0U);
    engine::ObjectCursor cursor(snapshot, 0);
    int expected = 0;
    for (auto object = cursor.Next(); object; object = cursor.Next(), ++expected) {
        int number = -1;
        const engine::Bytes stored = store.Layout(0).At(object->record, 0);
        engine::Types().Load(Ky4B_T, &number, const_cast<unsigned char*>(stored.data()), store.Form(), 1);
        ASSERT_EQ(number, expected);
    }
    EXPECT_EQ(static_cast<std::size_t>(expected), count);
}

TEST(StoreSafety, AKilledLoadLeavesEveryCommittedBatch) {
    constexpr int manyRows = 200000;
    constexpr std::size_t allRows = manyRows;
    const std::string csv = ManyRows(manyRows);
    std::size_t killed = 0;
    // Once so many objects are seen to be committed, and so long behind it, the load is killed.
    const std::pair<std::size_t, int> moments[] = {{0, 0},           {0, 700},           {0, 2900},
                                                   {kBatch, 0},      {kBatch, 300},      {5 * kBatch, 1100},
                                                   {20 * kBatch, 0}, {50 * kBatch, 1900}};
    for (const auto& [objects, microseconds] : moments) {
        const MadeStore store(kThing);
        store.Write("rows", csv);
        const RunningLoad load(store);
        std::size_t seen = 0;
        for (int tries = 0; seen < objects && tries < 20000; ++tries) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
            seen = Committed(store.Path());
        }
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
        if (load.Kill() && seen < allRows) ++killed;
        EXPECT_GE(seen, objects);
        ExpectWholeBatches(store.Path(), seen);
        // And it goes on.
        EXPECT_EQ(store.Load("number,text\n-1,x\n").status, 0);
        EXPECT_EQ(store.Run("check").status, 0);
    }
    EXPECT_GE(killed, std::size(moments) - 1) << "most loads were still running";
}

TEST(StoreSafety, AFullDiskEndsTheLoadWithAMessage) {
    const MadeStore store(kThing);
    store.Write("rows", ManyRows(100000));
    // Blocks of 512 bytes: the file may not grow beyond 2 MiB.
    const Result result = Shell("ulimit -f 4096; exec \"$KYTM\" store load '" + store.Path() + "' Thing '" +
                                store.File("rows") + "' --batch " + std::to_string(kBatch));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(result.err.starts_with("kytm: the file of the store cannot be written, the disk may be full: "))
        << result.err;
    const std::size_t committed = Committed(store.Path());
    EXPECT_GT(committed, 0U);
    EXPECT_NE(result.err.find("; the load stops here: " + std::to_string(committed) + " objects of Thing loaded"),
              std::string::npos)
        << result.err;
    ExpectWholeBatches(store.Path(), kBatch);
    EXPECT_EQ(store.Load("number,text\n-1,x\n").status, 0);
    EXPECT_EQ(store.Run("check").status, 0);
}

TEST(StoreSafety, AStoreInUseIsNotWritten) {
    const MadeStore store(kThing);
    const engine::Store writer(store.Path(), engine::Access::write);
    for (const Result& result : {store.Load("number\n1\n"), store.Run("reindex")}) {
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.err, "kytm: \"" + store.Path() + "\" is in use: somebody else is writing to it\n");
    }
    EXPECT_EQ(store.Query("number from Thing").status, 0) << "reading is no harm";
}

TEST(StoreSafety, FilesThatAreNoStoreAreRefusedByEveryCommand) {
    const MadeStore store(kThing);
    ASSERT_EQ(store.Load(ManyRows(2000)).status, 0);
    const auto expectRefused = [&store](const std::string& message) {
        for (const Result& result : {store.Load("number\n1\n"), store.Query("Thing"), store.Run("check"),
                                     store.Run("dump"), store.Run("reindex")}) {
            EXPECT_EQ(result.status, 2);
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err, "kytm: \"" + store.Path() + "\" " + message + "\n");
        }
    };
    std::filesystem::resize_file(store.Path(), std::filesystem::file_size(store.Path()) / 2);
    expectRefused("is truncated");
    store.Write("store", "nothing like a store" + std::string(9000, ' '));
    expectRefused("is no store of this program");
    store.Write("store", "");
    for (const Result& result : {store.Query("Thing"), store.Run("check")}) {
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.err.starts_with("kytm: \"" + store.Path() + "\" ")) << result.err;
    }
}

/// Writes a property of a store past the program.
void SetProperty(const std::string& path, const std::string& name, const std::string& value) {
    MDB_env* env = nullptr;
    MDB_txn* transaction = nullptr;
    MDB_dbi properties = 0;
    ASSERT_EQ(mdb_env_create(&env), 0);
    mdb_env_set_maxdbs(env, 4);
    ASSERT_EQ(mdb_env_open(env, path.c_str(), MDB_NOSUBDIR, 0644), 0);
    ASSERT_EQ(mdb_txn_begin(env, nullptr, 0, &transaction), 0);
    ASSERT_EQ(mdb_dbi_open(transaction, "properties", 0, &properties), 0);
    MDB_val key{name.size(), const_cast<char*>(name.data())};
    MDB_val data{value.size(), const_cast<char*>(value.data())};
    ASSERT_EQ(mdb_put(transaction, properties, &key, &data, 0), 0);
    ASSERT_EQ(mdb_txn_commit(transaction), 0);
    mdb_env_close(env);
}

TEST(StoreSafety, OtherCollationTablesAskForAReindex) {
    const MadeStore store(kThing);
    ASSERT_EQ(store.Load("number,text\n1,b\n2,a\n").status, 0);
    SetProperty(store.Path(), "tables checksum", "0123456789abcdef");
    for (const Result& result :
         {store.Load("number\n1\n"), store.Query("Thing"), store.Run("check"), store.Run("dump")}) {
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.err.find("(0123456789abcdef)"), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("rebuild them with \"kytm store reindex\""), std::string::npos) << result.err;
    }
    EXPECT_EQ(store.Run("reindex").out, "4 index entries made\n");
    EXPECT_EQ(store.Run("check").out, "2 objects, 4 index entries, 0 faults\n");
    EXPECT_EQ(store.Query("number from Thing where text <= \"a\"").out, "number\n2\n");
}

TEST(StoreSafety, TablesOfAnotherVersionAskForAReindexToo) {
    const MadeStore store(kThing);
    SetProperty(store.Path(), "tables version", "0");
    SetProperty(store.Path(), "library", "of old");
    const Result refused = store.Run("check");
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(
        refused.err.starts_with("kytm: the indexes of \"" + store.Path() + "\" are ordered by collation tables 0 ("))
        << refused.err;
    EXPECT_EQ(store.Run("reindex").status, 0);
    EXPECT_EQ(store.Run("check").status, 0);
    const engine::Store opened(store.Path(), engine::Access::read);
    EXPECT_NE(opened.Property("library"), "of old") << "the library that ordered the indexes";
}

TEST(StoreSafety, ADamagedSchemaIsTold) {
    const MadeStore store(kThing);
    SetProperty(store.Path(), "schema", "class Thing {");
    const Result result = store.Run("check");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err,
              "kytm: the schema in \"" + store.Path() + "\" is damaged: the class \"Thing\" does not end\n");
}

TEST(StoreSafety, OtherFormatsAreRefused) {
    const MadeStore store(kThing);
    SetProperty(store.Path(), "format", "1");
    const Result result = store.Run("check");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kytm: \"" + store.Path() + "\" has format 1; this program knows format 2\n");
}

TEST(StoreSafety, CheckTellsOfDamage) {
    const MadeStore store("class Thing { number o_4b }");
    ASSERT_EQ(store.Load("number\n1431655765\n").status, 0);
    // The one record, with its number 55 55 55 55, is found in the file and changed.
    const Result damaged = Shell("LC_ALL=C sed -i 's/UUUU/UUUV/' '" + store.Path() + "'");
    ASSERT_EQ(damaged.status, 0);
    const Result result = store.Run("check");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "1 objects, 0 index entries, 1 faults\n");
    EXPECT_EQ(result.err, "kytm: the values of Thing 1 do not have the hash that they were stored with\n");
}

TEST(StoreSafety, ReadOnlyStoresAreReadAndNotWritten) {
    if (kWritesCoverage) GTEST_SKIP() << "another user cannot write the program's own files";
    const MadeStore store(kThing);
    ASSERT_EQ(store.Load("number,text\n1,b\n").status, 0);
    const std::string folder = std::filesystem::path(store.Path()).parent_path();
    ASSERT_EQ(Shell("chmod 755 '" + folder + "'; chmod 444 '" + store.Path() + "'*").status, 0);
    // Nothing is closed to the super-user.
    const std::string asNobody = geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    if (Shell(asNobody + "\"$KYTM\" --version").status != 0) GTEST_SKIP() << "another user cannot run the program";
    const std::string program = asNobody + "\"$KYTM\" store ";
    EXPECT_EQ(Shell(program + "query '" + store.Path() + "' Thing --csv").out, "number,text\n1,b\n");
    EXPECT_EQ(Shell(program + "check '" + store.Path() + "'").status, 0);
    const Result load = Shell(program + "load '" + store.Path() + "' Thing - </dev/null");
    EXPECT_EQ(load.status, 2);
    EXPECT_EQ(load.err, "kytm: \"" + store.Path() + "\" cannot be opened: Permission denied\n");
}

}  // namespace
