#include "checksum.h"

#include "kyi18n.h"

namespace ky::tables {
namespace {

constexpr unsigned kClasses = 128;

class Hash {
public:
    explicit Hash(const PropertyTables& allTables) : tables(allTables) {}

    std::uint64_t Value() const { return value; }

    void AddByte(unsigned byte) { value = (value ^ byte) * 0x100000001B3u; }

    void Add16(std::size_t number) {
        AddByte(number & 0xFF);
        AddByte(number >> 8 & 0xFF);
    }

    void AddList(const Codes& codes) {
        Add16(codes.size());
        for (const unsigned short code : codes) Add16(code);
    }

    void AddRecord(const Record& record) {
        Add16(record.order);
        if (record.order == 0) return;
        Add16(record.upper);
        Add16(record.lower);
        AddByte(record.orderClass);
        AddRules(record.rules != None ? tables.rules.Values()[Index(record.rules)] : Rules{});
    }

private:
    static std::size_t Index(int number) { return static_cast<std::size_t>(number); }

    void AddRules(const Rules& rules) {
        AddList(rules.upperExpansion);
        AddList(rules.orderExpansion);
        Add16(rules.variants.size());
        for (const VariantEntry& entry : rules.variants) {
            AddByte(entry.variant);
            AddRecord(tables.furtherRecords.Values()[Index(entry.record)]);
        }
        Add16(rules.contractions.size());
        for (const ContractionEntry& entry : rules.contractions) {
            AddList(entry.rest);
            AddRecord(tables.furtherRecords.Values()[Index(entry.record)]);
        }
    }

    const PropertyTables& tables;
    std::uint64_t value = 0xCBF29CE484222325u;
};

}  // namespace

std::uint64_t Checksum(const PropertyTables& tables, const std::vector<CodeSetData>& sets,
                       const std::vector<LanguageData>& languages) {
    Hash hash(tables);
    const std::vector<Page>& pages = tables.pages.Values();
    for (std::size_t i = 0; i < sets.size(); ++i) {
        const Page& page = pages[static_cast<std::size_t>(tables.codeSetPages[i])];
        hash.AddByte(sets[i].number);
        for (std::size_t code = 1; code < 0x100; ++code) {
            hash.Add16(sets[i].toUnicode[code]);
            hash.AddRecord(page[code]);
        }
    }
    hash.AddByte(KyCodeSetUnicode);
    for (std::size_t code = 1; code < 0x10000; ++code) {
        const int page = tables.unicodePages[code >> 8];
        hash.Add16(code);
        hash.AddRecord(page != None ? pages[static_cast<std::size_t>(page)][code & 0xFF] : Record{});
    }
    for (const LanguageData& language : languages) {
        hash.AddByte(language.number);
        hash.AddByte(language.variant);
        for (unsigned orderClass = 0; orderClass < kClasses; ++orderClass) hash.AddByte(orderClass);
    }
    return hash.Value();
}

}  // namespace ky::tables
