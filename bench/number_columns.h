#ifndef NUMBER_COLUMNS_H
#define NUMBER_COLUMNS_H

/// The columns of plain numbers that the array benchmarks run over, and the memory they share.

#include <cstddef>
#include <string>

#include "kytypes.h"

namespace bench {

struct NumberType {
    const char* name;
    char id;
    unsigned width;
};

inline constexpr NumberType numberTypes[] = {
    {"o_u1b", KyU1B_T, 1}, {"o_2b", Ky2B_T, 2},         {"o_4b", Ky4B_T, 4},       {"unsigned", KyUNSIGNED_T, 4},
    {"o_8b", Ky8B_T, 8},   {"o_double", KyDOUBLE_T, 8}, {"o_float", KyFLOAT_T, 4},
};

struct Shape {
    const char* name;
    unsigned count;
    std::size_t offset;  ///< of the persistent side from a 64-byte boundary
};

inline constexpr Shape shapes[] = {
    {"1k", 1000, 0},
    {"1k_unaligned", 1000, 3},
    {"32k", 32000, 0},
    {"1M", 1000000, 0},
};

inline constexpr std::size_t longestColumn = 8 * 1000000;

/// Two columns of the same values, finite as any of the types; `spare` has room for one more at any offset.
struct Columns {
    unsigned char* values;
    unsigned char* equalValues;
    unsigned char* spare;
};
const Columns& SharedColumns();

}  // namespace bench

#endif
