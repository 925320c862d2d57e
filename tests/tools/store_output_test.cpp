/// Rows as JSON, CSV and tables: whatever the values hold, another program can read them.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "made_store.h"

namespace {

TEST(StoreOutput, JsonHoldsEveryCharacter) {
    const MadeStore store("class Thing { text KyString\n raw KyString codeset 0\n letter o_char }");
    std::string csv = "text,raw,letter\n";
    std::vector<std::string> texts;
    for (int code = 1; code < 256; ++code) {
        // Of the code above 127 in UTF-8, and as a byte where the code set takes bytes as they stand.
        std::string text(1, static_cast<char>(code));
        if (code >= 128) text = {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
        texts.push_back(text);
        std::string raw(1, static_cast<char>(code));
        for (std::string* each : {&text, &raw})
            if (*each == "\"") *each = "\"\"";
        csv.append("\"").append(text).append("\",\"").append(raw).append("\",a\n");
    }
    const Result loaded = store.Load(csv);
    ASSERT_EQ(loaded.status, 0) << loaded.err;
    const nlohmann::json rows = nlohmann::json::parse(store.Query("Thing", {"--json"}).out);
    ASSERT_EQ(rows.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(rows[i]["text"], texts[i]) << i;
        EXPECT_EQ(rows[i]["raw"], texts[i]) << i;
    }
}

TEST(StoreOutput, JsonNumbersAreNumbers) {
    const MadeStore store("class Thing { real o_double\n maybe KyNull_float\n whole o_8b\n plain o_u8b }");
    ASSERT_EQ(store
                  .Load("real,maybe,whole,plain\n"
                        "0,,-9223372036854775808,18446744073709551615\n-0,0,0,0\n1e-7,-0,7,7\n1e300,NaN,8,8\n"
                        "-Infinity,Infinity,9,9\n")
                  .status,
              0);
    const Result result = store.Query("Thing", {"--json"});
    EXPECT_EQ(result.out,
              "[\n"
              "  {\"real\":0,\"maybe\":null,\"whole\":-9223372036854775808,\"plain\":18446744073709551615},\n"
              "  {\"real\":-0.0,\"maybe\":0,\"whole\":0,\"plain\":0},\n"
              "  {\"real\":1e-07,\"maybe\":-0.0,\"whole\":7,\"plain\":7},\n"
              "  {\"real\":1e+300,\"maybe\":\"NaN\",\"whole\":8,\"plain\":8},\n"
              "  {\"real\":\"-Infinity\",\"maybe\":\"Infinity\",\"whole\":9,\"plain\":9}\n"
              "]\n");
}

TEST(StoreOutput, AnAttributeOfTheIdentifiersNameHidesNothing) {
    const MadeStore store("class Thing { id o_4b\n samples o_2b[2] }");
    ASSERT_EQ(store.Load("id,samples[0],samples[1]\n7,1,2\n").status, 0);
    EXPECT_EQ(store.Query("Thing", {"--ids", "--csv"}).out, "object id,id,samples[0],samples[1]\n(0-1#1),7,1,2\n");
    EXPECT_EQ(store.Query("Thing", {"--ids", "--json"}).out,
              "[\n  {\"object id\":\"(0-1#1)\",\"id\":7,\"samples\":[1,2]}\n]\n");
    EXPECT_EQ(store.Query("samples from Thing", {"--ids", "--json"}).out,
              "[\n  {\"id\":\"(0-1#1)\",\"samples\":[1,2]}\n]\n");
}

TEST(StoreOutput, AColumnThatIsNamedTwice) {
    const MadeStore store("class Thing { number o_4b\n samples o_2b[2] }");
    ASSERT_EQ(store.Load("number,samples[0],samples[1]\n7,1,2\n8,3,4\n").status, 0);
    const std::string query = "samples, number, samples, number from Thing";
    EXPECT_EQ(store.Query(query, {"--json"}).out,
              "[\n  {\"samples\":[1,2],\"number\":7},\n  {\"samples\":[3,4],\"number\":8}\n]\n");
    EXPECT_EQ(store.Query(query).out,
              "samples[0],samples[1],number,samples[0],samples[1],number\n1,2,7,1,2,7\n3,4,8,3,4,8\n");
}

TEST(StoreOutput, ARowOfATableIsALine) {
    const MadeStore store("class Thing { text KyString\n raw KyString codeset 0\n number o_2b }");
    ASSERT_EQ(store.Load("text,raw,number\n\"a\nb\r\t\x1B[31m\",\xFF\xC3,5\nžluť,x,-30000\n").status, 0);
    EXPECT_EQ(store.Query("Thing", {}).out,
              "text                 raw       number\n"
              "a\\x0Ab\\x0D \\x1B[31m  \\xFF\\xC3       5\n"
              "žluť                 x         -30000\n");
}

}  // namespace
