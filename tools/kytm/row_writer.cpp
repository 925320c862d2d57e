#include "row_writer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "table.h"
#include "texts.h"

namespace kytm {

namespace {

using Attributes = std::vector<const engine::Attribute*>;

/// The column of the identifiers; no attribute has a name with a blank.
std::string IdColumn(const Attributes& attributes) {
    const bool isTaken = std::ranges::any_of(attributes, [](const auto* each) { return each->name == "id"; });
    return isTaken ? "object id" : "id";
}

std::vector<std::string> ColumnNames(const Attributes& attributes, bool withIds) {
    std::vector<std::string> names;
    if (withIds) names.push_back(IdColumn(attributes));
    for (const engine::Attribute* attribute : attributes)
        for (std::size_t i = 0; i < attribute->count; ++i) names.push_back(ElementName(*attribute, i));
    return names;
}

/// The places of the columns of numbers.
std::vector<std::size_t> NumberColumns(const Attributes& attributes, bool withIds) {
    std::vector<std::size_t> places;
    std::size_t at = withIds ? 1 : 0;
    for (const engine::Attribute* attribute : attributes)
        for (std::size_t i = 0; i < attribute->count; ++i, ++at)
            if (IsNumberType(attribute->type)) places.push_back(at);
    return places;
}

/// Written when its widths are known, at the end.
class TableRows final : public RowWriter {
public:
    TableRows(const Attributes& attributes, bool withIds, Output& anOutput)
        : out(anOutput), table(ColumnNames(attributes, withIds), NumberColumns(attributes, withIds)) {}

    void BeginRow() override { row.clear(); }
    void AddId(std::string id) override { row.push_back(std::move(id)); }
    void Add(const AttributeTexts& texts, void* value) override { row.push_back(OneLine(texts.PrintShort(value))); }
    void EndRow() override { table.Add(std::move(row)); }
    void Finish() override { table.Write(out); }

private:
    Output& out;
    Table table;
    std::vector<std::string> row;
};

class CsvRows final : public RowWriter {
public:
    CsvRows(const Attributes& attributes, bool withIds, Output& anOutput) : out(anOutput) {
        const std::vector<std::string> names = ColumnNames(attributes, withIds);
        isNarrow = names.size() == 1;
        for (const std::string& name : names) Append(name);
        EndRow();
    }

    void BeginRow() override { line.clear(); }
    void AddId(std::string id) override { Append(id); }
    void Add(const AttributeTexts& texts, void* value) override {
        // A line without anything would be no row.
        if (texts.IsNull(value) && !isNarrow) {
            line += ',';
        } else {
            Append(texts.Print(value));
        }
    }
    void EndRow() override {
        line.back() = '\n';
        out.Write(line);
    }
    void Finish() override {}

private:
    Output& out;
    bool isNarrow = false;
    std::string line;

    /// In quotes where they are needed, which they are around nothing: without them it is null.
    void Append(const std::string& text) {
        const bool plain = !text.empty() && text.find_first_of(",\"\r\n") == std::string::npos;
        if (plain) {
            line += text;
        } else {
            line += '"';
            for (const char c : text) line.append(c == '"' ? 2 : 1, c);
            line += '"';
        }
        line += ',';
    }
};

/// One object a line.
class JsonRows final : public RowWriter {
public:
    JsonRows(const Attributes& attributes, Output& anOutput) : out(anOutput), idName(IdColumn(attributes)) {}

    void BeginRow() override { row = nlohmann::ordered_json::object(); }
    void AddId(std::string id) override { row[idName] = std::move(id); }
    void Add(const AttributeTexts& texts, void* value) override {
        nlohmann::ordered_json& member = row[texts.Of().name];
        if (texts.Of().count == 1) {
            member = ToJson(texts, value);
            return;
        }
        // An attribute that is shown twice is one member.
        if (element == 0) member = nlohmann::ordered_json::array();
        member.push_back(ToJson(texts, value));
        element = (element + 1) % texts.Of().count;
    }
    void EndRow() override {
        out.Write((isFirst ? "[\n  " : ",\n  ") + row.dump());
        isFirst = false;
    }
    void Finish() override { out.Write(isFirst ? "[]\n" : "\n]\n"); }

private:
    Output& out;
    std::string idName;
    bool isFirst = true;
    unsigned element = 0;  ///< of the array that is being added
    nlohmann::ordered_json row;

    static nlohmann::ordered_json NumberToJson(const std::string& text) {
        if (text == "+0") return 0;
        if (text == "-0") return -0.0;
        // JSON has no infinity, and knows of no number that is none.
        if (!nlohmann::ordered_json::accept(text)) return text;
        return nlohmann::ordered_json::parse(text);
    }

    static nlohmann::ordered_json ToJson(const AttributeTexts& texts, void* value) {
        if (texts.IsNull(value)) return nullptr;
        const std::string text = texts.Print(value);
        if (texts.Of().type == KyBOOLEAN_T) return text == "TRUE";
        if (IsNumberType(texts.Of().type)) return NumberToJson(text);
        return Utf8(text);
    }
};

}  // namespace

std::unique_ptr<RowWriter> MakeRowWriter(RowForm form, const Attributes& attributes, bool withIds, Output& out) {
    switch (form) {
        case RowForm::csv:
            return std::make_unique<CsvRows>(attributes, withIds, out);
        case RowForm::json:
            return std::make_unique<JsonRows>(attributes, out);
        default:
            return std::make_unique<TableRows>(attributes, withIds, out);
    }
}

}  // namespace kytm
