#ifndef SLOW_STRING_ORDER_H
#define SLOW_STRING_ORDER_H

/// The slow twin of the comparison of stored strings: records are decoded into numbers, texts into lists of keys, and
/// every rule is applied as it is told, one after the other.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <ostream>
#include <vector>

#include "kystring.h"
#include "kytypes.h"

namespace slow {

struct Outcome {
    int sign = 0;
    int err = 0;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

inline void PrintTo(const Outcome& outcome, std::ostream* out) { *out << outcome.sign << " err " << outcome.err; }

struct Record {
    std::vector<unsigned> characters;  ///< that are there, up to the first 0
    std::size_t length = 0;            ///< content bytes as the record tells them
    unsigned char codeSet = 0;
    unsigned char language = 0;
    bool isNull = false;
    bool isMarked = false;
    bool isCut = false;
    bool isAbsent = false;
};

/// Nothing: not even the head is there.
inline std::optional<Record> Decode(const unsigned char* bytes, std::size_t given, unsigned char form) {
    if (given < 4) return std::nullopt;
    const std::size_t told = form == 2 ? bytes[0] * 256u + bytes[1] : bytes[1] * 256u + bytes[0];
    Record r;
    r.length = told > 4 ? told - 4 : 0;
    r.codeSet = bytes[2];
    r.language = bytes[3];
    r.isNull = r.language == 254 || (r.language == 0 && r.codeSet == 254);
    if (!r.isNull && r.codeSet == 254 && r.language >= 128) {
        r.isMarked = true;
        r.language = static_cast<unsigned char>(r.language - 128);
        if (r.language == 0) r.language = 1;
    }
    const std::size_t width = r.codeSet < 225 ? 1 : 2;
    const std::size_t there = std::min(r.length, given - 4);
    bool ended = false;
    for (std::size_t at = 0; at + width <= there && !ended; at += width) {
        const unsigned char* p = bytes + 4 + at;
        const unsigned code = width == 1 ? p[0] : form == 2 ? p[0] * 256u + p[1] : p[1] * 256u + p[0];
        ended = code == 0;
        if (!ended) r.characters.push_back(code);
    }
    r.isCut = given < told + 2 && !ended;
    r.isAbsent = r.characters.empty() && !(r.isCut && r.length >= width);
    return r;
}

struct OrderAndClass {
    unsigned short order;
    unsigned char orderClass;
};

/// The orders of the first characters of a text.
inline std::vector<OrderAndClass> OrdersOf(const Record& r, std::size_t characters, unsigned char language) {
    std::vector<char> text;
    for (std::size_t i = 0; i < characters; ++i) {
        text.push_back(static_cast<char>(r.characters[i] & 0xFF));
        if (r.codeSet >= 225) text.push_back(static_cast<char>(r.characters[i] >> 8));
    }
    text.insert(text.end(), 2, 0);
    KyStringIterator it(text.data(), r.codeSet, language, 1);
    std::vector<OrderAndClass> orders;
    while (const unsigned short order = it.GetNextOrder(1)) orders.push_back({order, it.OrderClass()});
    return orders;
}

inline unsigned KeyOf(OrderAndClass o, bool defaultClasses) {
    unsigned orderClass = o.orderClass;
    const bool isLetter = o.order >= 0x4000 && o.order < 0x8000;
    if (defaultClasses) orderClass = o.order < 0x4000 ? 16 : isLetter ? 32 : 120;
    if (!isLetter || orderClass == 20) return orderClass * 0x1000000 + o.order * 0x100u;
    return orderClass * 0x1000000 + (o.order & 0x407Fu) * 0x100 + (o.order & 0x3000u) / 128 + (o.order & 0xF80u) / 128;
}

inline unsigned LongestJoined(unsigned char language) {
    const KyLanguage* rules = KyLanguageContext::QueryLanguage(language);
    const KyCodeSet* unicode = KyLanguageContext::QueryCodeSet(KyCodeSetUnicode);
    unsigned longest = 1;
    for (unsigned code = 1; code < 0x10000; ++code) {
        const KyCharProps* record = unicode->GetProperty(static_cast<unsigned short>(code));
        if (record == nullptr) continue;
        if (rules != nullptr) record = &rules->Select(*record);
        if (record->rules == nullptr) continue;
        for (const KyContraction& joined : record->rules->contractions) {
            longest = std::max(longest, joined.rest.count + 1u);
        }
    }
    return longest;
}

/// Two records of other code sets than 0.
inline Outcome Compare(const std::optional<Record>& a, const std::optional<Record>& b, unsigned short op,
                       const std::vector<unsigned>& longestJoined) {
    if (!a || !b) return {0, 2101};
    Outcome out;
    if (b->isMarked) out.err = 2115;
    if (a->isMarked) out.err = 2114;
    const bool wild = (op & 0x110) == 0;
    if (a->isAbsent || b->isAbsent) {
        if (a->isAbsent != b->isAbsent) {
            out.sign = a->isAbsent ? -1 : 1;
        } else if (!wild && a->isNull != b->isNull) {
            out.sign = a->isNull ? -1 : 1;
        }
        return out;
    }

    const bool exact = (op & 0x100) != 0;
    const bool neutral = !exact && (op & 0x200) != 0;
    unsigned mask = ~0u;
    if (!exact && (op & 0x20) != 0) mask &= ~0x60u;
    if (!exact && (op & 0x40) != 0) mask &= ~0x1Fu;
    const bool defaultClasses = a->codeSet == 254 || b->codeSet == 254;
    const auto orders = [&](const Record& r) {
        const unsigned char language = neutral ? 0 : r.language;
        std::size_t characters = r.characters.size();
        if (r.isCut && r.codeSet != 254) characters -= std::min<std::size_t>(characters, longestJoined[language] - 1);
        return OrdersOf(r, characters, language);
    };
    const std::vector<OrderAndClass> ordersA = orders(*a);
    const std::vector<OrderAndClass> ordersB = orders(*b);
    std::vector<unsigned> keysA;
    for (const OrderAndClass& o : ordersA) keysA.push_back(KeyOf(o, defaultClasses) & mask);

    // The second text without its escapes, and where its first wildcard stands.
    std::vector<unsigned> keysB;
    std::optional<std::size_t> wildcard;
    bool endsInRun = false;
    for (std::size_t i = 0; i < ordersB.size(); ++i) {
        const unsigned short order = ordersB[i].order;
        if (wild && order == KyString::GetEscape() && (i + 1 < ordersB.size() || b->isCut)) {
            if (++i == ordersB.size()) break;  // what it escapes is cut off
        } else if (wild && (order == KyString::GetAsterisk() || order == KyString::GetQuestion())) {
            wildcard = keysB.size();
            endsInRun = order == KyString::GetAsterisk() && i + 1 == ordersB.size() && !b->isCut;
            break;
        }
        keysB.push_back(KeyOf(ordersB[i], defaultClasses) & mask);
    }
    if (wild && !wildcard && b->isMarked) wildcard = keysB.size();

    const auto order = [&](std::size_t limit) {
        const std::vector<unsigned> firstA(keysA.begin(),
                                           keysA.begin() + static_cast<long>(std::min(limit, keysA.size())));
        const std::vector<unsigned> firstB(keysB.begin(),
                                           keysB.begin() + static_cast<long>(std::min(limit, keysB.size())));
        return (firstA > firstB) - (firstA < firstB);
    };
    const bool comparersOwn = (op & 0x80) != 0;
    if (wildcard) {
        const bool reached = keysA.size() >= *wildcard;
        out.sign = order(a->isCut ? std::min(*wildcard, keysA.size()) : *wildcard);
        const bool certain = a->isCut && reached && endsInRun && !comparersOwn;
        if (out.err == 0 && !certain) out.err = 2101;
        return out;
    }
    std::size_t limit = ~std::size_t{0};
    if (a->isCut) limit = std::min(limit, keysA.size());
    if (b->isCut) limit = std::min(limit, keysB.size());
    out.sign = order(limit);
    if (out.sign != 0 || (!a->isCut && !b->isCut)) return out;
    if (out.err == 0) out.err = 2101;
    if (!comparersOwn) out.sign = (a->length > b->length) - (a->length < b->length);
    return out;
}

}  // namespace slow

#endif
