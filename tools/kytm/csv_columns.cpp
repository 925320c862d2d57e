#include "csv_columns.h"

#include <algorithm>

#include "nearest_names.h"
#include "terminal.h"
#include "texts.h"
#include "type_lookup.h"

namespace kytm {

CsvColumns::CsvColumns(const engine::Class& aClass, const std::vector<CsvField>& header, const std::string& place)
    : objectClass(aClass) {
    for (const CsvField& field : header) {
        const Column column = Find(field.text, place);
        const auto same = [&column](const Column& other) {
            return other.attribute == column.attribute && other.element == column.element;
        };
        if (std::ranges::any_of(columns, same))
            throw Failure(place + ": the column " + Quoted(field.text) + " is there twice");
        columns.push_back(column);
    }
    CheckComplete(place);
    for (const engine::Attribute& attribute : objectClass.attributes) {
        const AttributeTexts& own = texts.emplace_back(attribute);
        const Values& of = values.emplace_back(attribute.type, attribute.count);
        for (std::size_t i = 0; i < attribute.count; ++i) own.Clear(of[i]);
        addresses.push_back(of[0]);
    }
}

CsvColumns::Column CsvColumns::Find(const std::string& name, const std::string& place) const {
    if (name.empty()) throw Failure(place + ": a column has no name");
    for (std::size_t i = 0; i < objectClass.attributes.size(); ++i) {
        const engine::Attribute& attribute = objectClass.attributes[i];
        if (!name.starts_with(attribute.name)) continue;
        for (std::size_t element = 0; element < attribute.count; ++element)
            if (name == ElementName(attribute, element)) return {.attribute = i, .element = element};
        if (name == attribute.name)
            throw Failure(place + ": " + Quoted(name) + " is an array: its columns are " + ElementName(attribute, 0) +
                          " to " + ElementName(attribute, attribute.count - 1));
    }
    std::vector<std::string> known;
    for (const engine::Attribute& attribute : objectClass.attributes) known.push_back(ElementName(attribute, 0));
    throw Failure(place + ": " + objectClass.name + " has no attribute " + Quoted(name) +
                  "; nearest: " + NearestNames(name, known));
}

void CsvColumns::CheckComplete(const std::string& place) const {
    std::vector<std::size_t> found(objectClass.attributes.size());
    for (const Column& column : columns) ++found[column.attribute];
    for (std::size_t i = 0; i < found.size(); ++i) {
        const engine::Attribute& attribute = objectClass.attributes[i];
        if (found[i] == 0 || found[i] == attribute.count) continue;
        for (std::size_t element = 0; element < attribute.count; ++element) {
            const auto isIt = [&](const Column& column) { return column.attribute == i && column.element == element; };
            if (std::ranges::none_of(columns, isIt))
                throw Failure(place + ": the column " + Quoted(ElementName(attribute, element)) + " is missing");
        }
    }
}

std::string CsvColumns::Scan(const std::vector<CsvField>& fields) {
    if (fields.size() != columns.size())
        return "it has " + std::to_string(fields.size()) + " fields, the header line has " +
               std::to_string(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        AttributeTexts& of = texts[columns[i].attribute];
        void* const value = values[columns[i].attribute][columns[i].element];
        if (fields[i].isEmpty && of.HasNull()) {
            of.Clear(value);
            continue;
        }
        const std::string fault = of.Scan(fields[i].text, value);
        if (!fault.empty())
            return "column " + ElementName(of.Of(), columns[i].element) + ": " + Quoted(fields[i].text) +
                   " does not scan as " + TypeName(of.Of().type) + ": " + fault;
    }
    return "";
}

}  // namespace kytm
