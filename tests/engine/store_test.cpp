#include "store.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "batch.h"
#include "kyi18n.h"
#include "kystring.h"
#include "kytypinf.h"
#include "maintenance.h"
#include "scratch_store.h"
#include "snapshot.h"
#include "types.h"

namespace {

using engine::Access;
using engine::Batch;
using engine::Schema;
using engine::Snapshot;
using engine::Store;

const char kWords[] = "class Word {\n text KyString index\n length int index\n twin KyString }\n";

/// Adds objects "w<i>" for the numbers from `first` to `last`, in one batch.
void AddWords(Store& store, int first, int last) {
    Batch batch(store, 0);
    for (int i = first; i <= last; ++i) {
        KyString text(std::string("w").append(std::to_string(i)).c_str());
        int length = i % 10;
        KyString twin = text;
        void* const values[] = {&text, &length, &twin};
        batch.Add(values);
    }
    batch.Commit();
}

std::size_t Faults(const Store& store) {
    return engine::CheckStore(store, [](const std::string& fault) { ADD_FAILURE() << fault; }).faults;
}

class StoreInForm : public ::testing::TestWithParam<unsigned char> {};

TEST_P(StoreInForm, ObjectsAreFoundByNumberAndInEachIndex) {
    const ScratchFolder folder;
    Store::Create(folder.File("words"), Schema::Parse(kWords), GetParam());
    {
        Store store(folder.File("words"), Access::write);
        AddWords(store, 1, 500);
        AddWords(store, 501, 1000);
    }
    const Store store(folder.File("words"), Access::read);
    EXPECT_EQ(store.Form(), GetParam());
    EXPECT_EQ(Faults(store), 0U);
    const Snapshot snapshot(store);
    EXPECT_EQ(snapshot.ObjectCount(0), 1000U);

    const engine::Bytes record = snapshot.Find(0, 777);
    ASSERT_FALSE(record.empty());
    const engine::Bytes length = store.Layout(0).At(record, 1);
    int number = 0;
    engine::Types().Load(KyINT_T, &number, const_cast<unsigned char*>(length.data()), GetParam(), 1);
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(snapshot.Find(0, 1001).empty());
    EXPECT_TRUE(snapshot.Find(0, 0).empty());

    engine::IndexCursor cursor(snapshot, 0, 1);
    int previous = -1;
    std::size_t entries = 0;
    for (auto entry = cursor.First(); entry; entry = cursor.Next(), ++entries) {
        engine::Types().Load(KyINT_T, &number, const_cast<unsigned char*>(entry->key.data()), GetParam(), 1);
        EXPECT_LE(previous, number);
        previous = number;
    }
    EXPECT_EQ(entries, 1000U);
}

TEST_P(StoreInForm, ObjectsAreFoundByIdentifier) {
    const ScratchFolder folder;
    Store::Create(folder.File("pairs"), Schema::Parse("class First { a int }\nclass Second { b int }"), GetParam());
    Store store(folder.File("pairs"), Access::write);
    for (std::size_t classAt = 0; classAt < 2; ++classAt) {
        Batch batch(store, classAt);
        for (int i = 1; i <= 3; ++i) {
            int value = i * 10 + static_cast<int>(classAt);
            void* const values[] = {&value};
            batch.Add(values);
        }
        batch.Commit();
    }
    const Snapshot snapshot(store);
    for (std::size_t classAt = 0; classAt < 2; ++classAt) {
        const KyObjId id = engine::ObjectId(classAt, 2);
        EXPECT_EQ(id.B, classAt + 1);
        EXPECT_EQ(id.L, 2U);
        EXPECT_EQ(id.H, 0U);
        const engine::Bytes record = snapshot.Find(id);
        ASSERT_FALSE(record.empty());
        EXPECT_EQ(record.data(), snapshot.Find(classAt, 2).data());
        int value = 0;
        const engine::Bytes stored = store.Layout(classAt).At(record, 0);
        engine::Types().Load(KyINT_T, &value, const_cast<unsigned char*>(stored.data()), GetParam(), 1);
        EXPECT_EQ(value, 20 + static_cast<int>(classAt));
    }
    for (const KyObjId& id : {KyObjId(0, 2, 0), KyObjId(3, 2, 0), KyObjId(1, 4, 0), KyObjId(1, 2, 1), KyObjId()})
        EXPECT_TRUE(snapshot.Find(id).empty()) << id.B << ' ' << id.L << ' ' << id.H;
}

TEST(ObjectId, HoldsNumbersOf48Bits) {
    const KyObjId id = engine::ObjectId(6, 0xABCD12345678);
    EXPECT_EQ(id.B, 7U);
    EXPECT_EQ(id.L, 0x12345678U);
    EXPECT_EQ(id.H, 0xABCD);
    EXPECT_EQ(engine::NumberOf(id), 0xABCD12345678U);
    EXPECT_EQ(engine::ClassOf(id), 6U);
    EXPECT_FALSE(engine::ClassOf(KyObjId()));
}

INSTANTIATE_TEST_SUITE_P(Forms, StoreInForm, ::testing::Values(KyFormNative, KyFormReversed));

TEST(Store, GrowsByItself) {
    const ScratchFolder folder;
    Store::Create(folder.File("blobs"), Schema::Parse("class Text { text KyString }"), KyFormNative);
    Store store(folder.File("blobs"), Access::write);
    const std::string long30k(30000, 'x');
    for (int round = 0; round < 4; ++round) {
        Batch batch(store, 0);
        for (int i = 0; i < 1000; ++i) {
            KyString text(long30k.c_str());
            void* const values[] = {&text};
            batch.Add(values);
        }
        EXPECT_EQ(batch.Commit(), static_cast<engine::ObjectNumber>(round * 1000 + 1));
    }
    EXPECT_EQ(Snapshot(store).ObjectCount(0), 4000U);
    EXPECT_EQ(Faults(store), 0U);
}

template <class Action>
std::string FaultOf(Action action) {
    try {
        action();
    } catch (const engine::StoreError& error) {
        return error.what();
    }
    return "none";
}

TEST(Store, FilesThatAreNoStoreAreRefused) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    const auto open = [&path] { const Store store(path, Access::read); };

    EXPECT_EQ(FaultOf(open), "\"" + path + "\" cannot be opened: " + std::strerror(ENOENT));
    std::ofstream(path) << "nothing like a store, and long enough for a page" << std::string(9000, ' ');
    EXPECT_EQ(FaultOf(open), "\"" + path + "\" is no store of this program");
    EXPECT_EQ(FaultOf([&] { Store::Create(path, Schema::Parse(kWords), 1); }), "\"" + path + "\" exists already");
}

TEST(Store, TruncatedFilesAreRefused) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    Store::Create(path, Schema::Parse(kWords), 1);
    {
        Store store(path, Access::write);
        AddWords(store, 1, 5000);
    }
    const auto size = std::filesystem::file_size(path);
    for (const auto cut : {size - 1, size / 2, std::uintmax_t{8192}}) {
        std::filesystem::resize_file(path, cut);
        EXPECT_EQ(FaultOf([&path] { const Store store(path, Access::read); }), "\"" + path + "\" is truncated") << cut;
    }
}

TEST(Store, HasOneWriter) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    Store::Create(path, Schema::Parse(kWords), 1);
    const Store writer(path, Access::write);
    EXPECT_EQ(FaultOf([&path] { const Store second(path, Access::write); }),
              "\"" + path + "\" is in use: somebody else is writing to it");
}

TEST(Store, LimitsOfAnIndexAreThoseOfTheSnapshotsMoment) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    Store::Create(path, Schema::Parse("class Number { number int index }"), 1);
    Store store(path, Access::write);
    const auto add = [&store](int number) {
        Batch batch(store, 0);
        void* const values[] = {&number};
        batch.Add(values);
        batch.Commit();
    };
    const auto number = [](engine::Bytes key) {
        int value = 0;
        engine::Types().Load(KyINT_T, &value, const_cast<unsigned char*>(key.data()), 1, 1);
        return value;
    };
    Snapshot snapshot(store);
    EXPECT_FALSE(snapshot.Limits(0, 0));
    add(5);
    EXPECT_FALSE(snapshot.Limits(0, 0));
    for (const int next : {7, 3, 9}) {
        snapshot.Renew();
        snapshot.Limits(0, 0);
        add(next);
    }
    EXPECT_EQ(number(snapshot.Limits(0, 0)->first), 3);
    EXPECT_EQ(number(snapshot.Limits(0, 0)->last), 7);
    snapshot.Renew();
    EXPECT_EQ(number(snapshot.Limits(0, 0)->first), 3);
    EXPECT_EQ(number(snapshot.Limits(0, 0)->last), 9);
}

/// A schema of so many classes, each with an index.
std::string ManyClasses(int count) {
    std::string schema;
    for (int i = 0; i < count; ++i) schema.append("class C").append(std::to_string(i)).append(" { a int index }\n");
    return schema;
}

TEST(Store, HasRoomForManyClassesAndNotForMore) {
    const ScratchFolder folder;
    // With the one that says what the store is, 511 databases.
    Store::Create(folder.File("many"), Schema::Parse(ManyClasses(255)), 1);
    Store store(folder.File("many"), Access::write);
    Batch batch(store, 254);
    int value = 7;
    void* const values[] = {&value};
    batch.Add(values);
    EXPECT_EQ(batch.Commit(), 1U);
    EXPECT_EQ(Faults(store), 0U);
    EXPECT_EQ(FaultOf([&] { Store::Create(folder.File("more"), Schema::Parse(ManyClasses(256)), 1); }),
              "a store has at most 511 classes and indexes");
    EXPECT_FALSE(std::filesystem::exists(folder.File("more")));
}

TEST(Store, ABatchIsEmptyBehindItsCommit) {
    const ScratchFolder folder;
    Store::Create(folder.File("words"), Schema::Parse("class Number { number int index }"), 1);
    Store store(folder.File("words"), Access::write);
    Batch batch(store, 0);
    for (int i = 0; i < 3; ++i) {
        void* const values[] = {&i};
        batch.Add(values);
        EXPECT_EQ(batch.Count(), 1U);
        EXPECT_EQ(batch.Commit(), static_cast<engine::ObjectNumber>(i + 1));
        EXPECT_EQ(batch.Count(), 0U);
    }
    EXPECT_EQ(Snapshot(store).ObjectCount(0), 3U);
}

TEST(Store, SnapshotsAreRenewedBeyondTheSizeThatTheirProcessKnows) {
    const ScratchFolder folder;
    const std::string path = folder.File("texts");
    Store::Create(path, Schema::Parse("class Text { text KyString; number int index }"), KyFormNative);
    const Store store(path, Access::read);
    Snapshot snapshot(store);
    EXPECT_FALSE(snapshot.Limits(0, 1));
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        {
            Store own(path, Access::write);
            Batch batch(own, 0);
            KyString text(std::string(30000, 'x').c_str());
            for (int i = 0; i < 3000; ++i) {
                void* const values[] = {&text, &i};
                batch.Add(values);
            }
            batch.Commit();
        }
        _exit(0);
    }
    int status = 0;
    waitpid(writer, &status, 0);
    ASSERT_EQ(status, 0);
    EXPECT_EQ(snapshot.ObjectCount(0), 0U);
    snapshot.Renew();
    EXPECT_EQ(snapshot.ObjectCount(0), 3000U);
    EXPECT_TRUE(snapshot.Limits(0, 1));
    EXPECT_FALSE(snapshot.Find(0, 3000).empty());
}

TEST(Store, SaysWhatMadeIt) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    Store::Create(path, Schema::Parse(kWords), KyFormReversed);
    const Store store(path, Access::read);
    const char* version = nullptr;
    GetKyTypeMgrInfo(nullptr, nullptr, &version, nullptr, nullptr);
    char checksum[17];
    std::snprintf(checksum, sizeof checksum, "%016llx", KyLanguageContext::QueryTableChecksum());
    const std::pair<const char*, std::string> properties[] = {
        {"format", "2"},
        {"form", "2"},
        {"schema", Schema::Parse(kWords).Text()},
        {"library", version},
        {"tables version", std::to_string(KyLanguageContext::QueryTableVersion())},
        {"tables checksum", checksum},
        {"nothing", ""},
    };
    for (const auto& [name, value] : properties) EXPECT_EQ(store.Property(name), value) << name;
}

TEST(Store, CheckAndReindexTellHowFarTheyAre) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    Store::Create(path, Schema::Parse(kWords), 1);
    Store store(path, Access::reindex);
    AddWords(store, 1, 5000);
    std::vector<std::size_t> told;
    std::size_t of = 0;
    const auto progress = [&](std::size_t done, std::size_t total) {
        told.push_back(done);
        EXPECT_LE(done, total);
        of = total;
    };
    const auto expectTold = [&](std::size_t total) {
        EXPECT_EQ(of, total);
        EXPECT_TRUE(std::ranges::is_sorted(told));
        EXPECT_GT(told.size(), total / 2000);
        EXPECT_GT(told.back(), total - 2000);
        told.clear();
    };
    engine::CheckStore(
        store, [](const std::string& fault) { ADD_FAILURE() << fault; }, progress);
    expectTold(15000);
    engine::Reindex(store, progress);
    expectTold(10000);
}

TEST(Store, ReindexMakesTheSameIndexes) {
    const ScratchFolder folder;
    const std::string path = folder.File("store");
    Store::Create(path, Schema::Parse(kWords), 1);
    {
        Store store(path, Access::write);
        AddWords(store, 1, 3000);
    }
    Store store(path, Access::reindex);
    EXPECT_EQ(engine::Reindex(store), 6000U);
    EXPECT_EQ(Faults(store), 0U);
}

}  // namespace
