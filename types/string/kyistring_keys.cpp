/// Keys of dictionary strings: made, taken back and measured.

#include <algorithm>
#include <cstring>
#include <optional>

#include "dictionary_keys.h"
#include "dictionary_records.h"
#include "kyistring.h"
#include "kytypes.h"

namespace {

using ky::CaseAlike;
using ky::CaseApart;

/// Bytes one after the other, up to a number of them.
class Output {
public:
    Output(unsigned char* dst, unsigned max) : at(dst), limit(max != 0 ? max : ~0u), counted(max == 0) {}

    bool IsFull() const { return count == limit; }
    void Put(unsigned char c) {
        if (!IsFull()) at[count++] = c;
    }
    /// Ends the text where there is room and returns the bytes written.
    unsigned End() {
        if (IsFull()) return count;
        at[count] = 0;
        return count + static_cast<unsigned>(counted);
    }

private:
    unsigned char* at;
    unsigned count = 0;
    unsigned limit;
    bool counted;  ///< the terminator is
};

template <class Order>
unsigned MapString(unsigned char* dst, const unsigned char* src, unsigned max) {
    if (dst == nullptr || src == nullptr) return 0;
    const ky::ByteKeys& keys = ky::ByteKeysOf<Order>(ky::kModeDiskForm);
    Output out(dst, max);
    for (; *src != 0 && !out.IsFull(); ++src) {
        const unsigned key = keys.keys[*src];
        out.Put(static_cast<unsigned char>(key));
        if (ky::ByteKeys::HasSecond(key)) out.Put(static_cast<unsigned char>(key >> 8));
    }
    return out.End();
}

// --- back to text ---

/// For every key the lowest byte of ASCII or, where none has it, of C0 to FF; 0: none.
struct InverseKeys {
    unsigned char bytes[256];
};

consteval InverseKeys MakeInverseKeys() {
    InverseKeys made{};
    const auto add = [&](unsigned first, unsigned last) {
        for (unsigned c = first; c <= last; ++c) {
            const auto byte = static_cast<unsigned char>(c);
            unsigned char& place = made.bytes[ky::DictionaryKeyOf(CaseAlike::tables, byte).key];
            if (place == 0) place = byte;
        }
    };
    add(0x40, 0x7F);
    add(0xC0, 0xFF);
    return made;
}

constexpr InverseKeys kInverseKeys = MakeInverseKeys();

/// The lowest byte that has this key and this accent or second key.
std::optional<unsigned char> ByteOfPair(unsigned char key, unsigned char extra) {
    if (extra == 0) return std::nullopt;
    for (unsigned c = 0x80; c < 0x100; ++c) {
        const ky::DictionaryKey mapped = ky::DictionaryKeyOf(CaseAlike::tables, static_cast<unsigned char>(c));
        if (mapped.key == key && mapped.extra == extra) return static_cast<unsigned char>(c);
    }
    return std::nullopt;
}

unsigned char ByteOfKey(unsigned char key) {
    if (key < 0x40) return key;
    if (kInverseKeys.bytes[key] != 0) return kInverseKeys.bytes[key];
    if (key >= 0xE0) return static_cast<unsigned char>(key - 0x60);
    if (key >= 0xB0 && key < 0xD0) return static_cast<unsigned char>(key - 0x10);
    return key;
}

// --- sizes ---

template <class Order>
unsigned KeyLength(const void* data, unsigned char format, unsigned count) {
    const bool stored = (format & KyFormMemory) == 0;
    if (stored && *static_cast<const unsigned char*>(data) >= ky::kMarkerKey) return ky::StoredTexts(data, format & 15);
    ky::DictionaryWalk<ky::StringOf<Order>> walk(data, 0, stored ? format : KyFormMemory);
    std::size_t length = count;
    for (unsigned i = 0; i < count && (i == 0 || walk.Next()); ++i) {
        const ky::DictionaryText& s = walk.Current();
        length += ky::KeyCount(ky::ByteKeysOf<Order>(ky::ModeOfStoredKey(s.mode)), s.text, s.Length());
    }
    return static_cast<unsigned>(length);
}

template <class Order>
unsigned SizeOfStored(const void* persistent, unsigned char format, unsigned char flag, unsigned count) {
    if ((flag & 0x80) != 0) return KeyLength<Order>(persistent, format, count);
    return ky::StoredTexts(persistent, format & KyFormMask);
}

template <class Order>
unsigned SizeOfObjects(const void* objects, unsigned char flag, unsigned count) {
    if ((flag & 0x80) != 0) return KeyLength<Order>(objects, KyFormMemory, count);
    std::size_t size = count;
    for (unsigned i = 0; i < count; ++i) size += static_cast<const ky::StringOf<Order>*>(objects)[i].Len();
    return static_cast<unsigned>(std::min<std::size_t>(size, ky::kMostStoredBytes));
}

}  // namespace

std::size_t ky::SecondKeys(const ByteKeys& keys, const char* text, std::size_t length) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        for (const unsigned char pair : keys.pairs) count += pair != 0 && c == pair;
    }
    return count;
}

unsigned _KyIMapString(unsigned char* dst, const unsigned char* src, unsigned max) {
    return MapString<CaseApart>(dst, src, max);
}
unsigned _KyCaseIMapString(unsigned char* dst, const unsigned char* src, unsigned max) {
    return MapString<CaseAlike>(dst, src, max);
}

unsigned char _KyCaseIDeMapByte(unsigned char key, unsigned char next, int& used) {
    const std::optional<unsigned char> pair = ByteOfPair(key, next);
    used = static_cast<int>(pair.has_value());
    return pair ? *pair : ByteOfKey(key);
}

unsigned _KyCaseIDeMapString(unsigned char* dst, const unsigned char* src, unsigned max) {
    if (dst == nullptr || src == nullptr) return 0;
    Output out(dst, max);
    for (int used = 0; *src != 0 && !out.IsFull(); src += 1 + used) out.Put(_KyCaseIDeMapByte(src[0], src[1], used));
    return out.End();
}

unsigned _KyIMapLength(const void* data, unsigned char format, unsigned count) {
    return KeyLength<CaseApart>(data, format, count);
}
unsigned _KyCaseIMapLength(const void* data, unsigned char format, unsigned count) {
    return KeyLength<CaseAlike>(data, format, count);
}

unsigned _KyISizeNoMem(const void* persistent, unsigned char format, unsigned char flag, unsigned count) {
    return SizeOfStored<CaseApart>(persistent, format, flag, count);
}
unsigned _KyCaseISizeNoMem(const void* persistent, unsigned char format, unsigned char flag, unsigned count) {
    return SizeOfStored<CaseAlike>(persistent, format, flag, count);
}

unsigned _KyISizeMem(const void* objects, unsigned char, unsigned char flag, unsigned count) {
    return SizeOfObjects<CaseApart>(objects, flag, count);
}
unsigned _KyCaseISizeMem(const void* objects, unsigned char, unsigned char flag, unsigned count) {
    return SizeOfObjects<CaseAlike>(objects, flag, count);
}
