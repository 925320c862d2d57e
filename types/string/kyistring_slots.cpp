/// Slots of dictionary strings that turn values into strings and back.

#include "dictionary_slots.h"
#include "kystring_slots.h"
#include "kytypmgr.h"
#include "lent_text.h"
#include "object_slots.h"
#include "record_text.h"
#include "text_constants.h"

namespace ky {

template <class Self>
KyTypeConvertData* DictionaryValues<Self>::ConvertToKyString(void* value, unsigned count) {
    return MakeTextRecord(count, [=](KyString* texts) {
        for (unsigned i = 0; i < count; ++i) texts[i] = static_cast<const Self*>(value)[i].StrGet();
    });
}

template <class Self>
void* DictionaryValues<Self>::ConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return AssignFromTexts<Self>(&ObjectSlots<Self>::Create, &ObjectSlots<Self>::Delete, data, count);
}

template <class Self>
KyString& DictionaryValues<Self>::PrintToKyString(KyString& out, void* value, const char* format, unsigned count) {
    LentText text(static_cast<const char*>(static_cast<const Self*>(value)->StrGet()));
    return KyStringPrintToKyString(out, &*text, format, count);
}

template <class Self>
void* DictionaryValues<Self>::ScanFromKyString(void* value, KyString& text, const char*, unsigned) {
    if (value == nullptr) return nullptr;
    auto& scanned = *static_cast<Self*>(value);
    if (BeginsWithNullPrintString(text)) {
        scanned.Destroy();
    } else {
        scanned = text;
    }
    return value;
}

template struct DictionaryValues<KyIString>;
template struct DictionaryValues<KyCaseIString>;

}  // namespace ky
