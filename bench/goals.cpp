#include "goals.h"

#include <map>

namespace bench {
namespace {

std::map<std::string, Goal>& Goals() {
    static std::map<std::string, Goal> goals;
    return goals;
}

}  // namespace

void SetGoal(const std::string& namePrefix, Goal goal) { Goals().insert_or_assign(namePrefix, goal); }

void RegisterPair(const std::string& name, Goal goal, const Body& ours, const Body& peer, const Settings& settings) {
    SetGoal(name, goal);
    for (benchmark::internal::Benchmark* registered : {benchmark::RegisterBenchmark(name.c_str(), ours),
                                                       benchmark::RegisterBenchmark(("peer/" + name).c_str(), peer)})
        if (settings) settings(*registered);
}

std::optional<Goal> FindGoal(const std::string& name) {
    std::optional<Goal> found;
    for (const auto& [prefix, goal] : Goals()) {
        if (name.starts_with(prefix)) found = goal;  // in order of their text, a longer prefix follows a shorter one
    }
    return found;
}

}  // namespace bench
