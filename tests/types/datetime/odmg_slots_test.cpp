#include "odmg_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "kybase.h"
#include "odmg_kernels.h"
#include "odmg_samples.h"
#include "oracle/slow_odmg.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

constexpr unsigned char kForms[] = {KyFormMemory, KyFormNative, KyFormReversed, 0x18, 0x82, 0, 5};

const KyTypeTab* const kRows[] = {&Kyd_DateTab, &Kyd_TimeTab, &Kyd_TimestampTab, &Kyd_IntervalTab};

unsigned SizeOf(const KyTypeTab& row) { return row.sizeWord & 0xFFFF; }

TEST(OdmgRows, AreNamedAndMeasured) {
    const struct {
        const KyTypeTab& row;
        const char *name, *code, *format;
        unsigned size;
    } cases[] = {
        {Kyd_DateTab, "d_Date", "D_DATE_T", "%a %b %e", 4},
        {Kyd_TimeTab, "d_Time", "D_TIME_T", "%I:%M:%S %p", 6},
        {Kyd_TimestampTab, "d_Timestamp", "D_TIMESTAMP_T", "%a %b %e %I:%M:%S %p", 10},
        {Kyd_IntervalTab, "d_Interval", "D_INTERVAL_T", "%e days, %I hours, %M minutes, %S seconds", 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_STREQ(c.row.typeName, c.name);
        EXPECT_STREQ(c.row.typeCodeName, c.code);
        EXPECT_STREQ(c.row.printFormat, c.format);
        EXPECT_EQ(c.row.sizeWord, 0x10000 + c.size);
        EXPECT_EQ(c.row.SetNull, nullptr);
        std::vector<unsigned char> value(c.size, 0xFF);
        EXPECT_EQ(c.row.IsNull(value.data()), 0);
        for (const unsigned count : {0U, 1U, 7U}) {
            EXPECT_EQ(c.row.NullSizeGet(count), c.size * count);
            EXPECT_EQ(c.row.SizeGet(nullptr, KyFormMemory, KyFormReversed, count), c.size * count);
            EXPECT_EQ(c.row.SizeGet(nullptr, KyFormReversed, KyFormMemory, count), c.size * count);
            EXPECT_EQ(c.row.SizeGetFromMemFile(nullptr, KyFormNative, count), c.size * count);
        }
    }
}

TEST(OdmgRows, CreateAndConstructTheClocksValues) {
    const StandingClock clock(kMay7, 60);
    const DefaultZone zone(2);
    const std::string expected[] = {"E8 07 05 07", "02 00 10 2D 3B 00", "E8 07 05 07 02 00 10 2D 3B 00", "00 00 00 00"};
    for (std::size_t i = 0; i < 4; ++i) {
        const KyTypeTab& row = *kRows[i];
        SCOPED_TRACE(row.typeName);
        for (const unsigned count : {0U, 1U, 2U, 5U}) {
            void* created = row.Create(count);
            std::vector<unsigned char> constructed(SizeOf(row) * std::size_t{count} + 1, 0xEE);
            row.Constructor(constructed.data(), count, 0);
            for (unsigned at = 0; at < count; ++at) {
                const std::size_t offset = std::size_t{SizeOf(row)} * at;
                EXPECT_EQ(Hex(static_cast<unsigned char*>(created) + offset, SizeOf(row)), expected[i]);
                EXPECT_EQ(Hex(constructed.data() + offset, SizeOf(row)), expected[i]);
            }
            EXPECT_EQ(constructed.back(), 0xEE);
            row.Destructor(constructed.data(), count, 0);
            EXPECT_EQ(row.Delete(created, count), 0);
        }
        row.Constructor(nullptr, 3, 0);
        EXPECT_EQ(row.Delete(nullptr, 1), 0);
    }
}

TEST(OdmgRows, DefaultValuesAreThoseOfAnEmptyText) {
    const StandingClock clock(kMay7);
    const DefaultZone zone(-5);
    const std::string expected[] = {"00 00 00 00", "FB 00 FB 00 00 00", "00 00 00 00 FB 00 FB 00 00 00", "00 00 00 00"};
    for (std::size_t i = 0; i < 4; ++i) {
        const KyTypeTab& row = *kRows[i];
        for (const int which : {0, 1}) {
            void* values = row.DefaultValue(3, which);
            for (unsigned at = 0; at < 3; ++at) {
                EXPECT_EQ(Hex(static_cast<unsigned char*>(values) + std::size_t{SizeOf(row)} * at, SizeOf(row)),
                          expected[i])
                    << row.typeName;
            }
            row.Delete(values, 3);
        }
    }
}

TEST(OdmgRows, AssignmentFillsAndCopyDoesNot) {
    for (const KyTypeTab* row : kRows) {
        const std::size_t size = SizeOf(*row);
        std::vector<unsigned char> source(3 * size);
        for (std::size_t i = 0; i < source.size(); ++i) source[i] = static_cast<unsigned char>(0xC0 + i);
        std::vector<unsigned char> filled;
        for (int i = 0; i < 3; ++i)
            filled.insert(filled.end(), source.begin(), source.begin() + static_cast<int>(size));
        std::vector<unsigned char> target(source.size());
        row->Assignment(target.data(), source.data(), 3, 0);
        EXPECT_EQ(target, source) << row->typeName;
        row->Assignment(target.data(), source.data(), 3, 1);
        EXPECT_EQ(target, filled) << row->typeName;
        row->Copy(target.data(), source.data(), 3, 1);
        EXPECT_EQ(target, source) << row->typeName;
    }
}

/// Where in a stored element the bytes of a number stand, in reversed form.
std::vector<unsigned char> SlowReversed(const KyTypeTab& row, std::vector<unsigned char> bytes) {
    const std::size_t size = SizeOf(row);
    const std::size_t number = &row == &Kyd_IntervalTab ? 4 : &row == &Kyd_TimeTab ? 1 : 2;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        std::reverse(bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at + number));
    }
    return bytes;
}

TEST(OdmgRows, StoreAndLoadAtAnyOffset) {
    std::mt19937 random(1);
    for (const KyTypeTab* row : kRows) {
        SCOPED_TRACE(row->typeName);
        for (unsigned count = 0; count < 70; ++count) {
            std::vector<unsigned char> memory(std::size_t{SizeOf(*row)} * count);
            for (auto& byte : memory) byte = static_cast<unsigned char>(random());
            for (const unsigned char form : {KyFormNative, KyFormReversed, static_cast<unsigned char>(0x82)}) {
                const auto expected = form == KyFormNative ? memory : SlowReversed(*row, memory);
                const std::size_t offset = count % 8;
                std::vector<unsigned char> area(offset + memory.size() + 8, static_cast<unsigned char>(0x55));
                ASSERT_EQ(row->Store(area.data() + offset, memory.data(), form, count), memory.size());
                ASSERT_EQ(Hex(area.data() + offset, memory.size()), Hex(expected.data(), expected.size()));
                ASSERT_EQ(std::count(area.begin(), area.begin() + static_cast<long>(offset), 0x55),
                          static_cast<long>(offset));
                ASSERT_EQ(std::count(area.end() - 8, area.end(), 0x55), 8);
                GuardedBuffer stored{std::span<const unsigned char>(expected)};
                GuardedBuffer back(memory.size());
                ASSERT_EQ(row->Load(back.data(), stored.data(), form, count), memory.size());
                ASSERT_EQ(Hex(back.data(), memory.size()), Hex(memory.data(), memory.size()));
            }
        }
    }
}

TEST(OdmgRows, EveryVariantSwapsTheYearsOfTimestamps) {
    std::mt19937 random(10);
    for (int variant = 0; variant < ky::RunnableOdmgKernels(); ++variant) {
        for (std::size_t count = 0; count < 100; ++count) {
            std::vector<unsigned char> bytes(10 * count);
            for (auto& byte : bytes) byte = static_cast<unsigned char>(random());
            const auto expected = SlowReversed(Kyd_TimestampTab, bytes);
            GuardedBuffer from{std::span<const unsigned char>(bytes)};
            GuardedBuffer to(bytes.size());
            ky::kOdmgKernels[variant].swapYears(to.data(), from.data(), count);
            ASSERT_EQ(Hex(to.data(), bytes.size()), Hex(expected.data(), bytes.size())) << variant << ' ' << count;
            ky::kOdmgKernels[variant].swapYears(from.data(), from.data(), count);
            ASSERT_EQ(Hex(from.data(), bytes.size()), Hex(expected.data(), bytes.size())) << "in place";
        }
    }
}

TEST(OdmgRows, TranslateBetweenAllForms) {
    for (const KyTypeTab* row : kRows) {
        SCOPED_TRACE(row->typeName);
        const unsigned size = SizeOf(*row);
        std::vector<unsigned char> memory(2 * std::size_t{size});
        for (std::size_t i = 0; i < memory.size(); ++i) memory[i] = static_cast<unsigned char>(i + 1);
        auto reversed = SlowReversed(*row, memory);
        std::vector<unsigned char> to(memory.size());
        EXPECT_EQ(row->Translate(to.data(), 8, 0, memory.data(), 8, 0, 2), 2 * size);
        EXPECT_EQ(to, memory);
        EXPECT_EQ(row->Translate(to.data(), 0x82, 0, memory.data(), 8, 0, 2), 2 * size);
        EXPECT_EQ(to, reversed);
        EXPECT_EQ(row->Translate(to.data(), 8, 0, reversed.data(), 2, 0, 2), 2 * size);
        EXPECT_EQ(to, memory);
        EXPECT_EQ(row->Translate(to.data(), 1, 0, reversed.data(), 2, 0, 2), 2 * size)
            << "bytes are copied as they are";
        EXPECT_EQ(to, reversed);
        EXPECT_EQ(row->Translate(to.data(), 1, 2 * size, reversed.data(), 2, size, 2), size);
        std::fill(reversed.begin() + size, reversed.end(), static_cast<unsigned char>(0));
        EXPECT_EQ(to, reversed);
    }
}

// --- order ---

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
    for (const KyTypeTab* row : kRows) {
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

// --- hash ---

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
