#ifndef KYTM_ATTRIBUTE_TEXTS_H
#define KYTM_ATTRIBUTE_TEXTS_H

/// Texts of the values of one attribute of a store, from people and for them.

#include <optional>
#include <string>
#include <string_view>

#include "iso_dates.h"
#include "schema.h"
#include "text_form.h"
#include "value.h"

namespace kytm {

/// Reads and writes single values in memory form. Texts are UTF-8; strings go into the attribute's code set and
/// language, dates are written as `IsoDates` says, truth values as TRUE or FALSE, blobs as pairs of hexadecimal digits,
/// identifiers by their row's format. What is written reads back as the same value.
class AttributeTexts {
public:
    /// Throws `Failure` for a type whose values cannot be shown, and for a language or code set that there is not.
    explicit AttributeTexts(const engine::Attribute& attribute);
    AttributeTexts(const AttributeTexts&) = delete;
    AttributeTexts& operator=(const AttributeTexts&) = delete;

    const engine::Attribute& Of() const { return attribute; }

    /// Empty when `value` now holds what the text says, else why not. "@NAME" is a blob of the content of a file.
    std::string Scan(std::string_view text, void* value);
    /// Makes the value null, or that of an empty text where the type has no null.
    void Clear(void* value) const;
    bool HasNull() const;

    bool IsNull(void* value) const;
    std::string Print(void* value) const;
    /// The same, but of a blob only its length.
    std::string PrintShort(void* value) const;

private:
    engine::Attribute attribute;
    char id;
    TextForm form;
    std::optional<IsoDates> date;
    Scanner scanner;

    std::string ScanDate(std::string_view text, void* value);
    std::string ScanDictionaryText(std::string_view text, void* value);
};

/// "length" or, of arrays, "samples[2]".
std::string ElementName(const engine::Attribute& attribute, std::size_t element);

}  // namespace kytm

#endif
