#include "run.h"

#include <algorithm>
#include <functional>

#include "error.h"
#include "first_orders.h"
#include "index_order.h"
#include "pattern.h"
#include "types.h"
#include "value.h"

namespace engine {

namespace {

/// The candidates of an access path, one after another.
class Candidates {
public:
    /// `someEntries` gets the number of entries read of each scanned index.
    Candidates(const Snapshot& aSnapshot, const Query& aQuery, const std::vector<StoredConstant>& someConstants,
               std::vector<std::size_t>& someEntries)
        : snapshot(aSnapshot), query(aQuery), constants(someConstants), entries(someEntries) {}

    /// `visit(object)` says whether to go on.
    template <class Visit>
    void ForEach(const AccessPath& path, Visit visit) const {
        switch (path.kind) {
            case AccessPath::Kind::allObjects: {
                ObjectCursor cursor(snapshot, query.classAt);
                for (auto object = cursor.Next(); object && visit(*object); object = cursor.Next()) {
                }
                return;
            }
            case AccessPath::Kind::oneIndex:
                Scan(path.scan, [&](const IndexEntry& entry) { return visit(Find(entry.number)); });
                return;
            default: {
                std::vector<ObjectNumber> numbers;
                Collect(path, numbers);
                std::ranges::sort(numbers);
                numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
                for (const ObjectNumber number : numbers)
                    if (!visit(Find(number))) return;
            }
        }
    }

    /// The same of one index: `visit(key, object)`.
    template <class Visit>
    void ForEachByKey(const IndexScan& scan, Visit visit) const {
        Scan(scan, [&](const IndexEntry& entry) { return visit(entry.key, Find(entry.number)); });
    }

private:
    const Snapshot& snapshot;
    const Query& query;
    const std::vector<StoredConstant>& constants;
    std::vector<std::size_t>& entries;

    Object Find(ObjectNumber number) const {
        const Bytes record = snapshot.Find(query.classAt, number);
        if (record.empty())
            throw StoreError("an index names the object " + std::to_string(number) + ", which is not there");
        return {.number = number, .record = record};
    }

    void Collect(const AccessPath& path, std::vector<ObjectNumber>& numbers) const {
        if (path.kind == AccessPath::Kind::oneIndex) {
            Scan(path.scan, [&numbers](const IndexEntry& entry) {
                numbers.push_back(entry.number);
                return true;
            });
        }
        for (const AccessPath& part : path.parts) Collect(part, numbers);
    }

    /// `visit(entry)` for each entry of the scan's range.
    template <class Visit>
    void Scan(const IndexScan& scan, Visit visit) const {
        IndexCursor cursor(snapshot, query.classAt, scan.attribute);
        std::size_t& count = entries.emplace_back(0);
        const auto counted = [&](const IndexEntry& entry) {
            ++count;
            return visit(entry);
        };
        scan.backward ? ScanBackward(cursor, scan, counted) : ScanForward(cursor, scan, counted);
    }

    template <class Visit>
    void ScanForward(IndexCursor& cursor, const IndexScan& scan, Visit visit) const {
        Bytes known;  // a key that is known to be inside
        for (auto entry = scan.range.HasLower() ? cursor.FirstFrom(scan.range.Lower()) : cursor.First(); entry;
             entry = cursor.Next()) {
            if (entry->key.data() != known.data() && IsBehind(scan, entry->key)) return;
            known = entry->key;
            if (!visit(*entry)) return;
        }
    }

    template <class Visit>
    void ScanBackward(IndexCursor& cursor, const IndexScan& scan, Visit visit) const {
        const Attribute& attribute = AttributeOf(scan);
        const auto isBefore = [&](Bytes key) {
            return scan.range.HasLower() &&
                   CompareAsIndexed(attribute, snapshot.Of().Form(), key, scan.range.Lower()) < 0;
        };
        auto behind = scan.range.HasUpper() ? cursor.FirstFrom(scan.range.Upper()) : std::nullopt;
        while (behind && !IsBehind(scan, behind->key)) behind = cursor.NextKey();
        for (auto key = behind ? cursor.PreviousKey() : cursor.LastKey(); key && !isBefore(key->key);
             key = cursor.PreviousKey()) {
            for (auto entry = key; entry; entry = cursor.NextOfKey())
                if (!visit(*entry)) return;
        }
    }

    const Attribute& AttributeOf(const IndexScan& scan) const {
        return snapshot.Of().GetSchema().Classes()[query.classAt].attributes[scan.attribute];
    }

    bool IsBehind(const IndexScan& scan, Bytes key) const {
        const Attribute& attribute = AttributeOf(scan);
        const unsigned char form = snapshot.Of().Form();
        if (scan.range.HasUpper() && CompareAsIndexed(attribute, form, key, scan.range.Upper()) > 0) return true;
        // Texts with that key may lie on the other side of what it says beyond what counts.
        if (scan.last == nullptr || EndsBeyondOrders(attribute, key)) return false;
        const StoredConstant& last = constants[scan.last->constant];
        int err = 0;
        return Types().Cmp(attribute.type, static_cast<unsigned>(key.size()), const_cast<unsigned char*>(key.data()),
                           static_cast<unsigned>(last.size()), const_cast<unsigned char*>(last.data()), scan.last->op,
                           1, form, err) > 0;
    }
};

/// Which of two objects comes first in a query's order; the number decides among equal ones.
class ObjectOrder {
public:
    ObjectOrder(const RecordLayout& aLayout, const std::vector<SortKey>& someKeys) : layout(aLayout), keys(someKeys) {}

    bool operator()(const Object& a, const Object& b) const {
        for (const SortKey& key : keys) {
            const Attribute& attribute = layout.Of().attributes[key.attribute];
            const int order =
                Compare(attribute, layout.At(a.record, key.attribute), layout.At(b.record, key.attribute));
            if (order != 0) return key.descending ? order > 0 : order < 0;
        }
        return a.number < b.number;
    }

private:
    const RecordLayout& layout;
    const std::vector<SortKey>& keys;

    int Compare(const Attribute& attribute, Bytes a, Bytes b) const {
        int err = 0;
        const int order =
            Types().Cmp(attribute.type, static_cast<unsigned>(a.size()), const_cast<unsigned char*>(a.data()),
                        static_cast<unsigned>(b.size()), const_cast<unsigned char*>(b.data()), KyCmpExact,
                        attribute.count, layout.Form(), err);
        const bool isDictionary = IsString(attribute.type) && attribute.type != KySTRING_T;
        if (isDictionary && err == KyErrNotSupported)
            return CompareDictionaryStrings(attribute.type, layout.Form(), a, b, attribute.count);
        return order;
    }
};

/// Where a run's objects go.
class Output {
public:
    Output(const std::function<bool(const Object&)>& aTake, std::size_t aLimit) : take(aTake), left(aLimit) {}

    bool WantsMore() const { return left != 0; }
    /// Whether more is wanted.
    bool Take(const Object& object) {
        ++taken;
        left = take(object) ? left - 1 : 0;
        return WantsMore();
    }
    /// Takes the first of them in the order, but for those that it begins with and that were taken, and forgets all.
    bool TakeSorted(std::vector<Object>& objects, const ObjectOrder& order, std::size_t alreadyTaken = 0) {
        const std::size_t begin = std::min(alreadyTaken, objects.size());
        const std::size_t end = begin + std::min(left, objects.size() - begin);
        const auto at = [&objects](std::size_t i) { return objects.begin() + static_cast<std::ptrdiff_t>(i); };
        std::partial_sort(objects.begin(), at(end), objects.end(), std::cref(order));
        for (std::size_t i = begin; i < end && Take(objects[i]); ++i) {
        }
        objects.clear();
        return WantsMore();
    }
    std::size_t Taken() const { return taken; }

private:
    const std::function<bool(const Object&)>& take;
    std::size_t left;
    std::size_t taken = 0;
};

/// One run of a query.
class Execution {
public:
    Execution(const Snapshot& snapshot, const RecordLayout& aLayout, const Query& aQuery,
              const std::vector<StoredConstant>& constants, const std::function<bool(const Object&)>& take)
        : layout(aLayout),
          query(aQuery),
          test(aLayout, aQuery.where, constants),
          candidates(snapshot, aQuery, constants, result.entries),
          order(aLayout, aQuery.order),
          output(take, aQuery.limit.value_or(SIZE_MAX)) {}

    RunResult Run(const AccessPath& path) {
        if (!path.inOrder) {
            Read(path);
        } else if (!Walk(path)) {
            result.wasGivenUp = true;
            result.found = 0;
            unsorted.clear();
            Read(path.instead.front());
        }
        return std::move(result);
    }

private:
    const RecordLayout& layout;
    const Query& query;
    const ConditionTest test;
    RunResult result;
    const Candidates candidates;
    const ObjectOrder order;
    Output output;
    std::vector<Object> unsorted;

    bool IsFound(const Object& object) {
        ++result.visited;
        const bool holds = test.Holds(object.record);
        if (holds) ++result.found;
        return holds;
    }

    /// Objects in any order, which are sorted.
    void Read(const AccessPath& path) {
        candidates.ForEach(path, [&](const Object& object) {
            if (!IsFound(object)) return true;
            if (query.order.empty()) return output.Take(object);
            unsorted.push_back(object);
            return true;
        });
        Finish();
    }

    void Finish() {
        result.endedEarly = !output.WantsMore();
        if (output.WantsMore()) output.TakeSorted(unsorted, order, result.wasGivenUp ? output.Taken() : 0);
    }

    /// Objects in the order of an index. False when that was given up.
    bool Walk(const AccessPath& path) {
        const Attribute& attribute = layout.Of().attributes[path.scan.attribute];
        bool isGivenUp = false;
        bool isSorted = false;  // those of one key are
        Bytes lastKey;
        candidates.ForEachByKey(path.scan, [&](Bytes key, const Object& object) {
            if (key.data() != lastKey.data()) {
                if (!unsorted.empty() && !output.TakeSorted(unsorted, order)) return false;
                isSorted = query.order.size() == 1 && !IsCut(attribute, layout.Form(), key);
                lastKey = key;
            }
            if (IsFound(object)) {
                if (!isSorted) {
                    unsorted.push_back(object);
                } else if (!output.Take(object)) {
                    return false;
                }
            }
            isGivenUp = result.visited >= path.mostVisits;
            return !isGivenUp;
        });
        if (!isGivenUp) Finish();
        return !isGivenUp;
    }
};

}  // namespace

PreparedQuery::PreparedQuery(const Store& aStore, Query aQuery, const ScanValue& scan)
    : store(&aStore),
      query(std::move(aQuery)),
      constants(query.constants.size()),
      constantAttributes(constants.size()) {
    NoteAttributes(query.where);
    const Class& of = store->GetSchema().Classes()[query.classAt];
    for (std::size_t i = 0; i < constants.size(); ++i) {
        const Attribute& attribute = of.attributes[constantAttributes[i]];
        const Value value(attribute.type);
        if (query.constants[i]) {
            const std::string fault = scan(attribute, *query.constants[i], value.Get());
            if (!fault.empty()) throw TextError(fault, query.constantPositions[i]);
        }
        try {
            Bind(i, value.Get());
        } catch (const StoreError& error) {
            throw TextError(error.what(), query.constantPositions[i]);
        }
    }
}

void PreparedQuery::NoteAttributes(const Condition& condition) {
    if (condition.kind == Condition::Kind::comparison)
        constantAttributes[condition.comparison.constant] = condition.comparison.attribute;
    for (const Condition& part : condition.parts) NoteAttributes(part);
}

void PreparedQuery::Bind(std::size_t constant, void* value) {
    const char type = store->GetSchema().Classes()[query.classAt].attributes[constantAttributes[constant]].type;
    StoredConstant& stored = constants[constant];
    stored.resize(Types().DiskLenGet(type, value, store->Form(), 1, KyFormMemory));
    stored.resize(Types().Store(type, stored.data(), value, store->Form(), 1));
    int err = 0;
    const auto size = static_cast<unsigned>(stored.size());
    Types().Cmp(type, size, stored.data(), size, stored.data(), KyCmpExact, 1, store->Form(), err);
    if (err == KyErrNotSupported)
        throw StoreError("a text of more than 253 key bytes cannot be compared with dictionary strings");
}

RunResult PreparedQuery::Run(const Snapshot& snapshot, const AccessPath& path,
                             const std::function<bool(const Object&)>& take) const {
    if (query.limit == 0U) {
        RunResult nothing;
        nothing.entries.resize(Scans(path).size());
        nothing.endedEarly = true;
        return nothing;
    }
    return Execution(snapshot, store->Layout(query.classAt), query, constants, take).Run(path);
}

}  // namespace engine
