#ifndef KYSEAL_H
#define KYSEAL_H

/// `KySeal`: an unsigned 48-bit stamp.

#include <cstddef>

#include "kyexport.h"
#include "kyint64.h"

class KyObjId;
class KyString;

/// An unsigned 48-bit number of three 16-bit words. Every combination of words is a value: there is no null.
///
/// Memory form: bits 32-47, bits 16-31, bits 0-15, each word in machine byte order. Any thread may work on its own
/// objects; reading is safe in any thread.
///
///   seal.ConvertFrom(0x0001000200030004LL);   // the number is 0x000200030004, in text 8590131204
class KY_EXPORT KySeal {
public:
    /// The text format of all seals: a decimal number.
    static constexpr const char* sealFmt = "%S";

    constexpr KySeal() = default;  ///< 0

    /// The low 48 bits.
    constexpr void ConvertFrom(const long long& number);
    constexpr void ConvertFrom(const KyInt64& number) { ConvertFrom(number.Get8b()); }
    /// The object number: H is the high word, L the other two.
    void ConvertFrom(const KyObjId& id);

    /// Never negative.
    constexpr void ConvertTo(long long& number) const;
    constexpr void ConvertTo(KyInt64& number) const;

    /// The difference of the first words that differ, from the highest on: its sign is the order of the numbers.
    friend constexpr int operator!=(const KySeal& a, const KySeal& b) {
        if (a.high != b.high) return a.high - b.high;
        if (a.middle != b.middle) return a.middle - b.middle;
        return a.low - b.low;
    }
    friend constexpr int operator==(const KySeal& a, const KySeal& b) { return (a != b) == 0 ? 1 : 0; }

    /// The low 48 bits of the number at the beginning of the text, as `KyInt64` reads it with `sealFmt`: "-1" gives the
    /// highest seal. 0 without a number.
    void ScanFromKyString(const KyString& text);
    /// Replaces `out` by the number. Returns `out`.
    KyString& PrintToKyString(KyString& out) const;

private:
    unsigned short high = 0;
    unsigned short middle = 0;
    unsigned short low = 0;
};

static_assert(sizeof(KySeal) == 6 && alignof(KySeal) == 2, "the size word of the row");

constexpr void KySeal::ConvertFrom(const long long& number) {
    high = static_cast<unsigned short>(number >> 32);
    middle = static_cast<unsigned short>(number >> 16);
    low = static_cast<unsigned short>(number);
}

constexpr void KySeal::ConvertTo(long long& number) const {
    number = static_cast<long long>(high) << 32 | static_cast<long long>(middle) << 16 | low;
}

constexpr void KySeal::ConvertTo(KyInt64& number) const {
    long long value = 0;
    ConvertTo(value);
    number = value;
}

#endif
