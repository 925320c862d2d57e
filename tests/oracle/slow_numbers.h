#ifndef SLOW_NUMBERS_H
#define SLOW_NUMBERS_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// Compare and Hash of the plain numbers, element by element and literally as their rules are told.
/// `T` is the memory form.

template <class T>
T SlowElement(const unsigned char* at, unsigned char flag) {
    unsigned char bytes[sizeof(T)];
    std::memcpy(bytes, at, sizeof bytes);
    if ((flag & 15) == 2) std::reverse(bytes, bytes + sizeof bytes);
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

inline int SlowClass(double value) {
    if (std::isnan(value)) return -2;
    if (std::isinf(value)) return value < 0 ? -1 : 1;
    return 0;
}

template <class T>
int SlowOrder(T a, T b) {
    if constexpr (std::is_floating_point_v<T>) {
        const int classA = SlowClass(a);
        const int classB = SlowClass(b);
        if (classA != 0 || classB != 0) return classA < classB ? -1 : classA > classB ? 1 : 0;
    }
    return a < b ? -1 : a > b ? 1 : 0;
}

template <class T>
int SlowCompare(unsigned char flag, unsigned len1, const unsigned char* a, unsigned len2, const unsigned char* b,
                unsigned count, int& err) {
    const std::size_t endA = len1 != 0 ? len1 : count * sizeof(T);
    const std::size_t endB = len2 != 0 ? len2 : count * sizeof(T);
    std::size_t atA = 0;
    std::size_t atB = 0;
    int result = 0;
    err = 0;
    while (count != 0 && result == 0 && err == 0) {
        result = SlowOrder(SlowElement<T>(a + atA, flag), SlowElement<T>(b + atB, flag));
        --count;
        if (count == 0) break;
        if (atA + sizeof(T) >= endA) {
            err = 2101;
            break;
        }
        atA += sizeof(T);
        if (atB + sizeof(T) >= endB) {
            err = 2101;
        } else {
            atB += sizeof(T);
        }
    }
    return result;
}

template <class T>
std::uint32_t SlowHashWord(T value) {
    if constexpr (std::is_same_v<T, double>) {
        std::uint32_t halves[2];
        std::memcpy(halves, &value, sizeof value);
        return halves[0] ^ halves[1];
    } else if constexpr (std::is_same_v<T, float>) {
        std::uint32_t pattern;
        std::memcpy(&pattern, &value, sizeof value);
        return pattern;
    } else {
        return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
    }
}

template <class T>
std::uint32_t SlowHash(unsigned char flag, unsigned len, const unsigned char* data, unsigned count, int& err) {
    const std::size_t end = len != 0 ? len : count * sizeof(T);
    std::size_t at = 0;
    std::uint32_t words = 0;
    err = 0;
    while (count != 0) {
        words ^= SlowHashWord(SlowElement<T>(data + at, flag));
        --count;
        if (count == 0) break;
        if (at + sizeof(T) >= end) {
            err = 2101;
            break;
        }
        at += sizeof(T);
    }
    return words * 1103515245u;
}

#endif
