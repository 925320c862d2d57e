#include "nearest_names.h"

#include <algorithm>
#include <numeric>

#include "texts.h"

namespace kytm {

namespace {

constexpr std::size_t kSuggestions = 3;

/// Insertions, deletions and replacements that lead from one text to the other, case aside.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (AsciiLower(a[i]) == AsciiLower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string NearestNames(std::string_view name, const std::vector<std::string>& known) {
    struct Candidate {
        std::size_t distance;
        const std::string* name;
    };
    std::vector<Candidate> candidates;
    candidates.reserve(known.size());
    for (const std::string& candidate : known) candidates.push_back({EditDistance(name, candidate), &candidate});
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.distance < b.distance; });
    std::string list;
    for (std::size_t i = 0; i < std::min(kSuggestions, candidates.size()); ++i) {
        list.append(i == 0 ? "" : ", ").append(*candidates[i].name);
    }
    return list;
}

}  // namespace kytm
