#ifndef ENGINE_RUN_H
#define ENGINE_RUN_H

/// Running queries.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "plan.h"
#include "query.h"
#include "snapshot.h"

namespace engine {

/// Reads a text into a value of the attribute's type, in memory form. Returns why it cannot, or an empty text.
using ScanValue = std::function<std::string(const Attribute& attribute, std::string_view text, void* value)>;

struct RunResult {
    std::size_t visited = 0;  ///< objects, or index entries whose objects were, that the condition was tested on
    std::size_t found = 0;    ///< of them those that fulfil it, whatever the limit
    /// Entries read of each scanned index, in the order of `Scans`; those of a path that was taken instead at the end.
    std::vector<std::size_t> entries;
    /// A scan in the order that is asked for was given up, and another path taken instead.
    bool wasGivenUp = false;
    /// The limit, or a false answer, ended the run before all candidates were read.
    bool endedEarly = false;
};

/// A query with its constants. Refers to the store.
class PreparedQuery {
public:
    /// Throws `TextError` for a constant that does not scan or is too long, with its place in the query.
    PreparedQuery(const Store& aStore, Query aQuery, const ScanValue& scan);

    const Query& Of() const { return query; }
    /// Sets a constant, counted in the order of the query, from a value in memory form. Throws `StoreError` for a
    /// dictionary string that is too long for a constant.
    void Bind(std::size_t constant, void* value);

    /// For the constants that are set now. Refers to the query.
    AccessPath Plan(const Snapshot& snapshot) const { return MakePlan(snapshot, query, constants); }

    /// Calls `take` with each object, in the order asked for, up to the limit. A false answer ends the run.
    RunResult Run(const Snapshot& snapshot, const AccessPath& path,
                  const std::function<bool(const Object&)>& take) const;

private:
    const Store* store;
    Query query;
    std::vector<StoredConstant> constants;
    std::vector<std::size_t> constantAttributes;

    void NoteAttributes(const Condition& condition);
};

}  // namespace engine

#endif
