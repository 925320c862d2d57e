#include "table_writer.h"

#include "kyi18n.h"
#include "property_writer.h"
#include "source_file.h"

namespace ky::tables {
namespace {

constexpr const char* kTablesHeader = "#include \"generated_tables.h\"\n";

/// Writes the array that finds an object by its number.
void WriteIndex(SourceFile& file, const std::string& name, const std::vector<unsigned char>& numbers) {
    std::array<std::size_t, 256> index;
    index.fill(255);
    for (std::size_t i = 0; i < numbers.size(); ++i) index[numbers[i]] = i;
    file.BeginArray("unsigned char " + name + "[256]");
    for (const std::size_t entry : index) file.Item(Decimal(entry));
    file.EndArray();
}

/// Writes what a set needs that has a mapping of its own: the Unicode code of each byte and, by pages of 256, the
/// byte of each Unicode code.
void WriteMapping(SourceFile& file, const CodeSetData& set) {
    const std::string number = Decimal(set.number);
    file.BeginArray("unsigned short toUnicode" + number + "[256]");
    for (const unsigned short code : set.toUnicode) file.Item(Hex(code));
    file.EndArray();

    std::array<std::size_t, 256> pageOf{};
    std::vector<std::array<std::size_t, 256>> pages(1);
    for (std::size_t byte = 1; byte < 256; ++byte) {
        const unsigned short code = set.toUnicode[byte];
        if (code == 0) continue;
        std::size_t& page = pageOf[code >> 8];
        if (page == 0) {
            page = pages.size();
            pages.emplace_back();
        }
        pages[page][code & 0xFF] = byte;
    }
    file.BeginArray("unsigned char fromUnicodePages" + number + "[" + Decimal(pages.size()) + "][256]");
    for (const auto& page : pages) {
        std::string text = "{";
        for (const std::size_t byte : page) text += Decimal(byte) + ",";
        file.Item(text + "}");
    }
    file.EndArray();
    file.BeginArray("unsigned char fromUnicodePageOf" + number + "[256]");
    for (const std::size_t page : pageOf) file.Item(Decimal(page));
    file.EndArray();
    file.Line("constinit const KyUnicodeMap fromUnicode" + number + "{fromUnicodePageOf" + number +
              ", fromUnicodePages" + number + "};\n");
}

std::string CodeSetText(const CodeSetData& set, std::size_t index) {
    const std::string number = Decimal(set.number);
    const bool latin1 = set.number == KyCodeSetLatin1;
    return "KyCodeSet(" + number + ", KyCodeSet::" + (latin1 ? "identity" : "byTable") + ", codeSetPages + " +
           Decimal(index) +
           (latin1 ? ", nullptr, nullptr, " : ", toUnicode" + number + ", &fromUnicode" + number + ", ") +
           Quoted(set.name) + ")";
}

void WritePageTables(SourceFile& file, const PropertyTables& tables) {
    file.BeginArray("KyPropertyPage* const codeSetPages[" + Decimal(tables.codeSetPages.size()) + "]");
    for (const int page : tables.codeSetPages) file.Item(PageAddress(page));
    file.EndArray();
    file.BeginArray("KyPropertyPage* const unicodePages[256]");
    for (const int page : tables.unicodePages) file.Item(PageAddress(page));
    file.EndArray();
}

}  // namespace

void WriteCodeSets(const std::filesystem::path& folder, const PropertyTables& tables,
                   const std::vector<CodeSetData>& sets) {
    SourceFile file(folder / "code_set_tables.cpp", std::string(kTablesHeader) + "#include \"table_parts.h\"\n");
    file.Line("namespace {\n");
    WritePageTables(file, tables);
    for (const CodeSetData& set : sets) {
        if (set.number != KyCodeSetLatin1) WriteMapping(file, set);
    }
    file.Line("}  // namespace\n");

    std::vector<unsigned char> numbers;
    file.BeginArray("KyCodeSet codeSets[]");
    for (std::size_t i = 0; i < sets.size(); ++i) {
        file.Item(CodeSetText(sets[i], i));
        numbers.push_back(sets[i].number);
    }
    file.Item("KyCodeSet(KyCodeSetUnicode, KyCodeSet::identity, unicodePages, nullptr, nullptr, \"ISO-10646-UCS-2\")");
    file.Item("KyCodeSet(KyCodeSetOrders, KyCodeSet::orders, nullptr, nullptr, nullptr, \"order values\")");
    file.EndArray();
    numbers.push_back(KyCodeSetUnicode);
    numbers.push_back(KyCodeSetOrders);
    WriteIndex(file, "codeSetIndex", numbers);
    file.Finish();
}

void WriteLanguages(const std::filesystem::path& folder, const std::vector<LanguageData>& languages) {
    SourceFile file(folder / "language_tables.cpp", kTablesHeader);
    std::vector<unsigned char> numbers;
    file.BeginArray("KyLanguage languages[]");
    for (const LanguageData& language : languages) {
        file.Item("KyLanguage(" + Decimal(language.number) + ", " + Decimal(language.variant) + ", nullptr, " +
                  Quoted(language.tag) + ", " + Quoted(language.name) + ")");
        numbers.push_back(language.number);
    }
    file.EndArray();
    WriteIndex(file, "languageIndex", numbers);
    file.Finish();
}

void WriteChecksum(const std::filesystem::path& folder, std::uint64_t checksum) {
    SourceFile file(folder / "table_checksum.cpp", "#include \"kyi18n.h\"\n");
    file.Line("static_assert(KyTableChecksum == " + Hex(checksum) + ",\n              " +
              Quoted("The data of the tables has changed: every index built with them has another order. If that is "
                     "wanted, raise KyTableVersion and set KyTableChecksum to " +
                     Hex(checksum) + ", in kyi18n.h and in the test that pins both.") +
              ");");
    file.Finish();
}

}  // namespace ky::tables
