#include <gtest/gtest.h>

#include <memory>

#include "date_roster.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "typemgr/row_patch.h"

// Arrays of values to texts and back, in the rows' formats of the moment.

namespace {

/// A record that frees its strings, too.
std::unique_ptr<KyTypeConvertData> Record(KyTypeMgr& types, char id, void* values, unsigned count) {
    return std::unique_ptr<KyTypeConvertData>(types.ConvertTo(id, values, count));
}

struct Text {
    KyTypeTab* row;
    SlowDate value;
    const char* text;
};

const Text kTexts[] = {
    {&KyDateTab, {2024, 5, 7}, "Tue 07.May 2024"},
    {&KyDateTab, {-1, -1, -1}, "* *.* *"},
    {&KyDateTab, {-32768, -128, -128}, "{NULL}"},
    {&KyTimeTab, {0, 0, 0, 13, 45, 59}, "01:45:59 pm"},
    {&KyTimeTab, {0, 0, 0, -128, -128, -128}, "{NULL}"},
    {&KyDateTimeTab, {2024, 5, 7, 0, 15, 9}, "Tue 07.May 2024 12:15:09 am"},
    {&KyDateTimeNTab, {2024, 5, 7, 13, 45, 59, 500000000}, "2024-05-07T13:45:59.500"},
    {&KyTimeSpanTab, {0, 0, 1, 2, 3, 4, 500000000}, "1.02:03:04.500"},
    {&KyTimeSpanTab, {-32768, -128, -128, -128, -128, -128, 0}, "{NULL}"},
};

const DateType& TypeOf(const KyTypeTab* row) {
    for (const DateType& type : DateTypes()) {
        if (type.row == row) return type;
    }
    return DateTypes().front();
}

TEST(DateConvert, ValuesHaveTheTextOfTheRowsFormatAndComeBack) {
    KyTypeMgr types(5);
    for (const Text& each : kTexts) {
        const DateType& type = TypeOf(each.row);
        const SlowDate other{2000, 1, 1, 1, 1, 1, 0};
        ByteVector values = DatesInForm(type, {each.value, other}, KyFormMemory);
        auto record = Record(types, type.id, values.data(), 2);
        ASSERT_NE(record, nullptr);
        EXPECT_STREQ(record->GetString(0)->StrGet(), each.text);
        EXPECT_EQ(record->GetString(0)->IsNullValue(), 0) << "null is a text of its own";
        EXPECT_EQ(record->GetString(2), nullptr);
        void* back = type.row->ConvertFromKyString(record.get(), 2);
        int err = -1;
        EXPECT_EQ(type.row->Compare(KyFormMemory, 0, values.data(), 0, back, KyCmpExact, 2, err), 0) << each.text;
        EXPECT_STREQ(record->GetString(0)->StrGet(), each.text) << "the record stays as it is";
        type.row->Delete(back, 2);
    }
}

TEST(DateConvert, TheFormatIsThatOfTheMomentInBothDirections) {
    KyTypeMgr types(5);
    const RowPatch row(KyDateTab);
    row->printFormat = "%d/%m/%Y";
    ByteVector date = DateInForm(DateTypes()[0], {2024, 5, 7}, KyFormMemory);
    auto record = Record(types, KyDATE_T, date.data(), 1);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "07/05/2024");
    void* back = KyDateTab.ConvertFromKyString(record.get(), 1);
    int err = -1;
    EXPECT_EQ(KyDateTab.Compare(KyFormMemory, 0, date.data(), 0, back, KyCmpExact, 1, err), 0);
    KyDateTab.Delete(back, 1);
}

TEST(DateConvert, MissingAndNullTextsAreNullEmptyOnesZeroAndShortOnesWhatWasRead) {
    for (const DateType& type : DateTypes()) {
        SCOPED_TRACE(type.Name());
        KyTypeMgr types(5);
        KyString* texts = KyStringCreate(2);
        texts[0].SetNullValue();
        texts[1] = "";
        KyTypeConvertData record(KySTRING_T, 2, texts, &types);
        void* values = type.row->ConvertFromKyString(&record, 3);
        const auto fields = [&](unsigned i) {
            return SlowDateRead(type.shape, KyFormMemory, static_cast<unsigned char*>(values) + i * type.Memory());
        };
        const SlowDate null = OwnFields(type, {-32768, -128, -128, -128, -128, -128, 0});
        EXPECT_EQ(fields(0), null) << "a null text";
        EXPECT_EQ(fields(1), SlowDate{}) << "an empty text";
        EXPECT_EQ(fields(2), null) << "behind the record's texts";
        type.row->Delete(values, 3);
        values = type.row->ConvertFromKyString(nullptr, 1);
        EXPECT_EQ(fields(0), null) << "no record";
        type.row->Delete(values, 1);
    }
    KyTypeMgr types(5);
    KyString* texts = KyStringCreate(1);
    texts[0] = "Tue 07.May";
    KyTypeConvertData record(KySTRING_T, 1, texts, &types);
    void* value = KyDateTab.ConvertFromKyString(&record, 1);
    EXPECT_EQ(SlowDateRead(DateTypes()[0].shape, KyFormMemory, static_cast<unsigned char*>(value)),
              (SlowDate{0, 5, 7}));
    KyDateTab.Delete(value, 1);
}

TEST(DateConvert, AnEmptyNullPrintStringMakesEmptyTextsNull) {
    const KyString before = KyTypeMgr::GetNullPrintString();
    KyTypeMgr::SetNullPrintString(KyString(""));
    void* value = KyDateTab.DefaultValue(1, 0);
    EXPECT_NE(KyDateTab.IsNull(value), 0);
    KyDateTab.Delete(value, 1);
    KyTypeMgr::SetNullPrintString(before);
}

}  // namespace
