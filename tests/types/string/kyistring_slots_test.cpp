#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <vector>

#include "dictionary_values.h"
#include "kytypmgr.h"
#include "shared_slots.h"
#include "string_texts.h"

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

TYPED_TEST(DictionaryStringTest, ArraysAreMadeAndGivenUp) {
    const KyTypeTab& row = RowOf<TypeParam>();
    for (const unsigned count : {0u, 1u, 2u, 50u}) {
        for (void* values : {row.Create(count), row.DefaultValue(count, 1)}) {
            ASSERT_NE(values, nullptr);
            for (unsigned i = 0; i < count; ++i) {
                EXPECT_FALSE(HoldsBlock(static_cast<TypeParam*>(values)[i]));
                static_cast<TypeParam*>(values)[i] = "freed by Delete";
            }
            EXPECT_EQ(row.Delete(values, count), 0);
        }
    }
    alignas(TypeParam) unsigned char memory[3 * sizeof(TypeParam)];
    std::memset(memory, 0xFF, sizeof memory);
    row.Constructor(memory, 3, 0);
    auto* values = std::launder(reinterpret_cast<TypeParam*>(memory));
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(HoldsBlock(values[i]));
        EXPECT_EQ(values[i].ModeGet(), 0);
    }
    values[2] = "freed by the destructor";
    row.Destructor(memory, 3, 0);
}

TYPED_TEST(DictionaryStringTest, AssignmentAndCopy) {
    const KyTypeTab& row = RowOf<TypeParam>();
    TypeParam from[3] = {"a", "", "c"};
    TypeParam to[3] = {"x", "y", "z"};
    to[1].ModeSet(0x40);
    row.Assignment(to, from, 3, 0);
    EXPECT_EQ(Text(to[0]), "a");
    EXPECT_EQ(Text(to[1]), "");
    EXPECT_EQ(to[1].ModeGet(), 0);
    EXPECT_EQ(Text(to[2]), "c");
    row.Assignment(to, from + 2, 3, 1);
    for (const TypeParam& value : to) EXPECT_EQ(Text(value), "c");
    alignas(TypeParam) unsigned char memory[2 * sizeof(TypeParam)];
    auto* values = reinterpret_cast<TypeParam*>(memory);
    row.Copy(memory, from, 2, 0);
    EXPECT_EQ(Text(values[0]), "a");
    EXPECT_EQ(Text(values[1]), "");
    row.Destructor(memory, 2, 0);
    row.Copy(memory, from, 2, 1);
    EXPECT_EQ(Text(values[1]), "a");
    row.Destructor(memory, 2, 0);
}

TYPED_TEST(DictionaryStringTest, NoNullAndNoStepping) {
    const KyTypeTab& row = RowOf<TypeParam>();
    TypeParam empty;
    EXPECT_EQ(row.IsNull, &NoIsNullDefined);
    EXPECT_EQ(row.SetNull, nullptr);
    EXPECT_EQ(row.IsNull(&empty), 0);
    EXPECT_EQ(row.GetValue, &KyGetValueFuncDummy);
    EXPECT_EQ(row.sizeWord, 16u);
    EXPECT_STREQ(row.printFormat, "%s");
}

TYPED_TEST(DictionaryStringTest, ConversionToStrings) {
    KyTypeMgr manager(5);
    const auto id = static_cast<char>(isCaseAlike<TypeParam> ? KyCASEISTRING_T : KyISTRING_T);
    TypeParam values[3] = {"a\xE9", "", "c"};
    KyTypeConvertData* record = manager.ConvertTo(id, values, 3);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(Text(*record->GetString(0)), "a\xE9");
    EXPECT_EQ(record->GetString(0)->CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_TRUE(record->GetString(1)->IsEmpty());
    EXPECT_FALSE(record->GetString(1)->IsNullValue());
    *record->GetString(1) = Wide(u"\u00E9x");
    auto* back = static_cast<TypeParam*>(manager.ConvertFrom(id, record, 4));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(Text(back[0]), "a\xE9");
    EXPECT_EQ(Text(back[1]), "\xE9x");
    EXPECT_EQ(Text(back[2]), "c");
    EXPECT_EQ(Text(back[3]), "") << "no string";
    manager.Delete(id, back, 4);
    delete record;
    back = static_cast<TypeParam*>(RowOf<TypeParam>().ConvertFromKyString(nullptr, 2));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(Text(back[1]), "");
    manager.Delete(id, back, 2);
}

TYPED_TEST(DictionaryStringTest, PrintAndScan) {
    const KyTypeTab& row = RowOf<TypeParam>();
    TypeParam value("a%s\xE9");
    KyString out;
    row.PrintToKyString(out, &value, nullptr, 1);
    EXPECT_EQ(Text(out), "a%s\xE9");
    out = "";
    row.PrintToKyString(out, &value, "<%7s>", 1);
    EXPECT_EQ(Text(out), "<   a%s\xE9>");
    EXPECT_EQ(Text(value), "a%s\xE9");
    out = "";
    value = "";
    row.PrintToKyString(out, &value, "%s", 1);
    EXPECT_EQ(Text(out), "");
    EXPECT_FALSE(out.IsNullValue());

    value.ModeSet(0x40);
    KyString text = "  text ";
    EXPECT_EQ(row.ScanFromKyString(&value, text, "%s", 1), &value);
    EXPECT_EQ(Text(value), "  text ");
    EXPECT_EQ(value.ModeGet(), 0);
    text = Wide(u"\u00E9");
    row.ScanFromKyString(&value, text, nullptr, 1);
    EXPECT_EQ(Text(value), "\xE9");
    text = "{NULL} and more";
    row.ScanFromKyString(&value, text, "%s", 1);
    EXPECT_EQ(Text(value), "") << "there is no null";
    EXPECT_EQ(row.ScanFromKyString(nullptr, text, "%s", 1), nullptr);
}

TYPED_TEST(DictionaryStringTest, TheManagerDispatchesById) {
    KyTypeMgr manager(5);
    char id = 0;
    ASSERT_EQ(manager.Name2KyTypeId(isCaseAlike<TypeParam> ? "KyCaseIString" : "KyIString", id), 0);
    EXPECT_EQ(id, isCaseAlike<TypeParam> ? 21 : 20);
    EXPECT_EQ(manager.MemLenGet(id, 2), 32u);
    EXPECT_EQ(manager.IsFixed(id), 0);
    EXPECT_EQ(manager.SupportsNullValue(id), 0);
    auto* values = static_cast<TypeParam*>(manager.Create(id, 2));
    values[0] = "abc";
    values[1] = "ABC";
    EXPECT_EQ(manager.Cmp(id, values, values + 1, KyCmpExact, 1, 8), isCaseAlike<TypeParam> ? 0 : -1);
    unsigned char stored[11];
    EXPECT_EQ(manager.DiskLenGet(id, values, 2, 2, 8), 11u);
    EXPECT_EQ(manager.Store(id, stored, values, 2, 2), 11u);
    KyString out;
    manager.PrintToKyString(id, out, values, nullptr, 2);
    EXPECT_EQ(Text(out), "abc,ABC");
    manager.SetNullValue(id, values);
    EXPECT_EQ(Text(values[0]), "") << "an empty text stands for null";
    EXPECT_EQ(manager.GetValue(id, values, 1, 8, KyValueStep), KyErrNotSupported);
    manager.Delete(id, values, 2);
}

}  // namespace
