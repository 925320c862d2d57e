#include "number_columns.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace bench {
namespace {

/// The columns do not start at equal offsets within a page: loads and stores that differ by a multiple of it would get
/// into each other's way, in every benchmark alike but more in some.
constexpr std::size_t columnSpace = (longestColumn + 4096) / 4096 * 4096 + 1024 + 64;

unsigned char* Column(unsigned char* memory, std::size_t index) { return memory + index * columnSpace; }

}  // namespace

const Columns& SharedColumns() {
    static const Columns columns = [] {
        auto* memory = static_cast<unsigned char*>(std::aligned_alloc(64, 3 * columnSpace));
        if (memory == nullptr) throw std::bad_alloc();
        std::memset(memory, 0, 3 * columnSpace);
        unsigned char* values = Column(memory, 0);
        unsigned state = 20240507;
        for (std::size_t i = 0; i < longestColumn; ++i) {
            state = state * 1103515245 + 12345;
            values[i] = static_cast<unsigned char>(state >> 16 & 0x3F);
        }
        std::memcpy(Column(memory, 1), values, longestColumn);
        return Columns{values, Column(memory, 1), Column(memory, 2)};
    }();
    return columns;
}

}  // namespace bench
