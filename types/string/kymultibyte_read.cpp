#include <algorithm>
#include <cstring>
#include <utility>

#include "kymultibyte.h"
#include "kystring.h"
#include "kystring_build.h"
#include "utf8_kernels.h"

namespace {

/// Decoded characters gather in blocks of this size, so that the growing string is rebuilt once for each.
constexpr std::size_t kBlock = 256;
/// Longest multibyte text that becomes a string.
constexpr std::size_t kMaxTextBytes = 32767;
/// Longest form of a character.
constexpr std::size_t kMaxFormBytes = 6;

}  // namespace

int KyMultiByteStr2WCharStr(unsigned short* out, int outMax, const char* in, int inLen) {
    if (in == nullptr || inLen <= 0) return 0;
    const auto length = static_cast<std::size_t>(inLen);
    const auto room = static_cast<std::size_t>(std::max(outMax, 0));
    unsigned short uncounted[kBlock];
    std::size_t count = 0;
    for (std::size_t used = 0; used < length;) {
        // Characters that are not stored are decoded into a block that nobody looks at.
        const bool isStored = count < room;
        unsigned short* to = isStored ? out + count : uncounted;
        const auto [read, written] = ky::Utf8ToUnits(in + used, length - used, to, isStored ? room - count : kBlock);
        used += read;
        count += written;
        if (read != 0) continue;
        const int size = ky_mbtowc(to, in + used, length - used);
        if (size < 0) return size;
        used += static_cast<std::size_t>(size);
        ++count;
    }
    return static_cast<int>(count);
}

int KyMBS2KyString(const char* in, KyString& out, int inLen) {
    const KyString old(std::move(out));  // `in` may lie in it
    out = KyString(KyCodeSetUnicode, old.LanguageGet());
    if (in == nullptr || inLen <= 0) return 0;

    // A zero byte ends the text, whether it ends a character or breaks one. What follows the character that passes the
    // limit is never looked at.
    const std::size_t length = strnlen(in, std::min(static_cast<std::size_t>(inLen), kMaxTextBytes + kMaxFormBytes));
    unsigned short units[kBlock];
    std::size_t gathered = 0;
    std::size_t appended = 0;
    const auto append = [&] {
        const auto* text = reinterpret_cast<const char*>(units);
        const auto count = static_cast<unsigned short>(gathered);
        if (appended == 0) {
            out.MakeString(text, KyCodeSetUnicode, static_cast<short>(count), 1);
        } else if (count != 0) {
            out.BuildString(text, KyCodeSetUnicode, static_cast<unsigned short>(appended), 0, count, 1, ky::kAppend, 1);
        }
        appended += gathered;
        gathered = 0;
    };
    int result = 0;
    std::size_t used = 0;
    while (used < length) {
        if (gathered == kBlock) append();
        const std::size_t plain = std::min(length, kMaxTextBytes) - used;
        const auto [read, written] = ky::Utf8ToUnits(in + used, plain, units + gathered, kBlock - gathered);
        used += read;
        gathered += written;
        if (read != 0) continue;
        const int size = ky_mbtowc(units + gathered, in + used, length - used);
        if (size < 0) result = size;
        if (size < 0 || units[gathered] == 0) break;
        ++gathered;
        used += static_cast<std::size_t>(size);
        if (used > kMaxTextBytes) {
            result = -2;
            break;
        }
    }
    append();
    return result < 0 ? result : static_cast<int>(used);
}

int KyMultiByteString2KyString(const char* in, KyString& out, int inLen) { return KyMBS2KyString(in, out, inLen); }

// KEPT: the bytes that are read of a 16-bit string are as many as its characters.
int KyMultiByteString2KyString(const KyString& in, KyString& out) { return KyMBS2KyString(in.StrGet(), out, in.Len()); }
