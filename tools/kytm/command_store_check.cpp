#include "command_store.h"
#include "maintenance.h"

namespace kytm {

ExitStatus CheckStoreFile(const std::string& path, Output& out) {
    const engine::Store store(path, engine::Access::read);
    const engine::CheckResult result = engine::CheckStore(store, [](const std::string& fault) { Complain(fault); });
    out.Write(std::to_string(result.objects) + " objects, " + std::to_string(result.indexEntries) + " index entries, " +
              std::to_string(result.faults) + " faults\n");
    return result.faults == 0 ? kDone : kBadInput;
}

ExitStatus ReindexStore(const std::string& path, Output& out) {
    engine::Store store(path, engine::Access::reindex);
    out.Write(std::to_string(engine::Reindex(store)) + " index entries made\n");
    return kDone;
}

}  // namespace kytm
