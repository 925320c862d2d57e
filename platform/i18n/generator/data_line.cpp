#include "data_line.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>

namespace ky::tables {
namespace {

unsigned ParseUnsigned(const Place& at, std::string_view text, int base, unsigned limit, const char* what) {
    unsigned value = 0;
    const char* limitOfText = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), limitOfText, value, base);
    if (error != std::errc() || end != limitOfText || value > limit) {
        throw BadData(at, "\"" + std::string(text) + "\" is not " + what);
    }
    return value;
}

/// One character of a UTF-8 text, which is shortened by it; 0 when there is none of 16 bits.
unsigned short TakeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    const auto continues = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    unsigned code = 0;
    std::size_t length = 0;
    if (byte(0) < 0x80) {
        code = byte(0);
        length = 1;
    } else if ((byte(0) & 0xE0) == 0xC0 && continues(1)) {
        code = (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
        length = 2;
    } else if ((byte(0) & 0xF0) == 0xE0 && continues(1) && continues(2)) {
        code = (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
        length = 3;
    } else {
        return 0;
    }
    text.remove_prefix(length);
    return static_cast<unsigned short>(code);
}

}  // namespace

BadData::BadData(const Place& at, const std::string& message)
    : std::runtime_error((at.line != 0 ? at.file + ":" + std::to_string(at.line) : at.file) + ": " + message) {}

std::string CodeName(unsigned code) {
    std::ostringstream name;
    name << "U+" << std::hex << std::uppercase;
    name.width(4);
    name.fill('0');
    name << code;
    return name.str();
}

unsigned short ParseCode(const Place& at, std::string_view text) {
    const char* what = "a character code of four hexadecimal digits";
    const unsigned code = text.size() == 4 ? ParseUnsigned(at, text, 16, 0xFFFF, what) : 0;
    if (code == 0) throw BadData(at, "\"" + std::string(text) + "\" is not " + what);
    return static_cast<unsigned short>(code);
}

unsigned ParseNumber(const Place& at, std::string_view text, unsigned limit) {
    const std::string what = "a number from 0 to " + std::to_string(limit);
    return ParseUnsigned(at, text, 10, limit, what.c_str());
}

std::vector<unsigned short> ParseText(const Place& at, std::string_view text) {
    const std::string whole(text);
    std::vector<unsigned short> codes;
    while (!text.empty()) {
        const unsigned short code = TakeCharacter(text);
        if (code == 0) throw BadData(at, "\"" + whole + "\" is not UTF-8 text of 16-bit characters");
        codes.push_back(code);
    }
    return codes;
}

std::vector<std::string> SplitAtCommas(const Place& at, std::string_view text) {
    std::vector<std::string> pieces;
    for (;;) {
        const std::size_t comma = text.find(',');
        pieces.emplace_back(text.substr(0, comma));
        if (pieces.back().empty()) throw BadData(at, "nothing before or behind a comma");
        if (comma == std::string_view::npos) return pieces;
        text.remove_prefix(comma + 1);
    }
}

const std::string& DataLine::Next(const char* what) {
    if (AtEnd()) throw BadData(place, std::string(what) + " is missing");
    return fields[next++];
}

void DataLine::ExpectEnd() const {
    if (!AtEnd()) throw BadData(place, "\"" + fields[next] + "\" is not expected here");
}

std::vector<DataLine> ReadLines(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw BadData({file.string()}, "cannot be read");
    std::vector<DataLine> lines;
    Place at{file.string()};
    for (std::string text; std::getline(in, text);) {
        ++at.line;
        std::istringstream words(text.substr(0, text.find('#')));
        std::vector<std::string> fields;
        for (std::string field; words >> field;) fields.push_back(field);
        if (!fields.empty()) lines.emplace_back(at, std::move(fields));
    }
    if (lines.empty()) throw BadData({file.string()}, "says nothing");
    return lines;
}

std::vector<std::filesystem::path> DataFiles(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(folder)) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".txt") files.push_back(entry.path());
        }
    }
    if (files.empty()) throw BadData({folder.string()}, "has no data files");
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace ky::tables
