#include "int64_slots.h"

#include <cstdint>

#include "array_order.h"
#include "kybase.h"
#include "kystring.h"
#include "number_order.h"
#include "raw_bytes.h"
#include "raw_kernels.h"
#include "record_text.h"

unsigned Int64Store(void* dst, const void* src, unsigned char flag, unsigned count) {
    return LongStore(dst, src, flag, 2 * count);
}

unsigned Int64StoreOne(void* dst, const void* src, unsigned char flag) {
    const unsigned half = LongStoreOne(dst, src, flag);
    return half + LongStoreOne(ky::Advance(dst, half), ky::Advance(src, half), flag);
}

int Int64Compare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                 int& err) {
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    return ky::CompareArrays(sizeof(KyInt64), len1, a, len2, b, count, err, [form](const void* x, const void* y) {
        return ky::Order(ky::DecodeInt64(x, form), ky::DecodeInt64(y, form));
    });
}

unsigned Int64Hash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    err = 0;
    if (count == 0) return 0;
    const std::size_t visited = ky::ElementsInside(len, sizeof(KyInt64), count);
    err = ky::BufferEndError(visited, visited, count);
    std::uint64_t halves = ky::XorWords(data, visited * sizeof(KyInt64));
    Int64StoreOne(&halves, &halves, flag & KyFormMask);
    return ky::kHashFactor * static_cast<std::uint32_t>(halves);
}

KyTypeConvertData* Int64ConvertToKyString(void* value, unsigned count) {
    return ky::ConvertToTexts<KyInt64>(value, count,
                                       [](KyString& text, KyInt64 number) { text = KyString(number.Get8b()); });
}

void* Int64ConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::ConvertFromTexts<KyInt64>(Int64Create, Int64Delete, data, count, [](const KyString* text) {
        return text == nullptr ? KyInt64() : KyInt64(static_cast<long long>(*text));
    });
}

KyString& Int64PrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return ky::LoadAs<KyInt64>(value).PrintToKyString(out, format);
}

void* Int64ScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    if (value == nullptr) return nullptr;
    auto number = ky::LoadAs<KyInt64>(value);
    number.ScanFromKyString(text, format);
    ky::StoreAs(value, number);
    return value;
}
