#include "null_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>

#include "kytypmgr.h"
#include "null_roster.h"
#include "support/created_arrays.h"
#include "support/hex.h"

// What each slot does: arrays, assignment, null, translation, stepping. Order, hash and forms stand in the laws.

namespace {

ByteVector NullOf(const NullType& type) { return NullElementOf(type, ByteVector(type.shape.number), 1); }

bool IsNullAt(const NullType& type, void* values, std::size_t i) {
    auto* at = static_cast<unsigned char*>(values) + i * type.shape.memory;
    return Hex(at, type.shape.Stored()) == Hex(NullOf(type).data(), type.shape.Stored());
}

TEST(NullSlots, CreateMakesNullsAndPrecedesArraysByTheirCount) {
    for (const NullType& type : NullTypes()) {
        ExpectCreatedArrays(*type.row, {0}, [&](void* values, unsigned count) {
            for (unsigned i = 0; i < std::max(count, 1u); ++i) EXPECT_TRUE(IsNullAt(type, values, i));
        });
    }
}

TEST(NullSlots, ConstructorMakesNullsAndTouchesNoOther) {
    for (const NullType& type : NullTypes()) {
        SCOPED_TRACE(type.name());
        for (const unsigned count : {0u, 1u, 3u}) {
            ByteVector bytes(4 * type.shape.memory, 0xA5);
            type.row->Constructor(bytes.data(), count, 7);
            for (unsigned i = 0; i < 4; ++i) EXPECT_EQ(IsNullAt(type, bytes.data(), i), i < count);
            EXPECT_EQ(bytes[count * type.shape.memory], 0xA5);
            const ByteVector before = bytes;
            type.row->Destructor(bytes.data(), count, 7);
            EXPECT_EQ(bytes, before);
        }
    }
}

TEST(NullSlots, AssignmentCopiesEachOrFillsWithTheFirst) {
    for (const NullType& type : NullTypes()) {
        SCOPED_TRACE(type.name());
        ByteVector src = type.Plain().samples.back().memory;
        src = NullElementOf(type, src, 0);
        const ByteVector first = src;
        const ByteVector null = NullOf(type);
        src.insert(src.end(), null.begin(), null.end());
        for (auto* assign : {type.row->Assignment, type.row->Copy}) {
            ByteVector dst(src.size(), 0xA5);
            assign(dst.data(), src.data(), 2, 0);
            EXPECT_EQ(dst, src);
            for (const int mode : {1, -1, 100}) {
                dst.assign(src.size(), 0xA5);
                assign(dst.data(), src.data(), 2, mode);
                EXPECT_TRUE(std::equal(first.begin(), first.end(), dst.begin()));
                EXPECT_TRUE(std::equal(first.begin(), first.end(), dst.begin() + static_cast<int>(first.size())));
                dst.assign(src.size(), 0xA5);
                assign(dst.data(), src.data(), 0, mode);
                EXPECT_EQ(dst[0], 0xA5);
            }
        }
    }
}

TEST(NullSlots, SetNullZeroesTheNumber) {
    for (const NullType& type : NullTypes()) {
        SCOPED_TRACE(type.name());
        ByteVector element = NullElementOf(type, ByteVector(type.shape.number, 0xFF), 0, 0xEE);
        EXPECT_EQ(type.row->IsNull(element.data()), 0);
        EXPECT_EQ(type.row->SetNull(element.data()), 0);
        EXPECT_TRUE(IsNullAt(type, element.data(), 0));
        KyTypeMgr manager(5);
        element = NullElementOf(type, ByteVector(type.shape.number, 0xFF), 0);
        EXPECT_EQ(manager.SetNullValue(static_cast<char>(type.id), element.data()), 0);
        EXPECT_TRUE(IsNullAt(type, element.data(), 0));
    }
}

TEST(NullSlots, BytesOfANullShort) {
    const KyNull_short null;
    unsigned char bytes[3];
    EXPECT_EQ(KyNull_shortStore(bytes, &null, KyFormNative, 1), 3u);
    EXPECT_EQ(Hex(bytes, 3), "01 00 00");
    EXPECT_EQ(KyNull_shortStore(bytes, &null, KyFormMemory, 1), 3u);
    EXPECT_EQ(Hex(bytes, 3), "00 00 01");
}

struct Packed {
    unsigned char flag;
    const char* bytes;
};

TEST(NullSlots, TheMemoryBitOfAFlagPacksAndOnlyTwoReverses) {
    const KyNull_int value(0x01020304);
    const Packed table[] = {
        {0x01, "00 04 03 02 01"}, {0x02, "00 01 02 03 04"}, {0x00, "00 04 03 02 01"}, {0x03, "00 04 03 02 01"},
        {0x82, "00 01 02 03 04"}, {0x08, "04 03 02 01 00"}, {0x09, "04 03 02 01 00"}, {0x0A, "04 03 02 01 00"},
        {0x0F, "04 03 02 01 00"}, {0x18, "04 03 02 01 00"}, {0x88, "04 03 02 01 00"}, {0xFA, "04 03 02 01 00"},
        {0x10, "00 04 03 02 01"}, {0xF2, "00 01 02 03 04"},
    };
    for (const Packed& each : table) {
        for (const unsigned count : {1u, 2u}) {
            const KyNull_int values[] = {value, value};
            unsigned char bytes[10];
            EXPECT_EQ(KyNull_intStore(bytes, values, each.flag, count), 5 * count);
            EXPECT_EQ(Hex(bytes, 5), each.bytes) << int(each.flag);
            EXPECT_EQ(Hex(bytes + 5 * (count - 1), 5), each.bytes) << int(each.flag);
            KyNull_int back[2];
            EXPECT_EQ(KyNull_intLoad(back, bytes, each.flag, count), 5 * count);
            EXPECT_EQ(back[count - 1], value) << int(each.flag);
        }
    }
}

TEST(NullSlots, Kept_AnInt64IsReversedInHalves) {
    const KyNull_KyInt64 halves(0x0102030405060708);
    const KyNull_8b whole(0x0102030405060708);
    unsigned char bytes[9];
    KyNull_KyInt64Store(bytes, &halves, KyFormReversed, 1);
    EXPECT_EQ(Hex(bytes, 9), "00 05 06 07 08 01 02 03 04");
    KyNull_8bStore(bytes, &whole, KyFormReversed, 1);
    EXPECT_EQ(Hex(bytes, 9), "00 01 02 03 04 05 06 07 08");
}

TEST(NullSlots, Kept_UnsignedNumbersHashAsSignedOnes) {
    KyNull_uchar nullable(255);
    unsigned char plain = 255;
    int err = -1;
    EXPECT_EQ(KyNull_ucharTab.Hash(KyFormMemory, 0, &nullable, 1, err), 0xFFFFFFFFu * 1103515245u);
    EXPECT_EQ(KyByteTab.Hash(KyFormMemory, 0, &plain, 1, err), 0xFFu * 1103515245u);
}

TEST(NullSlots, Kept_EqualFloatingNumbersCanHashApart) {
    KyNull_double zeros[] = {0.0, -0.0};
    int err = -1;
    EXPECT_EQ(KyNull_doubleTab.Compare(KyFormMemory, 0, &zeros[0], 0, &zeros[1], 0, 1, err), 0);
    EXPECT_NE(KyNull_doubleTab.Hash(KyFormMemory, 0, &zeros[0], 1, err),
              KyNull_doubleTab.Hash(KyFormMemory, 0, &zeros[1], 1, err));
}

TEST(NullSlots, TranslatesBetweenForms) {
    for (const NullType& type : NullTypes()) {
        SCOPED_TRACE(type.name());
        ByteVector memory;
        for (const NumberSample& sample : NullSamples(type)) {
            memory.insert(memory.end(), sample.memory.begin(), sample.memory.end());
        }
        const auto count = static_cast<unsigned>(memory.size() / type.shape.memory);
        const auto memorySize = static_cast<unsigned>(memory.size());
        const auto storedSize = static_cast<unsigned>(count * type.shape.Stored());

        ByteVector copy(memory.size(), 0xA5);
        EXPECT_EQ(type.row->Translate(copy.data(), 8, 0, memory.data(), 8, 0, count), memorySize);
        EXPECT_EQ(copy, memory) << "with flags and padding as they are";

        for (const unsigned char form : {KyFormNative, KyFormReversed}) {
            ByteVector stored(storedSize);
            EXPECT_EQ(type.row->Translate(stored.data(), form, 0, memory.data(), 8, 0, count), storedSize);
            EXPECT_EQ(stored, NullsInForm(type, memory, form));
            ByteVector back(memory.size());
            EXPECT_EQ(type.row->Translate(back.data(), 8, 0, stored.data(), form, 0, count), storedSize);
            int err = -1;
            EXPECT_EQ(type.row->Compare(8, 0, back.data(), 0, memory.data(), 0, count, err), 0);

            ByteVector longer(storedSize + 5, 0xA5);
            const unsigned char other = form == KyFormNative ? KyFormReversed : KyFormNative;
            EXPECT_EQ(type.row->Translate(longer.data(), other, storedSize + 5, stored.data(), form, 0, count),
                      storedSize);
            EXPECT_TRUE(std::equal(stored.begin(), stored.end(), longer.begin())) << "never turned";
            EXPECT_EQ(longer.back(), 0);
        }
    }
}

template <class Type>
struct Step {
    Type from;
    int error;
    Type to;
};

template <class Type>
void CheckSteps(KyTypeTab& row, const std::vector<Step<Type>>& steps) {
    for (const Step<Type>& step : steps) {
        for (const unsigned char what : {KyValueStep, KyValueStepNext}) {
            for (const unsigned count : {0u, 1u, 5u}) {
                Type value = step.from;
                EXPECT_EQ(row.GetValue(&value, count, KyFormMemory, what), step.error) << row.typeName;
                EXPECT_EQ(Hex(&value, Type::FlagOffset() + 1), Hex(&step.to, Type::FlagOffset() + 1)) << row.typeName;
            }
        }
    }
}

template <class Type>
void CheckSigned(KyTypeTab& row) {
    using Number = typename Type::NumberType;
    using Limits = std::numeric_limits<std::conditional_t<std::is_same_v<Number, KyInt64>, long long, Number>>;
    CheckSteps<Type>(row, {{Type(), 0, Type(Limits::min())},
                           {Type(Limits::min()), 0, Type(static_cast<Number>(Limits::min() + 1))},
                           {Type(-1), 0, Type(0)},
                           {Type(41), 0, Type(42)},
                           {Type(Limits::max()), 0, Type(Limits::min())}});
}

template <class Type>
void CheckUnsigned(KyTypeTab& row) {
    using Number = typename Type::NumberType;
    constexpr Number most = std::numeric_limits<Number>::max();
    CheckSteps<Type>(row, {{Type(), 0, Type(0)},
                           {Type(0), 0, Type(1)},
                           {Type(static_cast<Number>(most - 1)), 0, Type(most)},
                           {Type(most), KyErrNoSuccessor, Type(most)}});
}

TEST(NullGetValue, Kept_SignedNumbersWrapAndNullStepsToTheLowest) {
    CheckSigned<KyNull_char>(KyNull_charTab);
    CheckSigned<KyNull_short>(KyNull_shortTab);
    CheckSigned<KyNull_int>(KyNull_intTab);
    CheckSigned<KyNull_long>(KyNull_longTab);
    CheckSigned<KyNull_KyInt64>(KyNull_KyInt64Tab);
    CheckSigned<KyNull_8b>(KyNull_8bTab);
}

TEST(NullGetValue, UnsignedNumbersStopAndNullStepsToZero) {
    CheckUnsigned<KyNull_uchar>(KyNull_ucharTab);
    CheckUnsigned<KyNull_ushort>(KyNull_ushortTab);
    CheckUnsigned<KyNull_unsigned>(KyNull_unsignedTab);
    CheckUnsigned<KyNull_ulong>(KyNull_ulongTab);
    CheckUnsigned<KyNull_u8b>(KyNull_u8bTab);
}

TEST(NullGetValue, Kept_FloatingNullStepsOntoANaNThatStays) {
    const KyNull_double nan(std::bit_cast<double>(std::uint64_t{0xFFF8000000000000}));
    CheckSteps<KyNull_double>(KyNull_doubleTab, {{KyNull_double(), 0, nan},
                                                 {nan, KyErrNoSuccessor, nan},
                                                 {1.0, 0, 1.0000000000000002},
                                                 {-1.0, 0, -0.9999999999999999},
                                                 {0.0, 0, 2.2250738585072014e-308},
                                                 {1.7976931348623157e308, KyErrNoSuccessor, 1.7976931348623157e308}});
    const KyNull_float floatNan(std::bit_cast<float>(std::uint32_t{0xFFC00000}));
    CheckSteps<KyNull_float>(KyNull_floatTab, {{KyNull_float(), 0, floatNan},
                                               {floatNan, KyErrNoSuccessor, floatNan},
                                               {1.0F, 0, 1.00000012F},
                                               {0.0F, 0, 1.17549435e-38F},
                                               {3.40282347e38F, KyErrNoSuccessor, 3.40282347e38F}});
}

TEST(NullGetValue, EveryOddFlagIsANullAndIsClearedByAStep) {
    unsigned char element[] = {0x11, 0x22, 0x80, 0xEE};
    EXPECT_EQ(KyNull_shortTab.GetValue(element, 1, KyFormMemory, KyValueStep), 0);
    EXPECT_EQ(Hex(element, 3), "00 80 00");
}

TEST(NullGetValue, RefusesOtherFormsAndSelectors) {
    for (const NullType& type : NullTypes()) {
        SCOPED_TRACE(type.name());
        ByteVector element = NullOf(type);
        const ByteVector before = element;
        for (int byte = 0; byte < 256; ++byte) {
            const auto other = static_cast<unsigned char>(byte);
            if (other != KyFormMemory) {
                EXPECT_EQ(type.row->GetValue(element.data(), 1, other, KyValueStep), KyErrNotSupported) << byte;
            }
            if (other != KyValueStep && other != KyValueStepNext) {
                EXPECT_EQ(type.row->GetValue(element.data(), 1, KyFormMemory, other), KyErrNotSupported) << byte;
            }
        }
        EXPECT_EQ(element, before);
    }
}

TEST(NullGetValue, StoredNumbersAreSteppedByTheManager) {
    KyTypeMgr manager(5);
    unsigned char stored[] = {1, 0, 0};
    EXPECT_EQ(manager.GetValue(KyNULL_2B_T, stored, 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(stored, 3), "00 00 80");
    EXPECT_EQ(manager.GetValue(KyNULL_2B_T, stored, 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(stored, 3), "00 01 80");
    EXPECT_EQ(manager.GetValue(KyNULL_2B_T, stored, 1, KyFormNative, KyValueKeep), KyErrNotSupported);
}

TEST(NullGetValue, Kept_StoredNumbersAreSteppedInMachineOrderWhateverTheirForm) {
    KyTypeMgr manager(5);
    unsigned char stored[] = {0, 0x00, 0x05};
    EXPECT_EQ(manager.GetValue(KyNULL_2B_T, stored, 1, KyFormReversed, KyValueStep), 0);
    EXPECT_EQ(Hex(stored, 3), "00 01 05");
    unsigned char odd[] = {2, 0x00, 0x05};
    EXPECT_EQ(manager.GetValue(KyNULL_U2B_T, odd, 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(odd, 3), "00 01 05") << "a null byte of 2 is none";
}

}  // namespace
