#include "texts.h"

#include <algorithm>

namespace kytm {

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

void AppendHex(std::string& text, unsigned char byte) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
}

/// In lower case, without blanks and punctuation between words.
std::string Core(std::string_view name) {
    std::string core;
    for (const char c : name) {
        if (std::string_view("-_ .:").find(c) == std::string_view::npos) core += AsciiLower(c);
    }
    return core;
}

}  // namespace

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
    const std::string core = Core(a);
    return !core.empty() && core == Core(b);
}

std::size_t Utf8Length(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    // Overlong forms, surrogates, and what lies beyond U+10FFFF.
    const unsigned char second = byte(1);
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F)) return 0;
    if ((first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F)) return 0;
    return length;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

char32_t Utf8Code(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence[0]);
    if (sequence.size() == 1) return first;
    char32_t code = first & (0x7FU >> sequence.size());
    for (const char c : sequence.substr(1)) code = code << 6 | (static_cast<unsigned char>(c) & 0x3F);
    return code;
}

std::string HexBytes(std::span<const unsigned char> bytes) {
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const unsigned char byte : bytes) {
        if (!text.empty()) text += ' ';
        AppendHex(text, byte);
    }
    return text;
}

std::string HexWord(unsigned word) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) AppendHex(text, static_cast<unsigned char>(word >> shift));
    return text;
}

std::string Quoted(std::string_view text, std::size_t limit) {
    std::string quoted = "\"";
    std::size_t used = 0;
    while (used < text.size()) {
        const std::string_view rest = text.substr(used);
        const std::size_t length = Utf8Length(rest);
        const std::size_t step = std::max<std::size_t>(length, 1);
        if (used + step > limit) break;
        const auto byte = static_cast<unsigned char>(rest[0]);
        if (rest[0] == '"' || rest[0] == '\\') {
            quoted += '\\';
            quoted += rest[0];
        } else if (length == 0 || byte < 0x20 || byte == 0x7F) {
            quoted += "\\x";
            AppendHex(quoted, byte);
        } else {
            quoted += rest.substr(0, length);
        }
        used += step;
    }
    quoted += used < text.size() ? "...\"" : "\"";
    return quoted;
}

std::string OneLine(std::string_view text) {
    std::string line;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8Length(text.substr(i));
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte == '\t') {
            line += ' ';
        } else if (length == 0 || byte < 0x20 || byte == 0x7F) {
            line += "\\x";
            AppendHex(line, byte);
        } else {
            line += text.substr(i, length);
        }
        i += std::max<std::size_t>(length, 1);
    }
    return line;
}

std::size_t DisplayWidth(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string Utf8(std::string_view text) {
    if (IsUtf8(text)) return std::string(text);
    std::string wide;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            wide += c;
        } else {
            wide += static_cast<char>(0xC0 | (byte >> 6));
            wide += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return wide;
}

std::string Padded(std::string_view text, std::size_t width) {
    std::string padded(text);
    const std::size_t columns = DisplayWidth(text);
    if (columns < width) padded.append(width - columns, ' ');
    return padded;
}

}  // namespace kytm
