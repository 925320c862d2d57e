#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "kytypevl.h"
#include "odmg_samples.h"
#include "support/fewer_cases.h"

namespace {

/// The limits of a range, and those that a call records.
class Bounds {
public:
    Bounds() = default;
    Bounds(const Bounds&) = delete;
    Bounds& operator=(const Bounds&) = delete;
    ~Bounds() {
        mmKyfree(out.lower);
        mmKyfree(out.upper);
    }
    KyIdxBounds out;

    std::string Lower() const { return out.lower == nullptr ? "none" : Hex(out.lower, out.lowerLen); }
    std::string Upper() const { return out.upper == nullptr ? "none" : Hex(out.upper, out.upperLen); }
};

template <class Value>
float Share(const KyTypeTab& row, unsigned char form, unsigned short op, const std::vector<Value>& constant,
            const Value* lower, const Value* upper, KyIdxBounds* out = nullptr) {
    auto bytes = Stored(row, constant, form);
    const auto limit = [&](const Value* value) {
        return value == nullptr ? std::vector<unsigned char>() : Stored<Value>(row, {*value}, form);
    };
    auto low = limit(lower);
    auto high = limit(upper);
    KyIdxBounds bounds;
    bounds.lower = low.empty() ? nullptr : low.data();
    bounds.upper = high.empty() ? nullptr : high.data();
    return row.EvalAndBound(&bounds, op, bytes.data(), form, static_cast<unsigned>(constant.size()), out);
}

TEST(OdmgBounds, SharesAreOfDaysAndSeconds) {
    const d_Date first(1582, 10, 1);
    const d_Date last(1582, 10, 20);  // ten days
    const auto date = [](unsigned short day) { return std::vector<d_Date>{{1582, 10, day}}; };
    for (const unsigned char form : {KyFormNative, KyFormReversed, KyFormMemory}) {
        EXPECT_FLOAT_EQ(Share(Kyd_DateTab, form, KyCmpEqual, date(15), &first, &last), 0.1F);
        EXPECT_FLOAT_EQ(Share(Kyd_DateTab, form, KyCmpLess, date(15), &first, &last), 0.4F);
        EXPECT_FLOAT_EQ(Share(Kyd_DateTab, form, KyCmpGreater, date(15), &first, &last), 0.5F);
        EXPECT_FLOAT_EQ(Share(Kyd_DateTab, form, KyCmpGreater | KyCmpLess, date(15), &first, &last), 0.9F);
        EXPECT_EQ(Share(Kyd_DateTab, form, KyCmpEqual, date(30), &first, &last), 0);
        EXPECT_EQ(Share(Kyd_DateTab, form, KyCmpLess, date(30), &first, &last), 1);
        EXPECT_EQ(Share(Kyd_DateTab, form, KyCmpLess, date(15), &last, &first), 0) << "limits that crossed";

        const d_Time from = TimeAt(10, 0, 0, 0, 5);
        const d_Time to = TimeAt(10, 1, 39);  // 100 seconds
        const std::vector<d_Time> time = {TimeAt(10, 0, 10, 0, -3, -30)};
        EXPECT_FLOAT_EQ(Share(Kyd_TimeTab, form, KyCmpLess, time, &from, &to), 0.1F);
        EXPECT_FLOAT_EQ(Share(Kyd_TimeTab, form, KyCmpGreater | KyCmpEqual, time, &from, &to), 0.9F);

        const d_Timestamp start(d_Date(1582, 10, 4), TimeAt(23, 59, 50));
        const d_Timestamp end(d_Date(1582, 10, 15), TimeAt(0, 0, 9, 99));  // 20 seconds
        const std::vector<d_Timestamp> stamp = {{d_Date(1582, 10, 15), TimeAt(0, 0, 0)}};
        EXPECT_FLOAT_EQ(Share(Kyd_TimestampTab, form, KyCmpLess, stamp, &start, &end), 0.5F);
        EXPECT_FLOAT_EQ(Share(Kyd_TimestampTab, form, KyCmpEqual, stamp, &start, &end), 0.05F);

        const d_Interval low = Seconds(0);
        const d_Interval high = Seconds(9);
        EXPECT_FLOAT_EQ(Share<d_Interval>(Kyd_IntervalTab, form, KyCmpLess, {Seconds(2.5F)}, &low, &high), 0.25F);
    }
}

TEST(OdmgBounds, AMissingLimitMeasuresNothing) {
    const d_Date last(2024, 5, 7);
    const std::vector<d_Date> date = {{2024, 5, 7}};
    EXPECT_FLOAT_EQ(Share<d_Date>(Kyd_DateTab, KyFormNative, KyCmpEqual, date, nullptr, &last),
                    1.0F / static_cast<float>(last.getAbsDate() + 1));
    EXPECT_EQ(Share<d_Date>(Kyd_DateTab, KyFormNative, KyCmpEqual, date, &last, nullptr), 0);
    EXPECT_EQ(Share<d_Date>(Kyd_DateTab, KyFormNative, KyCmpEqual, {d_Date(-4713, 1, 1)}, nullptr, nullptr), 0);
}

TEST(OdmgBounds, WithoutARangeLimitsAreRecordedAllTheSame) {
    const struct {
        const KyTypeTab& row;
        std::vector<unsigned char> bytes;
        unsigned short kept;
    } cases[] = {
        {Kyd_DateTab, Bytes("07 E8 05 07 07 E8 05 08"), 0x800F},
        {Kyd_TimeTab, Bytes("00 00 01 02 03 04 FF FF FF FF FF FF"), 0x8007},
        {Kyd_TimestampTab, Bytes("07 E8 05 07 FF FF FF FF FF FF 07 E8 05 08 00 00 00 00 00 00"), 0x8007},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.row.typeName);
        const std::string hex = Hex(c.bytes.data(), c.bytes.size());
        for (const int relation : {1, 2, 3, 4, 5, 6, 7}) {
            for (const int modifiers : {0x0000, 0x7FF0, 0x8000, 0xFFF8}) {
                auto bytes = c.bytes;
                Bounds bounds;
                auto op = static_cast<unsigned short>(relation | modifiers);
                const unsigned short before = op;
                EXPECT_EQ(c.row.EvalAndBound(nullptr, op, bytes.data(), KyFormReversed, 2, &bounds.out), 0);
                EXPECT_EQ(op, before & c.kept);
                EXPECT_EQ(bounds.Lower(), (relation & KyCmpLess) != 0 ? "none" : hex);
                EXPECT_EQ(bounds.Upper(), (relation & KyCmpGreater) != 0 ? "none" : hex);
                EXPECT_EQ(c.row.EvalAndBound(nullptr, op, bytes.data(), KyFormReversed, 2, nullptr), 0);
            }
        }
    }
}

TEST(OdmgBounds, LengthsOfArraysAreCutToAByte) {
    std::vector<d_Date> dates(65, d_Date(2024, 5, 7));
    Bounds bounds;
    unsigned short op = KyCmpEqual;
    Kyd_DateTab.EvalAndBound(nullptr, op, dates.data(), KyFormNative, 65, &bounds.out);
    EXPECT_EQ(bounds.out.lowerLen, 4);
    EXPECT_EQ(std::memcmp(bounds.out.lower, dates.data(), 260), 0);
}

TEST(OdmgBounds, WildcardsRecordNothingAndKeepEverything) {
    const d_Date lower(2000, 1, 1);
    const d_Date upper(2030, 1, 1);
    const std::vector<d_Date> constants[] = {
        {{-1, 5, 7}}, {{2024, 255, 7}}, {{2024, 5, 255}}, {{-1, 255, 255}}, {{2024, 5, 7}, {-1, 5, 7}}};
    for (const auto& constant : constants) {
        for (const unsigned char form : {KyFormNative, KyFormReversed}) {
            for (const bool exact : {false, true}) {
                const auto op = static_cast<unsigned short>(KyCmpEqual | (exact ? KyCmpExact : 0));
                Bounds dates;
                const float share = Share(Kyd_DateTab, form, op, constant, &lower, &upper, &dates.out);
                EXPECT_EQ(share == 1, !exact);
                EXPECT_EQ(dates.Lower() == "none", !exact);
                EXPECT_EQ(dates.Upper() == "none", !exact);

                std::vector<d_Timestamp> stamps;
                for (const d_Date& date : constant) stamps.emplace_back(date, TimeAt(1, 2, 3));
                const d_Timestamp from(lower, TimeAt(0, 0, 0));
                const d_Timestamp to(upper, TimeAt(0, 0, 0));
                Bounds bounds;
                EXPECT_EQ(Share(Kyd_TimestampTab, form, op, stamps, &from, &to, &bounds.out) == 1, !exact);
                EXPECT_EQ(bounds.Lower() == "none", !exact);

                auto bytes = Stored(Kyd_DateTab, constant, form);
                auto word = static_cast<unsigned short>(op | 0x7FE0);
                EXPECT_EQ(Kyd_DateTab.EvalAndBound(nullptr, word, bytes.data(), form,
                                                   static_cast<unsigned>(constant.size()), nullptr),
                          0);
                EXPECT_EQ(word, KyCmpEqual);
            }
        }
    }
}

TEST(OdmgBounds, BytesOf255AreTimesLikeOthers) {
    Bounds bounds;
    unsigned short op = KyCmpEqual;
    d_Time time = TimeOfBytes({0, 0, 255, 255, 255, 255});
    Kyd_TimeTab.EvalAndBound(nullptr, op, &time, KyFormNative, 1, &bounds.out);
    EXPECT_EQ(bounds.Lower(), "00 00 FF FF FF FF");
}

bool Accepts(int order, unsigned short op) {
    return (order == 0 && (op & KyCmpEqual) != 0) || (order < 0 && (op & KyCmpLess) != 0) ||
           (order > 0 && (op & KyCmpGreater) != 0);
}

/// Every key that a comparison accepts lies within the limits that it records.
template <class Value, class Any>
void CheckNoMatchIsLost(const KyTypeTab& row, Any any) {
    std::mt19937 random(8);
    int recorded = 0;
    for (int round = 0; round < 3000; round += kFewerCases) {
        const unsigned char form = random() % 2 == 0 ? KyFormNative : KyFormReversed;
        auto op = static_cast<unsigned short>(1 + random() % 7);
        if (random() % 2 == 0) op |= KyCmpExact;
        auto constant = Stored<Value>(row, {any(random)}, form);
        Bounds bounds;
        auto word = op;
        row.EvalAndBound(nullptr, word, constant.data(), form, 1, &bounds.out);
        recorded += static_cast<int>(bounds.out.lower != nullptr);
        for (int i = 0; i < 50; ++i) {
            auto key = Stored<Value>(row, {any(random)}, form);
            int err = 0;
            if (!Accepts(row.Compare(form, 0, key.data(), 0, constant.data(), op, 1, err), op)) continue;
            if (bounds.out.lower != nullptr) {
                ASSERT_GE(row.Compare(form, 0, key.data(), 0, bounds.out.lower, KyCmpExact, 1, err), 0)
                    << Hex(key.data(), key.size()) << ' ' << op << ' ' << bounds.Lower();
            }
            if (bounds.out.upper != nullptr) {
                ASSERT_LE(row.Compare(form, 0, key.data(), 0, bounds.out.upper, KyCmpExact, 1, err), 0)
                    << Hex(key.data(), key.size()) << ' ' << op << ' ' << bounds.Upper();
            }
        }
    }
    EXPECT_GT(recorded, 100 / kFewerCases);
}

TEST(OdmgBounds, NoMatchIsLost) {
    const auto anyDate = [](std::mt19937& random) {
        const short years[] = {-1, -44, 0, 2024, 2025};
        const unsigned short fields[] = {255, 1, 5, 7, 128};
        return d_Date(years[random() % 5], fields[random() % 5], fields[random() % 5]);
    };
    const auto anyTime = [](std::mt19937& random) {
        const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
        return TimeAt(below(3) - 1, below(3) - 1, below(3), 45 * below(3), below(3) - 1);
    };
    CheckNoMatchIsLost<d_Date>(Kyd_DateTab, anyDate);
    CheckNoMatchIsLost<d_Time>(Kyd_TimeTab, anyTime);
    CheckNoMatchIsLost<d_Timestamp>(
        Kyd_TimestampTab, [=](std::mt19937& random) { return d_Timestamp(anyDate(random), anyTime(random)); });
    CheckNoMatchIsLost<d_Interval>(Kyd_IntervalTab, [](std::mt19937& random) {
        return Seconds(static_cast<float>(static_cast<int>(random() % 9) - 4));
    });
}

/// The share against a count of the keys that satisfy the comparison.
TEST(OdmgBounds, SharesAgreeWithACount) {
    std::mt19937 random(9);
    for (int round = 0; round < 20000; round += kFewerCases) {
        const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
        const auto day = [](int n) { return d_Date(1582, static_cast<unsigned short>(n)); };
        const int lower = 250 + below(60);
        const int upper = lower + below(60);
        const int value = 240 + below(140);
        const auto op = static_cast<unsigned short>(below(8));
        int kept = 0;
        for (int key = lower; key <= upper; ++key) kept += static_cast<int>(Accepts(key - value, op));
        const d_Date from = day(lower);
        const d_Date to = day(upper);
        const float expected = static_cast<float>(kept) / static_cast<float>(upper - lower + 1);
        ASSERT_FLOAT_EQ(Share<d_Date>(Kyd_DateTab, KyFormReversed, op, {day(value)}, &from, &to), expected)
            << lower << ' ' << upper << ' ' << value << ' ' << op;
        const auto moment = [](int n) {
            return d_Timestamp(d_Date(2024, 2, 28), TimeAt(23, 55, 0)) + Seconds(static_cast<float>(n));
        };
        const d_Timestamp start = moment(lower);
        const d_Timestamp end = moment(upper);
        ASSERT_FLOAT_EQ(Share<d_Timestamp>(Kyd_TimestampTab, KyFormNative, op, {moment(value)}, &start, &end),
                        expected);
    }
}

}  // namespace
