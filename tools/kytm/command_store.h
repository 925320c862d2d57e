#ifndef KYTM_COMMAND_STORE_H
#define KYTM_COMMAND_STORE_H

/// The commands of "kytm store": what each takes, and the call that does its work. Each writes to `out` and returns
/// `kDone` or `kBadInput`; what cannot be done throws `Failure` or the store's own errors.

#include <cstddef>
#include <string>

#include "terminal.h"

namespace kytm {

struct StoreCreateOptions {
    std::string store;
    std::string schema;  ///< a file; "-" is standard input
    std::string form;    ///< "native" or "reversed"
};
ExitStatus CreateStore(const StoreCreateOptions& options);

struct StoreLoadOptions {
    std::string store;
    std::string className;
    std::string file;    ///< "-": standard input
    std::string reject;  ///< file that gets the rows that do not scan; empty: the first of them ends the load
    std::size_t batch = 10000;
};
/// `kBadInput` when rows did not scan.
ExitStatus LoadStore(const StoreLoadOptions& options, Output& out);

enum class RowForm { table, csv, json };

struct StoreQueryOptions {
    std::string store;
    std::string query;
    RowForm form = RowForm::table;
    bool ids = false;
    bool explain = false;
};
ExitStatus QueryStore(const StoreQueryOptions& options, Output& out);
/// The explanation alone.
ExitStatus ExplainQuery(const StoreQueryOptions& options, Output& out);

struct StoreDumpOptions {
    std::string store;
    std::string className;  ///< empty: all
    bool schema = false;    ///< only the schema
};
ExitStatus DumpStore(const StoreDumpOptions& options, Output& out);

/// `kBadInput` when there are faults.
ExitStatus CheckStoreFile(const std::string& store, Output& out);
ExitStatus ReindexStore(const std::string& store, Output& out);

}  // namespace kytm

#endif
