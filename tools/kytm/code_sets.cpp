#include "code_sets.h"

#include "kyi18n.h"
#include "nearest_names.h"
#include "terminal.h"
#include "texts.h"

namespace kytm {

std::vector<unsigned char> CodeSets() {
    std::vector<unsigned char> all = {KyCodeSetNative};
    for (unsigned char number = 1; number < KyCodeSetOrders; ++number) {
        if (KyLanguageContext::QueryCodeSet(number) != nullptr) all.push_back(number);
    }
    return all;
}

std::string CodeSetName(unsigned char codeSet) {
    return codeSet == KyCodeSetNative ? "bytes" : KyLanguageContext::QueryCodeSet(codeSet)->Name();
}

unsigned char FindCodeSet(std::string_view name) {
    std::vector<std::string> names;
    for (const unsigned char number : CodeSets()) {
        names.push_back(CodeSetName(number));
        if (name == std::to_string(number) || SameName(name, names.back())) return number;
    }
    throw Failure("unknown code set " + Quoted(name) + "; the nearest names are " + NearestNames(name, names) +
                  " (kytm codesets lists all)");
}

}  // namespace kytm
