#include <gtest/gtest.h>

#include <string>

#include "kybase.h"
#include "kytypinf.h"

namespace {

TEST(KyDescribeDll, WritesAllElevenOutputsAndReturnsTheTitle) {
    unsigned numbers[6] = {1, 1, 1, 1, 1, 1};
    const char* texts[5] = {};
    const char* title = KyDescribeDll(&numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4], &texts[0],
                                      &texts[1], &texts[2], &numbers[5], &texts[3], &texts[4]);
    EXPECT_EQ(title, DLLtitle);
    EXPECT_STREQ(title, "Corvane Typemanager");
    const unsigned expected[6] = {12, 0, 2, 229, 0, 440};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(numbers[i], expected[i]) << i;
    EXPECT_EQ(texts[0], DLLname);
    EXPECT_STREQ(texts[1], "May 27 2019 21:36:01");
    EXPECT_STREQ(texts[2], "unknown");
    EXPECT_EQ(texts[3], DLLcompilerName);
    EXPECT_STREQ(texts[4], "");
}

TEST(KyDescribeDll, Kept_ShortNameIsNotTheFileName) { EXPECT_STREQ(DLLname, "CV120Vtms44x64"); }

TEST(GetKyTypeMgrInfo, WritesWhatIsAskedFor) {
    GetKyTypeMgrInfo(nullptr, nullptr, nullptr, nullptr, nullptr);

    const char* compiler = nullptr;
    const char* version = nullptr;
    const char* date = nullptr;
    const char* name = nullptr;
    unsigned build = 0;
    GetKyTypeMgrInfo(&compiler, &build, &version, &date, &name);
    EXPECT_EQ(compiler, DLLcompilerName);
    EXPECT_EQ(build, 440U);
    EXPECT_STREQ(version, "Corvane Typemanager 12.0.2.229.0 ");
    EXPECT_STREQ(date, "May 27 2019");
    EXPECT_EQ(name, DLLname);
}

TEST(GetKyTypeMgrInfo, VersionIsTheSameOnEveryCall) {
    const char* version = nullptr;
    for (int call = 0; call < 3; ++call) {
        GetKyTypeMgrInfo(nullptr, nullptr, &version, nullptr, nullptr);
        EXPECT_STREQ(version, "Corvane Typemanager 12.0.2.229.0 ") << call;
    }
}

TEST(GetKyTypeMgrInfo, VersionFollowsTheTitle) {
    const char* const title = DLLtitle;
    const char* version = nullptr;
    for (const std::string& other : {std::string("T"), std::string(), std::string(1000, 'x')}) {
        DLLtitle = other.c_str();
        GetKyTypeMgrInfo(nullptr, nullptr, &version, nullptr, nullptr);
        EXPECT_EQ(version, other.substr(0, 200) + " 12.0.2.229.0 ");
    }
    DLLtitle = title;
    GetKyTypeMgrInfo(nullptr, nullptr, &version, nullptr, nullptr);
    EXPECT_STREQ(version, "Corvane Typemanager 12.0.2.229.0 ");
}

TEST(DllCompilerName, NamesCompilerVersionWordSizeAndSystem) {
    const std::string name = DLLcompilerName;
#if defined(__clang__)
    EXPECT_NE(name.find("clang++ " + std::to_string(__clang_major__) + "."), std::string::npos) << name;
#else
    EXPECT_NE(name.find("g++ " + std::to_string(__GNUC__) + "."), std::string::npos) << name;
#endif
    EXPECT_NE(name.find(std::to_string(8 * sizeof(void*)) + " bit, Linux"), std::string::npos) << name;
}

TEST(KyCheckDll, FitsTheBaseLibraryOfItsVersion) {
    for (const unsigned flags : {0U, 1U, 3U, 4U, 0xFFFFFFFFU}) EXPECT_EQ(KyCheckDll(flags), 0) << flags;
}

}  // namespace
