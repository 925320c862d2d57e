#ifndef KYTM_COMMANDS_H
#define KYTM_COMMANDS_H

/// The commands of the program: what each takes, and the call that does its work. Each writes to `out` and, unless it
/// says otherwise, returns `kDone` or `kBadInput`; what cannot be done throws `Failure`.

#include <optional>
#include <string>
#include <vector>

#include "terminal.h"
#include "text_form.h"

namespace kytm {

struct TypesOptions {
    bool json = false;
};
ExitStatus ListTypes(const TypesOptions& options, Output& out);

struct CodeSetsOptions {
    bool json = false;
};
ExitStatus ListCodeSets(const CodeSetsOptions& options, Output& out);

struct LanguagesOptions {
    bool json = false;
};
ExitStatus ListLanguages(const LanguagesOptions& options, Output& out);

struct NowOptions {
    std::optional<std::string> format;
    bool json = false;
};
ExitStatus ShowNow(const NowOptions& options, Output& out);

struct ShowOptions {
    std::string type;
    std::vector<std::string> values;
    TextOptions texts;
    std::optional<std::string> format;
    bool json = false;
};
ExitStatus ShowValues(const ShowOptions& options, Output& out);

struct CompareOptions {
    std::string type;
    std::string first;
    std::string second;
    TextOptions texts;
    std::optional<std::string> op;
    std::optional<std::string> format;
    bool json = false;
};
ExitStatus CompareValues(const CompareOptions& options, Output& out);

struct SortOptions {
    std::string type;
    std::string file;  ///< empty or "-": standard input
    TextOptions texts;
    std::optional<std::string> op;
    std::optional<std::string> format;
    bool reverse = false;   ///< equal lines keep the order of the input all the same
    bool unique = false;    ///< of equal values the first of the input
    bool nullLast = false;  ///< nulls behind all other values, whichever way these are sorted
    bool print = false;     ///< the values' own text instead of the lines
};
ExitStatus SortLines(const SortOptions& options, Output& out);

struct MatchOptions {
    std::string pattern;
    std::string file;  ///< empty or "-": standard input
    TextOptions texts;
    std::optional<std::string> op;
    bool find = false;         ///< anywhere in the line
    bool count = false;        ///< the number of lines instead of them
    bool invert = false;       ///< the lines that do not match
    bool lineNumbers = false;  ///< "12:" in front
};
/// Returns `kDone` when there were such lines, else `kNoMatch`; `kFailed` when some line could not be read.
ExitStatus MatchLines(const MatchOptions& options, Output& out);

}  // namespace kytm

#endif
