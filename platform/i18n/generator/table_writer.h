#ifndef TABLE_WRITER_H
#define TABLE_WRITER_H

#include <cstdint>
#include <filesystem>

#include "property_tables.h"

namespace ky::tables {

/// Writes code_set_tables.cpp: the code sets and their mappings.
void WriteCodeSets(const std::filesystem::path& folder, const PropertyTables& tables,
                   const std::vector<CodeSetData>& sets);

/// Writes language_tables.cpp.
void WriteLanguages(const std::filesystem::path& folder, const std::vector<LanguageData>& languages);

/// Writes table_checksum.cpp, which does not compile where kyi18n.h publishes another checksum.
void WriteChecksum(const std::filesystem::path& folder, std::uint64_t checksum);

}  // namespace ky::tables

#endif
