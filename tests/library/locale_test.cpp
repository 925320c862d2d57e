// Text under the locales that change what the C library makes of numbers and letters. Other tests run under them too,
// where `LC_ALL` names one; these choose each for themselves.

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <cwctype>
#include <string>

#include "kystring.h"
#include "kytypmgr.h"

namespace {

constexpr const char* kComma = "de_DE.UTF-8";
constexpr const char* kDotlessI = "tr_TR.UTF-8";

/// Chooses a locale for a test, and the former one behind it.
class Locale : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (std::setlocale(LC_ALL, GetParam()) == nullptr) GTEST_SKIP() << GetParam() << " is not installed";
    }
    void TearDown() override { std::setlocale(LC_ALL, former.c_str()); }

    std::string former = std::setlocale(LC_ALL, nullptr);
    KyTypeMgr types{5};

    std::string Printed(char id, void* value) {
        KyString text;
        return types.PrintToKyString(id, text, value, nullptr, 1).StrGet();
    }
    /// What is printed of the value scanned from this text.
    std::string ScannedAndPrinted(char id, const char* text) {
        KyString in(text);
        void* value = types.Create(id, 1);
        types.ConstructorPtrGet(id)(value, 1, 0);
        types.ScanFromKyString(id, value, in, nullptr, 1);
        const std::string printed = Printed(id, value);
        types.Delete(id, value, 1);
        return printed;
    }
};

TEST_P(Locale, IsInForce) {
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    if (std::string(GetParam()) == kDotlessI) {
        EXPECT_NE(std::towupper(L'i'), std::wint_t{L'I'});
    }
}

TEST_P(Locale, LeavesDecimalPointsAlone) {
    float narrow = 0.5f;
    EXPECT_EQ(Printed(KyFLOAT_T, &narrow), ScannedAndPrinted(KyFLOAT_T, "0.5"));
    EXPECT_NE(Printed(KyFLOAT_T, &narrow).find("0.5"), std::string::npos);
    double wide = 0;
    char text[] = "1234.25";
    EXPECT_EQ(MySscanf(text, 0, "%lf", 0, &wide), 0);
    EXPECT_EQ(wide, 1234.25);
    char withComma[] = "1,75";
    EXPECT_EQ(MySscanf(withComma, 0, "%lf", 0, &wide), 0);
    EXPECT_EQ(wide, 1);
    KyString printed;
    wide = 1e6 + 0.125;
    EXPECT_STREQ(types.PrintToKyString(KyDOUBLE_T, printed, &wide, "%.3f", 1).StrGet(), "1000000.125");
}

TEST_P(Locale, GroupsNoDigits) {
    int number = -1234567;
    EXPECT_EQ(Printed(KyINT_T, &number), "-1234567");
    EXPECT_EQ(ScannedAndPrinted(KyINT_T, "-1234567"), "-1234567");
}

TEST_P(Locale, LeavesLettersAlone) {
    KyString text("Title III, ix");
    text.ToUpper();
    EXPECT_STREQ(text.StrGet(), "TITLE III, IX");
    text.ToLower();
    EXPECT_STREQ(text.StrGet(), "title iii, ix");
    EXPECT_EQ(KyString("INDEX").Compare(KyString("index"), -1, KyCmpIgnoreCase), 0);
    KyString sharp("\xE9");
    sharp.ToUpper();
    EXPECT_STREQ(sharp.StrGet(), "\xC9");
}

TEST_P(Locale, LeavesNamesAlone) {
    void* date = types.Create(KyDATE_T, 1);
    KyString text("Friday 2 April 2021");
    types.ScanFromKyString(KyDATE_T, date, text, "%A %d %B %Y", 1);
    KyString printed;
    EXPECT_STREQ(types.PrintToKyString(KyDATE_T, printed, date, "%A %d %B %Y", 1).StrGet(), "Friday 02 April 2021");
    types.Delete(KyDATE_T, date, 1);
}

TEST_P(Locale, IsNotChangedByTheLibrary) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ScannedAndPrinted(KyDOUBLE_T, "2.5");
    ScannedAndPrinted(KyDATE_T, "2021-04-02");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
    EXPECT_EQ(std::strtod("2,5", nullptr), 2.5);
}

INSTANTIATE_TEST_SUITE_P(Names, Locale, testing::Values(kComma, kDotlessI),
                         [](const auto& chosen) { return std::string(chosen.param, 2); });

}  // namespace
