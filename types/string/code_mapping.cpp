#include "code_mapping.h"

#include <algorithm>
#include <cstdint>

#include "code_map_kernels.h"
#include "code_sets.h"
#include "kybase.h"
#include "kystring_build.h"

namespace ky {
namespace {

/// The way between two code sets: from a table for the bytes of the one, by a table for the bytes of the other.
struct Way {
    const unsigned short* units = nullptr;  ///< null: codes of the source are Unicode codes
    const KyUnicodeMap* bytes = nullptr;    ///< null: and so are those of the target
    char substitute = '?';

    Way(const KyCodeSet& from, const KyCodeSet& to) {
        // Order values have no characters: units are taken over as they are.
        if (from.Code() == KyCodeSetOrders || to.Code() == KyCodeSetOrders) return;
        units = from.UnicodeCodes();
        bytes = to.UnicodeMap();
        if (const unsigned short own = to.FromUnicode(KyCodeSet::Substitute); own != 0)
            substitute = static_cast<char>(own);
    }
};

/// Between 8-bit code sets, by way of some units at a time.
void MapBytes(const Way& way, const char* src, std::size_t count, char* dst) {
    char units[512];
    while (count != 0) {
        const std::size_t n = std::min(count, sizeof units / 2);
        BytesToUnits(way.units, src, n, units);
        UnitsToBytes(way.bytes, units, n, dst, way.substitute);
        src += n;
        dst += n;
        count -= n;
    }
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
    const unsigned width = CharWidth(from);
    const std::size_t count = TextLength(src, width, limit);
    const KyCodeSet& source = CodeSetOf(from);
    const KyCodeSet& target = CodeSetOf(to);
    if (&source == &target || (width == 2 && CharWidth(to) == 2)) {
        CopyText(dst, src, count * width);
        return count;
    }
    const Way way(source, target);
    if (width == 2) {
        UnitsToBytes(way.bytes, src, count, dst, way.substitute);
    } else if (CharWidth(to) == 2) {
        BytesToUnits(way.units, src, count, dst);
    } else {
        MapBytes(way, src, count, dst);
    }
    return count;
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
