#include "explanation.h"

#include <charconv>

#include "attribute_texts.h"
#include "texts.h"
#include "type_lookup.h"

namespace kytm {

namespace {

std::string Percent(double share) {
    constexpr std::size_t enough = 32;
    char text[enough];
    char* const end = std::to_chars(text, text + enough, share * 100, std::chars_format::general, 3).ptr;
    return std::string(text, end) + " %";
}

std::string Count(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// An index key as text.
std::string KeyText(const engine::Attribute& attribute, unsigned char form, engine::Bytes key) {
    engine::Attribute single = attribute;
    single.count = 1;
    const AttributeTexts texts(single);
    const Values value(attribute.type, 1);
    Manager().Load(attribute.type, value[0], const_cast<unsigned char*>(key.data()), form, 1);
    return Quoted(texts.Print(value[0]));
}

std::string Bounds(const engine::Attribute& attribute, unsigned char form, const engine::KeyRange& range) {
    return "from " + (range.HasLower() ? KeyText(attribute, form, range.Lower()) : std::string("the first")) + " to " +
           (range.HasUpper() ? KeyText(attribute, form, range.Upper()) : std::string("the last"));
}

}  // namespace

std::string Explain(const engine::Snapshot& snapshot, const engine::Query& query, const engine::AccessPath& path,
                    const engine::RunResult& result) {
    const engine::Class& of = snapshot.Of().GetSchema().Classes()[query.classAt];
    const std::size_t objects = snapshot.ObjectCount(query.classAt);
    std::string text = of.name + " has " + Count(objects, "object") + ".\n";
    std::vector<const engine::AccessPath*> scans = engine::Scans(path);
    if (scans.empty()) text += "All of them are read: no index narrows the condition to half of them.\n";
    if (result.wasGivenUp) {
        const std::vector<const engine::AccessPath*> instead = engine::Scans(path.instead.front());
        text +=
            "They are read in the order of an index, as it is asked for, until that has taken as long as "
            "reading and sorting all would: few fulfil the condition.\n";
        text += instead.empty() ? "Then all are read, and what is found is sorted.\n"
                                : "Then what other indexes leave is read, and what is found is sorted.\n";
        scans.insert(scans.end(), instead.begin(), instead.end());
    } else if (!query.order.empty()) {
        text += path.inOrder ? "They are read in the order of an index, as it is asked for: nothing is sorted.\n"
                             : "What is found is sorted.\n";
    }
    for (std::size_t i = 0; i < scans.size(); ++i) {
        const engine::IndexScan& scan = scans[i]->scan;
        const engine::Attribute& attribute = of.attributes[scan.attribute];
        const std::size_t entries = snapshot.EntryCount(query.classAt, scan.attribute);
        const std::size_t read = result.entries[i];
        text += "Index of " + attribute.name + (scan.backward ? " backwards, " : " ") +
                Bounds(attribute, snapshot.Of().Form(), scan.range);
        if (scan.last != nullptr) text += ", as far as " + scan.last->text + " can hold";
        text += ":\n  estimated share " + Percent(scans[i]->share) + ", true share ";
        if (result.endedEarly || (result.wasGivenUp && i == 0)) text += "at least ";
        text += Percent(entries == 0 ? 0 : static_cast<double>(read) / static_cast<double>(entries)) + " (" +
                std::to_string(read) + " of " + std::to_string(entries) + " entries)\n";
    }
    text += "Visited " + Count(result.visited, "object") + ", found " + std::to_string(result.found) + ".";
    if (result.endedEarly) text += " The limit ended the search.";
    return text + "\n";
}

}  // namespace kytm
