#include <charconv>
#include <cmath>
#include <cstring>

#include "number_text.h"

namespace ky {

namespace {

unsigned Word(const char* word, char* out) {
    const std::size_t length = std::strlen(word);
    std::memcpy(out, word, length + 1);
    return static_cast<unsigned>(length);
}

}  // namespace

unsigned DoubleText(double value, char* out) {
    if (std::isnan(value)) return Word("NaN", out);
    if (std::isinf(value)) return Word(value < 0 ? "-Infinity" : "Infinity", out);
    if (value == 0) return Word(std::signbit(value) ? "-0" : "+0", out);
    char* end = std::to_chars(out, out + kDoubleTextSize - 1, value, std::chars_format::general, 17).ptr;
    *end = 0;
    return static_cast<unsigned>(end - out);
}

}  // namespace ky
