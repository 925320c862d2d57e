#include "text_form.h"

#include <algorithm>

#include "code_sets.h"
#include "kytypes.h"
#include "languages.h"
#include "texts.h"

namespace kytm {

namespace {

constexpr std::size_t kMostBytes = KyString::MaxBytes - 1;
constexpr std::size_t kMostWide = KyString::MaxBytes / sizeof(char16_t) - 1;

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// "U+0153"
std::string CodeName(char32_t code) {
    std::string digits = HexWord(code);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 4));
    return "U+" + digits;
}

std::string InUtf8(char16_t character) {
    char bytes[3];
    const int count = ky_wctomb(bytes, character);
    return {bytes, static_cast<std::size_t>(count)};
}

bool HasAll(const KyCodeSet& codeSet, const std::u16string& text) {
    return std::all_of(text.begin(), text.end(), [&](char16_t c) { return codeSet.FromUnicode(c) != 0; });
}

}  // namespace

TextForm::TextForm(const TextOptions& options, bool takeBroken)
    : language(options.language ? FindLanguage(*options.language) : KyLanguageContext::GetDefaultLanguage()),
      codeSet(options.codeSet ? FindCodeSet(*options.codeSet) : KyCodeSetDefault),
      asTheyStand(codeSet == KyCodeSetNative),
      takesBroken(takeBroken && !options.AnyGiven()) {}

TextForm TextForm::PlainBytes() {
    TextForm form;
    form.language = KyLanguageContext::GetDefaultLanguage();
    form.codeSet = KyLanguageContext::GetDefault8CodeSet();
    form.asTheyStand = true;
    return form;
}

const char* TextForm::Read(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) return Fail("it holds a zero byte");
    resultCodeSet = codeSet == KyCodeSetDefault ? KyCodeSetLatin1 : codeSet;
    if (asTheyStand || (resultCodeSet < KyCodeSetFirst16Bit && IsAscii(text)) || (takesBroken && !IsUtf8(text))) {
        narrow = text;
        return CheckLength();
    }
    if (const char* reason = Decode(text); reason != nullptr) return reason;
    const KyCodeSet* target = KyLanguageContext::QueryCodeSet(resultCodeSet);
    if (codeSet == KyCodeSetDefault && !HasAll(*target, wide)) {
        resultCodeSet = KyCodeSetUnicode;
        target = KyLanguageContext::QueryCodeSet(resultCodeSet);
    }
    if (const char* reason = MapTo(*target); reason != nullptr) return reason;
    return CheckLength();
}

CodedText TextForm::Result() const {
    const bool isNarrow = resultCodeSet < KyCodeSetFirst16Bit;
    return {resultCodeSet, language, isNarrow ? narrow.c_str() : reinterpret_cast<const char*>(wide.c_str())};
}

KyString TextForm::ToString() const {
    const CodedText result = Result();
    KyString text(result.codeSet, result.language);
    text.MakeString(result.characters, result.codeSet, -1, KyFormNative);
    return text;
}

std::string TextForm::Write(const KyString& text) const {
    if (asTheyStand) return text.StrGet();
    // At most three bytes a character. The form of ASCII texts takes one byte more, which is cleared.
    std::string bytes(std::size_t{text.Len()} * 3 + 1, '\0');
    const int count = KyString2KyMBS(text, bytes.data(), static_cast<int>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max(count, 0)));
    return bytes;
}

/// From UTF-8 into `wide`.
const char* TextForm::Decode(std::string_view text) {
    wide.clear();
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8Length(text.substr(i));
        if (length == 0) return Fail("broken UTF-8 at byte " + std::to_string(i + 1));
        if (length == 4) {
            return Fail(std::string(text.substr(i, length)) + " (" + CodeName(Utf8Code(text.substr(i, length))) +
                        ") is beyond the 16-bit characters");
        }
        wide += static_cast<char16_t>(Utf8Code(text.substr(i, length)));
        i += length;
    }
    return nullptr;
}

/// From Unicode in `wide` into the code set, in `wide` or `narrow`.
const char* TextForm::MapTo(const KyCodeSet& target) {
    for (char16_t& character : wide) {
        const unsigned short code = target.FromUnicode(character);
        if (code == 0) {
            return Fail(InUtf8(character) + " (" + CodeName(character) + ") is not in the code set " +
                        CodeSetName(target.Code()));
        }
        character = code;
    }
    if (target.Code() < KyCodeSetFirst16Bit) {
        narrow.resize(wide.size());
        std::transform(wide.begin(), wide.end(), narrow.begin(), [](char16_t c) { return static_cast<char>(c); });
    }
    return nullptr;
}

const char* TextForm::CheckLength() {
    if (resultCodeSet < KyCodeSetFirst16Bit) {
        return narrow.size() <= kMostBytes ? nullptr
                                           : Fail("it is longer than " + std::to_string(kMostBytes) + " bytes");
    }
    return wide.size() <= kMostWide ? nullptr
                                    : Fail("it is longer than " + std::to_string(kMostWide) + " characters of 16 bits");
}

const char* TextForm::Fail(std::string reason) {
    fault = std::move(reason);
    return fault.c_str();
}

}  // namespace kytm
