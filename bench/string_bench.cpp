// Strings of a dozen bytes, against the standard string, which holds 15 bytes without a block. Ours takes a block of
// the exact size for each content: more than one is an error here.

#include <benchmark/benchmark.h>

#include <string>

#include "allocation_count.h"
#include "goals.h"
#include "kystring.h"

namespace {

constexpr const char* kText = "twelve bytes";

/// Runs `step` and reports the blocks that each iteration took; more than `limit` fails the benchmark.
template <class Step>
void Count(benchmark::State& state, double limit, Step step) {
    const std::size_t before = bench::AllocationCount();
    for (auto _ : state) step();
    const auto taken = static_cast<double>(bench::AllocationCount() - before);
    const double each = taken / static_cast<double>(state.iterations());
    state.counters["allocations"] = each;
    // The benchmark itself may take a block or two in a run of many thousand iterations.
    if (each > limit + 0.01) state.SkipWithError("more blocks than promised");
}

template <class String>
void Construct(benchmark::State& state) {
    Count(state, 1, [] {
        const char* text = kText;
        benchmark::DoNotOptimize(text);
        String s(text);
        benchmark::DoNotOptimize(s);
    });
}

/// A copy and what is appended to it: one block for each.
template <class String>
void Append(benchmark::State& state) {
    const String base(kText);
    const String added(kText);
    Count(state, 2, [&] {
        String s(base);
        s += added;
        benchmark::DoNotOptimize(s);
    });
}

std::size_t Length(const KyString& s) { return s.Len(); }
std::size_t Length(const std::string& s) { return std::char_traits<char>::length(s.c_str()); }

template <class String>
void Len(benchmark::State& state) {
    const String s(kText);
    Count(state, 0, [&] {
        const String* shared = &s;
        benchmark::DoNotOptimize(shared);
        benchmark::DoNotOptimize(Length(*shared));
    });
}

const bench::AtStart here([] {
    // One block more than the peer takes: 9 to 17 ns here.
    const bench::Goal oneBlock = bench::AtMostMore(24);
    bench::RegisterPair("string/construct/12", oneBlock, Construct<KyString>, Construct<std::string>);
    bench::RegisterPair("string/append/12", oneBlock, Append<KyString>, Append<std::string>);
    bench::RegisterPair("string/len", bench::AtMostMore(3), Len<KyString>, Len<std::string>);
});

}  // namespace
