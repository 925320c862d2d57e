#ifndef PEER_LANGUAGES_H
#define PEER_LANGUAGES_H

/// The languages and what stands for them elsewhere.

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace peer {

struct Language {
    const char* tag;           ///< here
    const char* locale;        ///< the peer's, of the same order
    const char* codeSet;       ///< registered name of an 8-bit code set in which it is written; null: none has it
    const char* contractions;  ///< its letters of several characters, small
};

inline void PrintTo(const Language& language, std::ostream* out) { *out << language.tag; }

inline const std::vector<Language> kLanguages = {
    {"neutral", "root", "ISO-8859-1", ""},
    {"en", "en", "ISO-8859-1", ""},
    {"de", "de", "ISO-8859-1", ""},
    {"de-phonebook", "de@collation=phonebook", "ISO-8859-1", ""},
    {"fr", "fr", "ISO-8859-15", ""},
    {"es", "es@collation=traditional", "ISO-8859-1", "ch ll"},
    {"es-modern", "es", "ISO-8859-1", ""},
    {"da", "da", "ISO-8859-1", "aa"},
    {"no", "nb", "ISO-8859-1", "aa"},
    {"sv", "sv", "ISO-8859-1", ""},
    {"fi", "fi", "ISO-8859-1", ""},
    {"cs", "cs", "ISO-8859-2", "ch"},
    {"pl", "pl", "ISO-8859-2", ""},
    {"hu", "hu", "ISO-8859-2", "cs dz gy ly ny sz ty zs"},
    {"tr", "tr", "ISO-8859-9", ""},
    {"it", "it", "ISO-8859-1", ""},
    {"pt", "pt", "ISO-8859-1", ""},
    {"nl", "nl", "ISO-8859-1", ""},
    {"sk", "sk", "ISO-8859-2", "ch"},
    {"sl", "sl", "ISO-8859-2", ""},
    {"hr", "hr", "ISO-8859-2", "dž lj nj"},
    {"ro", "ro", "ISO-8859-16", ""},
    {"is", "is", "ISO-8859-1", ""},
    {"et", "et", "ISO-8859-15", ""},
    {"lv", "lv", "ISO-8859-13", ""},
    {"lt", "lt", "ISO-8859-13", ""},
    {"ca", "ca", "ISO-8859-1", ""},
    {"sq", "sq", "ISO-8859-1", "dh gj ll nj rr sh th xh zh"},
    {"vi", "vi", nullptr, ""},
    {"el", "el", "ISO-8859-7", ""},
    {"ru", "ru", "KOI8-R", ""},
    {"uk", "uk", "windows-1251", ""},
};

/// Null when there is no language of this tag.
inline const Language* LanguageOf(std::string_view tag) {
    const auto found =
        std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& each) { return tag == each.tag; });
    return found != kLanguages.end() ? &*found : nullptr;
}

}  // namespace peer

#endif
