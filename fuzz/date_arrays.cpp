// Arrays of dates, times and spans that are told any byte length: nothing is read but the first element and those that
// lie within the length as a whole.

#include <algorithm>
#include <memory>

#include "input.h"
#include "kytypmgr.h"

namespace {

constexpr char kDateIds[] = {KyDATE_T, KyTIME_T, KyDATIME_T, KyDATIME_N_T, KyTIMESPAN_T};

/// A copy without a spare byte behind it, in which the sanitizer sees every read past the end.
std::unique_ptr<unsigned char[]> Bytes(const std::uint8_t* data, std::size_t size, std::size_t bytes) {
    auto copy = std::make_unique<unsigned char[]>(bytes);
    for (std::size_t i = 0; i < bytes; ++i) copy[i] = size == 0 ? 0 : data[i % size];
    return copy;
}

/// Elements that a walk with this length visits.
unsigned Visited(unsigned length, unsigned width, unsigned count) {
    if (length == 0 || count == 0) return count;
    return std::min(std::max(length / width, 1u), count);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = kDateIds[input.Byte() % sizeof kDateIds];
    const unsigned char flag = input.Byte();
    const unsigned char highOp = input.Byte();
    const auto op = static_cast<unsigned short>(highOp << 8 | input.Byte());
    const unsigned count = input.Byte();
    const unsigned len1 = input.Byte();
    const unsigned len2 = input.Byte();
    const bool inMemory = (flag & KyFormMask) == KyFormMemory;
    const unsigned memory = types.MemLenGet(id, 1);
    const unsigned stored = types.DiskLenGet(id, nullptr, flag, 1, KyFormMemory);
    const unsigned width = inMemory ? memory : stored;
    const auto a = Bytes(input.Rest(), input.RestSize() / 2, std::size_t{width} * Visited(len1, width, count));
    const auto b = Bytes(input.Rest(), input.RestSize(), std::size_t{width} * Visited(len2, width, count));

    int err = -1;
    const int order = types.Cmp(id, len1, a.get(), len2, b.get(), op, count, flag, err);
    if (err != 0 && err != KyErrBufferEnd) __builtin_trap();
    if ((op & KyCmpExact) != 0 || inMemory) {
        int mirroredErr = -1;
        const int mirrored = types.Cmp(id, len2, b.get(), len1, a.get(), op, count, flag, mirroredErr);
        if (order != -mirrored || err != mirroredErr) __builtin_trap();
    }
    types.Hash(id, len1, a.get(), count, flag, err);

    // What is stored and loaded again is the same in every field.
    const auto values = Bytes(input.Rest(), input.RestSize(), std::size_t{memory} * count);
    const auto form = std::make_unique<unsigned char[]>(std::size_t{stored} * count);
    const auto back = std::make_unique<unsigned char[]>(std::size_t{memory} * count);
    types.Store(id, form.get(), values.get(), flag, count);
    types.Load(id, back.get(), form.get(), flag, count);
    if (types.Cmp(id, 0, values.get(), 0, back.get(), KyCmpExact, count, KyFormMemory, err) != 0) __builtin_trap();
    return 0;
}
