// Dates and times printed into a string and scanned out of one, against the C library.

#include <benchmark/benchmark.h>

#include <ctime>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "allocation_count.h"
#include "goals.h"
#include "kydatimeN.h"
#include "kystring.h"

namespace {

constexpr std::size_t kValues = 4096;

std::vector<KyDateTimeN> Values(int stepOfNanoseconds) {
    std::mt19937 random(1);
    std::vector<KyDateTimeN> values;
    for (std::size_t i = 0; i < kValues; ++i) {
        const KyDate day(2440588 + static_cast<int>(random() % 25000));
        const KyTime time(static_cast<int>(random() % 86400));
        KyDateTimeN value{KyDateTime_(day, time)};
        value.nanoseconds = static_cast<int>(random() % 1'000'000'000) / stepOfNanoseconds * stepOfNanoseconds;
        values.push_back(value);
    }
    return values;
}

std::tm BrokenDown(const KyDateTimeN& value) {
    std::tm time{};
    time.tm_year = value.year - 1900;
    time.tm_mon = value.month - 1;
    time.tm_mday = value.day;
    time.tm_wday = (KyDate(value.year, value.month, value.day).GetDayOfTheDate() + 1) % 7;
    time.tm_hour = value.hour;
    time.tm_min = value.minute;
    time.tm_sec = value.second;
    return time;
}

template <class Value>
Value Narrowed(const KyDateTimeN& value) {
    if constexpr (std::is_same_v<Value, KyDate>) {
        return value.Date();
    } else if constexpr (std::is_same_v<Value, KyTime>) {
        return value.Time();
    } else if constexpr (std::is_same_v<Value, KyDateTime>) {
        return value.DateTime();
    } else {
        return Value(value);
    }
}

template <class Value>
std::vector<Value> AllNarrowed(const std::vector<KyDateTimeN>& values) {
    std::vector<Value> narrowed;
    for (const KyDateTimeN& value : values) narrowed.push_back(Narrowed<Value>(value));
    return narrowed;
}

template <class Value>
std::vector<KyString> Texts(const std::vector<Value>& values, const char* format) {
    std::vector<KyString> texts(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) values[i].PrintToKyString(texts[i], format);
    return texts;
}

void ShowAllocations(benchmark::State& state, std::size_t taken) {
    const double each = static_cast<double>(taken) / static_cast<double>(state.iterations());
    state.counters["allocations"] = each;
    // The benchmark itself may take a block or two in a run of many thousand iterations.
    if (each > 1.01) state.SkipWithError("more blocks than promised");
}

/// A column of values, one after the other into one string, as an engine prints its rows.
template <class Value>
void Print(benchmark::State& state, const std::vector<Value>& values, const char* format) {
    KyString out;
    std::size_t i = 0;
    const std::size_t before = bench::AllocationCount();
    for (auto _ : state) benchmark::DoNotOptimize(values[i++ % kValues].PrintToKyString(out, format).StrGet());
    ShowAllocations(state, bench::AllocationCount() - before);
}

/// Each value into a string of its own, which takes a block and gives it back.
template <class Value>
void PrintIntoNew(benchmark::State& state, const std::vector<Value>& values, const char* format) {
    std::size_t i = 0;
    const std::size_t before = bench::AllocationCount();
    for (auto _ : state) {
        KyString out;
        benchmark::DoNotOptimize(values[i++ % kValues].PrintToKyString(out, format).StrGet());
    }
    ShowAllocations(state, bench::AllocationCount() - before);
}

void PrintByTheLibrary(benchmark::State& state, const std::vector<KyDateTimeN>& values, const char* format) {
    std::vector<std::tm> times;
    for (const KyDateTimeN& value : values) times.push_back(BrokenDown(value));
    KyString out;
    std::size_t i = 0;
    for (auto _ : state) {
        char text[64];
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, format, &times[i++ % kValues]));
        benchmark::DoNotOptimize((out = text).StrGet());
    }
}

template <class Value>
void Scan(benchmark::State& state, const std::vector<Value>& values, const char* format) {
    std::vector<KyString> texts = Texts(values, format);
    Value value = values[0];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value.ScanFromKyString(texts[i++ % kValues], format));
        // Not loaded: reading three bytes as one number would wait for the stores of each.
        benchmark::ClobberMemory();
    }
}

template <class Value>
void ScanByTheLibrary(benchmark::State& state, const std::vector<Value>& values, const char* format,
                      const char* peerFormat) {
    const std::vector<KyString> texts = Texts(values, format);
    std::tm time{};
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(strptime(texts[i++ % kValues].StrGet(), peerFormat, &time));
        benchmark::ClobberMemory();
    }
}

/// Into characters on the stack, for which no block is taken.
void PrintIntoCharacters(benchmark::State& state, const std::vector<KyDateTimeN>& values, const char* format) {
    std::vector<std::tm> times;
    for (const KyDateTimeN& value : values) times.push_back(BrokenDown(value));
    std::size_t i = 0;
    for (auto _ : state) {
        char text[64];
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, format, &times[i++ % kValues]));
        benchmark::DoNotOptimize(text);
    }
}

/// Into strings, of which the C library knows nothing: one for all values, and a new one, with its block, for each.
template <class Value>
void RegisterBare(const std::string& name, const char* format, const char* peerFormat, double goal, double goalForNew) {
    const std::vector<KyDateTimeN> all = Values(1);
    const std::vector<Value> values = AllNarrowed<Value>(all);
    const auto peer = [=](benchmark::State& state) { PrintIntoCharacters(state, all, peerFormat); };
    bench::RegisterPair(
        "print/bare/" + name, bench::AtLeast(goal), [=](benchmark::State& state) { Print(state, values, format); },
        peer);
    bench::RegisterPair(
        "print/bare/new/" + name, bench::AtLeast(goalForNew),
        [=](benchmark::State& state) { PrintIntoNew(state, values, format); }, peer);
}

/// `peerFormat` is the C library's nearest to `format`.
template <class Value>
void Register(const std::string& name, const char* format, const char* peerFormat, double goal = 3.0,
              int stepOfNanoseconds = 1) {
    const std::vector<KyDateTimeN> all = Values(stepOfNanoseconds);
    const std::vector<Value> values = AllNarrowed<Value>(all);
    bench::RegisterPair(
        "print/" + name, bench::AtLeast(goal), [=](benchmark::State& state) { Print(state, values, format); },
        [=](benchmark::State& state) { PrintByTheLibrary(state, all, peerFormat); });
    bench::RegisterPair(
        "scan/" + name, bench::AtLeast(goal), [=](benchmark::State& state) { Scan(state, values, format); },
        [=](benchmark::State& state) { ScanByTheLibrary(state, values, format, peerFormat); });
}

const bench::AtStart here([] {
    Register<KyDate>("KyDate/numeric", "%Y-%m-%d", "%Y-%m-%d");
    Register<KyDate>("KyDate/row", "%a %e.%b %Y", "%a %d.%b %Y");
    Register<KyTime>("KyTime/numeric", "%H:%M:%S", "%H:%M:%S");
    Register<KyTime>("KyTime/row", "%I:%M:%S %p", "%I:%M:%S %p");
    Register<KyDateTime>("KyDateTime/row", "%a %e.%b %Y %I:%M:%S %p", "%a %d.%b %Y %I:%M:%S %p");
    // The C library does less: it has no fractions of seconds.
    Register<KyDateTimeN>("KyDateTimeN/row", "%X", "%Y-%m-%dT%H:%M:%S", 1.0);
    Register<KyDateTimeN>("KyDateTimeN/row/milliseconds", "%X", "%Y-%m-%dT%H:%M:%S", 1.0, 1'000'000);
    RegisterBare<KyDate>("KyDate/numeric", "%Y-%m-%d", "%Y-%m-%d", 3.0, 1.5);
    RegisterBare<KyDate>("KyDate/row", "%a %e.%b %Y", "%a %d.%b %Y", 3.0, 1.5);
    RegisterBare<KyTime>("KyTime/numeric", "%H:%M:%S", "%H:%M:%S", 3.0, 1.5);
    RegisterBare<KyTime>("KyTime/row", "%I:%M:%S %p", "%I:%M:%S %p", 2.5, 1.5);
    RegisterBare<KyDateTimeN>("KyDateTimeN/row", "%X", "%Y-%m-%dT%H:%M:%S", 3.0, 1.5);
    // Directive by directive.
    Register<KyDate>("KyDate/other", "%d.%m.%Y", "%d.%m.%Y", 1.0);
    Register<KyDateTime>("KyDateTime/other", "%A, %d. %B %Y, %H:%M", "%A, %d. %B %Y, %H:%M", 1.0);
});

}  // namespace
