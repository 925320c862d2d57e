#ifndef NUMBER_CONVERT_H
#define NUMBER_CONVERT_H

/// Arrays of plain numbers to arrays of texts and back.

#include <cstdint>
#include <type_traits>

#include "kystring.h"
#include "number_arrays.h"
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

/// Record of `count` new decimal texts.
template <class Facts>
KyTypeConvertData* NumberConvertToKyString(void* value, unsigned count) {
    return ConvertToTexts<typename Facts::Element>(value, count, [](KyString& text, typename Facts::Element element) {
        text = KyString(static_cast<typename Facts::ToText>(element));
    });
}

/// Array of `count` new numbers, the caller's. A text that is missing or null gives what an empty one gives: 0; so
/// does every element where there is no record.
template <class Facts>
void* NumberConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    using Element = typename Facts::Element;
    return ConvertFromTexts<Element>(&NumberCreate<Facts>, &NumberDelete, data, count, [](const KyString* text) {
        return text == nullptr ? Element{0} : Narrow<Element>(static_cast<typename Facts::FromText>(*text));
    });
}

}  // namespace ky

#endif
