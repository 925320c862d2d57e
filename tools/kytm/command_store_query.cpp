#include <map>
#include <optional>

#include "command_store.h"
#include "explanation.h"
#include "mistake.h"
#include "run.h"
#include "store_objects.h"
#include "type_lookup.h"

namespace kytm {

namespace {

/// The texts of the constants, by the attributes that they are compared with.
class ConstantScan {
public:
    std::string operator()(const engine::Attribute& attribute, std::string_view text, void* value) {
        auto known = texts.find(attribute.name);
        if (known == texts.end()) known = texts.try_emplace(attribute.name, attribute).first;
        const std::string fault = known->second.Scan(text, value);
        if (fault.empty()) return "";
        return "this does not scan as " + attribute.name + ", which is of the type " + TypeName(attribute.type) + ": " +
               fault;
    }

private:
    std::map<std::string, AttributeTexts> texts;
};

engine::PreparedQuery Prepare(const engine::Store& store, const std::string& text) {
    try {
        engine::Query query = engine::ParseQuery(store.GetSchema(), text);
        for (std::size_t i = 0; i < query.constants.size(); ++i)
            if (!query.constants[i]) throw engine::TextError("a constant is missing here", query.constantPositions[i]);
        ConstantScan scan;
        return {store, std::move(query), std::ref(scan)};
    } catch (const engine::TextError& error) {
        throw Mistake(error, text);
    }
}

}  // namespace

ExitStatus QueryStore(const StoreQueryOptions& options, Output& out) {
    const engine::Store store(options.store, engine::Access::read);
    const engine::PreparedQuery query = Prepare(store, options.query);
    const engine::Snapshot snapshot(store);
    const engine::AccessPath path = query.Plan(snapshot);
    ObjectRows rows(store, query.Of().classAt, query.Of().columns, {.form = options.form, .ids = options.ids}, out);
    const engine::RunResult result = query.Run(snapshot, path, [&rows](const engine::Object& object) {
        rows.Add(object);
        return true;
    });
    rows.Finish();
    if (!options.explain) return kDone;
    const std::string explanation = Explain(snapshot, query.Of(), path, result);
    if (options.form == RowForm::table) {
        out.Write("\n" + explanation);
    } else {
        out.Flush();
        WriteToErrors(explanation);
    }
    return kDone;
}

ExitStatus ExplainQuery(const StoreQueryOptions& options, Output& out) {
    const engine::Store store(options.store, engine::Access::read);
    const engine::PreparedQuery query = Prepare(store, options.query);
    const engine::Snapshot snapshot(store);
    const engine::AccessPath path = query.Plan(snapshot);
    const engine::RunResult result = query.Run(snapshot, path, [](const engine::Object&) { return true; });
    out.Write(Explain(snapshot, query.Of(), path, result));
    return kDone;
}

}  // namespace kytm
