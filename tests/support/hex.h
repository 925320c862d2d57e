#ifndef HEX_H
#define HEX_H

#include <string>
#include <vector>

/// "01 AF 00": two upper-case digits a byte, parted by blanks.
inline std::string Hex(const void* data, std::size_t size) {
    static constexpr char digits[] = "0123456789ABCDEF";
    const auto* bytes = static_cast<const unsigned char*>(data);
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        if (i != 0) text += ' ';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
    }
    return text;
}

/// The bytes that such a text names.
inline std::vector<unsigned char> Bytes(const std::string& text) {
    std::vector<unsigned char> bytes;
    for (std::size_t at = 0; at + 1 < text.size(); at += 3) {
        bytes.push_back(static_cast<unsigned char>(std::stoul(text.substr(at, 2), nullptr, 16)));
    }
    return bytes;
}

#endif
