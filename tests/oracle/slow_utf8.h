#ifndef SLOW_UTF8_H
#define SLOW_UTF8_H

#include <string>
#include <vector>

/// The `length` bytes that hold a value, spelled bit by bit: one byte "0xxxxxxx", else as many ones as there are bytes,
/// a zero and the value's high bits, then "10xxxxxx" for each further byte. The value has to fit; it need not fill
/// them.
inline std::string SlowUtf8(unsigned value, int length) {
    std::string bits = length == 1 ? std::string("0") : std::string(static_cast<std::size_t>(length), '1') + '0';
    std::size_t valueBits = 8 - bits.size() + 6 * static_cast<std::size_t>(length - 1);
    while (valueBits != 0) {
        if (bits.size() % 8 == 0) bits += "10";
        bits += (value >> --valueBits & 1) != 0 ? '1' : '0';
    }
    std::string bytes;
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        bytes += static_cast<char>(std::stoi(bits.substr(at, 8), nullptr, 2));
    }
    return bytes;
}

/// Bits of value in a form of `length` bytes.
inline int SlowUtf8Bits(int length) { return length == 1 ? 7 : 5 * length + 1; }

/// The bytes of a value in the shortest form that holds it.
inline std::string SlowUtf8(unsigned value) {
    int length = 1;
    while (value >> SlowUtf8Bits(length) != 0) ++length;
    return SlowUtf8(value, length);
}

/// The same of a 16-bit character; each is spelled once in a process.
inline const std::string& SlowUtf8OfUnit(unsigned unit) {
    static const std::vector<std::string> forms = [] {
        std::vector<std::string> spelled;
        for (unsigned value = 0; value < 0x10000; ++value) spelled.push_back(SlowUtf8(value));
        return spelled;
    }();
    return forms[unit];
}

/// The same of each character in turn.
inline std::string SlowUtf8(const std::u16string& units) {
    std::string bytes;
    for (const char16_t unit : units) bytes += SlowUtf8OfUnit(unit);
    return bytes;
}

#endif
