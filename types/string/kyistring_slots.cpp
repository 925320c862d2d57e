/// Slots of dictionary strings that turn values into strings and back.

#include "dictionary_slots.h"
#include "kystring_slots.h"
#include "kytypmgr.h"
#include "lent_text.h"
#include "object_slots.h"
#include "text_constants.h"

namespace ky {

template <class Self>
KyTypeConvertData* DictionaryValues<Self>::ConvertToKyString(void* value, unsigned count) {
    KyString* texts = KyStringCreate(count);
    if (texts == nullptr) return nullptr;
    for (unsigned i = 0; i < count; ++i) texts[i] = static_cast<const Self*>(value)[i].StrGet();
    return KyTypeConvertData::Make(KySTRING_T, count, texts, nullptr);
}

template <class Self>
void* DictionaryValues<Self>::ConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    auto* values = static_cast<Self*>(ObjectSlots<Self>::Create(count));
    if (values == nullptr || data == nullptr) return values;
    for (unsigned i = 0; i < count; ++i) {
        const KyString* text = data->GetString(static_cast<int>(i));
        if (text != nullptr) values[i] = *text;
    }
    return values;
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
