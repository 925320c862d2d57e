#include "source_file.h"

#include <sstream>
#include <stdexcept>

namespace ky::tables {
namespace {

constexpr std::size_t kLineLength = 110;

}  // namespace

SourceFile::SourceFile(const std::filesystem::path& path, const std::string& head)
    : name(path.string()), out(path, std::ios::binary | std::ios::trunc) {
    out << "// Made from the files under platform/i18n/data by the generator beside them.\n\n"
        << head << "\nnamespace ky::tables {\n\n";
}

void SourceFile::Line(const std::string& text) { out << text << '\n'; }

void SourceFile::BeginArray(const std::string& declaration) { out << "constinit const " << declaration << " = {\n"; }

void SourceFile::Item(const std::string& text) {
    out << text << ',';
    column += text.size() + 1;
    if (column > kLineLength) {
        out << '\n';
        column = 0;
    }
}

void SourceFile::EndArray() {
    out << "};\n\n";
    column = 0;
}

void SourceFile::Finish(const std::string& tail) {
    out << "\n}  // namespace ky::tables\n" << tail;
    out.close();
    if (!out) throw std::runtime_error(name + ": cannot be written");
}

std::string Decimal(std::size_t number) { return std::to_string(number); }

std::string Hex(unsigned long long number) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << number;
    return text.str();
}

std::string Braces(std::initializer_list<std::string_view> items) {
    std::string text = "{";
    for (const std::string_view item : items) {
        if (text.size() > 1) text += ", ";
        text += item;
    }
    return text += "}";
}

std::string ElementOf(std::string_view array, std::size_t number) {
    std::string text(array);
    text += " + ";
    return text += Decimal(number);
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace ky::tables
