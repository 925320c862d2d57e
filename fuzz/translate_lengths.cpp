// Arrays of every fixed-size type translated between any two forms, told any lengths: nothing behind the source is
// read, nothing behind the destination is written.

#include <algorithm>

#include "input.h"
#include "kytypmgr.h"

namespace {

bool IsMemory(unsigned char flag) { return (flag & KyFormMemory) != 0; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = static_cast<char>(input.Byte() % KyRES_T);
    if (types.IsFixed(id) == 0) return 0;
    const unsigned char dstFlag = input.Byte();
    const unsigned char srcFlag = input.Byte();
    const unsigned count = input.Byte();
    const unsigned dstLen = input.Byte();
    const unsigned srcLen = input.Byte();
    // Lengths count between persistent forms only; all other ways take whole elements.
    const bool told = !IsMemory(dstFlag) && !IsMemory(srcFlag);
    const auto bytesOf = [&](unsigned char flag, unsigned length) -> std::size_t {
        if (IsMemory(flag)) return types.MemLenGet(id, count);
        const auto form = static_cast<unsigned char>(flag & KyFormMask);
        return told && length != 0 ? length : types.DiskLenGet(id, nullptr, form, count, KyFormMemory);
    };
    const std::size_t dstBytes = bytesOf(dstFlag, dstLen);
    const std::size_t srcBytes = bytesOf(srcFlag, srcLen);
    const auto source = ExactBytes(input.Rest(), input.RestSize(), srcBytes);
    const auto target = std::make_unique<unsigned char[]>(dstBytes);
    std::memset(target.get(), 0xA5, dstBytes);

    const unsigned done = types.Translate(id, target.get(), dstFlag, dstLen, source.get(), srcFlag, srcLen, count);
    if (!told) return 0;
    if (done != std::min(dstBytes, srcBytes)) __builtin_trap();
    if (std::memcmp(target.get(), source.get(), done) != 0) __builtin_trap();
    for (std::size_t i = done; i < dstBytes; ++i) {
        if (target[i] != 0) __builtin_trap();
    }
    return 0;
}
