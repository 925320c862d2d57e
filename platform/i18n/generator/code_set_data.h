#ifndef CODE_SET_DATA_H
#define CODE_SET_DATA_H

/// The 8-bit code sets as the data describes them.

#include <array>

#include "data_line.h"

namespace ky::tables {

struct CodeSetData {
    Place at;
    unsigned char number = 0;
    std::string name;
    std::array<unsigned short, 256> toUnicode{};  ///< 0: no character

    /// The code of a Unicode character; 0: not in the set.
    unsigned short FromUnicode(unsigned short unicode) const;
};

/// Reads the folder `codesets`. Sorted by number; the first is Latin-1, which has no file: its codes are Unicode's.
std::vector<CodeSetData> ReadCodeSets(const std::filesystem::path& folder);

}  // namespace ky::tables

#endif
