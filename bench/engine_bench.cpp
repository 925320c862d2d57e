// The object store beside SQLite: loading with three indexes, and queries through them.
//
// Both keep the same items (a text, an int, a double) with an index over each and commit the same batches, each of
// which is on the disk when its commit returns: LMDB by its default, SQLite by `journal_mode=WAL, synchronous=FULL`.
// SQLite has its pages at hand (`cache_size` 512 MiB, `mmap_size` 2 GiB) and the easier order: its texts are compared
// by memcmp, ours as the library's language orders them. Each query sees the present state: ours renews its snapshot
// and plans anew, SQLite runs a prepared statement outside of a transaction. Loading is measured by the clock on the
// wall, because it waits for the disk, queries by their processor time.

#include <benchmark/benchmark.h>

#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "batch.h"
#include "engine/scratch_store.h"
#include "goals.h"
#include "made_items.h"
#include "maintenance.h"
#include "peers/sqlite.h"
#include "run.h"
#include "types.h"

namespace {

using bench::MadeItems;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;

constexpr std::size_t kBatch = 50'000;

const MadeItems& Items(int count) {
    static std::map<int, MadeItems> made;
    return made.try_emplace(count, count).first->second;
}

// --- loading ---

void LoadStore(const std::string& path, const MadeItems& items) {
    Store::Create(path,
                  engine::Schema::Parse("class Item { name KyString index\n code int index\n weight o_double index }"),
                  KyFormNative);
    Store store(path, engine::Access::write);
    engine::Batch batch(store, 0);
    for (std::size_t i = 0; i < items.names.size(); ++i) {
        void* const values[] = {const_cast<KyString*>(&items.texts[i]), const_cast<int*>(&items.codes[i]),
                                const_cast<double*>(&items.weights[i])};
        batch.Add(values);
        if (batch.Count() == kBatch) batch.Commit();
    }
    if (batch.Count() != 0) batch.Commit();
}

constexpr char kPragmas[] =
    "pragma synchronous=full; pragma cache_size=-524288; pragma mmap_size=2147483648; pragma temp_store=memory";

void LoadSqlite(const std::string& path, const MadeItems& items) {
    peer::Sqlite database(path);
    peer::SqliteStatement(database, "pragma journal_mode=wal").Step();
    database.Run(kPragmas);
    database.Run("create table item (number integer primary key, name text, code integer, weight real)");
    for (const char* column : {"name", "code", "weight"})
        database.Run(std::string("create index item_") + column + " on item(" + column + ")");
    peer::SqliteStatement insert(database, "insert into item (name, code, weight) values (?, ?, ?)");
    for (std::size_t i = 0; i < items.names.size(); ++i) {
        if (i % kBatch == 0) database.Run("begin");
        insert.Bind(0, std::string_view(items.names[i]));
        insert.Bind(1, std::int64_t{items.codes[i]});
        insert.Bind(2, items.weights[i]);
        insert.Step();
        if ((i + 1) % kBatch == 0 || i + 1 == items.names.size()) database.Run("commit");
    }
}

template <class Load>
void MeasureLoad(benchmark::State& state, Load load, int count) {
    const MadeItems& items = Items(count);
    for (auto _ : state) {
        state.PauseTiming();
        auto folder = std::make_unique<ScratchFolder>();
        state.ResumeTiming();
        load(folder->File("items"), items);
        state.PauseTiming();
        folder.reset();
        state.ResumeTiming();
    }
}

// --- queries ---

/// The same items in both, loaded once.
struct Loaded {
    explicit Loaded(int count) : items(Items(count)) {
        LoadStore(folder.File("ours"), items);
        LoadSqlite(folder.File("theirs"), items);
        store.emplace(folder.File("ours"), engine::Access::read);
        theirs.emplace(folder.File("theirs"));
        theirs->Run(kPragmas);
        TouchAll();
    }

    const MadeItems& items;
    ScratchFolder folder;
    std::optional<Store> store;
    std::optional<peer::Sqlite> theirs;

private:
    /// So that no page is mapped for the first time while time is taken.
    void TouchAll() {
        engine::CheckStore(*store, [](const std::string& fault) { throw std::runtime_error(fault); });
        peer::SqliteStatement(*theirs, "pragma integrity_check").Step();
    }
};

const Loaded& Table(int count) {
    static std::map<int, Loaded> loaded;
    return loaded.try_emplace(count, count).first->second;
}

enum Column { kName, kCode, kWeight };

/// The values of a column in its order.
struct Name {
    static constexpr Column column = kName;
    static constexpr const char* name = "string";
    static const KyString& Ours(const MadeItems& items, int at) { return items.texts[Place(items, at)]; }
    static std::string_view Theirs(const MadeItems& items, int at) { return items.names[Place(items, at)]; }

private:
    static std::size_t Place(const MadeItems& items, int at) {
        return static_cast<std::size_t>(items.byName[static_cast<std::size_t>(at)]);
    }
};
struct Code {
    static constexpr Column column = kCode;
    static constexpr const char* name = "int";
    static int Ours(const MadeItems&, int at) { return at; }
    static std::int64_t Theirs(const MadeItems&, int at) { return at; }
};
struct Weight {
    static constexpr Column column = kWeight;
    static constexpr const char* name = "double";
    static double Ours(const MadeItems&, int at) { return at / 8.0; }
    static double Theirs(const MadeItems&, int at) { return at / 8.0; }
};

constexpr const char* kColumnNames[] = {"name", "code", "weight"};

/// `name = ?`, or for a range of several `name >= ? and name < ?`.
std::string Where(Column column, bool range) {
    const std::string name = kColumnNames[column];
    return range ? " where " + name + " >= ? and " + name + " < ?" : " where " + name + " = ?";
}

/// Places in the table, all over it.
class Places {
public:
    Places(int aCount, int found) : count(aCount - found) {}
    int Next() {
        state = state * 1103515245U + 12345U;
        return static_cast<int>((std::uint64_t{state} * static_cast<unsigned>(count)) >> 32U);
    }

private:
    int count;
    unsigned state = 1;
};

double WeightOf(const engine::RecordLayout& layout, const engine::Object& object) {
    double weight = 0;
    engine::Types().Load(KyDOUBLE_T, &weight, const_cast<unsigned char*>(layout.At(object.record, kWeight).data()),
                         layout.Form(), 1);
    return weight;
}

/// Both give what they read so that all of it has to be read.
template <class Sought>
void QueryStore(benchmark::State& state, int count, int found) {
    const Loaded& table = Table(count);
    PreparedQuery query(*table.store,
                        engine::ParseQuery(table.store->GetSchema(), "Item" + Where(Sought::column, found > 1)), {});
    const engine::RecordLayout& layout = table.store->Layout(0);
    Snapshot snapshot(*table.store);
    Places places(count, found);
    for (auto _ : state) {
        const int at = places.Next();
        snapshot.Renew();
        auto first = Sought::Ours(table.items, at);
        query.Bind(0, &first);
        if (found > 1) {
            auto behind = Sought::Ours(table.items, at + found);
            query.Bind(1, &behind);
        }
        double sum = 0;
        const engine::RunResult result = query.Run(snapshot, query.Plan(snapshot), [&](const engine::Object& object) {
            sum += WeightOf(layout, object) + layout.At(object.record, kName).back();
            return true;
        });
        if (result.found != static_cast<std::size_t>(found)) state.SkipWithError("another number of objects");
        benchmark::DoNotOptimize(sum);
    }
}

template <class Sought>
void QuerySqlite(benchmark::State& state, int count, int found) {
    const Loaded& table = Table(count);
    peer::SqliteStatement query(*table.theirs, "select name, weight from item" + Where(Sought::column, found > 1));
    Places places(count, found);
    for (auto _ : state) {
        const int at = places.Next();
        query.Bind(0, Sought::Theirs(table.items, at));
        if (found > 1) query.Bind(1, Sought::Theirs(table.items, at + found));
        double sum = 0;
        int rows = 0;
        for (; query.Step(); ++rows) sum += query.Double(1) + query.Text(0).back();
        if (rows != found) state.SkipWithError("another number of rows");
        benchmark::DoNotOptimize(sum);
    }
}

// --- in order ---

std::string FirstInOrder(Column column, const char* direction) {
    return std::string(" order by ") + kColumnNames[column] + direction + " limit ";
}

/// The first so many of all in a column's order.
void FirstOfStore(benchmark::State& state, Column column, const char* direction, int count, int found) {
    const Loaded& table = Table(count);
    const std::string text = "Item" + FirstInOrder(column, direction) + std::to_string(found);
    const PreparedQuery query(*table.store, engine::ParseQuery(table.store->GetSchema(), text), {});
    const engine::RecordLayout& layout = table.store->Layout(0);
    Snapshot snapshot(*table.store);
    for (auto _ : state) {
        snapshot.Renew();
        double sum = 0;
        const engine::RunResult result = query.Run(snapshot, query.Plan(snapshot), [&](const engine::Object& object) {
            sum += WeightOf(layout, object) + layout.At(object.record, kName).back();
            return true;
        });
        if (result.visited != static_cast<std::size_t>(found)) state.SkipWithError("another number of objects");
        benchmark::DoNotOptimize(sum);
    }
}

void FirstOfSqlite(benchmark::State& state, Column column, const char* direction, int count, int found) {
    const Loaded& table = Table(count);
    peer::SqliteStatement query(
        *table.theirs, "select name, weight from item" + FirstInOrder(column, direction) + std::to_string(found));
    for (auto _ : state) {
        double sum = 0;
        int rows = 0;
        for (; query.Step(); ++rows) sum += query.Double(1) + query.Text(0).back();
        if (rows != found) state.SkipWithError("another number of rows");
        benchmark::DoNotOptimize(sum);
    }
}

// --- what is measured ---

struct Size {
    const char* name;
    int rows;
};
constexpr Size kSizes[] = {{"10k", 10'000}, {"100k", 100'000}, {"1m", 1'000'000}};

template <class Sought>
void RegisterQuery(const std::string& shape, Size size, int found) {
    bench::RegisterPair(
        "engine/" + shape + "_" + Sought::name + "/of_" + size.name, bench::AtLeast(1.0),
        [=](benchmark::State& state) { QueryStore<Sought>(state, size.rows, found); },
        [=](benchmark::State& state) { QuerySqlite<Sought>(state, size.rows, found); });
}

void RegisterFirst(const std::string& name, Column column, const char* direction, Size size, int found) {
    bench::RegisterPair(
        "engine/order_by_" + name + "_limit_" + std::to_string(found) + "/of_" + size.name, bench::AtLeast(1.0),
        [=](benchmark::State& state) { FirstOfStore(state, column, direction, size.rows, found); },
        [=](benchmark::State& state) { FirstOfSqlite(state, column, direction, size.rows, found); });
}

const bench::AtStart here([] {
    for (const Size size : kSizes) {
        bench::RegisterPair(
            std::string("engine/load/") + size.name, bench::AtLeast(1.0),
            [=](benchmark::State& state) { MeasureLoad(state, LoadStore, size.rows); },
            [=](benchmark::State& state) { MeasureLoad(state, LoadSqlite, size.rows); },
            [](benchmark::internal::Benchmark& registered) {
                registered.UseRealTime()->Iterations(1)->Repetitions(3);
            });
        constexpr int one = 1;
        RegisterQuery<Name>("point", size, one);
        RegisterQuery<Code>("point", size, one);
        RegisterQuery<Weight>("point", size, one);
        for (const int found : {10, 100, 1000}) {
            const std::string shape = "range_" + std::to_string(found);
            RegisterQuery<Code>(shape, size, found);
        }
        constexpr int several = 100;
        RegisterQuery<Name>("range_100", size, several);
        RegisterQuery<Weight>("range_100", size, several);
        constexpr int few = 10;
        RegisterFirst("string", kName, "", size, few);
        RegisterFirst("int", kCode, "", size, few);
        RegisterFirst("int_desc", kCode, " desc", size, few);
        RegisterFirst("double", kWeight, "", size, few);
    }
});

}  // namespace
