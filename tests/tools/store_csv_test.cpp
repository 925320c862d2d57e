/// CSV files as other programs write them, and as they should not be.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "made_store.h"

namespace {

constexpr char kThing[] = "class Thing { number o_4b index\n text KyString index\n bytes KyBlob }";

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(StoreCsv, EveryLineEndEndsALine) {
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        const MadeStore store(kThing);
        std::string csv;
        for (const char* line : {"number,text", "1,a", "", "2,\"two", "lines\"", "x,c", "4,d\"d", "5,e", "6", "7,g"})
            csv.append(line).append(end);
        const Result load = store.Load(csv, {"--reject", store.File("rejects")});
        EXPECT_EQ(load.status, 1);
        EXPECT_EQ(load.out, "4 objects of Thing loaded, 3 rows rejected\n");
        EXPECT_EQ(
            load.err,
            "kytm: standard input, line 6, column number: \"x\" does not scan as o_4b: it is no number as a whole\n"
            "kytm: standard input, line 7, a quote stands where none can be\n"
            "kytm: standard input, line 9, it has 1 fields, the header line has 2\n");
        const std::string rejected = end == "\r" ? "\r\n" : end;
        EXPECT_EQ(Content(store.File("rejects")),
                  "number,text" + rejected + "x,c" + rejected + "4,d\"d" + rejected + "6" + rejected);
        EXPECT_EQ(store.Query("number, text from Thing").out,
                  "number,text\n1,a\n2,\"two" + end + "lines\"\n5,e\n7,g\n");
    }
}

TEST(StoreCsv, RowsAreTheSameWhereverThePiecesOfTheFileEnd) {
    // Pieces are 64 KiB; each kind of character comes to stand at their end.
    constexpr std::size_t piece = 65536;
    const std::string tail = "1,\"a\r\n\"\"b\"\"\",\r\n22,äö,\r3,c,\n";
    for (std::size_t back = 0; back <= tail.size(); ++back) {
        const MadeStore store(kThing);
        std::string csv = "number,text,bytes\n";
        const std::size_t blank = piece - back - csv.size();
        csv.append(blank, '\n').append(tail);
        const Result load = store.Load(csv);
        EXPECT_EQ(load.status, 0) << back << load.err;
        EXPECT_EQ(store.Query("number, text from Thing").out, "number,text\n1,\"a\r\n\"\"b\"\"\"\n22,äö\n3,c\n")
            << back;
    }
}

TEST(StoreCsv, LineNumbersCountTheLinesWithinFields) {
    const MadeStore store(kThing);
    const Result load = store.Load("number,text\n1,\"\n\n\n\"\n\n\"2\",\"a\nb\"\nx,\"c\nd\"\ny,e\n",
                                   {"--reject", store.File("rejects")});
    EXPECT_TRUE(load.err.starts_with("kytm: standard input, line 9, column number: \"x\" does not scan")) << load.err;
    EXPECT_NE(load.err.find("kytm: standard input, line 11, column number: \"y\" does not scan"), std::string::npos)
        << load.err;
    EXPECT_EQ(Content(store.File("rejects")), "number,text\nx,\"c\nd\"\ny,e\n");
}

TEST(StoreCsv, LongFields) {
    const MadeStore store(kThing);
    constexpr std::size_t longest = 65531;
    const std::string longText(longest, 'x');
    std::string digits;
    for (int i = 0; i < 300000; ++i) digits += "0123456789abcdef"[i % 16];
    EXPECT_EQ(store.Load("number,text,bytes\n1," + longText + "," + digits + "\n").status, 0);
    EXPECT_EQ(store.Run("dump").out, "number,text,bytes\n1," + longText + "," + digits + "\n");
    const Result tooLong = store.Load("number,text\n1,x" + longText + "\n");
    EXPECT_EQ(tooLong.status, 1);
    EXPECT_TRUE(tooLong.err.starts_with("kytm: standard input, line 2, column text: \"xxxx")) << tooLong.err;
    EXPECT_NE(tooLong.err.find("does not scan as KyString: it is longer than 65531 bytes\n"), std::string::npos)
        << tooLong.err;
    EXPECT_LT(tooLong.err.size(), 300U) << "the field is not repeated as a whole";
    EXPECT_EQ(store.Run("check").out, "1 objects, 2 index entries, 0 faults\n");
}

TEST(StoreCsv, BytesThatAreNoText) {
    const std::pair<std::string, const char*> cases[] = {
        {"\xC3(", "broken UTF-8 at byte 1"},
        {"a\xE2\x82", "broken UTF-8 at byte 2"},
        {"\xC0\x80", "broken UTF-8 at byte 1"},
        {"\xED\xA0\x80", "broken UTF-8 at byte 1"},
        {std::string("a\0b", 3), "it holds a zero byte"},
    };
    const MadeStore store(kThing);
    for (const auto& [text, fault] : cases) {
        const Result load = store.Load("number,text\n1," + text + "\n");
        EXPECT_EQ(load.status, 1);
        EXPECT_NE(load.err.find(std::string(" does not scan as KyString: ") + fault + "\n"), std::string::npos)
            << load.err;
        const Result number = store.Load("number\n" + text + "\n");
        EXPECT_EQ(number.status, 1);
        EXPECT_NE(number.err.find(" does not scan as o_4b: "), std::string::npos) << number.err;
    }
    const Result header = store.Load("\xFF\xFEn,x\n");
    EXPECT_EQ(header.status, 2);
    EXPECT_NE(header.err.find("Thing has no attribute \"\\xFF\\xFEn\""), std::string::npos) << header.err;
}

TEST(StoreCsv, FilesWithoutRows) {
    const MadeStore store(kThing);
    for (const char* nothing : {"", "\n\r\n\r", "\xEF\xBB\xBF"}) {
        const Result load = store.Load(nothing);
        EXPECT_EQ(load.status, 2);
        EXPECT_EQ(load.err, "kytm: standard input: there is no header line\n");
    }
    EXPECT_EQ(store.Load("number").out, "0 objects of Thing loaded\n");
    const Result missing = Kytm({"store", "load", store.Path(), "Thing", "/nonexistent/rows.csv"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.err, "kytm: cannot read \"/nonexistent/rows.csv\": No such file or directory\n");
    const Result directory = Kytm({"store", "load", store.Path(), "Thing", "/"});
    EXPECT_EQ(directory.status, 2);
    EXPECT_EQ(directory.err, "kytm: cannot read \"/\": Is a directory\n");
}

TEST(StoreCsv, ManyColumnsTooFewAndTooMany) {
    std::string schema = "class Thing {";
    std::string header;
    std::string row;
    for (int i = 0; i < 400; ++i) {
        const std::string number = std::to_string(i);
        schema.append(" a").append(number).append(" o_4b;");
        header.append(i == 0 ? "" : ",").append("a").append(number);
        row.append(i == 0 ? "" : ",").append(number);
    }
    const MadeStore store(schema + "}");
    const Result load = store.Load(header + "\n" + row + "\n" + row + ",400\n" + row.substr(0, row.rfind(',')) + "\n",
                                   {"--reject", store.File("rejects")});
    EXPECT_EQ(load.err,
              "kytm: standard input, line 3, it has 401 fields, the header line has 400\n"
              "kytm: standard input, line 4, it has 399 fields, the header line has 400\n");
    EXPECT_EQ(store.Run("dump").out, header + "\n" + row + "\n");
}

}  // namespace
