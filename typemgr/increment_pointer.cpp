#include <cstddef>

#include "kytypes.h"

int IncrementPointer(void*& position, void* end, unsigned step) {
    auto* bytes = static_cast<unsigned char*>(position);
    const std::ptrdiff_t left = static_cast<unsigned char*>(end) - bytes;
    if (left <= 0 || static_cast<std::size_t>(left) <= step) return KyErrBufferEnd;
    position = bytes + step;
    return 0;
}
