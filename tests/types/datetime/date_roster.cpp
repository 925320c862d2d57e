#include "date_roster.h"

const std::vector<DateType>& DateTypes() {
    static const std::vector<DateType> types = {
        {KyDATE_T, &KyDateTab, {true, false, false}},       {KyTIME_T, &KyTimeTab, {false, true, false}},
        {KyDATIME_T, &KyDateTimeTab, {true, true, false}},  {KyDATIME_N_T, &KyDateTimeNTab, {true, true, true}},
        {KyTIMESPAN_T, &KyTimeSpanTab, {true, true, true}},
    };
    return types;
}

const std::vector<SlowDate>& DateSamples() {
    static const std::vector<SlowDate> samples = {
        {-32768, -128, -128, -128, -128, -128, 0},  // null
        {-32768, -128, -128, -128, -128, -128, -2147483647 - 1},
        {-32768, 1, 1, 0, 0, 0, 0},
        {-4713, 11, 24, 0, 0, 0, 0},
        {-1, -1, -1, -1, -1, -1, -1},
        {-1, 5, -1, -1, 30, -1, -1},
        {2024, -1, 7, 13, -1, 59, 5},
        {-1, 5, 7, 13, 45, 59, 999999999},
        {0, 0, 0, 0, 0, 0, 0},
        {0, 0, 0, 0, 0, 0, -1},
        {0, 1, 1, 0, 0, 1, 0},
        {0, 1, 1, 0, 1, 0, 1},
        {0, 1, 1, 1, 0, 0, 255},
        {1, 2, 3, 1, 2, 3, 0x01020304},
        {255, 1, 1, 23, 59, 59, 256},
        {256, 1, 1, 23, 59, 59, 65536},
        {1999, 12, 31, 23, 59, 59, 999999999},
        {2023, 2, 28, 24, 60, 61, 1000000000},
        {2024, 2, 29, 12, 0, 0, 500000000},
        {2024, 5, 7, 13, 45, 59, 0},
        {2024, 5, 7, 13, 45, 59, 1},
        {2024, 5, -2, -3, 45, -4, 1},
        {2024, 13, 32, 25, 99, 99, -5},
        {32767, 12, 31, 23, 59, 59, 999999999},
        {32767, 127, 127, 127, 127, 127, 2147483647},
    };
    return samples;
}

ByteVector DatesInForm(const DateType& type, const std::vector<SlowDate>& values, unsigned char flag,
                       unsigned char padding) {
    const std::size_t size = SlowDateSize(type.shape, flag);
    ByteVector bytes(values.size() * size, padding);
    for (std::size_t i = 0; i < values.size(); ++i) {
        SlowDateWrite(type.shape, flag, bytes.data() + i * size, values[i]);
    }
    return bytes;
}

SlowDate OwnFields(const DateType& type, const SlowDate& value) {
    const ByteVector bytes = DateInForm(type, value, KyFormNative);
    return SlowDateRead(type.shape, KyFormNative, bytes.data());
}
