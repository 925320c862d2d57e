#include "languages.h"

#include <string>

#include "nearest_names.h"
#include "terminal.h"
#include "texts.h"

namespace kytm {

std::vector<const KyLanguage*> Languages() {
    std::vector<const KyLanguage*> all;
    for (unsigned char number = 0; number < KyLanguageNull; ++number) {
        const KyLanguage* language = KyLanguageContext::QueryLanguage(number);
        if (language != nullptr) all.push_back(language);
    }
    return all;
}

unsigned char FindLanguage(std::string_view name) {
    std::vector<std::string> names;
    for (const KyLanguage* language : Languages()) {
        if (name == std::to_string(language->Code()) || SameName(name, language->Tag()) ||
            SameName(name, language->Name())) {
            return language->Code();
        }
        for (const char* known : {language->Tag(), language->Name()}) names.emplace_back(known);
    }
    throw Failure("unknown language " + Quoted(name) + "; the nearest names are " + NearestNames(name, names) +
                  " (kytm languages lists all)");
}

}  // namespace kytm
