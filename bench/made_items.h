#ifndef MADE_ITEMS_H
#define MADE_ITEMS_H

/// A table for the benchmarks of the object store: items that are drawn at random, the same ones in every run.

#include <string>
#include <vector>

#include "kystring.h"

namespace bench {

/// Each column has each of its values once.
struct MadeItems {
    explicit MadeItems(int count);

    std::vector<std::string> names;  ///< 12 small letters; order of bytes and of the library's language are the same
    std::vector<KyString> texts;     ///< the same
    std::vector<int> codes;          ///< 0 to the count less 1
    std::vector<double> weights;     ///< eighths of these numbers
    std::vector<int> byName;         ///< the items in the order of their names
};

}  // namespace bench

#endif
