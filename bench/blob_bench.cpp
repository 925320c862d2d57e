// Blobs: compare, store, load and append, against memcmp, memcpy and std::string.

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "goals.h"
#include "kyblob.h"
#include "kytypmgr.h"

namespace {

struct Size {
    const char* name;
    std::size_t bytes;
};

constexpr Size kSizes[] = {{"1k", 1 << 10}, {"16k", 1 << 14}, {"256k", 1 << 18}, {"1M", 1 << 20}};

std::vector<unsigned char> Content(std::size_t bytes) {
    std::vector<unsigned char> content(bytes);
    for (std::size_t i = 0; i < bytes; ++i) content[i] = static_cast<unsigned char>(i * 7 + (i >> 8));
    return content;
}

/// One blob in all forms, and its record.
struct Sample {
    KyTypeMgr types{5};
    std::vector<unsigned char> content;
    KyBlob blob;
    KyBlob equal;
    std::vector<unsigned char> record;
    std::vector<unsigned char> equalRecord;

    Sample(std::size_t bytes, unsigned char form) : content(Content(bytes)) {
        blob.SetTo(content.data(), static_cast<int>(bytes));
        equal = blob;
        record.resize(types.DiskLenGet(KyBLOB_T, &blob, form, 1, KyFormMemory));
        types.Store(KyBLOB_T, record.data(), &blob, form, 1);
        equalRecord = record;
    }
};

void Compare(benchmark::State& state, std::size_t bytes, unsigned char form) {
    Sample sample(bytes, form);
    KyCompareFunc* const compare = sample.types.CmpFuncPtrGet(KyBLOB_T);
    void* a = form == KyFormMemory ? static_cast<void*>(&sample.blob) : sample.record.data();
    void* b = form == KyFormMemory ? static_cast<void*>(&sample.equal) : sample.equalRecord.data();
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(compare(form, 0, a, 0, b, 0, 1, err));
        benchmark::ClobberMemory();
    }
}

/// The same two runs of bytes.
void CompareBytes(benchmark::State& state, std::size_t bytes, unsigned char form) {
    Sample sample(bytes, form);
    const bool inMemory = form == KyFormMemory;
    const void* a = inMemory ? sample.blob.Seek(0, 1) : sample.record.data() + 8;
    const void* b = inMemory ? sample.equal.Seek(0, 1) : sample.equalRecord.data() + 8;
    std::size_t size = bytes;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(std::memcmp(a, b, size));
        benchmark::ClobberMemory();
    }
}

void Store(benchmark::State& state, std::size_t bytes, unsigned char form) {
    Sample sample(bytes, form);
    KyStoreFunc* const store = sample.types.StorePtrGet(KyBLOB_T);
    for (auto _ : state) {
        benchmark::DoNotOptimize(store(sample.record.data(), &sample.blob, form, 1));
        benchmark::ClobberMemory();
    }
}

/// Into a blob that has a value of this length already, as a walk over records does it.
void Load(benchmark::State& state, std::size_t bytes, unsigned char form) {
    Sample sample(bytes, form);
    KyLoadFunc* const load = sample.types.LoadPtrGet(KyBLOB_T);
    for (auto _ : state) {
        benchmark::DoNotOptimize(load(&sample.blob, sample.record.data(), form, 1));
        benchmark::ClobberMemory();
    }
}

/// Between the same places.
void CopyBytes(benchmark::State& state, std::size_t bytes, bool store) {
    Sample sample(bytes, KyFormNative);
    void* dst = store ? sample.record.data() + 8 : sample.blob.Seek(0, 1);
    const void* src = store ? sample.blob.Seek(0, 1) : sample.record.data() + 8;
    std::size_t size = bytes;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(dst, src, size);
        benchmark::ClobberMemory();
    }
}

constexpr int kPiece = 16;

void Append(benchmark::State& state, int pieces) {
    const std::vector<unsigned char> piece = Content(kPiece);
    for (auto _ : state) {
        KyBlob blob;
        for (int i = 0; i < pieces; ++i) blob.Append(piece.data(), kPiece);
        benchmark::DoNotOptimize(blob.Seek(0, 1));
    }
}

void AppendToString(benchmark::State& state, int pieces) {
    const std::vector<unsigned char> piece = Content(kPiece);
    for (auto _ : state) {
        std::string text;
        for (int i = 0; i < pieces; ++i) text.append(reinterpret_cast<const char*>(piece.data()), kPiece);
        benchmark::DoNotOptimize(text.data());
    }
}

const bench::AtStart here([] {
    struct {
        const char* name;
        unsigned char form;
    } const forms[] = {{"memory/", KyFormMemory}, {"native/", KyFormNative}, {"reversed/", KyFormReversed}};
    for (const Size& size : kSizes) {
        const std::size_t bytes = size.bytes;
        for (const auto& each : forms) {
            const unsigned char form = each.form;
            bench::RegisterPair(
                std::string("blob/compare/") + each.name + size.name, bench::AtLeast(0.9),
                [=](benchmark::State& state) { Compare(state, bytes, form); },
                [=](benchmark::State& state) { CompareBytes(state, bytes, form); });
            if (form == KyFormMemory) continue;
            bench::RegisterPair(
                std::string("blob/store/") + each.name + size.name, bench::AtLeast(0.8),
                [=](benchmark::State& state) { Store(state, bytes, form); },
                [=](benchmark::State& state) { CopyBytes(state, bytes, true); });
            bench::RegisterPair(
                std::string("blob/load/") + each.name + size.name, bench::AtLeast(0.8),
                [=](benchmark::State& state) { Load(state, bytes, form); },
                [=](benchmark::State& state) { CopyBytes(state, bytes, false); });
        }
    }
    // The peer is inlined and knows the size of a piece; what counts is that a piece costs the same in a long blob.
    for (const int pieces : {1000, 100000}) {
        bench::RegisterPair(
            "blob/append/" + std::to_string(pieces), bench::AtLeast(0.2),
            [=](benchmark::State& state) { Append(state, pieces); },
            [=](benchmark::State& state) { AppendToString(state, pieces); });
    }
});

}  // namespace
