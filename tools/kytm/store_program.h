#ifndef KYTM_STORE_PROGRAM_H
#define KYTM_STORE_PROGRAM_H

/// The call of "kytm store" and its commands.

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "command_store.h"

namespace kytm {

class StoreProgram {
public:
    /// Adds "store" to the program.
    void AddTo(CLI::App& app);

    bool IsCalled() const { return store->parsed(); }
    /// Neither is a command of it.
    bool LacksCommand() const { return IsCalled() && store->get_subcommands().empty(); }
    /// What is done; `unshield` is for each text that was given.
    ExitStatus Run(const std::function<void(std::string&)>& unshield, Output& out);

private:
    CLI::App* store = nullptr;
    CLI::App* createCommand = nullptr;
    CLI::App* loadCommand = nullptr;
    CLI::App* queryCommand = nullptr;
    CLI::App* explainCommand = nullptr;
    CLI::App* dumpCommand = nullptr;
    CLI::App* checkCommand = nullptr;
    CLI::App* reindexCommand = nullptr;
    StoreCreateOptions create;
    StoreLoadOptions load;
    StoreQueryOptions query;
    StoreDumpOptions dump;
    std::string batch;  ///< of load
    std::string path;   ///< of check and reindex
    bool csv = false;
    bool json = false;

    CLI::App* Add(const char* name, const char* about, std::string& storePath);
    void AddCreate();
    void AddLoad();
    void AddQueries();
};

}  // namespace kytm

#endif
