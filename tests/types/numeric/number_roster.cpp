#include "number_roster.h"

#include <limits>

namespace {

template <class T>
std::vector<NumberSample> Ascending(const std::vector<T>& values) {
    std::vector<NumberSample> samples;
    for (const T value : values) samples.push_back({static_cast<int>(samples.size()), BytesOfValue(value)});
    return samples;
}

template <class T>
std::vector<NumberSample> Integers() {
    using Limits = std::numeric_limits<T>;
    std::vector<T> values;
    if constexpr (std::is_signed_v<T>) {
        values = {Limits::min(), Limits::min() + 1, Limits::min() / 2, -3, -2, -1};
    }
    // The values on both sides of the signed border tell a signed order from an unsigned one.
    for (const T value : {T{0}, T{1}, T{2}, T{7}, T{'!'}, T{Limits::max() / 2}, T(Limits::max() / 2 + 1),
                          T(Limits::max() - 1), Limits::max()}) {
        values.push_back(value);
    }
    return Ascending(values);
}

/// The same for both widths: NaNs of several patterns, infinities, limits, subnormals, both zeros.
template <class T, class Bits>
std::vector<NumberSample> Floating(Bits exponentBits, Bits quietBit) {
    using Limits = std::numeric_limits<T>;
    const Bits sign = Bits{1} << (8 * sizeof(Bits) - 1);
    const T tiny = Limits::denorm_min();
    const T least = Limits::min();
    const T most = Limits::max();
    return {
        {0, BytesOfValue<Bits>(exponentBits | quietBit)},
        {0, BytesOfValue<Bits>(sign | exponentBits | quietBit)},
        {0, BytesOfValue<Bits>(exponentBits | 1)},
        {0, BytesOfValue<Bits>(~Bits{0})},
        {1, BytesOfValue<Bits>(sign | exponentBits)},
        {2, BytesOfValue<T>(-most)},
        {3, BytesOfValue<T>(-2)},
        {4, BytesOfValue<T>(-1)},
        {5, BytesOfValue<T>(-least)},
        {6, BytesOfValue<T>(-2 * tiny)},
        {7, BytesOfValue<T>(-tiny)},
        {8, BytesOfValue<Bits>(sign)},
        {8, BytesOfValue<Bits>(0)},
        {9, BytesOfValue<T>(tiny)},
        {10, BytesOfValue<T>(2 * tiny)},
        {11, BytesOfValue<T>(least)},
        {12, BytesOfValue<T>(1)},
        {13, BytesOfValue<T>(2)},
        {14, BytesOfValue<T>(most)},
        {15, BytesOfValue<Bits>(exponentBits)},
    };
}

std::vector<NumberSample> Doubles() {
    return Floating<double, std::uint64_t>(0x7FF0000000000000u, 0x0008000000000000u);
}
std::vector<NumberSample> Floats() { return Floating<float, std::uint32_t>(0x7F800000u, 0x00400000u); }

}  // namespace

const std::vector<NumberType>& NumberTypes() {
    static const std::vector<NumberType> types = {
        {Ky1B_T, &KyCharTab, 1, true, false, Integers<std::int8_t>()},
        {Ky2B_T, &KyShortTab, 2, true, false, Integers<std::int16_t>()},
        {Ky4B_T, &KyLongTab, 4, true, false, Integers<std::int32_t>()},
        {KyDOUBLE_T, &KyDoubleTab, 8, true, true, Doubles()},
        {KyFLOAT_T, &KyFloatTab, 4, true, true, Floats()},
        {KyU2B_T, &KyWordTab, 2, false, false, Integers<std::uint16_t>()},
        {KyU4B_T, &KyDWordTab, 4, false, false, Integers<std::uint32_t>()},
        {KyINT_T, &KyIntTab, 4, true, false, Integers<std::int32_t>()},
        {KyUNSIGNED_T, &KyUnsignedTab, 4, false, false, Integers<std::uint32_t>()},
        {KyENUM_T, &KyEnumTab, 4, true, false, Integers<std::int32_t>()},
        {KyU1B_T, &KyByteTab, 1, false, false, Integers<std::uint8_t>()},
        {KyBLOCKID_T, &KyBlockIdTab, 4, false, false, Integers<std::uint32_t>()},
        {Ky8B_T, &Ky8BTab, 8, true, false, Integers<std::int64_t>()},
        {KyU8B_T, &KyU8BTab, 8, false, false, Integers<std::uint64_t>()},
    };
    return types;
}
