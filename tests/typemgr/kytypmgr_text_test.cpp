#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "kybase.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "number_text.h"
#include "row_patch.h"
#include "type_table.h"

namespace {

std::string Print(KyTypeMgr& manager, char id, void* values, const char* format, unsigned count,
                  const char* before = "") {
    KyString out(before);
    EXPECT_EQ(&manager.PrintToKyString(id, out, values, format, count), &out);
    return out.StrGet();
}

TEST(Text, ArraysPrintWithCommasBetween) {
    KyTypeMgr manager(5);
    short numbers[] = {1, 2, 3};
    EXPECT_EQ(Print(manager, Ky2B_T, numbers, nullptr, 3), "1,2,3");
    EXPECT_EQ(Print(manager, Ky2B_T, numbers, nullptr, 2), "1,2");
    EXPECT_EQ(Print(manager, Ky2B_T, numbers, "<%03d>", 3), "<001>,<002>,<003>");
    double reals[] = {0.5, -0.0, 1e300};
    EXPECT_EQ(Print(manager, KyDOUBLE_T, reals, nullptr, 3), "0.5,-0,1.0000000000000001e+300");
}

TEST(Text, ArraysAreAppendedWhileOneValueReplaces) {
    KyTypeMgr manager(5);
    int numbers[] = {7, 8};
    EXPECT_EQ(Print(manager, KyINT_T, numbers, nullptr, 2, "x="), "x=7,8");
    EXPECT_EQ(Print(manager, KyINT_T, numbers, nullptr, 1, "x="), "7");
    EXPECT_EQ(Print(manager, KyINT_T, numbers, nullptr, 0, "x="), "7") << "numbers print their first element";
}

TEST(Text, CharacterArraysAreOneText) {
    KyTypeMgr manager(5);
    char letters[] = {'a', '\x07', 'z'};
    for (char id : {char{Ky1B_T}, char{KyU1B_T}}) {
        EXPECT_EQ(Print(manager, id, letters, nullptr, 3, "before"), "a0x07z");
        EXPECT_EQ(Print(manager, id, letters, nullptr, 1, "before"), "a");
        EXPECT_EQ(Print(manager, id, letters, nullptr, 0, "before"), "");
    }
}

TEST(Text, AnExchangedCharacterPrintGoesElementByElement) {
    const RowPatch row(KyCharTab);
    KyTypeMgr manager(5);
    manager.ExchangePrintToKyStringFunc(Ky1B_T,
                                        [](KyString& out, void* value, const char*, unsigned count) -> KyString& {
                                            out = KyString(static_cast<int>(*static_cast<signed char*>(value)));
                                            out << "/" << static_cast<int>(count);
                                            return out;
                                        });
    signed char values[] = {1, -2};
    EXPECT_EQ(Print(manager, Ky1B_T, values, nullptr, 2), "1/1,-2/1");
}

TEST(Text, EveryElementIsPrintedIntoAFreshText) {
    const RowPatch row(KyEnumTab);
    KyTypeMgr manager(5);
    manager.ExchangePrintToKyStringFunc(KyENUM_T, [](KyString& out, void* value, const char*, unsigned) -> KyString& {
        return out += KyString(*static_cast<int*>(value));  // appends, as print functions of applications may
    });
    int values[] = {1, 2, 3};
    EXPECT_EQ(Print(manager, KyENUM_T, values, nullptr, 3, "x"), "x1,2,3");
    EXPECT_EQ(Print(manager, KyENUM_T, values, nullptr, 1, "x"), "x1");
}

TEST(Text, AnotherRowWithTheCharacterPrintIsOneText) {
    const RowPatch row(KyEnumTab);
    KyTypeMgr manager(5);
    manager.ExchangePrintToKyStringFunc(KyENUM_T, CharPrintToKyString);
    char letters[] = "xy";
    EXPECT_EQ(Print(manager, KyENUM_T, letters, "%c", 2), "xy");
}

TEST(Text, ExchangedFormatIsTheDefault) {
    const RowPatch row(KyShortTab);
    KyTypeMgr manager(5);
    KyTypeMgr old(0);
    manager.ExchangeFormat(Ky2B_T, "[%hd]");
    short numbers[] = {1, 2};
    EXPECT_EQ(Print(old, Ky2B_T, numbers, nullptr, 1), "[1]");
    EXPECT_EQ(Print(old, Ky2B_T, numbers, nullptr, 2), "[1],[2]");
    EXPECT_EQ(Print(old, Ky2B_T, numbers, "%hd", 2), "1,2");
}

TEST(Text, ARowWithoutPrintOrScanLeavesEverythingAlone) {
    const RowPatch row(KyEnumTab);
    row->PrintToKyString = nullptr;
    row->ScanFromKyString = nullptr;
    row->ConvertToKyString = nullptr;
    row->ConvertFromKyString = nullptr;
    KyTypeMgr manager(5);
    int values[] = {1, 2};
    EXPECT_EQ(Print(manager, KyENUM_T, values, nullptr, 2, "as it was"), "as it was");
    KyString text("5");
    EXPECT_EQ(manager.ScanFromKyString(KyENUM_T, values, text, nullptr, 1), values);
    EXPECT_EQ(values[0], 1);
    EXPECT_EQ(manager.ConvertTo(KyENUM_T, values, 2), nullptr);
    KyTypeConvertData record;
    EXPECT_EQ(manager.ConvertFrom(KyENUM_T, &record, 1), nullptr);
    EXPECT_EQ(record.manager, &manager);
}

TEST(Text, ElementsOfWideTextAreAppendedToNarrowTextAndBack) {
    const RowPatch row(KyEnumTab);
    row->PrintToKyString = [](KyString& out, void* value, const char*, unsigned) -> KyString& {
        const unsigned short text[] = {'w', static_cast<unsigned short>('0' + *static_cast<int*>(value)), 0};
        out = KyString(text);
        return out;
    };
    KyTypeMgr manager(5);
    int values[] = {1, 2};
    EXPECT_EQ(Print(manager, KyENUM_T, values, nullptr, 2, ">"), ">w1,w2");

    const unsigned short start[] = {'>', 0x20AC, 0};
    KyString wide(start);
    manager.PrintToKyString(KyENUM_T, wide, values, nullptr, 2);
    const unsigned short expected[] = {'>', 0x20AC, 'w', '1', ',', 'w', '2', 0};
    ASSERT_EQ(wide.Len(), 7);
    EXPECT_EQ(std::memcmp(wide.StrGet(), expected, sizeof expected), 0);
    short numbers[] = {5, 6};
    manager.PrintToKyString(Ky2B_T, wide, numbers, nullptr, 2);
    const unsigned short more[] = {'>', 0x20AC, 'w', '1', ',', 'w', '2', '5', ',', '6', 0};
    ASSERT_EQ(wide.Len(), 10);
    EXPECT_EQ(std::memcmp(wide.StrGet(), more, sizeof more), 0);
}

TEST(Text, LongArraysAreCutAtTheLimitOfAString) {
    KyTypeMgr manager(5);
    std::vector<int> numbers(40000, 1234567);
    KyString out;
    manager.PrintToKyString(KyINT_T, out, numbers.data(), nullptr, 40000);
    ASSERT_EQ(out.Len(), 65531);
    const std::string text = out.StrGet();
    for (std::size_t at = 0; at < text.size(); ++at) ASSERT_EQ(text[at], "1234567,"[at % 8]) << at;
}

/// A configuration that asks for the overflow assertion.
class OverflowAsserts : public KyConfig {
public:
    int GetText(const char*, const char**, const char*) override { return 0; }
    int GetNumber(const char*, double*, const char*) override { return 0; }
    int HasSection(const char*) override { return 0; }
    int GetInteger(const char* key, int* value, const char* section) override {
        if (std::strcmp(key, "stringOverflow") != 0 || section == nullptr || std::strcmp(section, "debug") != 0)
            return 0;
        *value = 1;
        return 1;
    }
};

int overflows = 0;

TEST(Text, AnArrayThatDoesNotFitAssertsOnceWhenAsked) {
    OverflowAsserts config;
    KyConfig* const configBefore = DefaultConfig(&config);
    const KyAssertHandler handlerBefore = KYRN_setAssertHandler([](const char* message, const char*, int) {
        EXPECT_STREQ(message, "String overflow");
        ++overflows;
    });
    overflows = 0;
    KyTypeMgr manager(5);
    std::vector<int> numbers(40000, 1234567);
    KyString out;
    manager.PrintToKyString(KyINT_T, out, numbers.data(), nullptr, 8191);
    EXPECT_EQ(out.Len(), 65527);
    EXPECT_EQ(overflows, 0);
    out = KyString();
    manager.PrintToKyString(KyINT_T, out, numbers.data(), nullptr, 8192);
    EXPECT_EQ(out.Len(), 65531);
    EXPECT_EQ(overflows, 1);
    out = KyString();
    manager.PrintToKyString(KyINT_T, out, numbers.data(), nullptr, 40000);
    EXPECT_EQ(overflows, 2);
    KYRN_setAssertHandler(handlerBefore);
    DefaultConfig(configBefore);
}

TEST(Text, ScanUsesTheRowsFormatWhenNoneIsGiven) {
    const RowPatch row(KyIntTab);
    KyTypeMgr manager(5);
    int value = 0;
    KyString decimal("12");
    EXPECT_EQ(manager.ScanFromKyString(KyINT_T, &value, decimal, nullptr, 1), &value);
    EXPECT_EQ(value, 12);
    manager.ScanFromKyString(KyINT_T, &value, decimal, "%x", 1);
    EXPECT_EQ(value, 0x12);
    manager.ExchangeFormat(KyINT_T, "n=%d");
    KyString named("n=-3");
    manager.ScanFromKyString(KyINT_T, &value, named, nullptr, 1);
    EXPECT_EQ(value, -3);
}

TEST(Text, ConversionGoesThereAndBack) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        int numbers[] = {7, -8, 2147483647};
        const std::unique_ptr<KyTypeConvertData> record(manager.ConvertTo(KyINT_T, numbers, 3));
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->manager, &manager);
        EXPECT_EQ(record->typeId, KySTRING_T);
        ASSERT_EQ(record->count, 3U);
        EXPECT_STREQ(record->GetString(1)->StrGet(), "-8");

        auto* back = static_cast<int*>(manager.ConvertFrom(KyINT_T, record.get(), 3));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(std::memcmp(back, numbers, sizeof numbers), 0);
        manager.Delete(KyINT_T, back, 3);
    }
}

TEST(Text, ARecordBelongsToTheManagerThatConvertedItLast) {
    KyTypeMgr first(5);
    KyTypeMgr second(0);
    int number = 7;
    const std::unique_ptr<KyTypeConvertData> record(first.ConvertTo(KyINT_T, &number, 1));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->manager, &first);
    second.Delete(KyINT_T, second.ConvertFrom(KyINT_T, record.get(), 1), 1);
    EXPECT_EQ(record->manager, &second);
}

TEST(Text, ConvertFromTakesMissingStringsAsEmpty) {
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
    *record.GetString(0) = "5";
    auto* values = static_cast<int*>(manager.ConvertFrom(KyINT_T, &record, 3));
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(values[0], 5);
    EXPECT_EQ(values[1], 0);
    EXPECT_EQ(values[2], 0);
    manager.Delete(KyINT_T, values, 3);
}

/// Of a record that is missing, and of one that holds fewer texts than asked for.
TEST(Text, ElementsWithoutATextAreNullOrZero) {
    KyTypeMgr manager(5);
    KyTypeConvertData noTexts;
    for (const ExpectedType& type : expectedTypes) {
        SCOPED_TRACE(type.name);
        const char id = static_cast<char>(type.id);
        void* probe = manager.Create(id, 1);
        if (probe == nullptr || !type.fixed) {
            manager.Delete(id, probe, 1);
            continue;
        }
        manager.Delete(id, probe, 1);
        for (KyTypeConvertData* record : {static_cast<KyTypeConvertData*>(nullptr), &noTexts}) {
            for (const unsigned count : {1U, 3U}) {
                void* values = manager.ConvertFrom(id, record, count);
                ASSERT_NE(values, nullptr);
                for (unsigned i = 0; i < count; ++i) {
                    auto* value = static_cast<unsigned char*>(values) + i * type.size;
                    const bool zero =
                        std::all_of(value, value + type.size, [](unsigned char byte) { return byte == 0; });
                    EXPECT_TRUE(type.hasNull ? manager.IsNullValue(id, value) != 0 : zero) << i;
                }
                manager.Delete(id, values, count);
            }
        }
    }
}

}  // namespace
