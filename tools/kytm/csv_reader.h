#ifndef KYTM_CSV_READER_H
#define KYTM_CSV_READER_H

/// Files of comma-separated values: fields in double quotes hold commas, line ends and quotes (two of them for one).

#include <csv.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "input_file.h"

namespace kytm {

struct CsvField {
    std::string text;
    bool isEmpty = false;  ///< nothing at all stands there, not even quotes
};

struct CsvRow {
    std::size_t line = 0;  ///< of the file, counted from 1, on which it begins
    std::vector<CsvField> fields;
    std::string source;           ///< its lines as they stand in the file
    const char* fault = nullptr;  ///< why they are no row; then there are no fields
};

/// Rows one after another; lines end with a line feed, a return or both. Empty lines are no rows. A row whose quotes
/// are out of place ends with its line.
class CsvReader {
public:
    explicit CsvReader(const std::string& path);
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;
    ~CsvReader();

    /// False at the end.
    bool Next(CsvRow& row);

    std::size_t BytesRead() const { return bytesRead; }
    /// Of the whole file; 0 when that is not known.
    std::size_t SizeHint() const { return sizeHint; }

private:
    InputFile file;
    std::size_t sizeHint;
    std::size_t bytesRead = 0;
    std::vector<char> chunk;
    std::string_view unread;  ///< of the chunk
    bool atEnd = false;

    csv_parser parser{};
    CsvRow begun;  ///< the row that is being read
    std::size_t linesRead = 0;
    bool inQuotes = false;
    bool isBroken = false;  ///< the line that is being read has a quote out of place
    std::deque<CsvRow> complete;

    void ReadMore();
    void Feed(std::string_view piece);
    void EndLine();
    void EndFile();
    void TakeField(const char* text, std::size_t length);
    void TakeRow(const char* fault);
    void StartParser();
};

}  // namespace kytm

#endif
