#include "property_writer.h"

#include <algorithm>

#include "source_file.h"

namespace ky::tables {
namespace {

/// An array of the sources: its declaration and the text of its items.
struct ArrayText {
    std::string type;
    std::string name;
    std::vector<std::string> items{};

    std::string Declaration() const { return type + " " + name + "[" + Decimal(items.size()) + "]"; }

    void Write(SourceFile& file) const {
        if (items.empty()) return;
        file.BeginArray(Declaration());
        for (const std::string& item : items) file.Item(item);
        file.EndArray();
    }
};

std::string Element(std::string_view array, int number) { return ElementOf(array, static_cast<std::size_t>(number)); }

std::string Text(const Record& record) {
    if (record.order == 0) return "{}";
    const std::string rules = record.rules != None ? Element("rules", record.rules) : "nullptr";
    return Braces({Hex(record.order), Hex(record.upper), Hex(record.lower), Decimal(record.orderClass), rules});
}

/// The arrays behind the rules of all records. Each list in a rule is a part of one of them.
class RuleArrays {
public:
    explicit RuleArrays(const PropertyTables& tables) {
        for (const Rules& entry : tables.rules.Values()) rules.items.push_back(Text(entry));
        for (const Record& record : tables.furtherRecords.Values()) records.items.push_back(tables::Text(record));
    }

    std::vector<const ArrayText*> All() const { return {&codes, &variants, &contractions, &records, &rules}; }

private:
    std::string List(const Codes& list) {
        if (list.empty()) return "{}";
        const auto [at, isNew] = knownLists.try_emplace(list, codes.items.size());
        if (isNew) {
            for (const unsigned short code : list) codes.items.push_back(Hex(code));
        }
        return Braces({Decimal(list.size()), ElementOf(codes.name, at->second)});
    }

    /// The next items of an array.
    static std::string Part(const ArrayText& array, std::size_t length) {
        if (length == 0) return "{}";
        return Braces({ElementOf(array.name, array.items.size()), Decimal(length)});
    }

    std::string Text(const std::vector<VariantEntry>& entries) {
        std::string part = Part(variants, entries.size());
        for (const VariantEntry& entry : entries) {
            variants.items.push_back(Braces({Decimal(entry.variant), Element(records.name, entry.record)}));
        }
        return part;
    }

    std::string Text(const std::vector<ContractionEntry>& entries) {
        std::string part = Part(contractions, entries.size());
        for (const ContractionEntry& entry : entries) {
            contractions.items.push_back(Braces({List(entry.rest), Element(records.name, entry.record)}));
        }
        return part;
    }

    std::string Text(const Rules& entry) {
        return Braces(
            {List(entry.upperExpansion), List(entry.orderExpansion), Text(entry.variants), Text(entry.contractions)});
    }

    ArrayText codes{"unsigned short", "codes"};
    ArrayText variants{"KyLanguageVariant", "variants"};
    ArrayText contractions{"KyContraction", "contractions"};
    ArrayText records{"KyCharProps", "furtherRecords"};
    ArrayText rules{"KyCharRules", "rules"};
    std::map<Codes, std::size_t> knownLists;
};

ArrayText PageArray(const PropertyTables& tables) {
    ArrayText array{"KyPropertyPage", "propertyPages"};
    for (const Page& page : tables.pages.Values()) {
        std::string text = "{{";
        for (std::size_t code = 0; code < page.size(); ++code) {
            text += Text(page[code]) + (code % 4 == 3 ? ",\n" : ",");
        }
        array.items.push_back(text + "}}");
    }
    return array;
}

void Declare(SourceFile& file, const ArrayText& array) {
    if (!array.items.empty()) file.Line("extern const " + array.Declaration() + ";");
}

}  // namespace

std::string PageAddress(int page) { return page != None ? Element("propertyPages", page) : "nullptr"; }

void WriteProperties(const std::filesystem::path& folder, const PropertyTables& tables) {
    const std::string parts = "#include \"table_parts.h\"\n";
    SourceFile header(folder / "table_parts.h",
                      "#ifndef TABLE_PARTS_H\n#define TABLE_PARTS_H\n\n#include \"kyi18n.h\"\n");
    SourceFile rules(folder / "rules.cpp", parts);
    const RuleArrays arrays(tables);
    for (const ArrayText* array : arrays.All()) {
        Declare(header, *array);
        array->Write(rules);
    }
    rules.Finish();

    SourceFile file(folder / "property_pages.cpp", parts);
    const ArrayText pages = PageArray(tables);
    Declare(header, pages);
    pages.Write(file);
    file.Finish();
    header.Finish("\n#endif\n");
}

}  // namespace ky::tables
