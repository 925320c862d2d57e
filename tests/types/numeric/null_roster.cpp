#include "null_roster.h"

#include <stdexcept>

const NumberType& NullType::Plain() const {
    for (const NumberType& type : NumberTypes()) {
        if (type.id == plainId) return type;
    }
    throw std::logic_error("no plain type");
}

const std::vector<NullType>& NullTypes() {
    static const std::vector<NullType> types = {
        {28, &KyNull_charTab, Ky1B_T, {2, 1, 1}, &KyCharTab, "KyNULL_1B_T", "%c"},
        {29, &KyNull_ucharTab, KyU1B_T, {2, 1, 1}, &KyCharTab, "KyNULL_U1B_T", "%c"},
        {30, &KyNull_shortTab, Ky2B_T, {4, 2, 2}, &KyShortTab, "KyNULL_2B_T", "%hd"},
        {31, &KyNull_ushortTab, KyU2B_T, {4, 2, 2}, &KyShortTab, "KyNULL_U2B_T", "%hu"},
        {32, &KyNull_intTab, KyINT_T, {8, 4, 4}, &KyIntTab, "KyNULL_INT_T", "%d"},
        {33, &KyNull_unsignedTab, KyUNSIGNED_T, {8, 4, 4}, &KyIntTab, "KyNULL_UNSIGNED_T", "%u"},
        {34, &KyNull_longTab, Ky4B_T, {8, 4, 4}, &KyLongTab, "KyNULL_4B_T", "%ld"},
        {35, &KyNull_ulongTab, KyU4B_T, {8, 4, 4}, &KyLongTab, "KyNULL_U4B_T", "%lu"},
        {36, &KyNull_floatTab, KyFLOAT_T, {8, 4, 4}, &KyFloatTab, "KyNULL_FLOAT_T", "%.17g"},
        {37, &KyNull_doubleTab, KyDOUBLE_T, {16, 8, 8}, &KyDoubleTab, "KyNULL_DOUBLE_T", "%.17g"},
        {38, &KyNull_KyInt64Tab, Ky8B_T, {12, 8, 4}, &KyInt64Tab, "KyNULL_KYINT64_T", "%S"},
        {44, &KyNull_8bTab, Ky8B_T, {16, 8, 8}, &Ky8BTab, "KyNULL_8B_T", "%lld"},
        {45, &KyNull_u8bTab, KyU8B_T, {16, 8, 8}, &Ky8BTab, "KyNULL_U8B_T", "%llu"},
    };
    return types;
}

ByteVector NullElementOf(const NullType& type, const ByteVector& number, unsigned char flag, unsigned char padding) {
    ByteVector element = number;
    element.push_back(flag);
    element.resize(type.shape.memory, padding);
    return element;
}

std::vector<NumberSample> NullSamples(const NullType& type) {
    const ByteVector zero(type.shape.number, 0);
    const ByteVector ones(type.shape.number, 0xFF);
    std::vector<NumberSample> samples = {
        {-1, NullElementOf(type, zero, 1)},    {-1, NullElementOf(type, zero, 1, 0xEE)},
        {-1, NullElementOf(type, zero, 2)},    {-1, NullElementOf(type, ones, 0xFF, 0x55)},
        {-1, NullElementOf(type, ones, 0x80)},
    };
    unsigned char padding = 0;
    for (const NumberSample& sample : type.Plain().samples) {
        samples.push_back({sample.rank, NullElementOf(type, sample.memory, 0, padding)});
        padding = static_cast<unsigned char>(padding + 0x3B);
    }
    return samples;
}

ByteVector NullsInForm(const NullType& type, const ByteVector& memory, unsigned char flag) {
    if ((flag & KyFormMask) == KyFormMemory) return memory;
    const std::size_t count = memory.size() / type.shape.memory;
    ByteVector stored(count * type.shape.Stored());
    SlowNullStore(type.shape, stored.data(), memory.data(), flag, static_cast<unsigned>(count));
    return stored;
}
