#include <algorithm>
#include <cstring>
#include <memory>

#include "kymultibyte.h"
#include "kystring.h"
#include "kystring_build.h"
#include "utf8_kernels.h"

namespace {

/// Characters are decoded in steps of this size; what ends within the first needs no other memory than the string
/// itself.
constexpr std::size_t kBlock = 256;
/// Longest multibyte text that becomes a string.
constexpr std::size_t kMaxTextBytes = 32767;
/// Longest form of a character.
constexpr std::size_t kMaxFormBytes = 6;

/// Decodes a text for a string, block by block.
class Decoder {
public:
    Decoder(const char* in, int inLen)
        // A zero byte ends the text, whether it ends a character or breaks one. What follows the character that passes
        // the limit is never looked at.
        : text(in),
          length(inLen == 0 ? 0
                            : strnlen(in, std::min(static_cast<std::size_t>(inLen), kMaxTextBytes + kMaxFormBytes))) {}

    /// Decodes up to a block; returns the characters, a whole block unless the text has ended.
    std::size_t Next(unsigned short* units) {
        std::size_t count = 0;
        while (!hasEnded && used < length && count < kBlock) {
            const std::size_t plain = std::min(length, kMaxTextBytes) - used;
            const auto [read, written] = ky::Utf8ToUnits(text + used, plain, units + count, kBlock - count);
            used += read;
            count += written;
            if (read == 0) Step(units, count);
        }
        return count;
    }

    std::size_t Left() const { return length - used; }

    /// Bytes used, or why there is no more.
    int Result() const { return result < 0 ? result : static_cast<int>(used); }

private:
    const char* text;
    std::size_t length;
    std::size_t used = 0;
    int result = 0;
    bool hasEnded = false;

    /// One character of any form.
    void Step(unsigned short* units, std::size_t& count) {
        unsigned short unit = 0;
        const int size = ky_mbtowc(&unit, text + used, length - used);
        hasEnded = size < 0 || unit == 0;
        if (size < 0) result = size;
        if (hasEnded) return;
        units[count++] = unit;
        used += static_cast<std::size_t>(size);
        if (used <= kMaxTextBytes) return;
        result = -2;
        hasEnded = true;
    }
};

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
    Decoder decoder(in, in == nullptr ? 0 : std::max(inLen, 0));
    unsigned short units[kBlock];
    const auto* text = reinterpret_cast<const char*>(units);
    std::size_t count = decoder.Next(units);
    // `in` may lie in the text that goes.
    const std::unique_ptr<char[]> old(out.buffer);
    const std::size_t bytes = count * sizeof *units;
    out.codeSet = KyCodeSetUnicode;
    out.buffer = nullptr;
    out.bufferSize = 0;
    if (count == 0) return decoder.Result();
    if (count == kBlock) {
        // A longer text gathers whole, so that the string's block is made once. Each character takes a byte at least.
        const std::unique_ptr<unsigned short[]> longer(new unsigned short[decoder.Left() + 2 * kBlock]);
        std::memcpy(longer.get(), units, sizeof units);
        std::size_t length = count;
        while ((count = decoder.Next(longer.get() + length)) != 0) length += count;
        out.MakeString(reinterpret_cast<const char*>(longer.get()), KyCodeSetUnicode, static_cast<short>(length), 1);
        return decoder.Result();
    }
    out.buffer = new char[bytes + sizeof *units];
    out.bufferSize = static_cast<unsigned short>(bytes + sizeof *units);
    ky::CopyText(out.buffer, text, bytes);
    ky::WriteUnit(out.buffer + bytes, 0, 1);
    return decoder.Result();
}

int KyMultiByteString2KyString(const char* in, KyString& out, int inLen) { return KyMBS2KyString(in, out, inLen); }

// KEPT: the bytes that are read of a 16-bit string are as many as its characters.
int KyMultiByteString2KyString(const KyString& in, KyString& out) { return KyMBS2KyString(in.StrGet(), out, in.Len()); }
