#include <gtest/gtest.h>

#include "run_program.h"

namespace {

TEST(Program, HelpNamesCommandsOptionsAndExitStatuses) {
    const Result result = Kytm({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    for (const char* word :
         {"types", "languages", "codesets", "show", "cmp", "sort", "match", "store", "--version", "Exit status"}) {
        EXPECT_NE(result.out.find(word), std::string::npos) << word;
    }
}

TEST(Program, EachCommandHasHelp) {
    const std::pair<const char*, std::vector<const char*>> commands[] = {
        {"types", {"--json"}},
        {"languages", {"--json"}},
        {"codesets", {"--json"}},
        {"show", {"TYPE", "VALUE", "--language", "--codeset", "--format", "--json"}},
        {"cmp", {"TYPE", "A", "B", "--language", "--codeset", "--op", "--format", "--json", "ignore-case"}},
        {"sort",
         {"TYPE", "FILE", "--reverse", "--unique", "--null-last", "--print", "--language", "--codeset", "--op",
          "--format", "UTF-8"}},
        {"match",
         {"PATTERN", "FILE", "--find", "--count", "--invert", "--line-number", "--language", "--codeset", "--op",
          "Exit status", "backslash"}},
    };
    for (const auto& [command, words] : commands) {
        const Result result = Kytm({command, "--help"});
        EXPECT_EQ(result.status, 0) << command;
        for (const char* word : words) EXPECT_NE(result.out.find(word), std::string::npos) << command << ' ' << word;
    }
}

TEST(Program, Version) {
    const Result result = Kytm({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "kytm 12.0.2\n");
}

TEST(Program, WrongCallsEndWithTwoAndSayWhy) {
    const std::vector<std::string> calls[] = {
        {},
        {"frobnicate"},
        {"types", "--frobnicate"},
        {"show", "o_4b", "1", "--reverse"},
        {"sort", "o_4b", "a", "b"},
        {"--json"},
    };
    for (const std::vector<std::string>& call : calls) {
        const Result result = Kytm(call);
        EXPECT_EQ(result.status, 2) << (call.empty() ? "" : call[0]);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with("kytm: ")) << result.err;
        EXPECT_EQ(result.err.find('\x01'), std::string::npos) << result.err;
    }
}

TEST(Program, UnknownCommandIsNamed) {
    EXPECT_NE(Kytm({"frobnicate", "o_4b"}).err.find("unknown command or option \"frobnicate\""), std::string::npos);
}

}  // namespace
