#include "store_program.h"

#include <charconv>

#include "texts.h"

namespace kytm {

namespace {

constexpr char kAbout[] = "Keep objects in a store: create, load, query, explain, dump, check, reindex";

constexpr char kSchemaForm[] =
    "A schema is a text like\n"
    "  class Word {              # a comment\n"
    "    text    KyString        language 2 codeset 1 index nocase noaccent\n"
    "    length  o_2b            index\n"
    "    samples o_4b[3]\n"
    "  }\n"
    "An attribute is a name, a type (see kytm types) and for arrays the number of elements; \"index\" asks for an "
    "index,\n"
    "of strings also one that ignores case or accents; \"language\" and \"codeset\" are numbers (see kytm languages "
    "and\n"
    "kytm codesets).";

constexpr char kLoadForm[] =
    "The first line names the attributes of the columns, in any order, elements of arrays as \"samples[0]\". "
    "Attributes\n"
    "without a column are null, as are empty fields without quotes where the type has a null. Strings are in UTF-8;\n"
    "truth values TRUE, T, 1, FALSE, F, 0; dates like 2024-05-31, times 23:59:59, both joined by a \"T\", spans\n"
    "12.03:59:59; blobs are hexadecimal digits or \"@\" and the name of a file.\n"
    "Exit status: 0 all loaded; 1 some row did not scan; 2 the work could not be done. What was committed stays.";

constexpr char kQueryForm[] =
    "A query is a class, in front of it the columns, behind it what is asked for:\n"
    "  name, code from Character where name = \"LATIN*\" and code < 1000 order by name desc, code limit 10\n"
    "Comparisons are = <> < <= > >= with a number or a text in double quotes, joined by \"and\", \"or\" and brackets.\n"
    "Behind one, \"nocase\" and \"noaccent\" ignore what they say, and \"exact\" takes wildcards for themselves: \"*\" "
    "and\n"
    "\"?\" in strings, \"*\" for a part of a date.";

std::size_t BatchSize(const std::string& text) {
    constexpr std::size_t most = 100'000'000;
    std::size_t size = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, size);
    if (error != std::errc() || end != textEnd || size == 0 || size > most)
        throw Failure("--batch: " + Quoted(text) + " is no number from 1 to " + std::to_string(most));
    return size;
}

}  // namespace

void StoreProgram::AddTo(CLI::App& app) {
    store = app.add_subcommand("store", kAbout);
    store->require_subcommand(1);
    store->footer(
        "Exit status: 0 done; 1 rows that do not scan, or faults in the store; 2 the work could not be done.");
    AddCreate();
    AddLoad();
    AddQueries();
    dumpCommand = Add("dump", "Write objects as CSV that load takes", dump.store);
    dumpCommand->add_option("CLASS", dump.className, "Of this class; else of all, each behind a line with its name");
    dumpCommand->add_flag("--schema", dump.schema, "Only the schema");
    checkCommand = Add("check", "Look a store through: records and their hashes, index entries and their order", path);
    checkCommand->footer("Exit status: 0 all is well; 1 there are faults; 2 the store cannot be read.");
    reindexCommand = Add("reindex", "Make the indexes anew, by the present collation tables", path);
}

CLI::App* StoreProgram::Add(const char* name, const char* about, std::string& storePath) {
    CLI::App* const command = store->add_subcommand(name, about);
    command->add_option("DB", storePath, "File of the store")->required();
    return command;
}

void StoreProgram::AddCreate() {
    create.form = "native";
    createCommand = Add("create", "Make a store without objects", create.store);
    createCommand->add_option("--schema", create.schema, "File with the classes; - is standard input")
        ->type_name("FILE")
        ->required();
    createCommand->add_option("--form", create.form, "Byte order of the stored values: native or reversed")
        ->type_name("FORM");
    createCommand->footer(kSchemaForm);
}

void StoreProgram::AddLoad() {
    loadCommand = Add("load", "Add the rows of a CSV file to a store", load.store);
    loadCommand->add_option("CLASS", load.className, "Class of the objects")->required();
    loadCommand->add_option("CSV", load.file, "File of the rows; - is standard input")->required();
    loadCommand->add_option("--reject", load.reject, "Write rows that do not scan to this file and go on")
        ->type_name("FILE");
    loadCommand->add_option("--batch", batch, "Objects that are committed together (10000)")->type_name("N");
    loadCommand->footer(kLoadForm);
}

void StoreProgram::AddQueries() {
    queryCommand = Add("query", "Show the objects that fulfil a condition", query.store);
    queryCommand->add_option("TEXT", query.query, "The query")->required();
    queryCommand->add_flag("--explain", query.explain,
                           "How they were found, behind them; with --csv and --json on standard error");
    CLI::Option* const asCsv = queryCommand->add_flag("--csv", csv, "As CSV");
    queryCommand->add_flag("--json", json, "As a JSON array")->excludes(asCsv);
    queryCommand->add_flag("--ids", query.ids, "With the objects' identifiers");
    queryCommand->footer(kQueryForm);

    explainCommand = Add("explain", "Run a query and tell how it finds its objects", query.store);
    explainCommand->add_option("TEXT", query.query, "The query")->required();
    explainCommand->footer(kQueryForm);
}

ExitStatus StoreProgram::Run(const std::function<void(std::string&)>& unshield, Output& out) {
    for (std::string* text : {&create.store, &create.schema, &create.form, &load.store, &load.className, &load.file,
                              &load.reject, &batch, &query.store, &query.query, &dump.store, &dump.className, &path})
        unshield(*text);
    if (createCommand->parsed()) {
        if (create.form != "native" && create.form != "reversed")
            throw Failure("there is no form " + Quoted(create.form) + ": native or reversed");
        return CreateStore(create);
    }
    if (loadCommand->parsed()) {
        if (!batch.empty()) load.batch = BatchSize(batch);
        return LoadStore(load, out);
    }
    if (queryCommand->parsed()) {
        query.form = csv ? RowForm::csv : json ? RowForm::json : RowForm::table;
        return QueryStore(query, out);
    }
    if (explainCommand->parsed()) return ExplainQuery(query, out);
    if (dumpCommand->parsed()) return DumpStore(dump, out);
    if (checkCommand->parsed()) return CheckStoreFile(path, out);
    return ReindexStore(path, out);
}

}  // namespace kytm
