#ifndef CHECKSUM_H
#define CHECKSUM_H

#include <cstdint>

#include "property_tables.h"

namespace ky::tables {

/// Checksum of what the library's interface tells of its tables: 64-bit FNV-1a over these bytes, numbers of 16 bits
/// low byte first, a list as its length (16 bits) and its items.
///
/// - Each 8-bit code set and then Unicode, in the order of their numbers: the number (one byte); for each code from
///   1 to the last one its Unicode code (0: none) and its record.
/// - A record: the order; where that is not 0, the Unicode codes of upper and lower case, the class (one byte), the
///   list of codes behind the upper-case form, the list of further orders, the number of language variants, each as
///   variant (one byte) and record, the number of contractions, each as the list of characters after the first and
///   record. A record without rules has four zeros there.
/// - Each language in the order of their numbers: number and variant (one byte each), and the 128 ranks of the
///   classes.
std::uint64_t Checksum(const PropertyTables& tables, const std::vector<CodeSetData>& sets,
                       const std::vector<LanguageData>& languages);

}  // namespace ky::tables

#endif
