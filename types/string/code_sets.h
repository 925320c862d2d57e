#ifndef STRING_CODE_SETS_H
#define STRING_CODE_SETS_H

/// How texts find the code set object behind their code set number, and read and write their characters.

#include <cstring>

#include "kyi18n.h"

namespace ky {

/// Bytes of one character of a code set: 1 below 225, else 2.
constexpr unsigned CharWidth(unsigned char codeSet) { return codeSet < KyCodeSetFirst16Bit ? 1 : 2; }

/// A text with this label is null.
constexpr bool IsNullLabel(unsigned char codeSet, unsigned char language) {
    return language == KyLanguageNull || (language == KyLanguageNeutral && codeSet == KyCodeSetOrders);
}

/// The code set number of a text's characters. A text labelled 255 has 16-bit characters: those of the default 16-bit
/// code set.
inline unsigned char TextCodeSet(unsigned char codeSet) {
    return codeSet == KyCodeSetDefault ? KyLanguageContext::GetDefault16CodeSet() : codeSet;
}

/// The code set object of a text's code set number, 0 being the native one. A number that has no code set reads as
/// the native one (8-bit) or as Unicode (16-bit).
inline const KyCodeSet& CodeSetOf(unsigned char textCodeSet) {
    const unsigned char codeSet = TextCodeSet(textCodeSet);
    const KyCodeSet* object = KyLanguageContext::QueryCodeSet(codeSet);
    if (object != nullptr) return *object;
    return *KyLanguageContext::QueryCodeSet(CharWidth(codeSet) == 1 ? KyCodeSetNative : KyCodeSetUnicode);
}

/// A 16-bit unit at any address. `format` 2: its bytes are swapped.
inline unsigned short ReadUnit(const char* p, unsigned char format) {
    unsigned short unit;
    std::memcpy(&unit, p, sizeof unit);
    return format == 2 ? __builtin_bswap16(unit) : unit;
}

inline void WriteUnit(char* p, unsigned short unit, unsigned char format) {
    if (format == 2) unit = __builtin_bswap16(unit);
    std::memcpy(p, &unit, sizeof unit);
}

inline unsigned short ReadCode(const char* p, unsigned width, unsigned char format) {
    return width == 1 ? static_cast<unsigned char>(*p) : ReadUnit(p, format);
}

inline void WriteCode(char* p, unsigned width, unsigned short code, unsigned char format) {
    if (width == 1) {
        *p = static_cast<char>(code);
    } else {
        WriteUnit(p, code, format);
    }
}

}  // namespace ky

#endif
