#include <gtest/gtest.h>

#include "date_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// The order of dates and times and their hash, by cases written down here.

namespace {

/// The order of two values of any types' fields.
int Compare(KyTypeTab& row, const SlowDate& a, const SlowDate& b, unsigned char flag, unsigned short op) {
    for (const DateType& type : DateTypes()) {
        if (type.row != &row) continue;
        ByteVector bytesA = DateInForm(type, a, flag, 0x11);
        ByteVector bytesB = DateInForm(type, b, flag, 0x22);
        int err = -1;
        const int result = row.Compare(flag, 0, bytesA.data(), 0, bytesB.data(), op, 1, err);
        EXPECT_EQ(err, 0);
        return result;
    }
    ADD_FAILURE();
    return 0;
}

struct Case {
    SlowDate a;
    SlowDate b;
    int exact;          ///< -1, 0 or 1
    int stored;         ///< without the exact bit, in the stored forms
    int inMemory;       ///< without it in memory form: the fields' difference
    int exactInMemory;  ///< with it
};

void CheckCases(KyTypeTab& row, const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(row.typeName) + testing::PrintToString(c.a) + testing::PrintToString(c.b));
        for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
            EXPECT_EQ(Compare(row, c.a, c.b, flag, 0x10), c.exact);
            EXPECT_EQ(Compare(row, c.a, c.b, flag, 0xFFFF), c.exact);
            EXPECT_EQ(Compare(row, c.a, c.b, flag, 0), c.stored);
            EXPECT_EQ(Compare(row, c.a, c.b, flag, 0xFFEF), c.stored);
        }
        EXPECT_EQ(Compare(row, c.a, c.b, KyFormMemory, 0), c.inMemory);
        EXPECT_EQ(Compare(row, c.a, c.b, KyFormMemory, 0x10), c.exactInMemory);
    }
}

TEST(DateOrder, OfDates) {
    CheckCases(KyDateTab, {
                              {{2024, 5, 7}, {2024, 5, 7}, 0, 0, 0, 0},
                              {{2024, 5, 7}, {2023, 12, 31}, 1, 1, 1, 1},
                              {{2024, 5, 7}, {2024, 6, 1}, -1, -1, -1, -1},
                              {{2024, 5, 7}, {2024, 5, 9}, -1, -1, -2, -2},
                              {{-300, 5, 7}, {200, 5, 7}, -1, -1, -500, -500},
                              // A wildcard that stands second, then first.
                              {{2024, 5, 7}, {-1, 5, -1}, 1, 0, 0, 2025},
                              {{-1, 5, -1}, {2024, 5, 7}, -1, -1, 0, -2025},
                              {{2024, 5, 7}, {-1, 6, -1}, 1, -1, -1, 2025},
                              {{2024, 5, 7}, {2024, -1, 7}, 1, 0, 0, 6},
                              {{2024, 5, 7}, {2024, -1, 8}, 1, -1, -1, 6},
                              {{2024, 5, -1}, {2024, 5, 7}, -1, -1, 0, -8},
                              {{-1, 4, 7}, {-1, 5, 7}, -1, -1, -1, -1},
                              // Two wildcards are alike in any case.
                              {{-1, -1, -1}, {-1, -1, -1}, 0, 0, 0, 0},
                          });
}

TEST(DateOrder, OfTimes) {
    CheckCases(KyTimeTab, {
                              {{0, 0, 0, 1, 2, 3}, {0, 0, 0, 1, 2, 3}, 0, 0, 0, 0},
                              {{0, 0, 0, 1, 2, 3}, {0, 0, 0, 1, 2, 9}, -1, -1, -6, -6},
                              {{0, 0, 0, -128, 0, 0}, {0, 0, 0, 127, 0, 0}, -1, -1, -255, -255},
                              {{0, 0, 0, 1, 2, 3}, {0, 0, 0, -1, 2, 3}, 1, 0, 0, 2},
                              {{0, 0, 0, -1, 2, 3}, {0, 0, 0, 1, 2, 3}, -1, -1, 0, -2},
                              {{0, 0, 0, 1, 2, 3}, {0, 0, 0, 1, -1, 4}, 1, -1, -1, 3},
                              {{0, 0, 0, 1, 2, 3}, {0, 0, 0, 1, 2, -1}, 1, 0, 0, 4},
                          });
}

TEST(DateOrder, OfDateTimes) {
    CheckCases(KyDateTimeTab, {
                                  {{2024, 5, 7, 1, 2, 3}, {2024, 5, 7, 1, 2, 3}, 0, 0, 0, 0},
                                  {{2024, 5, 7, 23, 0, 0}, {2024, 5, 8, 1, 0, 0}, -1, -1, -1, -1},
                                  {{2024, 5, 7, 23, 0, 0}, {2024, 5, 7, 1, 0, 0}, 1, 1, 22, 22},
                                  // A day that may be any leaves it to the time.
                                  {{2024, 5, 7, 23, 0, 0}, {2024, 5, -1, 1, 0, 0}, 1, 1, 22, 8},
                                  {{2024, 5, 7, 1, 2, 3}, {-1, -1, -1, -1, -1, 3}, 1, 0, 0, 2025},
                                  {{-1, -1, -1, -1, -1, 3}, {2024, 5, 7, 1, 2, 3}, -1, -1, 0, -2025},
                              });
}

TEST(DateOrder, OfNanoseconds) {
    for (KyTypeTab* row : {&KyDateTimeNTab, &KyTimeSpanTab}) {
        CheckCases(*row,
                   {
                       {{2024, 5, 7, 1, 2, 3, 5}, {2024, 5, 7, 1, 2, 3, 9}, -1, -1, -1, -1},
                       {{2024, 5, 7, 1, 2, 3, 5}, {2024, 5, 7, 1, 2, 3, -1}, 1, 0, 0, 1},
                       {{2024, 5, 7, 1, 2, 3, -1}, {2024, 5, 7, 1, 2, 3, 5}, -1, -1, 0, -1},
                       {{2024, 5, 7, 1, 2, 3, -2147483647 - 1}, {2024, 5, 7, 1, 2, 3, 2147483647}, -1, -1, -1, -1},
                       {{2024, 5, 7, 1, 2, 3, 5}, {2024, 5, 7, 1, 2, -1, 6}, 1, -1, -1, 4},
                       {{2024, 5, 7, 1, 2, 3, 5}, {2024, -1, 7, 1, 2, 3, -1}, 1, 0, 0, 6},
                   });
    }
}

class DateLaws : public testing::TestWithParam<DateType> {
protected:
    const DateType& type = GetParam();

    int Order(const SlowDate& a, const SlowDate& b, unsigned char flag) {
        const int result = Compare(*type.row, a, b, flag, KyCmpExact);
        return (result > 0) - (result < 0);
    }
};

TEST_P(DateLaws, TheExactOrderIsAnOrderAndTheSameInEveryForm) {
    const std::vector<SlowDate>& samples = DateSamples();
    for (const SlowDate& a : samples) {
        for (const SlowDate& b : samples) {
            const int order = Order(a, b, KyFormMemory);
            const SlowDate ownA = OwnFields(type, a);
            const SlowDate ownB = OwnFields(type, b);
            EXPECT_EQ(order, (ownA > ownB) - (ownA < ownB));
            EXPECT_EQ(order, -Order(b, a, KyFormMemory));
            EXPECT_EQ(order, Order(a, b, KyFormNative));
            EXPECT_EQ(order, Order(a, b, KyFormReversed));
        }
    }
}

TEST_P(DateLaws, EqualValuesHashAlikeInEveryForm) {
    const auto hash = [this](const SlowDate& value, unsigned char flag, unsigned char padding) {
        ByteVector bytes = DateInForm(type, value, flag, padding);
        int err = -1;
        return type.row->Hash(flag, 0, bytes.data(), 1, err);
    };
    for (const SlowDate& value : DateSamples()) {
        const unsigned expected = hash(value, KyFormMemory, 0);
        EXPECT_EQ(hash(value, KyFormMemory, 0xAB), expected);
        EXPECT_EQ(hash(value, KyFormNative, 0), expected);
        EXPECT_EQ(hash(value, KyFormReversed, 0), expected);
    }
}

TEST_P(DateLaws, Kept_TwoEqualElementsHashToZero) {
    for (const SlowDate& value : DateSamples()) {
        for (const unsigned char flag : kDateFlags) {
            ByteVector bytes = DatesInForm(type, {value, value}, flag);
            int err = -1;
            EXPECT_EQ(type.row->Hash(flag, 0, bytes.data(), 2, err), 0u);
            EXPECT_EQ(err, 0);
        }
    }
}

TEST_P(DateLaws, OnlyWholeElementsWithinTheLengthAreReadAndTheFirst) {
    const SlowDate low{1, 1, 1, 1, 1, 1, 1};
    const SlowDate high{2, 2, 2, 2, 2, 2, 2};
    for (const unsigned char flag : {KyFormMemory, KyFormNative, KyFormReversed}) {
        const auto size = static_cast<unsigned>(SlowDateSize(type.shape, flag));
        for (unsigned length = 1; length <= 3 * size; ++length) {
            const unsigned fitting = std::max(length / size, 1u);
            const std::vector<SlowDate> equal(fitting, low);
            GuardedBuffer a{std::span<const unsigned char>(DatesInForm(type, equal, flag))};
            GuardedBuffer b{std::span<const unsigned char>(DatesInForm(type, equal, flag))};
            int err = -1;
            EXPECT_EQ(type.row->Compare(flag, length, a.data(), 0, b.data(), 0x10, 4, err), 0) << length;
            EXPECT_EQ(err, KyErrBufferEnd) << length;
            EXPECT_EQ(type.row->Compare(flag, 0, a.data(), length, b.data(), 0x10, 4, err), 0) << length;
            EXPECT_EQ(err, KyErrBufferEnd) << length;
            EXPECT_EQ(type.row->Compare(flag, length, a.data(), length, b.data(), 0x10, fitting, err), 0) << length;
            EXPECT_EQ(err, 0) << length;
            ByteVector one = DateInForm(type, low, flag);
            int oneErr = -1;
            const unsigned oneHash = type.row->Hash(flag, 0, one.data(), 1, oneErr);
            EXPECT_EQ(type.row->Hash(flag, length, a.data(), 4, err), fitting % 2 == 1 ? oneHash : 0u) << length;
            EXPECT_EQ(err, KyErrBufferEnd) << length;

            std::vector<SlowDate> higher = equal;
            higher.back() = high;
            GuardedBuffer c{std::span<const unsigned char>(DatesInForm(type, higher, flag))};
            EXPECT_LT(type.row->Compare(flag, length, a.data(), length, c.data(), 0x10, 4, err), 0) << length;
            EXPECT_EQ(err, KyErrBufferEnd) << "the end is seen behind every element but the last: " << length;
            EXPECT_GT(type.row->Compare(flag, length, c.data(), length, a.data(), 0x10, fitting, err), 0) << length;
            EXPECT_EQ(err, 0) << length;
        }
    }
}

TEST_P(DateLaws, NothingHappensForACountOfZero) {
    for (const unsigned char flag : kDateFlags) {
        int err = -1;
        EXPECT_EQ(type.row->Compare(flag, 0, nullptr, 0, nullptr, 0, 0, err), 0);
        EXPECT_EQ(err, 0);
        err = -1;
        EXPECT_EQ(type.row->Hash(flag, 5, nullptr, 0, err), 0u);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(type.row->Store(nullptr, nullptr, flag, 0), 0u);
        EXPECT_EQ(type.row->Load(nullptr, nullptr, flag, 0), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(All, DateLaws, testing::ValuesIn(DateTypes()),
                         [](const auto& instance) { return instance.param.Name(); });

unsigned HashOf(KyTypeTab& row, ByteVector bytes, unsigned char flag, unsigned count = 1) {
    int err = -1;
    return row.Hash(flag, 0, bytes.data(), count, err);
}

TEST(DateHash, OfOneElementIsItsWordTimesTheFactor) {
    EXPECT_EQ(HashOf(KyTimeTab, {1, 2, 3}, KyFormNative), 0x010203u * 1103515245u);
    EXPECT_EQ(HashOf(KyDateTab, Bytes("E8 07 05 07"), KyFormNative), 0x07E80507u * 1103515245u);
    EXPECT_EQ(HashOf(KyDateTab, Bytes("07 E8 05 07"), KyFormReversed), 0x07E80507u * 1103515245u);
    EXPECT_EQ(HashOf(KyDateTimeTab, Bytes("E8 07 05 07 01 02 03"), KyFormNative),
              (0x07E80507u ^ 0x010203u) * 1103515245u);
    EXPECT_EQ(HashOf(KyDateTimeNTab, Bytes("07 E8 05 07 01 02 03 11 22 33 44"), KyFormReversed),
              (0x07E80507u ^ 0x010203u ^ 0x11223344u) * 1103515245u);
    EXPECT_EQ(HashOf(KyTimeSpanTab, Bytes("E8 07 05 07 01 02 03 EE 44 33 22 11"), KyFormMemory),
              (0x07E80507u ^ 0x010203u ^ 0x11223344u) * 1103515245u);
}

TEST(DateHash, Kept_NegativeFieldsBorrowFromTheFieldAbove) {
    EXPECT_EQ(HashOf(KyDateTab, Bytes("E8 07 FF 07"), KyFormNative), 0x07E7FF07u * 1103515245u);
    EXPECT_EQ(HashOf(KyDateTab, Bytes("E8 07 05 FF"), KyFormNative), 0x07E804FFu * 1103515245u);
    EXPECT_EQ(HashOf(KyDateTab, Bytes("00 00 FF FF"), KyFormNative), 0xFFFFFEFFu * 1103515245u);
    EXPECT_EQ(HashOf(KyTimeTab, Bytes("FF 00 00"), KyFormNative), 0xFFFF0000u * 1103515245u);
    EXPECT_EQ(HashOf(KyTimeTab, Bytes("00 FF 80"), KyFormNative), 0xFFFFFE80u * 1103515245u);
}

}  // namespace
