#ifndef RATIO_REPORTER_H
#define RATIO_REPORTER_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

/// Gathers the repetitions of every benchmark and prints, at the end, one line for each that has a peer: the medians
/// of both, the spread of the repetitions, how they compare, the goal and whether it is met. Those of one family (the
/// name without its last part) stand together, from the fastest to the slowest. A second table tells the counters that
/// are to be shown.
class RatioReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    /// CPU time (or real time, where that is asked for) of one iteration, in nanoseconds, of each repetition.
    std::map<std::string, std::vector<double>> times;
    std::map<std::string, std::map<std::string, double>> counters;  ///< of each benchmark, by their names

    void PrintCounters();
};

}  // namespace bench

#endif
