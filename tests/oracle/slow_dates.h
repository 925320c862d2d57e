#ifndef SLOW_DATES_H
#define SLOW_DATES_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "oracle/slow_bounds.h"

/// Dates and times byte by byte and field by field, literally as their rules are told.

/// Which fields a type has.
struct SlowDateShape {
    bool date;
    bool time;
    bool nanoseconds;
};

/// Year, month, day, hour, minute, second, nanoseconds.
using SlowDate = std::array<int, 7>;

inline bool SlowDateInMemory(unsigned char flag) { return (flag & 15) == 8; }

inline std::size_t SlowDateSize(SlowDateShape shape, unsigned char flag) {
    if (SlowDateInMemory(flag) && shape.date && shape.time) return shape.nanoseconds ? 12 : 8;
    return (shape.date ? 4u : 0u) + (shape.time ? 3u : 0u) + (shape.nanoseconds ? 4u : 0u);
}

/// A number of `width` bytes at `from`, its highest byte first when the flag says so.
inline std::int64_t SlowDateNumber(const unsigned char* from, int width, unsigned char flag) {
    std::uint64_t bits = 0;
    for (int i = 0; i < width; ++i) {
        const int place = (flag & 15) == 2 ? width - 1 - i : i;
        bits |= std::uint64_t{from[i]} << (8 * place);
    }
    const std::uint64_t limit = std::uint64_t{1} << (8 * width);
    const auto number = static_cast<std::int64_t>(bits);
    return bits >= limit / 2 ? number - static_cast<std::int64_t>(limit) : number;
}

inline SlowDate SlowDateRead(SlowDateShape shape, unsigned char flag, const unsigned char* from) {
    SlowDate fields{};
    if (shape.date) {
        fields[0] = static_cast<int>(SlowDateNumber(from, 2, flag));
        fields[1] = static_cast<int>(SlowDateNumber(from + 2, 1, flag));
        fields[2] = static_cast<int>(SlowDateNumber(from + 3, 1, flag));
        from += 4;
    }
    if (shape.time) {
        for (std::size_t i = 0; i < 3; ++i) fields[3 + i] = static_cast<int>(SlowDateNumber(from + i, 1, flag));
        from += SlowDateInMemory(flag) ? 4 : 3;
    }
    if (shape.nanoseconds) fields[6] = static_cast<int>(SlowDateNumber(from, 4, flag));
    return fields;
}

/// Leaves padding alone.
inline void SlowDateWrite(SlowDateShape shape, unsigned char flag, unsigned char* to, const SlowDate& fields) {
    const auto put = [flag](unsigned char* at, int width, int number) {
        for (int i = 0; i < width; ++i) {
            const int place = (flag & 15) == 2 ? width - 1 - i : i;
            at[i] = static_cast<unsigned char>(static_cast<std::uint32_t>(number) >> (8 * place));
        }
    };
    if (shape.date) {
        put(to, 2, fields[0]);
        put(to + 2, 1, fields[1]);
        put(to + 3, 1, fields[2]);
        to += 4;
    }
    if (shape.time) {
        for (std::size_t i = 0; i < 3; ++i) put(to + i, 1, fields[3 + i]);
        to += SlowDateInMemory(flag) ? 4 : 3;
    }
    if (shape.nanoseconds) put(to, 4, fields[6]);
}

/// Three components of objects: the difference, wildcards on either side.
inline int SlowThreeInMemory(const int* a, const int* b, bool exact) {
    for (int i = 0; i < 2; ++i) {
        if (!exact && (a[i] == -1 || b[i] == -1)) continue;
        if (a[i] != b[i]) return a[i] - b[i];
    }
    if (!exact && (a[2] == -1 || b[2] == -1)) return 0;
    return a[2] - b[2];
}

/// Three stored components: -1, 0 or 1, wildcards in the second operand.
inline int SlowThreeStored(const int* a, const int* b, bool exact) {
    bool firstEqual = a[0] == b[0];
    if (!firstEqual && !exact && b[0] == -1) firstEqual = true;
    if (!firstEqual) return a[0] < b[0] ? -1 : 1;
    if (exact || b[1] != -1) {
        if (a[1] != b[1]) return a[1] < b[1] ? -1 : 1;
    }
    if (b[2] != -1 || exact) {
        if (a[2] != b[2]) return a[2] < b[2] ? -1 : 1;
    }
    return 0;
}

inline int SlowDateCompareOne(SlowDateShape shape, bool inMemory, const SlowDate& a, const SlowDate& b, bool exact) {
    const auto three = inMemory ? SlowThreeInMemory : SlowThreeStored;
    int result = 0;
    if (shape.date) result = three(&a[0], &b[0], exact);
    if (result == 0 && shape.time) result = three(&a[3], &b[3], exact);
    if (result != 0 || !shape.nanoseconds) return result;
    if (!exact && (b[6] == -1 || (inMemory && a[6] == -1))) return 0;
    if (a[6] == b[6]) return 0;
    return a[6] < b[6] ? -1 : 1;
}

/// Whether another element may be read: it has to lie within the length as a whole.
inline bool SlowDateEnds(std::size_t at, std::size_t size, unsigned length, std::size_t whole) {
    return at + size > (length == 0 ? whole : length);
}

inline int SlowDateCompare(SlowDateShape shape, unsigned char flag, unsigned len1, const unsigned char* a,
                           unsigned len2, const unsigned char* b, unsigned op, unsigned count, int& err) {
    err = 0;
    const std::size_t size = SlowDateSize(shape, flag);
    const std::size_t whole = count * size;
    int result = 0;
    std::size_t at = 0;
    while (count != 0 && result == 0 && err == 0) {
        result = SlowDateCompareOne(shape, SlowDateInMemory(flag), SlowDateRead(shape, flag, a + at),
                                    SlowDateRead(shape, flag, b + at), (op & 0x10) != 0);
        if (--count == 0) break;
        at += size;
        if (SlowDateEnds(at, size, len1, whole) || SlowDateEnds(at, size, len2, whole)) err = 2101;
    }
    return result;
}

inline std::uint32_t SlowDateHash(SlowDateShape shape, unsigned char flag, unsigned length, const unsigned char* data,
                                  unsigned count, int& err) {
    err = 0;
    const std::size_t size = SlowDateSize(shape, flag);
    const std::size_t whole = count * size;
    std::uint32_t sum = 0;
    std::size_t at = 0;
    while (count != 0 && err == 0) {
        const SlowDate f = SlowDateRead(shape, flag, data + at);
        if (shape.date) sum ^= static_cast<std::uint32_t>((f[0] & 0xFFFF) * 65536LL + f[1] * 256LL + f[2]);
        if (shape.time) sum ^= static_cast<std::uint32_t>(f[3] * 65536LL + f[4] * 256LL + f[5]);
        if (shape.nanoseconds) sum ^= static_cast<std::uint32_t>(f[6]);
        if (--count == 0) break;
        at += size;
        if (SlowDateEnds(at, size, length, whole)) err = 2101;
    }
    return sum * 1103515245u;
}

inline bool SlowDateHasWildcard(const SlowDate& fields) {
    for (const int field : fields) {
        if (field == -1) return true;
    }
    return false;
}

/// Days of Fliegel and Van Flandern, seconds, seconds by months of 31 days, or nanoseconds of these.
inline WideInteger SlowDateMeasure(SlowDateShape shape, const SlowDate& f) {
    if (!shape.time) {
        const int a = (f[1] - 14) / 12;
        return f[2] - 32075 + 1461 * (f[0] + 4800 + a) / 4 + (367 * f[1] - 4404 * a - 734) / 12 -
               (3 * ((f[0] + 4900 + a) / 100)) / 4;
    }
    WideInteger measure = (f[0] * 12 + f[1]) * 31 + f[2];
    for (std::size_t i = 3; i < 6; ++i) measure = measure * (i == 3 ? 24 : 60) + f[i];
    return shape.nanoseconds ? measure * 1000000000 + f[6] : measure;
}

/// The share of the keys from `lower` to `upper`; a missing limit measures 0.
inline float SlowDateShare(SlowDateShape shape, unsigned op, const SlowDate& value, const SlowDate* lower,
                           const SlowDate* upper) {
    const WideInteger v = SlowDateMeasure(shape, value);
    const WideInteger from = lower != nullptr ? SlowDateMeasure(shape, *lower) : 0;
    const WideInteger to = upper != nullptr ? SlowDateMeasure(shape, *upper) : 0;
    const auto span = static_cast<double>(to - from);
    const auto place = static_cast<double>(v - from);
    double kept = SlowCalcRange(op, place, place, 0.0, span, 1.0);
    if (shape.nanoseconds && kept == 0.0) {
        const bool below = (op & 4) == 0 && from > v;
        if (!below && ((op & 2) != 0 || v <= to)) kept = 1.0;
    }
    const double width = span + 1.0;
    if (!(width > 0)) return 0;
    const double share = kept / width;
    return share >= 1 ? 1.0F : static_cast<float>(share);
}

#endif
