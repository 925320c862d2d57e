#include "kytypfmt.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

constinit const char* pSpecialDoubleFmt = "ldexp(";

void patch_format(char* dst, const char* src, unsigned pos) {
    const std::size_t length = std::strlen(src);
    std::memcpy(dst, src, length + 1);
    if (pos >= length) return;
    constexpr std::size_t letters = 2;
    const std::size_t rest = std::min(pos + letters, length);
    dst[pos] = 's';
    std::memcpy(dst + pos + 1, src + rest, length - rest + 1);
}
