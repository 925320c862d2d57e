#include <gtest/gtest.h>

#include <cstring>

#include "date_roster.h"
#include "date_values.h"
#include "kydatime.h"
#include "kydatimeN.h"
#include "support/hex.h"

// Values in memory: made, assigned, null, default.

namespace {

const SlowDate kNull{-32768, -128, -128, -128, -128, -128, 0};

class DateInMemory : public testing::TestWithParam<DateType> {
protected:
    const DateType& type = GetParam();
    KyTypeTab& row = *type.row;

    SlowDate FieldsAt(const void* values, unsigned index) const {
        return SlowDateRead(type.shape, KyFormMemory,
                            static_cast<const unsigned char*>(values) + index * type.Memory());
    }
    /// A new value under `MovingClock`; types with nanoseconds do not ask the clock.
    SlowDate Fresh() const {
        return OwnFields(type, type.shape.nanoseconds ? kNull : SlowDate{2024, 5, 7, 13, 45, 59});
    }
};

/// From 2024-05-07 13:45:59 on an hour goes by with every reading.
struct MovingClock : ReplayedClock {
    MovingClock() : ReplayedClock(1715089559, 0, 0, 3600) {}
};

TEST_P(DateInMemory, NewValuesAreNowOrNull) {
    for (const unsigned count : {0u, 1u, 2u, 9u}) {
        const MovingClock clock;
        void* values = row.Create(count);
        ASSERT_NE(values, nullptr);
        for (unsigned i = 0; i < std::max(count, 1u); ++i) {
            EXPECT_EQ(FieldsAt(values, i), Fresh()) << "one reading of the clock";
        }
        EXPECT_EQ(row.Delete(values, count), 0);
    }
    EXPECT_EQ(row.Delete(nullptr, 1), 0);
}

TEST_P(DateInMemory, ConstructorFillsAsCreateDoes) {
    const MovingClock clock;
    ByteVector values(3 * type.Memory() + 1, 0x77);
    row.Constructor(values.data(), 3, 0);
    for (unsigned i = 0; i < 3; ++i) EXPECT_EQ(FieldsAt(values.data(), i), Fresh());
    EXPECT_EQ(values.back(), 0x77);
    row.Destructor(values.data(), 3, 0);
    EXPECT_EQ(values.back(), 0x77);
    row.Constructor(nullptr, 3, 0);
}

TEST_P(DateInMemory, AssignmentFillsOrCopiesAndCopyCopies) {
    ByteVector src = DatesInForm(type, {DateSamples()[13], DateSamples()[16], DateSamples()[19]}, KyFormMemory);
    ByteVector first = DateInForm(type, DateSamples()[13], KyFormMemory);
    ByteVector filled;
    for (int i = 0; i < 3; ++i) filled.insert(filled.end(), first.begin(), first.end());
    ByteVector dst(src.size());
    row.Assignment(dst.data(), src.data(), 3, 0);
    EXPECT_EQ(dst, src);
    for (const int mode : {1, 2, -1}) {
        dst.assign(dst.size(), 0);
        row.Assignment(dst.data(), src.data(), 3, mode);
        EXPECT_EQ(dst, filled);
        row.Copy(dst.data(), src.data(), 3, mode);
        EXPECT_EQ(dst, src) << "the mode does not matter";
    }
    row.Assignment(nullptr, nullptr, 0, 0);
    row.Assignment(nullptr, nullptr, 0, 1);
    row.Copy(nullptr, nullptr, 0, 0);
}

TEST_P(DateInMemory, NullHasEveryFieldAtItsLowest) {
    void* value = row.Create(1);
    EXPECT_EQ(row.SetNull(value), 0);
    EXPECT_EQ(FieldsAt(value, 0), OwnFields(type, kNull));
    EXPECT_NE(row.IsNull(value), 0);
    row.Delete(value, 1);
    for (std::size_t field = 0; field < 7; ++field) {
        SlowDate almost = kNull;
        almost[field] += 1;
        ByteVector bytes = DateInForm(type, almost, KyFormMemory, 0x33);
        void* aligned = row.Create(1);
        std::memcpy(aligned, bytes.data(), bytes.size());
        EXPECT_EQ(row.IsNull(aligned) != 0, OwnFields(type, almost) == OwnFields(type, kNull)) << field;
        row.Delete(aligned, 1);
    }
}

TEST_P(DateInMemory, DefaultsAreZeroFieldsOrNull) {
    for (const unsigned count : {1u, 2u, 7u}) {
        void* zeros = row.DefaultValue(count, 0);
        void* nulls = row.DefaultValue(count, 1);
        for (unsigned i = 0; i < count; ++i) {
            EXPECT_EQ(FieldsAt(zeros, i), SlowDate{});
            EXPECT_EQ(FieldsAt(nulls, i), OwnFields(type, kNull));
        }
        row.Delete(zeros, count);
        row.Delete(nulls, count);
    }
}

INSTANTIATE_TEST_SUITE_P(All, DateInMemory, testing::ValuesIn(DateTypes()),
                         [](const auto& instance) { return instance.param.Name(); });

}  // namespace
