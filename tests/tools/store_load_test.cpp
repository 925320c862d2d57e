#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "made_store.h"

namespace {

constexpr char kThing[] = "class Thing { number o_2b index\n text KyString\n maybe KyNull_int\n samples o_4b[2] }";

std::string Content(const std::string& path) {
    std::ostringstream all;
    all << std::ifstream(path, std::ios::binary).rdbuf();
    return all.str();
}

TEST(StoreLoad, ReadsCsv) {
    struct {
        const char* what;
        const char* csv;
        const char* dump;  ///< behind the header line
    } const cases[] = {
        {"no rows", "number\n", ""},
        {"no line end at the end", "number\n7", "7,,,0,0\n"},
        {"columns in any order", "text,number\nx,1\n", "1,x,,0,0\n"},
        {"arrays", "samples[1],number,samples[0]\n4,1,3\n", "1,,,3,4\n"},
        {"attributes without a column", "text\nx\n", "0,x,,0,0\n"},
        {"quotes", "number,text\n\"1\",\"a,b\"\n2,\"a \"\"b\"\"\"\n", "1,\"a,b\",,0,0\n2,\"a \"\"b\"\"\",,0,0\n"},
        {"line ends in quotes", "text,number\n\"a\nb\r\nc\",3\n", "3,\"a\nb\r\nc\",,0,0\n"},
        {"returns at the line ends", "number,text\r\n1,x\r\n2,y\r\n", "1,x,,0,0\n2,y,,0,0\n"},
        {"empty lines", "\n\nnumber\n\n1\n\n\n2\n\n", "1,,,0,0\n2,,,0,0\n"},
        {"byte order mark", "\xEF\xBB\xBFnumber\n5\n", "5,,,0,0\n"},
        {"empty fields", "number,text,maybe\n1,,\n2,\"\",\"\"\n", "1,,,0,0\n2,\"\",,0,0\n"},
        {"null texts", "number,text,maybe\n1,{NULL},{NULL}\n", "1,,,0,0\n"},
        {"blanks belong to strings", "number,text\n1, x \n", "1, x ,,0,0\n"},
        {"beyond Latin-1", "number,text\n1,žluťoučký\n", "1,žluťoučký,,0,0\n"},
    };
    for (const auto& c : cases) {
        const MadeStore store(kThing);
        const Result result = store.Load(c.csv);
        EXPECT_EQ(result.status, 0) << c.what << ": " << result.err;
        EXPECT_EQ(store.Run("dump").out, std::string("number,text,maybe,samples[0],samples[1]\n") + c.dump) << c.what;
        EXPECT_EQ(store.Run("check").status, 0) << c.what;
    }
}

TEST(StoreLoad, HeaderLinesThatDoNotFitAreRefused) {
    const MadeStore store(kThing);
    const std::pair<const char*, const char*> cases[] = {
        {"", "standard input: there is no header line"},
        {"number,lenght\n", "standard input, line 1: Thing has no attribute \"lenght\"; nearest: "},
        {"number,number\n", "standard input, line 1: the column \"number\" is there twice"},
        {"number,,text\n", "standard input, line 1: a column has no name"},
        {"samples\n", "standard input, line 1: \"samples\" is an array: its columns are samples[0] to samples[1]"},
        {"samples[1]\n", "standard input, line 1: the column \"samples[0]\" is missing"},
        {"samples[2]\n", "standard input, line 1: Thing has no attribute \"samples[2]\""},
        {"number[0]\n", "standard input, line 1: Thing has no attribute \"number[0]\""},
        {"\nnum\"ber\n", "standard input, line 2, a quote stands where none can be"},
    };
    for (const auto& [csv, message] : cases) {
        const Result result = store.Load(csv);
        EXPECT_EQ(result.status, 2) << csv;
        EXPECT_TRUE(result.err.starts_with(std::string("kytm: ") + message)) << result.err;
    }
    EXPECT_NE(store.Load("number\n1\n", {}, "Thong").err.find("there is no class \"Thong\"; nearest: Thing"),
              std::string::npos);
    EXPECT_EQ(store.Load("number\n1\n", {}, "Thong").status, 2);
    EXPECT_EQ(store.Run("check").out, "0 objects, 0 index entries, 0 faults\n");
}

TEST(StoreLoad, ARowThatDoesNotScanIsReportedWithLineAndColumn) {
    const std::pair<const char*, const char*> cases[] = {
        {"number\n1\nx\n", "line 3, column number: \"x\" does not scan as o_2b: it is no number as a whole"},
        {"number\n\"\"\n", "line 2, column number: \"\" does not scan as o_2b: "},
        {"number\n70000\n",
         "line 2, column number: \"70000\" does not scan as o_2b: the number does not fit in the type"},
        {"text,number\n\"a\nb\",1\nc,x\n", "line 4, column number: \"x\" does not scan as o_2b: "},
        {"number,samples[0],samples[1]\n1,2,-\n", "line 2, column samples[1]: \"-\" does not scan as o_4b: "},
        {"number,text\n1\n", "line 2, it has 1 fields, the header line has 2"},
        {"number,text\n1,2,3\n", "line 2, it has 3 fields, the header line has 2"},
        {"number,text\n1,a\"b\n2,c\n", "line 2, a quote stands where none can be"},
        {"number,text\n1,\"ab\"c\n2,c\n", "line 2, a quote stands where none can be"},
        {"number,text\n1,x\n2,\"abc\n3,d\n", "line 3, a field in quotes that begins here does not end"},
        {"number,text\n1,\xFF\n", "line 2, column text: \"\\xFF\" does not scan as KyString: broken UTF-8 at byte 1"},
    };
    for (const auto& [csv, message] : cases) {
        const MadeStore store(kThing);
        const Result result = store.Load(csv);
        EXPECT_EQ(result.status, 1) << csv;
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with(std::string("kytm: standard input, ") + message)) << result.err;
        EXPECT_TRUE(result.err.ends_with("kytm: the load stops here: 0 objects of Thing loaded\n")) << result.err;
    }
}

TEST(StoreLoad, CommittedBatchesStayWhenTheLoadStops) {
    const MadeStore store(kThing);
    const Result result = store.Load("number\n1\n2\n3\n4\n5\nx\n7\n", {"--batch", "2"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.ends_with("the load stops here: 4 objects of Thing loaded\n")) << result.err;
    EXPECT_EQ(store.Query("number from Thing").out, "number\n1\n2\n3\n4\n");
    EXPECT_EQ(store.Run("check").out, "4 objects, 4 index entries, 0 faults\n");
}

TEST(StoreLoad, RejectsGoToAFileThatCanBeLoadedOnceMended) {
    const MadeStore store(kThing);
    const std::string csv = "number,text\n1,a\nx,\"b\nb\"\n2,c\"c\n3,d\n4\n5,\"e\"\"";
    const Result result = store.Load(csv, {"--reject", store.File("rejects"), "--batch", "1"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "2 objects of Thing loaded, 4 rows rejected\n");
    EXPECT_EQ(LinesOf(result.err).size(), 4U) << result.err;
    EXPECT_EQ(store.Query("number from Thing").out, "number\n1\n3\n");
    EXPECT_EQ(Content(store.File("rejects")), "number,text\nx,\"b\nb\"\n2,c\"c\n4\n5,\"e\"\"\n");

    EXPECT_EQ(store.Load("number\n8\n", {"--reject", store.File("rejects")}).status, 0);
    EXPECT_EQ(Content(store.File("rejects")), "");
    const Result nowhere = store.Load("number\n9\n", {"--reject", "/nonexistent/rejects"});
    EXPECT_EQ(nowhere.status, 2);
    EXPECT_NE(nowhere.err.find("cannot write \"/nonexistent/rejects\""), std::string::npos) << nowhere.err;
    EXPECT_EQ(store.Query("number from Thing").out, "number\n1\n3\n8\n");
}

TEST(StoreLoad, BlobsAreDigitsOrFiles) {
    const MadeStore store("class Thing { bytes KyBlob }");
    store.Write("picture", std::string("\x00\x01\xFFpicture", 10));
    EXPECT_EQ(store.Load("bytes\n0aFF\n@" + store.File("picture") + "\n\"\"\n").status, 0);
    EXPECT_EQ(store.Run("dump").out, "bytes\n0aff\n0001ff70696374757265\n\"\"\n");
    EXPECT_EQ(store.Query("Thing", {}).out, "bytes\n[BLOB,len=2]\n[BLOB,len=10]\n[BLOB,len=0]\n");
    for (const char* bad : {"0a0", "0g", "@/nonexistent/picture"}) {
        const Result result = store.Load(std::string("bytes\n") + bad + "\n");
        EXPECT_EQ(result.status, 1) << bad;
        EXPECT_NE(result.err.find("does not scan as KyBlob: "), std::string::npos) << result.err;
    }
}

TEST(StoreLoad, DatesAreReadExactly) {
    struct {
        const char* type;
        std::vector<const char*> good;  ///< and printed so, too
        std::vector<const char*> bad;
    } const cases[] = {
        {"KyDate",
         {"2024-02-29", "1500-02-29", "0004-02-29", "9999-12-31", "-4713-11-24", "*-05-*", "2024-*-31", "0000-00-00"},
         {"2023-02-29", "1900-02-29", "2024-13-01", "2024-00-01", "2024-04-31", "2024-05", "2024-05-07x", "x", " ",
          "20240507", "2024/05/07", "-0001-01-01", "99999-01-01", "*-02-30", "2024-05-07T00:00:00"}},
        {"KyTime",
         {"00:00:00", "23:59:60", "*:30:*"},
         {"24:00:00", "12:60:00", "12:00:61", "12:00", "-1:00:00", "1 pm"}},
        {"KyDateTime",
         {"2016-12-31T23:59:60", "*-12-31T*:59:00"},
         {"2016-12-31", "2016-12-31T24:00:00", "2016-02-30T00:00:00"}},
        {"KyDateTimeN",
         {"2024-05-31T23:59:59.999999999", "2024-05-31T00:00:00.290", "2024-05-31T00:00:59.000000001",
          "2024-05-31T01:02:03"},
         {"2024-05-31T23:59:59.", "2024-05-31T23:59:59.1234567890", "2024-05-31T23:59:59,5"}},
        {"KyTimeSpan",
         {"0.00:00:00", "12.03:04:05", "0.00:00:59.999999999", "999999.23:59:59"},
         {"12", "1:02:03", "1.24:00:00", "1.02:03", "99999999.00:00:00"}},
        {"d_Date", {"2024-02-29"}, {"2023-02-29", "tomorrow"}},
    };
    for (const auto& c : cases) {
        const MadeStore store(std::string("class Thing { at ") + c.type + " }");
        std::string csv = "at\n";
        for (const char* good : c.good) csv.append(good).append("\n");
        const Result result = store.Load(csv);
        EXPECT_EQ(result.status, 0) << c.type << ": " << result.err;
        EXPECT_EQ(store.Run("dump").out, csv);
        for (const char* bad : c.bad) EXPECT_EQ(store.Load(std::string("at\n") + bad + "\n").status, 1) << bad;
    }
    const MadeStore blank("class Thing { at KyDateTime }");
    EXPECT_EQ(blank.Load("at\n2024-5-7 1:02:03\n").status, 0);
    EXPECT_EQ(blank.Run("dump").out, "at\n2024-05-07T01:02:03\n");
}

TEST(StoreLoad, ShowsItsProgressOnATerminal) {
    const MadeStore store(kThing);
    Surroundings around;
    around.input = "number\n1\n";
    around.pause = std::chrono::milliseconds(1300);
    for (int i = 0; i < 600; ++i) around.lateInput += "2\n";
    around.errorsToTerminal = true;
    const Result result = Kytm({"store", "load", store.Path(), "Thing", "-"}, around);
    EXPECT_EQ(result.out, "601 objects of Thing loaded\n");
    EXPECT_NE(result.err.find("kytm: loading "), std::string::npos) << result.err;
    EXPECT_TRUE(result.err.ends_with("\r\033[K")) << result.err;
}

}  // namespace
