#include "language_data.h"

#include <algorithm>

#include "kyi18n.h"

namespace ky::tables {
namespace {

void ReadHead(LanguageData& language, DataLine& line) {
    language.at = line.At();
    if (line.Next("\"language\"") != "language") {
        throw BadData(line.At(), "a language begins with \"language NUMBER TAG NAME\"");
    }
    language.number = static_cast<unsigned char>(ParseNumber(line.At(), line.Next("the number"), KyLanguageNull - 1u));
    language.tag = line.Next("the tag");
    language.name = line.Next("the name");
    while (!line.AtEnd()) language.name += " " + line.Next("the name");
}

Tailoring ReadTailoring(DataLine& line) {
    Tailoring result;
    result.at = line.At();
    result.sequence = ParseText(line.At(), line.Next("the characters"));
    if (result.sequence.size() > KyContraction::Longest) {
        throw BadData(line.At(),
                      "more than " + std::to_string(KyContraction::Longest) + " characters never count as one");
    }
    const std::string& kind = line.Next("the kind");
    if (kind != "letter") throw BadData(line.At(), "\"" + kind + "\" is not \"letter\"");
    const ClassAndOrder place = ReadLetter(line);
    result.orderClass = place.orderClass;
    result.order = place.order;
    if (line.AtEnd()) return result;
    const std::string option = line.Next("an option");
    if (!option.starts_with("then=")) throw BadData(line.At(), "\"" + option + "\" is not known");
    for (const std::string& piece : SplitAtCommas(line.At(), option.substr(5))) {
        result.then.push_back(ParseText(line.At(), piece));
    }
    line.ExpectEnd();
    return result;
}

LanguageData ReadLanguage(const std::filesystem::path& file) {
    std::vector<DataLine> lines = ReadLines(file);
    LanguageData language;
    ReadHead(language, lines.front());
    for (std::size_t i = 1; i < lines.size(); ++i) {
        DataLine& line = lines[i];
        DataLine words = line;
        if (i == 1 && words.Next("the characters") == "as") {
            language.asTag = words.Next("the tag");
            words.ExpectEnd();
            if (lines.size() > 2) throw BadData(lines[2].At(), "the order is another language's");
            break;
        }
        language.tailorings.push_back(ReadTailoring(line));
    }
    return language;
}

const Tailoring* FindTailoring(const LanguageData& language, const Codes& sequence) {
    const auto found = std::find_if(language.tailorings.begin(), language.tailorings.end(),
                                    [&](const Tailoring& entry) { return entry.sequence == sequence; });
    return found != language.tailorings.end() ? &*found : nullptr;
}

void CheckSequence(const LanguageData& language, const Tailoring& entry, const Characters& characters) {
    if (FindTailoring(language, entry.sequence) != &entry)
        throw BadData(entry.at, "the characters have a line already");
    for (const unsigned short code : entry.sequence) Find(characters, code, entry.at);
    if (entry.sequence.size() > 1) return;
    const Character& neutral = characters.at(entry.sequence.front());
    if (KindOf(neutral.order) != OrderKind::letter) throw BadData(entry.at, "only letters differ between languages");
    if (neutral.equivalent != 0) {
        throw BadData(entry.at, "the character follows " + CodeName(neutral.equivalent) + " in every language");
    }
}

void ResolveExpansion(const LanguageData& language, Tailoring& entry, const Characters& characters) {
    const ExpansionRule rule(entry.at, entry.orderClass, entry.order);
    for (const Codes& sequence : entry.then) {
        if (const Tailoring* part = FindTailoring(language, sequence)) {
            rule.Check(part->orderClass, part->order, !part->then.empty());
            entry.expansion.push_back(part->order);
            continue;
        }
        if (sequence.size() != 1) throw BadData(entry.at, "the expansion names characters that do not count as one");
        const Character& part = Find(characters, sequence.front(), entry.at);
        rule.Check(part.orderClass, part.order, !part.expansion.empty());
        entry.expansion.push_back(part.order);
    }
}

void Resolve(LanguageData& language, const Characters& characters) {
    for (Tailoring& entry : language.tailorings) {
        CheckSequence(language, entry, characters);
        ResolveExpansion(language, entry, characters);
    }
    if (!language.tailorings.empty()) language.variant = language.number;
    if (language.number == KyLanguageNeutral && (!language.tailorings.empty() || !language.asTag.empty())) {
        throw BadData(language.at, "the neutral language has no differences");
    }
}

void ShareOrder(const std::vector<LanguageData>& languages, LanguageData& language) {
    for (const LanguageData& other : languages) {
        if (other.tag != language.asTag) continue;
        if (!other.asTag.empty())
            throw BadData(language.at, "\"" + other.tag + "\" has another language's order itself");
        language.variant = other.variant;
        return;
    }
    throw BadData(language.at, "there is no language \"" + language.asTag + "\"");
}

void Add(std::vector<LanguageData>& languages, LanguageData language) {
    for (const LanguageData& other : languages) {
        if (other.number == language.number || other.tag == language.tag) {
            throw BadData(language.at, "number or tag is the one of \"" + other.tag + "\"");
        }
    }
    languages.push_back(std::move(language));
}

}  // namespace

std::vector<LanguageData> ReadLanguages(const std::filesystem::path& folder, const Characters& characters) {
    std::vector<LanguageData> languages;
    for (const auto& file : DataFiles(folder)) Add(languages, ReadLanguage(file));
    std::sort(languages.begin(), languages.end(),
              [](const LanguageData& a, const LanguageData& b) { return a.number < b.number; });
    if (languages.front().number != KyLanguageNeutral)
        throw BadData({folder.string()}, "the neutral language is missing");
    for (LanguageData& language : languages) Resolve(language, characters);
    for (LanguageData& language : languages) {
        if (!language.asTag.empty()) ShareOrder(languages, language);
    }
    return languages;
}

}  // namespace ky::tables
