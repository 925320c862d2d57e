#include <gtest/gtest.h>

#include "kystring.h"
#include "kytypmgr.h"
#include "number_roster.h"
#include "number_slots.h"
#include "support/hex.h"

namespace {

struct Conversion {
    KyTypeTab* row;
    ByteVector memory;
    const char* text;
};

template <class T>
Conversion To(KyTypeTab& row, T value, const char* text) {
    return {&row, BytesOfValue(value), text};
}

/// The record's texts, one value each, deleted as the caller of a slot has to.
std::vector<std::string> TextsOf(KyTypeTab& row, ByteVector values, unsigned count) {
    KyTypeConvertData* record = row.ConvertToKyString(values.data(), count);
    EXPECT_EQ(record->manager, nullptr);
    EXPECT_EQ(record->typeId, KySTRING_T);
    EXPECT_EQ(record->count, count);
    std::vector<std::string> texts;
    for (unsigned i = 0; i < count; ++i) texts.push_back(record->GetString(static_cast<int>(i))->StrGet());
    EXPECT_EQ(record->GetString(static_cast<int>(count)), nullptr);
    KyStringDelete(record->data, count);
    delete record;
    return texts;
}

TEST(NumberConvert, ToText) {
    const Conversion table[] = {
        To<std::int8_t>(KyCharTab, 'A', "65"),
        To<std::int8_t>(KyCharTab, -1, "-1"),
        To<std::int8_t>(KyCharTab, -128, "-128"),
        To<std::uint8_t>(KyByteTab, 255, "255"),
        To<std::int16_t>(KyShortTab, -32768, "-32768"),
        To<std::uint16_t>(KyWordTab, 65535, "65535"),
        To<std::int32_t>(KyLongTab, -2147483647 - 1, "-2147483648"),
        To<std::int32_t>(KyIntTab, 2147483647, "2147483647"),
        To<std::int32_t>(KyEnumTab, 17, "17"),
        To<std::uint32_t>(KyDWordTab, 4294967295u, "4294967295"),
        To<std::uint32_t>(KyUnsignedTab, 3000000000u, "3000000000"),
        To<std::uint32_t>(KyBlockIdTab, 12, "12"),
        To<std::int64_t>(Ky8BTab, INT64_MIN, "-9223372036854775808"),
        To<std::uint64_t>(KyU8BTab, UINT64_MAX, "18446744073709551615"),
        To<double>(KyDoubleTab, 0.1, "0.10000000000000001"),
        To<double>(KyDoubleTab, -0.0, "-0"),
        To<float>(KyFloatTab, 0.1f, "0.10000000149011612"),
        To<float>(KyFloatTab, 1.5f, "1.5"),
    };
    for (const Conversion& line : table) {
        EXPECT_EQ(TextsOf(*line.row, line.memory, 1), std::vector<std::string>{line.text}) << line.row->typeName;
    }
}

// KEPT: unsigned 32-bit numbers go through doubles, whose zero has a sign.
TEST(NumberConvert, Kept_ZeroOfUnsigned32BitNumbersHasASign) {
    for (KyTypeTab* row : {&KyDWordTab, &KyUnsignedTab, &KyBlockIdTab}) {
        EXPECT_EQ(TextsOf(*row, BytesOfValue(0u), 1), std::vector<std::string>{"+0"});
    }
    EXPECT_EQ(TextsOf(KyLongTab, BytesOfValue(0), 1), std::vector<std::string>{"0"});
}

TEST(NumberConvert, ArraysKeepTheirOrder) {
    ByteVector values;
    for (const std::int16_t value : std::initializer_list<std::int16_t>{3, -1, 2}) {
        const ByteVector bytes = BytesOfValue(value);
        values.insert(values.end(), bytes.begin(), bytes.end());
    }
    EXPECT_EQ(TextsOf(KyShortTab, values, 3), (std::vector<std::string>{"3", "-1", "2"}));
    EXPECT_EQ(TextsOf(KyShortTab, {}, 0), std::vector<std::string>{});
}

/// Of texts; a null pointer stands for the null string.
std::string FromTexts(KyTypeTab& row, const std::vector<const char*>& texts, unsigned count) {
    const auto size = static_cast<unsigned>(texts.size());
    KyString* strings = KyStringCreate(size);
    for (unsigned i = 0; i < size; ++i) {
        if (texts[i] != nullptr) {
            strings[i] = KyString(texts[i]);
        } else {
            strings[i].SetNullValue();
        }
    }
    KyTypeConvertData record(KySTRING_T, size, strings, nullptr);
    void* values = row.ConvertFromKyString(&record, count);
    const std::string bytes = Hex(values, count * (row.sizeWord & 0xFFFF));
    row.Delete(values, count);
    KyStringDelete(strings, size);
    return bytes;
}

TEST(NumberConvert, FromText) {
    const Conversion table[] = {
        To<std::int8_t>(KyCharTab, -1, "-1"),
        To<std::int8_t>(KyCharTab, 44, "300"),
        To<std::uint8_t>(KyByteTab, 255, "255"),
        To<std::uint8_t>(KyByteTab, 1, "257"),
        To<std::int16_t>(KyShortTab, -32768, "-32768"),
        To<std::int16_t>(KyShortTab, 8, "010"),
        To<std::int16_t>(KyShortTab, 4464, "70000"),
        To<std::uint16_t>(KyWordTab, 4464, "70000"),
        To<std::int32_t>(KyLongTab, 0, "4294967296"),
        To<std::uint16_t>(KyWordTab, 65535, "65535"),
        To<std::uint16_t>(KyWordTab, 65535, "-1"),
        To<std::int32_t>(KyLongTab, -2147483647 - 1, "-2147483648"),
        To<std::int32_t>(KyIntTab, 16, "0x10"),
        To<std::int32_t>(KyEnumTab, 17, "17"),
        To<std::uint32_t>(KyDWordTab, 4294967295u, "4294967295"),
        To<std::uint32_t>(KyDWordTab, 10, "010"),
        To<std::uint32_t>(KyDWordTab, 1, "4294967297"),
        To<std::uint32_t>(KyUnsignedTab, 4294967295u, "-1"),
        To<std::uint32_t>(KyUnsignedTab, 2, "2.9"),
        To<std::uint32_t>(KyUnsignedTab, 0, "9223372036854775808"),
        To<std::uint32_t>(KyUnsignedTab, 0, "-1e300"),
        To<std::uint32_t>(KyBlockIdTab, 0, "NaN"),
        To<std::int64_t>(Ky8BTab, INT64_MIN, "-9223372036854775808"),
        To<std::uint64_t>(KyU8BTab, 9223372036854775807u, "9223372036854775807"),
        To<double>(KyDoubleTab, 0.1, "0.1"),
        To<double>(KyDoubleTab, 10, "010"),
        To<std::uint64_t>(KyDoubleTab, 0xFFF8000000000000, "nan"),
        To<float>(KyFloatTab, std::numeric_limits<float>::infinity(), "1e39"),
        To<float>(KyFloatTab, 0.1f, "0.1"),
    };
    for (const Conversion& line : table) {
        EXPECT_EQ(FromTexts(*line.row, {line.text}, 1), Hex(line.memory.data(), line.memory.size()))
            << line.row->typeName << " of " << line.text;
    }
}

// KEPT: the text of a large o_u8b does not come back; printing and scanning does.
TEST(NumberConvert, Kept_UnsignedNumbersFrom2To63OnDoNotComeBack) {
    EXPECT_EQ(FromTexts(KyU8BTab, {"18446744073709551615"}, 1), Hex(BytesOfValue(INT64_MAX).data(), 8));
}

TEST(NumberConvert, MissingNullAndEmptyTextsAreZero) {
    for (const NumberType& type : NumberTypes()) {
        const ByteVector zeros(4 * type.width);
        EXPECT_EQ(FromTexts(*type.row, {"", nullptr, ""}, 4), Hex(zeros.data(), zeros.size())) << type.name();
        EXPECT_EQ(FromTexts(*type.row, {}, 1), Hex(zeros.data(), type.width)) << type.name();
        EXPECT_EQ(FromTexts(*type.row, {"1"}, 0), "") << type.name();
    }
}

TEST(NumberConvert, WithoutARecordEveryElementIsZero) {
    for (const NumberType& type : NumberTypes()) {
        void* values = type.row->ConvertFromKyString(nullptr, 3);
        const ByteVector zeros(3 * type.width);
        EXPECT_EQ(Hex(values, zeros.size()), Hex(zeros.data(), zeros.size())) << type.name();
        type.row->Delete(values, 3);
    }
}

TEST(NumberConvert, ValuesNeedNoAlignment) {
    for (const NumberType& type : NumberTypes()) {
        ByteVector shifted(1);
        for (unsigned i = 0; i < 2; ++i) {
            const ByteVector& value = type.samples[type.samples.size() - 1 - i].memory;
            shifted.insert(shifted.end(), value.begin(), value.end());
        }
        KyTypeConvertData* record = type.row->ConvertToKyString(shifted.data() + 1, 2);
        EXPECT_EQ(TextsOf(*type.row, ByteVector(shifted.begin() + 1, shifted.end()), 2),
                  (std::vector<std::string>{record->GetString(0)->StrGet(), record->GetString(1)->StrGet()}))
            << type.name();
        KyStringDelete(record->data, 2);
        delete record;
    }
}

TEST(NumberConvert, RecordsOfOtherTypesHaveNoTexts) {
    int numbers[] = {5};
    KyTypeConvertData record(KyINT_T, 1, numbers, nullptr);
    void* values = KyLongTab.ConvertFromKyString(&record, 1);
    EXPECT_EQ(Hex(values, 4), "00 00 00 00");
    KyLongTab.Delete(values, 1);
}

TEST(NumberConvert, RosterValuesComeBackFromTheirTexts) {
    for (const NumberType& type : NumberTypes()) {
        for (const NumberSample& sample : type.samples) {
            if (type.id == KyU8B_T && (sample.memory[7] & 0x80) != 0) continue;
            const std::string text = TextsOf(*type.row, sample.memory, 1)[0];
            const std::string back = FromTexts(*type.row, {text.c_str()}, 1);
            ByteVector bytes = Bytes(back);
            ByteVector original = sample.memory;
            int err = -1;
            EXPECT_EQ(type.row->Compare(KyFormMemory, 0, bytes.data(), 0, original.data(), 0, 1, err), 0)
                << type.name() << " " << text;
        }
    }
}

TEST(Narrow, DoublesBecomeIntegersWithin64BitsOnly) {
    EXPECT_EQ(ky::Narrow<std::uint32_t>(-0.9), 0u);
    EXPECT_EQ(ky::Narrow<std::uint32_t>(-2.9), 4294967294u);
    EXPECT_EQ(ky::Narrow<std::uint32_t>(9223372036854774784.0), 4294966272u);
    EXPECT_EQ(ky::Narrow<std::uint32_t>(9223372036854775808.0), 0u);
    EXPECT_EQ(ky::Narrow<std::uint32_t>(-9223372036854775808.0), 0u);
    EXPECT_EQ(ky::Narrow<std::uint32_t>(std::numeric_limits<double>::quiet_NaN()), 0u);
    EXPECT_EQ(ky::Narrow<std::uint32_t>(-std::numeric_limits<double>::infinity()), 0u);
}

}  // namespace
