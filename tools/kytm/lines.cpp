#include "lines.h"

#include <algorithm>

#include "input_file.h"

namespace kytm {

namespace {

constexpr std::size_t kLeastRoom = std::size_t{1} << 16;

}  // namespace

std::string ReadAll(const std::string& path, Progress& progress) {
    InputFile file(path);
    const std::size_t hint = file.SizeHint();
    std::string content;
    content.resize(hint + kLeastRoom);
    std::size_t used = 0;
    while (const std::size_t count = file.Read(content.data() + used, content.size() - used)) {
        used += count;
        progress.Say("reading", used, hint);
        if (content.size() - used < kLeastRoom / 2) content.resize(content.size() * 2);
    }
    content.resize(used);
    return content;
}

std::string PlaceOf(const std::string& path, std::size_t index) {
    return (IsStandardInput(path) ? "standard input" : path) + ", line " + std::to_string(index + 1);
}

std::vector<Line> SplitLines(std::string_view text) {
    std::vector<Line> lines;
    lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const bool hasEnd = end != std::string_view::npos;
        std::string_view line = text.substr(0, end);
        text.remove_prefix(hasEnd ? end + 1 : text.size());
        bool withReturn = hasEnd ? line.ends_with('\r') : !lines.empty() && lines.back().endsWithReturn;
        if (hasEnd && withReturn) line.remove_suffix(1);
        lines.push_back({line, withReturn});
    }
    return lines;
}

}  // namespace kytm
