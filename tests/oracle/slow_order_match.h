#ifndef SLOW_ORDER_MATCH_H
#define SLOW_ORDER_MATCH_H

#include <cstddef>
#include <vector>

#include "kystring.h"
#include "order_key.h"

/// Comparison of a text with a pattern by order values, one at a time, with one remembered star.

struct SlowOrder {
    unsigned short order;
    unsigned key;
};

inline std::vector<SlowOrder> SlowOrdersOf(const char* text, unsigned char codeSet, unsigned char language,
                                           unsigned mask) {
    std::vector<SlowOrder> orders;
    KyStringIterator it(text, codeSet, language, 1);
    while (const unsigned short order = it.GetNextOrder(1)) {
        orders.push_back({order, ky::OrderKey(order, it.OrderClass()) & mask});
    }
    return orders;
}

inline int SlowCompareOrders(const std::vector<SlowOrder>& text, const std::vector<SlowOrder>& pattern,
                             std::size_t limit) {
    std::size_t i = 0;  // orders of the text
    std::size_t j = 0;  // orders of the pattern that were matched
    std::size_t p = 0;
    bool star = false;
    std::size_t starI = 0;
    std::size_t starJ = 0;
    std::size_t starP = 0;
    for (;;) {
        const bool patternEnds = j == limit || p == pattern.size();
        bool any = false;
        unsigned wanted = 0;
        if (!patternEnds) {
            const SlowOrder& read = pattern[p++];
            wanted = read.key;
            if (read.order == KyString::GetAsterisk()) {
                star = true;
                starI = i;
                starJ = j;
                starP = p;
                continue;
            }
            any = read.order == KyString::GetQuestion();
            if (read.order == KyString::GetEscape() && p != pattern.size()) wanted = pattern[p++].key;
        }
        const bool textEnds = i == limit || i == text.size();
        const unsigned found = textEnds ? 0 : text[i].key;
        if (textEnds && patternEnds) return 0;
        if (textEnds) return star ? -1 : static_cast<int>(0 - wanted);
        if (!patternEnds && (any || found == wanted)) {
            ++i;
            ++j;
            continue;
        }
        if (!star) return static_cast<int>(found - wanted);
        i = ++starI;
        j = starJ;
        p = starP;
    }
}

#endif
