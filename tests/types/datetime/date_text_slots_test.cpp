/// Print and scan of the values themselves: the slots of the rows and the members of the classes.

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "date_text_slots.h"
#include "kydatime.h"
#include "kydatimeN.h"
#include "kystring.h"
#include "kytypes.h"
#include "text_constants.h"
#include "types/string/counted_memory.h"

namespace {

std::string Print(KyPrintFunc* slot, const void* value, const char* format) {
    KyString out("before");
    KyString& result = slot(out, const_cast<void*>(value), format, 3);
    EXPECT_EQ(&result, &out);
    return out.StrGet();
}

template <class Value>
std::string PrintMember(const Value& value, const char* format) {
    KyString out("before");
    KyString& result = value.PrintToKyString(out, format);
    EXPECT_EQ(&result, &out);
    return out.StrGet();
}

/// Scans a text into a value; whether the scan says that it is whole.
template <class Value>
bool ScanSlot(KyScanFunc* slot, Value& value, const char* text, const char* format) {
    KyString in(text);
    void* const result = slot(&value, in, format, 3);
    EXPECT_TRUE(result == nullptr || result == &value);
    EXPECT_STREQ(in.StrGet(), text);
    return result != nullptr;
}

template <class Value>
bool ScanMember(Value& value, const char* text, const char* format) {
    KyString in(text);
    Value* const result = value.ScanFromKyString(in, format);
    EXPECT_TRUE(result == nullptr || result == &value);
    return result != nullptr;
}

constexpr KyDate kDate(2024, 5, 7);
constexpr KyTime kTime(15, 4, 9);
constexpr KyDateTime kDateTime(kDate, kTime);
constexpr KyDateTimeN kDateTimeN(2024, 5, 7, 15, 4, 9, 250000000);
constexpr KyTimeSpan kSpan(0, 0, 1, 2, 3, 4, 500000000);

TEST(DateTextSlots, WidenTheirValues) {
    const char* const all = "%Y %m %d %H %M %S %N";
    EXPECT_EQ(Print(KyDatePrintToKyString, &kDate, all), "2024 05 07 00 00 00 0");
    EXPECT_EQ(Print(KyTimePrintToKyString, &kTime, all), "0000 00 00 15 04 09 0");
    EXPECT_EQ(Print(KyDateTimePrintToKyString, &kDateTime, all), "2024 05 07 15 04 09 0");
    EXPECT_EQ(Print(KyDateTime_PrintToKyString, &kDateTimeN, all), "2024 05 07 15 04 09 250000000");
    EXPECT_EQ(Print(KyDateTimeNPrintToKyString, &kDateTimeN, all), "2024 05 07 15 04 09 250000000");
    EXPECT_EQ(Print(KyTimeSpanPrintToKyString, &kSpan, all), "0000 00 01 02 03 04 500000000");
}

/// The texts of the values above.
struct NullFormatTexts {
    const char *date, *time, *dateTime, *dateTimeN, *span;
};

/// By a null format they are printed so, and scanned back.
void CheckNullFormat(const NullFormatTexts& texts) {
    const auto check = [](KyPrintFunc* print, KyScanFunc* scan, const auto& value, auto scanned, const char* text) {
        EXPECT_EQ(Print(print, &value, nullptr), text);
        EXPECT_TRUE(ScanSlot(scan, scanned, text, nullptr)) << text;
        EXPECT_TRUE(scanned == value) << text;
    };
    check(KyDatePrintToKyString, KyDateScanFromKyString, kDate, KyDate::ClearValue(), texts.date);
    check(KyTimePrintToKyString, KyTimeScanFromKyString, kTime, KyTime::ClearValue(), texts.time);
    check(KyDateTimePrintToKyString, KyDateTimeScanFromKyString, kDateTime, KyDateTime::ClearValue(), texts.dateTime);
    check(KyDateTime_PrintToKyString, KyDateTime_ScanFromKyString, kDateTimeN, KyDateTimeN(), texts.dateTimeN);
    check(KyDateTimeNPrintToKyString, KyDateTimeNScanFromKyString, kDateTimeN, KyDateTimeN(), texts.dateTimeN);
    check(KyTimeSpanPrintToKyString, KyTimeSpanScanFromKyString, kSpan, KyTimeSpan(), texts.span);
}

TEST(DateTextSlots, ANullFormatIsTheRows) {
    CheckNullFormat(
        {"Tue 07.May 2024", "03:04:09 pm", "Tue 07.May 2024 03:04:09 pm", "2024-05-07T15:04:09.250", "1.02:03:04.500"});
}

/// A row's format is another one while this lives.
struct OtherFormat {
    KyTypeTab& row;
    const char* kept;
    OtherFormat(KyTypeTab& aRow, const char* format) : row(aRow), kept(aRow.printFormat) { row.printFormat = format; }
    ~OtherFormat() { row.printFormat = kept; }
};

TEST(DateTextSlots, TheRowsFormatIsTakenAsItIsAtTheTime) {
    const OtherFormat dates(KyDateTab, "%d.%m.");
    const OtherFormat spans(KyTimeSpanTab, "%N");
    EXPECT_EQ(Print(KyDatePrintToKyString, &kDate, nullptr), "07.05.");
    EXPECT_EQ(Print(KyTimeSpanPrintToKyString, &kSpan, nullptr), "500000000");
    KyDate date = KyDate::ClearValue();
    EXPECT_TRUE(ScanSlot(KyDateScanFromKyString, date, "7.5.", nullptr) && date == KyDate(0, 5, 7));
}

TEST(DateTextSlots, ARowWithoutAFormatHasTheClasss) {
    const OtherFormat rows[] = {
        {KyDateTab, nullptr},      {KyTimeTab, nullptr},     {KyDateTimeTab, nullptr},
        {KyDateTimeNTab, nullptr}, {KyTimeSpanTab, nullptr},
    };
    CheckNullFormat({"2024-05-07", "15:04:09", "2024-05-07T15:04:09", "2024-05-07T15:04:09.250", "1.02:03:04.500"});
}

TEST(DateTextSlots, NullsPrintAsTheNullPrintString) {
    const KyDate date = KyDate::NullValue();
    const KyTime time = KyTime::NullValue();
    const KyDateTime dateTime(date, time);
    const KyDateTimeN dateTimeN;
    const KyTimeSpan span;
    EXPECT_EQ(Print(KyDatePrintToKyString, &date, "%D"), "{NULL}");
    EXPECT_EQ(Print(KyTimePrintToKyString, &time, ""), "{NULL}");
    EXPECT_EQ(Print(KyDateTimePrintToKyString, &dateTime, nullptr), "{NULL}");
    EXPECT_EQ(Print(KyDateTimeNPrintToKyString, &dateTimeN, "%D"), "{NULL}");
    EXPECT_EQ(Print(KyTimeSpanPrintToKyString, &span, "%D"), "{NULL}");
    EXPECT_EQ(PrintMember(date, nullptr), "{NULL}");
    EXPECT_EQ(PrintMember(time, "%H"), "{NULL}");
    EXPECT_EQ(PrintMember(dateTime, nullptr), "{NULL}");
    EXPECT_EQ(PrintMember(dateTimeN, nullptr), "{NULL}");
    EXPECT_EQ(PrintMember(KyDateTime_(), nullptr), "{NULL}");
    EXPECT_EQ(PrintMember(span, nullptr), "{NULL}");

    // All parts have to be null.
    const KyDateTime noTime(date, kTime);
    EXPECT_EQ(Print(KyDateTimePrintToKyString, &noTime, "%Y"), "-32768");
    KyDateTimeN nanosecond;
    nanosecond.nanoseconds = 1;
    EXPECT_EQ(Print(KyDateTimeNPrintToKyString, &nanosecond, "%Y %N"), "-32768 1");
}

TEST(DateTextSlots, TheNullPrintStringScansAsNull) {
    KyDate date = kDate;
    KyTime time = kTime;
    KyDateTime dateTime = kDateTime;
    KyDateTimeN dateTimeN = kDateTimeN;
    KyTimeSpan span = kSpan;
    EXPECT_TRUE(ScanSlot(KyDateScanFromKyString, date, "{NULL}", "%D") && date.IsNullValue());
    EXPECT_TRUE(ScanSlot(KyTimeScanFromKyString, time, "{NULL}", "%D") && time.IsNullValue());
    EXPECT_TRUE(ScanSlot(KyDateTimeScanFromKyString, dateTime, "{NULL}x", "%D") && dateTime.IsNullValue());
    EXPECT_TRUE(ScanSlot(KyDateTimeNScanFromKyString, dateTimeN, "{NULL}", "") && dateTimeN.IsNullValue());
    EXPECT_TRUE(ScanSlot(KyTimeSpanScanFromKyString, span, "{NULL}", nullptr) && span.IsNullValue());
}

TEST(DateTextSlots, NoValueGivesNull) {
    KyString text("2024-05-07");
    for (KyScanFunc* scan : {KyDateScanFromKyString, KyTimeScanFromKyString, KyDateTimeScanFromKyString,
                             KyDateTime_ScanFromKyString, KyDateTimeNScanFromKyString, KyTimeSpanScanFromKyString}) {
        EXPECT_EQ(scan(nullptr, text, "%D", 1), nullptr);
    }
}

TEST(DateTextSlots, StoreTheirOwnFieldsAlsoWhenTheTextEndsEarly) {
    KyDate date = kDate;
    EXPECT_FALSE(ScanSlot(KyDateScanFromKyString, date, "2023-02", "%Y-%m-%d"));
    EXPECT_EQ(date, KyDate(2023, 2, 0));
    KyTime time = kTime;
    EXPECT_FALSE(ScanSlot(KyTimeScanFromKyString, time, "01 pm", "%I %p %M"));
    EXPECT_EQ(time, KyTime(13, 0, 0));
    EXPECT_TRUE(ScanSlot(KyTimeScanFromKyString, time, "2023-02-30 7", "%D %H"));
    EXPECT_EQ(time, KyTime(7, 0, 0));
    EXPECT_FALSE(ScanSlot(KyDateScanFromKyString, date, "", "%D"));
    EXPECT_EQ(date, KyDate::ClearValue());
    KyDateTime dateTime = kDateTime;
    EXPECT_TRUE(ScanSlot(KyDateTimeScanFromKyString, dateTime, "2023-02-30 5.5", "%D %f"));
    EXPECT_EQ(dateTime, KyDateTime(KyDate(2023, 2, 30), KyTime(0, 0, 5)));
    KyDateTimeN dateTimeN = kDateTimeN;
    EXPECT_FALSE(ScanSlot(KyDateTimeNScanFromKyString, dateTimeN, "5.5", "%f%Y"));
    EXPECT_TRUE(dateTimeN == KyDateTimeN(0, 0, 0, 0, 0, 5, 500000000));
}

TEST(DateTextSlots, FieldsKeepTheLowBits) {
    KyDate date = kDate;
    EXPECT_TRUE(ScanSlot(KyDateScanFromKyString, date, "65537 257 300", "%Y %m %d"));
    EXPECT_EQ(date, KyDate(1, 1, 44));
    EXPECT_TRUE(ScanSlot(KyDateScanFromKyString, date, "99999999999 99999999999 -99999999999", "%Y %m %d"));
    EXPECT_EQ(date, KyDate(-1, -1, 0));
    KyDateTimeN value = kDateTimeN;
    EXPECT_TRUE(ScanSlot(KyDateTimeNScanFromKyString, value, "1000 1e10", "%H %f"));
    EXPECT_TRUE(value == KyDateTimeN(0, 0, 0, -24, 0, -1, 854775807));
}

TEST(DateTextMembers, HaveFormatsOfTheirOwn) {
    EXPECT_EQ(PrintMember(kDate, nullptr), "2024-05-07");
    EXPECT_EQ(PrintMember(kTime, nullptr), "15:04:09");
    EXPECT_EQ(PrintMember(kDateTime, nullptr), "2024-05-07T15:04:09");
    EXPECT_EQ(PrintMember(KyDateTime_(kDateTimeN), nullptr), "2024-05-07T15:04:09.250");
    EXPECT_EQ(PrintMember(kDateTimeN, nullptr), "2024-05-07T15:04:09.250");
    EXPECT_EQ(PrintMember(kSpan, nullptr), "1.02:03:04.500");
    EXPECT_EQ(PrintMember(kDate, "%B"), "May");
    EXPECT_EQ(PrintMember(kTime, "%I"), "03");
    EXPECT_EQ(PrintMember(kDateTime, "%y"), "24");
    EXPECT_EQ(PrintMember(kDateTimeN, "%N"), "250000000");
    EXPECT_EQ(PrintMember(kSpan, "%J"), "1");
}

TEST(DateTextMembers, ScanWhatTheyPrint) {
    KyDate date = KyDate::ClearValue();
    KyTime time = KyTime::ClearValue();
    KyDateTime dateTime = KyDateTime::ClearValue();
    KyDateTimeN dateTimeN;
    KyDateTime_ fields;
    KyTimeSpan span;
    EXPECT_TRUE(ScanMember(date, "2024-05-07", nullptr) && date == kDate);
    EXPECT_TRUE(ScanMember(time, "15:04:09", nullptr) && time == kTime);
    EXPECT_TRUE(ScanMember(dateTime, "2024-05-07T15:04:09", nullptr) && dateTime == kDateTime);
    EXPECT_TRUE(ScanMember(dateTimeN, "2024-05-07T15:04:09.250", nullptr) && dateTimeN == kDateTimeN);
    EXPECT_TRUE(ScanMember(fields, "2024-05-07T15:04:09.250", nullptr) && KyDateTimeN(fields) == kDateTimeN);
    EXPECT_TRUE(ScanMember(span, "1.02:03:04.500", nullptr) && span == kSpan);
    EXPECT_TRUE(ScanMember(date, "May", "%b") && date == KyDate(0, 5, 0));
    EXPECT_FALSE(ScanMember(date, "2024", nullptr));
    EXPECT_EQ(date, KyDate(2024, 0, 0));
    EXPECT_TRUE(ScanMember(time, "{NULL}", nullptr) && time.IsNullValue());
}

TEST(DateTextMembers, TakeOneBlock) {
    KyString out("a text that is long enough to have been somewhere");
    for (const char* format : {"%Y-%m-%d", "%a %e.%b %Y", "%X", "%d. %B", "{%?(J)%f}", ""}) {
        EXPECT_EQ(TakenBy([&] { kDateTimeN.PrintToKyString(out, format); }).blocks, 1U) << format;
        KyString text(out);
        KyDateTimeN value;
        EXPECT_EQ(TakenBy([&] { value.ScanFromKyString(text, format); }).blocks, 0U) << format;
    }
}

TEST(DateTextMembers, WithoutMemoryTheOutputStays) {
    const std::string format(2000, 'x');
    for (const char* f : {"%Y-%m-%d", "%d. %B", format.c_str(), "%?(H%?(H%?(H%?(H%?(H"}) {
        KyString out("before");
        blocksLeft = 0;
        EXPECT_THROW(kDate.PrintToKyString(out, f), std::bad_alloc) << f;
        blocksLeft = -1;
        EXPECT_STREQ(out.StrGet(), "before");
    }
}

}  // namespace
