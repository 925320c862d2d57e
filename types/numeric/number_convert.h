#ifndef NUMBER_CONVERT_H
#define NUMBER_CONVERT_H

/// Arrays of plain numbers to arrays of texts and back.

#include <cstdint>
#include <type_traits>

#include "kystring.h"
#include "kytypmgr.h"
#include "number_arrays.h"
#include "raw_bytes.h"
#include "record_text.h"

namespace ky {

/// Integers are narrowed to their low bits. A double that becomes an integer is cut toward zero within the range
/// of 64 bits; a NaN and what lies outside become 0.
template <class Element, class Number>
Element Narrow(Number number) {
    if constexpr (std::is_integral_v<Element> && std::is_floating_point_v<Number>) {
        constexpr Number kLimit = 9223372036854775808.0;
        return number >= -kLimit && number < kLimit ? static_cast<Element>(static_cast<std::int64_t>(number)) : 0;
    } else {
        return static_cast<Element>(number);
    }
}

/// Record of `count` new decimal texts; the caller owns both. Null when there is no memory.
template <class Facts>
KyTypeConvertData* NumberConvertToKyString(void* value, unsigned count) {
    using Element = typename Facts::Element;
    KyString* texts = KyStringCreate(count);
    if (texts == nullptr) return nullptr;
    for (std::size_t i = 0; i < count; ++i) {
        const auto element = LoadAs<Element>(Advance(value, i * sizeof(Element)));
        texts[i] = KyString(static_cast<typename Facts::ToText>(element));
    }
    return KyTypeConvertData::Make(KySTRING_T, count, texts, nullptr);
}

/// Array of `count` new numbers, the caller's. A text that is missing or null gives what an empty one gives: 0; so
/// does every element where there is no record.
template <class Facts>
void* NumberConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    using Element = typename Facts::Element;
    auto* values = static_cast<Element*>(NumberCreate<Facts>(count));
    if (values == nullptr) return nullptr;
    for (unsigned i = 0; i < count; ++i) {
        const KyString* text = TextAt(data, i);
        values[i] = text == nullptr ? Element{0} : Narrow<Element>(static_cast<typename Facts::FromText>(*text));
    }
    return values;
}

}  // namespace ky

#endif
