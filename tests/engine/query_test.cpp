#include "query.h"

#include <gtest/gtest.h>

#include <string>

#include "error.h"

namespace {

using engine::Condition;
using engine::ParseQuery;
using engine::Query;
using engine::Schema;

const Schema& Words() {
    static const Schema schema =
        Schema::Parse("class Word { text KyString\n length int\n day KyDate\n parts o_2b[3] }");
    return schema;
}

TEST(ParseQuery, AClassAloneIsAllOfIt) {
    const Query query = ParseQuery(Words(), " Word ");
    EXPECT_EQ(query.classAt, 0U);
    EXPECT_EQ(query.columns, (std::vector<std::size_t>{0, 1, 2, 3}));
    EXPECT_EQ(query.where.kind, Condition::Kind::all);
    EXPECT_TRUE(query.where.parts.empty());
    EXPECT_FALSE(query.limit);
}

TEST(ParseQuery, ReadsColumnsOrderAndLimit) {
    for (const char* text : {"length, text from Word order by length desc, text limit 10",
                             "SELECT length,text FROM Word ORDER BY length DESC, text asc LIMIT 10"}) {
        const Query query = ParseQuery(Words(), text);
        EXPECT_EQ(query.columns, (std::vector<std::size_t>{1, 0}));
        ASSERT_EQ(query.order.size(), 2U);
        EXPECT_EQ(query.order[0].attribute, 1U);
        EXPECT_TRUE(query.order[0].descending);
        EXPECT_EQ(query.order[1].attribute, 0U);
        EXPECT_FALSE(query.order[1].descending);
        EXPECT_EQ(query.limit, 10U);
    }
    EXPECT_EQ(ParseQuery(Words(), "select * from Word").columns.size(), 4U);
}

TEST(ParseQuery, AndBindsCloserThanOr) {
    const Query query = ParseQuery(Words(), "Word where length = 1 or length > 2 and (text < \"a\"\"b\" or day <> ?)");
    ASSERT_EQ(query.where.kind, Condition::Kind::any);
    ASSERT_EQ(query.where.parts.size(), 2U);
    EXPECT_EQ(query.where.parts[0].kind, Condition::Kind::comparison);
    const Condition& all = query.where.parts[1];
    ASSERT_EQ(all.kind, Condition::Kind::all);
    EXPECT_EQ(all.parts[0].comparison.text, "length > 2");
    EXPECT_EQ(all.parts[1].kind, Condition::Kind::any);
    EXPECT_EQ(query.constants, (std::vector<std::optional<std::string>>{"1", "2", "a\"b", std::nullopt}));
    EXPECT_EQ(all.parts[1].parts[1].comparison.constant, 3U);
}

TEST(ParseQuery, RelationsAndModifiersMakeTheCompareWord) {
    struct {
        const char* comparison;
        unsigned word;
    } const cases[] = {
        {"length = -1", 0x0001},
        {"length <> 1", 0x0006},
        {"length < 1", 0x0002},
        {"length <= 1", 0x0003},
        {"length > .5e3", 0x0004},
        {"length >= 1", 0x0005},
        {"text = \"a\" exact", 0x0011},
        {"text = \"a\" NOCASE", 0x0021},
        {"text = \"a\" noaccent", 0x0041},
        {"text >= \"a\" nocase noaccent exact", 0x0075},
        {"day = \"*-05-01\" exact", 0x0011},
        {"parts[2] = 0x1F", 0x0001},
    };
    for (const auto& c : cases) {
        const Query query = ParseQuery(Words(), std::string("Word where ") + c.comparison);
        ASSERT_EQ(query.where.kind, Condition::Kind::comparison) << c.comparison;
        EXPECT_EQ(query.where.comparison.op, c.word) << c.comparison;
        EXPECT_EQ(query.where.comparison.text, c.comparison);
    }
}

TEST(ParseQuery, MistakesAreToldWithTheirPlace) {
    struct {
        const char* text;
        const char* at;  ///< where the mistake begins; null: at the end
        const char* message;
    } const cases[] = {
        {"", nullptr, "the name of a class is expected here"},
        {"word", "word", "there is no class \"word\""},
        {"size from Word", "size", "Word has no attribute \"size\""},
        {"text, length", nullptr, "\"from\" is expected here"},
        {"Word wher length = 1", "wher", "the query does not go on like this"},
        {"Word where", nullptr, "an attribute is expected here"},
        {"Word where size = 1", "size", "Word has no attribute \"size\""},
        {"Word where length 1", "1", "one of = <> < <= > >= is expected here"},
        {"Word where length == 1", "= 1", "a number or a text in double quotes is expected here"},
        {"Word where length = x", "x", "a number or a text in double quotes is expected here"},
        {"Word where text = \"abc", "\"abc", "the text that begins here does not end"},
        {"Word where (length = 1", nullptr, "\")\" is expected here"},
        {"Word where length = 1 nocase", "nocase", "this can be ignored in attributes of the type KyString only"},
        {"Word where parts = 1", "= 1", "\"parts\" is an array: which element?"},
        {"Word where parts[3] = 1", "3]", "\"parts\" has the elements 0 to 2"},
        {"Word where parts[x] = 1", "x]", "an element's place is a whole number"},
        {"Word order length", "length", "\"by\" is expected here"},
        {"Word order by size", "size", "Word has no attribute \"size\""},
        {"Word limit many", "many", "the number of objects is a whole number"},
        {"Word limit -1", "-1", "the number of objects is a whole number"},
    };
    for (const auto& c : cases) {
        const std::string text = c.text;
        try {
            ParseQuery(Words(), text);
            ADD_FAILURE() << text;
        } catch (const engine::TextError& error) {
            EXPECT_STREQ(error.what(), c.message) << text;
            EXPECT_EQ(error.Position(), c.at == nullptr ? text.size() : text.rfind(c.at)) << text;
        }
    }
}

TEST(ParseQuery, TimesWithoutATotalOrderAreNotSortedBy) {
    const Schema schema = Schema::Parse("class Event { at d_Timestamp\n hour d_Time\n day d_Date }");
    for (const char* text : {"Event order by day, at", "Event order by hour desc"}) {
        try {
            ParseQuery(schema, text);
            ADD_FAILURE() << text;
        } catch (const engine::TextError& error) {
            EXPECT_STREQ(
                error.what(),
                "times of this type cannot be sorted by: their order does not tell the parts of a second apart");
            EXPECT_EQ(error.Position(), std::string(text).find(text[15] == 'd' ? "at" : "hour"));
        }
    }
    EXPECT_NO_THROW(ParseQuery(schema, "Event where at > \"2024-05-31T00:00:00\" order by day"));
}

TEST(ParseQuery, BracketsNestToALimit) {
    const auto nested = [](std::size_t depth) {
        return "Word where " + std::string(depth, '(') + "length = 1" + std::string(depth, ')');
    };
    EXPECT_NO_THROW(ParseQuery(Words(), nested(200)));
    EXPECT_THROW(ParseQuery(Words(), nested(201)), engine::TextError);
    EXPECT_THROW(ParseQuery(Words(), nested(100000)), engine::TextError);
}

}  // namespace
