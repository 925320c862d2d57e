#ifndef LANGUAGES_H
#define LANGUAGES_H

/// Code sets and languages by their names, and 16-bit literals as texts.

#include <algorithm>
#include <string>
#include <string_view>

#include "kyi18n.h"
#include "kystrcmp.h"

/// Null when there is no language of this tag.
inline const KyLanguage* LanguageOf(std::string_view tag) {
    for (unsigned number = 0; number < KyLanguageNull; ++number) {
        const KyLanguage* language = KyLanguageContext::QueryLanguage(static_cast<unsigned char>(number));
        if (language != nullptr && language->Tag() == tag) return language;
    }
    return nullptr;
}

/// A language's tag as a part of a test's name.
inline std::string TestName(std::string tag) {
    std::replace(tag.begin(), tag.end(), '-', '_');
    return tag;
}

/// Null when there is no code set of this name.
inline const KyCodeSet* CodeSetOf(std::string_view name) {
    for (unsigned number = 1; number < KyCodeSetDefault; ++number) {
        const KyCodeSet* codeSet = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(number));
        if (codeSet != nullptr && codeSet->Name() == name) return codeSet;
    }
    return nullptr;
}

/// A text in an 8-bit code set; empty when the code set lacks a character of it.
inline std::string ToCodeSet(const KyCodeSet& codeSet, std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        const unsigned short code = codeSet.FromUnicode(unit);
        if (code == 0) return {};
        bytes.push_back(static_cast<char>(code));
    }
    return bytes;
}

/// Compares two whole 16-bit texts in one language.
inline int CompareUnicode(unsigned char language, const std::u16string& a, const std::u16string& b, unsigned short op) {
    return KyStrCmp(KyCodeSetUnicode, language, reinterpret_cast<const char*>(a.c_str()), KyCodeSetUnicode, language,
                    reinterpret_cast<const char*>(b.c_str()), op, -1, 1, nullptr);
}

/// The same for two texts in an 8-bit code set.
inline int CompareBytes(const KyCodeSet& codeSet, unsigned char language, const std::string& a, const std::string& b,
                        unsigned short op) {
    return KyStrCmp(codeSet.Code(), language, a.c_str(), codeSet.Code(), language, b.c_str(), op, -1, 1, nullptr);
}

#endif
