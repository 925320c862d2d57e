// What a call through the type manager costs over a direct call of the row's function.

#include <benchmark/benchmark.h>

#include "goals.h"
#include "kytypmgr.h"
#include "number_columns.h"

namespace {

template <class Call>
void Repeat(benchmark::State& state, Call call) {
    for (auto _ : state) {
        call();
        benchmark::ClobberMemory();
    }
}

KyTypeTab* RowOf(char id) {
    KyTypeTab* row = KyNewtypetab[static_cast<int>(id)];
    benchmark::DoNotOptimize(row);
    return row;
}

void RegisterDispatch(const std::string& type, char id) {
    using benchmark::DoNotOptimize;
    const bench::Goal goal = bench::AtMostMore(1.5);
    const bench::Columns& columns = bench::SharedColumns();

    bench::RegisterPair(
        "dispatch/compare/" + type, goal,
        [=](benchmark::State& state) {
            KyTypeMgr manager(5);
            int err;
            Repeat(state, [&] {
                DoNotOptimize(manager.Cmp(id, 0, columns.values, 0, columns.equalValues, 0, 1, KyFormMemory, err));
            });
        },
        [=](benchmark::State& state) {
            KyCompareFunc* compare = RowOf(id)->Compare;
            int err;
            Repeat(state,
                   [&] { DoNotOptimize(compare(KyFormMemory, 0, columns.values, 0, columns.equalValues, 0, 1, err)); });
        });
    bench::RegisterPair(
        "dispatch/hash/" + type, goal,
        [=](benchmark::State& state) {
            KyTypeMgr manager(5);
            int err;
            Repeat(state, [&] { DoNotOptimize(manager.Hash(id, 0, columns.values, 1, KyFormMemory, err)); });
        },
        [=](benchmark::State& state) {
            KyHashFunc* hash = RowOf(id)->Hash;
            int err;
            Repeat(state, [&] { DoNotOptimize(hash(KyFormMemory, 0, columns.values, 1, err)); });
        });
    bench::RegisterPair(
        "dispatch/store/" + type, goal,
        [=](benchmark::State& state) {
            KyTypeMgr manager(5);
            Repeat(state, [&] { DoNotOptimize(manager.Store(id, columns.spare, columns.values, KyFormReversed, 1)); });
        },
        [=](benchmark::State& state) {
            KyStoreFunc* store = RowOf(id)->Store;
            Repeat(state, [&] { DoNotOptimize(store(columns.spare, columns.values, KyFormReversed, 1)); });
        });
    bench::RegisterPair(
        "dispatch/is_null/" + type, goal,
        [=](benchmark::State& state) {
            KyTypeMgr manager(5);
            Repeat(state, [&] { DoNotOptimize(manager.IsNullValue(id, columns.values)); });
        },
        [=](benchmark::State& state) {
            KyIsNullFunc* isNull = RowOf(id)->IsNull;
            Repeat(state, [&] { DoNotOptimize(isNull(columns.values)); });
        });
}

const bench::AtStart here([] {
    RegisterDispatch("o_4b", Ky4B_T);
    RegisterDispatch("o_double", KyDOUBLE_T);
});

}  // namespace
