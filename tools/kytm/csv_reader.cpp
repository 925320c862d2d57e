#include "csv_reader.h"

#include <algorithm>

#include "terminal.h"

namespace kytm {

namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

int NoSpace(unsigned char /*c*/) { return 0; }

/// Up to and with the first line feed, return or both; the whole text when there is none.
std::size_t LineLength(std::string_view text) {
    const std::size_t feed = text.find('\n');
    const std::string_view line = text.substr(0, feed == std::string_view::npos ? feed : feed + 1);
    const std::size_t end = line.find('\r');
    return end == std::string_view::npos || end + 1 == feed ? line.size() : end + 1;
}

}  // namespace

CsvReader::CsvReader(const std::string& path) : file(path), sizeHint(file.SizeHint()), chunk(kChunk) {
    StartParser();
    begun.line = 1;
    ReadMore();
    if (unread.starts_with(kByteOrderMark)) unread.remove_prefix(kByteOrderMark.size());
}

CsvReader::~CsvReader() { csv_free(&parser); }

void CsvReader::StartParser() {
    if (csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL) != 0) throw Failure("out of memory");
    csv_set_space_func(&parser, NoSpace);  // blanks belong to the fields
}

bool CsvReader::Next(CsvRow& row) {
    while (complete.empty()) {
        if (unread.empty()) ReadMore();
        if (atEnd) {
            if (begun.source.empty()) return false;
            EndFile();
            continue;
        }
        // A return without a line feed ends a line, too.
        if (begun.source.ends_with('\r') && !unread.starts_with('\n')) EndLine();
        const std::string_view piece = unread.substr(0, LineLength(unread));
        unread.remove_prefix(piece.size());
        Feed(piece);
        if (piece.ends_with('\n')) EndLine();
    }
    row = std::move(complete.front());
    complete.pop_front();
    return true;
}

void CsvReader::ReadMore() {
    const std::size_t count = file.Read(chunk.data(), chunk.size());
    unread = std::string_view(chunk.data(), count);
    bytesRead += count;
    atEnd = count == 0;
}

void CsvReader::Feed(std::string_view piece) {
    begun.source += piece;
    if (isBroken) return;
    if (std::ranges::count(piece, '"') % 2 != 0) inQuotes = !inQuotes;
    const auto field = [](void* text, std::size_t length, void* self) {
        static_cast<CsvReader*>(self)->TakeField(static_cast<const char*>(text), length);
    };
    const auto row = [](int, void* self) { static_cast<CsvReader*>(self)->TakeRow(nullptr); };
    if (csv_parse(&parser, piece.data(), piece.size(), field, row, this) != piece.size()) isBroken = true;
}

void CsvReader::EndLine() {
    ++linesRead;
    if (isBroken) {
        TakeRow("a quote stands where none can be");
        csv_free(&parser);
        StartParser();
        isBroken = inQuotes = false;
    }
    if (inQuotes) return;
    begun.source.clear();
    begun.line = linesRead + 1;
}

void CsvReader::EndFile() {
    const auto field = [](void* text, std::size_t length, void* self) {
        static_cast<CsvReader*>(self)->TakeField(static_cast<const char*>(text), length);
    };
    const auto row = [](int, void* self) { static_cast<CsvReader*>(self)->TakeRow(nullptr); };
    if (isBroken) {
        TakeRow("a quote stands where none can be");
    } else if (csv_fini(&parser, field, row, this) != 0) {
        TakeRow("a field in quotes that begins here does not end");
    }
    begun.source.clear();
}

void CsvReader::TakeField(const char* text, std::size_t length) {
    CsvField& field = begun.fields.emplace_back();
    field.isEmpty = text == nullptr;
    if (text != nullptr) field.text.assign(text, length);
}

void CsvReader::TakeRow(const char* fault) {
    CsvRow& row = complete.emplace_back(begun);
    row.fault = fault;
    if (fault != nullptr) row.fields.clear();
    begun.fields.clear();
}

}  // namespace kytm
