#ifndef UTF8_STEPS_H
#define UTF8_STEPS_H

/// Single characters of the kernels, and the loops that are one text for all instructions.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "code_map_kernels.h"
#include "utf8_kernels.h"

// Names text that several functions are compiled from, each for its own instructions.
#define KY_KERNEL [[gnu::always_inline]] inline

namespace ky {

KY_KERNEL unsigned UnitAt(const char* units, std::size_t at) {
    std::uint16_t unit;
    std::memcpy(&unit, units + 2 * at, sizeof unit);
    return unit;
}

/// Bytes that a unit takes.
KY_KERNEL std::size_t Utf8SizeOf(unsigned unit) { return std::size_t{1} + (unit >= 0x80) + (unit >= 0x800); }

/// Writes a unit; returns its bytes.
KY_KERNEL std::size_t PutUtf8(unsigned unit, char* out) {
    if (unit < 0x80) {
        out[0] = static_cast<char>(unit);
        return 1;
    }
    if (unit < 0x800) {
        out[0] = static_cast<char>(0xC0 | unit >> 6);
        out[1] = static_cast<char>(0x80 | (unit & 0x3F));
        return 2;
    }
    out[0] = static_cast<char>(0xE0 | unit >> 12);
    out[1] = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    out[2] = static_cast<char>(0x80 | (unit & 0x3F));
    return 3;
}

/// Reads a character that is not ASCII; returns its bytes, 0 when it is none of two or three bytes.
KY_KERNEL std::size_t GetUtf8(const char* text, std::size_t length, unsigned short& out) {
    const auto byte = [text](std::size_t at) { return unsigned{static_cast<unsigned char>(text[at])}; };
    // A byte that continues a character is below 0x40 in this, any other above.
    const auto further = [&](std::size_t at) { return byte(at) ^ 0x80; };
    const unsigned lead = byte(0);
    if (lead < 0xC2 || lead >= 0xF0 || length < 2 || further(1) >= 0x40) return 0;
    if (lead < 0xE0) {
        out = static_cast<unsigned short>((lead & 0x1F) << 6 | further(1));
        return 2;
    }
    if (length < 3 || further(2) >= 0x40) return 0;
    const unsigned unit = (lead & 0xF) << 12 | further(1) << 6 | further(2);
    if (unit < 0x800) return 0;
    out = static_cast<unsigned short>(unit);
    return 3;
}

/// Four characters of two bytes each that make up a word of text.
KY_KERNEL bool DecodeFourOfTwo(std::uint64_t word, unsigned short* out) {
    constexpr std::uint64_t kEach = 0x0001000100010001;
    if ((word & kEach * 0xC0E0) != kEach * 0x80C0) return false;
    // Leads of 0xC0 and 0xC1 have none of these bits; the others carry into the highest bit of their pair.
    if ((((word & kEach * 0x1E) + kEach * 0x7FFE) & kEach * 0x8000) != kEach * 0x8000) return false;
    const std::uint64_t units = (word & kEach * 0x1F) << 6 | (word >> 8 & kEach * 0x3F);
    std::memcpy(out, &units, sizeof units);
    return true;
}

/// Two characters of three bytes each at the front of a word of text.
KY_KERNEL bool DecodeTwoOfThree(std::uint64_t word, unsigned short* out) {
    if ((word & 0xC0C0F0C0C0F0) != 0x8080E08080E0) return false;
    const auto unit = [](std::uint64_t form) {
        return static_cast<unsigned>((form & 0xF) << 12 | (form >> 8 & 0x3F) << 6 | (form >> 16 & 0x3F));
    };
    const unsigned first = unit(word);
    const unsigned second = unit(word >> 24);
    if (first < 0x800 || second < 0x800) return false;
    const std::uint32_t units = first | second << 16;
    std::memcpy(out, &units, sizeof units);
    return true;
}

/// One character at least, and on as long as there are others than ASCII; false when the kernel has to stop.
KY_KERNEL bool DecodeSome(const char* text, std::size_t length, unsigned short* out, std::size_t room,
                          Utf8Progress& done) {
    for (;;) {
        if (length - done.read >= 8 && room - done.written >= 4) {
            std::uint64_t word;
            std::memcpy(&word, text + done.read, sizeof word);
            if (DecodeFourOfTwo(word, out + done.written)) {
                done.read += 8;
                done.written += 4;
                continue;
            }
            if (DecodeTwoOfThree(word, out + done.written)) {
                done.read += 6;
                done.written += 2;
                continue;
            }
        }
        if (done.read == length || done.written == room) return false;
        const auto byte = static_cast<unsigned char>(text[done.read]);
        if (byte < 0x80) {
            out[done.written++] = byte;
            ++done.read;
            if (done.read == length || static_cast<unsigned char>(text[done.read]) < 0x80) return true;
        } else {
            const std::size_t bytes = GetUtf8(text + done.read, length - done.read, out[done.written]);
            if (bytes == 0) return false;
            done.read += bytes;
            ++done.written;
        }
    }
}

/// Everything that is left.
KY_KERNEL void DecodeRest(const char* text, std::size_t length, unsigned short* out, std::size_t room,
                          Utf8Progress& done) {
    while (DecodeSome(text, length, out, room, done)) {
    }
}

KY_KERNEL Utf8Progress LengthOfText(const char* text, std::size_t length) {
    Utf8Progress done{0, 0};
    if (length != 0) length = strnlen(text, length);
    while (done.read < length) {
        // Few enough for a sum in a byte.
        const std::size_t some = std::min<std::size_t>(length - done.read, 255);
        unsigned char sum = 0;
        for (std::size_t i = 0; i < some; ++i) {
            sum = static_cast<unsigned char>(sum + (static_cast<signed char>(text[done.read + i]) > -0x41));
        }
        done.read += some;
        done.written += sum;
    }
    return done;
}

/// Four units of two bytes each.
KY_KERNEL bool EncodeFourOfTwo(std::uint64_t units, char* out) {
    constexpr std::uint64_t kEach = 0x0001000100010001;
    if ((units & kEach * 0xF800) != 0) return false;
    if ((((units & kEach * 0x780) + kEach * 0x7F80) & kEach * 0x8000) != kEach * 0x8000) return false;
    const std::uint64_t bytes = kEach * 0x80C0 | (units >> 6 & kEach * 0x1F) | (units & kEach * 0x3F) << 8;
    std::memcpy(out, &bytes, sizeof bytes);
    return true;
}

/// Four units of three bytes each.
KY_KERNEL bool EncodeFourOfThree(std::uint64_t units, char* out) {
    constexpr std::uint64_t kEach = 0x0001000100010001;
    if ((((units >> 11 & kEach * 0x1F) + kEach * 0x7FFF) & kEach * 0x8000) != kEach * 0x8000) return false;
    const auto form = [units](unsigned at) {
        const std::uint64_t unit = units >> 16 * at & 0xFFFF;
        return 0x8080E0 | unit >> 12 | (unit >> 6 & 0x3F) << 8 | (unit & 0x3F) << 16;
    };
    const std::uint64_t third = form(2);
    const std::uint64_t low = form(0) | form(1) << 24 | third << 48;
    const auto high = static_cast<std::uint32_t>(third >> 16 | form(3) << 8);
    std::memcpy(out, &low, sizeof low);
    std::memcpy(out + sizeof low, &high, sizeof high);
    return true;
}

/// One after the other, up to `limit` units; false when the kernel has to stop.
KY_KERNEL bool EncodeSome(const char* units, std::size_t count, char* out, std::size_t room, std::size_t limit,
                          Utf8Progress& done) {
    const std::size_t end = count - done.read < limit ? count : done.read + limit;
    while (done.read < end) {
        const unsigned unit = UnitAt(units, done.read);
        const std::size_t size = Utf8SizeOf(unit);
        if (unit >= 0x80 && end - done.read >= 4 && room - done.written >= 4 * size) {
            std::uint64_t word;
            std::memcpy(&word, units + 2 * done.read, sizeof word);
            char* to = out + done.written;
            if (size == 2 ? EncodeFourOfTwo(word, to) : EncodeFourOfThree(word, to)) {
                done.read += 4;
                done.written += 4 * size;
                continue;
            }
        }
        if (unit == 0 || size > room - done.written) return false;
        done.written += PutUtf8(unit, out + done.written);
        ++done.read;
    }
    return done.read < count;
}

/// By way of some units at a time.
KY_KERNEL Utf8Progress BytesToUtf8Text(UnitsToUtf8Kernel* encode, const unsigned short* table, const char* bytes,
                                       std::size_t count, char* out, std::size_t room) {
    char units[512];
    Utf8Progress done{0, 0};
    while (done.read < count) {
        const std::size_t n = std::min(count - done.read, sizeof units / 2);
        BytesToUnits(table, bytes + done.read, n, units);
        const Utf8Progress some = encode(units, n, out + done.written, room - done.written);
        done.read += some.read;
        done.written += some.written;
        if (some.read < n) break;
    }
    return done;
}

KY_KERNEL Utf8Progress Utf8SizeText(const char* units, std::size_t count) {
    constexpr std::size_t kBlock = 32;
    Utf8Progress done{0, 0};
    for (; count - done.read >= kBlock; done.read += kBlock) {
        std::uint16_t block[kBlock];
        std::memcpy(block, units + 2 * done.read, sizeof block);
        std::uint16_t zeros = 0;
        std::uint16_t further = 0;
        for (const std::uint16_t unit : block) {
            zeros = static_cast<std::uint16_t>(zeros + (unit == 0));
            further = static_cast<std::uint16_t>(further + (unit >= 0x80) + (unit >= 0x800));
        }
        if (zeros != 0) break;
        done.written += kBlock + further;
    }
    for (; done.read < count; ++done.read) {
        const unsigned unit = UnitAt(units, done.read);
        if (unit == 0) break;
        done.written += Utf8SizeOf(unit);
    }
    return done;
}

/// The first n of 8 bytes in the order of memory, fewer than 8.
KY_KERNEL void PutBytes(std::uint64_t word, std::size_t n, char* out) {
    if ((n & 4) != 0) {
        std::memcpy(out, &word, 4);
        word >>= 32;
        out += 4;
    }
    if ((n & 2) != 0) {
        std::memcpy(out, &word, 2);
        word >>= 16;
        out += 2;
    }
    if ((n & 1) != 0) *out = static_cast<char>(word);
}

/// The number of ASCII characters at the front of a text. They are copied to `out` unless it is null, which the
/// compiler knows where this is inlined.
KY_KERNEL std::size_t AsciiText(const char* text, std::size_t length, char* out) {
    constexpr std::size_t kBlock = 64;
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    // The lowest of these bits belongs to the first byte that is zero or no ASCII.
    const auto ends = [](std::uint64_t word) { return ((word - kOnes) | word) & kOnes * 0x80; };
    std::size_t at = 0;
    for (; length - at >= kBlock; at += kBlock) {
        std::uint64_t block[kBlock / 8];
        std::memcpy(block, text + at, kBlock);
        std::uint64_t any = 0;
        for (const std::uint64_t word : block) any |= (word - kOnes) | word;
        if ((any & kOnes * 0x80) != 0) break;
        if (out != nullptr) std::memcpy(out + at, block, kBlock);
    }
    std::uint64_t word = 0;
    for (; length - at >= 8; at += 8) {
        std::memcpy(&word, text + at, sizeof word);
        if (ends(word) != 0) break;
        if (out != nullptr) std::memcpy(out + at, &word, sizeof word);
    }
    if (const std::size_t left = length - at; left < 8) {
        // Zeros follow the last bytes.
        word = 0;
        if (length >= 8 && left != 0) {
            std::memcpy(&word, text + length - 8, sizeof word);
            word >>= 8 * (8 - left);
        } else {
            for (std::size_t i = 0; i < left; ++i) {
                word |= std::uint64_t{static_cast<unsigned char>(text[at + i])} << 8 * i;
            }
        }
    }
    const auto n = static_cast<std::size_t>(std::countr_zero(ends(word))) / 8;
    if (out != nullptr) PutBytes(word, n, out + at);
    return at + n;
}

}  // namespace ky

#endif
