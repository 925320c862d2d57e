// Queries with an order: walks of an index in it, and what is sorted.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "batch.h"
#include "run.h"
#include "scratch_store.h"
#include "word_store.h"

namespace {

using engine::AccessPath;
using engine::Object;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;

class OrderedRuns : public WordStore {};

TEST_P(OrderedRuns, SortsAndLimits) {
    const PreparedQuery query(
        *store, engine::ParseQuery(store->GetSchema(), "Word where number >= 90 order by number desc, text limit 25"),
        ScanByType);
    const Snapshot snapshot(*store);
    std::vector<Object> objects;
    query.Run(snapshot, query.Plan(snapshot), [&objects](const Object& object) {
        objects.push_back(object);
        return true;
    });
    ASSERT_EQ(objects.size(), 25U);
    const engine::RecordLayout& layout = store->Layout(0);
    const auto compare = [&](std::size_t attribute, const Object& a, const Object& b) {
        int err = 0;
        const engine::Bytes valueA = layout.At(a.record, attribute);
        const engine::Bytes valueB = layout.At(b.record, attribute);
        return engine::Types().Cmp(layout.Of().attributes[attribute].type, static_cast<unsigned>(valueA.size()),
                                   const_cast<unsigned char*>(valueA.data()), static_cast<unsigned>(valueB.size()),
                                   const_cast<unsigned char*>(valueB.data()), KyCmpExact, 1, GetParam(), err);
    };
    for (std::size_t i = 1; i < objects.size(); ++i) {
        const int byNumber = compare(3, objects[i - 1], objects[i]);
        EXPECT_GE(byNumber, 0) << i;
        if (byNumber == 0) {
            EXPECT_LE(compare(0, objects[i - 1], objects[i]), 0) << i;
        }
    }
}

struct Ordered {
    std::vector<engine::ObjectNumber> numbers;
    engine::RunResult result;
    bool inOrder = false;
    std::size_t mostVisits = 0;  ///< of the plan
};

/// What a query gives in its order, by its plan or by sorting all objects.
Ordered RunOrdered(const Store& store, const std::string& text, bool byPlan) {
    const PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), text), ScanByType);
    const Snapshot snapshot(store);
    const AccessPath path = byPlan ? query.Plan(snapshot) : AccessPath();
    Ordered ordered;
    ordered.inOrder = path.inOrder;
    ordered.mostVisits = path.mostVisits;
    ordered.result = query.Run(snapshot, path, [&ordered](const Object& object) {
        ordered.numbers.push_back(object.number);
        return true;
    });
    return ordered;
}

TEST_P(OrderedRuns, AnIndexInItsOrderGivesWhatSortingGives) {
    int walks = 0;
    for (const char* condition :
         {"", " where number > 90", " where text = \"a*\"", " where text < \"b\" and number < 50",
          " where text >= \"a\" and text <= \"ab\"", " where plain = \"*B\" or number = 3",
          " where dictionary >= \"aa\" exact", " where plain >= \"b\"", " where number = 5"}) {
        for (const std::string first : {"number", "text", "dictionary", "folded", "plain"}) {
            for (const char* more : {"", " desc", ", text", " desc, number", ", dictionary desc"}) {
                for (const char* limit : {"", " limit 1", " limit 30", " limit 1990"}) {
                    const std::string text = "Word" + std::string(condition) + " order by " + first + more + limit;
                    const Ordered planned = RunOrdered(*store, text, true);
                    ASSERT_EQ(planned.numbers, RunOrdered(*store, text, false).numbers) << text;
                    if (planned.inOrder) ++walks;
                    if (first == "folded" || first == "plain") {
                        EXPECT_FALSE(planned.inOrder) << text;
                    } else if (*condition == 0 && *more != ',') {
                        EXPECT_TRUE(planned.inOrder) << text;
                    }
                }
            }
        }
    }
    EXPECT_GT(walks, 150);
}

TEST_P(OrderedRuns, ALimitEndsAWalkInOrder) {
    constexpr std::size_t ofNumber = 21;
    const struct {
        const char* query;
        std::size_t visited;
        bool endedEarly;
    } cases[] = {
        {"Word order by number limit 10", 10, true},
        {"Word order by number desc limit 10", 10, true},
        {"Word order by dictionary desc limit 10", 10, true},
        {"Word where number >= 40 order by number limit 10", 10, true},
        {"Word where number <= 40 order by number desc limit 10", 10, true},
        {"Word where number = 5 order by number limit 30", ofNumber, false},
        {"Word where number >= 5 and number < 7 order by number desc", 3 * ofNumber, false},
        // All of the first key are sorted by the second.
        {"Word order by number, text limit 10", ofNumber, true},
        {"Word where number <= 40 order by number desc, text limit 10", ofNumber, true},
    };
    for (const auto& c : cases) {
        const Ordered ordered = RunOrdered(*store, c.query, true);
        EXPECT_TRUE(ordered.inOrder) << c.query;
        EXPECT_EQ(ordered.result.visited, c.visited) << c.query;
        EXPECT_EQ(ordered.result.endedEarly, c.endedEarly) << c.query;
    }
}

TEST_P(OrderedRuns, ANarrowRangeIsSortedRatherThanAnIndexWalked) {
    const Ordered narrow = RunOrdered(*store, "Word where number = 5 order by text limit 10", true);
    EXPECT_FALSE(narrow.inOrder);
    EXPECT_EQ(narrow.result.visited, 21U);
    // Of many objects the first come soon.
    const Ordered wide = RunOrdered(*store, "Word where number > 20 order by text desc limit 5", true);
    EXPECT_TRUE(wide.inOrder);
    EXPECT_LT(wide.result.visited, 40U);
}

/// Where a walk's remaining condition keeps much less than it is taken to.
TEST_P(OrderedRuns, AWalkThatLeadsFarIsGivenUp) {
    constexpr std::size_t objects = 2000;
    const std::string none = "plain = \"bBaAbBaAb\"";
    const std::string few = "plain = \"a\"";
    const struct {
        std::string query;
        std::size_t scans;
    } cases[] = {
        {"Word where " + none + " order by number limit 10", 1},
        {"Word where " + none + " order by text desc limit 10", 1},
        {"Word where " + none + " order by number desc, text limit 10", 1},
        {"Word where " + none + " and number >= 20 order by number limit 10", 1},
        {"Word where " + none + " and number < 30 order by text limit 3", 2},
        // Some are taken before.
        {"Word where " + few + " order by number limit 30", 1},
        {"Word where " + few + " order by number desc, dictionary desc limit 30", 1},
        {"Word where " + few + " order by dictionary limit 30", 1},
    };
    for (const auto& c : cases) {
        const Ordered walked = RunOrdered(*store, c.query, true);
        const Ordered sorted = RunOrdered(*store, c.query, false);
        ASSERT_TRUE(walked.inOrder) << c.query;
        EXPECT_LT(walked.mostVisits, objects / 2) << c.query;
        EXPECT_TRUE(walked.result.wasGivenUp) << c.query;
        EXPECT_FALSE(walked.result.endedEarly) << c.query;
        EXPECT_EQ(walked.numbers, sorted.numbers) << c.query;
        EXPECT_EQ(walked.result.found, sorted.result.found) << c.query;
        ASSERT_EQ(walked.result.entries.size(), c.scans) << c.query;
        EXPECT_EQ(walked.result.entries.front(), walked.mostVisits) << c.query;
        const std::size_t readInstead = c.scans == 1 ? objects : walked.result.entries.back();
        EXPECT_EQ(walked.result.visited, walked.mostVisits + readInstead) << c.query;
    }
    // Where the limit is in sight, nothing is given up.
    const Ordered near = RunOrdered(*store, "Word where " + few + " order by number limit 3", true);
    EXPECT_TRUE(near.inOrder);
    EXPECT_FALSE(near.result.wasGivenUp);
    EXPECT_TRUE(near.result.endedEarly);
}

TEST_P(OrderedRuns, AFalseAnswerEndsARunThatWasGivenUp) {
    const std::string text = "Word where plain = \"a\" order by number limit 30";
    const std::vector<engine::ObjectNumber> expected = RunOrdered(*store, text, false).numbers;
    const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
    const Snapshot snapshot(*store);
    std::vector<engine::ObjectNumber> taken;
    const engine::RunResult result = query.Run(snapshot, query.Plan(snapshot), [&taken](const Object& object) {
        taken.push_back(object.number);
        return taken.size() < 25;
    });
    EXPECT_TRUE(result.wasGivenUp);
    ASSERT_EQ(taken.size(), 25U);
    EXPECT_TRUE(std::ranges::equal(taken, std::span(expected).first(25)));
}

/// 1000 objects of one key, the later ones with the smaller numbers beside it.
class ManyOfOneKey : public ::testing::Test {
protected:
    ManyOfOneKey() {
        Store::Create(folder.File("things"), engine::Schema::Parse("class Thing { same int index\n other int index }"),
                      KyFormNative);
        store.emplace(folder.File("things"), engine::Access::write);
        for (int i = 0; i < 1000; ++i) Add(1, 1000 - i);
        batch->Commit();
    }

    void Add(int same, int other) {
        if (!batch) batch.emplace(*store, 0);
        void* const values[] = {&same, &other};
        batch->Add(values);
    }

    void ExpectSorted(const std::string& text) const {
        const Ordered sorted = RunOrdered(*store, text, true);
        EXPECT_FALSE(sorted.inOrder) << text;
        EXPECT_EQ(sorted.numbers, (std::vector<engine::ObjectNumber>{1000, 999, 998})) << text;
    }

    const ScratchFolder folder;
    std::optional<Store> store;
    std::optional<engine::Batch> batch;
};

TEST_F(ManyOfOneKey, AreNotWalkedToBeSorted) {
    const Ordered walked = RunOrdered(*store, "Thing order by same limit 3", true);
    EXPECT_TRUE(walked.inOrder);
    EXPECT_EQ(walked.result.visited, 3U);
    ExpectSorted("Thing order by same, other limit 3");
    ExpectSorted("Thing order by same desc, other limit 3");
    ExpectSorted("Thing where same >= 0 order by same, other limit 3");
    ExpectSorted("Thing where same <= 1 order by same desc, other limit 3");
    ExpectSorted("Thing where same <= 5 order by same desc, other limit 3");
}

TEST_F(ManyOfOneKey, AreNotWalkedInFrontOfALimitEither) {
    Add(9, 0);
    batch->Commit();
    ExpectSorted("Thing where same <= 5 order by same desc, other limit 3");
    EXPECT_TRUE(RunOrdered(*store, "Thing where same <= 9 order by same desc, other limit 1", true).inOrder);
}

/// The end of what a pattern leaves is found from its beginning only.
TEST_P(OrderedRuns, PatternsAreNotWalkedBackwards) {
    EXPECT_FALSE(RunOrdered(*store, "Word where text = \"a*\" order by text desc", true).inOrder);
    EXPECT_TRUE(RunOrdered(*store, "Word where text = \"a*\" order by text", true).inOrder);
    // From another limit the way to that end may be long.
    const Ordered below =
        RunOrdered(*store, "Word where text = \"a*\" and text < \"z\" order by text desc limit 5", true);
    EXPECT_FALSE(below.inOrder);
    EXPECT_EQ(below.result.visited, Numbers("Word where text = \"a*\"", false).size());
}

INSTANTIATE_TEST_SUITE_P(Forms, OrderedRuns, ::testing::Values(KyFormNative, KyFormReversed));

}  // namespace
