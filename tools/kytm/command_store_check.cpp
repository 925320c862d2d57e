#include "command_store.h"
#include "maintenance.h"

namespace kytm {

namespace {

engine::ProgressReport SayTo(Progress& progress, const char* stage) {
    return [&progress, stage](std::size_t done, std::size_t total) { progress.Say(stage, done, total); };
}

}  // namespace

ExitStatus CheckStoreFile(const std::string& path, Output& out) {
    Progress progress;
    const engine::Store store(path, engine::Access::read);
    const auto complain = [&progress](const std::string& fault) {
        progress.Wipe();
        Complain(fault);
    };
    const engine::CheckResult result = engine::CheckStore(store, complain, SayTo(progress, "checking"));
    progress.Wipe();
    out.Write(std::to_string(result.objects) + " objects, " + std::to_string(result.indexEntries) + " index entries, " +
              std::to_string(result.faults) + " faults\n");
    return result.faults == 0 ? kDone : kBadInput;
}

ExitStatus ReindexStore(const std::string& path, Output& out) {
    Progress progress;
    engine::Store store(path, engine::Access::reindex);
    const std::size_t made = engine::Reindex(store, SayTo(progress, "making indexes"));
    progress.Wipe();
    out.Write(std::to_string(made) + " index entries made\n");
    return kDone;
}

}  // namespace kytm
