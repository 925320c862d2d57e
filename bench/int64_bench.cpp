// Arithmetic and text of KyInt64, against int64_t and the C library's print.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "goals.h"
#include "kyint64.h"
#include "kystring.h"

namespace {

using Measure = bench::Goal::Measure;
const bench::GoalOf addGoal("int64/add", {Measure::shareOfPeerSpeed, 0.9});
const bench::GoalOf compareGoal("int64/compare", {Measure::shareOfPeerSpeed, 0.9});
const bench::GoalOf multiplyGoal("int64/multiply", {Measure::shareOfPeerSpeed, 0.7});
const bench::GoalOf divideGoal("int64/divide", {Measure::shareOfPeerSpeed, 0.7});
const bench::GoalOf remainderGoal("int64/remainder", {Measure::shareOfPeerSpeed, 0.7});
const bench::GoalOf printGoal("int64/print", {Measure::shareOfPeerSpeed, 2.0});

constexpr std::size_t kCount = 1024;

/// Of every length in bits, never 0 or -1; what `int64_t` computes with them is defined.
template <class Number>
std::vector<Number> Operands(std::uint64_t seed, unsigned leastShift) {
    std::vector<Number> operands;
    while (operands.size() < kCount) {
        seed = seed * 6364136223846793005u + 1442695040888963407u;
        const auto value = static_cast<std::int64_t>(seed) >> (leastShift + (seed >> 7) % (62 - leastShift));
        if (value != 0 && value != -1) operands.emplace_back(value);
    }
    return operands;
}

/// out[i] = operation(a[i], b[i])
template <class Number, class Operation>
void Columns(benchmark::State& state, unsigned leastShift, Operation operation) {
    const std::vector<Number> a = Operands<Number>(1, leastShift);
    const std::vector<Number> b = Operands<Number>(2, leastShift);
    std::vector<Number> out(kCount);
    for (auto _ : state) {
        for (std::size_t i = 0; i < kCount; ++i) out[i] = operation(a[i], b[i]);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
}

/// Each result is the next one's first operand.
template <class Number, class Operation>
void Chain(benchmark::State& state, unsigned leastShift, Operation operation) {
    const std::vector<Number> b = Operands<Number>(2, leastShift);
    for (auto _ : state) {
        Number value(0x123456789);
        benchmark::DoNotOptimize(value);
        for (std::size_t i = 0; i < kCount; ++i) value = operation(value, b[i]);
        benchmark::DoNotOptimize(value);
    }
}

template <class Number>
void CountLess(benchmark::State& state) {
    const std::vector<Number> a = Operands<Number>(1, 0);
    const std::vector<Number> b = Operands<Number>(2, 0);
    for (auto _ : state) {
        int less = 0;
        for (std::size_t i = 0; i < kCount; ++i) less += a[i] < b[i] ? 1 : 0;
        benchmark::DoNotOptimize(less);
    }
}

/// The position of a key in an ordered column.
template <class Number>
void Search(benchmark::State& state) {
    std::vector<Number> column = Operands<Number>(1, 0);
    const std::vector<Number> keys = Operands<Number>(2, 0);
    std::sort(column.begin(), column.end());
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::lower_bound(column.begin(), column.end(), keys[i]));
        i = (i + 1) % kCount;
    }
}

void Print(benchmark::State& state) {
    const std::vector<KyInt64> values = Operands<KyInt64>(1, 0);
    KyString out;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(values[i].PrintToKyString(out, "%S").StrGet());
        i = (i + 1) % kCount;
    }
}

void PrintByC(benchmark::State& state) {
    const std::vector<std::int64_t> values = Operands<std::int64_t>(1, 0);
    char out[24];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::snprintf(out, sizeof out, "%lld", static_cast<long long>(values[i])));
        benchmark::DoNotOptimize(out);
        i = (i + 1) % kCount;
    }
}

/// Ours and the peer's under one name. The operands are small enough for the peer to stay within its range.
template <class Operation>
void RegisterOperation(const std::string& name, unsigned leastShift, Operation operation) {
    const auto both = [&](const std::string& shape, auto ours, auto peers) {
        benchmark::RegisterBenchmark(("int64/" + name + shape).c_str(), ours);
        benchmark::RegisterBenchmark(("peer/int64/" + name + shape).c_str(), peers);
    };
    both(
        "/columns/1k", [=](benchmark::State& state) { Columns<KyInt64>(state, leastShift, operation); },
        [=](benchmark::State& state) { Columns<std::int64_t>(state, leastShift, operation); });
    both(
        "/chain/1k", [=](benchmark::State& state) { Chain<KyInt64>(state, leastShift, operation); },
        [=](benchmark::State& state) { Chain<std::int64_t>(state, leastShift, operation); });
}

const bool registered = [] {
    RegisterOperation("add", 12, [](auto a, auto b) { return a + b; });
    RegisterOperation("multiply", 33, [](auto a, auto b) { return (a & 0x3FFFFFFF) * b; });
    RegisterOperation("divide", 0, [](auto a, auto b) { return (a | 0x4000000000000000) / b; });
    RegisterOperation("remainder", 0, [](auto a, auto b) { return (a | 0x4000000000000000) % b; });
    benchmark::RegisterBenchmark("int64/compare/columns/1k", CountLess<KyInt64>);
    benchmark::RegisterBenchmark("peer/int64/compare/columns/1k", CountLess<std::int64_t>);
    benchmark::RegisterBenchmark("int64/compare/search/1k", Search<KyInt64>);
    benchmark::RegisterBenchmark("peer/int64/compare/search/1k", Search<std::int64_t>);
    benchmark::RegisterBenchmark("int64/print", Print);
    benchmark::RegisterBenchmark("peer/int64/print", PrintByC);
    return true;
}();

}  // namespace
