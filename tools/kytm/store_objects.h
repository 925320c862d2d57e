#ifndef KYTM_STORE_OBJECTS_H
#define KYTM_STORE_OBJECTS_H

/// Objects of a store as rows of texts.

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "attribute_texts.h"
#include "command_store.h"
#include "snapshot.h"

namespace kytm {

class RowWriter;

/// The place of a class. Throws `Failure`, with the nearest names, when there is none of this name.
std::size_t FindClass(const engine::Schema& schema, std::string_view name);

struct ObjectRowsOptions {
    RowForm form = RowForm::table;
    bool ids = false;  ///< the objects' identifiers in front
};

/// Writes objects: a table, CSV that a load takes, or a JSON array of objects. Nulls are empty in CSV and null in JSON;
/// in the table they have their text.
class ObjectRows {
public:
    /// `columns`: attributes of the class.
    ObjectRows(const engine::Store& store, std::size_t aClassAt, const std::vector<std::size_t>& columns,
               const ObjectRowsOptions& someOptions, Output& anOutput);
    ObjectRows(const ObjectRows&) = delete;
    ObjectRows& operator=(const ObjectRows&) = delete;
    ~ObjectRows();

    void Add(const engine::Object& object);
    /// After the last object.
    void Finish();

private:
    /// One attribute that is shown.
    struct Column {
        std::size_t attribute;
        AttributeTexts texts;
        Values values;

        Column(std::size_t anAttribute, const engine::Attribute& of)
            : attribute(anAttribute), texts(of), values(of.type, of.count) {}
    };

    const engine::RecordLayout& layout;
    std::size_t classAt;
    std::deque<Column> shown;
    bool withIds;
    std::unique_ptr<RowWriter> form;

    std::string IdOf(engine::ObjectNumber number) const;
};

}  // namespace kytm

#endif
