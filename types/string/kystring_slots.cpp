/// Slots that work on memory-form values alone.

#include "kystring_slots.h"

#include "kystring.h"
#include "kytypmgr.h"
#include "object_slots.h"
#include "record_text.h"
#include "text_constants.h"

namespace {

/// The one form that GetValue takes: records in machine byte order, known to be in the current layout.
constexpr unsigned char kFormStepped = 0x81;

KyString& StringAt(void* value) { return *static_cast<KyString*>(value); }

}  // namespace

void* StringCreate(unsigned count) { return KyStringCreate(count); }
int StringDelete(void* values, unsigned count) { return KyStringDelete(values, count); }
void* KyStringDefaultValue(unsigned count, int) { return KyStringCreate(count); }

void KyStringConstructor(void* values, unsigned count, unsigned extra) {
    ky::ObjectSlots<KyString>::Constructor(values, count, extra);
}

void KyStringDestructor(void* values, unsigned count, unsigned extra) {
    ky::ObjectSlots<KyString>::Destructor(values, count, extra);
}

void KyStringAssignment(void* dst, void* src, unsigned count, int mode) {
    ky::ObjectSlots<KyString>::Assignment(dst, src, count, mode);
}

void KyStringCopy(void* dst, void* src, unsigned count, int mode) {
    ky::ObjectSlots<KyString>::Copy(dst, src, count, mode);
}

int KyStringIsNull(void* value) { return StringAt(value).IsNullValue(); }
int KyStringSetNull(void* value) { return StringAt(value).SetNullValue(); }

KyTypeConvertData* KyStringConvertToKyString(void* value, unsigned count) {
    return ky::MakeTextRecord(count, [=](KyString* texts) { KyStringAssignment(texts, value, count, 0); });
}

void* KyStringConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::AssignFromTexts<KyString>(&ky::ObjectSlots<KyString>::Create, &KyStringDelete, data, count);
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

int KyGetValueKyString(void*, unsigned, unsigned char form, unsigned char what) {
    if (form != kFormStepped) return KyErrNotSupported;
    switch (what) {
        case KyValueKeep:
            return 0;
        case KyValueStep:
        case KyValueStepNext:
            // A record cannot grow where it stands, and a collation order has no next string.
            return KyErrNoSuccessor;
        default:
            return KyErrNotSupported;
    }
}
