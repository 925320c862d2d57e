#include <gtest/gtest.h>

#include "run_program.h"

namespace {

struct Case {
    const char* what;
    std::vector<std::string> arguments;
    std::string input;
    std::string output;
};

Result Match(const std::string& input, const std::vector<std::string>& arguments) {
    std::vector<std::string> call = {"match"};
    call.insert(call.end(), arguments.begin(), arguments.end());
    return KytmWith(input, call);
}

TEST(Match, FindsLines) {
    const Case cases[] = {
        {"a word", {"abc"}, "abc\nabcd\nxabc\n", "abc\n"},
        {"any run", {"a*c"}, "ac\nabc\nabbbc\nabd\nxac\n", "ac\nabc\nabbbc\n"},
        {"any character", {"a?c"}, "ac\nabc\nabbc\n", "abc\n"},
        {"one question is one character of UTF-8", {"a?c"}, "aéc\na中c\n", "aéc\na中c\n"},
        {"but bytes in code set 0", {"a??c", "--codeset", "0"}, "aéc\nabc\n", "aéc\n"},
        {"escaped star", {"a\\*"}, "a*\nab\n", "a*\n"},
        {"escaped question", {"a\\?"}, "a?\nab\n", "a?\n"},
        {"escape at the end stands for itself", {"a\\"}, "a\\\na\n", "a\\\n"},
        {"escaped escape", {"a\\\\*"}, "a\\b\nab\n", "a\\b\n"},
        {"and so it does anywhere in a line", {"a\\", "--find"}, "xa\\b\nxab\na\\\n", "xa\\b\na\\\n"},
        {"two at the end are one", {"a\\\\", "--find"}, "xa\\b\nxa\\\\b\nxab\n", "xa\\b\nxa\\\\b\n"},
        {"case counts", {"abc"}, "ABC\nabc\n", "abc\n"},
        {"case ignored", {"a*C", "--op", "ignore-case"}, "ABBC\nabc\nabd\n", "ABBC\nabc\n"},
        {"accents count", {"ete"}, "été\nete\n", "ete\n"},
        {"accents ignored", {"ete", "--op", "ignore-accent"}, "été\nÉte\n", "été\n"},
        {"case and accents ignored", {"ete", "--op", "ignore-case,ignore-accent"}, "été\nÉTE\netat\n", "été\nÉTE\n"},
        {"accents in the pattern ignored, too", {"êtê", "--op=0x60"}, "été\nETE\n", "été\nETE\n"},
        {"anywhere", {"b?d", "--find"}, "abcde\nbcd\nabd\n", "abcde\nbcd\n"},
        {"anywhere, with stars of its own", {"*b*d*", "--find"}, "abcde\nadb\n", "abcde\n"},
        {"anywhere, case ignored",
         {"HAUS", "--find", "--op", "ignore-case"},
         "Rathaus\nHausbau\nBau\n",
         "Rathaus\nHausbau\n"},
        {"a pattern that means itself", {"a*", "--op", "exact"}, "a*\nab\n", "a*\n"},
        {"and case ignored", {"a*", "--op", "exact,ignore-case"}, "A*\nab\n", "A*\n"},
        {"and anywhere", {"a*\\?", "--find", "--op", "exact"}, "xa*\\?x\nxab\\?\n", "xa*\\?x\n"},
        {"and anywhere, case ignored", {"a*", "--find", "--op", "exact,ignore-case"}, "xA*\nxAb\n", "xA*\n"},
        {"string-exact ignores nothing", {"a*", "--find", "--op", "string-exact,ignore-case"}, "xA*\nxa*\n", "xa*\n"},
        {"and anywhere in bytes", {"a*", "--find", "--op", "exact", "--codeset", "0"}, "xa*x\nxabx\n", "xa*x\n"},
        {"bytes have no escape", {"a\\*", "--codeset", "0"}, "a*\na\\b\n", "a\\b\n"},
        {"invert", {"a*", "-v"}, "a\nb\nab\nc\n", "b\nc\n"},
        {"count", {"a*", "-c"}, "a\nb\nab\n", "2\n"},
        {"count the others", {"a*", "--count", "--invert"}, "a\nb\nab\n", "1\n"},
        {"line numbers", {"a*", "-n"}, "a\nb\nab\n", "1:a\n3:ab\n"},
        {"line numbers of the others", {"a*", "-vn"}, "a\nb\nab\n", "2:b\n"},
        {"empty pattern, empty lines", {"", "-n"}, "a\n\nb\n\n", "2:\n4:\n"},
        {"empty pattern anywhere", {"", "--find"}, "a\n\n", "a\n\n"},
        {"standard input by name", {"a", "-"}, "a\n", "a\n"},
        {"no line end at the end", {"a*"}, "b\nab", "ab\n"},
        {"line ends with returns stay", {"a?"}, "ab\r\nb\r\n", "ab\r\n"},
        {"lines that are no values match as texts", {"{NULL}*"}, "{NULL} and more\n", "{NULL} and more\n"},
        {"a pattern like a number", {"-1*"}, "-12\n1\n", "-12\n"},
        {"a pattern like an option", {"-n", "--", "-v*"}, "-vx\nv\n", "1:-vx\n"},
        {"Latin pattern, lines beyond Latin", {"*uvre"}, "œuvre\nouvre\n", "œuvre\nouvre\n"},
        {"pattern beyond Latin", {"Ж*"}, "Жук\nabc\n", "Жук\n"},
        {"one code set for all", {"Ж*", "--codeset", "253"}, "Жу\nabc\n", "Жу\n"},
    };
    for (const Case& c : cases) {
        const Result result = Match(c.input, c.arguments);
        EXPECT_EQ(result.status, 0) << c.what << ": " << result.err;
        EXPECT_EQ(result.out, c.output) << c.what;
        EXPECT_EQ(result.err, "") << c.what;
    }
}

TEST(Match, NothingFoundEndsWithOne) {
    const Case cases[] = {
        {"no line", {"abc"}, "abd\n", ""},
        {"no input", {"*"}, "", ""},
        {"no input to count", {"*", "-c"}, "", "0\n"},
        {"all lines match", {"*", "-v"}, "a\nb\n", ""},
        {"none counted", {"x", "-c"}, "a\n", "0\n"},
        {"a question needs a character", {"?"}, "\nab\n", ""},
    };
    for (const Case& c : cases) {
        const Result result = Match(c.input, c.arguments);
        EXPECT_EQ(result.status, 1) << c.what << ": " << result.err;
        EXPECT_EQ(result.out, c.output) << c.what;
        EXPECT_EQ(result.err, "") << c.what;
    }
}

TEST(Match, LineThatCannotBeReadIsReportedAndTheOthersAreSearched) {
    const struct {
        std::string line;
        std::vector<std::string> arguments;
        const char* reason;
    } cases[] = {
        {"a\xFF", {}, "\"a\\xFF\" cannot be read: broken UTF-8 at byte 2"},
        {"ab\xC3", {}, "broken UTF-8 at byte 3"},
        {"a\xC0\x80", {}, "broken UTF-8 at byte 2"},
        {"a\xED\xA0\x80", {}, "broken UTF-8 at byte 2"},
        {std::string("a\0b", 3), {}, "it holds a zero byte"},
        {"a😀", {}, "😀 (U+1F600) is beyond the 16-bit characters"},
        {"a€", {"--codeset", "1"}, "€ (U+20AC) is not in the code set "},
        {std::string(65532, 'a'), {}, "it is longer than 65531 bytes"},
        {std::string(32766, 'a'), {"--codeset", "253"}, "it is longer than 32765 characters"},
        {std::string("a\0b", 3), {"--codeset", "0"}, "it holds a zero byte"},
    };
    for (const auto& c : cases) {
        for (const bool invert : {false, true}) {
            std::vector<std::string> arguments = {"a*"};
            arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
            if (invert) arguments.emplace_back("-v");
            const Result result = Match("b\n" + c.line + "\na\n", arguments);
            EXPECT_EQ(result.status, 2) << c.reason;
            EXPECT_EQ(result.out, invert ? "b\n" : "a\n") << c.reason;
            EXPECT_TRUE(result.err.starts_with("kytm: standard input, line 2: ")) << result.err;
            EXPECT_NE(result.err.find(c.reason), std::string::npos) << result.err;
            EXPECT_LT(result.err.size(), 300U) << c.reason;
        }
    }
}

TEST(Match, ReportsNameTheFile) {
    const TemporaryFile file("a\n\xFF\n");
    const Result result = Kytm({"match", "a", file.Path()});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "a\n");
    EXPECT_TRUE(result.err.starts_with("kytm: " + file.Path() + ", line 2: ")) << result.err;
}

TEST(Match, WhatCannotBeDoneEndsWithTwo) {
    const struct {
        std::vector<std::string> arguments;
        const char* reason;
    } cases[] = {
        {{}, "PATTERN"},
        {{"a", "b", "c"}, "c"},
        {{"a", "/nonexistent/file"}, "cannot read"},
        {{"a", "--language", "xx-yy"}, "unknown language \"xx-yy\""},
        {{"a", "--language", ""}, "unknown language \"\""},
        {{"a", "--codeset", "254"}, "unknown code set \"254\""},
        {{"a", "--codeset", "-1"}, "unknown code set \"-1\""},
        {{"a", "--op", "fuzzy"}, "no compare operator"},
        {{"a\xFF"}, "the pattern \"a\\xFF\" cannot be used: broken UTF-8 at byte 2"},
        {{"€*", "--codeset", "1"}, "(U+20AC) is not in the code set"},
        {{std::string(65530, 'a'), "--find"}, "longer than 65531 bytes"},
    };
    for (const auto& c : cases) {
        const Result result = Match("a\n", c.arguments);
        EXPECT_EQ(result.status, 2) << c.reason;
        EXPECT_EQ(result.out, "") << c.reason;
        EXPECT_TRUE(result.err.starts_with("kytm: ")) << c.reason << ": " << result.err;
        EXPECT_NE(result.err.find(c.reason), std::string::npos) << result.err;
    }
}

TEST(Match, LongLinesAndPatterns) {
    const std::string longest(65531, 'a');
    EXPECT_EQ(Match(longest + "\n" + longest.substr(1) + "b\n", {"*a*a*a*a*b", "-nc"}).out, "1\n");
    EXPECT_EQ(Match(longest + "\n", {std::string("a").append(65000, '*').append("a"), "-c"}).out, "1\n");
    EXPECT_EQ(Match(longest + "\n", {longest, "-c"}).out, "1\n");
    EXPECT_EQ(Match(longest + "\n", {longest.substr(2), "-c", "--find"}).out, "1\n");
}

TEST(Match, ManyLines) {
    std::string input;
    std::string expected;
    for (int i = 0; i < 200000; ++i) {
        const std::string number = std::to_string(i);
        input.append(number).append("\n");
        if (!number.starts_with("1") || !number.ends_with("77")) continue;
        expected.append(std::to_string(i + 1)).append(":").append(number).append("\n");
    }
    const TemporaryFile file(input);
    const Result result = Kytm({"match", "1*77", "-n", file.Path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out == expected);
}

}  // namespace
