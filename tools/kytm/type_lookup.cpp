#include "type_lookup.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <vector>

#include "terminal.h"
#include "texts.h"

namespace kytm {

namespace {

constexpr std::size_t kSuggestions = 3;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Insertions, deletions and replacements that lead from one text to the other, case aside.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (Lower(a[i]) == Lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

std::string NearestNames(std::string_view name) {
    struct Candidate {
        std::size_t distance;
        std::string name;
    };
    std::vector<Candidate> candidates;
    for (int id = 0; id < KyRES_T; ++id) {
        for (const std::string& known : {TypeName(static_cast<char>(id)), TypeCodeName(static_cast<char>(id))}) {
            candidates.push_back({EditDistance(name, known), known});
        }
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.distance < b.distance; });
    std::string list;
    for (std::size_t i = 0; i < kSuggestions; ++i) list.append(i == 0 ? "" : ", ").append(candidates[i].name);
    return list;
}

/// What a type does not have is answered by the illegal row's functions.
bool IsUsable(char id) {
    KyTypeMgr& manager = Manager();
    if (manager.CmpFuncPtrGet(id) == manager.CmpFuncPtrGet(KyRES_T) ||
        manager.ExchangeScanFromKyStringFunc(id, nullptr) == manager.ExchangeScanFromKyStringFunc(KyRES_T, nullptr) ||
        manager.ExchangePrintToKyStringFunc(id, nullptr) == manager.ExchangePrintToKyStringFunc(KyRES_T, nullptr)) {
        return false;
    }
    void* value = manager.Create(id, 1);
    if (value == nullptr) return false;
    manager.Delete(id, value, 1);
    return true;
}

}  // namespace

KyTypeMgr& Manager() {
    static KyTypeMgr manager(5);
    return manager;
}

std::string TypeName(char id) { return Manager().NameGet(id, nullptr); }

std::string TypeCodeName(char id) { return Manager().TypeIdNameGet(id, nullptr); }

const char* PrintFormat(char id) { return Manager().ExchangeFormat(id, nullptr); }

char FindType(std::string_view name) {
    int number = 0;
    const char* end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data(), end, number);
    if (error == std::errc() && stop == end && number >= 0 && number < KyTypeIdLimit) return static_cast<char>(number);

    for (int id = 0; id < KyTypeIdLimit; ++id) {
        const char candidate = static_cast<char>(id);
        if (name == TypeName(candidate) || name == TypeCodeName(candidate)) return candidate;
    }
    throw Failure("unknown type " + Quoted(name) + "; the nearest names are " + NearestNames(name) +
                  " (kytm types lists all)");
}

char FindUsableType(std::string_view name) {
    const char id = FindType(name);
    if (!IsUsable(id)) throw Failure("no values of the type " + TypeName(id) + " can be made, scanned and compared");
    return id;
}

}  // namespace kytm
