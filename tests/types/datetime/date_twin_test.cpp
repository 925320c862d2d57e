#include <gtest/gtest.h>

#include <random>

#include "date_roster.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// The fast walks against the rules themselves, field by field. Buffers end where the walk has to end.

namespace {

class DateTwin : public testing::TestWithParam<DateType> {
protected:
    const DateType& type = GetParam();
    std::mt19937 random{20240507};

    unsigned Below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random); }

    std::vector<SlowDate> Values(unsigned count, unsigned kinds) {
        std::vector<SlowDate> values;
        for (unsigned i = 0; i < count; ++i) values.push_back(DateSamples()[Below(kinds)]);
        return values;
    }

    unsigned Length(unsigned count, std::size_t size) {
        return Below(3) == 0 ? 0 : 1 + Below(count * static_cast<unsigned>(size) + 9);
    }

    /// Bytes that a walk may read: the elements that lie within the length, the first in any case.
    static std::size_t Readable(unsigned length, unsigned count, std::size_t size) {
        if (length == 0) return count * size;
        return std::max<std::size_t>(std::min<std::size_t>(length / size, count), 1) * size;
    }

    void CompareOnce(ByteVector a, ByteVector b, unsigned count, unsigned char flag, unsigned short op) {
        const std::size_t size = SlowDateSize(type.shape, flag);
        const unsigned lenA = Length(count, size);
        const unsigned lenB = Length(count, size);
        const std::size_t readable = std::min(Readable(lenA, count, size), Readable(lenB, count, size));
        GuardedBuffer guardedA(std::span<const unsigned char>(a).first(readable));
        GuardedBuffer guardedB(std::span<const unsigned char>(b).first(readable));
        int err = -1;
        int slowErr = -1;
        const int result = type.row->Compare(flag, lenA, guardedA.data(), lenB, guardedB.data(), op, count, err);
        EXPECT_EQ(result, SlowDateCompare(type.shape, flag, lenA, a.data(), lenB, b.data(), op, count, slowErr));
        EXPECT_EQ(err, slowErr);
    }

    void HashOnce(ByteVector data, unsigned count, unsigned char flag) {
        const std::size_t size = SlowDateSize(type.shape, flag);
        const unsigned length = Length(count, size);
        GuardedBuffer guarded(std::span<const unsigned char>(data).first(Readable(length, count, size)));
        int err = -1;
        int slowErr = -1;
        EXPECT_EQ(type.row->Hash(flag, length, guarded.data(), count, err),
                  SlowDateHash(type.shape, flag, length, data.data(), count, slowErr));
        EXPECT_EQ(err, slowErr);
    }

    void MoveOnce(const std::vector<SlowDate>& values, unsigned char flag) {
        const auto count = static_cast<unsigned>(values.size());
        const unsigned char form = (flag & 15) == KyFormReversed ? KyFormReversed : KyFormNative;
        const ByteVector memory = DatesInForm(type, values, KyFormMemory, 0xEE);
        const ByteVector expected = DatesInForm(type, values, form);
        GuardedBuffer src{std::span(memory)};
        GuardedBuffer stored(expected.size());
        EXPECT_EQ(type.row->Store(stored.data(), src.data(), flag, count), expected.size());
        EXPECT_EQ(Hex(stored.data(), stored.size()), Hex(expected.data(), expected.size()));
        GuardedBuffer loaded(memory.size());
        EXPECT_EQ(type.row->Load(loaded.data(), stored.data(), flag, count), expected.size());
        const ByteVector cleared = DatesInForm(type, values, KyFormMemory, 0);
        EXPECT_EQ(Hex(loaded.data(), loaded.size()), Hex(cleared.data(), cleared.size()));
    }
};

TEST_P(DateTwin, AgreesWithTheWalksOfTheRows) {
    const auto allKinds = static_cast<unsigned>(DateSamples().size());
    for (int round = 0; round < 1000 / kFewerCases; ++round) {
        const unsigned count = 1 + Below(round % 10 == 0 ? 2000 : 40);
        const unsigned char flag = kDateFlags[Below(std::size(kDateFlags))];
        const unsigned short op = round % 2 == 0 ? 0x10 : static_cast<unsigned short>(Below(0x10000));
        SCOPED_TRACE("round " + std::to_string(round) + " count " + std::to_string(count) + " flag " +
                     std::to_string(flag) + " op " + std::to_string(op));
        // Few kinds stay equal for long; all decide soon.
        const std::vector<SlowDate> values = Values(count, round % 3 == 0 ? allKinds : 3);
        const ByteVector a = DatesInForm(type, values, flag, 0x11);
        std::vector<SlowDate> others = round % 3 == 1 ? values : Values(count, round % 3 == 0 ? allKinds : 3);
        if (round % 4 == 1) others[Below(count)] = DateSamples()[Below(allKinds)];
        // Wildcards everywhere are equal to everything, one by one.
        if (round % 7 == 1) {
            for (SlowDate& other : others) other[Below(7)] = -1;
        }
        CompareOnce(a, DatesInForm(type, others, flag, 0x22), count, flag, op);
        HashOnce(a, count, flag);
        MoveOnce(values, flag);
        if (HasFailure()) return;
    }
}

TEST_P(DateTwin, AgreesOnEveryPairOfSamplesInEveryForm) {
    for (const SlowDate& x : DateSamples()) {
        for (const SlowDate& y : DateSamples()) {
            for (const unsigned char flag : kDateFlags) {
                for (const unsigned op : {0x0u, 0x10u, 0xFFEFu, 0xFFFFu}) {
                    CompareOnce(DateInForm(type, x, flag), DateInForm(type, y, flag), 1, flag,
                                static_cast<unsigned short>(op));
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, DateTwin, testing::ValuesIn(DateTypes()),
                         [](const auto& instance) { return instance.param.Name(); });

}  // namespace
