#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

#include "kystring.h"
#include "odmg_samples.h"
#include "support/golden.h"

// The rows' own formats have no years and no hundredths: golden values stand in formats that keep everything.

namespace {

std::string HashText(unsigned hash) {
    char text[9];
    std::snprintf(text, sizeof text, "%08X", hash);
    return text;
}

template <class Value>
void CheckBytes(const KyTypeTab& row, const Value& value, const GoldenLine& line) {
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
        auto bytes = Stored<Value>(row, {value}, form);
        EXPECT_EQ(Hex(bytes.data(), bytes.size()), form == KyFormReversed ? line.form2 : line.form1);
        int err = -1;
        EXPECT_EQ(HashText(row.Hash(form, 0, bytes.data(), 1, err)), line.hash);
        Value back = value;
        std::memset(static_cast<void*>(&back), 0, sizeof back);
        row.Load(&back, bytes.data(), form, 1);
        EXPECT_EQ(HexOf(back), line.form1);
    }
}

/// `made` takes off a text what names a zone and gives the value that the rest is scanned into.
template <class Value, class Made>
void CheckFile(const KyTypeTab& row, const char* format, Made made) {
    const std::vector<GoldenLine> lines = ReadGolden(GoldenName(row));
    EXPECT_FALSE(lines.empty());
    for (const GoldenLine& line : lines) {
        SCOPED_TRACE(GoldenName(row) + ".txt:" + std::to_string(line.number) + " " + line.value);
        std::string plain = line.value;
        Value value = made(plain);
        KyString text(plain.c_str());
        EXPECT_EQ(row.ScanFromKyString(&value, text, format, 1), &value);
        CheckBytes(row, value, line);
        KyString printed;
        row.PrintToKyString(printed, &value, format, 1);
        EXPECT_EQ(std::string(printed.StrGet()), plain);
    }
}

/// Takes " +5:30" off a text.
d_Time InZone(std::string& text) {
    const std::size_t at = text.rfind(' ');
    int hours = 0;
    int minutes = 0;
    EXPECT_EQ(std::sscanf(text.c_str() + at, "%d:%d", &hours, &minutes), 2);
    text.resize(at);
    return TimeAt(9, 9, 9, 9, hours, minutes);
}

TEST(OdmgGolden, Dates) {
    CheckFile<d_Date>(Kyd_DateTab, "%Y-%m-%d", [](std::string&) { return d_Date(9, 9, 9); });
}

TEST(OdmgGolden, Times) { CheckFile<d_Time>(Kyd_TimeTab, "%H:%M:%S.%N", InZone); }

TEST(OdmgGolden, Timestamps) {
    CheckFile<d_Timestamp>(Kyd_TimestampTab, "%Y-%m-%d %H:%M:%S.%N",
                           [](std::string& text) { return d_Timestamp(d_Date(9, 9, 9), InZone(text)); });
}

TEST(OdmgGolden, Intervals) {
    CheckFile<d_Interval>(Kyd_IntervalTab, "%e %H:%M:%f", [](std::string&) { return d_Interval(9); });
}

}  // namespace
