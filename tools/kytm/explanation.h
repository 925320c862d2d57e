#ifndef KYTM_EXPLANATION_H
#define KYTM_EXPLANATION_H

/// How a query found its objects, as text.

#include <string>

#include "plan.h"
#include "run.h"

namespace kytm {

/// Lines on the indexes that were scanned: their bounds, the share of their entries that was estimated and the true
/// one; then how many objects were visited and found.
std::string Explain(const engine::Snapshot& snapshot, const engine::Query& query, const engine::AccessPath& path,
                    const engine::RunResult& result);

}  // namespace kytm

#endif
