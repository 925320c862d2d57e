/// Loads and reindexes that are killed at each of their writes: between batches and within each commit.

#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <string>

#include "batch.h"
#include "made_store.h"
#include "maintenance.h"
#include "snapshot.h"
#include "types.h"

namespace {

constexpr char kThing[] = "class Thing { number o_4b index\n text KyString index nocase\n day KyDate index }";
constexpr std::size_t kBatch = 150;
constexpr std::size_t kRows = 6 * kBatch + 7;
constexpr int kKilled = 1000 + SIGKILL;
/// More writes than any of the calls has.
constexpr int kManyWrites = 10000;

std::string Rows() {
    std::string csv = "number,text,day\n";
    for (std::size_t i = 0; i < kRows; ++i) {
        const std::string number = std::to_string(i);
        csv.append(number).append(",Text of the row ").append(std::to_string(i * 7919 % kRows));
        // Some are longer than an index key, some than a page.
        csv.append(i % 50 == 0 ? i * 10 : 0, 'x').append(",2024-02-").append(std::to_string(i % 29 + 1)).append("\n");
    }
    return csv;
}

/// A call that is killed at its write of this number.
Result KilledAt(int write, const std::vector<std::string>& call) {
    Surroundings around;
    around.environment = {"LD_PRELOAD=" KILLED_WRITE, "KY_KILL_AT=" + std::to_string(write),
                          "ASAN_OPTIONS=verify_asan_link_order=0"};
    return Kytm(call, around);
}

std::size_t ObjectsIn(const std::string& path) {
    const engine::Store store(path, engine::Access::read);
    EXPECT_EQ(engine::CheckStore(store, [](const std::string& fault) { ADD_FAILURE() << fault; }).faults, 0U);
    const engine::Snapshot snapshot(store);
    engine::ObjectCursor cursor(snapshot, 0);
    std::size_t count = 0;
    for (auto object = cursor.Next(); object; object = cursor.Next(), ++count) {
        int number = -1;
        const engine::Bytes stored = store.Layout(0).At(object->record, 0);
        engine::Types().Load(Ky4B_T, &number, const_cast<unsigned char*>(stored.data()), store.Form(), 1);
        EXPECT_EQ(number, static_cast<int>(count));
    }
    return count;
}

TEST(StoreKilled, ALoadLeavesWholeBatchesWhereverItEnds) {
    const MadeStore store(kThing);
    store.Write("rows", Rows());
    const std::string made = store.File("made");
    std::filesystem::copy_file(store.Path(), made);
    const std::vector<std::string> call = {
        "store", "load", store.Path(), "Thing", store.File("rows"), "--batch", std::to_string(kBatch)};
    std::size_t before = 0;
    std::size_t commits = 0;
    int write = 1;
    for (; write < kManyWrites; ++write) {
        std::filesystem::copy_file(made, store.Path(), std::filesystem::copy_options::overwrite_existing);
        const Result load = KilledAt(write, call);
        if (load.status != kKilled) {
            EXPECT_EQ(load.status, 0) << load.err;
            break;
        }
        const std::size_t objects = ObjectsIn(store.Path());
        EXPECT_TRUE(objects % kBatch == 0 || objects == kRows) << objects << " after " << write << " writes";
        // What was on the disk one write earlier is there now.
        EXPECT_GE(objects, before) << write;
        if (objects != before) ++commits;
        before = objects;
    }
    EXPECT_EQ(commits, 7U);
    EXPECT_GT(write, 21) << "a commit writes pages, brings them to the disk and writes its end";
    EXPECT_EQ(ObjectsIn(store.Path()), kRows);
}

TEST(StoreKilled, ALoadGoesOnBehindTheLastCommit) {
    const MadeStore store(kThing);
    store.Write("rows", Rows());
    const std::vector<std::string> call = {"store", "load", store.Path(), "Thing", store.File("rows"), "--batch", "1"};
    for (const int write : {3, 40, 401}) {
        EXPECT_EQ(KilledAt(write, call).status, kKilled);
        const engine::CheckResult before = [&store] {
            const engine::Store opened(store.Path(), engine::Access::read);
            return engine::CheckStore(opened, [](const std::string& fault) { ADD_FAILURE() << fault; });
        }();
        EXPECT_EQ(store.Load("number\n-1\n").out, "1 object of Thing loaded\n");
        EXPECT_EQ(store.Run("check").out, std::to_string(before.objects + 1) + " objects, " +
                                              std::to_string(before.indexEntries + 3) + " index entries, 0 faults\n");
    }
}

TEST(StoreKilled, AReindexLeavesTheOldIndexesOrTheNewOnes) {
    const MadeStore store(kThing);
    ASSERT_EQ(store.Load(Rows()).status, 0);
    int write = 1;
    for (; write < kManyWrites; ++write) {
        const Result reindex = KilledAt(write, {"store", "reindex", store.Path()});
        ASSERT_EQ(ObjectsIn(store.Path()), kRows) << write;
        if (reindex.status != kKilled) {
            EXPECT_EQ(reindex.status, 0) << reindex.err;
            break;
        }
    }
    EXPECT_GT(write, 3);
}

TEST(StoreKilled, AStoreThatWasNotMadeToItsEndIsNone) {
    const ScratchFolder folder;
    int write = 1;
    for (; write < kManyWrites; ++write) {
        const std::string path = folder.File("store") + std::to_string(write);
        const Result create = [&] {
            Surroundings around;
            around.input = kThing;
            around.environment = {"LD_PRELOAD=" KILLED_WRITE, "KY_KILL_AT=" + std::to_string(write),
                                  "ASAN_OPTIONS=verify_asan_link_order=0"};
            return Kytm({"store", "create", path, "--schema", "-"}, around);
        }();
        const Result check = Kytm({"store", "check", path});
        if (create.status != kKilled) {
            EXPECT_EQ(create.status, 0) << create.err;
            EXPECT_EQ(check.status, 0) << check.err;
            break;
        }
        // Killed behind its last write, it is whole.
        if (check.status == 0) continue;
        EXPECT_EQ(check.status, 2);
        EXPECT_EQ(check.err, "kytm: \"" + path + "\" is no store of this program\n") << write;
    }
    EXPECT_GT(write, 3);
}

}  // namespace
