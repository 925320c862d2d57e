#include <gtest/gtest.h>

#include "run_program.h"

namespace {

TEST(TypeLookup, NameCodeNameAndId) {
    for (const char* type : {"o_4b", "Ky4B_T", "2"}) {
        const Result result = Kytm({"show", type, "1"});
        EXPECT_EQ(result.status, 0) << type;
        EXPECT_TRUE(result.out.starts_with("o_4b ")) << result.out;
    }
}

TEST(TypeLookup, UnknownTypeGetsTheNearestNames) {
    const std::pair<const char*, const char*> cases[] = {
        {"o_dubble", "o_double"}, {"kystring", "KyString"},    {"KyNullInt", "KyNull_int"},
        {"KyINT", "KyINT_T"},     {"KyDateTim", "KyDateTime"},
    };
    for (const auto& [given, nearest] : cases) {
        for (const std::vector<std::string>& call :
             {std::vector<std::string>{"show", given, "1"}, {"cmp", given, "1", "2"}, {"sort", given}}) {
            const Result result = Kytm(call);
            EXPECT_EQ(result.status, 2) << given;
            EXPECT_EQ(result.out, "");
            EXPECT_NE(result.err.find(nearest), std::string::npos) << result.err;
        }
    }
}

TEST(TypeLookup, NumbersOutsideTheTypesAreUnknown) {
    for (const char* type : {"47", "99", "100", "-1", "1000", "2x", ""}) {
        const Result result = Kytm({"show", type, "1"});
        EXPECT_EQ(result.status, 2) << type;
        EXPECT_NE(result.err.find("unknown type"), std::string::npos) << result.err;
    }
}

TEST(TypeLookup, TypeWithoutValuesIsRefused) {
    for (const char* type : {"illegal", "46", "KyRES_T"}) {
        const Result result = Kytm({"show", type, "1"});
        EXPECT_EQ(result.status, 2) << type;
        EXPECT_NE(result.err.find("no values of the type illegal can be made"), std::string::npos) << result.err;
    }
    EXPECT_EQ(KytmWith("1\n", {"sort", "illegal"}).status, 2);
}

}  // namespace
