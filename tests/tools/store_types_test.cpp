/// Values of every type on the whole way: a CSV file, a store, queries, a dump, and from it another store in the other
/// byte order.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "kytypmgr.h"
#include "made_store.h"

namespace {

struct TypeTexts {
    const char* type;
    bool hasIndex;
    /// Pairwise unequal values as they are given, and as they are shown where that differs. "{NULL}" is shown as an
    /// empty field.
    std::vector<std::pair<const char*, const char*>> good;
    std::vector<const char*> bad;

    friend void PrintTo(const TypeTexts& of, std::ostream* out) { *out << of.type; }
};

const TypeTexts kTypes[] = {
    {"o_char", true, {{"a", "a"}, {" ", " "}, {",", ","}, {"\"", "\""}, {"0x41", "A"}, {"\x7F", "0x7f"}}, {"ab", "ä"}},
    {"o_2b", true, {{"-32768", ""}, {"0", ""}, {"32767", ""}}, {"32768", "-32769", "", "1.5", "{NULL}"}},
    {"o_4b", true, {{"-2147483648", ""}, {"2147483647", ""}}, {"2147483648", "x"}},
    {"o_double",
     true,
     {{"0.1", "0.10000000000000001"},
      {"0", "+0"},
      {"NaN", ""},
      {"Infinity", ""},
      {"-Infinity", ""},
      {"1e300", "1.0000000000000001e+300"}},
     {"1,5", "0x1p3", ""}},
    {"o_float", true, {{"0.1", "0.10000000149011612"}, {"-3.4028234663852886e+38", ""}, {"NaN", ""}}, {"x"}},
    {"o_u2b", true, {{"0", ""}, {"65535", ""}}, {"65536", "-1"}},
    {"o_u4b", true, {{"0", ""}, {"4294967295", ""}}, {"4294967296", "-1"}},
    {"int", true, {{"-2147483648", ""}, {"2147483647", ""}}, {"2147483648"}},
    {"unsigned", true, {{"0", ""}, {"4294967295", ""}}, {"-1"}},
    {"enum", true, {{"-1", ""}, {"5", ""}}, {"red"}},
    {"o_u1b", true, {{"a", ""}, {"0xff", ""}, {"0x00", ""}}, {"ab", "0x100"}},
    {"KyString",
     true,
     {{"{NULL}", ""},
      {"", ""},
      {"a", ""},
      {"A", ""},
      {"ä", ""},
      {"€uro", ""},
      {" a ", ""},
      {"a,\"b\"\r\nc", ""},
      {"\x01", ""}},
     {"{NULL} ", "\xC3", "𝄞"}},
    {"KyDate",
     true,
     {{"{NULL}", ""}, {"2024-2-29", "2024-02-29"}, {"-4713-11-24", ""}, {"9999-12-31", ""}, {"*-05-*", ""}},
     {"2023-02-29", "99999-01-01"}},
    {"KyTime", true, {{"{NULL}", ""}, {"00:00:00", ""}, {"23:59:60", ""}, {"*:30:*", ""}}, {"24:00:00", "12:00"}},
    {"BlockId", true, {{"#0", ""}, {"#4294967295", ""}}, {"#4294967296", "x"}},
    {"KyObjId",
     true,
     {{"{NULL}", ""}, {"(0-1#1)", ""}, {"(65535-4294967295#4294967295)", ""}},
     {"(0-1)", "(65536-1#1)"}},
    {"KyClassId", true, {{"{NULL}", ""}, {"(1v2)", ""}, {"(65534v65535)", ""}}, {"(1v65536)", "1"}},
    {"KyRef", true, {{"{NULL}", ""}, {"(1:2-3#4, 5)", ""}}, {"(1:2-3#4)"}},
    {"KyBlob", false, {{"{NULL}", ""}, {"", ""}, {"00FF", "00ff"}}, {"0", "zz", "@/nonexistent/file"}},
    {"KyDateTime",
     true,
     {{"{NULL}", ""},
      {"2016-12-31T23:59:60", ""},
      {"1582-10-04 00:00:00", "1582-10-04T00:00:00"},
      {"*-12-31T*:*:*", ""}},
     {"2016-12-31", "2016-12-31T24:00:00"}},
    {"KyIString", true, {{"", ""}, {"apfel", ""}, {"Zebra", ""}}, {"€", "\xC3"}},
    {"KyCaseIString", true, {{"", ""}, {"Äpfel", ""}, {"äpfel", ""}, {"zebra", ""}}, {"€", "\xC3"}},
    {"d_Date", true, {{"2024-02-29", ""}, {"0001-01-01", ""}, {"9999-12-31", ""}}, {"2023-02-29", "{NULL}", ""}},
    {"d_Time",
     false,
     {{"00:00:00", ""}, {"23:59:59", ""}, {"12:30:15.5", "12:30:15.500"}, {"12:30:14.25", "12:30:14.250"}},
     {"24:00:00", "12:30:15.999", "12:30:15.123456", "{NULL}"}},
    {"d_Timestamp",
     false,
     {{"1970-01-01T00:00:00", ""},
      {"2024-02-29T23:59:59.5", "2024-02-29T23:59:59.500"},
      {"9999-12-31T23:59:59", ""},
      {"0001-01-01T00:00:00", ""}},
     {"2024-02-29T23:59:59.123456789", "2023-02-29T00:00:00", "2024-02-29", "{NULL}"}},
    {"d_Interval",
     true,
     {{"0.00:00:00", ""}, {"12.03:04:05", ""}, {"1.0:0:0.5", "1.00:00:00.500"}, {"-1.00:00:00", ""}},
     {"24855.00:00:00", "99999.00:00:00", "0.00:00:59.999", "1.24:00:00", "{NULL}"}},
    {"KyInt64", true, {{"-9223372036854775808", ""}, {"0", ""}, {"9223372036854775807", ""}}, {"9223372036854775808"}},
    {"KyBoolean", true, {{"{NULL}", ""}, {"FALSE", ""}, {"TRUE", ""}}, {"perhaps", "True", "yes", ""}},
    {"KyNull_char", true, {{"{NULL}", ""}, {"a", ""}, {" ", ""}, {"0x41", "A"}, {"0x00", ""}, {",", ""}}, {"ab"}},
    {"KyNull_uchar", true, {{"{NULL}", ""}, {"a", ""}, {"0xff", ""}, {"\"", ""}}, {"ab"}},
    {"KyNull_short", true, {{"{NULL}", ""}, {"-32768", ""}, {"32767", ""}}, {"32768"}},
    {"KyNull_ushort", true, {{"{NULL}", ""}, {"0", ""}, {"65535", ""}}, {"-1"}},
    {"KyNull_int", true, {{"{NULL}", ""}, {"-2147483648", ""}, {"2147483647", ""}}, {"2147483648"}},
    {"KyNull_unsigned", true, {{"{NULL}", ""}, {"0", ""}, {"4294967295", ""}}, {"4294967296"}},
    {"KyNull_long", true, {{"{NULL}", ""}, {"-2147483648", ""}, {"2147483647", ""}}, {"2147483648"}},
    {"KyNull_ulong", true, {{"{NULL}", ""}, {"0", ""}, {"4294967295", ""}}, {"4294967296"}},
    {"KyNull_float", true, {{"{NULL}", ""}, {"0.5", ""}, {"NaN", ""}, {"-Infinity", ""}}, {"x"}},
    {"KyNull_double", true, {{"{NULL}", ""}, {"-0.5", ""}, {"NaN", ""}, {"-0", ""}}, {"x"}},
    {"KyNull_KyInt64", true, {{"{NULL}", ""}, {"-9223372036854775808", ""}, {"9223372036854775807", ""}}, {"x"}},
    {"KySeal", true, {{"0", ""}, {"281474976710655", ""}}, {"281474976710656", "-1"}},
    {"KyDateTimeN",
     true,
     {{"{NULL}", ""}, {"2024-05-31T23:59:59.999999999", ""}, {"2024-05-31T23:59:59", ""}},
     {"2024-05-31T23:59:59.1234567890"}},
    {"KyTimeSpan",
     true,
     {{"{NULL}", ""}, {"0.00:00:00", ""}, {"-1.12:00:00", ""}, {"999999.23:59:59.000000001", ""}},
     {"-0.12:00:00", "1.24:00:00", "99999999.00:00:00"}},
    {"o_8b", true, {{"-9223372036854775808", ""}, {"9223372036854775807", ""}}, {"9223372036854775808"}},
    {"o_u8b", true, {{"0", ""}, {"18446744073709551615", ""}}, {"18446744073709551616", "-1"}},
    {"KyNull_8b", true, {{"{NULL}", ""}, {"-9223372036854775808", ""}, {"9223372036854775807", ""}}, {"x"}},
    {"KyNull_u8b", true, {{"{NULL}", ""}, {"0", ""}, {"18446744073709551615", ""}}, {"x"}},
};

constexpr char kNull[] = "{NULL}";

/// What a value is shown as.
std::string Shown(const std::pair<const char*, const char*>& value) {
    return *value.second == '\0' ? value.first : value.second;
}

/// A field of CSV in quotes; the null has none.
std::string Field(const std::string& text) {
    if (text == kNull) return text;
    std::string field = "\"";
    for (const char c : text) field.append(c == '"' ? 2 : 1, c);
    return field + '"';
}

/// A field as a dump writes it.
std::string DumpedField(const std::string& text) {
    if (text == kNull) return "";
    return text.empty() || text.find_first_of(",\"\r\n") != std::string::npos ? Field(text) : text;
}

/// A constant of a query.
std::string Constant(const std::string& text) {
    std::string constant = "\"";
    for (const char c : text) constant.append(c == '"' ? 2 : 1, c);
    return constant + '"';
}

class StoreType : public ::testing::TestWithParam<TypeTexts> {
protected:
    const TypeTexts& of = GetParam();
    std::string schema = std::string("class Thing { number int\n one ") + of.type + (of.hasIndex ? " index" : "") +
                         "\n two " + of.type + "[2] }";
    std::string given = "number,one,two[0],two[1]\n";
    std::string dump = given;

    /// Each value stands in an attribute of its own, and with the one behind it in an array.
    StoreType() {
        for (std::size_t i = 0; i < of.good.size(); ++i) {
            const auto& here = of.good[i];
            const auto& next = of.good[(i + 1) % of.good.size()];
            const std::string number = std::to_string(i + 1) + ",";
            given.append(number).append(Field(here.first)).append(",").append(Field(next.first));
            given.append(",").append(Field(here.first)).append("\n");
            dump.append(number).append(DumpedField(Shown(here))).append(",").append(DumpedField(Shown(next)));
            dump.append(",").append(DumpedField(Shown(here))).append("\n");
        }
    }
};

TEST_P(StoreType, GoesInAndComesOutInBothByteOrders) {
    const std::string faultless = std::to_string(of.good.size()) + " objects, " +
                                  std::to_string(of.hasIndex ? of.good.size() : 0) + " index entries, 0 faults\n";
    for (const char* form : {"native", "reversed"}) {
        const MadeStore store(schema, {"--form", form});
        const Result loaded = store.Load(given);
        EXPECT_EQ(loaded.status, 0) << loaded.err;
        EXPECT_EQ(store.Run("check").out, faultless);
        const Result dumped = store.Run("dump");
        EXPECT_EQ(dumped.out, dump);

        const MadeStore copy(Kytm({"store", "dump", store.Path(), "--schema"}).out,
                             {"--form", std::string(form) == "native" ? "reversed" : "native"});
        EXPECT_EQ(copy.Load(dumped.out).status, 0);
        EXPECT_EQ(copy.Run("dump").out, dump);
        EXPECT_EQ(copy.Run("check").out, faultless);
    }
}

TEST_P(StoreType, IsFoundByItsValues) {
    for (const char* form : {"native", "reversed"}) {
        const MadeStore store(schema, {"--form", form});
        ASSERT_EQ(store.Load(given).status, 0);
        for (std::size_t i = 0; i < of.good.size(); ++i) {
            const std::string constant = Constant(of.good[i].first);
            const std::size_t before = (i + of.good.size() - 1) % of.good.size();
            const std::pair<std::string, std::size_t> queries[] = {{"one = " + constant + " exact", i},
                                                                   {"two[1] = " + constant + " exact", i},
                                                                   {"two[0] = " + constant + " exact", before}};
            for (const auto& [condition, object] : queries) {
                const Result found = store.Query("number from Thing where " + condition);
                EXPECT_EQ(found.out, "number\n" + std::to_string(object + 1) + "\n") << condition << found.err;
            }
        }
    }
}

TEST_P(StoreType, IsWrittenAsJsonAndAsATable) {
    const MadeStore store(schema);
    ASSERT_EQ(store.Load(given).status, 0);
    const nlohmann::json rows = nlohmann::json::parse(store.Query("Thing", {"--json"}).out);
    ASSERT_EQ(rows.size(), of.good.size());
    for (std::size_t i = 0; i < of.good.size(); ++i) {
        const nlohmann::json& one = rows[i]["one"];
        const std::string shown = Shown(of.good[i]);
        if (shown == kNull) {
            EXPECT_TRUE(one.is_null());
        } else if (one.is_string()) {
            EXPECT_EQ(one, shown);
        } else if (one.is_boolean()) {
            EXPECT_EQ(one, shown == "TRUE");
        } else if (one.is_number_integer()) {
            EXPECT_EQ(one, nlohmann::json::parse(shown == "+0" ? "0" : shown));
        } else {
            EXPECT_EQ(one.get<double>(), nlohmann::json::parse(shown).get<double>());
        }
        EXPECT_EQ(rows[i]["two"], nlohmann::json::array({rows[(i + 1) % rows.size()]["one"], one}));
    }
    EXPECT_EQ(LinesOf(store.Query("Thing", {}).out).size(), of.good.size() + 1);
}

TEST_P(StoreType, RefusesWhatIsNoValueOfIt) {
    const MadeStore store(schema);
    for (const char* bad : of.bad) {
        const Result load = store.Load("one\n" + Field(bad) + "\n");
        EXPECT_EQ(load.status, 1) << bad;
        EXPECT_TRUE(load.err.starts_with("kytm: standard input, line 2, column one: ")) << load.err;
        EXPECT_NE(load.err.find(std::string(" does not scan as ") + of.type + ": "), std::string::npos) << load.err;
        const Result query = store.Query("Thing where one = " + Constant(bad));
        EXPECT_EQ(query.status, 2) << bad;
        EXPECT_EQ(query.out, "");
        EXPECT_NE(query.err.find("this does not scan as one, which is of the type " + std::string(of.type) + ": "),
                  std::string::npos)
            << query.err;
    }
    EXPECT_EQ(store.Run("check").out, "0 objects, 0 index entries, 0 faults\n");
}

INSTANTIATE_TEST_SUITE_P(Types, StoreType, ::testing::ValuesIn(kTypes),
                         [](const auto& of) { return std::string(of.param.type); });

TEST(StoreTypes, NoneIsLeftOut) {
    constexpr unsigned newArray = 5;
    KyTypeMgr types(newArray);
    for (int id = 0; id < KyRES_T; ++id) {
        const std::string name = types.NameGet(static_cast<char>(id), nullptr);
        EXPECT_TRUE(std::ranges::any_of(kTypes, [&](const TypeTexts& of) { return name == of.type; })) << name;
    }
    const ScratchFolder folder;
    const Result illegal =
        KytmWith("class Thing { a illegal }", {"store", "create", folder.File("store"), "--schema", "-"});
    EXPECT_EQ(illegal.status, 2);
    EXPECT_TRUE(illegal.err.starts_with("kytm: standard input, line 1: there is no type \"illegal\"")) << illegal.err;
}

TEST(StoreTypes, EveryCharacterComesBack) {
    for (const char* type : {"o_char", "o_u1b", "KyNull_char", "KyNull_uchar"}) {
        std::string csv = "code\n";
        for (int code = 0; code < 256; ++code) {
            char text[8];
            std::snprintf(text, sizeof text, "0x%02x\n", static_cast<unsigned>(code));
            csv += text;
        }
        const std::string schema = std::string("class Thing { code ") + type + " index }";
        const MadeStore store(schema);
        ASSERT_EQ(store.Load(csv).out, "256 objects of Thing loaded\n");
        const std::string dump = store.Run("dump").out;
        const std::vector<std::string> lines = LinesOf(dump);
        EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), 257U) << type;
        const MadeStore copy(schema);
        ASSERT_EQ(copy.Load(dump).out, "256 objects of Thing loaded\n");
        EXPECT_EQ(copy.Run("dump").out, dump) << type;
    }
}

}  // namespace
