// Identifiers: Compare of equal columns, against memcmp, Hash against the same memcmp, Store and Load against a memcpy
// that moves as many bytes (half of those that are read and written together). Print and scan against the C library's.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "goals.h"
#include "kyobjid.h"
#include "kystring.h"
#include "kytypmgr.h"

namespace {

struct IdentifierType {
    const char* name;
    char id;
    std::size_t memory;  ///< bytes of one element in memory form
    std::size_t stored;
    double storeGoal;  ///< of the speed of memcpy
    double loadGoal;
};

// Object ids are loaded by masks, so that nothing behind their fields is written.
constexpr IdentifierType types[] = {{"KyObjId", KyOBJID_T, 12, 10, 0.25, 0.12},
                                    {"KyClassId", KyCLID_T, 4, 4, 0.7, 0.7},
                                    {"KyRef", KyREF_T, 16, 14, 0.3, 0.4}};

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

/// Two columns of equal elements, in which what does not count (blocks, padding, classes) is equal, too, or differs in
/// each of them.
enum class Others { equal, different };

/// A column, one that is equal to it, and room.
struct Columns {
    unsigned char* values;
    unsigned char* equalValues;
    unsigned char* spare;
};

void FillMemory(unsigned char* column, IdentifierType type, unsigned count, unsigned char others) {
    for (unsigned i = 0; i < count; ++i, column += type.memory) {
        std::memset(column, type.id == KyCLID_T ? 0 : others, type.memory);
        const std::size_t start = type.id == KyCLID_T ? 0 : 4;
        const std::size_t limit = type.id == KyCLID_T ? 4 : type.id == KyOBJID_T ? 10 : 12;
        for (std::size_t at = start; at < limit; ++at) column[at] = static_cast<unsigned char>(i * 7 + at);
    }
}

Columns ColumnsOf(IdentifierType type, Shape shape, unsigned char form, Others others) {
    const Columns columns{Column(0), Column(1), Column(2)};
    const unsigned char second = others == Others::equal ? 0 : 0xEE;
    if (form == KyFormMemory) {
        FillMemory(columns.values, type, shape.count, 0);
        FillMemory(columns.equalValues, type, shape.count, second);
    } else {
        FillMemory(Column(3), type, shape.count, 0);
        KyTypeMgr(5).Store(type.id, columns.values, Column(3), form, shape.count);
        FillMemory(Column(3), type, shape.count, second);
        KyTypeMgr(5).Store(type.id, columns.equalValues, Column(3), form, shape.count);
    }
    return columns;
}

std::size_t BytesOf(IdentifierType type, Shape shape, unsigned char form) {
    return (form == KyFormMemory ? type.memory : type.stored) * shape.count;
}

void Compare(benchmark::State& state, IdentifierType type, Shape shape, unsigned char form, Others others) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, form, others);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(
            manager.Cmp(type.id, 0, columns.values, 0, columns.equalValues, 0, shape.count, form, err));
        benchmark::ClobberMemory();
    }
}

void Hash(benchmark::State& state, IdentifierType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, form, Others::equal);
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(manager.Hash(type.id, 0, columns.values, shape.count, form, err));
        benchmark::ClobberMemory();
    }
}

void CompareBytes(benchmark::State& state, IdentifierType type, Shape shape, unsigned char form) {
    const Columns columns = ColumnsOf(type, shape, form, Others::equal);
    std::size_t size = BytesOf(type, shape, form);
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(std::memcmp(columns.values, columns.equalValues, size));
        benchmark::ClobberMemory();
    }
}

void Store(benchmark::State& state, IdentifierType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, KyFormMemory, Others::equal);
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.Store(type.id, columns.spare, columns.values, form, shape.count));
        benchmark::ClobberMemory();
    }
}

void Load(benchmark::State& state, IdentifierType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const Columns columns = ColumnsOf(type, shape, form, Others::equal);
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.Load(type.id, columns.spare, columns.values, form, shape.count));
        benchmark::ClobberMemory();
    }
}

void Copy(benchmark::State& state, IdentifierType type, Shape shape) {
    const Columns columns = ColumnsOf(type, shape, KyFormMemory, Others::equal);
    std::size_t size = (type.memory + type.stored) * shape.count / 2;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(columns.spare, columns.values, size);
        benchmark::ClobberMemory();
    }
}

void Register(IdentifierType type, Shape shape) {
    const std::string name = std::string(type.name) + '/';
    constexpr struct {
        const char* name;
        unsigned char form;
    } forms[] = {{"memory/", KyFormMemory}, {"native/", KyFormNative}, {"reversed/", KyFormReversed}};
    for (const auto& form : forms) {
        const auto compareBytes = [=](benchmark::State& state) { CompareBytes(state, type, shape, form.form); };
        bench::RegisterPair(
            "compare/" + name + form.name + shape.name, bench::AtLeast(0.5),
            [=](benchmark::State& state) { Compare(state, type, shape, form.form, Others::equal); }, compareBytes);
        bench::RegisterPair(
            "hash/" + name + form.name + shape.name, bench::AtLeast(0.5),
            [=](benchmark::State& state) { Hash(state, type, shape, form.form); }, compareBytes);
        if (type.id != KyCLID_T) {
            bench::RegisterPair(
                "compare/" + name + "other_blocks/" + form.name + shape.name, bench::AtLeast(0.5),
                [=](benchmark::State& state) { Compare(state, type, shape, form.form, Others::different); },
                compareBytes);
        }
        if (form.form == KyFormMemory) continue;
        const auto copy = [=](benchmark::State& state) { Copy(state, type, shape); };
        bench::RegisterPair(
            "store/" + name + form.name + shape.name, bench::AtLeast(type.storeGoal),
            [=](benchmark::State& state) { Store(state, type, shape, form.form); }, copy);
        bench::RegisterPair(
            "load/" + name + form.name + shape.name, bench::AtLeast(type.loadGoal),
            [=](benchmark::State& state) { Load(state, type, shape, form.form); }, copy);
    }
}

const KyObjId printedId(1234567, 89012345, 6);

void Print(benchmark::State& state) {
    KyTypeMgr manager(5);
    KyObjId id = printedId;
    KyString out;
    for (auto _ : state) {
        benchmark::DoNotOptimize(&manager.PrintToKyString(KyOBJID_T, out, &id, nullptr, 1));
        benchmark::ClobberMemory();
    }
}

void PrintByC(benchmark::State& state) {
    KyObjId id = printedId;
    char out[40];
    for (auto _ : state) {
        benchmark::DoNotOptimize(id);
        benchmark::DoNotOptimize(std::snprintf(out, sizeof out, "(%hu-%u#%u)", id.H, id.L, id.B));
        benchmark::ClobberMemory();
    }
}

void Scan(benchmark::State& state) {
    KyTypeMgr manager(5);
    KyString text;
    printedId.PrintToKyString(text, nullptr);
    KyObjId id;
    for (auto _ : state) {
        benchmark::DoNotOptimize(manager.ScanFromKyString(KyOBJID_T, &id, text, nullptr, 1));
        benchmark::ClobberMemory();
    }
}

void ScanByC(benchmark::State& state) {
    KyString text;
    printedId.PrintToKyString(text, nullptr);
    KyObjId id;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::sscanf(text.StrGet(), "(%hu-%u#%u)", &id.H, &id.L, &id.B));
        benchmark::ClobberMemory();
    }
}

const bench::AtStart here([] {
    for (const IdentifierType& type : types) {
        for (const Shape& shape : shapes) Register(type, shape);
    }
    bench::RegisterPair("identity/print/KyObjId", bench::AtLeast(1.5), Print, PrintByC);
    bench::RegisterPair("identity/scan/KyObjId", bench::AtLeast(2.0), Scan, ScanByC);
});

}  // namespace
