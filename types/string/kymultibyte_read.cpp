#include <algorithm>
#include <cstring>
#include <memory>

#include "code_mapping.h"
#include "kymultibyte.h"
#include "kystring.h"
#include "kystring_build.h"
#include "utf8_kernels.h"

namespace {

/// Characters that are only counted are decoded in steps of this size.
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

namespace {

/// A 16-bit text with its terminator, before it becomes that of a string. An empty one has no block.
struct NewUnits {
    explicit NewUnits(std::size_t length) : count(length), block(length != 0 ? new char[Bytes()] : nullptr) {
        if (count != 0) ky::WriteUnit(block.get() + 2 * count, 0, 1);
    }
    std::size_t Bytes() const { return count != 0 ? 2 * (count + 1) : 0; }

    std::size_t count;
    std::unique_ptr<char[]> block;
};

/// What `KyMBS2KyString` returns for texts that are not whole, or longer than a string, or in longer forms than those
/// of 16-bit characters. Decodes the characters of `length` bytes, none of them zero, into as many units.
int DecodeAsFarAsPossible(const char* in, std::size_t length, unsigned short* units, std::size_t& count) {
    std::size_t used = 0;
    while (used < length) {
        const std::size_t plain = std::min(length, kMaxTextBytes) - used;
        const auto [read, written] = ky::Utf8ToUnits(in + used, plain, units + count, plain);
        used += read;
        count += written;
        if (read != 0) continue;
        unsigned short unit = 0;
        const int size = ky_mbtowc(&unit, in + used, length - used);
        if (size < 0) return size;
        if (unit == 0) break;
        units[count++] = unit;
        used += static_cast<std::size_t>(size);
        if (used > kMaxTextBytes) return -2;
    }
    return static_cast<int>(used);
}

}  // namespace

int KyMBS2KyString(const char* in, KyString& out, int inLen) {
    // A zero byte ends the text, whether it ends a character or breaks one. What follows the character that passes the
    // limit is never looked at.
    const auto most = static_cast<std::size_t>(in == nullptr ? 0 : std::max(inLen, 0));
    const auto [length, whole] = ky::Utf8Length(in, std::min(most, kMaxTextBytes + kMaxFormBytes));
    const auto take = [&out](NewUnits& text) {
        // Only now, as `in` may lie in the text that goes.
        delete[] out.buffer;
        out.codeSet = KyCodeSetUnicode;
        out.bufferSize = static_cast<unsigned short>(text.Bytes());
        out.buffer = text.block.release();
    };
    if (length <= kMaxTextBytes && whole <= KyString::MaxBytes / 2 - 1) {
        NewUnits text(whole);
        auto* const units = reinterpret_cast<unsigned short*>(text.block.get());
        if (ky::Utf8ToUnits(in, length, units, whole).read == length) {
            take(text);
            return static_cast<int>(length);
        }
    }
    const std::unique_ptr<unsigned short[]> units(new unsigned short[length + 1]);
    std::size_t count = 0;
    const int result = DecodeAsFarAsPossible(in, length, units.get(), count);
    NewUnits text(ky::LimitedLength(count, 2));
    ky::CopyText(text.block.get(), reinterpret_cast<const char*>(units.get()), 2 * text.count);
    take(text);
    return result;
}

int KyMultiByteString2KyString(const char* in, KyString& out, int inLen) { return KyMBS2KyString(in, out, inLen); }

// KEPT: the bytes that are read of a 16-bit string are as many as its characters.
int KyMultiByteString2KyString(const KyString& in, KyString& out) { return KyMBS2KyString(in.StrGet(), out, in.Len()); }
