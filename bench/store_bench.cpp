// Store and Load of columns, against memcpy and a byte swap written by hand.

#include <benchmark/benchmark.h>

#include <cstring>

#include "goals.h"
#include "kytypmgr.h"
#include "number_columns.h"
#include "peers.h"

namespace {

using bench::NumberType;
using bench::Shape;

void Transfer(benchmark::State& state, unsigned (KyTypeMgr::*operation)(char, void*, void*, unsigned char, unsigned),
              NumberType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const bench::Columns& columns = bench::SharedColumns();
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            (manager.*operation)(type.id, columns.spare + shape.offset, columns.values, form, shape.count));
        benchmark::ClobberMemory();
    }
}

void Copy(benchmark::State& state, NumberType type, Shape shape) {
    const bench::Columns& columns = bench::SharedColumns();
    std::size_t size = std::size_t{type.width} * shape.count;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(columns.spare + shape.offset, columns.values, size);
        benchmark::ClobberMemory();
    }
}

void Swap(benchmark::State& state, NumberType type, Shape shape) {
    const bench::Columns& columns = bench::SharedColumns();
    const bench::SwapFunction swap = bench::BestSwap(type.width);
    const std::size_t size = std::size_t{type.width} * shape.count;
    for (auto _ : state) {
        swap(columns.spare + shape.offset, columns.values, size);
        benchmark::ClobberMemory();
    }
}

/// One value, against a copy or a swap written where it is needed.
template <class Value, Value (*swap)(Value)>
void CopyOne(benchmark::State& state) {
    const bench::Columns& columns = bench::SharedColumns();
    for (auto _ : state) {
        Value value;
        std::memcpy(&value, columns.values, sizeof value);
        value = swap(value);
        std::memcpy(columns.spare, &value, sizeof value);
        benchmark::ClobberMemory();
    }
}

template <class Value>
Value Same(Value value) {
    return value;
}

unsigned short Swap2(unsigned short value) { return __builtin_bswap16(value); }
unsigned Swap4(unsigned value) { return __builtin_bswap32(value); }
unsigned long Swap8(unsigned long value) { return __builtin_bswap64(value); }

using Operation = unsigned (KyTypeMgr::*)(char, void*, void*, unsigned char, unsigned);

void RegisterColumns(const std::string& operationName, Operation operation, NumberType type, Shape shape) {
    const std::string start = operationName + '/' + type.name + '/';
    const auto ours = [=](unsigned char form) {
        return [=](benchmark::State& state) { Transfer(state, operation, type, shape, form); };
    };
    const auto copy = [=](benchmark::State& state) { Copy(state, type, shape); };
    const auto swap = [=](benchmark::State& state) { Swap(state, type, shape); };
    bench::RegisterPair(start + "native/" + shape.name, bench::AtLeast(0.9), ours(KyFormNative), copy);
    if (type.width == 1) {
        bench::RegisterPair(start + "reversed/" + shape.name, bench::AtLeast(0.9), ours(KyFormReversed), copy);
    } else {
        bench::RegisterPair(start + "reversed/" + shape.name, bench::AtLeast(0.8), ours(KyFormReversed), swap);
    }
}

template <class Value, Value (*swap)(Value)>
void RegisterOne(NumberType type) {
    const std::string start = std::string("store/") + type.name + '/';
    const auto ours = [=](unsigned char form) {
        return [=](benchmark::State& state) { Transfer(state, &KyTypeMgr::Store, type, {"one", 1, 0}, form); };
    };
    bench::RegisterPair(start + "native/one", bench::AtMostMore(2.0), ours(KyFormNative), &CopyOne<Value, Same<Value>>);
    bench::RegisterPair(start + "reversed/one", bench::AtMostMore(2.0), ours(KyFormReversed), &CopyOne<Value, swap>);
}

const bench::AtStart here([] {
    for (const NumberType& type : bench::numberTypes) {
        for (const Shape& shape : bench::shapes) {
            RegisterColumns("store", &KyTypeMgr::Store, type, shape);
            RegisterColumns("load", &KyTypeMgr::Load, type, shape);
        }
    }
    RegisterOne<unsigned short, Swap2>({"o_2b", Ky2B_T, 2});
    RegisterOne<unsigned, Swap4>({"o_4b", Ky4B_T, 4});
    RegisterOne<unsigned long, Swap8>({"o_8b", Ky8B_T, 8});
});

}  // namespace
