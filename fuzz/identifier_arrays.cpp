// Arrays of identifiers and seals that are told any byte length: nothing behind the elements that lie inside it is
// read, comparisons mirror each other, and index bounds only become narrower.

#include <algorithm>

#include "input.h"
#include "kybase.h"
#include "kytypevl.h"
#include "kytypmgr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    constexpr char ids[] = {KyOBJID_T, KyCLID_T, KyREF_T, KySEAL_T};
    const char id = ids[input.Byte() % sizeof ids];
    const unsigned char flag = input.Byte();
    const auto op = static_cast<unsigned short>(input.Byte());
    const unsigned count = input.Byte() % 40;
    const unsigned len1 = input.Byte();
    const unsigned len2 = input.Byte();
    const bool inMemory = (flag & KyFormMask) == KyFormMemory;
    const unsigned width = inMemory ? types.MemLenGet(id, 1) : types.DiskLenGet(id, nullptr, flag, 1, KyFormMemory);
    const auto readable = [&](unsigned length) {
        const unsigned inside = length == 0 ? count : (length + width - 1) / width;
        return std::size_t{std::min(inside, count)} * width;
    };
    const auto a = ExactBytes(input.Rest(), input.RestSize() / 2, readable(len1));
    const auto b = ExactBytes(input.Rest(), input.RestSize(), readable(len2));

    int err = -1;
    const int order = types.Cmp(id, len1, a.get(), len2, b.get(), op, count, flag, err);
    if (err != 0 && err != KyErrBufferEnd) __builtin_trap();
    int mirroredErr = -1;
    const int mirrored = types.Cmp(id, len2, b.get(), len1, a.get(), op, count, flag, mirroredErr);
    if ((op & KyCmpExact) != 0 && ((order > 0) != (mirrored < 0) || err != mirroredErr)) __builtin_trap();
    types.Hash(id, len1, a.get(), count, flag, err);

    const auto back = std::make_unique<unsigned char[]>(std::size_t{count} * types.MemLenGet(id, 1));
    if (len1 == 0 && !inMemory) {
        const auto again = std::make_unique<unsigned char[]>(std::size_t{count} * width);
        types.Load(id, back.get(), a.get(), flag, count);
        types.Store(id, again.get(), back.get(), flag, count);
        if (types.Cmp(id, 0, a.get(), 0, again.get(), KyCmpExact, count, flag, err) != 0) __builtin_trap();
    }

    if (count == 0 || len1 != 0 || len2 != 0) return 0;
    KyIdxBounds bounds;
    bounds.lower = a.get();
    bounds.upper = b.get();
    KyIdxBounds out;
    unsigned short word = op;
    const float share = types.EvalAndBound(id, &bounds, word, a.get(), flag, count, &out, nullptr);
    if (!(share >= 0 && share <= 1)) __builtin_trap();
    mmKyfree(out.lower);
    mmKyfree(out.upper);
    return 0;
}
