#ifndef KYTM_LINES_H
#define KYTM_LINES_H

/// A text file as lines.

#include <string>
#include <string_view>
#include <vector>

#include "terminal.h"

namespace kytm {

/// One line without its end.
struct Line {
    std::string_view text;
    bool endsWithReturn;  ///< CR LF instead of LF; a last line without an end counts as the line before it

    std::string_view End() const { return endsWithReturn ? "\r\n" : "\n"; }
};

/// The whole of a file; "" or "-" is standard input. Throws `Failure` when it cannot be read.
std::string ReadAll(const std::string& path, Progress& progress);

/// "words.txt, line 12" of the line with this index, for reports.
std::string PlaceOf(const std::string& path, std::size_t index);

/// The lines of a text, which they refer to.
std::vector<Line> SplitLines(std::string_view text);

}  // namespace kytm

#endif
