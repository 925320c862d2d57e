#ifndef IDENTIFIER_VALUES_H
#define IDENTIFIER_VALUES_H

/// Null and the texts of identifiers, which differ in their facts.

#include <array>

#include "identifier_facts.h"
#include "kystring.h"
#include "record_text.h"
#include "text_constants.h"

namespace ky {

template <class Facts>
int IsNullIdentifier(const void* value) {
    return Facts::IsNull(Facts::Read(value)) ? 1 : 0;
}

template <class Facts>
int SetNullIdentifier(void* value) {
    Facts::Write(value, Facts::kNull);
    return 0;
}

template <class Facts>
void ConstructIdentifiers(void* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) Facts::Write(Advance(values, i * sizeof(typename Facts::Element)), {});
}

template <class Facts>
KyString& PrintIdentifier(KyString& out, const void* value, const char* format) {
    const IdentifierFields fields = Facts::Read(value);
    if (Facts::IsNull(fields)) return out = NullPrintString();
    return PrintFields(out, fields, Facts::kGrammar, format);
}

template <class Facts>
IdentifierFields FieldsOfText(const KyString& text, const char* format) {
    return BeginsWithNullPrintString(text) ? Facts::kNull : ScanFields(text, Facts::kGrammar, format);
}

template <class Facts>
void* ScanIdentifier(void* value, const KyString& text, const char* format) {
    if (value != nullptr) Facts::Write(value, FieldsOfText<Facts>(text, format));
    return value;
}

/// By the type's own format, whichever the row has.
template <class Facts>
KyTypeConvertData* IdentifiersToTexts(const void* values, unsigned count) {
    using Bytes = std::array<unsigned char, sizeof(typename Facts::Element)>;
    return ConvertToTexts<Bytes>(values, count, [](KyString& text, const Bytes& element) {
        if (IsNullIdentifier<Facts>(element.data()) != 0) {
            text.SetNullValue();
        } else {
            PrintIdentifier<Facts>(text, element.data(), nullptr);
        }
    });
}

template <class Facts>
void* IdentifiersFromTexts(KyTypeConvertData* data, unsigned count) {
    return ConvertFromTexts<typename Facts::Element>(
        Facts::Create, Facts::Delete, data, count, [](const KyString* text) {
            return Facts::Make(text == nullptr ? Facts::kNull : FieldsOfText<Facts>(*text, nullptr));
        });
}

}  // namespace ky

#endif
