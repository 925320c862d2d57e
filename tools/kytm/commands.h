#ifndef KYTM_COMMANDS_H
#define KYTM_COMMANDS_H

/// The commands of the program: what each takes, and the call that does its work. Each writes to `out` and returns
/// `kDone` or `kBadInput`; what cannot be done throws `Failure`.

#include <optional>
#include <string>
#include <vector>

#include "terminal.h"

namespace kytm {

struct TypesOptions {
    bool json = false;
};
ExitStatus ListTypes(const TypesOptions& options, Output& out);

struct ShowOptions {
    std::string type;
    std::vector<std::string> values;
    std::optional<std::string> format;
    bool json = false;
};
ExitStatus ShowValues(const ShowOptions& options, Output& out);

struct CompareOptions {
    std::string type;
    std::string first;
    std::string second;
    std::optional<std::string> op;
    std::optional<std::string> format;
    bool json = false;
};
ExitStatus CompareValues(const CompareOptions& options, Output& out);

struct SortOptions {
    std::string type;
    std::string file;  ///< empty or "-": standard input
    std::optional<std::string> op;
    std::optional<std::string> format;
    bool reverse = false;   ///< equal lines keep the order of the input all the same
    bool unique = false;    ///< of equal values the first of the input
    bool nullLast = false;  ///< nulls behind all other values, whichever way these are sorted
    bool print = false;     ///< the values' own text instead of the lines
};
ExitStatus SortLines(const SortOptions& options, Output& out);

}  // namespace kytm

#endif
