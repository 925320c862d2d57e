// Dates and nanosecond date-times: exact Compare of equal arrays against memcmp, Hash against an exclusive or of the
// same bytes, with every eighth value null and with none (whose negative fields have to be widened), Store and Load
// against a memcpy that moves as many bytes (half of those that are read and written together).

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "goals.h"
#include "kytypmgr.h"
#include "peers.h"

namespace {

struct DateType {
    const char* name;
    char id;
    std::size_t memory;  ///< bytes of one element in memory form
    std::size_t stored;
};

constexpr DateType types[] = {{"KyDate", KyDATE_T, 4, 4}, {"KyDateTimeN", KyDATIME_N_T, 12, 11}};

struct Shape {
    const char* name;
    unsigned count;
};

constexpr Shape shapes[] = {{"1k", 1000}, {"32k", 32000}, {"1M", 1000000}};

struct Form {
    const char* name;
    unsigned char flag;
};

constexpr Form forms[] = {{"native/", KyFormNative}, {"reversed/", KyFormReversed}, {"memory/", KyFormMemory}};

constexpr std::size_t longestColumn = 12 * 1000000;

/// Not at equal offsets within a page, as in the other benchmarks of columns.
constexpr std::size_t columnSpace = (longestColumn + 4096) / 4096 * 4096 + 1024 + 64;

unsigned char* Column(std::size_t index) {
    static unsigned char* const memory = [] {
        auto* columns = static_cast<unsigned char*>(std::aligned_alloc(64, 3 * columnSpace));
        if (columns == nullptr) throw std::bad_alloc();
        std::memset(columns, 0, 3 * columnSpace);
        return columns;
    }();
    return memory + index * columnSpace;
}

/// Days in memory form, every eighth null, if any; the padding is that of the column.
void FillMemory(unsigned char* column, DateType type, unsigned count, unsigned char padding, bool nulls = true) {
    constexpr unsigned char nullDay[] = {0x00, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0, 0, 0, 0, 0};
    for (unsigned i = 0; i < count; ++i, column += type.memory) {
        const auto low = static_cast<unsigned char>(i);
        const unsigned char day[] = {low, 0x07, static_cast<unsigned char>(i % 12 + 1), 7, 13, 45, 59, 0, low, 1, 2, 3};
        std::memcpy(column, nulls && i % 8 == 5 ? nullDay : day, type.memory);
        if (type.memory > 7) column[7] = padding;
    }
}

std::size_t SizeOf(DateType type, Form form) { return form.flag == KyFormMemory ? type.memory : type.stored; }

/// Puts a form of the type's values into a column.
void FillForm(unsigned char* column, DateType type, Shape shape, Form form, unsigned char padding, bool nulls = true) {
    unsigned char* const memory = form.flag == KyFormMemory ? column : Column(2);
    FillMemory(memory, type, shape.count, padding, nulls);
    if (form.flag != KyFormMemory) KyTypeMgr(5).Store(type.id, column, memory, form.flag, shape.count);
}

void Compare(benchmark::State& state, DateType type, Shape shape, Form form) {
    KyTypeMgr manager(5);
    FillForm(Column(0), type, shape, form, 0);
    FillForm(Column(1), type, shape, form, 0xEE);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(
            manager.Cmp(type.id, 0, Column(0), 0, Column(1), KyCmpExact, shape.count, form.flag, err));
        benchmark::ClobberMemory();
    }
}

void CompareBytes(benchmark::State& state, DateType type, Shape shape, Form form) {
    FillForm(Column(0), type, shape, form, 0);
    FillForm(Column(1), type, shape, form, 0);
    std::size_t size = SizeOf(type, form) * shape.count;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(std::memcmp(Column(0), Column(1), size));
        benchmark::ClobberMemory();
    }
}

template <bool nulls>
void Hash(benchmark::State& state, DateType type, Shape shape, Form form) {
    KyTypeMgr manager(5);
    FillForm(Column(0), type, shape, form, 0xEE, nulls);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(manager.Hash(type.id, 0, Column(0), shape.count, form.flag, err));
        benchmark::ClobberMemory();
    }
}

void XorBytes(benchmark::State& state, DateType type, Shape shape, Form form) {
    FillForm(Column(0), type, shape, form, 0xEE);
    const bench::XorFunction best = bench::BestXor();
    std::size_t size = SizeOf(type, form) * shape.count / 4 * 4;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(best(Column(0), size));
        benchmark::ClobberMemory();
    }
}

void Store(benchmark::State& state, DateType type, Shape shape, Form form) {
    KyTypeMgr manager(5);
    FillMemory(Column(0), type, shape.count, 0xEE);
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.Store(type.id, Column(1), Column(0), form.flag, shape.count));
        benchmark::ClobberMemory();
    }
}

void Load(benchmark::State& state, DateType type, Shape shape, Form form) {
    KyTypeMgr manager(5);
    FillForm(Column(0), type, shape, form, 0);
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.Load(type.id, Column(1), Column(0), form.flag, shape.count));
        benchmark::ClobberMemory();
    }
}

void Copy(benchmark::State& state, DateType type, Shape shape) {
    FillMemory(Column(0), type, shape.count, 0);
    std::size_t size = (type.memory + type.stored) * shape.count / 2;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(Column(1), Column(0), size);
        benchmark::ClobberMemory();
    }
}

void Register(DateType type, Shape shape, Form form) {
    const std::string name = std::string(type.name) + '/' + form.name + shape.name;
    const auto with = [=](auto body) { return [=](benchmark::State& state) { body(state, type, shape, form); }; };
    bench::RegisterPair("compare/" + name, bench::AtLeast(0.3), with(Compare), with(CompareBytes));
    bench::RegisterPair("hash/" + name, bench::AtLeast(0.4), with(Hash<true>), with(XorBytes));
    bench::RegisterPair("hash without nulls/" + name, bench::AtLeast(0.4), with(Hash<false>), with(XorBytes));
    if (form.flag == KyFormMemory) return;
    const auto copy = [=](benchmark::State& state) { Copy(state, type, shape); };
    bench::RegisterPair("store/" + name, bench::AtLeast(0.4), with(Store), copy);
    bench::RegisterPair("load/" + name, bench::AtLeast(0.4), with(Load), copy);
}

const bench::AtStart here([] {
    for (const DateType& type : types) {
        for (const Shape& shape : shapes) {
            for (const Form& form : forms) Register(type, shape, form);
        }
    }
});

}  // namespace
