#include "number_text_powers.h"

#include <gtest/gtest.h>

#include <compare>
#include <cstdint>
#include <vector>

namespace {

/// A natural number of any size that grows by small factors; written for being obvious.
class Natural {
public:
    explicit Natural(ky::UInt128 value) {
        for (; value != 0; value >>= 32) limbs.push_back(static_cast<std::uint32_t>(value));
    }

    Natural& Times(std::uint32_t factor) {
        std::uint64_t carry = 0;
        for (std::uint32_t& limb : limbs) {
            carry += std::uint64_t{limb} * factor;
            limb = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        if (carry != 0) limbs.push_back(static_cast<std::uint32_t>(carry));
        return *this;
    }

    Natural& TimesPower(std::uint32_t base, int exponent) {
        for (; exponent > 0; --exponent) Times(base);
        return *this;
    }

    std::strong_ordering operator<=>(const Natural& other) const {
        if (limbs.size() != other.limbs.size()) return limbs.size() <=> other.limbs.size();
        for (std::size_t i = limbs.size(); i-- != 0;) {
            if (limbs[i] != other.limbs[i]) return limbs[i] <=> other.limbs[i];
        }
        return std::strong_ordering::equal;
    }

private:
    std::vector<std::uint32_t> limbs;  ///< the lowest first, the highest not 0
};

/// How mantissa * 2^(exponent - 127) compares with 10^q.
std::strong_ordering CompareWithPower(ky::UInt128 mantissa, int exponent, int q) {
    Natural ours(mantissa);
    Natural power(1);
    if (q < 0) ours.TimesPower(10, -q);
    power.TimesPower(10, q);
    const int shift = exponent - 127;
    ours.TimesPower(2, shift);
    power.TimesPower(2, -shift);
    return ours <=> power;
}

TEST(PowersOfTen, AreCutOffBehind128Bits) {
    for (int q = ky::kFirstPower; q <= ky::kLastPower; ++q) {
        const ky::PowerOfTen& power = ky::kPowersOfTen[static_cast<std::size_t>(q - ky::kFirstPower)];
        ASSERT_EQ(power.high >> 63, 1U) << q;
        const ky::UInt128 mantissa = ky::UInt128{power.high} << 64 | power.low;
        const int exponent = ky::PowerExponent(q);
        if (ky::IsExactPower(q)) {
            EXPECT_TRUE(CompareWithPower(mantissa, exponent, q) == 0) << q;
        } else {
            EXPECT_TRUE(CompareWithPower(mantissa, exponent, q) < 0) << q;
        }
        if (mantissa + 1 != 0) {
            EXPECT_TRUE(CompareWithPower(mantissa + 1, exponent, q) > 0) << q;
        }
    }
}

struct RoundCase {
    ky::Product product;
    bool exact;
    bool decided;
    std::uint64_t rounded;
};

TEST(Round, IsUndecidedOnlyJustBelowAHalfOfAnInexactProduct) {
    constexpr std::uint64_t kAllOnes = ~std::uint64_t{0};
    constexpr int kShift = 4;
    const RoundCase cases[] = {
        {{0x50, 0, true}, true, true, 5},
        {{0x57, kAllOnes, false}, true, true, 5},
        {{0x58, 0, true}, true, true, 6},
        {{0x68, 0, true}, true, true, 6},
        {{0x68, 0, false}, true, true, 7},
        {{0x68, 1, true}, true, true, 7},
        {{0x68, 0, true}, false, true, 7},
        {{0x59, 0, true}, false, true, 6},
        {{0x5F, kAllOnes, false}, false, true, 6},
        {{0x57, kAllOnes, true}, false, false, 0},
        {{0x57, kAllOnes - 1, false}, false, true, 5},
        {{0x56, kAllOnes, false}, false, true, 5},
    };
    for (const RoundCase& c : cases) {
        std::uint64_t rounded = 0;
        EXPECT_EQ(ky::Round(c.product, kShift, c.exact, rounded), c.decided) << c.product.high;
        EXPECT_EQ(rounded, c.rounded) << c.product.high;
    }
}

}  // namespace
