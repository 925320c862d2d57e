#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_program.h"

namespace {

using nlohmann::json;

struct Case {
    const char* type;
    const char* first;
    const char* second;
    const char* line;
};

TEST(Compare, PrintsOrderResultAndError) {
    const Case cases[] = {
        {"o_2b", "-1", "2", "<  result -1  err 0\n"},
        {"o_4b", "2", "2", "=  result 0  err 0\n"},
        {"o_u1b", "0xFF", "A", ">  result 1  err 0\n"},
        {"o_char", "0xFF", "A", "<  result -1  err 0\n"},
        {"o_u8b", "18446744073709551615", "1", ">  result 1  err 0\n"},
        {"o_double", "NaN", "-Infinity", "<  result -1  err 0\n"},
        {"o_double", "NaN", "NaN", "=  result 0  err 0\n"},
        {"o_double", "-0.0", "0", "=  result 0  err 0\n"},
        {"o_float", "1e39", "Infinity", "=  result 0  err 0\n"},
        {"Ky4B_T", "1", "2", "<  result -1  err 0\n"},
        {"2", "1", "2", "<  result -1  err 0\n"},
    };
    for (const Case& c : cases) {
        const Result result = Kytm({"cmp", c.type, c.first, c.second});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, c.line) << c.type << ' ' << c.first << ' ' << c.second;
        EXPECT_EQ(result.err, "");
    }
}

std::string OrderOf(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "cmp");
    const Result result = Kytm(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    return result.out.substr(0, 1);
}

TEST(Compare, StringsByLettersThenCase) {
    EXPECT_EQ(OrderOf({"KyString", "abc", "abd"}), "<");
    EXPECT_EQ(OrderOf({"KyString", "abc", "abc"}), "=");
    EXPECT_EQ(OrderOf({"KyString", "b", "A"}), ">");
    EXPECT_EQ(OrderOf({"KyString", "A", "a"}), "<");
    EXPECT_EQ(OrderOf({"KyString", "a", "ab"}), "<");
    EXPECT_EQ(OrderOf({"KyString", "9", "a"}), "<");
    EXPECT_EQ(OrderOf({"KyString", "{NULL}", ""}), "<");
    EXPECT_EQ(OrderOf({"KyString", "{NULL}", "{NULL}"}), "=");
}

TEST(Compare, OperatorInNumbersAndNames) {
    for (const char* op : {"0x30", "48", "exact,ignore-case", "ignore-case+exact", "exact,0x20"}) {
        EXPECT_EQ(OrderOf({"KyString", "abc", "ABC", "--op", op}), "=") << op;
    }
    EXPECT_NE(OrderOf({"KyString", "abc", "ABC", "--op", "exact"}), "=");
    EXPECT_NE(OrderOf({"KyString", "abc", "a*", "--op", "string-exact"}), "=");
    EXPECT_EQ(OrderOf({"KyString", "abc", "a*", "--op", "0"}), "=");
}

TEST(Compare, UnknownOperatorIsRefused) {
    for (const char* op : {"", "fuzzy", "0x10000", "65536", "-1", "exact,", "exact,,prefix", "0x"}) {
        const Result result = Kytm({"cmp", "o_4b", "1", "2", std::string("--op=") + op});
        EXPECT_EQ(result.status, 2) << op;
        EXPECT_EQ(result.out, "") << op;
        EXPECT_NE(result.err, "") << op;
    }
    const Result result = Kytm({"cmp", "o_4b", "1", "2", "--op", "fuzzy"});
    EXPECT_NE(result.err.find("ignore-case"), std::string::npos) << result.err;
}

TEST(Compare, JsonHasTheSameFacts) {
    const Result result = Kytm({"cmp", "o_4b", "7", "-7", "--json", "--op", "0x10"});
    ASSERT_EQ(result.status, 0) << result.err;
    const json object = json::parse(result.out);
    EXPECT_EQ(object["type"], "o_4b");
    EXPECT_EQ(object["id"], 2);
    EXPECT_EQ(object["first"], "7");
    EXPECT_EQ(object["second"], "-7");
    EXPECT_EQ(object["op"], 16);
    EXPECT_EQ(object["order"], ">");
    EXPECT_EQ(object["result"], 1);
    EXPECT_EQ(object["err"], 0);
}

TEST(Compare, FormatScansBothTexts) { EXPECT_EQ(OrderOf({"o_4b", "ff", "100", "--format", "%x"}), "<"); }

TEST(Compare, EachTextThatDoesNotScanIsReported) {
    const Result result = Kytm({"cmp", "o_4b", "one", "two"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("\"one\""), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("\"two\""), std::string::npos) << result.err;
}

TEST(Compare, NeedsTwoValues) {
    EXPECT_EQ(Kytm({"cmp", "o_4b", "1"}).status, 2);
    EXPECT_EQ(Kytm({"cmp", "o_4b", "1", "2", "3"}).status, 2);
}

}  // namespace
