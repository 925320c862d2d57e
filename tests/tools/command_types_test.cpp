#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_program.h"

namespace {

using nlohmann::json;

struct TypeLine {
    int id;
    const char* name;
    const char* codeName;
    const char* format;
    bool isFixed;
    unsigned size;
    bool hasNull;
};

const TypeLine kTypes[] = {
    {0, "o_char", "Ky1B_T", "%c", true, 1, false},
    {1, "o_2b", "Ky2B_T", "%hd", true, 2, false},
    {2, "o_4b", "Ky4B_T", "%ld", true, 4, false},
    {3, "o_double", "KyDOUBLE_T", "%.17g", true, 8, false},
    {4, "o_float", "KyFLOAT_T", "%.17g", true, 4, false},
    {5, "o_u2b", "KyU2B_T", "%hu", true, 2, false},
    {6, "o_u4b", "KyU4B_T", "%lu", true, 4, false},
    {7, "int", "KyINT_T", "%d", true, 4, false},
    {8, "unsigned", "KyUNSIGNED_T", "%u", true, 4, false},
    {9, "enum", "KyENUM_T", "%d", true, 4, false},
    {10, "o_u1b", "KyU1B_T", "%c", true, 1, false},
    {11, "KyString", "KySTRING_T", "%s", false, 16, true},
    {12, "KyDate", "KyDATE_T", "%a %e.%b %Y", true, 4, true},
    {13, "KyTime", "KyTIME_T", "%I:%M:%S %p", true, 3, true},
    {14, "BlockId", "KyBLOCKID_T", "#%lu", true, 4, false},
    {15, "KyObjId", "KyOBJID_T", "(%H-%L#%B)", true, 12, true},
    {16, "KyClassId", "KyCLID_T", "(%Cv%V)", true, 4, true},
    {17, "KyRef", "KyREF_T", "(%D:%H-%L#%B, %C)", true, 16, true},
    {18, "KyBlob", "KyBLOB_T", "[BLOB,len=%L]", false, 8, true},
    {19, "KyDateTime", "KyDATIME_T", "%a %e.%b %Y %I:%M:%S %p", true, 8, true},
    {20, "KyIString", "KyISTRING_T", "%s", false, 16, false},
    {21, "KyCaseIString", "KyCASEISTRING_T", "%s", false, 16, false},
    {22, "d_Date", "D_DATE_T", "%a %b %e", true, 4, false},
    {23, "d_Time", "D_TIME_T", "%I:%M:%S %p", true, 6, false},
    {24, "d_Timestamp", "D_TIMESTAMP_T", "%a %b %e %I:%M:%S %p", true, 10, false},
    {25, "d_Interval", "D_INTERVAL_T", "%e days, %I hours, %M minutes, %S seconds", true, 4, false},
    {26, "KyInt64", "KyINT64_T", "%S", true, 8, false},
    {27, "KyBoolean", "KyBOOLEAN_T", "noop", true, 1, true},
    {28, "KyNull_char", "KyNULL_1B_T", "%c", true, 2, true},
    {29, "KyNull_uchar", "KyNULL_U1B_T", "%c", true, 2, true},
    {30, "KyNull_short", "KyNULL_2B_T", "%hd", true, 4, true},
    {31, "KyNull_ushort", "KyNULL_U2B_T", "%hu", true, 4, true},
    {32, "KyNull_int", "KyNULL_INT_T", "%d", true, 8, true},
    {33, "KyNull_unsigned", "KyNULL_UNSIGNED_T", "%u", true, 8, true},
    {34, "KyNull_long", "KyNULL_4B_T", "%ld", true, 8, true},
    {35, "KyNull_ulong", "KyNULL_U4B_T", "%lu", true, 8, true},
    {36, "KyNull_float", "KyNULL_FLOAT_T", "%.17g", true, 8, true},
    {37, "KyNull_double", "KyNULL_DOUBLE_T", "%.17g", true, 16, true},
    {38, "KyNull_KyInt64", "KyNULL_KYINT64_T", "%S", true, 12, true},
    {39, "KySeal", "KySEAL_T", "noop", true, 6, false},
    {40, "KyDateTimeN", "KyDATIME_N_T", "%X", true, 12, true},
    {41, "KyTimeSpan", "KyTIMESPAN_T", "%V", true, 12, true},
    {42, "o_8b", "Ky8B_T", "%lld", true, 8, false},
    {43, "o_u8b", "KyU8B_T", "%llu", true, 8, false},
    {44, "KyNull_8b", "KyNULL_8B_T", "%lld", true, 16, true},
    {45, "KyNull_u8b", "KyNULL_U8B_T", "%llu", true, 16, true},
    {46, "illegal", "KyRES_T", "illegal", true, 0, false},
};

bool IsCounter(int id) {
    return (id >= 0 && id <= 2) || (id >= 5 && id <= 10) || id == 15 || id == 26 || id == 42 || id == 43;
}

bool IsTimeStamp(int id) { return id == 12 || id == 13 || id == 19 || (id >= 22 && id <= 24) || id == 40; }

TEST(Types, JsonListsEveryType) {
    const Result result = Kytm({"types", "--json"});
    ASSERT_EQ(result.status, 0) << result.err;
    const json list = json::parse(result.out);
    ASSERT_EQ(list.size(), std::size(kTypes));
    for (const TypeLine& type : kTypes) {
        const json& entry = list[static_cast<std::size_t>(type.id)];
        EXPECT_EQ(entry["id"], type.id);
        EXPECT_EQ(entry["name"], type.name) << type.id;
        EXPECT_EQ(entry["codeName"], type.codeName) << type.id;
        EXPECT_EQ(entry["printFormat"], type.format) << type.id;
        EXPECT_EQ(entry["fixedSize"], type.isFixed) << type.id;
        EXPECT_EQ(entry["size"], type.size) << type.id;
        EXPECT_EQ(entry["counter"], IsCounter(type.id)) << type.id;
        EXPECT_EQ(entry["timeStamp"], IsTimeStamp(type.id)) << type.id;
        EXPECT_EQ(entry["hasNull"], type.hasNull) << type.id;
    }
}

TEST(Types, TableHasAHeadingAndAlignedColumns) {
    const Result result = Kytm({"types"});
    ASSERT_EQ(result.status, 0) << result.err;
    const std::vector<std::string> lines = LinesOf(result.out);
    ASSERT_EQ(lines.size(), std::size(kTypes) + 1);
    for (const char* heading : {"id", "type", "code", "format", "stored", "size", "null", "counter", "stamp"}) {
        EXPECT_NE(lines[0].find(heading), std::string::npos) << heading;
    }
    const std::size_t name = lines[0].find("type");
    const std::size_t code = lines[0].find("code");
    const std::size_t format = lines[0].find("format");
    for (const TypeLine& type : kTypes) {
        const std::string& line = lines[static_cast<std::size_t>(type.id) + 1];
        EXPECT_EQ(line.find(type.name), name) << line;
        EXPECT_EQ(line.find(type.codeName, code), code) << line;
        EXPECT_EQ(line.find(type.format, format), format) << line;
        EXPECT_NE(line.back(), ' ') << line;
    }
    EXPECT_EQ(lines[3].substr(0, 8), " 2  o_4b");
}

TEST(Types, TakesNoFurtherWords) {
    const Result result = Kytm({"types", "o_4b"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("o_4b"), std::string::npos) << result.err;
}

}  // namespace
