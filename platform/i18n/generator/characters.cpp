#include "characters.h"

#include "kyi18n.h"

namespace ky::tables {
namespace {

// Hangul: a syllable's code tells its leading consonant, its vowel and its trailing consonant, of which it may have
// none.
constexpr unsigned kFirstSyllable = 0xAC00;
constexpr unsigned kSyllables = 11172;
constexpr unsigned kFirstLeading = 0x1100;
constexpr unsigned kFirstVowel = 0x1161;
constexpr unsigned kNoTrailing = 0x11A7;
constexpr unsigned kVowels = 21;
constexpr unsigned kTrailings = 28;

unsigned short Code(unsigned code) { return static_cast<unsigned short>(code); }

struct CodeRange {
    unsigned first;
    unsigned last;
};

CodeRange ParseRange(const Place& at, const std::string& text) {
    const std::size_t dots = text.find("..");
    const unsigned first = ParseCode(at, text.substr(0, dots));
    if (dots == std::string::npos) return {first, first};
    const unsigned last = ParseCode(at, text.substr(dots + 2));
    if (last <= first) throw BadData(at, "the range " + text + " has less than two codes");
    return {first, last};
}

Codes ParseCodes(const Place& at, const std::string& list) {
    Codes codes;
    for (const std::string& piece : SplitAtCommas(at, list)) codes.push_back(ParseCode(at, piece));
    return codes;
}

void ReadOption(Character& character, const std::string& option) {
    const Place& at = character.at;
    const std::size_t sign = option.find('=');
    const std::string name = option.substr(0, sign);
    const std::string value = sign != std::string::npos ? option.substr(sign + 1) : "";
    if (name == "upper") {
        character.upper = ParseCode(at, value);
    } else if (name == "lower") {
        character.lower = ParseCode(at, value);
    } else if (name == "upper+") {
        character.upperExpansion = ParseCodes(at, value);
    } else if (name == "then") {
        character.then = ParseCodes(at, value);
    } else {
        throw BadData(at, "\"" + option + "\" is not known");
    }
}

/// What is said of the character or of the first one of the range.
struct Description {
    Character character;
    bool counted = false;
};

Description ReadDescription(DataLine& line, CodeRange range) {
    Description result;
    Character& character = result.character;
    character.at = line.At();
    const std::string& kind = line.Next("the kind");
    if (const auto fields = ReadOrder(line, kind)) {
        character.orderClass = fields->place.orderClass;
        character.order = fields->place.order;
        result.counted = fields->counted;
    } else if (kind == "as") {
        character.equivalent = ParseCode(line.At(), line.Next("the equivalent character"));
    } else if (kind == "syllables") {
        if (range.first < kFirstSyllable || range.last >= kFirstSyllable + kSyllables) {
            throw BadData(line.At(), "syllables have the codes AC00 to D7A3");
        }
        character.syllable = true;
    } else {
        throw BadData(line.At(), "\"" + kind + "\" is not a kind of character");
    }
    return result;
}

void AddCharacters(Characters& characters, DataLine& line) {
    const CodeRange range = ParseRange(line.At(), line.Next("the code"));
    Description said = ReadDescription(line, range);
    if (range.first == range.last) {
        while (!line.AtEnd()) ReadOption(said.character, line.Next("an option"));
    } else if (!said.counted && !said.character.syllable) {
        throw BadData(line.At(), "a range of codes needs a kind whose numbers go on");
    }
    line.ExpectEnd();
    for (unsigned code = range.first; code <= range.last; ++code) {
        Character character = said.character;
        if (said.counted) character.order = CountOn(line.At(), character.order, code - range.first);
        const auto [known, isNew] = characters.try_emplace(Code(code), std::move(character));
        if (!isNew) {
            throw BadData(line.At(), CodeName(code) + " is described a second time; the first is " +
                                         known->second.at.file + ":" + std::to_string(known->second.at.line));
        }
    }
}

void ResolveExpansion(const Characters& characters, Character& character) {
    const ExpansionRule rule(character.at, character.orderClass, character.order);
    for (const unsigned short code : character.then) {
        const Character& part = Find(characters, code, character.at);
        if (part.equivalent != 0 || part.syllable) throw BadData(character.at, CodeName(code) + " has no order itself");
        rule.Check(part.orderClass, part.order, !part.then.empty());
        character.expansion.push_back(part.order);
    }
}

void ResolveSyllable(const Characters& characters, unsigned code, Character& character) {
    const unsigned index = code - kFirstSyllable;
    const unsigned trailing = index % kTrailings;
    const Character& leading = Find(characters, Code(kFirstLeading + index / (kVowels * kTrailings)), character.at);
    character.orderClass = leading.orderClass;
    character.order = leading.order;
    character.then = {Code(kFirstVowel + index / kTrailings % kVowels)};
    if (trailing != 0) character.then.push_back(Code(kNoTrailing + trailing));
}

void ResolveEquivalent(const Characters& characters, Character& character) {
    const Character& other = Find(characters, character.equivalent, character.at);
    if (other.equivalent != 0) {
        throw BadData(character.at, CodeName(character.equivalent) + " only stands for another character");
    }
    if (!character.then.empty()) throw BadData(character.at, "an equivalent has no expansion of its own");
    character.orderClass = other.orderClass;
    character.order = other.order;
    character.expansion = other.expansion;
}

}  // namespace

const Character& Find(const Characters& characters, unsigned short code, const Place& at) {
    const auto found = characters.find(code);
    if (found == characters.end()) throw BadData(at, CodeName(code) + " has no line of its own");
    return found->second;
}

ExpansionRule::ExpansionRule(Place where, unsigned char orderClass, unsigned short order)
    : at(std::move(where)), letterClass(KindOf(order) == OrderKind::letter ? orderClass : KyClassLatin) {}

void ExpansionRule::Check(unsigned char partClass, unsigned short partOrder, bool partExpands) const {
    if (partExpands) throw BadData(at, "a part of the expansion has an expansion itself");
    const bool letter = KindOf(partOrder) == OrderKind::letter;
    const unsigned char wanted = letter ? letterClass : DefaultClassOf(partOrder);
    if (partClass != wanted) {
        throw BadData(
            at, "a part of the expansion has class " + std::to_string(partClass) + ", not " + std::to_string(wanted));
    }
}

Characters ReadCharacters(const std::filesystem::path& folder) {
    Characters characters;
    for (const auto& file : DataFiles(folder)) {
        for (DataLine& line : ReadLines(file)) AddCharacters(characters, line);
    }
    for (auto& [code, character] : characters) {
        if (character.syllable) ResolveSyllable(characters, code, character);
    }
    for (auto& [code, character] : characters) {
        if (character.equivalent == 0) ResolveExpansion(characters, character);
    }
    for (auto& [code, character] : characters) {
        if (character.equivalent != 0) ResolveEquivalent(characters, character);
    }
    return characters;
}

}  // namespace ky::tables
