// Seals: compare and hash of columns, against memcmp of the same bytes; store and load, against memcpy.

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "goals.h"
#include "kyseal.h"
#include "kytypmgr.h"

namespace {

constexpr unsigned char kForms[] = {KyFormMemory, KyFormReversed};

/// The bytes of a column, the same in both forms but for the order of two.
struct Columns {
    KyTypeMgr types{5};
    std::vector<KySeal> values;
    std::vector<unsigned char> stored;
    std::vector<unsigned char> equal;

    explicit Columns(unsigned count) : values(count), stored(sizeof(KySeal) * count) {
        for (unsigned i = 0; i < count; ++i) values[i].ConvertFrom(i * 0x123456789LL);
        types.Store(KySEAL_T, stored.data(), values.data(), KyFormReversed, count);
        equal = stored;
    }
};

void Compare(benchmark::State& state, unsigned count, unsigned char form) {
    Columns columns(count);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(
            columns.types.Cmp(KySEAL_T, 0, columns.stored.data(), 0, columns.equal.data(), 0, count, form, err));
        benchmark::ClobberMemory();
    }
}

void Hash(benchmark::State& state, unsigned count, unsigned char form) {
    Columns columns(count);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(columns.types.Hash(KySEAL_T, 0, columns.stored.data(), count, form, err));
        benchmark::ClobberMemory();
    }
}

void CompareBytes(benchmark::State& state, unsigned count) {
    Columns columns(count);
    std::size_t size = columns.stored.size();
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(std::memcmp(columns.stored.data(), columns.equal.data(), size));
        benchmark::ClobberMemory();
    }
}

void Store(benchmark::State& state, unsigned count) {
    Columns columns(count);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            columns.types.Store(KySEAL_T, columns.stored.data(), columns.values.data(), KyFormNative, count));
        benchmark::ClobberMemory();
    }
}

void CopyBytes(benchmark::State& state, unsigned count) {
    Columns columns(count);
    std::size_t size = columns.stored.size();
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(columns.stored.data(), columns.values.data(), size);
        benchmark::ClobberMemory();
    }
}

const bench::AtStart here([] {
    struct {
        const char* name;
        unsigned count;
    } const shapes[] = {{"1k", 1000}, {"32k", 32000}, {"1M", 1000000}};
    for (const auto& shape : shapes) {
        const unsigned count = shape.count;
        const auto peer = [=](benchmark::State& state) { CompareBytes(state, count); };
        for (const unsigned char form : kForms) {
            const std::string name = std::string(form == KyFormMemory ? "memory/" : "stored/") + shape.name;
            bench::RegisterPair(
                "seal/compare/" + name, bench::AtLeast(0.3),
                [=](benchmark::State& state) { Compare(state, count, form); }, peer);
            bench::RegisterPair(
                "seal/hash/" + name, bench::AtLeast(0.3), [=](benchmark::State& state) { Hash(state, count, form); },
                peer);
        }
        bench::RegisterPair(
            std::string("seal/store/") + shape.name, bench::AtLeast(0.8),
            [=](benchmark::State& state) { Store(state, count); },
            [=](benchmark::State& state) { CopyBytes(state, count); });
    }
});

}  // namespace
