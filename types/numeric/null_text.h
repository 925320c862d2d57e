#ifndef NULL_TEXT_H
#define NULL_TEXT_H

/// Text of nullable numbers: print and scan, and the texts of conversion records.

#include "counted_array.h"
#include "eight_bit_text.h"
#include "kynull.h"
#include "kystring.h"
#include "null_order.h"
#include "number_convert.h"
#include "number_facts.h"
#include "record_text.h"
#include "text_constants.h"

namespace ky {

namespace detail {
template <class Value>
struct PlainTextFacts;
template <>
struct PlainTextFacts<signed char> {
    using Facts = CharLSHelper;
};
template <>
struct PlainTextFacts<unsigned char> {
    using Facts = ByteLSHelper;
};
template <>
struct PlainTextFacts<short> {
    using Facts = ShortLSHelper;
};
template <>
struct PlainTextFacts<unsigned short> {
    using Facts = WordLSHelper;
};
template <>
struct PlainTextFacts<int> {
    using Facts = LongLSHelper;
};
template <>
struct PlainTextFacts<unsigned int> {
    using Facts = DwordLSHelper;
};
template <>
struct PlainTextFacts<std::int64_t> {
    using Facts = O_8BLSHelper;
};
template <>
struct PlainTextFacts<std::uint64_t> {
    using Facts = O_U8BLSHelper;
};
template <>
struct PlainTextFacts<float> {
    using Facts = FloatLSHelper;
};
template <>
struct PlainTextFacts<double> {
    using Facts = DoubleLSHelper;
};
}  // namespace detail

/// The facts of the plain type whose decimal texts a number has, its sign respected.
template <class Value>
using TextFactsOf = typename detail::PlainTextFacts<PlainNumber<Value>>::Facts;

}  // namespace ky

/// The null print string, or the number as its plain type prints it.
// KEPT: the plain type is asked for no elements at all; numbers print their first one nevertheless, characters nothing.
// A character that is not null is the empty text, which is scanned as null.
template <class Type, class Value, class Helper>
KyString& KyNullTypePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    const auto element = ky::LoadAs<Type>(value);
    if (element.IsNullValue() != 0) return out = ky::NullPrintString();
    Value number = element.Get();
    return Helper::Print(out, &number, format, 0);
}

/// Null for the empty text and for one that begins with the null print string, else what the plain type scans into a
/// number that is 0 before. A null value pointer gives null back.
template <class Type, class Value, class Helper>
void* KyNullTypeScanFromKyString(void* value, KyString& text, const char* format, unsigned count) {
    if (value == nullptr) return nullptr;
    return ky::ReadAsEightBit(text, [value, format, count](KyString& narrow) {
        Type element;
        if (!narrow.IsEmpty() && !ky::BeginsWithNullPrintString(narrow)) {
            Value number{};
            Helper::Scan(&number, narrow, format, count);
            element = number;
        }
        ky::StoreNullable(value, element);
        return value;
    });
}

/// Nulls are null strings.
template <class Type, class Value>
KyTypeConvertData* KyNullTypeConvertToKyString(void* value, unsigned count) {
    using ToText = typename ky::TextFactsOf<Value>::ToText;
    return ky::ConvertToTexts<Type>(value, count, [](KyString& text, const Type& element) {
        if (element.IsNullValue() != 0) {
            text.SetNullValue();
        } else {
            text = KyString(static_cast<ToText>(std::bit_cast<ky::PlainNumber<Value>>(element.Get())));
        }
    });
}

/// Missing texts and null strings are null; the empty text is the number 0.
template <class Type, class Value>
void* KyNullTypeConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    using FromText = typename ky::TextFactsOf<Value>::FromText;
    return ky::ConvertFromTexts<Type>(
        &ky::CountedCreate<Type>, &ky::CountedDelete<Type>, data, count, [](const KyString* text) {
            if (text == nullptr) return Type();
            return Type(Value(ky::Narrow<ky::PlainNumber<Value>>(static_cast<FromText>(*text))));
        });
}

#endif
