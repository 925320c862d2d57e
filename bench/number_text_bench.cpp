// Numbers printed into a string and scanned out of one, against the C library (print) and the language's own (scan).

#include <benchmark/benchmark.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#include "goals.h"
#include "kystring.h"
#include "kytypmgr.h"

namespace {

constexpr std::size_t kValues = 4096;

using Random = std::mt19937_64;

template <class Value>
using Values = std::vector<Value>;

template <class Value, class Make>
Values<Value> Generate(Make make) {
    Random random(1);
    Values<Value> values(kValues);
    for (Value& value : values) value = make(random);
    return values;
}

/// Every number of digits is as frequent as any other, every other number is negative.
template <class Integer>
Integer AnyLength(Random& random) {
    const auto magnitude = random() >> (random() % 63 + 1);
    const auto value = static_cast<Integer>(magnitude >> (64 - 8 * sizeof(Integer)));
    return random() % 2 == 0 ? value : static_cast<Integer>(-value);
}

double AnyBits(Random& random) {
    for (;;) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) return value;
    }
}

double UnitInterval(Random& random) { return std::ldexp(static_cast<double>(random() >> 11), -53); }
double Cents(Random& random) { return static_cast<double>(random() % 10'000'000) / 100; }
double WholeNumber(Random& random) { return static_cast<double>(random() % 1'000'000); }

template <class Value>
void Print(benchmark::State& state, char id, const Values<Value>& values) {
    KyTypeMgr manager(5);
    KyString out;
    std::size_t i = 0;
    for (auto _ : state) {
        Value value = values[i++ % kValues];
        benchmark::DoNotOptimize(manager.PrintToKyString(id, out, &value, nullptr, 1));
    }
}

template <class Value>
void PrintByTheLibrary(benchmark::State& state, const char* format, const Values<Value>& values) {
    KyString out;
    std::size_t i = 0;
    for (auto _ : state) {
        char text[64];
        std::snprintf(text, sizeof text, format, values[i++ % kValues]);
        benchmark::DoNotOptimize(out = text);
    }
}

template <class Value>
std::vector<KyString> Texts(char id, const Values<Value>& values) {
    KyTypeMgr manager(5);
    std::vector<KyString> texts(kValues);
    for (std::size_t i = 0; i < kValues; ++i) {
        Value value = values[i];
        manager.PrintToKyString(id, texts[i], &value, nullptr, 1);
    }
    return texts;
}

template <class Value>
void Scan(benchmark::State& state, char id, const Values<Value>& values) {
    KyTypeMgr manager(5);
    std::vector<KyString> texts = Texts(id, values);
    std::size_t i = 0;
    for (auto _ : state) {
        Value value = 0;
        manager.ScanFromKyString(id, &value, texts[i++ % kValues], nullptr, 1);
        benchmark::DoNotOptimize(value);
    }
}

template <class Value>
void ScanByTheLanguage(benchmark::State& state, char id, const Values<Value>& values) {
    const std::vector<KyString> texts = Texts(id, values);
    std::size_t i = 0;
    for (auto _ : state) {
        Value value = 0;
        const char* text = texts[i++ % kValues].StrGet();
        benchmark::DoNotOptimize(std::from_chars(text, text + std::strlen(text), value));
        benchmark::DoNotOptimize(value);
    }
}

template <class Value>
void Register(const std::string& name, char id, const char* format, const Values<Value>& values) {
    bench::RegisterPair(
        "print/" + name, bench::AtLeast(2.0), [=](benchmark::State& state) { Print(state, id, values); },
        [=](benchmark::State& state) { PrintByTheLibrary(state, format, values); });
    bench::RegisterPair(
        "scan/" + name, bench::AtMostMore(4.0), [=](benchmark::State& state) { Scan(state, id, values); },
        [=](benchmark::State& state) { ScanByTheLanguage(state, id, values); });
}

const bench::AtStart here([] {
    Register("short/decimal", Ky2B_T, "%hd", Generate<short>(AnyLength<short>));
    Register("int/decimal", KyINT_T, "%d", Generate<int>(AnyLength<int>));
    Register("o_8b/decimal", Ky8B_T, "%lld", Generate<long long>(AnyLength<long long>));
    Register("double/any", KyDOUBLE_T, "%.17g", Generate<double>(AnyBits));
    Register("double/unit", KyDOUBLE_T, "%.17g", Generate<double>(UnitInterval));
    Register("double/cents", KyDOUBLE_T, "%.17g", Generate<double>(Cents));
    Register("double/whole", KyDOUBLE_T, "%.17g", Generate<double>(WholeNumber));
});

}  // namespace
