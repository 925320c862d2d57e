#include "run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "batch.h"
#include "kystring.h"
#include "scratch_store.h"
#include "types.h"

namespace {

using engine::Access;
using engine::AccessPath;
using engine::Object;
using engine::PreparedQuery;
using engine::Schema;
using engine::Snapshot;
using engine::Store;

std::string ScanByType(const engine::Attribute& attribute, std::string_view text, void* value) {
    KyString copy(std::string(text).c_str());
    engine::Types().ScanFromKyString(attribute.type, value, copy, nullptr, 1);
    return text == "nonsense" ? "no sense in this" : "";
}

/// Words over a small alphabet, so that prefixes and duplicates abound, in an indexed and a plain attribute.
class RunTest : public ::testing::TestWithParam<unsigned char> {
protected:
    RunTest() {
        Store::Create(folder.File("words"),
                      Schema::Parse("class Word { text KyString index\n folded KyString index nocase\n plain KyString\n"
                                    "number int index\n dictionary KyIString index }"),
                      GetParam());
        store.emplace(folder.File("words"), Access::write);
        engine::Batch batch(*store, 0);
        unsigned state = 1;
        for (int i = 0; i < 2000; ++i) {
            std::string word;
            state = state * 1103515245 + 12345;
            const unsigned length = state >> 16U & 7U;
            for (unsigned k = 0; k < length; ++k) {
                state = state * 1103515245 + 12345;
                word += "abAB*"[(state >> 16U) % 5];
            }
            if (i % 50 == 0) word = std::string(300, 'a').append(word);
            KyString text(word.c_str());
            KyString folded = text;
            KyString plain = text;
            KyString dictionaryText(word.c_str());
            int number = i % 97;
            void* const dictionary = engine::Types().Create(KyISTRING_T, 1);
            engine::Types().ScanFromKyString(KyISTRING_T, dictionary, dictionaryText, nullptr, 1);
            void* const values[] = {&text, &folded, &plain, &number, dictionary};
            batch.Add(values);
            engine::Types().Delete(KyISTRING_T, dictionary, 1);
        }
        batch.Commit();
    }

    /// The objects that a query finds, by the plan or by looking at all of them.
    std::vector<engine::ObjectNumber> Numbers(const std::string& text, bool byPlan, AccessPath::Kind* kind = nullptr) {
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        const Snapshot snapshot(*store);
        const AccessPath path = byPlan ? query.Plan(snapshot) : AccessPath();
        if (kind != nullptr) *kind = path.kind;
        std::vector<engine::ObjectNumber> numbers;
        query.Run(snapshot, path, [&numbers](const Object& object) {
            numbers.push_back(object.number);
            return true;
        });
        std::ranges::sort(numbers);
        return numbers;
    }

    const ScratchFolder folder;
    std::optional<Store> store;
};

TEST_P(RunTest, PlansFindWhatAScanOfAllFinds) {
    const char* const patterns[] = {"",
                                    "a",
                                    "ab",
                                    "B",
                                    "ab*",
                                    "a?b",
                                    "*",
                                    "*b",
                                    "aA*b",
                                    "?",
                                    "a\\*b",
                                    "\\**",
                                    "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa*",
                                    "zz",
                                    "a*A*"};
    const char* const relations[] = {"=", "<>", "<", "<=", ">", ">="};
    std::set<AccessPath::Kind> kinds;
    for (const char* relation : relations) {
        for (const char* pattern : patterns) {
            for (const char* attribute : {"text", "folded", "dictionary"}) {
                for (const char* modifier : {"", " nocase", " exact", " exact nocase"}) {
                    if (attribute[0] == 'd' && std::string(modifier).find("nocase") != std::string::npos) continue;
                    const std::string query = std::string("Word where ")
                                                  .append(attribute)
                                                  .append(relation)
                                                  .append("\"")
                                                  .append(pattern)
                                                  .append("\"")
                                                  .append(modifier);
                    AccessPath::Kind kind{};
                    EXPECT_EQ(Numbers(query, true, &kind), Numbers(query, false)) << query;
                    kinds.insert(kind);
                }
            }
        }
    }
    EXPECT_EQ(kinds.size(), 2U);
}

TEST_P(RunTest, LongConstantsFindTheirNeighbours) {
    for (const char* tail : {"", "a", "b", "bA", "*"}) {
        for (const char* relation : {"=", "<", "<=", ">", ">="}) {
            const std::string query = std::string("Word where text ")
                                          .append(relation)
                                          .append(" \"")
                                          .append(300, 'a')
                                          .append(tail)
                                          .append("\"");
            EXPECT_EQ(Numbers(query, true), Numbers(query, false)) << query;
        }
    }
}

TEST_P(RunTest, ConditionsOfSeveralAttributesAgree) {
    for (const char* condition :
         {"number = 5 and text >= \"a\"", "number > 10 and number <= 12", "number >= 90 and number < 20",
          "number = 1 or number = 2 or text = \"ab*\"", "(number = 1 or text = \"a\") and plain >= \"a\"",
          "plain = \"a*\" or number = 7", "number > 3 and number > 90 and text = \"*\""}) {
        const std::string query = std::string("Word where ") + condition;
        EXPECT_EQ(Numbers(query, true), Numbers(query, false)) << query;
    }
}

TEST_P(RunTest, VisitsTheNarrowedRangeOnly) {
    const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), "Word where number = 5"), ScanByType);
    const Snapshot snapshot(*store);
    const AccessPath path = query.Plan(snapshot);
    ASSERT_EQ(path.kind, AccessPath::Kind::oneIndex);
    EXPECT_NEAR(path.share, 1.0 / 97, 0.001);
    const engine::RunResult result = query.Run(snapshot, path, [](const Object&) { return true; });
    EXPECT_EQ(result.found, 21U);
    EXPECT_EQ(result.visited, 21U);
}

TEST_P(RunTest, APatternEndsItsScanBehindTheKeysThatBeginLikeIt) {
    for (const char* condition : {"text = \"ab*\"", "folded = \"ab*\" nocase", "text = \"a?\"", "text = \"B*b\""}) {
        const std::string text = std::string("Word where ") + condition;
        const std::string begin = text.substr(0, text.find_first_of("*?")) + "*" + text.substr(text.rfind('"'));
        const std::size_t alike = Numbers(begin, false).size();
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        const Snapshot snapshot(*store);
        const AccessPath path = query.Plan(snapshot);
        ASSERT_EQ(path.kind, AccessPath::Kind::oneIndex) << text;
        const engine::RunResult result = query.Run(snapshot, path, [](const Object&) { return true; });
        EXPECT_EQ(result.visited, alike) << text;
        ASSERT_EQ(result.entries.size(), 1U);
        EXPECT_EQ(result.entries[0], result.visited);
    }
}

TEST_P(RunTest, TellsTheEntriesOfEachScan) {
    const PreparedQuery query(
        *store, engine::ParseQuery(store->GetSchema(), "Word where number = 5 or number = 7 or number > 95"),
        ScanByType);
    const Snapshot snapshot(*store);
    const AccessPath path = query.Plan(snapshot);
    EXPECT_EQ(engine::Scans(path).size(), 3U);
    const engine::RunResult result = query.Run(snapshot, path, [](const Object&) { return true; });
    EXPECT_EQ(result.entries, (std::vector<std::size_t>{21, 21, 40}));
    EXPECT_FALSE(result.endedEarly);
    EXPECT_EQ(result.visited, 82U);
}

TEST_P(RunTest, TellsThatTheLimitEndedIt) {
    const Snapshot snapshot(*store);
    const auto run = [&](const char* text) {
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        return query.Run(snapshot, query.Plan(snapshot), [](const Object&) { return true; });
    };
    EXPECT_TRUE(run("Word where number = 5 limit 3").endedEarly);
    EXPECT_EQ(run("Word where number = 5 limit 3").entries, (std::vector<std::size_t>{3}));
    EXPECT_FALSE(run("Word where number = 5 limit 30").endedEarly);
    EXPECT_FALSE(run("Word where number = 5 order by text limit 3").endedEarly);
    EXPECT_TRUE(run("Word where number = 5 limit 0").endedEarly);
    EXPECT_EQ(run("Word where number = 5 limit 0").entries, (std::vector<std::size_t>{0}));
}

TEST_P(RunTest, SortsAndLimits) {
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

TEST_P(RunTest, PlansTellTheirShares) {
    const struct {
        const char* condition;
        AccessPath::Kind kind;
        double share;
    } cases[] = {
        {"number = 5 or number = 7", AccessPath::Kind::severalIndexes, 2.0 / 97},
        {"number > 60", AccessPath::Kind::oneIndex, 36.0 / 97},
        {"number > 20", AccessPath::Kind::allObjects, 1},
        {"number <> 5", AccessPath::Kind::allObjects, 1},
        {"number < 40 or number > 60", AccessPath::Kind::allObjects, 1},
        {"number < 40 and (number = 5 or number = 7)", AccessPath::Kind::severalIndexes, 2.0 / 97},
        {"number > 20 and number < 40", AccessPath::Kind::oneIndex, 19.0 / 97},
    };
    for (const auto& c : cases) {
        const std::string text = std::string("Word where ") + c.condition;
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        const Snapshot snapshot(*store);
        const AccessPath path = query.Plan(snapshot);
        EXPECT_EQ(path.kind, c.kind) << text;
        EXPECT_NEAR(path.share, c.share, 0.01) << text;  // limits count as inside
    }
    const engine::Query unequal = engine::ParseQuery(store->GetSchema(), "Word where number <> 5");
    EXPECT_FALSE(engine::Serves(store->GetSchema().Classes()[0].attributes[3], unequal.where.comparison));
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

TEST_P(RunTest, AnIndexInItsOrderGivesWhatSortingGives) {
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

TEST_P(RunTest, ALimitEndsAWalkInOrder) {
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

TEST_P(RunTest, ANarrowRangeIsSortedRatherThanAnIndexWalked) {
    const Ordered narrow = RunOrdered(*store, "Word where number = 5 order by text limit 10", true);
    EXPECT_FALSE(narrow.inOrder);
    EXPECT_EQ(narrow.result.visited, 21U);
    // Of many objects the first come soon.
    const Ordered wide = RunOrdered(*store, "Word where number > 20 order by text desc limit 5", true);
    EXPECT_TRUE(wide.inOrder);
    EXPECT_LT(wide.result.visited, 40U);
}

/// Where a walk's remaining condition keeps much less than it is taken to.
TEST_P(RunTest, AWalkThatLeadsFarIsGivenUp) {
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

TEST_P(RunTest, AFalseAnswerEndsARunThatWasGivenUp) {
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

TEST_P(RunTest, AFalseAnswerEndsTheRun) {
    for (const char* text : {"Word", "Word order by number", "Word order by number desc, text", "Word order by plain",
                             "Word where number = 5"}) {
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        const Snapshot snapshot(*store);
        int taken = 0;
        query.Run(snapshot, query.Plan(snapshot), [&taken](const Object&) { return ++taken < 3; });
        EXPECT_EQ(taken, 3) << text;
    }
}

TEST(MakePlan, ManyOfOneKeyAreNotWalkedToBeSorted) {
    const ScratchFolder folder;
    Store::Create(folder.File("things"), Schema::Parse("class Thing { same int index\n other int index }"),
                  KyFormNative);
    Store store(folder.File("things"), Access::write);
    engine::Batch batch(store, 0);
    for (int i = 0; i < 1000; ++i) {
        int same = 1;
        int other = 1000 - i;
        void* const values[] = {&same, &other};
        batch.Add(values);
    }
    batch.Commit();
    const Ordered walked = RunOrdered(store, "Thing order by same limit 3", true);
    EXPECT_TRUE(walked.inOrder);
    EXPECT_EQ(walked.result.visited, 3U);
    for (const char* text : {"Thing order by same, other limit 3", "Thing order by same desc, other limit 3"}) {
        const Ordered sorted = RunOrdered(store, text, true);
        EXPECT_FALSE(sorted.inOrder) << text;
        EXPECT_EQ(sorted.numbers, (std::vector<engine::ObjectNumber>{1000, 999, 998})) << text;
    }
}

/// The end of what a pattern leaves is found from its beginning only.
TEST_P(RunTest, PatternsAreNotWalkedBackwards) {
    EXPECT_FALSE(RunOrdered(*store, "Word where text = \"a*\" order by text desc", true).inOrder);
    EXPECT_TRUE(RunOrdered(*store, "Word where text = \"a*\" order by text", true).inOrder);
    EXPECT_TRUE(RunOrdered(*store, "Word where text = \"a*\" and text < \"ab\" order by text desc", true).inOrder);
}

TEST_P(RunTest, ConstantsCanBeBound) {
    PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), "Word where number = ?"), ScanByType);
    const Snapshot snapshot(*store);
    for (int number : {0, 50, 96, 97}) {
        query.Bind(0, &number);
        const engine::RunResult result = query.Run(snapshot, query.Plan(snapshot), [](const Object&) { return true; });
        EXPECT_EQ(result.found, number == 97 ? 0U : number < 2000 % 97 ? 21U : 20U) << number;
    }
}

TEST_P(RunTest, ConstantsThatDoNotScanAreToldWithTheirPlace) {
    try {
        const PreparedQuery query(
            *store, engine::ParseQuery(store->GetSchema(), "Word where text = \"a\" or number = \"nonsense\""),
            ScanByType);
        ADD_FAILURE();
    } catch (const engine::TextError& error) {
        EXPECT_STREQ(error.what(), "no sense in this");
        EXPECT_EQ(error.Position(), 34U);
    }
}

TEST_P(RunTest, DictionaryConstantsThatCompareRefusesAreToldWithTheirPlace) {
    const std::string begin = "Word where dictionary < \"";
    EXPECT_NO_THROW(PreparedQuery(*store, engine::ParseQuery(store->GetSchema(), begin + std::string(253, 'b') + "\""),
                                  ScanByType));
    try {
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), begin + std::string(254, 'b') + "\""),
                                  ScanByType);
        ADD_FAILURE();
    } catch (const engine::TextError& error) {
        EXPECT_STREQ(error.what(), "a text of more than 253 key bytes cannot be compared with dictionary strings");
        EXPECT_EQ(error.Position(), begin.size() - 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, RunTest, ::testing::Values(KyFormNative, KyFormReversed));

}  // namespace
