// Hash of columns, against the exclusive or of the same bytes written by hand.

#include <benchmark/benchmark.h>

#include "goals.h"
#include "kytypmgr.h"
#include "number_columns.h"
#include "peers.h"

namespace {

using bench::NumberType;
using bench::Shape;

void Hash(benchmark::State& state, NumberType type, Shape shape, unsigned char form) {
    KyTypeMgr manager(5);
    const bench::Columns& columns = bench::SharedColumns();
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(manager.Hash(type.id, 0, columns.values, shape.count, form, err));
        benchmark::ClobberMemory();
    }
}

void Xor(benchmark::State& state, NumberType type, Shape shape) {
    const bench::Columns& columns = bench::SharedColumns();
    const bench::XorFunction combine = bench::BestXor();
    const std::size_t size = std::size_t{type.width} * shape.count;
    for (auto _ : state) {
        benchmark::DoNotOptimize(combine(columns.values, size));
        benchmark::ClobberMemory();
    }
}

const bench::AtStart here([] {
    for (const NumberType& type : bench::numberTypes) {
        for (const Shape& shape : bench::shapes) {
            if (shape.offset != 0) continue;
            const auto peer = [=](benchmark::State& state) { Xor(state, type, shape); };
            const auto ours = [=](unsigned char form) {
                return [=](benchmark::State& state) { Hash(state, type, shape, form); };
            };
            const std::string start = std::string("hash/") + type.name;
            bench::RegisterPair(start + "/memory/" + shape.name, bench::AtLeast(0.8), ours(KyFormMemory), peer);
            bench::RegisterPair(start + "/reversed/" + shape.name, bench::AtLeast(0.8), ours(KyFormReversed), peer);
        }
    }
});

}  // namespace
