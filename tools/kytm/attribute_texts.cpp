#include "attribute_texts.h"

#include <algorithm>

#include "blob_texts.h"
#include "type_lookup.h"

namespace kytm {

namespace {

constexpr unsigned char kDefault = 255;

bool IsDictionaryString(char id) { return id == KyISTRING_T || id == KyCASEISTRING_T; }

/// Checked here, so that a type that cannot be used is told before anything is made of it.
char UsableType(const engine::Attribute& attribute) { return FindUsableType(TypeName(attribute.type)); }

TextForm FormOf(const engine::Attribute& attribute) {
    if (!engine::IsString(attribute.type)) return TextForm::PlainBytes();
    TextOptions options;
    if (attribute.language != kDefault) options.language = std::to_string(attribute.language);
    if (attribute.codeSet != kDefault) options.codeSet = std::to_string(attribute.codeSet);
    // Dictionary strings are always in the one code set.
    if (IsDictionaryString(attribute.type)) options.codeSet = std::to_string(KyLanguageContext::GetDefault8CodeSet());
    return TextForm(options);
}

/// The row of a nullable character prints null and nothing else; the character, which stands first, is
/// printed as one of the base.
std::optional<char> CharacterBase(char id) {
    if (id == KyNULL_1B_T) return Ky1B_T;
    if (id == KyNULL_U1B_T) return KyU1B_T;
    return std::nullopt;
}

bool IsTruthText(std::string_view text) {
    constexpr std::string_view known[] = {"TRUE", "true", "T", "t", "1", "FALSE", "false", "F", "f", "0"};
    return std::ranges::find(known, text) != std::end(known);
}

bool IsNullText(std::string_view text) { return text == KyTypeMgr::GetNullPrintString().StrGet(); }

}  // namespace

AttributeTexts::AttributeTexts(const engine::Attribute& anAttribute)
    : attribute(anAttribute),
      id(UsableType(anAttribute)),
      form(FormOf(anAttribute)),
      date(IsoDates::Of(id)),
      scanner(id, nullptr, form) {}

std::string AttributeTexts::Scan(std::string_view text, void* value) {
    if (date) return ScanDate(text, value);
    if (id == KyBLOB_T) return ScanBlob(text, value);
    if (IsDictionaryString(id)) return ScanDictionaryText(text, value);
    // To the type's own scan all other texts are FALSE.
    if (id == KyBOOLEAN_T && !IsTruthText(text) && !IsNullText(text)) return "it is neither TRUE nor FALSE";
    const char* const fault = scanner.Scan(text, value);
    return fault != nullptr ? fault : "";
}

void AttributeTexts::Clear(void* value) const { Manager().SetNullValue(id, value); }

bool AttributeTexts::HasNull() const { return Manager().SupportsNullValue(id) != 0; }

bool AttributeTexts::IsNull(void* value) const { return HasNull() && Manager().IsNullValue(id, value) != 0; }

std::string AttributeTexts::Print(void* value) const {
    if (IsNull(value)) return KyTypeMgr::GetNullPrintString().StrGet();
    if (id == KyBLOB_T) return BlobDigits(value);
    if (const auto base = CharacterBase(id)) return PrintValue(*base, value, nullptr, form);
    return PrintValue(id, value, date ? date->PrintFormat() : nullptr, form);
}

std::string AttributeTexts::PrintShort(void* value) const {
    return id == KyBLOB_T ? PrintValue(id, value, nullptr, form) : Print(value);
}

std::string AttributeTexts::ScanDate(std::string_view text, void* value) {
    if (HasNull() && IsNullText(text)) {
        Clear(value);
        return "";
    }
    if (const char* const fault = date->Read(text); fault != nullptr) return fault;
    const std::string canonical = date->Canonical();
    KyString content(canonical.c_str());
    if (Manager().ScanFromKyString(id, value, content, date->ScanFormat(), 1) == nullptr)
        return "no value can be read from it";
    if (date->Read(Print(value)) != nullptr || date->Canonical() != canonical)
        return "a value of the type holds only a part of it";
    return "";
}

std::string AttributeTexts::ScanDictionaryText(std::string_view text, void* value) {
    if (const char* const fault = form.Read(text); fault != nullptr) return fault;
    const std::string_view null = KyTypeMgr::GetNullPrintString().StrGet();
    if (text.starts_with(null) && text != null) return "it goes on behind the text of null values";
    KyString content = form.ToString();
    Manager().ScanFromKyString(id, value, content, nullptr, 1);
    return "";
}

std::string ElementName(const engine::Attribute& attribute, std::size_t element) {
    if (attribute.count == 1) return attribute.name;
    return attribute.name + "[" + std::to_string(element) + "]";
}

}  // namespace kytm
