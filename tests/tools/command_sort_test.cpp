#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "run_program.h"

namespace {

struct Case {
    const char* what;
    std::vector<std::string> arguments;
    std::string input;
    std::string output;
};

TEST(Sort, OrdersLinesAsValues) {
    const Case cases[] = {
        {"whole numbers", {"o_4b"}, "10\n9\n-3\n0\n", "-3\n0\n9\n10\n"},
        {"signs", {"o_char"}, "A\n0x80\n0x7f\n", "0x80\nA\n0x7f\n"},
        {"no signs", {"o_u1b"}, "A\n0x80\n0x7f\n", "A\n0x7f\n0x80\n"},
        {"64 bits",
         {"o_u8b"},
         "18446744073709551615\n9223372036854775808\n1\n",
         "1\n9223372036854775808\n18446744073709551615\n"},
        {"reals", {"o_double"}, "1e3\nInfinity\n-1\nNaN\n-Infinity\n0.5\n", "NaN\n-Infinity\n-1\n0.5\n1e3\nInfinity\n"},
        {"strings", {"KyString"}, "b\nB\na\nab\n'\n7\n", "'\n7\na\nab\nB\nb\n"},
        {"stable", {"o_4b"}, "07\n2\n7\n+7\n", "2\n07\n7\n+7\n"},
        {"reverse keeps equal lines in order", {"o_4b", "--reverse"}, "07\n2\n7\n9\n+7\n", "9\n07\n7\n+7\n2\n"},
        {"unique keeps the first", {"o_4b", "--unique"}, "7\n2\n07\n2\n", "2\n7\n"},
        {"unique and reverse", {"o_4b", "--unique", "--reverse"}, "7\n2\n07\n2\n", "7\n2\n"},
        {"nulls come first", {"KyString"}, "b\n{NULL}\n\na\n", "{NULL}\n\na\nb\n"},
        {"nulls last", {"KyString", "--null-last"}, "b\n{NULL}\na\n", "a\nb\n{NULL}\n"},
        {"nulls last in reverse", {"KyString", "--null-last", "--reverse"}, "b\n{NULL}\na\n", "b\na\n{NULL}\n"},
        {"nulls in reverse", {"KyString", "--reverse"}, "b\n{NULL}\na\n", "b\na\n{NULL}\n"},
        {"truth values", {"KyBoolean"}, "t\n{NULL}\nno\n", "{NULL}\nno\nt\n"},
        {"truth values, nulls last", {"KyBoolean", "--null-last"}, "t\n{NULL}\nno\n", "no\nt\n{NULL}\n"},
        {"truth values, nulls last in reverse",
         {"KyBoolean", "--null-last", "--reverse"},
         "no\n{NULL}\nt\n",
         "t\nno\n{NULL}\n"},
        {"unique truth values",
         {"KyBoolean", "--unique", "--print"},
         "t\nno\n{NULL}\n1\n{NULL}\n",
         "{NULL}\nFALSE\nTRUE\n"},
        {"64-bit integers",
         {"KyInt64"},
         "9223372036854775807\n-1\n4294967296\n",
         "-1\n4294967296\n9223372036854775807\n"},
        {"one null is enough", {"KyString", "--null-last", "--unique"}, "{NULL}\na\n{NULL}\n", "a\n{NULL}\n"},
        {"blanks around numbers", {"o_4b"}, " 3\n2 \n\t1\n", "\t1\n2 \n 3\n"},
        {"values instead of lines", {"o_4b", "--print"}, " 007\n+2\n", "2\n7\n"},
        {"format", {"o_4b", "--format", "%x"}, "ff\n1F\n0x2\n", "0x2\n1F\nff\n"},
        {"format and values", {"o_4b", "--format", "%x", "--print"}, "FF\n1F\n", "1f\nff\n"},
        {"standard input by name", {"o_4b", "-"}, "2\n1\n", "1\n2\n"},
        {"nothing", {"o_4b"}, "", ""},
        {"one empty string", {"KyString"}, "\n", "\n"},
        {"no line end at the end", {"o_4b"}, "2\n1", "1\n2\n"},
        {"line ends with returns", {"o_4b"}, "2\r\n1\r\n", "1\r\n2\r\n"},
        {"returns, none at the end", {"o_4b"}, "2\r\n1", "1\r\n2\r\n"},
        {"mixed line ends stay with their lines", {"o_4b"}, "2\r\n1\n", "1\n2\r\n"},
        {"return within a line", {"KyString"}, "b\rx\na\n", "a\nb\rx\n"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments = {"sort"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const Result result = KytmWith(c.input, arguments);
        EXPECT_EQ(result.status, 0) << c.what << ": " << result.err;
        EXPECT_EQ(result.out, c.output) << c.what;
        EXPECT_EQ(result.err, "") << c.what;
    }
}

TEST(Sort, OperatorChoosesTheOrderOfStrings) {
    EXPECT_EQ(KytmWith("a\nB\nA\nb\n", {"sort", "KyString", "--op", "exact,ignore-case", "--unique"}).out, "a\nB\n");
    // Without an exact bit "*" would match everything: it is an ordinary symbol all the same.
    EXPECT_EQ(KytmWith("b\na\n*\n", {"sort", "KyString", "--op", "ignore-case"}).out, "*\na\nb\n");
    EXPECT_EQ(KytmWith("1\n", {"sort", "KyString", "--op", "fuzzy"}).status, 2);
}

TEST(Sort, LineThatDoesNotScanIsReportedAndNothingElseIsLost) {
    const Result result = KytmWith("3\nx\n1\n\n12abc\n2\n", {"sort", "o_4b"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "1\n2\n3\n");
    const std::vector<std::string> reports = LinesOf(result.err);
    ASSERT_EQ(reports.size(), 3U) << result.err;
    EXPECT_TRUE(reports[0].starts_with("kytm: standard input, line 2: \"x\" does not scan as o_4b: ")) << reports[0];
    EXPECT_TRUE(reports[1].starts_with("kytm: standard input, line 4: \"\" does not scan")) << reports[1];
    EXPECT_TRUE(reports[2].starts_with("kytm: standard input, line 5: \"12abc\" does not scan")) << reports[2];
}

TEST(Sort, ReportsNameTheFile) {
    const TemporaryFile file("2\nx\n1\n");
    const Result result = Kytm({"sort", "o_4b", file.Path()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "1\n2\n");
    EXPECT_TRUE(result.err.starts_with("kytm: " + file.Path() + ", line 2: ")) << result.err;
}

TEST(Sort, StringTooLongForAValueIsReported) {
    const std::string longest(65531, 'x');
    const Result result = KytmWith("b\n" + longest + "\n" + longest + "y\na\n", {"sort", "KyString"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.out == "a\nb\n" + longest + "\n");
    EXPECT_NE(result.err.find("line 3"), std::string::npos);
    EXPECT_NE(result.err.find("longer than 65531 bytes"), std::string::npos);
    EXPECT_LT(result.err.size(), 300U);
}

TEST(Sort, ZeroByteIsReported) {
    const Result result = KytmWith(std::string("b\na\0c\n", 6), {"sort", "KyString"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "b\n");
    EXPECT_NE(result.err.find("zero byte"), std::string::npos) << result.err;
}

TEST(Sort, FileThatCannotBeReadFails) {
    for (const char* path : {"/nonexistent/file", "/"}) {
        const Result result = Kytm({"sort", "o_4b", path});
        EXPECT_EQ(result.status, 2) << path;
        EXPECT_EQ(result.out, "") << path;
        EXPECT_NE(result.err.find("cannot read"), std::string::npos) << result.err;
    }
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

TEST(Sort, ManyNumbersAgainstTheStandardLibrary) {
    std::mt19937 random(20240507);
    std::vector<std::string> lines;
    for (int i = 0; i < 200000; ++i)
        lines.push_back(std::to_string(static_cast<int>(random()) / (i % 2 == 0 ? 1 : 100000)));
    std::vector<std::string> expected = lines;
    std::stable_sort(expected.begin(), expected.end(),
                     [](const std::string& a, const std::string& b) { return std::stoi(a) < std::stoi(b); });
    const TemporaryFile file(Joined(lines));
    const Result result = Kytm({"sort", "int", file.Path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out == Joined(expected));
}

TEST(Sort, EqualValuesStayInOrder) {
    std::mt19937 random(7);
    std::vector<std::string> lines;
    for (int i = 0; i < 20000; ++i) lines.push_back(std::string(random() % 5, '0') + std::to_string(random() % 50));
    std::vector<std::string> expected = lines;
    std::stable_sort(expected.begin(), expected.end(),
                     [](const std::string& a, const std::string& b) { return std::stoi(a) > std::stoi(b); });
    const Result result = KytmWith(Joined(lines), {"sort", "o_u2b", "--reverse"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out == Joined(expected));
}

TEST(Sort, NeedsAType) { EXPECT_EQ(Kytm({"sort"}).status, 2); }

}  // namespace
