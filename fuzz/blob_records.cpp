// Stored blobs of any bytes, told any byte length: nothing behind it is read, nothing but whole records is loaded.

#include <memory>
#include <vector>

#include "input.h"
#include "kyblob.h"
#include "kytypmgr.h"

namespace {

/// A copy without a spare byte behind it, in which the sanitizer sees every read past the end.
struct Record {
    std::unique_ptr<unsigned char[]> bytes;
    unsigned size;

    Record(const std::uint8_t* data, std::size_t length)
        : bytes(std::make_unique<unsigned char[]>(length)), size(static_cast<unsigned>(length)) {
        for (std::size_t i = 0; i < length; ++i) bytes[i] = data[i];
    }
    /// All of what the record tells of itself is there.
    bool IsWhole(KyTypeMgr& types, unsigned char flag) const {
        if (size < 4) return false;
        const unsigned told = types.DiskLenGet(KyBLOB_T, bytes.get(), flag, 1, flag);
        return told >= 4 && told <= size;
    }
};

int SignOf(int number) { return (number > 0) - (number < 0); }

/// What was loaded is stored and loaded again, and orders as it did.
void CheckLoaded(KyTypeMgr& types, std::vector<KyBlob>& blobs, unsigned char flag) {
    const auto count = static_cast<unsigned>(blobs.size());
    std::vector<unsigned char> stored(types.DiskLenGet(KyBLOB_T, blobs.data(), flag, count, KyFormMemory));
    if (types.Store(KyBLOB_T, stored.data(), blobs.data(), flag, count) != stored.size()) __builtin_trap();
    std::vector<KyBlob> again(count);
    if (types.Load(KyBLOB_T, again.data(), stored.data(), flag, count) != stored.size()) __builtin_trap();
    if (types.Cmp(KyBLOB_T, blobs.data(), again.data(), 0, count, KyFormMemory) != 0) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const unsigned char flag = (input.Byte() & 1) != 0 ? KyFormReversed : KyFormNative;
    const unsigned count = input.Byte() % 8;
    const unsigned share = input.Byte();
    const std::size_t first = input.RestSize() * share / 256;
    const Record a(input.Rest(), first);
    const Record b(input.Rest() + first, input.RestSize() - first);
    if (a.size == 0 || b.size == 0) return 0;

    int err = -1;
    int mirroredErr = -1;
    const int order = types.Cmp(KyBLOB_T, a.size, a.bytes.get(), b.size, b.bytes.get(), 0, count, flag, err);
    const int mirrored = types.Cmp(KyBLOB_T, b.size, b.bytes.get(), a.size, a.bytes.get(), 0, count, flag, mirroredErr);
    if (order != -mirrored || err != 0 || mirroredErr != 0) __builtin_trap();
    types.Hash(KyBLOB_T, a.size, a.bytes.get(), count, flag, err);

    std::vector<KyBlob> x(count);
    std::vector<KyBlob> y(count);
    types.Translate(KyBLOB_T, x.data(), KyFormMemory, 0, a.bytes.get(), flag, a.size, count);
    if (!a.IsWhole(types, flag) || !b.IsWhole(types, flag)) return 0;
    types.Cmp(KyBLOB_T, a.bytes.get(), b.bytes.get(), 0, count, flag);
    types.Hash(KyBLOB_T, 0, a.bytes.get(), count, flag, err);
    if (types.Load(KyBLOB_T, x.data(), a.bytes.get(), flag, count) == 0) return 0;
    CheckLoaded(types, x, flag);
    if (types.Load(KyBLOB_T, y.data(), b.bytes.get(), flag, count) == 0) return 0;
    const int inMemory = types.Cmp(KyBLOB_T, x.data(), y.data(), 0, count, KyFormMemory);
    if (inMemory != SignOf(types.Cmp(KyBLOB_T, a.bytes.get(), b.bytes.get(), 0, count, flag))) __builtin_trap();
    return 0;
}
