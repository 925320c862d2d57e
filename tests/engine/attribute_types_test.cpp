// Attributes of every type: what comes into a store comes out of it, and each index finds what a look at all values
// finds.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "batch.h"
#include "made_values.h"
#include "maintenance.h"
#include "run.h"
#include "scratch_store.h"
#include "twin.h"
#include "type_cases.h"

namespace {

using engine::Access;
using engine::Bytes;
using engine::ObjectNumber;
using engine::Snapshot;
using engine::Store;
using engine::Types;
using engine::Value;

class AttributesOf : public ::testing::TestWithParam<TypeCase> {
protected:
    static constexpr unsigned kObjects = 400;

    const char type = GetParam().type;
    const unsigned char form = GetParam().form;
    const ScratchFolder folder;
    MadeValues make{type};
    std::vector<Value> ones;    ///< of each object
    std::vector<Value> threes;  ///< arrays
    std::optional<Store> store;

    AttributesOf() {
        const std::string name = Types().NameGet(type, nullptr);
        Store::Create(folder.File("store"),
                      engine::Schema::Parse("class Thing { one " + name + IndexOf(type, 1) + "\n three " + name +
                                            "[3]" + IndexOf(type, 3) + "\n plain " + name + " }"),
                      form);
        store.emplace(folder.File("store"), Access::write);
        engine::Batch batch(*store, 0);
        for (unsigned i = 0; i < kObjects; ++i) {
            ones.push_back(make.Next());
            threes.push_back(make.Next(3));
            void* const values[] = {ones.back().Get(), threes.back().Get(), ones.back().Get()};
            batch.Add(values);
            if (i % 150 == 0) batch.Commit();
        }
        batch.Commit();
    }

    const Value& ValueOf(ObjectNumber number) const { return ones[number - 1]; }

    std::vector<unsigned char> StoredElement(const Value& array, unsigned at) const {
        void* const element = Types().GetArrayElement(type, array.Get(), at, 3);
        std::vector<unsigned char> stored(Types().DiskLenGet(type, element, form, 1, KyFormMemory));
        stored.resize(Types().Store(type, stored.data(), element, form, 1));
        return stored;
    }
};

TEST_P(AttributesOf, ComeOutAsTheyWentIn) {
    EXPECT_EQ(engine::CheckStore(*store, [](const std::string& fault) { ADD_FAILURE() << fault; }).faults, 0U);
    const Snapshot snapshot(*store);
    const engine::RecordLayout& layout = store->Layout(0);
    ASSERT_EQ(snapshot.ObjectCount(0), kObjects);
    for (ObjectNumber number = 1; number <= kObjects; ++number) {
        const Bytes record = snapshot.Find(0, number);
        const auto stored = [&](std::size_t attribute) {
            const Bytes bytes = layout.At(record, attribute);
            return std::vector<unsigned char>(bytes.begin(), bytes.end());
        };
        ASSERT_EQ(stored(0), ones[number - 1].Store(form));
        ASSERT_EQ(stored(2), stored(0));
        ASSERT_EQ(stored(1), threes[number - 1].Store(form));
        Value loaded(type, 3);
        loaded.Load(layout.At(record, 1), form);
        ASSERT_EQ(loaded.Store(form), stored(1));
        std::vector<unsigned char> scratch;
        for (unsigned i = 0; i < 3; ++i) {
            const Bytes element = engine::ElementAt(layout.Of().attributes[1], form, layout.At(record, 1), i, scratch);
            ASSERT_EQ(std::vector<unsigned char>(element.begin(), element.end()), StoredElement(threes[number - 1], i));
        }
    }
}

TEST_P(AttributesOf, AreFoundByEveryComparison) {
    const Snapshot snapshot(*store);
    int answersWithObjects = 0;
    int byIndex = 0;
    for (const char* relation : {"=", "<>", "<", "<=", ">", ">="}) {
        for (const char* exact : {"", " exact"}) {
            engine::PreparedQuery query(
                *store,
                engine::ParseQuery(store->GetSchema(), std::string("Thing where one ") + relation + " ?" + exact), {});
            for (int i = 0; i < 30; ++i) {
                const Value constant = make.Next(1, true);
                query.Bind(0, constant.Get());
                const engine::AccessPath path = query.Plan(snapshot);
                if (path.kind == engine::AccessPath::Kind::oneIndex) ++byIndex;
                std::vector<ObjectNumber> found;
                query.Run(snapshot, path, [&found](const engine::Object& object) {
                    found.push_back(object.number);
                    return true;
                });
                std::ranges::sort(found);
                std::vector<ObjectNumber> expected;
                for (ObjectNumber number = 1; number <= kObjects; ++number)
                    if (Fulfils(type, form, ValueOf(number).Store(form), constant.Store(form),
                                query.Of().where.comparison.op))
                        expected.push_back(number);
                KyString text;
                ASSERT_EQ(found, expected) << relation << exact << " "
                                           << Types().PrintToKyString(type, text, constant.Get(), nullptr, 1).StrGet();
                if (!expected.empty()) ++answersWithObjects;
            }
        }
    }
    EXPECT_GT(answersWithObjects, 100);
    // Class identifiers have no share and no limits; blobs no index; of times see WhyNotIndexed.
    const bool serves = store->GetSchema().Classes()[0].attributes[0].index && type != KyCLID_T;
    if (serves) {
        EXPECT_GT(byIndex, 20);
    } else {
        EXPECT_EQ(byIndex, 0);
    }
}

TEST_P(AttributesOf, ComeInTheirOrderByIndexAsSorted) {
    if (engine::WhyNotOrdered(type) != nullptr) return;
    const Snapshot snapshot(*store);
    for (const char* order : {"one", "one desc", "one, plain", "one desc, plain desc", "three", "three desc"}) {
        for (const char* limit : {"", " limit 7", " limit 399"}) {
            const std::string text = std::string("Thing order by ") + order + limit;
            const engine::PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), {});
            const engine::AccessPath path = query.Plan(snapshot);
            const auto numbers = [&](const engine::AccessPath& by) {
                std::vector<ObjectNumber> given;
                query.Run(snapshot, by, [&given](const engine::Object& object) {
                    given.push_back(object.number);
                    return true;
                });
                return given;
            };
            ASSERT_EQ(numbers(path), numbers(engine::AccessPath())) << text;
            const std::size_t first = query.Of().order[0].attribute;
            if (query.Of().order.size() == 1) {
                EXPECT_EQ(path.inOrder, store->GetSchema().Classes()[0].attributes[first].index.has_value()) << text;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Types, AttributesOf, ::testing::ValuesIn(AllTypeCases()), NameOf);

}  // namespace
