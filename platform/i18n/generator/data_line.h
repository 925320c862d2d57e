#ifndef DATA_LINE_H
#define DATA_LINE_H

/// Lines of the data files, taken apart at their blanks, and what is said when they are wrong.

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ky::tables {

/// Where something stands in the data.
struct Place {
    std::string file;
    unsigned line = 0;
};

/// Data that no tables can be made from. The message begins with the place: "file:line: ...".
class BadData : public std::runtime_error {
public:
    BadData(const Place& at, const std::string& message);
};

/// "U+00E4"
std::string CodeName(unsigned code);

/// A Unicode code of one to four hexadecimal digits, never 0.
unsigned short ParseCode(const Place& at, std::string_view text);
/// A decimal number of at most `limit`.
unsigned ParseNumber(const Place& at, std::string_view text, unsigned limit);
/// The codes of a UTF-8 text; all of them have 16 bits.
std::vector<unsigned short> ParseText(const Place& at, std::string_view text);
/// The pieces between commas; none is empty.
std::vector<std::string> SplitAtCommas(const Place& at, std::string_view text);

/// The fields of one line, read from left to right.
class DataLine {
public:
    DataLine(Place where, std::vector<std::string> lineFields)
        : place(std::move(where)), fields(std::move(lineFields)) {}

    const Place& At() const { return place; }
    bool AtEnd() const { return next == fields.size(); }
    /// The next field; `what` names it in the message when there is none.
    const std::string& Next(const char* what);
    /// Refuses fields that nobody asked for.
    void ExpectEnd() const;

private:
    Place place;
    std::vector<std::string> fields;
    std::size_t next = 0;
};

/// The lines of a file that say something: no comments, no blank lines.
std::vector<DataLine> ReadLines(const std::filesystem::path& file);

/// The files `*.txt` of a folder, by name. A folder that does not exist or is empty is refused.
std::vector<std::filesystem::path> DataFiles(const std::filesystem::path& folder);

}  // namespace ky::tables

#endif
