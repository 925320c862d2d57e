#include "date_bounds.h"

#include <gtest/gtest.h>

#include <random>

#include "date_roster.h"
#include "kybase.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// EvalAndBound: the share that is kept and the limits that are recorded.

namespace {

/// A record that frees what was recorded in it.
struct Recorded {
    KyIdxBounds record;
    Recorded() = default;
    Recorded(const Recorded&) = delete;
    Recorded& operator=(const Recorded&) = delete;
    ~Recorded() {
        mmKyfree(record.lower);
        mmKyfree(record.upper);
    }
    std::string Lower() const { return record.lower != nullptr ? Hex(record.lower, record.lowerLen) : "none"; }
    std::string Upper() const { return record.upper != nullptr ? Hex(record.upper, record.upperLen) : "none"; }
};

/// The share of "key op value" between two limits, null where one is missing; nothing behind them can be read.
float Share(const DateType& type, unsigned short op, const SlowDate& value, const SlowDate* lower,
            const SlowDate* upper, unsigned char flag, KyIdxBounds* out = nullptr) {
    const auto buffer = [&](const SlowDate& fields) {
        const ByteVector bytes = DateInForm(type, fields, flag);
        return std::make_unique<GuardedBuffer>(std::span(bytes));
    };
    const auto valueBytes = buffer(value);
    const auto lowerBytes = lower != nullptr ? buffer(*lower) : nullptr;
    const auto upperBytes = upper != nullptr ? buffer(*upper) : nullptr;
    KyIdxBounds bounds;
    if (lower != nullptr) bounds.lower = lowerBytes->data();
    if (upper != nullptr) bounds.upper = upperBytes->data();
    return type.row->EvalAndBound(&bounds, op, valueBytes->data(), flag, 1, out);
}

struct Case {
    std::size_t type;  ///< index of the type
    unsigned short op;
    SlowDate value, lower, upper;
    float share;
};

const Case kCases[] = {
    // Days of the calendar.
    {0, 1, {2024, 5, 7}, {2024, 5, 1}, {2024, 5, 10}, 0.1F},
    {0, 5, {2024, 5, 7}, {2024, 5, 1}, {2024, 5, 10}, 0.4F},
    {0, 2, {2024, 3, 1}, {2024, 2, 28}, {2024, 3, 3}, 0.4F},
    {0, 2, {2023, 3, 1}, {2023, 2, 28}, {2023, 3, 3}, 0.25F},
    {0, 4, {2024, 5, 7}, {2024, 5, 8}, {2024, 5, 10}, 1.0F},
    {0, 1, {2024, 5, 7}, {2024, 5, 8}, {2024, 5, 10}, 0.0F},
    {0, 7, {2024, 5, 7}, {2024, 5, 10}, {2024, 5, 8}, 0.0F},
    // Seconds of the day.
    {1, 1, {0, 0, 0, 0, 0, 5}, {0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 9}, 0.1F},
    {1, 2, {0, 0, 0, 12, 0, 0}, {0, 0, 0, 0, 0, 0}, {0, 0, 0, 23, 59, 59}, 0.5F},
    {1, 4, {0, 0, 0, 0, 1, 59}, {0, 0, 0, 0, 1, 0}, {0, 0, 0, 0, 2, 59}, 0.5F},
    {1, 1, {0, 0, 0, 1, 0, 0}, {0, 0, 0, -128, 0, 0}, {0, 0, 0, -127, 0, 0}, 0.0F},
    // Seconds by months of 31 days: from the end of a month of 30 days there are two days to the next one.
    {2, 2, {2024, 5, 7, 0, 0, 0}, {2024, 5, 6, 0, 0, 0}, {2024, 5, 7, 23, 59, 59}, 0.5F},
    {2, 2, {2024, 7, 1, 0, 0, 0}, {2024, 6, 30, 0, 0, 0}, {2024, 7, 2, 23, 59, 59}, 0.5F},
    {2, 1, {2024, 5, 7, 0, 0, 1}, {2024, 5, 7, 0, 0, 0}, {2024, 5, 7, 0, 0, 9}, 0.1F},
    // Single nanoseconds of a day far from zero.
    {3, 1, {2024, 5, 7, 1, 2, 3, 5}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.1F},
    {3, 5, {2024, 5, 7, 1, 2, 3, 5}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.5F},
    {3, 2, {32767, 12, 31, 1, 2, 3, 1}, {32767, 12, 31, 1, 2, 3, 0}, {32767, 12, 31, 1, 2, 3, 3}, 0.25F},
    {3, 1, {2024, 5, 7, 1, 2, 3, 10}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.0F},
    {4, 2, {0, 0, 1, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0}, {0, 0, 1, 23, 59, 59, 999999999}, 0.5F},
    // What stops right at a limit is one key, as with 64-bit integers.
    {3, 2, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.1F},
    {3, 4, {2024, 5, 7, 1, 2, 3, 9}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.1F},
    {3, 2, {2024, 5, 7, 1, 2, 2, 9}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.0F},
    {3, 4, {2024, 5, 7, 1, 2, 4, 0}, {2024, 5, 7, 1, 2, 3, 0}, {2024, 5, 7, 1, 2, 3, 9}, 0.0F},
    {2, 2, {2024, 5, 7, 1, 2, 3}, {2024, 5, 7, 1, 2, 3}, {2024, 5, 7, 1, 2, 12}, 0.0F},
};

TEST(DateShare, OfKnownRanges) {
    for (const Case& c : kCases) {
        const DateType& type = DateTypes()[c.type];
        for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
            for (const unsigned modifiers : {0x10u, 0x8010u, 0x7FF8u, 0u}) {
                const auto op = static_cast<unsigned short>(c.op | modifiers);
                EXPECT_EQ(Share(type, op, c.value, &c.lower, &c.upper, flag), c.share)
                    << type.Name() << ' ' << op << ' ' << testing::PrintToString(c.value);
            }
        }
    }
}

TEST(DateShare, AgreesWithTheSlowTwin) {
    std::mt19937 random{5};
    const auto sample = [&random] { return DateSamples()[random() % DateSamples().size()]; };
    for (const DateType& type : DateTypes()) {
        for (int round = 0; round < 20000 / kFewerCases; ++round) {
            const SlowDate value = OwnFields(type, sample());
            const SlowDate lower = OwnFields(type, sample());
            const SlowDate upper = OwnFields(type, sample());
            const SlowDate* const from = round % 5 == 0 ? nullptr : &lower;
            const SlowDate* const to = round % 7 == 0 ? nullptr : &upper;
            const auto op = static_cast<unsigned short>(random() % 8 | 0x10);
            ASSERT_EQ(Share(type, op, value, from, to, KyFormReversed), SlowDateShare(type.shape, op, value, from, to))
                << type.Name() << ' ' << op << ' ' << testing::PrintToString(value) << testing::PrintToString(lower)
                << testing::PrintToString(upper);
        }
    }
}

TEST(DateShare, OfArraysIsThatOfTheirFirstElement) {
    for (const DateType& type : DateTypes()) {
        ByteVector value = DatesInForm(type, {{2, 2, 2, 2, 2, 2, 2}, {9, 9, 9, 9, 9, 9, 9}}, KyFormReversed);
        ByteVector lower = DateInForm(type, {1, 1, 1, 1, 1, 1, 1}, KyFormReversed);
        ByteVector upper = DateInForm(type, {3, 3, 3, 3, 3, 3, 3}, KyFormReversed);
        KyIdxBounds bounds;
        bounds.lower = lower.data();
        bounds.upper = upper.data();
        unsigned short op = KyCmpLess;
        Recorded out;
        const float share = type.row->EvalAndBound(&bounds, op, value.data(), KyFormReversed, 2, &out.record);
        const SlowDate one{1, 1, 1, 1, 1, 1, 1};
        const SlowDate two{2, 2, 2, 2, 2, 2, 2};
        const SlowDate three{3, 3, 3, 3, 3, 3, 3};
        EXPECT_EQ(share, Share(type, KyCmpLess, two, &one, &three, KyFormReversed));
        EXPECT_GT(share, 0);
        EXPECT_LT(share, 1);
        EXPECT_EQ(out.Lower(), "none");
        EXPECT_EQ(out.Upper(), Hex(value.data(), value.size())) << "all elements are recorded";
    }
}

TEST(DateBounds, TheWordKeepsItsRelationOnly) {
    for (const DateType& type : DateTypes()) {
        const unsigned kept = type.id == KyDATE_T ? 0x800F : 0x8007;
        for (unsigned op = 0; op < 0x10000; op += 0x0101) {
            for (const bool wildcard : {false, true}) {
                ByteVector value = DateInForm(type, wildcard ? SlowDate{-1, -1, -1, -1, -1, -1, -1} : SlowDate{}, 1);
                auto word = static_cast<unsigned short>(op);
                EXPECT_EQ(type.row->EvalAndBound(nullptr, word, value.data(), KyFormNative, 1, nullptr), 0);
                EXPECT_EQ(word, op & kept) << type.Name();
            }
        }
    }
}

TEST(DateBounds, RecordTheConstantWhereTheComparisonSetsALimit) {
    for (const DateType& type : DateTypes()) {
        const SlowDate constant{2024, 5, 7, 13, 45, 59, 5};
        for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
            const std::string hex = Hex(DateInForm(type, constant, flag).data(), type.Stored());
            for (unsigned relation = 0; relation < 8; ++relation) {
                Recorded out;
                ByteVector value = DateInForm(type, constant, flag);
                auto op = static_cast<unsigned short>(relation);
                EXPECT_EQ(type.row->EvalAndBound(nullptr, op, value.data(), flag, 1, &out.record), 0);
                EXPECT_EQ(out.Lower(), (relation & KyCmpLess) == 0 ? hex : "none") << relation;
                EXPECT_EQ(out.Upper(), (relation & KyCmpGreater) == 0 ? hex : "none") << relation;
                // What is set stays.
                ByteVector other = DateInForm(type, {1, 1, 1, 1, 1, 1, 1}, flag);
                op = KyCmpEqual;
                const std::string lower = out.Lower();
                type.row->EvalAndBound(nullptr, op, other.data(), flag, 1, &out.record);
                if (lower != "none") {
                    EXPECT_EQ(out.Lower(), lower);
                }
            }
        }
    }
}

TEST(DateBounds, AWildcardInAnyElementRecordsNothingAndKeepsAll) {
    for (const DateType& type : DateTypes()) {
        for (std::size_t field = 0; field < 7; ++field) {
            const SlowDate plain{2024, 5, 7, 13, 45, 59, 5};
            SlowDate wild = plain;
            wild[field] = -1;
            const bool has = OwnFields(type, wild) != OwnFields(type, plain);
            for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
                for (const bool second : {false, true}) {
                    ByteVector value = DatesInForm(type, {second ? plain : wild, second ? wild : plain}, flag);
                    ByteVector low = DateInForm(type, {2024, 5, 7, 13, 45, 59, 0}, flag);
                    ByteVector high = DateInForm(type, {2024, 6, 8, 14, 46, 60, 9}, flag);
                    KyIdxBounds bounds;
                    bounds.lower = low.data();
                    bounds.upper = high.data();
                    Recorded out;
                    unsigned short op = KyCmpEqual | 0x8000;
                    const float share = type.row->EvalAndBound(&bounds, op, value.data(), flag, 2, &out.record);
                    EXPECT_EQ(out.Lower() == "none", has);
                    EXPECT_EQ(out.Upper() == "none", has);
                    EXPECT_EQ(share == 1.0F, has);
                    EXPECT_EQ(op, KyCmpEqual | 0x8000);
                    op = KyCmpEqual;
                    EXPECT_EQ(type.row->EvalAndBound(nullptr, op, value.data(), flag, 2, &out.record), 0.0F);

                    Recorded exact;
                    op = KyCmpEqual | KyCmpExact;
                    EXPECT_LT(type.row->EvalAndBound(&bounds, op, value.data(), flag, 2, &exact.record), 1.0F);
                    EXPECT_EQ(exact.Lower(), Hex(value.data(), value.size())) << "an exact word knows no wildcards";
                }
            }
        }
    }
}

/// Whether a key of stored form compares with the constant as the relation asks.
bool Accepts(const DateType& type, ByteVector key, ByteVector constant, unsigned short op, unsigned char flag) {
    int err = -1;
    const int order = type.row->Compare(flag, 0, key.data(), 0, constant.data(), op, 1, err);
    if (order == 0) return (op & KyCmpEqual) != 0;
    return (op & (order < 0 ? KyCmpLess : KyCmpGreater)) != 0;
}

TEST(DateBounds, NarrowedLimitsNeverLoseAMatch) {
    for (const DateType& type : DateTypes()) {
        for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
            for (unsigned word = 1; word < 8; ++word) {
                for (const unsigned modifier : {0u, 0x10u}) {
                    for (const SlowDate& constant : DateSamples()) {
                        const auto op = static_cast<unsigned short>(word | modifier);
                        const ByteVector bytes = DateInForm(type, constant, flag);
                        Recorded out;
                        auto reduced = op;
                        ByteVector value = bytes;
                        type.row->EvalAndBound(nullptr, reduced, value.data(), flag, 1, &out.record);
                        for (const SlowDate& key : DateSamples()) {
                            ByteVector keyBytes = DateInForm(type, key, flag);
                            if (!Accepts(type, keyBytes, bytes, op, flag)) continue;
                            int err = -1;
                            // An index is in exact order.
                            if (out.record.lower != nullptr) {
                                EXPECT_GE(
                                    type.row->Compare(flag, 0, keyBytes.data(), 0, out.record.lower, 0x10, 1, err), 0);
                            }
                            if (out.record.upper != nullptr) {
                                EXPECT_LE(
                                    type.row->Compare(flag, 0, keyBytes.data(), 0, out.record.upper, 0x10, 1, err), 0);
                            }
                        }
                    }
                }
            }
        }
    }
}

}  // namespace
