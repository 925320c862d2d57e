#ifndef SLOW_MULTIBYTE_H
#define SLOW_MULTIBYTE_H

#include <cstddef>
#include <string>

/// The conversions of multibyte text, one step after the other: no blocks, no kernels, no tables.

/// Decodes one character of a non-empty text at `at`; returns the bytes used or -1. Follows the six forms in turn and
/// takes one more byte for each.
inline int SlowDecode(const std::string& text, std::size_t at, unsigned& value) {
    struct Form {
        unsigned mask, lead, valueMask, smallest;
    };
    const Form forms[] = {
        {0x80, 0x00, 0x7F, 0},           {0xE0, 0xC0, 0x7FF, 0x80},         {0xF0, 0xE0, 0xFFFF, 0x800},
        {0xF8, 0xF0, 0x1FFFFF, 0x10000}, {0xFC, 0xF8, 0x3FFFFFF, 0x200000}, {0xFE, 0xFC, 0x7FFFFFFF, 0x4000000}};
    const unsigned lead = static_cast<unsigned char>(text[at]);
    unsigned long long bits = lead;
    int used = 1;
    for (const Form& form : forms) {
        if ((lead & form.mask) == form.lead) {
            value = static_cast<unsigned>(bits & form.valueMask);
            return value < form.smallest ? -1 : used;
        }
        if (at + static_cast<std::size_t>(used) >= text.size()) return -1;
        const unsigned next = static_cast<unsigned char>(text[at + static_cast<std::size_t>(used)]) ^ 0x80u;
        if (next >= 0x40) return -1;
        bits = bits << 6 | next;
        ++used;
    }
    return -1;
}

/// A whole text, zero characters like any other. `result`: the characters or -1.
struct SlowUnits {
    std::u16string units;
    int result;
};
inline SlowUnits SlowReadUnits(const std::string& text) {
    SlowUnits read{{}, 0};
    for (std::size_t at = 0; at < text.size();) {
        unsigned value;
        const int used = SlowDecode(text, at, value);
        if (used < 0) return {read.units, -1};
        read.units += static_cast<char16_t>(value & 0xFFFF);
        at += static_cast<std::size_t>(used);
    }
    read.result = static_cast<int>(read.units.size());
    return read;
}

/// A text that becomes a string. `result`: the bytes used, -1 or -2.
inline SlowUnits SlowReadString(const std::string& text) {
    SlowUnits read{{}, 0};
    int used = 0;
    while (static_cast<std::size_t>(used) < text.size()) {
        unsigned value;
        const int size = SlowDecode(text, static_cast<std::size_t>(used), value);
        if (size < 0) return {read.units, -1};
        const auto unit = static_cast<char16_t>(value & 0xFFFF);
        if (unit == 0) break;
        read.units += unit;
        used += size;
        if (used > 32767) return {read.units, -2};
    }
    read.result = used;
    return read;
}

#endif
