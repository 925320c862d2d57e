#ifndef GOALS_H
#define GOALS_H

/// What the ratio table at the end of a run compares. A benchmark `store/o_4b/reversed/1k` is set against
/// `peer/store/o_4b/reversed/1k` of the same run; the goal is that of the longest prefix of its name.

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>
#include <string>

namespace bench {

struct Goal {
    enum class Measure {
        shareOfPeerSpeed,  ///< the peer's time over ours has to be at least `limit`
        nanosecondsMore,   ///< our time less the peer's has to be at most `limit`
        nanoseconds,       ///< our time has to be at most `limit`
    };
    Measure measure;
    double limit;
};

constexpr Goal AtLeast(double shareOfPeerSpeed) { return {Goal::Measure::shareOfPeerSpeed, shareOfPeerSpeed}; }
constexpr Goal AtMostMore(double nanoseconds) { return {Goal::Measure::nanosecondsMore, nanoseconds}; }
constexpr Goal AtMost(double nanoseconds) { return {Goal::Measure::nanoseconds, nanoseconds}; }

/// Gives a goal to all benchmarks whose name begins like this.
void SetGoal(const std::string& namePrefix, Goal goal);

/// Registers a benchmark, its peer and its goal. `settings` are done to both; `UseRealTime` is heeded by the table.
using Body = std::function<void(benchmark::State&)>;
using Settings = std::function<void(benchmark::internal::Benchmark&)>;
void RegisterPair(const std::string& name, Goal goal, const Body& ours, const Body& peer,
                  const Settings& settings = {});

/// A second table at the end of a run tells the counters whose names begin like this.
inline constexpr const char* kShownCounters = "mean error";

/// At file scope: `const bench::AtStart here([] { ... register ... });`
struct AtStart {
    explicit AtStart(void (*registerBenchmarks)()) { registerBenchmarks(); }
};

/// Empty when no prefix of `name` has a goal.
std::optional<Goal> FindGoal(const std::string& name);

}  // namespace bench

#endif
