#include "long_texts.h"

#include "support/languages.h"

using engine::Folding;
using engine::Value;

namespace {

constexpr unsigned char kLatin1 = 1;

std::vector<Family> AllFamilies() {
    // In the default 8-bit code set DE is the sharp s, 88 and 93 are O and E, o and e in one, 8B to 8D accented
    // letters.
    const std::vector<std::u16string> alike = {u"s", u"\xDE", u"ss", u"o", u"\x93", u"OE"};
    const std::vector<std::u16string> letters = {u"s",    u"\xDE", u"S", u"a",    u"z",
                                                 u"\x93", u"\x88", u"e", u"\xC0", u"*"};
    return {
        {"dictionary", nullptr, true, true, alike, letters, KyISTRING_T},
        {"case_dictionary", nullptr, true, true, alike, letters, KyCASEISTRING_T},
        {"plain", "en", true, false, {u"a"}, {u"a", u"b", u"A", u"\xE9", u"-"}},
        {"expansions", "de", true, true, {u"s", u"\xDF", u"ss", u"S"}, {u"s", u"\xDF", u"a", u"z", u"\xAD", u"*"}},
        {"contractions",
         "es",
         true,
         false,
         {u"c", u"ch", u"CH", u"l", u"ll"},
         {u"c", u"h", u"ch", u"ll", u"d", u"\xAD"}},
        {"long_contractions",
         "hu",
         true,
         true,
         {u"dzs", u"d", u"dz", u"ddzs", u"z"},
         {u"d", u"z", u"s", u"ddzs", u"\xE1"}},
        {"danish", "da", true, false, {u"aa", u"\xE5", u"a"}, {u"a", u"aa", u"\xE5", u"z", u"-"}},
        {"unicode",
         "de",
         false,
         true,
         {u"f", u"\uFB03", u"\uFDFA", u"i"},
         {u"f", u"i", u"\uFB03", u"\u0301", u"\u200D", u"\u03B1"}},
        {"bytes", nullptr, true, true, {u"s", u"\xDF", u"ss"}, {u"s", u"\xDF", u"a", u"z", u"\xE9"}},
    };
}

}  // namespace

std::vector<Case> AllCases() {
    std::vector<Case> cases;
    for (const Family& family : AllFamilies())
        for (const unsigned char form : {KyFormNative, KyFormReversed})
            for (const bool ignoreCase : {false, true})
                for (const bool ignoreAccent : {false, true})
                    if (!family.IsDictionary() || (!ignoreCase && !ignoreAccent))
                        cases.push_back({family, form, {.ignoreCase = ignoreCase, .ignoreAccent = ignoreAccent}});
    return cases;
}

bool IsUnfolded(const Case& of) { return of.folding == Folding(); }
bool HasBothWidths(const Case& of) { return of.family.hasNarrow && of.family.language != nullptr; }

std::string Modifiers(const Folding& folding) {
    return std::string(folding.ignoreCase ? " nocase" : "") + (folding.ignoreAccent ? " noaccent" : "");
}

std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
    return std::string(info.param.family.name) + (info.param.form == KyFormReversed ? "_reversed" : "_native") +
           (info.param.folding.ignoreCase ? "_nocase" : "") + (info.param.folding.ignoreAccent ? "_noaccent" : "");
}

void PrintTo(const Case& of, std::ostream* out) { *out << of.family.name << Modifiers(of.folding); }

Value Made(const std::u16string& text, const Family& family, bool isWide) {
    const char* const language = family.language;
    Value value(family.type);
    if (family.IsDictionary()) {
        const std::string bytes(text.begin(), text.end());
        WithText(family.type, value, [&](auto& made) { made = bytes.c_str(); });
        return value;
    }
    auto& made = *static_cast<KyString*>(value.Get());
    if (isWide) {
        made = KyString(KyCodeSetUnicode, KyLanguageNeutral);
        made.MakeString(reinterpret_cast<const char*>(text.data()), KyCodeSetUnicode, static_cast<short>(text.size()),
                        KyFormNative);
    } else {
        std::string bytes;
        for (const char16_t c : text) bytes += static_cast<char>(c);
        made = bytes.c_str();
        made.SetCodeSetCode(language != nullptr ? kLatin1 : KyCodeSetNative);
    }
    if (language != nullptr) made.LanguageSet(LanguageOf(language)->Code());
    return value;
}
