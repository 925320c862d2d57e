// Index bounds: the share of a range that a comparison keeps, against a look-up in a histogram of equally wide buckets,
// which is what a planner without the range would do, and which takes as many blocks for limits as we do.

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "goals.h"
#include "kybase.h"
#include "kynull.h"
#include "kytypevl.h"
#include "kytypmgr.h"

namespace {

constexpr unsigned kConstants = 1024;

/// Constants to compare with, all inside the range but some, and the range's limits, stored one behind the other.
template <class Value>
class Stored {
public:
    Stored(char id, unsigned char form) {
        KyTypeMgr manager(5);
        for (unsigned i = 0; i < kConstants; ++i) constants[i] = Value(static_cast<int>(i * 7919 % 110));
        stride = manager.DiskLenGet(id, nullptr, form, 1, KyFormMemory);
        bytes.resize(std::size_t{stride} * (kConstants + 2));
        manager.Store(id, bytes.data(), constants.data(), form, kConstants);
        Value limits[] = {Value(5), Value(104)};
        manager.Store(id, Constant(kConstants), limits, form, 2);
        range = {Constant(kConstants), Constant(kConstants + 1), static_cast<unsigned char>(stride),
                 static_cast<unsigned char>(stride)};
    }

    void* Constant(unsigned i) { return bytes.data() + std::size_t{stride} * i; }

    KyIdxBounds range;
    unsigned stride = 0;
    std::array<Value, kConstants> constants;

private:
    std::vector<unsigned char> bytes;
};

/// Frees what was recorded; returns how many blocks that were.
unsigned Free(KyIdxBounds& out) {
    const unsigned blocks = (out.lower != nullptr) + (out.upper != nullptr);
    if (blocks != 0) {
        mmKyfree(out.lower);
        mmKyfree(out.upper);
        out = KyIdxBounds();
    }
    return blocks;
}

template <class Value>
void Evaluate(benchmark::State& state, char id, unsigned char form, unsigned short op) {
    KyTypeMgr manager(5);
    Stored<Value> stored(id, form);
    KyIdxBounds out;
    unsigned at = 0;
    std::size_t blocks = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            manager.EvalAndBound(id, &stored.range, op, stored.Constant(at), form, 1, &out, nullptr));
        blocks += Free(out);
        at = (at + 1) % kConstants;
    }
    state.counters["blocks"] = static_cast<double>(blocks) / static_cast<double>(state.iterations());
}

/// 64 equally wide buckets with the share of the keys before each; linear within a bucket.
struct Histogram {
    static constexpr int kBuckets = 64;
    double lower = 5;
    double upper = 105;
    std::array<double, kBuckets + 1> before{};

    Histogram() {
        for (int i = 0; i <= kBuckets; ++i) before[static_cast<std::size_t>(i)] = i / double{kBuckets};
    }

    double Less(double value) const {
        const double place = (value - lower) / (upper - lower) * kBuckets;
        if (!(place > 0)) return 0;
        if (place >= kBuckets) return 1;
        const auto bucket = static_cast<std::size_t>(place);
        return before[bucket] + (before[bucket + 1] - before[bucket]) * (place - static_cast<double>(bucket));
    }
};

/// A number in its persistent form; in the reversed one only as wide as a type of its own.
template <class Number>
double Decode(const unsigned char* from, unsigned char form) {
    unsigned char bytes[sizeof(Number)];
    for (std::size_t i = 0; i < sizeof bytes; ++i) {
        bytes[i] = from[form == KyFormReversed ? sizeof bytes - 1 - i : i];
    }
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return static_cast<double>(number);
}

template <class Value, class Number>
void LookUp(benchmark::State& state, char id, unsigned char form, unsigned short op) {
    Stored<Value> stored(id, form);
    const std::size_t before = stored.stride - sizeof(Number);  // the null byte, where there is one
    Histogram histogram;
    Histogram* shared = &histogram;
    KyIdxBounds out;
    unsigned at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(shared);
        const auto* constant = static_cast<const unsigned char*>(stored.Constant(at));
        const double value = Decode<Number>(constant + before, form);
        double share = 0;
        if ((op & KyCmpLess) != 0) share += shared->Less(value);
        if ((op & KyCmpGreater) != 0) share += 1 - shared->Less(value + 1);
        if ((op & KyCmpEqual) != 0) share += shared->Less(value + 1) - shared->Less(value);
        benchmark::DoNotOptimize(static_cast<float>(share));
        for (void** limit :
             {(op & KyCmpLess) == 0 ? &out.lower : nullptr, (op & KyCmpGreater) == 0 ? &out.upper : nullptr}) {
            if (limit == nullptr) continue;
            *limit = mmKymalloc(stored.stride);
            std::memcpy(*limit, constant, stored.stride);
        }
        Free(out);
        at = (at + 1) % kConstants;
    }
}

template <class Value, class Number>
void Register(const std::string& type, char id) {
    constexpr struct {
        const char* name;
        unsigned short op;
    } relations[] = {
        {"not_equal_no_limit", KyCmpLess | KyCmpGreater},
        {"less_one_limit", KyCmpLess},
        {"equal_two_limits", KyCmpEqual},
    };
    for (const auto& relation : relations) {
        for (const unsigned char form : {KyFormNative, KyFormReversed}) {
            const std::string name =
                "bounds/" + type + (form == KyFormNative ? "/native/" : "/reversed/") + relation.name;
            bench::RegisterPair(
                name, bench::AtMostMore(8),
                [=](benchmark::State& state) { Evaluate<Value>(state, id, form, relation.op); },
                [=](benchmark::State& state) { LookUp<Value, Number>(state, id, form, relation.op); });
        }
    }
}

const bench::AtStart here([] {
    Register<short, short>("o_2b", Ky2B_T);
    Register<int, int>("o_4b", Ky4B_T);
    Register<long long, long long>("o_8b", Ky8B_T);
    Register<unsigned long long, unsigned long long>("o_u8b", KyU8B_T);
    Register<double, double>("o_double", KyDOUBLE_T);
    Register<KyInt64, long long>("KyInt64", KyINT64_T);
    Register<KyNull_int, int>("KyNull_int", KyNULL_INT_T);
    Register<KyNull_double, double>("KyNull_double", KyNULL_DOUBLE_T);
});

}  // namespace
