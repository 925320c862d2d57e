#include <nlohmann/json.hpp>

#include "code_sets.h"
#include "commands.h"
#include "languages.h"
#include "table.h"

namespace kytm {

namespace {

int WidthOf(unsigned char codeSet) { return codeSet < KyCodeSetFirst16Bit ? 8 : 16; }

}  // namespace

ExitStatus ListCodeSets(const CodeSetsOptions& options, Output& out) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    Table table({"number", "code set", "bits"}, {0, 2});
    for (const unsigned char number : CodeSets()) {
        const std::string name = CodeSetName(number);
        list.push_back({{"number", number}, {"name", name}, {"bits", WidthOf(number)}});
        table.Add({std::to_string(number), name, std::to_string(WidthOf(number))});
    }
    WriteList(list, table, options.json, out);
    return kDone;
}

ExitStatus ListLanguages(const LanguagesOptions& options, Output& out) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    Table table({"number", "tag", "language"}, {0});
    for (const KyLanguage* language : Languages()) {
        list.push_back({{"number", language->Code()}, {"tag", language->Tag()}, {"name", language->Name()}});
        table.Add({std::to_string(language->Code()), language->Tag(), language->Name()});
    }
    WriteList(list, table, options.json, out);
    return kDone;
}

}  // namespace kytm
