#include "ratio_reporter.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <utility>

#include "goals.h"

namespace bench {
namespace {

const std::string peerPrefix = "peer/";

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Half of the repetitions lie within this part of the median.
double Spread(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t quarter = values.size() / 4;
    return (values[values.size() - 1 - quarter] - values[quarter]) / Median(values);
}

std::string Fixed(double value, int digits) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

struct Line {
    std::string name, ours, peer, spread, compared, goal, verdict;
};

Line Compare(const std::string& name, const std::vector<double>& ours, const std::vector<double>& peer) {
    const double ourTime = Median(ours);
    const double peerTime = Median(peer);
    Line line{name,
              Fixed(ourTime, 1),
              Fixed(peerTime, 1),
              Fixed(100 * std::max(Spread(ours), Spread(peer)), 0) + " %",
              Fixed(peerTime / ourTime, 2) + " x",
              "",
              ""};
    const std::optional<Goal> goal = FindGoal(name);
    if (!goal) return line;
    bool met = false;
    if (goal->measure == Goal::Measure::shareOfPeerSpeed) {
        line.goal = ">= " + Fixed(goal->limit, 2) + " x";
        met = peerTime / ourTime >= goal->limit;
    } else if (goal->measure == Goal::Measure::nanoseconds) {
        line.goal = "<= " + Fixed(goal->limit, 0) + " ns";
        met = ourTime <= goal->limit;
    } else {
        line.compared = Fixed(ourTime - peerTime, 2) + " ns";
        line.goal = "<= " + Fixed(goal->limit, 2) + " ns";
        met = ourTime - peerTime <= goal->limit;
    }
    line.verdict = met ? "met" : "MISSED";
    return line;
}

Line Alone(const std::string& name, const std::vector<double>& ours) {
    return {name, Fixed(Median(ours), 1), "", Fixed(100 * Spread(ours), 0) + " %", "", "", ""};
}

/// A name without its last part, the shape.
std::string Family(const std::string& name) { return name.substr(0, name.rfind('/')); }

void Print(std::ostream& out, std::size_t nameWidth, const Line& line) {
    out << std::left << std::setw(static_cast<int>(nameWidth)) << line.name << std::right << std::setw(13) << line.ours
        << std::setw(13) << line.peer << std::setw(8) << line.spread << std::setw(12) << line.compared << std::setw(12)
        << line.goal << "  " << line.verdict << '\n';
}

}  // namespace

bool RatioReporter::ReportContext(const Context& context) {
    PrintBasicContext(&GetErrorStream(), context);
    return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.iterations == 0) continue;
        // How long and by which clock it was measured is no part of the name.
        benchmark::BenchmarkName named = run.run_name;
        named.iterations.clear();
        named.repetitions.clear();
        named.time_type.clear();
        const std::string name = named.str();
        if (run.error_occurred) {
            GetErrorStream() << name << ": " << run.error_message << '\n';
            continue;
        }
        const double time = run.run_name.time_type.empty() ? run.cpu_accumulated_time : run.real_accumulated_time;
        times[name].push_back(1e9 * time / static_cast<double>(run.iterations));
        for (const auto& [counter, value] : run.counters) {
            if (counter.starts_with(kShownCounters)) counters[name][counter] = value;
        }
    }
}

void RatioReporter::Finalize() {
    std::vector<std::string> names;
    std::size_t nameWidth = 0;
    for (const auto& [name, ours] : times) {
        if (name.starts_with(peerPrefix) && times.contains(name.substr(peerPrefix.size()))) continue;
        names.push_back(name);
        nameWidth = std::max(nameWidth, name.size());
    }
    std::stable_sort(names.begin(), names.end(), [&](const std::string& a, const std::string& b) {
        return std::pair(Family(a), Median(times[a])) < std::pair(Family(b), Median(times[b]));
    });

    std::ostream& out = GetOutputStream();
    Print(out, nameWidth, {"benchmark", "ours, ns", "peer, ns", "spread", "ours/peer", "goal", ""});
    for (const std::string& name : names) {
        const auto peer = times.find(peerPrefix + name);
        Print(out, nameWidth,
              peer != times.end() ? Compare(name, times[name], peer->second) : Alone(name, times[name]));
    }
    PrintCounters();
}

void RatioReporter::PrintCounters() {
    std::size_t nameWidth = 0;
    for (const auto& [name, values] : counters) nameWidth = std::max(nameWidth, name.size());
    std::ostream& out = GetOutputStream();
    for (const auto& [name, values] : counters) {
        out << std::left << std::setw(static_cast<int>(nameWidth)) << name << std::right;
        for (const auto& [counter, value] : values) out << "  " << counter << " " << Fixed(100 * value, 2) << " %";
        out << '\n';
    }
}

}  // namespace bench
