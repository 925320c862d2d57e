#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string>

#include "identifier_texts.h"
#include "kyobjid.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypfmt.h"
#include "kytypmgr.h"
#include "support/fewer_cases.h"
#include "support/hex.h"

namespace {

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
    struct Case {
        const char* text;
        const char* format;
        const char* bytes;
    };
    const auto check = [](const KyTypeTab& row, void* value, std::size_t size, const Case& scanned) {
        KyString text(scanned.text);
        EXPECT_EQ(row.ScanFromKyString(value, text, scanned.format, 1), value) << scanned.text;
        EXPECT_EQ(Hex(value, size), scanned.bytes) << scanned.text;
    };
    KyClassId id(7, 7);
    for (const Case& scanned : std::initializer_list<Case>{
             {"(8v9)", nullptr, "08 00 09 00"},
             {"8", nullptr, "08 00 00 00"},
             {"65536v65537", nullptr, "00 00 01 00"},
             {"", nullptr, "00 00 00 00"},
             {"12", "%hu", "00 00 00 00"},  // no such forms: h takes the 1, u the 2
         }) {
        check(KyClassIdTab, &id, 4, scanned);
    }
    KyRef ref;
    for (const Case& scanned : std::initializer_list<Case>{
             {"(2:1-5#7,8v9)", KyRefVersionFmt, "07 00 00 00 05 00 00 00 01 00 02 00 08 00 09 00"},
             {"2:1-5#7,   8", nullptr, "07 00 00 00 05 00 00 00 01 00 02 00 08 00 00 00"},
             {"2:1", nullptr, "00 00 00 00 00 00 00 00 01 00 02 00 00 00 00 00"},
         }) {
        check(KyRefTab, &ref, 16, scanned);
    }
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

}  // namespace
