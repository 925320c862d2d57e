#include "kybase.h"

MemFile::MemFile(void* buffer, std::size_t bufferSize)
    : start(static_cast<unsigned char*>(buffer)), size(buffer != nullptr ? bufferSize : 0), position(0) {}

void* MemFile::Seek(long offset, int origin) {
    std::size_t from = 0;
    switch (origin) {
        case begin:
            from = 0;
            break;
        case current:
            from = position;
            break;
        case end:
            from = size;
            break;
        default:
            return nullptr;
    }
    if (offset < 0) {
        const std::size_t back = std::size_t{0} - static_cast<std::size_t>(offset);
        if (back > from) return nullptr;
        position = from - back;
    } else {
        const auto ahead = static_cast<std::size_t>(offset);
        if (ahead > size - from) return nullptr;
        position = from + ahead;
    }
    return start + position;
}
