#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "kystring.h"
#include "kytypmgr.h"
#include "odmg_samples.h"
#include "support/comma_locale.h"
#include "support/fewer_cases.h"
#include "typemgr/row_patch.h"

namespace {

template <class Value>
std::string Print(const KyTypeTab& row, Value value, const char* format) {
    KyString out("before");
    EXPECT_EQ(&row.PrintToKyString(out, &value, format, 1), &out);
    return out.StrGet();
}

/// What scanning makes of a value; whether it succeeds.
template <class Value>
bool Scan(const KyTypeTab& row, Value& value, const char* text, const char* format) {
    KyString in(text);
    void* result = row.ScanFromKyString(&value, in, format, 1);
    EXPECT_TRUE(result == nullptr || result == &value);
    EXPECT_STREQ(in.StrGet(), text);
    return result != nullptr;
}

TEST(OdmgText, DatesPrintWithTheirOwnWeekday) {
    const struct {
        d_Date date;
        const char *format, *text;
    } cases[] = {
        {{2024, 5, 7}, nullptr, "Tue May 07"},
        {{2024, 5, 7}, "%A, %e. %B %Y", "Tuesday, 07. May 2024"},
        {{2024, 5, 7}, "%H:%M:%S.%N", "00:00:00.0"},
        {{1582, 10, 4}, "%a %Y-%m-%d", "Thu 1582-10-04"},
        {{1582, 10, 15}, "%a %Y-%m-%d", "Fri 1582-10-15"},
        {{1500, 3, 1}, "%a", "Sun"},  // a Thursday in the other calendar
        {{-1, 5, 7}, "%Y-%m-%d", "*-05-07"},
        {{2024, 255, 255}, "%Y-%m-%d %a %b", "2024-*-* * *"},
        {{2024, 13, 254}, "%Y-%m-%d %b", "2024-13--02 013"},
        {{0, 0, 0}, "%?Y%?m%?dx", "x"},
    };
    for (const auto& c : cases) EXPECT_EQ(Print(Kyd_DateTab, c.date, c.format), c.text) << HexOf(c.date);
    for (const auto& c : {d_Date(2024, 1, 1), d_Date(4700, 3, 1), d_Date(9975, 3, 1), d_Date(-300, 7, 7)}) {
        const char* const names[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
        EXPECT_EQ(Print(Kyd_DateTab, c, "%A"), names[c.day_of_week()]);
    }
}

TEST(OdmgText, TimesPrintTheirLocalValue) {
    const struct {
        d_Time time;
        const char *format, *text;
    } cases[] = {
        {TimeAt(13, 45, 59, 25), nullptr, "01:45:59 pm"},
        {TimeAt(13, 45, 59, 25, -5, -30), nullptr, "01:45:59 pm"},
        {TimeAt(0, 15, 0), nullptr, "12:15:00 am"},
        {TimeAt(13, 45, 59, 25, 5, 30), "%H:%M:%f", "13:45:59.250"},
        {TimeAt(13, 45, 59, 7), "%N", "70000000"},
        {TimeAt(-1, -1, -1, 0, 5, 30), "%H:%M:%S %I", "*:*:* *"},
        {TimeAt(25, 61, 99, 0), "%H:%M:%S", "25:61:99"},
        {TimeAt(1, 2, 3, -1), "%N %f", "-10000000 02.990"},
        // Hours out of range are no bytes to the printer.
        {TimeOfBytes({0x80, 0, 0x7F, 0, 0, 0}), "%H", "255"},
        {TimeAt(13, 45, 59), "%Y-%m-%d", "0000-00-00"},
    };
    for (const auto& c : cases) EXPECT_EQ(Print(Kyd_TimeTab, c.time, c.format), c.text) << HexOf(c.time);
}

TEST(OdmgText, TimestampsPrintBoth) {
    const d_Timestamp stamp(d_Date(1582, 10, 4), TimeAt(13, 45, 59, 25, 5, 30));
    EXPECT_EQ(Print(Kyd_TimestampTab, stamp, nullptr), "Thu Oct 04 01:45:59 pm");
    EXPECT_EQ(Print(Kyd_TimestampTab, stamp, "%X"), "1582-10-04T13:45:59.250");
}

TEST(OdmgText, IntervalsPrintDaysHoursMinutesSeconds) {
    const struct {
        float seconds;
        const char *format, *text;
    } cases[] = {
        {93784.5F, nullptr, "01 days, 02 hours, 03 minutes, 04 seconds"},
        {0, nullptr, "00 days, 00 hours, 00 minutes, 00 seconds"},
        {-5400, nullptr, "00 days, -01 hours, 30 minutes, 00 seconds"},
        {82800, nullptr, "00 days, 23 hours, 00 minutes, 00 seconds"},
        {82800, "%I %p", "23 pm"},
        {0, "%I%p", "00am"},
        {-1, "%e %I:%M:%S", "00 00:00:-01"},
        {-86400, "%e %J", "-01 -1"},
        {-0.25F, "%S.%N", "00.-250000000"},
        {-1.5F, "%f", "-1.500"},
        {-1.5F, "%S", "-01"},
        {-61.5F, "%M:%f", "-01:01.500"},
        {-0.004F, "%S.%N", "00.0"},
        {0.005F, "%N", "0"},
        {0.0051F, "%N", "10000000"},
        {0.29F, "%N", "290000000"},
        {59.996F, "%M:%f", "01:00"},
        {86400.0F * 100000, "%e %J", "100000 100000"},
        {3e38F, "%e", "2147483647"},
        {-3e38F, "%e", "-2147483647"},
        {std::numeric_limits<float>::infinity(), "%e", "2147483647"},
        {std::numeric_limits<float>::quiet_NaN(), "%e %H", "00 00"},
        {93784.5F, "%Y-%m %T", "0000-00 02:03:04"},
        {93784.5F, "%V", "1.02:03:04.500"},
        {-3723, "%?(J.)%?(H:)%M:%S", "-01:02:03"},
    };
    for (const auto& c : cases) EXPECT_EQ(Print(Kyd_IntervalTab, Seconds(c.seconds), c.format), c.text) << c.seconds;
}

TEST(OdmgText, DatesAreScanned) {
    const struct {
        const char *text, *format, *bytes;
        bool whole;
    } cases[] = {
        {"2024-05-07", "%Y-%m-%d", "E8 07 05 07", true},
        {"Tue May 07", nullptr, "00 00 05 07", true},
        {"*-05-*", "%Y-%m-%d", "FF FF 05 FF", true},
        {"2024-05", "%Y-%m-%d", "E8 07 05 00", false},
        {"", "%Y-%m-%d", "00 00 00 00", false},
        {"2023-02-30", "%Y-%m-%d", "E7 07 02 1E", true},
        {"-44-3-15", "%Y-%m-%d", "D4 FF 03 0F", true},
        {"{NULL}", "%Y-%m-%d", "00 00 00 00", true},
        {"{NULL} and more", nullptr, "00 00 00 00", true},
        {"70000-300-300", "%Y-%m-%d", "70 11 2C 2C", true},
    };
    for (const auto& c : cases) {
        d_Date date(9, 9, 9);
        EXPECT_EQ(Scan(Kyd_DateTab, date, c.text, c.format), c.whole) << c.text;
        EXPECT_EQ(HexOf(date), c.bytes) << c.text;
    }
}

TEST(OdmgText, TimesAreScannedInTheirZone) {
    const struct {
        const char *text, *format, *bytes;
        bool whole;
    } cases[] = {
        {"01:45:59 pm", nullptr, "05 1E 12 4B 3B 00", true}, {"13:45:59.25", "%H:%M:%f", "05 1E 12 4B 3B 19", true},
        {"13:45", "%H:%M:%f", "05 1E 12 4B 00 00", false},   {"*:*:*", "%H:%M:%S", "05 1E 04 1D FF 00", true},
        {"*:*:*", "%H:%M:%f", "05 1E 04 1D FF 00", true},    {"", nullptr, "05 1E 05 1E 00 00", false},
        {"{NULL}", nullptr, "05 1E 05 1E 00 00", true},      {"999999999", "%N", "05 1E 05 1E 00 63", true},
        {"2147483647", "%H", "05 1E 04 1E 00 00", true},
    };
    for (const auto& c : cases) {
        d_Time time = TimeAt(9, 9, 9, 9, 5, 30);
        EXPECT_EQ(Scan(Kyd_TimeTab, time, c.text, c.format), c.whole) << c.text;
        EXPECT_EQ(HexOf(time), c.bytes) << c.text;
        if (c.format != nullptr && std::string(c.format).find('%') != std::string::npos) {
            d_Timestamp stamp(d_Date(9, 9, 9), TimeAt(9, 9, 9, 9, 5, 30));
            EXPECT_EQ(Scan(Kyd_TimestampTab, stamp, c.text, c.format), c.whole);
            EXPECT_EQ(HexOf(stamp), std::string("00 00 00 00 ") + c.bytes) << c.text;
        }
    }
}

TEST(OdmgText, IntervalsAreScanned) {
    const struct {
        const char *text, *format;
        float seconds;
        bool whole;
    } cases[] = {
        {"01 days, 02 hours, 03 minutes, 04 seconds", nullptr, 93784, true},
        {"1 2:3:4.5", "%e %H:%M:%f", 93784.5F, true},
        {"0 -1:30:0", "%e %H:%M:%S", -5400, true},
        {"1 2:3:-4", "%e %H:%M:%S", -93784, true},
        {"*", "%e", -86400, true},
        {"", nullptr, 0, false},
        {"{NULL}", nullptr, 0, true},
        {"1 days", nullptr, 86400, false},
        {"100000", "%e", 8640000000.0F, true},
    };
    for (const auto& c : cases) {
        d_Interval interval(9);
        EXPECT_EQ(Scan(Kyd_IntervalTab, interval, c.text, c.format), c.whole) << c.text;
        EXPECT_EQ(interval.seconds(), c.seconds) << c.text;
    }
}

TEST(OdmgText, Kept_OfTotalDaysOnlyThoseBehindTheMonthsAreRead) {
    d_Interval interval(9);
    EXPECT_TRUE(Scan(Kyd_IntervalTab, interval, "29", "%J"));
    EXPECT_EQ(interval, d_Interval(29));
    EXPECT_TRUE(Scan(Kyd_IntervalTab, interval, "400", "%J"));
    EXPECT_EQ(interval, d_Interval(10));
}

TEST(OdmgText, NullPointersScanToNullPointers) {
    KyString text("1");
    for (const KyTypeTab* row : {&Kyd_DateTab, &Kyd_TimeTab, &Kyd_TimestampTab, &Kyd_IntervalTab}) {
        EXPECT_EQ(row->ScanFromKyString(nullptr, text, nullptr, 1), nullptr);
    }
}

TEST(OdmgText, RoundTripsWhereTheFormatKeepsEverything) {
    std::mt19937 random(6);
    for (int i = 0; i < 100000; i += kFewerCases) {
        const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
        const d_Timestamp stamp(d_Date(static_cast<short>(random()), static_cast<unsigned short>(random()),
                                       static_cast<unsigned short>(random())),
                                TimeAt(below(24), below(60), below(60), below(100), below(27) - 12, below(60)));
        const std::string text = Print(Kyd_TimestampTab, stamp, "%Y/%m/%d %H:%M:%S.%N");
        d_Timestamp back(d_Date(1, 1, 1), TimeAt(0, 0, 0, 0, stamp.tz_hour(), stamp.tz_minute()));
        ASSERT_TRUE(Scan(Kyd_TimestampTab, back, text.c_str(), "%Y/%m/%d %H:%M:%S.%N"));
        ASSERT_EQ(HexOf(back), HexOf(stamp)) << text;
        const float seconds = static_cast<float>(static_cast<int>(random())) / 256;
        const std::string printed = Print(Kyd_IntervalTab, Seconds(seconds), "%e %H:%M:%f");
        d_Interval interval;
        ASSERT_TRUE(Scan(Kyd_IntervalTab, interval, printed.c_str(), "%e %H:%M:%f"));
        ASSERT_NEAR(interval.seconds(), seconds, 0.005F + std::abs(seconds) * 1e-6F) << printed;
    }
}

TEST(OdmgText, IsTheSameUnderEveryLocale) {
    const CommaLocale locale;
    EXPECT_EQ(Print(Kyd_TimeTab, TimeAt(13, 45, 59, 25), "%f"), "59.250");
    d_Time time = TimeAt(0, 0, 0);
    EXPECT_TRUE(Scan(Kyd_TimeTab, time, "59.250", "%f"));
    EXPECT_EQ(HexOf(time), "00 00 00 00 3B 19");
}

/// The texts that a row converts values to, parted by blanks.
std::string Texts(KyTypeMgr& types, char id, void* values, unsigned count) {
    KyTypeConvertData* record = types.ConvertTo(id, values, count);
    std::string texts;
    for (unsigned i = 0; i < count; ++i) {
        texts += record->GetString(static_cast<int>(i))->StrGet();
        texts += '|';
    }
    delete record;
    return texts;
}

TEST(OdmgText, Kept_ConversionLosesWhatTheRowsFormatLacks) {
    KyTypeMgr types(5);
    d_Date dates[] = {d_Date(2024, 5, 7), d_Date(1582, 10, 4)};
    EXPECT_EQ(Texts(types, D_DATE_T, dates, 2), "Tue May 07|Thu Oct 04|");
    KyTypeConvertData* record = types.ConvertTo(D_DATE_T, dates, 2);
    auto* back = static_cast<d_Date*>(types.ConvertFrom(D_DATE_T, record, 2));
    EXPECT_EQ(HexOf(back[0]), "00 00 05 07");
    EXPECT_EQ(HexOf(back[1]), "00 00 0A 04");
    types.Delete(D_DATE_T, back, 2);
    delete record;
}

TEST(OdmgText, ConversionTakesTheRowsFormatOfTheTime) {
    KyTypeMgr types(5);
    const RowPatch row(Kyd_TimeTab);
    const char* const before = types.ExchangeFormat(D_TIME_T, "%H-%M-%S-%N");
    EXPECT_STREQ(before, "%I:%M:%S %p");
    const DefaultZone zone(3);
    d_Time times[] = {TimeAt(13, 45, 59, 25, 1)};
    EXPECT_EQ(Texts(types, D_TIME_T, times, 1), "13-45-59-250000000|");
    EXPECT_EQ(Print(Kyd_TimeTab, times[0], nullptr), "13-45-59-250000000");
    KyTypeConvertData* record = types.ConvertTo(D_TIME_T, times, 1);
    auto* back = static_cast<d_Time*>(types.ConvertFrom(D_TIME_T, record, 1));
    EXPECT_EQ(HexOf(*back), "03 00 10 2D 3B 19") << "the default zone";
    types.Delete(D_TIME_T, back, 1);
    delete record;
}

TEST(OdmgText, ARowWithoutAFormatHasItsOwn) {
    const RowPatch dates(Kyd_DateTab);
    const RowPatch times(Kyd_TimeTab);
    const RowPatch stamps(Kyd_TimestampTab);
    const RowPatch intervals(Kyd_IntervalTab);
    for (KyTypeTab* row : {&Kyd_DateTab, &Kyd_TimeTab, &Kyd_TimestampTab, &Kyd_IntervalTab}) row->printFormat = nullptr;
    const d_Date date(2024, 5, 7);
    const d_Time time = TimeAt(13, 45, 59);
    EXPECT_EQ(Print(Kyd_DateTab, date, nullptr), "Tue May 07");
    EXPECT_EQ(Print(Kyd_TimeTab, time, nullptr), "01:45:59 pm");
    EXPECT_EQ(Print(Kyd_TimestampTab, d_Timestamp(date, time), nullptr), "Tue May 07 01:45:59 pm");
    EXPECT_EQ(Print(Kyd_IntervalTab, Seconds(93784), nullptr), "01 days, 02 hours, 03 minutes, 04 seconds");
    d_Time scanned = TimeAt(0, 0, 0);
    EXPECT_TRUE(Scan(Kyd_TimeTab, scanned, "01:45:59 pm", nullptr));
    EXPECT_EQ(HexOf(scanned), HexOf(time));
    KyTypeMgr types(5);
    d_Date dateValue = date;
    EXPECT_EQ(Texts(types, D_DATE_T, &dateValue, 1), "Tue May 07|");
}

TEST(OdmgText, WithoutATextAllFieldsAreZero) {
    KyTypeMgr types(5);
    const DefaultZone zone(3);
    KyString* texts = KyStringCreate(3);
    texts[0].SetNullValue();
    texts[1] = "";
    texts[2] = "{NULL}";
    KyTypeConvertData* record = KyTypeConvertData::Make(KySTRING_T, 3, texts, &types);
    const struct {
        char id;
        std::size_t size;
        const char* bytes;
    } cases[] = {{D_DATE_T, 4, "00 00 00 00"},
                 {D_TIME_T, 6, "03 00 03 00 00 00"},
                 {D_TIMESTAMP_T, 10, "00 00 00 00 03 00 03 00 00 00"},
                 {D_INTERVAL_T, 4, "00 00 00 00"}};
    for (const auto& c : cases) {
        auto* values = static_cast<unsigned char*>(types.ConvertFrom(c.id, record, 4));
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(Hex(values + i * c.size, c.size), c.bytes) << int{c.id} << ' ' << i;
        types.Delete(c.id, values, 4);
        values = static_cast<unsigned char*>(types.ConvertFrom(c.id, nullptr, 1));
        EXPECT_EQ(Hex(values, c.size), c.bytes);
        types.Delete(c.id, values, 1);
    }
    delete record;
}

}  // namespace
