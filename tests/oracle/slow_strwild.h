#ifndef SLOW_STRWILD_H
#define SLOW_STRWILD_H

#include <cstddef>
#include <string>

#include "kydiskform.h"
#include "kyistring_map.h"

/// `strwild` and its forms one character at a time, with one remembered star and no other memory.

struct SlowCharacter {
    unsigned char key;
    unsigned char extra;
};

/// How a matcher of this kind reads its characters.
struct SlowMode {
    bool mapped;
    bool diskForm;
    bool isKey;
};

inline SlowMode PlainMode() { return {false, true, false}; }
inline SlowMode CaseMode(unsigned char mode) { return {true, (mode & 0x40) != 0, (mode & 0x80) != 0}; }

inline SlowCharacter ReadSlow(unsigned char c, SlowMode mode) {
    if (!mode.diskForm) c = _KyConvertToDiskFormat(c);
    if (!mode.mapped || mode.isKey) return {c, 0};
    SlowCharacter read{};
    read.key = _KyCaseIMapByte(c, read.extra);
    return read;
}

inline int SlowWild(const std::string& pattern, const std::string& text, SlowMode patternMode, SlowMode textMode) {
    constexpr std::size_t none = ~std::size_t{0};
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t savedPattern = none;
    std::size_t savedText = none;
    for (;;) {
        const bool textEnds = t == text.size();
        bool equal = false;
        if (p == pattern.size()) {
            if (textEnds) return 1;
        } else {
            auto c = static_cast<unsigned char>(pattern[p++]);
            if (c == '?') {
                if (textMode.isKey) return 1;
                if (textEnds) return 0;
                ++t;
                continue;
            }
            if (c == '*') {
                savedPattern = p;
                savedText = t;
                continue;
            }
            if (c == '\\') {
                if (p == pattern.size()) return 0;
                c = static_cast<unsigned char>(pattern[p++]);
                if (c == 'r') c = 13;
                if (c == 't') c = 9;
                if (c == 'n') c = 10;
            }
            if (!textEnds) {
                const SlowCharacter wanted = ReadSlow(c, patternMode);
                const SlowCharacter found = ReadSlow(static_cast<unsigned char>(text[t]), textMode);
                equal = wanted.key == found.key && wanted.extra == found.extra;
                if (!equal && wanted.key == found.key && wanted.extra >= 9) return 1;
            }
        }
        if (equal) {
            ++t;
            continue;
        }
        if (textEnds || savedPattern == none) return 0;
        t = ++savedText;
        p = savedPattern;
    }
}

#endif
