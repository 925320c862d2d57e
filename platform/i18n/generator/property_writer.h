#ifndef PROPERTY_WRITER_H
#define PROPERTY_WRITER_H

#include <filesystem>

#include "property_tables.h"

namespace ky::tables {

/// Writes what code sets share:
///
///   table_parts.h       the declarations of what follows
///   rules.cpp           rules, records of variants and contractions, lists of codes
///   property_pages.cpp  the pages
void WriteProperties(const std::filesystem::path& folder, const PropertyTables& tables);

/// The C++ expression for the address of a page; "nullptr" for None.
std::string PageAddress(int page);

}  // namespace ky::tables

#endif
