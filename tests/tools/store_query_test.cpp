#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "made_store.h"

namespace {

class StoreQuery : public ::testing::Test {
protected:
    StoreQuery()
        : store(
              "class Thing { number int index\n text KyString language 2 codeset 1 index\n"
              " folded KyString language 2 codeset 1 index nocase noaccent\n maybe KyNull_double\n"
              " samples o_2b[2]\n truth KyBoolean\n day KyDate index\n dictionary KyIString\n letter o_char }") {
        const Result loaded = store.Load(
            "number,text,folded,maybe,samples[0],samples[1],truth,day,dictionary,letter\n"
            "1,Straße,Straße,0.5,1,2,TRUE,2024-05-07,Äpfel,a\n"
            "2,strasse,strasse,,3,4,FALSE,2024-12-31,äpfel,b\n"
            "3,Apfel,Apfel,-Infinity,5,6,,1999-12-31,Zebra,c\n"
            "4,Äpfel,Äpfel,1e300,7,8,TRUE,,zebra,d\n"
            "5,*,*,,9,10,FALSE,2024-05-08,,e\n");
        EXPECT_EQ(loaded.status, 0) << loaded.err;
    }

    MadeStore store;
};

TEST_F(StoreQuery, Csv) {
    const std::pair<const char*, const char*> cases[] = {
        {"number from Thing where folded = \"STRASSE\" nocase noaccent", "1\n2\n"},
        {"number from Thing where text = \"*\"", "1\n2\n3\n4\n5\n"},
        {"number from Thing where text = \"*\" exact", "5\n"},
        {"number from Thing where text = \"?pfel\"", "3\n4\n"},
        {"number from Thing where day = \"*-12-31\"", "2\n3\n"},
        {"number from Thing where day > \"2024-05-07\" and day < \"2024-06-01\"", "5\n"},
        {"number from Thing where maybe = \"{NULL}\"", "2\n5\n"},
        {"number from Thing where samples[1] >= 6 order by number desc", "5\n4\n3\n"},
        {"number from Thing where truth = \"TRUE\" or number = 3", "1\n3\n4\n"},
        {"number from Thing where letter = \"c\"", "3\n"},
        {"number from Thing where dictionary = \"Z*\"", "3\n"},
        {"number from Thing order by folded, number limit 3", "5\n3\n4\n"},
        {"number from Thing where number > 99", ""},
    };
    for (const auto& [query, rows] : cases) {
        const Result result = store.Query(query);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, std::string("number\n") + rows) << query;
        EXPECT_EQ(result.err, "");
    }
}

TEST_F(StoreQuery, TableAlignsNumbersAndUmlauts) {
    EXPECT_EQ(store.Query("text, number, maybe from Thing where number <= 2", {}).out,
              "text     number   maybe\n"
              "Straße        1     0.5\n"
              "strasse       2  {NULL}\n");
    EXPECT_EQ(store.Query("text, samples from Thing where number = 1", {"--ids"}).out,
              "id       text    samples[0]  samples[1]\n"
              "(0-1#1)  Straße           1           2\n");
}

TEST_F(StoreQuery, Json) {
    const Result result = store.Query("Thing where number <= 3", {"--json", "--ids"});
    EXPECT_EQ(result.status, 0);
    const nlohmann::json rows = nlohmann::json::parse(result.out);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0], nlohmann::json::parse(R"json({"id": "(0-1#1)", "number": 1, "text": "Straße",
        "folded": "Straße", "maybe": 0.5, "samples": [1, 2], "truth": true, "day": "2024-05-07",
        "dictionary": "Äpfel", "letter": "a"})json"));
    EXPECT_TRUE(rows[1]["maybe"].is_null());
    EXPECT_EQ(rows[1]["truth"], false);
    EXPECT_EQ(rows[2]["maybe"], "-Infinity");
    EXPECT_TRUE(rows[2]["truth"].is_null());
    EXPECT_EQ(store.Query("Thing where number = 0", {"--json"}).out, "[]\n");
}

TEST_F(StoreQuery, ExplainTellsBoundsAndShares) {
    const Result alone = Kytm({"store", "explain", store.Path(), "Thing where number = 3"});
    EXPECT_EQ(alone.status, 0);
    EXPECT_EQ(alone.out,
              "Thing has 5 objects.\n"
              "Index of number from \"3\" to \"3\":\n"
              "  estimated share 20 %, true share 20 % (1 of 5 entries)\n"
              "Visited 1 object, found 1.\n");
    const Result behind = store.Query("number from Thing where number = 3", {"--explain"});
    EXPECT_EQ(behind.out, "number\n     3\n\n" + alone.out);
    const Result beside = store.Query("number from Thing where number = 3", {"--explain", "--csv"});
    EXPECT_EQ(beside.out, "number\n3\n");
    EXPECT_EQ(beside.err, alone.out);

    const auto explain = [this](const char* text) { return Kytm({"store", "explain", store.Path(), text}).out; };
    EXPECT_EQ(explain("Thing where samples[0] = 3"),
              "Thing has 5 objects.\nAll of them are read: no index narrows the condition to half of them.\n"
              "Visited 5 objects, found 1.\n");
    EXPECT_EQ(explain("Thing order by number desc limit 2"),
              "Thing has 5 objects.\n"
              "They are read in the order of an index, as it is asked for: nothing is sorted.\n"
              "Index of number backwards, from the first to the last:\n"
              "  estimated share 100 %, true share at least 40 % (2 of 5 entries)\n"
              "Visited 2 objects, found 2. The limit ended the search.\n");
    EXPECT_EQ(explain("Thing order by folded limit 2"),
              "Thing has 5 objects.\nAll of them are read: no index narrows the condition to half of them.\n"
              "What is found is sorted.\nVisited 5 objects, found 5.\n");
    const std::string two = explain("Thing where number = 3 or text = \"Straße\" exact");
    EXPECT_NE(two.find("Index of number from \"3\" to \"3\":"), std::string::npos) << two;
    EXPECT_NE(two.find("Index of text from \"Straße\" to \"Straße\":"), std::string::npos) << two;
    EXPECT_NE(two.find("Visited 2 objects, found 2."), std::string::npos) << two;
    const std::string limited = explain("Thing where number >= 4 limit 1");
    EXPECT_NE(limited.find("true share at least 20 %"), std::string::npos) << limited;
    EXPECT_NE(limited.find("The limit ended the search."), std::string::npos) << limited;
}

TEST(StoreExplain, TellsThatAWalkWasGivenUp) {
    std::string rows = "number,plain,other\n";
    for (int i = 0; i < 400; ++i) rows += std::to_string(i) + ",0," + std::to_string(i) + "\n";
    const MadeStore store("class Thing { number int index\n plain int\n other int index }");
    ASSERT_EQ(store.Load(rows).status, 0);
    const auto explain = [&store](const char* text) { return Kytm({"store", "explain", store.Path(), text}).out; };
    const std::string begin =
        "Thing has 400 objects.\n"
        "They are read in the order of an index, as it is asked for, until that has taken as long as reading and "
        "sorting "
        "all would: few fulfil the condition.\n";
    EXPECT_EQ(explain("Thing where plain = 7 order by number limit 3"),
              begin +
                  "Then all are read, and what is found is sorted.\n"
                  "Index of number from the first to the last:\n"
                  "  estimated share 100 %, true share at least 27 % (108 of 400 entries)\n"
                  "Visited 508 objects, found 0.\n");
    EXPECT_EQ(explain("Thing where plain = 7 and other < 160 order by number limit 1"),
              begin +
                  "Then what other indexes leave is read, and what is found is sorted.\n"
                  "Index of number from the first to the last:\n"
                  "  estimated share 100 %, true share at least 40.8 % (163 of 400 entries)\n"
                  "Index of other from the first to \"160\":\n"
                  "  estimated share 40 %, true share 40.2 % (161 of 400 entries)\n"
                  "Visited 324 objects, found 0.\n");
}

TEST_F(StoreQuery, MistakesAreShownAboveACaret) {
    const std::pair<const char*, const char*> cases[] = {
        {"Thong", "there is no class \"Thong\"\n  Thong\n  ^\n"},
        {"Thing where size = 1", "Thing has no attribute \"size\"\n  Thing where size = 1\n              ^\n"},
        {"Thing where number == 1",
         "a number or a text in double quotes is expected here\n  Thing where number == 1\n                      ^\n"},
        {"Thing where number = 12x",
         "this does not scan as number, which is of the type int: it is no number as a whole\n"
         "  Thing where number = 12x\n                       ^\n"},
        {"Thing where text = \"ä\" and day = \"tomorrow\"",
         "this does not scan as day, which is of the type KyDate: it is no date like 2024-05-31\n"
         "  Thing where text = \"ä\" and day = \"tomorrow\"\n                                   ^\n"},
        {"Thing where number = ?", "a constant is missing here\n  Thing where number = ?\n                       ^\n"},
        {"Thing\nwhere number", "one of = <> < <= > >= is expected here\n  where number\n              ^\n"},
    };
    for (const auto& [query, message] : cases) {
        for (const char* command : {"query", "explain"}) {
            const Result result = Kytm({"store", command, store.Path(), query});
            EXPECT_EQ(result.status, 2) << query;
            EXPECT_EQ(result.out, "") << query;
            EXPECT_EQ(result.err, std::string("kytm: ") + message) << query;
        }
    }
}

}  // namespace
