#include "boolean_slots.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "array_order.h"
#include "eight_bit_text.h"
#include "kystring.h"
#include "kytypevl.h"
#include "kytypmgr.h"
#include "raw_bytes.h"
#include "record_text.h"
#include "text_constants.h"

namespace {

constexpr std::string_view kTrueTexts[] = {"T", "t", "TRUE", "true", "1"};

int CompareElements(const void* a, const void* b) {
    const auto x = ky::LoadAs<KyBoolean>(a);
    const auto y = ky::LoadAs<KyBoolean>(b);
    if (x == y) return 0;
    return x > y ? 1 : -1;
}

bool IsTrueText(const KyString& text) { return std::ranges::find(kTrueTexts, text.StrGet()) != std::end(kTrueTexts); }

KyBoolean Null() {
    KyBoolean value;
    value.SetNullValue();
    return value;
}

}  // namespace

int BooleanCompare(unsigned char, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                   int& err) {
    return ky::CompareArrays(sizeof(KyBoolean), len1, a, len2, b, count, err, CompareElements);
}

float BooleanEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char, unsigned count,
                          KyIdxBounds* out) {
    constexpr float third = 1.0F / 3;
    SetBoundaries(out, value, op, count);
    return bounds != nullptr ? third : 0;
}

int KyBooleanIsNull(void* value) { return static_cast<KyBoolean*>(value)->IsNullValue(); }

int KyBooleanSetNull(void* value) { return static_cast<KyBoolean*>(value)->SetNullValue(); }

KyTypeConvertData* BooleanConvertToKyString(void* value, unsigned count) {
    return ky::ConvertToTexts<KyBoolean>(value, count, [](KyString& text, KyBoolean truth) {
        if (truth.IsNullValue()) {
            text.SetNullValue();
        } else {
            text = truth == 1 ? "1" : "0";
        }
    });
}

void* BooleanConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::ConvertFromTexts<KyBoolean>(BooleanCreate, BooleanDelete, data, count, [](const KyString* text) {
        if (text == nullptr) return Null();
        return KyBoolean(ky::ReadAsEightBit(*text, [](const KyString& narrow) { return *narrow.StrGet() == '1'; }));
    });
}

KyString& BooleanPrintToKyString(KyString& out, void* value, const char*, unsigned) {
    const auto truth = ky::LoadAs<KyBoolean>(value);
    if (truth.IsNullValue()) return out = KyTypeMgr::GetNullPrintString();
    return out = truth.Get() == 1 ? "TRUE" : "FALSE";
}

void* BooleanScanFromKyString(void* value, KyString& text, const char*, unsigned) {
    if (value == nullptr) return nullptr;
    if (ky::BeginsWithNullPrintString(text)) {
        ky::StoreAs(value, Null());
    } else {
        ky::StoreAs(value, KyBoolean(ky::ReadAsEightBit(text, IsTrueText)));
    }
    return value;
}

int KyGetValueKyBoolean(void* value, unsigned, unsigned char form, unsigned char what) {
    if (form != KyFormMemory || (what != KyValueStep && what != KyValueStepNext)) return KyErrNotSupported;
    const auto truth = ky::LoadAs<KyBoolean>(value);
    if (truth == 1) return KyErrNoSuccessor;
    ky::StoreAs(value, KyBoolean(truth.IsNullValue() ? 0 : 1));
    return 0;
}
