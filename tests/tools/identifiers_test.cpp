#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_program.h"

// Identifiers of objects and classes, and references.

namespace {

nlohmann::json Shown(const std::string& type, const std::string& text) {
    const Result result = Kytm({"show", type, "--json", "--", text});
    EXPECT_EQ(result.status, 0) << type << ": " << result.err;
    return nlohmann::json::parse(result.out)[0];
}

TEST(Identifiers, AreShownInEveryForm) {
    const nlohmann::json block = Shown("KyObjId", "(1-12#3)");
    EXPECT_EQ(block["null"], false);
    EXPECT_EQ(block["memory"]["bytes"], "03 00 00 00 0C 00 00 00 01 00 00 00");
    EXPECT_EQ(block["stored"][0]["bytes"], "03 00 00 00 0C 00 00 00 01 00");
    EXPECT_EQ(block["stored"][1]["bytes"], "00 00 00 03 00 00 00 0C 00 01");
    EXPECT_EQ(block["sameHashInAllForms"], false);
    EXPECT_EQ(block["texts"][0]["text"], "(1-12#3)");
    EXPECT_EQ(block["texts"][0]["comesBack"], true);
    EXPECT_EQ(Shown("KyRef", "2:1-5#7,8")["texts"][0]["text"], "(2:1-5#7, 8)");
    EXPECT_EQ(Shown("KyClassId", "(8v9)")["sameHashInAllForms"], true);
}

TEST(Identifiers, NullsAreShownAsNull) {
    for (const char* type : {"KyObjId", "KyClassId", "KyRef"}) {
        const nlohmann::json block = Shown(type, "{NULL}");
        EXPECT_EQ(block["null"], true) << type;
        EXPECT_EQ(block["texts"][0]["text"], "{NULL}") << type;
        EXPECT_EQ(block["texts"][0]["comesBack"], true) << type;
    }
    EXPECT_EQ(Shown("KyObjId", "(0-0#7)")["null"], true);
    EXPECT_EQ(Shown("KyClassId", "(0v0)")["null"], false);
}

TEST(Identifiers, AreCompared) {
    EXPECT_EQ(Kytm({"cmp", "KyObjId", "(0-12#3)", "(0-12#4)"}).out, "=  result 0  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyObjId", "(7-1#0)", "(2-9#0)"}).out, ">  result 5  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyClassId", "{NULL}", "(0v0)"}).out, "<  result -1  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyRef", "(2:1-5#7, 8)", "(3:1-5#7, 8)"}).out, "<  result -1  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyRef", "(2:1-5#7, 8)", "(2:1-5#9, 1)"}).out, "=  result 0  err 0\n");
}

TEST(Identifiers, AreSorted) {
    const Result numbers = Kytm({"sort", "KyClassId"}, {.input = "(1v2)\n{NULL}\n(0v9)\nnone\n(65535v1)\n"});
    EXPECT_EQ(numbers.out, "{NULL}\n(0v9)\n(1v2)\n(65535v1)\n");
    EXPECT_EQ(numbers.status, 1) << "one line is no class identifier";
    const Result objects =
        Kytm({"sort", "KyObjId", "--unique", "--null-last"}, {.input = "(1-0#0)\n{NULL}\n0-9#1\n(0-9#2)\n"});
    EXPECT_EQ(objects.out, "0-9#1\n(1-0#0)\n{NULL}\n");
    const Result printed = Kytm({"sort", "KyObjId", "--print"}, {.input = "2-1#0\n1-1#0\n"});
    EXPECT_EQ(printed.out, "(1-1#0)\n(2-1#0)\n");
}

}  // namespace
