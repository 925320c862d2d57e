#ifndef SLOW_STRING_BOUNDS_H
#define SLOW_STRING_BOUNDS_H

/// The share of a range of strings as its rules are told, over lists of all keys or bytes of each text.

#include <algorithm>
#include <optional>
#include <vector>

#include "oracle/slow_bounds.h"
#include "oracle/slow_string_compare.h"

namespace slow {

/// A range and a constant; missing limits are empty.
struct Range {
    std::optional<Text> lower{};
    std::optional<Text> upper{};
    Text value;
    /// Orders and bytes that a pattern begins with; nothing: it is none.
    struct Beginning {
        unsigned orders;
        unsigned bytes;
    };
    std::optional<Beginning> beginning{};
    unsigned short modifiers = 0;
    unsigned char format = 1;
};

class StringShare {
public:
    explicit StringShare(const Range& of) : range(of) {
        const auto codeSets = {range.value.codeSet, range.lower ? range.lower->codeSet : range.value.codeSet,
                               range.upper ? range.upper->codeSet : range.value.codeSet};
        bytes = std::all_of(codeSets.begin(), codeSets.end(), [](unsigned char set) { return set == 0; });
        defaultClasses = std::any_of(codeSets.begin(), codeSets.end(), [](unsigned char set) { return set == 254; });
        unit = bytes ? 128 : 1048576;
    }

    float Of(unsigned op) {
        const Keys lower = range.lower ? KeysOf(*range.lower) : Keys();
        const Keys upper = range.upper ? KeysOf(*range.upper) : Keys();
        Keys value = KeysOf(range.value);
        if (range.beginning) {
            const std::size_t most = bytes ? range.beginning->bytes : range.beginning->orders;
            value.resize(std::min(value.size(), most));
        }
        std::size_t skip = 0;
        if (range.upper) {
            while (skip < lower.size() && skip < upper.size() && lower[skip] == upper[skip]) ++skip;
        }
        const WideInteger numberOfLower = Number(lower, skip, false, false);
        const WideInteger numberOfUpper = Number(upper, skip, !range.upper, false);
        WideInteger low = Number(value, skip, false, false);
        WideInteger high = Number(value, skip, range.beginning.has_value(), true);
        for (std::size_t i = 0; i < skip; ++i) {
            const unsigned key = i < value.size() ? value[i] : 0;
            if (key == lower[i]) continue;
            const bool open = range.beginning && key == 0;
            low = key < lower[i] ? numberOfLower - unit : numberOfUpper + unit;
            high = key < lower[i] && !open ? numberOfLower - unit : numberOfUpper + unit;
            break;
        }
        const auto place = [&](WideInteger number) { return static_cast<double>(number - numberOfLower); };
        const double total = place(numberOfUpper) + unit;
        double kept = SlowCalcRange(op, place(low), place(high), 0, place(numberOfUpper), unit);
        if (kept == 0.0) {
            if ((op & 2) != 0 && numberOfLower == high && range.lower && Compare(*range.lower) < 0) kept += unit;
            if ((op & 4) != 0 && numberOfUpper == low && (!range.upper || Compare(*range.upper) > 0)) kept += unit;
        }
        if (kept <= 0 || total <= 0) return 0;
        return kept >= total ? 1.0F : static_cast<float>(kept / total);
    }

    /// Of the text's first keys from one on.
    using Keys = std::vector<unsigned>;
    WideInteger Number(const Keys& keys, std::size_t from, bool openEnd, bool openShared) const {
        const unsigned digits = bytes ? 4 : 3;
        const unsigned width = bytes ? 7 : 20;
        const unsigned last = (1u << width) - 1;
        WideInteger number = 0;
        std::optional<unsigned> rest;
        for (unsigned i = 0; i < digits; ++i) {
            if (!rest && from + i >= keys.size()) rest = openEnd ? last : 0;
            if (rest) {
                number = (number << width) + *rest;
                continue;
            }
            bool shared = false;
            number = (number << width) + Digit(keys[from + i], shared);
            if (shared) rest = openShared ? last : 0;
        }
        return number;
    }

private:
    Range range;
    bool bytes;
    bool defaultClasses;
    int unit;

    Keys KeysOf(const Text& text) const {
        Keys keys;
        if (text.language == 254 || (text.codeSet == 254 && text.language == 0)) return keys;
        if (bytes) {
            for (const char* p = text.chars; *p != 0; ++p) keys.push_back(static_cast<unsigned char>(*p));
            return keys;
        }
        const bool exact = (range.modifiers & 0x100) != 0;
        unsigned mask = 0xFFFFFFFF;
        if (!exact && (range.modifiers & 0x20) != 0) mask &= ~0x60u;
        if (!exact && (range.modifiers & 0x40) != 0) mask &= ~0x1Fu;
        const bool neutral = !exact && (range.modifiers & 0x200) != 0;
        Place place(text, neutral ? 0 : text.language, range.format, 0xFFFFFFFF, mask, defaultClasses);
        for (Order next = place.Take(); next.order != 0; next = place.Take()) keys.push_back(next.key);
        return keys;
    }

    unsigned Digit(unsigned key, bool& shared) const {
        if (bytes) return std::min(key, 127u);
        const unsigned orderClass = key / 0x1000000;
        const unsigned order = key / 256 % 0x10000;
        unsigned bucket = 0;
        if (orderClass >= 32 && orderClass <= 44) bucket = orderClass - 31;
        if (orderClass >= 45) bucket = orderClass < 120 ? 14 : 15;
        if (orderClass < 16) {
            shared = true;
            return 0;
        }
        unsigned place = order;
        if (order >= 0x4000 && order < 0x8000) place = 0x4000 + (order & 0x7F) * 128 + key % 128;
        const bool alone = orderClass == 16 || orderClass == 120 || (bucket >= 1 && bucket <= 13);
        if (!alone) place = 0xFFFF;
        shared = place == 0xFFFF;
        return bucket * 0x10000 + place;
    }

    int Compare(const Text& limit) const {
        unsigned characters = 0;
        if (limit.codeSet < 225) {
            while (limit.chars[characters] != 0) ++characters;
        } else {
            while (limit.chars[2 * characters] != 0 || limit.chars[2 * characters + 1] != 0) ++characters;
        }
        if (limit.language == 254 || (limit.codeSet == 254 && limit.language == 0)) characters = 0;
        if (range.beginning) {
            const bool plain = limit.codeSet == 0 && range.value.codeSet == 0;
            characters = std::min(characters, plain ? range.beginning->bytes : range.beginning->orders);
        }
        return slow::Compare(limit, range.value, static_cast<unsigned short>(range.modifiers | 0x10),
                             static_cast<short>(characters), range.format);
    }
};

}  // namespace slow

#endif
