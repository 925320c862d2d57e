#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "number_roster.h"
#include "support/hex.h"

namespace {

template <class T>
struct Step {
    T from;
    int error;
    T to;
};

template <class T>
void CheckSteps(KyTypeTab& row, const std::vector<Step<T>>& steps) {
    for (const Step<T>& step : steps) {
        for (const unsigned char what : {KyValueStep, KyValueStepNext}) {
            for (const unsigned count : {0u, 1u, 5u}) {
                T value = step.from;
                EXPECT_EQ(row.GetValue(&value, count, KyFormMemory, what), step.error) << +step.from;
                EXPECT_EQ(Hex(&value, sizeof value), Hex(&step.to, sizeof value)) << +step.from << " to " << +value;
            }
        }
    }
}

template <class T>
std::vector<Step<T>> SignedSteps() {
    using Limits = std::numeric_limits<T>;
    return {{0, 0, 1},
            {-1, 0, 0},
            {Limits::min(), 0, T(Limits::min() + 1)},
            {41, 0, 42},
            {Limits::max(), 0, Limits::min()}};
}

template <class T>
std::vector<Step<T>> UnsignedSteps() {
    constexpr T most = std::numeric_limits<T>::max();
    return {{0, 0, 1}, {T(most / 2), 0, T(most / 2 + 1)}, {T(most - 1), 0, most}, {most, KyErrNoSuccessor, most}};
}

// KEPT: the signed numbers wrap without a word.
TEST(NumberGetValue, Kept_SignedNumbersWrap) {
    CheckSteps(KyCharTab, SignedSteps<std::int8_t>());
    CheckSteps(KyShortTab, SignedSteps<std::int16_t>());
    CheckSteps(KyLongTab, SignedSteps<std::int32_t>());
    CheckSteps(KyIntTab, SignedSteps<std::int32_t>());
    CheckSteps(Ky8BTab, SignedSteps<std::int64_t>());
}

TEST(NumberGetValue, UnsignedNumbersStopAtTheHighest) {
    CheckSteps(KyByteTab, UnsignedSteps<std::uint8_t>());
    CheckSteps(KyWordTab, UnsignedSteps<std::uint16_t>());
    CheckSteps(KyDWordTab, UnsignedSteps<std::uint32_t>());
    CheckSteps(KyUnsignedTab, UnsignedSteps<std::uint32_t>());
    CheckSteps(KyBlockIdTab, UnsignedSteps<std::uint32_t>());
    CheckSteps(KyU8BTab, UnsignedSteps<std::uint64_t>());
}

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kMost = 1.7976931348623157e308;
constexpr double kLeast = 2.2250738585072014e-308;

// KEPT: no subnormal number is ever reached.
TEST(NumberGetValue, Kept_DoublesStepToTheNextNormalNumber) {
    CheckSteps<double>(KyDoubleTab, {
                                        {1.0, 0, 1.0000000000000002},
                                        {-1.0, 0, -0.9999999999999999},
                                        {0.0, 0, kLeast},
                                        {-0.0, 0, kLeast},
                                        {5e-324, 0, kLeast},
                                        {std::nextafter(kLeast, 0.0), 0, kLeast},
                                        {kLeast, 0, std::nextafter(kLeast, 1.0)},
                                        {-kLeast, 0, 0.0},
                                        {-5e-324, 0, 0.0},
                                        {std::nextafter(-kLeast, -1.0), 0, -kLeast},
                                        {-2 * kLeast, 0, std::nextafter(-2 * kLeast, 0.0)},
                                        {-kMost, 0, std::nextafter(-kMost, 0.0)},
                                        {std::nextafter(kMost, 0.0), 0, kMost},
                                        {kMost, KyErrNoSuccessor, kMost},
                                        {kInf, KyErrNoSuccessor, kInf},
                                        {-kInf, KyErrNoSuccessor, -kInf},
                                    });
}

constexpr float kFloatInf = std::numeric_limits<float>::infinity();
constexpr float kFloatMost = 3.4028235e38f;
constexpr float kFloatLeast = 1.1754944e-38f;

TEST(NumberGetValue, Kept_FloatsStepByTheirOwnLimits) {
    CheckSteps<float>(KyFloatTab, {
                                      {1.0f, 0, std::nextafter(1.0f, 2.0f)},
                                      {-1.0f, 0, std::nextafter(-1.0f, 0.0f)},
                                      {0.0f, 0, kFloatLeast},
                                      {-0.0f, 0, kFloatLeast},
                                      {1e-45f, 0, kFloatLeast},
                                      {kFloatLeast, 0, std::nextafter(kFloatLeast, 1.0f)},
                                      {-kFloatLeast, 0, 0.0f},
                                      {-1e-45f, 0, 0.0f},
                                      {std::nextafter(-kFloatLeast, -1.0f), 0, -kFloatLeast},
                                      {-2 * kFloatLeast, 0, std::nextafter(-2 * kFloatLeast, 0.0f)},
                                      {-kFloatMost, 0, std::nextafter(-kFloatMost, 0.0f)},
                                      {std::nextafter(kFloatMost, 0.0f), 0, kFloatMost},
                                      {kFloatMost, KyErrNoSuccessor, kFloatMost},
                                      {kFloatInf, KyErrNoSuccessor, kFloatInf},
                                      {-kFloatInf, KyErrNoSuccessor, -kFloatInf},
                                  });
}

TEST(NumberGetValue, EveryNormalPowerOfTwoStepsToItsNeighbour) {
    for (int exponent = -1021; exponent < 1024; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        for (const double from :
             {power, -power, 1.5 * power, std::nextafter(-power, 0.0), std::nextafter(-power, -kInf)}) {
            if (std::fabs(from) < kLeast || std::isinf(from)) continue;
            double value = from;
            ASSERT_EQ(KyDoubleTab.GetValue(&value, 1, KyFormMemory, KyValueStep), 0) << from;
            ASSERT_EQ(value, std::nextafter(from, kInf)) << from;
        }
    }
    for (int exponent = -125; exponent < 128; ++exponent) {
        const float power = std::ldexp(1.0f, exponent);
        for (const float from : {power, -power, 1.5f * power, std::nextafter(-power, 0.0f)}) {
            if (std::isinf(from)) continue;
            float value = from;
            ASSERT_EQ(KyFloatTab.GetValue(&value, 1, KyFormMemory, KyValueStep), 0) << from;
            ASSERT_EQ(value, std::nextafter(from, kFloatInf)) << from;
        }
    }
}

// KEPT: nothing compares greater than a NaN, so a counter that starts at the least double never moves.
TEST(NumberGetValue, Kept_TheLeastFloatingNumberCannotBeStepped) {
    for (const NumberType& type : NumberTypes()) {
        if (!type.floating) continue;
        ByteVector value(type.width);
        EXPECT_EQ(type.row->GetValue(value.data(), 1, KyFormMemory, KyValueLeast), 0);
        const ByteVector least = value;
        EXPECT_EQ(type.row->GetValue(value.data(), 1, KyFormMemory, KyValueStep), KyErrNoSuccessor);
        EXPECT_EQ(value, least);
    }
}

TEST(NumberGetValue, EveryNanStaysWhatItIs) {
    for (const std::uint64_t bits :
         {0x7FF8000000000000u, 0xFFF8000000000000u, 0x7FF0000000000001u, ~std::uint64_t{0}}) {
        std::uint64_t value = bits;
        EXPECT_EQ(KyDoubleTab.GetValue(&value, 1, KyFormMemory, KyValueStep), KyErrNoSuccessor);
        EXPECT_EQ(value, bits);
    }
    for (const std::uint32_t bits : {0x7FC00000u, 0xFFC00000u, 0x7F800001u, ~0u}) {
        std::uint32_t value = bits;
        EXPECT_EQ(KyFloatTab.GetValue(&value, 1, KyFormMemory, KyValueStep), KyErrNoSuccessor);
        EXPECT_EQ(value, bits);
    }
}

TEST(NumberGetValue, ValuesNeedNoAlignment) {
    for (const NumberType& type : NumberTypes()) {
        if (type.id == KyENUM_T) continue;
        ByteVector shifted(type.width + 2);
        EXPECT_EQ(type.row->GetValue(shifted.data() + 1, 1, KyFormMemory, KyValueStep), 0) << type.name();
        ByteVector aligned(type.width);
        type.row->GetValue(aligned.data(), 1, KyFormMemory, KyValueStep);
        EXPECT_EQ(Hex(shifted.data() + 1, type.width), Hex(aligned.data(), type.width)) << type.name();
        EXPECT_EQ(shifted.back(), 0);
    }
}

TEST(NumberGetValue, LeastValue) {
    struct Least {
        KyTypeTab* row;
        const char* bytes;
    };
    static const Least table[] = {
        {&KyCharTab, "80"},
        {&KyShortTab, "00 80"},
        {&KyLongTab, "00 00 00 80"},
        {&KyIntTab, "00 00 00 80"},
        {&Ky8BTab, "00 00 00 00 00 00 00 80"},
        {&KyByteTab, "00"},
        {&KyWordTab, "00 00"},
        {&KyDWordTab, "00 00 00 00"},
        {&KyUnsignedTab, "00 00 00 00"},
        {&KyBlockIdTab, "00 00 00 00"},
        {&KyU8BTab, "00 00 00 00 00 00 00 00"},
        {&KyDoubleTab, "00 00 00 00 00 00 F8 FF"},
        {&KyFloatTab, "00 00 C0 FF"},
    };
    for (const Least& least : table) {
        unsigned char value[8];
        std::memset(value, 0x5A, sizeof value);
        EXPECT_EQ(least.row->GetValue(value, 0, KyFormMemory, KyValueLeast), 0) << least.row->typeName;
        const std::size_t width = least.row->sizeWord & 0xFFFF;
        EXPECT_EQ(Hex(value, width), least.bytes) << least.row->typeName;
        if (width < 8) {
            EXPECT_EQ(value[width], 0x5A) << least.row->typeName;
        }
    }
}

TEST(NumberGetValue, KeepLeavesTheValue) {
    for (const NumberType& type : NumberTypes()) {
        for (const NumberSample& sample : type.samples) {
            ByteVector value = sample.memory;
            const int expected = type.id == KyENUM_T ? KyErrNotSupported : 0;
            EXPECT_EQ(type.row->GetValue(value.data(), 1, KyFormMemory, KyValueKeep), expected) << type.name();
            EXPECT_EQ(value, sample.memory);
        }
    }
}

TEST(NumberGetValue, OtherFormsAndSelectorsAreNotSupported) {
    for (const NumberType& type : NumberTypes()) {
        ByteVector value = type.samples.back().memory;
        for (unsigned form = 0; form < 256; ++form) {
            if (form == KyFormMemory) continue;
            for (const unsigned char what : {KyValueLeast, KyValueStep, KyValueStepNext, KyValueKeep}) {
                EXPECT_EQ(type.row->GetValue(value.data(), 1, static_cast<unsigned char>(form), what),
                          KyErrNotSupported);
            }
        }
        for (unsigned what = 0; what < 256; ++what) {
            if (what == 2 || what == 77 || what == 78 || what == 79) continue;
            EXPECT_EQ(type.row->GetValue(value.data(), 1, KyFormMemory, static_cast<unsigned char>(what)),
                      KyErrNotSupported);
        }
        EXPECT_EQ(value, type.samples.back().memory) << type.name();
    }
}

TEST(NumberGetValue, AnEnumIsNeverStepped) {
    std::int32_t value = 3;
    for (const unsigned char what : {KyValueLeast, KyValueStep, KyValueStepNext, KyValueKeep}) {
        EXPECT_EQ(KyEnumTab.GetValue(&value, 1, KyFormMemory, what), KyErrNotSupported);
    }
    EXPECT_EQ(value, 3);
}

}  // namespace
