// Stored dictionary strings of any bytes that are told any byte length: nothing behind it is read.

#include <memory>
#include <vector>

#include "input.h"
#include "kyistring.h"
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
    bool IsWhole(unsigned char flag) const {
        if (size < 3) return false;
        const unsigned low = bytes[(flag & 15) == 2 ? 2 : 1];
        const unsigned high = bytes[(flag & 15) == 2 ? 1 : 2];
        return size - 3 >= (high << 8 | low);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = (input.Byte() & 1) != 0 ? char{KyISTRING_T} : char{KyCASEISTRING_T};
    const unsigned char forms[] = {0x01, 0x02, 0x81, 0x82, 0x41};
    const unsigned char flag = forms[input.Byte() % 5];
    const auto op = static_cast<unsigned short>(input.Byte() << 4);
    const unsigned count = input.Byte() % 8;
    const std::size_t half = input.RestSize() / 2;
    const Record a(input.Rest(), half);
    const Record b(input.Rest() + half, input.RestSize() - half);
    if (a.size == 0) return 0;

    int err = -1;
    int mirroredErr = -1;
    const int order = types.Cmp(id, a.size, a.bytes.get(), b.size, b.bytes.get(), op, count, flag, err);
    const int mirrored = types.Cmp(id, b.size, b.bytes.get(), a.size, a.bytes.get(), op, count, flag, mirroredErr);
    const bool isSymmetric =
        (op & (KyCmpExact | KyCmpStringExact)) != 0 && err != KyErrNotSupported && mirroredErr != KyErrNotSupported;
    if (isSymmetric && (order != -mirrored || err != mirroredErr)) __builtin_trap();

    if (!a.IsWhole(flag)) return 0;
    types.Cmp(id, 0, a.bytes.get(), b.size, b.bytes.get(), op, count, flag, err);
    types.DiskLenGet(id, a.bytes.get(), flag, count, flag);
    void* values = types.Create(id, count);
    types.Load(id, values, a.bytes.get(), flag, count);
    std::vector<unsigned char> stored(types.DiskLenGet(id, values, flag & 15, count, KyFormMemory));
    if (types.Store(id, stored.data(), values, flag & 15, count) != stored.size()) __builtin_trap();
    types.Delete(id, values, count);
    return 0;
}
