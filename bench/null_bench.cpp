// Nullable numbers: Store and Load, against a memcpy that moves as many bytes (half of those that are read and written
// together), and Compare of equal arrays in memory form, against memcmp.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "goals.h"
#include "kytypmgr.h"

namespace {

struct NullType {
    const char* name;
    char id;
    std::size_t memory;  ///< bytes of one element in memory form
    std::size_t number;  ///< bytes of its number; the flag follows
};

constexpr NullType types[] = {
    {"KyNull_char", KyNULL_1B_T, 2, 1}, {"KyNull_short", KyNULL_2B_T, 4, 2},
    {"KyNull_int", KyNULL_INT_T, 8, 4}, {"KyNull_KyInt64", KyNULL_KYINT64_T, 12, 8},
    {"KyNull_8b", KyNULL_8B_T, 16, 8},
};

struct Shape {
    const char* name;
    unsigned count;
};

constexpr Shape shapes[] = {{"1k", 1000}, {"32k", 32000}, {"1M", 1000000}};

constexpr std::size_t longestColumn = 16 * 1000000;

/// Not at equal offsets within a page, as in the other benchmarks of columns.
constexpr std::size_t columnSpace = (longestColumn + 4096) / 4096 * 4096 + 1024 + 64;

unsigned char* Column(std::size_t index) {
    static unsigned char* const memory = [] {
        auto* columns = static_cast<unsigned char*>(std::aligned_alloc(64, 4 * columnSpace));
        if (columns == nullptr) throw std::bad_alloc();
        std::memset(columns, 0, 4 * columnSpace);
        return columns;
    }();
    return memory + index * columnSpace;
}

/// Elements in memory form: every eighth is null; the padding is that of the column.
void FillMemory(unsigned char* column, NullType type, unsigned count, unsigned char padding) {
    for (unsigned i = 0; i < count; ++i, column += type.memory) {
        std::memset(column, padding, type.memory);
        const bool null = i % 8 == 5;
        std::memset(column, null ? 0 : static_cast<int>(i & 0x3F), type.number);
        column[type.number] = null ? 1 : 0;
    }
}

/// Memory form, the same in other padding, stored form, room.
struct Columns {
    unsigned char* memory;
    unsigned char* equalMemory;
    unsigned char* stored;
    unsigned char* spare;
};

Columns ColumnsOf(NullType type, Shape shape, unsigned char form) {
    const Columns columns{Column(0), Column(1), Column(2), Column(3)};
    FillMemory(columns.memory, type, shape.count, 0);
    FillMemory(columns.equalMemory, type, shape.count, 0xEE);
    KyTypeMgr(5).Store(type.id, columns.stored, columns.memory, form, shape.count);
    return columns;
}

void Store(benchmark::State& state, NullType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, form);
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.Store(type.id, columns.spare, columns.memory, form, shape.count));
        benchmark::ClobberMemory();
    }
}

void Load(benchmark::State& state, NullType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, form);
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.Load(type.id, columns.spare, columns.stored, form, shape.count));
        benchmark::ClobberMemory();
    }
}

void Copy(benchmark::State& state, NullType type, Shape shape) {
    const Columns columns = ColumnsOf(type, shape, KyFormNative);
    std::size_t size = (type.memory + type.number + 1) * shape.count / 2;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(columns.spare, columns.memory, size);
        benchmark::ClobberMemory();
    }
}

void Compare(benchmark::State& state, NullType type, Shape shape) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, KyFormNative);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(
            manager.Cmp(type.id, 0, columns.memory, 0, columns.equalMemory, 0, shape.count, KyFormMemory, err));
        benchmark::ClobberMemory();
    }
}

void CompareBytes(benchmark::State& state, NullType type, Shape shape) {
    const Columns columns = ColumnsOf(type, shape, KyFormNative);
    std::size_t size = type.memory * shape.count;
    std::memcpy(columns.spare, columns.memory, size);
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(std::memcmp(columns.memory, columns.spare, size));
        benchmark::ClobberMemory();
    }
}

void Hash(benchmark::State& state, NullType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, form);
    unsigned char* const data = form == KyFormMemory ? columns.memory : columns.stored;
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(manager.Hash(type.id, 0, data, shape.count, form, err));
        benchmark::ClobberMemory();
    }
}

void Register(NullType type, Shape shape) {
    const std::string name = std::string(type.name) + '/';
    const auto copy = [=](benchmark::State& state) { Copy(state, type, shape); };
    constexpr struct {
        const char* name;
        unsigned char form;
    } forms[] = {{"native/", KyFormNative}, {"reversed/", KyFormReversed}, {"packed/", KyFormMemory}};
    for (const auto& form : forms) {
        bench::RegisterPair(
            "store/" + name + form.name + shape.name, bench::AtLeast(0.5),
            [=](benchmark::State& state) { Store(state, type, shape, form.form); }, copy);
        bench::RegisterPair(
            "load/" + name + form.name + shape.name, bench::AtLeast(0.5),
            [=](benchmark::State& state) { Load(state, type, shape, form.form); }, copy);
    }
    bench::RegisterPair(
        "compare/" + name + "memory/" + shape.name, bench::AtLeast(0.4),
        [=](benchmark::State& state) { Compare(state, type, shape); },
        [=](benchmark::State& state) { CompareBytes(state, type, shape); });
    for (const unsigned char form : {KyFormMemory, KyFormReversed}) {
        const std::string hash = "hash/" + name + (form == KyFormMemory ? "memory/" : "reversed/") + shape.name;
        benchmark::RegisterBenchmark(hash.c_str(), [=](benchmark::State& state) { Hash(state, type, shape, form); });
    }
}

const bench::AtStart here([] {
    for (const NullType& type : types) {
        for (const Shape& shape : shapes) Register(type, shape);
    }
});

}  // namespace
