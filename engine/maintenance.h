#ifndef ENGINE_MAINTENANCE_H
#define ENGINE_MAINTENANCE_H

/// Looking a whole store through, and making its indexes anew.

#include <functional>
#include <string>

#include "store.h"

namespace engine {

/// Called often with how much of the work is done, of how much: objects and index entries.
using ProgressReport = std::function<void(std::size_t done, std::size_t total)>;

struct CheckResult {
    std::size_t objects = 0;
    std::size_t indexEntries = 0;
    std::size_t faults = 0;
};

/// Reads everything: each record is whole and its check word holds, each object has its entry in each index of its
/// class and each entry its object, and each index is in order. `report` gets a sentence a fault.
CheckResult CheckStore(const Store& store, const std::function<void(const std::string&)>& report,
                       const ProgressReport& progress = {});

/// Empties the indexes, fills them from the objects, and takes over the present collation tables, all in one
/// transaction. The store is open for `Access::reindex`. Returns the entries made.
std::size_t Reindex(Store& store, const ProgressReport& progress = {});

}  // namespace engine

#endif
