#ifndef STRING_NUMBERS_H
#define STRING_NUMBERS_H

/// Texts as numbers on an axis along which shares of ranges are measured: the digits of a number are the first
/// characters of a text behind what the limits of the range have in common.

#include <array>

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

/// What the digits of a class of characters are made of.
struct DigitsOfClass {
    unsigned bucket;
    unsigned placeMask;  ///< 0: all characters of the class share their digit with others
};

consteval std::array<DigitsOfClass, 128> MakeDigitsOfClasses() {
    constexpr unsigned lastInBucket = 0xFFFF;
    std::array<DigitsOfClass, 128> made{};
    for (unsigned orderClass = KyClassCommon; orderClass < made.size(); ++orderClass) {
        unsigned bucket = 0;
        bool hasPlaces = orderClass == KyClassCommon;
        if (orderClass >= KyClassHan) {
            bucket = 15;
            hasPlaces = orderClass == KyClassHan;
        } else if (orderClass > KyClassFurtherArabic) {
            bucket = 14;
        } else if (orderClass >= KyClassLatin) {
            bucket = orderClass - KyClassLatin + 1;
            hasPlaces = true;
        }
        made[orderClass] =
            hasPlaces ? DigitsOfClass{bucket << 16, 0xFFFF} : DigitsOfClass{bucket << 16 | lastInBucket, 0};
    }
    return made;
}

inline constexpr std::array<DigitsOfClass, 128> kDigitsOfClasses = MakeDigitsOfClasses();

/// Comparison keys: three digits of 20 bits, a bucket of classes and a place of 16 bits. Numbers never decrease along
/// the order of the keys: classes that have no places of their own share the last of their bucket, and markers at the
/// beginning of a text, which have no class, share the first digit of all.
struct KeyDigits {
    static constexpr unsigned count = 3;
    static constexpr unsigned bits = 20;
    static constexpr long long unit = 1 << bits;

    static constexpr unsigned Of(unsigned key) {
        const DigitsOfClass& digits = kDigitsOfClasses[ClassInKey(key)];
        return digits.bucket | (PlaceOf(key) & digits.placeMask);
    }
    static constexpr bool IsShared(unsigned key) {
        return kDigitsOfClasses[ClassInKey(key)].placeMask == 0 || PlaceOf(key) == 0xFFFF;
    }

private:
    /// Letters: identity, case, accent. Others: the order value. The same order as that of the keys.
    static constexpr unsigned PlaceOf(unsigned key) {
        const unsigned order = key >> 8 & 0xFFFF;
        const unsigned letter = kFirstLetter | (order & 0x7F) << 7 | (key & (kCaseBits | kAccentBits));
        return IsLetterOrder(static_cast<unsigned short>(order)) ? letter : order;
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
    const auto filled = [](long long number, unsigned digits, ky::Open open) {
        const unsigned width = digits * Digits::bits;
        return number << width | (open == ky::Open::high ? (1LL << width) - 1 : 0);
    };
    long long number = 0;
    for (unsigned i = 0; i < Digits::count; ++i) {
        const unsigned key = first.keys[i];
        if (key == 0) return filled(number, Digits::count - i, behindEnd);
        number = number << Digits::bits | Digits::Of(key);
        if (Digits::IsShared(key)) return filled(number, Digits::count - i - 1, behindShared);
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
