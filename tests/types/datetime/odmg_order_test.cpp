/// Order and hash.

#include "odmg_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "odmg_kernels.h"
#include "odmg_samples.h"
#include "oracle/slow_odmg.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

constexpr unsigned char kForms[] = {KyFormMemory, KyFormNative, KyFormReversed, 0x18, 0x82, 0, 5};

TEST(OdmgOrder, Kept_YearsBeforeZeroAreLastInAnIndex) {
    const d_Date early(-44, 3, 15);
    const d_Date late(2024, 5, 7);
    EXPECT_LT(CompareIn<d_Date>(Kyd_DateTab, KyFormMemory, {early}, {late}, KyCmpExact), 0);
    for (const unsigned char form : {KyFormNative, KyFormReversed}) {
        EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, form, {early}, {late}, KyCmpExact), 1);
        EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, form, {late}, {early}, KyCmpExact), -1);
        EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, form, {late}, {early}, 0), -1);
    }
}

TEST(OdmgOrder, Kept_DatesInMemoryHaveNoWildcards) {
    for (const unsigned short op : {KyCmpEqual, KyCmpExact, KyCmpDefault}) {
        // Month 255 has a day number like any other.
        EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormMemory, {d_Date(2024, 5, 7)}, {d_Date(-1, 255, 255)}, op),
                  d_Date(2024, 5, 7) != d_Date(-1, 255, 255));
        EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormMemory, {d_Date(2024, 3, 1)}, {d_Date(2024, 2, 28)}, op), 2);
        EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormMemory, {d_Date(0, 2, 29)}, {d_Date(0, 3, 1)}, op), 0);
    }
}

TEST(OdmgOrder, WildcardsOfStoredDatesCountInTheSecondOperand) {
    const struct {
        d_Date a, b;
        int exact, open, mirrored;
    } cases[] = {
        {{2024, 5, 7}, {-1, 5, 255}, -1, 0, 1},        {{2024, 5, 7}, {-1, 255, 255}, -1, 0, 1},
        {{2024, 5, 7}, {-1, 5, 7}, -1, 0, 1},          {{2024, 5, 7}, {-1, 6, 255}, -1, -1, 1},
        {{2024, 5, 7}, {-1, 4, 255}, -1, 1, 1},        {{2024, 5, 7}, {2024, 255, 7}, 1, 0, -1},
        {{2024, 5, 7}, {2024, 255, 8}, 1, -1, -1},     {{2024, 5, 7}, {2024, 255, 6}, 1, 1, -1},
        {{2024, 5, 7}, {2024, 255, 255}, 1, 0, -1},    {{2024, 5, 7}, {2024, 5, 255}, 1, 0, -1},
        {{2024, 5, 7}, {2024, 6, 255}, -1, -1, 1},     {{2024, 5, 7}, {2024, 4, 255}, 1, 1, -1},
        {{2024, 5, 7}, {2023, 255, 255}, 1, 1, -1},    {{2024, 5, 7}, {2025, 255, 255}, -1, -1, 1},
        {{2024, 5, 7}, {2024, 5, 8}, -1, -1, 1},       {{2024, 5, 7}, {2024, 5, 128}, 1, 1, -1},  // signed
        {{2024, 5, 7}, {2024, 128, 7}, 1, 1, -1},      {{2024, 5, 128}, {2024, 5, 255}, -1, 0, 1},
        {{2024, 128, 7}, {2024, 127, 255}, -1, -1, 1}, {{-1, 255, 255}, {-1, 255, 255}, 0, 0, 0},
    };
    const d_Time time = TimeAt(1, 2, 3);
    for (const auto& c : cases) {
        SCOPED_TRACE(HexOf(c.a) + " and " + HexOf(c.b));
        for (const unsigned char form : {KyFormNative, KyFormReversed, static_cast<unsigned char>(0x82)}) {
            EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, form, {c.a}, {c.b}, KyCmpExact | 7), c.exact);
            EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, form, {c.b}, {c.a}, KyCmpExact), -c.exact);
            EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, form, {c.a}, {c.b}, 0xFFEF), c.open);
            const std::vector<d_Timestamp> a = {{c.a, time}};
            const std::vector<d_Timestamp> b = {{c.b, time}};
            EXPECT_EQ(CompareIn(Kyd_TimestampTab, form, a, b, KyCmpExact), c.exact);
            EXPECT_EQ(CompareIn(Kyd_TimestampTab, form, a, b, 0), c.open);
            const std::vector<d_Timestamp> later = {{c.b, TimeAt(1, 2, 5)}};
            EXPECT_EQ(CompareIn(Kyd_TimestampTab, form, a, later, 0), c.open != 0 ? c.open : -1);
        }
        // Of the first operand only what does not change the second's share matters.
        if (c.a.day() < 128 && c.a.month() < 128) {
            EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormNative, {c.b}, {c.a}, 0), c.mirrored);
        }
    }
}

TEST(OdmgOrder, TimesHaveNoWildcards) {
    const d_Time any = TimeOfBytes({0, 0, 255, 255, 255, 255});
    for (const unsigned short op : {KyCmpEqual, KyCmpExact}) {
        EXPECT_EQ(CompareIn<d_Time>(Kyd_TimeTab, KyFormMemory, {TimeAt(10, 0, 0)}, {any}, op), 11);
        EXPECT_EQ(CompareIn<d_Time>(Kyd_TimeTab, KyFormNative, {TimeAt(10, 0, 0)}, {any}, op), 1);
        EXPECT_EQ(CompareIn<d_Time>(Kyd_TimeTab, KyFormReversed, {any}, {TimeAt(10, 0, 0)}, op), -1);
        EXPECT_EQ(CompareIn<d_Time>(Kyd_TimeTab, KyFormReversed, {TimeAt(9, 0, 0, 5, 3)}, {TimeAt(9, 0, 0)}, op), 0);
    }
    const std::vector<d_Timestamp> a = {{d_Date(2024, 5, 7), TimeAt(10, 0, 0, 40)}};
    const std::vector<d_Timestamp> b = {{d_Date(2024, 5, 7), TimeAt(10, 0, 1, 10, 1)}};
    EXPECT_EQ(CompareIn(Kyd_TimestampTab, KyFormMemory, a, b, 0), 0);
    EXPECT_EQ(CompareIn(Kyd_TimestampTab, KyFormReversed, a, b, 0), 0);
    const std::vector<d_Timestamp> c = {{d_Date(2024, 5, 9), TimeAt(1, 0, 0)}};
    EXPECT_EQ(CompareIn(Kyd_TimestampTab, KyFormMemory, a, c, 0), -2);
    EXPECT_EQ(CompareIn(Kyd_TimestampTab, KyFormReversed, a, c, 0), -1);
}

TEST(OdmgOrder, TheFirstElementThatDiffersDecides) {
    const d_Date low(2024, 5, 7);
    const d_Date high(2024, 5, 8);
    const d_Date any(-1, 255, 255);
    for (const unsigned char form : kForms) {
        for (std::size_t count = 2; count < 40; ++count) {
            for (std::size_t place = 0; place < count; ++place) {
                std::vector<d_Date> a(count, low);
                std::vector<d_Date> b(count, low);
                b[place] = high;
                if (place + 1 < count) a[place + 1] = high;
                ASSERT_LT(CompareIn(Kyd_DateTab, form, a, b, KyCmpExact), 0);
                ASSERT_GT(CompareIn(Kyd_DateTab, form, b, a, KyCmpExact), 0);
            }
        }
    }
    EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormNative, {low, low, high}, {any, any, low}, 0), 1);
    // Different bytes of one day: 0000-02-29 and 0000-03-01.
    EXPECT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormMemory, {{0, 2, 29}, low}, {{0, 3, 1}, high}, 0), -1);
}

struct Ended {
    unsigned len1, len2;
    int result, err;
};

TEST(OdmgOrder, StopsWhereABufferEnds) {
    for (const KyTypeTab* row : kOdmgRows) {
        if (row == &Kyd_IntervalTab) continue;  // the numbers' own
        SCOPED_TRACE(row->typeName);
        const unsigned size = SizeOf(*row);
        std::vector<unsigned char> a(3 * std::size_t{size}, 1);
        auto b = a;
        b[2 * size + 2] = 2;  // month or hour of the third
        const Ended cases[] = {
            {0, 0, -1, 0},
            {3 * size, 3 * size, -1, 0},
            {2 * size, 0, 0, KyErrBufferEnd},
            {0, 2 * size, 0, KyErrBufferEnd},
            {3 * size - 1, 0, 0, KyErrBufferEnd},
            {1, 1, 0, KyErrBufferEnd},
            {100 * size, 100 * size, -1, 0},
        };
        for (const Ended& c : cases) {
            for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
                const auto read = [&](const std::vector<unsigned char>& from, unsigned length) {
                    const unsigned fit = length == 0 ? 3 : std::clamp(length / size, 1U, 3U);
                    return std::span<const unsigned char>(from).first(std::size_t{fit} * size);
                };
                GuardedBuffer x(read(a, c.len1));
                GuardedBuffer y(read(b, c.len2));
                int err = -1;
                EXPECT_EQ(Sign(row->Compare(form, c.len1, x.data(), c.len2, y.data(), KyCmpExact, 3, err)), c.result);
                EXPECT_EQ(err, c.err) << c.len1 << ' ' << c.len2;
                GuardedBuffer hashed(read(a, c.len1));
                row->Hash(form, c.len1, hashed.data(), 3, err);
                EXPECT_EQ(err, c.len1 == 0 || c.len1 >= 3 * size ? 0 : KyErrBufferEnd);
            }
        }
        int err = -1;
        EXPECT_EQ(row->Compare(KyFormNative, 1, a.data(), 1, b.data(), 0, 1, err), 0);
        EXPECT_EQ(err, 0) << "one element is read whole";
        EXPECT_EQ(row->Compare(KyFormNative, 0, nullptr, 0, nullptr, 0, 0, err), 0);
        EXPECT_EQ(row->Hash(KyFormNative, 0, nullptr, 0, err), 0U);
    }
}

/// Dates that are often near each other.
d_Date AnyDate(std::mt19937& random) {
    const auto below = [&](unsigned limit) { return static_cast<unsigned short>(random() % limit); };
    const short years[] = {-32768, -45, -44, -1, 0, 1582, 2024, 2025, 32767};
    return {years[below(9)], static_cast<unsigned short>(1 + below(2)), static_cast<unsigned short>(26 + below(6))};
}

d_Time AnyTime(std::mt19937& random) {
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    return TimeAt(22 + below(3), 58 + below(3), 57 + below(4), 45 * below(3), below(3) - 1, 30 * below(2));
}

TEST(OdmgOrder, AgreesWithTheRules) {
    std::mt19937 random(2);
    for (int i = 0; i < 200000; i += kFewerCases) {
        const d_Date a = AnyDate(random);
        const d_Date b = AnyDate(random);
        const int days =
            slow_odmg::AbsDate(a.year(), a.month(), a.day()) - slow_odmg::AbsDate(b.year(), b.month(), b.day());
        ASSERT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormMemory, {a}, {b}, 0), days);
        const auto key = [](const d_Date& date) {
            return (static_cast<long>(static_cast<unsigned short>(date.year())) << 16) + date.month() * 256 +
                   date.day();
        };
        const int stored = Sign(static_cast<int>(key(a) > key(b)) - static_cast<int>(key(a) < key(b)));
        ASSERT_EQ(CompareIn<d_Date>(Kyd_DateTab, KyFormReversed, {a}, {b}, KyCmpExact), stored);
        const d_Time x = AnyTime(random);
        const d_Time y = AnyTime(random);
        const auto hundredths = [](const d_Time& time) {
            return static_cast<int>(std::lround(static_cast<double>(time.second()) * 100) % 100);
        };
        const auto second = [](const d_Time& time) { return static_cast<int>(time.second() + 0.001F); };
        const int times = slow_odmg::TimeOrder(x.hour(), x.minute(), second(x), hundredths(x), y.hour(), y.minute(),
                                               second(y), hundredths(y));
        ASSERT_EQ(Sign(CompareIn<d_Time>(Kyd_TimeTab, KyFormMemory, {x}, {y}, 0)), times);
        ASSERT_EQ(CompareIn<d_Time>(Kyd_TimeTab, KyFormReversed, {x}, {y}, 0), times);
        const std::vector<d_Timestamp> s = {{a, x}};
        const std::vector<d_Timestamp> t = {{b, y}};
        ASSERT_EQ(Sign(CompareIn(Kyd_TimestampTab, KyFormMemory, s, t, 0)), days != 0 ? Sign(days) : times);
        ASSERT_EQ(CompareIn(Kyd_TimestampTab, KyFormReversed, s, t, KyCmpExact), stored != 0 ? stored : times);
    }
}

TEST(OdmgOrder, StoredDatesAreAnOrder) {
    std::mt19937 random(3);
    std::vector<d_Date> dates;
    for (int i = 0; i < 60; ++i) dates.push_back(AnyDate(random));
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
        const auto order = [form](const d_Date& a, const d_Date& b) {
            return Sign(CompareIn<d_Date>(Kyd_DateTab, form, {a}, {b}, KyCmpExact));
        };
        for (const d_Date& a : dates) {
            for (const d_Date& b : dates) {
                ASSERT_EQ(order(a, b), -order(b, a));
                for (const d_Date& c : dates) {
                    if (order(a, b) <= 0 && order(b, c) <= 0) {
                        ASSERT_LE(order(a, c), 0);
                    }
                }
            }
        }
    }
}

template <class Value>
std::uint32_t HashIn(const KyTypeTab& row, unsigned char form, const std::vector<Value>& values) {
    auto bytes = Stored(row, values, form);
    int err = -1;
    const std::uint32_t hash = row.Hash(form, 0, bytes.data(), static_cast<unsigned>(values.size()), err);
    EXPECT_EQ(err, 0);
    return hash;
}

TEST(OdmgHash, EqualValuesHashAlikeInEveryForm) {
    std::mt19937 random(4);
    int equal = 0;
    for (int i = 0; i < 300000; i += kFewerCases) {
        const d_Date dateA = AnyDate(random);
        const d_Date dateB = AnyDate(random);
        const d_Time timeA = AnyTime(random);
        const d_Time timeB = AnyTime(random);
        const d_Timestamp stampA(dateA, timeA);
        const d_Timestamp stampB(dateB, timeB);
        for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
            if (CompareIn<d_Date>(Kyd_DateTab, form, {dateA}, {dateB}, KyCmpExact) == 0) {
                ASSERT_EQ(HashIn<d_Date>(Kyd_DateTab, KyFormMemory, {dateA}),
                          HashIn<d_Date>(Kyd_DateTab, form, {dateB}));
            }
            if (CompareIn<d_Time>(Kyd_TimeTab, form, {timeA}, {timeB}, 0) == 0) {
                ASSERT_EQ(HashIn<d_Time>(Kyd_TimeTab, KyFormMemory, {timeA}),
                          HashIn<d_Time>(Kyd_TimeTab, form, {timeB}));
            }
            if (CompareIn<d_Timestamp>(Kyd_TimestampTab, form, {stampA}, {stampB}, KyCmpExact) == 0) {
                ASSERT_EQ(HashIn<d_Timestamp>(Kyd_TimestampTab, KyFormMemory, {stampA}),
                          HashIn<d_Timestamp>(Kyd_TimestampTab, form, {stampB}));
                ++equal;
            }
        }
    }
    EXPECT_GT(equal, 100 / kFewerCases);
}

TEST(OdmgHash, ElementsAreCombinedBeforeOneMultiplication) {
    std::mt19937 random(5);
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
        for (std::size_t count = 1; count < 80; ++count) {
            std::vector<d_Timestamp> stamps;
            std::vector<d_Date> dates;
            std::vector<d_Time> times;
            std::uint32_t dateWords = 0;
            std::uint32_t timeWords = 0;
            for (std::size_t i = 0; i < count; ++i) {
                dates.emplace_back(static_cast<short>(random()), static_cast<unsigned short>(random()),
                                   static_cast<unsigned short>(random()));
                times.push_back(AnyTime(random));
                stamps.emplace_back(dates[i], times[i]);
                const d_Date& date = dates[i];
                dateWords ^= static_cast<std::uint32_t>(slow_odmg::AbsDate(date.year(), date.month(), date.day()));
                timeWords ^=
                    static_cast<std::uint32_t>((times[i].hour() & 0xFFFF) * 0x10000LL + (times[i].minute() & 0xFFFF));
            }
            ASSERT_EQ(HashIn(Kyd_DateTab, form, dates), dateWords * 1103515245U);
            ASSERT_EQ(HashIn(Kyd_TimeTab, form, times), timeWords * 1103515245U);
            ASSERT_EQ(HashIn(Kyd_TimestampTab, form, stamps), (dateWords ^ timeWords) * 1103515245U);
        }
    }
    EXPECT_EQ(HashIn<d_Date>(Kyd_DateTab, KyFormReversed, {{2024, 5, 7}, {2024, 5, 7}}), 0U);
}

TEST(OdmgHash, EveryVariantNumbersEveryDate) {
    ASSERT_GE(ky::RunnableOdmgKernels(), 1);
    // All years of a month in one call, ending at an inaccessible page; a wrong number cannot hide behind another one.
    for (int variant = 0; variant < ky::RunnableOdmgKernels(); ++variant) {
        for (unsigned month = 0; month < 256; month += kFewerCases) {
            GuardedBuffer native(4 * 61);
            GuardedBuffer reversed(4 * 61);
            for (int first = -32768; first < 32767; first += 61) {
                std::uint32_t expected = 0;
                for (std::size_t i = 0; i < 61; ++i) {
                    const auto year = static_cast<short>(first + static_cast<int>(i));
                    const auto low = static_cast<unsigned char>(year);
                    const auto high = static_cast<unsigned char>(static_cast<unsigned short>(year) >> 8);
                    const unsigned char bytes[] = {low, high, static_cast<unsigned char>(month), 31};
                    const unsigned char swapped[] = {high, low, static_cast<unsigned char>(month), 31};
                    std::memcpy(native.data() + 4 * i, bytes, 4);
                    std::memcpy(reversed.data() + 4 * i, swapped, 4);
                    expected ^= static_cast<std::uint32_t>(slow_odmg::AbsDate(year, static_cast<int>(month), 31));
                }
                ASSERT_EQ(ky::kOdmgKernels[variant].xorDayNumbers(native.data(), 61, false), expected)
                    << first << ' ' << month;
                ASSERT_EQ(ky::kOdmgKernels[variant].xorDayNumbers(reversed.data(), 61, true), expected)
                    << first << ' ' << month;
            }
        }
    }
}

}  // namespace
