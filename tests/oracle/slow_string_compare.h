#ifndef SLOW_STRING_COMPARE_H
#define SLOW_STRING_COMPARE_H

/// The string comparison as it is described, one order after the other with the iterator: nothing is prepared, nothing
/// is skipped.

#include <cstddef>
#include <optional>

#include "kychar.h"
#include "kyi18n.h"
#include "kystring.h"

namespace slow {

struct Text {
    unsigned char codeSet;
    unsigned char language;
    const char* chars;  ///< null: empty
};

/// One order of a text.
struct Order {
    unsigned short order;
    unsigned key;  ///< 0 at the end
};

inline unsigned Key(unsigned short order, unsigned char orderClass) {
    if (order == 0) return 0;
    const unsigned rank = orderClass * 0x1000000u;
    if (order < 0x4000 || order > 0x7FFF || orderClass == 20) return rank + order * 256u;
    return rank + (order & 0x407Fu) * 256 + (order & 0x3000u) / 128 + (order & 0xF80u) / 128;
}

inline unsigned char DefaultClass(unsigned short order) {
    if (order < 0x4000) return 16;
    return order < 0x8000 ? 32 : 120;
}

/// A place in a text, with the number of orders taken before it.
class Place {
public:
    Place(const Text& text, unsigned char language, unsigned char format, unsigned mostOrders, unsigned keyMask,
          bool inDefaultClasses)
        : it(text.chars, text.codeSet == KyCodeSetDefault ? KyLanguageContext::GetDefault16CodeSet() : text.codeSet,
             language, format),
          limit(mostOrders),
          mask(keyMask),
          defaultClasses(inDefaultClasses) {}

    /// The next order, or the end. Counts when `Count` says so.
    Order Take() {
        if (taken == limit) return {0, 0};
        const unsigned short order = it.GetNextOrder(1);
        return {order, Key(order, defaultClasses ? DefaultClass(order) : it.OrderClass()) & mask};
    }
    void Count() { ++taken; }

private:
    KyStringIterator it;
    unsigned limit;
    unsigned mask;
    bool defaultClasses;
    unsigned taken = 0;
};

inline int CompareOrders(Place a, Place b, bool literal) {
    std::optional<Place> startOfA;  // with a star: where the text has to match what is behind it
    std::optional<Place> behindStar;
    for (;;) {
        Order inB = b.Take();
        bool any = false;
        if (!literal && inB.order != 0) {
            if (inB.order == KyString::GetAsterisk()) {
                startOfA = a;
                behindStar = b;
                continue;
            }
            if (inB.order == KyString::GetQuestion()) {
                any = true;
            } else if (inB.order == KyString::GetEscape()) {
                const Order escaped = b.Take();
                if (escaped.order != 0) inB = escaped;
            }
        }
        const Order inA = a.Take();
        if (inA.order == 0) {
            if (inB.order == 0) return 0;
            return behindStar ? -1 : static_cast<int>(0 - inB.key);
        }
        if (inB.order != 0 && (any || inA.key == inB.key)) {
            a.Count();
            b.Count();
            continue;
        }
        if (!behindStar) return static_cast<int>(inA.key - inB.key);
        startOfA->Take();
        startOfA->Count();
        a = *startOfA;
        b = *behindStar;
    }
}

/// Bytes, with "*" and "?" where `literal` is false.
inline int CompareBytes(const char* a, const char* b, unsigned limit, bool literal) {
    const auto at = [limit](const char* text, std::size_t i) {
        return text == nullptr || i >= limit ? 0 : static_cast<unsigned char>(text[i]);
    };
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t startOfA = 0;
    std::size_t behindStar = 0;
    for (;;) {
        const int inA = at(a, i);
        const int inB = at(b, j);
        if (!literal && inB == '*') {
            startOfA = i;
            behindStar = ++j;
            continue;
        }
        if (inA == 0 && inB == 0) return 0;
        if (inA == 0) return literal && a != nullptr ? -inB : -1;
        if (inB != 0 && (inA == inB || (!literal && inB == '?'))) {
            ++i;
            ++j;
            continue;
        }
        if (behindStar == 0) return literal && b == nullptr ? 1 : inA - inB;
        i = ++startOfA;
        j = behindStar;
    }
}

/// KyStrCmp.
inline int Compare(const Text& a, const Text& b, unsigned short op, short maxLen, unsigned char format) {
    const auto isNull = [](const Text& text) {
        return text.language == 254 || (text.language == 0 && text.codeSet == 254);
    };
    const bool exact = (op & 0x100) != 0;
    const bool literal = (op & 0x110) != 0;
    if (isNull(a) && isNull(b)) return 0;
    if (isNull(b)) return 1;
    if (isNull(a) && literal) return -1;
    if (maxLen == 0) return 0;
    const unsigned limit = maxLen == -1 ? 0xFFFFFFFF : static_cast<unsigned short>(maxLen);
    if (a.codeSet == 0 && b.codeSet == 0) return CompareBytes(a.chars, b.chars, limit, literal);
    unsigned mask = 0xFFFFFFFF;
    if (!exact && (op & 0x20) != 0) mask &= ~0x60u;
    if (!exact && (op & 0x40) != 0) mask &= ~0x1Fu;
    const bool neutral = !exact && (op & 0x200) != 0;
    const bool defaultClasses = a.codeSet == 254 || b.codeSet == 254;
    const unsigned char languageA = neutral ? 0 : a.language;
    const unsigned char languageB = neutral ? 0 : b.language;
    return CompareOrders(Place(a, languageA, format, limit, mask, defaultClasses),
                         Place(b, languageB, format, limit, mask, defaultClasses), literal);
}

/// HashString over a whole text.
inline unsigned Hash(const Text& text, unsigned char format) {
    if (text.language == 254 || (text.language == 0 && text.codeSet == 254)) return 0xFEFE7575;
    unsigned hash = 0;
    if (text.codeSet == 0) {
        for (const char* p = text.chars; *p != 0; ++p) hash = 9 * hash + static_cast<unsigned char>(*p);
        return hash;
    }
    Place place(text, text.language, format, 0xFFFFFFFF, 0xFFFFFFFF, text.codeSet == 254);
    for (Order next = place.Take(); next.order != 0; next = place.Take()) hash = 9 * hash + next.key;
    return hash;
}

}  // namespace slow

#endif
