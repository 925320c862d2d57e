#ifndef RECORD_TEXT_H
#define RECORD_TEXT_H

/// Arrays of values to the texts of a conversion record and back.

#include <cstddef>

#include "kystring.h"
#include "kytypmgr.h"
#include "raw_bytes.h"

namespace ky {

/// A text of a record; null when the record or the text is missing, or the text is a null string.
inline const KyString* TextAt(KyTypeConvertData* data, unsigned i) {
    const KyString* text = data == nullptr ? nullptr : data->GetString(static_cast<int>(i));
    return text == nullptr || text->IsNullValue() != 0 ? nullptr : text;
}

/// Record of `count` new strings, made from memory-form values by `write(string, element)`; the caller owns both.
/// Null when there is no memory.
template <class Element, class Write>
KyTypeConvertData* ConvertToTexts(const void* values, unsigned count, Write write) {
    KyString* texts = KyStringCreate(count);
    if (texts == nullptr) return nullptr;
    for (std::size_t i = 0; i < count; ++i) write(texts[i], LoadAs<Element>(Advance(values, i * sizeof(Element))));
    return KyTypeConvertData::Make(KySTRING_T, count, texts, nullptr);
}

/// New array as the type's `create` makes it, its elements those that `read(text)` gives for the pointers to the
/// texts, which are null where there is none. Null when there is no memory.
template <class Element, class Read>
void* ConvertFromTexts(KyCreateFunc* create, KyTypeConvertData* data, unsigned count, Read read) {
    auto* values = static_cast<Element*>(create(count));
    if (values == nullptr) return nullptr;
    for (unsigned i = 0; i < count; ++i) values[i] = read(TextAt(data, i));
    return values;
}

}  // namespace ky

#endif
