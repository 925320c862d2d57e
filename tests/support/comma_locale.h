#ifndef COMMA_LOCALE_H
#define COMMA_LOCALE_H

#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

/// While it lives, `setlocale` has chosen numbers with a decimal comma and a point between thousands. The locale is
/// made by the test itself, because machines that have one of this kind are rare.
class CommaLocale {
public:
    CommaLocale() {
        std::string name = (std::filesystem::temp_directory_path() / "comma_locale_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no directory for a locale");
        directory = name;
        std::filesystem::create_directory(directory / kName);
        WriteNumericCategory(directory / kName / "LC_NUMERIC");
        if (const char* path = std::getenv("LOCPATH")) formerPath = path;
        setenv("LOCPATH", directory.c_str(), 1);
        if (std::setlocale(LC_NUMERIC, kName) == nullptr) throw std::runtime_error("the locale is not taken");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, former.c_str());
        if (formerPath.has_value()) {
            setenv("LOCPATH", formerPath->c_str(), 1);
        } else {
            unsetenv("LOCPATH");
        }
        std::filesystem::remove_all(directory);
    }

private:
    static constexpr const char* kName = "comma";
    std::filesystem::path directory;
    std::string former = std::setlocale(LC_NUMERIC, nullptr);
    std::optional<std::string> formerPath;

    /// A category file of the C library: a mark, the number of items and where each of them stands, then the items:
    /// decimal point, separator and grouping as texts, the first two as wide characters, the code set's name.
    static void WriteNumericCategory(const std::filesystem::path& path) {
        struct File {
            std::uint32_t mark = 0x20031115 ^ LC_NUMERIC;
            std::uint32_t items = 6;
            std::array<std::uint32_t, 6> places = {32, 34, 36, 40, 44, 48};
            std::array<char, 8> texts = {',', 0, '.', 0, 3, 3, 0, 0};
            std::array<std::uint32_t, 2> characters = {',', '.'};
            std::array<char, 8> codeSet = {'U', 'T', 'F', '-', '8', 0, 0, 0};
        };
        const File file;
        std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(&file), sizeof file);
    }
};

#endif
