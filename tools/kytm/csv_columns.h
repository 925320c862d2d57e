#ifndef KYTM_CSV_COLUMNS_H
#define KYTM_CSV_COLUMNS_H

/// The columns of a file for the objects of a class, told by its header line.

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "attribute_texts.h"
#include "csv_reader.h"
#include "schema.h"

namespace kytm {

/// Attributes by their names, elements of arrays as "samples[0]", in any order. Attributes that are not there are null
/// in all objects, or of the value of an empty text where their type has no null.
class CsvColumns {
public:
    /// Throws `Failure`, beginning with `place`, for names that are none of an attribute, that are there twice or not
    /// at all, and for arrays of which elements are missing.
    CsvColumns(const engine::Class& objectClass, const std::vector<CsvField>& header, const std::string& place);
    CsvColumns(const CsvColumns&) = delete;
    CsvColumns& operator=(const CsvColumns&) = delete;

    /// Reads the fields into `AttributeValues`. Empty, or what is wrong with which column. An empty field without
    /// quotes is the null of types that have one.
    std::string Scan(const std::vector<CsvField>& fields);

    /// In memory form, one address an attribute; those of the last row that `Scan` took.
    const std::vector<void*>& AttributeValues() const { return addresses; }

private:
    struct Column {
        std::size_t attribute;
        std::size_t element;
    };

    const engine::Class& objectClass;
    std::deque<AttributeTexts> texts;  ///< one an attribute
    std::deque<Values> values;
    std::vector<void*> addresses;
    std::vector<Column> columns;

    Column Find(const std::string& name, const std::string& place) const;
    void CheckComplete(const std::string& place) const;
};

}  // namespace kytm

#endif
