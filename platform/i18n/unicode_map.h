#ifndef UNICODE_MAP_H
#define UNICODE_MAP_H

/// Tables between an 8-bit code set and Unicode, computed at compile time from one list.

#include <array>
#include <cstddef>

#include "kyi18n.h"

namespace ky {

/// The Unicode code of each of the 256 codes; 0: no character.
using ToUnicodeTable = std::array<unsigned short, 256>;

/// ASCII below 0x80, no characters above.
constexpr ToUnicodeTable AsciiToUnicode() {
    ToUnicodeTable table{};
    for (unsigned short code = 0; code < 0x80; ++code) table[code] = code;
    return table;
}

/// Windows-1252: Latin-1 but for 0x80 to 0x9F, where the five codes that are not assigned stand for the controls.
constexpr ToUnicodeTable Windows1252ToUnicode() {
    constexpr unsigned short from80To9F[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    ToUnicodeTable table{};
    for (unsigned short code = 0; code < 0x100; ++code) {
        table[code] = code >= 0x80 && code < 0xA0 ? from80To9F[code - 0x80] : code;
    }
    return table;
}

/// The way back. `Pages`: one more than the different high bytes of the Unicode codes; page 0 is empty.
template <std::size_t Pages>
struct UnicodeMapData {
    unsigned char pageOf[256]{};
    unsigned char pages[Pages][256]{};

    constexpr explicit UnicodeMapData(const ToUnicodeTable& toUnicode) {
        unsigned char used = 1;
        for (unsigned code = 1; code < 256; ++code) {
            const unsigned short unicode = toUnicode[code];
            if (unicode == 0) continue;
            unsigned char& page = pageOf[unicode >> 8];
            if (page == 0) page = used++;
            pages[page][unicode & 0xFF] = static_cast<unsigned char>(code);
        }
    }
    constexpr KyUnicodeMap View() const { return {pageOf, pages}; }
};

}  // namespace ky

#endif
