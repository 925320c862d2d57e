#ifndef KYTM_TYPE_LOOKUP_H
#define KYTM_TYPE_LOOKUP_H

/// The type manager of the program, and types by the names that people give.

#include <string>
#include <string_view>

#include "kytypmgr.h"

namespace kytm {

/// The one manager of the program, over the rows of today.
KyTypeMgr& Manager();

std::string TypeName(char id);      ///< "o_4b"
std::string TypeCodeName(char id);  ///< "Ky4B_T"
const char* PrintFormat(char id);   ///< "%ld"

/// The id of a type name, of a type-code name, or of a number from 0 to 46. Throws `Failure`, with the nearest
/// names, for anything else.
char FindType(std::string_view name);

/// The same, for work on values: throws `Failure` for types whose values cannot be made, scanned, printed
/// and compared.
char FindUsableType(std::string_view name);

}  // namespace kytm

#endif
