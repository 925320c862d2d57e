#include "property_tables.h"

#include <algorithm>

#include "kyi18n.h"

namespace ky::tables {
namespace {

/// What one language does with one character.
struct Difference {
    const Tailoring* own = nullptr;                ///< the character's new place in the order
    std::vector<const Tailoring*> contractions{};  ///< those that begin with it, longest first
};

/// The differences of all languages that have their own, by character and variant.
using Differences = std::map<unsigned short, std::map<unsigned char, Difference>>;

Differences CollectDifferences(const std::vector<LanguageData>& languages) {
    Differences all;
    for (const LanguageData& language : languages) {
        for (const Tailoring& entry : language.tailorings) {
            Difference& difference = all[entry.sequence.front()][language.variant];
            if (entry.sequence.size() == 1) {
                difference.own = &entry;
            } else {
                difference.contractions.push_back(&entry);
            }
        }
    }
    for (auto& [code, ofCharacter] : all) {
        for (auto& [variant, difference] : ofCharacter) {
            std::stable_sort(
                difference.contractions.begin(), difference.contractions.end(),
                [](const Tailoring* a, const Tailoring* b) { return a->sequence.size() > b->sequence.size(); });
        }
    }
    return all;
}

/// A character's record under construction: its rules are not numbered yet.
struct Draft {
    Record record;
    Rules rules;
};

class Builder {
public:
    Builder(const Characters& allCharacters, const std::vector<LanguageData>& languages, PropertyTables& into)
        : characters(allCharacters), differences(CollectDifferences(languages)), tables(into) {}

    /// The record of a Unicode character in an 8-bit set or, for null, in Unicode itself.
    Record Build(unsigned short code, const CodeSetData* set) {
        const auto found = characters.find(code);
        if (found == characters.end()) return {};
        const Character& character = found->second;
        Draft draft = Neutral(character, set);
        const auto ofCharacter = differences.find(character.equivalent != 0 ? character.equivalent : code);
        if (ofCharacter != differences.end()) {
            std::vector<VariantEntry> variants;
            for (const auto& [variant, difference] : ofCharacter->second) {
                variants.push_back({variant, tables.furtherRecords.Add(Finish(Changed(draft, difference)))});
            }
            draft.rules.variants = std::move(variants);
        }
        return Finish(std::move(draft));
    }

private:
    static Draft Neutral(const Character& character, const CodeSetData* set) {
        Draft draft;
        draft.record.order = character.order;
        draft.record.orderClass = character.orderClass;
        draft.record.upper = character.upper;
        draft.record.lower = character.lower;
        draft.rules.upperExpansion = character.upperExpansion;
        draft.rules.orderExpansion = character.expansion;
        if (set != nullptr) MapUpperCase(draft, *set);
        return draft;
    }

    /// The characters behind the upper-case form, as codes of the set. One that the set does not have leaves the
    /// character without an upper-case form: no part of a text is lost in case mapping.
    static void MapUpperCase(Draft& draft, const CodeSetData& set) {
        Codes& expansion = draft.rules.upperExpansion;
        if (expansion.empty()) return;
        const bool complete = set.FromUnicode(draft.record.upper) != 0 &&
                              std::all_of(expansion.begin(), expansion.end(),
                                          [&](unsigned short code) { return set.FromUnicode(code) != 0; });
        if (complete) {
            for (unsigned short& code : expansion) code = set.FromUnicode(code);
        } else {
            draft.record.upper = 0;
            expansion.clear();
        }
    }

    Draft Changed(Draft draft, const Difference& difference) {
        if (difference.own != nullptr) {
            draft.record.order = difference.own->order;
            draft.record.orderClass = difference.own->orderClass;
            draft.rules.orderExpansion = difference.own->expansion;
        }
        for (const Tailoring* entry : difference.contractions) {
            draft.rules.contractions.push_back(
                {Codes(entry->sequence.begin() + 1, entry->sequence.end()), ContractionRecord(*entry)});
        }
        return draft;
    }

    int ContractionRecord(const Tailoring& entry) {
        Draft draft;
        draft.record.order = entry.order;
        draft.record.orderClass = entry.orderClass;
        draft.rules.orderExpansion = entry.expansion;
        return tables.furtherRecords.Add(Finish(std::move(draft)));
    }

    Record Finish(Draft draft) {
        if (!draft.rules.Empty()) draft.record.rules = tables.rules.Add(draft.rules);
        return draft.record;
    }

    const Characters& characters;
    Differences differences;
    PropertyTables& tables;
};

Record ByteWithoutCharacter(unsigned byte) {
    return {.order = static_cast<unsigned short>(FirstByteSymbol + byte - 0x80), .orderClass = KyClassCommon};
}

Page CodeSetPage(Builder& builder, const CodeSetData& set) {
    Page page{};
    for (unsigned code = 1; code < 256; ++code) {
        const unsigned short unicode = set.toUnicode[code];
        page[code] = unicode != 0 ? builder.Build(unicode, &set) : ByteWithoutCharacter(code);
    }
    return page;
}

}  // namespace

PropertyTables BuildTables(const Characters& characters, const std::vector<CodeSetData>& sets,
                           const std::vector<LanguageData>& languages) {
    PropertyTables tables;
    Builder builder(characters, languages, tables);
    for (unsigned high = 0; high < 256; ++high) {
        Page page{};
        for (unsigned low = 0; low < 256; ++low) {
            page[low] = builder.Build(static_cast<unsigned short>(high << 8 | low), nullptr);
        }
        tables.unicodePages[high] = page == Page{} ? None : tables.pages.Add(page);
    }
    for (const CodeSetData& set : sets) tables.codeSetPages.push_back(tables.pages.Add(CodeSetPage(builder, set)));
    return tables;
}

}  // namespace ky::tables
