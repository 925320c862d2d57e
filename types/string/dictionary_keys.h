#ifndef DICTIONARY_KEYS_H
#define DICTIONARY_KEYS_H

/// The dictionary orders by look-up: what each byte of a text is compared by, in whichever form the text is given.

#include <cstddef>

#include "kydiskform_table.h"
#include "kyistring_map_tables.h"

namespace ky {

// Modes of a text that is compared, the same numbers that callers give.
inline constexpr unsigned char kModeKey = 0x80;       ///< it is a key: its bytes stand for themselves
inline constexpr unsigned char kModeDiskForm = 0x40;  ///< it is in disk form, else in the program's code page
inline constexpr unsigned char kModeAccents = 0x20;   ///< accents count; where cases are alike only

/// Without the bit for accents: keys that are stored have none.
constexpr unsigned char ModeOfStoredKey(unsigned char mode) { return mode & (kModeKey | kModeDiskForm); }

/// Lower case just before upper case.
struct CaseApart {
    static constexpr const DictionaryTables& tables = kIStringTables;
    static constexpr bool alike = false;
};

/// Lower and upper case alike.
struct CaseAlike {
    static constexpr const DictionaryTables& tables = kCaseIStringTables;
    static constexpr bool alike = true;
};

/// What the bytes of a text in one form are compared by.
struct ByteKeys {
    static constexpr std::size_t expanding = 3;

    unsigned short keys[256];        ///< the key and, times 256, a second key or 0; 0 for the terminator alone
    unsigned char marks[256];        ///< equal exactly where `keys` are; 0 for the terminator alone
    unsigned char pairs[expanding];  ///< the bytes that have a second key

    static constexpr bool HasSecond(unsigned keys) { return keys > 0xFF; }
};

/// The marks of what has a second key begin here; no key of a byte lies between here and E0.
inline constexpr unsigned kFirstPairMark = 0xD0;

/// The key of a byte where accents count: they rank behind the letter without them, and two letters in one just
/// before the first of them.
constexpr unsigned char AccentedKey(DictionaryKey mapped) {
    return static_cast<unsigned char>(mapped.extra < kFirstSecondKey ? mapped.key + mapped.extra : mapped.key - 1);
}

consteval ByteKeys MakeByteKeys(const DictionaryTables& tables, bool inDiskForm, bool accents) {
    ByteKeys made{};
    std::size_t pairs = 0;
    for (unsigned c = 0; c < 256; ++c) {
        const unsigned char disk = inDiskForm || c < 0x80 ? static_cast<unsigned char>(c) : kToDiskForm[c - 0x80];
        const DictionaryKey mapped = DictionaryKeyOf(tables, disk);
        const bool hasSecond = !accents && mapped.extra >= kFirstSecondKey;
        made.keys[c] = accents ? AccentedKey(mapped) : hasSecond ? mapped.Both() : mapped.key;
        made.marks[c] = static_cast<unsigned char>(made.keys[c]);
        if (!hasSecond) continue;
        std::size_t same = 0;
        while (same < pairs && made.keys[made.pairs[same]] != made.keys[c]) ++same;
        made.marks[c] = static_cast<unsigned char>(kFirstPairMark + same);
        made.pairs[pairs++] = static_cast<unsigned char>(c);
    }
    return made;
}

consteval ByteKeys MakeKeysOfKeys() {
    ByteKeys made{};
    for (unsigned c = 0; c < 256; ++c) made.keys[c] = made.marks[c] = static_cast<unsigned char>(c);
    return made;
}

template <class Order>
inline constexpr ByteKeys kByteKeys[4] = {
    MakeByteKeys(Order::tables, false, false),
    MakeByteKeys(Order::tables, false, Order::alike),
    MakeByteKeys(Order::tables, true, false),
    MakeByteKeys(Order::tables, true, Order::alike),
};

inline constexpr ByteKeys kKeysOfKeys = MakeKeysOfKeys();

/// By the three highest bits of a mode.
template <class Order>
inline constexpr const ByteKeys* kKeysOfModes[8] = {
    &kByteKeys<Order>[0], &kByteKeys<Order>[1], &kByteKeys<Order>[2], &kByteKeys<Order>[3],
    &kKeysOfKeys,         &kKeysOfKeys,         &kKeysOfKeys,         &kKeysOfKeys,
};

template <class Order>
const ByteKeys& ByteKeysOf(unsigned char mode) {
    return *kKeysOfModes<Order>[mode / kModeAccents];
}

/// Second keys in text[0, length).
std::size_t SecondKeys(const ByteKeys& keys, const char* text, std::size_t length);

/// Keys of text[0, length), which has no terminator.
inline std::size_t KeyCount(const ByteKeys& keys, const char* text, std::size_t length) {
    return length + SecondKeys(keys, text, length);
}

}  // namespace ky

#endif
