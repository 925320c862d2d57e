#include "schema.h"

#include <gtest/gtest.h>

#include <string>

#include "error.h"

namespace {

using engine::Schema;

TEST(Schema, NamesClassesAttributesAndTheirIndexes) {
    const Schema schema = Schema::Parse(
        "# words\n"
        "class Word {\n"
        "  text     KyString  language 2 codeset 1 index nocase noaccent  # both\n"
        "  length   o_u2b index; counts o_2b[3]\n"
        "}\n"
        "class Empty_1 { x KyBoolean }\n");
    ASSERT_EQ(schema.Classes().size(), 2U);
    const engine::Class& word = schema.Classes()[0];
    EXPECT_EQ(word.name, "Word");
    ASSERT_EQ(word.attributes.size(), 3U);
    EXPECT_EQ(word.attributes[0].type, KySTRING_T);
    EXPECT_EQ(word.attributes[0].language, 2);
    EXPECT_EQ(word.attributes[0].codeSet, 1);
    EXPECT_EQ(word.attributes[0].index, (engine::Folding{.ignoreCase = true, .ignoreAccent = true}));
    EXPECT_EQ(word.attributes[1].index, engine::Folding{});
    EXPECT_EQ(word.attributes[2].count, 3U);
    EXPECT_FALSE(word.attributes[2].index);
    EXPECT_EQ(schema.Find("Empty_1"), 1U);
    EXPECT_EQ(schema.Find("empty_1"), std::nullopt);
    EXPECT_EQ(word.Find("length"), 1U);
}

TEST(Schema, TakesTheGreatestNumbers) {
    const Schema schema = Schema::Parse(
        "class A_ { _a0 o_char[65535]; b KyString language 255 codeset 255; c KyString language 0 codeset 0\n"
        "d o_char[253] index, e int[63] index }");
    const std::vector<engine::Attribute>& attributes = schema.Classes()[0].attributes;
    ASSERT_EQ(attributes.size(), 5U);
    EXPECT_EQ(attributes[0].name, "_a0");
    EXPECT_EQ(attributes[0].count, 65535U);
    EXPECT_EQ(attributes[1].language, 255);
    EXPECT_EQ(attributes[1].codeSet, 255);
    EXPECT_EQ(attributes[2].language, 0);
    EXPECT_EQ(attributes[2].codeSet, 0);
    EXPECT_TRUE(attributes[3].index);
    EXPECT_EQ(Schema::Parse(schema.Text()).Text(), schema.Text());
}

TEST(Schema, TextGivesTheSameSchema) {
    const Schema schema = Schema::Parse(
        "class A { a KyString index noaccent\n b int[7] index\n c KyIString language 1 }\n"
        "class B { d KyString language 2 codeset 1 index nocase\n e KyString index nocase noaccent }");
    const std::string text = schema.Text();
    EXPECT_EQ(Schema::Parse(text).Text(), text);
    EXPECT_EQ(text,
              "class A {\n  a KyString index noaccent\n  b int[7] index\n  c KyIString language 1\n}\n"
              "class B {\n  d KyString language 2 codeset 1 index nocase\n  e KyString index nocase noaccent\n}\n");
}

TEST(Schema, MistakesAreToldWithTheirPlace) {
    struct {
        const char* text;
        const char* at;  ///< where the mistake begins
        const char* message;
    } const cases[] = {
        {"", "", "a schema has at least one class"},
        {"klass A {}", "klass", "\"class\" is expected here"},
        {"class {a int}", "{a", "the name of a class is expected here"},
        {"class 9A {a int}", "9A", "the name of a class is expected here"},
        {"class A a int}", "a int", "\"{\" is expected here"},
        {"class A { }", "}", "the class \"A\" has no attributes"},
        {"class A { a integer }", "integer", "there is no type \"integer\""},
        {"class A { a illegal }", "illegal", "there is no type \"illegal\""},
        {"class A { a\n int }", "int", "the type of \"a\" is missing"},
        {"class A { a int[0] }", "0]", "the number of elements is a number from 1 to 65535"},
        {"class A { a int[65536] }", "65536", "the number of elements is a number from 1 to 65535"},
        {"class A { a int[3x] }", "3x", "the number of elements is a number from 1 to 65535"},
        {"class A-B { a int }", "-B", "\"{\" is expected here"},
        {"class \xC4 { a int }", "\xC4", "names are letters, digits and \"_\""},
        {"class A { a o_char[254] index }", "index", "an array of more than 253 bytes has no index"},
        {"class A { a d_Time index }", "index",
         "times of this type have no index: their order does not tell the parts of a second apart"},
        {"class A { a KyString codeset x }", "x }", "a code set is a number from 0 to 255"},
        {"class A { a int[x] }", "x]", "the number of elements is a number from 1 to 65535"},
        {"class A { a int[3 }", "}", "\"]\" is expected here"},
        {"class A { a int nocase }", "nocase", "attributes of this type have no \"nocase\" here"},
        {"class A { a KyString nocase }", "nocase", "attributes of this type have no \"nocase\" here"},
        {"class A { a KyString language 256 }", "256", "a language is a number from 0 to 255"},
        {"class A { a int\n a int }", "a int }", "there is an attribute \"a\" already"},
        {"class A { a int } class A { a int }", "class A { a int }", "there is a class \"A\" already"},
        {"class A { a KyBlob index }", "index", "blobs have no index: they are longer than its keys"},
        {"class A { a KyString[2] index }", "index", "arrays of strings have no index"},
        {"class A { a int[64] index }", "index", "an array of more than 253 bytes has no index"},
        {"class A { a int", "", "the class \"A\" does not end"},
    };
    for (const auto& c : cases) {
        const std::string text = c.text;
        try {
            Schema::Parse(text);
            ADD_FAILURE() << text;
        } catch (const engine::TextError& error) {
            EXPECT_STREQ(error.what(), c.message) << text;
            const std::size_t expected = *c.at == '\0' ? text.size() : text.rfind(c.at);
            EXPECT_EQ(error.Position(), expected) << text;
        }
    }
}

}  // namespace
