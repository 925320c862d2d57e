#ifndef PROPERTY_TABLES_H
#define PROPERTY_TABLES_H

/// The tables in the shape in which the library has them: records, the rules that records share, and pages of 256
/// records. Equal rules, equal pages and equal lists of codes stand there once.

#include <array>
#include <compare>
#include <map>

#include "code_set_data.h"
#include "language_data.h"

namespace ky::tables {

/// Index of something that is not there.
inline constexpr int None = -1;

struct Record {
    unsigned short order = 0;  ///< 0: there is no such character
    unsigned short upper = 0;
    unsigned short lower = 0;
    unsigned char orderClass = 0;
    int rules = None;

    auto operator<=>(const Record&) const = default;
};

struct VariantEntry {
    unsigned char variant;
    int record;  ///< among the further records

    auto operator<=>(const VariantEntry&) const = default;
};

struct ContractionEntry {
    Codes rest;
    int record;  ///< among the further records

    auto operator<=>(const ContractionEntry&) const = default;
};

struct Rules {
    Codes upperExpansion;
    Codes orderExpansion;
    std::vector<VariantEntry> variants;
    std::vector<ContractionEntry> contractions;

    bool Empty() const {
        return upperExpansion.empty() && orderExpansion.empty() && variants.empty() && contractions.empty();
    }
    auto operator<=>(const Rules&) const = default;
};

using Page = std::array<Record, 256>;

/// Different values, numbered in the order in which they came.
template <class Value>
class Pool {
public:
    int Add(const Value& value) {
        const auto [at, isNew] = numbers.try_emplace(value, static_cast<int>(values.size()));
        if (isNew) values.push_back(value);
        return at->second;
    }
    const std::vector<Value>& Values() const { return values; }

private:
    std::map<Value, int> numbers;
    std::vector<Value> values;
};

struct PropertyTables {
    Pool<Rules> rules;
    Pool<Record> furtherRecords;  ///< of language variants and contractions
    Pool<Page> pages;
    std::array<int, 256> unicodePages{};  ///< the page of each 256 codes, or None
    std::vector<int> codeSetPages;        ///< the page of each 8-bit set
};

PropertyTables BuildTables(const Characters& characters, const std::vector<CodeSetData>& sets,
                           const std::vector<LanguageData>& languages);

}  // namespace ky::tables

#endif
