// Stored values of the ODMG types of any bytes, arrays that are told any byte length, and texts of any bytes: nothing
// behind a length is read, comparisons mirror each other where they are exact, and what is printed scans back.

#include <algorithm>
#include <memory>

#include "input.h"
#include "kybase.h"
#include "kystring.h"
#include "kytypevl.h"
#include "kytypmgr.h"

namespace {

constexpr char kIds[] = {D_DATE_T, D_TIME_T, D_TIMESTAMP_T, D_INTERVAL_T};

/// A copy without a spare byte behind it, in which the sanitizer sees every read past the end.
std::unique_ptr<unsigned char[]> Copy(const std::uint8_t* data, std::size_t size, std::size_t bytes) {
    auto copy = std::make_unique<unsigned char[]>(bytes);
    for (std::size_t i = 0; i < bytes; ++i) copy[i] = size == 0 ? 0 : data[i % size];
    return copy;
}

/// The elements that a call with this length may read: the first, and those that lie in the length; of intervals,
/// which are numbers, those that start in it.
std::size_t Readable(char id, unsigned length, unsigned width, unsigned count) {
    if (length == 0) return count;
    const unsigned inside = id == D_INTERVAL_T ? (length + width - 1) / width : std::max(length / width, 1U);
    return std::min(inside, count);
}

void Compare(KyTypeMgr& types, char id, Input& input) {
    const unsigned char flag = input.Byte();
    const unsigned count = input.Byte() % 40;
    const unsigned len1 = input.Byte();
    const unsigned len2 = input.Byte();
    const auto op = static_cast<unsigned short>(input.Byte());
    const unsigned width = types.MemLenGet(id, 1);
    const auto a = Copy(input.Rest(), input.RestSize() / 2, Readable(id, len1, width, count) * width);
    const auto b = Copy(input.Rest(), input.RestSize(), Readable(id, len2, width, count) * width);

    int err = -1;
    const int order = types.Cmp(id, len1, a.get(), len2, b.get(), op, count, flag, err);
    if (err != 0 && err != KyErrBufferEnd) __builtin_trap();
    int mirroredErr = -1;
    const int mirrored = types.Cmp(id, len2, b.get(), len1, a.get(), op, count, flag, mirroredErr);
    if ((op & KyCmpExact) != 0 && (order != -mirrored || err != mirroredErr)) __builtin_trap();
    types.Hash(id, len1, a.get(), count, flag, err);

    if (count == 0 || len1 != 0) return;
    KyIdxBounds bounds;
    bounds.lower = a.get();
    bounds.upper = b.get();
    KyIdxBounds out;
    unsigned short word = op;
    const float share = types.EvalAndBound(id, &bounds, word, a.get(), flag, count, &out, nullptr);
    if (!(share >= 0 && share <= 1)) __builtin_trap();
    mmKyfree(out.lower);
    mmKyfree(out.upper);
}

void PrintAndScan(KyTypeMgr& types, char id, Input& input) {
    const bool ownFormat = (input.Byte() & 1) != 0;
    const std::string format = input.Text();
    KyString text(input.Text().c_str());
    const auto bytes = Copy(input.Rest(), input.RestSize(), types.MemLenGet(id, 1));
    void* value = types.Create(id, 1);
    types.Load(id, value, bytes.get(), KyFormNative, 1);
    types.GetValue(id, value, 1, KyFormMemory, KyValueStep);
    KyString printed;
    types.PrintToKyString(id, printed, value, ownFormat ? nullptr : format.c_str(), 1);
    if (id == D_DATE_T) {
        constexpr const char* whole = "%Y/%m/%d";
        types.PrintToKyString(id, printed, value, whole, 1);
        void* back = types.Create(id, 1);
        types.ScanFromKyString(id, back, printed, whole, 1);
        int err = -1;
        if (types.Cmp(id, 0, value, 0, back, KyCmpExact, 1, KyFormNative, err) != 0) __builtin_trap();
        types.Delete(id, back, 1);
    }
    void* scanned = types.ScanFromKyString(id, value, text, ownFormat ? nullptr : format.c_str(), 1);
    if (scanned != nullptr && scanned != value) __builtin_trap();
    types.Delete(id, value, 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = kIds[input.Byte() % sizeof kIds];
    if ((input.Byte() & 1) != 0) {
        Compare(types, id, input);
    } else {
        PrintAndScan(types, id, input);
    }
    return 0;
}
