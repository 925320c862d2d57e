#ifndef CHECKS_H
#define CHECKS_H

/// What has to hold between characters, code sets and languages. All of these throw BadData.

#include "code_set_data.h"
#include "language_data.h"

namespace ky::tables {

/// Codes that may not be their own order have records; case mappings and expansions lead to characters; no two
/// characters that are not canonically equivalent share their place in the order; wildcard characters are alone
/// with their order values.
void CheckCharacters(const Characters& characters);

/// Every character of a code set has a record.
void CheckCodeSets(const std::vector<CodeSetData>& sets, const Characters& characters);

/// What a language adds or moves shares its place with nothing that the language sees, and expands into no wildcard.
// KEPT: two languages may put different letters in one place, since an order value cannot number them all; texts of the
// two are then equal. Comparisons in the neutral language tell them apart.
void CheckLanguages(const std::vector<LanguageData>& languages, const Characters& characters);

}  // namespace ky::tables

#endif
