#include "number_format.h"

#include <algorithm>
#include <charconv>

namespace kytm {

namespace {

constexpr std::string_view kFlags = "-+ #0'";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kLengths = "hlqjztL";
constexpr std::string_view kWholeConversions = "diuSxXo";
constexpr std::string_view kRealConversions = "eEfFgGaA";

bool Contains(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

void SkipBlanks(std::string_view& text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
}

void DropBlanksBehind(std::string_view& text) {
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
}

void SkipAll(std::string_view& text, std::string_view set) {
    while (!text.empty() && Contains(set, text.front())) text.remove_prefix(1);
}

bool SkipOne(std::string_view& text, std::string_view set) {
    if (text.empty() || !Contains(set, text.front())) return false;
    text.remove_prefix(1);
    return true;
}

std::size_t SkipDigits(std::string_view& text) {
    const std::size_t before = text.size();
    SkipAll(text, kDigits);
    return before - text.size();
}

bool EqualIgnoringCase(std::string_view text, std::string_view lowerCase) {
    return text.size() == lowerCase.size() &&
           std::equal(text.begin(), text.end(), lowerCase.begin(), [](char a, char b) {
               return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
           });
}

/// Steps over what a literal part of a format stands for; blanks in it match any run of blanks.
bool SkipLiteral(std::string_view& text, std::string_view literal) {
    for (const char c : literal) {
        if (IsBlank(c)) {
            SkipBlanks(text);
        } else if (!text.empty() && text.front() == c) {
            text.remove_prefix(1);
        } else {
            return false;
        }
    }
    return true;
}

/// The same from the end of the text.
bool DropLiteral(std::string_view& text, std::string_view literal) {
    for (auto c = literal.rbegin(); c != literal.rend(); ++c) {
        if (IsBlank(*c)) {
            DropBlanksBehind(text);
        } else if (!text.empty() && text.back() == *c) {
            text.remove_suffix(1);
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<NumberFormat> NumberFormat::Parse(std::string_view format) {
    NumberFormat result;
    result.wordsOnly17g = format == "%.17g";
    std::string* literal = &result.before;
    while (!format.empty()) {
        if (!SkipOne(format, "%")) {
            literal->push_back(format.front());
            format.remove_prefix(1);
            continue;
        }
        if (SkipOne(format, "%")) {
            literal->push_back('%');
            continue;
        }
        if (result.conversion != 0) return std::nullopt;
        SkipAll(format, kFlags);
        SkipAll(format, kDigits);
        if (SkipOne(format, ".")) SkipAll(format, kDigits);
        SkipAll(format, kLengths);
        if (format.empty()) return std::nullopt;
        result.conversion = format.front();
        format.remove_prefix(1);
        if (!result.IsCharacter() && !result.IsWhole() && !result.IsReal()) return std::nullopt;
        literal = &result.after;
    }
    if (result.conversion == 0) return std::nullopt;
    return result;
}

bool NumberFormat::IsWhole() const { return Contains(kWholeConversions, conversion); }

bool NumberFormat::IsReal() const { return Contains(kRealConversions, conversion); }

int NumberFormat::Base() const {
    switch (conversion) {
        case 'i':
            return 0;
        case 'o':
            return 8;
        case 'x':
        case 'X':
            return 16;
        default:
            return 10;
    }
}

std::optional<std::string_view> NumberFormat::Inner(std::string_view text) const {
    if (!SkipLiteral(text, before)) return std::nullopt;
    if (IsCharacter()) {
        if (!DropLiteral(text, after)) return std::nullopt;
        return text;
    }
    if (!DropLiteral(text, after)) return std::nullopt;
    SkipBlanks(text);
    DropBlanksBehind(text);
    return text;
}

std::string_view WithoutBlanksBehind(std::string_view text) {
    DropBlanksBehind(text);
    return text;
}

std::optional<WholeNumber> ReadWholeNumber(std::string_view text, int base) {
    WholeNumber number;
    number.negative = text.starts_with('-');
    SkipOne(text, "+-");
    const bool hexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (base == 0) base = hexadecimal ? 16 : text.starts_with('0') ? 8 : 10;
    if (base == 16 && hexadecimal) text.remove_prefix(2);
    if (text.starts_with('-')) return std::nullopt;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number.magnitude, base);
    if (stop != end || error == std::errc::invalid_argument) return std::nullopt;
    number.tooLarge = error == std::errc::result_out_of_range;
    return number;
}

bool IsDecimalNumber(std::string_view text) {
    SkipOne(text, "+-");
    std::size_t digits = SkipDigits(text);
    if (SkipOne(text, ".")) digits += SkipDigits(text);
    if (digits == 0) return false;
    if (!SkipOne(text, "eE")) return text.empty();
    SkipOne(text, "+-");
    return SkipDigits(text) != 0 && text.empty();
}

bool IsNumberWord(std::string_view text, bool strict) {
    if (strict) {
        SkipOne(text, text.size() == std::string_view("-infinity").size() ? "-" : "");
    } else {
        SkipOne(text, "+-");
    }
    return EqualIgnoringCase(text, "infinity") || EqualIgnoringCase(text, "nan") ||
           (!strict && EqualIgnoringCase(text, "inf"));
}

}  // namespace kytm
