#ifndef KYTM_CODE_SETS_H
#define KYTM_CODE_SETS_H

/// The code sets that texts can be in.

#include <string>
#include <string_view>
#include <vector>

namespace kytm {

/// All numbers in ascending order: 0, which is bytes without a code set, then those of characters.
std::vector<unsigned char> CodeSets();

std::string CodeSetName(unsigned char codeSet);  ///< "ISO-8859-1"; "bytes" for 0

/// The number of a code set given by number or name, case and punctuation aside. Throws `Failure`, with the nearest
/// names, for anything else.
unsigned char FindCodeSet(std::string_view name);

}  // namespace kytm

#endif
