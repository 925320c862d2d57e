/// Slots that work on memory-form values alone.

#include "kystring_slots.h"

#include <memory>
#include <new>

#include "kystring.h"
#include "kytypmgr.h"
#include "text_constants.h"

namespace {

KyString& StringAt(void* value) { return *static_cast<KyString*>(value); }

}  // namespace

void* StringCreate(unsigned count) { return KyStringCreate(count); }
int StringDelete(void* values, unsigned count) { return KyStringDelete(values, count); }
void* KyStringDefaultValue(unsigned count, int) { return KyStringCreate(count); }

void KyStringConstructor(void* values, unsigned count, unsigned) {
    std::uninitialized_default_construct_n(static_cast<KyString*>(values), count);
}

void KyStringDestructor(void* values, unsigned count, unsigned) {
    std::destroy_n(static_cast<KyString*>(values), count);
}

void KyStringAssignment(void* dst, void* src, unsigned count, int mode) {
    auto* to = static_cast<KyString*>(dst);
    const auto* from = static_cast<const KyString*>(src);
    for (unsigned i = 0; i < count; ++i) to[i] = from[mode == 0 ? i : 0];
}

void KyStringCopy(void* dst, void* src, unsigned count, int mode) {
    auto* to = static_cast<KyString*>(dst);
    const auto* from = static_cast<const KyString*>(src);
    for (unsigned i = 0; i < count; ++i) new (to + i) KyString(from[mode == 0 ? i : 0]);
}

int KyStringIsNull(void* value) { return StringAt(value).IsNullValue(); }
int KyStringSetNull(void* value) { return StringAt(value).SetNullValue(); }

KyTypeConvertData* KyStringConvertToKyString(void* value, unsigned count) {
    KyString* texts = KyStringCreate(count);
    if (texts == nullptr) return nullptr;
    KyStringAssignment(texts, value, count, 0);
    return KyTypeConvertData::Make(KySTRING_T, count, texts, nullptr);
}

void* KyStringConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    KyString* values = KyStringCreate(count);
    if (values == nullptr || data == nullptr) return values;
    for (unsigned i = 0; i < count; ++i) {
        const KyString* text = data->GetString(static_cast<int>(i));
        if (text != nullptr) values[i] = *text;
    }
    return values;
}

void* KyStringScanFromKyString(void* value, KyString& text, const char*, unsigned) {
    if (value == nullptr) return nullptr;
    if (ky::BeginsWithNullPrintString(text)) {
        StringAt(value).SetNullValue();
    } else {
        StringAt(value) = text;
    }
    return value;
}
