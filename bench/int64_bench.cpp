// Arithmetic and text of KyInt64, against int64_t and the C library's print.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "goals.h"
#include "kyint64.h"
#include "kystring.h"

namespace {

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

/// Three columns whose places do not depend on the allocator. Behind each stands a gap, so that what is stored in one
/// has not the low address bits of what is read from another at the same time.
template <class Number>
struct ThreeColumns {
    static constexpr std::size_t kGap = 1408 / sizeof(Number);
    alignas(64) Number a[kCount + kGap];
    alignas(64) Number b[kCount + kGap];
    alignas(64) Number out[kCount + kGap];

    explicit ThreeColumns(unsigned leastShift) {
        std::ranges::copy(Operands<Number>(1, leastShift), a);
        std::ranges::copy(Operands<Number>(2, leastShift), b);
    }
};

/// out[i] = operation(a[i], b[i])
template <class Number, class Operation>
void Columns(benchmark::State& state, unsigned leastShift, Operation operation) {
    const auto columns = std::make_unique<ThreeColumns<Number>>(leastShift);
    const Number* a = columns->a;
    const Number* b = columns->b;
    Number* out = columns->out;
    for (auto _ : state) {
        for (std::size_t i = 0; i < kCount; ++i) out[i] = operation(a[i], b[i]);
        benchmark::DoNotOptimize(out);
        benchmark::ClobberMemory();
    }
}

/// Each result is the next one's first operand.
template <class Number, class Operation>
void Chain(benchmark::State& state, unsigned leastShift, Operation operation) {
    const auto columns = std::make_unique<ThreeColumns<Number>>(leastShift);
    const Number* b = columns->b;
    for (auto _ : state) {
        Number value(0x123456789);
        benchmark::DoNotOptimize(value);
        for (std::size_t i = 0; i < kCount; ++i) value = operation(value, b[i]);
        benchmark::DoNotOptimize(value);
    }
}

template <class Number>
void CountLess(benchmark::State& state) {
    const auto columns = std::make_unique<ThreeColumns<Number>>(0);
    const Number* a = columns->a;
    const Number* b = columns->b;
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

/// How long the printed numbers are.
enum class Digits {
    any,   ///< 1 to 18: the length is a surprise each time
    many,  ///< 18 or 19: numbers picked at random from all
    few,   ///< 3 or 4
};

template <class Number>
std::vector<Number> PrintedNumbers(Digits digits) {
    std::vector<Number> numbers = Operands<Number>(1, 0);
    std::uint64_t seed = 3;
    for (Number& number : numbers) {
        seed = seed * 6364136223846793005u + 1442695040888963407u;
        if (digits == Digits::many) number = Number(static_cast<std::int64_t>(seed));
        if (digits == Digits::few) number = Number(static_cast<std::int64_t>(seed) >> 50);
    }
    return numbers;
}

void Print(benchmark::State& state, Digits digits) {
    const std::vector<KyInt64> values = PrintedNumbers<KyInt64>(digits);
    KyString out;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(&values[i].PrintToKyString(out, "%S"));
        benchmark::ClobberMemory();
        i = (i + 1) % kCount;
    }
}

void PrintByC(benchmark::State& state, Digits digits) {
    const std::vector<std::int64_t> values = PrintedNumbers<std::int64_t>(digits);
    char out[24];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::snprintf(out, sizeof out, "%lld", static_cast<long long>(values[i])));
        benchmark::DoNotOptimize(out);
        i = (i + 1) % kCount;
    }
}

void RegisterPrint(const std::string& name, Digits digits) {
    bench::RegisterPair(
        "int64/print/" + name, bench::AtLeast(2.0), [=](benchmark::State& state) { Print(state, digits); },
        [=](benchmark::State& state) { PrintByC(state, digits); });
}

template <class Operation>
void RegisterOperation(const std::string& name, double share, unsigned leastShift, Operation operation) {
    bench::RegisterPair(
        "int64/" + name + "/columns/1k", bench::AtLeast(share),
        [=](benchmark::State& state) { Columns<KyInt64>(state, leastShift, operation); },
        [=](benchmark::State& state) { Columns<std::int64_t>(state, leastShift, operation); });
    bench::RegisterPair(
        "int64/" + name + "/chain/1k", bench::AtLeast(share),
        [=](benchmark::State& state) { Chain<KyInt64>(state, leastShift, operation); },
        [=](benchmark::State& state) { Chain<std::int64_t>(state, leastShift, operation); });
}

// The operands are small enough for the peer to stay within its range.
const bench::AtStart here([] {
    RegisterOperation("add", 0.9, 12, [](auto a, auto b) { return a + b; });
    RegisterOperation("multiply", 0.7, 33, [](auto a, auto b) { return (a & 0x3FFFFFFF) * b; });
    RegisterOperation("divide", 0.7, 0, [](auto a, auto b) { return (a | 0x4000000000000000) / b; });
    RegisterOperation("remainder", 0.7, 0, [](auto a, auto b) { return (a | 0x4000000000000000) % b; });
    bench::RegisterPair("int64/compare/columns/1k", bench::AtLeast(0.9), CountLess<KyInt64>, CountLess<std::int64_t>);
    bench::RegisterPair("int64/compare/search/1k", bench::AtLeast(0.9), Search<KyInt64>, Search<std::int64_t>);
    RegisterPrint("any_length", Digits::any);
    RegisterPrint("many_digits", Digits::many);
    RegisterPrint("few_digits", Digits::few);
});

}  // namespace
