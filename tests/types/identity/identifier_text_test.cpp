#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "kyobjid.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypfmt.h"
#include "kytypmgr.h"
#include "support/fewer_cases.h"
#include "support/hex.h"

namespace {

std::string Print(KyTypeTab& row, const void* value, const char* format) {
    unsigned char copy[16];
    std::memcpy(copy, value, row.sizeWord & 0xFFFF);
    KyString out("before");
    EXPECT_EQ(&row.PrintToKyString(out, copy, format, 1), &out);
    return out.StrGet();
}

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

struct Scanned {
    const char* text;
    const char* format;
    unsigned B;
    unsigned L;
    unsigned H;
};

TEST(IdentifierScan, ObjectIds) {
    const Scanned table[] = {
        {"(0-12#3)", nullptr, 3, 12, 0},
        {"1-2#3", nullptr, 3, 2, 1},  // a parenthesis of the format takes no text
        {"((( 1 - 2 # 3", nullptr, 3, 2, 1},
        {" \t\n\v\f\r1-2#3", nullptr, 3, 2, 1},
        {"1x2y3z", nullptr, 3, 2, 1},  // other characters are not looked at
        {"1", nullptr, 0, 0, 1},
        {"1-", nullptr, 0, 0, 1},
        {"1-2", nullptr, 0, 2, 1},
        {"", nullptr, 0, 0, 0},
        {"hello", nullptr, 0, 0, 0},  // no number where H is read; the "-" takes h
        {"h7#3", nullptr, 3, 7, 0},
        {"1-2#3and more", nullptr, 3, 2, 1},
        {"7 8", "%L%B", 8, 7, 0},
        {"7 8", "%L %B", 8, 7, 0},
        {"78", "%L%B", 0, 78, 0},
        {"+7", "%L", 0, 7, 0},
        {"-1", "%L", 0, 0xFFFFFFFF, 0},
        {"1--2#-3", nullptr, 0xFFFFFFFD, 0xFFFFFFFE, 1},
        {"+", "%L", 0, 0, 0},
        {"+ 5", "%L%B", 0, 0, 0},  // a sign without a digit is no number and stays
        {"-+5", "%L%%%B", 5, 0, 0},
        {"65537", "%H", 0, 0, 1},
        {"4294967298", "%L", 0, 2, 0},
        {"99999999999999999999999", "%L%H", 0, 0xFFFFFFFF, 0},
        {"99999999999999999999999", "%H", 0, 0, 0xFFFF},
        {"a7", "%%%L", 0, 7, 0},  // any character for the percent sign
        {"a7", "%C%L", 0, 7, 0},  // and for a letter of another type
        {"7a8", "%L%x%B", 8, 7, 0},
        {"7", "%%", 0, 0, 0},
        {"1 2 3", "%hu%lu%lu", 3, 2, 1},
        {"(1-2#3)", "(%hu-%lu#%lu)", 3, 2, 1},
        {"9 1 8 2 3 7", "%lu%hu%hu%lu%lu%lu", 3, 2, 1},  // dropped: before %h?, a second %h?, a third %l?
        {"1 2", "%hu%l", 0, 2, 1},
        {"1 2", "%h", 0, 0, 1},
        {"1 2 3", "%H%L%", 0, 2, 1},
        {"5", "(((", 0, 0, 0},
        {"5", " ( %L ", 0, 5, 0},
        {"5", "(%(%L", 0, 0, 0},  // "%(" takes the 5
        {"1 2", "%L%L", 0, 2, 0},
        {"1", "%L%L", 0, 0, 0},  // without a number the field is 0
        {"0x10", "%L%B", 0, 0, 0},
        {"007", "%L", 0, 7, 0},
        {" {NULL}", "%L", 0, 0, 0},
        {" {NULL}5", "%L%L%x%x%x%x%x%x%L", 0, 5, 0},
    };
    for (const Scanned& each : table) {
        SCOPED_TRACE(std::string(each.text) + " by " + (each.format != nullptr ? each.format : "none"));
        unsigned char area[12];
        std::memset(area, 0xEE, sizeof area);
        KyString text(each.text);
        EXPECT_EQ(KyObjIdTab.ScanFromKyString(area, text, each.format, 1), area);
        EXPECT_EQ(Hex(area + 10, 2), "EE EE");
        KyObjId id;
        std::memcpy(static_cast<void*>(&id), area, 10);
        EXPECT_EQ(id.B, each.B);
        EXPECT_EQ(id.L, each.L);
        EXPECT_EQ(id.H, each.H);
        EXPECT_STREQ(text.StrGet(), each.text);
    }
}

TEST(IdentifierScan, StopsAtTheEndOfTheText) {
    KyString text("5#77");
    text.StrGet()[1] = 0;
    KyObjId id;
    id.ScanFromKyString(text, "xx%L");
    EXPECT_EQ(id.L, 0u) << "what stands behind the terminator";
}

TEST(IdentifierScan, ClassIdsAndReferences) {
    KyClassId id(7, 7);
    KyString text("(8v9)");
    EXPECT_EQ(KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1), &id);
    EXPECT_EQ(Hex(&id, 4), "08 00 09 00");
    text = "8";
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "08 00 00 00");
    text = "65536v65537";
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "00 00 01 00");
    text = "";
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "00 00 00 00");
    text = "12";
    KyClassIdTab.ScanFromKyString(&id, text, "%hu", 1);  // no such forms: h takes the 1, u the 2
    EXPECT_EQ(Hex(&id, 4), "00 00 00 00");

    KyRef ref;
    text = "(2:1-5#7,8v9)";
    EXPECT_EQ(KyRefTab.ScanFromKyString(&ref, text, KyRefVersionFmt, 1), &ref);
    EXPECT_EQ(Hex(&ref, 16), "07 00 00 00 05 00 00 00 01 00 02 00 08 00 09 00");
    text = "2:1-5#7,   8";
    KyRefTab.ScanFromKyString(&ref, text, nullptr, 1);
    EXPECT_EQ(Hex(&ref, 16), "07 00 00 00 05 00 00 00 01 00 02 00 08 00 00 00");
    text = "2:1";
    KyRefTab.ScanFromKyString(&ref, text, nullptr, 1);
    EXPECT_EQ(Hex(&ref, 16), "00 00 00 00 00 00 00 00 01 00 02 00 00 00 00 00");
}

TEST(IdentifierScan, TheNullTextIsNull) {
    for (const char* given : {"{NULL}", "{NULL}(1-2#3)"}) {
        KyString text(given);
        KyObjId object(1, 2, 3);
        KyObjIdTab.ScanFromKyString(&object, text, "%L", 1);
        EXPECT_EQ(Hex(&object, 10), "00 00 00 00 00 00 00 00 00 00");
        KyClassId number(1, 2);
        KyClassIdTab.ScanFromKyString(&number, text, "%L", 1);
        EXPECT_EQ(Hex(&number, 4), "FF FF FF FF");
        KyRef ref(object, 2, number);
        KyRefTab.ScanFromKyString(&ref, text, "%L", 1);
        EXPECT_EQ(Hex(&ref, 16), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    }
    KyString text("{NULL");
    KyClassId number(1, 2);
    KyClassIdTab.ScanFromKyString(&number, text, nullptr, 1);
    EXPECT_EQ(Hex(&number, 4), "00 00 00 00") << "half of it is no null";
}

TEST(IdentifierScan, FollowsTheNullPrintString) {
    const KyString before = KyTypeMgr::GetNullPrintString();
    KyClassId id(0xFFFF, 0xFFFF);
    KyTypeMgr::SetNullPrintString("5");
    EXPECT_EQ(Print(KyClassIdTab, &id, nullptr), "5");
    id = KyClassId();
    KyString text("55v7");
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "FF FF FF FF");
    KyTypeMgr::SetNullPrintString("");
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "37 00 07 00") << "an empty one begins no text";
    KyTypeMgr::SetNullPrintString(before);
}

TEST(IdentifierScan, SixteenBitTexts) {
    const unsigned short given[] = {'(', '8', 'v', '9', ')', 0};
    const unsigned short nullText[] = {'{', 'N', 'U', 'L', 'L', '}', 0};
    KyClassId id;
    KyString text(given);
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "08 00 09 00");
    EXPECT_EQ(text.NullLen(), 2);
    text = KyString(nullText);
    KyClassIdTab.ScanFromKyString(&id, text, nullptr, 1);
    EXPECT_EQ(Hex(&id, 4), "FF FF FF FF");
}

TEST(IdentifierScan, ANullPointerIsGivenBack) {
    KyString text("(1-2#3)");
    for (KyTypeTab* row : {&KyObjIdTab, &KyClassIdTab, &KyRefTab}) {
        EXPECT_EQ(row->ScanFromKyString(nullptr, text, nullptr, 1), nullptr);
    }
}

TEST(IdentifierScan, NumbersAreThoseOfTheScanningHelpers) {
    std::mt19937 random(9);
    const std::string characters = "0123456789999+- a";
    for (int i = 0; i < 50000 / kFewerCases; ++i) {
        std::string text;
        for (auto n = random() % 24; n > 0; --n) text += characters[random() % characters.size()];
        // What stands behind the number decides whether the position is the same.
        char* at = text.data();
        while (*at == ' ') ++at;
        unsigned int low = 0;
        const bool hasNumber = std::isdigit(static_cast<unsigned char>(at[*at == '+' || *at == '-' ? 1 : 0])) != 0;
        if (hasNumber) {
            MySscanf(at, 0, "%u", 0, &low);
            SkipDigits(at);
        }
        unsigned short high = 0;
        while (*at == ' ') ++at;
        if (std::isdigit(static_cast<unsigned char>(at[*at == '+' || *at == '-' ? 1 : 0])) != 0) {
            MySscanf(at, 0, "%hu", 0, &high);
        }
        KyObjId id;
        id.ScanFromKyString(KyString(text.c_str()), "%L%H");
        ASSERT_EQ(id.L, low) << text;
        ASSERT_EQ(id.H, high) << text;
    }
}

TEST(IdentifierScan, PrintedTextsComeBack) {
    std::mt19937 random(10);
    for (int i = 0; i < 20000 / kFewerCases; ++i) {
        const auto half = [&random] { return static_cast<unsigned short>(random() >> random() % 17 % 16); };
        const auto whole = [&random] { return static_cast<unsigned>(random()); };
        const KyRef ref(KyObjId(whole(), whole(), half()), half(), KyClassId(half(), half()));
        KyRef back;
        back.ScanFromKyString(Print(KyRefTab, &ref, KyRefVersionFmt).c_str(), KyRefVersionFmt);
        ASSERT_EQ(Hex(&back, 16), Hex(&ref, 16));
        const KyObjId id(ref.B, ref.L, ref.H);
        KyObjId idBack;
        idBack.ScanFromKyString(Print(KyObjIdTab, &id, nullptr).c_str(), nullptr);
        ASSERT_EQ(Hex(&idBack, 10), Hex(&id, 10));
        idBack.ScanFromKyString(Print(KyObjIdTab, &id, "%hu %lu:%lu").c_str(), "%hu %lu:%lu");
        ASSERT_EQ(Hex(&idBack, 10), Hex(&id, 10));
    }
}

TEST(IdentifierRecords, ConvertToTextsAndBack) {
    KyTypeMgr manager(5);
    KyRef refs[] = {KyRef(KyObjId(7, 5, 1), 2, KyClassId(8, 9)), KyRef(KyObjId(7, 0, 0), 2, KyClassId(8, 9)), KyRef()};
    KyTypeConvertData* record = manager.ConvertTo(KyREF_T, refs, 3);
    ASSERT_NE(record, nullptr);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(2:1-5#7, 8)");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 1);
    *record->GetString(2) = "{NULL}";
    auto* back = static_cast<KyRef*>(manager.ConvertFrom(KyREF_T, record, 4));  // one more than there are
    EXPECT_EQ(Hex(back, 16), "07 00 00 00 05 00 00 00 01 00 02 00 08 00 00 00");
    for (int i = 1; i < 4; ++i) EXPECT_EQ(Hex(back + i, 16), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    manager.Delete(KyREF_T, back, 4);
    delete record;

    KyClassId ids[] = {{8, 9}, {0xFFFF, 0xFFFF}, {0, 0}, {1, 1}};
    record = manager.ConvertTo(KyCLID_T, ids, 4);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(8v9)");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 1);
    EXPECT_STREQ(record->GetString(2)->StrGet(), "(0v0)");
    *record->GetString(3) = "";
    auto* idsBack = static_cast<KyClassId*>(manager.ConvertFrom(KyCLID_T, record, 5));
    EXPECT_EQ(Hex(idsBack, 20), "08 00 09 00 FF FF FF FF 00 00 00 00 00 00 00 00 FF FF FF FF");
    manager.Delete(KyCLID_T, idsBack, 5);
    delete record;

    KyObjId objects[] = {{3, 12, 0}, {3, 0, 0}};
    record = manager.ConvertTo(KyOBJID_T, objects, 2);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(0-12#3)");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 1);
    auto* objectsBack = static_cast<KyObjId*>(manager.ConvertFrom(KyOBJID_T, record, 2));
    EXPECT_EQ(Hex(objectsBack, 10), "03 00 00 00 0C 00 00 00 00 00");
    EXPECT_EQ(Hex(objectsBack + 1, 10), "00 00 00 00 00 00 00 00 00 00");
    manager.Delete(KyOBJID_T, objectsBack, 2);
    delete record;
}

TEST(IdentifierRecords, WithoutTextsAllAreNull) {
    KyTypeMgr manager(5);
    auto* ids = static_cast<KyClassId*>(manager.ConvertFrom(KyCLID_T, nullptr, 2));
    EXPECT_EQ(Hex(ids, 8), "FF FF FF FF FF FF FF FF");
    manager.Delete(KyCLID_T, ids, 2);
    KyTypeConvertData* record = manager.ConvertTo(KyCLID_T, ids, 0);
    ASSERT_NE(record, nullptr);
    void* none = manager.ConvertFrom(KyCLID_T, record, 0);
    EXPECT_NE(none, nullptr);
    manager.Delete(KyCLID_T, none, 0);
    delete record;
}

TEST(IdentifierRecords, AnExchangedFormatDoesNotMatter) {
    KyTypeMgr manager(5);
    const char* const before = manager.ExchangeFormat(KyCLID_T, "%V");
    KyClassId id(8, 9);
    KyString out;
    EXPECT_STREQ(manager.PrintToKyString(KyCLID_T, out, &id, nullptr, 1).StrGet(), "9");
    EXPECT_STREQ(KyClassIdTab.PrintToKyString(out, &id, nullptr, 1).StrGet(), "(8v9)");
    KyTypeConvertData* record = manager.ConvertTo(KyCLID_T, &id, 1);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "(8v9)");
    auto* back = static_cast<KyClassId*>(manager.ConvertFrom(KyCLID_T, record, 1));
    EXPECT_EQ(Hex(back, 4), "08 00 09 00");
    manager.Delete(KyCLID_T, back, 1);
    delete record;
    manager.ExchangeFormat(KyCLID_T, before);
}

}  // namespace
