// Stored strings of any bytes that are told any byte length: nothing behind it is read.

#include <memory>
#include <vector>

#include "input.h"
#include "kystring.h"
#include "kytypes.h"

namespace {

/// A copy without a spare byte behind it, in which the sanitizer sees every read past the end.
struct Part {
    std::unique_ptr<unsigned char[]> bytes;
    unsigned size;

    Part(const std::uint8_t* data, std::size_t length)
        : bytes(std::make_unique<unsigned char[]>(length)), size(static_cast<unsigned>(length)) {
        for (std::size_t i = 0; i < length; ++i) bytes[i] = data[i];
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const KyTypeTab& row = (input.Byte() & 1) != 0 ? KyStringTab : KyOldStringTab;
    const unsigned char forms[] = {0x01, 0x02, 0x81, 0x82};
    const unsigned char flag = forms[input.Byte() % 4];
    const auto op = static_cast<unsigned short>(input.Byte() << 4);
    const unsigned count = 1 + input.Byte() % 4;
    const std::size_t half = input.RestSize() / 2;
    const Part a(input.Rest(), half);
    const Part b(input.Rest() + half, input.RestSize() - half);
    if (a.size == 0) return 0;

    int err = -1;
    int mirroredErr = -1;
    const int order = row.Compare(flag, a.size, a.bytes.get(), b.size, b.bytes.get(), op, count, err);
    const int mirrored = row.Compare(flag, b.size, b.bytes.get(), a.size, a.bytes.get(), op, count, mirroredErr);
    if ((op & (KyCmpExact | KyCmpStringExact)) != 0 && order != -mirrored) __builtin_trap();
    row.Hash(flag, a.size, a.bytes.get(), count, err);

    // What is translated once more stays as it is.
    std::vector<unsigned char> once(4096 + 4 * std::size_t{a.size});
    std::vector<unsigned char> again(once.size());
    const auto room = static_cast<unsigned>(once.size());
    const unsigned char form = flag & KyFormMask;
    const unsigned written = row.Translate(once.data(), form, room, a.bytes.get(), flag, a.size, count);
    const unsigned current = &row == &KyStringTab ? 0x80 : 0;
    const auto known = static_cast<unsigned char>(form | current);
    if (written != 0) {
        if (row.Translate(again.data(), form, room, once.data(), known, written, count) != written) __builtin_trap();
        if (once != again) __builtin_trap();
    }
    unsigned char key[253];
    row.Translate(key, form, sizeof key, a.bytes.get(), flag, a.size, 1);

    void* values = row.Create(count);
    row.Translate(values, KyFormMemory, 0, a.bytes.get(), flag, a.size, count);
    std::vector<unsigned char> stored(row.SizeGet(values, KyFormMemory, form, count));
    if (row.Store(stored.data(), values, form, count) != stored.size()) __builtin_trap();
    row.Delete(values, count);
    return 0;
}
