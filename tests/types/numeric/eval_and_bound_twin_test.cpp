#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "bounds_roster.h"
#include "null_roster.h"
#include "oracle/slow_bounds.h"
#include "support/fewer_cases.h"
#include "support/hex.h"

// The shares of all samples of a type in all ranges between samples, and of random ones, against the rules themselves.

namespace {

constexpr unsigned short kModifiers[] = {0, 0x8, 0x8000, 0x7FF0};

/// The forms that are decoded, one that is left to the base library, and one with a type's own bits.
constexpr unsigned char kForms[] = {KyFormNative, KyFormReversed, KyFormMemory, 3, 0x82};
/// Of nullable numbers: some where the null byte comes last.
constexpr unsigned char kNullForms[] = {KyFormNative, KyFormReversed, 0xF2, 5, 9, 10};

template <class T>
T Read(const ByteVector& memory) {
    T value;
    std::memcpy(&value, memory.data(), sizeof value);
    return value;
}

/// A value of plain type `T`, telling where chance leaves the choice.
template <class T>
class Chance {
public:
    T Any() {
        auto bits = static_cast<std::uint64_t>(random());
        switch (random() % 4) {
            case 0:
                bits &= 0xF;
                break;
            case 1:
                bits = (std::uint64_t{1} << (random() % 64)) + random() % 5 - 2;
                break;
            case 2:
                bits = near + random() % 5000 - 2500;
                break;
            default:
                break;
        }
        near = bits;
        ByteVector bytes = BytesOfValue(bits);
        // The high end of a floating-point number is where the telling bits are.
        if (std::is_floating_point_v<T>) std::rotate(bytes.begin(), bytes.end() - sizeof(T), bytes.end());
        return Read<T>(bytes);
    }

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

private:
    std::mt19937_64 random{20240507};
    std::uint64_t near = 0;
};

/// `T` is what the row's numbers are; `form` makes a form of memory-form bytes.
template <class T, class InAnyForm>
void CheckPlain(const KyTypeTab& row, const std::vector<NumberSample>& samples, InAnyForm form) {
    BoundsOperands operands(sizeof(T));
    const auto check = [&](unsigned op, const ByteVector& value, const ByteVector* lower, const ByteVector* upper) {
        const T low = lower != nullptr ? Read<T>(*lower) : T{};
        const T high = upper != nullptr ? Read<T>(*upper) : T{};
        const float share = SlowShare<T>(op, Read<T>(value), low, high);
        ASSERT_TRUE(share >= 0 && share <= 1);
        for (const unsigned char flag : kForms) {
            operands.SetValue(form(value, flag));
            const ByteVector lowerForm = lower != nullptr ? form(*lower, flag) : ByteVector();
            const ByteVector upperForm = upper != nullptr ? form(*upper, flag) : ByteVector();
            operands.SetLower(lower != nullptr ? &lowerForm : nullptr);
            operands.SetUpper(upper != nullptr ? &upperForm : nullptr);
            for (const unsigned modifier : kModifiers) {
                ASSERT_EQ(operands.Share(row, static_cast<unsigned short>(op | modifier), flag), share)
                    << "op " << op << " flag " << int{flag} << " value " << Hex(value.data(), value.size()) << " from "
                    << (lower != nullptr ? Hex(lower->data(), lower->size()) : "nothing") << " to "
                    << (upper != nullptr ? Hex(upper->data(), upper->size()) : "nothing");
            }
        }
    };
    Chance<T> chance;
    for (unsigned op = 0; op < 8; ++op) {
        for (const NumberSample& value : samples) {
            for (const NumberSample& lower : samples) {
                check(op, value.memory, &lower.memory, nullptr);
                check(op, value.memory, nullptr, &lower.memory);
                for (const NumberSample& upper : samples) {
                    if (chance.Below(kFewerCases) == 0) check(op, value.memory, &lower.memory, &upper.memory);
                }
                if (testing::Test::HasFatalFailure()) return;
            }
            check(op, value.memory, nullptr, nullptr);
        }
    }
    for (int round = 0; round < 20000 / kFewerCases && !testing::Test::HasFatalFailure(); ++round) {
        const ByteVector value = BytesOfValue(chance.Any());
        const ByteVector lower = BytesOfValue(chance.Any());
        const ByteVector upper = BytesOfValue(chance.Any());
        check(chance.Below(8), value, &lower, &upper);
    }
}

template <class T>
void CheckPlain(int id) {
    for (const NumberType& type : NumberTypes()) {
        if (type.id != id) continue;
        CheckPlain<T>(*type.row, type.samples,
                      [](const ByteVector& memory, unsigned char flag) { return InForm(memory, sizeof(T), flag); });
    }
}

TEST(ShareTwin, Char) { CheckPlain<std::int8_t>(Ky1B_T); }
TEST(ShareTwin, Byte) { CheckPlain<std::uint8_t>(KyU1B_T); }
TEST(ShareTwin, Short) { CheckPlain<std::int16_t>(Ky2B_T); }
TEST(ShareTwin, Word) { CheckPlain<std::uint16_t>(KyU2B_T); }
TEST(ShareTwin, Long) { CheckPlain<std::int32_t>(Ky4B_T); }
TEST(ShareTwin, Dword) { CheckPlain<std::uint32_t>(KyU4B_T); }
TEST(ShareTwin, Int) { CheckPlain<std::int32_t>(KyINT_T); }
TEST(ShareTwin, Unsigned) { CheckPlain<std::uint32_t>(KyUNSIGNED_T); }
TEST(ShareTwin, Enum) { CheckPlain<std::int32_t>(KyENUM_T); }
TEST(ShareTwin, BlockId) { CheckPlain<std::uint32_t>(KyBLOCKID_T); }
TEST(ShareTwin, O8b) { CheckPlain<std::int64_t>(Ky8B_T); }
TEST(ShareTwin, Ou8b) { CheckPlain<std::uint64_t>(KyU8B_T); }
TEST(ShareTwin, Float) { CheckPlain<float>(KyFLOAT_T); }
TEST(ShareTwin, Double) { CheckPlain<double>(KyDOUBLE_T); }
TEST(ShareTwin, Int64) {
    for (const NumberType& type : NumberTypes()) {
        if (type.id == Ky8B_T) CheckPlain<std::int64_t>(KyInt64Tab, type.samples, Int64InForm);
    }
}

template <class T>
void CheckNullable(int id) {
    const NullType* type = nullptr;
    for (const NullType& each : NullTypes()) {
        if (each.id == id) type = &each;
    }
    ASSERT_NE(type, nullptr);
    BoundsOperands operands(type->shape.Stored());
    const auto numberOf = [&](const ByteVector* stored, unsigned char flag) -> std::optional<T> {
        unsigned char memory[16] = {};
        if (stored == nullptr) return {};
        SlowNullLoad(type->shape, memory, stored->data(), flag, 1);
        if (memory[type->shape.number] != 0) return {};
        T number;
        std::memcpy(&number, memory, sizeof number);
        return number;
    };
    const auto check = [&](unsigned op, unsigned char flag, const ByteVector& value, const ByteVector* lower,
                           const ByteVector* upper) {
        const float share = SlowNullShare<T>(op, numberOf(&value, flag), numberOf(lower, flag), numberOf(upper, flag));
        ASSERT_TRUE(share >= 0 && share <= 1);
        operands.SetValue(value);
        operands.SetLower(lower);
        operands.SetUpper(upper);
        for (const unsigned modifier : kModifiers) {
            ASSERT_EQ(operands.Share(*type->row, static_cast<unsigned short>(op | modifier), flag), share)
                << "op " << op << " flag " << int{flag} << " value " << Hex(value.data(), value.size());
        }
    };
    for (const unsigned char flag : kNullForms) {
        std::vector<ByteVector> samples;
        for (const NumberSample& sample : NullSamples(*type))
            samples.push_back(NullsInForm(*type, sample.memory, flag));
        // A null byte that is neither 0 nor 1.
        samples.push_back(samples.back());
        samples.back()[(flag & KyFormMemory) != 0 ? type->shape.number : 0] = 2;
        Chance<T> chance;
        for (unsigned op = 0; op < 8; ++op) {
            for (const ByteVector& value : samples) {
                for (const ByteVector& lower : samples) {
                    check(op, flag, value, &lower, nullptr);
                    check(op, flag, value, nullptr, &lower);
                    for (const ByteVector& upper : samples) {
                        if (chance.Below(kFewerCases) == 0) check(op, flag, value, &lower, &upper);
                    }
                    if (testing::Test::HasFatalFailure()) return;
                }
                check(op, flag, value, nullptr, nullptr);
            }
        }
        const auto any = [&] {
            const auto null = static_cast<unsigned char>(chance.Below(8) == 0);
            return NullsInForm(*type, NullElementOf(*type, BytesOfValue(chance.Any()), null), flag);
        };
        for (int round = 0; round < 10000 / kFewerCases && !testing::Test::HasFatalFailure(); ++round) {
            const ByteVector lower = any();
            const ByteVector upper = any();
            check(chance.Below(8), flag, any(), &lower, &upper);
        }
    }
}

TEST(NullShareTwin, Char) { CheckNullable<signed char>(KyNULL_1B_T); }
TEST(NullShareTwin, Uchar) { CheckNullable<unsigned char>(KyNULL_U1B_T); }
TEST(NullShareTwin, Short) { CheckNullable<short>(KyNULL_2B_T); }
TEST(NullShareTwin, Ushort) { CheckNullable<unsigned short>(KyNULL_U2B_T); }
TEST(NullShareTwin, Int) { CheckNullable<int>(KyNULL_INT_T); }
TEST(NullShareTwin, Unsigned) { CheckNullable<unsigned>(KyNULL_UNSIGNED_T); }
TEST(NullShareTwin, Long) { CheckNullable<int>(KyNULL_4B_T); }
TEST(NullShareTwin, Ulong) { CheckNullable<unsigned>(KyNULL_U4B_T); }
TEST(NullShareTwin, Float) { CheckNullable<float>(KyNULL_FLOAT_T); }
TEST(NullShareTwin, Double) { CheckNullable<double>(KyNULL_DOUBLE_T); }
TEST(NullShareTwin, Int64) { CheckNullable<long long>(KyNULL_KYINT64_T); }
TEST(NullShareTwin, N8b) { CheckNullable<long long>(KyNULL_8B_T); }
TEST(NullShareTwin, Nu8b) { CheckNullable<unsigned long long>(KyNULL_U8B_T); }

/// The estimate of whole numbers against the count of the keys that satisfy the comparison.
template <class T>
void CheckAgainstCount(KyTypeTab& row) {
    Chance<T> chance;
    BoundsOperands operands(sizeof(T));
    for (int round = 0; round < 100000 / kFewerCases; ++round) {
        const T value = chance.Any();
        const auto [lower, upper] = std::minmax({chance.Any(), chance.Any()});
        const unsigned op = chance.Below(8);
        operands.SetValue(BytesOfValue(value));
        const ByteVector lowerBytes = BytesOfValue(lower);
        const ByteVector upperBytes = BytesOfValue(upper);
        operands.SetLower(&lowerBytes);
        operands.SetUpper(&upperBytes);
        const float share = operands.Share(row, static_cast<unsigned short>(op), KyFormNative);
        const WideInteger width = static_cast<WideInteger>(upper) - lower + 1;
        const WideInteger kept = CountKept(op, value, lower, upper);
        const auto exact = static_cast<long double>(kept) / static_cast<long double>(width);
        // Numbers from 2^53 on are off by as much as a double of their size is; one key stands for none at a limit.
        const auto largest =
            std::max(std::abs(static_cast<long double>(lower)), std::abs(static_cast<long double>(upper)));
        const long double keys = sizeof(T) < 8 ? 0 : 1 + 4 * largest / 0x1p53L;
        ASSERT_NEAR(static_cast<double>(share), static_cast<double>(exact),
                    static_cast<double>(0x1p-24L + keys / static_cast<long double>(width)))
            << "op " << op << ' ' << +value << " in " << +lower << " to " << +upper;
        if (sizeof(T) < 8) {
            ASSERT_EQ(share == 0, kept == 0);
        }
    }
}

TEST(ShareAgainstCount, WholeNumbersOfEveryWidth) {
    CheckAgainstCount<std::int8_t>(KyCharTab);
    CheckAgainstCount<std::uint8_t>(KyByteTab);
    CheckAgainstCount<std::int16_t>(KyShortTab);
    CheckAgainstCount<std::uint16_t>(KyWordTab);
    CheckAgainstCount<std::int32_t>(KyIntTab);
    CheckAgainstCount<std::uint32_t>(KyUnsignedTab);
    CheckAgainstCount<std::int64_t>(Ky8BTab);
    CheckAgainstCount<std::uint64_t>(KyU8BTab);
}

}  // namespace
