#ifndef STRING_NUMBERS_H
#define STRING_NUMBERS_H

/// Texts as numbers on an axis along which shares of ranges are measured: the digits of a number are the first
/// characters of a text behind what the limits of the range have in common.

#include <cstddef>
#include <span>

#include "kytypes.h"
#include "order_key.h"

namespace ky {

/// Plain bytes: four digits of 7 bits.
struct ByteDigits {
    static constexpr unsigned count = 4;
    static constexpr unsigned bits = 7;
    static constexpr long long unit = 128;

    // KEPT: bytes from 7F on are one digit, and what follows them still counts, so that numbers of such texts do not
    // always grow along their order. Estimates of ranges among them are rough.
    static constexpr unsigned Of(unsigned byte) { return byte < 0x7F ? byte : 0x7F; }
    static constexpr bool IsShared(unsigned) { return false; }
};

/// Comparison keys: three digits of 20 bits, a bucket of classes and 16 bits. Numbers never decrease along the order.
struct KeyDigits {
    static constexpr unsigned count = 3;
    static constexpr unsigned bits = 20;
    static constexpr long long unit = 1 << bits;

    /// Several characters have this digit.
    static constexpr bool IsShared(unsigned key) {
        return ClassInKey(key) < KyClassCommon || (Of(key) & kLastInBucket) == kLastInBucket;
    }
    static constexpr unsigned Of(unsigned key) {
        const unsigned orderClass = ClassInKey(key);
        // Markers at the beginning of a text have no class, and are not told apart.
        if (orderClass < KyClassCommon) return 0;
        const unsigned inBucket = HasBucketsOwnPlaces(orderClass) ? PlaceInBucket(key) : kLastInBucket;
        return BucketOf(orderClass) << 16 | inBucket;
    }

private:
    static constexpr unsigned kLastInBucket = 0xFFFF;
    static constexpr unsigned kLastOwnBucket = KyClassFurtherArabic;  ///< of the classes from Latin on

    static constexpr unsigned BucketOf(unsigned orderClass) {
        if (orderClass < KyClassLatin) return 0;
        if (orderClass <= kLastOwnBucket) return orderClass - KyClassLatin + 1;
        return orderClass < KyClassHan ? 14 : 15;
    }
    /// Other classes share the last place of a bucket.
    static constexpr bool HasBucketsOwnPlaces(unsigned orderClass) {
        if (orderClass == KyClassCommon || orderClass == KyClassHan) return true;
        return orderClass >= KyClassLatin && orderClass <= kLastOwnBucket;
    }
    /// Letters: identity, case, accent. Others: the order value. The same order as that of the keys.
    static constexpr unsigned PlaceInBucket(unsigned key) {
        const unsigned order = key >> 8 & 0xFFFF;
        if (!IsLetterOrder(static_cast<unsigned short>(order))) return order;
        return kFirstLetter | (order & 0x7F) << 7 | (key & (kCaseBits | kAccentBits));
    }
};

/// The first keys or bytes of a text; 0 from its end on.
template <class Digits>
struct FirstKeys {
    unsigned keys[Digits::count]{};
};

/// What the digits of a number are that the text does not tell: the lowest or the highest.
enum class Open { low, high };

}  // namespace ky

/// The number of a text. `behindEnd`: the digits behind the text's end; `behindShared`: those behind a character that
/// has its digit in common with others, which must not decide among them.
template <class Digits>
long long EvalString(const ky::FirstKeys<Digits>& first, ky::Open behindEnd, ky::Open behindShared) {
    constexpr unsigned highest = (1u << Digits::bits) - 1;
    const auto fill = [](ky::Open open) { return open == ky::Open::high ? highest : 0; };
    long long number = 0;
    bool filling = false;
    unsigned filled = 0;
    for (const unsigned key : first.keys) {
        if (!filling && key == 0) {
            filling = true;
            filled = fill(behindEnd);
        }
        number = number << Digits::bits | (filling ? filled : Digits::Of(key));
        if (!filling && Digits::IsShared(key)) {
            filling = true;
            filled = fill(behindShared);
        }
    }
    return number;
}

namespace ky {

/// The numbers of a range's limits and of the lowest and the highest text that a constant stands for.
struct StringNumbers {
    long long lower;
    long long upper;
    long long valueLow;
    long long valueHigh;
};

enum class UpperEnd {
    text,      ///< the limit is the text
    beginning  ///< the limit is behind all that begin with the text
};

/// The numbers behind what the limits have in common. A constant without that beginning lies below or above the whole
/// range: one unit. `isBeginning`: it stands for all texts that begin with it.
///
/// A reader's `Next` gives the next key or byte, 0 at the end of the text and ever after; copies read on by themselves.
template <class Digits, class Reader>
StringNumbers NumbersOf(Reader lower, Reader upper, UpperEnd upperEnd, Reader value, bool isBeginning) {
    unsigned keyLower = lower.Next();
    unsigned keyUpper = upper.Next();
    unsigned keyValue = value.Next();
    bool below = false;
    bool above = false;
    for (; keyLower == keyUpper && keyLower != 0; keyLower = lower.Next(), keyUpper = upper.Next()) {
        if (below || above) continue;
        if (keyValue == keyLower) {
            keyValue = value.Next();
            continue;
        }
        below = keyValue < keyLower;
        above = keyValue > keyLower || (isBeginning && keyValue == 0);
    }
    const auto rest = [](Reader& reader, unsigned key) {
        FirstKeys<Digits> first;
        for (unsigned& place : first.keys) {
            place = key;
            key = reader.Next();
        }
        return first;
    };
    StringNumbers numbers{};
    numbers.lower = EvalString(rest(lower, keyLower), Open::low, Open::low);
    const Open behindUpper = upperEnd == UpperEnd::beginning ? Open::high : Open::low;
    numbers.upper = EvalString(rest(upper, keyUpper), behindUpper, Open::low);
    const FirstKeys<Digits> first = rest(value, keyValue);
    numbers.valueLow = EvalString(first, Open::low, Open::low);
    numbers.valueHigh = EvalString(first, isBeginning ? Open::high : Open::low, Open::high);
    if (below) numbers.valueLow = numbers.valueHigh = numbers.lower - Digits::unit;
    if (above) numbers.valueHigh = numbers.upper + Digits::unit;
    if (above && !below) numbers.valueLow = numbers.valueHigh;
    return numbers;
}

}  // namespace ky

#endif
