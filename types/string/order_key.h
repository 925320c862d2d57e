#ifndef ORDER_KEY_H
#define ORDER_KEY_H

/// Order values and the keys by which characters are compared and hashed.

#include "kyi18n.h"
#include "kytypes.h"

namespace ky {

/// Class of a code that is its own order value because it has no record.
inline constexpr unsigned char kNoClass = KyClassNone;

inline constexpr unsigned short kFirstSymbol = 80;
inline constexpr unsigned short kFirstDigit = 16128;
inline constexpr unsigned short kFirstLetter = 0x4000;
inline constexpr unsigned short kFirstHan = 0x8000;
/// Codes above this pass through the comparer as they are.
inline constexpr unsigned short kLastCharacterCode = 65519;

constexpr bool IsLetterOrder(unsigned short order) { return order >= kFirstLetter && order < kFirstHan; }

/// An order value in a text of them: low byte first, save in format 2.
inline unsigned short ReadOrder(const char* p, unsigned char format) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(p);
    const unsigned high = format == 2 ? 0 : 1;
    return static_cast<unsigned short>(bytes[1 - high] | bytes[high] << 8);
}

/// The class of an order value of which nothing else is known.
constexpr unsigned char DefaultClass(unsigned short order) {
    if (order < kFirstLetter) return KyClassCommon;
    return IsLetterOrder(order) ? KyClassLatin : KyClassHan;
}

/// Bits of a key that hold a letter's case and accent.
inline constexpr unsigned kCaseBits = 0x60;
inline constexpr unsigned kAccentBits = 0x1F;

/// The comparison key: class, then letter identity, then case, then accent; 0 at the end of a text. Hashes of stored
/// strings are made of it. Below 2^31, as classes are below 128.
constexpr unsigned OrderKey(unsigned short order, unsigned char orderClass) {
    if (order == 0) return 0;
    const unsigned rank = unsigned{orderClass} << 24;
    if (!IsLetterOrder(order) || orderClass == kNoClass) return rank + (unsigned{order} << 8);
    return rank + ((order & 0x407Fu) << 8) + ((order & 0x3000u) >> 7) + ((order & 0xF80u) >> 7);
}

/// The class in a key.
constexpr unsigned char ClassInKey(unsigned key) { return static_cast<unsigned char>(key >> 24); }

/// The bits of a comparison key that an operator leaves in force.
constexpr unsigned KeyMask(unsigned short op) {
    if ((op & KyCmpStringExact) != 0) return ~0u;
    // Without branches: operators are mixed in no order that a processor could learn.
    static_assert(KyCmpIgnoreCase == 0x20 && KyCmpIgnoreAccent == 0x40);
    const unsigned letterCase = (op & 0x20u) | (op & 0x20u) << 1;
    const unsigned accent = (op >> 6 & 1u) * kAccentBits;
    return ~(letterCase | accent);
}

/// Keys of the comparison with this operator are those of the neutral language, whatever the texts' own are.
constexpr bool ReadsNeutral(unsigned short op) {
    return (op & (KyCmpStringExact | KyCmpNeutralLanguage)) == KyCmpNeutralLanguage;
}

/// A text of order values holds no classes: such a text and what it is compared with are read in the default ones.
constexpr bool ReadsDefaultClasses(unsigned char codeSetA, unsigned char codeSetB) {
    return codeSetA == KyCodeSetOrders || codeSetB == KyCodeSetOrders;
}

}  // namespace ky

#endif
