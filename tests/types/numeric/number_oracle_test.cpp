#include <gtest/gtest.h>

#include <random>

#include "number_roster.h"
#include "oracle/slow_numbers.h"
#include "support/guarded_buffer.h"

// The fast walks against the rule itself, element by element.

namespace {

template <class T>
struct Twin {
    KyTypeTab& row;
    std::mt19937 random{20240507};

    unsigned Below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random); }

    /// What makes walks go on or stop: few different values, floating-point ones that are equal in other bytes.
    ByteVector Values(unsigned count, unsigned kinds) {
        static const std::vector<NumberSample>& samples = SamplesOf(row);
        ByteVector bytes;
        for (unsigned i = 0; i < count; ++i) {
            const ByteVector& value =
                samples[Below(std::min<unsigned>(kinds, static_cast<unsigned>(samples.size())))].memory;
            bytes.insert(bytes.end(), value.begin(), value.end());
        }
        return bytes;
    }

    static const std::vector<NumberSample>& SamplesOf(KyTypeTab& row) {
        for (const NumberType& type : NumberTypes()) {
            if (type.row == &row) return type.samples;
        }
        throw std::logic_error("not a number's row");
    }

    unsigned Length(unsigned count) { return Below(3) == 0 ? 0 : 1 + Below(count * unsigned{sizeof(T)} + 9); }

    /// Bytes that a walk may read: all elements that start inside the length, the first in any case.
    static std::size_t Readable(unsigned length, unsigned count) {
        if (length == 0) return count * sizeof(T);
        return std::min<std::size_t>((length + sizeof(T) - 1) / sizeof(T), count) * sizeof(T);
    }

    void CompareOnce(ByteVector a, ByteVector b, unsigned count, unsigned char flag) {
        const unsigned lenA = Length(count);
        const unsigned lenB = Length(count);
        const std::size_t readable = std::min(Readable(lenA, count), Readable(lenB, count));
        GuardedBuffer guardedA(std::span<const unsigned char>(a).first(readable));
        GuardedBuffer guardedB(std::span<const unsigned char>(b).first(readable));
        int err = -1;
        int slowErr = -1;
        const int result = row.Compare(flag, lenA, guardedA.data(), lenB, guardedB.data(), 0, count, err);
        EXPECT_EQ(result, SlowCompare<T>(flag, lenA, a.data(), lenB, b.data(), count, slowErr));
        EXPECT_EQ(err, slowErr);
    }

    void HashOnce(ByteVector data, unsigned count, unsigned char flag) {
        const unsigned length = Length(count);
        GuardedBuffer guarded(std::span<const unsigned char>(data).first(Readable(length, count)));
        int err = -1;
        int slowErr = -1;
        EXPECT_EQ(row.Hash(flag, length, guarded.data(), count, err),
                  SlowHash<T>(flag, length, data.data(), count, slowErr));
        EXPECT_EQ(err, slowErr);
    }

    void Run() {
        for (int round = 0; round < 1500; ++round) {
            const unsigned count = 1 + Below(round % 10 == 0 ? 2000 : 60);
            const unsigned char flag = kFlags[Below(std::size(kFlags))];
            // NaNs and zeros among themselves are equal for long; all values decide soon.
            const ByteVector a = Values(count, round % 3 == 0 ? 100 : 4);
            ByteVector b = round % 3 == 1 ? a : Values(count, round % 3 == 0 ? 100 : 4);
            const unsigned changed = Below(count) * unsigned{sizeof(T)};
            if (round % 4 == 1) b[changed] ^= 1;
            SCOPED_TRACE("round " + std::to_string(round) + " count " + std::to_string(count) + " flag " +
                         std::to_string(flag));
            CompareOnce(a, b, count, flag);
            HashOnce(a, count, flag);
            if (testing::Test::HasFailure()) return;
        }
    }
};

TEST(NumberOracle, Char) { Twin<std::int8_t>{KyCharTab}.Run(); }
TEST(NumberOracle, Byte) { Twin<std::uint8_t>{KyByteTab}.Run(); }
TEST(NumberOracle, Short) { Twin<std::int16_t>{KyShortTab}.Run(); }
TEST(NumberOracle, Word) { Twin<std::uint16_t>{KyWordTab}.Run(); }
TEST(NumberOracle, Long) { Twin<std::int32_t>{KyLongTab}.Run(); }
TEST(NumberOracle, Dword) { Twin<std::uint32_t>{KyDWordTab}.Run(); }
TEST(NumberOracle, BlockId) { Twin<std::uint32_t>{KyBlockIdTab}.Run(); }
TEST(NumberOracle, Int) { Twin<std::int32_t>{KyIntTab}.Run(); }
TEST(NumberOracle, Unsigned) { Twin<std::uint32_t>{KyUnsignedTab}.Run(); }
TEST(NumberOracle, Enum) { Twin<std::int32_t>{KyEnumTab}.Run(); }
TEST(NumberOracle, O_8B) { Twin<std::int64_t>{Ky8BTab}.Run(); }
TEST(NumberOracle, O_U8B) { Twin<std::uint64_t>{KyU8BTab}.Run(); }
TEST(NumberOracle, Float) { Twin<float>{KyFloatTab}.Run(); }
TEST(NumberOracle, Double) { Twin<double>{KyDoubleTab}.Run(); }

template <class T>
void WalkPairs(KyTypeTab& row) {
    int err = -1;
    int slowErr = -1;
    for (unsigned a = 0; a < 256; ++a) {
        for (unsigned b = 0; b < 256; ++b) {
            unsigned char x = static_cast<unsigned char>(a);
            unsigned char y = static_cast<unsigned char>(b);
            for (const unsigned char flag : ByteVector{1, 2, 8}) {
                ASSERT_EQ(row.Compare(flag, 0, &x, 0, &y, 0, 1, err), SlowCompare<T>(flag, 0, &x, 0, &y, 1, slowErr));
            }
        }
    }
}

TEST(NumberOracle, AllPairsOf8Bits) {
    WalkPairs<std::int8_t>(KyCharTab);
    WalkPairs<std::uint8_t>(KyByteTab);
}

template <class T>
void WalkValues(KyTypeTab& row) {
    static constexpr std::uint16_t others[] = {0, 1, 0x00FF, 0x0100, 0x7FFF, 0x8000, 0x80FF, 0xFF00, 0xFFFF};
    int err = -1;
    int slowErr = -1;
    for (unsigned value = 0; value < 0x10000; ++value) {
        ByteVector a = BytesOfValue(static_cast<std::uint16_t>(value));
        for (const unsigned char flag : ByteVector{1, 2, 8}) {
            ASSERT_EQ(row.Hash(flag, 0, a.data(), 1, err), SlowHash<T>(flag, 0, a.data(), 1, slowErr));
            for (const std::uint16_t other : others) {
                ByteVector b = BytesOfValue(other);
                ASSERT_EQ(row.Compare(flag, 0, a.data(), 0, b.data(), 0, 1, err),
                          SlowCompare<T>(flag, 0, a.data(), 0, b.data(), 1, slowErr));
            }
        }
    }
}

TEST(NumberOracle, AllValuesOf16Bits) {
    WalkValues<std::int16_t>(KyShortTab);
    WalkValues<std::uint16_t>(KyWordTab);
}

}  // namespace
