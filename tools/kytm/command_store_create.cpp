#include "attribute_texts.h"
#include "command_store.h"
#include "input_file.h"
#include "lines.h"
#include "mistake.h"
#include "store.h"

namespace kytm {

namespace {

engine::Schema ReadSchema(const std::string& path) {
    Progress progress;
    const std::string text = ReadAll(path, progress);
    try {
        return engine::Schema::Parse(text);
    } catch (const engine::TextError& error) {
        throw Mistake(error, text, IsStandardInput(path) ? "standard input" : path);
    }
}

/// Types and languages that nobody could use later are refused now.
void CheckAttributes(const engine::Schema& schema) {
    for (const engine::Class& each : schema.Classes()) {
        for (const engine::Attribute& attribute : each.attributes) {
            try {
                const AttributeTexts texts(attribute);
            } catch (const Failure& problem) {
                throw Failure(each.name + "." + attribute.name + ": " + problem.what());
            }
        }
    }
}

}  // namespace

ExitStatus CreateStore(const StoreCreateOptions& options) {
    const engine::Schema schema = ReadSchema(options.schema);
    CheckAttributes(schema);
    engine::Store::Create(options.store, schema, options.form == "reversed" ? KyFormReversed : KyFormNative);
    return kDone;
}

}  // namespace kytm
