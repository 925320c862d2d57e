#include <gtest/gtest.h>

#include <random>

#include "null_roster.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// The fast walks against the rules themselves, element by element.

namespace {

/// `Number` is what the elements are ordered as, `Signed` what they are hashed as.
template <class Number, class Signed = Number>
class Twin {
public:
    explicit Twin(int id) {
        for (const NullType& each : NullTypes()) {
            if (each.id == id) type = &each;
        }
        samples = NullSamples(*type);
    }

    void Run() {
        for (int round = 0; round < 1500; ++round) {
            const unsigned count = 1 + Below(round % 10 == 0 ? 2000 : 60);
            const unsigned char flag = kFlags[Below(std::size(kFlags))];
            SCOPED_TRACE("round " + std::to_string(round) + " count " + std::to_string(count) + " flag " +
                         std::to_string(flag));
            // Nulls in many bytes are equal for long; all values decide soon.
            const unsigned kinds = round % 3 == 0 ? 100 : 6;
            const ByteVector a = InForm(count, kinds, flag);
            ByteVector b = round % 3 == 1 ? Repadded(a, flag) : InForm(count, kinds, flag);
            if (round % 4 == 1) b[Below(static_cast<unsigned>(b.size()))] ^= 1;
            CompareOnce(a, b, count, flag);
            HashOnce(a, count, flag);
            StoreOnce(count, flag);
            LoadOnce(count, flag);
            if (testing::Test::HasFailure()) return;
        }
    }

private:
    const NullType* type = nullptr;
    std::vector<NumberSample> samples;
    std::mt19937 random{20240507};

    unsigned Below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random); }
    unsigned char Byte() { return static_cast<unsigned char>(random()); }

    /// Elements in memory form with odd flags and paddings.
    ByteVector Memory(unsigned count, unsigned kinds) {
        ByteVector bytes;
        for (unsigned i = 0; i < count; ++i) {
            ByteVector value = samples[Below(std::min(kinds, static_cast<unsigned>(samples.size())))].memory;
            if (Below(40) == 0) value[type->shape.number] = Byte();
            for (std::size_t at = type->shape.Stored(); at < value.size(); ++at) value[at] = Byte();
            bytes.insert(bytes.end(), value.begin(), value.end());
        }
        return bytes;
    }

    /// The same in a form, with some odd null bytes.
    ByteVector InForm(unsigned count, unsigned kinds, unsigned char flag) {
        ByteVector bytes = NullsInForm(*type, Memory(count, kinds), flag);
        if ((flag & KyFormMask) == KyFormMemory) return bytes;
        const std::size_t nullAt = (flag & 8) != 0 ? type->shape.number : 0;
        for (std::size_t at = nullAt; at < bytes.size(); at += type->shape.Stored()) {
            if (Below(40) == 0) bytes[at] = Byte();
        }
        return bytes;
    }

    /// Equal elements in other bytes, where the form has bytes that do not count.
    ByteVector Repadded(ByteVector bytes, unsigned char flag) {
        if ((flag & KyFormMask) != KyFormMemory) return bytes;
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            const std::size_t inElement = at % type->shape.memory;
            if (inElement > type->shape.number) bytes[at] = Byte();
            if (inElement == type->shape.number && bytes[at] != 0)
                bytes[at] = static_cast<unsigned char>(1 + Below(255));
        }
        return bytes;
    }

    unsigned Length(unsigned count, unsigned char flag) {
        const auto stride = static_cast<unsigned>(SlowNullStride(type->shape, flag));
        return Below(3) == 0 ? 0 : 1 + Below(count * stride + 9);
    }

    /// Bytes that a walk may read: all elements that start inside the length, the first in any case.
    std::size_t Readable(unsigned length, unsigned count, unsigned char flag) {
        const std::size_t stride = SlowNullStride(type->shape, flag);
        if (length == 0) return count * stride;
        return std::min<std::size_t>((length + stride - 1) / stride, count) * stride;
    }

    void CompareOnce(ByteVector a, ByteVector b, unsigned count, unsigned char flag) {
        const unsigned lenA = Length(count, flag);
        const unsigned lenB = Length(count, flag);
        const std::size_t readable = std::min(Readable(lenA, count, flag), Readable(lenB, count, flag));
        GuardedBuffer guardedA(std::span<const unsigned char>(a).first(readable));
        GuardedBuffer guardedB(std::span<const unsigned char>(b).first(readable));
        int err = -1;
        int slowErr = -1;
        const int result = type->row->Compare(flag, lenA, guardedA.data(), lenB, guardedB.data(), 0, count, err);
        EXPECT_EQ(result, SlowNullCompare<Number>(type->shape, flag, lenA, a.data(), lenB, b.data(), count, slowErr));
        EXPECT_EQ(err, slowErr);
    }

    void HashOnce(ByteVector data, unsigned count, unsigned char flag) {
        const unsigned length = Length(count, flag);
        GuardedBuffer guarded(std::span<const unsigned char>(data).first(Readable(length, count, flag)));
        int err = -1;
        int slowErr = -1;
        EXPECT_EQ(type->row->Hash(flag, length, guarded.data(), count, err),
                  SlowNullHash<Signed>(type->shape, flag, length, data.data(), count, slowErr));
        EXPECT_EQ(err, slowErr);
    }

    void StoreOnce(unsigned count, unsigned char flag) {
        const ByteVector memory = Memory(count, 100);
        GuardedBuffer src{std::span(memory)};
        GuardedBuffer dst(count * type->shape.Stored());
        ByteVector slow(dst.size());
        EXPECT_EQ(type->row->Store(dst.data(), src.data(), flag, count), dst.size());
        EXPECT_EQ(SlowNullStore(type->shape, slow.data(), memory.data(), flag, count), dst.size());
        EXPECT_EQ(ByteVector(dst.data(), dst.data() + dst.size()), slow);
    }

    void LoadOnce(unsigned count, unsigned char flag) {
        ByteVector stored(count * type->shape.Stored());
        const ByteVector memory = Memory(count, 100);
        SlowNullStore(type->shape, stored.data(), memory.data(), flag, count);
        for (unsigned char& byte : stored) {
            if (Below(9) == 0) byte = static_cast<unsigned char>(Below(4));
        }
        GuardedBuffer src{std::span(stored)};
        GuardedBuffer dst(count * type->shape.memory);
        ByteVector slow(dst.size());
        EXPECT_EQ(type->row->Load(dst.data(), src.data(), flag, count), stored.size());
        EXPECT_EQ(SlowNullLoad(type->shape, slow.data(), stored.data(), flag, count), stored.size());
        EXPECT_EQ(ByteVector(dst.data(), dst.data() + dst.size()), slow) << "with cleared padding";
    }
};

TEST(NullOracle, Char) { Twin<std::int8_t>(28).Run(); }
TEST(NullOracle, Uchar) { Twin<std::uint8_t, std::int8_t>(29).Run(); }
TEST(NullOracle, Short) { Twin<std::int16_t>(30).Run(); }
TEST(NullOracle, Ushort) { Twin<std::uint16_t, std::int16_t>(31).Run(); }
TEST(NullOracle, Int) { Twin<std::int32_t>(32).Run(); }
TEST(NullOracle, Unsigned) { Twin<std::uint32_t, std::int32_t>(33).Run(); }
TEST(NullOracle, Long) { Twin<std::int32_t>(34).Run(); }
TEST(NullOracle, Ulong) { Twin<std::uint32_t, std::int32_t>(35).Run(); }
TEST(NullOracle, Float) { Twin<float>(36).Run(); }
TEST(NullOracle, Double) { Twin<double>(37).Run(); }
TEST(NullOracle, Int64) { Twin<std::int64_t>(38).Run(); }
TEST(NullOracle, O_8B) { Twin<std::int64_t>(44).Run(); }
TEST(NullOracle, O_U8B) { Twin<std::uint64_t, std::int64_t>(45).Run(); }

}  // namespace
