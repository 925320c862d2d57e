#include "compare_word.h"

#include <charconv>
#include <optional>
#include <string>

#include "kytypes.h"
#include "terminal.h"
#include "texts.h"

namespace kytm {

namespace {

struct NamedBits {
    std::string_view name;
    unsigned short bits;
};

constexpr NamedBits kNames[] = {
    {"exact", KyCmpExact},         {"ignore-case", KyCmpIgnoreCase},   {"ignore-accent", KyCmpIgnoreAccent},
    {"prefix", KyCmpPrefixResult}, {"string-exact", KyCmpStringExact},
};

std::optional<unsigned short> ParseNumber(std::string_view text) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal) text.remove_prefix(2);
    unsigned short number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<unsigned short> ParseItem(std::string_view item) {
    for (const NamedBits& known : kNames) {
        if (item == known.name) return known.bits;
    }
    return ParseNumber(item);
}

}  // namespace

unsigned short ParseCompareWord(std::string_view text) {
    unsigned word = 0;
    for (std::string_view rest = text;;) {
        const std::size_t end = rest.find_first_of(",+");
        const std::optional<unsigned short> bits = ParseItem(rest.substr(0, end));
        if (!bits) {
            throw Failure("no compare operator: " + Quoted(text) + "; a number up to 0xFFFF, or a list of " +
                          std::string(kCompareWordNames));
        }
        word |= *bits;
        if (end == std::string_view::npos) return static_cast<unsigned short>(word);
        rest.remove_prefix(end + 1);
    }
}

}  // namespace kytm
