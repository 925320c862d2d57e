#include "mistake.h"

#include <algorithm>

#include "texts.h"

namespace kytm {

Failure Mistake(const engine::TextError& error, std::string_view text, const std::string& source) {
    const std::size_t position = std::min(error.Position(), text.size());
    const std::string_view before = text.substr(0, position);
    const std::size_t lineBreak = before.rfind('\n');
    const std::size_t lineBegin = lineBreak == std::string_view::npos ? 0 : lineBreak + 1;
    const std::string_view line = text.substr(lineBegin, text.find('\n', lineBegin) - lineBegin);

    std::string message;
    if (!source.empty()) {
        const auto lineNumber = std::ranges::count(before, '\n') + 1;
        message = source + ", line " + std::to_string(lineNumber) + ": ";
    }
    message.append(error.what()).append("\n  ").append(OneLine(line));
    message.append("\n  ").append(DisplayWidth(OneLine(line.substr(0, position - lineBegin))), ' ').append("^");
    return Failure(message);
}

}  // namespace kytm
