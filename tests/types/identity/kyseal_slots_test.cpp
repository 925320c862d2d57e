#include "kyseal_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "kybase.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "kytypmgr.h"
#include "support/created_arrays.h"
#include "support/golden.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr long long kHighest = 0xFFFFFFFFFFFF;
constexpr unsigned char kStoredForms[] = {KyFormNative, KyFormReversed};
constexpr unsigned char kStoredFlags[] = {0x01, 0x02, 0x00, 0x05, 0x12};
constexpr unsigned char kMemoryFlags[] = {0x08, 0x18, 0x88};

KySeal Seal(long long number) {
    KySeal seal;
    seal.ConvertFrom(number);
    return seal;
}

std::vector<KySeal> Seals(const std::vector<long long>& numbers) {
    std::vector<KySeal> seals;
    for (const long long number : numbers) seals.push_back(Seal(number));
    return seals;
}

std::vector<long long> NumbersOf(const KySeal* seals, std::size_t count) {
    std::vector<long long> numbers(count);
    for (std::size_t i = 0; i < count; ++i) seals[i].ConvertTo(numbers[i]);
    return numbers;
}

std::vector<unsigned char> Stored(const std::vector<KySeal>& seals) {
    std::vector<unsigned char> bytes(6 * seals.size());
    EXPECT_EQ(KySealTab.Store(bytes.data(), seals.data(), KyFormNative, static_cast<unsigned>(seals.size())),
              bytes.size());
    return bytes;
}

TEST(SealRow, IsNamedAndMeasured) {
    EXPECT_STREQ(KySealTab.typeName, "KySeal");
    EXPECT_STREQ(KySealTab.typeCodeName, "KySEAL_T");
    EXPECT_STREQ(KySealTab.printFormat, "noop");
    EXPECT_EQ(KySealTab.sizeWord, 0x10006u);
    EXPECT_EQ(KySealTab.SetNull, nullptr);
    KySeal value;
    EXPECT_EQ(KySealTab.IsNull(&value), 0);
    EXPECT_EQ(KySealTab.GetValue(&value, 1, KyFormMemory, KyValueStep), KyErrNotSupported);
    for (const unsigned count : {0u, 1u, 7u}) {
        EXPECT_EQ(KySealTab.NullSizeGet(count), 6 * count);
        EXPECT_EQ(KySealTab.SizeGet(nullptr, KyFormMemory, KyFormReversed, count), 6 * count);
        EXPECT_EQ(KySealTab.SizeGetFromMemFile(nullptr, KyFormNative, count), 6 * count);
    }
}

TEST(SealRow, AgreesWithItsGoldenFile) { CheckGolden(KySealTab); }

TEST(SealRow, Kept_StoresTheMostSignificantByteFirstInEveryForm) {
    const std::vector<KySeal> seals = Seals({0x010203040506, 0x0A0B0C0D0E0F, kHighest - 1});
    const std::string bytes = "01 02 03 04 05 06 0A 0B 0C 0D 0E 0F FF FF FF FF FF FE";
    for (unsigned flag = 0; flag < 256; ++flag) {
        for (std::size_t offset : {0u, 1u, 7u}) {
            std::vector<unsigned char> area(offset + 18 + 4, 0xA5);
            const auto form = static_cast<unsigned char>(flag);
            ASSERT_EQ(KySealTab.Store(area.data() + offset, seals.data(), form, 3), 18u);
            ASSERT_EQ(Hex(area.data() + offset, 18), bytes);
            ASSERT_EQ(std::count(area.begin(), area.begin() + static_cast<int>(offset), 0xA5),
                      static_cast<int>(offset));
            ASSERT_EQ(std::count(area.end() - 4, area.end(), 0xA5), 4);
            KySeal back[3];
            ASSERT_EQ(KySealTab.Load(back, area.data() + offset, form, 3), 18u);
            ASSERT_EQ(NumbersOf(back, 3), NumbersOf(seals.data(), 3));
        }
    }
}

TEST(SealRow, CreatesZeroesAndPrecedesArraysByTheirCount) {
    ExpectCreatedArrays(KySealTab, {0, 1}, [](void* values, unsigned count) {
        EXPECT_EQ(NumbersOf(static_cast<KySeal*>(values), count), std::vector<long long>(count));
    });
}

TEST(SealRow, ComparesByWordsInMemory) {
    struct {
        std::vector<long long> a, b;
        int result;
    } const cases[] = {
        {{0x000100000000}, {0x0000FFFFFFFF}, 1},
        {{0}, {kHighest}, -65535},
        {{5, 9, 0x00070000}, {5, 9, 0x00020001}, 5},
        {{5, 9, 7}, {5, 10, 0}, -1},
        {{5, 9}, {5, 9}, 0},
    };
    for (const auto& c : cases) {
        std::vector<KySeal> a = Seals(c.a);
        std::vector<KySeal> b = Seals(c.b);
        const auto count = static_cast<unsigned>(a.size());
        for (const unsigned char flag : kMemoryFlags) {
            int err = -1;
            EXPECT_EQ(KySealTab.Compare(flag, 0, a.data(), 0, b.data(), 0xFFFF, count, err), c.result);
            EXPECT_EQ(err, 0);
            EXPECT_EQ(KySealTab.Compare(flag, 0, b.data(), 0, a.data(), 0, count, err), -c.result);
        }
    }
}

TEST(SealRow, ComparesByBytesWhenStored) {
    struct {
        std::vector<long long> a, b;
        int result;
    } const cases[] = {
        {{0x000100000000}, {0x0000FFFFFFFF}, 1},
        {{0}, {kHighest}, -255},
        {{0x010000}, {0x00FFFF}, 1},
        {{0x01FF00}, {0x00FFFF}, 1},
        {{0x1200}, {0x3400}, 0x12 - 0x34},
        {{5, 9, 0x0880}, {5, 9, 0x0810}, 0x70},
        {{5, 9, 7}, {5, 9, 7}, 0},
    };
    for (const auto& c : cases) {
        std::vector<unsigned char> a = Stored(Seals(c.a));
        std::vector<unsigned char> b = Stored(Seals(c.b));
        const auto count = static_cast<unsigned>(c.a.size());
        for (const unsigned char flag : kStoredFlags) {
            int err = -1;
            EXPECT_EQ(KySealTab.Compare(flag, 0, a.data(), 0, b.data(), 0, count, err), c.result);
            EXPECT_EQ(err, 0);
            EXPECT_EQ(KySealTab.Compare(flag, 0, b.data(), 0, a.data(), 0xFFFF, count, err), -c.result);
        }
    }
}

TEST(SealRow, AllFormsOrderAsNumbersAndHashAlike) {
    std::mt19937_64 random(11);
    for (int round = 0; round < 3000; ++round) {
        const auto shift = static_cast<int>(16 + random() % 48);
        const auto x = static_cast<long long>(random() >> shift);
        const auto y = random() % 4 == 0 ? x : static_cast<long long>(random() >> shift);
        std::vector<KySeal> a = Seals({3, x});
        std::vector<KySeal> b = Seals({3, y});
        std::vector<unsigned char> storedA = Stored(a);
        std::vector<unsigned char> storedB = Stored(b);
        int err = -1;
        const int inMemory = KySealTab.Compare(KyFormMemory, 0, a.data(), 0, b.data(), 0, 2, err);
        const int stored = KySealTab.Compare(KyFormReversed, 0, storedA.data(), 0, storedB.data(), 0, 2, err);
        const int order = (x > y) - (x < y);
        ASSERT_EQ((inMemory > 0) - (inMemory < 0), order) << x << ' ' << y;
        ASSERT_EQ((stored > 0) - (stored < 0), order) << x << ' ' << y;
        const unsigned hash = KySealTab.Hash(KyFormMemory, 0, a.data(), 2, err);
        ASSERT_EQ(KySealTab.Hash(KyFormNative, 0, storedA.data(), 2, err), hash);
        ASSERT_EQ(KySealTab.Hash(KyFormReversed, 0, storedA.data(), 2, err), hash);
    }
}

/// Element by element, from the numbers.
unsigned SlowHash(const std::vector<KySeal>& seals) {
    unsigned sum = 0;
    for (const long long number : NumbersOf(seals.data(), seals.size())) {
        sum ^= static_cast<unsigned>(number) ^ static_cast<unsigned>(number >> 32);
    }
    return sum * 1103515245u;
}

TEST(SealRow, HashesArraysOfAnyLength) {
    std::mt19937_64 random(13);
    std::vector<KySeal> seals;
    for (unsigned count = 0; count < 70; ++count) {
        GuardedBuffer memory(6 * count);
        GuardedBuffer stored(6 * count);
        if (count != 0) std::memcpy(memory.data(), seals.data(), memory.size());
        KySealTab.Store(stored.data(), memory.data(), KyFormNative, count);
        int err = -1;
        EXPECT_EQ(KySealTab.Hash(KyFormMemory, 0, memory.data(), count, err), SlowHash(seals)) << count;
        EXPECT_EQ(err, 0);
        EXPECT_EQ(KySealTab.Hash(KyFormReversed, 6 * count, stored.data(), count, err), SlowHash(seals)) << count;
        EXPECT_EQ(err, 0);
        seals.push_back(Seal(static_cast<long long>(random())));
    }
}

TEST(SealRow, SaysThatABufferEndsAndReadsNothingBehindIt) {
    const std::vector<unsigned char> bytes = Stored(Seals({1, 2, 0x010000000000}));
    GuardedBuffer a(bytes);
    GuardedBuffer b(bytes);
    b.data()[17] = 4;
    struct {
        unsigned len1, len2, count;
        int result, err;
    } const cases[] = {
        {18, 18, 3, -4, 0},
        {18, 18, 9, -4, KyErrBufferEnd},
        {12, 18, 3, 0, KyErrBufferEnd},
        {18, 6, 3, 0, KyErrBufferEnd},
        {13, 13, 3, -4, 0},
        {12, 12, 2, 0, 0},
        {1, 1, 1, 0, 0},
        {0, 0, 3, -4, 0},
        {0, 0, 0, 0, 0},
    };
    for (const unsigned char form : kStoredForms) {
        for (const auto& c : cases) {
            int err = -1;
            EXPECT_EQ(KySealTab.Compare(form, c.len1, a.data(), c.len2, b.data(), 0, c.count, err), c.result);
            EXPECT_EQ(err, c.err) << c.len1 << ' ' << c.len2 << ' ' << c.count;
        }
        int err = -1;
        EXPECT_EQ(KySealTab.Hash(form, 12, a.data(), 3, err), 3 * 1103515245u);
        EXPECT_EQ(err, KyErrBufferEnd);
        EXPECT_EQ(KySealTab.Hash(form, 12, a.data(), 2, err), 3 * 1103515245u);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(KySealTab.Hash(form, 12, a.data(), 0, err), 0u);
        EXPECT_EQ(err, 0);
    }
}

TEST(SealRow, AssignsConstructsAndTranslates) {
    std::vector<KySeal> src = Seals({1, 0x020000000000, 3});
    std::vector<KySeal> dst = Seals({7, 8, 9});
    const auto numbers = [&] { return NumbersOf(dst.data(), 3); };
    using Numbers = std::vector<long long>;
    KySealTab.Assignment(dst.data(), src.data(), 3, 0);
    EXPECT_EQ(numbers(), (Numbers{1, 0x020000000000, 3}));
    KySealTab.Copy(dst.data(), src.data() + 1, 3, 1);
    EXPECT_EQ(numbers(), (Numbers{0x020000000000, 0x020000000000, 0x020000000000}));
    KySealTab.Constructor(dst.data(), 2, 0);
    EXPECT_EQ(numbers(), (Numbers{0, 0, 0x020000000000}));
    KySealTab.Destructor(dst.data(), 3, 0);

    std::vector<unsigned char> stored(20, 0xA5);
    EXPECT_EQ(KySealTab.Translate(stored.data(), KyFormReversed, 0, src.data(), KyFormMemory, 0, 3), 18u);
    EXPECT_EQ(Hex(stored.data(), 20), "00 00 00 00 00 01 02 00 00 00 00 00 00 00 00 00 00 03 A5 A5");
    EXPECT_EQ(KySealTab.Translate(dst.data(), KyFormMemory, 0, stored.data(), KyFormNative, 0, 3), 18u);
    EXPECT_EQ(numbers(), (Numbers{1, 0x020000000000, 3}));
    EXPECT_EQ(KySealTab.Translate(dst.data(), KyFormMemory, 0, src.data() + 1, KyFormMemory, 0, 2), 12u);
    EXPECT_EQ(numbers(), (Numbers{0x020000000000, 3, 3}));
    std::vector<unsigned char> copy(10, 0xA5);
    EXPECT_EQ(KySealTab.Translate(copy.data(), KyFormReversed, 9, stored.data(), KyFormNative, 0, 1), 6u);
    EXPECT_EQ(Hex(copy.data(), 10), "00 00 00 00 00 01 00 00 00 A5");
}

TEST(SealRow, PrintsAndScansWhateverTheFormat) {
    KyTypeMgr manager(5);
    for (const char* format : {"noop", "%x", "%d kg", static_cast<const char*>(nullptr)}) {
        KySeal value = Seal(0x000200030004);
        KyString out("before");
        EXPECT_EQ(&KySealTab.PrintToKyString(out, &value, format, 1), &out);
        EXPECT_STREQ(out.StrGet(), "8590131204");
        KySeal back = Seal(5);
        EXPECT_EQ(KySealTab.ScanFromKyString(&back, out, format, 1), &back);
        EXPECT_EQ(back != value, 0);
        EXPECT_EQ(KySealTab.ScanFromKyString(nullptr, out, format, 1), nullptr);
    }
    std::vector<KySeal> values = Seals({0, kHighest, 3});
    KyString out;
    EXPECT_STREQ(manager.PrintToKyString(KySEAL_T, out, values.data(), nullptr, 3).StrGet(), "0,281474976710655,3");
}

TEST(SealRow, ConvertsToTextsAndBack) {
    KyTypeMgr manager(5);
    std::vector<KySeal> values = Seals({0, 17, kHighest, 5, 6});
    KyTypeConvertData* record = manager.ConvertTo(KySEAL_T, values.data(), 5);
    ASSERT_NE(record, nullptr);
    EXPECT_STREQ(record->GetString(0)->StrGet(), "0");
    EXPECT_STREQ(record->GetString(2)->StrGet(), "281474976710655");
    record->GetString(3)->SetNullValue();
    *record->GetString(4) = "";
    auto* back = static_cast<KySeal*>(manager.ConvertFrom(KySEAL_T, record, 6));
    EXPECT_EQ(NumbersOf(back, 6), (std::vector<long long>{0, 17, kHighest, 0, 0, 0}));
    manager.Delete(KySEAL_T, back, 6);
    delete record;
    back = static_cast<KySeal*>(KySealTab.ConvertFromKyString(nullptr, 2));
    EXPECT_EQ(NumbersOf(back, 2), (std::vector<long long>{0, 0}));
    KySealTab.Delete(back, 2);
}

/// Limits of a range, stored; negative: none.
struct Range {
    std::vector<unsigned char> lower, upper;
    KyIdxBounds bounds;

    Range(long long low, long long high) {
        if (low >= 0) lower = Stored(Seals({low}));
        if (high >= 0) upper = Stored(Seals({high}));
        bounds.lower = low >= 0 ? lower.data() : nullptr;
        bounds.upper = high >= 0 ? upper.data() : nullptr;
    }
};

float Share(unsigned op, long long number, long long low, long long high) {
    Range range(low, high);
    std::vector<unsigned char> value = Stored(Seals({number}));
    auto word = static_cast<unsigned short>(op);
    const float share = KySealTab.EvalAndBound(&range.bounds, word, value.data(), KyFormReversed, 1, nullptr);
    EXPECT_EQ(word, op);
    return share;
}

TEST(SealRow, EstimatesShares) {
    EXPECT_FLOAT_EQ(Share(KyCmpEqual, 50, 1, 100), 0.01F);
    EXPECT_FLOAT_EQ(Share(KyCmpEqual, 101, 1, 100), 0);
    EXPECT_FLOAT_EQ(Share(KyCmpGreater | KyCmpEqual, 91, 1, 100), 0.1F);
    EXPECT_FLOAT_EQ(Share(KyCmpLess, 200, 1, 100), 1);
    EXPECT_FLOAT_EQ(Share(KyCmpLess, 11, 1, 100), 0.1F);
    EXPECT_FLOAT_EQ(Share(KyCmpGreater, kHighest - 1, kHighest - 3, kHighest), 0.25F);
    EXPECT_FLOAT_EQ(Share(KyCmpEqual, 0x000100000000, 0x0000FFFFFFFF, 0x000100000002), 0.25F);
}

TEST(SealRow, MissingLimitsAreTheLeastAndTheHighestSeal) {
    EXPECT_FLOAT_EQ(Share(KyCmpLess, 0x800000000000, -1, -1), 0.5F);
    EXPECT_FLOAT_EQ(Share(KyCmpGreater | KyCmpEqual, 0xC00000000000, -1, -1), 0.25F);
    EXPECT_FLOAT_EQ(Share(KyCmpLess, 5, -1, 9), 0.5F);
    EXPECT_FLOAT_EQ(Share(KyCmpGreater, kHighest - 4, kHighest - 7, -1), 0.5F);
}

TEST(SealRow, Kept_AStepCountsWhereAComparisonStopsAtALimit) {
    EXPECT_FLOAT_EQ(Share(KyCmpGreater, 100, 1, 100), 0.01F);
    EXPECT_FLOAT_EQ(Share(KyCmpLess, 1, 1, 100), 0.01F);
    EXPECT_FLOAT_EQ(Share(KyCmpLess | KyCmpGreater, 5, 5, 5), 1);
    EXPECT_FLOAT_EQ(Share(KyCmpGreater, 101, 1, 100), 0);
    EXPECT_FLOAT_EQ(Share(KyCmpLess, 0, 1, 100), 0);
}

TEST(SealRow, WithoutARangeNothingIsKeptAndLimitsAreRecorded) {
    for (const long long number : {0LL, 1LL, kHighest}) {
        const std::vector<KySeal> seals = Seals({number, 7});
        std::vector<unsigned char> value = Stored(seals);
        struct {
            unsigned op;
            bool lower, upper;
        } const cases[] = {
            {KyCmpEqual, true, true},
            {KyCmpLess, false, true},
            {KyCmpGreater, true, false},
            {KyCmpLess | KyCmpGreater, false, false},
        };
        for (const auto& c : cases) {
            KyIdxBounds out;
            auto op = static_cast<unsigned short>(c.op);
            EXPECT_EQ(KySealTab.EvalAndBound(nullptr, op, value.data(), KyFormNative, 2, &out), 0);
            EXPECT_EQ(out.lower != nullptr, c.lower);
            EXPECT_EQ(out.upper != nullptr, c.upper);
            for (void* limit : {out.lower, out.upper}) {
                if (limit == nullptr) continue;
                EXPECT_EQ(Hex(limit, 12), Hex(value.data(), 12));
                mmKyfree(limit);
            }
            EXPECT_EQ(out.lowerLen, c.lower ? 12 : 0);
            EXPECT_EQ(out.upperLen, c.upper ? 12 : 0);
        }
    }
}

}  // namespace
