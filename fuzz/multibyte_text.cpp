// Any bytes as multibyte text, told any length, against each other's ways: nothing behind the length is read, what was
// decoded is encoded again into just as many bytes, and no buffer is written past its size.

#include <algorithm>
#include <vector>

#include "input.h"
#include "kymultibyte.h"
#include "kystring.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned room = input.Byte();
    const std::size_t bytes = input.RestSize();
    const auto exact = ExactBytes(input.Rest(), bytes, bytes);
    const char* in = reinterpret_cast<const char*>(exact.get());
    const int length = static_cast<int>(bytes);

    // Character by character.
    int slowCount = 0;
    bool isEncodedAgain = true;
    for (std::size_t at = 0; at < bytes;) {
        unsigned short unit = 0;
        const int used = ky_mbtowc(&unit, in + at, bytes - at);
        if (used == 0 || used > 6) __builtin_trap();
        if (used < 0) {
            slowCount = -1;
            break;
        }
        char again[3];
        const int written = ky_wctomb(again, unit);
        if (written != ky_len4wc(unit)) __builtin_trap();
        if (used <= 3 && (written != used || std::memcmp(again, in + at, static_cast<std::size_t>(used)) != 0))
            __builtin_trap();
        isEncodedAgain = isEncodedAgain && used <= 3 && unit != 0;
        at += static_cast<std::size_t>(used);
        ++slowCount;
    }

    std::vector<unsigned short> units(room);
    const int count = KyMultiByteStr2WCharStr(units.data(), static_cast<int>(room), in, length);
    if (count != slowCount) __builtin_trap();

    KyString text;
    const int used = KyMBS2KyString(in, text, length);
    if (used >= 0 && isEncodedAgain) {
        if (used != length) __builtin_trap();
        if (text.Len() != count) __builtin_trap();
        std::vector<char> out(bytes + 1);
        if (KyString2KyMBS(text, out.data(), length + 1) != length) __builtin_trap();
        if (bytes != 0 && std::memcmp(out.data(), in, bytes) != 0) __builtin_trap();
    }
    const auto small = std::make_unique<char[]>(room);
    if (KyString2KyMBS(text, small.get(), static_cast<int>(room)) > static_cast<int>(room)) __builtin_trap();
    KyMBSLength(text, static_cast<unsigned short>(room));
    return 0;
}
