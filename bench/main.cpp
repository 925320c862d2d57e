#include <benchmark/benchmark.h>

#include <vector>

#include "ratio_reporter.h"

/// Repetitions of all benchmarks are shuffled among each other, so that what disturbs the machine for a while disturbs
/// ours and the peers alike. Options of the command line come later and win.
int main(int argc, char** argv) {
    char repetitions[] = "--benchmark_repetitions=9";
    char interleaved[] = "--benchmark_enable_random_interleaving=true";
    char shortest[] = "--benchmark_min_time=0.01";
    std::vector<char*> arguments = {argv[0], repetitions, interleaved, shortest};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
}
