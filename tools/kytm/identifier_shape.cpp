#include "identifier_shape.h"

#include <algorithm>
#include <string>
#include <vector>

#include "kytypes.h"

namespace kytm {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNotLookedAt = " \t\n\v\f\r()";

bool IsOneOf(char c, std::string_view characters) { return characters.find(c) != std::string_view::npos; }

/// A text without blanks and parentheses, taken apart.
struct Shape {
    std::string frame;                      ///< with "0" for each number
    std::vector<std::string_view> numbers;  ///< without leading zeros
};

Shape ShapeOf(std::string_view text) {
    Shape shape;
    while (!text.empty()) {
        std::string_view number = text.substr(0, text.find_first_not_of(kDigits));
        if (number.empty()) {
            if (!IsOneOf(text.front(), kNotLookedAt)) shape.frame += text.front();
            text.remove_prefix(1);
            continue;
        }
        text.remove_prefix(number.size());
        number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
        shape.frame += '0';
        shape.numbers.push_back(number);
    }
    return shape;
}

/// The text by the format of an identifier with the largest number in every field. Fields that follow at once are
/// parted by a blank.
std::string LargestText(std::string_view format) {
    std::string text;
    for (std::size_t at = 0; at < format.size(); ++at) {
        if (format[at] != '%') {
            text += format[at];
            continue;
        }
        if (++at == format.size()) break;
        const char letter = format[at];
        if (IsOneOf(letter, "BLl")) {
            text += "4294967295 ";
        } else if (IsOneOf(letter, "HDCVh")) {
            text += "65535 ";
        } else {
            text += letter;
        }
        if (IsOneOf(letter, "hl")) ++at;
    }
    return text;
}

bool IsAbove(std::string_view number, std::string_view limit) {
    return number.size() != limit.size() ? number.size() > limit.size() : number > limit;
}

}  // namespace

bool IsIdentifier(char id) { return id == KyOBJID_T || id == KyCLID_T || id == KyREF_T; }

IdentifierFault CheckIdentifier(std::string_view text, std::string_view format) {
    const std::string largestText = LargestText(format);
    const Shape given = ShapeOf(text);
    const Shape largest = ShapeOf(largestText);
    if (given.frame != largest.frame) return IdentifierFault::otherForm;
    for (std::size_t i = 0; i < given.numbers.size(); ++i) {
        if (IsAbove(given.numbers[i], largest.numbers[i])) return IdentifierFault::tooLarge;
    }
    return IdentifierFault::none;
}

}  // namespace kytm
