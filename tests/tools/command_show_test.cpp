#include <gtest/gtest.h>

#include <cstdio>
#include <nlohmann/json.hpp>

#include "run_program.h"

namespace {

using nlohmann::json;

json ShowJson(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "show");
    arguments.push_back("--json");
    const Result result = Kytm(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    return json::parse(result.out);
}

/// The last step of every number's hash.
unsigned HashOf(unsigned pattern) { return pattern * 1103515245U; }

std::string HexWord(unsigned word) {
    char text[9];
    std::snprintf(text, sizeof text, "%08X", word);
    return text;
}

struct NumberCase {
    const char* type;
    const char* text;
    const char* memory;
    const char* reversed;
    unsigned pattern;  ///< of which the hash is made
    const char* printed;
};

/// Patterns: signed numbers widened with their sign to 32 bits, 64-bit integers their low half, doubles both halves
/// combined by exclusive or.
const NumberCase kNumbers[] = {
    {"o_char", "A", "41", "41", 0x41, "A"},
    {"o_char", "0x41", "41", "41", 0x41, "A"},
    {"o_u1b", "0xFF", "FF", "FF", 0xFF, "0xff"},
    {"o_2b", "-2", "FE FF", "FF FE", 0xFFFFFFFE, "-2"},
    {"o_u2b", "65535", "FF FF", "FF FF", 0xFFFF, "65535"},
    {"o_4b", "42", "2A 00 00 00", "00 00 00 2A", 42, "42"},
    {"int", "-1", "FF FF FF FF", "FF FF FF FF", 0xFFFFFFFF, "-1"},
    {"unsigned", "4294967295", "FF FF FF FF", "FF FF FF FF", 0xFFFFFFFF, "4294967295"},
    {"enum", "16909060", "04 03 02 01", "01 02 03 04", 0x01020304, "16909060"},
    {"BlockId", "#7", "07 00 00 00", "00 00 00 07", 7, "#7"},
    {"o_8b", "-1", "FF FF FF FF FF FF FF FF", "FF FF FF FF FF FF FF FF", 0xFFFFFFFF, "-1"},
    {"o_u8b", "18446744073709551615", "FF FF FF FF FF FF FF FF", "FF FF FF FF FF FF FF FF", 0xFFFFFFFF,
     "18446744073709551615"},
    {"KyInt64", "72623859790382856", "08 07 06 05 04 03 02 01", "05 06 07 08 01 02 03 04", 0x05060708,
     "72623859790382856"},
    {"KyBoolean", "true", "01", "01", 1, "TRUE"},
    {"o_double", "1", "00 00 00 00 00 00 F0 3F", "3F F0 00 00 00 00 00 00", 0x3FF00000, "1"},
    {"o_float", "1", "00 00 80 3F", "3F 80 00 00", 0x3F800000, "1"},
};

TEST(Show, BytesHashAndTextOfNumbers) {
    for (const NumberCase& number : kNumbers) {
        const json block = ShowJson({number.type, number.text})[0];
        EXPECT_EQ(block["type"], number.type);
        EXPECT_EQ(block["given"], number.text);
        EXPECT_EQ(block["scanned"], true);
        EXPECT_EQ(block["null"], false);
        EXPECT_EQ(block["memory"]["bytes"], number.memory) << number.type;
        EXPECT_EQ(block["stored"][0]["form"], 1);
        EXPECT_EQ(block["stored"][0]["bytes"], number.memory) << number.type;
        EXPECT_EQ(block["stored"][1]["form"], 2);
        EXPECT_EQ(block["stored"][1]["bytes"], number.reversed) << number.type;
        EXPECT_EQ(block["stored"][1]["size"], block["memory"]["size"]) << number.type;
        EXPECT_EQ(block["hash"], HexWord(HashOf(number.pattern))) << number.type;
        EXPECT_EQ(block["sameHashInAllForms"], true) << number.type;
        EXPECT_EQ(block["texts"][0]["text"], number.printed) << number.type;
        EXPECT_EQ(block["texts"][0]["comesBack"], true) << number.type;
    }
}

TEST(Show, StringHasRecordsInBothByteOrders) {
    const json block = ShowJson({"KyString", "abc"})[0];
    EXPECT_EQ(block["memory"]["size"], 16);
    const std::string native = block["stored"][0]["bytes"];
    const std::string reversed = block["stored"][1]["bytes"];
    ASSERT_EQ(native.size(), 9 * 3 - 1U);
    EXPECT_EQ(native.substr(0, 6), "07 00 ");
    EXPECT_EQ(reversed.substr(0, 6), "00 07 ");
    EXPECT_EQ(native.substr(12), "61 62 63 00 FF");
    EXPECT_EQ(reversed.substr(6), native.substr(6));
    EXPECT_EQ(block["texts"][0]["text"], "abc");
    EXPECT_EQ(block["texts"][0]["comesBack"], true);
    EXPECT_EQ(block["sameHashInAllForms"], true);
}

TEST(Show, NullStringIsSaidToBeNull) {
    const json block = ShowJson({"KyString", "{NULL}"})[0];
    EXPECT_EQ(block["null"], true);
    EXPECT_EQ(block["texts"][0]["text"], "{NULL}");
    EXPECT_EQ(block["hash"], HexWord(HashOf(0xFEFE7575)));
    const std::string native = block["stored"][0]["bytes"];
    EXPECT_EQ(native.substr(0, 5), "04 00");
    EXPECT_EQ(native.substr(9), "FE 00 FF");
    EXPECT_EQ(ShowJson({"KyString", ""})[0]["null"], false);
}

TEST(Show, HumanBlockOfANumber) {
    const Result result = Kytm({"show", "o_4b", "42"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "o_4b \"42\"\n"
              "  memory      4 bytes  2A 00 00 00\n"
              "  form 1      4 bytes  2A 00 00 00\n"
              "  form 2      4 bytes  00 00 00 2A\n"
              "  hash    " +
                  HexWord(HashOf(42)) +
                  "  the same in all forms\n"
                  "  text    %ld  \"42\"  comes back equal\n");
}

TEST(Show, OneBlockAValueWithABlankLineBetween) {
    const Result result = Kytm({"show", "o_2b", "1", "-2", "3"});
    EXPECT_EQ(result.status, 0);
    const std::vector<std::string> lines = LinesOf(result.out);
    ASSERT_EQ(lines.size(), 3 * 6 + 2U);
    EXPECT_EQ(lines[0], "o_2b \"1\"");
    EXPECT_EQ(lines[6], "");
    EXPECT_EQ(lines[7], "o_2b \"-2\"");
    EXPECT_EQ(lines[14], "o_2b \"3\"");
    EXPECT_EQ(ShowJson({"o_2b", "1", "-2", "3"}).size(), 3U);
}

TEST(Show, FormatScansAndPrints) {
    const json block = ShowJson({"o_4b", "ff", "--format", "%x"})[0];
    EXPECT_EQ(block["memory"]["bytes"], "FF 00 00 00");
    ASSERT_EQ(block["texts"].size(), 2U);
    EXPECT_EQ(block["texts"][0]["format"], "%x");
    EXPECT_EQ(block["texts"][0]["text"], "ff");
    EXPECT_EQ(block["texts"][1]["format"], "%ld");
    EXPECT_EQ(block["texts"][1]["text"], "255");
    const json real = ShowJson({"o_double", "0.125", "--format=%.2f"})[0];
    EXPECT_EQ(real["texts"][0]["text"], "0.12");
    EXPECT_EQ(real["texts"][0]["comesBack"], false);
    EXPECT_EQ(real["texts"][1]["comesBack"], true);
}

TEST(Show, FormatThatDoesNotFitIsRefused) {
    const std::pair<const char*, const char*> refused[] = {
        {"o_4b", "%s"},   {"o_4b", "%n"},    {"o_4b", "%d %d"},      {"o_4b", "%*d"},
        {"o_4b", "none"}, {"o_4b", "%.2f"},  {"o_double", "%d"},     {"o_double", "%p"},
        {"o_4b", "%S"},   {"KyInt64", "%u"}, {"o_double", "ldexp("}, {"o_char", "%s"},
    };
    for (const auto& [type, format] : refused) {
        const Result result = Kytm({"show", type, "1", "--format", format});
        EXPECT_EQ(result.status, 2) << type << ' ' << format;
        EXPECT_EQ(result.out, "") << type << ' ' << format;
        EXPECT_NE(result.err.find("does not fit the type"), std::string::npos) << result.err;
    }
}

TEST(Show, TextThatDoesNotScanIsReportedAndTheOthersShown) {
    const Result result = Kytm({"show", "o_4b", "1", "x", "3"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(LinesOf(result.out).size(), 2 * 6 + 1U);
    EXPECT_NE(result.err.find("\"x\" does not scan as o_4b"), std::string::npos) << result.err;
}

TEST(Show, JsonSaysWhichTextDidNotScan) {
    const Result result = Kytm({"show", "o_4b", "1", "x", "--json"});
    EXPECT_EQ(result.status, 1);
    const json list = json::parse(result.out);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["scanned"], true);
    EXPECT_EQ(list[1]["scanned"], false);
    EXPECT_EQ(list[1]["given"], "x");
    EXPECT_TRUE(list[1].contains("reason"));
    EXPECT_FALSE(list[1].contains("memory"));
}

TEST(Show, JsonIsUtf8WhateverTheBytes) {
    EXPECT_EQ(ShowJson({"KyString", "caf\xE9"})[0]["given"], "caf\xC3\xA9");
    EXPECT_EQ(ShowJson({"KyString", "caf\xC3\xA9"})[0]["given"], "caf\xC3\xA9");
}

TEST(Show, ControlCharactersDoNotReachTheTerminal) {
    const Result result = Kytm({"show", "KyString", "a\x1B[31mb\"\\"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.find('\x1B'), std::string::npos);
    EXPECT_NE(result.out.find("\"a\\x1B[31mb\\\"\\\\\""), std::string::npos) << result.out;
}

TEST(Show, TakesTextsThatLookLikeOptionsOrLists) {
    EXPECT_EQ(ShowJson({"o_double", "-.5"})[0]["texts"][0]["text"], "-0.5");
    EXPECT_EQ(ShowJson({"o_double", "-Infinity"})[0]["texts"][0]["text"], "-Infinity");
    EXPECT_EQ(ShowJson({"KyString", "[a,b]", "{}", "+"}).size(), 3U);
    EXPECT_EQ(ShowJson({"KyString", "[a,b]"})[0]["texts"][0]["text"], "[a,b]");
    const Result behindDashes = Kytm({"show", "KyString", "--json", "--", "--help"});
    EXPECT_EQ(behindDashes.status, 0) << behindDashes.err;
    EXPECT_EQ(json::parse(behindDashes.out)[0]["given"], "--help");
}

TEST(Show, NeedsATypeAndAValue) {
    EXPECT_EQ(Kytm({"show"}).status, 2);
    const Result result = Kytm({"show", "o_4b"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("VALUE"), std::string::npos) << result.err;
}

}  // namespace
