#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "identifier_texts.h"
#include "kyobjid.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypfmt.h"
#include "kytypmgr.h"

namespace {

struct Printed {
    const char* format;
    const char* text;
};

TEST(IdentifierPrint, ObjectIds) {
    const Printed table[] = {
        {nullptr, "(0-12#3)"},
        {"(%H-%L#%B)", "(0-12#3)"},
        {"", ""},
        {"plain ( text", "plain ( text"},
        {"%L%L", "1212"},
        {"100%%", "100%"},
        {"%%L%L", "%L12"},
        {"%", ""},
        {"a%", "a"},
        {"%C%V%D%d%x%(", "CVDdx("},
        {"%b%s%n", "bsn"},
        {"(%hu-%lu#%lu)", "(0-12#3)"},
        {"%hd,%hu,%lu,%lX,%lu,%hu", "0,0,12,3,0,0"},
        {"%lu%hu%lu%lu%lu", "001230"},  // the first one stands before any %h?
        {"%hu%l", "012"},
        {"%l", "0"},
        {"%h", "0"},
        {"%h%L", "0L"},  // the letter behind h is any
        {"%hu%lu%H%L%B%lu",
         "0120123"
         "3"},
        {"\xC4%L\xFF",
         "\xC4"
         "12\xFF"},
    };
    const KyObjId id(3, 12, 0);
    for (const Printed& each : table) {
        EXPECT_EQ(Print(KyObjIdTab, &id, each.format), each.text) << (each.format != nullptr ? each.format : "none");
    }
    const KyObjId highest(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFF);
    EXPECT_EQ(Print(KyObjIdTab, &highest, nullptr), "(65535-4294967295#4294967295)");
    EXPECT_EQ(Print(KyObjIdTab, &highest, "%hu%lu%lu"), "6553542949672954294967295");
}

TEST(IdentifierPrint, ClassIds) {
    const Printed table[] = {
        {nullptr, "(8v9)"}, {"%V.%C", "9.8"}, {"%B%L%H%D", "BLHD"}, {"%hu%lu", "hulu"}, {"%h", "h"}, {"%%%", "%"},
    };
    const KyClassId id(8, 9);
    for (const Printed& each : table) EXPECT_EQ(Print(KyClassIdTab, &id, each.format), each.text);
    const KyClassId almostNull(0xFFFF, 0);
    EXPECT_EQ(Print(KyClassIdTab, &almostNull, nullptr), "(65535v0)");
    const KyClassId zero;
    EXPECT_EQ(Print(KyClassIdTab, &zero, nullptr), "(0v0)");
}

TEST(IdentifierPrint, References) {
    const Printed table[] = {
        {nullptr, "(2:1-5#7, 8)"},    {KyRefFmt, "(2:1-5#7, 8)"},           {KyRefVersionFmt, "(2:1-5#7,8v9)"},
        {KyLocalRefFmt, "(1-5#7,8)"}, {"%B %L %H %D %C %V", "7 5 1 2 8 9"}, {"%hu%lu", "hulu"},
    };
    const KyRef ref(KyObjId(7, 5, 1), 2, KyClassId(8, 9));
    for (const Printed& each : table) EXPECT_EQ(Print(KyRefTab, &ref, each.format), each.text);
    const KyRef withoutClass(KyObjId(7, 5, 1), 0xFFFF, KyClassId(0xFFFF, 0xFFFF));
    EXPECT_EQ(Print(KyRefTab, &withoutClass, nullptr), "(65535:1-5#7, 65535)");
}

TEST(IdentifierPrint, NullsAreTheNullTextWhateverTheFormat) {
    const KyObjId object(7, 0, 0);
    const KyClassId number(0xFFFF, 0xFFFF);
    const KyRef ref(KyObjId(7, 0, 0), 2, KyClassId(8, 9));
    for (const char* format : {static_cast<const char*>(nullptr), "", "%B", "%C"}) {
        EXPECT_EQ(Print(KyObjIdTab, &object, format), "{NULL}");
        EXPECT_EQ(Print(KyClassIdTab, &number, format), "{NULL}");
        EXPECT_EQ(Print(KyRefTab, &ref, format), "{NULL}");
    }
}

TEST(IdentifierPrint, FormatsOfAnyLength) {
    const KyObjId id(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFF);
    for (const std::size_t conversions : {20u, 23u, 24u, 25u, 26u, 50u, 1000u, 6553u, 6554u, 30000u}) {
        std::string format;
        std::string text;
        for (std::size_t i = 0; i < conversions; ++i) format += "%L", text += "4294967295";
        text.resize(std::min<std::size_t>(text.size(), KyString::MaxBytes - 1));
        EXPECT_EQ(Print(KyObjIdTab, &id, format.c_str()), text) << conversions;
    }
}

TEST(IdentifierPrint, TheOutputTakesTheDefaultCodeSet) {
    const unsigned short wide[] = {'w', 0};
    KyObjId id(3, 12, 0);
    KyString out(wide);
    KyObjIdTab.PrintToKyString(out, &id, nullptr, 1);
    EXPECT_EQ(out.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_STREQ(out.StrGet(), "(0-12#3)");
    out.SetNullValue();
    EXPECT_FALSE(KyObjIdTab.PrintToKyString(out, &id, nullptr, 1).IsNullValue());
}

TEST(IdentifierPrint, TheManagerPrintsArrays) {
    KyTypeMgr manager(5);
    KyClassId ids[] = {{1, 2}, {0xFFFF, 0xFFFF}, {3, 4}};
    KyString out("all:");
    EXPECT_STREQ(manager.PrintToKyString(KyCLID_T, out, ids, nullptr, 3).StrGet(), "all:(1v2),{NULL},(3v4)");
    EXPECT_STREQ(KyClassIdTab.PrintToKyString(out, ids, nullptr, 3).StrGet(), "(1v2)") << "the first alone";
}

}  // namespace
