#include "maintenance.h"

#include <lmdb.h>

#include <vector>

#include "index_entries.h"
#include "index_order.h"
#include "lmdb_call.h"
#include "snapshot.h"

namespace engine {

namespace {

/// How far the work on a whole store has come.
class Advance {
public:
    Advance(const ProgressReport& aReport, std::size_t aTotal) : report(aReport), total(aTotal) {}

    void Step() {
        if (done++ % kStride == 0 && report) report(done, total);
    }

private:
    static constexpr std::size_t kStride = 1024;

    const ProgressReport& report;
    std::size_t done = 0;
    std::size_t total;
};

std::size_t ObjectsOfAll(const Snapshot& snapshot) {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < snapshot.Of().GetSchema().Classes().size(); ++i) sum += snapshot.ObjectCount(i);
    return sum;
}

/// That a faultless store has.
std::size_t EntriesOfAll(const Snapshot& snapshot) {
    const std::vector<Class>& classes = snapshot.Of().GetSchema().Classes();
    std::size_t sum = 0;
    for (std::size_t i = 0; i < classes.size(); ++i)
        for (const Attribute& attribute : classes[i].attributes)
            if (attribute.index) sum += snapshot.ObjectCount(i);
    return sum;
}

/// One class of a store under examination.
class ClassCheck {
public:
    ClassCheck(const Snapshot& aSnapshot, std::size_t aClassAt, const std::function<void(const std::string&)>& aReport,
               Advance& anAdvance, CheckResult& aResult)
        : snapshot(aSnapshot),
          classAt(aClassAt),
          layout(aSnapshot.Of().Layout(aClassAt)),
          report(aReport),
          advance(anAdvance),
          result(aResult) {}

    void Run() {
        CheckObjects();
        for (std::size_t i = 0; i < layout.Of().attributes.size(); ++i)
            if (layout.Of().attributes[i].index) CheckIndex(i);
    }

private:
    const Snapshot& snapshot;
    std::size_t classAt;
    const RecordLayout& layout;
    const std::function<void(const std::string&)>& report;
    Advance& advance;
    CheckResult& result;
    std::vector<unsigned char> scratch;

    std::string Name(ObjectNumber number) const { return layout.Of().name + " " + std::to_string(number); }

    void Fault(const std::string& what) {
        ++result.faults;
        report(what);
    }

    void CheckObjects() {
        const CursorHandle cursor = OpenRaw(snapshot.Of().Opened(classAt).objects);
        MDB_val key{};
        MDB_val value{};
        ObjectNumber expected = 1;
        while (Found(mdb_cursor_get(cursor.get(), &key, &value, MDB_NEXT), "objects")) {
            ++result.objects;
            advance.Step();
            const ObjectNumber number = NumberIn(key);
            if (number != expected) Fault("there is no " + Name(expected) + " before " + Name(number));
            expected = number + 1;
            if (!layout.IsWhole(AsBytes(value))) {
                Fault("the record of " + Name(number) + " is damaged");
            } else if (!layout.CheckHolds(AsBytes(value))) {
                Fault("the values of " + Name(number) + " do not have the hash that they were stored with");
            }
        }
    }

    /// Entries are as many as objects, no two are the same, and each is where its object's key belongs: so each
    /// object has its entry.
    void CheckIndex(std::size_t attribute) {
        const Attribute& of = layout.Of().attributes[attribute];
        const std::string index = "the index of " + layout.Of().name + "." + of.name;
        MDB_cmp_func* const order = IndexOrder(of, snapshot.Of().Form());
        IndexCursor cursor(snapshot, classAt, attribute);
        std::vector<unsigned char> before;
        ObjectNumber numberBefore = 0;
        std::size_t entries = 0;
        for (auto entry = cursor.First(); entry; entry = cursor.Next()) {
            ++result.indexEntries;
            advance.Step();
            MDB_val key = AsValue(entry->key);
            if (entries++ != 0) {
                MDB_val previous = AsValue(before);
                const int ordered = order(&previous, &key);
                if (ordered > 0 || (ordered == 0 && numberBefore >= entry->number))
                    Fault(index + " is out of order at " + Name(entry->number));
            }
            before.assign(entry->key.begin(), entry->key.end());
            numberBefore = entry->number;
            CheckEntry(attribute, index, *entry, order);
        }
        const std::size_t objects = snapshot.ObjectCount(classAt);
        if (entries != objects)
            Fault(index + " has " + std::to_string(entries) + " entries for " + std::to_string(objects) + " objects");
    }

    void CheckEntry(std::size_t attribute, const std::string& index, const IndexEntry& entry, MDB_cmp_func* order) {
        Bytes record;
        try {
            record = snapshot.Find(classAt, entry.number);
        } catch (const StoreError&) {
            return;  // told among the objects
        }
        if (record.empty()) {
            Fault(index + " names " + Name(entry.number) + ", which is not there");
            return;
        }
        const Attribute& of = layout.Of().attributes[attribute];
        const Bytes own = IndexKey(of, snapshot.Of().Form(), layout.At(record, attribute), scratch);
        MDB_val ownKey = AsValue(own);
        MDB_val key = AsValue(entry.key);
        if (order(&ownKey, &key) != 0) Fault(index + " has another key for " + Name(entry.number));
    }

    CursorHandle OpenRaw(MDB_dbi database) const {
        MDB_cursor* open = nullptr;
        Check(mdb_cursor_open(snapshot.Handle(), database, &open), "cursor");
        return CursorHandle(open);
    }
};

std::size_t FillIndex(Store& store, std::size_t classAt, std::size_t attribute, MDB_txn* transaction,
                      Advance& advance) {
    constexpr std::size_t atOnce = 1U << 18U;
    const RecordLayout& layout = store.Layout(classAt);
    MDB_cursor* open = nullptr;
    Check(mdb_cursor_open(transaction, store.Opened(classAt).objects, &open), "objects");
    const CursorHandle cursor(open);
    IndexEntries entries(store, classAt, attribute);
    std::size_t made = 0;
    MDB_val key{};
    MDB_val value{};
    while (Found(mdb_cursor_get(cursor.get(), &key, &value, MDB_NEXT), "objects")) {
        const ObjectNumber number = NumberIn(key);
        if (!layout.IsWhole(AsBytes(value)))
            throw StoreError("the record of " + layout.Of().name + " " + std::to_string(number) + " is damaged");
        entries.Add(AsBytes(value), number);
        ++made;
        advance.Step();
        if (entries.Count() == atOnce) entries.Write(transaction);
    }
    entries.Write(transaction);
    return made;
}

std::size_t MakeIndexes(Store& store, MDB_txn* transaction, Advance& advance) {
    std::size_t made = 0;
    for (std::size_t classAt = 0; classAt < store.GetSchema().Classes().size(); ++classAt) {
        const Class& each = store.GetSchema().Classes()[classAt];
        for (std::size_t attribute = 0; attribute < each.attributes.size(); ++attribute) {
            if (!each.attributes[attribute].index) continue;
            constexpr int emptyOnly = 0;
            Check(mdb_drop(transaction, store.Opened(classAt).indexes[attribute], emptyOnly), "index");
            made += FillIndex(store, classAt, attribute, transaction, advance);
        }
    }
    return made;
}

}  // namespace

CheckResult CheckStore(const Store& store, const std::function<void(const std::string&)>& report,
                       const ProgressReport& progress) {
    const Snapshot snapshot(store);
    Advance advance(progress, ObjectsOfAll(snapshot) + EntriesOfAll(snapshot));
    CheckResult result;
    for (std::size_t i = 0; i < store.GetSchema().Classes().size(); ++i)
        ClassCheck(snapshot, i, report, advance, result).Run();
    return result;
}

std::size_t Reindex(Store& store, const ProgressReport& progress) {
    const std::size_t entries = EntriesOfAll(Snapshot(store));
    for (;;) {
        Advance advance(progress, entries);
        try {
            WriteTransaction transaction(store.Env());
            const std::size_t made = MakeIndexes(store, transaction, advance);
            store.TakeOverTables(transaction);
            transaction.Commit();
            return made;
        } catch (const FullError&) {
            store.Grow();
        }
    }
}

}  // namespace engine
