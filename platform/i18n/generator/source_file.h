#ifndef SOURCE_FILE_H
#define SOURCE_FILE_H

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <string_view>

namespace ky::tables {

/// A C++ source under construction.
class SourceFile {
public:
    /// `head`: what stands between the first comment and the inside of the namespace.
    SourceFile(const std::filesystem::path& path, const std::string& head);

    /// A line.
    void Line(const std::string& text);
    /// Begins a constant array that is declared already, such as "unsigned short codes[3]".
    void BeginArray(const std::string& declaration);
    /// The next of its items, several on a line.
    void Item(const std::string& text);
    void EndArray();

    /// Ends the namespace; `tail` follows. Throws std::runtime_error when something could not be written.
    void Finish(const std::string& tail = "");

private:
    std::string name;
    std::ofstream out;
    std::size_t column = 0;
};

std::string Decimal(std::size_t number);
/// A hexadecimal number of C++.
std::string Hex(unsigned long long number);
/// "{a, b}"
std::string Braces(std::initializer_list<std::string_view> items);
/// "name + number": the address of an element.
std::string ElementOf(std::string_view array, std::size_t number);
/// The text in quotes.
std::string Quoted(const std::string& text);

}  // namespace ky::tables

#endif
