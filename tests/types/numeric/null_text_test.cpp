#include <gtest/gtest.h>

#include <cmath>

#include "kyi18n.h"
#include "kynull.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "null_roster.h"

// Print, scan and conversion of nullable numbers.

namespace {

/// Another null print string, for as long as the object lives.
class NullPrintString {
public:
    explicit NullPrintString(const char* text) { KyTypeMgr::SetNullPrintString(KyString(text)); }
    ~NullPrintString() { KyTypeMgr::SetNullPrintString(KyString("{NULL}")); }
};

template <class Type>
std::string Printed(KyTypeTab& row, Type value, const char* format = nullptr) {
    KyString out("before");
    KyString& result = row.PrintToKyString(out, &value, format != nullptr ? format : row.printFormat, 1);
    EXPECT_EQ(&result, &out);
    return out.StrGet();
}

template <class Type>
Type Scanned(KyTypeTab& row, KyString text, const char* format = nullptr, Type value = Type(77)) {
    EXPECT_EQ(row.ScanFromKyString(&value, text, format != nullptr ? format : row.printFormat, 1), &value);
    return value;
}

TEST(NullPrint, NullsPrintTheNullPrintString) {
    const NullPrintString other("nothing");
    for (const NullType& type : NullTypes()) {
        ByteVector null = NullElementOf(type, ByteVector(type.shape.number), 1);
        ByteVector odd = NullElementOf(type, ByteVector(type.shape.number, 0x41), 0x80);
        KyString out("before");
        EXPECT_STREQ(type.row->PrintToKyString(out, null.data(), type.printFormat, 1).StrGet(), "nothing");
        EXPECT_STREQ(type.row->PrintToKyString(out, odd.data(), type.printFormat, 0).StrGet(), "nothing");
    }
}

TEST(NullPrint, NumbersPrintAsTheirPlainTypes) {
    EXPECT_EQ(Printed(KyNull_shortTab, KyNull_short(-5)), "-5");
    EXPECT_EQ(Printed(KyNull_shortTab, KyNull_short(-1), "%x"), "ffffffff");
    EXPECT_EQ(Printed(KyNull_ushortTab, KyNull_ushort(65535)), "65535");
    EXPECT_EQ(Printed(KyNull_intTab, KyNull_int(42), "<%05d>"), "<00042>");
    EXPECT_EQ(Printed(KyNull_unsignedTab, KyNull_unsigned(4294967295u)), "4294967295");
    EXPECT_EQ(Printed(KyNull_longTab, KyNull_long(-2147483647 - 1)), "-2147483648");
    EXPECT_EQ(Printed(KyNull_ulongTab, KyNull_ulong(4294967295u)), "4294967295");
    EXPECT_EQ(Printed(KyNull_floatTab, KyNull_float(0.0F)), "+0");
    EXPECT_EQ(Printed(KyNull_doubleTab, KyNull_double(-INFINITY)), "-Infinity");
    EXPECT_EQ(Printed(KyNull_KyInt64Tab, KyNull_KyInt64(-1)), "-1");
    EXPECT_EQ(Printed(KyNull_KyInt64Tab, KyNull_KyInt64(255), "%x"), "0xff");
    EXPECT_EQ(Printed(KyNull_8bTab, KyNull_8b(-9223372036854775807LL)), "-9223372036854775807");
    EXPECT_EQ(Printed(KyNull_u8bTab, KyNull_u8b(18446744073709551615ull)), "18446744073709551615");
}

TEST(NullPrint, Kept_CharactersPrintNothing) {
    EXPECT_EQ(Printed(KyNull_charTab, KyNull_char('A')), "");
    EXPECT_EQ(Printed(KyNull_ucharTab, KyNull_uchar('A')), "");
    EXPECT_EQ(Printed(KyNull_charTab, KyNull_char()), "{NULL}");
    EXPECT_EQ(Printed(KyNull_ucharTab, KyNull_uchar()), "{NULL}");
    EXPECT_EQ(Scanned<KyNull_char>(KyNull_charTab, Printed(KyNull_charTab, KyNull_char('A')).c_str()), KyNull_char())
        << "which scans back as null";
}

TEST(NullPrint, ArraysPrintElementByElement) {
    KyTypeMgr manager(5);
    KyNull_int values[] = {1, KyNull_int(), -3};
    KyString out;
    EXPECT_STREQ(manager.PrintToKyString(KyNULL_INT_T, out, values, nullptr, 3).StrGet(), "1,{NULL},-3");
    EXPECT_STREQ(KyNull_intTab.PrintToKyString(out, values, "%d", 3).StrGet(), "1") << "the slot prints the first";
}

TEST(NullPrint, WhatIsPrintedIsNoNullString) {
    for (const NullType& type : NullTypes()) {
        for (const unsigned char flag : ByteVector{0, 1}) {
            ByteVector element = NullElementOf(type, ByteVector(type.shape.number), flag);
            KyString out;
            out.SetNullValue();
            EXPECT_FALSE(type.row->PrintToKyString(out, element.data(), type.printFormat, 1).IsNullValue())
                << type.name();
        }
    }
}

TEST(NullPrint, FormatsThatDoNotFitPrintNothing) {
    for (const NullType& type : NullTypes()) {
        ByteVector zero = NullElementOf(type, ByteVector(type.shape.number), 0);
        ByteVector null = NullElementOf(type, ByteVector(type.shape.number), 1);
        for (const char* format : {"", "%s", "%n", "%d%d", "%*d"}) {
            if (type.id == 38 && *format != 0) continue;  // the 64-bit class prints what it does not know as it stands
            KyString out("before");
            EXPECT_STREQ(type.row->PrintToKyString(out, zero.data(), format, 1).StrGet(), "") << type.name();
            EXPECT_STREQ(type.row->PrintToKyString(out, null.data(), format, 1).StrGet(), "{NULL}") << type.name();
        }
    }
}

TEST(NullScan, ANullStringIsNull) {
    for (const NullType& type : NullTypes()) {
        ByteVector element = NullElementOf(type, ByteVector(type.shape.number, 0x55), 0);
        KyString text("5");
        text.SetNullValue();
        EXPECT_EQ(type.row->ScanFromKyString(element.data(), text, type.printFormat, 1), element.data());
        EXPECT_EQ(type.row->IsNull(element.data()), 1) << type.name();
    }
}

TEST(NullScan, EmptyTextsAndNullTextsAreNull) {
    for (const char* text : {"", "{NULL}", "{NULL}x", "{NULL} 5", "{NULL}{NULL}"}) {
        for (const NullType& type : NullTypes()) {
            ByteVector element = NullElementOf(type, ByteVector(type.shape.number, 0x55), 0);
            KyString source(text);
            EXPECT_EQ(type.row->ScanFromKyString(element.data(), source, type.printFormat, 1), element.data());
            element.resize(type.shape.Stored());
            ByteVector null(type.shape.number);
            null.push_back(1);
            EXPECT_EQ(element, null) << type.name() << " '" << text << "'";
        }
    }
}

TEST(NullScan, TheNullPrintStringIsTheOneInForce) {
    const NullPrintString other("NIL");
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "{NULL}"), 0) << "no number: a temporary that starts as 0";
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "NIL"), KyNull_int());
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "NILE"), KyNull_int());
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "NI"), 0);
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "nil"), 0);
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, ""), KyNull_int());
}

TEST(NullScan, AnEmptyNullPrintStringBeginsNoText) {
    const NullPrintString none("");
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "5"), 5);
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, ""), KyNull_int());
}

TEST(NullScan, NumbersAreReadAsByTheirPlainTypes) {
    EXPECT_EQ(Scanned<KyNull_char>(KyNull_charTab, "A"), 'A');
    EXPECT_EQ(Scanned<KyNull_char>(KyNull_charTab, "0x41"), 'A');
    EXPECT_EQ(Scanned<KyNull_uchar>(KyNull_ucharTab, "0xff"), 255);
    EXPECT_EQ(Scanned<KyNull_char>(KyNull_charTab, "65", "%d"), 65);
    EXPECT_EQ(Scanned<KyNull_short>(KyNull_shortTab, "-32768"), -32768);
    EXPECT_EQ(Scanned<KyNull_ushort>(KyNull_ushortTab, "65535"), 65535);
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "ff", "%x"), 255);
    EXPECT_EQ(Scanned<KyNull_unsigned>(KyNull_unsignedTab, "4294967295"), 4294967295u);
    EXPECT_EQ(Scanned<KyNull_long>(KyNull_longTab, " -7 "), -7);
    EXPECT_EQ(Scanned<KyNull_ulong>(KyNull_ulongTab, "4294967295"), 4294967295u);
    EXPECT_EQ(Scanned<KyNull_float>(KyNull_floatTab, "1.5"), 1.5F);
    EXPECT_EQ(Scanned<KyNull_double>(KyNull_doubleTab, "-infinity"), -INFINITY);
    EXPECT_EQ(Scanned<KyNull_KyInt64>(KyNull_KyInt64Tab, "-4294967297"), -4294967297);
    EXPECT_EQ(Scanned<KyNull_8b>(KyNull_8bTab, "-9223372036854775808").Get(), -9223372036854775807LL - 1);
    EXPECT_EQ(Scanned<KyNull_u8b>(KyNull_u8bTab, "18446744073709551615"), 18446744073709551615ull);
}

TEST(NullScan, WhereNothingIsReadTheNumberIsZero) {
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "x"), 0);
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, "x", nullptr, KyNull_int()), 0) << "a null is one no more";
    EXPECT_EQ(Scanned<KyNull_double>(KyNull_doubleTab, "x"), 0.0);
    EXPECT_EQ(Scanned<KyNull_double>(KyNull_doubleTab, "x", "%lf"), 0.0);
    EXPECT_EQ(Scanned<KyNull_KyInt64>(KyNull_KyInt64Tab, "x"), 0);
    EXPECT_EQ(Scanned<KyNull_short>(KyNull_shortTab, "5", "%s"), 0);
}

TEST(NullScan, WideTextsAreReadAsNarrowOnes) {
    KyString wide(KyString::GetDefault16CodeSet(), KyString::GetDefaultLanguage());
    ASSERT_GE(wide.CodeSetGet(), KyCodeSetFirst16Bit);
    wide += "-12";
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, wide), -12);
    KyString wideNull(KyString::GetDefault16CodeSet(), KyString::GetDefaultLanguage());
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, wideNull), KyNull_int());
    wideNull += "{NULL}...";
    EXPECT_EQ(Scanned<KyNull_int>(KyNull_intTab, wideNull), KyNull_int());
}

TEST(NullScan, ANullPointerIsGivenBack) {
    KyString text("1");
    for (const NullType& type : NullTypes()) {
        EXPECT_EQ(type.row->ScanFromKyString(nullptr, text, type.printFormat, 1), nullptr);
    }
}

template <class Type>
struct Converted {
    Type value;
    const char* text;  ///< null: a null string
};

template <class Type>
void CheckConversion(int id, const std::vector<Converted<Type>>& table) {
    KyTypeMgr manager(5);
    const auto typeId = static_cast<char>(id);
    std::vector<Type> values;
    for (const Converted<Type>& each : table) values.push_back(each.value);
    const auto count = static_cast<unsigned>(values.size());
    KyTypeConvertData* record = manager.ConvertTo(typeId, values.data(), count);
    ASSERT_NE(record, nullptr);
    for (unsigned i = 0; i < count; ++i) {
        KyString* text = record->GetString(static_cast<int>(i));
        EXPECT_EQ(text->IsNullValue() != 0, table[i].text == nullptr) << id << " " << i;
        if (table[i].text != nullptr) {
            EXPECT_STREQ(text->StrGet(), table[i].text) << id;
        }
    }
    // One more is asked for than there are texts.
    auto* back = static_cast<Type*>(manager.ConvertFrom(typeId, record, count + 1));
    for (unsigned i = 0; i < count; ++i) EXPECT_EQ(back[i], values[i]) << id << " " << i;
    EXPECT_EQ(back[count], Type());
    manager.Delete(typeId, back, count + 1);
    delete record;
}

TEST(NullConvert, NullsAreNullStringsAndNumbersDecimalTexts) {
    CheckConversion<KyNull_char>(28, {{'A', "65"}, {-1, "-1"}, {KyNull_char(), nullptr}, {0, "0"}});
    CheckConversion<KyNull_uchar>(29, {{'A', "65"}, {255, "255"}, {KyNull_uchar(), nullptr}});
    CheckConversion<KyNull_short>(30, {{-32768, "-32768"}, {KyNull_short(), nullptr}});
    CheckConversion<KyNull_ushort>(31, {{65535, "65535"}, {KyNull_ushort(), nullptr}});
    CheckConversion<KyNull_int>(32, {{-2147483647 - 1, "-2147483648"}, {KyNull_int(), nullptr}, {5, "5"}});
    CheckConversion<KyNull_unsigned>(33, {{4294967295u, "4294967295"}, {KyNull_unsigned(), nullptr}, {0u, "+0"}});
    CheckConversion<KyNull_long>(34, {{-7, "-7"}, {KyNull_long(), nullptr}});
    CheckConversion<KyNull_ulong>(35, {{4294967295u, "4294967295"}, {KyNull_ulong(), nullptr}, {0u, "+0"}});
    CheckConversion<KyNull_float>(36, {{0.5F, "0.5"}, {KyNull_float(), nullptr}, {0.0F, "+0"}});
    CheckConversion<KyNull_double>(37,
                                   {{0.1, "0.10000000000000001"}, {KyNull_double(), nullptr}, {INFINITY, "Infinity"}});
    CheckConversion<KyNull_KyInt64>(38, {{-4294967297, "-4294967297"}, {KyNull_KyInt64(), nullptr}});
    CheckConversion<KyNull_8b>(44, {{-9223372036854775807LL, "-9223372036854775807"}, {KyNull_8b(), nullptr}});
    CheckConversion<KyNull_u8b>(45, {{9223372036854775807ull, "9223372036854775807"}, {KyNull_u8b(), nullptr}});
}

TEST(NullConvert, WithoutTextsAllAreNull) {
    KyTypeMgr manager(5);
    KyTypeConvertData noTexts(Ky1B_T, 2, manager.Create(Ky1B_T, 2), &manager);
    for (const NullType& type : NullTypes()) {
        const auto id = static_cast<char>(type.id);
        for (KyTypeConvertData* record : {static_cast<KyTypeConvertData*>(nullptr), &noTexts}) {
            auto* values = static_cast<unsigned char*>(manager.ConvertFrom(id, record, 2));
            EXPECT_EQ(type.row->IsNull(values), 1) << type.name();
            EXPECT_EQ(type.row->IsNull(values + type.shape.memory), 1) << type.name();
            manager.Delete(id, values, 2);
        }
    }
}

TEST(NullConvert, NoElementsAreConvertedAndDeletedAlike) {
    KyTypeMgr manager(5);
    for (const NullType& type : NullTypes()) {
        const auto id = static_cast<char>(type.id);
        ByteVector element = NullElementOf(type, ByteVector(type.shape.number), 1);
        KyTypeConvertData* record = manager.ConvertTo(id, element.data(), 0);
        ASSERT_NE(record, nullptr) << type.name();
        EXPECT_EQ(record->count, 0u);
        void* none = manager.ConvertFrom(id, record, 0);
        EXPECT_NE(none, nullptr) << type.name();
        manager.Delete(id, none, 0);
        delete record;
    }
}

template <class Type>
Type FromText(int id, const char* text) {
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
    *record.GetString(0) = text;
    auto* value = static_cast<Type*>(manager.ConvertFrom(static_cast<char>(id), &record, 1));
    const Type result = *value;
    manager.Delete(static_cast<char>(id), value, 1);
    return result;
}

TEST(NullConvert, IntegersTakeTheBaseFromTheTextAndUnsignedOf32BitsDoNot) {
    EXPECT_EQ(FromText<KyNull_char>(28, "010"), 8);
    EXPECT_EQ(FromText<KyNull_uchar>(29, "0xff"), 255);
    EXPECT_EQ(FromText<KyNull_short>(30, "010"), 8);
    EXPECT_EQ(FromText<KyNull_ushort>(31, "0x10"), 16);
    EXPECT_EQ(FromText<KyNull_int>(32, "010"), 8);
    EXPECT_EQ(FromText<KyNull_unsigned>(33, "010"), 10u);
    EXPECT_EQ(FromText<KyNull_long>(34, "0x10"), 16);
    EXPECT_EQ(FromText<KyNull_ulong>(35, "010"), 10u);
    EXPECT_EQ(FromText<KyNull_ulong>(35, "NaN"), 0u);
    EXPECT_EQ(FromText<KyNull_ulong>(35, "4294967297"), 1u);
    EXPECT_EQ(FromText<KyNull_double>(37, "010"), 10.0);
    EXPECT_EQ(FromText<KyNull_KyInt64>(38, "010"), 8);
    EXPECT_EQ(FromText<KyNull_8b>(44, "0x10"), 16);
    EXPECT_EQ(FromText<KyNull_u8b>(45, "010"), 8u);
}

TEST(NullConvert, Kept_AnEmptyTextIsTheNumberZero) {
    KyTypeMgr manager(5);
    for (const NullType& type : NullTypes()) {
        const auto id = static_cast<char>(type.id);
        KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
        void* value = manager.ConvertFrom(id, &record, 1);
        EXPECT_EQ(type.row->IsNull(value), 0) << type.name();
        ByteVector zero = NullElementOf(type, ByteVector(type.shape.number), 0);
        int err = -1;
        EXPECT_EQ(type.row->Compare(KyFormMemory, 0, value, 0, zero.data(), 0, 1, err), 0) << type.name();
        manager.Delete(id, value, 1);
    }
}

TEST(NullConvert, NumbersAreNarrowedToTheirLowBits) {
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
    *record.GetString(0) = "321";
    auto* character = static_cast<KyNull_char*>(manager.ConvertFrom(KyNULL_1B_T, &record, 1));
    EXPECT_EQ(*character, 'A');
    manager.Delete(KyNULL_1B_T, character, 1);
    *record.GetString(0) = "-1";
    auto* number = static_cast<KyNull_ulong*>(manager.ConvertFrom(KyNULL_U4B_T, &record, 1));
    EXPECT_EQ(*number, 4294967295u);
    manager.Delete(KyNULL_U4B_T, number, 1);
    *record.GetString(0) = "1e30";
    number = static_cast<KyNull_ulong*>(manager.ConvertFrom(KyNULL_U4B_T, &record, 1));
    EXPECT_EQ(*number, 0u);
    manager.Delete(KyNULL_U4B_T, number, 1);
}

TEST(NullConvert, Kept_LargeUnsignedNumbersDoNotComeBackFromTheirTexts) {
    KyTypeMgr manager(5);
    KyNull_u8b value(18446744073709551615ull);
    KyTypeConvertData* record = manager.ConvertTo(KyNULL_U8B_T, &value, 1);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "18446744073709551615");
    auto* back = static_cast<KyNull_u8b*>(manager.ConvertFrom(KyNULL_U8B_T, record, 1));
    EXPECT_EQ(*back, 9223372036854775807ull);
    manager.Delete(KyNULL_U8B_T, back, 1);
    delete record;
}

TEST(NullConvert, Kept_NullsAreLostInTheOldTextForm) {
    KyTypeMgr manager(5);
    KyNull_int values[] = {1, KyNull_int(), 3};
    KyString* text = manager.ConvertToKyStringOld(values, KyNULL_INT_T, 3);
    ASSERT_NE(text, nullptr);
    auto* back = static_cast<KyNull_int*>(manager.ConvertFromKyStringOld(text, KyNULL_INT_T, 3));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back[0], 1);
    EXPECT_EQ(back[1], 0) << "not null";
    EXPECT_EQ(back[2], 3);
    manager.Delete(KyNULL_INT_T, back, 3);
    KyStringDelete(text, 1);
}

}  // namespace
