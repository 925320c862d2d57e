/// Turns the data of the tables into C++ source: ky_table_generator DATA_FOLDER OUTPUT_FOLDER
///
/// Exit code 0, or 1 with a message that begins with file and line when the data is wrong. Prints the checksum.

#include <exception>
#include <iostream>

#include "checks.h"
#include "checksum.h"
#include "property_writer.h"
#include "source_file.h"
#include "table_writer.h"

namespace {

void Generate(const std::filesystem::path& data, const std::filesystem::path& out) {
    using namespace ky::tables;  // NOLINT(google-build-using-namespace): the whole program is about them
    const Characters characters = ReadCharacters(data / "characters");
    CheckCharacters(characters);
    const std::vector<CodeSetData> sets = ReadCodeSets(data / "codesets");
    CheckCodeSets(sets, characters);
    const std::vector<LanguageData> languages = ReadLanguages(data / "languages", characters);
    CheckLanguages(languages, characters);

    const PropertyTables tables = BuildTables(characters, sets, languages);
    const std::uint64_t checksum = Checksum(tables, sets, languages);
    std::filesystem::create_directories(out);
    WriteProperties(out, tables);
    WriteCodeSets(out, tables, sets);
    WriteLanguages(out, languages);
    WriteChecksum(out, checksum);
    std::cout << "checksum " << Hex(checksum) << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: ky_table_generator DATA_FOLDER OUTPUT_FOLDER\n";
        return 2;
    }
    try {
        Generate(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
