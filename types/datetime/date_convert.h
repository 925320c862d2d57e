#ifndef DATE_CONVERT_H
#define DATE_CONVERT_H

/// Arrays of dates and times to arrays of texts and back, in the format that their row has at the time.
///
/// `Facts` has
///   Value           the class of a value
///   Print, Scan     its text slots
///   Format()        the row's format
///   WithoutText()   the value where there is no text, or a null one

#include <bit>
#include <cstddef>

#include "date_fields.h"
#include "date_values.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "raw_bytes.h"
#include "record_text.h"

namespace ky {

template <class Facts>
KyTypeConvertData* DateConvertToKyString(void* value, unsigned count) {
    using Value = typename Facts::Value;
    return ConvertToTexts<ValueImage<Value>>(value, count, [](KyString& text, const ValueImage<Value>& image) {
        auto element = std::bit_cast<Value>(image);
        Facts::Print(text, &element, Facts::Format(), 1);
    });
}

/// A text that ends before the format gives what was read till then.
template <class Facts>
void* DateConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    using Value = typename Facts::Value;
    return ConvertFromTexts<Value>(DateValues<Value>::Create, DateValues<Value>::Delete, data, count,
                                   [](const KyString* text) {
                                       Value element = Facts::WithoutText();
                                       // Scanning leaves the text as it is.
                                       if (text != nullptr)
                                           Facts::Scan(&element, const_cast<KyString&>(*text), Facts::Format(), 1);
                                       return element;
                                   });
}

/// `count` times the value of an empty text.
template <class Facts>
void* DateFromEmptyTexts(unsigned count) {
    using Value = typename Facts::Value;
    void* const values = DateValues<Value>::Create(count);
    if (values == nullptr) return nullptr;
    Value element = Facts::WithoutText();
    KyString empty;
    Facts::Scan(&element, empty, Facts::Format(), 1);
    AssignArray<ValueImage<Value>>(values, &element, count, 1);
    return values;
}

}  // namespace ky

#endif
