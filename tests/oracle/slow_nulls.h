#ifndef SLOW_NULLS_H
#define SLOW_NULLS_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "oracle/slow_numbers.h"

/// Nullable numbers byte by byte and element by element, literally as their rules are told.

struct SlowNullShape {
    std::size_t memory;  ///< bytes of an element in memory form
    std::size_t number;  ///< bytes of its number, which comes first; the flag follows, then padding
    std::size_t unit;    ///< bytes that a reversal reverses

    std::size_t Stored() const { return number + 1; }
};

/// The number's bytes from memory order to those of a form, or back.
inline void SlowNullNumber(SlowNullShape shape, unsigned char* dst, const unsigned char* src, unsigned char flag) {
    for (std::size_t at = 0; at < shape.number; ++at) {
        const std::size_t unitStart = at / shape.unit * shape.unit;
        const std::size_t inUnit = at - unitStart;
        dst[at] = (flag & 15) == 2 ? src[unitStart + shape.unit - 1 - inUnit] : src[at];
    }
}

inline unsigned SlowNullStore(SlowNullShape shape, unsigned char* dst, const unsigned char* src, unsigned char flag,
                              unsigned count) {
    unsigned written = 0;
    for (unsigned i = 0; i < count; ++i) {
        const unsigned char null = src[shape.number] != 0 ? 1 : 0;
        if ((flag & 8) == 0) {
            dst[0] = null;
            SlowNullNumber(shape, dst + 1, src, flag);
        } else {
            SlowNullNumber(shape, dst, src, flag);
            dst[shape.number] = null;
        }
        dst += shape.Stored();
        src += shape.memory;
        written += static_cast<unsigned>(shape.Stored());
    }
    return written;
}

/// Leaves the padding of `dst` alone.
inline unsigned SlowNullLoad(SlowNullShape shape, unsigned char* dst, const unsigned char* src, unsigned char flag,
                             unsigned count) {
    unsigned read = 0;
    for (unsigned i = 0; i < count; ++i) {
        const bool packed = (flag & 8) != 0;
        const bool null = src[packed ? shape.number : 0] == 1;
        if (null) {
            std::memset(dst, 0, shape.number);
        } else {
            SlowNullNumber(shape, dst, src + (packed ? 0 : 1), flag);
        }
        dst[shape.number] = null ? 1 : 0;
        dst += shape.memory;
        src += shape.Stored();
        read += static_cast<unsigned>(shape.Stored());
    }
    return read;
}

template <class T>
struct SlowNullElement {
    T number;
    bool null;
};

template <class T>
SlowNullElement<T> SlowNullRead(SlowNullShape shape, const unsigned char* at, unsigned char flag) {
    unsigned char memory[16] = {};
    if ((flag & 15) == 8) {
        std::memcpy(memory, at, shape.number + 1);
    } else {
        SlowNullLoad(shape, memory, at, flag, 1);
    }
    SlowNullElement<T> element;
    std::memcpy(&element.number, memory, sizeof element.number);
    element.null = memory[shape.number] != 0;
    return element;
}

inline std::size_t SlowNullStride(SlowNullShape shape, unsigned char flag) {
    return (flag & 15) == 8 ? shape.memory : shape.Stored();
}

template <class T>
int SlowNullCompare(SlowNullShape shape, unsigned char flag, unsigned len1, const unsigned char* a, unsigned len2,
                    const unsigned char* b, unsigned count, int& err) {
    const std::size_t stride = SlowNullStride(shape, flag);
    const unsigned char* endA = a + (len1 != 0 ? len1 : count * stride);
    const unsigned char* endB = b + (len2 != 0 ? len2 : count * stride);
    int result = 0;
    err = 0;
    while (count != 0 && result == 0 && err == 0) {
        const SlowNullElement<T> x = SlowNullRead<T>(shape, a, flag);
        const SlowNullElement<T> y = SlowNullRead<T>(shape, b, flag);
        if (x.null && y.null) {
            result = 0;
        } else if (x.null) {
            result = -1;
        } else if (y.null) {
            result = 1;
        } else {
            result = SlowOrder(x.number, y.number);
        }
        --count;
        if (count == 0) break;
        if (a + stride >= endA) {
            err = 2101;
            break;
        }
        a += stride;
        if (b + stride >= endB) {
            err = 2101;
        } else {
            b += stride;
        }
    }
    return result;
}

/// `Signed` is the type that the numbers are hashed as.
template <class Signed>
std::uint32_t SlowNullHash(SlowNullShape shape, unsigned char flag, unsigned len, const unsigned char* data,
                           unsigned count, int& err) {
    const std::size_t stride = SlowNullStride(shape, flag);
    const unsigned char* end = data + (len != 0 ? len : count * stride);
    std::uint32_t hash = 0;
    err = 0;
    while (count != 0) {
        const SlowNullElement<Signed> element = SlowNullRead<Signed>(shape, data, flag);
        hash ^= element.null ? 0xFEFE7575u : SlowHashWord(element.number) * 1103515245u;
        --count;
        if (count == 0) break;
        if (data + stride >= end) {
            err = 2101;
            break;
        }
        data += stride;
    }
    return hash;
}

#endif
