// Compare of equal columns, against memcmp.

#include <benchmark/benchmark.h>

#include <cstring>

#include "goals.h"
#include "kytypmgr.h"
#include "number_columns.h"

namespace {

using bench::NumberType;
using bench::Shape;

void Compare(benchmark::State& state, NumberType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const bench::Columns& columns = bench::SharedColumns();
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(
            manager.Cmp(type.id, 0, columns.values, 0, columns.equalValues, 0, shape.count, form, err));
        benchmark::ClobberMemory();
    }
}

void CompareBytes(benchmark::State& state, NumberType type, Shape shape) {
    const bench::Columns& columns = bench::SharedColumns();
    std::size_t size = std::size_t{type.width} * shape.count;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(std::memcmp(columns.values, columns.equalValues, size));
        benchmark::ClobberMemory();
    }
}

const bench::AtStart here([] {
    for (const NumberType& type : bench::numberTypes) {
        const bool isFloating = type.id == KyDOUBLE_T || type.id == KyFLOAT_T;
        for (const Shape& shape : bench::shapes) {
            if (shape.offset != 0) continue;
            const auto peer = [=](benchmark::State& state) { CompareBytes(state, type, shape); };
            const auto ours = [=](unsigned char form) {
                return [=](benchmark::State& state) { Compare(state, type, shape, form); };
            };
            const bench::Goal goal = bench::AtLeast(isFloating ? 0.5 : 0.8);
            const std::string start = std::string("compare/") + type.name;
            bench::RegisterPair(start + "/memory/" + shape.name, goal, ours(KyFormMemory), peer);
            bench::RegisterPair(start + "/reversed/" + shape.name, goal, ours(KyFormReversed), peer);
        }
    }
});

}  // namespace
