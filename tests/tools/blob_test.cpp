// Blobs, whose text is hexadecimal digits or the name of a file, and seals, whose row has no number's format.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "run_program.h"

namespace {

nlohmann::json ShowJson(const std::string& type, const std::string& text) {
    const Result result = Kytm({"show", type, "--json", "--", text});
    EXPECT_EQ(result.status, 0) << result.err;
    return nlohmann::json::parse(result.out)[0];
}

TEST(Blobs, AreShown) {
    const nlohmann::json blob = ShowJson("KyBlob", "00fF41");
    EXPECT_EQ(blob["null"], false);
    EXPECT_EQ(blob["stored"][0]["bytes"], "07 00 00 00 03 00 00 00 00 FF 41");
    EXPECT_EQ(blob["stored"][1]["bytes"], "00 00 00 07 00 00 00 03 00 FF 41");
    EXPECT_EQ(blob["sameHashInAllForms"], false);
    EXPECT_EQ(blob["texts"][0]["text"], "[BLOB,len=3]");
    EXPECT_EQ(ShowJson("KyBlob", "")["stored"][0]["bytes"], "04 00 00 00 00 00 00 00");
    const nlohmann::json null = ShowJson("KyBlob", "{NULL}");
    EXPECT_EQ(null["null"], true);
    EXPECT_EQ(null["stored"][0]["bytes"], "04 00 00 00 FF FF FF FF");
}

TEST(Blobs, OfFilesAreTheirBytes) {
    const TemporaryFile file(std::string("a\0\n\xFF", 4));
    EXPECT_EQ(ShowJson("KyBlob", "@" + file.Path())["stored"][0]["bytes"], "08 00 00 00 04 00 00 00 61 00 0A FF");
    const TemporaryFile empty("");
    EXPECT_EQ(ShowJson("KyBlob", "@" + empty.Path())["stored"][0]["bytes"], "04 00 00 00 00 00 00 00");
    // Longer than any text that could be scanned.
    const TemporaryFile large(std::string(200000, 'x'));
    EXPECT_EQ(ShowJson("KyBlob", "@" + large.Path())["stored"][0]["size"], 200008);
    EXPECT_EQ(KytmWith("abc", {"cmp", "KyBlob", "@-", "616263"}).out, "=  result 0  err 0\n");
}

TEST(Blobs, OfFilesThatCannotBeReadEndTheProgram) {
    const Result result = Kytm({"show", "KyBlob", "@/no such file"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("cannot read"), std::string::npos) << result.err;
}

TEST(Blobs, OtherTextsAreRefused) {
    for (const char* text : {"0", "0g", "0x00", " 00", "00 ", "@", "abc", "{NULL} and more"}) {
        EXPECT_EQ(Kytm({"show", "KyBlob", "--", text}).status, 1) << text;
    }
    const Result result = Kytm({"show", "KyBlob", "0g"});
    EXPECT_NE(result.err.find("it is no row of pairs of hexadecimal digits"), std::string::npos) << result.err;
}

TEST(Blobs, AreCompared) {
    EXPECT_EQ(Kytm({"cmp", "KyBlob", "7f", "80"}).out, "<  result -1  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyBlob", "00ff", "00"}).out, ">  result 1  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyBlob", "{NULL}", ""}).out, "<  result -1  err 0\n");
    EXPECT_EQ(Kytm({"cmp", "KyBlob", "aB", "Ab"}).out, "=  result 0  err 0\n");
}

TEST(Blobs, AreSorted) {
    const Result result = KytmWith("ff\n00ff\nno\n{NULL}\n\n80\n00FF\n", {"sort", "KyBlob"});
    EXPECT_EQ(result.status, 1) << "of the line that is no blob";
    EXPECT_EQ(result.out, "{NULL}\n\n00ff\n00FF\n80\nff\n");
    EXPECT_EQ(KytmWith("ff\n00\n{NULL}\n", {"sort", "KyBlob", "--null-last", "--print"}).out,
              "[BLOB,len=1]\n[BLOB,len=1]\n{NULL}\n");
}

TEST(Blobs, LinesNameNoFiles) {
    const TemporaryFile file("x");
    EXPECT_EQ(KytmWith("@" + file.Path() + "\n", {"sort", "KyBlob"}).status, 1);
}

TEST(Seals, AreShownComparedAndSorted) {
    const nlohmann::json seal = ShowJson("KySeal", "8590131204");
    EXPECT_EQ(seal["memory"]["bytes"], "02 00 03 00 04 00");
    EXPECT_EQ(seal["stored"][0]["bytes"], "00 02 00 03 00 04");
    EXPECT_EQ(seal["stored"][1]["bytes"], "00 02 00 03 00 04");
    EXPECT_EQ(seal["sameHashInAllForms"], true);
    EXPECT_EQ(seal["texts"][0]["text"], "8590131204");
    EXPECT_EQ(seal["texts"][0]["comesBack"], true);
    EXPECT_EQ(Kytm({"cmp", "KySeal", "4294967296", "4294967295"}).out, ">  result 1  err 0\n");
    EXPECT_EQ(KytmWith("10\n9\n281474976710655\n0\n", {"sort", "KySeal"}).out, "0\n9\n10\n281474976710655\n");
}

TEST(Seals, OnlyNumbersOf48BitsAreRead) {
    for (const char* text : {"0", "007", "5 ", "281474976710655", "-0"}) {
        EXPECT_EQ(Kytm({"show", "KySeal", "--", text}).status, 0) << text;
    }
    for (const char* text : {"", "x", "5x", " 5", "+5", "-1", "281474976710656", "99999999999999999999", "{NULL}"}) {
        EXPECT_EQ(Kytm({"show", "KySeal", "--", text}).status, 1) << text;
    }
}

}  // namespace
