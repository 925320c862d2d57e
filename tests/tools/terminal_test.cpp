#include <gtest/gtest.h>

#include "run_program.h"

namespace {

constexpr char kEscape = '\x1B';

TEST(Terminal, ColourOnlyOnATerminalThatWantsIt) {
    const std::vector<std::string> call = {"show", "o_4b", "1"};
    Surroundings terminal;
    terminal.output = OutputTo::terminal;
    const Result coloured = Kytm(call, terminal);
    EXPECT_NE(coloured.out.find(kEscape), std::string::npos);
    EXPECT_EQ(coloured.status, 0);
    EXPECT_EQ(Kytm(call).out.find(kEscape), std::string::npos);

    for (const char* variable : {"NO_COLOR=1", "TERM=dumb"}) {
        Surroundings plain = terminal;
        plain.environment = {variable};
        EXPECT_EQ(Kytm(call, plain).out, Kytm(call).out) << variable;
    }
    Surroundings withoutValue = terminal;
    withoutValue.environment = {"NO_COLOR="};
    EXPECT_NE(Kytm(call, withoutValue).out.find(kEscape), std::string::npos);
}

TEST(Terminal, JsonIsNeverColoured) {
    Surroundings terminal;
    terminal.output = OutputTo::terminal;
    EXPECT_EQ(Kytm({"show", "o_4b", "1", "--json"}, terminal).out.find(kEscape), std::string::npos);
    EXPECT_EQ(Kytm({"types", "--json"}, terminal).out.find(kEscape), std::string::npos);
}

TEST(Terminal, ProgressAfterASecondAndWipedAtTheEnd) {
    Surroundings slow{
        .input = "2\n", .lateInput = "1\n", .pause = std::chrono::milliseconds(1300), .errorsToTerminal = true};
    const Result result = Kytm({"sort", "o_4b"}, slow);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "1\n2\n");
    EXPECT_NE(result.err.find("kytm: reading"), std::string::npos) << result.err;
    EXPECT_TRUE(result.err.ends_with("\r\x1B[K")) << result.err;

    slow.errorsToTerminal = false;
    EXPECT_EQ(Kytm({"sort", "o_4b"}, slow).err, "");
}

TEST(Terminal, NoProgressForQuickWork) {
    Surroundings quick;
    quick.input = "2\n1\n";
    quick.errorsToTerminal = true;
    EXPECT_EQ(Kytm({"sort", "o_4b"}, quick).err, "");
}

TEST(Terminal, WriteErrorIsSaidAndFails) {
    Surroundings full;
    full.output = OutputTo::fullDevice;
    full.input = "2\n1\n";
    const std::vector<std::string> calls[] = {
        {"types"},        {"types", "--json"}, {"show", "o_4b", "1"}, {"cmp", "o_4b", "1", "2"},
        {"sort", "o_4b"}, {"--help"},          {"--version"},
    };
    for (const std::vector<std::string>& call : calls) {
        const Result result = Kytm(call, full);
        EXPECT_EQ(result.status, 2) << call[0];
        EXPECT_NE(result.err.find("cannot write standard output"), std::string::npos) << call[0] << ": " << result.err;
    }
}

TEST(Terminal, ClosedPipeEndsSilently) {
    Surroundings closed;
    closed.output = OutputTo::closedPipe;
    closed.input = "2\n1\n";
    for (const std::vector<std::string>& call : {std::vector<std::string>{"types"}, {"sort", "o_4b"}}) {
        const Result result = Kytm(call, closed);
        EXPECT_EQ(result.status, 141) << call[0];
        EXPECT_EQ(result.err, "") << call[0];
    }
}

}  // namespace
