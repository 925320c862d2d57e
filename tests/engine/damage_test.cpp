// Damage that is done behind the store's back, through LMDB itself, is found by CheckStore.

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "batch.h"
#include "kystring.h"
#include "lmdb_call.h"
#include "maintenance.h"
#include "scratch_store.h"
#include "snapshot.h"

namespace {

using engine::Access;
using engine::Check;
using engine::ObjectNumber;
using engine::Store;

constexpr int kObjects = 300;

/// A database as LMDB knows it, opened for writing.
struct RawDatabase {
    MDB_txn* transaction;
    MDB_dbi handle;

    engine::CursorHandle Cursor() const {
        MDB_cursor* open = nullptr;
        Check(mdb_cursor_open(transaction, handle, &open), "cursor");
        return engine::CursorHandle(open);
    }
};

/// Of a record or an index entry that a cursor stands on.
std::vector<unsigned char> Copy(const MDB_val& value) {
    const engine::Bytes bytes = engine::AsBytes(value);
    return {bytes.begin(), bytes.end()};
}

class Damage : public ::testing::TestWithParam<unsigned char> {
protected:
    Damage() {
        Store::Create(path, engine::Schema::Parse("class Item { text KyString index\n number int index }"), GetParam());
        Store store(path, Access::write);
        engine::Batch batch(store, 0);
        for (int i = 1; i <= kObjects; ++i) {
            KyString text(std::string("t").append(std::to_string(i % 100)).c_str());
            int number = i / 2;
            void* const values[] = {&text, &number};
            batch.Add(values);
        }
        batch.Commit();
    }

    const ScratchFolder folder;
    const std::string path = folder.File("items");

    enum Which { objects, textIndex, numberIndex };

    void Do(Which which, const std::function<void(const RawDatabase&)>& damage) const {
        Store store(path, Access::write);
        engine::WriteTransaction transaction(store.Env());
        const Store::OpenClass& opened = store.Opened(0);
        damage({transaction, which == objects     ? opened.objects
                             : which == textIndex ? opened.indexes[0]
                                                  : opened.indexes[1]});
        transaction.Commit();
    }

    /// What CheckStore says, the sentences joined.
    std::string Faults() const {
        const Store store(path, Access::read);
        std::string faults;
        std::size_t count = 0;
        const engine::CheckResult result = engine::CheckStore(store, [&](const std::string& fault) {
            faults += fault + "\n";
            ++count;
        });
        EXPECT_EQ(result.faults, count);
        return faults;
    }

    void Reindex() const {
        Store store(path, Access::reindex);
        engine::Reindex(store);
    }

    /// Replaces an object's record.
    void Rewrite(ObjectNumber number, const std::function<void(std::vector<unsigned char>&)>& change) const {
        Do(objects, [&](const RawDatabase& database) {
            MDB_val key{sizeof number, &number};
            MDB_val value{};
            Check(mdb_get(database.transaction, database.handle, &key, &value), "get");
            std::vector<unsigned char> record = Copy(value);
            change(record);
            value = engine::AsValue(record);
            Check(mdb_put(database.transaction, database.handle, &key, &value, 0), "put");
        });
    }
};

TEST_P(Damage, NoneIsFoundInAWholeStore) { EXPECT_EQ(Faults(), ""); }

TEST_P(Damage, EveryFlippedBitOfARecordIsFound) {
    constexpr ObjectNumber number = 77;
    std::size_t size = 0;
    Rewrite(number, [&](std::vector<unsigned char>& record) { size = record.size(); });
    ASSERT_GT(size, 16U);
    for (std::size_t at = 0; at < size; ++at) {
        const auto flip = [&](std::vector<unsigned char>& record) {
            record[at] = static_cast<unsigned char>(record[at] ^ 1U << (at % 8));
        };
        Rewrite(number, flip);
        EXPECT_NE(Faults().find("Item 77"), std::string::npos) << at;
        Rewrite(number, flip);
    }
    EXPECT_EQ(Faults(), "");
}

TEST_P(Damage, RecordsOfAnotherLengthAreFound) {
    for (const int change : {-1, 1, -1000}) {
        std::vector<unsigned char> before;
        Rewrite(5, [&](std::vector<unsigned char>& record) {
            before = record;
            record.resize(change == -1000 ? 3 : record.size() + static_cast<std::size_t>(change));
        });
        EXPECT_NE(Faults().find("the record of Item 5 is damaged\n"), std::string::npos) << change;
        Rewrite(5, [&](std::vector<unsigned char>& record) { record = before; });
    }
    EXPECT_EQ(Faults(), "");
}

TEST_P(Damage, ARecordThatIsGoneIsFoundInAllItsPlaces) {
    Do(objects, [](const RawDatabase& database) {
        ObjectNumber number = 150;
        MDB_val key{sizeof number, &number};
        Check(mdb_del(database.transaction, database.handle, &key, nullptr), "del");
    });
    const std::string faults = Faults();
    for (const char* fault :
         {"there is no Item 150 before Item 151\n", "the index of Item.text names Item 150, which is not there\n",
          "the index of Item.number names Item 150, which is not there\n",
          "the index of Item.text has 300 entries for 299 objects\n"})
        EXPECT_NE(faults.find(fault), std::string::npos) << fault << faults;
}

TEST_P(Damage, AMissingIndexEntryIsFound) {
    for (const Which which : {textIndex, numberIndex}) {
        Do(which, [](const RawDatabase& database) {
            const engine::CursorHandle cursor = database.Cursor();
            MDB_val key{};
            MDB_val value{};
            for (int i = 0; i < 40; ++i) Check(mdb_cursor_get(cursor.get(), &key, &value, MDB_NEXT), "next");
            Check(mdb_cursor_del(cursor.get(), 0), "del");
        });
    }
    EXPECT_EQ(Faults(),
              "the index of Item.text has 299 entries for 300 objects\n"
              "the index of Item.number has 299 entries for 300 objects\n");
}

/// Adds an entry with the key of the one at `from`.
void AddEntry(const RawDatabase& database, int from, ObjectNumber number) {
    std::vector<unsigned char> key;
    {
        const engine::CursorHandle cursor = database.Cursor();
        MDB_val found{};
        MDB_val value{};
        for (int i = 0; i <= from; ++i) Check(mdb_cursor_get(cursor.get(), &found, &value, MDB_NEXT), "next");
        key = Copy(found);
    }
    MDB_val added = engine::AsValue(key);
    MDB_val value{sizeof number, &number};
    Check(mdb_put(database.transaction, database.handle, &added, &value, 0), "put");
}

TEST_P(Damage, AForeignIndexEntryIsFound) {
    Do(numberIndex, [](const RawDatabase& database) { AddEntry(database, 10, 290); });
    Do(textIndex, [](const RawDatabase& database) { AddEntry(database, 10, 1000); });
    const std::string faults = Faults();
    for (const char* fault : {"the index of Item.number has another key for Item 290\n",
                              "the index of Item.number has 301 entries for 300 objects\n",
                              "the index of Item.text names Item 1000, which is not there\n"})
        EXPECT_NE(faults.find(fault), std::string::npos) << fault << faults;
    Reindex();
    EXPECT_EQ(Faults(), "");
}

TEST_P(Damage, ADamagedRecordIsNotIndexedAnew) {
    Rewrite(5, [&](std::vector<unsigned char>& record) { record.resize(record.size() - 1); });
    const std::string before = Faults();
    try {
        Reindex();
        ADD_FAILURE();
    } catch (const engine::StoreError& error) {
        EXPECT_STREQ(error.what(), "the record of Item 5 is damaged");
    }
    EXPECT_EQ(Faults(), before) << "nothing was changed";
}

TEST_P(Damage, AnEntryInAnothersPlaceIsFound) {
    // As many entries as objects, but one object has two, one of them before or behind its place, and another none.
    for (const auto& [from, object] : {std::pair<int, ObjectNumber>{50, 200}, {250, 20}}) {
        Do(numberIndex, [from = from, object = object](const RawDatabase& database) {
            const engine::CursorHandle cursor = database.Cursor();
            MDB_val key{};
            MDB_val value{};
            Check(mdb_cursor_get(cursor.get(), &key, &value, MDB_FIRST), "first");
            Check(mdb_cursor_del(cursor.get(), 0), "del");
            AddEntry(database, from, object);
        });
        EXPECT_EQ(Faults(), "the index of Item.number has another key for Item " + std::to_string(object) + "\n");
        Reindex();
    }
}

TEST_P(Damage, AnIndexInAnotherOrderIsFound) {
    // Written by a program that orders the keys by their bytes.
    Do(numberIndex, [](const RawDatabase& database) {
        std::vector<std::pair<std::vector<unsigned char>, std::vector<unsigned char>>> entries;
        {
            const engine::CursorHandle cursor = database.Cursor();
            MDB_val key{};
            MDB_val value{};
            while (engine::Found(mdb_cursor_get(cursor.get(), &key, &value, MDB_NEXT), "next"))
                entries.emplace_back(Copy(key), Copy(value));
        }
        Check(mdb_drop(database.transaction, database.handle, 0), "drop");
        const auto backwards = [](const MDB_val* a, const MDB_val* b) {
            return std::memcmp(b->mv_data, a->mv_data, 4);
        };
        Check(mdb_set_compare(database.transaction, database.handle, backwards), "order");
        for (auto& [key, value] : entries) {
            MDB_val keyOf = engine::AsValue(key);
            MDB_val valueOf = engine::AsValue(value);
            Check(mdb_put(database.transaction, database.handle, &keyOf, &valueOf, 0), "put");
        }
    });
    EXPECT_NE(Faults().find("the index of Item.number is out of order at Item "), std::string::npos);
    Reindex();
    EXPECT_EQ(Faults(), "");
}

INSTANTIATE_TEST_SUITE_P(Forms, Damage, ::testing::Values(KyFormNative, KyFormReversed));

}  // namespace
