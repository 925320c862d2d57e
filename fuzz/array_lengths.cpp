// Arrays of numbers, nullable ones too, that are told any byte length: nothing behind the elements that start inside it
// is read.

#include <memory>

#include "input.h"
#include "kytypmgr.h"

namespace {

/// A copy without a spare byte behind it, in which the sanitizer sees every read past the end. Holds what a call
/// with this length may read: every element that starts inside it, and the first.
std::unique_ptr<unsigned char[]> Readable(const std::uint8_t* data, std::size_t size, unsigned length, unsigned width,
                                          unsigned count) {
    const unsigned inside = length == 0 ? count : (length + width - 1) / width;
    const std::size_t bytes = std::size_t{inside < count ? inside : count} * width;
    auto copy = std::make_unique<unsigned char[]>(bytes);
    for (std::size_t i = 0; i < bytes; ++i) copy[i] = size == 0 ? 0 : data[i % size];
    return copy;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = AnyNumberId(input);
    const unsigned char flag = input.Byte();
    const unsigned count = input.Byte();
    const unsigned len1 = input.Byte();
    const unsigned len2 = input.Byte();
    const bool inMemory = (flag & KyFormMask) == KyFormMemory;
    const unsigned width = inMemory ? types.MemLenGet(id, 1) : types.DiskLenGet(id, nullptr, flag, 1, KyFormMemory);
    const auto a = Readable(input.Rest(), input.RestSize() / 2, len1, width, count);
    const auto b = Readable(input.Rest(), input.RestSize(), len2, width, count);

    int err = -1;
    const int order = types.Cmp(id, len1, a.get(), len2, b.get(), 0, count, flag, err);
    if (err != 0 && err != KyErrBufferEnd) __builtin_trap();
    int mirroredErr = -1;
    const int mirrored = types.Cmp(id, len2, b.get(), len1, a.get(), 0, count, flag, mirroredErr);
    if (order != -mirrored || err != mirroredErr) __builtin_trap();
    types.Hash(id, len1, a.get(), count, flag, err);
    return 0;
}
