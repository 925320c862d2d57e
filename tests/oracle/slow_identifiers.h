#ifndef SLOW_IDENTIFIERS_H
#define SLOW_IDENTIFIERS_H

#include <ostream>
#include <vector>

#include "kytypes.h"

/// Identifiers as lists of bytes, one byte at a time.
namespace slow {

using ByteList = std::vector<unsigned char>;

enum class Kind { objId, classId, ref };

struct Identifier {
    unsigned long B = 0;
    unsigned long L = 0;
    unsigned long H = 0;
    unsigned long D = 0;
    unsigned long C = 0;
    unsigned long V = 0;
};

/// The low bytes of a number, the highest one first or last.
inline void PutNumber(ByteList& bytes, unsigned long number, int width, bool highFirst) {
    for (int i = 0; i < width; ++i) {
        const int place = highFirst ? width - 1 - i : i;
        bytes.push_back(static_cast<unsigned char>(number >> (8 * place)));
    }
}

inline unsigned long TakeNumber(const ByteList& bytes, std::size_t from, int width, bool highFirst) {
    unsigned long number = 0;
    for (int i = 0; i < width; ++i) {
        const std::size_t place = from + static_cast<std::size_t>(highFirst ? i : width - 1 - i);
        number = number * 256 + bytes[place];
    }
    return number;
}

inline ByteList Stored(Kind kind, const Identifier& id, unsigned char form) {
    const bool highFirst = form == 2;
    ByteList bytes;
    if (kind != Kind::classId) {
        PutNumber(bytes, id.B, 4, highFirst);
        PutNumber(bytes, id.L, 4, highFirst);
        PutNumber(bytes, id.H, 2, highFirst);
    }
    if (kind == Kind::ref) PutNumber(bytes, id.D, 2, highFirst);
    if (kind != Kind::objId) PutNumber(bytes, id.C, 2, highFirst);
    if (kind == Kind::classId) PutNumber(bytes, id.V, 2, highFirst);
    return bytes;
}

/// `padding` fills the unused bytes.
inline ByteList InMemory(Kind kind, const Identifier& id, unsigned char padding) {
    ByteList bytes = Stored(kind, id, 1);
    if (kind == Kind::objId) bytes.insert(bytes.end(), 2, padding);
    if (kind == Kind::ref) PutNumber(bytes, id.V, 2, false);
    return bytes;
}

inline std::size_t ElementSize(Kind kind, unsigned char form) {
    const bool memory = form == 8;
    if (kind == Kind::objId) return memory ? 12 : 10;
    if (kind == Kind::ref) return memory ? 16 : 14;
    return 4;
}

inline int Sign(unsigned long a, unsigned long b) { return a > b ? 1 : a < b ? -1 : 0; }

inline int CompareClassIds(const ByteList& a, const ByteList& b, bool highFirst) {
    const unsigned long cA = TakeNumber(a, 0, 2, highFirst);
    const unsigned long vA = TakeNumber(a, 2, 2, highFirst);
    const unsigned long cB = TakeNumber(b, 0, 2, highFirst);
    const unsigned long vB = TakeNumber(b, 2, 2, highFirst);
    const bool nullA = cA == 0xFFFF && vA == 0xFFFF;
    const bool nullB = cB == 0xFFFF && vB == 0xFFFF;
    if (nullA && nullB) return 0;
    if (nullA) return -1;
    if (nullB) return 1;
    return cA != cB ? Sign(cA, cB) : Sign(vA, vB);
}

inline int CompareElements(Kind kind, unsigned char form, const ByteList& a, const ByteList& b) {
    if (kind == Kind::classId) return CompareClassIds(a, b, form == 2);
    if (form != 8) {
        for (int i = kind == Kind::ref ? 11 : 9; i >= 4; --i) {
            const auto place = static_cast<std::size_t>(i);
            if (a[place] != b[place]) return a[place] - b[place];
        }
        return 0;
    }
    const long highA = static_cast<long>(TakeNumber(a, 8, 2, false));
    const long highB = static_cast<long>(TakeNumber(b, 8, 2, false));
    if (highA != highB) return static_cast<int>(highA - highB);
    const int low = Sign(TakeNumber(a, 4, 4, false), TakeNumber(b, 4, 4, false));
    if (low != 0 || kind != Kind::ref) return low;
    return Sign(TakeNumber(a, 10, 2, false), TakeNumber(b, 10, 2, false));
}

inline ByteList ElementAt(Kind kind, unsigned char form, const ByteList& array, std::size_t at) {
    const auto size = static_cast<std::ptrdiff_t>(ElementSize(kind, form));
    const auto from = array.begin() + static_cast<std::ptrdiff_t>(at);
    return {from, from + size};
}

struct Outcome {
    long long value;
    int err;
    bool operator==(const Outcome&) const = default;
};

inline void PrintTo(const Outcome& outcome, std::ostream* out) { *out << outcome.value << " err " << outcome.err; }

/// Element by element, as far as the lengths go.
inline Outcome Compare(Kind kind, unsigned char form, std::size_t len1, const ByteList& a, std::size_t len2,
                       const ByteList& b, unsigned count) {
    const std::size_t size = ElementSize(kind, form);
    const std::size_t endA = len1 != 0 ? len1 : count * size;
    const std::size_t endB = len2 != 0 ? len2 : count * size;
    std::size_t atA = 0;
    std::size_t atB = 0;
    Outcome outcome{0, 0};
    while (count != 0 && outcome.value == 0 && outcome.err == 0) {
        outcome.value = CompareElements(kind, form, ElementAt(kind, form, a, atA), ElementAt(kind, form, b, atB));
        if (--count == 0) break;
        if (atA + size >= endA || atB + size >= endB) outcome.err = KyErrBufferEnd;
        atA += size;
        atB += size;
    }
    return outcome;
}

inline unsigned long HashWord(Kind kind, unsigned char form, const ByteList& element) {
    if (kind == Kind::classId) return TakeNumber(element, 0, 2, form == 2) ^ TakeNumber(element, 2, 2, form == 2);
    unsigned long word = TakeNumber(element, 4, 4, false) ^ TakeNumber(element, 8, 2, false);
    if (kind == Kind::ref) word ^= TakeNumber(element, 10, 2, false);
    return word;
}

inline Outcome Hash(Kind kind, unsigned char form, std::size_t len, const ByteList& data, unsigned count) {
    const std::size_t size = ElementSize(kind, form);
    const std::size_t end = len != 0 ? len : count * size;
    unsigned long word = 0;
    int err = 0;
    for (std::size_t at = 0; count != 0 && err == 0; at += size) {
        word ^= HashWord(kind, form, ElementAt(kind, form, data, at));
        if (--count != 0 && at + size >= end) err = KyErrBufferEnd;
    }
    return {static_cast<long long>(word * 1103515245UL & 0xFFFFFFFFUL), err};
}

}  // namespace slow

#endif
