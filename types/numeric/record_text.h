#ifndef RECORD_TEXT_H
#define RECORD_TEXT_H

/// Arrays of values to the texts of a conversion record and back.

#include <cstddef>
#include <memory>

#include "kystring.h"
#include "kytypmgr.h"
#include "raw_bytes.h"

namespace ky {

/// A text of a record; null when the record or the text is missing, or the text is a null string.
inline const KyString* TextAt(KyTypeConvertData* data, unsigned i) {
    const KyString* text = data == nullptr ? nullptr : data->GetString(static_cast<int>(i));
    return text == nullptr || text->IsNullValue() != 0 ? nullptr : text;
}

/// Gives an array back to its type, when what should fill it throws.
struct ArrayRelease {
    KyDeleteFunc* destroy;
    unsigned count;

    void operator()(void* values) const { destroy(values, count); }
};
using OwnedArray = std::unique_ptr<void, ArrayRelease>;

/// Record of `count` new strings, whose texts `fill(first)` writes; the caller owns both. Null when there is no memory
/// for them; what `fill` throws goes on to the caller.
template <class Fill>
KyTypeConvertData* MakeTextRecord(unsigned count, Fill fill) {
    OwnedArray texts(KyStringCreate(count), {&KyStringDelete, count});
    if (texts == nullptr) return nullptr;
    auto* first = static_cast<KyString*>(texts.get());
    fill(first);
    KyTypeConvertData* record = KyTypeConvertData::Make(KySTRING_T, count, first, nullptr);
    static_cast<void>(texts.release());
    return record;
}

/// The same from memory-form values by `write(string, element)`.
template <class Element, class Write>
KyTypeConvertData* ConvertToTexts(const void* values, unsigned count, Write write) {
    return MakeTextRecord(count, [=](KyString* texts) {
        for (std::size_t i = 0; i < count; ++i) write(texts[i], LoadAs<Element>(Advance(values, i * sizeof(Element))));
    });
}

/// New array as the type's `create` makes it and its `destroy` takes it back, its elements those that `read(text)`
/// gives for the pointers to the texts, which are null where there is none. Null when there is no memory for it; what
/// `read` throws goes on to the caller.
template <class Element, class Read>
void* ConvertFromTexts(KyCreateFunc* create, KyDeleteFunc* destroy, KyTypeConvertData* data, unsigned count,
                       Read read) {
    OwnedArray values(create(count), {destroy, count});
    if (values == nullptr) return nullptr;
    auto* element = static_cast<Element*>(values.get());
    for (unsigned i = 0; i < count; ++i) element[i] = read(TextAt(data, i));
    return values.release();
}

/// New array of objects to which the texts are assigned; those without a text stay as `create` makes them. Null when
/// there is no memory for it; what assigning throws goes on to the caller.
template <class Object>
void* AssignFromTexts(KyCreateFunc* create, KyDeleteFunc* destroy, KyTypeConvertData* data, unsigned count) {
    OwnedArray values(create(count), {destroy, count});
    if (values == nullptr || data == nullptr) return values.release();
    auto* object = static_cast<Object*>(values.get());
    for (unsigned i = 0; i < count; ++i) {
        const KyString* text = data->GetString(static_cast<int>(i));
        if (text != nullptr) object[i] = *text;
    }
    return values.release();
}

}  // namespace ky

#endif
