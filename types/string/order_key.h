#ifndef ORDER_KEY_H
#define ORDER_KEY_H

/// Order values and the keys by which characters are compared and hashed.

namespace ky {

/// Class of a code that is its own order value because it has no record.
inline constexpr unsigned char kNoClass = 20;

inline constexpr unsigned short kFirstSymbol = 80;
inline constexpr unsigned short kFirstDigit = 16128;
inline constexpr unsigned short kFirstLetter = 0x4000;
inline constexpr unsigned short kFirstHan = 0x8000;
/// Codes above this pass through the comparer as they are.
inline constexpr unsigned short kLastCharacterCode = 65519;

constexpr bool IsLetterOrder(unsigned short order) { return order >= kFirstLetter && order < kFirstHan; }

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

}  // namespace ky

#endif
