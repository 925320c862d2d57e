#include "run.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "word_store.h"

namespace {

using engine::AccessPath;
using engine::Object;
using engine::PreparedQuery;
using engine::Snapshot;

class RunTest : public WordStore {};

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

TEST_P(RunTest, OfLimitsOnOneSideTheNarrowestCounts) {
    const struct {
        const char* condition;
        const char* visited;  ///< the condition that those objects fulfil, whose limits are inside
    } cases[] = {
        {"number > 3 and number > 90", "number >= 90"},
        {"number > 90 and number > 3", "number >= 90"},
        {"number < 80 and number <= 5 and number < 50", "number <= 5"},
        {"number >= 3 and number < 90 and number = 7", "number = 7"},
        {"(number > 1 and plain >= \"a\") and (number < 60 and number < 4)", "number >= 1 and number <= 4"},
        {"number = 7 and number = 8", "number < 0"},
        {"text >= \"a\" and text > \"ab\" and text < \"b\" and text <= \"abb\"", "text >= \"ab\" and text <= \"abb\""},
        {"dictionary >= \"a\" and dictionary >= \"bb\"", "dictionary >= \"bb\""},
        {"text = \"a*\" and text >= \"ab\" and text < \"abb\"", "text >= \"ab\" and text <= \"abb\""},
    };
    for (const auto& c : cases) {
        const std::string text = std::string("Word where ") + c.condition;
        const std::size_t visited = Numbers(std::string("Word where ") + c.visited, false).size();
        const std::size_t found = Numbers(text, false).size();
        const PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        const Snapshot snapshot(*store);
        const AccessPath path = query.Plan(snapshot);
        ASSERT_EQ(path.kind, AccessPath::Kind::oneIndex) << text;
        const engine::RunResult result = query.Run(snapshot, path, [](const Object&) { return true; });
        EXPECT_EQ(result.visited, visited) << text;
        EXPECT_EQ(result.found, found) << text;
    }
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
