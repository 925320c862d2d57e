#include <charconv>

#include "number_text.h"

namespace ky {

unsigned SignedText(long long value, char* out) {
    char* end = std::to_chars(out, out + kIntegerTextSize - 1, value).ptr;
    *end = 0;
    return static_cast<unsigned>(end - out);
}

unsigned UnsignedText(unsigned long long value, char* out) {
    char* end = std::to_chars(out, out + kIntegerTextSize - 1, value).ptr;
    *end = 0;
    return static_cast<unsigned>(end - out);
}

}  // namespace ky
