#include "code_mapping.h"

#include <algorithm>
#include <cstdint>

#include "code_sets.h"
#include "kybase.h"
#include "kystring_build.h"

namespace ky {
namespace {

/// Length of the run of ASCII characters at the front, the terminator not included; at most `limit`.
std::size_t AsciiRun(const char* text, std::size_t limit, unsigned width) {
    std::size_t run = 0;
    for (; run < limit; ++run) {
        const unsigned short code = ReadCode(text + run * width, width, 1);
        if (code == 0 || code >= 0x80) break;
    }
    return run;
}

void CopyWidening(char* dst, unsigned dstWidth, const char* src, unsigned srcWidth, std::size_t count) {
    if (dstWidth == srcWidth) {
        std::copy_n(src, count * dstWidth, dst);
    } else if (dstWidth == 2) {
        for (std::size_t i = 0; i < count; ++i) WriteUnit(dst + 2 * i, static_cast<unsigned char>(src[i]), 1);
    } else {
        for (std::size_t i = 0; i < count; ++i) dst[i] = static_cast<char>(ReadUnit(src + 2 * i, 1));
    }
}

/// Maps up to `limit` characters, at most up to the terminator of `src`; returns their number.
std::size_t MapCharacters(const KyCodeSet& from, unsigned fromWidth, const char* src, const KyCodeSet& to,
                          unsigned toWidth, char* dst, std::size_t limit) {
    std::size_t done = 0;
    if (from.IsAsciiBelow80() && to.IsAsciiBelow80()) {
        done = AsciiRun(src, limit, fromWidth);
        CopyWidening(dst, toWidth, src, fromWidth, done);
    }
    for (; done < limit; ++done) {
        const unsigned short code = ReadCode(src + done * fromWidth, fromWidth, 1);
        if (code == 0) break;
        WriteCode(dst + done * toWidth, toWidth, to.MapFrom(from, code), 1);
    }
    return done;
}

/// A text of a known number of bytes: everything behind the mapped characters is zeroed.
unsigned short MapInto(unsigned char from, unsigned char to, const char* src, std::size_t limit, char* dst,
                       std::size_t size) {
    const std::size_t mapped = MapText(from, to, src, limit, dst);
    std::fill(dst + mapped * CharWidth(to), dst + size, '\0');
    return static_cast<unsigned short>(mapped);
}

}  // namespace

void CheckStringOverflow() {
    KyConfig* config = DefaultConfig(reinterpret_cast<KyConfig*>(~std::uintptr_t{0}));
    int wanted = 0;
    if (config != nullptr) config->GetInteger("stringOverflow", &wanted, "debug");
    // Source and line are part of the interface, whatever file this is.
    if (wanted != 0) KYRN_assert("String overflow", "src/kystring", 1110);
}

std::size_t LimitedLength(std::size_t length, unsigned width) {
    const std::size_t longest = kMaxStringBytes / width - 1;
    if (length <= longest) return length;
    CheckStringOverflow();
    return longest;
}

std::size_t MapText(unsigned char from, unsigned char to, const char* src, std::size_t limit, char* dst) {
    return MapCharacters(CodeSetOf(from), CharWidth(from), src, CodeSetOf(to), CharWidth(to), dst, limit);
}

unsigned short AllocMapped(unsigned char from, unsigned char to, const char* src, char*& out) {
    const unsigned width = CharWidth(to);
    const std::size_t length = LimitedLength(TextLength(src, CharWidth(from)), width);
    const auto size = static_cast<unsigned short>((length + 1) * width);
    out = new char[size];
    MapInto(from, to, src, length, out, size);
    return size;
}

unsigned short AllocMappedN(unsigned char from, unsigned char to, const char* src, unsigned short n, char*& buf,
                            unsigned short& bufSize) {
    const unsigned width = CharWidth(to);
    const std::size_t limit = LimitedLength(n, width);
    const auto size = static_cast<unsigned short>((limit + 1) * width);
    if (buf == nullptr || bufSize < size) {
        delete[] buf;
        buf = nullptr;
        bufSize = 0;
        buf = new char[size];
        bufSize = size;
    }
    return MapInto(from, to, src, limit, buf, bufSize);
}

}  // namespace ky
