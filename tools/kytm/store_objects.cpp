#include "store_objects.h"

#include "nearest_names.h"
#include "object_id.h"
#include "row_writer.h"
#include "texts.h"
#include "type_lookup.h"

namespace kytm {

namespace {

std::vector<const engine::Attribute*> AttributesOf(const engine::Class& objectClass,
                                                   const std::vector<std::size_t>& columns) {
    std::vector<const engine::Attribute*> attributes;
    attributes.reserve(columns.size());
    for (const std::size_t column : columns) attributes.push_back(&objectClass.attributes[column]);
    return attributes;
}

}  // namespace

std::size_t FindClass(const engine::Schema& schema, std::string_view name) {
    if (const auto found = schema.Find(name)) return *found;
    std::vector<std::string> known;
    for (const engine::Class& each : schema.Classes()) known.push_back(each.name);
    throw Failure("there is no class " + Quoted(name) + "; nearest: " + NearestNames(name, known));
}

ObjectRows::ObjectRows(const engine::Store& store, std::size_t aClassAt, const std::vector<std::size_t>& columns,
                       const ObjectRowsOptions& options, Output& output)
    : layout(store.Layout(aClassAt)),
      classAt(aClassAt),
      withIds(options.ids),
      form(MakeRowWriter(options.form, AttributesOf(layout.Of(), columns), options.ids, output)) {
    for (const std::size_t column : columns) shown.emplace_back(column, layout.Of().attributes[column]);
}

ObjectRows::~ObjectRows() = default;

void ObjectRows::Add(const engine::Object& object) {
    form->BeginRow();
    if (withIds) form->AddId(IdOf(object.number));
    for (Column& column : shown) {
        const engine::Attribute& attribute = column.texts.Of();
        const engine::Bytes stored = layout.At(object.record, column.attribute);
        Manager().Load(attribute.type, column.values[0], const_cast<unsigned char*>(stored.data()), layout.Form(),
                       attribute.count);
        for (std::size_t i = 0; i < attribute.count; ++i) form->Add(column.texts, column.values[i]);
    }
    form->EndRow();
}

void ObjectRows::Finish() { form->Finish(); }

std::string ObjectRows::IdOf(engine::ObjectNumber number) const {
    KyObjId id = engine::ObjectId(classAt, number);
    return PrintValue(KyOBJID_T, &id, nullptr, TextForm::PlainBytes());
}

}  // namespace kytm
