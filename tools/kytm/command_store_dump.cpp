#include <numeric>

#include "command_store.h"
#include "store_objects.h"

namespace kytm {

namespace {

void DumpClass(const engine::Store& store, const engine::Snapshot& snapshot, std::size_t classAt, Output& out) {
    std::vector<std::size_t> columns(store.GetSchema().Classes()[classAt].attributes.size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    ObjectRows rows(store, classAt, columns, {.form = RowForm::csv}, out);
    engine::ObjectCursor cursor(snapshot, classAt);
    for (auto object = cursor.Next(); object; object = cursor.Next()) rows.Add(*object);
    rows.Finish();
}

}  // namespace

ExitStatus DumpStore(const StoreDumpOptions& options, Output& out) {
    const engine::Store store(options.store, engine::Access::read);
    const engine::Schema& schema = store.GetSchema();
    if (options.schema) {
        out.Write(schema.Text());
        return kDone;
    }
    const engine::Snapshot snapshot(store);
    if (!options.className.empty()) {
        DumpClass(store, snapshot, FindClass(schema, options.className), out);
        return kDone;
    }
    for (std::size_t i = 0; i < schema.Classes().size(); ++i) {
        if (schema.Classes().size() > 1) out.Write((i == 0 ? "# " : "\n# ") + schema.Classes()[i].name + "\n");
        DumpClass(store, snapshot, i, out);
    }
    return kDone;
}

}  // namespace kytm
