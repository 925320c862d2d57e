#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_program.h"

// The thirteen nullable number types: nulls are read and printed as the null print string.

namespace {

const char* const kTypes[] = {"KyNull_char",     "KyNull_uchar", "KyNull_short", "KyNull_ushort", "KyNull_int",
                              "KyNull_unsigned", "KyNull_long",  "KyNull_ulong", "KyNull_float",  "KyNull_double",
                              "KyNull_KyInt64",  "KyNull_8b",    "KyNull_u8b"};

bool IsCharacter(const std::string& type) { return type == "KyNull_char" || type == "KyNull_uchar"; }

nlohmann::json Shown(const std::string& type, const std::string& text) {
    const Result result = Kytm({"show", type, "--json", "--", text});
    EXPECT_EQ(result.status, 0) << type << ": " << result.err;
    return nlohmann::json::parse(result.out)[0];
}

TEST(Nullable, NullIsShownAsNull) {
    for (const std::string type : kTypes) {
        for (const char* text : {"{NULL}", ""}) {
            const nlohmann::json block = Shown(type, text);
            EXPECT_EQ(block["null"], true) << type;
            EXPECT_EQ(block["texts"][0]["text"], "{NULL}") << type;
            EXPECT_EQ(block["texts"][0]["comesBack"], true) << type;
            EXPECT_EQ(block["sameHashInAllForms"], true) << type;
            const std::string native = block["stored"][0]["bytes"];
            EXPECT_EQ(native.substr(0, 5), "01 00") << type;
        }
    }
}

TEST(Nullable, NumbersAreShownAsNumbers) {
    for (const std::string type : kTypes) {
        const nlohmann::json block = Shown(type, "7");
        EXPECT_EQ(block["null"], false) << type;
        // A character that is not null prints as nothing, which would be read as null.
        EXPECT_EQ(block["texts"][0]["text"], IsCharacter(type) ? "" : "7") << type;
        EXPECT_EQ(block["texts"][0]["comesBack"], !IsCharacter(type)) << type;
        const std::string native = block["stored"][0]["bytes"];
        EXPECT_EQ(native.substr(0, 2), "00") << type;
    }
}

TEST(Nullable, NullIsBelowEveryNumber) {
    for (const std::string type : kTypes) {
        EXPECT_TRUE(Kytm({"cmp", type, "--", "{NULL}", "1"}).out.starts_with("<")) << type;
        EXPECT_TRUE(Kytm({"cmp", type, "--", "0", ""}).out.starts_with(">")) << type;
        EXPECT_TRUE(Kytm({"cmp", type, "--", "", "{NULL}"}).out.starts_with("=")) << type;
    }
    EXPECT_TRUE(Kytm({"cmp", "KyNull_double", "--", "{NULL}", "NaN"}).out.starts_with("<"));
    EXPECT_TRUE(Kytm({"cmp", "KyNull_int", "--", "{NULL}", "-2147483648"}).out.starts_with("<"));
}

TEST(Nullable, NullsSortFirstOrLast) {
    const std::string lines = "9\n{NULL}\n1\n\n5\n";
    for (const std::string type : kTypes) {
        EXPECT_EQ(KytmWith(lines, {"sort", type}).out, "{NULL}\n\n1\n5\n9\n") << type;
        EXPECT_EQ(KytmWith(lines, {"sort", type, "--null-last"}).out, "1\n5\n9\n{NULL}\n\n") << type;
        EXPECT_EQ(KytmWith(lines, {"sort", type, "--null-last", "--reverse"}).out, "9\n5\n1\n{NULL}\n\n") << type;
        if (!IsCharacter(type)) {
            EXPECT_EQ(KytmWith(lines, {"sort", type, "--unique", "--print"}).out, "{NULL}\n1\n5\n9\n") << type;
        }
    }
}

TEST(Nullable, WhatIsNeitherNullNorANumberIsRefused) {
    for (const std::string type : kTypes) {
        for (const char* text : {"{NULL} and more", "{NUL", "12abc", "99999999999999999999x"}) {
            const Result result = Kytm({"show", type, "--", text});
            EXPECT_EQ(result.status, 1) << type << " " << text << ": " << result.out;
        }
    }
    EXPECT_EQ(Kytm({"show", "KyNull_short", "--", "32768"}).status, 1);
    EXPECT_EQ(Kytm({"show", "KyNull_ulong", "--", "-1"}).status, 1);
    EXPECT_EQ(Kytm({"show", "KyNull_KyInt64", "--", "9223372036854775808"}).status, 1);
}

}  // namespace
