#include "checks.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace ky::tables {
namespace {

/// Codes up to this one are never their own order: small numbers are orders of spaces and symbols.
constexpr unsigned kLastRecordedCode = 511;

// Their codes are values of markers, which a character's order must not be.
constexpr unsigned kFirstSpecial = 0xFFF9;
constexpr unsigned kLastSpecial = 0xFFFD;

constexpr unsigned short kWildcards[] = {'*', '?', '\\'};

/// A place in the order: class, order, orders that follow.
using OrderPlace = std::tuple<unsigned char, unsigned short, Codes>;
using Occupants = std::map<OrderPlace, unsigned short>;

Occupants OccupiedPlaces(const Characters& characters) {
    Occupants occupants;
    for (const auto& [code, character] : characters) {
        if (character.equivalent != 0) continue;
        const OrderPlace place(character.orderClass, character.order, character.expansion);
        const auto [at, isNew] = occupants.try_emplace(place, code);
        if (!isNew) {
            throw BadData(character.at, CodeName(code) + " has the place of " + CodeName(at->second) + " in the order");
        }
    }
    return occupants;
}

void CheckRecorded(const Characters& characters, unsigned first, unsigned last) {
    for (unsigned code = first; code <= last; ++code) {
        if (!characters.contains(static_cast<unsigned short>(code))) {
            throw BadData({"characters"}, CodeName(code) + " is missing");
        }
    }
}

void CheckCase(const Characters& characters, const Character& character) {
    for (const unsigned short target : {character.upper, character.lower}) {
        if (target != 0) Find(characters, target, character.at);
    }
    if (character.upperExpansion.empty()) return;
    if (character.upper == 0) throw BadData(character.at, "upper+ stands without upper");
    for (const unsigned short code : character.upperExpansion) {
        const Character& part = Find(characters, code, character.at);
        if (!part.expansion.empty() || !part.upperExpansion.empty()) {
            throw BadData(character.at, CodeName(code) + " behind upper has an expansion itself");
        }
    }
}

void CheckWildcard(const Characters& characters, unsigned short wildcard) {
    const unsigned short order = characters.at(wildcard).order;
    if (!characters.at(wildcard).expansion.empty()) {
        throw BadData(characters.at(wildcard).at, "a wildcard character has no expansion");
    }
    if (!characters.contains(order)) {
        throw BadData(characters.at(wildcard).at, CodeName(order) + ", which is its own order, has this one");
    }
    for (const auto& [code, character] : characters) {
        const Codes& further = character.expansion;
        if ((character.order == order && code != wildcard) ||
            std::find(further.begin(), further.end(), order) != further.end()) {
            throw BadData(character.at, CodeName(code) + " has the order of the wildcard " + CodeName(wildcard));
        }
    }
}

/// A language moves nothing to a symbol's place, but an expansion may name any character.
void CheckNoWildcardFollows(const Tailoring& entry, const Characters& characters) {
    for (const unsigned short wildcard : kWildcards) {
        const Codes& further = entry.expansion;
        if (std::find(further.begin(), further.end(), characters.at(wildcard).order) != further.end()) {
            throw BadData(entry.at, "the expansion has the order of the wildcard " + CodeName(wildcard));
        }
    }
}

void CheckLanguage(const LanguageData& language, const Characters& characters, const Occupants& neutral) {
    std::set<unsigned short> moved;
    for (const Tailoring& entry : language.tailorings) {
        if (entry.sequence.size() == 1) moved.insert(entry.sequence.front());
    }
    std::set<OrderPlace> own;
    for (const Tailoring& entry : language.tailorings) {
        CheckNoWildcardFollows(entry, characters);
        const OrderPlace place(entry.orderClass, entry.order, entry.expansion);
        const auto occupant = neutral.find(place);
        if (occupant != neutral.end() && !moved.contains(occupant->second)) {
            throw BadData(entry.at, "the place in the order is the one of " + CodeName(occupant->second));
        }
        if (!own.insert(place).second) throw BadData(entry.at, "the place in the order is another line's");
    }
}

}  // namespace

void CheckCharacters(const Characters& characters) {
    CheckRecorded(characters, 1, kLastRecordedCode);
    CheckRecorded(characters, kFirstSpecial, kLastSpecial);
    for (const auto& [code, character] : characters) CheckCase(characters, character);
    for (const unsigned short wildcard : kWildcards) CheckWildcard(characters, wildcard);
    OccupiedPlaces(characters);
}

void CheckCodeSets(const std::vector<CodeSetData>& sets, const Characters& characters) {
    for (const CodeSetData& set : sets) {
        for (const unsigned short code : set.toUnicode) {
            if (code != 0) Find(characters, code, set.at);
        }
    }
}

void CheckLanguages(const std::vector<LanguageData>& languages, const Characters& characters) {
    const Occupants neutral = OccupiedPlaces(characters);
    for (const LanguageData& language : languages) CheckLanguage(language, characters, neutral);
}

}  // namespace ky::tables
