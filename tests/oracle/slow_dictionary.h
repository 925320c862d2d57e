#ifndef SLOW_DICTIONARY_H
#define SLOW_DICTIONARY_H

#include <algorithm>
#include <string>

#include "kydiskform.h"
#include "kyistring_map.h"

/// The keys of a text in dictionary order, one after the other, with the maps and modes of `kyistrcmp`.
inline std::string SlowKeys(bool caseAlike, const std::string& text, unsigned char mode) {
    std::string keys;
    for (const char c : text) {
        if ((mode & 0x80) != 0) {
            keys += c;
            continue;
        }
        auto byte = static_cast<unsigned char>(c);
        if ((mode & 0x40) == 0) byte = _KyConvertToDiskFormat(byte);
        unsigned char extra = 0;
        unsigned char key = caseAlike ? _KyCaseIMapByte(byte, extra) : _KyIMapByte(byte, extra);
        if (caseAlike && (mode & 0x20) != 0) {
            key = static_cast<unsigned char>(extra < 9 ? key + extra : key - 1);
            extra = 0;
        }
        keys += static_cast<char>(key);
        if (extra >= 9) keys += static_cast<char>(extra);
    }
    return keys;
}

/// Two texts, key by key; `maxLen` 0: 65535 keys.
inline int SlowDictionaryCompare(bool caseAlike, const std::string& a, const std::string& b, unsigned maxLen,
                                 unsigned char modeA, unsigned char modeB) {
    if (a.empty() || b.empty()) {
        return static_cast<unsigned char>(a.c_str()[0]) - static_cast<unsigned char>(b.c_str()[0]);
    }
    const std::string keysA = SlowKeys(caseAlike, a, modeA);
    const std::string keysB = SlowKeys(caseAlike, b, modeB);
    const std::size_t limit = maxLen != 0 ? maxLen : 65535;
    for (std::size_t i = 0; i < limit; ++i) {
        const int keyA = i < keysA.size() ? static_cast<unsigned char>(keysA[i]) : 0;
        const int keyB = i < keysB.size() ? static_cast<unsigned char>(keysB[i]) : 0;
        if (keyA != keyB || keyA == 0) return keyA - keyB;
    }
    return 0;
}

#endif
